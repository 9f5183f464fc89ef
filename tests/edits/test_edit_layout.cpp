// The edit list's rows in space: heights for lines typed, pasted, set or
// wrapped; scrolling with the editor open; the pixels it paints; and the
// objects it holds.
#include "edit_fixture.h"
#include "HyEditGeometry.h"
#include "HyTheme.h"

#include <cstdlib>

namespace {

using EditLayout = EditListTest;
using hytest::Renderer;

// Also run by a serial test entry with the screen at 120 logical pixels per inch.
TEST_F(EditLayout, RowsGrowWithTheirLines)
{
    const char* dpi = std::getenv("HY_EXPECT_DPI");
    ASSERT_EQ(CClientDC(nullptr).GetDeviceCaps(LOGPIXELSY), dpi ? std::atoi(dpi) : 96);
    EXPECT_EQ(list.rowHeight, dpi && std::atoi(dpi) >= 120 ? 21 : 18);
    // lineHeight as an identical editor reports it.
    CEdit twin;
    twin.Create(HYEL_EDITOR_STYLE, CRect(0, 0, 220, list.rowHeight), &scene->parent, 3);
    CRect format;
    twin.GetRect(&format);
    const int rh = list.rowHeight, lh = format.Height() - 2;
    ASSERT_EQ(list.lineHeight, lh);
    // Rows: one line, a value one and a half lines wide, three lines, 4 rows empty, typed.
    scene->Fill();   // the address (row 1) takes Enter
    list.AddItem("s", "a\r\nb\r\nc", 0, FALSE);
    list.SetItemMinRows(list.AddItem("e", "", 0, FALSE), 4);
    CClientDC dc(&list);
    dc.SelectObject(HYThemeGetFont(HYFONT_STANDARD));
    std::string wide;
    while (dc.GetTextExtent((wide + "word ").c_str()).cx < list.Rects(0).value.Width() * 3 / 2)
        wide += "word ";
    list.AddItem("w", wide.c_str(), 0, FALSE);   // measured as it is added
    scene->Run("c1 ta E tb E tc");
    EXPECT_EQ((std::vector<int>{ list.Height(0), list.Height(5), list.Height(3), list.Height(4), list.Height(1) }),
              (std::vector<int>{ rh, rh + lh, rh + 2 * lh, rh + 3 * lh, rh + 2 * lh }));
    // A paste grows the row as typing does, and the editor stays on it.
    scene->Run("c2");
    list.editor.SetWindowText("x\r\ny\r\nz");   // copied by the editor itself
    list.editor.SetSel(0, -1);
    list.editor.Cut();
    list.editor.SendMessage(WM_PASTE);
    EXPECT_EQ(list.Height(2), rh + 2 * lh);
    EXPECT_EQ(list.EditorRect(), list.Rects(2).value);
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
        { SB_LINEDOWN, 0, 0, max }, { -1, 0, 0, max - 10 * rh },   // ten rows deleted: read back, clamped
        { SB_THUMBPOSITION, 0, 0, 0 }, { SB_PAGEUP, 0, 0, 0 },
    };
    for (const Step& s : steps) {
        if (s.code >= 0)
            list.SendMessage(WM_VSCROLL, MAKEWPARAM(s.code, s.thumb));
        else if (s.wheel != 0)
            hytest::MouseWheel(list, 10, 10, s.wheel);
        else
            for (int i = 0; i < 10; ++i)
                list.DeleteItem(39 - i, FALSE);
        EXPECT_EQ(list.Pos(), s.expected) << s.code << " " << s.wheel;
        EXPECT_EQ(list.EditorRect(), list.Rects(5).value) << s.code;
    }
    // EnsureVisible brings a row below into view, bottom aligned.
    list.SelectAndScrollItem(25, TRUE);
    EXPECT_EQ(list.Rects(25).cell.bottom, client.bottom);
}

TEST_F(EditLayout, PaintsBackgroundCellsFramesValuesLabelsAndFocus)
{
    scene->Fill();
    list.AddItem("Hidden", "", 0, FALSE);
    list.CollapseItem(3, TRUE);
    list.AddItem("Left", "Shown", HYEL_LABEL_LEFT, TRUE);
    const COLORREF base = HYThemeGetColor(HYTHEME_LIST), light = HYThemeShiftColor(base, 32),
                   window = ::GetSysColor(COLOR_WINDOW), focus = HYThemeGetFocusColor(),
                   selected = HYThemeGetColor(HYTHEME_LIST_SELFRAME);
    list.SetFocus();
    Renderer r(list);
    const CListItemRects row = list.Rects(0), last = list.Rects(4);
    const int y = row.value.CenterPoint().y, ly = last.value.CenterPoint().y;
    const auto probes = [&](const Renderer& at, std::vector<CPoint> points) {
        std::vector<COLORREF> seen;
        for (CPoint p : points)
            seen.push_back(at.At(p.x, p.y));
        return seen;
    };
    // Background above the first cell, the one-pixel frame and outside it,
    // the value, the focus mark around the label.
    EXPECT_EQ(probes(r, { { 5, 0 }, { row.value.left - 1, y }, { row.value.left - 2, y }, { row.value.right - 2, y },
                          { row.label.left - 2, y } }),
              (std::vector<COLORREF>{ light, HYThemeShiftColor(base, -32), light, window, focus }));
    EXPECT_TRUE(r.AllPixels(list.Rects(3).cell, light));   // collapsed: only the background
    // Labels: right-aligned against the value column, or at the left.
    EXPECT_GE(r.Ink(row.label, light).right, row.label.right - 2);
    EXPECT_LE(r.Ink(last.label, light).left, last.label.left + 2);
    // Open rows: a two-pixel frame of 27, no focus mark, and the last one's
    // text shown although the editor kept the focus while it moved.
    list.SelectAllItems(TRUE, TRUE);
    Renderer open(list);
    EXPECT_EQ(probes(open, { { last.value.left - 2, ly }, { last.value.left - 1, ly }, { row.label.left - 2, y } }),
              (std::vector<COLORREF>{ selected, selected, light }));
    const RECT ink = open.Ink(last.value, window);
    EXPECT_FALSE(::IsRectEmpty(&ink));
    ::SetFocus(scene->frame);   // the first open row closes; no focus, no mark
    EXPECT_EQ(Renderer(list).At(row.label.left - 2, y), light);
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

}  // namespace
