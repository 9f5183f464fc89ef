// CTime and COleDateTime / COleDateTimeSpan. CTimeSpan's one-line arithmetic is
// left out.
#include <gtest/gtest.h>

#include "afx.h"
#include "afxdisp.h"

#include <vector>

namespace {

CString LocaleText(LCTYPE lcType)
{
    char sz[128] = "";
    ::GetLocaleInfoA(LOCALE_USER_DEFAULT, lcType, sz, sizeof sz);
    return CString(sz);
}

using Parts = std::vector<int>;   // year, month, day, hour, minute, second

template <class T>
Parts PartsOf(const T& t)
{
    return { t.GetYear(), t.GetMonth(), t.GetDay(), t.GetHour(), t.GetMinute(), t.GetSecond() };
}

} // namespace

// ---- CTime ----

TEST(ValuesTime, PartsRoundTripThroughLocalTimeAndOutOfRangePartsAreNormalised)
{
    CTime t(2005, 9, 1, 18, 30, 15);
    EXPECT_EQ(Parts({ 2005, 9, 1, 18, 30, 15 }), PartsOf(t));
    EXPECT_EQ(5, t.GetDayOfWeek());   // a Thursday; 1 is Sunday
    EXPECT_STREQ("2005-09-01 18:30:15", (LPCTSTR)t.Format("%Y-%m-%d %H:%M:%S"));
    SYSTEMTIME st;
    ASSERT_TRUE(t.GetAsSystemTime(st));
    EXPECT_EQ(Parts({ 2005, 4, 30 }), Parts({ st.wYear, st.wDayOfWeek, st.wMinute }));
    EXPECT_EQ(t, CTime(st));
    EXPECT_EQ(Parts({ 2005, 5, 1, 12, 0, 0 }), PartsOf(CTime(2005, 4, 31, 12, 0, 0)));   // 31 April
    EXPECT_EQ(Parts({ 2005, 1, 1, 0, 0, 0 }), PartsOf(CTime(2004, 12, 31, 23, 59, 60)));
}

// ---- COleDateTime ----

// Day counts and the fields of a value are the calendar core's, tested
// natively; here the wrapper's arithmetic and queries.
TEST(ValuesOleDate, ArithmeticCountsANegativeDatesFractionForward)
{
    EXPECT_EQ(5, COleDateTime(2005, 9, 1, 18, 0, 0).GetDayOfWeek());   // Thursday
    EXPECT_EQ(244, COleDateTime(2005, 9, 1, 18, 0, 0).GetDayOfYear());
    COleDateTime morning(1899, 12, 29, 6, 0, 0);
    COleDateTime evening(1899, 12, 29, 18, 0, 0);
    EXPECT_TRUE(morning < evening);
    EXPECT_TRUE(evening < COleDateTime(1899, 12, 30, 0, 0, 0));
    EXPECT_DOUBLE_EQ(0.5, (evening - morning).GetTotalDays());
    COleDateTime crossed = evening + COleDateTimeSpan(0, 12, 0, 0);
    EXPECT_EQ(Parts({ 1899, 12, 30, 6, 0, 0 }), PartsOf(crossed));
    EXPECT_EQ(0.25, crossed.m_dt);
    EXPECT_EQ(Parts({ 1899, 12, 29, 6, 0, 0 }), PartsOf(crossed - COleDateTimeSpan(1, 0, 0, 0)));
    COleDateTime a(2005, 12, 31, 23, 0, 0);
    EXPECT_EQ(Parts({ 2006, 1, 1, 1, 0, 0 }), PartsOf(a + COleDateTimeSpan(0, 2, 0, 0)));
}

TEST(ValuesOleDate, InvalidPartsMakeTheValueInvalid)
{
    COleDateTime dt;
    EXPECT_EQ(1, dt.SetDateTime(2005, 2, 29, 0, 0, 0));
    EXPECT_EQ(COleDateTime::invalid, dt.GetStatus());
    EXPECT_EQ(-1, dt.GetYear());
    EXPECT_EQ(0, dt.SetDate(2004, 2, 29));
    EXPECT_EQ(COleDateTime::valid, dt.GetStatus());
    EXPECT_EQ(Parts({ 1, 1, 1, 1, 1, 0 }), Parts({ dt.SetDate(99, 12, 31), dt.SetDate(10000, 1, 1),
                                                  dt.SetDate(2005, 13, 1), dt.SetTime(24, 0, 0),
                                                  dt.SetTime(0, 60, 0), dt.SetTime(23, 59, 59) }));
    EXPECT_EQ(1899, dt.GetYear());
    EXPECT_EQ(-1, COleDateTime(3000000.0).GetYear());
    EXPECT_EQ(COleDateTime::invalid, COleDateTime(2005, 4, 31, 0, 0, 0).GetStatus());
    COleDateTime bad(2005, 2, 30, 0, 0, 0);
    EXPECT_EQ(COleDateTime::invalid, (bad + COleDateTimeSpan(1.0)).GetStatus());
    EXPECT_EQ(COleDateTimeSpan::invalid, (bad - COleDateTime(2005, 1, 1, 0, 0, 0)).GetStatus());
}

TEST(ValuesOleDate, ConvertsFromSystemAndFileTime)
{
    const Parts want = { 2007, 3, 14, 9, 26, 53 };
    SYSTEMTIME st = { 2007, 3, 0, 14, 9, 26, 53, 999 };
    EXPECT_EQ(want, PartsOf(COleDateTime(st)));   // milliseconds dropped
    EXPECT_EQ(want, PartsOf(COleDateTime(CTime(2007, 3, 14, 9, 26, 53).GetTime())));
    FILETIME ftLocal, ftUtc;
    ASSERT_TRUE(::SystemTimeToFileTime(&st, &ftLocal));
    ASSERT_TRUE(::LocalFileTimeToFileTime(&ftLocal, &ftUtc));
    EXPECT_EQ(want, PartsOf(COleDateTime(ftUtc)));
    COleDateTime now = COleDateTime::GetCurrentTime();
    EXPECT_TRUE(now.GetStatus() == COleDateTime::valid && now.GetYear() >= 2020);
}

TEST(ValuesOleDate, FormatUsesTheUserLocaleNamesAndNumericCodes)
{
    for (int nMonth : { 1, 5, 12 })
    {
        COleDateTime dt(2005, nMonth, 15, 0, 0, 0);
        EXPECT_STREQ((LPCTSTR)LocaleText(LOCALE_SMONTHNAME1 + nMonth - 1), (LPCTSTR)dt.Format("%B"));
        EXPECT_STREQ((LPCTSTR)LocaleText(LOCALE_SABBREVMONTHNAME1 + nMonth - 1), (LPCTSTR)dt.Format("%b"));
    }
    COleDateTime thursday(2005, 9, 1, 18, 5, 7);
    EXPECT_STREQ((LPCTSTR)LocaleText(LOCALE_SDAYNAME4), (LPCTSTR)thursday.Format("%A"));
    EXPECT_STREQ((LPCTSTR)LocaleText(LOCALE_SABBREVDAYNAME4), (LPCTSTR)thursday.Format("%a"));
    EXPECT_STREQ((LPCTSTR)LocaleText(LOCALE_SDAYNAME7), (LPCTSTR)COleDateTime(2005, 9, 4, 0, 0, 0).Format("%A"));
    EXPECT_STREQ("2005-09-01 18:05:07", (LPCTSTR)thursday.Format("%Y-%m-%d %H:%M:%S"));
    EXPECT_STREQ("9/1/05 6 244 4 100%", (LPCTSTR)thursday.Format("%#m/%#d/%y %#I %j %w 100%%"));
    EXPECT_STREQ("101-02-03", (LPCTSTR)COleDateTime(101, 2, 3, 0, 0, 0).Format("%Y-%m-%d"));
    EXPECT_STREQ("12", (LPCTSTR)COleDateTime(2005, 9, 1, 0, 0, 0).Format("%I"));
    COleDateTime null;
    null.SetStatus(COleDateTime::null);
    EXPECT_TRUE(null.Format("%Y").IsEmpty());
}

TEST(ValuesOleDate, LocaleFormatShowsOnlyTheNonZeroPartsAndParsesBack)
{
    COleDateTime timeOnly;
    timeOnly.SetTime(18, 30, 0);
    COleDateTime both(2005, 9, 1, 18, 30, 0);
    SYSTEMTIME st;
    both.GetAsSystemTime(st);
    char szDate[64], szTime[64];
    ::GetDateFormatA(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &st, NULL, szDate, sizeof szDate);
    ::GetTimeFormatA(LOCALE_USER_DEFAULT, 0, &st, NULL, szTime, sizeof szTime);
    EXPECT_STREQ(szDate, (LPCTSTR)COleDateTime(2005, 9, 1, 0, 0, 0).Format());
    EXPECT_STREQ(szTime, (LPCTSTR)timeOnly.Format());
    EXPECT_STREQ((LPCTSTR)(CString(szDate) + " " + szTime), (LPCTSTR)both.Format());
    EXPECT_STREQ(szDate, (LPCTSTR)both.Format(VAR_DATEVALUEONLY));
    EXPECT_STREQ(szTime, (LPCTSTR)both.Format(VAR_TIMEVALUEONLY));
    COleDateTime original(2005, 9, 1, 18, 30, 15), parsed;
    ASSERT_TRUE(parsed.ParseDateTime(original.Format()));
    EXPECT_EQ(original, parsed);
    EXPECT_FALSE(parsed.ParseDateTime("not a date at all"));
    EXPECT_EQ(COleDateTime::invalid, parsed.GetStatus());
}

