// The exported date and time helpers, against the real locale services and C runtime.
#include <gtest/gtest.h>
#include <math.h>
#include <stdlib.h>
#include <time.h>
#include <string>
#include "HyDate.h"
#include "HyDateHelpers.h"
#include "hytest.h"

namespace {

std::string LocaleDate(int year, int month, int day, DWORD flags)
{
    SYSTEMTIME st{};
    st.wYear = (WORD)year;
    st.wMonth = (WORD)month;
    st.wDay = (WORD)day;
    char buf[128] = "";
    ::GetDateFormatA(LOCALE_USER_DEFAULT, flags, &st, nullptr, buf, sizeof buf);
    return buf;
}

TEST(HyGetDateTest, ShortAndLongFormsFollowTheUserLocale)
{
    EXPECT_EQ(LocaleDate(2005, 9, 1, DATE_SHORTDATE), std::string(HyGetDate(38596.75, 1)));
    EXPECT_EQ(LocaleDate(2005, 9, 1, DATE_LONGDATE), std::string(HyGetDate(38596.75, 0)));
    EXPECT_NE(std::string(HyGetDate(38596.75, 1)), std::string(HyGetDate(38596.75, 0)));
}

// Positive OLE dates in the short picture yyyy-MM-dd; everything else is no date.
struct GetDateCase { double date; int shortForm; const char* expected; };
const GetDateCase kGetDates[] = {
    { 38596.75, 1, "2005-09-01" }, { 38596.0, 1, "2005-09-01" }, { 38596.999, 1, "2005-09-01" },
    { 2.0, 1, "1900-01-01" }, { 36585.5, 1, "2000-02-29" }, { 0.001, 1, "1899-12-30" },
    { 0.0, 1, "" }, { -1.5, 0, "" }, { -1.5, 1, "" }, { NAN, 1, "" },
};

TEST(HyGetDateTest, OnlyPositiveDatesAreWrittenAndInTheUsersPicture)
{
    hytest::LocaleValues picture;
    ASSERT_TRUE(picture.Set(LOCALE_SSHORTDATE, "yyyy-MM-dd"));
    for (const GetDateCase& c : kGetDates)
        EXPECT_STREQ(c.expected, HyGetDate(c.date, c.shortForm)) << c.date;
}

TEST(HyGetDateTest, JapaneseEraCalendarGivesEmptyText)
{
    hytest::LocaleValues calendar;
    ASSERT_TRUE(calendar.Set(LOCALE_ICALENDARTYPE, "3"));
    EXPECT_STREQ("", HyGetDate(38596.75, 1));
    EXPECT_STREQ("", HyGetDate(38596.75, 0));
}

// Local times through mktime in a fixed zone. 1 January 1970 00:00 fails
// east of Greenwich; the CTime then gets the same clock time a day later
// while the answer stays 0. Fields out of range are normalised. The long
// form refuses what a 32-bit long cannot hold.
struct CTimeCase
{
    const char* tz;
    int year, month, day, hour, minute, second;
    int valid;              // HyGetCTimeValid's answer
    long long out;          // the CTime it leaves (it starts at 777)
    long validCTime;        // HyGetValidCTime's answer
};
const CTimeCase kCTimes[] = {
    { "HYT-02", 1970, 1, 1, 0, 0, 0, 0, 22 * 3600, -1 },
    { "HYT-05", 1970, 1, 1, 3, 4, 5, 0, 79445, -1 },            // 2 January 03:04:05 at UTC+5
    { "HYW+05", 1970, 1, 1, 0, 0, 0, 1, 5 * 3600, 5 * 3600 },
    { "UTC0", 1969, 12, 31, 0, 0, 0, 0, -1, -1 },
    { "UTC0", 2005, 3, 1, 12, 0, 0, 1, 1109678400, 1109678400 },
    { "UTC0", 2005, 3, 1, 11, 60, 0, 1, 1109678400, 1109678400 },
    { "UTC0", 2005, 2, 30, 12, 0, 0, 1, 1109678400 + 86400, 1109678400 + 86400 },
    { "UTC0", 2038, 1, 19, 3, 14, 7, 1, 2147483647LL, 2147483647L },
    { "UTC0", 2038, 1, 19, 3, 14, 8, 1, 2147483648LL, -1 },
    { "UTC0", 2040, 1, 1, 0, 0, 0, 1, 2208988800LL, -1 },
    { "EST5", 2038, 1, 18, 22, 14, 7, 1, 2147483647LL, 2147483647L },
    { "EST5", 2038, 1, 18, 22, 14, 8, 1, 2147483648LL, -1 },
};

TEST(HyGetCTimeValidTest, LocalTimesInAZoneWithTheSubstituteAndTheLongLimit)
{
    for (const CTimeCase& c : kCTimes)
    {
        hytest::TimeZone zone(c.tz);
        SCOPED_TRACE(::testing::Message() << c.tz << " " << c.year << "-" << c.month << "-" << c.day << " "
                                          << c.hour << ":" << c.minute << ":" << c.second);
        CTime out(777);
        EXPECT_EQ(c.valid, HyGetCTimeValid(c.year, c.month, c.day, c.hour, c.minute, c.second, out, 0));
        EXPECT_EQ(c.out, (long long)out.GetTime());
        EXPECT_EQ(c.validCTime, HyGetValidCTime(c.year, c.month, c.day, c.hour, c.minute, c.second, 0));
    }
}

}  // namespace
