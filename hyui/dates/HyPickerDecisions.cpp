#include "HyPickerDecisions.h"

#include "HyCalMonth.h"

namespace {

bool Exists(const CHyDate& d)
{
    return d.year != -1;
}

// The three months a grid shows (previous, own, next) and whether each is
// some calendar's own month.
struct MonthSlots
{
    int slotMonth[3] = {}, slotYear[3] = {};
    bool shown[3] = {};

    MonthSlots(const CHyCalMonth& cal, const HyDayCellInputs& in)
    {
        for (int slot = 0; slot < 3; ++slot) {
            slotMonth[slot] = cal.month;
            slotYear[slot] = cal.year;
            hy::IncrMonth(slotMonth[slot], slotYear[slot], slot - 1);
            shown[slot] = slot == 1;
        }
        for (int i = 0; i < in.shownCount; ++i)
            for (int slot = 0; slot < 3; slot += 2)
                if (in.shownMonths[i].month == slotMonth[slot] && in.shownMonths[i].year == slotYear[slot])
                    shown[slot] = true;
    }
    // 0, 1, 2 for the previous, own and next month; -1 for any other date.
    int SlotOf(const CHyDate& d) const
    {
        for (int slot = 0; slot < 3; ++slot)
            if (d.month == slotMonth[slot] && d.year == slotYear[slot])
                return slot;
        return -1;
    }
};

// Event looks by slot and day: look + 1, 0 for none. A kind with a look of
// its own wins over kind 0 on the same day.
void EventLooks(const MonthSlots& slots, const HyDayCellInputs& in, unsigned char looks[3][32])
{
    for (int e = 0; e < in.eventCount; ++e) {
        const CHyDate& ev = in.events[e];
        const int slot = slots.SlotOf(ev);
        if (slot < 0 || ev.day < 1 || ev.day > 31)
            continue;
        const int look = ev.flags >= 0 && ev.flags < hy::kEventLooks ? ev.flags : 0;
        unsigned char& mark = looks[slot][ev.day];
        if (mark == 0 || look != 0)
            mark = (unsigned char)(look + 1);
    }
}

} // namespace

namespace hy {

HyDayPress DecideDayPress(const CHyDate& day, int calMonth, int calYear, bool isHighlighted, bool lastCalendar,
                          int minYear, int maxYear)
{
    if (day.month == calMonth && day.year == calYear)
        return isHighlighted ? HyDayPress::Nothing : HyDayPress::SelectOwnDay;
    if (day.year < minYear || day.year > maxYear)
        return HyDayPress::Beep;
    const bool after = MonthsBetween(calMonth, calYear, day.month, day.year) > 0;
    return after && lastCalendar ? HyDayPress::StepOnAndHighlight : HyDayPress::Highlight;
}

bool DecideArrowStep(int part, int displayMonth, int displayYear, bool nextMonthValid, int minYear, int maxYear,
                     int& month, int& year)
{
    if (part == HYPART_NEXT_ARROW && !nextMonthValid)
        return false;
    month = displayMonth;
    year = displayYear;
    IncrMonth(month, year, part == HYPART_PREV_ARROW ? -1 : 1);
    return year >= minYear && year <= maxYear;
}

int ClosestOwnMonthCell(const CHyCalMonth& cal, int col, int row)
{
    col = col < 0 ? 0 : (col > 6 ? 6 : col);
    row = row < 0 ? 0 : (row > 5 ? 5 : row);
    const int index = row * 7 + col;
    int first = -1, last = -1;
    for (int i = 0; i < CHyCalMonth::CellCount; ++i)
        if (cal.cellMonth[i] == cal.month && cal.cellDay[i] > 0) {
            if (first < 0)
                first = i;
            last = i;
        }
    if (first < 0)
        return -1;
    int chosen = index < first ? first : (index > last ? last : index);
    while (chosen < last && (cal.cellDay[chosen] < 1 || cal.cellMonth[chosen] != cal.month))
        ++chosen;
    return chosen;
}

int CellShowingDate(const CHyCalMonth& cal, const CHyDate& date)
{
    for (int cell = 0; cell < CHyCalMonth::CellCount; ++cell) {
        int d, m, y;
        cal.GetCellDate(cell, d, m, y);
        if (d == date.day && m == date.month && y == date.year && d > 0)
            return cell;
    }
    return -1;
}

void ComputeDayCells(const CHyCalMonth& cal, const HyDayCellInputs& in, HyDayGrid& out)
{
    const MonthSlots slots(cal, in);
    unsigned char looks[3][32] = {};
    EventLooks(slots, in, looks);
    out.highlightCell = -1;
    for (int cell = 0; cell < CHyCalMonth::CellCount; ++cell) {
        HyDayCell& c = out.cells[cell];
        c = HyDayCell();
        int d, m, y;
        cal.GetCellDate(cell, d, m, y);
        if (d <= 0)
            continue;   // the empty cells of September 1752 stay empty
        c.date = CHyDate(y, m, d, 0);
        c.own = m == cal.month;
        c.shown = c.own || in.otherMonths;
        const int slot = slots.SlotOf(c.date);
        c.marked = c.shown && (c.own || (slot >= 0 && !slots.shown[slot]));
        if (!c.marked)
            continue;
        c.today = in.todayMark && c.date == in.today;
        c.start = Exists(in.start) && c.date == in.start;
        c.drop = Exists(in.drop) && c.date == in.drop;
        c.eventLook = slot >= 0 ? looks[slot][d] : 0;
        if (out.highlightCell < 0 && in.highlightOn && c.date == in.highlight)
            out.highlightCell = cell;
    }
    out.highlightRow = out.highlightCell >= 0 && in.wholeWeek ? out.highlightCell / 7 : -1;
}

} // namespace hy
