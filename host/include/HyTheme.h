// The theme service of HyHost.dll: colours, fonts, fills and small drawing
// helpers that HyUI asks for instead of owning them. A host with its own look
// replaces HyHost.dll with a library that exports the same functions (the
// numbered ones also by ordinal, see HyHost.def). Palette and reasons:
// docs/theme.md.
//
// Colours are COLORREF (0x00BBGGRR). Everything returned by pointer (fonts,
// brushes) is owned by the theme: created once, never deleted by the caller,
// freed when HyHost.dll leaves the process. All functions are for the
// user-interface thread.
#pragma once

#include <afxver.h>
#include "HyHostExport.h"

class CDC;
class CFont;
class CBrush;

// Theme element ids.
enum : int
{
    HYTHEME_CURRENT = 0,          // HYThemeDrawText: keep the DC's text colour
    HYTHEME_BUTTON = 13,          // owner-drawn buttons: face, edges, caption
    HYTHEME_LIST_SELFRAME = 27,   // frame of the selected edit-list row
    HYTHEME_VIEW = 34,            // card view background, empty-view text, shadow base
    HYTHEME_HEADER = 35,          // header of an unselected card (a gradient)
    HYTHEME_BODY = 36,            // card body and its text
    HYTHEME_HEADER_SEL = 38,      // header of a selected card
    HYTHEME_FOCUS = 39,           // focus mark
    HYTHEME_LIST = 41,            // edit-list base colour (shaded +32 / -32)
    HYTHEME_PHOTO = 68,           // photo box background
    HYTHEME_TAB_ROW = 90,         // the strip behind a tab row; its line is the row's bottom rule
    HYTHEME_TAB = 91,             // an inactive tab
    HYTHEME_TAB_ACTIVE = 92,      // the active tab; its line is the accent of button and flat tabs
    HYTHEME_TAB_PAGE = 93,        // the page area under a tab row
};

// Font ids for HYThemeGetFont.
enum : int
{
    HYFONT_STANDARD = 1,          // "font 1": lists, edit fields, buttons
    HYFONT_CARD_TITLE = 2,        // card header label
    HYFONT_CARD_TEXT = 3,         // card descriptions, categories, empty-view text
    HYFONT_PHOTO_CAPTION = 4,     // "No Photo" and other photo captions
};

// Style kinds and gradient modes of HYThemeStyle.
enum : int
{
    HYSTYLE_SOLID = 0x53,         // one fill colour
    HYSTYLE_GRADIENT = 0x4D,      // fill .. fillEnd
    HYGRADIENT_HORIZONTAL = 2,    // left to right
    HYGRADIENT_HORIZONTAL_MIRROR = 6,  // left to right, then back (end colour in the middle)
};

enum : int
{
    HYSWATCH_COUNT = 16,          // swatch indexes are 1..16
    HYSWATCH_NONE = 0,            // answer for a category without a swatch
    HYCATEGORY_COUNT = 16,        // category indexes 0..15 carry a swatch
};

// HYThemeDrawTransparentBitmap: take the transparent colour from the bitmap's top-left pixel.
constexpr COLORREF HYCLR_TOPLEFT = 0xFF000000;

// Everything a theme element needs to be drawn.
struct HYThemeStyle
{
    int kind;          // HYSTYLE_SOLID or HYSTYLE_GRADIENT
    int mode;          // gradient mode (0 for solid fills)
    COLORREF fill;     // background (the element's "colour"); gradient start
    COLORREF fillEnd;  // gradient end; equals fill for solid styles
    COLORREF text;     // text drawn on the fill
    COLORREF light;    // light edge (top-left of a raised 3-D frame)
    COLORREF dark;     // dark edge (bottom-right of a raised 3-D frame)
    COLORREF line;     // separators drawn on the fill
};

// Owner-draw hook that a replacement theme may install for an element.
typedef BOOL (CALLBACK* HYTHEMEOWNERDRAWPROC)(int nElement, LPDRAWITEMSTRUCT lpDIS);

extern "C" {

// Fill colour of a theme element; unknown ids answer HYThemeFallbackColor(). (ordinal 115)
HYHOST_API COLORREF WINAPI HYThemeGetColor(int nId);
// The colour answered for ids the theme does not know.
HYHOST_API COLORREF WINAPI HYThemeFallbackColor();
// Style record of an element; FALSE (and the fallback style) for an unknown id.
HYHOST_API BOOL WINAPI HYThemeGetStyle(int nId, HYThemeStyle* pStyle);
// Adds nDelta to each of red, green and blue, clamping at 0 and 255. (ordinal 108)
HYHOST_API COLORREF WINAPI HYThemeShiftColor(COLORREF cr, int nDelta);
// HYThemeShiftColor(cr, +64): the light edge of a swatch.
HYHOST_API COLORREF WINAPI HYThemeLighten(COLORREF cr);
// HYThemeShiftColor(cr, -64): the dark edge of a swatch, the card shadow.
HYHOST_API COLORREF WINAPI HYThemeDarken(COLORREF cr);
// Font by HYFONT_* id, owned by the theme; unknown ids answer font 1. (ordinal 116)
HYHOST_API CFont* WINAPI HYThemeGetFont(int nWhich);
// Colour of the keyboard-focus frame. (ordinal 120)
HYHOST_API COLORREF WINAPI HYThemeGetFocusColor();
// Solid brush of the focus colour, owned by the theme.
HYHOST_API CBrush* WINAPI HYThemeGetFocusBrush();
// Brush of the horizontal rules in card descriptions, owned by the theme.
HYHOST_API CBrush* WINAPI HYThemeGetRuleBrush();

// DrawText with the selected font, a transparent background and the text
// colour of nId (HYTHEME_CURRENT: the DC's); restores the DC; answers the height. (ordinal 118)
HYHOST_API int WINAPI HYThemeDrawText(CDC* pDC, LPCTSTR lpszText, int nCount, LPRECT lpRect,
                                      UINT nFormat, int nId);
// A label that opens a menu: the text and a small down arrow after it, in nId's text colour. (ordinal 141)
HYHOST_API int WINAPI HYThemeDrawDropDownLabel(CDC* pDC, LPCTSTR lpszText, LPRECT lpRect,
                                               UINT nFormat, int nId);
// Fills lpRect with nId's style (a gradient spans the whole rectangle).
HYHOST_API void WINAPI HYThemeFillStyle(CDC* pDC, LPCRECT lpRect, int nId);
// Fills lpRect with slice nPart of nParts of nId's gradient spread over nParts such rectangles.
HYHOST_API void WINAPI HYThemeFillGradientSlice(CDC* pDC, LPCRECT lpRect, int nId, int nPart, int nParts);
// Fill of a masked (hidden private) area: nId's colour under a diagonal hatch of its darker shade.
HYHOST_API void WINAPI HYThemeMaskedFill(CDC* pDC, LPCRECT lpRect, int nId);
// Keyboard-focus mark: a two-pixel frame just inside lpRect in nId's colour.
HYHOST_API void WINAPI HYThemeDrawFocusMark(CDC* pDC, LPCRECT lpRect, int nId);
// Card-header decoration for a shown category: a separator at the left of its area, inset 3 pixels.
HYHOST_API void WINAPI HYThemeDrawHeaderDecoration(CDC* pDC, LPCRECT lpCategoryRect, COLORREF crText,
                                                   COLORREF crLine);
// Draws a bitmap at (x, y) leaving crTransparent (HYCLR_TOPLEFT: its top-left pixel) untouched.
HYHOST_API BOOL WINAPI HYThemeDrawTransparentBitmap(CDC* pDC, HBITMAP hBitmap, int x, int y,
                                                    COLORREF crTransparent);
// Draws the part (xSrc, ySrc, cx, cy) of a bitmap at (x, y), clipped to the bitmap.
HYHOST_API BOOL WINAPI HYDrawPartialBitmap(CDC* pDC, HBITMAP hBitmap, int x, int y, int xSrc, int ySrc,
                                           int cx, int cy);
// Offers the drawing of an element to the theme; TRUE when it drew it (the default declines).
HYHOST_API BOOL WINAPI HYThemeOwnerDraw(int nElement, LPDRAWITEMSTRUCT lpDIS);
// Installs a hook that HYThemeOwnerDraw asks first (NULL removes it); answers the previous one.
HYHOST_API HYTHEMEOWNERDRAWPROC WINAPI HYThemeSetOwnerDrawProc(HYTHEMEOWNERDRAWPROC pfn);

// Swatch index (1..16) of a category index; HYSWATCH_NONE outside 0..15. (ordinal 152)
HYHOST_API int WINAPI HYThemeSwatchOfCategory(WORD wCategory);
// RGB of a swatch index 1..16; the fallback colour for any other index. (ordinal 149)
HYHOST_API COLORREF WINAPI HYThemeSwatchColor(int nSwatch);
// Gives a category (0..15) a swatch (1..16); FALSE and no change otherwise. (ordinal 153)
HYHOST_API BOOL WINAPI HYThemeSetCategorySwatch(WORD wCategory, int nSwatch);
// Back to the default category colours (category 0 -> swatch 16, c -> c).
HYHOST_API void WINAPI HYThemeResetCategorySwatches();

}  // extern "C"
