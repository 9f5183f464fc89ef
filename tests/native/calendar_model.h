// An independent model of both calendars for the native suite, built on other
// arithmetic than core/HyCalendar: month lengths are differences of day
// numbers, from the standard library's civil calendar (proleptic Gregorian)
// and from the Julian day-number formula (years up to 1752).
#pragma once

#include <chrono>

namespace model {

// Proleptic Gregorian month length.
inline int GregorianMonthLength(int year, int month)
{
    using namespace std::chrono;
    const year_month_day_last last{std::chrono::year{year} / std::chrono::month{unsigned(month)} / std::chrono::last};
    return int(unsigned(last.day()));
}

// Julian day number of a Julian-calendar date (valid for years >= 1).
inline long JulianDayNumber(long year, long month, long day)
{
    return 367 * year - (7 * (year + 5001 + (month - 9) / 7)) / 4 + (275 * month) / 9 + day + 1729777;
}

inline int JulianMonthLength(int year, int month)
{
    const long next = month == 12 ? JulianDayNumber(year + 1, 1, 1) : JulianDayNumber(year, month + 1, 1);
    return int(next - JulianDayNumber(year, month, 1));
}

// British month length by its last day: Julian to 1752, Gregorian after
// (September 1752 ends on the 30th although it lost eleven days).
inline int BritishLastDay(int year, int month)
{
    return year <= 1752 ? JulianMonthLength(year, month) : GregorianMonthLength(year, month);
}

} // namespace model
