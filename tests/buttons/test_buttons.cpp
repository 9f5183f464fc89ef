// The bitmap and menu buttons as a framework parent and a person see them:
// clicks and keys reach the buttons only by reflection; what the parent is
// told; hover; the stored picture; the popup; and the drawing, probed.
#include "CxImage.h"
#include "HyBitmapButton.h"
#include "HyMenuButton.h"
#include "HyTheme.h"
#include "hytest_afx.h"
#include "hytest_pictures.h"

#include <memory>

namespace {

// A shown framework parent (a HostFrame under a CWnd) and a system button
// made a bitmap button by subclassing, 80 x 60 at (20, 20).
struct Scene
{
    FrameworkLoop loop;
    hytest::HostFrame frame{ 300, 200 };
    CWnd parent;
    CHyBitmapButton button;
    CHyMenuButton menuButton;
    Scene(const char* caption = "")
    {
        parent.SubclassWindow(frame);
        button.SubclassWindow(::CreateWindowA("BUTTON", caption, WS_CHILD | WS_VISIBLE | BS_PUSHBUTTON, 20, 20, 80, 60,
                                              frame, (HMENU)5, nullptr, nullptr));
        ::ShowWindow(frame, SW_SHOW);
        ::SetForegroundWindow(frame);
        hytest::PumpMessages();
        frame.RecordOnly({ HYWM_BITMAPBUTTON_CLICKED, WM_COMMAND });
        frame.Clear();
    }
    ~Scene() { parent.UnsubclassWindow(); }
};

// The first run of each button drawn, pressed, hovered and popped up makes
// the system's shared objects; the guards compare after it.
void WarmUp()
{
    WarmUpStandardControls();
    hytest::PopupMenuRecorder popups;
    Scene scene("Go");
    hytest::Click(scene.button, 5, 5);
    hytest::MouseMove(scene.button, 5, 5);
    hytest::Renderer once(scene.button);
    scene.menuButton.Create(300u, 0, WS_CHILD | WS_VISIBLE, CRect(120, 20, 220, 44), &scene.parent, 6);
    hytest::Click(scene.menuButton, 5, 5);
    hytest::Renderer twice(scene.menuButton);
    CxImage picture = SampleImage(90, 60);
    scene.button.SetCxImage(&picture);
    scene.button.SetFlat(FALSE);
    scene.button.SetFocus();
    hytest::Renderer thrice(scene.button);
    CDialog dlg(310u);
    hytest::DialogDriver driver([](HWND h) { ::PostMessage(h, WM_COMMAND, IDCANCEL, 0); });
    dlg.DoModal();
}

using ButtonTest = GuardedTest<WarmUp>;

TEST_F(ButtonTest, BitmapButtonReportsEachPressOnceBySending)
{
    // how -> 0x2900 sent, then nothing else for the parent
    const struct { const char* how; int times; } cases[] = { { "click", 1 }, { "space", 1 }, { "double", 2 } };
    for (const auto& c : cases)
    {
        Scene scene("Go");
        const std::string how = c.how;
        if (how == "space")
            scene.button.SetFocus(), hytest::KeyPress(scene.button, VK_SPACE);
        else
            how == "click" ? hytest::Click(scene.button, 10, 10) : hytest::DoubleClick(scene.button, 10, 10);
        EXPECT_EQ(scene.frame.Count(HYWM_BITMAPBUTTON_CLICKED), (size_t)c.times) << how;
        EXPECT_EQ(scene.frame.Count(WM_COMMAND), 0u) << how;   // no BN_CLICKED reaches the parent
        EXPECT_TRUE(scene.frame.Messages().empty() || scene.frame.Messages()[0].sent) << how;
        EXPECT_EQ(::GetFocus(), scene.button.m_hWnd) << how;
    }
    Scene scene;
    CHyBitmapButton made;   // created rather than attached: owner-drawn all the same
    made.Create("Made", WS_CHILD | WS_VISIBLE | BS_PUSHBUTTON, CRect(110, 20, 170, 50), &scene.parent, 9);
    EXPECT_EQ(made.CWnd::GetStyle() & 0x1F, (DWORD)BS_OWNERDRAW);
    scene.button.SetButtonStyle(BS_DEFPUSHBUTTON);
    EXPECT_EQ(scene.button.CWnd::GetStyle() & 0x1F, (DWORD)BS_OWNERDRAW);
    scene.button.EnableWindow(FALSE);   // the focus moves on, even when the button lacked it
    EXPECT_EQ(::GetFocus(), scene.frame.hwnd());
}

TEST_F(ButtonTest, FlatButtonsHoverOnlyWhileTheMouseIsOverThem)
{
    Scene scene;
    const auto hoverAfter = [&](UINT keys, int x, int y) {
        scene.button.SendMessage(WM_MOUSEMOVE, keys, MAKELPARAM(x, y));
        return scene.button.hover;
    };
    EXPECT_FALSE(hoverAfter(MK_LBUTTON, 10, 10));   // entered with the button held
    EXPECT_TRUE(hoverAfter(0, 10, 10));
    EXPECT_FALSE(hoverAfter(0, 150, 10));           // another window under the point
    EXPECT_TRUE(hoverAfter(0, 10, 10));
    scene.button.SendMessage(WM_MOUSELEAVE);
    EXPECT_FALSE(scene.button.hover);
    scene.button.SetFlat(FALSE);
    EXPECT_FALSE(hoverAfter(0, 10, 10));            // never for a 3-D button
}

TEST_F(ButtonTest, TheStoredPictureFitsSixtyFourPixels)
{
    Scene scene;
    const struct { int w, h; const char* stored; } cases[] = { { 200, 100, "64x32" }, { 65, 64, "64x63" }, { 30, 20, "30x20" } };
    for (const auto& c : cases)
    {
        CxImage original = SampleImage(c.w, c.h);
        scene.button.SetCxImage(&original);
        CxImage* stored = scene.button.GetCxImage();
        EXPECT_EQ(std::to_string(stored->GetWidth()) + "x" + std::to_string(stored->GetHeight()), c.stored);
    }
    scene.button.SetCxImage(nullptr);
    EXPECT_FALSE(scene.button.GetCxImage()->IsValid());
}

TEST_F(ButtonTest, BitmapButtonAsDrawn)
{
    Scene scene;
    const COLORREF face = ::GetSysColor(COLOR_BTNFACE), magenta = RGB(255, 0, 255);
    // No picture, no caption: the placeholder, centred, its magenta see-through.
    hytest::Renderer empty(scene.button);
    EXPECT_EQ(empty.Count(CRect(0, 0, 80, 60), magenta), 0);
    EXPECT_EQ(CRect(empty.Ink(CRect(0, 0, 80, 60), face)).CenterPoint(), CPoint(40, 30));
    // A flat button has no border until hovered; then a raised one.
    EXPECT_EQ(empty.At(0, 0), face);
    scene.button.SendMessage(WM_MOUSEMOVE, 0, MAKELPARAM(10, 10));
    hytest::Renderer hovered(scene.button);
    EXPECT_EQ(hovered.At(0, 0), ::GetSysColor(COLOR_BTNHIGHLIGHT));
    EXPECT_EQ(hovered.At(79, 59), ::GetSysColor(COLOR_BTNSHADOW));
    // 3-D: the four edge colours; pressed: one shadow frame; focus: black frame and dotted rectangle.
    scene.button.SetFlat(FALSE);
    hytest::Renderer raised(scene.button);
    EXPECT_EQ(raised.At(0, 30), ::GetSysColor(COLOR_BTNHIGHLIGHT));
    EXPECT_EQ(raised.At(1, 30), ::GetSysColor(COLOR_3DLIGHT));
    EXPECT_EQ(raised.At(79, 30), ::GetSysColor(COLOR_3DDKSHADOW));
    EXPECT_EQ(raised.At(78, 30), ::GetSysColor(COLOR_BTNSHADOW));
    scene.button.SetState(TRUE);
    hytest::Renderer down(scene.button);
    EXPECT_EQ(down.At(0, 30) == ::GetSysColor(COLOR_BTNSHADOW) && down.At(79, 30) == ::GetSysColor(COLOR_BTNSHADOW), true);
    scene.button.SetState(FALSE);
    scene.button.SetFocus();
    hytest::Renderer focused(scene.button);
    EXPECT_EQ(focused.At(0, 30), RGB(0, 0, 0));
    EXPECT_FALSE(CRect(focused.Ink(CRect(4, 4, 5, 56), raised)).IsRectEmpty());   // the dotted focus rectangle, 3 inside the working one
    // A 200 x 100 picture: 64 x 32 stored, drawn where HYDrawRectImage puts it in 80 x 60 (80 wide: 64 x 32 at 8, 14).
    CxImage solid = SampleImage(200, 100);
    scene.button.SetCxImage(&solid);
    hytest::Renderer picture(scene.button);
    EXPECT_EQ(picture.Count(CRect(8, 14, 72, 46), SampleColour(0, 0)), 64 * 32);
}

TEST_F(ButtonTest, MenuButtonPopsUpItsMenuAndTakesTheChoice)
{
    // chosen command -> index and caption afterwards (from "Work" at 0)
    const struct { UINT choose; int index; const char* caption; } cases[] = {
        { 403, 2, "Mobile" }, { 0, 0, "&Work" }, { 999, 0, "&Work" },   // cancelled; an unknown id
    };
    for (const auto& c : cases)
    {
        Scene scene;
        hytest::PopupMenuRecorder popups;
        popups.Choose(c.choose);
        scene.menuButton.Create(300u, 0, WS_CHILD | WS_VISIBLE, CRect(120, 20, 220, 44), &scene.parent, 6);
        hytest::Click(scene.menuButton, 10, 10);
        ASSERT_EQ(popups.Count(), 1);
        const hytest::PopupMenuCall& call = popups.Calls()[0];
        CRect window;
        scene.menuButton.GetWindowRect(&window);
        EXPECT_EQ(call.flags, 0x0102u);
        EXPECT_EQ(CPoint(call.x, call.y), window.TopLeft() + CPoint(10, 10));
        EXPECT_EQ(call.owner, scene.menuButton.m_hWnd);
        EXPECT_EQ(call.items[0].checked() * 100 + call.items[1].checked() * 10 + call.items[2].checked(), 100);
        EXPECT_EQ(scene.menuButton.GetMenuIndex(), c.index);
        EXPECT_EQ(WindowText(scene.menuButton), c.caption);
        EXPECT_EQ(scene.frame.Count(WM_COMMAND), 0u);   // the click went back to the button
    }
    Scene scene;
    hytest::PopupMenuRecorder popups;
    scene.menuButton.Create(399u, 0, WS_CHILD | WS_VISIBLE, CRect(120, 20, 220, 44), &scene.parent, 6);   // no such menu
    hytest::DoubleClick(scene.menuButton, 10, 10);
    EXPECT_EQ(WindowText(scene.menuButton) + std::to_string(popups.Count()), "0");
    CMenu mine;
    mine.CreatePopupMenu();
    mine.AppendMenu(MF_STRING, 11, "One"), mine.AppendMenu(MF_STRING, 12, "Two");
    scene.menuButton.SetButtonMenu(&mine, 1);
    hytest::DoubleClick(scene.menuButton, 10, 10);   // a double-click is two presses
    EXPECT_EQ(WindowText(scene.menuButton) + std::to_string(popups.Count()), "Two2");
    scene.menuButton.SetMenuIndex(7);
    EXPECT_EQ(WindowText(scene.menuButton), "");   // past the last item
}

TEST_F(ButtonTest, EnterInADialogOpensTheMenuOnceAndTheDialogStays)
{
    hytest::PopupMenuRecorder popups;
    CDialog dlg(310u);
    CHyMenuButton button;
    std::unique_ptr<hytest::WindowSpy> closer;
    hytest::DialogDriver driver([&](HWND h) {
        button.Create(300u, 1, WS_CHILD | WS_VISIBLE | WS_TABSTOP, CRect(10, 10, 120, 34), CWnd::FromHandle(h), 6);
        button.SetFocus();
        ::PostMessage(button, WM_KEYDOWN, VK_RETURN, 0x001C0001);
        ::PostMessage(button, WM_KEYDOWN, VK_RETURN, 0x401C0001);   // held: repeats
        ::PostMessage(button, WM_KEYDOWN, VK_RETURN, 0x401C0001);
        ::PostMessage(button, WM_KEYUP, VK_RETURN, 0xC01C0001);
        EXPECT_EQ(button.SendMessage(WM_GETDLGCODE, 0, 0) & DLGC_WANTALLKEYS, 0);   // without a message: the base code
        // Once the menu is up, the person cancels the dialog (after whatever is queued by then).
        static hytest::WindowSpy* spy;
        spy = new hytest::WindowSpy(button);
        spy->OnMessage(WM_INITMENUPOPUP, [h](HWND, WPARAM, LPARAM) { return ::PostMessage(h, WM_COMMAND, IDCANCEL, 0), (LRESULT)0; });
        closer.reset(spy);
    });
    EXPECT_EQ(dlg.DoModal(), IDCANCEL);   // Enter never pressed OK
    EXPECT_EQ(popups.Count(), 1);
}

BOOL CALLBACK ThemeDrawsButtons(int element, LPDRAWITEMSTRUCT) { return element == HYTHEME_BUTTON; }

TEST_F(ButtonTest, MenuButtonAsDrawn)
{
    Scene scene;
    scene.menuButton.Create(300u, 1, WS_CHILD | WS_VISIBLE, CRect(120, 20, 220, 44), &scene.parent, 6);
    HYThemeStyle look;
    HYThemeGetStyle(HYTHEME_BUTTON, &look);
    hytest::Renderer up(scene.menuButton);
    EXPECT_EQ(up.At(0, 12), RGB(0, 0, 0));
    EXPECT_EQ(up.At(1, 12), look.light);
    EXPECT_EQ(up.At(98, 12), look.dark);
    const CRect textUp = up.Ink(CRect(2, 2, 98, 22), look.fill);
    scene.menuButton.SetState(TRUE);
    hytest::Renderer down(scene.menuButton);
    EXPECT_EQ(down.At(1, 12), look.dark);   // the edges swap
    EXPECT_EQ(CRect(down.Ink(CRect(3, 3, 97, 21), look.fill)).TopLeft(), CRect(textUp).TopLeft() + CPoint(1, 1));
    scene.menuButton.SetState(FALSE);
    scene.menuButton.SetFocus();
    hytest::Renderer focused(scene.menuButton);
    EXPECT_EQ(focused.At(3, 12), HYThemeGetFocusColor());
    HYTHEMEOWNERDRAWPROC previous = HYThemeSetOwnerDrawProc(&ThemeDrawsButtons);
    hytest::Renderer theme(scene.menuButton);
    HYThemeSetOwnerDrawProc(previous);
    EXPECT_EQ(theme.Count(CRect(0, 0, 100, 24), look.fill) + theme.Count(CRect(0, 0, 100, 24), RGB(0, 0, 0)), 0);   // the theme drew it
}

TEST_F(ButtonTest, ObjectCountsStayFlat)
{
    Scene scene("Go");
    scene.menuButton.Create(300u, 0, WS_CHILD | WS_VISIBLE, CRect(120, 20, 220, 44), &scene.parent, 6);
    CxImage picture = SampleImage(90, 60);
    scene.button.SetCxImage(&picture);
    hytest::PopupMenuRecorder popups;
    RunRepeated([&] {
        for (int i = 0; i < 1000; ++i)
            scene.button.Invalidate(), scene.button.UpdateWindow(), scene.menuButton.Invalidate(), scene.menuButton.UpdateWindow();
        for (int i = 0; i < 100; ++i)
        {
            hytest::Click(scene.menuButton, 10, 10);
            CHyMenuButton b;
            b.Create(300u, 0, WS_CHILD | WS_VISIBLE, CRect(0, 100, 60, 120), &scene.parent, 7);
            CHyBitmapButton p;
            p.SubclassWindow(::CreateWindowA("BUTTON", "", WS_CHILD | WS_VISIBLE, 0, 130, 60, 30, scene.frame, nullptr, nullptr, nullptr));
            p.SetCxImage(&picture);
            p.UpdateWindow(), b.UpdateWindow();
            p.DestroyWindow();
        }
    }, 4);
    for (const hytest::PopupMenuCall& call : popups.Calls())
        EXPECT_FALSE(::IsMenu(call.menu)) << "a loaded menu left behind";
}

}  // namespace
