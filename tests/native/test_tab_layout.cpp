// The tab row without a window: natural placement, squeezing (the worked
// case and a property over 1-64 tabs and widths 0-2000), hit tests and key
// steps with their wraps.
#include "HyTabLayout.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace {

std::string Row(const std::vector<hy::TabSpan>& tabs)
{
    std::string s;
    for (const hy::TabSpan& t : tabs)
        s += (s.empty() ? "" : " ") + std::to_string(t.left) + "+" + std::to_string(t.width);
    return s;
}

TEST(TabLayout, SqueezesEvenlyAndTheLastTakesTheRest)
{
    std::vector<hy::TabSpan> tabs(3, hy::TabSpan{ 0, 100 });
    const int64_t total = hy::PlaceTabs(tabs.data(), 3);
    EXPECT_EQ(total, 300);
    EXPECT_EQ(Row(tabs), "1+100 101+100 201+100");
    hy::AutoSizeTabs(tabs.data(), 3, total, 200);
    EXPECT_EQ(Row(tabs), "1+66 67+66 133+67");   // the last: 200 - 133
    hy::AutoSizeTabs(tabs.data(), 3, total, 0);   // nothing left: the last is -1 wide, never hit
    EXPECT_EQ(Row(tabs), "1+0 1+0 1+-1");
    EXPECT_EQ(hy::TabAt(tabs.data(), 3, 1, 5, 19), -1);

    std::mt19937 random(7);
    for (int round = 0; round < 2000; ++round)
    {
        const int count = 1 + random() % 64;
        const int32_t available = random() % 2001;
        std::vector<hy::TabSpan> row(count);
        for (hy::TabSpan& t : row)
            t.width = random() % 300;
        const int64_t sum = hy::PlaceTabs(row.data(), count);
        const std::vector<hy::TabSpan> natural = row;
        hy::AutoSizeTabs(row.data(), count, sum, available);
        for (int i = 0; i < count; ++i)
        {
            const hy::TabSpan& t = row[i];
            if (sum <= available)   // room enough: untouched, side by side from 1
                ASSERT_TRUE(t.left == natural[i].left && t.width == natural[i].width);
            else if (i + 1 < count)
                ASSERT_TRUE(t.left == 1 + i * (available / count) && t.width == available / count);
            else
                ASSERT_EQ(t.left + t.width, available);   // the row ends at the edge
            const int32_t x = t.left + (t.width > 0 ? t.width / 2 : 0);
            const int hit = hy::TabAt(row.data(), count, x, 3, 19);
            ASSERT_EQ(hit, t.width > 0 ? i : hit) << "a tab with room is found at its middle";
            ASSERT_TRUE(hit < 0 || row[hit].width > 0);
        }
    }
}

TEST(TabLayout, KeysStepWithBothWraps)
{
    // active, count, key -> tab
    const struct { int active, count; hy::TabKey key; int tab; } cases[] = {
        { 0, 3, hy::TabKey::Left, 2 }, { 2, 3, hy::TabKey::Left, 1 }, { -1, 3, hy::TabKey::Left, 2 },
        { 2, 3, hy::TabKey::Right, 0 }, { 0, 3, hy::TabKey::Right, 1 }, { -1, 3, hy::TabKey::Right, 0 },
        { 5, 3, hy::TabKey::Right, 0 }, { 5, 3, hy::TabKey::Left, 2 },   // past the end after a delete
        { 1, 3, hy::TabKey::Home, 0 }, { 1, 3, hy::TabKey::End, 2 },
        { -1, 0, hy::TabKey::Right, -1 }, { 0, 0, hy::TabKey::Left, -1 }, { -1, 0, hy::TabKey::End, -1 },
    };
    for (const auto& c : cases)
        EXPECT_EQ(hy::StepTab(c.active, c.count, c.key), c.tab) << c.active << " of " << c.count;
    const hy::TabSpan row[2] = { { 1, 50 }, { 51, 40 } };
    EXPECT_EQ(hy::TabAt(row, 2, 50, 0, 19) * 10 + hy::TabAt(row, 2, 51, 18, 19), 1);   // edges: left in, right out
    EXPECT_EQ(hy::TabAt(row, 2, 91, 5, 19) + hy::TabAt(row, 2, 10, 19, 19), -2);       // past the row
}

}  // namespace
