// The date picker's model through its public operations: creation, the
// months shown, the highlight, events, typed month search and the range.
#include <afxdisp.h>

#include "picker_fixture.h"

#include <utility>
#include <vector>

TEST_F(PickerTest, CreationGivesANamedTabStopWindowShapedLikeItsCalendars)
{
    ASSERT_TRUE(picker.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 630, 200), CWnd::FromHandle(parent), 7, 3, 1));
    CString text;
    picker.GetWindowText(text);
    EXPECT_EQ(text, CString("TernUIDatePicker"));
    EXPECT_TRUE(picker.GetStyle() & WS_TABSTOP);
    EXPECT_EQ(std::vector<LRESULT>({131, 3}), std::vector<LRESULT>({picker.SendMessage(WM_GETDLGCODE), picker.GetCalCount()}));
    // The window region is the union of the three calendars' bounds.
    HRGN region = ::CreateRectRgn(0, 0, 0, 0);
    ASSERT_NE(::GetWindowRgn(picker, region), ERROR);
    for (int i = 0; i < 3; ++i)
    {
        const CRect b = picker.GetCalBounds(i);
        EXPECT_TRUE(::PtInRegion(region, b.left, b.top) && ::PtInRegion(region, b.right - 1, b.bottom - 1) &&
                    !::PtInRegion(region, b.right, b.bottom)) << i;
    }
    ::DeleteObject(region);
    // It opens on today's month.
    const COleDateTime now = COleDateTime::GetCurrentTime();
    ExpectDisplay(now.GetMonth(), now.GetYear());
}

// Three calendars from November 2005 run into 2006. A highlight in a month
// not shown makes it first and tells once; months no calendar can show are
// ignored; a new display month keeps the highlight's calendar and day number
// (the 1st where the month lacks it).
TEST_F(PickerTest, DisplayAndHighlightMoveTogetherWithinWhatCalendarsCanShow)
{
    Create(3, 1, 11, 2005);
    EXPECT_EQ(std::vector<int>({0, 1, 2, -1}), std::vector<int>({picker.DateToCalIndex(11, 2005), picker.DateToCalIndex(12, 2005),
                                                   picker.DateToCalIndex(1, 2006), picker.DateToCalIndex(2, 2006)}));
    CHyDate first, last;
    picker.GetDateRange(&first, &last);
    EXPECT_TRUE(first == CHyDate(2005, 10, 30, 0));   // the Sunday before 1 November
    EXPECT_TRUE(last == CHyDate(2006, 2, 11, 0));     // the last cell of January's grid

    picker.SetHighlightDate(13, 1, 2005, 1);
    picker.SetHighlightDate(1, 1, 0, 1);
    picker.SetDisplayMonth(0, 2005, 1);
    picker.SetDisplayMonth(11, 9999, 1);   // the third calendar would be in 10000
    picker.SetSelection(-5, 6, 1, 1);
    ExpectDisplay(11, 2005);
    ExpectHighlight(2005, 11, 15);
    EXPECT_TRUE(notify.Matches({}));

    picker.SetHighlightDate(4, 10, 2007, 1);
    ExpectDisplay(4, 2007);
    picker.SetHighlightDate(5, 31, 2007, 1);   // shown: no message
    EXPECT_TRUE(notify.Matches({MonthsChanged()}));
    picker.SetHighlightDate(6, 31, 2007, 0);   // no 31 June: the 1st
    ExpectHighlight(2007, 6, 1);
    EXPECT_TRUE(picker.GetFlags() & HYDP_HIGHLIGHT);

    picker.SetHighlightDate(5, 31, 2007, 0);   // second calendar
    Clear();
    picker.SetDisplayMonth(2, 2008, 1);
    ExpectHighlight(2008, 3, 31);   // still the second calendar, same day number
    picker.SetDisplayMonth(2, 2008, 1);   // unchanged: no message
    EXPECT_TRUE(notify.Matches({MonthsChanged()}));
    picker.SetDisplayMonth(9, 2008, 0);   // the second calendar is now October
    ExpectHighlight(2008, 10, 31);
    // A highlight that was not shown before moves into the first calendar.
    picker.SetCalDates(1, 2010);
    picker.SetDisplayMonth(2, 2007, 0);
    ExpectHighlight(2007, 2, 1);
    picker.SetDisplayMonth(10, 9999, 0);   // October to December 9999 fit
    ExpectDisplay(10, 9999);
}

// ---- events ----------------------------------------------------------------------

// A kind mark stays; a second plain mark is refused; a plain mark is replaced
// by a kind. The list forms add plain marks whatever their elements say.
TEST_F(PickerTest, PlainEventGivesWayToAKindAndListFormsAddPlainMarks)
{
    Create();
    std::vector<int> answers;
    for (auto [day, kind] : {std::pair(3, 2), {3, 0}, {3, 1}, {4, 0}, {4, 0}, {4, 3}})
        answers.push_back(picker.AddEvent(2005, 11, day, 0, kind));
    EXPECT_EQ(std::vector<int>({0, -1, -1, 0, -1, 0}), answers);
    ASSERT_EQ(picker.GetEventCount(), 2);
    EXPECT_EQ(std::pair(2, 3), std::pair((int)picker.GetEvent(0).flags, (int)picker.GetEvent(1).flags));

    picker.ResetEventArray(0);
    CHyDate dates[3] = {CHyDate(2005, 11, 1, 5), CHyDate(2005, 11, 2, 6), CHyDate(2005, 11, 1, 7)};
    CArray<CHyDate, CHyDate&> more;
    CHyDate extra(2005, 12, 25, 4);
    more.Add(extra);
    std::vector<int> steps = {picker.AddEvent(dates, 3, 0), picker.GetEventCount(), picker.GetEvent(1).flags,
                              picker.AddEvent(dates, 3, 0)};   // nothing new
    steps.push_back(picker.AddEvent(&more, 0));
    steps.push_back(picker.GetEventCount());
    steps.push_back(picker.RemoveEvent(dates, 3, 0));
    steps.push_back(picker.GetEventCount());
    steps.push_back(picker.RemoveEvent(dates, 3, 0));
    EXPECT_EQ(std::vector<int>({0, 2, 0, -1, 0, 3, 0, 1, -1}), steps);
}

class PickerRedrawTest : public PickerTest
{
protected:
    // Number of paints the operation caused.
    template <class F>
    size_t PaintsDuring(F operation)
    {
        hytest::WindowSpy spy(picker);
        spy.RecordOnly({WM_PAINT});
        operation();
        hytest::PumpMessages();
        return spy.Count(WM_PAINT);
    }
};

TEST_F(PickerRedrawTest, RemovingAnEventNeverRedrawsButFindingNoneDoes)
{
    Create();
    picker.AddEvent(2005, 11, 9, 0, 1);
    hytest::PumpMessages();
    // The asymmetry is intended: a removal leaves the repaint to the caller.
    EXPECT_EQ(PaintsDuring([&] { EXPECT_EQ(picker.RemoveEvent(2005, 11, 9, 1), 0); }), 0u);
    EXPECT_EQ(PaintsDuring([&] { EXPECT_EQ(picker.RemoveEvent(2005, 11, 9, 1), -1); }), 1u);
    EXPECT_EQ(PaintsDuring([&] { EXPECT_EQ(picker.AddEvent(2005, 11, 9, 1, 1), 0); }), 1u);
    EXPECT_EQ(PaintsDuring([&] { EXPECT_EQ(picker.AddEvent(2005, 11, 9, 1, 1), -1); }), 0u);   // a refusal never redraws
}

// ---- typed month search -----------------------------------------------------------

TEST_F(PickerTest, TypedMonthSearchStartsAfterTheCurrentMonth)
{
    Create();
    ASSERT_EQ(picker.monthNames.GetSize(), 12);
    EXPECT_EQ(picker.monthNames[5], COleDateTime(2000, 6, 1, 0, 0, 0).Format(_T("%B")));
    if (picker.monthNames[0] != _T("January"))
        GTEST_SKIP() << "the user locale's month names are not English";
    // Typing a letter shows the next month of the first calendar's year named
    // by it (the search itself is counted natively).
    hytest::Char(picker, 'm');
    ExpectDisplay(3, 2005);
    EXPECT_TRUE(notify.Matches({MonthsChanged(), Sel(2005, 3, 15)}));
}

// ---- hover and cancel ----------------------------------------------------------------

namespace {

// Pumps until cond holds or the thread has waited for input two seconds in total.
template <class F>
bool PumpUntil(F cond)
{
    for (int waits = 0; waits < 200 && !cond(); ++waits)
    {
        hytest::PumpMessages();
        if (cond())
            break;
        ::MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
    }
    return cond();
}

} // namespace

TEST_F(PickerTest, HoverTimerMakesHeaderPartsHotAndStopsWhenTheCursorLeaves)
{
    Create();
    const CPoint arrow = Centre(Parts(2).nextArrow);
    CPoint screen = arrow;
    picker.ClientToScreen(&screen);
    ASSERT_TRUE(::SetCursorPos(screen.x, screen.y));
    hytest::MouseMove(picker, arrow.x, arrow.y);
    EXPECT_EQ(picker.timerRunning, 1);
    EXPECT_TRUE(PumpUntil([&] { return picker.rolloverPart == HYPART_NEXT_ARROW; }));
    // Between ticks nothing is left pressed or focused.
    EXPECT_EQ(std::vector<int>({2, 0, -1}), std::vector<int>({picker.rolloverCal, picker.focusPart, picker.focusCal}));

    const CPoint caption = Centre(Parts(1).yearCaption);
    screen = caption;
    picker.ClientToScreen(&screen);
    ::SetCursorPos(screen.x, screen.y);
    EXPECT_TRUE(PumpUntil([&] { return picker.rolloverPart == HYPART_YEAR_CAPTION; }));
    EXPECT_EQ(picker.rolloverCal, 1);

    CRect window;
    picker.GetWindowRect(&window);
    ::SetCursorPos(window.right + 50, window.bottom + 50);
    EXPECT_TRUE(PumpUntil([&] { return picker.timerRunning == 0; }));
    EXPECT_TRUE(picker.rolloverPart == 0 && picker.rolloverCal == -1);
}
