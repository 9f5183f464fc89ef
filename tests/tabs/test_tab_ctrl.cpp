// The tab control as its parent sees it: what a click, a key or an
// accelerator typed in a child edit tells the parent, in order; the hook
// before each change; the row laid out in a real window; the three styles,
// focus and icons probed pixel by pixel.
#include "HyTabCtrl.h"
#include "HyTheme.h"
#include "hytest_afx.h"

#include <commctrl.h>

namespace {

class HookedTabs : public CHyTabCtrl
{
public:
    using CHyTabCtrl::operator=;
    std::string hooks;   // "old>new@active" per OnActivatePage
    void OnActivatePage(int oldIndex, int newIndex) override
    {
        hooks += std::to_string(oldIndex) + ">" + std::to_string(newIndex) + "@" + std::to_string(active) + " ";
    }
};

// A shown frame (the parent, a framework window) and a tab control of three
// tabs across its top, 300 x 100, id 7.
struct TabScene
{
    enum { kId = 7 };
    FrameworkLoop loop;
    hytest::HostFrame frame{ 400, 200 };
    CWnd parent;
    HookedTabs tabs;
    TabScene(UINT style = HYTAB_STYLE_TABS, int count = 3)
    {
        parent.SubclassWindow(frame);
        for (int i = 0; i < count; ++i)
            tabs.AddItem(("Tab " + std::to_string(i)).c_str(), 100 + i, nullptr);   // before Create: kept
        tabs.Create(WS_CHILD | WS_VISIBLE | WS_TABSTOP | style, CRect(0, 0, 300, 100), &parent, kId);
        ::ShowWindow(frame, SW_SHOW);
        hytest::PumpMessages();
        frame.RecordOnly({ HYWM_TAB_ACTIVATED, WM_COMMAND, WM_NOTIFY });
        frame.Clear();
    }
    ~TabScene() { parent.UnsubclassWindow(); }
    // What the parent got: "0784:2 posted", "COMMAND:7 posted", ...
    std::string Told()
    {
        std::string s;
        for (const hytest::Msg& m : frame.Messages())
            s += (m.msg == WM_COMMAND ? "COMMAND:" : m.msg == WM_NOTIFY ? "NOTIFY:" : "0784:") + std::to_string(m.wParam) +
                 (m.lParam == 0 || m.msg == WM_NOTIFY ? "" : "!") + (m.sent ? " sent " : " posted ");
        frame.Clear();
        return s;
    }
    // Lets what is queued arrive, then forgets it.
    void Settle()
    {
        hytest::PumpMessages();
        frame.Clear();
        tabs.hooks.clear();
    }
    CPoint Middle(int i) { return tabs.Item(i)->rect.CenterPoint(); }
};

// The first tab row drawn, focused and typed beside creates the system's
// shared objects (fonts, the caret); the guards compare after it.
void WarmUp()
{
    WarmUpStandardControls();
    TabScene scene;
    CEdit edit;
    edit.Create(WS_CHILD | WS_VISIBLE, CRect(10, 40, 200, 60), &scene.tabs, 8);
    hytest::Click(scene.tabs, scene.Middle(1).x, scene.Middle(1).y);
    hytest::Renderer once(scene.tabs);
    edit.SetFocus();
    hytest::KeyPress(edit, 'A');
}

using TabTest = GuardedTest<WarmUp>;

TEST_F(TabTest, ClicksTellTheParentInOrder)
{
    // start, what is clicked (a tab or x = 290, past the tabs), double -> told, active, hooks
    const struct { int start, tab; bool twice; const char* told; int active; const char* hooks; } cases[] = {
        { 0, 2, false, "0784:2 posted COMMAND:7 posted ", 2, "0>2@0 " },
        { 0, 0, false, "COMMAND:7 posted ", 0, "" },   // the active tab: the command all the same
        { 0, -1, false, "", 0, "" },
        { 0, 1, true, "0784:1 posted COMMAND:7 posted ", 1, "0>1@0 " },   // a double-click's second press does nothing
    };
    for (const auto& c : cases)
    {
        TabScene scene;
        scene.tabs = c.start;
        scene.Settle();
        const CPoint at = c.tab >= 0 ? scene.Middle(c.tab) : CPoint(290, 5);
        c.twice ? hytest::DoubleClick(scene.tabs, at.x, at.y) : hytest::Click(scene.tabs, at.x, at.y);
        EXPECT_EQ(scene.Told(), c.told) << c.tab;
        EXPECT_EQ(scene.tabs.GetActiveItem(), c.active);
        EXPECT_EQ(scene.tabs.hooks, c.hooks);
        EXPECT_EQ(::GetFocus(), scene.tabs.m_hWnd);
    }
}

TEST_F(TabTest, KeysActWhenReleasedWithBothWraps)
{
    // tabs, start, key -> active after the key-up ("none": nothing told)
    const struct { int count, start; UINT key; int active; } cases[] = {
        { 3, 0, VK_LEFT, 2 }, { 3, 2, VK_RIGHT, 0 }, { 3, 1, VK_RIGHT, 2 }, { 3, 1, VK_LEFT, 0 },
        { 3, -1, VK_LEFT, 2 }, { 3, -1, VK_RIGHT, 0 }, { 3, 1, VK_HOME, 0 }, { 3, 1, VK_END, 2 },
        { 0, -1, VK_RIGHT, -1 }, { 0, -1, VK_LEFT, -1 }, { 3, 1, VK_UP, 1 },
    };
    for (const auto& c : cases)
    {
        TabScene scene(HYTAB_STYLE_TABS, c.count);
        scene.tabs = c.start;
        scene.tabs.SetFocus();
        scene.Settle();
        hytest::KeyDown(scene.tabs, c.key);
        EXPECT_EQ(scene.Told() + std::to_string(scene.tabs.GetActiveItem()), std::to_string(c.start)) << "at key-down";
        hytest::KeyUp(scene.tabs, c.key);
        const std::string told = c.active == c.start ? "" : "0784:" + std::to_string(c.active) + " posted ";
        EXPECT_EQ(scene.Told(), told) << c.key << " from " << c.start;
        EXPECT_EQ(scene.tabs.GetActiveItem(), c.active);
    }
    TabScene scene;
    EXPECT_EQ(scene.tabs.SendMessage(WM_GETDLGCODE), (LRESULT)DLGC_WANTARROWS);
}

TEST_F(TabTest, AnAcceleratorInAChildEditReachesOnlyTheParent)
{
    TabScene scene;
    ACCEL accel{ FVIRTKEY | FCONTROL, VK_TAB, 100 };
    HACCEL table = ::CreateAcceleratorTable(&accel, 1);
    scene.tabs.SetAccelerator(table);
    CEdit edit;
    edit.Create(WS_CHILD | WS_VISIBLE, CRect(10, 40, 200, 60), &scene.tabs, 8);
    hytest::WindowSpy spy(edit);
    spy.RecordOnly({ WM_KEYDOWN, WM_CHAR });
    NMTCKEYDOWN seen = {};
    scene.frame.OnMessage(WM_NOTIFY, [&](HWND, WPARAM, LPARAM l) { return seen = *(NMTCKEYDOWN*)l, (LRESULT)0; });
    edit.SetFocus();
    {
        hytest::Modifiers ctrl(hytest::kCtrl);
        hytest::KeyDown(edit, VK_TAB);
    }
    EXPECT_EQ(scene.Told(), "NOTIFY:7 sent ");
    EXPECT_EQ(seen.hdr.hwndFrom, scene.tabs.m_hWnd);
    EXPECT_EQ(seen.hdr.idFrom, 7u);
    EXPECT_EQ((int)seen.hdr.code, -550);
    EXPECT_EQ(seen.wVKey, VK_TAB);
    EXPECT_EQ(seen.flags, 0x000F0001u);   // the key message's lParam: scan code 15, one repeat
    EXPECT_TRUE(spy.Messages().empty());   // the edit never got the key
    hytest::KeyPress(edit, 'A');           // other keys reach it
    EXPECT_EQ(spy.Count(WM_CHAR), 1u);
    ::DestroyAcceleratorTable(table);
}

TEST_F(TabTest, TheRowIsLaidOutInTheWindow)
{
    TabScene scene;
    EXPECT_EQ(scene.tabs.GetStyle(), (UINT)HYTAB_STYLE_TABS);
    EXPECT_TRUE((scene.tabs.CWnd::GetStyle() & (WS_CLIPSIBLINGS | WS_CLIPCHILDREN)) == (WS_CLIPSIBLINGS | WS_CLIPCHILDREN));
    EXPECT_EQ(scene.tabs.Item(1)->value, 101);
    const CSize all = scene.tabs.ItemSize(-1), one = scene.tabs.ItemSize(0);
    EXPECT_EQ(all.cx, one.cx + scene.tabs.ItemSize(1).cx + scene.tabs.ItemSize(2).cx);
    EXPECT_EQ(scene.tabs._GetClientRect(), CRect(0, scene.tabs.GetItemHeight(), 300, 100));
    scene.tabs.AddItem("A much longer tab that cannot fit", 0, nullptr);   // now squeezed: 300 / 4 each
    EXPECT_EQ(scene.tabs.Item(3)->rect.right, 300);
    EXPECT_EQ(scene.tabs.Item(1)->rect.Width(), 75);
    EXPECT_EQ(scene.tabs.AddItem(nullptr, 0, nullptr), -1);
    scene.tabs = 3;
    EXPECT_TRUE(scene.tabs.DeleteItem(3) && !scene.tabs.DeleteItem(3));
    EXPECT_EQ(scene.tabs.GetActiveItem(), 3);   // left past the end
    hytest::KeyUp(scene.tabs, VK_RIGHT);        // (3 + 1) mod 3
    EXPECT_EQ(scene.tabs.GetActiveItem(), 1);
    HookedTabs unstyled;
    unstyled.Create(WS_CHILD, CRect(0, 0, 10, 10), &scene.parent, 9);
    EXPECT_EQ(unstyled.GetStyle(), 1u);
}

TEST_F(TabTest, StylesFocusAndIconsAsDrawn)
{
    const COLORREF page = HYThemeGetColor(HYTHEME_TAB_PAGE), tab = HYThemeGetColor(HYTHEME_TAB);
    HYThemeStyle active;
    HYThemeGetStyle(HYTHEME_TAB_ACTIVE, &active);
    for (UINT style : { HYTAB_STYLE_TABS, HYTAB_STYLE_BUTTONS, HYTAB_STYLE_FLAT })
    {
        TabScene scene(style);
        scene.tabs = 1;
        hytest::Renderer plain(scene.tabs);
        const CRect on = scene.tabs.Item(1)->rect, off = scene.tabs.Item(0)->rect;
        CRect inside = scene.tabs._GetClientRect();
        inside.DeflateRect(1, 1);   // within the page's frame
        EXPECT_TRUE(plain.AllPixels(inside, page)) << style;
        if (style == HYTAB_STYLE_FLAT)   // the accent bar under the active label only
            EXPECT_GT(plain.Count(on, active.line), on.Width() * 2) << style;
        else
            EXPECT_GT(plain.Count(on, active.fill) - plain.Count(off, active.fill), on.Width() * 8) << style;
        EXPECT_EQ(plain.Count(off, active.line), 0) << style;
        EXPECT_GT(plain.Count(off, tab), style == HYTAB_STYLE_FLAT ? -1 : off.Width() * 8) << style;
        scene.tabs.SetFocus();
        hytest::Renderer focused(scene.tabs);
        EXPECT_FALSE(CRect(focused.Ink(on, plain)).IsRectEmpty());   // the focus shows on the active tab
        EXPECT_TRUE(CRect(focused.Ink(off, plain)).IsRectEmpty());
    }
    // A 16-pixel icon, not 32: red fills 16 x 16 of the tab and no more.
    TabScene scene;
    ICONINFO info{ TRUE };
    CBitmap colour, mask;
    CClientDC screen(nullptr);
    colour.CreateCompatibleBitmap(&screen, 32, 32);
    mask.CreateBitmap(32, 32, 1, 1, nullptr);
    {
        CDC dc;
        dc.CreateCompatibleDC(&screen);
        CDCSelect c(dc, &colour);
        dc.FillSolidRect(0, 0, 32, 32, RGB(255, 0, 0));
        CDCSelect m(dc, &mask);
        dc.FillSolidRect(0, 0, 32, 32, RGB(0, 0, 0));
    }
    info.hbmColor = (HBITMAP)colour.GetSafeHandle();
    info.hbmMask = (HBITMAP)mask.GetSafeHandle();
    HICON icon = ::CreateIconIndirect(&info);
    scene.tabs.AddItem("Icon", 0, icon);
    hytest::Renderer r(scene.tabs);
    const int small = ::GetSystemMetrics(SM_CXSMICON);
    EXPECT_EQ(r.Count(scene.tabs.Item(3)->rect, RGB(255, 0, 0)), small * small);
    scene.tabs.DestroyWindow();
    ::DestroyIcon(icon);
}

TEST_F(TabTest, ObjectCountsStayFlat)
{
    TabScene scene;
    RunRepeated([&] { for (int i = 0; i < 1000; ++i) { scene.tabs.Invalidate(); scene.tabs.UpdateWindow(); } });
    RunRepeated([&] { for (int i = 0; i < 100; ++i) { HookedTabs t; t.AddItem("a", 0, nullptr);
                          t.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 90, 40), &scene.parent, 9); t.UpdateWindow(); } });
}

}  // namespace
