#include "GalleryFrame.h"
#include "GalleryStyle.h"
#include "GalleryHost.h"
#include "HyPasswordDlg.h"
#include <algorithm>

namespace {
constexpr UINT kSidebarId = 100;
constexpr UINT kPageId = 101;
constexpr int kHeaderHeight = 76;   // title and language line above the rows
constexpr int kRowHeight = 34;
}

// ---- CGallerySidebar ----

BEGIN_MESSAGE_MAP(CGallerySidebar, CWnd)
    ON_WM_PAINT()
    ON_WM_ERASEBKGND()
    ON_WM_LBUTTONDOWN()
    ON_WM_KEYDOWN()
    ON_WM_GETDLGCODE()
    ON_WM_SETFOCUS()
    ON_WM_KILLFOCUS()
    ON_MESSAGE(WM_PRINTCLIENT, OnPrintClient)
END_MESSAGE_MAP()

CGallerySidebar::CGallerySidebar() : m_pFrame(nullptr), m_nSelection(-1) {}

BOOL CGallerySidebar::Create(CGalleryFrame* pFrame, const RECT& rect, UINT nID)
{
    m_pFrame = pFrame;
    LPCTSTR cls = AfxRegisterWndClass(CS_DBLCLKS, ::LoadCursor(nullptr, IDC_ARROW));
    return CreateEx(0, cls, _T("Pages"), WS_CHILD | WS_VISIBLE | WS_TABSTOP, CRect(rect), pFrame, nID);
}

void CGallerySidebar::SetSelection(int index)
{
    m_nSelection = index;
    if (m_hWnd != nullptr)
        Invalidate(FALSE);
}

CRect CGallerySidebar::ItemRect(int index) const
{
    CRect rc;
    GetClientRect(&rc);
    int top = kHeaderHeight + index * kRowHeight;
    return CRect(8, top, rc.right - 8, top + kRowHeight - 4);
}

int CGallerySidebar::ItemFromPoint(CPoint point) const
{
    const int count = (int)GalleryPages().size();
    for (int i = 0; i < count; ++i)
        if (ItemRect(i).PtInRect(point))
            return i;
    return -1;
}

void CGallerySidebar::PaintInto(CDC* pDC)
{
    CRect rc;
    GetClientRect(&rc);
    CMemDCBuffer buffer(pDC, &rc);
    CDC& dc = *buffer.GetDC();
    dc.FillSolidRect(&rc, GalleryStyle::SidebarBackground());
    dc.FillSolidRect(rc.right - 1, 0, 1, rc.Height(), GalleryStyle::Rule());
    dc.SetBkMode(TRANSPARENT);

    {
        CDCSelect font(dc, GalleryStyle::SectionFont());
        dc.SetTextColor(GalleryStyle::Text());
        CRect title(16, 16, rc.right - 8, 44);
        dc.DrawText(_T("HyUI Gallery"), &title, DT_LEFT | DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
    }
    CDCSelect font(dc, GalleryStyle::BodyFont());
    dc.SetTextColor(GalleryStyle::MutedText());
    CRect caption(16, 44, rc.right - 8, 64);
    dc.DrawText(m_caption, &caption, DT_LEFT | DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);

    const std::vector<GalleryPageInfo>& pages = GalleryPages();
    for (int i = 0; i < (int)pages.size(); ++i)
    {
        CRect item = ItemRect(i);
        const bool selected = i == m_nSelection;
        if (selected)
        {
            dc.FillSolidRect(&item, GalleryStyle::Accent());
            if (::GetFocus() == m_hWnd)
            {
                CRect focus = item;
                focus.DeflateRect(2, 2);
                dc.SetTextColor(GalleryStyle::AccentText());
                dc.SetBkColor(GalleryStyle::Accent());
                dc.DrawFocusRect(&focus);
            }
        }
        CDCSelect rowFont(dc, selected ? GalleryStyle::BoldFont() : GalleryStyle::BodyFont());
        dc.SetTextColor(selected ? GalleryStyle::AccentText() : GalleryStyle::Text());
        CRect text = item;
        text.left += 12;
        dc.DrawText(pages[i].title, -1, &text, DT_LEFT | DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
    }
}

void CGallerySidebar::OnPaint()
{
    CPaintDC dc(this);
    PaintInto(&dc);
}

BOOL CGallerySidebar::OnEraseBkgnd(CDC*) { return TRUE; }

LRESULT CGallerySidebar::OnPrintClient(WPARAM wParam, LPARAM)
{
    PaintInto(CDC::FromHandle((HDC)wParam));
    return 0;
}

void CGallerySidebar::OnLButtonDown(UINT, CPoint point)
{
    SetFocus();
    int index = ItemFromPoint(point);
    if (index >= 0)
        m_pFrame->SelectPage(index);
}

// The focus mark on the selected row follows the focus.
void CGallerySidebar::OnSetFocus(CWnd*) { Invalidate(FALSE); }
void CGallerySidebar::OnKillFocus(CWnd*) { Invalidate(FALSE); }

UINT CGallerySidebar::OnGetDlgCode() { return DLGC_WANTARROWS; }

void CGallerySidebar::OnKeyDown(UINT nChar, UINT, UINT)
{
    const int count = (int)GalleryPages().size();
    if (count == 0)
        return;
    int index = m_nSelection;
    switch (nChar)
    {
    case VK_UP: index = std::max(0, index - 1); break;
    case VK_DOWN: index = std::min(count - 1, index + 1); break;
    case VK_HOME: index = 0; break;
    case VK_END: index = count - 1; break;
    default: return;
    }
    if (index != m_nSelection)
    {
        m_pFrame->SelectPage(index);
        SetFocus();   // keep the keyboard in the list
        Invalidate(FALSE);
    }
}

// ---- CGalleryFrame ----

BEGIN_MESSAGE_MAP(CGalleryFrame, CWnd)
    ON_WM_CREATE()
    ON_WM_SIZE()
    ON_WM_ERASEBKGND()
    ON_WM_PAINT()
    ON_WM_SETFOCUS()
    ON_WM_GETMINMAXINFO()
    ON_WM_NCDESTROY()
    ON_MESSAGE(WM_PRINTCLIENT, OnPrintClient)
    ON_MESSAGE(HYWM_GET_PASSWORD_DIGEST, OnPasswordRequest)
END_MESSAGE_MAP()

// The library asks the application's main window for the password digest.
LRESULT CGalleryFrame::OnPasswordRequest(WPARAM wParam, LPARAM lParam)
{
    return GalleryAnswerPasswordRequest(wParam, lParam);
}

CGalleryFrame::CGalleryFrame() : m_pPage(nullptr), m_nPage(-1) {}

CGalleryFrame::~CGalleryFrame() { delete m_pPage; }

BOOL CGalleryFrame::Create(const CString& languageCaption)
{
    m_sidebar.SetCaption(languageCaption);
    LPCTSTR cls = AfxRegisterWndClass(CS_DBLCLKS, ::LoadCursor(nullptr, IDC_ARROW), nullptr,
                                      ::LoadIcon(nullptr, IDI_APPLICATION));
    CRect work;
    ::SystemParametersInfo(SPI_GETWORKAREA, 0, &work, 0);
    CSize size(std::min(1320, work.Width()), std::min(900, work.Height()));
    if (!CreateEx(0, cls, _T("HyUI Gallery"), WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN,
                  work.left + (work.Width() - size.cx) / 2, work.top + (work.Height() - size.cy) / 2,
                  size.cx, size.cy, nullptr, nullptr))
        return FALSE;
    if (!GalleryPages().empty())
        SelectPage(0);
    return TRUE;
}

int CGalleryFrame::OnCreate(LPCREATESTRUCT)
{
    CRect rc;
    GetClientRect(&rc);
    if (!m_sidebar.Create(this, CRect(0, 0, GalleryStyle::kSidebarWidth, rc.bottom), kSidebarId))
        return -1;
    return 0;
}

void CGalleryFrame::SelectPage(int index)
{
    const std::vector<GalleryPageInfo>& pages = GalleryPages();
    if (index < 0 || index >= (int)pages.size() || index == m_nPage)
        return;
    if (m_pPage != nullptr)
    {
        m_pPage->DestroyWindow();
        delete m_pPage;
        m_pPage = nullptr;
    }
    m_nPage = index;
    m_sidebar.SetSelection(index);
    CRect rc;
    GetClientRect(&rc);
    rc.left = GalleryStyle::kSidebarWidth;
    m_pPage = pages[index].create();
    if (!m_pPage->CreatePage(this, rc, kPageId))
    {
        delete m_pPage;
        m_pPage = nullptr;
    }
    CString title;
    title.Format(_T("HyUI Gallery - %s"), pages[index].title);
    SetWindowText(title);
}

void CGalleryFrame::LayoutChildren()
{
    CRect rc;
    GetClientRect(&rc);
    if (m_sidebar.m_hWnd != nullptr)
        m_sidebar.MoveWindow(0, 0, GalleryStyle::kSidebarWidth, rc.Height());
    if (m_pPage != nullptr)
        m_pPage->MoveWindow(GalleryStyle::kSidebarWidth, 0, std::max(0, rc.Width() - GalleryStyle::kSidebarWidth),
                            rc.Height());
}

void CGalleryFrame::FitToPage()
{
    if (m_pPage == nullptr)
        return;
    // Twice: the first pass may change the page's width (its scroll bar goes).
    for (int pass = 0; pass < 2; ++pass)
    {
        CRect pageClient;
        m_pPage->GetClientRect(&pageClient);
        CSize content = m_pPage->GetContentSize(pageClient.Width());
        CRect want(0, 0, GalleryStyle::kSidebarWidth + content.cx, content.cy);
        ::AdjustWindowRectEx(&want, GetStyle(), FALSE, GetExStyle());
        SetWindowPos(nullptr, 0, 0, want.Width(), want.Height(), SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
}

void CGalleryFrame::OnSize(UINT, int, int) { LayoutChildren(); }

BOOL CGalleryFrame::OnEraseBkgnd(CDC*) { return TRUE; }   // the children cover the client area

void CGalleryFrame::OnPaint()
{
    CPaintDC dc(this);
    CRect rc;
    GetClientRect(&rc);
    dc.FillSolidRect(&rc, GalleryStyle::PageBackground());
}

LRESULT CGalleryFrame::OnPrintClient(WPARAM wParam, LPARAM)
{
    CRect rc;
    GetClientRect(&rc);
    CDC::FromHandle((HDC)wParam)->FillSolidRect(&rc, GalleryStyle::PageBackground());
    return 0;
}

void CGalleryFrame::OnSetFocus(CWnd*) { m_sidebar.SetFocus(); }

void CGalleryFrame::OnGetMinMaxInfo(MINMAXINFO* lpMMI)
{
    lpMMI->ptMinTrackSize.x = GalleryStyle::kSidebarWidth + 320;
    lpMMI->ptMinTrackSize.y = 360;
    // A page may be taller than the screen: the PNG mode sizes the hidden
    // window to the whole page.
    lpMMI->ptMaxTrackSize.x = std::max((int)lpMMI->ptMaxTrackSize.x, 8000);
    lpMMI->ptMaxTrackSize.y = std::max((int)lpMMI->ptMaxTrackSize.y, 8000);
}

void CGalleryFrame::OnNcDestroy()
{
    CWnd::OnNcDestroy();
    ::PostQuitMessage(0);
}
