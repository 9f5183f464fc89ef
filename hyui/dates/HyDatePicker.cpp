// CHyDatePicker: model, geometry, keyboard, mouse, menus, tooltips and the
// drag-target messages. Painting is in HyDatePickerPaint.cpp.
#include "HyDatePicker.h"

#include <afxdisp.h>
#include <windowsx.h>
#include <new>

#include "HyCalMonth.h"
#include "HyCommonUI.h"
#include "HyOleDate.h"
#include "HyUIRes.h"

IMPLEMENT_DYNAMIC(CHyDatePicker, CWnd)

namespace {

constexpr UINT_PTR kRolloverTimer = 1;
constexpr UINT kRolloverPeriod = 10;       // ms
constexpr int kDragSnapBack = 40;          // pixels around the client area
constexpr DWORD kWeekHighlightStyle = 8192;
constexpr UINT kMonthMenuFlags = 416;      // return the command, no notification, bottom-aligned
constexpr UINT kYearMenuFlags = 424;       // the same, right-aligned
constexpr UINT kDlgCode = DLGC_WANTARROWS | DLGC_WANTTAB | DLGC_WANTCHARS;  // 131

CRect ToCRect(const HyRect& r)
{
    return CRect(r.left, r.top, r.right, r.bottom);
}

HyRect ToHyRect(const RECT& r)
{
    return HyRect{r.left, r.top, r.right, r.bottom};
}

bool IsKeyDown(int vk)
{
    return (::GetKeyState(vk) & 0x8000) != 0;
}

} // namespace

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
    const int s = ::GetSystemMetrics(SM_CYVTHUMB) - 1;
    prevArrowRect.SetRect(0, 2, s, s + 2);
    nextArrowRect.SetRect(client.right - s, 1, client.right, 1 + s + 1);
    captionRect.SetRect(prevArrowRect.right + s / 2, prevArrowRect.top - 1, nextArrowRect.left - s / 2,
                        prevArrowRect.bottom + 3);
    captionRect.DeflateRect(2, 2);
    monthPanelRect.SetRect(client.left, prevArrowRect.bottom + 8, client.right, 58);
    monthPanelRect.DeflateRect(2, 2);
    dayAreaRect.SetRect(client.left, monthPanelRect.bottom + 8, client.right, client.bottom);
    dayAreaRect.DeflateRect(2, 2);
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
        KillTimer(kRolloverTimer);
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
    if (monthsChanged || (GetStyle() & kWeekHighlightStyle))
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
    if (!cal)
        return 0;
    cell.x = cell.x < 0 ? 0 : (cell.x > 6 ? 6 : cell.x);
    cell.y = cell.y < 0 ? 0 : (cell.y > 5 ? 5 : cell.y);
    // The nearest day of the calendar's own month: cells before it give its
    // first day, cells after it its last, empty cells the next day shown.
    const int index = cell.y * 7 + cell.x;
    int first = -1, last = -1;
    for (int i = 0; i < CHyCalMonth::CellCount; ++i)
        if (cal->cellMonth[i] == cal->month && cal->cellDay[i] > 0)
        {
            if (first < 0)
                first = i;
            last = i;
        }
    if (first < 0)
        return 0;
    int chosen = index < first ? first : (index > last ? last : index);
    while (chosen < last && (cal->cellDay[chosen] < 1 || cal->cellMonth[chosen] != cal->month))
        ++chosen;
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
        MoveHighlightByDays(-1);
        return;
    case VK_RIGHT:
        MoveHighlightByDays(1);
        return;
    case VK_UP:
        MoveHighlightByDays(-7);
        return;
    case VK_DOWN:
        MoveHighlightByDays(7);
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
    {
        const bool selects = focusPart == HYPART_MONTH_CAPTION ? (flags & HYDP_MONTH_SELECTS) != 0
                                                               : (flags & HYDP_YEAR_SELECTS) != 0;
        if (selects)
        {
            RedrawAll();
            const CHyCalMonth& cal = calendars[focusCal];
            const int part = focusPart;
            SetSelection(cal.year, cal.month, highlight.day, 1);
            if (CWnd* parent = GetParent())
                parent->PostMessage(HYWM_DATEPICKER_CHOSEN, (WPARAM)part << 16, 0);
        }
        else
        {
            TrackCaptionMenu(focusCal, focusPart);
        }
        break;
    }
    case HYPART_DAY_GRID:
    {
        CPoint cell;
        PtToGrid(focusCal, point, cell);
        CHyDate date;
        if (!GridToDate(focusCal, cell, date, 1))
            break;
        const CHyCalMonth& cal = calendars[focusCal];
        if (date.month == cal.month && date.year == cal.year)
        {
            if ((flags & HYDP_HIGHLIGHT) && date == highlight)
                break;
            // Only here: a press on the highlighted day or on a neighbouring
            // month's day leaves the day a drag snaps back to as it was.
            lastHighlight = highlight;
            const CHyDate before = highlight;
            flags &= ~HYDP_HIGHLIGHT;
            SetHighlightDate(date.month, date.day, date.year, 0);
            RepaintHighlightChange(before, false);
            break;
        }
        // A day of a neighbouring month.
        if (!IsYearInLimits(date.year))
        {
            ::MessageBeep((UINT)-1);
        }
        else
        {
            const bool after = hy::MonthsBetween(cal.month, cal.year, date.month, date.year) > 0;
            if (after && focusCal == calCount - 1)
            {
                int month = calendars[0].month, year = calendars[0].year;
                IncrMonth(month, year, 1);
                SetDisplayMonth(month, year, 0);
            }
            SetHighlightDate(date.month, date.day, date.year, 0);
        }
        pressed = 0;
        focusPart = 0;
        focusCal = -1;
        Invalidate();
        PostParent();
        break;
    }
    default:
        break;
    }
    Default();
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
    if (nPart == HYPART_NEXT_ARROW)
    {
        int month = calendars[nCalIndex].month, year = calendars[nCalIndex].year;
        IncrMonth(month, year, 1);
        if (!Is_MMYY_ValidForCurCal(month, year))
        {
            ::MessageBeep((UINT)-1);
            focusPart = 0;
            RedrawAll();
            return;
        }
    }
    int month, year;
    GetDisplayMonth(&month, &year);
    IncrMonth(month, year, nPart == HYPART_PREV_ARROW ? -1 : 1);
    if (!IsYearInLimits(year))
    {
        ::MessageBeep((UINT)-1);
        focusPart = 0;
        RedrawAll();
        return;
    }
    focusPart = 0;
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
