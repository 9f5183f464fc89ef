#include "HyDateRules.h"

#include "HyCalendar.h"

namespace hy {

bool IsValidEntryDate(int year, int month, int day, int minYear, int maxYear)
{
    if (year < minYear || year > maxYear || month < 1 || month > 12 || day < 1)
        return false;
    return day <= BritishDaysInMonth(year, month);
}

int ExpandEntryYear(int year, int minYear)
{
    if (year < 1900)
        year += 1900;
    // The pivot is the field's first valid year by design, not a fixed window.
    if (year < minYear)
        year += 100;
    return year;
}

} // namespace hy
