// Window DCs (CPaintDC, CClientDC, CWindowDC) on real windows.
#include <gtest/gtest.h>

#include "afxwin.h"
#include "hytest.h"
#include "hytest_afx.h"

using hytest::PumpMessages;

namespace {

constexpr COLORREF kRed = RGB(255, 0, 0);

// Paints its update rectangle red through CPaintDC and records it.
class CPaintProbe : public CWnd
{
public:
    CRect rcPaint;
    HDC hdcPainted = nullptr;

protected:
    afx_msg void OnPaint()
    {
        CPaintDC dc(this);
        rcPaint = dc.m_ps.rcPaint;
        hdcPainted = dc.m_hDC;
        dc.FillSolidRect(rcPaint, kRed);
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CPaintProbe, CWnd)
    ON_WM_PAINT()
END_MESSAGE_MAP()

class GdiWindowDC : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(wnd.CreateEx(0, nullptr, "probe", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                                 CRect(10, 10, 210, 160), nullptr, 0));
        PumpMessages();
    }
    void TearDown() override
    {
        wnd.DestroyWindow();
        PumpMessages();
    }
    CPaintProbe wnd;
};

}  // namespace

// CPaintDC paints the update rectangle and validates it, or paints the
// whole client area into the DC passed in wParam and leaves the update
// region alone; repeated use leaves no objects behind.
TEST_F(GdiWindowDC, PaintDCPaintsTheUpdateRectangleOrTheDCPassedInWParam)
{
    ::InvalidateRect(wnd.m_hWnd, CRect(20, 10, 60, 30), FALSE);
    ::UpdateWindow(wnd.m_hWnd);
    EXPECT_EQ(CRect(20, 10, 60, 30), wnd.rcPaint);
    EXPECT_FALSE(::GetUpdateRect(wnd.m_hWnd, nullptr, FALSE));

    CRect client;
    wnd.GetClientRect(&client);
    hytest::Renderer mem(client.Width(), client.Height());
    ::InvalidateRect(wnd.m_hWnd, CRect(0, 0, 5, 5), FALSE);
    wnd.SendMessage(WM_PAINT, (WPARAM)mem.dc(), 0);
    EXPECT_EQ(mem.dc(), wnd.hdcPainted);
    EXPECT_EQ(client, wnd.rcPaint);
    EXPECT_EQ(client.Width() * client.Height(), mem.Count(client, kRed));
    EXPECT_TRUE(::GetUpdateRect(wnd.m_hWnd, nullptr, FALSE));
    EXPECT_EQ(OBJ_MEMDC, ::GetObjectType(mem.dc()));

    RunRepeated([this] {
        for (int i = 0; i < 20; ++i) {
            { CClientDC dc(&wnd); dc.FillSolidRect(0, 0, 10, 10, kRed); }
            { CWindowDC dc(&wnd); dc.GetCurrentFont(); }
            ::InvalidateRect(wnd.m_hWnd, nullptr, FALSE);
            ::UpdateWindow(wnd.m_hWnd);
        }
    }, 5);
}
