#include "HyCalMonth.h"
#include "calendar_model.h"
#include "HyCalendar.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <utility>
#include <vector>

namespace {

// ---- An independent model of the British calendar, for the checks below ----

// Days the month really has: September 1752 lost 3..13.
int ModelDayCount(int year, int month)
{
    return year == 1752 && month == 9 ? 19 : model::BritishLastDay(year, month);
}

struct ExpectedCell
{
    int day, month, year;
};

// The grid a month should show, given the weekday of its 1st (0 = Sunday).
std::array<ExpectedCell, 42> ModelGrid(int year, int month, int weekdayOfFirst, bool mondayFirst)
{
    const int prevMonth = month == 1 ? 12 : month - 1;
    const int prevYear = month == 1 ? year - 1 : year;
    const int nextMonth = month == 12 ? 1 : month + 1;
    const int nextYear = month == 12 ? year + 1 : year;
    const int firstCell = mondayFirst ? (weekdayOfFirst + 6) % 7 : weekdayOfFirst;
    const int prevLast = model::BritishLastDay(prevYear, prevMonth);
    const int length = model::BritishLastDay(year, month);

    std::array<ExpectedCell, 42> grid{};
    for (int cell = 0; cell < 42; ++cell) {
        if (cell < firstCell)
            grid[cell] = {prevLast - (firstCell - 1 - cell), prevMonth, prevYear};
        else if (cell < firstCell + length)
            grid[cell] = {cell - firstCell + 1, month, year};
        else
            grid[cell] = {cell - firstCell - length + 1, nextMonth, nextYear};
    }
    return grid;
}

// Compares the whole grid and reports the first difference only.
::testing::AssertionResult GridMatches(const CHyCalMonth& cal, int year, int month,
                                       int weekdayOfFirst, bool mondayFirst)
{
    const auto expected = ModelGrid(year, month, weekdayOfFirst, mondayFirst);
    const std::string where = std::to_string(year) + "-" + std::to_string(month)
                            + (mondayFirst ? " Monday-first" : " Sunday-first");
    if (cal.month != month || cal.year != year)
        return ::testing::AssertionFailure() << where << ": stored month/year "
                                             << cal.month << "/" << cal.year;
    for (int cell = 0; cell < 42; ++cell) {
        int d = 0, m = 0, y = 0;
        cal.GetCellDate(cell, d, m, y);
        if (cal.cellDay[cell] != expected[cell].day || cal.cellMonth[cell] != expected[cell].month
            || d != expected[cell].day || m != expected[cell].month || y != expected[cell].year)
            return ::testing::AssertionFailure()
                << where << ": cell " << cell << " shows " << d << "/" << m << "/" << y
                << ", expected " << expected[cell].day << "/" << expected[cell].month << "/"
                << expected[cell].year;
    }
    const int firstCell = mondayFirst ? (weekdayOfFirst + 6) % 7 : weekdayOfFirst;
    const int lastDay = model::BritishLastDay(year, month);
    if (cal.FindCell(1, month) != firstCell || cal.FindCell(lastDay, month) != firstCell + lastDay - 1)
        return ::testing::AssertionFailure() << where << ": FindCell disagrees with the grid";
    return ::testing::AssertionSuccess();
}

} // namespace

// ---- Month lengths and day counting ----

TEST(CalendarMonthLengths, BothCalendarsAgreeWithTheModelFromYear1To4000)
{
    for (int year = 1; year <= 4000; ++year)
        for (int month = 1; month <= 12; ++month) {
            ASSERT_EQ(model::GregorianMonthLength(year, month), hy::GregorianDaysInMonth(year, month)) << year << "-" << month;
            ASSERT_EQ(model::BritishLastDay(year, month), hy::BritishDaysInMonth(year, month)) << year << "-" << month;
        }
    for (int month : {0, 13, -1}) {
        EXPECT_EQ(0, hy::GregorianDaysInMonth(2000, month));
        EXPECT_EQ(0, hy::BritishDaysInMonth(2000, month));
    }
}

TEST(CalMonthDays, DayInYearAndWeekdayOfKnownDays)
{
    struct Case { int day, month, year, dayInYear, weekday; };
    const Case cases[] = {
        {1, 1, 2005, 1, 6},     {1, 3, 2005, 60, 2},    {1, 3, 2000, 61, 3},   {1, 3, 1700, 61, 5},
        {1, 3, 1900, 60, 4},    {31, 12, 2005, 365, 6}, {31, 12, 2024, 366, 2}, {1, 1, 1970, 1, 4},
        {14, 11, 2026, 318, 6}, {1, 1, 1, 1, 6},        // proleptic Julian Saturday
        {1, 10, 1752, 275, 0},
        {14, 9, 1752, 258, 4},  // the 1752 gap does not shorten the year's count
        // The weekday's gap window starts twelve days early.
        {21, 8, 1752, 234, 5},  {22, 8, 1752, 235, 4},  {31, 8, 1752, 244, 4},  {1, 9, 1752, 245, 4},
        {2, 9, 1752, 246, 6},   {3, 9, 1752, 247, 0},
    };
    for (const Case& c : cases)
        EXPECT_EQ((std::vector<int>{c.dayInYear, c.weekday}),
                  (std::vector<int>{CHyCalMonth::DayInYear(c.day, c.month, c.year),
                                    CHyCalMonth::DayOfWeek(c.day, c.month, c.year)}))
            << c.day << "." << c.month << "." << c.year;
}

// ---- Month grids ----

TEST(CalMonthGrid, FlagOnlyConstructorKeepsFlagForLaterLayoutAndDaysNotShownAre42)
{
    CHyCalMonth cal(static_cast<short>(1));
    EXPECT_EQ(1, cal.mondayFirst);
    cal.SetMonth(2, 2015);
    EXPECT_EQ(6, cal.FindCell(1, 2));
    CHyCalMonth march(3, 2005, 0);
    for (auto [day, month] : {std::pair{20, 1}, {32, 3}, {0, 3}})
        EXPECT_EQ(42, march.FindCell(day, month)) << day << "." << month;
}

TEST(CalMonthGrid, September1752IsTheFixedGridAndNothingElse)
{
    CHyCalMonth cal(3, 2005, 1);
    std::array<int, 42> monthsBefore{};
    for (int cell = 0; cell < 42; ++cell)
        monthsBefore[cell] = cal.cellMonth[cell];

    cal.SetMonth(9, 1752);

    const int expectedDays[42] = {
        -1, -1, 1,  2,  14, 15, 16, 17, 18, 19, 20, 21, 22, 23,
        24, 25, 26, 27, 28, 29, 30, -1, -1, -1, -1, -1, -1, -1,
        -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1,
    };
    for (int cell = 0; cell < 42; ++cell) {
        EXPECT_EQ(expectedDays[cell], cal.cellDay[cell]) << cell;
        EXPECT_EQ(monthsBefore[cell], cal.cellMonth[cell]) << cell;
    }
    // Stored month and year keep the previous layout; Monday-first is not applied.
    EXPECT_EQ(3, cal.month);
    EXPECT_EQ(2005, cal.year);
    EXPECT_EQ(1, cal.mondayFirst);

    // The next month lays out normally again.
    cal.SetMonth(10, 1752);
    EXPECT_EQ(10, cal.month);
    EXPECT_EQ(1752, cal.year);
    EXPECT_EQ(6, cal.FindCell(1, 10)); // a Sunday, Monday-first
}

// Every month of years 1..9999, both week starts, against a weekday count
// carried forward month by month from 1 January of year 1 (a Saturday).
TEST(CalMonthGrid, EveryMonthMatchesIndependentCalendar)
{
    CHyCalMonth sundayFirst(static_cast<short>(0));
    CHyCalMonth mondayFirst(static_cast<short>(1));
    int weekdayOfFirst = 6;
    int failures = 0;
    for (int year = 1; year <= 9999 && failures < 5; ++year) {
        for (int month = 1; month <= 12; ++month) {
            // Anchors that check the model itself.
            if (year == 1752 && month == 10)
                ASSERT_EQ(0, weekdayOfFirst);
            if (year == 1970 && month == 1)
                ASSERT_EQ(4, weekdayOfFirst);
            if (year == 2000 && month == 1)
                ASSERT_EQ(6, weekdayOfFirst);

            if (!(year == 1752 && month == 9)) {
                EXPECT_EQ(weekdayOfFirst, CHyCalMonth::DayOfWeek(1, month, year))
                    << year << "-" << month;
                sundayFirst.SetMonth(month, year);
                mondayFirst.SetMonth(month, year);
                const auto a = GridMatches(sundayFirst, year, month, weekdayOfFirst, false);
                const auto b = GridMatches(mondayFirst, year, month, weekdayOfFirst, true);
                EXPECT_TRUE(a);
                EXPECT_TRUE(b);
                failures += !a + !b;
            }
            weekdayOfFirst = (weekdayOfFirst + ModelDayCount(year, month)) % 7;
        }
    }
}
