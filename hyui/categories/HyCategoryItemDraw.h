// Drawing shared by the owner-drawn items of the category menu and the
// category combo: the item's background, its text and a category swatch.
#pragma once

#include <afxwin.h>

namespace hy {

// Fills the item with the system colour `back` (the highlight when selected)
// and frames it when focused; answers the text colour: `text`, inverted
// when selected.
COLORREF DrawCategoryItemBack(CDC* pDC, const DRAWITEMSTRUCT& dis, int text, int back);

// The item's text from (x, y), transparent; disabled text in system colour 19.
void DrawCategoryItemText(CDC* pDC, const DRAWITEMSTRUCT& dis, COLORREF text, int x, int y, LPCTSTR s);

// A swatch of `colour` filling `swatch`, with light and dark edges one pixel outside it.
void DrawCategorySwatch(CDC* pDC, CRect swatch, COLORREF colour);

}  // namespace hy
