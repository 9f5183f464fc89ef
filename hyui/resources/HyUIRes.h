// Resource ids of HyUI: strings, dialog templates and their controls,
// bitmaps and cursors. Read by the resource compiler as well as by C++, so
// it holds nothing but #define lines.
#pragma once

// ---- Strings -------------------------------------------------------------
// Day-of-week initials of the date picker's header. The Sunday id comes
// before the Saturday id; the order is intended.
#define IDS_DAY_MONDAY                  12501
#define IDS_DAY_TUESDAY                 12502
#define IDS_DAY_WEDNESDAY               12503
#define IDS_DAY_THURSDAY                12504
#define IDS_DAY_FRIDAY                  12505
#define IDS_DAY_SUNDAY                  12506
#define IDS_DAY_SATURDAY                12507
// The empty card and photo view; starts with two line feeds so that the
// sentence sits on the third line.
#define IDS_CARDS_EMPTY                 12520
#define IDS_PASSWORD_ENTER_TITLE        12527
#define IDS_PASSWORD_INCORRECT          12528
#define IDS_PASSWORD_EDIT_TITLE         12529
// strftime formats of the date picker's year and month menus.
#define IDS_YEAR_MENU_FORMAT            12545
#define IDS_MONTH_MENU_FORMAT           12546
#define IDS_NO_PHOTO                    12547
#define IDS_URL_NO_CONNECTION           14000
#define IDS_URL_INVALID                 14001
#define IDS_URL_IMAGE_CORRUPT           14002
// Not used by the library; kept in the table for the host.
#define IDS_REMIND_DAYS_ON_HANDHELD     33133

// ---- Dialog templates ----------------------------------------------------
#define IDD_PASSWORD_MASKING            548     // "Password", selection with private records
#define IDD_COLOR_CATEGORIES            600     // "Edit Event Categories"
#define IDD_DAY_PICKER                  607     // "Select Date"
#define IDD_EDIT_CONTROLS               12020   // untitled, filled at run time
#define IDD_PASSWORD                    20025   // "Show Private Records"
// Help id of template 20025 while it is titled "Enter Password" (no template of its own).
#define IDD_PASSWORD_ENTER_HELP         20026

// ---- Controls --------------------------------------------------------------
#ifndef IDC_STATIC
#define IDC_STATIC                      (-1)
#endif
// The framework's Help command (0xE146).
#define IDC_HELP_BUTTON                 57670
// Day picker (607).
#define IDC_DAY_PICKER_TODAY            6
#define IDC_DAY_PICKER_CALENDAR         1001    // the picker created in place of the placeholder
#define IDC_DAY_PICKER_PLACEHOLDER      1115
// Colour categories (600).
#define IDC_COLOR_CAT_SWATCH_FIRST      1000    // 16 swatches, 1000 to 1015, created at run time
#define IDC_COLOR_CAT_SWATCH_LAST       1015
#define IDC_COLOR_CAT_LIST              601
#define IDC_COLOR_CAT_NEW               602
#define IDC_COLOR_CAT_DELETE            603
#define IDC_COLOR_CAT_RENAME            604
#define IDC_COLOR_CAT_SELECT_LABEL      605
// Password dialogs (548, 20025).
#define IDC_PASSWORD_EDIT               20059
#define IDC_PASSWORD_USER_NAME          20154

// ---- Bitmaps -------------------------------------------------------------
// Drawn transparently: magenta (255, 0, 255), which is also the colour of
// each picture's top-left pixel, is the see-through colour.
#define IDB_NOTE                        1001    // 16 x 16, 4 bits per pixel
#define IDB_PADLOCK                     14003   // 12 x 15, 4 bits per pixel
#define IDB_CHECK_MARK                  14010   // 8 x 8, 8 bits per pixel, run-length encoded
#define IDB_BUTTON_PLACEHOLDER          14011   // 40 x 32, 8 bits per pixel, run-length encoded

// ---- Cursors -------------------------------------------------------------
#define IDC_CURSOR_RESIZE_WIDTH         14005   // horizontal (left-right) resize
#define IDC_CURSOR_RESIZE_HEIGHT        14006   // vertical (up-down) resize
