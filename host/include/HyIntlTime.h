// CIntlTime: a CTime that formats and parses itself by the user's regional
// settings (Win32 locale services, read afresh at every call).
#pragma once

#include <afx.h>
#include "HyHostExport.h"

// Format types of FormatDate and GetDateFormat.
enum : int
{
    HYINTL_LONGDATE = 1,   // the locale's long date ("Tuesday, March 5, 2024")
    HYINTL_SHORTDATE = 2,  // the locale's short date ("3/5/2024"); any other type means this too
};

class HYHOST_API CIntlTime : public CTime
{
public:
    CIntlTime();                                    // the current time
    CIntlTime(const CTime& time);
    CIntlTime(__time64_t time);
    // Local time, normalised as CTime does.
    CIntlTime(int nYear, int nMonth, int nDay, int nHour, int nMin, int nSec, int nDST = -1);

    const CIntlTime& operator=(const CTime& time);

    // --- regional rules (the user's locale, not this value) ---
    // 1 when the time picture uses a 24-hour clock.
    static BOOL Is24HrFormat();
    // The text between the hours and minutes of the time picture (":").
    static CString GetTimeSeperator();
    static void GetTimeSeperator(CString& rSeparator);
    // The text between the first two fields of the short-date picture ("/").
    static CString GetDateSeperator();
    static void GetDateSeperator(CString& rSeparator);
    // The date picture of a format type, e.g. "M/d/yyyy" for HYINTL_SHORTDATE;
    // bUserLocale zero answers the system locale's picture instead.
    static CString GetDateFormat(int nFormat, int bUserLocale);

    // Parses text written in the picture's field order (d, M and y, as in the
    // locale pictures) with fields split by chSeparator. Day and month take
    // 1 or 2 digits, the year 2 or 4 and is reported as typed (a two-digit
    // year stays below 100). Two fields are the day and month in picture
    // order, and the year is then the current one. Blanks around fields and
    // one trailing separator are allowed. Answers non-zero on success; on
    // failure the outputs are untouched.
    static int ParseDateFromFormat(LPCTSTR lpszPicture, LPCTSTR lpszText, TCHAR chSeparator,
                                   int* pYear, int* pMonth, int* pDay);

    // --- this value, in the user's locale ---
    CString FormatDate(int nFormat) const;   // HYINTL_SHORTDATE or HYINTL_LONGDATE
    CString FormatTime() const;              // hours and minutes, no seconds
};
