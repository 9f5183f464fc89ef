// Date-entry rules of the date field that need no window: the year range and
// calendar check, and the century of a two-digit year. Platform-free.
#pragma once

#include "HyUIExport.h"

namespace hy {

// True when minYear <= year <= maxYear, month is 1..12 and the day exists in
// that month. February has 29 days in leap years of the British calendar:
// every fourth year up to 1752, the Gregorian rule after it (so 1700 is a
// leap year and 1900 is not).
HYUI_API bool IsValidEntryDate(int year, int month, int day, int minYear, int maxYear);

// The full year of a parsed year: a year below 1900 gains 1900, and another
// 100 when it is then still below minYear. With minYear 1904, 00..03 become
// 2000..2003 and 04..99 become 1904..1999. The rule is deliberately applied
// to every year, not only to two-digit ones: a typed 1901 with minYear 1904
// becomes 2001, a typed 1700 becomes 3600.
HYUI_API int ExpandEntryYear(int year, int minYear);

} // namespace hy
