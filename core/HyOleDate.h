// Conversion between OLE automation dates and calendar fields.
//
// An OLE date is a double counting days from 30 December 1899 00:00; its
// fraction is the time of day. For negative values the integral part still
// names the day and the fraction's absolute value is the time, so -1.25 is
// 29 December 1899 06:00. Valid dates run from 1 January 100 to
// 31 December 9999 on the proleptic Gregorian calendar (no 1752 gap here,
// unlike CHyCalMonth). Platform-free; times are rounded to whole seconds.
// The one OLE-date engine: COleDateTime and the library both use it.
#pragma once

#include "HyCalendar.h"


struct HyDateTimeParts
{
    int year;       // 100..9999
    int month;      // 1..12
    int day;        // 1..31
    int hour;       // 0..23
    int minute;     // 0..59
    int second;     // 0..59
    int dayOfWeek;  // 0 = Sunday .. 6 = Saturday; output only
    int dayOfYear;  // 1..366; output only
};

namespace hy {

constexpr double kOleDateMin = -657434.0;  // 1 January 100
constexpr double kOleDateMax = 2958465.0;  // 31 December 9999

// Year within 100..9999, month within 1..12, day within the month.
bool IsValidOleCalendarDate(int year, int month, int day);

// True only for a date after 30 December 1899 00:00; false for zero,
// negative values and NaN. Dates that fail this are shown as no date.
bool IsPositiveOleDate(double date);

// Splits an OLE date into its fields, rounding the time to the nearest
// second (half a second rounds up, into the next day if need be). Returns
// false, leaving parts untouched, for NaN, infinities and dates outside
// 1 January 100 .. 31 December 9999.
bool OleDateToParts(double date, HyDateTimeParts& parts);

// Builds the OLE date of year..second (dayOfWeek and dayOfYear are ignored).
// Returns false, leaving date untouched, when a field is out of range or the
// day does not exist (31 April, 29 February 1900).
bool PartsToOleDate(const HyDateTimeParts& parts, double& date);

// The OLE date of a day at 00:00:00; same checks as PartsToOleDate.
bool DateToOleDate(int year, int month, int day, double& date);

} // namespace hy
