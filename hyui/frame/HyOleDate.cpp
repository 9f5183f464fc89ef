#include "HyOleDate.h"

#include <cmath>

namespace {

constexpr int kSecondsPerDay = 24 * 60 * 60;

// Cumulative days before each month of a common year.
constexpr int kDaysBeforeMonth[13] = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334, 365};

// Days from 1 January of year 1 (day 1) up to the end of the given year.
constexpr long long DaysThroughYear(long long year)
{
    return year * 365 + year / 4 - year / 100 + year / 400;
}

constexpr int DayInGregorianYear(int year, int month, int day)
{
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    return kDaysBeforeMonth[month - 1] + (leap && month > 2 ? 1 : 0) + day;
}

// Day number (1 January 1 = 1) of 30 December 1899, OLE day zero.
constexpr long long kOleEpochDayNumber = DaysThroughYear(1898) + DayInGregorianYear(1899, 12, 30);
static_assert(kOleEpochDayNumber == 693594);

// 30 December 1899 was a Saturday.
constexpr int kEpochWeekday = 6;

} // namespace

namespace hy {

bool IsGregorianLeapYear(int year)
{
    return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

int GregorianDaysInMonth(int year, int month)
{
    if (month < 1 || month > 12)
        return 0;
    if (month == 2)
        return IsGregorianLeapYear(year) ? 29 : 28;
    return kDaysBeforeMonth[month] - kDaysBeforeMonth[month - 1];
}

bool IsValidOleCalendarDate(int year, int month, int day)
{
    return year >= 100 && year <= 9999 && day >= 1 && day <= GregorianDaysInMonth(year, month);
}

bool IsPositiveOleDate(double date)
{
    return date > 0.0; // false for NaN as well
}

bool OleDateToParts(double date, HyDateTimeParts& parts)
{
    // The bounds leave room for the time of the first and last day; NaN fails here.
    if (!(date > kOleDateMin - 1.0 && date < kOleDateMax + 1.0))
        return false;

    const double whole = std::trunc(date);
    long long serial = static_cast<long long>(whole);
    // The time of day is the fraction's absolute value, for negative dates too.
    const double fraction = std::fabs(date - whole);
    long long seconds = static_cast<long long>(std::floor(fraction * kSecondsPerDay + 0.5));
    if (seconds >= kSecondsPerDay) {
        // 23:59:59.5 and later is midnight of the next calendar day.
        seconds -= kSecondsPerDay;
        ++serial;
    }
    if (serial < static_cast<long long>(kOleDateMin) || serial > static_cast<long long>(kOleDateMax))
        return false;

    const long long dayNumber = serial + kOleEpochDayNumber;
    // Estimate the year from the mean Gregorian year, then correct it.
    long long year = dayNumber * 400 / 146097;
    while (DaysThroughYear(year) >= dayNumber)
        --year;
    while (DaysThroughYear(year + 1) < dayNumber)
        ++year;
    ++year;
    const int dayOfYear = static_cast<int>(dayNumber - DaysThroughYear(year - 1));

    const int y = static_cast<int>(year);
    const int leapDay = IsGregorianLeapYear(y) ? 1 : 0;
    int month = 1;
    while (month < 12 && dayOfYear > kDaysBeforeMonth[month] + (month >= 2 ? leapDay : 0))
        ++month;
    const int day = dayOfYear - kDaysBeforeMonth[month - 1] - (month > 2 ? leapDay : 0);

    parts.year = y;
    parts.month = month;
    parts.day = day;
    parts.hour = static_cast<int>(seconds / 3600);
    parts.minute = static_cast<int>(seconds / 60 % 60);
    parts.second = static_cast<int>(seconds % 60);
    parts.dayOfWeek = static_cast<int>(((serial + kEpochWeekday) % 7 + 7) % 7);
    parts.dayOfYear = dayOfYear;
    return true;
}

bool PartsToOleDate(const HyDateTimeParts& parts, double& date)
{
    if (!IsValidOleCalendarDate(parts.year, parts.month, parts.day))
        return false;
    if (parts.hour < 0 || parts.hour > 23 || parts.minute < 0 || parts.minute > 59
        || parts.second < 0 || parts.second > 59)
        return false;

    const long long serial = DaysThroughYear(parts.year - 1)
                           + DayInGregorianYear(parts.year, parts.month, parts.day)
                           - kOleEpochDayNumber;
    const double time = (parts.hour * 3600 + parts.minute * 60 + parts.second)
                      / static_cast<double>(kSecondsPerDay);
    // Before day zero the time is subtracted: it counts forward from the day's start.
    date = serial < 0 ? static_cast<double>(serial) - time : static_cast<double>(serial) + time;
    return true;
}

bool DateToOleDate(int year, int month, int day, double& date)
{
    HyDateTimeParts parts{year, month, day, 0, 0, 0, 0, 0};
    return PartsToOleDate(parts, date);
}

} // namespace hy
