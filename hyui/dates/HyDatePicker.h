// CHyDatePicker: a grid of month calendars (cols x rows) in one child window.
// The user picks a day with the mouse or the keyboard, steps months with the
// header arrows or keys, and chooses a month or year from a menu; the host
// marks event days and supplies day tooltips. Notifications (HyDateMsgs.h):
// 7528 to the parent, 7529, 7540 and 7541 to the notify window (the parent
// when none is set). Geometry and menu arithmetic live in HyPickerLayout.h;
// behaviour notes are in docs/datepicker.md, painting in
// docs/datepicker-painting.md.
#pragma once

#include <afxwin.h>
#include <afxcmn.h>
#include <afxtempl.h>
#include "HyUIExport.h"
#include "HyDate.h"
#include "HyDateMsgs.h"
#include "HyPickerLayout.h"

class CHyCalMonth;

// Window style bit of the picker: highlight the whole week of the selected day.
constexpr DWORD HYDPS_WHOLE_WEEK = 0x2000;
static_assert(HYDPS_WHOLE_WEEK == 8192);

// Drawing attributes (SetHYAttributes); the default is 44.
enum : unsigned long
{
    HYDPA_TODAY_MARK = 0x0004,       // frame today's cell
    HYDPA_OTHER_MONTHS = 0x0008,     // show the neighbouring months' days, subdued
    HYDPA_GRID_RULE = 0x0020,        // a rule under the day-of-week row
    HYDPA_DEFAULT = HYDPA_TODAY_MARK | HYDPA_OTHER_MONTHS | HYDPA_GRID_RULE,
};
static_assert(HYDPA_DEFAULT == 44);

class HYUI_API CHyDatePicker : public CWnd
{
    DECLARE_DYNAMIC(CHyDatePicker)
public:
    CHyDatePicker();
    virtual ~CHyDatePicker();

    // ---- creation and geometry ----
    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID, int nCols = 1, int nRows = 1,
                int nAbsWidth = -1, int nAbsHeight = -1);
    virtual BOOL PreCreateWindow(CREATESTRUCT& cs) override;
    virtual BOOL PreTranslateMessage(MSG* pMsg) override;
    void SetCalColRowCount(int nCols, int nRows);
    void GetCalColRowCount(int* pCols, int* pRows) const;
    void SetAbsCalSize(int nWidth, int nHeight);
    int GetBorder() const { return border; }
    void SetFlags(int nFlags) { flags = (unsigned)nFlags; }
    int GetFlags() const { return (int)flags; }
    void SetHYAttributes(unsigned long ulAttributes) { hyAttributes = ulAttributes; }
    unsigned long GetHYAttributes() const { return hyAttributes; }
    void SetNotifyWindow(CWnd* pWnd) { notifyWnd = pWnd; }
    void SetMinYear(int nYear) { minYear = nYear; }
    void SetMaxYear(int nYear) { maxYear = nYear; }
    int GetMinYear() const { return minYear; }
    int GetMaxYear() const { return maxYear; }
    void ParentResized(UINT nType, int cx, int cy);
    void GetDayRect(CRect& rect);
    CRect GetCalBounds(int nIndex);
    HyCalParts GetCalRects(const CRect& bounds) const;
    // Cell 0..41 of calendar nCalIndex's day grid, in client coordinates.
    CRect GetCellRect(int nCalIndex, int nCell);
    // The cell that shows a date: in calendar nCalIndex, or with -1 in the
    // calendar of the date's own month, else the first calendar showing it.
    // FALSE when no cell shows it.
    BOOL GetDateCellRect(const CHyDate& date, CRect& rect, int nCalIndex = -1);
    int GetCalCount() const { return calCount; }
    int GetDayWidth() const { return dayWidth; }
    int GetDayHeight() const { return dayHeight; }
    // The month grid of a calendar; NULL before creation or for a bad index.
    const CHyCalMonth* GetCalendar(int nIndex) const;

    // ---- displayed months and selection (month, day, year order) ----
    void SetCalDates(int nMonth, int nYear);
    void GetDisplayMonth(int* pMonth, int* pYear) const;
    void SetDisplayMonth(int nMonth, int nYear, int bRedraw);
    int DateToCalIndex(int nMonth, int nYear) const;
    void SetHighlightDate(int nMonth, int nDay, int nYear, int bRedraw);
    void GetHighlightDate(int* pMonth, int* pDay, int* pYear) const;
    void SetSelection(int nYear, int nMonth, int nDay, int bNotify);
    void GetSelection(int& nYear, int& nMonth, int& nDay) const;
    static void GetToday(int* pMonth, int* pDay, int* pYear);
    static void GetToday(CHyDate* pDate);
    void SetStartDate(int nMonth, int nDay, int nYear, int bRedraw);
    void GetStartDate(CHyDate* pDate) const { *pDate = startDate; }
    void GetMaxMonthYearCurCal(int& nMonth, int& nYear) const;
    int Is_MMYY_ValidForCurCal(int nMonth, int nYear) const;
    int Is_MMYY_ValidForCurCal(int nMonth, int nYear, int nMaxMonth, int nMaxYear, int bUnused = 0) const;
    static void IncrMonth(int& nMonth, int& nYear, int nDelta);
    int FindMonth(char chLetter, int nStart);
    // Posts 7529 with the highlighted day when its year lies within the limits;
    // the arguments are ignored.
    void PostParent(int = 0, int = 0, int = 0);

    // ---- events ----
    int AddEvent(int nYear, int nMonth, int nDay, int bRedraw, int nKind = 0);
    int AddEvent(CHyDate* pDates, int nCount, int bRedraw);
    int AddEvent(CArray<CHyDate, CHyDate&>* pDates, int bRedraw);
    int RemoveEvent(int nYear, int nMonth, int nDay, int bRedraw);
    int RemoveEvent(CHyDate* pDates, int nCount, int bRedraw);
    void ResetEventArray(int bRedraw);
    int GetEventCount() const { return (int)events.GetSize(); }
    CHyDate GetEvent(int nIndex) const { return events[nIndex]; }
    void GetDateRange(CHyDate* pFirst, CHyDate* pLast) const;

    // ---- hit testing ----
    int PtToCalIndex(CPoint point);
    int PtToFocus(int nCalIndex, CPoint point);
    int PtToGrid(int nCalIndex, CPoint point, CPoint& cell);
    int GridToDate(int nCalIndex, CPoint cell, CHyDate& date, int bAllowOtherMonths) const;
    int GridToClosestDate(int nCalIndex, CPoint cell, CHyDate& date) const;
    int DetermineDate(CPoint point, CHyDate& date);
    void GetMonthString(int nMonth, CString& text) const;
    void GetYearString(int nYear, CString& text) const;

    // The full-repaint convention: invalidate, erase and update now; nothing
    // while the window does not exist.
    void RedrawAll();

protected:
    // ---- painting (HyDatePickerPaint.cpp) ----
    void DrawCalendar(CDC* pDC, int nIndex, const CRect& rcClip);
    void DrawHeader(CDC* pDC, int nIndex, const HyCalParts& parts);
    void DrawMonth(CDC* pDC, int nIndex, const HyCalParts& parts);
    void DrawYear(CDC* pDC, int nIndex, const HyCalParts& parts);
    void DrawHeaderArrows(CDC* pDC, int nIndex, const HyCalParts& parts);
    void DrawDow(CDC* pDC, int nIndex, const HyCalParts& parts);
    void DrawDays(CDC* pDC, int nIndex, const HyCalParts& parts);
    // Invalidates one day's cell wherever it is shown (no erase).
    void InvalidateDay(const CHyDate& date);
    // Repaints the cells of the old and new highlighted day, or everything
    // when whole weeks are highlighted or the months changed.
    void RepaintHighlightChange(const CHyDate& before, bool monthsChanged);
    void MoveDropMark(const CHyDate& to);

    // ---- interaction ----
    void CalcRects();
    void ResetRolloverState();
    void RelayEvent(UINT message, WPARAM wParam, LPARAM lParam, LPCTSTR lpszText);
    void TrackTooltip(UINT nFlags, CPoint point, UINT message, WPARAM wParam, LPARAM lParam);
    void TrackCaptionMenu(int nCalIndex, int nPart);
    void PressCaption();
    void PressDay(CPoint point);
    void StepArrow(int nCalIndex, int nPart);
    CWnd* GetNotifyTarget() const;
    HyPickerMetrics GetMetrics() const;
    int IsYearInLimits(int nYear) const { return nYear >= minYear && nYear <= maxYear; }
    void MoveHighlightByDays(int nDays);
    void StepDisplay(int nMonths, int bCheckLimits);
    void LoadMonthNames();

    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    afx_msg void OnDestroy();
    afx_msg void OnSize(UINT nType, int cx, int cy);
    afx_msg void OnPaint();
    afx_msg BOOL OnEraseBkgnd(CDC* pDC);
    afx_msg LRESULT OnPrintClient(WPARAM wParam, LPARAM lParam);
    afx_msg UINT OnGetDlgCode();
    afx_msg void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnChar(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnLButtonUp(UINT nFlags, CPoint point);
    afx_msg void OnLButtonDblClk(UINT nFlags, CPoint point);
    afx_msg void OnMouseMove(UINT nFlags, CPoint point);
    afx_msg BOOL OnMouseWheel(UINT nFlags, short zDelta, CPoint pt);
    afx_msg void OnTimer(UINT_PTR nIDEvent);
    afx_msg void OnCancelMode();
    afx_msg void OnSetFocus(CWnd* pOldWnd);
    afx_msg void OnKillFocus(CWnd* pNewWnd);
    afx_msg void OnTimeChange();
    afx_msg void OnSysColorChange();
    afx_msg LRESULT OnDragOver(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnDragEnd(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnDrop(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

public:
    // ---- state, in this order ----
    int maxYear;
    int minYear;
    int interactionState;
    CStringArray monthNames;
    CRect prevArrowRect;      // single-calendar header geometry (CalcRects)
    CRect nextArrowRect;
    CRect captionRect;
    CRect monthPanelRect;
    CRect dayAreaRect;
    CWnd* notifyWnd;
    unsigned flags;
    int focusPart;
    int focusCal;
    int rolloverCal;
    int rolloverPart;
    int pressed;
    int dayWidth;
    int dayHeight;
    int cols;
    int rows;
    int calCount;
    int border;
    int absCalWidth;
    int absCalHeight;
    CHyDate highlight;
    CHyDate lastHighlight;
    CHyCalMonth* calendars;
    CToolTipCtrl tooltip;
    CHyDate tipDate;
    CHyDate startDate;
    unsigned long hyAttributes;
    CArray<CHyDate, CHyDate&> events;
    int timerRunning;
    int wheelRemainder;   // wheel delta not yet a whole notch
    CHyDate dropDate;         // day marked by a drag source (7536), year -1 for none
    CString tipText;          // text of the tooltip being shown
};
