#include "bench_subjects.h"

#include "bench_common.h"

#include <commctrl.h>

#include <cstdio>

namespace {

const char kHostClass[] = "HyBenchHost";
const char kFloorClass[] = "HyBenchFloor";

// ---- paint counting -------------------------------------------------------

// One entry a subclassed control; a handful at most.
struct PaintCounter
{
    HWND hwnd;
    WNDPROC previous;
    long paints;
};
PaintCounter g_counters[8];

PaintCounter* FindCounter(HWND hwnd)
{
    for (PaintCounter& c : g_counters)
        if (c.hwnd == hwnd)
            return &c;
    return nullptr;
}

LRESULT CALLBACK CountingProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    PaintCounter* counter = FindCounter(hwnd);
    if (counter == nullptr)
        return ::DefWindowProc(hwnd, message, wParam, lParam);
    if (message == WM_PAINT)
        ++counter->paints;
    return ::CallWindowProc(counter->previous, hwnd, message, wParam, lParam);
}

// ---- host windows ---------------------------------------------------------

int MonthIndex(int year, int month) { return year * 12 + month - 1; }

// Bold days of `count` months from (year, month) on: every event day.
void FillDayState(const BenchDays& days, int year, int month, int count, MONTHDAYSTATE* states)
{
    const int first = MonthIndex(year, month);
    for (int i = 0; i < count; ++i)
        states[i] = 0;
    for (const SYSTEMTIME& e : days.events)
    {
        const int i = MonthIndex(e.wYear, e.wMonth) - first;
        if (i >= 0 && i < count)
            states[i] |= 1u << (e.wDay - 1);
    }
}

// A host answers the month calendar's day-state requests from its BenchDays
// (GWLP_USERDATA) and otherwise leaves its client area to the control.
LRESULT CALLBACK HostProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_NOTIFY && reinterpret_cast<NMHDR*>(lParam)->code == MCN_GETDAYSTATE)
    {
        static MONTHDAYSTATE states[64];
        auto* request = reinterpret_cast<NMDAYSTATE*>(lParam);
        const auto* days = reinterpret_cast<const BenchDays*>(::GetWindowLongPtr(hwnd, GWLP_USERDATA));
        static const BenchDays none;
        const int count = request->cDayState < 64 ? request->cDayState : 64;
        FillDayState(days != nullptr ? *days : none, request->stStart.wYear, request->stStart.wMonth, count, states);
        request->prgDayState = states;
        return 0;
    }
    if (message == WM_NOTIFY && reinterpret_cast<NMHDR*>(lParam)->code == LVN_GETDISPINFO)
    {
        // The list view's texts, made from the index as the card view's are.
        LVITEM& item = reinterpret_cast<NMLVDISPINFO*>(lParam)->item;
        if ((item.mask & LVIF_TEXT) != 0 && item.pszText != nullptr && item.cchTextMax > 0)
            std::snprintf(item.pszText, item.cchTextMax, "Contact %d", item.iItem);
        return 0;
    }
    if (message == WM_ERASEBKGND)
        return 1;
    return ::DefWindowProc(hwnd, message, wParam, lParam);
}

// The floor: a double-buffered paint that draws nothing but the fill.
LRESULT CALLBACK FloorProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_ERASEBKGND)
        return 1;
    if (message != WM_PAINT)
        return ::DefWindowProc(hwnd, message, wParam, lParam);
    PAINTSTRUCT ps;
    HDC dc = ::BeginPaint(hwnd, &ps);
    RECT client;
    ::GetClientRect(hwnd, &client);
    HDC memory = ::CreateCompatibleDC(dc);
    HBITMAP bitmap = ::CreateCompatibleBitmap(dc, client.right, client.bottom);
    HGDIOBJ old = ::SelectObject(memory, bitmap);
    ::FillRect(memory, &client, ::GetSysColorBrush(COLOR_WINDOW));
    ::BitBlt(dc, 0, 0, client.right, client.bottom, memory, 0, 0, SRCCOPY);
    ::SelectObject(memory, old);
    ::DeleteObject(bitmap);
    ::DeleteDC(memory);
    ::EndPaint(hwnd, &ps);
    return 0;
}

void RegisterClasses()
{
    static bool done = false;
    if (done)
        return;
    WNDCLASS wc = {};
    wc.hInstance = ::GetModuleHandle(nullptr);
    wc.hCursor = ::LoadCursor(nullptr, IDC_ARROW);
    wc.lpfnWndProc = HostProc;
    wc.lpszClassName = kHostClass;
    ::RegisterClass(&wc);
    wc.lpfnWndProc = FloorProc;
    wc.lpszClassName = kFloorClass;
    ::RegisterClass(&wc);
    done = true;
}

class FloorSubject : public BenchCardSubject
{
public:
    bool Create(SIZE client)
    {
        if (!CreateHost("floor", client, nullptr))
            return false;
        m_control = ::CreateWindowEx(0, kFloorClass, "", WS_CHILD | WS_VISIBLE, 0, 0, client.cx, client.cy, m_host,
                                     nullptr, ::GetModuleHandle(nullptr), nullptr);
        if (m_control == nullptr)
            return false;
        StartCountingPaints();
        return true;
    }
    const char* Name() const override { return "floor"; }
    void ScrollToTop() override {}
};

SYSTEMTIME CurSel(HWND calendar)
{
    SYSTEMTIME day = {};
    ::SendMessage(calendar, MCM_GETCURSEL, 0, reinterpret_cast<LPARAM>(&day));
    return day;
}

} // namespace

// ---- days -----------------------------------------------------------------

SYSTEMTIME BenchAddDays(const SYSTEMTIME& day, int days)
{
    SYSTEMTIME midnight = day;
    midnight.wHour = midnight.wMinute = midnight.wSecond = midnight.wMilliseconds = 0;
    FILETIME ft;
    ::SystemTimeToFileTime(&midnight, &ft);
    ULARGE_INTEGER t;
    t.LowPart = ft.dwLowDateTime;
    t.HighPart = ft.dwHighDateTime;
    t.QuadPart += static_cast<ULONGLONG>(static_cast<LONGLONG>(days) * 24 * 60 * 60 * 10000000LL);
    ft.dwLowDateTime = t.LowPart;
    ft.dwHighDateTime = t.HighPart;
    SYSTEMTIME result = {};
    ::FileTimeToSystemTime(&ft, &result);
    return result;
}

bool BenchSameDay(const SYSTEMTIME& a, const SYSTEMTIME& b)
{
    return a.wYear == b.wYear && a.wMonth == b.wMonth && a.wDay == b.wDay;
}

// ---- BenchSubject ---------------------------------------------------------

BenchSubject::~BenchSubject()
{
    StopCountingPaints();
    if (m_host != nullptr && ::IsWindow(m_host))
        ::DestroyWindow(m_host);
}

long BenchSubject::Paints() const
{
    return BenchPaintsOf(m_control);
}

bool BenchSubject::CreateHost(const char* title, SIZE client, const BenchDays* days)
{
    RegisterClasses();
    m_host = ::CreateWindowEx(WS_EX_TOOLWINDOW, kHostClass, title, WS_POPUP | WS_CLIPCHILDREN, 0, 0, client.cx,
                              client.cy, nullptr, nullptr, ::GetModuleHandle(nullptr), nullptr);
    if (m_host != nullptr)
        ::SetWindowLongPtr(m_host, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(days));
    return m_host != nullptr;
}

void BenchSubject::StartCountingPaints()
{
    BenchCountPaints(m_control);
}

void BenchSubject::StopCountingPaints()
{
    BenchStopCountingPaints(m_control);
}

void BenchCountPaints(HWND hwnd)
{
    if (hwnd == nullptr || FindCounter(hwnd) != nullptr)
        return;
    for (PaintCounter& c : g_counters)
        if (c.hwnd == nullptr)
        {
            c.hwnd = hwnd;
            c.paints = 0;
            c.previous = reinterpret_cast<WNDPROC>(
                ::SetWindowLongPtr(hwnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(CountingProc)));
            return;
        }
}

void BenchStopCountingPaints(HWND hwnd)
{
    PaintCounter* counter = hwnd != nullptr ? FindCounter(hwnd) : nullptr;
    if (counter == nullptr)
        return;
    if (::IsWindow(hwnd) && ::GetWindowLongPtr(hwnd, GWLP_WNDPROC) == reinterpret_cast<LONG_PTR>(CountingProc))
        ::SetWindowLongPtr(hwnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(counter->previous));
    *counter = PaintCounter{};
}

long BenchPaintsOf(HWND hwnd)
{
    const PaintCounter* counter = hwnd != nullptr ? FindCounter(hwnd) : nullptr;
    return counter != nullptr ? counter->paints : 0;
}

// ---- the month calendar ---------------------------------------------------

std::unique_ptr<BenchPeerCalendar> BenchPeerCalendar::Create(const BenchDays& days)
{
    std::unique_ptr<BenchPeerCalendar> peer(new BenchPeerCalendar);
    peer->m_days = &days;
    if (!peer->CreateHost("peer", SIZE{ 100, 100 }, &days))
        return nullptr;
    peer->m_control = ::CreateWindowEx(0, MONTHCAL_CLASS, "", WS_CHILD | WS_VISIBLE | MCS_DAYSTATE, 0, 0, 100, 100,
                                       peer->m_host, nullptr, ::GetModuleHandle(nullptr), nullptr);
    if (peer->m_control == nullptr)
        return nullptr;
    HWND mc = peer->m_control;
    ::SendMessage(mc, WM_SETFONT, reinterpret_cast<WPARAM>(::GetStockObject(DEFAULT_GUI_FONT)), FALSE);
    ::SendMessage(mc, MCM_SETCURSEL, 0, reinterpret_cast<LPARAM>(&days.start));

    RECT one = {};
    ::SendMessage(mc, MCM_GETMINREQRECT, 0, reinterpret_cast<LPARAM>(&one));
    peer->m_oneMonth = SIZE{ one.right - one.left, one.bottom - one.top };
    SIZE size = { 4 * peer->m_oneMonth.cx, 3 * peer->m_oneMonth.cy };
    auto resize = [&] { ::SetWindowPos(mc, nullptr, 0, 0, size.cx, size.cy, SWP_NOZORDER | SWP_NOACTIVATE); };
    resize();
    peer->m_hasCalendarCount = ::SendMessage(mc, MCM_GETCALENDARCOUNT, 0, 0) > 0;
    // Some versions leave a gap between months that the one-month size
    // does not include: widen, then heighten, until twelve fit.
    for (int extra = 0; peer->CalendarCount() < 12 && extra < peer->m_oneMonth.cx; ++extra)
    {
        ++size.cx;
        resize();
    }
    for (int extra = 0; peer->CalendarCount() < 12 && extra < peer->m_oneMonth.cy; ++extra)
    {
        ++size.cy;
        resize();
    }
    peer->m_size = size;
    ::SetWindowPos(peer->m_host, nullptr, 0, 0, size.cx, size.cy, SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOMOVE);
    ::SendMessage(mc, MCM_SETCURSEL, 0, reinterpret_cast<LPARAM>(&days.start));
    peer->SetDayState();
    peer->StartCountingPaints();
    return peer;
}

BenchPeerCalendar::~BenchPeerCalendar() = default;

void BenchPeerCalendar::SetDayState()
{
    SYSTEMTIME range[2] = {};
    const int count = static_cast<int>(
        ::SendMessage(m_control, MCM_GETMONTHRANGE, GMR_DAYSTATE, reinterpret_cast<LPARAM>(range)));
    if (count <= 0 || count > 64)
        return;
    MONTHDAYSTATE states[64];
    FillDayState(*m_days, range[0].wYear, range[0].wMonth, count, states);
    ::SendMessage(m_control, MCM_SETDAYSTATE, count, reinterpret_cast<LPARAM>(states));
}

void BenchPeerCalendar::Restart(const SYSTEMTIME& day)
{
    ::SendMessage(m_control, MCM_SETCURSEL, 0, reinterpret_cast<LPARAM>(&day));
}

void BenchPeerCalendar::Step(const SYSTEMTIME& next)
{
    if (m_keysMove)
        ::SendMessage(m_control, WM_KEYDOWN, VK_RIGHT, 1);
    else
        ::SendMessage(m_control, MCM_SETCURSEL, 0, reinterpret_cast<LPARAM>(&next));
}

bool BenchPeerCalendar::GetHighlight(SYSTEMTIME& day) const
{
    day = CurSel(m_control);
    return day.wYear != 0;
}

bool BenchPeerCalendar::GetFirstMonth(int& month, int& year) const
{
    SYSTEMTIME range[2] = {};
    if (::SendMessage(m_control, MCM_GETMONTHRANGE, GMR_VISIBLE, reinterpret_cast<LPARAM>(range)) <= 0)
        return false;
    month = range[0].wMonth;
    year = range[0].wYear;
    return true;
}

int BenchPeerCalendar::CalendarCount() const
{
    if (m_hasCalendarCount)
        return static_cast<int>(::SendMessage(m_control, MCM_GETCALENDARCOUNT, 0, 0));
    SYSTEMTIME range[2] = {};
    if (::SendMessage(m_control, MCM_GETMONTHRANGE, GMR_VISIBLE, reinterpret_cast<LPARAM>(range)) <= 0)
        return 0;
    return MonthIndex(range[1].wYear, range[1].wMonth) - MonthIndex(range[0].wYear, range[0].wMonth) + 1;
}

void BenchPeerCalendar::DetectArrowKeys(const SYSTEMTIME& start)
{
    ::SetFocus(m_control);
    Restart(start);
    ::SendMessage(m_control, WM_KEYDOWN, VK_RIGHT, 1);
    ::UpdateWindow(m_control);
    m_keysMove = BenchSameDay(CurSel(m_control), BenchAddDays(start, 1));
    Restart(start);
}

// ---- the floor ------------------------------------------------------------

std::unique_ptr<BenchCardSubject> BenchCreateFloor(SIZE client)
{
    std::unique_ptr<FloorSubject> floor(new FloorSubject);
    if (!floor->Create(client))
        return nullptr;
    return floor;
}

// ---- the list view --------------------------------------------------------

namespace {

class PeerListSubject : public BenchCardSubject
{
public:
    bool Create(SIZE client, int count)
    {
        if (!CreateHost("peer", client, nullptr))
            return false;
        m_control = ::CreateWindowEx(0, WC_LISTVIEW, "", WS_CHILD | WS_VISIBLE | LVS_ICON | LVS_OWNERDATA, 0, 0,
                                     client.cx, client.cy, m_host, nullptr, ::GetModuleHandle(nullptr), nullptr);
        if (m_control == nullptr)
            return false;
        ::SendMessage(m_control, LVM_SETITEMCOUNT, count, LVSICF_NOINVALIDATEALL);
        StartCountingPaints();
        return true;
    }
    const char* Name() const override { return "peer"; }
    void ScrollToTop() override { ::SendMessage(m_control, LVM_ENSUREVISIBLE, 0, FALSE); }
};

} // namespace

std::unique_ptr<BenchCardSubject> BenchCreatePeerList(SIZE client, int count)
{
    std::unique_ptr<PeerListSubject> peer(new PeerListSubject);
    if (!peer->Create(client, count))
        return nullptr;
    return peer;
}

// ---- bench_editlist -------------------------------------------------------

const char* const kBenchChoices[3] = { "Work", "Home", "Mobile" };

void BenchEditRowTexts(int index, char* label, size_t labelSize, char* value, size_t valueSize, int& choice)
{
    static const char* const kLabels[] = { "Name", "Company", "Title", "Street", "City", "Note" };
    choice = index % 3 == 1 ? index % 2 + (index % 5 == 0) : -1;
    std::snprintf(label, labelSize, "%s %d", choice >= 0 ? kBenchChoices[choice] : kLabels[index % 6], index);
    if (index % 10 == 7)
        std::snprintf(value, valueSize, "%d Orchard Lane\r\nGreywater, GW%d 4RT", index, index % 9);
    else if (choice >= 0)
        std::snprintf(value, valueSize, "(555) %03d-%04d", index % 1000, (index * 37) % 10000);
    else
        std::snprintf(value, valueSize, "Value of row %d, contact %d", index, index * 7);
}

void BenchFullRepaints(BenchSubject& subject, int reps, BenchResult* result)
{
    for (int i = 0; i < reps; ++i)
    {
        const long paints = subject.Paints();
        const double t0 = BenchNow();
        ::InvalidateRect(subject.Control(), nullptr, TRUE);
        ::UpdateWindow(subject.Control());
        const double t1 = BenchNow();
        BenchPump();
        BenchRecord(result, t1 - t0, subject.Paints() - paints, true);
    }
}
