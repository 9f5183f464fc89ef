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
    int paints = 0;
    CRect rcPaint;
    HDC hdcPainted = nullptr;

protected:
    afx_msg void OnPaint()
    {
        CPaintDC dc(this);
        ++paints;
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

TEST_F(GdiWindowDC, ClientDCCoversTheClientAreaWindowDCTheFrameAndNullTheScreen)
{
    CRect window, client, box;
    wnd.GetWindowRect(&window);
    wnd.GetClientRect(&client);
    {
        CClientDC dc(&wnd);
        EXPECT_EQ(&dc, CDC::FromHandle(dc.m_hDC));
        dc.GetClipBox(&box);
        EXPECT_EQ(client, box);
    }
    {
        CWindowDC dc(&wnd);
        dc.GetClipBox(&box);
        EXPECT_EQ(window.Size(), box.Size());
    }
    CClientDC screen(nullptr);
    ASSERT_NE(nullptr, screen.m_hDC);
    EXPECT_EQ(::GetSystemMetrics(SM_CXSCREEN), screen.GetDeviceCaps(HORZRES));
}

TEST_F(GdiWindowDC, PaintDCPaintsTheUpdateRectangleAndValidatesIt)
{
    wnd.paints = 0;
    ::InvalidateRect(wnd.m_hWnd, CRect(20, 10, 60, 30), FALSE);
    ::UpdateWindow(wnd.m_hWnd);
    EXPECT_EQ(1, wnd.paints);
    EXPECT_EQ(CRect(20, 10, 60, 30), wnd.rcPaint);
    EXPECT_FALSE(::GetUpdateRect(wnd.m_hWnd, nullptr, FALSE));
}

TEST_F(GdiWindowDC, PaintDCUsesTheDCPassedInWParam)
{
    CRect client;
    wnd.GetClientRect(&client);
    CBitmap bmp;
    void* pv = nullptr;
    ASSERT_TRUE(bmp.CreateDIBSection32(client.Width(), client.Height(), &pv));
    CDC mem;
    ASSERT_TRUE(mem.CreateCompatibleDC(nullptr));
    CBitmap* pOld = mem.SelectObject(&bmp);

    ::ValidateRect(wnd.m_hWnd, nullptr);
    ::InvalidateRect(wnd.m_hWnd, CRect(0, 0, 5, 5), FALSE);
    wnd.paints = 0;
    wnd.SendMessage(WM_PAINT, (WPARAM)mem.m_hDC, 0);
    EXPECT_EQ(1, wnd.paints);
    EXPECT_EQ(mem.m_hDC, wnd.hdcPainted);
    EXPECT_EQ(client, wnd.rcPaint);  // the whole client area
    ::GdiFlush();
    const DWORD* bits = static_cast<const DWORD*>(pv);
    EXPECT_EQ(0x00FF0000u, bits[0]);
    EXPECT_EQ(0x00FF0000u, bits[client.Width() * client.Height() - 1]);
    // The window's own update region is left alone, and the DC survives.
    EXPECT_TRUE(::GetUpdateRect(wnd.m_hWnd, nullptr, FALSE));
    EXPECT_EQ(OBJ_MEMDC, ::GetObjectType(mem.m_hDC));
    EXPECT_EQ(&mem, CDC::FromHandle(mem.m_hDC));
    mem.SelectObject(pOld);
    AfxDeleteTempGdiMaps();
}

TEST_F(GdiWindowDC, RepeatedUseLeavesNoObjectsBehind)
{
    RunRepeated([this] {
        for (int i = 0; i < 20; ++i)
        {
            { CClientDC dc(&wnd); dc.FillSolidRect(0, 0, 10, 10, kRed); }
            { CWindowDC dc(&wnd); dc.GetCurrentFont(); }
            ::InvalidateRect(wnd.m_hWnd, nullptr, FALSE);
            ::UpdateWindow(wnd.m_hWnd);
        }
    }, 5);
}
