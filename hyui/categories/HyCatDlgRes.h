// Ids the category dialogs take from the host's resource module (HyHost.dll
// by default): templates, controls and strings. The wording is the host's.
#pragma once

// Templates.
#define IDD_HOST_CATEGORY_NAME          109     // New and Rename: the name edit 142
#define IDD_HOST_CATEGORY_MANAGE        114     // list 140, New 147, Delete 148, Rename 149
#define IDD_HOST_CATEGORY_DELETE        128     // radios 394/395, subscription notice 431

// Controls.
#define IDC_CATEGORY_NAME               142
#define IDC_CATEGORY_LIST               140
#define IDC_CATEGORY_NEW                147
#define IDC_CATEGORY_DELETE             148
#define IDC_CATEGORY_RENAME             149
#define IDC_CATEGORY_KEEP_RECORDS       394     // move the records to category 0
#define IDC_CATEGORY_DELETE_RECORDS     395
#define IDC_CATEGORY_SUBSCRIPTION_NOTE  431

// Strings.
#define IDS_HOST_DELETE_QUESTION        180     // %1 the category
#define IDS_HOST_CATEGORIES             182     // caption of the refusals
#define IDS_HOST_NAME_EMPTY             183
#define IDS_HOST_CATEGORY_CAPTION       285     // %1 the caption name
#define IDS_HOST_TOO_MANY               312
#define IDS_HOST_MERGE                  313     // %1 new, %2 old
#define IDS_HOST_NAME_TAKEN             315     // follows the quoted name
#define IDS_HOST_NAME_TAKEN_CAPTION     316
#define IDS_HOST_SELECT_TO_DELETE       336
#define IDS_HOST_SELECT_TO_RENAME       337
#define IDS_HOST_RENAME_SUBSCRIPTION    422     // %1 new, %2 old
#define IDS_HOST_MERGE_INTO_SUBSCRIPTION 423
#define IDS_HOST_SUBSCRIPTION_DUP_FAILED 424
#define IDS_HOST_SUBSCRIPTION_UPDATE_FAILED 425
#define IDS_HOST_SUBSCRIPTION_FILE      430
#define IDS_HOST_MERGE_FROM_SUBSCRIPTION 432
#define IDS_HOST_MERGE_SUBSCRIPTIONS    433

// Views whose categories can be handheld subscriptions, and the creator codes
// the conduit manager files their subscriptions under (ours). Other views
// have none.
#define HY_VIEW_ADDRESS                 30028
#define HY_VIEW_MEMO                    30029
#define HY_CREATOR_ADDRESS              0x48794164u   // "HyAd"
#define HY_CREATOR_MEMO                 0x48794D6Du   // "HyMm"

// The pixels the delete confirmation loses without its subscription notice.
#define HY_DELETE_NOTE_BAND             30
