#include "HyCardGrid.h"

#include <algorithm>
#include <climits>
#include <cstdint>

namespace {

// Far outside any client area, and far enough from the int limits that a
// cell's other edge cannot overflow.
constexpr int64_t kFar = int64_t(1) << 30;

int ClampFar(int64_t v) { return static_cast<int>(std::clamp(v, -kFar, kFar)); }

HyRect Shrunk(const HyRect& r, int left, int top, int right, int bottom)
{
    return {r.left + left, r.top + top, r.right - right, r.bottom - bottom};
}

// A 14 x 14 check box 3 pixels in from the header's left, centred in its
// height; the difference is halved by an arithmetic shift.
HyRect CheckBox(const HyRect& header, int headerHeight)
{
    const int top = header.top + ((headerHeight - 14) >> 1);
    return {header.left + 3, top, header.left + 3 + 14, top + 14};
}

}  // namespace

namespace hy {

void CardLayout(HyCardGrid& g)
{
    const int64_t width = std::max(g.clientWidth, 0), height = std::max(g.clientHeight, 0);
    const int64_t cw = std::max(g.cardWidth, 1), ch = std::max(g.cardHeight, 1);
    // Rounded to the nearest whole card: half a card or more makes a column.
    g.columns = static_cast<int>(std::max<int64_t>((width + cw / 2) / cw, 1));
    g.visibleRows = static_cast<int>(std::max<int64_t>(height / ch, 1));
    const int64_t rows = (int64_t(std::max(g.count, 0)) + g.columns - 1) / g.columns;
    g.scrollMax = static_cast<int>(std::max<int64_t>(rows - g.visibleRows, 0));
    g.scrollPos = std::clamp(g.scrollPos, 0, g.scrollMax);   // as the scroll bar clamps it
}

HyRect CardCell(const HyCardGrid& g, int index)
{
    const int64_t column = index % g.columns, row = index / g.columns;
    const int64_t left = column * g.cardWidth;
    const int64_t top = (row - g.scrollPos) * int64_t(g.cardHeight);   // one product: no overflow
    return {ClampFar(left), ClampFar(top), ClampFar(left + g.cardWidth), ClampFar(top + g.cardHeight)};
}

HyCardRects CardViewRects(const HyRect& cell, bool photo, int& headerHeight)
{
    headerHeight = photo ? 32 : 20;   // overwrites the host's value on every call, deliberately
    HyCardRects r;
    r.rcCell = cell;
    r.rcCard = Shrunk(cell, 1, 1, 4, 4);   // room for the shadow and the gap
    r.rcHeader = Shrunk(r.rcCard, 2, 2, 2, 2);
    r.rcHeader.bottom = r.rcHeader.top + headerHeight;
    r.rcPhoto = r.rcHeader;
    r.rcPhoto.right = r.rcPhoto.left + 32;
    r.rcCheck = CheckBox(r.rcHeader, headerHeight);
    r.rcBody = Shrunk(r.rcCard, 2, 2, 2, 2);
    r.rcBody.top = r.rcHeader.bottom;
    return r;
}

HyCardRects PhotoViewRects(const HyRect& cell, int headerHeight)
{
    HyCardRects r;
    r.rcCell = cell;
    r.rcCard = Shrunk(cell, 1, 1, 4, 4);
    r.rcHeader = Shrunk(r.rcCard, 2, 2, 2, 2);
    r.rcHeader.top = r.rcHeader.bottom - headerHeight;   // the label strip at the bottom
    r.rcBody = Shrunk(r.rcCard, 2, 2, 2, 2);
    r.rcBody.bottom = r.rcHeader.top;
    const HyRect room = Shrunk(r.rcBody, 16, 5, 16, 5);
    const int side = std::min({room.Width(), room.Height(), 96});
    const int left = r.rcBody.left + (r.rcBody.Width() - side) / 2;
    const int top = r.rcBody.top + (r.rcBody.Height() - side) / 2;
    r.rcPhoto = {left, top, left + side, top + side};
    r.rcCheck = CheckBox(r.rcHeader, headerHeight);
    return r;
}

int CardAt(const HyCardGrid& g, int x, int y)
{
    if (x < 0 || g.cardWidth < 1 || g.cardHeight < 1)
        return -1;
    const int column = x / g.cardWidth;
    if (column >= g.columns)
        return -1;   // right of the last column: empty space, not the next row
    const int64_t fromTop = y + int64_t(g.scrollPos) * g.cardHeight;
    if (fromTop < 0)
        return -1;
    const int64_t row = fromTop / g.cardHeight;
    const int64_t index = row * g.columns + column;
    if (index >= g.count)
        return -1;
    // On a card means inside rcCard: the cell less 1 at left and top, 4 at right and bottom.
    const int64_t inX = x - int64_t(column) * g.cardWidth, inY = fromTop - row * g.cardHeight;
    if (inX < 1 || inX >= g.cardWidth - 4 || inY < 1 || inY >= g.cardHeight - 4)
        return -1;
    return static_cast<int>(index);
}

namespace {

// Strips every `size` pixels along one axis: strip j spans from the card
// edge of cell j (size - 4 in) to the next cell's card edge (1 in).
int Strips(int client, int across, int size, bool vertical, HyRect* strips, int capacity)
{
    size = std::max(size, 1);
    const int n = static_cast<int>((int64_t(std::max(client, 0)) + size - 1) / size);
    for (int j = 0; j < n && j < capacity; ++j) {
        const int at = static_cast<int>(std::min<int64_t>(int64_t(j) * size + size, kFar));
        strips[j] = vertical ? HyRect{at - 4, 0, at + 1, across} : HyRect{0, at - 4, across, at + 1};
    }
    return n;
}

bool InStrip(int client, int size, int along)
{
    size = std::max(size, 1);
    const int64_t n = (int64_t(std::max(client, 0)) + size - 1) / size;
    // Strip j holds along when (j + 1) * size - 4 <= along < (j + 1) * size + 1.
    const int64_t last = std::min<int64_t>((int64_t(along) + 4) / size - 1, n - 1);
    for (int64_t j = std::max<int64_t>(last - 5, 0); j <= last; ++j)
        if ((j + 1) * size - 4 <= along && along < (j + 1) * size + 1)
            return true;
    return false;
}

}  // namespace

int CardGapAt(const HyCardGrid& g, bool resizeOff, int x, int y)
{
    if (g.count < 1 || resizeOff || x < 0 || y < 0 || x >= g.clientWidth || y >= g.clientHeight)
        return kNoGap;
    if (InStrip(g.clientWidth, g.cardWidth, x))
        return kWidthGap;   // width gaps are tested first
    if (InStrip(g.clientHeight, g.cardHeight, y))
        return kHeightGap;
    return kNoGap;
}

int CardWidthStrips(const HyCardGrid& g, int cardWidth, HyRect* strips, int capacity)
{
    return Strips(g.clientWidth, g.clientHeight, cardWidth, true, strips, capacity);
}

int CardHeightStrips(const HyCardGrid& g, int cardHeight, HyRect* strips, int capacity)
{
    return Strips(g.clientHeight, g.clientWidth, cardHeight, false, strips, capacity);
}

int CardDragSize(int size, int start, int now, int clientEdge, int margin, int minimum, int maximum)
{
    size = std::max(size, 1);
    now = std::min(now, clientEdge - margin);
    const int k = std::max(static_cast<int>((int64_t(start) + size - 1) / size), 1);
    int64_t result = size + (int64_t(now) - start) / k;   // truncates toward zero, both ways
    if (result < minimum)
        result = minimum;
    if (maximum > 0 && result > maximum)
        result = maximum;
    return static_cast<int>(std::clamp<int64_t>(result, 1, INT_MAX));   // a size of 0 would divide by zero
}

int CardArrowTarget(const HyCardGrid& g, int focus, int key)
{
    const int columns = std::max(g.columns, 1);
    switch (key) {
    case 37:   // Left
        return focus > 0 ? focus - 1 : focus;
    case 39:   // Right
        return focus < g.count - 1 ? focus + 1 : focus;
    case 38:   // Up
        return focus / columns > 0 ? focus - columns : focus;
    case 40: {   // Down: into a short last row, the last card
        const int lastRow = static_cast<int>((int64_t(g.count) + columns - 1) / columns - 1);
        return focus / columns < lastRow ? std::min(focus + columns, g.count - 1) : focus;
    }
    default:
        return focus;
    }
}

HyCardBlock CardBlock(const int* indexes, int n, int columns)
{
    columns = std::max(columns, 1);
    HyCardBlock b{INT_MAX, -1, INT_MAX, -1};
    for (int i = 0; i < n; ++i) {
        const int row = indexes[i] / columns, column = indexes[i] % columns;
        b.firstRow = std::min(b.firstRow, row);
        b.lastRow = std::max(b.lastRow, row);
        b.firstColumn = std::min(b.firstColumn, column);
        b.lastColumn = std::max(b.lastColumn, column);
    }
    return b;
}

}  // namespace hy
