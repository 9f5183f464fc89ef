// The test harness proves it can fail: recording order, sequence mismatches,
// interception, dialog driving and the object-count guard. Input and pixel
// probes are proven by every suite that clicks and paints.
#include "hytest.h"

#include <gtest/gtest-spi.h>

#include <cstdio>
#include <string>
#include <vector>

using namespace hytest;

namespace {

// ---- windows used only here ----

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

TEST(HarnessSequence, KindParametersAndOptionalEntriesDecide)
{
    const auto log = Log({{WM_USER + 1, true}, {WM_USER + 3, false}});
    EXPECT_TRUE(SequenceMatches(log, {{WM_USER + 1, 0, 0, kSent}, {WM_USER + 2, 0, 0, kOptional}, {WM_USER + 3}}));
    EXPECT_FALSE(SequenceMatches(log, {{WM_USER + 1, 0, 0, kPosted}, {WM_USER + 3}}));
    EXPECT_FALSE(SequenceMatches(log, {{WM_USER + 1, 9, 0}, {WM_USER + 3}}));
    EXPECT_FALSE(SequenceMatches(log, {{WM_USER + 1, 0, 9}, {WM_USER + 3}}));
    EXPECT_TRUE(SequenceMatches(log, {{WM_USER + 1, 9, 9, kAnyParams}, {WM_USER + 3}}));
    const auto missing = SequenceMatches(log, {{WM_USER + 1}, {WM_USER + 3}, {WM_USER + 4}});
    EXPECT_NE(std::string::npos, std::string(missing.message()).find("missing message"));
    const auto extra = SequenceMatches(log, {{WM_USER + 1}});
    EXPECT_NE(std::string::npos, std::string(extra.message()).find("unexpected extra"));
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

TEST(HarnessDialog, ADialogLeftOpenFailsAndIsCancelled)
{
    INT_PTR result = 0;
    DialogDriver idle([](HWND) {});
    EXPECT_NONFATAL_FAILURE(result = RunHarnessDialog(nullptr), "still open");
    EXPECT_EQ(IDCANCEL, result);
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

TEST(HarnessObjects, GuardDetectsWindowsNotDestroyed)
{
    std::vector<HWND> windows;
    {
        ObjectGuard guard;
        for (int i = 0; i < 10; ++i)
            windows.push_back(MakeWindow(&LeakyProc, "HarnessLeaky", nullptr, 0, 0, 8, 8));
        EXPECT_EQ(10, guard.Growth().user);
        EXPECT_NONFATAL_FAILURE(guard.Check(), "USER");
    }
    ObjectGuard after;
    for (HWND h : windows)
        DestroyWindow(h);
    EXPECT_EQ(-10, after.Growth().user);
}
