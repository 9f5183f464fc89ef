// CHyDate: the calendar day exchanged between the date controls and the host.
#pragma once

#include "HyUIExport.h"

class HYUI_API CHyDate
{
public:
    // Deliberately sets only flags: year, month and day stay unset until
    // filled or Empty()-ed.
    CHyDate() : flags(0) {}
    // Stored as given, unchecked.
    CHyDate(int y, int m, int d, int f) : year(y), month(m), day(d), flags(f) {}

    CHyDate(const CHyDate&) = default;
    CHyDate& operator=(const CHyDate&) = default;

    // 1 or 0; the flags word is deliberately not compared by either operator.
    int operator==(const CHyDate& other) const
    {
        return year == other.year && month == other.month && day == other.day ? 1 : 0;
    }
    int operator!=(const CHyDate& other) const { return *this == other ? 0 : 1; }

    void Empty() { year = month = day = flags = 0; }

    int year;
    int month;   // 1..12
    int day;     // 1..31
    int flags;   // kind of event mark; 0 = none
};

static_assert(sizeof(CHyDate) == 16, "CHyDate is four 32-bit fields");
