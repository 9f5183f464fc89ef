#include "HyColorCatCombo.h"

#include "HyCategoryIds.h"
#include "HyTheme.h"

IMPLEMENT_DYNAMIC(CHyColorCatCombo, CCategoryCombo)

BEGIN_MESSAGE_MAP(CHyColorCatCombo, CCategoryCombo)
END_MESSAGE_MAP()

CHyColorCatCombo::CHyColorCatCombo(int wantColour) : wantColor(wantColour) {}

void CHyColorCatCombo::DrawItem(LPDRAWITEMSTRUCT lpDIS)
{
    CDC* pDC = CDC::FromHandle(lpDIS->hDC);
    CDCSaveState saved(*pDC);
    const CRect item = lpDIS->rcItem;
    COLORREF text = ::GetSysColor(COLOR_WINDOWTEXT), back = ::GetSysColor(COLOR_WINDOW);
    if ((lpDIS->itemState & ODS_SELECTED) != 0)
        text = ~text & 0xFFFFFF, back = ::GetSysColor(COLOR_HIGHLIGHT);
    pDC->FillSolidRect(&item, back);
    if ((lpDIS->itemState & ODS_FOCUS) != 0)
        pDC->DrawFocusRect(&item);
    if (lpDIS->itemID == (UINT)-1)
        return;   // an empty selection field
    const DWORD_PTR data = lpDIS->itemData;
    // Disabled text takes colour 19 (the inactive caption's text), deliberately.
    pDC->SetTextColor((lpDIS->itemState & ODS_DISABLED) != 0 ? ::GetSysColor(COLOR_INACTIVECAPTIONTEXT) : text);
    pDC->SetBkMode(TRANSPARENT);
    pDC->TextOut(item.left + (wantColor ? HYCATCOMBO_TEXT_DX : HYCATCOMBO_TEXT_DX_PLAIN), item.top + 1, GetItemName(data));
    if (!wantColor || data == HYCATCOMBO_ALL || data == HYCATCOMBO_EDIT)
        return;
    const COLORREF colour = HYThemeSwatchColor(HYThemeSwatchOfCategory((WORD)data));
    // Deliberately rounds toward minus infinity.
    const int top = item.top + 1 + ((item.Height() - HYCAT_SWATCH_HEIGHT) >> 1);
    // The right edge is absolute on purpose, as the menu's swatch.
    CRect swatch(item.left + 1, top, HYCATCOMBO_SWATCH_RIGHT, top + HYCAT_SWATCH_HEIGHT);
    pDC->SelectStockObject(BLACK_PEN);
    pDC->SelectStockObject(BLACK_BRUSH);
    swatch.InflateRect(1, 1);
    pDC->Draw3dRect(&swatch, HYThemeShiftColor(colour, HYCAT_EDGE_SHIFT), HYThemeShiftColor(colour, -HYCAT_EDGE_SHIFT));
    swatch.DeflateRect(1, 1);
    pDC->FillSolidRect(&swatch, colour);
}
