// What the date picker tells its parent and its notify window, in order, for
// the user's clicks, drags, double-clicks, keys and menu choices.
#include "picker_fixture.h"

#include <afxdisp.h>
#include <functional>
#include <string>
#include <vector>

using hytest::Expect;

// ---- clicks and drags --------------------------------------------------------

// One press on a target of a fresh picker (three calendars from the given
// month, 15th highlighted): what the notify window and the parent are told,
// and where the display, the highlight and the beeps end up.
struct ClickRow
{
    const char* what;
    int month, year;
    bool withNotify;
    enum { kDown, kClick, kDoubleClick } action;
    std::function<CPoint()> at;
    std::vector<Expect> toNotify, toParent;
    int displayMonth, displayYear;
    int year2, month2, day2;   // the highlight afterwards
    int beeps;
};

TEST_F(PickerTest, ClicksReportDisplayAndHighlightAsTheTableSays)
{
    auto day = [this](int y, int m, int d, int index = -1) { return [=, this] { return DayPoint(y, m, d, index); }; };
    auto part = [this](int cal, HyRect HyCalParts::*which) { return [=, this] { return Centre(Parts(cal).*which); }; };
    const Expect chosenMonth = {HYWM_DATEPICKER_CHOSEN, 0x30000, 0, hytest::kPosted};
    const std::vector<ClickRow> rows = {
        {"a day: nothing at the button-down", 11, 2005, true, ClickRow::kDown, day(2005, 11, 20), {}, {}, 11, 2005, 2005, 11, 20, 0},
        {"a day: reported at the button-up", 11, 2005, true, ClickRow::kClick, day(2005, 11, 20), {Sel(2005, 11, 20)}, {}, 11, 2005, 2005, 11, 20, 0},
        {"without a notify window the parent is told", 11, 2005, false, ClickRow::kClick, day(2005, 12, 3), {}, {Sel(2005, 12, 3)}, 11, 2005, 2005, 12, 3, 0},
        {"a neighbouring day already shown: down and up", 11, 2005, true, ClickRow::kClick, day(2005, 12, 2, 0),
         {Sel(2005, 12, 2), Sel(2005, 12, 2)}, {}, 11, 2005, 2005, 12, 2, 0},
        {"a day after the last calendar moves one month", 11, 2005, true, ClickRow::kClick, day(2006, 2, 1, 2),
         {MonthsChanged(), Sel(2006, 2, 1), Sel(2006, 2, 1)}, {}, 12, 2005, 2006, 2, 1, 0},
        {"a neighbouring day beyond the limits beeps; the old day is reported", 1, 1970, true, ClickRow::kDown,
         day(1969, 12, 31, 0), {Sel(1970, 1, 15)}, {}, 1, 1970, 1970, 1, 15, 1},
        {"a double-click posts chosen between the reports", 11, 2005, false, ClickRow::kDoubleClick, day(2005, 11, 22),
         {}, {Sel(2005, 11, 22), Chosen(HYPART_DAY_GRID), Sel(2005, 11, 22)}, 11, 2005, 2005, 11, 22, 0},
        {"a double-click on a greyed day does not confirm", 11, 2005, true, ClickRow::kDoubleClick, day(2005, 12, 1, 0),
         {Sel(2005, 12, 1), Sel(2005, 12, 1), Sel(2005, 12, 1), Sel(2005, 12, 1)}, {}, 11, 2005, 2005, 12, 1, 0},
        {"a double-click on the header does not confirm", 11, 2005, true, ClickRow::kDoubleClick,
         part(1, &HyCalParts::prevArrow), {}, {}, 11, 2005, 2005, 11, 15, 0},
        {"the next arrow steps at the button-up, the highlight keeps its calendar", 11, 2005, true, ClickRow::kClick,
         part(2, &HyCalParts::nextArrow), {MonthsChanged(), Sel(2005, 12, 15)}, {}, 12, 2005, 2005, 12, 15, 0},
        {"the next arrow beyond the last year beeps", 10, 2031, true, ClickRow::kClick, part(2, &HyCalParts::nextArrow),
         {}, {}, 10, 2031, 2031, 10, 15, 1},
        {"the month caption selects its month, no menu", 11, 2005, true, ClickRow::kClick,
         part(1, &HyCalParts::monthCaption), {Sel(2005, 12, 15)}, {chosenMonth}, 11, 2005, 2005, 12, 15, 0},
        {"the year caption selects its month", 11, 2005, true, ClickRow::kClick, part(2, &HyCalParts::yearCaption),
         {Sel(2006, 1, 15)}, {Chosen(HYPART_YEAR_CAPTION)}, 11, 2005, 2006, 1, 15, 0},
    };
    for (const ClickRow& row : rows) {
        SCOPED_TRACE(row.what);
        if (picker.m_hWnd)
            picker.DestroyWindow();
        Create(3, 1, row.month, row.year, row.withNotify);
        picker.SetNotifyWindow(row.withNotify ? &notifyWnd : nullptr);   // the object outlives its window
        hytest::BeepRecorder beeps;
        hytest::PopupMenuRecorder menus;
        const CPoint at = row.at();
        if (row.action == ClickRow::kDown)
            hytest::MouseDown(picker, at.x, at.y);
        else if (row.action == ClickRow::kClick)
            hytest::Click(picker, at.x, at.y);
        else
            hytest::DoubleClick(picker, at.x, at.y);
        hytest::PumpMessages();
        EXPECT_TRUE(notify.Matches(row.toNotify));
        EXPECT_TRUE(parent.Matches(row.toParent));
        ExpectDisplay(row.displayMonth, row.displayYear);
        ExpectHighlight(row.year2, row.month2, row.day2);
        EXPECT_EQ(row.beeps, beeps.Count());
        EXPECT_EQ(0, menus.Count());
        if (row.action == ClickRow::kDown)
            hytest::MouseUp(picker, at.x, at.y);
    }
}

TEST_F(PickerTest, DragFollowsTheMouseAndSnapsBackBeyondFortyPixels)
{
    Create();
    const CPoint a = DayPoint(2005, 11, 16), b = DayPoint(2005, 11, 17), c = DayPoint(2005, 11, 18);
    hytest::MouseDown(picker, a.x, a.y);
    hytest::MouseMove(picker, b.x, b.y);
    hytest::MouseMove(picker, c.x, c.y);
    CRect client;
    picker.GetClientRect(&client);
    // 40 pixels past the last row still follows (the nearest day); 41 snaps
    // back to the day highlighted before the button-down. Left edge likewise.
    hytest::MouseMove(picker, c.x, client.bottom - 1 + 40);
    hytest::MouseMove(picker, c.x, client.bottom - 1 + 41);
    hytest::MouseMove(picker, -40, c.y);
    hytest::MouseMove(picker, -41, c.y);
    hytest::MouseUp(picker, -41, c.y);
    EXPECT_TRUE(notify.Matches({Sel(2005, 11, 17), Sel(2005, 11, 18), Sel(2005, 11, 30), Sel(2005, 11, 15),
                                Sel(2005, 11, 13), Sel(2005, 11, 15)}));
    ExpectHighlight(2005, 11, 15);
    EXPECT_EQ(::GetCapture(), nullptr);
}

TEST_F(PickerTest, OnlyAPressThatMovesTheHighlightSetsTheDayADragSnapsBackTo)
{
    Create();
    const CPoint a = DayPoint(2005, 11, 20), grey = DayPoint(2005, 12, 2, 0);
    hytest::Click(picker, a.x, a.y);          // 15 -> 20: a drag now snaps back to 15
    hytest::MouseDown(picker, a.x, a.y);      // the highlighted day again: nothing new
    hytest::MouseMove(picker, -41, a.y);
    hytest::MouseUp(picker, -41, a.y);
    ExpectHighlight(2005, 11, 15);
    hytest::Click(picker, grey.x, grey.y);    // a neighbouring day: nothing new either
    hytest::MouseDown(picker, a.x, a.y);      // 2 December -> 20 November
    hytest::MouseMove(picker, -41, a.y);
    hytest::MouseUp(picker, -41, a.y);
    ExpectHighlight(2005, 12, 2);
}

TEST_F(PickerTest, MouseWheelStepsWholeNotchesAndBeepsBeyondTheLimits)
{
    Create(3, 1, 11, 2005);
    hytest::BeepRecorder beeps;
    hytest::MouseWheel(picker, 10, 10, -240);   // down: two months later
    ExpectDisplay(1, 2006);
    hytest::MouseWheel(picker, 10, 10, 60);     // half a notch: kept
    ExpectDisplay(1, 2006);
    hytest::MouseWheel(picker, 10, 10, 60);
    ExpectDisplay(12, 2005);
    EXPECT_TRUE(notify.Matches({MonthsChanged(), Sel(2006, 1, 15), MonthsChanged(), Sel(2006, 1, 15)}));
    EXPECT_EQ(beeps.Count(), 0);

    picker.SetDisplayMonth(1, 1970, 0);
    Clear();
    hytest::MouseWheel(picker, 10, 10, 120);    // December 1969: refused
    ExpectDisplay(1, 1970);
    EXPECT_EQ(beeps.Count(), 1);
    EXPECT_TRUE(notify.Matches({}));
}

TEST_F(PickerTest, DoubleClickJudgesTheDayUnderThePointAfterItsOwnButtonDown)
{
    Create(3, 1, 9, 2005, false);
    // 1 December, greyed in November's grid: the button-down moves the months
    // on, and the same cell then shows 29 December, a day of its own month.
    const CPoint at = DayPoint(2005, 12, 1, 2);
    picker.SendMessage(WM_LBUTTONDBLCLK, 0, MAKELPARAM(at.x, at.y));
    hytest::MouseUp(picker, at.x, at.y);
    ExpectDisplay(10, 2005);
    ExpectHighlight(2005, 12, 1);
    EXPECT_EQ(parent.Count(HYWM_DATEPICKER_CHOSEN), 1u);
}

// ---- header arrows and captions ---------------------------------------------

TEST_F(PickerTest, TheArrowUnderTheReleaseActsWhereverThePressBegan)
{
    Create();
    const CPoint day = DayPoint(2005, 11, 20), prev = Centre(Parts(0).prevArrow), next = Centre(Parts(2).nextArrow);
    hytest::MouseDown(picker, day.x, day.y);
    hytest::MouseUp(picker, next.x, next.y);
    ExpectDisplay(12, 2005);
    hytest::MouseDown(picker, prev.x, prev.y);
    hytest::MouseUp(picker, next.x, next.y);
    ExpectDisplay(1, 2006);
    hytest::MouseDown(picker, next.x, next.y);
    hytest::MouseUp(picker, day.x, day.y);      // released off the arrows: no step
    ExpectDisplay(1, 2006);
}

// ---- menus ---------------------------------------------------------------------

class PickerMenuTest : public PickerTest
{
protected:
    void CreateWithMenus(int month, int year)
    {
        Create(3, 1, month, year);
        picker.SetFlags(picker.GetFlags() & ~(HYDP_MONTH_SELECTS | HYDP_YEAR_SELECTS));
    }
};

std::string MonthText(int year, int month)
{
    return (LPCTSTR)COleDateTime(year, month, 1, 0, 0, 0).Format(_T("%B %Y"));
}

// A caption's menu: nine entries around the calendar's own month or year,
// shown below the caption; the chosen entry moves the display. Which entries
// a menu holds near the year limits is counted natively.
struct MenuRow
{
    const char* what;
    int month, year, calendar;
    HyRect HyCalParts::*caption;
    UINT choose, flags;
    std::string first, last;
    UINT checked;
    int displayMonth, displayYear;
    std::vector<Expect> toNotify;
};

TEST_F(PickerMenuTest, CaptionMenusListNineEntriesAndMoveTheDisplay)
{
    const std::vector<MenuRow> rows = {
        {"months around December; February 2006 moves two months", 11, 2005, 1, &HyCalParts::monthCaption, 7, 416,
         MonthText(2005, 8), MonthText(2006, 4), 4, 1, 2006, {MonthsChanged(), Sel(2006, 1, 15)}},
        {"years step by twelve months; 2009 moves whole years", 11, 2005, 0, &HyCalParts::yearCaption, 9, 424, "2001",
         "2009", 4, 11, 2009, {MonthsChanged(), Sel(2009, 11, 15)}},
    };
    for (const MenuRow& row : rows) {
        SCOPED_TRACE(row.what);
        if (picker.m_hWnd)
            picker.DestroyWindow();
        CreateWithMenus(row.month, row.year);
        hytest::PopupMenuRecorder menus;
        menus.Choose(row.choose);
        const HyRect caption = Parts(row.calendar).*row.caption;
        const CPoint at = Centre(caption);
        hytest::Click(picker, at.x, at.y);
        ASSERT_EQ(menus.Count(), 1);
        const hytest::PopupMenuCall& call = menus.Calls()[0];
        EXPECT_EQ(call.flags, row.flags);
        CPoint below(caption.left, caption.bottom + 2);
        picker.ClientToScreen(&below);
        EXPECT_EQ(CPoint(call.x, call.y), below);
        ASSERT_EQ(call.items.size(), 9u);
        for (UINT i = 0; i < 9; ++i) {
            EXPECT_EQ(call.items[i].id, i + 1);
            EXPECT_EQ(call.items[i].checked(), i == row.checked) << i;
        }
        EXPECT_EQ(call.items.front().text, row.first);
        EXPECT_EQ(call.items.back().text, row.last);
        ExpectDisplay(row.displayMonth, row.displayYear);
        EXPECT_TRUE(notify.Matches(row.toNotify));
    }
}

// ---- keyboard ----------------------------------------------------------------

// One key on a fresh picker (three calendars from the given month, the given
// day highlighted): the display and highlight afterwards, and what the
// notify window is told. A refused key beeps (-1) and reports nothing.
struct KeyRow
{
    const char* what;
    UINT vk;
    unsigned mods;
    int month, year, y, m, d;       // before
    int month2, year2, y2, m2, d2;  // after
    bool monthsChanged;
    int beeps;
};

TEST_F(PickerTest, KeysMoveAndReportOrBeepAsTheTableSays)
{
    const unsigned ctrl = hytest::kCtrl;
    const std::vector<KeyRow> rows = {
        {"Left", VK_LEFT, 0, 11, 2005, 2005, 11, 15, 11, 2005, 2005, 11, 14, false, 0},
        {"Right", VK_RIGHT, 0, 11, 2005, 2005, 11, 15, 11, 2005, 2005, 11, 16, false, 0},
        {"Up", VK_UP, 0, 11, 2005, 2005, 11, 15, 11, 2005, 2005, 11, 8, false, 0},
        {"Down", VK_DOWN, 0, 11, 2005, 2005, 11, 15, 11, 2005, 2005, 11, 22, false, 0},
        {"PageDown", VK_NEXT, 0, 11, 2005, 2005, 11, 15, 2, 2006, 2006, 2, 15, true, 0},
        {"PageUp", VK_PRIOR, 0, 11, 2005, 2005, 11, 15, 8, 2005, 2005, 8, 15, true, 0},
        {"Ctrl+PageDown", VK_NEXT, ctrl, 11, 2005, 2005, 11, 15, 11, 2006, 2006, 11, 15, true, 0},
        {"Home", VK_HOME, 0, 11, 2005, 2005, 11, 15, 1, 2005, 2005, 1, 15, true, 0},
        // End: the last calendar shows December of its year (2006).
        {"End", VK_END, 0, 11, 2005, 2005, 11, 15, 10, 2006, 2006, 10, 15, true, 0},
        {"Right into a month not shown brings it into view first", VK_RIGHT, 0, 11, 2005, 2006, 1, 31, 2, 2006,
         2006, 2, 1, true, 0},
        {"PageUp before the first year", VK_PRIOR, 0, 2, 1970, 1970, 2, 15, 2, 1970, 1970, 2, 15, false, 1},
        {"PageDown after the last year", VK_NEXT, 0, 11, 2031, 2031, 11, 15, 11, 2031, 2031, 11, 15, false, 1},
        {"Home on January", VK_HOME, 0, 1, 2005, 2005, 1, 15, 1, 2005, 2005, 1, 15, false, 1},
        {"Left before the first year", VK_LEFT, 0, 1, 1970, 1970, 1, 1, 1, 1970, 1970, 1, 1, false, 1},
    };
    for (const KeyRow& k : rows) {
        SCOPED_TRACE(k.what);
        if (picker.m_hWnd)
            picker.DestroyWindow();
        Create(3, 1, k.month, k.year);
        picker.SetSelection(k.y, k.m, k.d, 0);
        Clear();
        hytest::BeepRecorder beeps;
        {
            hytest::Modifiers mods(k.mods);
            hytest::KeyDown(picker, k.vk);
        }
        hytest::KeyUp(picker, k.vk);
        hytest::PumpMessages();
        ExpectDisplay(k.month2, k.year2);
        ExpectHighlight(k.y2, k.m2, k.d2);
        std::vector<Expect> told;
        if (k.monthsChanged) told.push_back(MonthsChanged());
        if (k.beeps == 0) told.push_back(Sel(k.y2, k.m2, k.d2));
        EXPECT_TRUE(notify.Matches(told));
        EXPECT_TRUE(parent.Matches({}));
        EXPECT_EQ(std::vector<UINT>(k.beeps, (UINT)-1), beeps.Types());
    }
}

TEST_F(PickerTest, ArrowIntoTheMissingDaysOf1752FallsBackToTheFirst)
{
    Create(1, 1, 9, 1752);
    picker.SetMinYear(1700);
    picker.SetSelection(1752, 9, 2, 0);
    Clear();
    // Days are counted on the OLE calendar, which has a 3 September 1752; the
    // month grid (counted natively) does not, so the highlight falls back to the 1st.
    hytest::KeyPress(picker, VK_RIGHT);
    ExpectHighlight(1752, 9, 1);
}

TEST_F(PickerTest, TabMovesToTheNextOrPreviousControlAndReportsNothing)
{
    Create();
    hytest::KeyPress(picker, VK_TAB);
    {
        hytest::Modifiers shift(hytest::kShift);
        hytest::KeyDown(picker, VK_TAB);
    }
    EXPECT_TRUE(parent.Matches({{WM_NEXTDLGCTL, 0, 0, hytest::kSent}, {WM_NEXTDLGCTL, 1, 0, hytest::kSent}}));
    EXPECT_TRUE(notify.Matches({}));
}

// ---- the selection message and the year limits ----------------------------------

TEST_F(PickerTest, SelectionOutsideTheYearLimitsIsStoredButNotReported)
{
    Create();
    picker.SetSelection(1969, 12, 31, 1);
    picker.SetSelection(2032, 1, 1, 1);
    hytest::PumpMessages();
    ExpectHighlight(2032, 1, 1);
    EXPECT_EQ(notify.Count(HYWM_DATEPICKER_SELCHANGE), 0u);
    picker.SetSelection(2031, 12, 31, 1);
    hytest::PumpMessages();
    EXPECT_EQ(notify.Count(HYWM_DATEPICKER_SELCHANGE), 1u);
}

// ---- tooltips --------------------------------------------------------------------

TEST_F(PickerTest, TooltipTextIsAskedOncePerDayFromTheNotifyWindowButNotDuringAPress)
{
    Create();
    std::vector<CHyDate> asked;
    notify.OnMessage(HYWM_DATEPICKER_GETTIP, [&](HWND, WPARAM w, LPARAM l) -> LRESULT {
        const CHyDate* date = reinterpret_cast<const CHyDate*>(w);
        asked.push_back(*date);
        *reinterpret_cast<CString*>(l) = _T("Dentist at 9");
        return 0;
    });
    const CPoint a = DayPoint(2005, 11, 3), a2 = a + CPoint(2, 1), b = DayPoint(2005, 12, 1, 0);
    hytest::MouseMove(picker, a.x, a.y);
    hytest::MouseMove(picker, a2.x, a2.y);           // same day: not asked again
    hytest::MouseMove(picker, b.x, b.y);             // a greyed day is asked too
    const CPoint header = Centre(Parts(0).header);
    hytest::MouseMove(picker, header.x, header.y);   // off the grid: forgotten
    hytest::MouseMove(picker, a.x, a.y);
    ASSERT_EQ(asked.size(), 3u);
    EXPECT_TRUE(asked[0] == CHyDate(2005, 11, 3, 0) && asked[1] == CHyDate(2005, 12, 1, 0) &&
                asked[2] == CHyDate(2005, 11, 3, 0) && notify.Messages()[0].sent);
    CString text;   // the tip carries the host's text
    picker.tooltip.GetText(text, &picker);
    EXPECT_STREQ(text, "Dentist at 9");

    // Moves with a button down ask for no tip.
    hytest::MouseMove(picker, b.x, b.y);   // the last day asked for is now another
    notify.Clear();
    hytest::MouseDown(picker, a.x, a.y);
    hytest::MouseMove(picker, a2.x, a2.y);
    hytest::MouseUp(picker, a2.x, a2.y);
    EXPECT_EQ(notify.Count(HYWM_DATEPICKER_GETTIP), 0u);
}

// ---- drag source messages -----------------------------------------------------------

TEST_F(PickerTest, DragSourceLearnsTheDayUnderThePoint)
{
    Create();
    const CPoint at = DayPoint(2005, 12, 24);
    CHyDate date(0, 0, 0, 0);
    EXPECT_EQ(picker.SendMessage(HYWM_DATEPICKER_DRAGOVER, (WPARAM)&date, MAKELPARAM(at.x, at.y)), 1);
    EXPECT_TRUE(date == CHyDate(2005, 12, 24, 0) && picker.dropDate == CHyDate(2005, 12, 24, 0));
    // Off the days, a drop, and the end of the drag each clear the drop target.
    const CPoint header = Centre(Parts(0).header), grey = DayPoint(2005, 10, 31, 0);
    std::vector<LRESULT> answers = {picker.SendMessage(HYWM_DATEPICKER_DRAGOVER, 0, MAKELPARAM(header.x, header.y)),
                                    picker.dropDate.year,
                                    picker.SendMessage(HYWM_DATEPICKER_DROP, (WPARAM)&date, MAKELPARAM(grey.x, grey.y)),
                                    picker.dropDate.year,
                                    picker.SendMessage(HYWM_DATEPICKER_DRAGOVER, 0, MAKELPARAM(at.x, at.y)),
                                    picker.SendMessage(HYWM_DATEPICKER_DRAGEND, 0, 0),
                                    picker.dropDate.year};
    EXPECT_EQ(std::vector<LRESULT>({0, -1, 1, -1, 1, 0, -1}), answers);
    EXPECT_TRUE(date == CHyDate(2005, 10, 31, 0));
    // None of it is a selection.
    EXPECT_TRUE(notify.Matches({}));
}
