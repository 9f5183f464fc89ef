// Date and time helpers exported to the host's components.
#pragma once
#include <afx.h>
#include "HyUIExport.h"

// The date part of an OLE date formatted by the user's locale (short form
// when shortFormat is non-zero, long form otherwise); empty for a
// non-positive or not-a-number date and for the Japanese era calendar.
HYUI_API CString HyGetDate(double date, int shortFormat);

// Local broken-down time to a CTime through mktime (out-of-range fields are
// normalised). 1 when representable; else 0 with out at -1, except for
// 1 January 1970, where out gets the same clock time on 2 January.
HYUI_API int HyGetCTimeValid(int year, int month, int day, int hour, int minute, int second,
                             CTime& out, int dst);

// The time_t of HyGetCTimeValid's result, or -1 when it reported failure.
HYUI_API long HyGetValidCTime(int year, int month, int day, int hour, int minute, int second, int dst);

// Asks for a day in the modal "Select Date" dialog (no parent, years from
// 1970). 1 when the user confirmed: date becomes that day at 00:00:00.
// Otherwise 0, and date is left exactly as it was.
HYUI_API int HyDisplayHyDayPickerDlg(double& date);
