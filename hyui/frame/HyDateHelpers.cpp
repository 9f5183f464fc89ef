// Date and time helpers exported to the host's components.
#include "HyDateHelpers.h"
#include <afxdisp.h>
#include <stdlib.h>
#include "HyOleDate.h"

namespace {
constexpr int kJapaneseEraCalendar = 3;   // CAL_JAPAN
constexpr long kLongMin = -2147483647L - 1;   // 1901-12-13 20:45:52 UTC
constexpr long kLongMax = 2147483647L;        // 2038-01-19 03:14:07 UTC
}

CString HyGetDate(double date, int shortFormat)
{
    if (!hy::IsPositiveOleDate(date))
        return CString();
    SYSTEMTIME st{};
    if (!COleDateTime(date).GetAsSystemTime(st))
        return CString();

    char calendar[2] = {};
    ::GetLocaleInfoA(LOCALE_USER_DEFAULT, LOCALE_ICALENDARTYPE, calendar, sizeof calendar);
    if (atoi(calendar) == kJapaneseEraCalendar)
        return CString();   // deliberately: no date is formatted for the era calendar

    // Only the date part: the time of day is ignored.
    const DWORD flags = shortFormat ? DATE_SHORTDATE : DATE_LONGDATE;
    int needed = ::GetDateFormatA(LOCALE_USER_DEFAULT, flags, &st, nullptr, nullptr, 0);
    if (needed <= 0)
        return CString();
    CString result;
    int written = ::GetDateFormatA(LOCALE_USER_DEFAULT, flags, &st, nullptr,
                                   result.GetBuffer(needed + 1), needed + 1);
    result.ReleaseBuffer(written > 0 ? written - 1 : 0);
    return result;
}

int HyGetCTimeValid(int year, int month, int day, int hour, int minute, int second, CTime& out, int dst)
{
    // mktime of the fields (dst passed straight through: <0 lets the runtime
    // decide); out-of-range fields are normalised, not rejected; -1 on failure.
    out = CTime(year, month, day, hour, minute, second, dst);
    if (out.GetTime() == -1)
    {
        // Deliberately asymmetric: east of Greenwich 1 January 1970 fails, and
        // the caller still gets the same clock time a day later in out.
        if (year == 1970 && month == 1 && day == 1)
            out = CTime(1970, 1, 2, hour, minute, second, dst);
        return 0;
    }
    return 1;
}

long HyGetValidCTime(int year, int month, int day, int hour, int minute, int second, int dst)
{
    CTime result;
    if (!HyGetCTimeValid(year, month, day, hour, minute, second, result, dst))
        return -1;
    // The answer is a 32-bit long: a time it cannot hold is refused, never
    // wrapped (CTime itself holds 64 bits and keeps such times).
    const long long t = (long long)result.GetTime();
    if (t < (long long)kLongMin || t > (long long)kLongMax)
        return -1;
    return (long)t;
}
