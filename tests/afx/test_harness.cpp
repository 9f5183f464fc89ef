// The test harness proves itself: recording, sequence checks, input, pixel
// probes, interception, dialog driving and the object-count guard.
#include "hytest.h"

#include <gtest/gtest-spi.h>

#include <cstdio>
#include <string>
#include <vector>

using namespace hytest;

namespace {

// ---- windows used only here ----

// Paints a white background, a red block at (10,10)-(30,20) and a blue line
// on row 40 from x 5 to 49, into wParam's DC when given (or BeginPaint's).
void PaintSample(HDC dc)
{
    HBRUSH red = CreateSolidBrush(RGB(255, 0, 0));
    RECT block = {10, 10, 30, 20};
    FillRect(dc, &block, red);
    DeleteObject(red);
    HBRUSH blue = CreateSolidBrush(RGB(0, 0, 255));
    RECT line = {5, 40, 50, 41};
    FillRect(dc, &line, blue);
    DeleteObject(blue);
}

LRESULT CALLBACK SampleProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam)
{
    switch (msg) {
    case WM_ERASEBKGND: {
        RECT rc;
        GetClientRect(hwnd, &rc);
        FillRect(reinterpret_cast<HDC>(wParam), &rc, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
        return 1;
    }
    case WM_PRINTCLIENT:
        SendMessageA(hwnd, WM_ERASEBKGND, wParam, 0);
        PaintSample(reinterpret_cast<HDC>(wParam));
        return 0;
    case WM_PAINT: {
        PAINTSTRUCT ps;
        HDC dc = wParam ? reinterpret_cast<HDC>(wParam) : BeginPaint(hwnd, &ps);
        PaintSample(dc);
        if (!wParam)
            EndPaint(hwnd, &ps);
        return 0;
    }
    }
    return DefWindowProcA(hwnd, msg, wParam, lParam);
}

// Fills its client area green; used as a child.
LRESULT CALLBACK GreenProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam)
{
    if (msg == WM_PAINT && wParam) {
        RECT rc;
        GetClientRect(hwnd, &rc);
        HBRUSH green = CreateSolidBrush(RGB(0, 255, 0));
        FillRect(reinterpret_cast<HDC>(wParam), &rc, green);
        DeleteObject(green);
        return 0;
    }
    return DefWindowProcA(hwnd, msg, wParam, lParam);
}

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

// The same without the leak.
LRESULT CALLBACK TidyProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam)
{
    if (msg == WM_PAINT && wParam) {
        RECT rc = {0, 0, 4, 4};
        HBRUSH brush = CreateSolidBrush(RGB(1, 2, 3));
        FillRect(reinterpret_cast<HDC>(wParam), &rc, brush);
        DeleteObject(brush);
        return 0;
    }
    return DefWindowProcA(hwnd, msg, wParam, lParam);
}

const char* ClassFor(WNDPROC proc, const char* name, UINT style = 0)
{
    WNDCLASSA wc = {};
    if (!GetClassInfoA(GetModuleHandleA(nullptr), name, &wc)) {
        wc.style = style;
        wc.lpfnWndProc = proc;
        wc.hInstance = GetModuleHandleA(nullptr);
        wc.lpszClassName = name;
        RegisterClassA(&wc);
    }
    return name;
}

HWND MakeWindow(WNDPROC proc, const char* cls, HWND parent, int x, int y, int cx, int cy)
{
    return CreateWindowExA(0, ClassFor(proc, cls), "", (parent ? WS_CHILD : WS_POPUP) | WS_VISIBLE, x, y, cx,
                           cy, parent, nullptr, GetModuleHandleA(nullptr), nullptr);
}

// Owns a raw window for the length of a test.
struct Window
{
    HWND hwnd;
    explicit Window(HWND h) : hwnd(h) {}
    ~Window() { if (IsWindow(hwnd)) DestroyWindow(hwnd); }
    operator HWND() const { return hwnd; }
};

}  // namespace

// ---- message recording ----

TEST(HarnessRecorder, SeesSentAndPostedInArrivalOrder)
{
    ObjectGuard guard;
    HostFrame frame;
    frame.RecordUserRange();
    PostMessageA(frame, WM_USER + 1, 1, 2);
    SendMessageA(frame, WM_USER + 2, 3, 4);
    PumpMessages();
    EXPECT_TRUE(frame.Matches({{WM_USER + 2, 3, 4, kSent}, {WM_USER + 1, 1, 2, kPosted}}));
}

TEST(HarnessRecorder, SendFromInsideAPostedMessageIsSentEvenWithEqualParameters)
{
    ObjectGuard guard;
    HostFrame frame;
    frame.RecordUserRange();
    frame.OnMessage(WM_USER + 1, [](HWND hwnd, WPARAM w, LPARAM l) {
        static int depth = 0;
        if (depth++ == 0)
            SendMessageA(hwnd, WM_USER + 1, w, l);
        --depth;
        return LRESULT(0);
    });
    PostMessageA(frame, WM_USER + 1, 7, 8);
    PumpMessages();
    EXPECT_TRUE(frame.Matches({{WM_USER + 1, 7, 8, kPosted}, {WM_USER + 1, 7, 8, kSent}}));
}

TEST(HarnessRecorder, HandlerAnswersAndFilterKeepsOnlyChosenMessages)
{
    ObjectGuard guard;
    HostFrame frame;
    frame.RecordOnly({WM_NOTIFY});
    frame.OnMessage(WM_NOTIFY, [](HWND, WPARAM, LPARAM) { return LRESULT(42); });
    NMHDR nm = {nullptr, 5, 77};
    EXPECT_EQ(42, SendMessageA(frame, WM_NOTIFY, 5, reinterpret_cast<LPARAM>(&nm)));
    SendMessageA(frame, WM_USER + 3, 0, 0);
    SetWindowTextA(frame, "x");
    ASSERT_EQ(1u, frame.Messages().size());
    EXPECT_EQ(UINT(WM_NOTIFY), frame.Messages()[0].msg);
    frame.OnMessage(WM_NOTIFY, {});
    EXPECT_EQ(0, SendMessageA(frame, WM_NOTIFY, 5, reinterpret_cast<LPARAM>(&nm)));
}

TEST(HarnessRecorder, SpyRecordsAChildAndOrdersAcrossRecorders)
{
    ObjectGuard guard;
    HostFrame frame, notify;
    Window child(MakeWindow(&GreenProc, "HarnessGreen", frame, 0, 0, 10, 10));
    {
        WindowSpy spy(child);
        spy.RecordOnly({WM_SETTEXT, WM_USER});
        notify.RecordUserRange();
        SendMessageA(notify, WM_USER + 9, 0, 0);
        SetWindowTextA(child, "abc");
        ASSERT_TRUE(spy.Matches({{WM_SETTEXT, 0, 0, kSent | kAnyLParam}}));
        EXPECT_LT(notify.Messages()[0].seq, spy.Messages()[0].seq);
    }
    // The spy has gone: the child works on without it.
    SetWindowTextA(child, "def");
    char text[8] = "";
    GetWindowTextA(child, text, sizeof text);
    EXPECT_STREQ("def", text);
}

// ---- sequence checks ----

namespace {
std::vector<Msg> Log(std::initializer_list<std::pair<UINT, bool>> msgs)
{
    std::vector<Msg> log;
    for (auto [m, sent] : msgs)
        log.push_back({nullptr, m, 0, 0, sent, 0});
    return log;
}
}  // namespace

TEST(HarnessSequence, WrongOrderFailsWithBothListings)
{
    ObjectGuard guard;
    HostFrame frame;
    frame.RecordUserRange();
    SendMessageA(frame, WM_USER + 1, 0, 0);
    SendMessageA(frame, WM_USER + 2, 0, 0);
    EXPECT_NONFATAL_FAILURE(EXPECT_TRUE(frame.Matches({{WM_USER + 2}, {WM_USER + 1}})),
                            "> 0: WM_USER+2 w=0x0 l=0x0");
    EXPECT_TRUE(frame.Matches({{WM_USER + 1}, {WM_USER + 2}}));
}

TEST(HarnessSequence, ComparesKindAndParametersUnlessTold)
{
    std::vector<Msg> log = {{nullptr, WM_USER, 1, 2, true, 0}};
    EXPECT_TRUE(SequenceMatches(log, {{WM_USER, 1, 2, kSent}}));
    EXPECT_FALSE(SequenceMatches(log, {{WM_USER, 1, 2, kPosted}}));
    EXPECT_FALSE(SequenceMatches(log, {{WM_USER, 9, 2}}));
    EXPECT_FALSE(SequenceMatches(log, {{WM_USER, 1, 9}}));
    EXPECT_TRUE(SequenceMatches(log, {{WM_USER, 9, 9, kAnyParams}}));
    EXPECT_TRUE(SequenceMatches(log, {{WM_USER, 9, 2, kAnyWParam}}));
}

TEST(HarnessSequence, OptionalEntriesMaySkipButMissingAndExtraFail)
{
    const auto log = Log({{WM_USER + 1, true}, {WM_USER + 3, false}});
    EXPECT_TRUE(SequenceMatches(log, {{WM_USER + 1}, {WM_USER + 2, 0, 0, kOptional}, {WM_USER + 3}}));
    EXPECT_TRUE(SequenceMatches(log, {{WM_USER + 1}, {WM_USER + 3}, {WM_USER + 4, 0, 0, kOptional}}));
    const auto missing = SequenceMatches(log, {{WM_USER + 1}, {WM_USER + 3}, {WM_USER + 4}});
    EXPECT_FALSE(missing);
    EXPECT_NE(std::string::npos, std::string(missing.message()).find("missing message"));
    const auto extra = SequenceMatches(log, {{WM_USER + 1}});
    EXPECT_FALSE(extra);
    EXPECT_NE(std::string::npos, std::string(extra.message()).find("unexpected extra"));
}

// ---- input ----

TEST(HarnessInput, ClickPostsDownAndUpWithButtonFlagsAndPoint)
{
    ObjectGuard guard;
    HostFrame frame;
    frame.RecordOnly({WM_LBUTTONDOWN, WM_LBUTTONUP, WM_RBUTTONDOWN, WM_RBUTTONUP});
    bool buttonDownInside = false;
    frame.OnMessage(WM_LBUTTONDOWN, [&](HWND, WPARAM, LPARAM) {
        buttonDownInside = GetKeyState(VK_LBUTTON) < 0;
        return LRESULT(0);
    });
    Click(frame, 12, 34);
    Click(frame, 5, 6, Button::Right);
    EXPECT_TRUE(frame.Matches({{WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(12, 34), kPosted},
                               {WM_LBUTTONUP, 0, MAKELPARAM(12, 34), kPosted},
                               {WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(5, 6), kPosted},
                               {WM_RBUTTONUP, 0, MAKELPARAM(5, 6), kPosted}}));
    EXPECT_TRUE(buttonDownInside);
    EXPECT_FALSE(GetKeyState(VK_LBUTTON) < 0);
}

TEST(HarnessInput, ModifiersAreSeenByGetKeyStateInsideTheHandlerAndRestored)
{
    ObjectGuard guard;
    HostFrame frame;
    frame.RecordOnly({WM_LBUTTONDOWN});
    bool shift = false, ctrl = false, alt = true;
    frame.OnMessage(WM_LBUTTONDOWN, [&](HWND, WPARAM, LPARAM) {
        shift = GetKeyState(VK_SHIFT) < 0;
        ctrl = GetKeyState(VK_CONTROL) < 0;
        alt = GetKeyState(VK_MENU) < 0;
        return LRESULT(0);
    });
    {
        Modifiers mods(kShift | kCtrl);
        Click(frame, 1, 1);
    }
    EXPECT_TRUE(shift);
    EXPECT_TRUE(ctrl);
    EXPECT_FALSE(alt);
    EXPECT_TRUE(frame.Matches({{WM_LBUTTONDOWN, MK_LBUTTON | MK_SHIFT | MK_CONTROL, MAKELPARAM(1, 1)}}));
    EXPECT_FALSE(GetKeyState(VK_SHIFT) < 0);
    EXPECT_FALSE(GetKeyState(VK_CONTROL) < 0);
}

TEST(HarnessInput, DoubleClickFollowsTheClassStyle)
{
    ObjectGuard guard;
    HostFrame frame;  // its class has CS_DBLCLKS
    frame.RecordOnly({WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK});
    DoubleClick(frame, 3, 4);
    const LPARAM at = MAKELPARAM(3, 4);
    EXPECT_TRUE(frame.Matches({{WM_LBUTTONDOWN, MK_LBUTTON, at}, {WM_LBUTTONUP, 0, at},
                               {WM_LBUTTONDBLCLK, MK_LBUTTON, at}, {WM_LBUTTONUP, 0, at}}));

    Window plain(MakeWindow(&GreenProc, "HarnessGreen", frame, 0, 0, 10, 10));
    WindowSpy spy(plain);
    spy.RecordOnly({WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK});
    DoubleClick(plain, 3, 4);
    EXPECT_TRUE(spy.Matches({{WM_LBUTTONDOWN, MK_LBUTTON, at}, {WM_LBUTTONUP, 0, at},
                             {WM_LBUTTONDOWN, MK_LBUTTON, at}, {WM_LBUTTONUP, 0, at}}));
}

TEST(HarnessInput, TypingDeliversKeyDownCharKeyUpWithShiftWhereNeeded)
{
    ObjectGuard guard;
    HostFrame frame;
    frame.RecordOnly({WM_KEYDOWN, WM_CHAR, WM_KEYUP});
    bool shiftForB = false;
    frame.OnMessage(WM_CHAR, [&](HWND, WPARAM ch, LPARAM) {
        if (ch == 'B')
            shiftForB = GetKeyState(VK_SHIFT) < 0;
        return LRESULT(0);
    });
    Type(frame, "aB");
    const LPARAM scanA = LPARAM(MapVirtualKeyA('A', MAPVK_VK_TO_VSC)) << 16;
    EXPECT_TRUE(frame.Matches({{WM_KEYDOWN, 'A', 1 | scanA, kPosted},
                               {WM_CHAR, 'a', 0, kPosted | kAnyLParam},
                               {WM_KEYUP, 'A', 1 | scanA | (LPARAM(3) << 30), kPosted},
                               {WM_KEYDOWN, 'B', 0, kAnyLParam},
                               {WM_CHAR, 'B', 0, kAnyLParam},
                               {WM_KEYUP, 'B', 0, kAnyLParam}}));
    EXPECT_TRUE(shiftForB);
    EXPECT_FALSE(GetKeyState(VK_SHIFT) < 0);
}

TEST(HarnessInput, AltTurnsKeysIntoSystemKeysAndArrowsAreExtended)
{
    ObjectGuard guard;
    HostFrame frame;
    frame.RecordOnly({WM_KEYDOWN, WM_SYSKEYDOWN});
    {
        Modifiers alt(kAlt);
        KeyPress(frame, 'X');
    }
    KeyPress(frame, VK_LEFT);
    ASSERT_EQ(2u, frame.Messages().size());
    EXPECT_EQ(UINT(WM_SYSKEYDOWN), frame.Messages()[0].msg);
    EXPECT_TRUE(frame.Messages()[0].lParam & (LPARAM(1) << 29));
    EXPECT_EQ(UINT(WM_KEYDOWN), frame.Messages()[1].msg);
    EXPECT_TRUE(frame.Messages()[1].lParam & (LPARAM(1) << 24));
}

// ---- renderer ----

TEST(HarnessRenderer, ProbesReadWhatWasPainted)
{
    Window sample(MakeWindow(&SampleProc, "HarnessSample", nullptr, 0, 0, 60, 50));
    ObjectGuard guard;
    Renderer r(sample);
    EXPECT_EQ(60, r.width());
    EXPECT_EQ(RGB(255, 0, 0), r.At(10, 10));
    EXPECT_EQ(RGB(255, 0, 0), r.At(29, 19));
    EXPECT_EQ(RGB(255, 255, 255), r.At(30, 19));
    EXPECT_TRUE(r.AllPixels({10, 10, 30, 20}, RGB(255, 0, 0)));
    EXPECT_EQ(200, r.Count({0, 0, 60, 50}, RGB(255, 0, 0)));
    EXPECT_TRUE(r.RowContains(40, 0, 5, RGB(0, 0, 255)));
    EXPECT_FALSE(r.RowContains(40, 50, 59, RGB(0, 0, 255)));
    EXPECT_FALSE(r.RowContains(41, 0, 59, RGB(0, 0, 255)));
    EXPECT_EQ(RGB(255, 255, 255), r.Dominant({0, 0, 60, 50}));
    EXPECT_EQ(RGB(255, 0, 0), r.Dominant({5, 5, 30, 20}));
    EXPECT_EQ(CLR_INVALID, r.At(60, 0));
    EXPECT_NONFATAL_FAILURE(EXPECT_TRUE(r.AllPixels({0, 0, 20, 20}, RGB(255, 0, 0))),
                            "first at (0,0) is RGB(255,255,255)");
}

TEST(HarnessRenderer, PrintClientAndChildrenAtTheirOffsets)
{
    Window sample(MakeWindow(&SampleProc, "HarnessSample", nullptr, 0, 0, 60, 50));
    Window child(MakeWindow(&GreenProc, "HarnessGreen", sample, 40, 5, 10, 8));
    ObjectGuard guard;
    Renderer r(60, 50);
    r.Render(sample, PaintMode::PaintDC);
    EXPECT_TRUE(r.AllPixels({40, 5, 50, 13}, RGB(0, 255, 0)));
    EXPECT_EQ(RGB(255, 255, 255), r.At(39, 5));
    EXPECT_EQ(RGB(255, 255, 255), r.At(50, 13));

    r.Render(sample, PaintMode::PrintClient);
    EXPECT_TRUE(r.AllPixels({10, 10, 30, 20}, RGB(255, 0, 0)));
}

TEST(HarnessRenderer, SavesABitmapFile)
{
    Window sample(MakeWindow(&SampleProc, "HarnessSample", nullptr, 0, 0, 60, 50));
    Renderer r(sample);
    char dir[MAX_PATH], path[MAX_PATH];
    GetTempPathA(sizeof dir, dir);
    GetTempFileNameA(dir, "hyt", 0, path);
    ASSERT_TRUE(r.SaveBmp(path));
    FILE* f = std::fopen(path, "rb");
    ASSERT_TRUE(f);
    std::fseek(f, 0, SEEK_END);
    const long size = std::ftell(f);
    std::fclose(f);
    DeleteFileA(path);
    EXPECT_EQ(long(14 + 40 + 60 * 50 * 4), size);
}

// ---- interception ----

TEST(HarnessIntercept, BeepsAreCountedWithTheirTypes)
{
    BeepRecorder beeps;
    MessageBeep(MB_ICONHAND);
    MessageBeep(MB_OK);
    EXPECT_EQ(2, beeps.Count());
    EXPECT_EQ((std::vector<UINT>{MB_ICONHAND, MB_OK}), beeps.Types());
}

TEST(HarnessIntercept, MessageBoxAnswersTheScriptWithoutShowingAnything)
{
    ObjectGuard guard;
    HostFrame frame;
    const long windowsBefore = UserObjectCount();
    long windowsDuring = -1;
    MessageBoxRecorder boxes;
    boxes.Answer(IDNO);
    // Any real dialog would be counted and then closed here.
    DialogDriver safety([&](HWND dlg) { windowsDuring = UserObjectCount(); PostMessageA(dlg, WM_COMMAND, IDCANCEL, 0); });
    EXPECT_EQ(IDNO, MessageBoxA(frame, "Delete the card?", "Cards", MB_YESNO | MB_ICONQUESTION));
    EXPECT_EQ(IDOK, MessageBoxW(frame, L"Saved", L"Memo", MB_OK));
    EXPECT_EQ(0, safety.Count());
    EXPECT_EQ(-1, windowsDuring);
    EXPECT_EQ(windowsBefore, UserObjectCount());
    ASSERT_EQ(2, boxes.Count());
    EXPECT_EQ("Delete the card?", boxes.Calls()[0].text);
    EXPECT_EQ("Cards", boxes.Calls()[0].caption);
    EXPECT_EQ(UINT(MB_YESNO | MB_ICONQUESTION), boxes.Calls()[0].type);
    EXPECT_EQ(frame.hwnd(), boxes.Calls()[0].owner);
    EXPECT_EQ("Saved", boxes.Calls()[1].text);
}

TEST(HarnessIntercept, MessageBoxFromAnotherModuleIsCaught)
{
    using ShellMessageBoxFn = int(__cdecl*)(HINSTANCE, HWND, LPCSTR, LPCSTR, UINT, ...);
    HMODULE shell = LoadLibraryA("shell32.dll");
    ASSERT_TRUE(shell);
    auto shellMessageBox = reinterpret_cast<ShellMessageBoxFn>(GetProcAddress(shell, "ShellMessageBoxA"));
    ASSERT_TRUE(shellMessageBox);
    {
        MessageBoxRecorder boxes;
        boxes.Answer(IDRETRY);
        DialogDriver safety([](HWND dlg) { PostMessageA(dlg, WM_COMMAND, IDCANCEL, 0); });
        EXPECT_EQ(IDRETRY, shellMessageBox(nullptr, nullptr, "Out of paper", "Print", MB_RETRYCANCEL));
        EXPECT_EQ(0, safety.Count()) << "a real dialog was shown";
        ASSERT_EQ(1, boxes.Count());
        EXPECT_EQ("Out of paper", boxes.Calls()[0].text);
    }
    FreeLibrary(shell);
}

TEST(HarnessIntercept, PopupMenuRecordsItemsAndChoosesTheScriptedCommand)
{
    ObjectGuard guard;
    HostFrame frame;
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
        EXPECT_EQ(0u, frame.Count(WM_COMMAND));  // posted, not yet delivered
        PumpMessages();
        EXPECT_TRUE(frame.Matches({{WM_INITMENUPOPUP, WPARAM(menu), 0, kSent},
                                   {WM_INITMENUPOPUP, WPARAM(menu), 0, kSent},
                                   {WM_COMMAND, 10, 0, kPosted}}));
        ASSERT_EQ(2, menus.Count());
        const PopupMenuCall& call = menus.Calls()[0];
        EXPECT_EQ(100, call.x);
        EXPECT_EQ(200, call.y);
        EXPECT_EQ(UINT(TPM_RETURNCMD | TPM_RIGHTBUTTON), call.flags);
        ASSERT_EQ(4u, call.items.size());
        EXPECT_EQ("&Checked", call.items[0].text);
        EXPECT_TRUE(call.items[0].checked());
        EXPECT_TRUE(call.items[1].separator());
        EXPECT_TRUE(call.items[2].grayed());
        EXPECT_FALSE(call.items[2].checked());
        ASSERT_TRUE(call.Item(30));
        EXPECT_EQ("Deep", call.Item(30)->text);
        EXPECT_FALSE(call.Item(99));
        // Nothing scripted: dismissed.
        EXPECT_EQ(0, TrackPopupMenu(menu, TPM_RETURNCMD, 0, 0, 0, frame, nullptr));
    }
    DestroyMenu(menu);
}

// ---- dialogs ----

namespace {

// An in-memory template: an edit (id 100), OK and Cancel.
std::vector<WORD> DialogTemplate()
{
    std::vector<WORD> t;
    auto align = [&t] { if (t.size() % 2) t.push_back(0); };  // DWORD alignment
    auto dword = [&t](DWORD d) { t.push_back(LOWORD(d)); t.push_back(HIWORD(d)); };
    auto text = [&t](const char* s) { do t.push_back(static_cast<WORD>(*s)); while (*s++); };
    dword(WS_POPUP | WS_CAPTION | DS_MODALFRAME | DS_SETFONT);
    dword(0);
    t.push_back(3);
    t.insert(t.end(), {0, 0, 160, 60});
    t.push_back(0);  // no menu
    t.push_back(0);  // default class
    text("Harness dialog");
    t.push_back(8);
    text("MS Shell Dlg");
    struct Item { DWORD style; short x, y, cx, cy; WORD id; WORD cls; const char* title; };
    const Item items[] = {
        {WS_CHILD | WS_VISIBLE | WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL, 5, 5, 150, 12, 100, 0x0081, ""},
        {WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_DEFPUSHBUTTON, 5, 40, 50, 14, IDOK, 0x0080, "OK"},
        {WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_PUSHBUTTON, 60, 40, 50, 14, IDCANCEL, 0x0080, "Cancel"},
    };
    for (const Item& it : items) {
        align();
        dword(it.style);
        dword(0);
        t.insert(t.end(), {WORD(it.x), WORD(it.y), WORD(it.cx), WORD(it.cy), it.id, 0xFFFF, it.cls});
        text(it.title);
        t.push_back(0);  // no creation data
    }
    return t;
}

std::string g_dialogText;

INT_PTR CALLBACK HarnessDialogProc(HWND dlg, UINT msg, WPARAM wParam, LPARAM)
{
    if (msg == WM_INITDIALOG)
        return TRUE;
    if (msg == WM_COMMAND && (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL)) {
        char buf[64] = "";
        GetDlgItemTextA(dlg, 100, buf, sizeof buf);
        g_dialogText = buf;
        EndDialog(dlg, LOWORD(wParam));
        return TRUE;
    }
    return FALSE;
}

INT_PTR RunHarnessDialog(HWND owner)
{
    const std::vector<WORD> t = DialogTemplate();
    return DialogBoxIndirectParamA(GetModuleHandleA(nullptr), reinterpret_cast<LPCDLGTEMPLATEA>(t.data()), owner,
                                   &HarnessDialogProc, 0);
}

}  // namespace

TEST(HarnessDialog, DriverTypesAndClicksThroughAModalDialog)
{
    HostFrame owner;
    auto round = [&owner] {
        g_dialogText.clear();
        DialogDriver driver([](HWND dlg) {
            Type(GetDlgItem(dlg, 100), "Hello");
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
}

TEST(HarnessDialog, ACloseThatArrivesLaterIsWaitedFor)
{
    // The callback's message makes another window post the dialog's OK only
    // after the driver first looked: the driver waits for it, reports nothing.
    HostFrame relay;
    HWND dialog = nullptr;
    relay.OnMessage(WM_USER + 7, [&dialog](HWND, WPARAM, LPARAM) {
        PostMessageA(dialog, WM_COMMAND, IDOK, 0);
        return LRESULT(0);
    });
    DialogDriver driver([&](HWND dlg) {
        dialog = dlg;
        SetDlgItemTextA(dlg, 100, "later");
        PostMessageA(relay, WM_USER + 7, 0, 0);
    });
    g_dialogText.clear();
    EXPECT_EQ(IDOK, RunHarnessDialog(nullptr));
    EXPECT_EQ("later", g_dialogText);
}

TEST(HarnessDialog, ADialogLeftOpenFailsAndIsCancelled)
{
    INT_PTR result = 0;
    DialogDriver idle([](HWND) {});
    EXPECT_NONFATAL_FAILURE(result = RunHarnessDialog(nullptr), "still open");
    EXPECT_EQ(IDCANCEL, result);
}

TEST(HarnessDialog, DrivesARealMessageBox)
{
    std::string text;
    DialogDriver driver([&](HWND dlg) {
        char buf[64] = "";
        GetDlgItemTextA(dlg, 0xFFFF, buf, sizeof buf);  // the message box's text
        text = buf;
        PostMessageA(dlg, WM_COMMAND, IDNO, 0);
    });
    EXPECT_EQ(IDNO, MessageBoxA(nullptr, "Discard changes?", "Memo", MB_YESNO));
    EXPECT_EQ("Discard changes?", text);
}

// ---- object counts ----

TEST(HarnessObjects, GdiCountFollowsCreationAndDeletion)
{
    const long before = GdiObjectCount();
    std::vector<HBRUSH> brushes;
    for (int i = 0; i < 100; ++i)
        brushes.push_back(CreateSolidBrush(RGB(i, 0, 0)));
    EXPECT_EQ(before + 100, GdiObjectCount());
    for (HBRUSH b : brushes)
        DeleteObject(b);
    EXPECT_EQ(before, GdiObjectCount());
}

TEST(HarnessObjects, UserCountFollowsWindowsAndMenus)
{
    const long before = UserObjectCount();
    Window popup(MakeWindow(&GreenProc, "HarnessGreen", nullptr, 0, 0, 5, 5));
    HWND child = MakeWindow(&GreenProc, "HarnessGreen", popup, 0, 0, 5, 5);
    EXPECT_EQ(before + 2, UserObjectCount());
    HMENU menu = CreatePopupMenu();
    EXPECT_EQ(before + 3, UserObjectCount());
    DestroyMenu(menu);
    DestroyWindow(child);
    EXPECT_EQ(before + 1, UserObjectCount());
}

TEST(HarnessObjects, GuardDetectsABrushLeakedPerPaint)
{
    Window leaky(MakeWindow(&LeakyProc, "HarnessLeaky", nullptr, 0, 0, 8, 8));
    Renderer r(8, 8);
    ObjectGuard guard([&] { r.Render(leaky); });
    for (int i = 0; i < 50; ++i)
        r.Render(leaky);
    EXPECT_GE(guard.Growth().gdi, 50);
    EXPECT_NONFATAL_FAILURE(guard.Check("after 50 paints"), "object counts grew after 50 paints: GDI");
}

TEST(HarnessObjects, GuardStaysQuietOverAThousandTidyPaints)
{
    Window tidy(MakeWindow(&TidyProc, "HarnessTidy", nullptr, 0, 0, 8, 8));
    Renderer r(8, 8);
    ObjectGuard guard([&] { r.Render(tidy); });
    for (int i = 0; i < 1000; ++i)
        r.Render(tidy);
    EXPECT_EQ(0, guard.Growth().gdi);
    EXPECT_TRUE(guard.Check("after 1000 paints"));
}

TEST(HarnessObjects, GuardDetectsWindowsNotDestroyed)
{
    std::vector<HWND> windows;
    {
        ObjectGuard guard;
        for (int i = 0; i < 10; ++i)
            windows.push_back(MakeWindow(&TidyProc, "HarnessTidy", nullptr, 0, 0, 8, 8));
        EXPECT_EQ(10, guard.Growth().user);
        EXPECT_NONFATAL_FAILURE(guard.Check(), "USER");
    }
    ObjectGuard after;
    for (HWND h : windows)
        DestroyWindow(h);
    EXPECT_EQ(-10, after.Growth().user);
}
