#include "HyColorCatCombo.h"

#include "HyCategoryIds.h"
#include "HyCategoryItemDraw.h"
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
    const COLORREF text = hy::DrawCategoryItemBack(pDC, *lpDIS, COLOR_WINDOWTEXT, COLOR_WINDOW);
    if (lpDIS->itemID == (UINT)-1)
        return;   // an empty selection field
    const DWORD_PTR data = lpDIS->itemData;
    hy::DrawCategoryItemText(pDC, *lpDIS, text, item.left + (wantColor ? HYCATCOMBO_TEXT_DX : HYCATCOMBO_TEXT_DX_PLAIN),
                             item.top + 1, GetItemName(data));
    if (!wantColor || data == HYCATCOMBO_ALL || data == HYCATCOMBO_EDIT)
        return;
    const COLORREF colour = HYThemeSwatchColor(HYThemeSwatchOfCategory((WORD)data));
    // Deliberately rounds toward minus infinity.
    const int top = item.top + 1 + ((item.Height() - HYCAT_SWATCH_HEIGHT) >> 1);
    // The right edge is absolute on purpose, as the menu's swatch.
    CRect swatch(item.left + 1, top, HYCATCOMBO_SWATCH_RIGHT, top + HYCAT_SWATCH_HEIGHT);
    hy::DrawCategorySwatch(pDC, swatch, colour);
}
