#include "HyPickerLayout.h"

namespace hy {

void PickerCalendarSize(const HyPickerMetrics& m, int& width, int& height)
{
    const int cols = m.cols > 0 ? m.cols : 1;
    const int rows = m.rows > 0 ? m.rows : 1;
    width = m.absCalWidth != -1 ? m.absCalWidth : m.clientWidth / cols;
    height = m.absCalHeight != -1 ? m.absCalHeight : m.clientHeight / rows;
}

void PickerCellSize(HyPickerMetrics& m)
{
    int w, h;
    PickerCalendarSize(m, w, h);
    // Seven day columns; eight rows: header, day-of-week row and six weeks.
    m.dayWidth = (w - (m.border + 3)) / 7;
    m.dayHeight = (h - (m.border + 3)) / 8;
    if (m.dayWidth < 1)
        m.dayWidth = 1;
    if (m.dayHeight < 1)
        m.dayHeight = 1;
}

HyRect PickerCalBounds(const HyPickerMetrics& m, int index)
{
    const int cols = m.cols > 0 ? m.cols : 1;
    int w, h;
    PickerCalendarSize(m, w, h);
    HyRect r{0, 0, w, h};
    const int dx = (index % cols) * w;
    const int dy = (index / cols) * h;
    // The centring offset is deliberately multiplied by the column count.
    const int centre = ((m.clientWidth / cols - w) >> 1) * cols;
    r.left += dx + centre;
    r.right += dx + centre;
    r.top += dy;
    r.bottom += dy;
    r.right -= m.border;
    r.bottom -= m.border;
    // Trim so that whole cells divide the calendar.
    const int dayWidth = m.dayWidth > 0 ? m.dayWidth : 1;
    const int dayHeight = m.dayHeight > 0 ? m.dayHeight : 1;
    if (r.Width() > 3)
        r.right -= (r.Width() - 3) % dayWidth;
    if (r.Height() > 3)
        r.bottom -= (r.Height() - 3) % dayHeight;
    return r;
}

HyCalParts PickerCalParts(const HyRect& bounds, int dayHeight, unsigned flags)
{
    HyCalParts p;
    // One pixel in at the left and top, two at the right and bottom.
    const HyRect r{bounds.left + 1, bounds.top + 1, bounds.right - 2, bounds.bottom - 2};
    p.dayGrid = r;
    p.dayGrid.top = r.bottom - 6 * dayHeight;
    p.dayOfWeek = r;
    p.dayOfWeek.top = p.dayGrid.top - dayHeight;
    p.dayOfWeek.bottom = p.dayGrid.top;
    p.header = r;
    p.header.bottom = p.dayOfWeek.top;
    p.header.left += 1;
    p.header.top += 1;
    const int side = p.header.Height();
    p.prevArrow = {p.header.left, p.header.top, p.header.left + side, p.header.top + side};
    p.nextArrow = {p.header.right - side, p.header.top, p.header.right, p.header.top + side};
    const int middle = (p.header.left + p.header.right) / 2;
    p.monthCaption = p.header;
    if (!(flags & HYDP_MONTH_ONLY_HEADER))
    {
        p.monthCaption.left = p.prevArrow.right;
        p.monthCaption.right = middle;
    }
    p.yearCaption = p.header;
    if (!(flags & HYDP_YEAR_ONLY_HEADER))
    {
        p.yearCaption.left = middle;
        p.yearCaption.right = p.nextArrow.left;
    }
    return p;
}

int PickerPartAt(const HyCalParts& p, int x, int y, unsigned flags, int calIndex, int cols)
{
    if (cols < 1)
        cols = 1;
    // The order of the tests is intended: the first that holds wins.
    if ((flags & HYDP_PREV_ARROW) && calIndex % cols == 0 && !(flags & HYDP_YEAR_ONLY_HEADER) &&
        p.prevArrow.Contains(x, y))
        return HYPART_PREV_ARROW;
    if ((flags & HYDP_NEXT_ARROW) && calIndex % cols == cols - 1 && !(flags & HYDP_MONTH_ONLY_HEADER) &&
        p.nextArrow.Contains(x, y))
        return HYPART_NEXT_ARROW;
    if ((flags & HYDP_MONTH_CAPTION) && !(flags & HYDP_YEAR_ONLY_HEADER) && p.monthCaption.Contains(x, y))
        return HYPART_MONTH_CAPTION;
    if ((flags & HYDP_YEAR_CAPTION) && !(flags & HYDP_MONTH_ONLY_HEADER) && p.yearCaption.Contains(x, y))
        return HYPART_YEAR_CAPTION;
    if (p.header.Contains(x, y))
        return HYPART_HEADER;
    if (p.dayOfWeek.Contains(x, y))
        return HYPART_DAY_OF_WEEK;
    if (p.dayGrid.Contains(x, y))
        return HYPART_DAY_GRID;
    return HYPART_NONE;
}

HyRect PickerCellRect(const HyRect& dayGrid, int dayWidth, int dayHeight, int cell)
{
    const int x = dayGrid.left + (cell % 7) * dayWidth;
    const int y = dayGrid.top + (cell / 7) * dayHeight;
    return HyRect{x, y, x + dayWidth, y + dayHeight};
}

int PickerCalAt(const HyPickerMetrics& m, int calCount, int x, int y)
{
    for (int i = 0; i < calCount; ++i)
        if (PickerCalBounds(m, i).Contains(x, y))
            return i;
    return -1;
}

bool PickerGridCell(const HyRect& g, int dayWidth, int dayHeight, int x, int y, int& col, int& row)
{
    if (dayWidth < 1)
        dayWidth = 1;
    if (dayHeight < 1)
        dayHeight = 1;
    const int dx = x - g.left;
    const int dy = y - g.top;
    col = dx < 0 ? 0 : dx / dayWidth;
    row = dy < 0 ? 0 : dy / dayHeight;
    if (col > 6)
        col = 6;
    if (row > 5)
        row = 5;
    return g.Contains(x, y);
}

namespace {

HyRect Shrunk(HyRect r, int by)
{
    return HyRect{r.left + by, r.top + by, r.right - by, r.bottom - by};
}

} // namespace

HySingleCalRects SingleCalRects(const HyRect& client, int s)
{
    HySingleCalRects r;
    r.prevArrow = {0, 2, s, s + 2};
    r.nextArrow = {client.right - s, 1, client.right, 1 + s + 1};
    r.caption = Shrunk({r.prevArrow.right + s / 2, r.prevArrow.top - 1, r.nextArrow.left - s / 2,
                        r.prevArrow.bottom + 3}, 2);
    r.monthPanel = Shrunk({client.left, r.prevArrow.bottom + 8, client.right, 58}, 2);
    r.dayArea = Shrunk({client.left, r.monthPanel.bottom + 8, client.right, client.bottom}, 2);
    return r;
}

HyRect SingleCalDayCell(const HyRect& a, int cell, bool wholeWeek)
{
    const int width = a.Width() / 7;
    const int height = a.Height() / 7;
    const int col = cell % 7;
    // The first row of the area holds the day-of-week initials.
    const int top = a.top + (cell / 7) * height + height;
    if (wholeWeek)
        return HyRect{a.left, top, a.right, top + height};
    const int left = a.left + col * width;
    return HyRect{left, top, col == 6 ? a.right : left + width, top + height};
}

HyRect SingleCalMonthCell(const HyRect& p, int month)
{
    const int width = p.Width() / 6;
    const int height = p.Height() / 2;
    const int col = (month - 1) % 6;
    const int row = (month - 1) / 6;
    const int left = p.left + col * width;
    const int top = p.top + row * height;
    return HyRect{left, top, col == 5 ? p.right : left + width, top + height};
}

void IncrMonth(int& month, int& year, int delta)
{
    const int n = year * 12 + month - 1 + delta;
    year = n / 12;
    month = n % 12 + 1;
}

int MonthsBetween(int fromMonth, int fromYear, int toMonth, int toYear)
{
    return (toYear * 12 + toMonth) - (fromYear * 12 + fromMonth);
}

bool IsMonthNotAfter(int month, int year, int maxMonth, int maxYear)
{
    return year < maxYear || (year == maxYear && month <= maxMonth);
}

int PickerMenuEntries(int month, int year, bool yearMenu, int minYear, int maxMonth, int maxYear,
                      HyMonthYear entries[kPickerMenuEntries])
{
    const int step = yearMenu ? 12 : 1;
    int startMonth = month, startYear = year;
    IncrMonth(startMonth, startYear, -4 * step);

    // Walk the nine candidates; when one passes the last valid month, pull
    // the window back so that it ends on the last valid candidate.
    int m = startMonth, y = startYear, left = kPickerMenuEntries;
    while (left > 0 && IsMonthNotAfter(m, y, maxMonth, maxYear))
    {
        IncrMonth(m, y, step);
        --left;
    }
    if (left > 0)
        IncrMonth(startMonth, startYear, -left * step);

    // Candidates before minYear do not use up an entry; the walk runs on.
    int count = 0;
    m = startMonth;
    y = startYear;
    if (y < minYear)
    {
        // Jump straight to the first candidate of minYear (same step phase).
        const int behind = MonthsBetween(m, y, 1, minYear);
        IncrMonth(m, y, (behind + step - 1) / step * step);
    }
    while (count < kPickerMenuEntries && y <= 9999)
    {
        if (y >= minYear)
            entries[count++] = {m, y};
        IncrMonth(m, y, step);
    }
    return count;
}

int FindMonthByInitial(const char initials[12], char upperLetter, int start)
{
    if (start < 0 || start > 11)
        start = start < 0 ? 0 : start % 12;
    for (int i = start; i < 12; ++i)
        if (initials[i] == upperLetter)
            return i + 1;
    for (int i = 0; i < start; ++i)
        if (initials[i] == upperLetter)
            return i + 1;
    return -1;
}

int WheelNotches(int& remainder, int delta)
{
    const int kWheelDelta = 120;
    remainder += delta;
    const int notches = remainder / kWheelDelta;   // toward zero: the remainder keeps its sign
    remainder -= notches * kWheelDelta;
    return notches;
}

} // namespace hy
