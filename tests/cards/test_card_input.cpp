// The card view under real mouse and key messages: the hooks it calls, in
// order and with their arguments, the selection, checks and focus it leaves;
// scrolling, sorting, resizing by drag, and Enter and Escape in a modal dialog.
#include "card_fixture.h"
#include "HyUIRes.h"

#include <sstream>

namespace {

using CardInput = CardViewTest<CHyCardView>;
using PhotoInput = CardViewTest<CHyPhotoView>;

// A script of steps separated by blanks. Prefixes: ^ Ctrl, + Shift. Steps:
// cN click card N's body, xN click its check box, dN / DN double click its
// body / check box, rN right click, c- / d- / r- the same on the empty
// cell after the last card, kV key V (virtual-key code).
struct Script
{
    const char* name;
    int cards;
    int flags;
    const char* steps;
    const char* hooks;      // the hooks called, "|"-separated
    const char* selected;   // the selected indexes afterwards
    const char* checked;
    int focus;
};

const Script kScripts[] = {
    { "plain click selects one", 6, 0, "c4", "sel 4 1", "4", "", 4 },
    { "Ctrl adds a card", 6, 0, "c1 ^c4", "sel 1 1|sel 4 1", "1 4", "", 4 },
    { "Shift takes a block of the grid, not an index range", 6, 0, "c1 +c3", "sel 1 1|sel 3 1|sel 0 1|sel 4 1",
      "0 1 3 4", "", 3 },
    { "a release on a multiple selection keeps that card", 6, 0, "c0 ^c1 c1", "sel 0 1|sel 1 1|sel 0 0", "1", "",
      1 },
    { "empty space deselects everything", 5, 0, "c0 ^c1 c-", "sel 0 1|sel 1 1|sel 0 0|sel 1 0", "", "", 1 },
    { "the check box ticks and selects", 6, 1, "x2", "chk 2 1|sel 2 1", "2", "2", 2 },
    { "with check boxes a double click reaches no hook", 6, 1, "d2 D4", "sel 2 1|chk 4 1|sel 2 0|sel 4 1|chk 4 0",
      "4", "", 4 },
    { "without check boxes a double click is reported", 5, 0, "d2 d-", "sel 2 1|dbl 2|sel 2 0|dbl -1", "", "", 2 },
    { "right click selects, then reports", 5, 0, "c0 r3 r-", "sel 0 1|sel 0 0|sel 3 1|rdown 3|rdown -1", "3", "",
      3 },
    { "arrows move the selection", 6, 0, "c1 k39 k40", "sel 1 1|sel 1 0|sel 2 1|sel 2 0|sel 5 1", "5", "", 5 },
    { "Ctrl with an arrow moves only the focus; Space selects it", 6, 0, "c1 ^k39 k32 ^k32 ^k32",
      "sel 1 1|sel 2 1|sel 2 0|sel 2 1", "1 2", "", 2 },
    { "Shift with an arrow or Space does nothing", 6, 0, "c1 +k39 +k32", "sel 1 1", "1", "", 1 },
    { "Down from above a short last row lands on the last card", 5, 0, "c2 k40", "sel 2 1|sel 2 0|sel 4 1", "4", "",
      4 },
    { "Down from the last row goes nowhere", 6, 0, "c4 k40 k37 k38", "sel 4 1|sel 4 0|sel 3 1|sel 3 0|sel 0 1", "0",
      "", 0 },
};

class CardScript : public CardInput, public ::testing::WithParamInterface<Script>
{
protected:
    void Run(const std::string& step)
    {
        unsigned mods = 0;
        size_t at = 0;
        for (; at < step.size() && (step[at] == '^' || step[at] == '+'); ++at)
            mods |= step[at] == '^' ? hytest::kCtrl : hytest::kShift;
        hytest::Modifiers held(mods);
        const char what = step[at];
        const std::string arg = step.substr(at + 1);
        if (what == 'k') {
            hytest::KeyPress(view, (UINT)std::stoi(arg));
            return;
        }
        const int card = arg == "-" ? view.GetCardCount() : std::stoi(arg);
        const CPoint p = arg == "-" ? Cell(card) : (what == 'x' || what == 'D') ? Check(card) : Body(card);
        if (what == 'c' || what == 'x')
            hytest::Click(view, p.x, p.y);
        else if (what == 'd' || what == 'D')
            hytest::DoubleClick(view, p.x, p.y);
        else if (what == 'r')
            view.SendMessage(WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(p.x, p.y));
    }
};

TEST_P(CardScript, HooksSelectionChecksAndFocus)
{
    const Script& s = GetParam();
    Create(s.cards, 660, 340, s.flags);
    std::istringstream steps(s.steps);
    for (std::string step; steps >> step;)
        Run(step);
    EXPECT_EQ(view.Log(), s.hooks);
    EXPECT_EQ(Selected(), s.selected);
    std::string checked;
    for (int i = 0; i < view.GetCardCount(); ++i)
        if (view.IsCardChecked(i))
            checked += (checked.empty() ? "" : " ") + std::to_string(i);
    EXPECT_EQ(checked, s.checked);
    EXPECT_EQ(view.GetFocusCardIndex(), s.focus);
    // The record of the selection answers as the cards do.
    EXPECT_EQ(view.GetFirstSelectedCardIndex(), Selected().empty() ? -1 : std::stoi(Selected()));
    std::string walked;
    for (POSITION pos = view.GetFirstSelectedCardPosition(); pos != nullptr;)
        walked += (walked.empty() ? "" : " ") + std::to_string(view.GetNextSelectedCardIndex(pos));
    EXPECT_EQ(walked, s.selected);
}

INSTANTIATE_TEST_SUITE_P(Cards, CardScript, ::testing::ValuesIn(kScripts),
                         [](const auto& info) { return "Script" + std::to_string(info.index); });

TEST_F(CardInput, SelectionCallsAndTheRecordThroughCollectionChanges)
{
    Create(6);
    view.SelectCard(-1, TRUE, TRUE);   // all, in index order, focus kept
    view.SelectCard(2, TRUE, TRUE);    // already selected: no hook, but the focus moves
    view.CheckCard(3, TRUE, TRUE);
    view.CheckCard(3, TRUE, TRUE);     // reported again though nothing changed
    EXPECT_EQ(view.Log(), "sel 0 1|sel 1 1|sel 2 1|sel 3 1|sel 4 1|sel 5 1|chk 3 1|chk 3 1");
    EXPECT_EQ(view.GetFocusCardIndex(), 2);
    view.DeleteCard(0, TRUE);
    view.SelectCard(1, FALSE, TRUE);
    view.InsertCard(0, nullptr, TRUE);
    view.InsertCard(9, (void*)99, TRUE);   // past the end: default cards fill the gap
    EXPECT_EQ(Selected(), "1 3 4 5");
    EXPECT_EQ(view.GetSelectedCount(), 4);
    EXPECT_EQ(view.GetCardCount(), 10);
    EXPECT_EQ(view.FindCardIndexByData((void*)99), 9);
    EXPECT_EQ(view.GetCard(8)->nSerial, -1);
    EXPECT_EQ(view.FindCardIndex(view.GetCard(4)), 4);
    EXPECT_EQ(view.GetCard(10), nullptr);
    EXPECT_EQ(view.GetCardData(-1), nullptr);
    view.DeleteAllCards(TRUE);
    EXPECT_EQ(view.GetSelectedCount(), 0);
    EXPECT_EQ(view.GetFirstSelectedCardPosition(), nullptr);
}

int CALLBACK ByData(LPARAM a, LPARAM b, LPARAM order) { return (int)(a - b) * (int)order; }

TEST_F(CardInput, SortKeepsFocusSelectionAndChecksWithTheirCards)
{
    Create(0);
    for (int key : { 5, 3, 1, 6, 2, 4 })
        view.AddCard((void*)(INT_PTR)key, FALSE);
    view.SelectCard(1, TRUE, FALSE);   // key 3
    view.SelectCard(3, TRUE, FALSE);   // key 6
    view.CheckCard(2, TRUE, FALSE);    // key 1
    view.SelectCard(4, FALSE, FALSE);  // the focus on key 2
    ASSERT_TRUE(view.SortItems(&ByData, 1));
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(view.GetCardData(i), (void*)(INT_PTR)(i + 1));
    EXPECT_EQ(Selected(), "2 5");
    EXPECT_EQ(view.GetFirstSelectedCardIndex(), 2);
    EXPECT_TRUE(view.IsCardChecked(0));
    EXPECT_EQ(view.GetFocusCardIndex(), 1);
}

TEST_F(CardInput, ScrollingByWheelPageThumbAndEnsureVisible)
{
    Create(0, 660, 340);
    view.ShowWindow(SW_HIDE);   // a shown view repaints its scroll bar at every add
    view.SetCardSize(600, 30, TRUE);   // one column, eleven rows
    for (int i = 0; i < 100000; ++i)
        view.AddCard(nullptr, FALSE);
    view.ShowWindow(SW_SHOW);
    const auto pos = [&] { return view.GetScrollPos(SB_VERT); };
    hytest::MouseWheel(view, 10, 10, -240);
    EXPECT_EQ(pos(), 2);
    view.SendMessage(WM_MOUSEWHEEL, MAKEWPARAM(0, 119), 0);   // less than a notch
    EXPECT_EQ(pos(), 2);
    hytest::KeyPress(view, VK_NEXT);
    EXPECT_EQ(pos(), 13);
    EXPECT_FALSE(view.EnsureVisible(20));
    EXPECT_TRUE(view.EnsureVisible(50));   // below: the last visible row
    EXPECT_EQ(pos(), 40);
    EXPECT_TRUE(view.EnsureVisible(3));    // above: the first
    EXPECT_EQ(pos(), 3);
    // A thumb dragged to row 90,000: the message holds 16 bits of it.
    SCROLLINFO si{ sizeof(si), SIF_POS };
    si.nPos = 90000;
    view.SetScrollInfo(SB_VERT, &si, FALSE);
    view.SendMessage(WM_VSCROLL, MAKEWPARAM(SB_THUMBPOSITION, 3), 0);
    EXPECT_EQ(pos(), 3);
    EXPECT_TRUE(view.EnsureVisible(90000 + 10));
    EXPECT_EQ(pos(), 90000);
    // The scroll bar clamps the position when the view grows.
    hytest::KeyPress(view, VK_END);   // does nothing
    EXPECT_EQ(pos(), 90000);
    view.EnsureVisible(99999);
    EXPECT_EQ(pos(), 100000 - 11);
    view.SetWindowPos(nullptr, 0, 0, 662, 342 + 300, SWP_NOMOVE | SWP_NOZORDER);
    EXPECT_EQ(pos(), 100000 - 21);
}

struct Drag
{
    int fromX, fromY, toX, toY;
    int minW, minH;
    int width, height;   // the card size afterwards
};

const Drag kCardDrags[] = {
    { 218, 40, 258, 40, 50, 50, 260, 170 },   // first boundary: k = 1
    { 438, 40, 478, 40, 50, 50, 240, 170 },   // second: the move shared by two columns
    { 438, 40, 435, 40, 50, 50, 219, 170 },   // -3 / 2 truncates toward zero
    { 218, 40, -10, 40, 0, 0, 1, 170 },       // a minimum of 0 still leaves 1
    { 218, 40, 20, 40, 50, 50, 50, 170 },     // stops at the minimum
    { 40, 168, 40, 198, 50, 50, 220, 200 },   // height
};
const Drag kPhotoDrags[] = {
    { 142, 40, 192, 40, 80, 70, 144, 134 },   // the photo view's largest card
    { 142, 40, 20, 40, 80, 70, 80, 134 },     // and its smallest
};

template <class View>
void DragAndCheck(RecordingView<View>& view, const Drag& d)
{
    view.SetMinCardSize(d.minW, d.minH);
    hytest::MouseDown(view, d.fromX, d.fromY);
    EXPECT_EQ(view.mouseMode, d.fromY == 168 ? 3 : 2);
    hytest::MouseMove(view, d.toX, d.toY);
    hytest::MouseUp(view, d.toX, d.toY);
    int w = 0, h = 0;
    view.GetCardSize(&w, &h);
    EXPECT_EQ(w, d.width);
    EXPECT_EQ(h, d.height);
    EXPECT_EQ(view.mouseMode, 0);
    EXPECT_EQ(view.Log(), "");   // a drag selects nothing
}

class CardDrag : public CardInput, public ::testing::WithParamInterface<Drag> {};
class PhotoDrag : public PhotoInput, public ::testing::WithParamInterface<Drag> {};

}  // namespace

TEST_F(CardInput, CursorsOverTheGapsUnlessResizingIsOff)
{
    Create(6);
    const auto cursorAt = [&](int x, int y) {
        CPoint p(x, y);
        view.ClientToScreen(&p);
        ::SetCursorPos(p.x, p.y);
        view.SendMessage(WM_SETCURSOR, (WPARAM)view.m_hWnd, MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
        return ::GetCursor();
    };
    cursorAt(100, 100);
    guard.Rebase();   // the first pointer move of the process
    const HCURSOR arrow = cursorAt(100, 100), width = cursorAt(218, 40), height = cursorAt(40, 168);
    EXPECT_NE(width, arrow);
    EXPECT_NE(height, arrow);
    EXPECT_NE(width, height);
    EXPECT_EQ(cursorAt(438, 200), width);   // another column boundary, lower down
    EXPECT_EQ(cursorAt(500, 168), height);
    view.SetFlags(HYCARD_NORESIZE);
    EXPECT_EQ(cursorAt(218, 40), arrow);
    hytest::Click(view, 218, 40);   // a press in the gap is a press on empty space
    EXPECT_EQ(view.mouseMode, 0);
}

TEST_P(CardDrag, SetsTheCardSize)
{
    Create(6);
    DragAndCheck(view, GetParam());
}
TEST_P(PhotoDrag, SetsTheCardSize)
{
    Create(6, 576, 268);
    DragAndCheck(view, GetParam());
}
INSTANTIATE_TEST_SUITE_P(Cards, CardDrag, ::testing::ValuesIn(kCardDrags));
INSTANTIATE_TEST_SUITE_P(Cards, PhotoDrag, ::testing::ValuesIn(kPhotoDrags));

// Enter and Escape reach the view before the dialog's own keys: the dialog
// stays open, its default button unpressed.
class CardDialog : public CDialog
{
public:
    CardDialog() : CDialog(100) {}
    RecordingView<CHyCardView> view;
    BOOL OnInitDialog() override
    {
        CDialog::OnInitDialog();
        view.Create(nullptr, "", WS_CHILD | WS_VISIBLE, CRect(0, 0, 442, 172), this, 7);
        for (int i = 0; i < 4; ++i)
            view.AddCard(nullptr, FALSE);
        view.SetFocus();
        return FALSE;
    }
};

TEST_F(CardInput, EnterAndEscapeInAModalDialog)
{
    {
        // The first dialog of the process creates its font and class objects.
        CardDialog first;
        hytest::DialogDriver driver([](HWND h) { ::PostMessage(h, WM_COMMAND, IDCANCEL, 0); });
        first.DoModal();
        hytest::PumpMessages();
        AfxDeleteTempMaps();
        guard.Rebase();
    }
    CardDialog dialog;
    int mode = -1;
    hytest::DialogDriver driver([&](HWND h) {
        // Posted, so that the dialog's own loop delivers them.
        const HWND v = dialog.view.m_hWnd;
        ::PostMessage(v, WM_KEYDOWN, VK_RETURN, 1);
        ::PostMessage(v, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(218, 40));
        ::PostMessage(v, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(300, 40));
        ::PostMessage(v, WM_KEYDOWN, VK_ESCAPE, 1);
        ::PostMessage(v, WM_LBUTTONUP, 0, MAKELPARAM(300, 40));
        ::PostMessage(h, WM_COMMAND, IDCANCEL, 0);
    });
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);   // Enter did not press the default button
    EXPECT_EQ(dialog.view.Log(), "ret");
    EXPECT_EQ(dialog.view.mouseMode, 0);
    int width = 0;
    dialog.view.GetCardSize(&width, nullptr);
    EXPECT_EQ(width, 220);   // Escape cancelled the drag
}

TEST_F(CardInput, SpecialDescriptionShowsItsNoteOnlyForTheKey)
{
    hytest::DialogDriver driver([](HWND h) { ::PostMessage(h, WM_COMMAND, IDOK, 0); });
    EXPECT_EQ(HyIsSpecialDescription(""), 0);
    EXPECT_EQ(HyIsSpecialDescription("kestrel"), 0);
    EXPECT_EQ(driver.Count(), 0);
    guard.Rebase();
    EXPECT_EQ(HyIsSpecialDescription("kestrel7"), 1);
    EXPECT_EQ(driver.Count(), 1);
    guard.Rebase();   // the first dialog of the process creates its font
}
