// The date picker's decisions without a window: what a press on a day does,
// when an arrow steps or beeps, the own-month day nearest a cell, the cell
// that shows a date, and what every day cell of a calendar shows. Platform-
// free; CHyDatePicker asks these and then acts (messages, beeps, painting).
#pragma once

#include "HyUIExport.h"
#include "HyDate.h"
#include "HyPickerLayout.h"

class CHyCalMonth;

// What a button-down on a day of the grid does.
enum class HyDayPress
{
    Nothing,              // the highlighted own-month day: no change
    SelectOwnDay,         // another day of the calendar's own month
    Beep,                 // a neighbouring month's day whose year is outside the limits
    Highlight,            // a neighbouring month's day: highlight it
    StepOnAndHighlight,   // a next month's day in the last calendar: one month on, then highlight
};

// What the day cells of one calendar show. A date is marked (highlight,
// today, start, events, drop target) in one place only: in the calendar of
// its month, or, when no calendar shows its month, in the neighbouring-month
// cell that shows it.
struct HyDayCell
{
    CHyDate date;            // flags unused
    bool shown = false;      // its number is drawn (empty cells of September 1752 never are)
    bool own = false;        // a day of the calendar's own month
    bool marked = false;     // carries this date's marks
    bool today = false;      // marked and today (with the today mark on)
    bool start = false;      // marked and the start date
    bool drop = false;       // marked and the drag's drop target
    int eventLook = 0;       // 0 none, else 1 + look (0..3) of its event
};

struct HyDayCellInputs
{
    const HyMonthYear* shownMonths = nullptr;   // every calendar's own month
    int shownCount = 0;
    const CHyDate* events = nullptr;             // flags: the event kind
    int eventCount = 0;
    bool otherMonths = false;   // draw the neighbouring months' days
    bool todayMark = false;
    bool highlightOn = false;   // a day is highlighted
    bool wholeWeek = false;     // the highlight covers the day's week row
    CHyDate highlight, today, start, drop;       // year -1 for none
};

struct HyDayGrid
{
    HyDayCell cells[42];
    int highlightCell = -1;   // the marked cell of the highlighted day
    int highlightRow = -1;    // its row when whole weeks are highlighted
};

namespace hy {

enum { kEventLooks = 4 };

HYUI_API HyDayPress DecideDayPress(const CHyDate& day, int calMonth, int calYear, bool isHighlighted,
                                   bool lastCalendar, int minYear, int maxYear);

// The first month to display after an arrow click on a calendar, or false
// (a beep) when the step is refused: for the next arrow when the month after
// the clicked calendar is not valid (nextMonthValid false), for either arrow
// when the new first month's year lies outside minYear..maxYear.
HYUI_API bool DecideArrowStep(int part, int displayMonth, int displayYear, bool nextMonthValid, int minYear,
                              int maxYear, int& month, int& year);

// The cell of the calendar's own month nearest grid cell (col, row), both
// clamped to the grid: cells before the month give its first day, cells
// after it its last, empty cells the next day shown. -1 when none.
HYUI_API int ClosestOwnMonthCell(const CHyCalMonth& cal, int col, int row);

// The cell 0..41 that shows the date in this calendar, -1 when none does.
HYUI_API int CellShowingDate(const CHyCalMonth& cal, const CHyDate& date);

// Every cell of a calendar as painting needs it.
HYUI_API void ComputeDayCells(const CHyCalMonth& cal, const HyDayCellInputs& in, HyDayGrid& out);

} // namespace hy
