// The test harness proves it can fail: recording order, sequence mismatches,
// interception, dialog driving and the object-count guard. Input and pixel
// probes are proven by every suite that clicks and paints.
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

TEST(HarnessRecorder, SeesMessagesInArrivalOrderAnswersAndFilters)
{
    ObjectGuard guard;
    HostFrame frame;
    frame.RecordUserRange();
    PostMessageA(frame, WM_USER + 1, 1, 2);
    SendMessageA(frame, WM_USER + 2, 3, 4);
    PumpMessages();
    EXPECT_TRUE(frame.Matches({{WM_USER + 2, 3, 4, kSent}, {WM_USER + 1, 1, 2, kPosted}}));

    HostFrame filtered;
    filtered.RecordOnly({WM_NOTIFY});
    filtered.OnMessage(WM_NOTIFY, [](HWND, WPARAM, LPARAM) { return LRESULT(42); });
    EXPECT_EQ(42, SendMessageA(filtered, WM_NOTIFY, 5, 0));
    SendMessageA(filtered, WM_USER + 3, 0, 0);
    SetWindowTextA(filtered, "x");
    ASSERT_EQ(1u, filtered.Messages().size());
    filtered.OnMessage(WM_NOTIFY, {});
    EXPECT_EQ(0, SendMessageA(filtered, WM_NOTIFY, 5, 0));
}

TEST(HarnessSequence, OrderKindParametersAndOptionalEntriesDecide)
{
    ObjectGuard guard;
    HostFrame frame;
    frame.RecordUserRange();
    SendMessageA(frame, WM_USER + 1, 0, 0);
    SendMessageA(frame, WM_USER + 2, 0, 0);
    EXPECT_NONFATAL_FAILURE(EXPECT_TRUE(frame.Matches({{WM_USER + 2}, {WM_USER + 1}})),
                            "> 0: WM_USER+2 w=0x0 l=0x0");

    const std::vector<Msg> log = {{nullptr, WM_USER + 1, 0, 0, true, 0}, {nullptr, WM_USER + 3, 0, 0, false, 0}};
    EXPECT_TRUE(SequenceMatches(log, {{WM_USER + 1, 0, 0, kSent}, {WM_USER + 2, 0, 0, kOptional}, {WM_USER + 3}}));
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

TEST(HarnessIntercept, BeepsBoxesAndMenusAreRecordedAndAnsweredWithoutShowingAnything)
{
    ObjectGuard guard;
    HostFrame frame;
    BeepRecorder beeps;
    MessageBeep(MB_ICONHAND);
    MessageBeep(MB_OK);
    EXPECT_EQ((std::vector<UINT>{MB_ICONHAND, MB_OK}), beeps.Types());

    const long windowsBefore = UserObjectCount();
    MessageBoxRecorder boxes;
    boxes.Answer(IDNO);
    // Any real dialog would be counted here and cancelled.
    DialogDriver safety([](HWND dlg) { PostMessageA(dlg, WM_COMMAND, IDCANCEL, 0); });
    EXPECT_EQ(IDNO, MessageBoxA(frame, "Delete the card?", "Cards", MB_YESNO | MB_ICONQUESTION));
    EXPECT_EQ(IDOK, MessageBoxW(frame, L"Saved", L"Memo", MB_OK));
    EXPECT_EQ(0, safety.Count());
    EXPECT_EQ(windowsBefore, UserObjectCount());
    ASSERT_EQ(2, boxes.Count());
    const MessageBoxCall& first = boxes.Calls()[0];
    EXPECT_EQ("Delete the card?|Cards", first.text + "|" + first.caption);
    EXPECT_EQ(UINT(MB_YESNO | MB_ICONQUESTION), first.type);
    EXPECT_EQ(frame.hwnd(), first.owner);
    EXPECT_EQ("Saved", boxes.Calls()[1].text);

    frame.RecordOnly({WM_INITMENUPOPUP, WM_COMMAND});
    HMENU menu = CreatePopupMenu();
    HMENU sub = CreatePopupMenu();
    AppendMenuA(sub, MF_STRING, 30, "Deep");
    AppendMenuA(menu, MF_STRING | MF_CHECKED, 10, "&Checked");
    AppendMenuA(menu, MF_SEPARATOR, 0, nullptr);
    AppendMenuA(menu, MF_STRING | MF_GRAYED, 20, "Grayed");
    AppendMenuA(menu, MF_POPUP, reinterpret_cast<UINT_PTR>(sub), "More");
    {
        PopupMenuRecorder menus;
        menus.Choose(20);
        menus.Choose(10);
        EXPECT_EQ(20, TrackPopupMenu(menu, TPM_RETURNCMD | TPM_RIGHTBUTTON, 100, 200, 0, frame, nullptr));
        EXPECT_TRUE(TrackPopupMenuEx(menu, TPM_LEFTALIGN, 1, 2, frame, nullptr));
        EXPECT_EQ(0u, frame.Count(WM_COMMAND));   // posted, not yet delivered
        PumpMessages();
        EXPECT_TRUE(frame.Matches({{WM_INITMENUPOPUP, WPARAM(menu), 0, kSent},
                                   {WM_INITMENUPOPUP, WPARAM(menu), 0, kSent},
                                   {WM_COMMAND, 10, 0, kPosted}}));
        ASSERT_EQ(2, menus.Count());
        const PopupMenuCall& call = menus.Calls()[0];
        EXPECT_EQ((std::vector<int>{100, 200}), (std::vector<int>{call.x, call.y}));
        EXPECT_EQ(UINT(TPM_RETURNCMD | TPM_RIGHTBUTTON), call.flags);
        ASSERT_EQ(4u, call.items.size());
        EXPECT_EQ("&Checked", call.items[0].text);
        EXPECT_TRUE(call.items[0].checked() && call.items[1].separator() && call.items[2].grayed());
        EXPECT_FALSE(call.items[2].checked());
        ASSERT_TRUE(call.Item(30));
        EXPECT_EQ("Deep", call.Item(30)->text);
        EXPECT_FALSE(call.Item(99));
        EXPECT_EQ(0, TrackPopupMenu(menu, TPM_RETURNCMD, 0, 0, 0, frame, nullptr));   // nothing scripted
    }
    DestroyMenu(menu);
}

namespace {

std::string g_dialogText;

INT_PTR CALLBACK HarnessDialogProc(HWND dlg, UINT msg, WPARAM wParam, LPARAM)
{
    if (msg == WM_INITDIALOG) return TRUE;
    if (msg == WM_COMMAND && (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL)) {
        char buf[64] = "";
        GetDlgItemTextA(dlg, 1000, buf, sizeof buf);
        g_dialogText = buf;
        EndDialog(dlg, LOWORD(wParam));
        return TRUE;
    }
    return FALSE;
}

// Dialog 200 of the resource-only test module: two edits (1000, 1001), OK, Cancel.
INT_PTR RunHarnessDialog(HWND owner)
{
    static HMODULE module = LoadLibraryA("chain_second.dll");
    return DialogBoxParamA(module, MAKEINTRESOURCEA(200), owner, &HarnessDialogProc, 0);
}

}  // namespace

TEST(HarnessDialog, DriverTypesAndClicksThroughAModalDialogAndCancelsOneLeftOpen)
{
    HostFrame owner;
    auto round = [&owner] {
        g_dialogText.clear();
        DialogDriver driver([](HWND dlg) {
            Type(GetDlgItem(dlg, 1000), "Hello");
            Click(GetDlgItem(dlg, IDOK), 3, 3);
        });
        EXPECT_EQ(IDOK, RunHarnessDialog(owner));
        EXPECT_EQ(1, driver.Count());
    };
    // Two warm-up rounds: the first loads fonts and classes, the second still
    // adds a cached DC; from then on the counts stay flat.
    ObjectGuard guard([&round] { round(); round(); });
    round();
    EXPECT_EQ("Hello", g_dialogText);
    EXPECT_TRUE(IsWindowEnabled(owner));

    INT_PTR result = 0;
    DialogDriver idle([](HWND) {});
    EXPECT_NONFATAL_FAILURE(result = RunHarnessDialog(nullptr), "still open");
    EXPECT_EQ(IDCANCEL, result);
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
