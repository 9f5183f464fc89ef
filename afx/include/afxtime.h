// HyAfx: CTime and CTimeSpan, seconds-based calendar values (64-bit time_t).
#pragma once

#include "afxstr.h"
#include <time.h>

// windows.h maps GetCurrentTime to GetTickCount; the classes own that name.
#ifdef GetCurrentTime
#undef GetCurrentTime
#endif

class HYAFX_API CTimeSpan
{
public:
    CTimeSpan() : m_timeSpan(0) {}
    CTimeSpan(__time64_t time) : m_timeSpan(time) {}
    CTimeSpan(LONG lDays, int nHours, int nMins, int nSecs);

    LONG GetDays() const;
    LONG GetTotalHours() const;
    int GetHours() const;
    LONG GetTotalMinutes() const;
    int GetMinutes() const;
    LONG GetTotalSeconds() const;
    int GetSeconds() const;
    __time64_t GetTimeSpan() const { return m_timeSpan; }

    CTimeSpan operator-(CTimeSpan timeSpan) const { return CTimeSpan(m_timeSpan - timeSpan.m_timeSpan); }
    CTimeSpan operator+(CTimeSpan timeSpan) const { return CTimeSpan(m_timeSpan + timeSpan.m_timeSpan); }
    const CTimeSpan& operator+=(CTimeSpan timeSpan) { m_timeSpan += timeSpan.m_timeSpan; return *this; }
    const CTimeSpan& operator-=(CTimeSpan timeSpan) { m_timeSpan -= timeSpan.m_timeSpan; return *this; }
    bool operator==(CTimeSpan timeSpan) const { return m_timeSpan == timeSpan.m_timeSpan; }
    bool operator!=(CTimeSpan timeSpan) const { return m_timeSpan != timeSpan.m_timeSpan; }
    bool operator<(CTimeSpan timeSpan) const { return m_timeSpan < timeSpan.m_timeSpan; }
    bool operator>(CTimeSpan timeSpan) const { return m_timeSpan > timeSpan.m_timeSpan; }
    bool operator<=(CTimeSpan timeSpan) const { return m_timeSpan <= timeSpan.m_timeSpan; }
    bool operator>=(CTimeSpan timeSpan) const { return m_timeSpan >= timeSpan.m_timeSpan; }

    // %D days, %H hours, %M minutes, %S seconds, %% a percent sign.
    CString Format(LPCTSTR pFormat) const;
    CString Format(UINT nFormatID) const;

private:
    __time64_t m_timeSpan;
};

class HYAFX_API CTime
{
public:
    static CTime PASCAL GetCurrentTime();

    CTime() : m_time(0) {}
    CTime(__time64_t time) : m_time(time) {}
    // Local time; out-of-range parts are normalised as mktime does (31 April is 1 May).
    CTime(int nYear, int nMonth, int nDay, int nHour, int nMin, int nSec, int nDST = -1);
    CTime(WORD wDosDate, WORD wDosTime, int nDST = -1);
    CTime(const SYSTEMTIME& sysTime, int nDST = -1);
    CTime(const FILETIME& fileTime, int nDST = -1);

    const CTime& operator=(__time64_t t) { m_time = t; return *this; }

    // The returned pointer is ptm when given, else a per-thread CRT buffer.
    struct tm* GetGmtTm(struct tm* ptm = NULL) const;
    struct tm* GetLocalTm(struct tm* ptm = NULL) const;
    BOOL GetAsSystemTime(SYSTEMTIME& timeDest) const;

    __time64_t GetTime() const { return m_time; }
    int GetYear() const;
    int GetMonth() const;
    int GetDay() const;
    int GetHour() const;
    int GetMinute() const;
    int GetSecond() const;
    int GetDayOfWeek() const;   // 1 = Sunday

    CTimeSpan operator-(CTime time) const { return CTimeSpan(m_time - time.m_time); }
    CTime operator-(CTimeSpan timeSpan) const { return CTime(m_time - timeSpan.GetTimeSpan()); }
    CTime operator+(CTimeSpan timeSpan) const { return CTime(m_time + timeSpan.GetTimeSpan()); }
    const CTime& operator+=(CTimeSpan timeSpan) { m_time += timeSpan.GetTimeSpan(); return *this; }
    const CTime& operator-=(CTimeSpan timeSpan) { m_time -= timeSpan.GetTimeSpan(); return *this; }
    bool operator==(CTime time) const { return m_time == time.m_time; }
    bool operator!=(CTime time) const { return m_time != time.m_time; }
    bool operator<(CTime time) const { return m_time < time.m_time; }
    bool operator>(CTime time) const { return m_time > time.m_time; }
    bool operator<=(CTime time) const { return m_time <= time.m_time; }
    bool operator>=(CTime time) const { return m_time >= time.m_time; }

    // strftime codes, local time and UTC respectively.
    CString Format(LPCTSTR pFormat) const;
    CString FormatGmt(LPCTSTR pFormat) const;
    CString Format(UINT nFormatID) const;
    CString FormatGmt(UINT nFormatID) const;

private:
    __time64_t m_time;
};
