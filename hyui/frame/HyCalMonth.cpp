#include "HyCalMonth.h"

#include "HyCalendar.h"

#include <cstddef>
#include <cstring>

// The date picker keeps arrays of these and the layout is part of the ABI.
static_assert(sizeof(int) == 4 && sizeof(short) == 2);
static_assert(offsetof(CHyCalMonth, cellMonth) == 0);
static_assert(offsetof(CHyCalMonth, cellDay) == 168);
static_assert(offsetof(CHyCalMonth, month) == 336);
static_assert(offsetof(CHyCalMonth, year) == 340);
static_assert(offsetof(CHyCalMonth, mondayFirst) == 344);
static_assert(sizeof(CHyCalMonth) == 348);

const int (&CHyCalMonth::s_daysInMonth)[25] = hy::kDaysInMonth;
const int (&CHyCalMonth::s_september1752)[CHyCalMonth::CellCount] = hy::kSeptember1752;

// The cells are deliberately left unset until SetMonth.
CHyCalMonth::CHyCalMonth(short mondayFirstFlag) : mondayFirst(mondayFirstFlag) {}

CHyCalMonth::CHyCalMonth(int monthToShow, int yearToShow, short mondayFirstFlag)
    : mondayFirst(mondayFirstFlag)
{
    SetMonth(monthToShow, yearToShow);
}

void CHyCalMonth::SetMonth(int newMonth, int newYear)
{
    const int prev = newMonth - 1 < 1 ? 12 : newMonth - 1;
    const int next = newMonth + 1 >= 13 ? 1 : newMonth + 1;

    if (newMonth == 9 && newYear == 1752) {
        // Intended: only the days are copied; cellMonth, month and year keep
        // their old values and the grid stays Sunday-first.
        std::memcpy(cellDay, s_september1752, sizeof cellDay);
        return;
    }

    month = newMonth;
    year = newYear;

    const int row = IsLeapYear(newYear) * 12;
    // The current year's row serves the previous December too (31 days either way).
    const int lastPrev = s_daysInMonth[row + prev];
    const int first = DayOfWeek(1, newMonth, newYear);

    int dayBefore = lastPrev;
    for (int cell = first - 1; cell >= 0; --cell) {
        cellDay[cell] = dayBefore--;
        cellMonth[cell] = prev;
    }

    const int length = s_daysInMonth[row + newMonth];
    int cell = first;
    for (int day = 1; day <= length; ++day, ++cell) {
        cellDay[cell] = day;
        cellMonth[cell] = newMonth;
    }

    for (int day = 1; cell < CellCount; ++day, ++cell) {
        cellDay[cell] = day;
        cellMonth[cell] = next;
    }

    if (!mondayFirst)
        return;

    if (cellDay[0] == 1) {
        // Begins on a Sunday: a full row of the previous month goes in front.
        std::memmove(cellDay + 6, cellDay, 36 * sizeof(int));
        std::memmove(cellMonth + 6, cellMonth, 36 * sizeof(int));
        int day = lastPrev;
        for (int c = 5; c >= 0; --c) {
            cellDay[c] = day--;
            cellMonth[c] = prev;
        }
    } else {
        std::memmove(cellDay, cellDay + 1, 41 * sizeof(int));
        std::memmove(cellMonth, cellMonth + 1, 41 * sizeof(int));
        // cellMonth[41] already holds the next month: no month ends after cell 36.
        cellDay[41] = cellDay[40] + 1;
    }
}

int CHyCalMonth::FindCell(int day, int monthOfDay) const
{
    for (int cell = 0; cell < CellCount; ++cell) {
        if (cellMonth[cell] == monthOfDay && cellDay[cell] == day)
            return cell;
    }
    return CellCount;
}

void CHyCalMonth::GetCellDate(int cell, int& day, int& monthOut, int& yearOut) const
{
    day = cellDay[cell];
    monthOut = cellMonth[cell];
    yearOut = year;
    if (month == 1 && monthOut == 12)
        --yearOut;
    else if (month == 12 && monthOut == 1)
        ++yearOut;
}

int CHyCalMonth::DayOfWeek(int day, int monthOfDay, int yearOfDay)
{
    return hy::BritishDayOfWeek(day, monthOfDay, yearOfDay);
}

int CHyCalMonth::DayInYear(int day, int monthOfDay, int yearOfDay)
{
    return hy::BritishDayInYear(day, monthOfDay, yearOfDay);
}

int CHyCalMonth::IsLeapYear(int yearToTest)
{
    return hy::IsBritishLeapYear(yearToTest);
}

int CHyCalMonth::LeapYearsSinceYear1(int yearToCount)
{
    return hy::BritishLeapDaysThrough(yearToCount);
}

int CHyCalMonth::CenturiesSince1700(int yearToCount)
{
    return hy::BritishCenturiesSince1700(yearToCount);
}

int CHyCalMonth::QuadCenturiesSince1700(int yearToCount)
{
    return hy::BritishQuadCenturiesSince1700(yearToCount);
}
