// CIntlTime against the real locale services: every expectation is read from
// GetLocaleInfo/GetDateFormat/GetTimeFormat in the test, and changed user
// settings show that the class follows them.
#include <afxwin.h>
#include <gtest/gtest.h>
#include "HyIntlTime.h"
#include "hytest.h"

#include <string>

namespace {

std::string Locale(LCTYPE type, LCID lcid = LOCALE_USER_DEFAULT)
{
    char buf[128] = {};
    ::GetLocaleInfoA(lcid, type, buf, sizeof buf);
    return buf;
}

SYSTEMTIME Day(int y, int m, int d, int h = 0, int mi = 0)
{
    SYSTEMTIME st = {};
    st.wYear = (WORD)y;
    st.wMonth = (WORD)m;
    st.wDay = (WORD)d;
    st.wHour = (WORD)h;
    st.wMinute = (WORD)mi;
    st.wDayOfWeek = 0;
    // Day of week as the formatter expects it for long dates.
    FILETIME ft;
    ::SystemTimeToFileTime(&st, &ft);
    ::FileTimeToSystemTime(&ft, &st);
    return st;
}

std::string SysDate(const SYSTEMTIME& st, DWORD flags, const char* picture = nullptr)
{
    char buf[256] = {};
    ::GetDateFormatA(LOCALE_USER_DEFAULT, flags, &st, picture, buf, sizeof buf);
    return buf;
}

std::string SysTime(const SYSTEMTIME& st)
{
    char buf[128] = {};
    ::GetTimeFormatA(LOCALE_USER_DEFAULT, TIME_NOSECONDS, &st, nullptr, buf, sizeof buf);
    return buf;
}

struct Parsed
{
    int ok, y = -7, m = -7, d = -7;
};

Parsed Parse(const char* picture, const char* text, char sep)
{
    Parsed p{};
    p.ok = CIntlTime::ParseDateFromFormat(picture, text, sep, &p.y, &p.m, &p.d);
    return p;
}

}  // namespace

TEST(IntlTimeConstruction, DefaultIsNowAndPartsAreLocalTime)
{
    __time64_t before = CTime::GetCurrentTime().GetTime();
    CIntlTime now;
    __time64_t after = CTime::GetCurrentTime().GetTime();
    EXPECT_GE(now.GetTime(), before);
    EXPECT_LE(now.GetTime(), after);

    CIntlTime parts(2024, 3, 5, 14, 7, 9);
    EXPECT_EQ(CTime(2024, 3, 5, 14, 7, 9).GetTime(), parts.GetTime());
    EXPECT_EQ(2024, parts.GetYear());
    EXPECT_EQ(14, parts.GetHour());

    CTime t(2001, 5, 1, 8, 30, 0);
    CIntlTime copy(t);
    time_t asTimeT = copy.GetTime();
    EXPECT_EQ(t.GetTime(), asTimeT);
    CIntlTime assigned;
    assigned = t;
    EXPECT_EQ(t.GetTime(), assigned.GetTime());
}

TEST(IntlTimeLocale, PicturesAreTheLocales)
{
    EXPECT_EQ(Locale(LOCALE_SSHORTDATE), std::string(CIntlTime::GetDateFormat(HYINTL_SHORTDATE, 1)));
    EXPECT_EQ(Locale(LOCALE_SLONGDATE), std::string(CIntlTime::GetDateFormat(HYINTL_LONGDATE, 1)));
    EXPECT_EQ(Locale(LOCALE_SSHORTDATE, LOCALE_SYSTEM_DEFAULT),
              std::string(CIntlTime::GetDateFormat(HYINTL_SHORTDATE, 0)));
}

TEST(IntlTimeLocale, FormatsAsTheLocaleServicesDo)
{
    CIntlTime t(2024, 3, 5, 14, 7, 9);
    SYSTEMTIME st = Day(2024, 3, 5, 14, 7);
    EXPECT_EQ(SysDate(st, DATE_SHORTDATE), std::string(t.FormatDate(HYINTL_SHORTDATE)));
    EXPECT_EQ(SysDate(st, DATE_LONGDATE), std::string(t.FormatDate(HYINTL_LONGDATE)));
    EXPECT_EQ(SysTime(st), std::string(t.FormatTime()));
    EXPECT_EQ(std::string::npos, std::string(t.FormatTime()).find(":09"));   // no seconds
}

TEST(IntlTimeLocale, ChangedShortDateIsFollowed)
{
    hytest::LocaleValues locale;
    ASSERT_TRUE(locale.Set(LOCALE_SSHORTDATE, "dd.MM.yyyy"));
    EXPECT_STREQ("dd.MM.yyyy", CIntlTime::GetDateFormat(2, 1));
    CString sep;
    CIntlTime::GetDateSeperator(sep);
    EXPECT_STREQ(".", sep);
    CIntlTime t(2024, 3, 5, 12, 0, 0);
    EXPECT_STREQ("05.03.2024", t.FormatDate(2));

    ASSERT_TRUE(locale.Set(LOCALE_SSHORTDATE, "yyyy-MM-dd"));
    EXPECT_STREQ("-", CIntlTime::GetDateSeperator());
    EXPECT_STREQ("2024-03-05", t.FormatDate(2));
    // A quoted letter is text, not a field.
    ASSERT_TRUE(locale.Set(LOCALE_SSHORTDATE, "'d'yy/M/d"));
    EXPECT_STREQ("/", CIntlTime::GetDateSeperator());
}

TEST(IntlTimeLocale, ChangedTimeFormatIsFollowed)
{
    hytest::LocaleValues locale;
    CIntlTime t(1990, 1, 1, 14, 7, 0);
    ASSERT_TRUE(locale.Set(LOCALE_STIMEFORMAT, "HH:mm"));
    EXPECT_TRUE(CIntlTime::Is24HrFormat());
    EXPECT_STREQ(":", CIntlTime::GetTimeSeperator());
    EXPECT_STREQ("14:07", t.FormatTime());

    ASSERT_TRUE(locale.Set(LOCALE_STIMEFORMAT, "h.mm tt"));
    EXPECT_FALSE(CIntlTime::Is24HrFormat());
    EXPECT_STREQ(".", CIntlTime::GetTimeSeperator());
    EXPECT_EQ("2.07 " + Locale(LOCALE_S2359), std::string(t.FormatTime()));
}

TEST(IntlTimeParse, RoundTripsThroughTheLocalesShortDate)
{
    for (const char* picture : { (const char*)nullptr, "dd.MM.yyyy", "M/d/yyyy", "yyyy-MM-dd", "d/M/yy" })
    {
        hytest::LocaleValues locale;
        if (picture != nullptr)
        {
            ASSERT_TRUE(locale.Set(LOCALE_SSHORTDATE, picture));
        }
        CString pic = CIntlTime::GetDateFormat(2, 1);
        CString sep = CIntlTime::GetDateSeperator();
        const bool twoDigitYear = pic.Find("yyyy") < 0;
        for (const SYSTEMTIME& st : { Day(2024, 2, 29), Day(1999, 12, 31), Day(2003, 1, 2) })
        {
            CIntlTime t(st.wYear, st.wMonth, st.wDay, 12, 0, 0);
            CString text = t.FormatDate(2);
            Parsed p = Parse(pic, text, sep[0]);
            SCOPED_TRACE(std::string(pic) + " " + std::string(text));
            ASSERT_TRUE(p.ok);
            EXPECT_EQ(twoDigitYear ? st.wYear % 100 : st.wYear, p.y);
            EXPECT_EQ(st.wMonth, p.m);
            EXPECT_EQ(st.wDay, p.d);
        }
    }
}

// The picture parser itself is tested natively (tests/native/test_date_picture.cpp);
// here only what the wrapper adds: this year, and refusing null arguments.
TEST(IntlTimeParse, DayAndMonthAloneMeanThisYearAndNullArgumentsAreRefused)
{
    Parsed p = Parse("dd.MM.yyyy", "5.3", '.');
    EXPECT_TRUE(p.ok);
    EXPECT_EQ(CTime::GetCurrentTime().GetYear(), p.y);
    EXPECT_EQ(3, p.m);
    EXPECT_EQ(5, p.d);
    int y = -7, m = -7, d = -7;
    EXPECT_EQ(0, CIntlTime::ParseDateFromFormat(nullptr, "1/2/2005", '/', &y, &m, &d));
    EXPECT_EQ(0, CIntlTime::ParseDateFromFormat("M/d/yyyy", nullptr, '/', &y, &m, &d));
    EXPECT_EQ(0, CIntlTime::ParseDateFromFormat("M/d/yyyy", "1/2/2005", '/', nullptr, &m, &d));
    EXPECT_EQ(-7, y);
    EXPECT_EQ(-7, m);
    EXPECT_EQ(-7, d);
}
