// Message maps, creation, subclassing and reflection of the window core.
#include <afxwin.h>
#include <gtest/gtest.h>
#include "hytest.h"
#include "hytest_afx.h"

#include <utility>

namespace {

constexpr UINT WM_BOTH = WM_USER + 1;       // handled by base and derived maps
constexpr UINT WM_BASE_ONLY = WM_USER + 2;  // handled by the base map only
constexpr UINT WM_NOBODY = WM_USER + 3;     // handled by no map

class CBaseTarget : public CWnd
{
public:
    int baseBothCalls = 0;
protected:
    afx_msg LRESULT OnBoth(WPARAM, LPARAM) { ++baseBothCalls; return 1; }
    afx_msg LRESULT OnBaseOnly(WPARAM w, LPARAM) { return 200 + (LRESULT)w; }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CBaseTarget, CWnd)
    ON_MESSAGE(WM_BOTH, OnBoth)
    ON_MESSAGE(WM_BASE_ONLY, OnBaseOnly)
END_MESSAGE_MAP()

class CDerivedTarget : public CBaseTarget
{
public:
    bool sawNcCreateAttached = false;
    bool createdAttached = false;
    int postNcDestroyCalls = 0;
    UINT lastDown = 0;
    CPoint lastPoint;
protected:
    afx_msg LRESULT OnBoth(WPARAM, LPARAM) { return 10; }
    afx_msg int OnCreate(LPCREATESTRUCT cs)
    {
        createdAttached = CWnd::FromHandlePermanent(m_hWnd) == this;
        return CBaseTarget::OnCreate(cs);
    }
    afx_msg void OnLButtonDown(UINT nFlags, CPoint point) { lastDown = nFlags; lastPoint = point; }
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_NCCREATE)
            sawNcCreateAttached = CWnd::FromHandlePermanent(m_hWnd) == this;
        return CBaseTarget::WindowProc(message, wParam, lParam);
    }
    void PostNcDestroy() override { ++postNcDestroyCalls; }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CDerivedTarget, CBaseTarget)
    ON_MESSAGE(WM_BOTH, OnBoth)
    ON_WM_CREATE()
    ON_WM_LBUTTONDOWN()
END_MESSAGE_MAP()

class DispatchTest : public GuardedTest<WarmUpStandardControls>
{
protected:
    hytest::HostFrame host;
};

TEST_F(DispatchTest, DerivedMapWinsBaseMapFillsInDefaultProcedureLast)
{
    CDerivedTarget wnd;
    ASSERT_TRUE(wnd.Create(nullptr, "target", WS_VISIBLE, CRect(0, 0, 100, 100),
                           CWnd::FromHandle(host), 1));
    EXPECT_EQ(10, wnd.SendMessage(WM_BOTH));
    EXPECT_EQ(0, wnd.baseBothCalls);
    EXPECT_EQ(207, wnd.SendMessage(WM_BASE_ONLY, 7));
    EXPECT_EQ(0, wnd.SendMessage(WM_NOBODY));
    // Unhandled WM_SETTEXT reaches the default procedure, which keeps the text.
    wnd.SendMessage(WM_SETTEXT, 0, (LPARAM) "via default");
    CString text;
    wnd.GetWindowText(text);
    EXPECT_STREQ("via default", text);
    // A mouse handler gets the flags and a signed point.
    wnd.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON | MK_SHIFT, MAKELPARAM(-3, 17));
    EXPECT_EQ((UINT)(MK_LBUTTON | MK_SHIFT), wnd.lastDown);
    EXPECT_EQ(CPoint(-3, 17), wnd.lastPoint);
    wnd.DestroyWindow();
}

class CRefusingTarget : public CWnd
{
public:
    int postNcDestroyCalls = 0;
protected:
    afx_msg int OnCreate(LPCREATESTRUCT) { return -1; }
    void PostNcDestroy() override { ++postNcDestroyCalls; }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CRefusingTarget, CWnd)
    ON_WM_CREATE()
END_MESSAGE_MAP()

// The object is attached before WM_NCCREATE and detached after WM_NCDESTROY;
// a refused or impossible creation leaves nothing attached. Foreign windows
// get temporary wrappers that never own them.
TEST_F(DispatchTest, CreationAttachesTheObjectAndFailureLeavesNothing)
{
    CDerivedTarget wnd;
    ASSERT_TRUE(wnd.Create(nullptr, nullptr, 0, CRect(0, 0, 10, 10), CWnd::FromHandle(host), 1));
    EXPECT_TRUE(wnd.sawNcCreateAttached && wnd.createdAttached);
    HWND h = wnd.m_hWnd;
    EXPECT_TRUE(wnd.DestroyWindow());
    EXPECT_TRUE(wnd.m_hWnd == nullptr && CWnd::FromHandlePermanent(h) == nullptr);
    EXPECT_EQ(1, wnd.postNcDestroyCalls);

    CRefusingTarget refused;
    EXPECT_FALSE(refused.Create(nullptr, nullptr, 0, CRect(0, 0, 10, 10), CWnd::FromHandle(host), 1));
    EXPECT_TRUE(refused.m_hWnd == nullptr && refused.postNcDestroyCalls == 1);
    CDerivedTarget unknown;
    EXPECT_FALSE(unknown.Create("NoSuchClassAnywhere", nullptr, 0, CRect(0, 0, 10, 10), CWnd::FromHandle(host), 1));
    EXPECT_TRUE(unknown.m_hWnd == nullptr && unknown.postNcDestroyCalls == 1);

    CWnd* temp = CWnd::FromHandle(host);
    EXPECT_EQ(host.hwnd(), temp->m_hWnd);
    EXPECT_EQ(temp, CWnd::FromHandle(host));   // one wrapper per handle
    EXPECT_EQ(nullptr, CWnd::FromHandlePermanent(host));
    AfxDeleteTempMaps();
    EXPECT_TRUE(::IsWindow(host));
}

// ---- subclassing: Default() reaches the control's own procedure ----

class CNoDigitsEdit : public CWnd
{
public:
    int chars = 0;
protected:
    afx_msg void OnChar(UINT nChar, UINT, UINT)
    {
        ++chars;
        if (nChar < '0' || nChar > '9')
            Default();   // digits are swallowed
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CNoDigitsEdit, CWnd)
    ON_WM_CHAR()
END_MESSAGE_MAP()

// Default() reaches the control's own procedure, whether the framework
// created the control or subclassed it; unsubclassing hands it back.
TEST_F(DispatchTest, SubclassedAndCreatedEditsFilterThroughDefault)
{
    HWND raw = ::CreateWindowEx(0, "EDIT", "", WS_CHILD | WS_VISIBLE, 0, 0, 100, 20, host, nullptr,
                                nullptr, nullptr);
    CNoDigitsEdit edit, created;
    ASSERT_TRUE(edit.SubclassWindow(raw));
    ASSERT_TRUE(created.Create("EDIT", "x", WS_VISIBLE, CRect(0, 0, 100, 20), CWnd::FromHandle(host), 5));
    for (char c : std::string("a1b2c")) {
        edit.SendMessage(WM_CHAR, (WPARAM)c, 1);
        created.SendMessage(WM_CHAR, (WPARAM)c, 1);
    }
    CString text, text2;
    edit.GetWindowText(text);
    created.GetWindowText(text2);
    EXPECT_EQ(CString("abc|abcx"), text + "|" + text2);   // the caret starts before "x"
    EXPECT_EQ(5, edit.chars);
    EXPECT_EQ(raw, edit.UnsubclassWindow());
    ::SendMessage(raw, WM_CHAR, '7', 1);
    char buf[16];
    ::GetWindowText(raw, buf, sizeof buf);
    EXPECT_STREQ("abc7", buf);
    EXPECT_EQ(5, edit.chars);
    ::DestroyWindow(raw);
    created.DestroyWindow();
}

// ---- reflection ----

constexpr UINT kButtonId = 100;
constexpr UINT kCustomNotify = (UINT)-1234;

class CParentWnd : public CWnd
{
public:
    int clicks = 0, drawItems = 0, notifies = 0;
protected:
    afx_msg void OnButtonClicked() { ++clicks; }
    afx_msg void OnDrawItem(int, LPDRAWITEMSTRUCT) { ++drawItems; }
    afx_msg void OnCustom(NMHDR*, LRESULT* pResult) { ++notifies; *pResult = 1; }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CParentWnd, CWnd)
    ON_BN_CLICKED(kButtonId, OnButtonClicked)
    ON_WM_DRAWITEM()
    ON_NOTIFY(kCustomNotify, kButtonId, OnCustom)
END_MESSAGE_MAP()

class CSelfHandlingButton : public CWnd
{
public:
    int clicks = 0, draws = 0, notifies = 0;
    BOOL passOn = FALSE;
protected:
    afx_msg BOOL OnClickedEx() { ++clicks; return !passOn; }
    void DrawItem(LPDRAWITEMSTRUCT) { ++draws; }
    afx_msg void OnCustom(NMHDR*, LRESULT* pResult) { ++notifies; *pResult = 77; }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CSelfHandlingButton, CWnd)
    ON_CONTROL_REFLECT_EX(BN_CLICKED, OnClickedEx)
    ON_WM_DRAWITEM_REFLECT()
    ON_NOTIFY_REFLECT(kCustomNotify, OnCustom)
END_MESSAGE_MAP()

class ReflectionTest : public DispatchTest
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(parent.CreateEx(0, nullptr, "parent", WS_OVERLAPPEDWINDOW, CRect(0, 0, 200, 200), nullptr, 0));
        ASSERT_TRUE(button.Create("BUTTON", "b", WS_VISIBLE | BS_OWNERDRAW, CRect(5, 5, 60, 30), &parent, kButtonId));
        // A click on an owner-draw child of this parent makes one-time
        // system objects; the guard compares after it.
        CWnd scratch;
        scratch.Create("BUTTON", "s", WS_VISIBLE | BS_OWNERDRAW, CRect(70, 5, 90, 30), &parent, 999);
        scratch.SendMessage(BM_CLICK);
        hytest::PumpMessages();
        scratch.DestroyWindow();
        guard.Rebase();
    }
    void TearDown() override { parent.DestroyWindow(); }
    LRESULT Notify(UINT code)
    {
        NMHDR nm{ button.m_hWnd, kButtonId, code };
        return parent.SendMessage(WM_NOTIFY, kButtonId, (LPARAM)&nm);
    }
    CParentWnd parent;
    CSelfHandlingButton button;
};

// Clicks, sent or real, and notifications go to the control; an extended
// handler may pass a click on to the parent.
TEST_F(ReflectionTest, TheControlHandlesItsOwnNotificationsBeforeItsParent)
{
    parent.SendMessage(WM_COMMAND, MAKEWPARAM(kButtonId, BN_CLICKED), (LPARAM)button.m_hWnd);
    button.SendMessage(BM_CLICK);
    hytest::PumpMessages();
    EXPECT_EQ(std::pair(2, 0), std::pair(button.clicks, parent.clicks));
    button.passOn = TRUE;
    parent.SendMessage(WM_COMMAND, MAKEWPARAM(kButtonId, BN_CLICKED), (LPARAM)button.m_hWnd);
    EXPECT_EQ(std::pair(3, 1), std::pair(button.clicks, parent.clicks));
    // The button paints into a memory DC: an owner-draw button asks its parent.
    HDC dc = ::CreateCompatibleDC(nullptr);
    button.SendMessage(WM_PRINTCLIENT, (WPARAM)dc, PRF_CLIENT);
    ::DeleteDC(dc);
    EXPECT_EQ(std::pair(1, 0), std::pair(button.draws, parent.drawItems));
    EXPECT_EQ(77, Notify(kCustomNotify));   // the reflected result reaches the sender
    EXPECT_EQ(std::pair(1, 0), std::pair(button.notifies, parent.notifies));
}

class CColouredStatic : public CWnd
{
public:
    CBrush brush{ RGB(10, 20, 30) };
    UINT lastType = 99;
protected:
    afx_msg HBRUSH CtlColor(CDC* pDC, UINT nCtlColor)
    {
        lastType = nCtlColor;
        pDC->SetTextColor(RGB(1, 2, 3));
        return (HBRUSH)brush.GetSafeHandle();
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CColouredStatic, CWnd)
    ON_WM_CTLCOLOR_REFLECT()
END_MESSAGE_MAP()

TEST_F(ReflectionTest, ColourRequestIsAnsweredByTheControl)
{
    CColouredStatic label;
    ASSERT_TRUE(label.Create("STATIC", "label", WS_VISIBLE, CRect(5, 40, 100, 60), &parent, 300));
    HDC dc = ::CreateCompatibleDC(nullptr);
    LRESULT r = parent.SendMessage(WM_CTLCOLORSTATIC, (WPARAM)dc, (LPARAM)label.m_hWnd);
    EXPECT_EQ((LRESULT)label.brush.GetSafeHandle(), r);
    EXPECT_EQ((UINT)CTLCOLOR_STATIC, label.lastType);
    EXPECT_EQ(RGB(1, 2, 3), ::GetTextColor(dc));
    ::DeleteDC(dc);
    label.DestroyWindow();
    AfxDeleteTempMaps();
}

}  // namespace
