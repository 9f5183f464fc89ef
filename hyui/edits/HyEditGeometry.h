// The edit list's rows without a window: cells stacked from y = 1, the
// label and value rectangles of a cell, which row a point is on, row heights
// for a number of text lines, scroll positions, the rows a wheel turn moves
// and where the Tab key goes. Platform-free; CHyEditList calls these and adds
// only messages, drawing, the editor and focus.
#pragma once

#include "HyRect.h"
#include "HyUIExport.h"

// The rectangles of one row, in this order.
struct HyEditRowRects
{
    HyRect cell, label, value;
};

namespace hy {

// A row's height: its stored height, or the standard row height for the
// stored -1 of a row never sized.
HYUI_API int EditRowHeight(int storedHeight, int rowHeight);

// The sum of the heights of rows [0, count), clamped to the int range.
HYUI_API int EditContentHeight(const int* heights, int count, int rowHeight);

// The cell of row `index` (which may be `count`: the place after the last
// row): top = 1 + the heights of all earlier rows, collapsed ones included,
// moved up by the scroll position; as wide as the client area.
HYUI_API HyRect EditRowCell(const int* heights, int count, int rowHeight, int index, int width, int scrollPos);

// The label and value rectangles of a cell. The label column ends at
// `labelWidth`, or at a third of the cell's width when that is below 1.
HYUI_API HyEditRowRects EditRowRects(const HyRect& cell, int labelWidth);

// The first row whose cell holds the point, else -1.
HYUI_API int EditRowAt(const int* heights, int count, int rowHeight, int width, int scrollPos, int x, int y);

// The height of a row sized for `lines` lines of text, never fewer than
// `minRows`: the standard row, plus a line height for each further line.
HYUI_API int EditHeightForLines(int lines, int minRows, int rowHeight, int lineHeight);

// The largest scroll position: the scroll bar's range runs to the content
// height with a page of the client height + 1, so the system stops the
// position at content - client.
HYUI_API int EditScrollMax(int contentHeight, int clientHeight);

// Scroll-bar codes, with the numbers of the system's SB_ constants.
enum : int
{
    kEditLineUp = 0,
    kEditLineDown = 1,
    kEditPageUp = 2,
    kEditPageDown = 3,
    kEditThumbPosition = 4,
    kEditThumbTrack = 5,
    kEditEndScroll = 8,
};

// The position a scroll-bar code leads to, clamped to 0 .. maxPos: a line is
// the standard row height, a page the client height, the thumb codes take
// `thumb`; end-scroll and any other code keep `pos`.
HYUI_API int EditScrollTarget(int code, int pos, int thumb, int rowHeight, int clientHeight, int maxPos);

// How far to scroll so that a cell is wholly inside the client rows
// [clientTop, clientBottom): 0 when it is; else from the cell's top when it
// starts above, else from its bottom.
HYUI_API int EditEnsureVisibleDelta(const HyRect& cell, int clientTop, int clientBottom);

// The lines a wheel turn scrolls: |delta| / 120 notches (truncated), each a
// line down for a negative delta and up otherwise. Positive = down.
HYUI_API int EditWheelLines(int delta);

// Where the Tab key goes from a list of `count` rows whose first selected
// row is `firstSelected` (-1 for none): the row to open (-1 for none), after
// deselecting every row when `deselectAll`, or the next (`sibling` 1) or
// previous (-1) visible sibling window to focus instead (0: none).
struct HyEditTab
{
    int row;
    bool deselectAll;
    int sibling;
};
HYUI_API HyEditTab EditTabTarget(int count, int firstSelected, bool backward);

}  // namespace hy
