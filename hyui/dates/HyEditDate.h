// CHyEditDate: a single-line edit field for one date, typed in the user's
// short-date form. The text is parsed by the host's CIntlTime, checked against
// a year range and the calendar (HyDateRules.h), and rewritten in the
// locale's canonical short form when the field loses the focus. An optional
// blank text stands for "no date". The parent sees every key first
// (HYWM_DATEEDIT_KEYDOWN / _KEYUP) and learns of a restored date
// (HYWM_DATEEDIT_RESTORED); see HyDateMsgs.h and docs/date-field.md.
#pragma once

#include <afxwin.h>
#include "HyTernEdit.h"
#include "HyUIExport.h"
#include "HyDateMsgs.h"

struct HyDateTimeParts;

class HYUI_API CHyEditDate : public CTernEdit
{
    DECLARE_DYNAMIC(CHyEditDate)
public:
    CHyEditDate();
    virtual ~CHyEditDate();

    // ---- settings ----
    // Non-zero: an empty field is left empty when it loses the focus.
    void AllowBlank(int bAllow) { allowBlank = bAllow; }
    // The text that stands for "no date" (compared exactly, case-sensitive).
    void SetBlankString(const CString& text) { blankString = text; }
    void SetMinYear(int nYear) { minYear = nYear; }
    void SetMaxYear(int nYear) { maxYear = nYear; }
    int GetMinYear() const { return minYear; }
    int GetMaxYear() const { return maxYear; }

    // ---- the parsed parts (-1: not given) ----
    int Year() const { return year; }
    int Month() const { return month; }
    int Day() const { return day; }
    // The day part as text; empty when it is not given.
    CString GetDay() const;

    // ---- blank ----
    // Shows the blank text (an empty text when there is none).
    void SetBlank();
    // 1 when the text equals the blank text exactly, else 0.
    int IsBlank() const;

    // ---- setting the date ----
    // With month 1..12 and day 1..31: stores the parts and writes them
    // (WriteFormat(1)); otherwise nothing happens.
    void SetDate(int nYear, int nMonth, int nDay);
    // A time_t: its local date, as SetDate(y, m, d); a valid one is also
    // kept as the date to restore after an invalid entry. 0 or less: blank.
    void SetDate(long time);
    // An OLE date: its date part, as SetDate(y, m, d); a valid one is also
    // kept as the date to restore. Not positive: blank.
    void SetDate(double date);
    // An OLE date shown as it is, without the year-range check or a message:
    // for showing a stored date the range no longer admits. Not positive: blank.
    void SetEdit(double date);

    // ---- reading the date ----
    // The OLE date of the parts at 01:00 when they form a valid date, else -1.0.
    double GetDate() const;
    // Parse the current text first, then answer 1 with the entered date when
    // it is valid; else 0, with -1 in each output (-1 and -1.0 for the other
    // forms). The time_t and OLE forms are 01:00 local time of that day; the
    // time_t form answers 0 for a day it cannot represent.
    int GetDateEntered(int& nYear, int& nMonth, int& nDay);
    int GetDateEntered(long& time);
    int GetDateEntered(double& date);

    // ---- text and parts ----
    // Parses the text into the parts: 1 on success or for a blank field
    // (parts -1), 0 when the text is not a date (parts -1).
    int ReadFormat();
    // Writes the parts as the locale's short date; with restoreOnError, an
    // invalid date brings back the last valid one (message box, then
    // HYWM_DATEEDIT_RESTORED to the parent) and answers 0. Otherwise 1.
    int WriteFormat(int restoreOnError);
    // 1 when the parts form a date within the year range, else 0.
    int IsValidDate() const;

protected:
    afx_msg void OnKillFocus(CWnd* pNewWnd);
    afx_msg void OnChar(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnKeyUp(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnLButtonDblClk(UINT nFlags, CPoint point);

    // The window's text; empty while there is no window.
    CString CurrentText() const;
    // True when the parent consumed the key by answering the message's number.
    BOOL ParentTakesKey(UINT message, UINT nChar);
    // Stores an OLE date's day for SetDate/SetEdit; for no date (0 or less,
    // not a number, out of range) clears the value and parts, shows the blank
    // text and answers FALSE.
    BOOL TakeOleDate(double date, HyDateTimeParts& parts);
    // Shows the blank text and selects it, so the next key replaces it.
    void SetBlankSelected();

    CString validChars;   // the digit-and-space set of the field; held, not applied
    int minYear;          // first valid year; also the two-digit-year pivot
    int maxYear;          // last valid year
    double value;         // the OLE date last given, -1.0 for none
    long lastTime;        // time_t restored after an invalid entry; -1 or 0: none
    int year;             // the parsed parts, -1 = not given
    int month;
    int day;
    int allowBlank;
    CString blankString;

    DECLARE_MESSAGE_MAP()
};
