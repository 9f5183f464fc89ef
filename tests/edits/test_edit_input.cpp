// The edit list under real mouse and key input through the framework's loop:
// what reaches the rows however they are left, the hooks called, where Tab
// goes, the chooser, and the row records.
#include "edit_fixture.h"

#include <algorithm>
#include <cctype>
#include <sstream>

void EditScene::Run(const std::string& script)
{
    std::istringstream steps(script);
    for (std::string step; steps >> step;) {
        const char what = step[0];
        const int n = std::isdigit((unsigned char)step.back()) ? std::stoi(step.substr(1)) : 0;
        hytest::Modifiers held(what == 'S' ? +hytest::kShift : 0u);
        switch (what) {
        case 'c': case 'l': Click(n, what == 'l'); break;
        case 'd': list.DeleteItem(n, TRUE); break;
        case 'D': list.DeleteAllItems(TRUE); break;
        case 't': hytest::Type(::GetFocus(), step.c_str() + 1); break;
        case 'E': case 'T': case 'S': hytest::KeyPress(::GetFocus(), what == 'E' ? VK_RETURN : VK_TAB); break;
        case 'x': hytest::Click(after, 5, 5); break;
        case 'h': (list.ShowWindow(SW_HIDE), list.ShowWindow(SW_SHOW)); break;
        case 'b': before.ShowWindow(SW_HIDE); break;
        default: (::SetFocus(what == 'k' ? frame : what == 'f' ? before : after), list.SetFocus());   // k, f, g
        }
    }
}

void WarmUpEdits()
{
    WarmUpStandardControls();
    EditScene scene;
    scene.Fill();
    hytest::PopupMenuRecorder menus;
    menus.Choose(403);
    scene.Run("l2 c1 ta E tb T c0 x");
    EditScene second;   // a list that scrolls at its first step
    for (int i = 0; i < 40; ++i)
        second.list.AddItem("Row", "text", 0, FALSE);
    second.list.SelectItem(5, TRUE, TRUE);
    for (int code : { SB_LINEDOWN, SB_PAGEDOWN, SB_THUMBPOSITION, SB_THUMBTRACK, SB_ENDSCROLL })
        second.list.SendMessage(WM_VSCROLL, MAKEWPARAM(code, 100));
    hytest::MouseWheel(second.list, 5, 5, 120);
}

namespace {

using EditInput = EditListTest;

std::string FocusName(const EditScene& s)
{
    const HWND f = ::GetFocus(), windows[] = { s.list, s.before, s.after, s.list.editor, s.frame };
    return std::vector<std::string>{ "list", "before", "after", "editor", "frame", "other" }[std::find(windows, windows + 5, f) - windows];
}

// Steps as EditScene::Run takes them. Outcome: the values (CR LF shown as ^), the hooks, the Enter key-downs the
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
    { "c2 tZ d0 x", ",Z / sel 2 1|sel 1 0 / 0 / after" },   // a delete above: the text stays with its row
    { "c1 tZ d1 x", "Ann, / sel 1 1 / 0 / after" },      // the open row goes with its text
    // Tab with nothing open opens row 0 either way; off the ends it focuses
    // the next visible sibling, or stays; focus from a sibling opens an end.
    { "k S", "Ann,, / sel 0 1 / 0 / editor" },
    { "c2 T", "Ann,, / sel 2 1|sel 2 0 / 0 / after" },
    { "b c0 S", "Ann,, / sel 0 1|sel 0 0 / 0 / list" },
    { "f", "Ann,, / sel 0 1 / 0 / editor" },
    { "g", "Ann,, / sel 2 1 / 0 / editor" },
    { "D k T", " /  / 0 / after" },
};

class RoundTrips : public EditInput, public ::testing::WithParamInterface<RoundTrip>
{
};

TEST_P(RoundTrips, ValuesHooksEnterAndFocus)
{
    scene->Fill();
    scene->frame.RecordOnly({ WM_KEYDOWN });
    scene->frame.Clear();
    scene->Run(GetParam().steps);
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
    CMenu own;   // Email, Web
    own.LoadMenu(EditScene::kMenu + 1);
    scene->frame.RecordOnly({ HYEL_MENUCHANGED });
    for (const ChooserCase& c : kChoosers) {
        list.DeleteAllItems(FALSE);
        scene->Fill();
        list.AddItem((UINT)EditScene::kMenu, 0, "Tel", "", 0, FALSE);
        list.AddItem(own.GetSubMenu(0), 0, nullptr, "", 0, TRUE);
        scene->frame.Clear();
        hytest::PopupMenuRecorder menus;
        menus.Choose(c.choose);
        const int before = list.GetItemMenuIndex(c.row);
        CPoint at = list.Rects(c.row).label.CenterPoint();
        hytest::Click(list, at.x, at.y);
        ASSERT_EQ(menus.Count(), 1);
        // Flags, the click's point on screen, the list as owner, one mark: the entry chosen before.
        const hytest::PopupMenuCall& call = menus.Calls()[0];
        std::string marks;
        for (const hytest::MenuItem& item : call.items)
            marks += item.checked() ? 'x' : '-';
        list.ClientToScreen(&at);
        EXPECT_TRUE(call.flags == 0x0106u && CPoint(call.x, call.y) == at && call.owner == list.m_hWnd &&
                    (::IsMenu(call.menu) != FALSE) == (c.row == 4)) << c.outcome;   // a loaded menu is gone
        EXPECT_EQ(marks, std::string(marks.size(), '-').replace(before, 1, "x")) << c.outcome;
        std::string outcome = list.Label(c.row) + " " + std::to_string(list.GetItemMenuIndex(c.row)) + " -";
        for (const hytest::Msg& m : scene->frame.Messages())   // posted, with the list's id
            outcome.replace(outcome.size() - 1, 1, (m.sent || m.wParam != EditScene::kListId ? "bad " : "post ") +
                                                      std::to_string(LOWORD(m.lParam)) + "," + std::to_string(HIWORD(m.lParam)));
        EXPECT_EQ(outcome + (list.GetSelectedCount() ? " open" : ""), c.outcome);   // a label click opens no row
    }
    EXPECT_TRUE(hytest::ReadMenu(*own.GetSubMenu(0))[0].checked());   // the caller's menu keeps its mark
}

TEST_F(EditInput, RecordsNumbersMenuInfoAndTheSelectionWalk)
{
    for (const char* label : { "a", "b", "c" })
        list.AddItem(label, "", 0, FALSE);
    list.DeleteItem(0, FALSE);
    list.AddItem("d", "", 0, FALSE);
    // Labels follow the chosen entry unless fixed; a copy shares the menu.
    const int follows = list.AddItem((UINT)EditScene::kMenu, 2, nullptr, "", 0, FALSE);
    const int fixed = list.AddItem((UINT)EditScene::kMenu, 2, "Tel", "", 0, FALSE);
    for (int row : { follows, fixed })
        list.SetItemMenuIndex(row, 0);
    std::string seen;
    for (int i = 0; i < list.GetItemCount(); ++i)
        seen += std::to_string(list.GetItem(i)->number);
    EXPECT_EQ(seen + " " + list.Label(follows) + " " + list.Label(fixed) + std::to_string(list.GetItemMenuIndex(fixed)),
              "12345 Work Tel0");
    CMenu own;
    own.CreatePopupMenu();
    EXPECT_EQ(CListItem(*list.GetItem(list.AddItem(&own, 0, nullptr, "", 0, FALSE))).menu, &own);
    // A missing row does nothing and answers nothing.
    list.SetItemValue(99, "x", TRUE);
    list.SelectItem(-1, TRUE, TRUE);
    EXPECT_TRUE(list.GetItem(99) == nullptr && list.GetItemMenuIndex(-1) == -1 && list.Value(99).empty());
    // The walk over the selection: positions are index + 1.
    for (int row : { 1, 3 })
        list.SelectItem(row, TRUE, FALSE);
    seen.clear();
    for (POSITION pos = list.GetFirstSelectedItemPosition(); pos != nullptr;)
        seen += std::to_string(list.GetNextSelectedItemIndex(pos));
    EXPECT_EQ(seen, "13");
}

}  // namespace
