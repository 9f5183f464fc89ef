// Framework helpers shared by the suites that use HyAfx: repeated runs under
// an object-count guard, the standard-control warm-up, a CDC canvas.
#pragma once
#include <afxwin.h>
#include <gtest/gtest.h>
#include <string>
#include "hytest.h"

// Runs body once as a warm-up, then again several times, and fails when the
// process's GDI or USER object counts grew across the repetitions.
template <class F>
void RunRepeated(F body, int times = 3)
{
    hytest::ObjectGuard guard([&] { body(); hytest::PumpMessages(); });
    if (::testing::Test::HasFailure()) {
        guard.Dismiss();
        return;
    }
    for (int i = 0; i < times; ++i)
        body();
    hytest::PumpMessages();
    AfxDeleteTempMaps();
    guard.Check("repeated create/destroy");
}

// Standard controls create their class's shared GDI objects on first use;
// object guards of suites that use them compare after this warm-up.
inline void WarmUpStandardControls()
{
    for (const char* cls : { "EDIT", "BUTTON", "STATIC" })
    {
        HWND h = ::CreateWindowExA(0, cls, "w", WS_POPUP | WS_VISIBLE, 0, 0, 40, 20, nullptr, nullptr, nullptr, nullptr);
        ::SendMessageA(h, WM_CHAR, 'w', 1);
        ::SendMessageA(h, BM_CLICK, 0, 0);
        ::UpdateWindow(h);
        ::DestroyWindow(h);
    }
    // An owner-draw child clicked inside a hidden parent.
    HWND parent = ::CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, 80, 40, nullptr, nullptr, nullptr, nullptr);
    HWND button = ::CreateWindowExA(0, "BUTTON", "", WS_CHILD | WS_VISIBLE | BS_OWNERDRAW, 0, 0, 40, 20,
                                    parent, nullptr, nullptr, nullptr);
    ::SendMessageA(button, BM_CLICK, 0, 0);
    ::DestroyWindow(parent);
    MSG msg;
    while (::PeekMessageA(&msg, nullptr, 0, 0, PM_REMOVE))
        ::DispatchMessageA(&msg);
}

// A white 32-bit memory surface (the harness renderer) drawn on through a CDC.
class Canvas : public hytest::Renderer
{
public:
    Canvas(int width, int height, COLORREF fill = RGB(255, 255, 255)) : Renderer(width, height)
    {
        Fill(fill);
        m_dc.Attach(Renderer::dc());
    }
    ~Canvas() { m_dc.Detach(); }
    CDC& dc() { return m_dc; }
    int CountAll(COLORREF colour) const { return Count(RECT{ 0, 0, width(), height() }, colour); }

private:
    CDC m_dc;
};

// A fixture whose GDI and USER object counts, taken after the warm-up, must
// not have grown by the end of each test; queued messages are handled and
// temporary wrappers freed first. Members declared in a derived fixture are
// gone before the check.
template <void (*WarmUp)()>
class GuardedTest : public ::testing::Test
{
protected:
    hytest::ObjectGuard guard{ WarmUp };
    void TearDown() override
    {
        hytest::PumpMessages();
        AfxDeleteTempMaps();
    }
};

// While it lives, the harness pumps through the framework's loop: each
// message is offered to the PreTranslateMessage chain of its window first,
// as a framework application's message loop does.
class FrameworkLoop
{
public:
    FrameworkLoop()
        : m_previous(hytest::SetPumpFilter([](MSG* msg) -> bool {
              CWinThread* thread = AfxGetThread();
              return thread ? thread->PreTranslateMessage(msg) : CWnd::WalkPreTranslateTree(nullptr, msg);
          }))
    {
    }
    ~FrameworkLoop() { hytest::SetPumpFilter(m_previous); }
    FrameworkLoop(const FrameworkLoop&) = delete;
    FrameworkLoop& operator=(const FrameworkLoop&) = delete;

private:
    hytest::PumpFilter m_previous;
};

// A window's text.
inline std::string WindowText(const CWnd& w)
{
    CString s;
    w.GetWindowText(s);
    return std::string(s);
}
