// The date picker's window-free decisions and single-calendar geometry.
#include "HyCalMonth.h"
#include "HyPickerDecisions.h"
#include "HyPickerLayout.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

std::vector<int> Edges(const HyRect& r) { return {r.left, r.top, r.right, r.bottom}; }

} // namespace

// A 203 x 180 client with 16-pixel arrows: the day area is 199 x 112 pixels
// (columns of 28 with 3 left over, rows of 16), the month panel 199 x 28
// (columns of 33 with 1 left over).
TEST(PickerSingleCalendar, RectanglesAndCellsAreTheirFormulas)
{
    const HySingleCalRects r = hy::SingleCalRects(HyRect{0, 0, 203, 180}, 16);
    EXPECT_EQ(std::vector<int>({0, 2, 16, 18}), Edges(r.prevArrow));
    EXPECT_EQ(std::vector<int>({187, 1, 203, 18}), Edges(r.nextArrow));
    EXPECT_EQ(std::vector<int>({26, 3, 177, 19}), Edges(r.caption));
    EXPECT_EQ(std::vector<int>({2, 28, 201, 56}), Edges(r.monthPanel));
    EXPECT_EQ(std::vector<int>({2, 66, 201, 178}), Edges(r.dayArea));

    struct DayCase { int cell; bool week; HyRect expected; };
    const DayCase days[] = {
        {0, false, {2, 82, 30, 98}},      // the first row is the initials' row
        {5, false, {142, 82, 170, 98}},
        {6, false, {170, 82, 201, 98}},   // column 6 takes the remainder
        {41, false, {170, 162, 201, 178}},
        {9, true, {2, 98, 201, 114}},     // the whole week
    };
    for (const DayCase& c : days)
        EXPECT_EQ(Edges(c.expected), Edges(hy::SingleCalDayCell(r.dayArea, c.cell, c.week))) << c.cell;

    struct MonthCase { int month; HyRect expected; };
    const MonthCase months[] = {
        {1, {2, 28, 35, 42}}, {5, {134, 28, 167, 42}}, {6, {167, 28, 201, 42}},
        {7, {2, 42, 35, 56}}, {12, {167, 42, 201, 56}},
    };
    for (const MonthCase& c : months)
        EXPECT_EQ(Edges(c.expected), Edges(hy::SingleCalMonthCell(r.monthPanel, c.month))) << c.month;
}

TEST(PickerDecisions, APressOnADaySelectsBeepsOrStepsOn)
{
    // The calendar shows March 2031; the limits are 1970..2031.
    struct Case { CHyDate day; bool highlighted, last; HyDayPress expected; };
    const Case cases[] = {
        {CHyDate(2031, 3, 9, 0), false, false, HyDayPress::SelectOwnDay},
        {CHyDate(2031, 3, 9, 0), true, true, HyDayPress::Nothing},
        {CHyDate(2031, 2, 27, 0), false, true, HyDayPress::Highlight},   // before: never steps
        {CHyDate(2031, 4, 2, 0), false, false, HyDayPress::Highlight},
        {CHyDate(2031, 4, 2, 0), false, true, HyDayPress::StepOnAndHighlight},
        {CHyDate(2031, 4, 2, 0), true, true, HyDayPress::StepOnAndHighlight},
    };
    for (const Case& c : cases)
        EXPECT_EQ(c.expected, hy::DecideDayPress(c.day, 3, 2031, c.highlighted, c.last, 1970, 2031))
            << c.day.month << "/" << c.day.day;
    // A neighbouring day beyond the year limits beeps, before or after.
    EXPECT_EQ(HyDayPress::Beep, hy::DecideDayPress(CHyDate(2032, 1, 1, 0), 12, 2031, false, true, 1970, 2031));
    EXPECT_EQ(HyDayPress::Beep, hy::DecideDayPress(CHyDate(1969, 12, 30, 0), 1, 1970, false, false, 1970, 2031));
}

TEST(PickerDecisions, AnArrowStepsTheFirstMonthOrBeeps)
{
    struct Case { int part, month, year; bool nextValid; bool steps; int toMonth, toYear; };
    const Case cases[] = {
        {HYPART_PREV_ARROW, 3, 2005, false, true, 2, 2005},    // the next month's validity is not asked
        {HYPART_PREV_ARROW, 1, 2005, true, true, 12, 2004},
        {HYPART_PREV_ARROW, 2, 1970, true, true, 1, 1970},     // the first year is allowed
        {HYPART_PREV_ARROW, 1, 1970, true, false, 0, 0},       // into 1969
        {HYPART_NEXT_ARROW, 12, 2005, true, true, 1, 2006},
        {HYPART_NEXT_ARROW, 3, 2005, false, false, 0, 0},
        {HYPART_NEXT_ARROW, 12, 2031, true, false, 0, 0},      // into 2032
    };
    for (const Case& c : cases) {
        int month = 0, year = 0;
        EXPECT_EQ(c.steps, hy::DecideArrowStep(c.part, c.month, c.year, c.nextValid, 1970, 2031, month, year))
            << c.part << " " << c.month << "/" << c.year;
        if (c.steps) {
            EXPECT_EQ(c.toMonth, month);
            EXPECT_EQ(c.toYear, year);
        }
    }
}

TEST(PickerDecisions, TheNearestOwnDayAndTheCellShowingADate)
{
    const CHyCalMonth august(8, 2026, 0);   // 1 August a Saturday: cells 6..36
    struct Case { int col, row, cell; };
    const Case cases[] = {{0, 0, 6}, {5, 0, 6}, {6, 0, 6}, {3, 2, 17}, {1, 5, 36}, {6, 5, 36}, {-3, 9, 35}, {9, -1, 6}};
    for (const Case& c : cases)
        EXPECT_EQ(c.cell, hy::ClosestOwnMonthCell(august, c.col, c.row)) << c.col << "," << c.row;

    const CHyCalMonth january(1, 2023, 1);   // Monday first: cell 0 is 26 December 2022
    EXPECT_EQ(0, hy::CellShowingDate(january, CHyDate(2022, 12, 26, 0)));
    EXPECT_EQ(-1, hy::CellShowingDate(january, CHyDate(2023, 12, 26, 0)));
    EXPECT_EQ(41, hy::CellShowingDate(january, CHyDate(2023, 2, 5, 0)));
    EXPECT_EQ(-1, hy::CellShowingDate(january, CHyDate(2023, 1, 32, 0)));
}

TEST(PickerDecisions, EachDateIsMarkedInOnePlaceWithItsEventsLook)
{
    // January and February 2023, Sunday first: 1 February is cell 31 of
    // January's grid and cell 3 of February's; 1 March is cell 31 of February's.
    const CHyCalMonth january(1, 2023, 0), february(2, 2023, 0);
    const HyMonthYear shown[] = {{1, 2023}, {2, 2023}};
    const CHyDate events[] = {CHyDate(2023, 2, 1, 0), CHyDate(2023, 2, 1, 2), CHyDate(2023, 1, 31, 9),
                              CHyDate(2023, 3, 1, 1)};
    HyDayCellInputs in;
    in.shownMonths = shown;
    in.shownCount = 2;
    in.events = events;
    in.eventCount = 4;
    in.otherMonths = true;
    in.todayMark = true;
    in.highlightOn = true;
    in.wholeWeek = true;
    in.highlight = in.today = CHyDate(2023, 2, 1, 0);
    in.start = CHyDate(2023, 3, 1, 0);
    in.drop = CHyDate(-1, -1, -1, 0);

    HyDayGrid jan, feb;
    hy::ComputeDayCells(january, in, jan);
    hy::ComputeDayCells(february, in, feb);
    const HyDayCell& inJanuary = jan.cells[31];   // 1 February in January's grid
    EXPECT_TRUE(inJanuary.shown && !inJanuary.own && !inJanuary.marked && !inJanuary.today);
    EXPECT_EQ(-1, jan.highlightCell);
    const HyDayCell& own = feb.cells[3];
    EXPECT_TRUE(own.own && own.marked && own.today);
    EXPECT_EQ(3, own.eventLook);                  // kind 2 wins over kind 0 on the day
    EXPECT_EQ(3, feb.highlightCell);
    EXPECT_EQ(0, feb.highlightRow);
    EXPECT_EQ(1, jan.cells[30].eventLook);        // kind 9 is drawn as kind 0
    // March is no calendar's month: its days are marked in February's grid.
    EXPECT_TRUE(feb.cells[31].marked && feb.cells[31].start);
    EXPECT_EQ(2, feb.cells[31].eventLook);

    in.otherMonths = in.wholeWeek = false;
    in.todayMark = false;
    hy::ComputeDayCells(february, in, feb);
    EXPECT_FALSE(feb.cells[31].shown || feb.cells[31].marked);
    EXPECT_FALSE(feb.cells[3].today);
    EXPECT_EQ(-1, feb.highlightRow);
}
