#include "GalleryPage.h"
#include "GalleryStyle.h"
#include <algorithm>

namespace {
std::vector<GalleryPageInfo>& Registry()
{
    static std::vector<GalleryPageInfo> pages;
    return pages;
}
}

void GalleryRegisterPage(const GalleryPageInfo& info)
{
    std::vector<GalleryPageInfo>& pages = Registry();
    pages.push_back(info);
    std::stable_sort(pages.begin(), pages.end(),
                     [](const GalleryPageInfo& a, const GalleryPageInfo& b) { return a.order < b.order; });
}

const std::vector<GalleryPageInfo>& GalleryPages() { return Registry(); }

// ---- CGalleryPage ----

BEGIN_MESSAGE_MAP(CGalleryPage, CWnd)
    ON_WM_PAINT()
    ON_WM_ERASEBKGND()
    ON_WM_SIZE()
    ON_WM_VSCROLL()
    ON_WM_MOUSEWHEEL()
    ON_WM_LBUTTONDOWN()
    ON_MESSAGE(WM_PRINTCLIENT, OnPrintClient)
END_MESSAGE_MAP()

CGalleryPage::CGalleryPage() : m_nScrollY(0) {}

BOOL CGalleryPage::CreatePage(CWnd* pParent, const RECT& rect, UINT nID)
{
    LPCTSTR cls = AfxRegisterWndClass(CS_DBLCLKS, ::LoadCursor(nullptr, IDC_ARROW));
    if (!CreateEx(0, cls, _T(""), WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_TABSTOP,
                  CRect(rect), pParent, nID))
        return FALSE;
    OnCreatePage();
    CRect rc;
    GetClientRect(&rc);
    UpdateScrollRange();
    Layout(rc.Width(), m_nScrollY);
    return TRUE;
}

void CGalleryPage::PaintInto(CDC* pDC)
{
    CRect rc;
    GetClientRect(&rc);
    CMemDCBuffer buffer(pDC, &rc);
    CDC& dc = *buffer.GetDC();
    dc.FillSolidRect(&rc, GalleryStyle::PageBackground());
    CDCSaveState state(dc);
    dc.SetViewportOrg(0, -m_nScrollY);
    CRect content = rc;
    content.OffsetRect(0, m_nScrollY);
    CDCSelect font(dc, GalleryStyle::BodyFont());
    dc.SetBkMode(TRANSPARENT);
    dc.SetTextColor(GalleryStyle::Text());
    Paint(dc, content);
}

void CGalleryPage::OnPaint()
{
    CPaintDC dc(this);
    PaintInto(&dc);
}

BOOL CGalleryPage::OnEraseBkgnd(CDC*) { return TRUE; }   // PaintInto fills everything

LRESULT CGalleryPage::OnPrintClient(WPARAM wParam, LPARAM)
{
    PaintInto(CDC::FromHandle((HDC)wParam));
    return 0;
}

void CGalleryPage::OnSize(UINT, int cx, int)
{
    UpdateScrollRange();
    Layout(cx, m_nScrollY);
    Invalidate(FALSE);
}

void CGalleryPage::UpdateScrollRange()
{
    CRect rc;
    GetClientRect(&rc);
    CSize content = GetContentSize(rc.Width());
    SCROLLINFO si = {};
    si.cbSize = sizeof(si);
    si.fMask = SIF_RANGE | SIF_PAGE;
    si.nMin = 0;
    si.nMax = std::max(0L, content.cy - 1);
    si.nPage = (UINT)std::max(0, rc.Height());
    SetScrollInfo(SB_VERT, &si, TRUE);
    int maxY = std::max(0, (int)content.cy - rc.Height());
    if (m_nScrollY > maxY)
        ScrollTo(maxY);
}

void CGalleryPage::ScrollTo(int y)
{
    CRect rc;
    GetClientRect(&rc);
    int maxY = std::max(0, (int)GetContentSize(rc.Width()).cy - rc.Height());
    y = std::clamp(y, 0, maxY);
    if (y == m_nScrollY)
        return;
    m_nScrollY = y;
    SetScrollPos(SB_VERT, y, TRUE);
    Layout(rc.Width(), m_nScrollY);
    Invalidate(FALSE);
}

void CGalleryPage::OnVScroll(UINT nSBCode, UINT, CScrollBar*)
{
    CRect rc;
    GetClientRect(&rc);
    int line = GalleryStyle::LineHeight() * 2;
    SCROLLINFO si = {};
    si.cbSize = sizeof(si);
    si.fMask = SIF_TRACKPOS;
    GetScrollInfo(SB_VERT, &si);
    switch (nSBCode)
    {
    case SB_LINEUP: ScrollTo(m_nScrollY - line); break;
    case SB_LINEDOWN: ScrollTo(m_nScrollY + line); break;
    case SB_PAGEUP: ScrollTo(m_nScrollY - rc.Height()); break;
    case SB_PAGEDOWN: ScrollTo(m_nScrollY + rc.Height()); break;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION: ScrollTo(si.nTrackPos); break;
    case SB_TOP: ScrollTo(0); break;
    case SB_BOTTOM: ScrollTo(INT_MAX / 2); break;
    default: break;
    }
}

BOOL CGalleryPage::OnMouseWheel(UINT, short zDelta, CPoint)
{
    ScrollTo(m_nScrollY - zDelta * GalleryStyle::LineHeight() * 3 / WHEEL_DELTA);
    return TRUE;
}

void CGalleryPage::OnLButtonDown(UINT, CPoint)
{
    SetFocus();   // so the wheel reaches the page
}
