// CHyEditDate: the date field. The rules that need no window live in
// HyDateRules.cpp; this file does text, focus, keys and messages.
#include "HyEditDate.h"

#include <climits>
#include <mbstring.h>

#include "HyBaseDialog.h"
#include "HyDateHelpers.h"
#include "HyDateRules.h"
#include "HyIntlTime.h"
#include "HyOleDate.h"

namespace {

// The host's string: "the date is not valid, the last valid one is back".
constexpr UINT kHostIdsDateNotValid = 283;

// Dates are read at one o'clock, deliberately not midnight.
constexpr int kReadHour = 1;

// The date part of a positive OLE date; false for anything else.
bool OleDateDay(double date, HyDateTimeParts& parts)
{
    return hy::IsPositiveOleDate(date) && hy::OleDateToParts(date, parts);
}

// A local time as a 32-bit time_t; false when it has none.
bool LocalTimeT(int year, int month, int day, int hour, int minute, int second, long& time)
{
    CTime out;
    if (!HyGetCTimeValid(year, month, day, hour, minute, second, out, -1))
        return false;
    if (out.GetTime() <= 0 || out.GetTime() > LONG_MAX)
        return false;
    time = (long)out.GetTime();
    return true;
}

} // namespace

IMPLEMENT_DYNAMIC(CHyEditDate, CTernEdit)

BEGIN_MESSAGE_MAP(CHyEditDate, CTernEdit)
    ON_WM_KILLFOCUS()
    ON_WM_CHAR()
    ON_WM_KEYDOWN()
    ON_WM_KEYUP()
    ON_WM_LBUTTONDBLCLK()
END_MESSAGE_MAP()

CHyEditDate::CHyEditDate()
    : validChars("0123456789 "), minYear(1904), maxYear(2031), value(-1.0), lastTime(-1),
      year(-1), month(-1), day(-1), allowBlank(0)
{
}

CHyEditDate::~CHyEditDate() {}

// ---- text helpers ----

CString CHyEditDate::CurrentText() const
{
    CString text;
    if (m_hWnd != nullptr)
        GetWindowText(text);
    return text;
}

CString CHyEditDate::GetDay() const
{
    CString text;
    if (day != -1)
        text.Format("%d", day);
    return text;
}

void CHyEditDate::SetBlank()
{
    if (m_hWnd != nullptr)
        SetWindowText(blankString);
}

void CHyEditDate::SetBlankSelected()
{
    SetBlank();
    if (m_hWnd != nullptr)
        SetSel(0, -1);
}

int CHyEditDate::IsBlank() const
{
    const CString text = CurrentText();
    return _mbscmp(reinterpret_cast<const unsigned char*>((LPCTSTR)text),
                   reinterpret_cast<const unsigned char*>((LPCTSTR)blankString)) == 0
               ? 1
               : 0;
}

// ---- parsing and writing ----

int CHyEditDate::ReadFormat()
{
    year = month = day = -1;
    if (IsBlank())
        return 1;

    const CString picture = CIntlTime::GetDateFormat(HYINTL_SHORTDATE, 1);
    CString separator;
    CIntlTime::GetDateSeperator(separator);
    const TCHAR chSeparator = separator.IsEmpty() ? '/' : separator[0];
    const CString text = CurrentText();
    const int parsed = CIntlTime::ParseDateFromFormat(picture, text, chSeparator, &year, &month, &day);
    // The year step runs whatever the parse gave: a failed parse leaves the
    // year at -1, which deliberately reads as 1999 with the default minYear.
    year = hy::ExpandEntryYear(year, minYear);
    return parsed;
}

int CHyEditDate::IsValidDate() const
{
    return hy::IsValidEntryDate(year, month, day, minYear, maxYear) ? 1 : 0;
}

int CHyEditDate::WriteFormat(int restoreOnError)
{
    const BOOL blank = IsBlank();
    if (!blank)
    {
        const CTime today = CTime::GetCurrentTime();
        if (day == -1)
            day = today.GetDay();
        if (month == -1)
            month = today.GetMonth();
        if (year == -1)
            year = today.GetYear();
    }

    if (IsValidDate())
    {
        // A valid day the locale cannot write (before the OLE calendar's
        // first year, or a leap day the Gregorian calendar lacks) keeps the
        // text as typed rather than emptying it.
        double date = 0.0;
        if (hy::DateToOleDate(year, month, day, date))
        {
            const CString text = HyGetDate(date, 1);
            if (!text.IsEmpty() && m_hWnd != nullptr)
                SetWindowText(text);
        }
        return 1;
    }

    if (restoreOnError && !blank && m_hWnd != nullptr)
    {
        const CIntlTime restored = lastTime > 0 ? CIntlTime((__time64_t)lastTime) : CIntlTime();
        AfxMessageBox(CBaseDialog::LoadHostString(kHostIdsDateNotValid), MB_ICONEXCLAMATION);
        // The box ran a modal loop; the host may have destroyed the field.
        if (m_hWnd == nullptr)
            return 0;
        SetWindowText(restored.FormatDate(HYINTL_SHORTDATE));
        if (HWND hParent = ::GetParent(m_hWnd))
            ::SendMessage(hParent, HYWM_DATEEDIT_RESTORED, 0, (LPARAM)restored.GetTime());
        if (m_hWnd != nullptr)
            SetSel(0, -1);
        return 0;
    }
    return 1;
}

// ---- setting the date ----

void CHyEditDate::SetDate(int nYear, int nMonth, int nDay)
{
    if (nMonth < 1 || nMonth > 12 || nDay < 1 || nDay > 31)
        return;
    year = nYear;
    month = nMonth;
    day = nDay;
    WriteFormat(1);
}

void CHyEditDate::SetDate(long time)
{
    struct tm local = {};
    if (time <= 0 || CTime((__time64_t)time).GetLocalTm(&local) == nullptr)
    {
        year = month = day = -1;
        SetBlank();
        return;
    }
    SetDate(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday);
    if (IsValidDate())
        lastTime = time;
}

BOOL CHyEditDate::TakeOleDate(double date, HyDateTimeParts& parts)
{
    if (!OleDateDay(date, parts))
    {
        value = -1.0;
        year = month = day = -1;
        SetBlank();
        return FALSE;
    }
    value = date;
    return TRUE;
}

void CHyEditDate::SetDate(double date)
{
    HyDateTimeParts parts = {};
    if (!TakeOleDate(date, parts))
        return;
    SetDate(parts.year, parts.month, parts.day);
    long time = 0;
    if (IsValidDate() && LocalTimeT(parts.year, parts.month, parts.day, parts.hour, parts.minute, parts.second, time))
        lastTime = time;
}

void CHyEditDate::SetEdit(double date)
{
    HyDateTimeParts parts = {};
    if (!TakeOleDate(date, parts))
        return;
    year = parts.year;
    month = parts.month;
    day = parts.day;
    const CString text = HyGetDate(date, 1);
    if (text.IsEmpty())
        SetBlank();
    else if (m_hWnd != nullptr)
        SetWindowText(text);
}

// ---- reading the date ----

double CHyEditDate::GetDate() const
{
    if (!IsValidDate())
        return -1.0;
    HyDateTimeParts parts = { year, month, day, kReadHour, 0, 0, 0, 0 };
    double date = -1.0;
    if (!hy::PartsToOleDate(parts, date))
        return -1.0;
    return date;
}

int CHyEditDate::GetDateEntered(int& nYear, int& nMonth, int& nDay)
{
    if (!ReadFormat() || !IsValidDate())
    {
        nYear = nMonth = nDay = -1;
        return 0;
    }
    nYear = year;
    nMonth = month;
    nDay = day;
    return 1;
}

int CHyEditDate::GetDateEntered(long& time)
{
    int y = 0, m = 0, d = 0;
    if (!GetDateEntered(y, m, d) || !LocalTimeT(y, m, d, kReadHour, 0, 0, time))
    {
        time = -1;
        return 0;
    }
    return 1;
}

int CHyEditDate::GetDateEntered(double& date)
{
    int y = 0, m = 0, d = 0;
    date = -1.0;
    if (!GetDateEntered(y, m, d))
        return 0;
    HyDateTimeParts parts = { y, m, d, kReadHour, 0, 0, 0, 0 };
    return hy::PartsToOleDate(parts, date) ? 1 : 0;
}

// ---- messages ----

BOOL CHyEditDate::ParentTakesKey(UINT message, UINT nChar)
{
    HWND hParent = ::GetParent(m_hWnd);
    return hParent != nullptr && ::SendMessage(hParent, message, (WPARAM)nChar, 0) == (LRESULT)message;
}

void CHyEditDate::OnKillFocus(CWnd* pNewWnd)
{
    if (GetWindowTextLength() > 0)
    {
        // A parsable date is rewritten in the canonical form; an impossible
        // one (31 February) does not parse and stays as typed.
        if (ReadFormat())
            WriteFormat(0);
    }
    else if (!allowBlank)
    {
        if (blankString.IsEmpty())
        {
            ReadFormat();
            WriteFormat(1);
        }
        else
            SetBlank();
    }
    CTernEdit::OnKillFocus(pNewWnd);
}

void CHyEditDate::OnChar(UINT nChar, UINT nRepCnt, UINT nFlags)
{
    if (nChar == VK_RETURN)
        return;
    CTernEdit::OnChar(nChar, nRepCnt, nFlags);
    if (m_hWnd != nullptr && GetWindowTextLength() == 0)
        SetBlankSelected();
}

void CHyEditDate::OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags)
{
    if (ParentTakesKey(HYWM_DATEEDIT_KEYDOWN, nChar))
        return;
    CTernEdit::OnKeyDown(nChar, nRepCnt, nFlags);
    if (nChar == VK_DELETE && m_hWnd != nullptr && GetWindowTextLength() == 0)
        SetBlankSelected();
}

void CHyEditDate::OnKeyUp(UINT nChar, UINT nRepCnt, UINT nFlags)
{
    if (ParentTakesKey(HYWM_DATEEDIT_KEYUP, nChar))
        return;
    CTernEdit::OnKeyUp(nChar, nRepCnt, nFlags);
}

void CHyEditDate::OnLButtonDblClk(UINT nFlags, CPoint point)
{
    CTernEdit::OnLButtonDblClk(nFlags, point);
    SetSel(0, -1);
}
