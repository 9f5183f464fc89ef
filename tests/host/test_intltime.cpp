// CIntlTime against the real locale services: expectations are read from
// GetLocaleInfo/GetDateFormat/GetTimeFormat, and changed user settings show
// that the class follows them.
#include <afxwin.h>
#include <gtest/gtest.h>
#include "HyIntlTime.h"
#include "hytest.h"

#include <string>
#include <vector>

namespace {

std::string Locale(LCTYPE type, LCID lcid = LOCALE_USER_DEFAULT)
{
    char buf[128] = {};
    ::GetLocaleInfoA(lcid, type, buf, sizeof buf);
    return buf;
}

// Year, month, day of a parse; -7 where the parser left an output untouched.
std::vector<int> Parse(const char* picture, const char* text, char sep)
{
    int y = -7, m = -7, d = -7;
    const int ok = CIntlTime::ParseDateFromFormat(picture, text, sep, &y, &m, &d);
    return { ok != 0, y, m, d };
}

}  // namespace

TEST(IntlTime, PicturesAndTextAreTheLocales)
{
    EXPECT_EQ(Locale(LOCALE_SSHORTDATE), std::string(CIntlTime::GetDateFormat(HYINTL_SHORTDATE, 1)));
    EXPECT_EQ(Locale(LOCALE_SLONGDATE), std::string(CIntlTime::GetDateFormat(HYINTL_LONGDATE, 1)));
    EXPECT_EQ(Locale(LOCALE_SSHORTDATE, LOCALE_SYSTEM_DEFAULT),
              std::string(CIntlTime::GetDateFormat(HYINTL_SHORTDATE, 0)));
    const CIntlTime t(2024, 3, 5, 14, 7, 9);
    SYSTEMTIME st = { 2024, 3, 2, 5, 14, 7, 0, 0 };   // a Tuesday
    char text[256];
    for (DWORD flags : { DATE_SHORTDATE, DATE_LONGDATE }) {
        ::GetDateFormatA(LOCALE_USER_DEFAULT, flags, &st, nullptr, text, sizeof text);
        EXPECT_STREQ(text, t.FormatDate(flags == DATE_SHORTDATE ? HYINTL_SHORTDATE : HYINTL_LONGDATE));
    }
    ::GetTimeFormatA(LOCALE_USER_DEFAULT, TIME_NOSECONDS, &st, nullptr, text, sizeof text);
    EXPECT_STREQ(text, t.FormatTime());   // no seconds
}

TEST(IntlTime, ChangedSettingsAreFollowed)
{
    const CIntlTime t(2024, 3, 5, 14, 7, 0);
    const struct { LCTYPE type; const char* value; const char* separator; std::string text; } rows[] = {
        { LOCALE_SSHORTDATE, "dd.MM.yyyy", ".", "05.03.2024" },
        { LOCALE_SSHORTDATE, "yyyy-MM-dd", "-", "2024-03-05" },
        { LOCALE_SSHORTDATE, "'d'yy/M/d", "/", "d24/3/5" },   // a quoted letter is text, not a field
        { LOCALE_STIMEFORMAT, "HH:mm", ":", "14:07" },
        { LOCALE_STIMEFORMAT, "h.mm tt", ".", "2.07 " + Locale(LOCALE_S2359) },
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.value);
        hytest::LocaleValues locale;
        ASSERT_TRUE(locale.Set(row.type, row.value));
        if (row.type == LOCALE_SSHORTDATE) {
            EXPECT_STREQ(row.value, CIntlTime::GetDateFormat(HYINTL_SHORTDATE, 1));
            CString sep;
            CIntlTime::GetDateSeperator(sep);
            EXPECT_STREQ(row.separator, sep);
            EXPECT_EQ(row.text, std::string(t.FormatDate(HYINTL_SHORTDATE)));
        } else {
            EXPECT_EQ(row.value[0] == 'H', CIntlTime::Is24HrFormat() != FALSE);
            EXPECT_STREQ(row.separator, CIntlTime::GetTimeSeperator());
            EXPECT_EQ(row.text, std::string(t.FormatTime()));
        }
    }
}

TEST(IntlTime, ParsesWhatItFormatsInTheLocalesShortDate)
{
    for (const char* picture : { (const char*)nullptr, "dd.MM.yyyy", "M/d/yyyy", "yyyy-MM-dd", "d/M/yy" }) {
        hytest::LocaleValues locale;
        if (picture != nullptr) {
            ASSERT_TRUE(locale.Set(LOCALE_SSHORTDATE, picture));
        }
        const CString pic = CIntlTime::GetDateFormat(HYINTL_SHORTDATE, 1);
        const bool twoDigitYear = pic.Find("yyyy") < 0;
        for (const std::vector<int>& ymd : { std::vector<int>{ 2024, 2, 29 }, { 1999, 12, 31 }, { 2003, 1, 2 } }) {
            const CString text = CIntlTime(ymd[0], ymd[1], ymd[2], 12, 0, 0).FormatDate(HYINTL_SHORTDATE);
            EXPECT_EQ((std::vector<int>{ 1, twoDigitYear ? ymd[0] % 100 : ymd[0], ymd[1], ymd[2] }),
                      Parse(pic, text, CIntlTime::GetDateSeperator()[0]))
                << pic << " " << text;
        }
    }
    // The picture parser itself is tested natively; the wrapper adds this
    // year for a day and month alone, and refuses null arguments untouched.
    EXPECT_EQ((std::vector<int>{ 1, CTime::GetCurrentTime().GetYear(), 3, 5 }), Parse("dd.MM.yyyy", "5.3", '.'));
    EXPECT_EQ((std::vector<int>{ 0, -7, -7, -7 }), Parse(nullptr, "1/2/2005", '/'));
    EXPECT_EQ((std::vector<int>{ 0, -7, -7, -7 }), Parse("M/d/yyyy", nullptr, '/'));
    int m = -7, d = -7;
    EXPECT_EQ(0, CIntlTime::ParseDateFromFormat("M/d/yyyy", "1/2/2005", '/', nullptr, &m, &d));
    EXPECT_EQ((std::vector<int>{ -7, -7 }), (std::vector<int>{ m, d }));
}
