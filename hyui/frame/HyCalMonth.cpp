#include "HyCalMonth.h"

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

namespace {

// Day numbers count from 1 January of year 1 = day 1.
constexpr int kFirstGapDay = 639787; // intended: 22 August 1752, twelve days before the real gap
constexpr int kGapLength = 11;
constexpr int kSaturday = 6;         // weekday of day 1
constexpr int kThursday = 4;

} // namespace

// Stride 12, not 13: the leap row starts right behind the common December,
// and the single -1 in front serves both rows (intended).
const int CHyCalMonth::s_daysInMonth[25] = {
    -1,
    31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31,
    31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31,
};

const int CHyCalMonth::s_september1752[CellCount] = {
    -1, -1, 1,  2,  14, 15, 16,
    17, 18, 19, 20, 21, 22, 23,
    24, 25, 26, 27, 28, 29, 30,
    -1, -1, -1, -1, -1, -1, -1,
    -1, -1, -1, -1, -1, -1, -1,
    -1, -1, -1, -1, -1, -1, -1,
};

// The cells are deliberately left unset until SetMonth.
CHyCalMonth::CHyCalMonth(short mondayFirstFlag) : mondayFirst(mondayFirstFlag) {}

CHyCalMonth::CHyCalMonth(int monthToShow, int yearToShow, short mondayFirstFlag)
    : mondayFirst(mondayFirstFlag)
{
    SetMonth(monthToShow, yearToShow);
}

void CHyCalMonth::SetMonth(int newMonth, int newYear)
{
    int prev = newMonth - 1;
    if (prev < 1)
        prev = 12;
    int next = newMonth + 1;
    if (next >= 13)
        next = 1;

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
    const int t = (yearOfDay - 1) * 365 + LeapYearsSinceYear1(yearOfDay - 1)
                + DayInYear(day, monthOfDay, yearOfDay);
    if (t < kFirstGapDay)
        return (t - 1 + kSaturday) % 7;
    if (t >= kFirstGapDay + kGapLength)
        return (t - 1 + kSaturday - kGapLength) % 7;
    // Intended: every day of the (early) gap window answers Thursday.
    return kThursday;
}

int CHyCalMonth::DayInYear(int day, int monthOfDay, int yearOfDay)
{
    const int row = IsLeapYear(yearOfDay) * 12;
    for (int m = 1; m < monthOfDay; ++m)
        day += s_daysInMonth[row + m];
    return day;
}

int CHyCalMonth::IsLeapYear(int yearToTest)
{
    if (yearToTest <= 1752)
        return yearToTest % 4 == 0;
    return (yearToTest % 4 == 0 && yearToTest % 100 != 0) || yearToTest % 400 == 0;
}

int CHyCalMonth::LeapYearsSinceYear1(int yearToCount)
{
    // Intended: the century rules count from 1700 and 1600, not from 1752.
    return yearToCount / 4 - CenturiesSince1700(yearToCount)
         + QuadCenturiesSince1700(yearToCount);
}

int CHyCalMonth::CenturiesSince1700(int yearToCount)
{
    return yearToCount > 1700 ? yearToCount / 100 - 17 : 0;
}

int CHyCalMonth::QuadCenturiesSince1700(int yearToCount)
{
    return yearToCount > 1600 ? (yearToCount - 1600) / 400 : 0;
}
