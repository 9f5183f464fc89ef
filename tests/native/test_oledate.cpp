#include "HyDate.h"
#include "HyOleDate.h"

#include "calendar_model.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace {

struct Known
{
    double ole;
    bool exact;   // the fields give back this very value
    int year, month, day, hour, minute, second, dayOfWeek, dayOfYear;
};

constexpr double kSecond = 1.0 / 86400.0;

// Whole days of the range are counted in OleDateRoundTrip.EveryDayOfTheRange;
// here the values a day count cannot show: times, signs and rounding.
const Known kKnownDates[] = {
    {38596.75, true, 2005, 9, 1, 18, 0, 0, 4, 244},
    // Before day zero the fraction's magnitude is the time of the day.
    {-1.25, true, 1899, 12, 29, 6, 0, 0, 5, 363},
    {-2.75, true, 1899, 12, 28, 18, 0, 0, 4, 362},
    {-657434.5, true, 100, 1, 1, 12, 0, 0, 5, 1},
    {-0.5, false, 1899, 12, 30, 12, 0, 0, 6, 364},
    // To the nearest second, half a second up, into the next day if need be.
    {2.0 + 0.5 * kSecond, false, 1900, 1, 1, 0, 0, 1, 1, 1},
    {2.0 + 0.49 * kSecond, false, 1900, 1, 1, 0, 0, 0, 1, 1},
    {2.0 + 59.4 * kSecond, false, 1900, 1, 1, 0, 0, 59, 1, 1},
    {2.0 + 59.5 * kSecond, false, 1900, 1, 1, 0, 1, 0, 1, 1},
    {0.99999999, false, 1899, 12, 31, 0, 0, 0, 0, 365},
    {38352.999995, false, 2005, 1, 1, 0, 0, 0, 6, 1},        // 31 December 2004 23:59:59.57
    {-1.9999999, false, 1899, 12, 30, 0, 0, 0, 6, 364},      // 29 December 23:59:59.99
    {-657434.999999, false, 100, 1, 2, 0, 0, 0, 6, 2},
    {2958465.99998, false, 9999, 12, 31, 23, 59, 58, 5, 365},
};

HyDateTimeParts Parts(int y, int mo, int d, int h = 0, int mi = 0, int s = 0)
{
    return HyDateTimeParts{y, mo, d, h, mi, s, -1, -1};
}

void ExpectParts(const Known& k, const HyDateTimeParts& p)
{
    EXPECT_EQ((std::vector<int>{k.year, k.month, k.day, k.hour, k.minute, k.second, k.dayOfWeek, k.dayOfYear}),
              (std::vector<int>{p.year, p.month, p.day, p.hour, p.minute, p.second, p.dayOfWeek, p.dayOfYear}))
        << k.ole;
}

HyDateTimeParts Convert(double ole)
{
    HyDateTimeParts p = Parts(0, 0, 0);
    EXPECT_TRUE(hy::OleDateToParts(ole, p)) << ole;
    return p;
}

} // namespace

// ---- CHyDate ----

TEST(HyDateValue, ComparisonsAnswerOneOrZeroAndIgnoreTheFlags)
{
    const CHyDate a(2005, 3, 1, 0);
    struct Case { CHyDate other; int equal; };
    const Case cases[] = {
        {CHyDate(2005, 3, 1, 7), 1}, {CHyDate(2005, 3, 2, 0), 0},
        {CHyDate(2005, 4, 1, 0), 0}, {CHyDate(2006, 3, 1, 0), 0},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(c.equal, a == c.other) << c.other.year << "-" << c.other.month << "-" << c.other.day;
        EXPECT_EQ(1 - c.equal, a != c.other);
    }
    CHyDate d(2005, 3, 1, 9);
    d.Empty();
    EXPECT_EQ(0, d.year | d.month | d.day | d.flags);
    EXPECT_EQ(0, CHyDate().flags);
}

// ---- OLE date to calendar fields ----

TEST(OleDateToParts, KnownDates)
{
    for (const Known& k : kKnownDates)
        ExpectParts(k, Convert(k.ole));
}

TEST(OleDateToParts, RejectsOutOfRangeAndNotANumber)
{
    HyDateTimeParts p = Parts(1, 2, 3, 4, 5, 6);
    const double rejected[] = {
        -657435.0,
        2958466.0,
        2958465.99999999,          // rounds into year 10000
        1e300,
        -1e300,
        std::numeric_limits<double>::quiet_NaN(),
        std::numeric_limits<double>::infinity(),
        -std::numeric_limits<double>::infinity(),
    };
    for (double d : rejected) {
        EXPECT_FALSE(hy::OleDateToParts(d, p)) << d;
        EXPECT_EQ(1, p.year);
        EXPECT_EQ(6, p.second);
    }
}

// ---- Calendar fields to OLE date ----

TEST(PartsToOleDate, KnownDates)
{
    for (const Known& k : kKnownDates) {
        if (!k.exact)
            continue;
        double d = 12345.0;
        ASSERT_TRUE(hy::PartsToOleDate(Parts(k.year, k.month, k.day, k.hour, k.minute, k.second), d));
        EXPECT_EQ(k.ole, d);
    }
}

TEST(PartsToOleDate, RejectsImpossibleParts)
{
    const HyDateTimeParts rejected[] = {
        Parts(2005, 4, 31), Parts(1900, 2, 29), Parts(2100, 2, 29), Parts(2005, 2, 29),
        Parts(2005, 0, 1),  Parts(2005, 13, 1), Parts(2005, 1, 0),  Parts(2005, 1, 32),
        Parts(99, 12, 31),  Parts(10000, 1, 1), Parts(2005, 1, 1, 24), Parts(2005, 1, 1, -1),
        Parts(2005, 1, 1, 0, 60), Parts(2005, 1, 1, 0, -1), Parts(2005, 1, 1, 0, 0, 60),
        Parts(2005, 1, 1, 0, 0, -1),
    };
    for (const HyDateTimeParts& p : rejected) {
        double d = 42.5;
        EXPECT_FALSE(hy::PartsToOleDate(p, d)) << p.year << "-" << p.month << "-" << p.day << " "
                                               << p.hour << ":" << p.minute << ":" << p.second;
        EXPECT_EQ(42.5, d);
    }
    double d = 0.0;
    EXPECT_FALSE(hy::DateToOleDate(2005, 4, 31, d));
    EXPECT_TRUE(hy::DateToOleDate(2005, 9, 1, d) && d == 38596.0);
    EXPECT_TRUE(hy::DateToOleDate(1752, 9, 5, d)); // no 1752 gap in OLE dates
    EXPECT_TRUE(hy::DateToOleDate(1700, 2, 28, d));
    EXPECT_FALSE(hy::DateToOleDate(1700, 2, 29, d));
}

// Every day of the OLE range, each with a different time, counted with an
// independent calendar: fields -> OLE gives the counted serial, and back.
TEST(OleDateRoundTrip, EveryDayOfTheRange)
{
    long long serial = -657434; // 1 January 100
    int weekday = 5;            // a Friday
    int mismatches = 0;
    for (int year = 100; year <= 9999 && mismatches < 5; ++year) {
        int dayOfYear = 0;
        for (int month = 1; month <= 12; ++month) {
            for (int day = 1; day <= model::GregorianMonthLength(year, month); ++day, ++serial) {
                ++dayOfYear;
                const int secs = static_cast<int>((serial * 7919 % 86400 + 86400) % 86400);
                const HyDateTimeParts in = Parts(year, month, day, secs / 3600, secs / 60 % 60, secs % 60);
                double ole = 0.0;
                HyDateTimeParts out = Parts(0, 0, 0);
                const bool ok = hy::PartsToOleDate(in, ole) && hy::OleDateToParts(ole, out);
                const double time = secs / 86400.0;
                const double expected = serial < 0 ? serial - time : serial + time;
                if (!ok || std::fabs(ole - expected) > 1e-9 || out.year != year || out.month != month
                    || out.day != day || out.hour != in.hour || out.minute != in.minute
                    || out.second != in.second || out.dayOfWeek != weekday || out.dayOfYear != dayOfYear) {
                    ADD_FAILURE() << year << "-" << month << "-" << day << " " << secs
                                  << "s: ole " << ole << " expected " << expected << ", back "
                                  << out.year << "-" << out.month << "-" << out.day << " "
                                  << out.hour << ":" << out.minute << ":" << out.second
                                  << " wd " << out.dayOfWeek << " yd " << out.dayOfYear;
                    ++mismatches;
                }
                weekday = (weekday + 1) % 7;
            }
        }
    }
    EXPECT_EQ(2958466, serial); // one past 31 December 9999
}

// Arbitrary doubles in range: the fields rebuild the value to within half a second.
TEST(OleDateRoundTrip, ArbitraryValuesRebuildToNearestSecond)
{
    unsigned long long state = 0x9E3779B97F4A7C15ull;
    for (int i = 0; i < 200000; ++i) {
        state = state * 6364136223846793005ull + 1442695040888963407ull;
        const double unit = static_cast<double>(state >> 11) / 9007199254740992.0;
        const double ole = -657434.0 + unit * (2958465.0 + 657434.0);
        HyDateTimeParts p = Parts(0, 0, 0);
        ASSERT_TRUE(hy::OleDateToParts(ole, p)) << ole;
        double back = 0.0;
        ASSERT_TRUE(hy::PartsToOleDate(p, back)) << ole;
        // Compare on the time line: a negative date's time runs forward from its day.
        const auto timeline = [](double v) {
            const double day = std::trunc(v);
            return day + std::fabs(v - day);
        };
        ASSERT_LE(std::fabs(timeline(back) - timeline(ole)), 0.5 / 86400.0 + 1e-9) << ole;
    }
}
