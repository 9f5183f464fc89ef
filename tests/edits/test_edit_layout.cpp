// The edit list's rows in space: heights for lines typed, pasted, set or
// wrapped; scrolling with the editor open; deletes around the open row; the
// pixels it paints; and the objects it holds.
#include "edit_fixture.h"
#include "HyEditGeometry.h"
#include "HyTheme.h"

#include <cstdlib>
#include <cstring>

namespace {

using EditLayout = EditListTest;
using hytest::Renderer;

int Height(RecordingList& list, int row)
{
    int h = 0;
    list.GetItemSize(row, nullptr, &h);
    return h;
}

TEST_F(EditLayout, RowsGrowWithTheirLines)
{
    // lineHeight as an identical editor reports it.
    CEdit twin;
    twin.Create(HYEL_EDITOR_STYLE, CRect(0, 0, 220, list.rowHeight), &scene->parent, 3);
    CRect format;
    twin.GetRect(&format);
    twin.DestroyWindow();
    const int rh = list.rowHeight, lh = format.Height() - 2;
    ASSERT_EQ(list.lineHeight, lh);
    // A value wider than one line of the measured width, narrower than two.
    const int width = list.AddItem("w", "", 0, FALSE), set = list.AddItem("s", "a\r\nb\r\nc", 0, FALSE);
    const int empty = list.AddItem("e", "", 0, FALSE), typed = list.AddItem("t", "", 0, FALSE);
    list.SetItemAcceptEnter(typed, TRUE);
    list.SetItemMinRows(empty, 4);
    CClientDC dc(&list);
    dc.SelectObject(HYThemeGetFont(HYFONT_STANDARD));
    std::string wide;
    while (dc.GetTextExtent((wide + "word ").c_str()).cx < list.Rects(width).value.Width() * 3 / 2)
        wide += "word ";
    EXPECT_EQ(Height(list, width), rh);   // never sized: the standard height
    list.SetItemValue(width, wide.c_str(), TRUE);
    EXPECT_EQ(Height(list, width), rh + lh);
    EXPECT_EQ(Height(list, set), rh + 2 * lh);
    EXPECT_EQ(Height(list, empty), rh + 3 * lh);
    scene->Click(typed);
    scene->Type("a\rb\rc");
    EXPECT_EQ(Height(list, typed), rh + 2 * lh);
    // A paste grows the row as typing does, and the editor stays on it.
    scene->Click(0);
    ASSERT_TRUE(::OpenClipboard(list));
    ::EmptyClipboard();
    HGLOBAL text = ::GlobalAlloc(GMEM_MOVEABLE, 8);
    std::memcpy(::GlobalLock(text), "x\r\ny\r\nz", 8);
    ::GlobalUnlock(text);
    ::SetClipboardData(CF_TEXT, text);
    ::CloseClipboard();
    list.editor.SendMessage(WM_PASTE);
    EXPECT_EQ(Height(list, 0), rh + 2 * lh);
    CRect editor;
    list.editor.GetWindowRect(&editor);
    list.ScreenToClient(&editor);
    EXPECT_EQ(editor, list.Rects(0).value);
    // The cells tile from y = 1.
    EXPECT_EQ(list.Rects(0).cell.top, 1);
    for (int i = 1; i < list.GetItemCount(); ++i)
        EXPECT_EQ(list.Rects(i).cell.top, list.Rects(i - 1).cell.bottom) << i;
}

// Scrolling 40 rows with row 5 open: WM_VSCROLL codes and wheel turns, the
// position they reach, and the editor kept on its row.
TEST_F(EditLayout, ScrollingKeepsTheEditorOnItsRow)
{
    for (int i = 0; i < 40; ++i)
        list.AddItem("Row", "text", 0, FALSE);
    list.SelectItem(5, TRUE, TRUE);
    CRect client;
    list.GetClientRect(&client);
    const int rh = list.rowHeight, page = client.Height(), max = 40 * rh - page;
    struct Step { int code, thumb, wheel, expected; };
    const Step steps[] = {
        { SB_LINEDOWN, 0, 0, rh }, { SB_PAGEDOWN, 0, 0, rh + page }, { SB_LINEUP, 0, 0, page },
        { SB_THUMBPOSITION, 100, 0, 100 }, { SB_THUMBTRACK, 30, 0, 30 }, { SB_ENDSCROLL, 0, 0, 30 },
        { -1, 0, -240, 30 + 2 * rh }, { -1, 0, 120, 30 + rh }, { SB_THUMBPOSITION, 5000, 0, max },
        { SB_LINEDOWN, 0, 0, max }, { SB_THUMBPOSITION, 0, 0, 0 }, { SB_PAGEUP, 0, 0, 0 },
    };
    for (const Step& s : steps) {
        if (s.code >= 0)
            list.SendMessage(WM_VSCROLL, MAKEWPARAM(s.code, s.thumb));
        else
            hytest::MouseWheel(list, 10, 10, s.wheel);
        EXPECT_EQ(list.Pos(), s.expected) << s.code << " " << s.wheel;
        CRect editor;
        list.editor.GetWindowRect(&editor);
        list.ScreenToClient(&editor);
        EXPECT_EQ(editor, list.Rects(5).value) << s.code;
    }
    // EnsureVisible brings a row below into view, bottom aligned.
    list.SelectAndScrollItem(30, TRUE);
    EXPECT_EQ(list.Rects(30).cell.bottom, client.bottom);
}

TEST_F(EditLayout, DeletingAroundTheOpenRowKeepsItsText)
{
    for (const char* v : { "a", "b", "c" })
        list.AddItem("L", v, 0, FALSE);
    scene->Click(2);
    scene->Type("typed");
    list.DeleteItem(0, TRUE);   // above: the editor moves up with its row
    scene->Click(0);
    EXPECT_EQ(list.Value(1), "typed");
    scene->Type("gone");
    list.DeleteItem(0, TRUE);   // the open row goes with its text
    EXPECT_EQ(list.GetItemCount(), 1);
    EXPECT_EQ(list.Value(0), "typed");
    EXPECT_FALSE(list.editor.IsWindowVisible());
}

TEST_F(EditLayout, PaintsBackgroundCellsFramesValuesLabelsAndFocus)
{
    scene->Fill();
    list.AddItem("Hidden", "", 0, FALSE);
    list.CollapseItem(3, TRUE);
    list.AddItem("Left", "", HYEL_LABEL_LEFT, TRUE);
    const COLORREF base = HYThemeGetColor(HYTHEME_LIST), light = HYThemeShiftColor(base, 32),
                   frame = HYThemeShiftColor(base, -32), window = ::GetSysColor(COLOR_WINDOW);
    list.SetFocus();
    Renderer r(list);
    const CListItemRects row = list.Rects(0), hidden = list.Rects(3);
    CRect box(row.value);
    box.InflateRect(1, 1);
    EXPECT_EQ(r.At(5, 0), light);   // above the first cell
    EXPECT_EQ(r.At(box.left, box.CenterPoint().y), frame);
    EXPECT_EQ(r.At(box.left - 1, box.CenterPoint().y), light);   // one pixel
    EXPECT_TRUE(r.AllPixels(CRect(row.value.right - 3, row.value.top, row.value.right, row.value.bottom), window));
    EXPECT_TRUE(r.AllPixels(hidden.cell, light));   // collapsed: only the background
    // Labels: right-aligned against the value column, or at the left.
    const CRect right = r.Ink(row.label, light), left = r.Ink(list.Rects(4).label, light);
    EXPECT_GE(right.right, row.label.right - 2);
    EXPECT_LE(left.left, list.Rects(4).label.left + 2);
    // The focus mark around the label, while the list has the focus and no row is open.
    EXPECT_EQ(r.At(row.label.left - 2, row.label.CenterPoint().y), HYThemeGetFocusColor());
    // An open row: a two-pixel frame of 27, its text shown even when the
    // editor kept the focus while it moved (several rows selected).
    list.SetItemValue(4, "Shown", FALSE);
    list.SelectAllItems(TRUE, TRUE);
    Renderer open(list);
    const CListItemRects last = list.Rects(4);
    CRect outer(last.value);
    outer.InflateRect(2, 2);
    EXPECT_EQ(open.At(outer.left, outer.CenterPoint().y), HYThemeGetColor(HYTHEME_LIST_SELFRAME));
    EXPECT_EQ(open.At(outer.left + 1, outer.CenterPoint().y), HYThemeGetColor(HYTHEME_LIST_SELFRAME));
    EXPECT_NE(open.At(row.label.left - 2, row.label.CenterPoint().y), HYThemeGetFocusColor());
    const RECT ink = open.Ink(last.value, window);
    EXPECT_FALSE(::IsRectEmpty(&ink));
}

TEST_F(EditLayout, ObjectsSteady)
{
    scene->Fill();
    for (int i = 0; i < 30; ++i)
        list.AddItem("Row", "text\r\nmore", 0, FALSE);
    hytest::ObjectGuard guard;
    for (int i = 0; i < 1000; ++i)
        list.RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    guard.Check("1,000 repaints");
    for (int i = 0; i < 100; ++i) {
        RecordingList other;
        other.CreateEx(0, WS_CHILD | WS_VISIBLE, CRect(0, 0, 300, 100), &scene->parent, 9);
        other.AddItem("a", "b", 0, TRUE);
        other.SelectItem(0, TRUE, TRUE);
    }
    hytest::PumpMessages();
    guard.Check("100 lists made and destroyed");
    hytest::PopupMenuRecorder menus;
    for (int i = 0; i < 100; ++i) {
        menus.Choose(i % 2 ? 401 : 0);
        scene->Click(2, true);
    }
    hytest::PumpMessages();
    guard.Check("100 chooser popups");
}

// Run by a serial test entry with the screen at 120 logical pixels per inch.
TEST_F(EditLayout, StandardRowAt120Dpi)
{
    const char* dpi = std::getenv("HY_EXPECT_DPI");
    if (dpi == nullptr)
        GTEST_SKIP() << "needs a 120-DPI screen";
    CClientDC screen(nullptr);
    ASSERT_EQ(screen.GetDeviceCaps(LOGPIXELSY), std::atoi(dpi));
    EXPECT_EQ(list.rowHeight, 21);
    EXPECT_EQ(Height(list, list.AddItem("a", "b", 0, FALSE)), 21);
}

}  // namespace
