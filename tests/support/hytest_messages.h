// Message recording for tests: a host frame window and a spy that log every
// message a window receives, and an exact-sequence check with readable
// output in the manner of message-sequence conformance tests.
#pragma once

#include <windows.h>
#include <gtest/gtest.h>

#include <functional>
#include <initializer_list>
#include <map>
#include <string>
#include <vector>

namespace hytest {

// Dispatches every pending message of this thread (PeekMessage loop with
// TranslateMessage, so posted key-downs produce their WM_CHAR), until the
// queue is empty. Never sleeps.
void PumpMessages();

// Installs a filter that PumpMessages offers each message to before
// translating and dispatching it (true: handled, as PreTranslateMessage
// answers); nullptr removes it. Answers the previous filter.
using PumpFilter = bool (*)(MSG* msg);
PumpFilter SetPumpFilter(PumpFilter filter);

// One received message.
struct Msg
{
    HWND hwnd;
    UINT msg;
    WPARAM wParam;
    LPARAM lParam;
    bool sent;          // false: retrieved from the queue by a message loop
    unsigned long seq;  // thread-wide order, comparable between recorders
};

// Flags of an expected entry. Neither kSent nor kPosted: either is accepted.
enum : unsigned
{
    kSent = 0x01,
    kPosted = 0x02,
    kAnyWParam = 0x04,  // wParam not compared
    kAnyLParam = 0x08,  // lParam not compared
    kAnyParams = kAnyWParam | kAnyLParam,
};

struct Expect
{
    UINT msg;
    WPARAM wParam = 0;
    LPARAM lParam = 0;
    unsigned flags = 0;
};

// Readable name of a message number ("WM_LBUTTONDOWN", "WM_USER+12", "0xC123").
std::string MessageName(UINT msg);

// Compares a recorded log with an expected sequence, entry for entry. On
// mismatch the message lists both sequences and marks the first difference.
::testing::AssertionResult SequenceMatches(const std::vector<Msg>& actual,
                                           const std::vector<Expect>& expected);

// Log, filter and per-message handlers shared by HostFrame and WindowSpy.
class Recorder
{
public:
    using Handler = std::function<LRESULT(HWND, WPARAM, LPARAM)>;

    void RecordOnly(std::initializer_list<UINT> msgs);   // everything until called

    void Clear() { m_log.clear(); }
    const std::vector<Msg>& Messages() const { return m_log; }
    size_t Count(UINT msg) const;
    // The last recorded message with this number, or nullptr.
    const Msg* Last(UINT msg) const;

    // A handler answers the message instead of the default processing; pass an
    // empty function to remove it. The message is recorded before the call.
    void OnMessage(UINT msg, Handler handler);

    // EXPECT_TRUE(rec.Matches({...})) for a readable failure.
    ::testing::AssertionResult Matches(const std::vector<Expect>& expected) const
    {
        return SequenceMatches(m_log, expected);
    }

protected:
    Recorder() = default;
    ~Recorder() = default;
    // Records the message (if it passes the filter) and says whether a handler
    // answered it.
    bool Dispatch(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam, LRESULT* result);

private:
    bool Wanted(UINT msg) const;

    std::vector<Msg> m_log;
    std::map<UINT, Handler> m_handlers;
    std::vector<UINT> m_only;
    bool m_filtered = false;
};

// A real top-level window of its own class (WS_OVERLAPPEDWINDOW |
// WS_CLIPCHILDREN, not shown) with the given client size. It records every
// message it receives from the end of its creation on; use it as the parent
// or notify window of a control.
class HostFrame : public Recorder
{
public:
    explicit HostFrame(int clientWidth = 640, int clientHeight = 480,
                       DWORD style = WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN);
    ~HostFrame();
    HostFrame(const HostFrame&) = delete;
    HostFrame& operator=(const HostFrame&) = delete;

    HWND hwnd() const { return m_hwnd; }
    operator HWND() const { return m_hwnd; }

private:
    static LRESULT CALLBACK WndProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam);
    HWND m_hwnd = nullptr;
};

// Subclasses an existing window (e.g. a control under test) and records the
// messages it receives before passing them on; restores the window procedure
// on destruction or when the window is destroyed.
class WindowSpy : public Recorder
{
public:
    explicit WindowSpy(HWND hwnd);
    ~WindowSpy();
    WindowSpy(const WindowSpy&) = delete;
    WindowSpy& operator=(const WindowSpy&) = delete;

    HWND hwnd() const { return m_hwnd; }

private:
    static LRESULT CALLBACK SpyProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam);
    void Detach();
    HWND m_hwnd;
    WNDPROC m_prev = nullptr;
};

namespace detail {
// Whether the message now being handled by `hwnd` was retrieved from the
// queue by a message loop (a WH_GETMESSAGE hook notes each retrieved message;
// the first window procedure call that matches it is its dispatch).
bool TakeIfPosted(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam);
void AddGetMessageHookRef();
void ReleaseGetMessageHookRef();
}  // namespace detail

}  // namespace hytest
