// The "Calendar" page: a three-month picker with event marks whose tooltips
// the page supplies, a live log of every message the picker sends the page,
// the modal day picker and the date field. The months shown are fixed
// (November 2005 to January 2006) so that the rendered page is the same on
// every run; the first log entries come from the page driving the picker
// with real mouse and key messages when it opens.
#include <algorithm>
#include <vector>
#include "GalleryPage.h"
#include "GalleryRender.h"
#include "GalleryStyle.h"
#include "HyCalMonth.h"
#include "HyDateHelpers.h"
#include "HyDateMsgs.h"
#include "HyDatePicker.h"
#include "HyDayPickerDlg.h"
#include "HyEditDate.h"
#include "HyOleDate.h"
#include "HyUIRes.h"

namespace {

constexpr UINT kPickerId = 3001;
constexpr UINT kLogId = 3002;
constexpr UINT kChooseId = 3003;
constexpr UINT kFieldId = 3004;

constexpr int kSampleYear = 2005, kSampleMonth = 11;   // the first month shown
constexpr int kPickerWidth = 630, kPickerHeight = 210;
constexpr int kTop = 96;                 // the sections below the page title
constexpr int kHeading = 40;             // a section heading and the space under it
constexpr int kLogLines = 12;            // visible rows of the message log
constexpr int kLogLimit = 500;           // the oldest entries go beyond this
constexpr int kButtonWidth = 140, kButtonHeight = 26;
constexpr int kFieldWidth = 150;
constexpr int kMinEventsWidth = 300;

struct SampleEvent
{
    int year, month, day;
    int kind;   // the mark's kind; kinds above 3 are drawn like kind 0
    LPCTSTR text;
};

const SampleEvent kEvents[] = {
    { 2005, 11, 3, 0, _T("Team meeting") },
    { 2005, 11, 10, 1, _T("Dentist") },
    { 2005, 11, 17, 2, _T("Birthday: Ann") },
    { 2005, 11, 24, 3, _T("Thanksgiving dinner") },
    { 2005, 11, 29, 0, _T("Project review") },
    { 2005, 12, 6, 1, _T("Flu shot") },
    { 2005, 12, 12, 2, _T("Birthday: Tom") },
    { 2005, 12, 21, 0, _T("Team meeting") },
    { 2005, 12, 24, 3, _T("Christmas Eve with the family") },
    { 2005, 12, 31, 5, _T("New Year's Eve party") },
    { 2006, 1, 9, 1, _T("Car service") },
    { 2006, 1, 18, 2, _T("Birthday: Maria") },
    { 2006, 1, 26, 7, _T("Quarterly report due") },
};

const LPCTSTR kMonthAbbrev[12] = { _T("Jan"), _T("Feb"), _T("Mar"), _T("Apr"), _T("May"), _T("Jun"),
                                   _T("Jul"), _T("Aug"), _T("Sep"), _T("Oct"), _T("Nov"), _T("Dec") };
const LPCTSTR kDayAbbrev[7] = { _T("Sun"), _T("Mon"), _T("Tue"), _T("Wed"), _T("Thu"), _T("Fri"), _T("Sat") };

// "Thu 17 Nov 2005": the page's own text is English in every language.
CString DayText(int year, int month, int day)
{
    CString text;
    if (month < 1 || month > 12 || day < 1 || day > 31)
    {
        text.Format(_T("%d-%02d-%02d"), year, month, day);
        return text;
    }
    text.Format(_T("%s %d %s %d"), kDayAbbrev[CHyCalMonth::DayOfWeek(day, month, year)], day,
                kMonthAbbrev[month - 1], year);
    return text;
}

CString MonthText(int month, int year)
{
    CString text;
    if (month >= 1 && month <= 12)
        text.Format(_T("%s %d"), kMonthAbbrev[month - 1], year);
    return text;
}

// What HIWORD(wParam) of the "chosen" message names.
LPCTSTR PartName(int part)
{
    switch (part)
    {
    case HYPART_PREV_ARROW: return _T("the previous-month arrow");
    case HYPART_NEXT_ARROW: return _T("the next-month arrow");
    case HYPART_MONTH_CAPTION: return _T("the month caption");
    case HYPART_YEAR_CAPTION: return _T("the year caption");
    case HYPART_HEADER: return _T("the header");
    case HYPART_DAY_OF_WEEK: return _T("the day-of-week row");
    case HYPART_DAY_GRID: return _T("the day grid");
    default: return _T("no part");
    }
}

const SampleEvent* FindEvent(int year, int month, int day)
{
    for (const SampleEvent& e : kEvents)
        if (e.year == year && e.month == month && e.day == day)
            return &e;
    return nullptr;
}

} // namespace

class CCalendarPage : public CGalleryPage
{
public:
    CCalendarPage();
    ~CCalendarPage() override;
    CSize GetContentSize(int cx) override;
    void GetExtraImages(std::vector<ExtraImage>& images) override;

protected:
    void OnCreatePage() override;
    void Layout(int cx, int scrollY) override;
    void Paint(CDC& dc, const CRect& rcContent) override;
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;

    afx_msg LRESULT OnPickerChosen(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnPickerSelChange(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnPickerMonthsChanged(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnPickerGetTip(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    void Measure();
    void MakeDayPickerPreview();
    void Log(UINT message, const CString& text);
    // Sends one message to the picker, then dispatches what it posted to the page.
    void Drive(UINT message, WPARAM wParam, LPARAM lParam);
    void DispatchPosted();
    // The centre of a day's cell in the calendar showing its month; false
    // when no calendar shows it.
    bool DayPoint(int year, int month, int day, CPoint& point);
    void ClickDay(int year, int month, int day, bool doubleClick);
    void PressKey(UINT vk);
    void ShowFieldReading();
    CString SelectionLine() const;

    int ContentWidth() const { return m_nEventsX + m_nEventsWidth + GalleryStyle::kMargin; }
    int PickerTop() const { return kTop + kHeading; }
    int PickerSectionBottom() const;
    int LogTop() const { return PickerSectionBottom() + GalleryStyle::kMargin; }
    int LogHeight() const { return GalleryStyle::LineHeight() * kLogLines + 4; }
    int LowerTop() const { return LogTop() + kHeading + LogHeight() + GalleryStyle::kMargin; }
    int FieldTop() const { return LowerTop() + kHeading + GalleryStyle::LineHeight() + 4; }

    CHyDatePicker m_picker;
    CListBox m_log;
    CButton m_choose;
    CHyEditDate m_field;
    int m_nLogCount;
    CString m_chosen;          // what the day picker answered
    CString m_fieldReading;    // what the date field holds
    HBITMAP m_hPreview;        // the day picker as it opens, frame included
    CSize m_previewSize;
    int m_nEventsX, m_nEventsWidth;
    int m_nDateWidth, m_nKindWidth;
};

GALLERY_REGISTER_PAGE(CCalendarPage, _T("Calendar"), _T("calendar"), 40)

BEGIN_MESSAGE_MAP(CCalendarPage, CGalleryPage)
    ON_MESSAGE(HYWM_DATEPICKER_CHOSEN, OnPickerChosen)
    ON_MESSAGE(HYWM_DATEPICKER_SELCHANGE, OnPickerSelChange)
    ON_MESSAGE(HYWM_DATEPICKER_MONTHSCHANGED, OnPickerMonthsChanged)
    ON_MESSAGE(HYWM_DATEPICKER_GETTIP, OnPickerGetTip)
END_MESSAGE_MAP()

CCalendarPage::CCalendarPage()
    : m_nLogCount(0), m_chosen(_T("No day chosen yet.")), m_hPreview(nullptr), m_previewSize(0, 0),
      m_nEventsX(GalleryStyle::kMargin * 3 + kPickerWidth), m_nEventsWidth(kMinEventsWidth), m_nDateWidth(0),
      m_nKindWidth(0)
{
}

CCalendarPage::~CCalendarPage()
{
    if (m_hPreview != nullptr)
        ::DeleteObject(m_hPreview);
}

void CCalendarPage::OnCreatePage()
{
    using namespace GalleryStyle;
    Measure();

    // The log first: the picker talks to the page from the moment it is driven.
    CreateLog(m_log, this, kLogId, WS_TABSTOP | LBS_USETABSTOPS);
    m_log.SetItemHeight(0, LineHeight());   // the rows of the page's own tables
    {
        // Tab stops are in quarters of the list box font's average character width.
        CClientDC screen(nullptr);
        CDCSelect font(screen, BodyFont());
        TEXTMETRIC tm = {};
        screen.GetTextMetrics(&tm);
        const int quarter = std::max(1, (int)tm.tmAveCharWidth);
        const int number = screen.GetTextExtent(_T("0000")).cx + kGap;
        const int message = number + screen.GetTextExtent(_T("0000")).cx + kGap;
        int stops[2] = { number * 4 / quarter, message * 4 / quarter };
        m_log.SetTabStops(2, stops);
    }

    m_picker.Create(WS_CHILD | WS_VISIBLE | WS_TABSTOP, CRect(0, 0, kPickerWidth, kPickerHeight), this, kPickerId,
                    3, 1);
    m_picker.SetNotifyWindow(this);
    m_picker.SetCalDates(kSampleMonth, kSampleYear);
    m_picker.SetHighlightDate(11, 15, 2005, 0);
    m_picker.SetStartDate(11, 14, 2005, 0);
    for (const SampleEvent& e : kEvents)
        m_picker.AddEvent(e.year, e.month, e.day, 0, e.kind);

    m_choose.Create(_T("Choose a day..."), WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_PUSHBUTTON,
                    CRect(0, 0, kButtonWidth, kButtonHeight), this, kChooseId);
    m_choose.SetFont(BodyFont());

    m_field.Create(WS_CHILD | WS_VISIBLE | WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL,
                   CRect(0, 0, kFieldWidth, LineHeight() + 8), this, kFieldId);
    m_field.SetFont(BodyFont());
    m_field.SetBlankString(_T("None"));
    m_field.AllowBlank(0);   // an emptied field shows "None" again
    m_field.SetDate(0.0);    // no date: the blank text
    ShowFieldReading();

    MakeDayPickerPreview();

    // A short session with real messages: hover two days, click one, step
    // with the keyboard, page the months forth and back, double-click a day.
    CPoint point;
    if (DayPoint(2005, 11, 17, point))
        Drive(WM_MOUSEMOVE, 0, MAKELPARAM(point.x, point.y));
    if (DayPoint(2005, 11, 18, point))
        Drive(WM_MOUSEMOVE, 0, MAKELPARAM(point.x, point.y));
    ClickDay(2005, 11, 18, false);
    PressKey(VK_RIGHT);
    PressKey(VK_NEXT);
    PressKey(VK_PRIOR);
    ClickDay(2005, 12, 6, true);
    if (DayPoint(2005, 12, 12, point))
        Drive(WM_MOUSEMOVE, 0, MAKELPARAM(point.x, point.y));
}

void CCalendarPage::Measure()
{
    using namespace GalleryStyle;
    CClientDC screen(nullptr);
    CDCSelect font(screen, BodyFont());
    int dateWidth = 0, kindWidth = 0, textWidth = 0;
    for (const SampleEvent& e : kEvents)
    {
        dateWidth = std::max(dateWidth, (int)screen.GetTextExtent(DayText(e.year, e.month, e.day)).cx);
        CString kind;
        kind.Format(_T("kind %d"), e.kind);
        kindWidth = std::max(kindWidth, (int)screen.GetTextExtent(kind).cx);
        textWidth = std::max(textWidth, (int)screen.GetTextExtent(e.text).cx);
    }
    m_nDateWidth = dateWidth + kGap;
    m_nKindWidth = kindWidth + kGap;
    m_nEventsX = kMargin * 3 + kPickerWidth;
    m_nEventsWidth = std::max(kMinEventsWidth, m_nDateWidth + m_nKindWidth + textWidth);
}

void CCalendarPage::MakeDayPickerPreview()
{
    std::vector<DWORD> bytes = GalleryHiddenTemplate(IDD_DAY_PICKER);
    double date = 0.0;
    if (bytes.empty() || !hy::DateToOleDate(2005, 12, 6, date))
        return;
    CHyDayPickerDlg dialog(date, this);
    if (!dialog.CreateIndirect((LPCDLGTEMPLATE)bytes.data(), this))
        return;
    m_hPreview = GalleryRenderHiddenDialog(dialog);
    dialog.DestroyWindow();
    BITMAP bm = {};
    if (m_hPreview != nullptr && ::GetObject(m_hPreview, sizeof(bm), &bm) == sizeof(bm))
        m_previewSize = CSize(bm.bmWidth, bm.bmHeight);
}

bool CCalendarPage::DayPoint(int year, int month, int day, CPoint& point)
{
    CRect cell;
    if (!m_picker.GetDateCellRect(CHyDate(year, month, day, 0), cell))
        return false;
    point = cell.CenterPoint();
    CHyDate hit;
    return m_picker.DetermineDate(point, hit) && hit == CHyDate(year, month, day, 0);
}

void CCalendarPage::ClickDay(int year, int month, int day, bool doubleClick)
{
    CPoint point;
    if (!DayPoint(year, month, day, point))
        return;
    const LPARAM at = MAKELPARAM(point.x, point.y);
    Drive(WM_LBUTTONDOWN, MK_LBUTTON, at);
    Drive(WM_LBUTTONUP, 0, at);
    if (doubleClick)
    {
        // The second click of a double-click arrives as WM_LBUTTONDBLCLK.
        Drive(WM_LBUTTONDBLCLK, MK_LBUTTON, at);
        Drive(WM_LBUTTONUP, 0, at);
    }
}

void CCalendarPage::PressKey(UINT vk)
{
    const UINT scan = ::MapVirtualKey(vk, 0);
    Drive(WM_KEYDOWN, vk, MAKELPARAM(1, scan));
    Drive(WM_KEYUP, vk, MAKELPARAM(1, scan | 0xC000));
}

void CCalendarPage::Drive(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (m_picker.m_hWnd == nullptr)
        return;
    m_picker.SendMessage(message, wParam, lParam);
    DispatchPosted();
}

void CCalendarPage::DispatchPosted()
{
    MSG msg;
    while (::PeekMessage(&msg, m_hWnd, HYWM_DATEPICKER_CHOSEN, HYWM_DATEPICKER_GETTIP, PM_REMOVE))
        ::DispatchMessage(&msg);
}

void CCalendarPage::Log(UINT message, const CString& text)
{
    if (m_log.m_hWnd == nullptr)
        return;
    CString line;
    line.Format(_T("%d\t%u\t"), ++m_nLogCount, message);
    line += text;
    m_log.InsertString(0, line);   // newest first
    while (m_log.GetCount() > kLogLimit)
        m_log.DeleteString((UINT)(m_log.GetCount() - 1));
}

LRESULT CCalendarPage::OnPickerChosen(WPARAM wParam, LPARAM)
{
    CString text;
    text.Format(_T("chosen (posted): part %u, %s"), (UINT)HIWORD(wParam), PartName(HIWORD(wParam)));
    Log(HYWM_DATEPICKER_CHOSEN, text);
    return 0;
}

LRESULT CCalendarPage::OnPickerSelChange(WPARAM wParam, LPARAM lParam)
{
    const int year = (int)(WORD)wParam, month = HIWORD(lParam), day = LOWORD(lParam);
    Log(HYWM_DATEPICKER_SELCHANGE, _T("selection changed (posted): ") + DayText(year, month, day));
    Invalidate(FALSE);   // the line under the picker names the selection
    return 0;
}

LRESULT CCalendarPage::OnPickerMonthsChanged(WPARAM, LPARAM)
{
    int month = 0, year = 0;
    m_picker.GetDisplayMonth(&month, &year);
    int lastMonth = month, lastYear = year;
    CHyDatePicker::IncrMonth(lastMonth, lastYear, m_picker.GetCalCount() - 1);
    Log(HYWM_DATEPICKER_MONTHSCHANGED,
        _T("months changed (sent): ") + MonthText(month, year) + _T(" to ") + MonthText(lastMonth, lastYear));
    return 0;
}

LRESULT CCalendarPage::OnPickerGetTip(WPARAM wParam, LPARAM lParam)
{
    const CHyDate* date = (const CHyDate*)wParam;
    CString* tip = (CString*)lParam;
    if (date == nullptr || tip == nullptr)
        return 0;
    const SampleEvent* e = FindEvent(date->year, date->month, date->day);
    *tip = e ? e->text : _T("");
    CString text = _T("tooltip asked (sent) for ") + DayText(date->year, date->month, date->day) + _T(": ");
    text += e ? _T("\"") + CString(e->text) + _T("\"") : CString(_T("no event, no tip"));
    Log(HYWM_DATEPICKER_GETTIP, text);
    return 0;
}

BOOL CCalendarPage::OnCommand(WPARAM wParam, LPARAM lParam)
{
    const UINT id = LOWORD(wParam);
    if (id == kChooseId && HIWORD(wParam) == BN_CLICKED)
    {
        // Opens at the picker's selection; the dialog leaves date alone when cancelled.
        int year, month, day;
        m_picker.GetSelection(year, month, day);
        double date = -1.0;
        if (!hy::DateToOleDate(year, month, day, date))
            date = -1.0;
        if (HyDisplayHyDayPickerDlg(date))
            m_chosen = _T("Chosen: ") + HyGetDate(date, 0);
        else
            m_chosen = _T("Cancelled.");
        Invalidate(FALSE);
        return TRUE;
    }
    if (id == kFieldId && HIWORD(wParam) == EN_KILLFOCUS)
    {
        ShowFieldReading();
        Invalidate(FALSE);
        // Fall through: the field itself needs nothing from the page.
    }
    return CGalleryPage::OnCommand(wParam, lParam);
}

void CCalendarPage::ShowFieldReading()
{
    if (m_field.m_hWnd == nullptr)
        return;
    if (m_field.IsBlank())
    {
        m_fieldReading = _T("Reads as: no date (the blank text)");
        return;
    }
    int year, month, day;
    if (m_field.GetDateEntered(year, month, day))
        m_fieldReading = _T("Reads as: ") + DayText(year, month, day);
    else
        m_fieldReading = _T("Reads as: not a valid date");
}

CString CCalendarPage::SelectionLine() const
{
    int year, month, day;
    m_picker.GetSelection(year, month, day);
    CHyDate start;
    m_picker.GetStartDate(&start);
    return _T("Selected: ") + DayText(year, month, day) + _T("     Start date: ") +
           DayText(start.year, start.month, start.day);
}

int CCalendarPage::PickerSectionBottom() const
{
    const int line = GalleryStyle::LineHeight();
    const int picker = kPickerHeight + GalleryStyle::kGap + line;               // the picker and its status line
    const int events = line * (int)std::size(kEvents);
    return PickerTop() + std::max(picker, events);
}

CSize CCalendarPage::GetContentSize(int)
{
    using namespace GalleryStyle;
    const int line = LineHeight();
    const int dayPicker = kHeading + kButtonHeight + kGap + m_previewSize.cy;
    const int field = kHeading + line + 4 + LineHeight() + 8 + kGap + line * 4;
    return CSize(ContentWidth(), LowerTop() + std::max(dayPicker, field) + kMargin);
}

void CCalendarPage::Layout(int, int scrollY)
{
    using namespace GalleryStyle;
    if (m_picker.m_hWnd == nullptr)
        return;   // called once while the window is being created
    m_picker.SetWindowPos(nullptr, kMargin, PickerTop() - scrollY, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    m_log.MoveWindow(kMargin, LogTop() + kHeading - scrollY, ContentWidth() - 2 * kMargin, LogHeight());
    m_choose.MoveWindow(kMargin, LowerTop() + kHeading - scrollY, kButtonWidth, kButtonHeight);
    m_field.MoveWindow(m_nEventsX, FieldTop() - scrollY, kFieldWidth, LineHeight() + 8);
}

void CCalendarPage::Paint(CDC& dc, const CRect&)
{
    using namespace GalleryStyle;
    const int line = LineHeight();
    const int width = ContentWidth();
    DrawPageTitle(dc, _T("Calendar"));
    {
        CString intro = _T("Three months with event marks; the page answers the tooltip requests and logs every "
                           "message the picker sends it.");
        dc.SetTextColor(MutedText());
        CRect rc(kMargin, kMargin + 40, width - kMargin, kMargin + 40 + line);
        dc.DrawText(intro, &rc, DT_LEFT | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
    }

    // The picker, with the selection and the start date under it.
    DrawSectionHeading(dc, kMargin, kTop, kPickerWidth, _T("Month picker, 3 x 1"));
    if (m_picker.m_hWnd != nullptr)
    {
        const CString selection = SelectionLine();
        const int top = PickerTop() + kPickerHeight + kGap;
        dc.SetTextColor(Text());
        dc.TextOut(kMargin, top, selection);
        dc.SetTextColor(MutedText());
        CRect rc(kMargin + dc.GetTextExtent(selection).cx + kMargin, top, kMargin + kPickerWidth, top + line);
        dc.DrawText(_T("Hover a marked day for its tooltip."), &rc,
                    DT_LEFT | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
    }

    // The sample events: day, kind of mark, the text the tooltip shows.
    int y = DrawSectionHeading(dc, m_nEventsX, kTop, m_nEventsWidth, _T("Sample events"));
    for (const SampleEvent& e : kEvents)
    {
        CString kind;
        kind.Format(_T("kind %d"), e.kind);
        dc.SetTextColor(Text());
        dc.TextOut(m_nEventsX, y, DayText(e.year, e.month, e.day));
        dc.SetTextColor(MutedText());
        dc.TextOut(m_nEventsX + m_nDateWidth, y, kind);
        dc.SetTextColor(Text());
        dc.TextOut(m_nEventsX + m_nDateWidth + m_nKindWidth, y, e.text);
        y += line;
    }

    DrawSectionHeading(dc, kMargin, LogTop(), width - 2 * kMargin, _T("Messages from the picker, newest first"));
    {
        // Under the list box's own border; shows where a rendering leaves the border out.
        CRect frame(kMargin, LogTop() + kHeading, width - kMargin, LogTop() + kHeading + LogHeight());
        CBrush rule(Rule());
        dc.FrameRect(&frame, &rule);
    }

    // The day picker: the button, what it answered, and the dialog as it opens.
    const int lower = LowerTop();
    DrawSectionHeading(dc, kMargin, lower, kPickerWidth, _T("Day picker"));
    {
        dc.SetTextColor(Text());
        CRect rc(kMargin + kButtonWidth + kGap, lower + kHeading, kMargin + kPickerWidth,
                 lower + kHeading + kButtonHeight);
        dc.DrawText(m_chosen, &rc, DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
    }
    if (m_hPreview != nullptr)
    {
        CDC memDC;
        memDC.CreateCompatibleDC(&dc);
        CDCSelect sel(memDC, CBitmap::FromHandle(m_hPreview));
        dc.BitBlt(kMargin, lower + kHeading + kButtonHeight + kGap, m_previewSize.cx, m_previewSize.cy, &memDC, 0, 0,
                  SRCCOPY);
    }

    // The date field: caption, field, what it reads as, how to use it.
    DrawSectionHeading(dc, m_nEventsX, lower, m_nEventsWidth, _T("Date field"));
    dc.SetTextColor(Text());
    dc.TextOut(m_nEventsX, lower + kHeading, _T("Due date (empty: \"None\")"));
    y = FieldTop() + line + 8 + kGap;
    dc.TextOut(m_nEventsX, y, m_fieldReading);
    {
        dc.SetTextColor(MutedText());
        CRect rc(m_nEventsX, y + line + 4, m_nEventsX + m_nEventsWidth, y + line * 4 + 4);
        dc.DrawText(_T("Type a date in your short-date form and leave the field: it is rewritten in that form. "
                       "Empty it and leave: it shows \"None\"."),
                    &rc, DT_LEFT | DT_WORDBREAK | DT_NOPREFIX | DT_END_ELLIPSIS);
    }
}

void CCalendarPage::GetExtraImages(std::vector<ExtraImage>& images)
{
    if (m_hPreview != nullptr)
        images.push_back({ _T("daypicker"), m_hPreview });
}
