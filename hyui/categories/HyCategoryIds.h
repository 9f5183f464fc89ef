// Numbers of the colour-category controls: menu ids, measures, style bits.
#pragma once

#include <windows.h>

enum : UINT
{
    HYCATMENU_FIRST_ID = 1574,         // menu command of category 0; category c is 1574 + c
    HYCATMENU_TEXT_MAX = 1024,         // characters of an item's text read when converting
    HYCATMENU_CONVERT_FLAGS = 0x500,   // MF_BYPOSITION | MF_OWNERDRAW
};
static_assert(HYCATMENU_CONVERT_FLAGS == (MF_BYPOSITION | MF_OWNERDRAW), "conversion flags");

enum : int
{
    HYCATMENU_ITEM_HEIGHT = 20,        // every converted item
    HYCATMENU_CHAR_WIDTH = 7,          // per character of the text
    HYCATMENU_ITEM_PADDING = 42,       // check, swatch and margins
    HYCATMENU_CHECK_INSET = 6,         // tick from (left + 6, top + 6)
    HYCATMENU_SWATCH_LEFT = 18,        // absolute: menu items start at x = 0
    HYCATMENU_SWATCH_RIGHT = 34,
    HYCATMENU_TEXT_X = 40,             // with a swatch
    HYCATMENU_TEXT_X_PLAIN = 21,       // without
    HYCATMENU_TEXT_DY = 3,
    HYCATCOMBO_TEXT_DX = 20,           // from the item's left, with a swatch
    HYCATCOMBO_TEXT_DX_PLAIN = 2,
    HYCATCOMBO_SWATCH_RIGHT = 17,      // absolute
    HYCAT_SWATCH_HEIGHT = 9,
    HYCAT_EDGE_SHIFT = 64,             // light and dark edges: colour +64 / -64
    HYCAT_CHECK_LIGHTEN = 40,          // the 3-D tick's face when unchecked
    HYSWATCHLIST_SWATCH_WIDTH = 12,
    HYSWATCHLIST_SWATCH_DX = 5,        // from the item's left; the text starts 5 after the swatch
};

// Style added to a swatch list at creation: WS_VSCROLL | LBS_NOINTEGRALHEIGHT | LBS_OWNERDRAWFIXED | LBS_SORT.
constexpr DWORD HYSWATCHLIST_STYLE = 0x200112;
static_assert(HYSWATCHLIST_STYLE == (WS_VSCROLL | LBS_NOINTEGRALHEIGHT | LBS_OWNERDRAWFIXED | LBS_SORT), "list style");
// Text of a swatch-list row: DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX.
constexpr UINT HYSWATCHLIST_TEXT_FLAGS = 0x824;
static_assert(HYSWATCHLIST_TEXT_FLAGS == (DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX), "row text flags");
