// The edit list under real mouse and key input through the framework's loop:
// what reaches the rows however they are left, the hooks called, where Tab
// goes, the chooser, and the row records.
#include "edit_fixture.h"

#include <sstream>

void WarmUpEdits()
{
    WarmUpStandardControls();
    EditScene scene;
    scene.Fill();
    hytest::PopupMenuRecorder menus;
    menus.Choose(403);
    scene.Click(2, true);
    scene.Click(1);
    scene.Type("a\rb\t");
    scene.Click(0);
    ::SetFocus(scene.after);
    hytest::PumpMessages();
    EditScene second;   // a list that scrolls at its first step
    for (int i = 0; i < 40; ++i)
        second.list.AddItem("Row", "text", 0, FALSE);
    second.list.SelectItem(5, TRUE, TRUE);
    for (int code : { SB_LINEDOWN, SB_PAGEDOWN, SB_THUMBPOSITION, SB_THUMBTRACK, SB_ENDSCROLL })
        second.list.SendMessage(WM_VSCROLL, MAKEWPARAM(code, 100));
    hytest::MouseWheel(second.list, 5, 5, 120);
    hytest::PumpMessages();
}

namespace {

using EditInput = EditListTest;

std::string FocusName(const EditScene& s)
{
    const HWND f = ::GetFocus();
    return f == s.list.m_hWnd ? "list" : f == s.before.m_hWnd ? "before" : f == s.after.m_hWnd ? "after"
         : f == s.list.editor.m_hWnd ? "editor" : f == s.frame.hwnd() ? "frame" : "other";
}

// Steps: cN / lN click row N's value / label, tTEXT type, E Enter, T Tab,
// S Shift+Tab, x click the edit after the list, h hide and show the list.
// Outcome: the values (CR LF shown as ^), the hooks, the Enter key-downs the
// parent got, the focus.
struct RoundTrip { const char *steps, *outcome; };

const RoundTrip kRoundTrips[] = {
    { "c0 tBob x", "Bob,, / sel 0 1|sel 0 0 / 0 / after" },
    { "c1 tOne E tTwo T", "Ann,One^Two, / sel 1 1|sel 1 0|sel 1 1|sel 1 0|sel 2 1 / 0 / editor" },
    { "c0 tX E E T", "X,, / sel 0 1|sel 0 0|sel 1 1 / 2 / editor" },
    { "c2 tZ S S S", "Ann,,Z / sel 2 1|sel 2 0|sel 1 1|sel 1 0|sel 0 1|sel 0 0 / 0 / before" },
    { "c0 tA h", "A,, / sel 0 1|sel 0 0 / 0 / frame" },
    { "c0 l1", "Ann,, / sel 0 1|sel 0 0 / 0 / list" },   // a plain row's label opens nothing
    { "c1 tA E tB c0", "Ann,A^B, / sel 1 1|sel 1 0|sel 1 1|sel 1 0|sel 0 1 / 0 / editor" },
};

class RoundTrips : public EditInput, public ::testing::WithParamInterface<RoundTrip>
{
};

TEST_P(RoundTrips, ValuesHooksEnterAndFocus)
{
    scene->Fill();
    scene->frame.RecordOnly({ WM_KEYDOWN });
    scene->frame.Clear();
    std::istringstream steps(GetParam().steps);
    for (std::string step; steps >> step;) {
        const char what = step[0];
        if (what == 'c' || what == 'l')
            scene->Click(std::stoi(step.substr(1)), what == 'l');
        else if (what == 't')
            scene->Type(step.c_str() + 1);
        else if (what == 'E' || what == 'T' || what == 'S')
            scene->Key(what == 'E' ? VK_RETURN : VK_TAB, what == 'S' ? +hytest::kShift : 0u);
        else if (what == 'x')
            hytest::Click(scene->after, 5, 5);
        else if (what == 'h')
            (list.ShowWindow(SW_HIDE), list.ShowWindow(SW_SHOW));
    }
    std::string values;
    for (int i = 0; i < list.GetItemCount(); ++i)
        values.append(i ? "," : "").append(list.Value(i));
    for (size_t at; (at = values.find("\r\n")) != std::string::npos;)
        values.replace(at, 2, "^");
    EXPECT_EQ(values + " / " + list.log + " / " + std::to_string(scene->frame.Count(WM_KEYDOWN)) + " / " +
                  FocusName(*scene),
              GetParam().outcome);
    for (const hytest::Msg& m : scene->frame.Messages())   // sent, unchanged
        EXPECT_TRUE(m.sent && m.wParam == VK_RETURN && (m.lParam & 0xFFFF) == 1);
}

INSTANTIATE_TEST_SUITE_P(Edits, RoundTrips, ::testing::ValuesIn(kRoundTrips));

// Tab from a list of `rows` rows with row `open` open (-1: the list has the
// focus), with the edits before and after shown or hidden: the row open
// afterwards, else the focused window.
struct TabCase { int rows, open; bool backward, hideBefore, hideAfter; const char* outcome; };

const TabCase kTabs[] = {
    { 3, -1, false, false, false, "row 0" }, { 3, -1, true, false, false, "row 0" },   // both open row 0
    { 3, 1, false, false, false, "row 2" },  { 3, 1, true, false, false, "row 0" },
    { 3, 2, false, false, false, "after" },  { 3, 0, true, false, false, "before" },
    { 3, 0, true, true, false, "list" },     { 3, 2, false, false, true, "list" },
    { 0, -1, false, false, false, "after" }, { 0, -1, true, false, false, "before" },
};

TEST_F(EditInput, TabOpensTheNextRowOrFocusesAVisibleSibling)
{
    for (const TabCase& c : kTabs) {
        SCOPED_TRACE(testing::Message() << c.rows << " rows, open " << c.open << (c.backward ? " back" : ""));
        list.DeleteAllItems(FALSE);
        for (int i = 0; i < c.rows; ++i)
            list.AddItem("L", "v", 0, FALSE);
        scene->before.ShowWindow(c.hideBefore ? SW_HIDE : SW_SHOW);
        scene->after.ShowWindow(c.hideAfter ? SW_HIDE : SW_SHOW);
        ::SetFocus(scene->frame);
        c.open >= 0 ? list.SelectItem(c.open, TRUE, TRUE) : (void)list.SetFocus();
        scene->Key(VK_TAB, c.backward ? +hytest::kShift : 0u);
        const int row = list.GetFirstSelectedItemIndex();
        EXPECT_EQ(row >= 0 ? "row " + std::to_string(row) : FocusName(*scene), c.outcome);
        EXPECT_EQ(list.GetSelectedCount(), row >= 0 ? 1 : 0);
    }
    // Focus arriving from the window before opens the first row, from the
    // window after the last.
    for (int i = 0; i < 3; ++i)
        list.AddItem("L", "v", 0, FALSE);
    for (auto [from, row] : { std::pair<CWnd*, int>{ &scene->before, 0 }, { &scene->after, 2 } }) {
        list.SelectAllItems(FALSE, FALSE);
        from->SetFocus();
        list.SetFocus();
        EXPECT_EQ(list.GetFirstSelectedItemIndex(), row);
        EXPECT_EQ(FocusName(*scene), "editor");
    }
}

// A click on row `row`'s label choosing command `choose` (0: dismissed).
// Rows 2-4: Phone (menu 300 at Home, label following), Tel (menu 300 at
// Work, fixed label), a caller's menu at Email (label following).
struct ChooserCase { int row; UINT choose; const char* outcome; };

const ChooserCase kChoosers[] = {
    { 2, 403, "Mobile 2 post 2,2" },
    { 2, 402, "Home 1 -" },   // the entry already chosen
    { 2, 0, "Home 1 -" },
    { 2, 999, "Home 1 -" },   // no entry bears it
    { 3, 402, "Tel 1 post 3,1" },
    { 4, 502, "Web 1 post 4,1" },
};

TEST_F(EditInput, ChooserMarksPostsOnlyChangesAndKeepsFixedLabels)
{
    CMenu own;
    own.CreatePopupMenu();
    own.AppendMenu(MF_STRING, 501, "Email");
    own.AppendMenu(MF_STRING, 502, "Web");
    for (const ChooserCase& c : kChoosers) {
        SCOPED_TRACE(c.outcome);
        list.DeleteAllItems(FALSE);
        scene->Fill();
        list.AddItem((UINT)EditScene::kMenu, 0, "Tel", "", 0, FALSE);
        list.AddItem(&own, 0, nullptr, "", 0, TRUE);
        scene->frame.RecordOnly({ HYEL_MENUCHANGED });
        scene->frame.Clear();
        hytest::PopupMenuRecorder menus;
        menus.Choose(c.choose);
        const int before = list.GetItemMenuIndex(c.row);
        const CPoint at = list.Rects(c.row).label.CenterPoint();
        hytest::Click(list, at.x, at.y);
        ASSERT_EQ(menus.Count(), 1);
        const hytest::PopupMenuCall& call = menus.Calls()[0];
        CPoint screen(at);
        list.ClientToScreen(&screen);
        EXPECT_EQ(call.flags, 0x0106u);
        EXPECT_EQ(CPoint(call.x, call.y), screen);
        EXPECT_EQ(call.owner, list.m_hWnd);
        for (size_t i = 0; i < call.items.size(); ++i)
            EXPECT_EQ(call.items[i].checked(), (int)i == before) << i;
        CString label;
        list.GetItemLabel(c.row, label);
        std::string outcome = std::string(label) + " " + std::to_string(list.GetItemMenuIndex(c.row)) + " ";
        const hytest::Msg* post = scene->frame.Last(HYEL_MENUCHANGED);
        outcome += post ? "post " + std::to_string(LOWORD(post->lParam)) + "," + std::to_string(HIWORD(post->lParam)) : "-";
        EXPECT_EQ(outcome, c.outcome);
        EXPECT_EQ(scene->frame.Count(HYEL_MENUCHANGED), post ? 1u : 0u);
        if (post) {
            EXPECT_TRUE(!post->sent && post->wParam == EditScene::kListId);
        }
        EXPECT_EQ(list.GetSelectedCount(), 0);   // a label click opens no row
    }
    EXPECT_TRUE(hytest::ReadMenu(own)[0].checked());   // the caller's menu keeps its mark
}

TEST_F(EditInput, RecordsNumbersMenuInfoAndCheckedIndexes)
{
    for (const char* label : { "a", "b", "c" })
        list.AddItem(label, "", 0, FALSE);
    list.DeleteItem(0, FALSE);
    list.AddItem("d", "", 0, FALSE);
    std::string numbers;
    for (int i = 0; i < list.GetItemCount(); ++i)
        numbers += std::to_string(list.GetItem(i)->number);
    EXPECT_EQ(numbers, "123");
    // Labels follow the chosen entry unless fixed; a copy shares the menu.
    const int follows = list.AddItem((UINT)EditScene::kMenu, 2, nullptr, "", 0, FALSE);
    const int fixed = list.AddItem((UINT)EditScene::kMenu, 2, "Tel", "", 0, FALSE);
    list.SetItemMenuIndex(follows, 0);
    list.SetItemMenuIndex(fixed, 0);
    CString a, b;
    list.GetItemLabel(follows, a);
    list.GetItemLabel(fixed, b);
    EXPECT_EQ(std::string(a) + "/" + std::string(b) + "/" + std::to_string(list.GetItemMenuIndex(fixed)), "Work/Tel/0");
    CMenu own;
    own.CreatePopupMenu();
    const CListItem copy(*list.GetItem(list.AddItem(&own, 0, nullptr, "", 0, FALSE)));
    EXPECT_EQ(copy.menu, &own);
    // A missing row does nothing and answers nothing.
    list.SetItemValue(99, "x", TRUE);
    list.SelectItem(-1, TRUE, TRUE);
    EXPECT_EQ(list.GetItem(99), nullptr);
    EXPECT_EQ(list.GetItemMenuIndex(-1), -1);
    EXPECT_EQ(list.Value(99), "");
    // The walk over the selection: positions are index + 1.
    list.SelectItem(1, TRUE, FALSE);
    list.SelectItem(3, TRUE, FALSE);
    std::string walked;
    for (POSITION pos = list.GetFirstSelectedItemPosition(); pos != nullptr;)
        walked += std::to_string(list.GetNextSelectedItemIndex(pos));
    EXPECT_EQ(walked, "13");
}

}  // namespace
