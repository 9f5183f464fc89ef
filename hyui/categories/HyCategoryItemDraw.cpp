#include "HyCategoryItemDraw.h"

#include "HyCategoryIds.h"
#include "HyTheme.h"

namespace hy {

COLORREF DrawCategoryItemBack(CDC* pDC, const DRAWITEMSTRUCT& dis, int text, int back)
{
    COLORREF textColour = ::GetSysColor(text), backColour = ::GetSysColor(back);
    if ((dis.itemState & ODS_SELECTED) != 0)
        textColour = ~textColour & 0xFFFFFF, backColour = ::GetSysColor(COLOR_HIGHLIGHT);
    const CRect item = dis.rcItem;
    pDC->FillSolidRect(&item, backColour);
    if ((dis.itemState & ODS_FOCUS) != 0)
        pDC->DrawFocusRect(&item);
    return textColour;
}

void DrawCategoryItemText(CDC* pDC, const DRAWITEMSTRUCT& dis, COLORREF text, int x, int y, LPCTSTR s)
{
    // Disabled text takes colour 19 (the inactive caption's text), deliberately.
    pDC->SetTextColor((dis.itemState & ODS_DISABLED) != 0 ? ::GetSysColor(COLOR_INACTIVECAPTIONTEXT) : text);
    pDC->SetBkMode(TRANSPARENT);
    pDC->TextOut(x, y, s);
}

void DrawCategorySwatch(CDC* pDC, CRect swatch, COLORREF colour)
{
    pDC->SelectStockObject(BLACK_PEN);
    pDC->SelectStockObject(BLACK_BRUSH);
    swatch.InflateRect(1, 1);
    pDC->Draw3dRect(&swatch, HYThemeShiftColor(colour, HYCAT_EDGE_SHIFT), HYThemeShiftColor(colour, -HYCAT_EDGE_SHIFT));
    swatch.DeflateRect(1, 1);
    pDC->FillSolidRect(&swatch, colour);
}

}  // namespace hy
