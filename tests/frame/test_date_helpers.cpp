// The exported date and time helpers, against the real locale services and C runtime.
#include <gtest/gtest.h>
#include <math.h>
#include <stdlib.h>
#include <time.h>
#include <string>
#include "HyDate.h"
#include "HyDateHelpers.h"

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

// Sets a user-locale value for the scope and puts the old one back.
class UserLocaleValue
{
public:
    UserLocaleValue(LCTYPE type, const char* value) : m_type(type)
    {
        ::GetLocaleInfoA(LOCALE_USER_DEFAULT, type, m_saved, sizeof m_saved);
        m_ok = ::SetLocaleInfoA(LOCALE_USER_DEFAULT, type, value) != 0;
    }
    ~UserLocaleValue() { ::SetLocaleInfoA(LOCALE_USER_DEFAULT, m_type, m_saved); }
    bool ok() const { return m_ok; }
private:
    LCTYPE m_type;
    char m_saved[80] = "";
    bool m_ok = false;
};

// Puts the C runtime in a fixed time zone for the scope.
class TimeZone
{
public:
    explicit TimeZone(const char* tz)
    {
        const char* old = getenv("TZ");
        m_saved = std::string("TZ=") + (old ? old : "");
        _putenv((std::string("TZ=") + tz).c_str());
        _tzset();
    }
    ~TimeZone()
    {
        _putenv(m_saved.c_str());
        _tzset();
    }
private:
    std::string m_saved;
};

TEST(HyGetDateTest, ShortAndLongFormsFollowTheUserLocale)
{
    EXPECT_EQ(LocaleDate(2005, 9, 1, DATE_SHORTDATE), std::string(HyGetDate(38596.75, 1)));
    EXPECT_EQ(LocaleDate(2005, 9, 1, DATE_LONGDATE), std::string(HyGetDate(38596.75, 0)));
    EXPECT_NE(std::string(HyGetDate(38596.75, 1)), std::string(HyGetDate(38596.75, 0)));
}

TEST(HyGetDateTest, ChangedShortPictureIsUsed)
{
    UserLocaleValue picture(LOCALE_SSHORTDATE, "yyyy-MM-dd");
    ASSERT_TRUE(picture.ok());
    EXPECT_STREQ("2005-09-01", HyGetDate(38596.75, 1));
    EXPECT_STREQ("1900-01-01", HyGetDate(2.0, 1));
    EXPECT_STREQ("2000-02-29", HyGetDate(36585.5, 1));
}

TEST(HyGetDateTest, TimeOfDayIsIgnored)
{
    EXPECT_EQ(std::string(HyGetDate(38596.0, 1)), std::string(HyGetDate(38596.999, 1)));
}

TEST(HyGetDateTest, NoDateGivesEmptyText)
{
    EXPECT_STREQ("", HyGetDate(0.0, 1));
    EXPECT_STREQ("", HyGetDate(-1.5, 0));
    EXPECT_STREQ("", HyGetDate(NAN, 1));
    EXPECT_STRNE("", HyGetDate(0.001, 1));   // any positive date is formatted
}

TEST(HyGetDateTest, JapaneseEraCalendarGivesEmptyText)
{
    UserLocaleValue calendar(LOCALE_ICALENDARTYPE, "3");
    ASSERT_TRUE(calendar.ok());
    EXPECT_STREQ("", HyGetDate(38596.75, 1));
    EXPECT_STREQ("", HyGetDate(38596.75, 0));
}

TEST(HyGetCTimeValidTest, FirstOfJanuary1970EastOfGreenwichFailsWithASubstitute)
{
    TimeZone east("HYT-02");
    CTime out(12345);
    EXPECT_EQ(0, HyGetCTimeValid(1970, 1, 1, 0, 0, 0, out, 0));
    EXPECT_EQ(1970, out.GetYear());
    EXPECT_EQ(1, out.GetMonth());
    EXPECT_EQ(2, out.GetDay());
    EXPECT_EQ(0, out.GetHour());
    EXPECT_EQ(22 * 3600, out.GetTime());   // 2 January 00:00 at UTC+2
    EXPECT_EQ(-1, HyGetValidCTime(1970, 1, 1, 0, 0, 0, 0));
}

TEST(HyGetCTimeValidTest, SubstituteKeepsTheClockTime)
{
    TimeZone east("HYT-05");
    CTime out;
    EXPECT_EQ(0, HyGetCTimeValid(1970, 1, 1, 3, 4, 5, out, 0));
    EXPECT_EQ(2, out.GetDay());
    EXPECT_EQ(3, out.GetHour());
    EXPECT_EQ(4, out.GetMinute());
    EXPECT_EQ(5, out.GetSecond());
}

TEST(HyGetCTimeValidTest, FirstOfJanuary1970WestOfGreenwichIsFine)
{
    TimeZone west("HYW+05");
    CTime out;
    EXPECT_EQ(1, HyGetCTimeValid(1970, 1, 1, 0, 0, 0, out, 0));
    EXPECT_EQ(5 * 3600, out.GetTime());
    EXPECT_EQ(5 * 3600, HyGetValidCTime(1970, 1, 1, 0, 0, 0, 0));
}

TEST(HyGetCTimeValidTest, OutOfRangeFieldsAreNormalisedNotRejected)
{
    TimeZone utc("UTC0");
    CTime out;
    EXPECT_EQ(1, HyGetCTimeValid(2005, 2, 30, 12, 0, 0, out, 0));
    EXPECT_EQ(2005, out.GetYear());
    EXPECT_EQ(3, out.GetMonth());
    EXPECT_EQ(2, out.GetDay());
    EXPECT_EQ(1109678400 + 86400, HyGetValidCTime(2005, 2, 30, 12, 0, 0, 0));   // 2 March 2005 12:00
    EXPECT_EQ(1109678400, HyGetValidCTime(2005, 3, 1, 12, 0, 0, 0));
    EXPECT_EQ(1109678400, HyGetValidCTime(2005, 3, 1, 11, 60, 0, 0));
}

TEST(HyGetCTimeValidTest, UnrepresentableTimeReportsFailure)
{
    TimeZone utc("UTC0");
    CTime out(777);
    EXPECT_EQ(0, HyGetCTimeValid(1969, 12, 31, 0, 0, 0, out, 0));
    EXPECT_EQ(-1, out.GetTime());
    EXPECT_EQ(-1, HyGetValidCTime(1969, 12, 31, 0, 0, 0, 0));
}

// The time_t that HyGetValidCTime answers is a 32-bit long: the last second
// it can hold is 2038-01-19 03:14:07 UTC, whatever the zone.
struct LongLimitCase { const char* tz; int year, month, day, hour, minute, second; long expected; };
const LongLimitCase kLongLimits[] = {
    { "UTC0", 2038, 1, 19, 3, 14, 7, 2147483647L },
    { "UTC0", 2038, 1, 19, 3, 14, 8, -1 },
    { "UTC0", 2040, 1, 1, 0, 0, 0, -1 },
    { "EST5", 2038, 1, 18, 22, 14, 7, 2147483647L },
    { "EST5", 2038, 1, 18, 22, 14, 8, -1 },
};

TEST(HyGetCTimeValidTest, ValidCTimeRefusesWhatALongCannotHold)
{
    for (const LongLimitCase& c : kLongLimits)
    {
        TimeZone zone(c.tz);
        EXPECT_EQ(c.expected, HyGetValidCTime(c.year, c.month, c.day, c.hour, c.minute, c.second, 0))
            << c.tz << " " << c.year << "-" << c.month << "-" << c.day << " " << c.hour << ":" << c.minute << ":"
            << c.second;
    }
    // The CTime form holds 64 bits and keeps such times.
    TimeZone utc("UTC0");
    CTime out;
    EXPECT_EQ(1, HyGetCTimeValid(2040, 1, 1, 0, 0, 0, out, 0));
    EXPECT_EQ(2208988800LL, (long long)out.GetTime());
}

TEST(HyDateTest, EqualityIgnoresFlagsAndAnswersOneOrZero)
{
    CHyDate a(2005, 3, 1, 0), b(2005, 3, 1, 7), c(2005, 3, 2, 0);
    EXPECT_EQ(1, a == b);
    EXPECT_EQ(0, a != b);
    EXPECT_EQ(0, a == c);
    EXPECT_EQ(1, a != c);
    b.Empty();
    EXPECT_EQ(0, b.year + b.month + b.day + b.flags);
}

}  // namespace
