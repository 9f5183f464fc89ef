// CHyDatePicker's input: keys, mouse, the month and year menus, day
// tooltips, the rollover timer and the drag-target messages. Each handler
// reads the state, asks a window-free decision (HyPickerLayout.h) and acts.
#include "HyDatePicker.h"
#include "HyDatePickerImpl.h"

#include <afxdisp.h>
#include <windowsx.h>

#include "HyCalMonth.h"
#include "HyCommonUI.h"
#include "HyOleDate.h"
#include "HyPickerDecisions.h"
#include "HyUIRes.h"

namespace {

using hydp::kRolloverTimer;
using hydp::ToCRect;
constexpr UINT kRolloverPeriod = 10;       // ms
constexpr int kDragSnapBack = 40;          // pixels around the client area
// The menus return the command, send no notifications and hang from the
// caption's bottom edge; the year menu's right edge meets the caption's.
constexpr UINT kMonthMenuFlags = TPM_RETURNCMD | TPM_NONOTIFY | TPM_BOTTOMALIGN;
constexpr UINT kYearMenuFlags = kMonthMenuFlags | TPM_RIGHTALIGN;
static_assert(kMonthMenuFlags == 416 && kYearMenuFlags == 424);
constexpr UINT kDlgCode = DLGC_WANTARROWS | DLGC_WANTTAB | DLGC_WANTCHARS;
static_assert(kDlgCode == 131);

bool IsKeyDown(int vk)
{
    return (::GetKeyState(vk) & 0x8000) != 0;
}

} // namespace

// ---- keyboard ----------------------------------------------------------------

UINT CHyDatePicker::OnGetDlgCode()
{
    return kDlgCode;
}

void CHyDatePicker::StepDisplay(int nMonths, int bCheckLimits)
{
    int month, year;
    GetDisplayMonth(&month, &year);
    IncrMonth(month, year, nMonths);
    if (bCheckLimits && !IsYearInLimits(year))
    {
        ::MessageBeep((UINT)-1);
        return;
    }
    SetDisplayMonth(month, year, 1);
    PostParent();
}

void CHyDatePicker::MoveHighlightByDays(int nDays)
{
    double date;
    if (!(flags & HYDP_HIGHLIGHT) || !hy::DateToOleDate(highlight.year, highlight.month, highlight.day, date))
        return;   // no valid day to move from
    HyDateTimeParts parts;
    if (!hy::OleDateToParts(date + nDays, parts) || !IsYearInLimits(parts.year))
    {
        ::MessageBeep((UINT)-1);
        return;
    }
    const CHyDate before = highlight;
    const bool shown = DateToCalIndex(parts.month, parts.year) != -1;
    SetHighlightDate(parts.month, parts.day, parts.year, 0);
    RepaintHighlightChange(before, !shown);
    PostParent();
}

void CHyDatePicker::OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags)
{
    if (!calendars)
    {
        Default();
        return;
    }
    switch (nChar)
    {
    case VK_TAB:
        if (CWnd* parent = GetParent())
            parent->SendMessage(WM_NEXTDLGCTL, IsKeyDown(VK_SHIFT) ? 1 : 0, 0);
        Default();
        return;
    case VK_PRIOR:
    case VK_NEXT:
    {
        const int step = IsKeyDown(VK_CONTROL) ? 12 : calCount;
        StepDisplay(nChar == VK_PRIOR ? -step : step, 1);
        return;
    }
    case VK_HOME:
        if (calendars[0].month == 1)
        {
            ::MessageBeep((UINT)-1);
            return;
        }
        SetDisplayMonth(1, calendars[0].year, 1);
        PostParent();
        return;
    case VK_END:
    {
        const CHyCalMonth& last = calendars[calCount - 1];
        if (last.month == 12)
        {
            ::MessageBeep((UINT)-1);
            return;
        }
        int month = 12, year = last.year;
        IncrMonth(month, year, 1 - calCount);
        SetDisplayMonth(month, year, 1);
        PostParent();
        return;
    }
    case VK_LEFT:
    case VK_RIGHT:
    case VK_UP:
    case VK_DOWN:
        // A day back or on; a week up or down.
        MoveHighlightByDays((nChar == VK_LEFT || nChar == VK_UP ? -1 : 1) * (nChar == VK_UP || nChar == VK_DOWN ? 7 : 1));
        return;
    default:
        Default();
        return;
    }
}

void CHyDatePicker::OnChar(UINT nChar, UINT nRepCnt, UINT nFlags)
{
    // A typed letter shows the next month of the first calendar's year whose
    // name starts with it.
    if (!calendars || nChar > 0xFF || !::IsCharAlphaA((CHAR)nChar))
    {
        Default();
        return;
    }
    const int month = FindMonth((char)nChar, calendars[0].month);
    if (month == -1)
    {
        ::MessageBeep((UINT)-1);
        return;
    }
    SetDisplayMonth(month, calendars[0].year, 1);
    PostParent();
}

// ---- mouse -------------------------------------------------------------------

void CHyDatePicker::OnLButtonDown(UINT nFlags, CPoint point)
{
    tipDate.Empty();
    if (tooltip.m_hWnd)
        tooltip.Activate(FALSE);
    ResetRolloverState();
    SetCapture();
    if (GetFocus() != this)
        SetFocus();

    focusCal = PtToCalIndex(point);
    focusPart = PtToFocus(focusCal, point);
    if (focusPart == HYPART_NONE)
    {
        Default();
        return;
    }
    pressed = 1;
    if (focusPart > HYPART_DAY_GRID)
    {
        pressed = 0;
        focusPart = 0;
        focusCal = -1;
    }

    switch (focusPart)
    {
    case HYPART_PREV_ARROW:
    case HYPART_NEXT_ARROW:
        RedrawAll();   // the month moves at the button-up
        break;
    case HYPART_MONTH_CAPTION:
    case HYPART_YEAR_CAPTION:
        PressCaption();
        break;
    case HYPART_DAY_GRID:
        PressDay(point);
        break;
    default:
        break;
    }
    Default();
}

// A caption pressed: select its month, or open its menu.
void CHyDatePicker::PressCaption()
{
    const bool selects = focusPart == HYPART_MONTH_CAPTION ? (flags & HYDP_MONTH_SELECTS) != 0
                                                           : (flags & HYDP_YEAR_SELECTS) != 0;
    if (!selects)
    {
        TrackCaptionMenu(focusCal, focusPart);
        return;
    }
    RedrawAll();
    const CHyCalMonth& cal = calendars[focusCal];
    const int part = focusPart;
    SetSelection(cal.year, cal.month, highlight.day, 1);
    if (CWnd* parent = GetParent())
        parent->PostMessage(HYWM_DATEPICKER_CHOSEN, (WPARAM)part << 16, 0);
}

// A day of the grid pressed (step 6 of the button-down).
void CHyDatePicker::PressDay(CPoint point)
{
    CPoint cell;
    PtToGrid(focusCal, point, cell);
    CHyDate date;
    if (!GridToDate(focusCal, cell, date, 1))
        return;
    const CHyCalMonth& cal = calendars[focusCal];
    const bool isHighlighted = (flags & HYDP_HIGHLIGHT) && date == highlight;
    const HyDayPress press = hy::DecideDayPress(date, cal.month, cal.year, isHighlighted,
                                                focusCal == calCount - 1, minYear, maxYear);
    if (press == HyDayPress::Nothing)
        return;
    if (press == HyDayPress::SelectOwnDay)
    {
        // Only here: a press on the highlighted day or on a neighbouring
        // month's day leaves the day a drag snaps back to as it was.
        lastHighlight = highlight;
        const CHyDate before = highlight;
        flags &= ~HYDP_HIGHLIGHT;
        SetHighlightDate(date.month, date.day, date.year, 0);
        RepaintHighlightChange(before, false);
        return;
    }
    if (press == HyDayPress::Beep)
        ::MessageBeep((UINT)-1);
    if (press == HyDayPress::StepOnAndHighlight)
    {
        int month = calendars[0].month, year = calendars[0].year;
        IncrMonth(month, year, 1);
        SetDisplayMonth(month, year, 0);
    }
    if (press != HyDayPress::Beep)
        SetHighlightDate(date.month, date.day, date.year, 0);
    pressed = 0;
    focusPart = 0;
    focusCal = -1;
    Invalidate();
    PostParent();
}

void CHyDatePicker::TrackCaptionMenu(int nCalIndex, int nPart)
{
    const CHyCalMonth& cal = calendars[nCalIndex];
    const bool yearMenu = nPart == HYPART_YEAR_CAPTION;
    int maxMonth, maxYearOfCal;
    GetMaxMonthYearCurCal(maxMonth, maxYearOfCal);
    HyMonthYear entries[hy::kPickerMenuEntries];
    const int count =
        hy::PickerMenuEntries(cal.month, cal.year, yearMenu, minYear, maxMonth, maxYearOfCal, entries);
    const int calMonth = cal.month, calYear = cal.year;

    CMenu menu;
    UINT command = 0;
    if (count > 0 && menu.CreatePopupMenu())
    {
        for (int i = 0; i < count; ++i)
        {
            const CString text = COleDateTime(entries[i].year, entries[i].month, 1, 0, 0, 0)
                                     .Format((UINT)(yearMenu ? IDS_YEAR_MENU_FORMAT : IDS_MONTH_MENU_FORMAT));
            const bool own = entries[i].month == calMonth && entries[i].year == calYear;
            menu.AppendMenu(MF_STRING | (own ? MF_CHECKED : MF_UNCHECKED), (UINT_PTR)(i + 1), text);
        }
        const HyCalParts parts = GetCalRects(GetCalBounds(nCalIndex));
        const HyRect& caption = yearMenu ? parts.yearCaption : parts.monthCaption;
        CPoint at(caption.left, caption.bottom + 2);
        ClientToScreen(&at);
        command = (UINT)menu.TrackPopupMenuEx(yearMenu ? kYearMenuFlags : kMonthMenuFlags, at.x, at.y, this,
                                              nullptr);
        menu.DestroyMenu();
    }
    // The menu took the click: the button is no longer held for us.
    pressed = 0;
    focusPart = 0;
    focusCal = -1;
    if (GetCapture() == this)
        ::ReleaseCapture();
    if (command >= 1 && (int)command <= count)
    {
        const HyMonthYear& chosen = entries[command - 1];
        const int delta = yearMenu ? (chosen.year - calYear) * 12
                                   : hy::MonthsBetween(calMonth, calYear, chosen.month, chosen.year);
        int month, year;
        GetDisplayMonth(&month, &year);
        IncrMonth(month, year, delta);
        SetDisplayMonth(month, year, 1);
        PostParent();
    }
    else
    {
        RedrawAll();   // no choice: only the pressed caption returns to normal
    }
}

void CHyDatePicker::StepArrow(int nCalIndex, int nPart)
{
    int after = calendars[nCalIndex].month, afterYear = calendars[nCalIndex].year;
    IncrMonth(after, afterYear, 1);
    const bool nextValid = nPart != HYPART_NEXT_ARROW || Is_MMYY_ValidForCurCal(after, afterYear);
    int displayMonth, displayYear, month, year;
    GetDisplayMonth(&displayMonth, &displayYear);
    focusPart = 0;
    if (!hy::DecideArrowStep(nPart, displayMonth, displayYear, nextValid, minYear, maxYear, month, year))
    {
        ::MessageBeep((UINT)-1);
        RedrawAll();
        return;
    }
    SetDisplayMonth(month, year, 1);
    PostParent();
}

void CHyDatePicker::OnLButtonUp(UINT nFlags, CPoint point)
{
    if (GetCapture() != this)
    {
        Default();
        return;
    }
    ::ReleaseCapture();
    pressed = 0;
    // Hit-tested again: the arrow under the release point acts, wherever the
    // press began.
    const int cal = PtToCalIndex(point);
    const int part = PtToFocus(cal, point);
    const bool arrowWasPressed = focusPart == HYPART_PREV_ARROW || focusPart == HYPART_NEXT_ARROW;
    if ((part == HYPART_PREV_ARROW || part == HYPART_NEXT_ARROW) && calendars)
        StepArrow(cal, part);
    else if (part == HYPART_DAY_GRID)
        PostParent();
    if (arrowWasPressed && focusPart != 0)
    {
        focusPart = 0;
        RedrawAll();   // the pressed arrow returns to normal
    }
    focusPart = 0;
    focusCal = -1;
    Default();
}

void CHyDatePicker::OnLButtonDblClk(UINT nFlags, CPoint point)
{
    // The click is handled first; what lies under the point afterwards (the
    // months may have moved) decides whether a day was chosen.
    SendMessage(WM_LBUTTONDOWN, nFlags, MAKELPARAM(point.x, point.y));
    CHyDate date;
    const int cal = PtToCalIndex(point);
    if (cal >= 0 && PtToFocus(cal, point) == HYPART_DAY_GRID)
    {
        CPoint cell;
        PtToGrid(cal, point, cell);
        if (GridToDate(cal, cell, date, 0))
            if (CWnd* parent = GetParent())
                parent->PostMessage(HYWM_DATEPICKER_CHOSEN, (WPARAM)HYPART_DAY_GRID << 16, 0);
    }
}

void CHyDatePicker::RelayEvent(UINT message, WPARAM wParam, LPARAM lParam, LPCTSTR lpszText)
{
    if (!tooltip.m_hWnd)
        return;
    if (tipText != lpszText)
    {
        tipText = lpszText;
        tooltip.UpdateTipText(tipText, this);
    }
    tooltip.Activate(!tipText.IsEmpty());
    MSG msg{};
    msg.hwnd = m_hWnd;
    msg.message = message;
    msg.wParam = wParam;
    msg.lParam = lParam;
    msg.time = ::GetMessageTime();
    msg.pt = CPoint((DWORD)::GetMessagePos());
    tooltip.RelayEvent(&msg);
}

void CHyDatePicker::TrackTooltip(UINT nFlags, CPoint point, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (nFlags & (MK_LBUTTON | MK_RBUTTON))
        return;
    CHyDate date;
    if (!DetermineDate(point, date))
    {
        if (tipDate.year != 0 || tipDate.month != 0 || tipDate.day != 0)
        {
            tipDate.Empty();
            if (tooltip.m_hWnd)
                tooltip.Activate(FALSE);
        }
        return;
    }
    if (date == tipDate)
        return;
    tipDate = date;
    CString text;
    if (CWnd* target = GetNotifyTarget())
        target->SendMessage(HYWM_DATEPICKER_GETTIP, (WPARAM)&tipDate, (LPARAM)&text);
    RelayEvent(message, wParam, lParam, text);
}

void CHyDatePicker::OnMouseMove(UINT nFlags, CPoint point)
{
    const MSG* current = GetCurrentMessage();
    TrackTooltip(nFlags, point, WM_MOUSEMOVE, current ? current->wParam : nFlags,
                 MAKELPARAM(point.x, point.y));

    if (!pressed && !timerRunning)
    {
        SetTimer(kRolloverTimer, kRolloverPeriod);
        timerRunning = 1;
    }

    if (GetCapture() == this && pressed && focusPart == HYPART_DAY_GRID)
    {
        CRect zone;
        GetClientRect(&zone);
        zone.InflateRect(kDragSnapBack, kDragSnapBack);
        CHyDate wanted = lastHighlight;
        if (zone.PtInRect(point))
        {
            int cal = PtToCalIndex(point);
            if (cal < 0)
                cal = focusCal;
            CPoint cell;
            PtToGrid(cal, point, cell);
            if (!GridToClosestDate(cal, cell, wanted))
                wanted = highlight;
        }
        if (wanted != highlight && wanted.month >= 1 && wanted.month <= 12)
        {
            const CHyDate before = highlight;
            const bool shown = DateToCalIndex(wanted.month, wanted.year) != -1;
            flags &= ~HYDP_HIGHLIGHT;
            SetHighlightDate(wanted.month, wanted.day, wanted.year, 0);
            RepaintHighlightChange(before, !shown);
            PostParent();
        }
    }
    Default();
}

BOOL CHyDatePicker::OnMouseWheel(UINT nFlags, short zDelta, CPoint pt)
{
    // One month per notch (up = earlier); a fine wheel's part-notches add up.
    const int notches = hy::WheelNotches(wheelRemainder, zDelta);
    if (!calendars || notches == 0)
        return TRUE;
    int month, year;
    GetDisplayMonth(&month, &year);
    IncrMonth(month, year, -notches);
    if (!IsYearInLimits(year))
    {
        ::MessageBeep((UINT)-1);   // refused like any step beyond the limits
        return TRUE;
    }
    SetDisplayMonth(month, year, 1);
    PostParent();
    return TRUE;
}

void CHyDatePicker::ResetRolloverState()
{
    if (rolloverPart == 0 && rolloverCal == -1)
        return;
    const int cal = rolloverCal;
    rolloverCal = -1;
    rolloverPart = 0;
    if (cal >= 0 && m_hWnd)
    {
        const CRect header = ToCRect(GetCalRects(GetCalBounds(cal)).header);
        InvalidateRect(header, FALSE);
        UpdateWindow();
    }
}

void CHyDatePicker::OnTimer(UINT_PTR nIDEvent)
{
    if (nIDEvent != kRolloverTimer)
    {
        Default();
        return;
    }
    if (pressed)
        return;
    CPoint point;
    ::GetCursorPos(&point);
    ScreenToClient(&point);
    int cal = PtToCalIndex(point);
    int part = PtToFocus(cal, point);
    if (part < HYPART_PREV_ARROW || part > HYPART_YEAR_CAPTION)
    {
        cal = -1;
        part = 0;
    }
    if (cal != rolloverCal || part != rolloverPart)
    {
        ResetRolloverState();
        if (part)
        {
            focusCal = cal;
            focusPart = part;
            rolloverCal = cal;
            rolloverPart = part;
            InvalidateRect(ToCRect(GetCalRects(GetCalBounds(cal)).header), FALSE);
            UpdateWindow();
        }
    }
    CRect client;
    GetClientRect(&client);
    if (!client.PtInRect(point))
    {
        KillTimer(kRolloverTimer);
        timerRunning = 0;
        ResetRolloverState();
    }
    focusCal = -1;
    focusPart = 0;
}

void CHyDatePicker::OnCancelMode()
{
    CWnd::OnCancelMode();
    pressed = 0;
    focusPart = 0;
    focusCal = -1;
}

void CHyDatePicker::OnSetFocus(CWnd* pOldWnd)
{
    CWnd::OnSetFocus(pOldWnd);
    if (pOldWnd != this)
        RedrawAll();
}

void CHyDatePicker::OnKillFocus(CWnd* pNewWnd)
{
    CWnd::OnKillFocus(pNewWnd);
    if (pNewWnd != this)
        RedrawAll();
}

void CHyDatePicker::OnTimeChange()
{
    CWnd::OnTimeChange();
    RedrawAll();   // today may have moved
}

void CHyDatePicker::OnSysColorChange()
{
    CWnd::OnSysColorChange();
    RedrawAll();
}

BOOL CHyDatePicker::PreTranslateMessage(MSG* pMsg)
{
    if (pMsg->message == WM_MOUSEMOVE && pMsg->hwnd == m_hWnd)
        TrackTooltip((UINT)pMsg->wParam, CPoint(GET_X_LPARAM(pMsg->lParam), GET_Y_LPARAM(pMsg->lParam)),
                     pMsg->message, pMsg->wParam, pMsg->lParam);
    return CWnd::PreTranslateMessage(pMsg);
}

// ---- drag target -------------------------------------------------------------

void CHyDatePicker::MoveDropMark(const CHyDate& to)
{
    if (dropDate == to)
        return;
    if (dropDate.year != -1)
        InvalidateDay(dropDate);
    dropDate = to;
    if (to.year != -1)
        InvalidateDay(to);
    UpdateWindow();
}

LRESULT CHyDatePicker::OnDragOver(WPARAM wParam, LPARAM lParam)
{
    CHyDate date;
    const CPoint point(GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam));
    if (!DetermineDate(point, date))
    {
        MoveDropMark(CHyDate(-1, -1, -1, 0));
        return 0;
    }
    MoveDropMark(date);
    if (wParam)
        *(CHyDate*)wParam = date;
    return 1;
}

LRESULT CHyDatePicker::OnDragEnd(WPARAM, LPARAM)
{
    MoveDropMark(CHyDate(-1, -1, -1, 0));
    return 0;
}

LRESULT CHyDatePicker::OnDrop(WPARAM wParam, LPARAM lParam)
{
    CHyDate date;
    const CPoint point(GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam));
    const int found = DetermineDate(point, date);
    MoveDropMark(CHyDate(-1, -1, -1, 0));
    if (found && wParam)
        *(CHyDate*)wParam = date;
    return found;
}
