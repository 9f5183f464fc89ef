// The card view under real mouse and key messages: the hooks it calls, in
// order and with their arguments, the selection, checks and focus it leaves;
// scrolling, sorting, resizing by drag, and Enter and Escape in a modal dialog.
#include "card_fixture.h"

#include <functional>
#include <sstream>
#include <tuple>

namespace {

using CardInput = CardViewTest<CHyCardView>;
using PhotoInput = CardViewTest<CHyPhotoView>;

// A script: cards, flags, steps separated by blanks, and the outcome: the
// hooks called, then the selected and checked indexes ("-": none) and the
// focus card.
// Steps, after the prefixes ^ Ctrl and + Shift: cN click card N's body, xN
// its check box, dN / DN double click its body / check box, rN right click,
// c- / d- / r- the same on the empty cell after the last card, kV key V,
// s sort by the cards' data (1..n) in descending order.
struct Script { int cards, flags; const char *steps, *outcome; };

const Script kScripts[] = {
    { 6, 0, "c4", "sel 4 1 / 4 / - / 4" },
    { 6, 0, "c1 ^c4", "sel 1 1|sel 4 1 / 1 4 / - / 4" },
    { 6, 0, "c1 +c3", "sel 1 1|sel 3 1|sel 0 1|sel 4 1 / 0 1 3 4 / - / 3" },   // a block, not the range 1..3
    { 6, 0, "c0 ^c1 c1", "sel 0 1|sel 1 1|sel 0 0 / 1 / - / 1" },   // release on a multiple selection
    { 5, 0, "c0 ^c1 c-", "sel 0 1|sel 1 1|sel 0 0|sel 1 0 / - / - / 1" },
    { 6, 1, "x2", "chk 2 1|sel 2 1 / 2 / 2 / 2" },
    { 6, 1, "d2 D4", "sel 2 1|chk 4 1|sel 2 0|sel 4 1|chk 4 0 / 4 / - / 4" },   // with check boxes: no dbl hook
    { 5, 0, "d2 d-", "sel 2 1|dbl 2|sel 2 0|dbl -1 / - / - / 2" },
    { 5, 0, "c0 r3 r-", "sel 0 1|sel 0 0|sel 3 1|rdown 3|rdown -1 / 3 / - / 3" },
    { 6, 0, "c1 k39 k40", "sel 1 1|sel 1 0|sel 2 1|sel 2 0|sel 5 1 / 5 / - / 5" },
    { 6, 0, "c1 ^k39 k32 ^k32 ^k32", "sel 1 1|sel 2 1|sel 2 0|sel 2 1 / 1 2 / - / 2" },   // Ctrl moves the focus
    { 6, 0, "c1 +k39 +k32", "sel 1 1 / 1 / - / 1" },   // Shift with an arrow or Space does nothing
    { 6, 1, "x2 c0 ^c4 s", "chk 2 1|sel 2 1|sel 2 0|sel 0 1|sel 4 1 / 1 5 / 3 / 1" },   // marks follow the cards
};

int CALLBACK ByData(LPARAM a, LPARAM b, LPARAM order) { return (int)(a - b) * (int)order; }

class CardScript : public CardInput, public ::testing::WithParamInterface<Script>
{
protected:
    void Run(const std::string& step)
    {
        hytest::Modifiers held((step[0] == '^' ? +hytest::kCtrl : 0u) | (step[0] == '+' ? +hytest::kShift : 0u));
        const size_t at = step.find_first_not_of("^+");
        const char what = step[at];
        const std::string arg = step.substr(at + 1);
        if (what == 'k')
            return hytest::KeyPress(view, (UINT)std::stoi(arg));
        if (what == 's')
            return (void)view.SortItems(&ByData, -1);
        const CCardRects r = view.Rects(arg == "-" ? view.GetCardCount() : std::stoi(arg));   // "-": an empty cell
        const CPoint p = CRect(what == 'x' || what == 'D' ? r.rcCheck : r.rcBody).CenterPoint();
        if (what == 'c' || what == 'x')
            hytest::Click(view, p.x, p.y);
        else if (what == 'd' || what == 'D')
            hytest::DoubleClick(view, p.x, p.y);
        else
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
    EXPECT_EQ(view.log + " / " + Selected() + " / " + Which(&CHyCardView::IsCardChecked) + " / " +
                  std::to_string(view.GetFocusCardIndex()),
              s.outcome);
    // The record of the selection answers as the cards do.
    std::string walked;
    for (POSITION pos = view.GetFirstSelectedCardPosition(); pos != nullptr;)
        walked.append(walked.empty() ? "" : " ").append(std::to_string(view.GetNextSelectedCardIndex(pos)));
    EXPECT_EQ(walked.empty() ? "-" : walked, Selected());
    EXPECT_EQ(view.GetFirstSelectedCardIndex(), walked.empty() ? -1 : std::stoi(walked));
    for (int i = 0; i < view.GetCardCount() && s.steps[strlen(s.steps) - 1] == 's'; ++i)
        EXPECT_EQ(view.GetCardData(i), (void*)(INT_PTR)(s.cards - i));
}

INSTANTIATE_TEST_SUITE_P(Cards, CardScript, ::testing::ValuesIn(kScripts));

TEST_F(CardInput, SelectionCallsAndTheRecordThroughCollectionChanges)
{
    Create(6);
    view.SelectCard(-1, TRUE, TRUE);   // all, in index order, focus kept
    view.SelectCard(2, TRUE, TRUE);    // already selected: no hook, but the focus moves
    view.CheckCard(3, TRUE, TRUE);
    view.CheckCard(3, TRUE, TRUE);     // reported again though nothing changed
    EXPECT_EQ(view.log + " / " + std::to_string(view.GetFocusCardIndex()),
              "sel 0 1|sel 1 1|sel 2 1|sel 3 1|sel 4 1|sel 5 1|chk 3 1|chk 3 1 / 2");
    view.DeleteCard(0, TRUE);
    view.SelectCard(1, FALSE, TRUE);
    view.InsertCard(0, nullptr, TRUE);
    view.InsertCard(9, (void*)99, TRUE);   // past the end: default cards fill the gap
    EXPECT_EQ(Selected(), "1 3 4 5");
    EXPECT_EQ((std::array<int, 5>{ view.GetSelectedCount(), view.GetCardCount(), view.FindCardIndexByData((void*)99),
                                   view.GetCard(8)->nSerial, view.FindCardIndex(view.GetCard(4)) }),
              (std::array<int, 5>{ 4, 10, 9, -1, 4 }));
    EXPECT_TRUE(view.GetCard(10) == nullptr && view.GetCardData(-1) == nullptr);   // bad indexes
    view.DeleteAllCards(TRUE);
    EXPECT_TRUE(view.GetSelectedCount() == 0 && view.GetFirstSelectedCardPosition() == nullptr);
}

TEST_F(CardInput, ScrollingByWheelPageThumbAndEnsureVisible)
{
    Create(0, 660, 340);
    view.ShowWindow(SW_HIDE);   // a shown view repaints its scroll bar at every add
    view.SetCardSize(600, 30, TRUE);   // one column, eleven rows
    for (int i = 0; i < 100000; ++i)
        view.AddCard(nullptr, FALSE);
    view.ShowWindow(SW_SHOW);
    SCROLLINFO row90000{ .cbSize = sizeof(row90000), .fMask = SIF_POS, .nPos = 90000 };
    hytest::WindowSpy bar(view);   // the scroll bar is painted when its thumb moves
    bar.RecordOnly({ WM_NCPAINT });
    // Each step and the scroll position it leaves.
    const std::pair<std::function<void()>, int> steps[] = {
        { [&] { hytest::MouseWheel(view, 10, 10, -240); }, 2 },
        { [&] { view.SendMessage(WM_MOUSEWHEEL, MAKEWPARAM(0, 119), 0); }, 2 },   // less than a notch
        { [&] { hytest::KeyPress(view, VK_NEXT); }, 13 },
        { [&] { EXPECT_FALSE(view.EnsureVisible(20)); EXPECT_TRUE(view.EnsureVisible(50)); }, 40 },   // below: last row
        { [&] { view.EnsureVisible(3); }, 3 },                    // above: the first
        // A thumb dragged to row 90,000: the message holds 16 bits of it.
        { [&] { view.SetScrollInfo(SB_VERT, &row90000), view.SendMessage(WM_VSCROLL, 3 << 16 | SB_THUMBPOSITION); },
          3 },
        { [&] { bar.Clear(), view.EnsureVisible(90000 + 10), hytest::KeyPress(view, VK_END); }, 90000 },   // no End
        { [&] { EXPECT_EQ(bar.Count(WM_NCPAINT), 1u); }, 90000 },
        { [&] { view.EnsureVisible(99999); }, 100000 - 11 },
        // The scroll bar clamps the position when the view grows.
        { [&] { view.SetWindowPos(nullptr, 0, 0, 662, 342 + 300, SWP_NOMOVE | SWP_NOZORDER); }, 100000 - 21 },
    };
    for (size_t i = 0; i < std::size(steps); ++i) {
        steps[i].first();
        EXPECT_EQ(view.GetScrollPos(SB_VERT), steps[i].second) << "step " << i;
    }
}

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
    const HCURSOR arrow = cursorAt(100, 100), width = cursorAt(218, 40), height = cursorAt(40, 168);
    EXPECT_TRUE(width != arrow && height != arrow && width != height);
    EXPECT_TRUE(cursorAt(438, 200) == width && cursorAt(500, 168) == height);   // other boundaries
    view.SetFlags(HYCARD_NORESIZE);
    EXPECT_EQ(cursorAt(218, 40), arrow);
    hytest::MouseDown(view, 218, 40);   // a press in the gap is a press on empty space
    EXPECT_EQ(view.mouseMode, 0);
    hytest::MouseUp(view, 218, 40);
}

// Drags from a gap: from x, y, to x, y, the minimum width and height, the
// card width and height afterwards.
template <class View>
void Drags(RecordingView<View>& view, std::initializer_list<std::array<int, 8>> rows)
{
    int w0 = 0, h0 = 0, w = 0, h = 0;
    view.GetCardSize(&w0, &h0);
    for (const auto& d : rows) {
        view.SetCardSize(w0, h0, TRUE);
        view.SetMinCardSize(d[4], d[5]);
        hytest::Drag(view, d[0], d[1], d[2], d[3]);
        view.GetCardSize(&w, &h);
        EXPECT_EQ((std::array<int, 3>{ w, h, view.mouseMode }), (std::array<int, 3>{ d[6], d[7], 0 })) << d[2];
    }
}

TEST_F(CardInput, DragsSetTheCardSize)
{
    Create(6);
    Drags(view, { { 438, 40, 478, 40, 50, 50, 240, 170 },     // the second boundary: the move shared by two
                  { 218, 40, -10, 40, 0, 0, 1, 170 },         // a minimum of 0 still leaves 1
                  { 40, 168, 40, 198, 50, 50, 220, 200 } });  // height
}

TEST_F(PhotoInput, DragsSetTheCardSizeWithinItsLimits)
{
    Create(6, 576, 268);
    Drags(view, { { 142, 40, 192, 40, 80, 70, 144, 134 }, { 142, 40, 20, 40, 80, 70, 80, 134 } });
}

// Enter and Escape reach the view before the dialog's own keys: the dialog
// stays open, its default button unpressed, the drag cancelled.
TEST_F(CardInput, EnterAndEscapeInAModalDialog)
{
    hytest::DialogDriver driver([&](HWND h) { EnterAndEscapeInDialog(view, h); });
    EXPECT_EQ(CDialog(100).DoModal(), IDCANCEL);
    int width = 0;
    view.GetCardSize(&width, nullptr);
    EXPECT_EQ(std::make_tuple(view.log, view.mouseMode, width), std::make_tuple(std::string("ret"), 0, 220));
}

TEST_F(CardInput, SpecialDescriptionShowsItsNoteOnlyForTheKey)
{
    hytest::DialogDriver driver([](HWND h) { ::PostMessage(h, WM_COMMAND, IDOK, 0); });
    EXPECT_EQ(HyIsSpecialDescription("") + HyIsSpecialDescription("kestrel"), 0);
    EXPECT_EQ(HyIsSpecialDescription("kestrel7"), 1);
    EXPECT_EQ(driver.Count(), 1);   // one note, for the key
}
