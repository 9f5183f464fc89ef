// CHyDatePicker, the control: creation, geometry, the displayed months, the
// selection, events and hit testing. Its input (keys, mouse, menus, tooltips,
// the rollover timer, the drag target) is in HyDatePickerInput.cpp, its
// painting in HyDatePickerPaint.cpp, its window-free decisions in
// HyPickerLayout.h.
#include "HyDatePicker.h"
#include "HyDatePickerImpl.h"

#include <afxdisp.h>
#include <windowsx.h>
#include <new>

#include "HyCalMonth.h"
#include "HyCommonUI.h"
#include "HyOleDate.h"
#include "HyPickerDecisions.h"
#include "HyUIRes.h"

IMPLEMENT_DYNAMIC(CHyDatePicker, CWnd)

using hydp::ToCRect;
using hydp::ToHyRect;

BEGIN_MESSAGE_MAP(CHyDatePicker, CWnd)
    ON_WM_CREATE()
    ON_WM_DESTROY()
    ON_WM_SIZE()
    ON_WM_PAINT()
    ON_WM_ERASEBKGND()
    ON_MESSAGE(WM_PRINTCLIENT, OnPrintClient)
    ON_WM_GETDLGCODE()
    ON_WM_KEYDOWN()
    ON_WM_CHAR()
    ON_WM_LBUTTONDOWN()
    ON_WM_LBUTTONUP()
    ON_WM_LBUTTONDBLCLK()
    ON_WM_MOUSEMOVE()
    ON_WM_MOUSEWHEEL()
    ON_WM_TIMER()
    ON_WM_CANCELMODE()
    ON_WM_SETFOCUS()
    ON_WM_KILLFOCUS()
    ON_WM_TIMECHANGE()
    ON_WM_SYSCOLORCHANGE()
    ON_MESSAGE(HYWM_DATEPICKER_DRAGOVER, OnDragOver)
    ON_MESSAGE(HYWM_DATEPICKER_DRAGEND, OnDragEnd)
    ON_MESSAGE(HYWM_DATEPICKER_DROP, OnDrop)
END_MESSAGE_MAP()

CHyDatePicker::CHyDatePicker()
    : maxYear(2031), minYear(1970), interactionState(-1), notifyWnd(nullptr),
      flags(HYDP_DEFAULT_FLAGS), focusPart(0), focusCal(-1), rolloverCal(-1), rolloverPart(0), pressed(0),
      dayWidth(1), dayHeight(1), cols(1), rows(1), calCount(1), border(3), absCalWidth(-1),
      absCalHeight(-1), highlight(-1, -1, -1, 0), lastHighlight(-1, -1, -1, 0), calendars(nullptr),
      startDate(-1, -1, -1, 0), hyAttributes(HYDPA_DEFAULT), timerRunning(0), wheelRemainder(0), dropDate(-1, -1, -1, 0)
{
    tipDate.Empty();
}

CHyDatePicker::~CHyDatePicker()
{
    ResetEventArray(0);
    delete[] calendars;
}

// ---- creation and geometry -------------------------------------------------

BOOL CHyDatePicker::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID, int nCols, int nRows,
                           int nAbsWidth, int nAbsHeight)
{
    SetCalColRowCount(nCols, nRows);
    SetAbsCalSize(nAbsWidth, nAbsHeight);
    // The window text is a name only; the class is the framework's default.
    return CWnd::Create(nullptr, _T("TernUIDatePicker"), dwStyle, rect, pParentWnd, nID);
}

BOOL CHyDatePicker::PreCreateWindow(CREATESTRUCT& cs)
{
    cs.style |= WS_TABSTOP;
    return CWnd::PreCreateWindow(cs);
}

void CHyDatePicker::SetCalColRowCount(int nCols, int nRows)
{
    cols = nCols > 0 ? nCols : 1;
    rows = nRows > 0 ? nRows : 1;
}

void CHyDatePicker::GetCalColRowCount(int* pCols, int* pRows) const
{
    if (pCols)
        *pCols = cols;
    if (pRows)
        *pRows = rows;
}

void CHyDatePicker::SetAbsCalSize(int nWidth, int nHeight)
{
    absCalWidth = nWidth;
    absCalHeight = nHeight;
}

void CHyDatePicker::ParentResized(UINT, int, int)
{
    // Deliberately nothing but the existence check: the picker keeps its size.
    if (!::IsWindow(m_hWnd))
        return;
}

HyPickerMetrics CHyDatePicker::GetMetrics() const
{
    HyPickerMetrics m{};
    RECT rc{0, 0, 0, 0};
    if (m_hWnd)
        ::GetClientRect(m_hWnd, &rc);
    m.clientWidth = rc.right - rc.left;
    m.clientHeight = rc.bottom - rc.top;
    m.cols = cols;
    m.rows = rows;
    m.absCalWidth = absCalWidth;
    m.absCalHeight = absCalHeight;
    m.border = border;
    m.dayWidth = dayWidth;
    m.dayHeight = dayHeight;
    return m;
}

CRect CHyDatePicker::GetCalBounds(int nIndex)
{
    return ToCRect(hy::PickerCalBounds(GetMetrics(), nIndex));
}

HyCalParts CHyDatePicker::GetCalRects(const CRect& bounds) const
{
    return hy::PickerCalParts(ToHyRect(bounds), dayHeight, flags);
}

CRect CHyDatePicker::GetCellRect(int nCalIndex, int nCell)
{
    const HyRect grid = GetCalRects(GetCalBounds(nCalIndex)).dayGrid;
    return ToCRect(hy::PickerCellRect(grid, dayWidth, dayHeight, nCell));
}

BOOL CHyDatePicker::GetDateCellRect(const CHyDate& date, CRect& rect, int nCalIndex)
{
    if (nCalIndex < 0)
        nCalIndex = DateToCalIndex(date.month, date.year);
    for (int i = nCalIndex >= 0 ? nCalIndex : 0; i < calCount && calendars; ++i)
    {
        const int cell = hy::CellShowingDate(calendars[i], date);
        if (cell >= 0)
        {
            rect = GetCellRect(i, cell);
            return TRUE;
        }
        if (nCalIndex >= 0)
            break;
    }
    return FALSE;
}

void CHyDatePicker::GetDayRect(CRect& rect)
{
    rect = ToCRect(GetCalRects(GetCalBounds(0)).dayGrid);
}

const CHyCalMonth* CHyDatePicker::GetCalendar(int nIndex) const
{
    if (!calendars || nIndex < 0 || nIndex >= calCount)
        return nullptr;
    return &calendars[nIndex];
}

void CHyDatePicker::CalcRects()
{
    CRect client;
    GetClientRect(&client);
    const HySingleCalRects r = hy::SingleCalRects(ToHyRect(client), ::GetSystemMetrics(SM_CYVTHUMB) - 1);
    prevArrowRect = ToCRect(r.prevArrow);
    nextArrowRect = ToCRect(r.nextArrow);
    captionRect = ToCRect(r.caption);
    monthPanelRect = ToCRect(r.monthPanel);
    dayAreaRect = ToCRect(r.dayArea);
}

int CHyDatePicker::OnCreate(LPCREATESTRUCT lpCreateStruct)
{
    if (CWnd::OnCreate(lpCreateStruct) == -1)
        return -1;
    CalcRects();
    calCount = cols * rows;
    delete[] calendars;   // a picker object may be created again
    calendars = new (std::nothrow) CHyCalMonth[calCount];
    if (!calendars)
        return -1;
    for (int i = 0; i < calCount; ++i)
    {
        int weekBegins = 0;   // absent: weeks begin on Sunday
        HyGetProfileInt("Almanac", "WorkWeekBegins", &weekBegins);
        calendars[i].mondayFirst = (short)(weekBegins & 0xFFFF);
    }
    int month, day, year;
    GetToday(&month, &day, &year);
    SetCalDates(month, year);
    LoadMonthNames();

    if (tooltip.Create(this, TTS_ALWAYSTIP | TTS_NOPREFIX))
    {
        tooltip.AddTool(this, _T(""));
        tooltip.SetMaxTipWidth(32767);
        RECT margin{4, 2, 4, 2};
        tooltip.SendMessage(TTM_SETMARGIN, 0, (LPARAM)&margin);
        tooltip.Activate(FALSE);
    }
    // The cell size and the window's shape follow from the size it was created with.
    CRect client;
    GetClientRect(&client);
    OnSize(SIZE_RESTORED, client.Width(), client.Height());
    return 0;
}

void CHyDatePicker::OnDestroy()
{
    if (timerRunning)
    {
        KillTimer(hydp::kRolloverTimer);
        timerRunning = 0;
    }
    if (tooltip.m_hWnd)
        tooltip.DestroyWindow();
    CWnd::OnDestroy();
}

void CHyDatePicker::OnSize(UINT nType, int cx, int cy)
{
    CWnd::OnSize(nType, cx, cy);
    HyPickerMetrics m = GetMetrics();
    hy::PickerCellSize(m);
    dayWidth = m.dayWidth;
    dayHeight = m.dayHeight;
    if (!calendars)
        return;
    // The window's shape is the union of the calendars.
    CRgn shape;
    shape.CreateRectRgn(0, 0, 0, 0);
    for (int i = 0; i < calCount; ++i)
    {
        CRgn one;
        one.CreateRectRgnIndirect(GetCalBounds(i));
        shape.CombineRgn(&shape, &one, RGN_OR);
    }
    // The system owns the region once it is set.
    if (SetWindowRgn((HRGN)shape.Detach(), TRUE) == 0)
        shape.DeleteObject();
}

// ---- displayed months and selection ----------------------------------------

// Months the calendars can show: years 1 to 9999.
static bool IsShowableMonth(int month, int year)
{
    return month >= 1 && month <= 12 && year >= 1 && year <= 9999;
}

void CHyDatePicker::SetCalDates(int nMonth, int nYear)
{
    int lastMonth = nMonth, lastYear = nYear;
    if (IsShowableMonth(nMonth, nYear))
        IncrMonth(lastMonth, lastYear, calCount - 1);
    if (!calendars || !IsShowableMonth(nMonth, nYear) || !IsShowableMonth(lastMonth, lastYear))
        return;
    for (int i = 0; i < calCount; ++i)
    {
        int month = nMonth, year = nYear;
        IncrMonth(month, year, i);
        CHyCalMonth& cal = calendars[i];
        cal.SetMonth(month, year);
        if (month == 9 && year == 1752)
        {
            // The grid's September 1752 table carries the days only and keeps
            // the previous month's other fields; the picker completes it so
            // that the calendar knows which month it shows.
            cal.month = 9;
            cal.year = 1752;
            for (int& cellMonth : cal.cellMonth)
                cellMonth = 9;
        }
    }
}

void CHyDatePicker::GetDisplayMonth(int* pMonth, int* pYear) const
{
    const int month = calendars ? calendars[0].month : -1;
    const int year = calendars ? calendars[0].year : -1;
    if (pMonth)
        *pMonth = month;
    if (pYear)
        *pYear = year;
}

int CHyDatePicker::DateToCalIndex(int nMonth, int nYear) const
{
    if (!calendars)
        return -1;
    for (int i = 0; i < calCount; ++i)
        if (calendars[i].month == nMonth && calendars[i].year == nYear)
            return i;
    return -1;
}

CWnd* CHyDatePicker::GetNotifyTarget() const
{
    return notifyWnd ? notifyWnd : GetParent();
}

void CHyDatePicker::SetHighlightDate(int nMonth, int nDay, int nYear, int bRedraw)
{
    if (!IsShowableMonth(nMonth, nYear))
        return;   // no such month: nothing to show
    if (calendars)
    {
        int i = DateToCalIndex(nMonth, nYear);
        if (i == -1)
        {
            SetCalDates(nMonth, nYear);
            i = DateToCalIndex(nMonth, nYear);
            if (CWnd* target = GetNotifyTarget(); target && m_hWnd)
                target->SendMessage(HYWM_DATEPICKER_MONTHSCHANGED, 0, 0);
        }
        if (i == -1 || calendars[i].FindCell(nDay, nMonth) == CHyCalMonth::CellCount)
            nDay = 1;
    }
    flags |= HYDP_HIGHLIGHT;
    highlight = CHyDate(nYear, nMonth, nDay, 0);
    if (bRedraw)
        RedrawAll();
}

void CHyDatePicker::GetHighlightDate(int* pMonth, int* pDay, int* pYear) const
{
    if (pMonth)
        *pMonth = highlight.month;
    if (pDay)
        *pDay = highlight.day;
    if (pYear)
        *pYear = highlight.year;
}

void CHyDatePicker::SetSelection(int nYear, int nMonth, int nDay, int bNotify)
{
    SetHighlightDate(nMonth, nDay, nYear, 1);
    if (bNotify)
        PostParent();
}

void CHyDatePicker::GetSelection(int& nYear, int& nMonth, int& nDay) const
{
    nYear = highlight.year;
    nMonth = highlight.month;
    nDay = highlight.day;
}

void CHyDatePicker::GetToday(int* pMonth, int* pDay, int* pYear)
{
    const COleDateTime now = COleDateTime::GetCurrentTime();
    if (pMonth)
        *pMonth = now.GetMonth();
    if (pDay)
        *pDay = now.GetDay();
    if (pYear)
        *pYear = now.GetYear();
}

void CHyDatePicker::GetToday(CHyDate* pDate)
{
    if (!pDate)
        return;
    GetToday(&pDate->month, &pDate->day, &pDate->year);
    pDate->flags = 0;
}

void CHyDatePicker::SetDisplayMonth(int nMonth, int nYear, int bRedraw)
{
    if (!IsShowableMonth(nMonth, nYear))
        return;
    int oldMonth, oldYear;
    GetDisplayMonth(&oldMonth, &oldYear);
    const bool highlighted = (flags & HYDP_HIGHLIGHT) != 0;
    const int shownAt = highlighted ? DateToCalIndex(highlight.month, highlight.year) : -1;

    SetCalDates(nMonth, nYear);

    if (highlighted && DateToCalIndex(highlight.month, highlight.year) == -1)
    {
        // The highlight keeps its position and day number, or moves into the first calendar.
        if (shownAt != -1 && calendars)
            SetHighlightDate(calendars[shownAt].month, highlight.day, calendars[shownAt].year, 0);
        else
            SetHighlightDate(nMonth, highlight.day, nYear, 0);
    }
    int newMonth, newYear;
    GetDisplayMonth(&newMonth, &newYear);
    if (newMonth != oldMonth || newYear != oldYear)
    {
        if (CWnd* target = GetNotifyTarget(); target && m_hWnd)
            target->SendMessage(HYWM_DATEPICKER_MONTHSCHANGED, 0, 0);
    }
    if (bRedraw)
        RedrawAll();
}

void CHyDatePicker::SetStartDate(int nMonth, int nDay, int nYear, int bRedraw)
{
    startDate = CHyDate(nYear, nMonth, nDay, 0);
    if (bRedraw)
        RedrawAll();
}

void CHyDatePicker::GetMaxMonthYearCurCal(int& nMonth, int& nYear) const
{
    nMonth = 12;
    nYear = maxYear;
    IncrMonth(nMonth, nYear, focusCal - calCount + 1);
}

int CHyDatePicker::Is_MMYY_ValidForCurCal(int nMonth, int nYear) const
{
    int maxMonth, maxYearOfCal;
    GetMaxMonthYearCurCal(maxMonth, maxYearOfCal);
    return Is_MMYY_ValidForCurCal(nMonth, nYear, maxMonth, maxYearOfCal);
}

int CHyDatePicker::Is_MMYY_ValidForCurCal(int nMonth, int nYear, int nMaxMonth, int nMaxYear, int) const
{
    return hy::IsMonthNotAfter(nMonth, nYear, nMaxMonth, nMaxYear) ? 1 : 0;
}

void CHyDatePicker::IncrMonth(int& nMonth, int& nYear, int nDelta)
{
    hy::IncrMonth(nMonth, nYear, nDelta);
}

void CHyDatePicker::LoadMonthNames()
{
    monthNames.RemoveAll();
    for (int month = 1; month <= 12; ++month)
        monthNames.Add(COleDateTime(2000, month, 1, 0, 0, 0).Format(_T("%B")));
}

int CHyDatePicker::FindMonth(char chLetter, int nStart)
{
    if (monthNames.GetSize() < 12)
        LoadMonthNames();
    char initials[12];
    for (int i = 0; i < 12; ++i)
    {
        const CString& name = monthNames[i];
        char first[2] = {name.IsEmpty() ? '\0' : (char)name.GetAt(0), '\0'};
        ::CharUpperBuffA(first, 1);
        initials[i] = first[0];
    }
    char letter[2] = {chLetter, '\0'};
    ::CharUpperBuffA(letter, 1);
    return hy::FindMonthByInitial(initials, letter[0], nStart);
}

void CHyDatePicker::PostParent(int, int, int)
{
    if (!IsYearInLimits(highlight.year) || !m_hWnd)
        return;
    if (CWnd* target = GetNotifyTarget())
        target->PostMessage(HYWM_DATEPICKER_SELCHANGE, (WPARAM)(highlight.year & 0xFFFF),
                            MAKELPARAM(highlight.day, highlight.month));
}

void CHyDatePicker::RedrawAll()
{
    if (m_hWnd && ::IsWindow(m_hWnd))
        RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
}

// Repaints what a change of the highlighted day touches: the two cells, or
// everything when whole weeks are highlighted or the months changed.
void CHyDatePicker::RepaintHighlightChange(const CHyDate& before, bool monthsChanged)
{
    if (!m_hWnd)
        return;
    if (monthsChanged || (GetStyle() & HYDPS_WHOLE_WEEK))
    {
        RedrawAll();
        return;
    }
    InvalidateDay(before);
    InvalidateDay(highlight);
    UpdateWindow();
}

// ---- events ----------------------------------------------------------------

int CHyDatePicker::AddEvent(int nYear, int nMonth, int nDay, int bRedraw, int nKind)
{
    for (INT_PTR i = 0; i < events.GetSize();)
    {
        const CHyDate& e = events[i];
        if (e.year == nYear && e.month == nMonth && e.day == nDay)
        {
            // A marked kind is never replaced; a plain mark gives way to a kind.
            if (e.flags != 0 || nKind == 0)
                return -1;
            events.RemoveAt(i);
            continue;
        }
        ++i;
    }
    CHyDate added(nYear, nMonth, nDay, nKind);
    events.Add(added);
    if (bRedraw && m_hWnd)
        RedrawAll();
    return 0;
}

int CHyDatePicker::AddEvent(CHyDate* pDates, int nCount, int bRedraw)
{
    int result = -1;
    for (int i = 0; pDates && i < nCount; ++i)
    {
        // The elements' own kinds are deliberately not passed on.
        if (AddEvent(pDates[i].year, pDates[i].month, pDates[i].day, 0, 0) == 0)
            result = 0;
    }
    if (bRedraw)
        RedrawAll();
    return result;
}

int CHyDatePicker::AddEvent(CArray<CHyDate, CHyDate&>* pDates, int bRedraw)
{
    if (!pDates)
        return AddEvent((CHyDate*)nullptr, 0, bRedraw);
    return AddEvent(pDates->GetData(), (int)pDates->GetSize(), bRedraw);
}

int CHyDatePicker::RemoveEvent(int nYear, int nMonth, int nDay, int bRedraw)
{
    for (INT_PTR i = 0; i < events.GetSize(); ++i)
    {
        const CHyDate& e = events[i];
        if (e.year == nYear && e.month == nMonth && e.day == nDay)
        {
            events.RemoveAt(i);
            return 0;   // deliberately no redraw here, even when asked
        }
    }
    if (bRedraw)
        RedrawAll();   // deliberately redraws only when nothing was removed
    return -1;
}

int CHyDatePicker::RemoveEvent(CHyDate* pDates, int nCount, int bRedraw)
{
    int result = -1;
    for (int i = 0; pDates && i < nCount; ++i)
        if (RemoveEvent(pDates[i].year, pDates[i].month, pDates[i].day, 0) == 0)
            result = 0;
    if (bRedraw)
        RedrawAll();
    return result;
}

void CHyDatePicker::ResetEventArray(int bRedraw)
{
    if (events.GetSize() != 0)
        events.RemoveAll();
    if (bRedraw && m_hWnd)
        RedrawAll();
}

void CHyDatePicker::GetDateRange(CHyDate* pFirst, CHyDate* pLast) const
{
    if (!calendars)
        return;
    int d, m, y;
    if (pFirst)
    {
        calendars[0].GetCellDate(0, d, m, y);
        *pFirst = CHyDate(y, m, d, 0);
    }
    if (pLast)
    {
        calendars[calCount - 1].GetCellDate(CHyCalMonth::CellCount - 1, d, m, y);
        *pLast = CHyDate(y, m, d, 0);
    }
}

// ---- hit testing -------------------------------------------------------------

int CHyDatePicker::PtToCalIndex(CPoint point)
{
    return hy::PickerCalAt(GetMetrics(), calendars ? calCount : 0, point.x, point.y);
}

int CHyDatePicker::PtToFocus(int nCalIndex, CPoint point)
{
    if (nCalIndex < 0 || nCalIndex >= calCount)
        return HYPART_NONE;
    const HyCalParts parts = GetCalRects(GetCalBounds(nCalIndex));
    return hy::PickerPartAt(parts, point.x, point.y, flags, nCalIndex, cols);
}

int CHyDatePicker::PtToGrid(int nCalIndex, CPoint point, CPoint& cell)
{
    if (nCalIndex < 0 || nCalIndex >= calCount)
        return 0;
    const HyCalParts parts = GetCalRects(GetCalBounds(nCalIndex));
    int col, row;
    const bool inside = hy::PickerGridCell(parts.dayGrid, dayWidth, dayHeight, point.x, point.y, col, row);
    cell = CPoint(col, row);
    return inside ? 1 : 0;
}

int CHyDatePicker::GridToDate(int nCalIndex, CPoint cell, CHyDate& date, int bAllowOtherMonths) const
{
    const CHyCalMonth* cal = GetCalendar(nCalIndex);
    if (!cal || cell.x < 0 || cell.x > 6 || cell.y < 0 || cell.y > 5)
        return 0;
    int d, m, y;
    cal->GetCellDate(cell.y * 7 + cell.x, d, m, y);
    if (d < 1 || m < 1)
        return 0;   // an empty cell (September 1752)
    if (!bAllowOtherMonths && m != cal->month)
        return 0;
    date = CHyDate(y, m, d, 0);
    return 1;
}

int CHyDatePicker::GridToClosestDate(int nCalIndex, CPoint cell, CHyDate& date) const
{
    const CHyCalMonth* cal = GetCalendar(nCalIndex);
    const int chosen = cal ? hy::ClosestOwnMonthCell(*cal, cell.x, cell.y) : -1;
    if (chosen < 0)
        return 0;
    date = CHyDate(cal->year, cal->month, cal->cellDay[chosen], 0);
    return 1;
}

int CHyDatePicker::DetermineDate(CPoint point, CHyDate& date)
{
    const int cal = PtToCalIndex(point);
    if (cal < 0 || PtToFocus(cal, point) != HYPART_DAY_GRID)
        return 0;
    CPoint cell;
    PtToGrid(cal, point, cell);
    return GridToDate(cal, cell, date, 1);
}

void CHyDatePicker::GetMonthString(int nMonth, CString& text) const
{
    // The full name when the month caption has the whole header.
    text = COleDateTime(2000, nMonth, 1, 0, 0, 0).Format((flags & HYDP_MONTH_ONLY_HEADER) ? _T("%B") : _T("%b"));
}

void CHyDatePicker::GetYearString(int nYear, CString& text) const
{
    text = COleDateTime(nYear, 1, 1, 0, 0, 0).Format(_T("%Y"));
}

