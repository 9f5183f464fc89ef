// The date field's entry rules: which typed dates are accepted, and which
// century a two-digit year lands in.
#include "HyDateRules.h"
#include "calendar_model.h"

#include <gtest/gtest.h>

#include <climits>

TEST(EditDateRules, AcceptsDaysOfTheCalendarWithinInclusiveLimits)
{
    struct Case { int year, month, day, minYear, maxYear; bool valid; };
    const Case cases[] = {
        // Every fourth year up to 1752, century or not; the Gregorian rule after.
        {1900, 2, 29, 1800, 2100, false}, {2000, 2, 29, 1800, 2100, true}, {1800, 2, 29, 1700, 2100, false},
        {1700, 2, 29, 1700, 2100, true},  {1500, 2, 29, 1, 2100, true},    {1752, 2, 29, 1700, 2100, true},
        {2001, 2, 29, 1800, 2100, false}, {2001, 2, 28, 1800, 2100, true},
        // Both limits inclusive; an empty range accepts nothing.
        {1904, 1, 1, 1904, 2031, true},   {2031, 12, 31, 1904, 2031, true}, {1903, 12, 31, 1904, 2031, false},
        {2032, 1, 1, 1904, 2031, false},  {2000, 1, 1, 2001, 1999, false},
        // Missing (-1) or impossible fields.
        {-1, 5, 5, 1904, 2031, false},    {2005, -1, 5, 1904, 2031, false}, {2005, 5, -1, 1904, 2031, false},
        {2005, 0, 5, 1904, 2031, false},  {2005, 13, 1, 1904, 2031, false}, {2005, 5, 0, 1904, 2031, false},
        {2005, 5, 32, 1904, 2031, false}, {2005, 4, 31, 1904, 2031, false}, {2005, 2, 31, 1904, 2031, false},
        {INT_MIN, INT_MIN, INT_MIN, INT_MIN, INT_MAX, false}, {INT_MAX, INT_MAX, INT_MAX, INT_MIN, INT_MAX, false},
    };
    for (const Case& c : cases)
        EXPECT_EQ(c.valid, hy::IsValidEntryDate(c.year, c.month, c.day, c.minYear, c.maxYear))
            << c.year << "-" << c.month << "-" << c.day << " in " << c.minYear << ".." << c.maxYear;

    for (int year = 1600; year <= 2100; ++year)
        for (int month = 1; month <= 12; ++month) {
            const int length = model::BritishLastDay(year, month);
            ASSERT_TRUE(hy::IsValidEntryDate(year, month, length, 1600, 2100)) << year << "-" << month;
            ASSERT_FALSE(hy::IsValidEntryDate(year, month, length + 1, 1600, 2100)) << year << "-" << month;
        }
}

// Two-digit years pivot on the first valid year; the century rule shifts
// every year below 1900, not only two-digit ones (deliberately).
TEST(EditDateRules, YearsBelow1900TakeACenturyFromTheFirstValidYear)
{
    struct Case { int typed, minYear, year; };
    const Case cases[] = {
        {0, 1904, 2000},    {3, 1904, 2003},    {4, 1904, 1904},       {99, 1904, 1999},
        {49, 1950, 2049},   {50, 1950, 1950},   {3, 1700, 1903},       {99, 1, 1999},
        {2003, 1904, 2003}, {1904, 1904, 1904}, {1901, 1904, 2001},    {1700, 1700, 3600},
        {1850, 1904, 3750}, {100, 1904, 2000},
        // Extreme values do not overflow.
        {INT_MIN, INT_MIN + 1900, INT_MIN + 1900}, {INT_MAX, INT_MAX, INT_MAX}, {99, INT_MAX, 2099},
    };
    for (const Case& c : cases)
        EXPECT_EQ(c.year, hy::ExpandEntryYear(c.typed, c.minYear)) << c.typed << " from " << c.minYear;
}
