// The tab row without a window: placing tabs side by side, squeezing them
// into the width there is, finding the tab under a point and stepping the
// active tab by key. Platform-free; CHyTabCtrl (HyTabCtrl.h) calls these.
#pragma once

#include <cstdint>

namespace hy {

// One tab's horizontal place; all tabs share the row's height.
struct TabSpan
{
    int32_t left = 0;
    int32_t width = 0;   // may be 0 or negative in a row squeezed to nothing: such a tab is never drawn or hit
};

// Places `count` tabs of their current widths side by side from x = 1 and
// answers the sum of their widths.
int64_t PlaceTabs(TabSpan* tabs, int count);

// When `total` exceeds `available` and there are tabs: each gets
// available / count (integer division), placed from x = 1 at that step, and
// the last takes what is left up to `available` (at 0 wide: -1, intended).
void AutoSizeTabs(TabSpan* tabs, int count, int64_t total, int32_t available);

// The first tab wider than nothing containing (x, y) in a row `height` high; -1 for none.
int TabAt(const TabSpan* tabs, int count, int32_t x, int32_t y, int32_t height);

enum class TabKey
{
    Left,    // the previous tab, from the first (or none) to the last
    Right,   // (active + 1) mod count: from the last (or none) to the first
    Home,
    End,
};

// The tab a key activates from `active` (which may be -1 or past the end);
// -1 when there are no tabs.
int StepTab(int active, int count, TabKey key);

}  // namespace hy
