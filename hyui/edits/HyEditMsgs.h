// Message numbers and constants of the edit controls.
#pragma once

// The in-place editor to its list (sent), and the list to its parent.
enum : unsigned
{
    HYEL_TABNEXT = 0x04AA,         // Tab typed in the editor
    HYEL_TABPREV = 0x04AB,         // Shift+Tab typed in the editor
    HYEL_MENUCHANGED = 0x04AC,     // posted to the parent: wParam control id, lParam MAKELPARAM(row, menuIndex)
    HYEL_ITEMKILLFOCUS = 0x04B4,   // the editor lost the focus (not during a paste)
    HYEL_CHARENTERED = 0x04B5,     // any other character typed in the editor
};

// The time fields and their spin button to the parent (posted).
enum : unsigned
{
    HYET_STEPKEY = 0x1D80,         // wParam control id, lParam +1 (Down, Page Down), -1 (Up, Page Up) or 0
};

// The note field to its parent.
enum : unsigned
{
    HYRE_DBLCLK = 0x2400,          // posted: a double click while not editable
    HYRE_RBUTTONUP = 0x2401,       // posted: wParam the point on screen (x low, y high)
    HYRE_ENTER = 0x2402,           // sent: the keypad's Enter released
    HYRE_KILLFOCUS = 0x2403,       // sent: the focus went
    HYRE_LBUTTONDOWN = 0x2404,     // posted
    HYRE_TAB = 0x2405,             // posted: wParam 1 for Tab, 0 for Shift+Tab
};

enum : int
{
    HYEL_LABEL_LEFT = 6,           // labelStyle: left-aligned label; any other value right-aligns it
    HYEL_ROW_HEIGHT = 18,          // standard one-line row
    HYEL_ROW_HEIGHT_120DPI = 21,   // the same at 120 or more logical pixels per inch
    HYEL_MAX_CHARS = 255,          // a row's default character limit
    HYEL_MENU_TEXT = 1024,         // longest chooser entry text read
};

enum : unsigned long
{
    HYEL_LIST_STYLE = 0x06210000,  // WS_TABSTOP | WS_VSCROLL | WS_CLIPSIBLINGS | WS_CLIPCHILDREN, added at creation
    HYEL_EDITOR_STYLE = 0x40011044,   // WS_CHILD | WS_TABSTOP | ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN
    HYEL_LIST_DLGCODE = 0x83,      // DLGC_WANTARROWS | DLGC_WANTTAB | DLGC_WANTCHARS
    HYEL_CHOOSER_FLAGS = 0x0106,   // TPM_CENTERALIGN | TPM_RIGHTBUTTON | TPM_RETURNCMD
};
