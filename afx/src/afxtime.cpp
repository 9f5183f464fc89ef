// HyAfx: CTime and CTimeSpan.
#include "afxtime.h"
#include "afxspan.h"

#include <stdio.h>
#include <string.h>

namespace {

// strftime into a CString, growing the buffer as needed.
CString FormatTm(LPCTSTR pFormat, const struct tm* ptm)
{
    CString strResult;
    if (pFormat == NULL || *pFormat == '\0' || ptm == NULL)
        return strResult;
    for (int nSize = 128; nSize <= 64 * 1024; nSize *= 4)
    {
        LPTSTR p = strResult.GetBuffer(nSize);
        size_t nLen = strftime(p, nSize, pFormat, ptm);
        if (nLen > 0)
        {
            strResult.ReleaseBuffer((int)nLen);
            return strResult;
        }
    }
    strResult.ReleaseBuffer(0);   // nothing to show (or a code that expands to nothing)
    return strResult;
}

__time64_t MakeLocalTime(int nYear, int nMonth, int nDay, int nHour, int nMin, int nSec, int nDST)
{
    struct tm atm = {};
    atm.tm_sec = nSec;
    atm.tm_min = nMin;
    atm.tm_hour = nHour;
    atm.tm_mday = nDay;
    atm.tm_mon = nMonth - 1;
    atm.tm_year = nYear - 1900;
    atm.tm_isdst = nDST;
    return _mktime64(&atm);
}

} // namespace

// ---- CTimeSpan ----

CTimeSpan::CTimeSpan(LONG lDays, int nHours, int nMins, int nSecs)
    : m_timeSpan(nSecs + 60 * (nMins + 60 * (nHours + (__time64_t)24 * lDays)))
{
}

LONG CTimeSpan::GetDays() const { return (LONG)(m_timeSpan / (24 * 3600)); }
LONG CTimeSpan::GetTotalHours() const { return (LONG)(m_timeSpan / 3600); }
int CTimeSpan::GetHours() const { return (int)(GetTotalHours() - (__time64_t)GetDays() * 24); }
LONG CTimeSpan::GetTotalMinutes() const { return (LONG)(m_timeSpan / 60); }
int CTimeSpan::GetMinutes() const { return (int)(GetTotalMinutes() - (__time64_t)GetTotalHours() * 60); }
LONG CTimeSpan::GetTotalSeconds() const { return (LONG)m_timeSpan; }
int CTimeSpan::GetSeconds() const { return (int)(m_timeSpan - (__time64_t)GetTotalMinutes() * 60); }

CString AfxFormatSpan(LPCTSTR pFormat, long days, long hours, long minutes, long seconds)
{
    CString strResult;
    if (pFormat == NULL)
        return strResult;
    char szField[32];
    for (LPCTSTR p = pFormat; *p; p++)
    {
        if (*p != '%' || p[1] == '\0')
        {
            strResult += *p;
            continue;
        }
        switch (*++p)
        {
        case '%': strResult += '%'; continue;
        case 'D': snprintf(szField, sizeof szField, "%ld", days); break;
        case 'H': snprintf(szField, sizeof szField, "%02ld", hours); break;
        case 'M': snprintf(szField, sizeof szField, "%02ld", minutes); break;
        case 'S': snprintf(szField, sizeof szField, "%02ld", seconds); break;
        default:
            // An unknown code is kept as written.
            strResult += '%';
            strResult += *p;
            continue;
        }
        strResult += szField;
    }
    return strResult;
}

CString CTimeSpan::Format(LPCTSTR pFormat) const
{
    return AfxFormatSpan(pFormat, (long)GetDays(), GetHours(), GetMinutes(), GetSeconds());
}

CString CTimeSpan::Format(UINT nFormatID) const
{
    CString strFormat;
    strFormat.LoadString(nFormatID);
    return Format(strFormat);
}

// ---- CTime ----

CTime PASCAL CTime::GetCurrentTime()
{
    return CTime(_time64(NULL));
}

CTime::CTime(int nYear, int nMonth, int nDay, int nHour, int nMin, int nSec, int nDST)
    : m_time(MakeLocalTime(nYear, nMonth, nDay, nHour, nMin, nSec, nDST))
{
}

CTime::CTime(WORD wDosDate, WORD wDosTime, int nDST)
    : m_time(MakeLocalTime((wDosDate >> 9) + 1980, (wDosDate >> 5) & 0xF, wDosDate & 0x1F,
                           wDosTime >> 11, (wDosTime >> 5) & 0x3F, (wDosTime & 0x1F) * 2, nDST))
{
}

CTime::CTime(const SYSTEMTIME& sysTime, int nDST)
{
    // Before 1900 there is nothing mktime could represent: the epoch stands in.
    if (sysTime.wYear < 1900)
        m_time = 0;
    else
        m_time = MakeLocalTime(sysTime.wYear, sysTime.wMonth, sysTime.wDay,
                               sysTime.wHour, sysTime.wMinute, sysTime.wSecond, nDST);
}

CTime::CTime(const FILETIME& fileTime, int nDST) : m_time(0)
{
    FILETIME localTime;
    SYSTEMTIME sysTime;
    if (::FileTimeToLocalFileTime(&fileTime, &localTime)
        && ::FileTimeToSystemTime(&localTime, &sysTime))
    {
        *this = CTime(sysTime, nDST);
    }
}

struct tm* CTime::GetGmtTm(struct tm* ptm) const
{
    struct tm* ptmTemp = _gmtime64(&m_time);
    if (ptm != NULL && ptmTemp != NULL)
    {
        *ptm = *ptmTemp;
        return ptm;
    }
    return ptmTemp;
}

struct tm* CTime::GetLocalTm(struct tm* ptm) const
{
    struct tm* ptmTemp = _localtime64(&m_time);
    if (ptm != NULL && ptmTemp != NULL)
    {
        *ptm = *ptmTemp;
        return ptm;
    }
    return ptmTemp;
}

BOOL CTime::GetAsSystemTime(SYSTEMTIME& timeDest) const
{
    struct tm atm;
    if (GetLocalTm(&atm) == NULL)
        return FALSE;
    timeDest.wYear = (WORD)(1900 + atm.tm_year);
    timeDest.wMonth = (WORD)(1 + atm.tm_mon);
    timeDest.wDayOfWeek = (WORD)atm.tm_wday;
    timeDest.wDay = (WORD)atm.tm_mday;
    timeDest.wHour = (WORD)atm.tm_hour;
    timeDest.wMinute = (WORD)atm.tm_min;
    timeDest.wSecond = (WORD)atm.tm_sec;
    timeDest.wMilliseconds = 0;
    return TRUE;
}

// Each part answers -1 when the time cannot be expressed as local time.
int CTime::GetYear() const { struct tm atm; return GetLocalTm(&atm) ? atm.tm_year + 1900 : -1; }
int CTime::GetMonth() const { struct tm atm; return GetLocalTm(&atm) ? atm.tm_mon + 1 : -1; }
int CTime::GetDay() const { struct tm atm; return GetLocalTm(&atm) ? atm.tm_mday : -1; }
int CTime::GetHour() const { struct tm atm; return GetLocalTm(&atm) ? atm.tm_hour : -1; }
int CTime::GetMinute() const { struct tm atm; return GetLocalTm(&atm) ? atm.tm_min : -1; }
int CTime::GetSecond() const { struct tm atm; return GetLocalTm(&atm) ? atm.tm_sec : -1; }
int CTime::GetDayOfWeek() const { struct tm atm; return GetLocalTm(&atm) ? atm.tm_wday + 1 : -1; }

CString CTime::Format(LPCTSTR pFormat) const
{
    struct tm atm;
    return FormatTm(pFormat, GetLocalTm(&atm));
}

CString CTime::FormatGmt(LPCTSTR pFormat) const
{
    struct tm atm;
    return FormatTm(pFormat, GetGmtTm(&atm));
}

CString CTime::Format(UINT nFormatID) const
{
    CString strFormat;
    strFormat.LoadString(nFormatID);
    return Format(strFormat);
}

CString CTime::FormatGmt(UINT nFormatID) const
{
    CString strFormat;
    strFormat.LoadString(nFormatID);
    return FormatGmt(strFormat);
}
