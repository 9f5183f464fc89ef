// The card views' grid without a window: how many columns and rows fit, the
// cell and rectangles of a card, which card a point is on, the resize gaps
// between cards and the size a resize drag gives, arrow-key moves and the
// Shift-click block. Platform-free; CHyCardView and CHyPhotoView call these
// and add only messages, drawing, focus and capture.
#pragma once

#include "HyRect.h"
#include "HyUIExport.h"

// What the grid arithmetic needs of a view.
struct HyCardGrid
{
    int clientWidth = 0, clientHeight = 0;
    int cardWidth = 220, cardHeight = 170;
    int count = 0;                // cards in the view
    int columns = 1;              // from HyCardLayout
    int visibleRows = 1;
    int scrollMax = 0;
    int scrollPos = 0;            // in rows
};

// The rectangles of one card, in this order.
struct HyCardRects
{
    HyRect rcCell, rcCard, rcHeader, rcPhoto, rcCheck, rcBody;
};

namespace hy {

// Columns (the client width rounded to the nearest number of cards: a last
// column at least half visible is laid out, deliberately), whole visible
// rows, and the scroll maximum in rows; each of the first two at least 1.
HYUI_API void CardLayout(HyCardGrid& g);

// The cell of card `index`: (row - scroll position) x card height computed
// in 64 bits, clamped to the int range far outside any client area.
HYUI_API HyRect CardCell(const HyCardGrid& g, int index);

// The card view's rectangles of a cell. The header is 32 high for a card
// with a photo, else 20, and that height is written back to `headerHeight`
// on every call (deliberate: a host's SetHeaderHeight does not last).
HYUI_API HyCardRects CardViewRects(const HyRect& cell, bool photo, int& headerHeight);

// The photo view's rectangles: the label strip of `headerHeight` at the
// bottom, the photo a square of at most 96 centred in the body above it.
HYUI_API HyCardRects PhotoViewRects(const HyRect& cell, int headerHeight);

// The card whose rcCard holds the point (client coordinates), else -1. The
// strip right of the last column and the gaps between cards are empty space.
HYUI_API int CardAt(const HyCardGrid& g, int x, int y);

// Resize gaps: 1 for a width gap (tested first), 2 for a height gap, 0 for
// none. There are none without cards or with resizing turned off.
enum : int { kNoGap = 0, kWidthGap = 1, kHeightGap = 2 };
HYUI_API int CardGapAt(const HyCardGrid& g, bool resizeOff, int x, int y);

// The gap strips drawn as drag feedback for a card width (or height): one
// per column (row) boundary across the client, counted from the client's
// left (top), without the scroll offset. Writes at most `capacity` strips
// and answers how many there are.
HYUI_API int CardWidthStrips(const HyCardGrid& g, int cardWidth, HyRect* strips, int capacity);
HYUI_API int CardHeightStrips(const HyCardGrid& g, int cardHeight, HyRect* strips, int capacity);

// The card size a drag from `start` to `now` gives. `size` is the current
// width (height), `clientEdge` the client right (bottom); the pointer is
// held `margin` pixels inside it. The move is shared out over the k cards
// before the grabbed boundary (k = the boundary's number, at least 1; the
// division truncates toward zero, so a small move back is no change). The
// result is raised to `minimum`, then lowered to `maximum` (0: none), and
// never below 1, whatever minimum the host stored.
HYUI_API int CardDragSize(int size, int start, int now, int clientEdge, int margin, int minimum, int maximum);

// The card an arrow key moves the focus to from `focus` (the focus itself
// when the key leads nowhere). `key` is 37 Left, 38 Up, 39 Right, 40 Down.
HYUI_API int CardArrowTarget(const HyCardGrid& g, int focus, int key);

// The Shift-click block: the cells intersecting the bounding rectangle of
// the cells of the given cards form a block of whole rows and columns of
// the grid, not a range of indexes (deliberate). Answers its first and last
// row and column; a card is in the block when its row and column are.
struct HyCardBlock
{
    int firstRow, lastRow, firstColumn, lastColumn;
    bool Holds(int index, int columns) const
    {
        const int row = index / columns, column = index % columns;
        return row >= firstRow && row <= lastRow && column >= firstColumn && column <= lastColumn;
    }
};
HYUI_API HyCardBlock CardBlock(const int* indexes, int n, int columns);

}  // namespace hy
