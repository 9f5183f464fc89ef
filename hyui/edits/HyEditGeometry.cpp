#include "HyEditGeometry.h"

#include <algorithm>
#include <climits>
#include <cstdint>
#include <cstdlib>

namespace {

int ClampToInt(int64_t v)
{
    return (int)std::clamp<int64_t>(v, INT_MIN, INT_MAX);
}

}  // namespace

namespace hy {

int EditRowHeight(int storedHeight, int rowHeight)
{
    return storedHeight == -1 ? rowHeight : storedHeight;
}

int EditContentHeight(const int* heights, int count, int rowHeight)
{
    int64_t sum = 0;
    for (int i = 0; i < count; ++i)
        sum += EditRowHeight(heights[i], rowHeight);
    return ClampToInt(sum);
}

HyRect EditRowCell(const int* heights, int count, int rowHeight, int index, int width, int scrollPos)
{
    const int64_t top = 1 + int64_t(EditContentHeight(heights, std::min(index, count), rowHeight)) - scrollPos;
    const int height = index < count ? EditRowHeight(heights[index], rowHeight) : rowHeight;
    return HyRect{0, ClampToInt(top), width, ClampToInt(top + height)};
}

HyEditRowRects EditRowRects(const HyRect& cell, int labelWidth)
{
    HyEditRowRects r{cell, cell, cell};
    r.label.bottom = r.value.bottom = cell.bottom - 1;
    r.label.right = labelWidth >= 1 ? labelWidth : cell.Width() / 3;
    r.value.left = r.label.right;   // the label column's edge: its right before the label shrinks
    r.label = HyRect{r.label.left + 5, r.label.top + 2, r.label.right - 5, r.label.bottom - 2};
    r.value = HyRect{r.value.left + 2, r.value.top + 1, r.value.right - 2, r.value.bottom - 1};
    return r;
}

int EditRowAt(const int* heights, int count, int rowHeight, int width, int scrollPos, int x, int y)
{
    if (x < 0 || x >= width)
        return -1;
    int64_t top = 1 - int64_t(scrollPos);
    for (int i = 0; i < count; ++i) {
        const int64_t bottom = top + EditRowHeight(heights[i], rowHeight);
        if (y >= top && y < bottom)
            return i;   // the first row in order: a row of height 0 or less holds nothing
        top = bottom;
    }
    return -1;
}

int EditHeightForLines(int lines, int minRows, int rowHeight, int lineHeight)
{
    const int n = std::max(lines, minRows);
    return n > 1 ? ClampToInt(rowHeight + int64_t(n - 1) * lineHeight) : rowHeight;
}

int EditScrollMax(int contentHeight, int clientHeight)
{
    return std::max(contentHeight - clientHeight, 0);
}

int EditScrollTarget(int code, int pos, int thumb, int rowHeight, int clientHeight, int maxPos)
{
    int64_t to = pos;
    switch (code) {
    case kEditLineUp: to = int64_t(pos) - rowHeight; break;
    case kEditLineDown: to = int64_t(pos) + rowHeight; break;
    case kEditPageUp: to = int64_t(pos) - clientHeight; break;
    case kEditPageDown: to = int64_t(pos) + clientHeight; break;
    case kEditThumbPosition:
    case kEditThumbTrack: to = thumb; break;
    default: break;   // end-scroll and the rest keep the position
    }
    return (int)std::clamp<int64_t>(to, 0, std::max(maxPos, 0));
}

int EditEnsureVisibleDelta(const HyRect& cell, int clientTop, int clientBottom)
{
    if (cell.top >= clientTop && cell.bottom <= clientBottom)
        return 0;
    return cell.top < clientTop ? cell.top - clientTop : cell.bottom - clientBottom;
}

int EditWheelLines(int delta)
{
    const int notches = std::abs(delta / 120);
    return delta < 0 ? notches : -notches;
}

HyEditTab EditTabTarget(int count, int firstSelected, bool backward)
{
    const int direction = backward ? -1 : 1;
    if (count <= 0)
        return HyEditTab{-1, false, direction};
    if (firstSelected < 0)
        return HyEditTab{0, false, 0};   // row 0 in both directions
    if ((backward && firstSelected == 0) || (!backward && firstSelected == count - 1))
        return HyEditTab{-1, true, direction};
    return HyEditTab{firstSelected + direction, true, 0};
}

}  // namespace hy
