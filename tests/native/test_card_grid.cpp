// The card views' platform-free rules: the description markup, the grid's
// worked numbers, hit tests and resize gaps against a brute-force scan of
// every card, drag sizes, arrow moves and the Shift-click block.
#include "HyCardGrid.h"
#include "HyCardMarkup.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace {

using Kind = HyCardLineKind;

std::vector<int> Edges(const HyRect& r) { return {r.left, r.top, r.right, r.bottom}; }

// Every line of a description as "<kind letter>:<text>".
std::vector<std::string> Lines(const std::string& description)
{
    std::vector<std::string> out;
    HyCardDescriptionReader reader(description);
    HyCardLine line;
    while (reader.Next(line))
        out.push_back(std::string(1, "PTWR"[static_cast<int>(line.kind)]) + ":" + line.text);
    return out;
}

HyCardGrid Grid(int width, int height, int cardWidth, int cardHeight, int count, int scroll = 0)
{
    HyCardGrid g;
    g.clientWidth = width;
    g.clientHeight = height;
    g.cardWidth = cardWidth;
    g.cardHeight = cardHeight;
    g.count = count;
    g.scrollPos = scroll;
    hy::CardLayout(g);
    return g;
}

}  // namespace

TEST(CardMarkup, LinesAreClassifiedInTheirOrderOfTests)
{
    const struct { const char* description; std::vector<std::string> lines; } rows[] = {
        {"Title\nCompany\n<L>\nWork:\t555\n\nA long paragraph.<W>\n",
         {"P:Title", "P:Company", "R:", "T:Work:\t555", "P: ", "W:A long paragraph."}},
        {"shown\nnot shown", {"P:shown"}},   // the unterminated piece is not a line
        {"", {}},
        {"a<L>\tb<W>c\n", {"T:a<L>\tbc"}},   // a tab wins; "<W>" still goes
        {"<L> and <W>\n", {"W:<L> and "}},   // "<W>" is tested before "<L>"
        {"x<W>y<W>\n", {"W:xy<W>"}},         // only the first "<W>"
        {"Smith & Sons\n&&\n", {"P:Smith && Sons", "P:&&&&"}},
        {"\n\n", {"P: ", "P: "}},
        {"<W>\n", {"W:"}},                    // empty only after the deletion: not a blank
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.lines, Lines(row.description)) << row.description;
}

// A megabyte of description: the reader hands out the first lines without
// touching the rest.
TEST(CardMarkup, AHugeDescriptionIsReadOnlyAsFarAsAsked)
{
    std::string huge(1 << 20, 'x');
    huge.insert(0, "first\n");
    HyCardDescriptionReader reader(huge);
    HyCardLine line;
    ASSERT_TRUE(reader.Next(line));
    EXPECT_EQ("first", line.text);
    EXPECT_FALSE(reader.Next(line));   // the megabyte has no line feed
}

TEST(CardGrid, LayoutRoundsColumnsToTheNearestCardAndCountsScrollRows)
{
    const struct { int width, height, count, columns, rows, scrollMax; } rows[] = {
        {330, 340, 4, 2, 2, 0},     // 1.5 card widths: 2 columns
        {327, 340, 4, 1, 2, 2},     // 1.49: 1 column
        {100, 100, 1, 1, 1, 0},     // smaller than a card
        {660, 340, 10, 3, 2, 2},    // 10 cards, 3 columns, 2 rows: scroll maximum 2
        {660, 340, 0, 3, 2, 0},
    };
    for (const auto& r : rows) {
        const HyCardGrid g = Grid(r.width, r.height, 220, 170, r.count, 99);
        EXPECT_EQ((std::vector<int>{r.columns, r.rows, r.scrollMax, r.scrollMax}),
                  (std::vector<int>{g.columns, g.visibleRows, g.scrollMax, g.scrollPos}))
            << r.width << " x " << r.height;
    }
}

TEST(CardGrid, RectanglesOfBothViewsAreTheirWorkedNumbers)
{
    int header = 7;
    HyCardRects r = hy::CardViewRects({0, 0, 220, 170}, false, header);
    EXPECT_EQ(20, header);
    EXPECT_EQ((std::vector<std::vector<int>>{{1, 1, 216, 166}, {3, 3, 214, 23}, {3, 3, 35, 23}, {6, 6, 20, 20},
                                             {3, 23, 214, 164}}),
              (std::vector<std::vector<int>>{Edges(r.rcCard), Edges(r.rcHeader), Edges(r.rcPhoto), Edges(r.rcCheck),
                                             Edges(r.rcBody)}));
    r = hy::CardViewRects({0, 0, 220, 170}, true, header);
    EXPECT_EQ(32, header);
    EXPECT_EQ((std::vector<std::vector<int>>{{3, 3, 214, 35}, {6, 12, 20, 26}, {3, 35, 214, 164}}),
              (std::vector<std::vector<int>>{Edges(r.rcHeader), Edges(r.rcCheck), Edges(r.rcBody)}));

    // The photo view at its default 144 x 134: a 139 x 129 card, a 135 x 20
    // label strip at its bottom, a 135 x 105 body, a 95 x 95 photo at +20/+5.
    r = hy::PhotoViewRects({0, 0, 144, 134}, 20);
    EXPECT_EQ((std::vector<std::vector<int>>{{1, 1, 140, 130}, {3, 108, 138, 128}, {3, 3, 138, 108}, {23, 8, 118, 103},
                                             {6, 111, 20, 125}}),
              (std::vector<std::vector<int>>{Edges(r.rcCard), Edges(r.rcHeader), Edges(r.rcBody), Edges(r.rcPhoto),
                                             Edges(r.rcCheck)}));
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
        std::vector<HyRect> strips(800), rows(800);
        const int nw = hy::CardWidthStrips(g, g.cardWidth, strips.data(), 800);
        const int nh = hy::CardHeightStrips(g, g.cardHeight, rows.data(), 800);
        for (int probe = 0; probe < 200; ++probe) {
            const int x = pick(-5, g.clientWidth + 5), y = pick(-5, g.clientHeight + 5);
            int expected = -1;
            for (int i = 0; i < g.count; ++i) {
                int header = 0;
                if (hy::CardViewRects(hy::CardCell(g, i), false, header).rcCard.Contains(x, y))
                    expected = i;
            }
            ASSERT_EQ(expected, hy::CardAt(g, x, y)) << round << ": " << x << "," << y;
            const bool inClient = x >= 0 && y >= 0 && x < g.clientWidth && y < g.clientHeight && g.count > 0;
            bool inWidth = false, inHeight = false;
            for (int j = 0; j < nw; ++j)
                inWidth = inWidth || strips[j].Contains(x, y);
            for (int j = 0; j < nh; ++j)
                inHeight = inHeight || rows[j].Contains(x, y);
            const int gap = !inClient ? hy::kNoGap : inWidth ? hy::kWidthGap : inHeight ? hy::kHeightGap : hy::kNoGap;
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
    EXPECT_EQ((std::vector<int>{0, 30000, 220, 60000}), Edges(hy::CardCell(g, 99999)));
    EXPECT_EQ(99999, hy::CardAt(g, 100, 30001));
    EXPECT_LT(hy::CardCell(g, 0).bottom, 0);
}

TEST(CardGrid, DragSizesShareTheMoveOverTheCardsBeforeTheGrabbedBoundary)
{
    const struct { int size, start, now, edge, margin, minimum, maximum, expected; } rows[] = {
        {170, 168, 198, 800, 5, 50, 0, 200},     // the first boundary: k = 1
        {170, 508, 598, 800, 5, 50, 0, 200},     // the third: k = 3, 90 / 3
        {170, 508, 507, 800, 5, 50, 0, 170},     // -1 / 3 truncates toward zero
        {170, 508, 2000, 800, 5, 50, 0, 265},    // held 5 inside the edge: (795 - 508) / 3
        {170, 168, 0, 800, 5, 50, 0, 50},        // not below the minimum
        {170, 168, -500, 800, 5, 0, 0, 1},       // a minimum of 0 still leaves 1
        {134, 132, 300, 800, 5, 70, 134, 134},   // the photo view: not above the maximum
        {134, 132, 0, 800, 5, 70, 134, 70},
    };
    for (const auto& r : rows)
        EXPECT_EQ(r.expected, hy::CardDragSize(r.size, r.start, r.now, r.edge, r.margin, r.minimum, r.maximum))
            << r.start << " -> " << r.now;
}

TEST(CardGrid, ArrowsStayInTheGridAndDownIntoAShortRowTakesTheLastCard)
{
    const struct { int count, focus, key, expected; } rows[] = {
        {6, 4, 40, 4},   // row 1 is the last: Down goes nowhere
        {5, 1, 40, 4},
        {5, 2, 40, 4},   // past the end: the last card
        {5, 0, 37, 0}, {5, 4, 39, 4}, {5, 1, 38, 1}, {5, 4, 38, 1}, {5, 3, 39, 4},
    };
    for (const auto& r : rows)
        EXPECT_EQ(r.expected, hy::CardArrowTarget(Grid(660, 340, 220, 170, r.count), r.focus, r.key))
            << r.count << " cards, " << r.focus << ", key " << r.key;
}

// Cards 1 and 6 of a 3-column grid span rows 0 to 2 and columns 0 to 1:
// the block holds 0, 1, 3, 4, 6 and 7, not the index range 1 to 6.
TEST(CardGrid, ShiftClickSelectsTheBlockOfRowsAndColumns)
{
    const int selected[] = {1, 6};
    const hy::HyCardBlock block = hy::CardBlock(selected, 2, 3);
    std::vector<int> in;
    for (int i = 0; i < 9; ++i)
        if (block.Holds(i, 3))
            in.push_back(i);
    EXPECT_EQ((std::vector<int>{0, 1, 3, 4, 6, 7}), in);
}
