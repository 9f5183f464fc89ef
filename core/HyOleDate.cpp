#include "HyOleDate.h"

#include <cmath>

namespace {

constexpr long long kSecondsPerDay = 24 * 60 * 60;
constexpr long long kDaysPerCycle = 146097;      // 400 Gregorian years
constexpr long long kEpochFromMarchYear0 = 693899; // 30 December 1899, counted from 1 March of year 0

// Days from 1 March of year 0 of a proleptic Gregorian date. The year is
// taken to run from March to February, so the leap day falls at its end and
// the month offsets are a fixed formula; exact for every year >= 0.
constexpr long long DaysFromMarchYear0(long long year, int month, int day)
{
    const long long y = year - (month <= 2 ? 1 : 0);
    const long long cycle = y / 400;
    const long long yearOfCycle = y - cycle * 400;
    const long long monthFromMarch = month > 2 ? month - 3 : month + 9;
    const long long dayOfYear = (153 * monthFromMarch + 2) / 5 + day - 1;
    return cycle * kDaysPerCycle + yearOfCycle * 365 + yearOfCycle / 4 - yearOfCycle / 100 + dayOfYear;
}
static_assert(DaysFromMarchYear0(1899, 12, 30) == kEpochFromMarchYear0);

// The inverse of DaysFromMarchYear0 for day numbers >= 0.
void CivilFromMarchYear0(long long days, int& year, int& month, int& day)
{
    const long long cycle = days / kDaysPerCycle;
    const long long dayOfCycle = days - cycle * kDaysPerCycle;
    const long long yearOfCycle =
        (dayOfCycle - dayOfCycle / 1460 + dayOfCycle / 36524 - dayOfCycle / 146096) / 365;
    const long long dayOfYear = dayOfCycle - (365 * yearOfCycle + yearOfCycle / 4 - yearOfCycle / 100);
    const long long monthFromMarch = (5 * dayOfYear + 2) / 153;
    day = static_cast<int>(dayOfYear - (153 * monthFromMarch + 2) / 5 + 1);
    month = static_cast<int>(monthFromMarch < 10 ? monthFromMarch + 3 : monthFromMarch - 9);
    year = static_cast<int>(yearOfCycle + cycle * 400 + (month <= 2 ? 1 : 0));
}

// 30 December 1899 was a Saturday.
constexpr int kEpochWeekday = 6;

} // namespace

namespace hy {

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

    int year = 0, month = 0, day = 0;
    const long long days = serial + kEpochFromMarchYear0;
    CivilFromMarchYear0(days, year, month, day);
    parts.year = year;
    parts.month = month;
    parts.day = day;
    parts.hour = static_cast<int>(seconds / 3600);
    parts.minute = static_cast<int>(seconds / 60 % 60);
    parts.second = static_cast<int>(seconds % 60);
    parts.dayOfWeek = static_cast<int>(((serial + kEpochWeekday) % 7 + 7) % 7);
    parts.dayOfYear = static_cast<int>(days - DaysFromMarchYear0(year, 1, 1) + 1);
    return true;
}

bool PartsToOleDate(const HyDateTimeParts& parts, double& date)
{
    if (!IsValidOleCalendarDate(parts.year, parts.month, parts.day))
        return false;
    if (parts.hour < 0 || parts.hour > 23 || parts.minute < 0 || parts.minute > 59
        || parts.second < 0 || parts.second > 59)
        return false;

    const long long serial = DaysFromMarchYear0(parts.year, parts.month, parts.day) - kEpochFromMarchYear0;
    const double time = static_cast<double>(parts.hour * 3600 + parts.minute * 60 + parts.second)
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
