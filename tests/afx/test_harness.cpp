// The test harness proves it can fail where a silent pass would hide every
// other failure: sequence mismatches and the object-count guard. Recording,
// sent-or-posted detection, the captured beeps, boxes and menus, and the
// dialog driver are proven by planted faults that only they catch
// (docs/testing.md); input and pixel probes by every suite that clicks and
// paints.
#include "hytest.h"

#include <gtest/gtest-spi.h>

#include <string>
#include <vector>

using namespace hytest;

namespace {

// Creates a brush on every paint and never deletes it.
LRESULT CALLBACK LeakyProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam)
{
    if (msg == WM_PAINT && wParam) {
        RECT rc = {0, 0, 4, 4};
        FillRect(reinterpret_cast<HDC>(wParam), &rc, CreateSolidBrush(RGB(1, 2, 3)));
        return 0;
    }
    return DefWindowProcA(hwnd, msg, wParam, lParam);
}

HWND MakeLeakyWindow()
{
    WNDCLASSA wc = {};
    wc.lpfnWndProc = &LeakyProc;
    wc.hInstance = GetModuleHandleA(nullptr);
    wc.lpszClassName = "HarnessLeaky";
    RegisterClassA(&wc);   // fails harmlessly once registered
    return CreateWindowExA(0, "HarnessLeaky", "", WS_POPUP | WS_VISIBLE, 0, 0, 8, 8, nullptr, nullptr,
                           GetModuleHandleA(nullptr), nullptr);
}

}  // namespace

TEST(HarnessSequence, OrderKindAndParametersDecide)
{
    ObjectGuard guard;
    HostFrame frame;
    frame.RecordOnly({ WM_USER + 1, WM_USER + 2 });
    PostMessageA(frame, WM_USER + 2, 1, 2);
    SendMessageA(frame, WM_USER + 1, 0, 0);
    PumpMessages();
    EXPECT_TRUE(frame.Matches({{WM_USER + 1, 0, 0, kSent}, {WM_USER + 2, 1, 2, kPosted}}));
    EXPECT_NONFATAL_FAILURE(EXPECT_TRUE(frame.Matches({{WM_USER + 2, 1, 2}, {WM_USER + 1}})),
                            "> 0: WM_USER+2 w=0x1 l=0x2");

    const std::vector<Msg> log = {{nullptr, WM_USER + 1, 0, 0, true, 0}, {nullptr, WM_USER + 3, 0, 0, false, 0}};
    EXPECT_TRUE(SequenceMatches(log, {{WM_USER + 1, 9, 9, kAnyParams}, {WM_USER + 3}}));
    for (const std::vector<Expect>& wrong : std::vector<std::vector<Expect>>{
             {{WM_USER + 1, 0, 0, kPosted}, {WM_USER + 3}}, {{WM_USER + 1, 9, 0}, {WM_USER + 3}},
             {{WM_USER + 1, 0, 9}, {WM_USER + 3}}})
        EXPECT_FALSE(SequenceMatches(log, wrong));
    EXPECT_NE(std::string::npos, std::string(SequenceMatches(log, {{WM_USER + 1}, {WM_USER + 3}, {WM_USER + 4}})
                                                 .message()).find("missing message"));
    EXPECT_NE(std::string::npos,
              std::string(SequenceMatches(log, {{WM_USER + 1}}).message()).find("unexpected extra"));
}

TEST(HarnessObjects, GuardDetectsABrushLeakedPerPaintAndWindowsNotDestroyed)
{
    HWND leaky = MakeLeakyWindow();
    {
        Renderer r(8, 8);
        ObjectGuard guard([&] { r.Render(leaky); });
        for (int i = 0; i < 50; ++i)
            r.Render(leaky);
        EXPECT_GE(guard.Growth().gdi, 50);
        EXPECT_NONFATAL_FAILURE(guard.Check("after 50 paints"), "object counts grew after 50 paints: GDI");
    }
    DestroyWindow(leaky);

    std::vector<HWND> windows;
    {
        ObjectGuard guard;
        for (int i = 0; i < 10; ++i)
            windows.push_back(MakeLeakyWindow());
        EXPECT_EQ(10, guard.Growth().user);
        EXPECT_NONFATAL_FAILURE(guard.Check(), "USER");
    }
    ObjectGuard after;
    for (HWND h : windows)
        DestroyWindow(h);
    EXPECT_EQ(-10, after.Growth().user);
}
