#include "HyTabLayout.h"

namespace hy {

int64_t PlaceTabs(TabSpan* tabs, int count)
{
    int64_t total = 0;
    for (int i = 0; i < count; ++i)
    {
        tabs[i].left = static_cast<int32_t>(1 + total);
        total += tabs[i].width;
    }
    return total;
}

void AutoSizeTabs(TabSpan* tabs, int count, int64_t total, int32_t available)
{
    if (count <= 0 || total <= available)
        return;
    const int32_t width = available / count;
    for (int i = 0; i < count; ++i)
        tabs[i] = TabSpan{ static_cast<int32_t>(1 + static_cast<int64_t>(i) * width), width };
    // The last takes the remainder, measured from its left edge: at
    // available 0 that is -1, an arithmetic that is intended.
    tabs[count - 1].width = static_cast<int32_t>(static_cast<int64_t>(available) - tabs[count - 1].left);
}

int TabAt(const TabSpan* tabs, int count, int32_t x, int32_t y, int32_t height)
{
    if (y < 0 || y >= height)
        return -1;
    for (int i = 0; i < count; ++i)
        if (x >= tabs[i].left && static_cast<int64_t>(x) < static_cast<int64_t>(tabs[i].left) + tabs[i].width)   // none when width <= 0
            return i;
    return -1;
}

int StepTab(int active, int count, TabKey key)
{
    if (count <= 0)
        return -1;   // nothing to step to, and no division by zero
    switch (key)
    {
    case TabKey::Left: return active <= 0 || active > count ? count - 1 : active - 1;
    case TabKey::Right: return active < 0 ? 0 : (active + 1) % count;
    case TabKey::Home: return 0;
    case TabKey::End: return count - 1;
    }
    return -1;
}

}  // namespace hy
