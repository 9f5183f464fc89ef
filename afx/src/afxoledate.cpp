// HyAfx: COleDateTime and COleDateTimeSpan.
#include "afxdisp.h"
#include "afxspan.h"
#include "HyOleDate.h"

#include <math.h>
#include <stdio.h>
#include <string.h>

namespace {

const long kSecsPerDay = 24 * 60 * 60;

// The calendar fields of a DATE, from the one OLE-date engine (core/).
struct DateParts
{
    int nYear, nMonth, nDay, nHour, nMinute, nSecond;
    int nDayOfWeek;   // 0 = Sunday
    int nDayOfYear;   // 1 = 1 January
};

// Builds a DATE from parts; false when a part is out of range.
bool DateFromParts(int nYear, int nMonth, int nDay, int nHour, int nMin, int nSec, DATE& dtDest)
{
    const HyDateTimeParts parts{nYear, nMonth, nDay, nHour, nMin, nSec, 0, 0};
    return hy::PartsToOleDate(parts, dtDest);
}

// Splits a DATE into parts, rounded to the nearest second.
bool PartsFromDate(DATE dtSrc, DateParts& parts)
{
    HyDateTimeParts p{};
    if (!hy::OleDateToParts(dtSrc, p))
        return false;
    parts = DateParts{p.year, p.month, p.day, p.hour, p.minute, p.second, p.dayOfWeek, p.dayOfYear};
    return true;
}

// A DATE mapped onto a straight time line, where adding and comparing work.
double LinearFromDate(DATE dt)
{
    if (dt >= 0)
        return dt;
    double dblDays = ceil(dt);   // toward zero: the calendar day
    return dblDays + (dblDays - dt);
}

DATE DateFromLinear(double dbl)
{
    if (dbl >= 0)
        return dbl;
    double dblDays = floor(dbl);
    double dblFraction = dbl - dblDays;
    return dblDays - dblFraction;
}

CString LocaleString(LCTYPE lcType)
{
    CString str;
    int nLen = ::GetLocaleInfoA(LOCALE_USER_DEFAULT, lcType, NULL, 0);
    if (nLen > 0)
    {
        ::GetLocaleInfoA(LOCALE_USER_DEFAULT, lcType, str.GetBuffer(nLen), nLen);
        str.ReleaseBuffer();
    }
    return str;
}

const char kInvalidDateTime[] = "Invalid DateTime";

} // namespace

// ---- COleDateTime: construction and assignment ----

COleDateTime PASCAL COleDateTime::GetCurrentTime()
{
    SYSTEMTIME st;
    ::GetLocalTime(&st);
    return COleDateTime(st);
}

COleDateTime::COleDateTime() : m_dt(0), m_status(valid) {}
COleDateTime::COleDateTime(DATE dtSrc) : m_dt(dtSrc), m_status(valid) {}

COleDateTime::COleDateTime(const VARIANT& varSrc) : m_dt(0), m_status(valid)
{
    *this = varSrc;
}

COleDateTime::COleDateTime(__time64_t timeSrc) : m_dt(0), m_status(valid)
{
    *this = timeSrc;
}

COleDateTime::COleDateTime(const SYSTEMTIME& systimeSrc) : m_dt(0), m_status(valid)
{
    *this = systimeSrc;
}

COleDateTime::COleDateTime(const FILETIME& filetimeSrc) : m_dt(0), m_status(valid)
{
    *this = filetimeSrc;
}

COleDateTime::COleDateTime(int nYear, int nMonth, int nDay, int nHour, int nMin, int nSec)
    : m_dt(0), m_status(valid)
{
    SetDateTime(nYear, nMonth, nDay, nHour, nMin, nSec);
}

COleDateTime::COleDateTime(WORD wDosDate, WORD wDosTime) : m_dt(0), m_status(valid)
{
    SetDateTime((wDosDate >> 9) + 1980, (wDosDate >> 5) & 0xF, wDosDate & 0x1F,
                wDosTime >> 11, (wDosTime >> 5) & 0x3F, (wDosTime & 0x1F) * 2);
}

const COleDateTime& COleDateTime::operator=(const VARIANT& varSrc)
{
    if (varSrc.vt == VT_DATE)
    {
        m_dt = varSrc.date;
        m_status = valid;
        return *this;
    }
    VARIANT varDate;
    ::VariantInit(&varDate);
    if (SUCCEEDED(::VariantChangeType(&varDate, const_cast<VARIANT*>(&varSrc), 0, VT_DATE)))
    {
        m_dt = varDate.date;
        m_status = valid;
    }
    else
    {
        m_dt = 0;
        m_status = invalid;
    }
    ::VariantClear(&varDate);
    return *this;
}

const COleDateTime& COleDateTime::operator=(DATE dtSrc)
{
    m_dt = dtSrc;
    m_status = valid;
    return *this;
}

const COleDateTime& COleDateTime::operator=(const __time64_t& timeSrc)
{
    struct tm* ptm = _localtime64(&timeSrc);
    if (ptm == NULL)
    {
        m_dt = 0;
        m_status = invalid;
        return *this;
    }
    SetDateTime(ptm->tm_year + 1900, ptm->tm_mon + 1, ptm->tm_mday,
                ptm->tm_hour, ptm->tm_min, ptm->tm_sec);
    return *this;
}

const COleDateTime& COleDateTime::operator=(const SYSTEMTIME& systimeSrc)
{
    // Milliseconds are dropped: a COleDateTime holds whole seconds.
    SetDateTime(systimeSrc.wYear, systimeSrc.wMonth, systimeSrc.wDay,
                systimeSrc.wHour, systimeSrc.wMinute, systimeSrc.wSecond);
    return *this;
}

const COleDateTime& COleDateTime::operator=(const FILETIME& filetimeSrc)
{
    FILETIME ftLocal;
    SYSTEMTIME st;
    if (::FileTimeToLocalFileTime(&filetimeSrc, &ftLocal) && ::FileTimeToSystemTime(&ftLocal, &st))
    {
        *this = st;
    }
    else
    {
        m_dt = 0;
        m_status = invalid;
    }
    return *this;
}

int COleDateTime::SetDateTime(int nYear, int nMonth, int nDay, int nHour, int nMin, int nSec)
{
    if (DateFromParts(nYear, nMonth, nDay, nHour, nMin, nSec, m_dt))
    {
        m_status = valid;
        return 0;
    }
    m_dt = 0;
    m_status = invalid;
    return 1;
}

int COleDateTime::SetDate(int nYear, int nMonth, int nDay)
{
    return SetDateTime(nYear, nMonth, nDay, 0, 0, 0);
}

int COleDateTime::SetTime(int nHour, int nMin, int nSec)
{
    // A time alone sits on day zero, 30 December 1899.
    return SetDateTime(1899, 12, 30, nHour, nMin, nSec);
}

// ---- COleDateTime: parts ----

#define HY_DATE_PART(name, expr)                                   \
    int COleDateTime::name() const                                 \
    {                                                              \
        DateParts parts;                                           \
        if (m_status != valid || !PartsFromDate(m_dt, parts))      \
            return -1;                                             \
        return expr;                                               \
    }

HY_DATE_PART(GetYear, parts.nYear)
HY_DATE_PART(GetMonth, parts.nMonth)
HY_DATE_PART(GetDay, parts.nDay)
HY_DATE_PART(GetHour, parts.nHour)
HY_DATE_PART(GetMinute, parts.nMinute)
HY_DATE_PART(GetSecond, parts.nSecond)
HY_DATE_PART(GetDayOfWeek, parts.nDayOfWeek + 1)
HY_DATE_PART(GetDayOfYear, parts.nDayOfYear)

#undef HY_DATE_PART

BOOL COleDateTime::GetAsSystemTime(SYSTEMTIME& sysTime) const
{
    DateParts parts;
    if (m_status != valid || !PartsFromDate(m_dt, parts))
        return FALSE;
    sysTime.wYear = (WORD)parts.nYear;
    sysTime.wMonth = (WORD)parts.nMonth;
    sysTime.wDayOfWeek = (WORD)parts.nDayOfWeek;
    sysTime.wDay = (WORD)parts.nDay;
    sysTime.wHour = (WORD)parts.nHour;
    sysTime.wMinute = (WORD)parts.nMinute;
    sysTime.wSecond = (WORD)parts.nSecond;
    sysTime.wMilliseconds = 0;
    return TRUE;
}

// ---- COleDateTime: comparison and arithmetic ----

bool COleDateTime::operator==(const COleDateTime& date) const
{
    return m_status == date.m_status && m_dt == date.m_dt;
}

bool COleDateTime::operator!=(const COleDateTime& date) const { return !(*this == date); }
bool COleDateTime::operator<(const COleDateTime& date) const { return LinearFromDate(m_dt) < LinearFromDate(date.m_dt); }
bool COleDateTime::operator>(const COleDateTime& date) const { return LinearFromDate(m_dt) > LinearFromDate(date.m_dt); }
bool COleDateTime::operator<=(const COleDateTime& date) const { return LinearFromDate(m_dt) <= LinearFromDate(date.m_dt); }
bool COleDateTime::operator>=(const COleDateTime& date) const { return LinearFromDate(m_dt) >= LinearFromDate(date.m_dt); }

COleDateTime COleDateTime::operator+(const COleDateTimeSpan& dateSpan) const
{
    COleDateTime dateResult;
    if (m_status == invalid || dateSpan.m_status == COleDateTimeSpan::invalid)
        dateResult.m_status = invalid;
    else if (m_status == null || dateSpan.m_status == COleDateTimeSpan::null)
        dateResult.m_status = null;
    else
        dateResult.m_dt = DateFromLinear(LinearFromDate(m_dt) + dateSpan.m_span);
    return dateResult;
}

COleDateTime COleDateTime::operator-(const COleDateTimeSpan& dateSpan) const
{
    return *this + -dateSpan;
}

const COleDateTime& COleDateTime::operator+=(const COleDateTimeSpan& dateSpan)
{
    *this = *this + dateSpan;
    return *this;
}

const COleDateTime& COleDateTime::operator-=(const COleDateTimeSpan& dateSpan)
{
    *this = *this - dateSpan;
    return *this;
}

COleDateTimeSpan COleDateTime::operator-(const COleDateTime& date) const
{
    COleDateTimeSpan spanResult;
    if (m_status == invalid || date.m_status == invalid)
        spanResult.m_status = COleDateTimeSpan::invalid;
    else if (m_status == null || date.m_status == null)
        spanResult.m_status = COleDateTimeSpan::null;
    else
        spanResult.m_span = LinearFromDate(m_dt) - LinearFromDate(date.m_dt);
    return spanResult;
}

// ---- COleDateTime: text ----

BOOL COleDateTime::ParseDateTime(LPCTSTR lpszDate, DWORD dwFlags, LCID lcid)
{
    m_dt = 0;
    m_status = invalid;
    if (lpszDate == NULL)
        return FALSE;
    int nWide = ::MultiByteToWideChar(CP_ACP, 0, lpszDate, -1, NULL, 0);
    if (nWide <= 0)
        return FALSE;
    BSTR bstr = ::SysAllocStringLen(NULL, nWide - 1);
    if (bstr == NULL)
        return FALSE;
    ::MultiByteToWideChar(CP_ACP, 0, lpszDate, -1, bstr, nWide);
    DATE dt = 0;
    HRESULT hr = ::VarDateFromStr(bstr, lcid, dwFlags, &dt);
    ::SysFreeString(bstr);
    DateParts parts;
    if (FAILED(hr) || !PartsFromDate(dt, parts))
        return FALSE;
    // Whole seconds, as every other way of setting the value gives.
    SetDateTime(parts.nYear, parts.nMonth, parts.nDay, parts.nHour, parts.nMinute, parts.nSecond);
    return m_status == valid;
}

CString COleDateTime::Format(DWORD dwFlags, LCID lcid) const
{
    if (m_status == null)
        return CString();
    SYSTEMTIME st;
    if (m_status != valid || !GetAsSystemTime(st))
        return CString(kInvalidDateTime);

    bool bHasDate = !(st.wYear == 1899 && st.wMonth == 12 && st.wDay == 30);
    bool bHasTime = st.wHour != 0 || st.wMinute != 0 || st.wSecond != 0;
    // Like the automation conversion: day zero shows only the time, midnight only the date.
    bool bShowDate = (dwFlags & VAR_DATEVALUEONLY) || (!(dwFlags & VAR_TIMEVALUEONLY) && bHasDate);
    bool bShowTime = (dwFlags & VAR_TIMEVALUEONLY)
                     || (!(dwFlags & VAR_DATEVALUEONLY) && (bHasTime || !bHasDate));
    DWORD dwLocaleFlags = dwFlags & LOCALE_NOUSEROVERRIDE;

    CString strResult;
    if (bShowDate)
    {
        int nLen = ::GetDateFormatA(lcid, dwLocaleFlags | DATE_SHORTDATE, &st, NULL, NULL, 0);
        if (nLen > 0)
        {
            ::GetDateFormatA(lcid, dwLocaleFlags | DATE_SHORTDATE, &st, NULL, strResult.GetBuffer(nLen), nLen);
            strResult.ReleaseBuffer();
        }
    }
    if (bShowTime)
    {
        CString strTime;
        int nLen = ::GetTimeFormatA(lcid, dwLocaleFlags, &st, NULL, NULL, 0);
        if (nLen > 0)
        {
            ::GetTimeFormatA(lcid, dwLocaleFlags, &st, NULL, strTime.GetBuffer(nLen), nLen);
            strTime.ReleaseBuffer();
        }
        if (!strResult.IsEmpty() && !strTime.IsEmpty())
            strResult += ' ';
        strResult += strTime;
    }
    return strResult;
}

CString COleDateTime::Format(LPCTSTR lpszFormat) const
{
    if (m_status == null)
        return CString();
    DateParts parts;
    if (m_status != valid || !PartsFromDate(m_dt, parts))
        return CString(kInvalidDateTime);
    if (lpszFormat == NULL)
        return CString();

    struct tm atm = {};
    atm.tm_sec = parts.nSecond;
    atm.tm_min = parts.nMinute;
    atm.tm_hour = parts.nHour;
    atm.tm_mday = parts.nDay;
    atm.tm_mon = parts.nMonth - 1;
    atm.tm_year = parts.nYear - 1900;
    atm.tm_wday = parts.nDayOfWeek;
    atm.tm_yday = parts.nDayOfYear - 1;
    atm.tm_isdst = -1;

    CString strResult;
    char szField[256];
    for (LPCTSTR p = lpszFormat; *p; p++)
    {
        if (*p != '%' || p[1] == '\0')
        {
            strResult += *p;
            continue;
        }
        LPCTSTR pCode = p + 1;
        bool bNoPad = *pCode == '#' && pCode[1] != '\0';   // '#' drops leading zeros
        if (bNoPad)
            pCode++;
        int nHour12 = parts.nHour % 12 == 0 ? 12 : parts.nHour % 12;
        int nDayIndex = (parts.nDayOfWeek + 6) % 7;   // the locale's day 1 is Monday
        switch (*pCode)
        {
        case 'a': strResult += LocaleString(LOCALE_SABBREVDAYNAME1 + nDayIndex); break;
        case 'A': strResult += LocaleString(LOCALE_SDAYNAME1 + nDayIndex); break;
        case 'b': strResult += LocaleString(LOCALE_SABBREVMONTHNAME1 + parts.nMonth - 1); break;
        case 'B': strResult += LocaleString(LOCALE_SMONTHNAME1 + parts.nMonth - 1); break;
        case 'd': snprintf(szField, sizeof szField, bNoPad ? "%d" : "%02d", parts.nDay); strResult += szField; break;
        case 'H': snprintf(szField, sizeof szField, bNoPad ? "%d" : "%02d", parts.nHour); strResult += szField; break;
        case 'I': snprintf(szField, sizeof szField, bNoPad ? "%d" : "%02d", nHour12); strResult += szField; break;
        case 'j': snprintf(szField, sizeof szField, bNoPad ? "%d" : "%03d", parts.nDayOfYear); strResult += szField; break;
        case 'm': snprintf(szField, sizeof szField, bNoPad ? "%d" : "%02d", parts.nMonth); strResult += szField; break;
        case 'M': snprintf(szField, sizeof szField, bNoPad ? "%d" : "%02d", parts.nMinute); strResult += szField; break;
        case 'S': snprintf(szField, sizeof szField, bNoPad ? "%d" : "%02d", parts.nSecond); strResult += szField; break;
        case 'w': snprintf(szField, sizeof szField, "%d", parts.nDayOfWeek); strResult += szField; break;
        case 'y': snprintf(szField, sizeof szField, bNoPad ? "%d" : "%02d", parts.nYear % 100); strResult += szField; break;
        case 'Y': snprintf(szField, sizeof szField, "%d", parts.nYear); strResult += szField; break;
        case '%': strResult += '%'; break;
        default:
        {
            // The rest (%c %x %X %p %U %W %z %Z ...) as the C runtime writes them.
            char szCode[4] = { '%', 0, 0, 0 };
            if (bNoPad)
            {
                szCode[1] = '#';
                szCode[2] = *pCode;
            }
            else
            {
                szCode[1] = *pCode;
            }
            size_t nLen = strftime(szField, sizeof szField, szCode, &atm);
            strResult += CString(szField, (int)nLen);
            break;
        }
        }
        p = pCode;
    }
    return strResult;
}

CString COleDateTime::Format(UINT nFormatID) const
{
    CString strFormat;
    strFormat.LoadString(nFormatID);
    return Format(strFormat);
}

// ---- COleDateTimeSpan ----

namespace {

long long SpanSeconds(double dblSpan)
{
    return llround(dblSpan * kSecsPerDay);
}

} // namespace

COleDateTimeSpan::COleDateTimeSpan() : m_span(0), m_status(valid) {}
COleDateTimeSpan::COleDateTimeSpan(double dblSpanSrc) : m_span(dblSpanSrc), m_status(valid) {}

COleDateTimeSpan::COleDateTimeSpan(long lDays, int nHours, int nMins, int nSecs)
    : m_span(0), m_status(valid)
{
    SetDateTimeSpan(lDays, nHours, nMins, nSecs);
}

void COleDateTimeSpan::SetDateTimeSpan(long lDays, int nHours, int nMins, int nSecs)
{
    m_span = lDays + ((double)nHours * 3600 + (double)nMins * 60 + nSecs) / kSecsPerDay;
    m_status = valid;
}

double COleDateTimeSpan::GetTotalDays() const { return m_span; }
double COleDateTimeSpan::GetTotalHours() const { return m_span * 24; }
double COleDateTimeSpan::GetTotalMinutes() const { return m_span * 24 * 60; }
double COleDateTimeSpan::GetTotalSeconds() const { return m_span * kSecsPerDay; }

long COleDateTimeSpan::GetDays() const { return (long)(SpanSeconds(m_span) / kSecsPerDay); }
long COleDateTimeSpan::GetHours() const { return (long)(SpanSeconds(m_span) / 3600 % 24); }
long COleDateTimeSpan::GetMinutes() const { return (long)(SpanSeconds(m_span) / 60 % 60); }
long COleDateTimeSpan::GetSeconds() const { return (long)(SpanSeconds(m_span) % 60); }

const COleDateTimeSpan& COleDateTimeSpan::operator=(double dblSpanSrc)
{
    m_span = dblSpanSrc;
    m_status = valid;
    return *this;
}

bool COleDateTimeSpan::operator==(const COleDateTimeSpan& dateSpan) const
{
    return m_status == dateSpan.m_status && m_span == dateSpan.m_span;
}

bool COleDateTimeSpan::operator!=(const COleDateTimeSpan& dateSpan) const { return !(*this == dateSpan); }
bool COleDateTimeSpan::operator<(const COleDateTimeSpan& dateSpan) const { return m_span < dateSpan.m_span; }
bool COleDateTimeSpan::operator>(const COleDateTimeSpan& dateSpan) const { return m_span > dateSpan.m_span; }
bool COleDateTimeSpan::operator<=(const COleDateTimeSpan& dateSpan) const { return m_span <= dateSpan.m_span; }
bool COleDateTimeSpan::operator>=(const COleDateTimeSpan& dateSpan) const { return m_span >= dateSpan.m_span; }

COleDateTimeSpan COleDateTimeSpan::operator+(const COleDateTimeSpan& dateSpan) const
{
    COleDateTimeSpan spanResult;
    if (m_status == invalid || dateSpan.m_status == invalid)
        spanResult.m_status = invalid;
    else if (m_status == null || dateSpan.m_status == null)
        spanResult.m_status = null;
    else
        spanResult.m_span = m_span + dateSpan.m_span;
    return spanResult;
}

COleDateTimeSpan COleDateTimeSpan::operator-(const COleDateTimeSpan& dateSpan) const
{
    return *this + -dateSpan;
}

COleDateTimeSpan COleDateTimeSpan::operator-() const
{
    COleDateTimeSpan spanResult(-m_span);
    spanResult.m_status = m_status;
    return spanResult;
}

const COleDateTimeSpan& COleDateTimeSpan::operator+=(const COleDateTimeSpan& dateSpan)
{
    *this = *this + dateSpan;
    return *this;
}

const COleDateTimeSpan& COleDateTimeSpan::operator-=(const COleDateTimeSpan& dateSpan)
{
    *this = *this - dateSpan;
    return *this;
}

CString COleDateTimeSpan::Format(LPCTSTR pFormat) const
{
    if (m_status != valid)
        return CString();
    return AfxFormatSpan(pFormat, GetDays(), GetHours(), GetMinutes(), GetSeconds());
}

CString COleDateTimeSpan::Format(UINT nID) const
{
    CString strFormat;
    strFormat.LoadString(nID);
    return Format(strFormat);
}
