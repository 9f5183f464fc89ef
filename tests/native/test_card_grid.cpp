// The card views' platform-free rules: the description markup, the grid's
// worked numbers, hit tests and resize gaps against a brute-force scan of
// every card, drag sizes, arrow moves and the Shift-click block.
#include "HyCardGrid.h"
#include "HyCardMarkup.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace {

using Edges = std::vector<int>;
Edges Of(const HyRect& r) { return {r.left, r.top, r.right, r.bottom}; }

HyCardGrid Grid(int width, int height, int cardWidth, int cardHeight, int count, int scroll = 0)
{
    HyCardGrid g{width, height, cardWidth, cardHeight, count, 1, 1, 0, scroll};
    hy::CardLayout(g);
    return g;
}

}  // namespace

TEST(CardMarkup, LinesAreClassifiedInTheirOrderOfTests)
{
    const struct { const char* description; std::vector<std::string> lines; } rows[] = {
        {"Title\n<L>\nWork:\t555\n\nLong.<W>\n", {"P:Title", "R:", "T:Work:\t555", "P: ", "W:Long."}},
        {"shown\nnot shown", {"P:shown"}},   // the unterminated piece is not a line
        {"a<L>\tb<W>c\n", {"T:a<L>\tbc"}},   // a tab wins; "<W>" still goes
        {"<L> and <W>\n", {"W:<L> and "}},   // "<W>" is tested before "<L>"
        {"x<W>y<W>\n", {"W:xy<W>"}},         // only the first "<W>"
        {"Smith & Sons\n&&\n", {"P:Smith && Sons", "P:&&&&"}},
        {"<W>\n", {"W:"}},                    // empty only after the deletion: not a blank
    };
    for (const auto& row : rows) {
        std::vector<std::string> lines;
        HyCardDescriptionReader reader(row.description);
        for (HyCardLine line; reader.Next(line);)
            lines.push_back(std::string(1, "PTWR"[static_cast<int>(line.kind)]) + ":" + line.text);
        EXPECT_EQ(row.lines, lines) << row.description;
    }
}

TEST(CardGrid, LayoutRoundsColumnsToTheNearestCardAndCountsScrollRows)
{
    const struct { int width, height, count, columns, rows, scrollMax; } rows[] = {
        {330, 340, 4, 2, 2, 0}, {327, 340, 4, 1, 2, 2},   // 1.5 card widths: 2 columns; 1.49: 1
        {100, 100, 1, 1, 1, 0}, {660, 340, 10, 3, 2, 2}, {660, 340, 0, 3, 2, 0}};
    for (const auto& r : rows) {
        const HyCardGrid g = Grid(r.width, r.height, 220, 170, r.count, 99);
        EXPECT_EQ((Edges{r.columns, r.rows, r.scrollMax, r.scrollMax}),
                  (Edges{g.columns, g.visibleRows, g.scrollMax, g.scrollPos}))
            << r.width << " x " << r.height;
    }
}

TEST(CardGrid, RectanglesOfBothViewsAreTheirWorkedNumbers)
{
    int header = 7, photoHeader = 7;   // the card view overwrites either
    const HyCardRects c = hy::CardViewRects({0, 0, 220, 170}, false, header);
    const HyCardRects p = hy::CardViewRects({0, 0, 220, 170}, true, photoHeader);
    // The photo view at its default 144 x 134: a 139 x 129 card, a 135 x 20
    // label strip at its bottom, a 135 x 105 body, a 95 x 95 photo at +20/+5.
    const HyCardRects v = hy::PhotoViewRects({0, 0, 144, 134}, 20);
    EXPECT_EQ((std::vector<Edges>{{1, 1, 216, 166}, {3, 3, 214, 23}, {3, 3, 35, 23}, {6, 6, 20, 20},
                                  {3, 23, 214, 164}, {3, 3, 214, 35}, {6, 12, 20, 26}, {3, 35, 214, 164},
                                  {1, 1, 140, 130}, {3, 108, 138, 128}, {3, 3, 138, 108}, {23, 8, 118, 103},
                                  {6, 111, 20, 125}, {20, 32}}),
              (std::vector<Edges>{Of(c.rcCard), Of(c.rcHeader), Of(c.rcPhoto), Of(c.rcCheck), Of(c.rcBody),
                                  Of(p.rcHeader), Of(p.rcCheck), Of(p.rcBody), Of(v.rcCard), Of(v.rcHeader),
                                  Of(v.rcBody), Of(v.rcPhoto), Of(v.rcCheck), {header, photoHeader}}));
    // A header of 1 centres the check box by an arithmetic shift: (1 - 14) >> 1 is -7.
    EXPECT_EQ(127 - 7, hy::PhotoViewRects({0, 0, 144, 134}, 1).rcCheck.top);
}

// Random sizes, counts and scroll positions: the card under a point is the
// one card whose rcCard holds it, found by scanning them all; a gap is a
// point inside one of the strips the drag feedback draws.
TEST(CardGrid, HitTestsAndGapsAgreeWithAScanOfEveryCard)
{
    std::mt19937 random(20261123);
    auto pick = [&](int low, int high) { return std::uniform_int_distribution<int>(low, high)(random); };
    for (int round = 0; round < 300; ++round) {
        HyCardGrid g = Grid(pick(0, 700), pick(0, 500), pick(1, 260), pick(1, 220), pick(0, 60), pick(0, 30));
        std::vector<HyRect> columns(800), rows(800);
        columns.resize(hy::CardWidthStrips(g, g.cardWidth, columns.data(), 800));
        rows.resize(hy::CardHeightStrips(g, g.cardHeight, rows.data(), 800));
        for (int probe = 0; probe < 200; ++probe) {
            const int x = pick(-5, g.clientWidth + 5), y = pick(-5, g.clientHeight + 5);
            const auto in = [&](const std::vector<HyRect>& s) {
                return std::any_of(s.begin(), s.end(), [&](const HyRect& r) { return r.Contains(x, y); });
            };
            int expected = -1, header = 0;
            for (int i = 0; i < g.count; ++i)
                if (hy::CardViewRects(hy::CardCell(g, i), false, header).rcCard.Contains(x, y))
                    expected = i;
            ASSERT_EQ(expected, hy::CardAt(g, x, y)) << round << ": " << x << "," << y;
            const bool inClient = x >= 0 && y >= 0 && x < g.clientWidth && y < g.clientHeight && g.count > 0;
            const int gap = !inClient ? hy::kNoGap : in(columns) ? hy::kWidthGap
                                                    : in(rows)    ? hy::kHeightGap : hy::kNoGap;
            ASSERT_EQ(gap, hy::CardGapAt(g, false, x, y)) << round << ": " << x << "," << y;
            ASSERT_EQ(hy::kNoGap, hy::CardGapAt(g, true, x, y));
        }
    }
}

// 100,000 cards in one column, 30,000 pixels tall, scrolled to the end: a
// row number times the card height alone would overflow an int.
TEST(CardGrid, CellsOfTallCardsFarDownDoNotOverflow)
{
    const HyCardGrid g = Grid(300, 60000, 220, 30000, 100000, 99998);
    EXPECT_EQ((Edges{0, 30000, 220, 60000}), Of(hy::CardCell(g, 99999)));
    EXPECT_EQ(99999, hy::CardAt(g, 100, 30001));
    EXPECT_LT(hy::CardCell(g, 0).bottom, 0);
}

TEST(CardGrid, DragSizesShareTheMoveOverTheCardsBeforeTheGrabbedBoundary)
{
    const struct { int size, start, now, minimum, maximum, expected; } rows[] = {
        {170, 168, 198, 50, 0, 200},     // the first boundary: k = 1
        {170, 508, 598, 50, 0, 200},     // the third: k = 3, 90 / 3
        {170, 508, 507, 50, 0, 170},     // -1 / 3 truncates toward zero
        {170, 508, 2000, 50, 0, 265},    // held 5 inside the edge: (795 - 508) / 3
        {170, 168, 0, 50, 0, 50},        // not below the minimum
        {170, 168, -500, 0, 0, 1},       // a minimum of 0 still leaves 1
        {134, 132, 300, 70, 134, 134},   // the photo view: not above the maximum
    };
    for (const auto& r : rows)
        EXPECT_EQ(r.expected, hy::CardDragSize(r.size, r.start, r.now, 800, 5, r.minimum, r.maximum)) << r.now;
}

TEST(CardGrid, ArrowsStayInTheGridAndDownIntoAShortRowTakesTheLastCard)
{
    const struct { int count, focus, key, expected; } rows[] = {
        {6, 4, 40, 4},                  // row 1 is the last: Down goes nowhere
        {5, 1, 40, 4}, {5, 2, 40, 4},   // past the end: the last card
        {5, 0, 37, 0}, {5, 4, 39, 4}, {5, 1, 38, 1}, {5, 4, 38, 1}, {5, 3, 39, 4}};
    for (const auto& r : rows)
        EXPECT_EQ(r.expected, hy::CardArrowTarget(Grid(660, 340, 220, 170, r.count), r.focus, r.key))
            << r.count << " cards, " << r.focus << ", key " << r.key;
}

// Cards 1 and 6 of a 3-column grid span rows 0 to 2 and columns 0 to 1:
// the block holds 0, 1, 3, 4, 6 and 7, not the index range 1 to 6.
TEST(CardGrid, ShiftClickSelectsTheBlockOfRowsAndColumns)
{
    const int selected[] = {1, 6};
    const hy::HyCardBlock b = hy::CardBlock(selected, 2, 3);
    EXPECT_EQ((Edges{0, 2, 0, 1}), (Edges{b.firstRow, b.lastRow, b.firstColumn, b.lastColumn}));
    EXPECT_TRUE(b.Holds(7, 3) && !b.Holds(2, 3) && !b.Holds(8, 3));
}
