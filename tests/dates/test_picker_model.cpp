// The date picker's model through its public operations: creation, the
// months shown, the highlight, events, typed month search and the range.
#include <afxdisp.h>

#include "picker_fixture.h"

TEST_F(PickerTest, CreationGivesANamedTabStopWindowShapedLikeItsCalendars)
{
    ASSERT_TRUE(picker.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 630, 200), CWnd::FromHandle(parent), 7, 3, 1));
    char text[32] = "";
    ::GetWindowTextA(picker, text, sizeof text);
    EXPECT_STREQ(text, "TernUIDatePicker");
    EXPECT_TRUE(picker.GetStyle() & WS_TABSTOP);
    EXPECT_EQ(picker.SendMessage(WM_GETDLGCODE), 131);
    EXPECT_EQ(picker.GetCalCount(), 3);
    // The window region is the union of the three calendars' bounds.
    HRGN region = ::CreateRectRgn(0, 0, 0, 0);
    ASSERT_NE(::GetWindowRgn(picker, region), ERROR);
    for (int i = 0; i < 3; ++i)
    {
        const CRect b = picker.GetCalBounds(i);
        EXPECT_TRUE(::PtInRegion(region, b.left, b.top)) << i;
        EXPECT_TRUE(::PtInRegion(region, b.right - 1, b.bottom - 1)) << i;
        EXPECT_FALSE(::PtInRegion(region, b.right, b.bottom)) << i;
    }
    ::DeleteObject(region);
    // It opens on today's month.
    const COleDateTime now = COleDateTime::GetCurrentTime();
    ExpectDisplay(now.GetMonth(), now.GetYear());
}

TEST_F(PickerTest, ThreeCalendarsFromNovemberRunIntoTheNextYear)
{
    Create(3, 1, 11, 2005);
    EXPECT_EQ(picker.DateToCalIndex(11, 2005), 0);
    EXPECT_EQ(picker.DateToCalIndex(12, 2005), 1);
    EXPECT_EQ(picker.DateToCalIndex(1, 2006), 2);
    EXPECT_EQ(picker.DateToCalIndex(2, 2006), -1);
    CHyDate first, last;
    picker.GetDateRange(&first, &last);
    EXPECT_TRUE(first == CHyDate(2005, 10, 30, 0));   // the Sunday before 1 November
    EXPECT_TRUE(last == CHyDate(2006, 2, 11, 0));     // the last cell of January's grid
}

TEST_F(PickerTest, HighlightInAMonthNotShownMakesItFirstAndTellsOnce)
{
    Create();
    picker.SetHighlightDate(4, 10, 2007, 1);
    ExpectDisplay(4, 2007);
    EXPECT_TRUE(notify.Matches({MonthsChanged()}));
    picker.SetHighlightDate(5, 31, 2007, 1);   // shown: no message
    EXPECT_TRUE(notify.Matches({MonthsChanged()}));
    picker.SetHighlightDate(6, 31, 2007, 0);   // no 31 June: the 1st
    ExpectHighlight(2007, 6, 1);
    EXPECT_TRUE(picker.GetFlags() & HYDP_HIGHLIGHT);
}

TEST_F(PickerTest, MonthsNoCalendarCanShowAreIgnored)
{
    Create();
    picker.SetHighlightDate(13, 1, 2005, 1);
    picker.SetHighlightDate(1, 1, 0, 1);
    picker.SetDisplayMonth(0, 2005, 1);
    picker.SetDisplayMonth(11, 9999, 1);   // the third calendar would be in 10000
    picker.SetSelection(-5, 6, 1, 1);
    ExpectDisplay(11, 2005);
    ExpectHighlight(2005, 11, 15);
    EXPECT_TRUE(notify.Matches({}));
    picker.SetDisplayMonth(10, 9999, 0);   // October to December 9999 fit
    ExpectDisplay(10, 9999);
}

TEST_F(PickerTest, DisplayMonthKeepsTheHighlightAtItsPosition)
{
    Create();
    picker.SetHighlightDate(12, 31, 2005, 0);   // second calendar
    Clear();
    picker.SetDisplayMonth(2, 2006, 1);
    ExpectDisplay(2, 2006);
    ExpectHighlight(2006, 3, 31);   // still the second calendar, same day number
    EXPECT_TRUE(notify.Matches({MonthsChanged()}));
    picker.SetDisplayMonth(2, 2006, 1);   // unchanged: no message
    EXPECT_TRUE(notify.Matches({MonthsChanged()}));
    picker.SetDisplayMonth(9, 2006, 0);   // the second calendar is now October
    ExpectHighlight(2006, 10, 31);
    // A highlight that was not shown before moves into the first calendar;
    // February has no 31st, so it lands on the 1st.
    picker.SetCalDates(1, 2010);
    picker.SetDisplayMonth(2, 2007, 0);
    ExpectHighlight(2007, 2, 1);
}

TEST_F(PickerTest, MaximumMonthDependsOnTheCalendarInFocus)
{
    Create();
    int m, y;
    picker.focusCal = 2;
    picker.GetMaxMonthYearCurCal(m, y);
    EXPECT_EQ(m, 12);
    EXPECT_EQ(y, 2031);
    picker.focusCal = 0;
    picker.GetMaxMonthYearCurCal(m, y);
    EXPECT_EQ(m, 10);
    EXPECT_EQ(picker.Is_MMYY_ValidForCurCal(10, 2031), 1);
    EXPECT_EQ(picker.Is_MMYY_ValidForCurCal(11, 2031), 0);
    picker.focusCal = -1;
}

// ---- events ----------------------------------------------------------------------

TEST_F(PickerTest, PlainEventGivesWayToAKindButNeverTheOtherWayRound)
{
    Create();
    EXPECT_EQ(picker.AddEvent(2005, 11, 3, 0, 2), 0);
    EXPECT_EQ(picker.AddEvent(2005, 11, 3, 0, 0), -1);   // a kind-2 mark stays
    EXPECT_EQ(picker.AddEvent(2005, 11, 3, 0, 1), -1);
    EXPECT_EQ(picker.AddEvent(2005, 11, 4, 0, 0), 0);
    EXPECT_EQ(picker.AddEvent(2005, 11, 4, 0, 0), -1);   // two plain marks: refused
    EXPECT_EQ(picker.AddEvent(2005, 11, 4, 0, 3), 0);    // the plain mark is replaced
    ASSERT_EQ(picker.GetEventCount(), 2);
    EXPECT_EQ(picker.GetEvent(1).flags, 3);
    EXPECT_EQ(picker.GetEvent(0).flags, 2);
}

TEST_F(PickerTest, ListFormsAddPlainMarksWhateverTheElementsSay)
{
    Create();
    CHyDate dates[3] = {CHyDate(2005, 11, 1, 5), CHyDate(2005, 11, 2, 6), CHyDate(2005, 11, 1, 7)};
    EXPECT_EQ(picker.AddEvent(dates, 3, 0), 0);
    ASSERT_EQ(picker.GetEventCount(), 2);
    EXPECT_EQ(picker.GetEvent(0).flags, 0);
    EXPECT_EQ(picker.GetEvent(1).flags, 0);
    EXPECT_EQ(picker.AddEvent(dates, 3, 0), -1);   // nothing new
    CArray<CHyDate, CHyDate&> more;
    CHyDate extra(2005, 12, 25, 4);
    more.Add(extra);
    EXPECT_EQ(picker.AddEvent(&more, 0), 0);
    EXPECT_EQ(picker.GetEventCount(), 3);
    EXPECT_EQ(picker.RemoveEvent(dates, 3, 0), 0);
    EXPECT_EQ(picker.GetEventCount(), 1);
    EXPECT_EQ(picker.RemoveEvent(dates, 3, 0), -1);
    picker.ResetEventArray(0);
    EXPECT_EQ(picker.GetEventCount(), 0);
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
    EXPECT_EQ(picker.FindMonth('j', 1), 6);
    EXPECT_EQ(picker.FindMonth('j', 6), 7);
    EXPECT_EQ(picker.FindMonth('j', 7), 1);
    EXPECT_EQ(picker.FindMonth('q', 7), -1);
    // Typing a letter shows the next month of the first calendar's year named by it.
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
    EXPECT_EQ(picker.rolloverCal, 2);
    // Between ticks nothing is left pressed or focused.
    EXPECT_EQ(picker.focusPart, 0);
    EXPECT_EQ(picker.focusCal, -1);

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
    EXPECT_EQ(picker.rolloverPart, 0);
    EXPECT_EQ(picker.rolloverCal, -1);
}

TEST_F(PickerTest, CancelModeEndsThePressWithoutStepping)
{
    Create();
    const CPoint arrow = Centre(Parts(2).nextArrow);
    hytest::MouseDown(picker, arrow.x, arrow.y);
    EXPECT_EQ(picker.pressed, 1);
    picker.SendMessage(WM_CANCELMODE);
    EXPECT_EQ(picker.pressed, 0);
    EXPECT_EQ(picker.focusPart, 0);
    EXPECT_EQ(::GetCapture(), nullptr);
    hytest::MouseUp(picker, arrow.x, arrow.y);
    ExpectDisplay(11, 2005);
    EXPECT_TRUE(notify.Matches({}));
}
