// The edit list's platform-free rules: the worked numbers of cells, row
// rectangles, heights, scrolling, the wheel and the Tab key, and a property
// over random heights: cells tile from y = 1 and the hit test agrees with
// them at every y.
#include "HyEditGeometry.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace {

using Edges = std::vector<int>;
Edges Of(const HyRect& r) { return {r.left, r.top, r.right, r.bottom}; }

}  // namespace

TEST(EditGeometry, CellsStackFromOneAndCountCollapsedAndDefaultRows)
{
    const int heights[] = {-1, 40, 0, -1};   // -1: the standard 18; a collapsed row keeps its height
    const struct { int index, scroll; Edges cell; } rows[] = {
        {0, 0, {0, 1, 300, 19}},   {1, 0, {0, 19, 300, 59}}, {2, 0, {0, 59, 300, 59}},
        {3, 0, {0, 59, 300, 77}},  {4, 0, {0, 77, 300, 95}},   // after the last row
        {1, 30, {0, -11, 300, 29}},
    };
    for (const auto& r : rows)
        EXPECT_EQ(r.cell, Of(hy::EditRowCell(heights, 4, 18, r.index, 300, r.scroll))) << r.index;
    EXPECT_EQ(76, hy::EditContentHeight(heights, 4, 18));
}

TEST(EditGeometry, LabelAndValueRectanglesOfACell)
{
    const struct { int labelWidth; Edges label, value; } rows[] = {
        {80, {5, 12, 75, 26}, {82, 11, 298, 27}},
        {0, {5, 12, 95, 26}, {102, 11, 298, 27}},   // below 1: a third of the width
    };
    for (const auto& r : rows) {
        const HyEditRowRects rects = hy::EditRowRects({0, 10, 300, 29}, r.labelWidth);
        EXPECT_EQ((std::vector<Edges>{{0, 10, 300, 29}, r.label, r.value}),
                  (std::vector<Edges>{Of(rects.cell), Of(rects.label), Of(rects.value)}));
    }
}

TEST(EditGeometry, HeightsForLinesNeverBelowTheMinimumRows)
{
    const struct { int lines, minRows, expected; } rows[] = {
        {1, 1, 18}, {3, 1, 18 + 2 * 13}, {1, 4, 18 + 3 * 13}, {0, 1, 18}, {2, 2, 18 + 13},
    };
    for (const auto& r : rows)
        EXPECT_EQ(r.expected, hy::EditHeightForLines(r.lines, r.minRows, 18, 13)) << r.lines << "/" << r.minRows;
}

TEST(EditGeometry, ScrollCodesClampAndTheSystemStopsAtContentMinusClient)
{
    EXPECT_EQ((Edges{160, 0}), (Edges{hy::EditScrollMax(400, 240), hy::EditScrollMax(100, 240)}));
    const struct { int code, pos, thumb, expected; } rows[] = {
        {hy::kEditLineDown, 0, 0, 18},     {hy::kEditLineUp, 10, 0, 0},      {hy::kEditPageDown, 0, 0, 160},
        {hy::kEditPageUp, 150, 0, 0},      {hy::kEditThumbTrack, 0, 99, 99}, {hy::kEditThumbPosition, 0, 999, 160},
        {hy::kEditEndScroll, 50, 99, 50},  {7, 50, 99, 50},                  // SB_BOTTOM and the rest keep it
    };
    for (const auto& r : rows)
        EXPECT_EQ(r.expected, hy::EditScrollTarget(r.code, r.pos, r.thumb, 18, 240, 160)) << "code " << r.code;
}

TEST(EditGeometry, EnsureVisibleWheelAndTab)
{
    EXPECT_EQ((Edges{0, -9, 12, 0}), (Edges{hy::EditEnsureVisibleDelta({0, 1, 9, 19}, 0, 100),
                                            hy::EditEnsureVisibleDelta({0, -9, 9, 9}, 0, 100),
                                            hy::EditEnsureVisibleDelta({0, 90, 9, 112}, 0, 100),
                                            hy::EditEnsureVisibleDelta({0, 0, 9, 100}, 0, 100)}));
    EXPECT_EQ((Edges{2, 0, -1, 0}), (Edges{hy::EditWheelLines(-240), hy::EditWheelLines(119),
                                           hy::EditWheelLines(120), hy::EditWheelLines(-119)}));
    const struct { int count, selected; bool backward; int row; bool deselect; int sibling; } rows[] = {
        {0, -1, false, -1, false, 1}, {3, -1, true, 0, false, 0},   // no rows: a sibling; none open: row 0
        {3, 0, true, -1, true, -1},   {3, 2, false, -1, true, 1},  {3, 1, false, 2, true, 0},
    };
    for (const auto& r : rows) {
        const hy::HyEditTab t = hy::EditTabTarget(r.count, r.selected, r.backward);
        EXPECT_EQ((Edges{r.row, r.deselect, r.sibling}), (Edges{t.row, t.deselectAll, t.sibling}))
            << r.count << " rows, " << r.selected << (r.backward ? " back" : " forward");
    }
}

// Random heights (some collapsed to 0, some default): every cell starts
// where the one before it ends, the first at 1; the hit test answers, at
// every y, the first row whose cell holds it.
TEST(EditGeometry, CellsTileAndTheHitTestAgreesAtEveryY)
{
    std::mt19937 random(20261123);
    auto pick = [&](int low, int high) { return std::uniform_int_distribution<int>(low, high)(random); };
    for (int round = 0; round < 200; ++round) {
        std::vector<int> heights(pick(0, 40));
        for (int& h : heights)
            h = pick(0, 4) == 0 ? -1 : pick(0, 90);
        const int n = (int)heights.size(), scroll = pick(0, 300), rowHeight = pick(1, 30);
        int expectedTop = 1 - scroll;
        for (int i = 0; i <= n; ++i) {
            const HyRect cell = hy::EditRowCell(heights.data(), n, rowHeight, i, 200, scroll);
            ASSERT_EQ(expectedTop, cell.top) << round << ", row " << i;
            expectedTop = cell.bottom;
        }
        for (int y = -scroll - 2; y < expectedTop + 2; ++y) {
            int expected = -1;
            for (int i = n - 1; i >= 0; --i)
                if (hy::EditRowCell(heights.data(), n, rowHeight, i, 200, scroll).Contains(10, y))
                    expected = i;
            ASSERT_EQ(expected, hy::EditRowAt(heights.data(), n, rowHeight, 200, scroll, 10, y))
                << round << ", y " << y;
        }
        ASSERT_EQ(-1, hy::EditRowAt(heights.data(), n, rowHeight, 200, scroll, 200, 1 - scroll));
    }
}
