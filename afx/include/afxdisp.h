// HyAfx: COleDateTime and COleDateTimeSpan, OLE automation dates.
//
// A DATE counts days since 30 December 1899; the fraction is the time of day.
// Before that day the integer part goes down while the fraction still counts
// forward from midnight in absolute value: -1.25 is 29 December 1899 06:00.
#pragma once

#include "afx.h"
#include <oleauto.h>

class COleDateTimeSpan;

class HYAFX_API COleDateTime
{
public:
    enum DateTimeStatus { valid = 0, invalid = 1, null = 2 };

    static COleDateTime PASCAL GetCurrentTime();

    COleDateTime();
    COleDateTime(const VARIANT& varSrc);
    COleDateTime(DATE dtSrc);
    COleDateTime(__time64_t timeSrc);
    COleDateTime(const SYSTEMTIME& systimeSrc);
    COleDateTime(const FILETIME& filetimeSrc);
    COleDateTime(int nYear, int nMonth, int nDay, int nHour, int nMin, int nSec);
    COleDateTime(WORD wDosDate, WORD wDosTime);

    DATE m_dt;
    DateTimeStatus m_status;

    void SetStatus(DateTimeStatus status) { m_status = status; }
    DateTimeStatus GetStatus() const { return m_status; }

    BOOL GetAsSystemTime(SYSTEMTIME& sysTime) const;

    // Each part answers -1 when the value is not a valid date.
    int GetYear() const;
    int GetMonth() const;
    int GetDay() const;
    int GetHour() const;
    int GetMinute() const;
    int GetSecond() const;
    int GetDayOfWeek() const;   // 1 = Sunday
    int GetDayOfYear() const;   // 1 = 1 January

    const COleDateTime& operator=(const VARIANT& varSrc);
    const COleDateTime& operator=(DATE dtSrc);
    const COleDateTime& operator=(const __time64_t& timeSrc);
    const COleDateTime& operator=(const SYSTEMTIME& systimeSrc);
    const COleDateTime& operator=(const FILETIME& filetimeSrc);

    // Comparisons follow the calendar, also for dates before 30 December 1899.
    bool operator==(const COleDateTime& date) const;
    bool operator!=(const COleDateTime& date) const;
    bool operator<(const COleDateTime& date) const;
    bool operator>(const COleDateTime& date) const;
    bool operator<=(const COleDateTime& date) const;
    bool operator>=(const COleDateTime& date) const;

    COleDateTime operator+(const COleDateTimeSpan& dateSpan) const;
    COleDateTime operator-(const COleDateTimeSpan& dateSpan) const;
    const COleDateTime& operator+=(const COleDateTimeSpan& dateSpan);
    const COleDateTime& operator-=(const COleDateTimeSpan& dateSpan);
    COleDateTimeSpan operator-(const COleDateTime& date) const;

    operator DATE() const { return m_dt; }

    // Zero on success, 1 (and status invalid) when a part is out of range.
    int SetDateTime(int nYear, int nMonth, int nDay, int nHour, int nMin, int nSec);
    int SetDate(int nYear, int nMonth, int nDay);
    int SetTime(int nHour, int nMin, int nSec);

    BOOL ParseDateTime(LPCTSTR lpszDate, DWORD dwFlags = 0, LCID lcid = LANG_USER_DEFAULT);

    // dwFlags: 0, VAR_DATEVALUEONLY or VAR_TIMEVALUEONLY.
    CString Format(DWORD dwFlags = 0, LCID lcid = LANG_USER_DEFAULT) const;
    // strftime codes; %A %a %B %b use the user locale's day and month names.
    CString Format(LPCTSTR lpszFormat) const;
    CString Format(UINT nFormatID) const;
};

class HYAFX_API COleDateTimeSpan
{
public:
    enum DateTimeSpanStatus { valid = 0, invalid = 1, null = 2 };

    COleDateTimeSpan();
    COleDateTimeSpan(double dblSpanSrc);
    COleDateTimeSpan(long lDays, int nHours, int nMins, int nSecs);

    double m_span;
    DateTimeSpanStatus m_status;

    void SetStatus(DateTimeSpanStatus status) { m_status = status; }
    DateTimeSpanStatus GetStatus() const { return m_status; }

    double GetTotalDays() const;
    double GetTotalHours() const;
    double GetTotalMinutes() const;
    double GetTotalSeconds() const;

    // Parts of the span rounded to whole seconds; negative for a negative span.
    long GetDays() const;
    long GetHours() const;
    long GetMinutes() const;
    long GetSeconds() const;

    const COleDateTimeSpan& operator=(double dblSpanSrc);

    bool operator==(const COleDateTimeSpan& dateSpan) const;
    bool operator!=(const COleDateTimeSpan& dateSpan) const;
    bool operator<(const COleDateTimeSpan& dateSpan) const;
    bool operator>(const COleDateTimeSpan& dateSpan) const;
    bool operator<=(const COleDateTimeSpan& dateSpan) const;
    bool operator>=(const COleDateTimeSpan& dateSpan) const;

    COleDateTimeSpan operator+(const COleDateTimeSpan& dateSpan) const;
    COleDateTimeSpan operator-(const COleDateTimeSpan& dateSpan) const;
    const COleDateTimeSpan& operator+=(const COleDateTimeSpan& dateSpan);
    const COleDateTimeSpan& operator-=(const COleDateTimeSpan& dateSpan);
    COleDateTimeSpan operator-() const;

    operator double() const { return m_span; }

    void SetDateTimeSpan(long lDays, int nHours, int nMins, int nSecs);

    // %D days, %H hours, %M minutes, %S seconds, %% a percent sign.
    CString Format(LPCTSTR pFormat) const;
    CString Format(UINT nID) const;
};
