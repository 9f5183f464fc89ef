// HyAfx: resource ids of the framework's own resources (HyAfx.dll's string table).
#pragma once

// Prompts used by data exchange and validation.
#define AFX_IDP_PARSE_INT          0xF110
#define AFX_IDP_PARSE_REAL         0xF111
#define AFX_IDP_PARSE_INT_RANGE    0xF112
#define AFX_IDP_PARSE_REAL_RANGE   0xF113
#define AFX_IDP_PARSE_STRING_SIZE  0xF114
#define AFX_IDP_PARSE_RADIO_BUTTON 0xF115
#define AFX_IDP_PARSE_UINT         0xF116
#define AFX_IDS_APP_TITLE          0xE000

// Help: the command of a dialog's Help button, and the base that turns a
// resource id into a help context (HID_BASE_RESOURCE + template id).
#define ID_HELP                    0xE146
#define HID_BASE_RESOURCE          0x00020000UL
