// Painting of the edit list: the background, then each row that meets the
// part to update (cell, value frame, value fill, label, value), then the
// focus mark. One paint draws into the kept buffer and copies it out.
#include "HyEditList.h"
#include "HyCardMarkupDraw.h"
#include "HyEditGeometry.h"
#include "HyTheme.h"

BOOL CHyEditList::OnEraseBkgnd(CDC*)
{
    return TRUE;   // the paint covers every pixel
}

void CHyEditList::OnPaint()
{
    FlushScrollInfo();   // before BeginPaint, so that a bar to redraw waits for the next cycle
    paintBuffer.Paint(*this, [this](CDC& dc, const CRect& client) {
        dc.FillSolidRect(&client, HYThemeShiftColor(HYThemeGetColor(HYTHEME_LIST), 32));
        CFont* oldFont = dc.SelectObject(HYThemeGetFont(HYFONT_STANDARD));
        dc.SetBkMode(TRANSPARENT);
        const DWORD margins = editor.m_hWnd != nullptr ? editor.GetMargins() : 0;
        // Cells stacked as the geometry stacks them, one running sum.
        int top = hy::EditRowCell(nullptr, 0, rowHeight, 0, 0, ScrollPos()).top;
        for (int i = 0; i < GetItemCount() && top < client.bottom; ++i) {
            const CListItem& row = items[i];
            const CRect cell(0, top, row.width, top + hy::EditRowHeight(row.height, rowHeight));
            top = cell.bottom;
            if ((paintOnly == -1 || paintOnly == i) && !row.collapsed && cell.bottom > client.top &&
                dc.RectVisible(&cell))
                DrawRow(dc, i, cell, LOWORD(margins), HIWORD(margins));
        }
        DrawFocusMark(dc);
        dc.SelectObject(oldFont);
    });
}

// The cell needs no fill of its own: the background, drawn first, already
// gave it the list's colour. A frame is its box filled with the frame colour
// and the value filled over it: two fills where four edges would take four.
void CHyEditList::DrawRow(CDC& dc, int nIndex, const CRect& cell, int leftMargin, int rightMargin)
{
    const CListItem& row = items[nIndex];
    CListItemRects r;
    GetItemRects(cell, r);
    const COLORREF base = HYThemeGetColor(HYTHEME_LIST);
    CRect box(r.value);
    box.InflateRect(row.selected ? 2 : 1, row.selected ? 2 : 1);   // selected: a two-pixel frame
    dc.FillSolidRect(&box, row.selected ? HYThemeGetColor(HYTHEME_LIST_SELFRAME) : HYThemeShiftColor(base, -32));
    dc.FillSolidRect(&r.value, ::GetSysColor(COLOR_WINDOW));
    const UINT labelFormat =
        DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS | (row.labelStyle == HYEL_LABEL_LEFT ? DT_LEFT : DT_RIGHT);
    if (row.IsMenuRow())
        HYThemeDrawDropDownLabel(&dc, row.desc.label, &r.label, labelFormat, HYTHEME_LIST);
    else
        HYThemeDrawText(&dc, row.desc.label, -1, &r.label, labelFormat, HYTHEME_LIST);
    if (row.desc.value.IsEmpty())
        return;
    // Inset by the editor's margins, so the text does not shift when the row opens.
    CRect text(r.value);
    text.DeflateRect(leftMargin, 0, rightMargin, 0);
    dc.SetTextColor(::GetSysColor(COLOR_WINDOWTEXT));
    HYThemeDrawText(&dc, row.desc.value, -1, &text, DT_WORDBREAK | DT_NOPREFIX | DT_EDITCONTROL, HYTHEME_CURRENT);
}

// The focus row is marked while the list itself has the focus: once a row is
// open, its editor's caret shows where the keys go. The mark rings the label,
// inside the label column, clear of the value's frame.
void CHyEditList::DrawFocusMark(CDC& dc)
{
    if (GetFocus() != this || editedItem != -1 || focusItem < 0 || focusItem >= GetItemCount() ||
        items[focusItem].collapsed)
        return;
    CListItemRects rects;
    GetItemRects(focusItem, rects);
    rects.label.InflateRect(2, 2);
    HYThemeDrawFocusMark(&dc, &rects.label, HYTHEME_FOCUS);
}

void CHyEditList::DrawFormattedText(CDC* pDC, LPCTSTR lpszText, RECT* pRect)
{
    HyDrawMarkupText(pDC, lpszText, pRect, tabStop);
}
