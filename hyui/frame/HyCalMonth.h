// CHyCalMonth: the 42-cell grid of one displayed month (six weeks of seven
// days, Sunday or Monday first) on the British calendar: Julian leap years up
// to 1752, Gregorian after, and 3..13 September 1752 missing.
// Pure integer arithmetic; no allocation, no platform calls. The calendar
// rules themselves live in core/HyCalendar; this class lays out the grid.
#pragma once

#include "HyUIExport.h"

class HYUI_API CHyCalMonth
{
public:
    enum { CellCount = 42 };

    // Stores the flag only; the grid stays unset until SetMonth.
    explicit CHyCalMonth(short mondayFirst = 0);
    // Stores the flag first, then lays out the month.
    CHyCalMonth(int month, int year, short mondayFirst);

    void SetMonth(int month, int year);

    // First cell (0..41) showing this day of this month; 42 when none does.
    int FindCell(int day, int month) const;
    void GetCellDate(int cell, int& day, int& month, int& year) const;

    // 0 = Sunday .. 6 = Saturday.
    static int DayOfWeek(int day, int month, int year);
    static int DayInYear(int day, int month, int year);
    static int IsLeapYear(int year);
    static int LeapYearsSinceYear1(int year);
    static int CenturiesSince1700(int year);
    static int QuadCenturiesSince1700(int year);

    // Days in month, indexed by leap * 12 + month. Entry 0 is never read.
    // Both tables are the calendar core's own (core/HyCalendar.h).
    static const int (&s_daysInMonth)[25];
    // The fixed grid of September 1752 (Sunday first); -1 marks an empty cell.
    static const int (&s_september1752)[CellCount];

    int cellMonth[CellCount];
    int cellDay[CellCount];
    int month;
    int year;
    short mondayFirst;
};
