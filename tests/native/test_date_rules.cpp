// The date field's entry rules: which typed dates are accepted, and which
// century a two-digit year lands in.
#include "HyDateRules.h"
#include "calendar_model.h"

#include <gtest/gtest.h>

#include <climits>


// ---- the leap day ----

TEST(EditDateRulesLeapDay, CenturiesFollowTheOldRuleUpTo1752AndTheGregorianAfter)
{
    EXPECT_FALSE(hy::IsValidEntryDate(1900, 2, 29, 1800, 2100));
    EXPECT_TRUE(hy::IsValidEntryDate(2000, 2, 29, 1800, 2100));
    EXPECT_FALSE(hy::IsValidEntryDate(1800, 2, 29, 1700, 2100));
    // Every fourth year up to 1752, century or not.
    EXPECT_TRUE(hy::IsValidEntryDate(1700, 2, 29, 1700, 2100));
    EXPECT_TRUE(hy::IsValidEntryDate(1500, 2, 29, 1, 2100));
    EXPECT_TRUE(hy::IsValidEntryDate(1752, 2, 29, 1700, 2100));
    EXPECT_FALSE(hy::IsValidEntryDate(2001, 2, 29, 1800, 2100));
    EXPECT_TRUE(hy::IsValidEntryDate(2001, 2, 28, 1800, 2100));
}

TEST(EditDateRulesLeapDay, MonthLengthsAgreeWithTheCalendarOverFiveCenturies)
{
    for (int year = 1600; year <= 2100; ++year)
        for (int month = 1; month <= 12; ++month)
        {
            const int length = model::BritishLastDay(year, month);
            ASSERT_TRUE(hy::IsValidEntryDate(year, month, length, 1600, 2100)) << year << "-" << month;
            ASSERT_FALSE(hy::IsValidEntryDate(year, month, length + 1, 1600, 2100)) << year << "-" << month;
        }
}

// ---- the range and the fields ----

TEST(EditDateRulesRange, BothLimitsAreInclusive)
{
    EXPECT_TRUE(hy::IsValidEntryDate(1904, 1, 1, 1904, 2031));
    EXPECT_TRUE(hy::IsValidEntryDate(2031, 12, 31, 1904, 2031));
    EXPECT_FALSE(hy::IsValidEntryDate(1903, 12, 31, 1904, 2031));
    EXPECT_FALSE(hy::IsValidEntryDate(2032, 1, 1, 1904, 2031));
    // An empty range accepts nothing.
    EXPECT_FALSE(hy::IsValidEntryDate(2000, 1, 1, 2001, 1999));
}

TEST(EditDateRulesRange, MissingOrImpossibleFieldsAreRefused)
{
    EXPECT_FALSE(hy::IsValidEntryDate(-1, 5, 5, 1904, 2031));     // -1: not given
    EXPECT_FALSE(hy::IsValidEntryDate(2005, -1, 5, 1904, 2031));
    EXPECT_FALSE(hy::IsValidEntryDate(2005, 5, -1, 1904, 2031));
    EXPECT_FALSE(hy::IsValidEntryDate(2005, 0, 5, 1904, 2031));
    EXPECT_FALSE(hy::IsValidEntryDate(2005, 13, 1, 1904, 2031));
    EXPECT_FALSE(hy::IsValidEntryDate(2005, 5, 0, 1904, 2031));
    EXPECT_FALSE(hy::IsValidEntryDate(2005, 5, 32, 1904, 2031));
    EXPECT_FALSE(hy::IsValidEntryDate(2005, 4, 31, 1904, 2031));
    EXPECT_FALSE(hy::IsValidEntryDate(2005, 2, 31, 1904, 2031));
    EXPECT_FALSE(hy::IsValidEntryDate(INT_MIN, INT_MIN, INT_MIN, INT_MIN, INT_MAX));
    EXPECT_FALSE(hy::IsValidEntryDate(INT_MAX, INT_MAX, INT_MAX, INT_MIN, INT_MAX));
}

// ---- two-digit years ----

TEST(EditDateRulesCentury, DefaultPivotPutsZeroToThreeInThisCentury)
{
    EXPECT_EQ(2000, hy::ExpandEntryYear(0, 1904));
    EXPECT_EQ(2003, hy::ExpandEntryYear(3, 1904));
    EXPECT_EQ(1904, hy::ExpandEntryYear(4, 1904));
    EXPECT_EQ(1999, hy::ExpandEntryYear(99, 1904));
}

TEST(EditDateRulesCentury, PivotMovesWithTheFirstValidYear)
{
    EXPECT_EQ(2049, hy::ExpandEntryYear(49, 1950));
    EXPECT_EQ(1950, hy::ExpandEntryYear(50, 1950));
    EXPECT_EQ(1903, hy::ExpandEntryYear(3, 1700));
    EXPECT_EQ(1999, hy::ExpandEntryYear(99, 1));
}

TEST(EditDateRulesCentury, EveryYearBelow1900IsShiftedNotOnlyTwoDigitOnes)
{
    EXPECT_EQ(2003, hy::ExpandEntryYear(2003, 1904));
    EXPECT_EQ(1904, hy::ExpandEntryYear(1904, 1904));
    // The century rule also moves years typed in full.
    EXPECT_EQ(2001, hy::ExpandEntryYear(1901, 1904));
    EXPECT_EQ(3600, hy::ExpandEntryYear(1700, 1700));
    EXPECT_EQ(3750, hy::ExpandEntryYear(1850, 1904));
    EXPECT_EQ(2000, hy::ExpandEntryYear(100, 1904));
}

TEST(EditDateRulesCentury, ExtremeValuesDoNotOverflow)
{
    EXPECT_EQ(INT_MIN + 1900, hy::ExpandEntryYear(INT_MIN, INT_MIN + 1900));
    EXPECT_EQ(INT_MAX, hy::ExpandEntryYear(INT_MAX, INT_MAX));
    EXPECT_EQ(2099, hy::ExpandEntryYear(99, INT_MAX));
}
