// The date picker's window-free arithmetic: calendar bounds, parts, hit
// codes, month stepping, the month/year menu entries and typed month search.
#include <gtest/gtest.h>

#include <tuple>
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

std::vector<int> Edges(const HyRect& r) { return {r.left, r.top, r.right, r.bottom}; }

const HyRect kBounds{0, 0, 192, 195};

TEST(PickerGeometry, CellsBoundsAndPartsAreTheirFormulas)
{
    // Cells: the calendar's share less border and three pixels.
    const HyPickerMetrics m = Metrics(600, 200, 3, 1);
    EXPECT_EQ((std::vector<int>{27, 24}), (std::vector<int>{m.dayWidth, m.dayHeight}));   // (200 - 6) / 7, / 8
    const HyPickerMetrics tiny = Metrics(5, 5, 1, 1);
    EXPECT_EQ((std::vector<int>{1, 1}), (std::vector<int>{tiny.dayWidth, tiny.dayHeight}));
    // Bounds trimmed so that whole cells divide them: 200 - 3 = 197 wide,
    // (197 - 3) % 27 = 5 more off; 197 high, 194 % 24 = 2 off.
    EXPECT_EQ((std::vector<int>{200, 0, 392, 195}), Edges(hy::PickerCalBounds(m, 1)));
    // A fixed size is centred with the offset multiplied by the column count:
    // share 200, fixed 150, offset (50 >> 1) * 3 = 75, deliberately not 25.
    const HyPickerMetrics fixed = Metrics(600, 200, 3, 1, 150, 150);
    EXPECT_EQ(75, hy::PickerCalBounds(fixed, 0).left);
    EXPECT_EQ(225, hy::PickerCalBounds(fixed, 1).left);
    // Row two of a 2 x 2 grid starts one calendar height down.
    const HyPickerMetrics grid = Metrics(400, 400, 2, 2);
    EXPECT_EQ((std::vector<int>{200, 200}), (std::vector<int>{hy::PickerCalBounds(grid, 3).left,
                                                               hy::PickerCalBounds(grid, 3).top}));

    // Parts: header, day-of-week row and six weeks stacked.
    const HyCalParts p = hy::PickerCalParts(kBounds, 24, HYDP_DEFAULT_FLAGS);
    EXPECT_EQ((std::vector<int>{1, 193 - 144, 190, 193}), Edges(p.dayGrid));
    EXPECT_EQ((std::vector<int>{1, 49 - 24, 190, 49}), Edges(p.dayOfWeek));
    EXPECT_EQ((std::vector<int>{2, 2, 190, 25}), Edges(p.header));
    EXPECT_EQ((std::vector<int>{2, 2, 25, 25}), Edges(p.prevArrow));
    EXPECT_EQ((std::vector<int>{167, 2, 190, 25}), Edges(p.nextArrow));
    EXPECT_EQ((std::vector<int>{25, 2, 96, 25}), Edges(p.monthCaption));
    EXPECT_EQ((std::vector<int>{96, 2, 167, 25}), Edges(p.yearCaption));
    // One caption takes the whole header when the flags say so.
    EXPECT_EQ(Edges(p.header),
              Edges(hy::PickerCalParts(kBounds, 24, HYDP_DEFAULT_FLAGS | HYDP_MONTH_ONLY_HEADER).monthCaption));
    EXPECT_EQ(Edges(p.header),
              Edges(hy::PickerCalParts(kBounds, 24, HYDP_DEFAULT_FLAGS | HYDP_YEAR_ONLY_HEADER).yearCaption));
}

TEST(PickerHitTest, PartsByPointFlagsAndColumn)
{
    const unsigned f = HYDP_DEFAULT_FLAGS;
    const unsigned noCaptions = f & ~(HYDP_MONTH_CAPTION | HYDP_YEAR_CAPTION);
    // Bit 64 (year-only header) turns the previous arrow and month caption off.
    const unsigned yearOnly = f | HYDP_YEAR_ONLY_HEADER;
    struct Case { unsigned flags; int x, y, index, count, part; };
    const Case cases[] = {
        {f, 10, 10, 0, 3, HYPART_PREV_ARROW},
        {f, 180, 10, 2, 3, HYPART_NEXT_ARROW},
        {f, 180, 10, 0, 3, HYPART_HEADER},   // arrows count only at the outer columns
        {f, 10, 10, 1, 3, HYPART_HEADER},
        {f, 50, 10, 1, 3, HYPART_MONTH_CAPTION},
        {f, 120, 10, 1, 3, HYPART_YEAR_CAPTION},
        {f, 50, 30, 1, 3, HYPART_DAY_OF_WEEK},
        {f, 50, 100, 1, 3, HYPART_DAY_GRID},
        {f, 191, 194, 1, 3, HYPART_NONE},
        {noCaptions, 50, 10, 0, 1, HYPART_HEADER},
        {noCaptions, 120, 10, 0, 1, HYPART_HEADER},
        {yearOnly, 10, 10, 0, 1, HYPART_YEAR_CAPTION},
        {yearOnly, 180, 10, 0, 1, HYPART_NEXT_ARROW},
    };
    for (const Case& c : cases)
        EXPECT_EQ(c.part, hy::PickerPartAt(hy::PickerCalParts(kBounds, 24, c.flags), c.x, c.y, c.flags, c.index,
                                           c.count))
            << c.flags << " " << c.x << "," << c.y << " in " << c.index;

    // Grid cells clamp to six weeks of seven days.
    const HyRect grid{1, 49, 190, 193};
    int col, row;
    EXPECT_TRUE(hy::PickerGridCell(grid, 27, 24, 1 + 27 * 3 + 5, 49 + 24 * 2 + 1, col, row));
    EXPECT_EQ((std::vector<int>{3, 2}), (std::vector<int>{col, row}));
    EXPECT_FALSE(hy::PickerGridCell(grid, 27, 24, 500, -40, col, row));
    EXPECT_EQ((std::vector<int>{6, 0}), (std::vector<int>{col, row}));
}

TEST(PickerMonths, StepsWrapYearsAndTypedSearchBeginsAfterTheGivenMonth)
{
    int m = 12, y = 2005;
    for (auto [by, month, year] : {std::tuple{1, 1, 2006}, {-13, 12, 2004}, {25, 1, 2007}}) {
        hy::IncrMonth(m, y, by);
        EXPECT_EQ((std::vector<int>{month, year}), (std::vector<int>{m, y})) << by;
    }
    const char initials[12] = {'J', 'F', 'M', 'A', 'M', 'J', 'J', 'A', 'S', 'O', 'N', 'D'};
    for (auto [letter, after, found] : {std::tuple{'J', 1, 6}, {'J', 6, 7}, {'J', 7, 1}, {'D', -1, 12}, {'Q', 0, -1}})
        EXPECT_EQ(found, hy::FindMonthByInitial(initials, letter, after)) << letter << " after " << after;
}

// Nine entries around the month or year (limits 1970 to December 2031): the
// first and the last, and for years every entry twelve months apart.
TEST(PickerMenus, NineEntriesAroundTheMonthOrYearWithinTheLimits)
{
    struct Case { const char* what; int month, year; bool years; std::pair<int, int> first, last; };
    const Case cases[] = {
        {"months start four back", 6, 2005, false, {2, 2005}, {10, 2005}},
        {"months end at the last valid one", 11, 2031, false, {4, 2031}, {12, 2031}},
        {"months before the first year are skipped", 1, 1970, false, {1, 1970}, {9, 1970}},
        {"years end at the last one", 3, 2030, true, {3, 2023}, {3, 2031}},
        {"years before the first are skipped", 5, 1971, true, {5, 1970}, {5, 1978}},
        {"years step by twelve months", 7, 2005, true, {7, 2001}, {7, 2009}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        HyMonthYear e[hy::kPickerMenuEntries];
        ASSERT_EQ(9, hy::PickerMenuEntries(c.month, c.year, c.years, 1970, 12, 2031, e));
        EXPECT_EQ(c.first, std::make_pair(e[0].month, e[0].year));
        EXPECT_EQ(c.last, std::make_pair(e[8].month, e[8].year));
        for (int i = 1; c.years && i < 9; ++i)
            EXPECT_EQ(std::make_pair(c.first.first, c.first.second + i), std::make_pair(e[i].month, e[i].year));
    }
}

} // namespace
