// The date picker's window-free arithmetic: calendar bounds, parts, hit
// codes, month stepping, the month/year menu entries and typed month search.
#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "HyPickerLayout.h"

namespace {

HyPickerMetrics Metrics(int width, int height, int cols, int rows, int absW = -1, int absH = -1)
{
    HyPickerMetrics m{width, height, cols, rows, absW, absH, 3, 0, 0};
    hy::PickerCellSize(m);
    return m;
}

void ExpectRect(const HyRect& r, int l, int t, int rr, int b)
{
    EXPECT_EQ(r.left, l);
    EXPECT_EQ(r.top, t);
    EXPECT_EQ(r.right, rr);
    EXPECT_EQ(r.bottom, b);
}

TEST(PickerGeometry, CellsComeFromTheCalendarShareLessBorderAndThreePixels)
{
    const HyPickerMetrics m = Metrics(600, 200, 3, 1);
    EXPECT_EQ(m.dayWidth, 27);   // (200 - 6) / 7
    EXPECT_EQ(m.dayHeight, 24);  // (200 - 6) / 8
    const HyPickerMetrics tiny = Metrics(5, 5, 1, 1);
    EXPECT_EQ(tiny.dayWidth, 1);
    EXPECT_EQ(tiny.dayHeight, 1);
}

TEST(PickerGeometry, BoundsAreTrimmedSoThatWholeCellsDivideThem)
{
    const HyPickerMetrics m = Metrics(600, 200, 3, 1);
    // 200 - 3 = 197 wide; (197 - 3) % 27 = 5 more off; 197 high, (194 % 24) = 2 off.
    ExpectRect(hy::PickerCalBounds(m, 1), 200, 0, 392, 195);
    const HyRect r = hy::PickerCalBounds(m, 2);
    EXPECT_EQ((r.Width() - 3) % m.dayWidth, 0);
    EXPECT_EQ((r.Height() - 3) % m.dayHeight, 0);
}

TEST(PickerGeometry, FixedSizeIsCentredWithTheOffsetMultipliedByTheColumnCount)
{
    // Share 200, fixed 150: the offset is (50 >> 1) * 3 = 75, deliberately not 25.
    const HyPickerMetrics m = Metrics(600, 200, 3, 1, 150, 150);
    EXPECT_EQ(hy::PickerCalBounds(m, 0).left, 75);
    EXPECT_EQ(hy::PickerCalBounds(m, 1).left, 225);
    // Row two of a 2 x 2 grid starts one calendar height down.
    const HyPickerMetrics grid = Metrics(400, 400, 2, 2);
    EXPECT_EQ(hy::PickerCalBounds(grid, 3).top, 200);
    EXPECT_EQ(hy::PickerCalBounds(grid, 3).left, 200);
}

TEST(PickerGeometry, PartsStackHeaderDayRowAndSixWeeks)
{
    const HyRect bounds{0, 0, 192, 195};
    const HyCalParts p = hy::PickerCalParts(bounds, 24, HYDP_DEFAULT_FLAGS);
    ExpectRect(p.dayGrid, 1, 193 - 144, 190, 193);
    ExpectRect(p.dayOfWeek, 1, 49 - 24, 190, 49);
    ExpectRect(p.header, 2, 2, 190, 25);
    ExpectRect(p.prevArrow, 2, 2, 25, 25);
    ExpectRect(p.nextArrow, 167, 2, 190, 25);
    ExpectRect(p.monthCaption, 25, 2, 96, 25);
    ExpectRect(p.yearCaption, 96, 2, 167, 25);
}

TEST(PickerGeometry, HeaderFlagsGiveOneCaptionTheWholeHeader)
{
    const HyRect bounds{0, 0, 192, 195};
    const HyCalParts monthOnly = hy::PickerCalParts(bounds, 24, HYDP_DEFAULT_FLAGS | HYDP_MONTH_ONLY_HEADER);
    ExpectRect(monthOnly.monthCaption, 2, 2, 190, 25);
    const HyCalParts yearOnly = hy::PickerCalParts(bounds, 24, HYDP_DEFAULT_FLAGS | HYDP_YEAR_ONLY_HEADER);
    ExpectRect(yearOnly.yearCaption, 2, 2, 190, 25);
}

TEST(PickerHitTest, ArrowsCountOnlyAtTheOuterColumns)
{
    const HyCalParts p = hy::PickerCalParts(HyRect{0, 0, 192, 195}, 24, HYDP_DEFAULT_FLAGS);
    const unsigned f = HYDP_DEFAULT_FLAGS;
    EXPECT_EQ(hy::PickerPartAt(p, 10, 10, f, 0, 3), HYPART_PREV_ARROW);
    EXPECT_EQ(hy::PickerPartAt(p, 180, 10, f, 2, 3), HYPART_NEXT_ARROW);
    // The next arrow of a calendar that is not in the last column is only header.
    EXPECT_EQ(hy::PickerPartAt(p, 180, 10, f, 0, 3), HYPART_HEADER);
    EXPECT_EQ(hy::PickerPartAt(p, 10, 10, f, 1, 3), HYPART_HEADER);
    EXPECT_EQ(hy::PickerPartAt(p, 50, 10, f, 1, 3), HYPART_MONTH_CAPTION);
    EXPECT_EQ(hy::PickerPartAt(p, 120, 10, f, 1, 3), HYPART_YEAR_CAPTION);
    EXPECT_EQ(hy::PickerPartAt(p, 50, 30, f, 1, 3), HYPART_DAY_OF_WEEK);
    EXPECT_EQ(hy::PickerPartAt(p, 50, 100, f, 1, 3), HYPART_DAY_GRID);
    EXPECT_EQ(hy::PickerPartAt(p, 191, 194, f, 1, 3), HYPART_NONE);
}

TEST(PickerHitTest, FlagBitsSwitchCaptionsAndArrowsOff)
{
    const HyCalParts p = hy::PickerCalParts(HyRect{0, 0, 192, 195}, 24, HYDP_DEFAULT_FLAGS);
    const unsigned noCaptions = HYDP_DEFAULT_FLAGS & ~(HYDP_MONTH_CAPTION | HYDP_YEAR_CAPTION);
    EXPECT_EQ(hy::PickerPartAt(p, 50, 10, noCaptions, 0, 1), HYPART_HEADER);
    EXPECT_EQ(hy::PickerPartAt(p, 120, 10, noCaptions, 0, 1), HYPART_HEADER);
    // Bit 64 (year-only header) turns the previous arrow and month caption off.
    const unsigned yearOnly = HYDP_DEFAULT_FLAGS | HYDP_YEAR_ONLY_HEADER;
    const HyCalParts q = hy::PickerCalParts(HyRect{0, 0, 192, 195}, 24, yearOnly);
    EXPECT_EQ(hy::PickerPartAt(q, 10, 10, yearOnly, 0, 1), HYPART_YEAR_CAPTION);
    EXPECT_EQ(hy::PickerPartAt(q, 180, 10, yearOnly, 0, 1), HYPART_NEXT_ARROW);
}

TEST(PickerHitTest, GridCellsClampToSixWeeksOfSevenDays)
{
    const HyRect grid{1, 49, 190, 193};
    int col, row;
    EXPECT_TRUE(hy::PickerGridCell(grid, 27, 24, 1 + 27 * 3 + 5, 49 + 24 * 2 + 1, col, row));
    EXPECT_EQ(col, 3);
    EXPECT_EQ(row, 2);
    EXPECT_FALSE(hy::PickerGridCell(grid, 27, 24, 500, -40, col, row));
    EXPECT_EQ(col, 6);
    EXPECT_EQ(row, 0);
}

TEST(PickerMonths, IncrMonthWrapsYears)
{
    int m = 12, y = 2005;
    hy::IncrMonth(m, y, 1);
    EXPECT_EQ(m, 1);
    EXPECT_EQ(y, 2006);
    hy::IncrMonth(m, y, -13);
    EXPECT_EQ(m, 12);
    EXPECT_EQ(y, 2004);
    hy::IncrMonth(m, y, 25);
    EXPECT_EQ(m, 1);
    EXPECT_EQ(y, 2007);
}

std::vector<std::pair<int, int>> Menu(int month, int year, bool yearMenu, int minYear, int maxMonth, int maxYear)
{
    HyMonthYear e[hy::kPickerMenuEntries];
    const int n = hy::PickerMenuEntries(month, year, yearMenu, minYear, maxMonth, maxYear, e);
    std::vector<std::pair<int, int>> out;
    for (int i = 0; i < n; ++i)
        out.emplace_back(e[i].month, e[i].year);
    return out;
}

TEST(PickerMenus, MonthMenuStartsFourMonthsBack)
{
    const auto m = Menu(6, 2005, false, 1970, 12, 2031);
    ASSERT_EQ(m.size(), 9u);
    EXPECT_EQ(m.front(), std::make_pair(2, 2005));
    EXPECT_EQ(m.back(), std::make_pair(10, 2005));
}

TEST(PickerMenus, EntriesEndAtTheLastValidMonth)
{
    const auto m = Menu(11, 2031, false, 1970, 12, 2031);
    ASSERT_EQ(m.size(), 9u);
    EXPECT_EQ(m.front(), std::make_pair(4, 2031));
    EXPECT_EQ(m.back(), std::make_pair(12, 2031));
    const auto y = Menu(3, 2030, true, 1970, 12, 2031);
    ASSERT_EQ(y.size(), 9u);
    EXPECT_EQ(y.front(), std::make_pair(3, 2023));
    EXPECT_EQ(y.back(), std::make_pair(3, 2031));
}

TEST(PickerMenus, MonthsBeforeTheFirstYearAreSkippedAndTheListRunsOn)
{
    const auto m = Menu(1, 1970, false, 1970, 12, 2031);
    ASSERT_EQ(m.size(), 9u);
    EXPECT_EQ(m.front(), std::make_pair(1, 1970));
    EXPECT_EQ(m.back(), std::make_pair(9, 1970));
    const auto y = Menu(5, 1971, true, 1970, 12, 2031);
    ASSERT_EQ(y.size(), 9u);
    EXPECT_EQ(y.front(), std::make_pair(5, 1970));
    EXPECT_EQ(y.back(), std::make_pair(5, 1978));
}

TEST(PickerMenus, YearMenuStepsByTwelveMonths)
{
    const auto y = Menu(7, 2005, true, 1970, 12, 2031);
    ASSERT_EQ(y.size(), 9u);
    for (size_t i = 0; i < y.size(); ++i)
        EXPECT_EQ(y[i], std::make_pair(7, 2001 + (int)i));
}

TEST(PickerTypedSearch, SearchBeginsAfterTheGivenMonthAndWraps)
{
    const char initials[12] = {'J', 'F', 'M', 'A', 'M', 'J', 'J', 'A', 'S', 'O', 'N', 'D'};
    EXPECT_EQ(hy::FindMonthByInitial(initials, 'J', 1), 6);
    EXPECT_EQ(hy::FindMonthByInitial(initials, 'J', 6), 7);
    EXPECT_EQ(hy::FindMonthByInitial(initials, 'J', 7), 1);
    EXPECT_EQ(hy::FindMonthByInitial(initials, 'D', -1), 12);
    EXPECT_EQ(hy::FindMonthByInitial(initials, 'Q', 0), -1);
}

} // namespace
