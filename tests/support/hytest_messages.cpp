#include "hytest_messages.h"

#include <algorithm>
#include <cstdio>

namespace hytest {

namespace {

unsigned long g_seq = 0;

// The message most recently removed from the queue by any loop on this
// thread, until a window procedure claims it as its dispatch.
struct Retrieved
{
    bool pending = false;
    HWND hwnd = nullptr;
    UINT msg = 0;
    WPARAM wParam = 0;
    LPARAM lParam = 0;
};
Retrieved g_retrieved;
HHOOK g_getMsgHook = nullptr;
int g_getMsgHookRefs = 0;

LRESULT CALLBACK GetMessageHook(int code, WPARAM wParam, LPARAM lParam)
{
    if (code == HC_ACTION && wParam == PM_REMOVE) {
        const MSG* m = reinterpret_cast<const MSG*>(lParam);
        g_retrieved = {true, m->hwnd, m->message, m->wParam, m->lParam};
    }
    return CallNextHookEx(g_getMsgHook, code, wParam, lParam);
}

const char* KnownName(UINT msg)
{
    switch (msg) {
#define HYTEST_NAME(m) case m: return #m;
    HYTEST_NAME(WM_CREATE) HYTEST_NAME(WM_DESTROY) HYTEST_NAME(WM_SIZE) HYTEST_NAME(WM_SETFOCUS)
    HYTEST_NAME(WM_KILLFOCUS) HYTEST_NAME(WM_SETTEXT) HYTEST_NAME(WM_GETTEXT) HYTEST_NAME(WM_PAINT)
    HYTEST_NAME(WM_ERASEBKGND) HYTEST_NAME(WM_SHOWWINDOW) HYTEST_NAME(WM_SETCURSOR) HYTEST_NAME(WM_DRAWITEM)
    HYTEST_NAME(WM_MEASUREITEM) HYTEST_NAME(WM_SETFONT) HYTEST_NAME(WM_GETFONT) HYTEST_NAME(WM_NOTIFY)
    HYTEST_NAME(WM_CONTEXTMENU) HYTEST_NAME(WM_NCDESTROY) HYTEST_NAME(WM_GETDLGCODE) HYTEST_NAME(WM_KEYDOWN)
    HYTEST_NAME(WM_KEYUP) HYTEST_NAME(WM_CHAR) HYTEST_NAME(WM_INITDIALOG) HYTEST_NAME(WM_COMMAND)
    HYTEST_NAME(WM_TIMER) HYTEST_NAME(WM_HSCROLL) HYTEST_NAME(WM_VSCROLL) HYTEST_NAME(WM_INITMENUPOPUP)
    HYTEST_NAME(WM_UNINITMENUPOPUP) HYTEST_NAME(WM_CTLCOLOREDIT) HYTEST_NAME(WM_CTLCOLORSTATIC)
    HYTEST_NAME(WM_MOUSEMOVE) HYTEST_NAME(WM_LBUTTONDOWN) HYTEST_NAME(WM_LBUTTONUP)
    HYTEST_NAME(WM_LBUTTONDBLCLK) HYTEST_NAME(WM_RBUTTONDOWN) HYTEST_NAME(WM_RBUTTONUP)
    HYTEST_NAME(WM_MOUSEWHEEL) HYTEST_NAME(WM_ENTERMENULOOP) HYTEST_NAME(WM_EXITMENULOOP)
    HYTEST_NAME(WM_CAPTURECHANGED) HYTEST_NAME(WM_NEXTDLGCTL)
#undef HYTEST_NAME
    default: return nullptr;
    }
}

std::string Hex(unsigned long long v)
{
    char buf[32];
    std::snprintf(buf, sizeof buf, "0x%llx", v);
    return buf;
}

std::string Describe(UINT msg, WPARAM w, LPARAM l, bool haveKind, bool sent, unsigned flags)
{
    std::string s = MessageName(msg);
    s += haveKind ? (sent ? " sent" : " posted") : "";
    s += " w=" + ((flags & kAnyWParam) ? std::string("*") : Hex(w));
    s += " l=" + ((flags & kAnyLParam) ? std::string("*") : Hex(static_cast<unsigned long long>(l)));
    return s;
}

std::string DescribeExpect(const Expect& e)
{
    const bool kind = (e.flags & (kSent | kPosted)) != 0 && (e.flags & (kSent | kPosted)) != (kSent | kPosted);
    return Describe(e.msg, e.wParam, e.lParam, kind, (e.flags & kSent) != 0, e.flags);
}

bool Same(const Msg& a, const Expect& e)
{
    if (a.msg != e.msg)
        return false;
    if ((e.flags & kSent) && !(e.flags & kPosted) && !a.sent)
        return false;
    if ((e.flags & kPosted) && !(e.flags & kSent) && a.sent)
        return false;
    if (!(e.flags & kAnyWParam) && a.wParam != e.wParam)
        return false;
    if (!(e.flags & kAnyLParam) && a.lParam != e.lParam)
        return false;
    return true;
}

}  // namespace

namespace {
PumpFilter g_pumpFilter = nullptr;
}

PumpFilter SetPumpFilter(PumpFilter filter)
{
    PumpFilter previous = g_pumpFilter;
    g_pumpFilter = filter;
    return previous;
}

void PumpMessages()
{
    MSG msg;
    while (PeekMessageA(&msg, nullptr, 0, 0, PM_REMOVE)) {
        if (g_pumpFilter != nullptr && g_pumpFilter(&msg))
            continue;
        TranslateMessage(&msg);
        DispatchMessageA(&msg);
    }
}

std::string MessageName(UINT msg)
{
    if (const char* name = KnownName(msg))
        return name;
    char buf[48];
    if (msg >= WM_USER && msg < WM_APP)
        std::snprintf(buf, sizeof buf, "WM_USER+%u", msg - WM_USER);
    else if (msg >= WM_APP && msg < 0xC000)
        std::snprintf(buf, sizeof buf, "WM_APP+%u", msg - WM_APP);
    else
        std::snprintf(buf, sizeof buf, "0x%04X", msg);
    return buf;
}

::testing::AssertionResult SequenceMatches(const std::vector<Msg>& actual,
                                           const std::vector<Expect>& expected)
{
    size_t a = 0, e = 0;
    std::string why;
    while (e < expected.size()) {
        if (a < actual.size() && Same(actual[a], expected[e])) {
            ++a;
            ++e;
        } else {
            why = a < actual.size() ? "mismatch" : "missing message";
            break;
        }
    }
    if (why.empty() && a == actual.size())
        return ::testing::AssertionSuccess();
    if (why.empty())
        why = "unexpected extra message";

    std::string out = "message sequence differs (" + why + " at expected #" + std::to_string(e) +
                      ", actual #" + std::to_string(a) + ")\n  expected:\n";
    for (size_t i = 0; i < expected.size(); ++i)
        out += std::string(i == e ? "  > " : "    ") + std::to_string(i) + ": " + DescribeExpect(expected[i]) + "\n";
    out += "  actual:\n";
    for (size_t i = 0; i < actual.size(); ++i)
        out += std::string(i == a ? "  > " : "    ") + std::to_string(i) + ": " +
               Describe(actual[i].msg, actual[i].wParam, actual[i].lParam, true, actual[i].sent, 0) + "\n";
    return ::testing::AssertionFailure() << out;
}

// ---- Recorder ----

void Recorder::RecordOnly(std::initializer_list<UINT> msgs)
{
    m_filtered = true;
    m_only.assign(msgs.begin(), msgs.end());
}

bool Recorder::Wanted(UINT msg) const
{
    return !m_filtered || std::find(m_only.begin(), m_only.end(), msg) != m_only.end();
}

size_t Recorder::Count(UINT msg) const
{
    return static_cast<size_t>(std::count_if(m_log.begin(), m_log.end(),
                                             [msg](const Msg& m) { return m.msg == msg; }));
}

const Msg* Recorder::Last(UINT msg) const
{
    for (auto it = m_log.rbegin(); it != m_log.rend(); ++it)
        if (it->msg == msg)
            return &*it;
    return nullptr;
}

void Recorder::OnMessage(UINT msg, Handler handler)
{
    if (handler)
        m_handlers[msg] = std::move(handler);
    else
        m_handlers.erase(msg);
}

bool Recorder::Dispatch(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam, LRESULT* result)
{
    // Claimed even when filtered out, so a later send is not mistaken for it.
    const bool posted = !InSendMessage() && detail::TakeIfPosted(hwnd, msg, wParam, lParam);
    if (Wanted(msg))
        m_log.push_back({hwnd, msg, wParam, lParam, !posted, ++g_seq});
    auto it = m_handlers.find(msg);
    if (it == m_handlers.end())
        return false;
    Handler h = it->second;  // the handler may replace itself
    *result = h(hwnd, wParam, lParam);
    return true;
}

// ---- HostFrame ----

namespace {
const char kHostFrameClass[] = "hytest.HostFrame";

void RegisterHostFrameClass(WNDPROC proc)
{
    WNDCLASSA wc = {};
    if (GetClassInfoA(GetModuleHandleA(nullptr), kHostFrameClass, &wc))
        return;
    wc.style = CS_DBLCLKS;
    wc.lpfnWndProc = proc;
    wc.hInstance = GetModuleHandleA(nullptr);
    wc.hCursor = LoadCursor(nullptr, IDC_ARROW);
    wc.hbrBackground = static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
    wc.lpszClassName = kHostFrameClass;
    RegisterClassA(&wc);
}
}  // namespace

HostFrame::HostFrame(int clientWidth, int clientHeight, DWORD style)
{
    detail::AddGetMessageHookRef();
    RegisterHostFrameClass(&HostFrame::WndProc);
    RECT rc = {0, 0, clientWidth, clientHeight};
    AdjustWindowRectEx(&rc, style, FALSE, 0);
    m_hwnd = CreateWindowExA(0, kHostFrameClass, "hytest host", style, 0, 0, rc.right - rc.left,
                             rc.bottom - rc.top, nullptr, nullptr, GetModuleHandleA(nullptr), this);
    if (!m_hwnd)
        ADD_FAILURE() << "HostFrame: CreateWindowEx failed, error " << GetLastError();
    Clear();  // the log starts after creation
}

HostFrame::~HostFrame()
{
    if (m_hwnd && IsWindow(m_hwnd))
        DestroyWindow(m_hwnd);
    detail::ReleaseGetMessageHookRef();
}

LRESULT CALLBACK HostFrame::WndProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam)
{
    if (msg == WM_NCCREATE) {
        auto* cs = reinterpret_cast<CREATESTRUCTA*>(lParam);
        SetWindowLongPtrA(hwnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(cs->lpCreateParams));
    }
    auto* self = reinterpret_cast<HostFrame*>(GetWindowLongPtrA(hwnd, GWLP_USERDATA));
    if (!self)
        return DefWindowProcA(hwnd, msg, wParam, lParam);
    LRESULT result = 0;
    const bool handled = self->Dispatch(hwnd, msg, wParam, lParam, &result);
    if (msg == WM_NCDESTROY) {
        SetWindowLongPtrA(hwnd, GWLP_USERDATA, 0);
        self->m_hwnd = nullptr;
    }
    return handled ? result : DefWindowProcA(hwnd, msg, wParam, lParam);
}

// ---- WindowSpy ----

namespace {
const char kSpyProp[] = "hytest.WindowSpy";
}

WindowSpy::WindowSpy(HWND hwnd) : m_hwnd(hwnd)
{
    detail::AddGetMessageHookRef();
    SetPropA(hwnd, kSpyProp, this);
    m_prev = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrA(hwnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&WindowSpy::SpyProc)));
}

WindowSpy::~WindowSpy()
{
    Detach();
    detail::ReleaseGetMessageHookRef();
}

void WindowSpy::Detach()
{
    if (!m_prev)
        return;
    if (IsWindow(m_hwnd)) {
        SetWindowLongPtrA(m_hwnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(m_prev));
        RemovePropA(m_hwnd, kSpyProp);
    }
    m_prev = nullptr;
}

LRESULT CALLBACK WindowSpy::SpyProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam)
{
    auto* self = static_cast<WindowSpy*>(GetPropA(hwnd, kSpyProp));
    if (!self)
        return DefWindowProcA(hwnd, msg, wParam, lParam);
    WNDPROC prev = self->m_prev;
    LRESULT result = 0;
    const bool handled = self->Dispatch(hwnd, msg, wParam, lParam, &result);
    if (msg == WM_NCDESTROY)
        self->Detach();
    return handled ? result : CallWindowProcA(prev, hwnd, msg, wParam, lParam);
}

// ---- posted-message detection ----

namespace detail {

bool TakeIfPosted(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam)
{
    Retrieved& r = g_retrieved;
    if (r.pending && r.hwnd == hwnd && r.msg == msg && r.wParam == wParam && r.lParam == lParam) {
        r.pending = false;
        return true;
    }
    return false;
}

void AddGetMessageHookRef()
{
    if (g_getMsgHookRefs++ == 0)
        g_getMsgHook = SetWindowsHookExA(WH_GETMESSAGE, &GetMessageHook, nullptr, GetCurrentThreadId());
}

void ReleaseGetMessageHookRef()
{
    if (--g_getMsgHookRefs == 0 && g_getMsgHook) {
        UnhookWindowsHookEx(g_getMsgHook);
        g_getMsgHook = nullptr;
        g_retrieved = {};
    }
}

}  // namespace detail
}  // namespace hytest
