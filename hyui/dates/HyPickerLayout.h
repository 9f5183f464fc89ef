// The date picker's arithmetic without a window: where each calendar sits in
// the client area, the parts of a calendar, which part a point hits, month
// stepping and the entries of the month and year menus. Platform-free; the
// window class (CHyDatePicker) calls these and only adds messages and GDI.
#pragma once

#include "HyRect.h"
#include "HyUIExport.h"

// Part codes of a point inside a calendar, in the order they are tested.
enum HyPickerPart : int
{
    HYPART_NONE = 0,
    HYPART_PREV_ARROW = 1,
    HYPART_NEXT_ARROW = 2,
    HYPART_MONTH_CAPTION = 3,
    HYPART_YEAR_CAPTION = 4,
    HYPART_HEADER = 5,
    HYPART_DAY_OF_WEEK = 6,
    HYPART_DAY_GRID = 7,
};

// Behaviour bits of the picker's flags word.
enum : unsigned
{
    HYDP_PREV_ARROW = 0x0001,        // calendars of the first column offer the previous arrow
    HYDP_NEXT_ARROW = 0x0002,        // calendars of the last column offer the next arrow
    HYDP_HIGHLIGHT = 0x0004,         // a day is highlighted
    HYDP_MONTH_CAPTION = 0x0008,     // the month caption can be clicked
    HYDP_YEAR_CAPTION = 0x0010,      // the year caption can be clicked
    HYDP_MONTH_ONLY_HEADER = 0x0020, // the month caption takes the whole header (no year caption)
    HYDP_YEAR_ONLY_HEADER = 0x0040,  // the year caption takes the whole header (no month caption)
    HYDP_MONTH_SELECTS = 0x0080,     // a month-caption click selects that month instead of a menu
    HYDP_YEAR_SELECTS = 0x0100,      // a year-caption click selects that month instead of a menu
    HYDP_DEFAULT_FLAGS = HYDP_PREV_ARROW | HYDP_NEXT_ARROW | HYDP_MONTH_CAPTION | HYDP_YEAR_CAPTION
                       | HYDP_MONTH_SELECTS | HYDP_YEAR_SELECTS,
};
static_assert(HYDP_DEFAULT_FLAGS == 411);

// The seven rectangles of one calendar.
struct HyCalParts
{
    HyRect header;
    HyRect prevArrow;
    HyRect nextArrow;
    HyRect monthCaption;
    HyRect yearCaption;
    HyRect dayOfWeek;
    HyRect dayGrid;
};

struct HyPickerMetrics
{
    int clientWidth, clientHeight;
    int cols, rows;
    int absCalWidth, absCalHeight;   // -1: share the client area
    int border;
    int dayWidth, dayHeight;
};

struct HyMonthYear
{
    int month;   // 1..12
    int year;
};

// The single-calendar rectangles the picker computes at creation: the
// arrow squares, the caption, the month panel and the day area.
struct HySingleCalRects
{
    HyRect prevArrow;
    HyRect nextArrow;
    HyRect caption;
    HyRect monthPanel;
    HyRect dayArea;
};

namespace hy {

// Size of one calendar before borders: the fixed size, or the client area's share.
HYUI_API void PickerCalendarSize(const HyPickerMetrics& m, int& width, int& height);
// Day column width and grid row height for the current calendar size (at least 1 each).
HYUI_API void PickerCellSize(HyPickerMetrics& m);
// Bounds of calendar index in client coordinates.
HYUI_API HyRect PickerCalBounds(const HyPickerMetrics& m, int index);
// The parts of a calendar whose bounds are given.
HYUI_API HyCalParts PickerCalParts(const HyRect& bounds, int dayHeight, unsigned flags);
// Part code of (x, y) in calendar calIndex (parts as PickerCalParts gives them).
HYUI_API int PickerPartAt(const HyCalParts& parts, int x, int y, unsigned flags, int calIndex, int cols);
// Cell 0..41 (row by row) of a day grid of dayWidth x dayHeight cells.
HYUI_API HyRect PickerCellRect(const HyRect& dayGrid, int dayWidth, int dayHeight, int cell);
// Calendar whose bounds hold (x, y); -1 for none.
HYUI_API int PickerCalAt(const HyPickerMetrics& m, int calCount, int x, int y);
// Column 0..6 and row 0..5 of the grid cell nearest (x, y); true when the point is inside the grid.
HYUI_API bool PickerGridCell(const HyRect& dayGrid, int dayWidth, int dayHeight, int x, int y,
                             int& col, int& row);

// The single-calendar rectangles of a client rectangle; s is the arrow
// size (the vertical scroll thumb's height less one).
HYUI_API HySingleCalRects SingleCalRects(const HyRect& client, int s);
// Day cell 0..41 of the day area: a seventh of its width and height, the
// first row left for the day-of-week initials, column 6 reaching the area's
// right edge; with wholeWeek the cell's row across the whole area.
HYUI_API HyRect SingleCalDayCell(const HyRect& dayArea, int cell, bool wholeWeek);
// Month cell 1..12 of the month panel's 6 x 2 grid: a sixth of its width,
// half its height, the last column reaching the panel's right edge.
HYUI_API HyRect SingleCalMonthCell(const HyRect& monthPanel, int month);

// n = year * 12 + month - 1 + delta; year = n / 12; month = n % 12 + 1.
HYUI_API void IncrMonth(int& month, int& year, int delta);
// Months from (fromMonth, fromYear) to (toMonth, toYear).
HYUI_API int MonthsBetween(int fromMonth, int fromYear, int toMonth, int toYear);
// Whether (month, year) is not later than (maxMonth, maxYear).
HYUI_API bool IsMonthNotAfter(int month, int year, int maxMonth, int maxYear);

// The nine entries of the month menu (yearMenu false: steps of one month,
// starting four back) or of the year menu (steps of twelve months, starting
// 48 back) for a calendar showing (month, year). Entries never pass the
// last valid month; those before minYear are skipped and the walk runs on.
// Answers the number of entries written (9 unless the calendar lies beyond
// every valid month).
enum { kPickerMenuEntries = 9 };
HYUI_API int PickerMenuEntries(int month, int year, bool yearMenu, int minYear, int maxMonth, int maxYear,
                               HyMonthYear entries[kPickerMenuEntries]);

// Whole wheel notches (WHEEL_DELTA, 120, each) in remainder + delta; the
// part of a notch left over stays in remainder for the next message, so
// 240 gives 2 and two deltas of 60 give 0, then 1.
HYUI_API int WheelNotches(int& remainder, int delta);

// Typed month search over the upper-cased first letters of the twelve names:
// from start (-1 taken as 0) to 11, then 0 to start - 1. 1-based month or -1.
HYUI_API int FindMonthByInitial(const char initials[12], char upperLetter, int start);

} // namespace hy
