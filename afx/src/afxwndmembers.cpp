// HyAfx: the everyday CWnd members (thin, checked wrappers) and the default
// message handlers, each of which hands the message to Default().
#include "afximpl.h"

// Called through null pointers by design; HyAfx builds with
// -fno-delete-null-pointer-checks so these tests stay.
HWND CWnd::GetSafeHwnd() const { return this == nullptr ? nullptr : m_hWnd; }
CWnd::operator HWND() const { return GetSafeHwnd(); }

LRESULT CWnd::SendMessage(UINT message, WPARAM wParam, LPARAM lParam) const
{ ASSERT_LIVE_WINDOW(); return ::SendMessage(m_hWnd, message, wParam, lParam); }
BOOL CWnd::PostMessage(UINT message, WPARAM wParam, LPARAM lParam) const
{ ASSERT_LIVE_WINDOW(); return ::PostMessage(m_hWnd, message, wParam, lParam); }
BOOL CWnd::SendNotifyMessage(UINT message, WPARAM wParam, LPARAM lParam) const
{ return ::SendNotifyMessage(m_hWnd, message, wParam, lParam); }

void CWnd::SendMessageToDescendants(UINT message, WPARAM wParam, LPARAM lParam, BOOL bDeep, BOOL bOnlyPerm)
{
    for (HWND h = ::GetTopWindow(m_hWnd); h != nullptr; h = ::GetWindow(h, GW_HWNDNEXT))
    {
        if (bOnlyPerm)
        {
            if (CWnd* p = FromHandlePermanent(h))
                p->SendMessage(message, wParam, lParam);
        }
        else
            ::SendMessage(h, message, wParam, lParam);
        if (bDeep && ::GetTopWindow(h) != nullptr)
            CWnd::FromHandle(h)->SendMessageToDescendants(message, wParam, lParam, bDeep, bOnlyPerm);
    }
}

DWORD CWnd::GetStyle() const { ASSERT_LIVE_WINDOW(); return (DWORD)::GetWindowLong(m_hWnd, GWL_STYLE); }
DWORD CWnd::GetExStyle() const { return (DWORD)::GetWindowLong(m_hWnd, GWL_EXSTYLE); }

static BOOL ModifyWindowLong(HWND hWnd, int nIndex, DWORD dwRemove, DWORD dwAdd, UINT nFlags)
{
    DWORD style = (DWORD)::GetWindowLong(hWnd, nIndex);
    DWORD newStyle = (style & ~dwRemove) | dwAdd;
    if (style == newStyle)
        return FALSE;
    ::SetWindowLong(hWnd, nIndex, (LONG)newStyle);
    if (nFlags != 0)
        ::SetWindowPos(hWnd, nullptr, 0, 0, 0, 0,
                       SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | nFlags);
    return TRUE;
}

BOOL CWnd::ModifyStyle(DWORD dwRemove, DWORD dwAdd, UINT nFlags)
{ ASSERT_LIVE_WINDOW(); return ModifyWindowLong(m_hWnd, GWL_STYLE, dwRemove, dwAdd, nFlags); }
BOOL CWnd::ModifyStyleEx(DWORD dwRemove, DWORD dwAdd, UINT nFlags)
{ return ModifyWindowLong(m_hWnd, GWL_EXSTYLE, dwRemove, dwAdd, nFlags); }
int CWnd::GetDlgCtrlID() const { ASSERT_LIVE_WINDOW(); return ::GetDlgCtrlID(m_hWnd); }
int CWnd::SetDlgCtrlID(int nID) { return (int)::SetWindowLongPtr(m_hWnd, GWLP_ID, nID); }
BOOL CWnd::IsWindowVisible() const { return ::IsWindowVisible(m_hWnd); }
BOOL CWnd::IsWindowEnabled() const { return ::IsWindowEnabled(m_hWnd); }
BOOL CWnd::EnableWindow(BOOL bEnable) { ASSERT_LIVE_WINDOW(); return ::EnableWindow(m_hWnd, bEnable); }
BOOL CWnd::ShowWindow(int nCmdShow) { ASSERT_LIVE_WINDOW(); return ::ShowWindow(m_hWnd, nCmdShow); }
BOOL CWnd::IsIconic() const { return ::IsIconic(m_hWnd); }
BOOL CWnd::IsZoomed() const { return ::IsZoomed(m_hWnd); }

void CWnd::SetWindowText(LPCTSTR lpszString) { ASSERT_LIVE_WINDOW(); ::SetWindowText(m_hWnd, lpszString); }
int CWnd::GetWindowText(LPTSTR buf, int nMaxCount) const { ASSERT_LIVE_WINDOW(); return ::GetWindowText(m_hWnd, buf, nMaxCount); }
int CWnd::GetWindowTextLength() const { return ::GetWindowTextLength(m_hWnd); }

void CWnd::GetWindowText(CString& rString) const
{
    int n = ::GetWindowTextLength(m_hWnd);
    n = ::GetWindowText(m_hWnd, rString.GetBufferSetLength(n), n + 1);
    rString.ReleaseBuffer(n);
}

void CWnd::SetFont(CFont* pFont, BOOL bRedraw)
{ ASSERT_LIVE_WINDOW(); ::SendMessage(m_hWnd, WM_SETFONT, (WPARAM)pFont->GetSafeHandle(), bRedraw); }
CFont* CWnd::GetFont() const
{ return CFont::FromHandle((HFONT)::SendMessage(m_hWnd, WM_GETFONT, 0, 0)); }

void CWnd::GetWindowRect(LPRECT r) const { ASSERT_LIVE_WINDOW(); ::GetWindowRect(m_hWnd, r); }
void CWnd::GetClientRect(LPRECT r) const { ASSERT_LIVE_WINDOW(); ::GetClientRect(m_hWnd, r); }
void CWnd::ClientToScreen(LPPOINT p) const { ::ClientToScreen(m_hWnd, p); }
void CWnd::ClientToScreen(LPRECT r) const { ::MapWindowPoints(m_hWnd, nullptr, (LPPOINT)r, 2); }
void CWnd::ScreenToClient(LPPOINT p) const { ::ScreenToClient(m_hWnd, p); }
void CWnd::ScreenToClient(LPRECT r) const { ::MapWindowPoints(nullptr, m_hWnd, (LPPOINT)r, 2); }
void CWnd::MapWindowPoints(CWnd* pTo, LPPOINT p, UINT n) const { ::MapWindowPoints(m_hWnd, pTo->GetSafeHwnd(), p, n); }
void CWnd::MapWindowPoints(CWnd* pTo, LPRECT r) const { ::MapWindowPoints(m_hWnd, pTo->GetSafeHwnd(), (LPPOINT)r, 2); }
void CWnd::MoveWindow(int x, int y, int w, int h, BOOL bRepaint) { ASSERT_LIVE_WINDOW(); ::MoveWindow(m_hWnd, x, y, w, h, bRepaint); }
void CWnd::MoveWindow(LPCRECT r, BOOL bRepaint)
{ ::MoveWindow(m_hWnd, r->left, r->top, r->right - r->left, r->bottom - r->top, bRepaint); }
BOOL CWnd::SetWindowPos(const CWnd* pAfter, int x, int y, int cx, int cy, UINT nFlags)
{ ASSERT_LIVE_WINDOW(); return ::SetWindowPos(m_hWnd, pAfter->GetSafeHwnd(), x, y, cx, cy, nFlags); }
int CWnd::SetWindowRgn(HRGN hRgn, BOOL bRedraw) { return ::SetWindowRgn(m_hWnd, hRgn, bRedraw); }
int CWnd::GetWindowRgn(HRGN hRgn) const { return ::GetWindowRgn(m_hWnd, hRgn); }
CWnd* CWnd::ChildWindowFromPoint(POINT pt) const { return FromHandle(::ChildWindowFromPoint(m_hWnd, pt)); }
CWnd* PASCAL CWnd::WindowFromPoint(POINT pt) { return FromHandle(::WindowFromPoint(pt)); }

void CWnd::CenterWindow(CWnd* pAlternateOwner)
{
    // Centre over the owner (or parent), else over the work area, kept on screen.
    HWND hCenter = pAlternateOwner->GetSafeHwnd();
    DWORD style = GetStyle();
    if (hCenter == nullptr)
        hCenter = (style & WS_CHILD) ? ::GetParent(m_hWnd) : ::GetWindow(m_hWnd, GW_OWNER);
    RECT rcArea, rcCenter, rcWnd;
    ::GetWindowRect(m_hWnd, &rcWnd);
    if (style & WS_CHILD)
    {
        HWND hParent = ::GetParent(m_hWnd);
        ::GetClientRect(hParent, &rcArea);
        if (hCenter != nullptr && hCenter != hParent)
        {
            ::GetWindowRect(hCenter, &rcCenter);
            ::MapWindowPoints(nullptr, hParent, (LPPOINT)&rcCenter, 2);
        }
        else
            rcCenter = rcArea;
        ::MapWindowPoints(nullptr, hParent, (LPPOINT)&rcWnd, 2);
    }
    else
    {
        MONITORINFO mi{};
        mi.cbSize = sizeof mi;
        ::GetMonitorInfo(::MonitorFromWindow(hCenter ? hCenter : m_hWnd, MONITOR_DEFAULTTONEAREST), &mi);
        rcArea = mi.rcWork;
        if (hCenter != nullptr && ::IsWindowVisible(hCenter) && !::IsIconic(hCenter))
            ::GetWindowRect(hCenter, &rcCenter);
        else
            rcCenter = rcArea;
    }
    int w = rcWnd.right - rcWnd.left, h = rcWnd.bottom - rcWnd.top;
    int left = (rcCenter.left + rcCenter.right) / 2 - w / 2;
    int top = (rcCenter.top + rcCenter.bottom) / 2 - h / 2;
    if (left + w > rcArea.right) left = rcArea.right - w;
    if (left < rcArea.left) left = rcArea.left;
    if (top + h > rcArea.bottom) top = rcArea.bottom - h;
    if (top < rcArea.top) top = rcArea.top;
    ::SetWindowPos(m_hWnd, nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

CDC* CWnd::GetDC() { return CDC::FromHandle(::GetDC(m_hWnd)); }
CDC* CWnd::GetWindowDC() { return CDC::FromHandle(::GetWindowDC(m_hWnd)); }
int CWnd::ReleaseDC(CDC* pDC) { return ::ReleaseDC(m_hWnd, pDC->GetSafeHdc()); }
CDC* CWnd::BeginPaint(LPPAINTSTRUCT ps) { return CDC::FromHandle(::BeginPaint(m_hWnd, ps)); }
void CWnd::EndPaint(LPPAINTSTRUCT ps) { ::EndPaint(m_hWnd, ps); }
void CWnd::Invalidate(BOOL bErase) { ASSERT_LIVE_WINDOW(); ::InvalidateRect(m_hWnd, nullptr, bErase); }
void CWnd::InvalidateRect(LPCRECT r, BOOL bErase) { ASSERT_LIVE_WINDOW(); ::InvalidateRect(m_hWnd, r, bErase); }
void CWnd::InvalidateRgn(CRgn* pRgn, BOOL bErase) { ::InvalidateRgn(m_hWnd, (HRGN)pRgn->GetSafeHandle(), bErase); }
void CWnd::ValidateRect(LPCRECT r) { ::ValidateRect(m_hWnd, r); }
void CWnd::ValidateRgn(CRgn* pRgn) { ::ValidateRgn(m_hWnd, (HRGN)pRgn->GetSafeHandle()); }
BOOL CWnd::RedrawWindow(LPCRECT r, CRgn* pRgn, UINT flags)
{ return ::RedrawWindow(m_hWnd, r, pRgn ? (HRGN)pRgn->GetSafeHandle() : nullptr, flags); }
void CWnd::UpdateWindow() { ASSERT_LIVE_WINDOW(); ::UpdateWindow(m_hWnd); }
BOOL CWnd::GetUpdateRect(LPRECT r, BOOL bErase) { return ::GetUpdateRect(m_hWnd, r, bErase); }
void CWnd::SetRedraw(BOOL bRedraw) { ::SendMessage(m_hWnd, WM_SETREDRAW, bRedraw, 0); }

int CWnd::GetScrollPos(int nBar) const { return ::GetScrollPos(m_hWnd, nBar); }
int CWnd::SetScrollPos(int nBar, int nPos, BOOL bRedraw) { return ::SetScrollPos(m_hWnd, nBar, nPos, bRedraw); }
void CWnd::GetScrollRange(int nBar, LPINT lpMin, LPINT lpMax) const { ::GetScrollRange(m_hWnd, nBar, lpMin, lpMax); }
void CWnd::SetScrollRange(int nBar, int nMin, int nMax, BOOL bRedraw) { ::SetScrollRange(m_hWnd, nBar, nMin, nMax, bRedraw); }
BOOL CWnd::GetScrollInfo(int nBar, LPSCROLLINFO si, UINT nMask)
{
    si->cbSize = sizeof(SCROLLINFO);
    si->fMask = nMask;
    return ::GetScrollInfo(m_hWnd, nBar, si);
}
BOOL CWnd::SetScrollInfo(int nBar, LPSCROLLINFO si, BOOL bRedraw)
{
    si->cbSize = sizeof(SCROLLINFO);
    ::SetScrollInfo(m_hWnd, nBar, si, bRedraw);
    return TRUE;
}
int CWnd::GetScrollLimit(int nBar)
{
    SCROLLINFO si{};
    if (!GetScrollInfo(nBar, &si, SIF_RANGE | SIF_PAGE))
        return 0;
    int limit = si.nMax - (si.nPage > 0 ? (int)si.nPage - 1 : 0);
    return limit < si.nMin ? si.nMin : limit;
}
void CWnd::ShowScrollBar(UINT nBar, BOOL bShow) { ::ShowScrollBar(m_hWnd, (int)nBar, bShow); }
BOOL CWnd::EnableScrollBar(int nSBFlags, UINT nArrowFlags) { return ::EnableScrollBar(m_hWnd, (UINT)nSBFlags, nArrowFlags); }
void CWnd::ScrollWindow(int dx, int dy, LPCRECT r, LPCRECT clip) { ::ScrollWindow(m_hWnd, dx, dy, r, clip); }
int CWnd::ScrollWindowEx(int dx, int dy, LPCRECT r, LPCRECT clip, CRgn* pRgn, LPRECT rUpdate, UINT flags)
{ return ::ScrollWindowEx(m_hWnd, dx, dy, r, clip, pRgn ? (HRGN)pRgn->GetSafeHandle() : nullptr, rUpdate, flags); }

CWnd* CWnd::SetCapture() { ASSERT_LIVE_WINDOW(); return FromHandle(::SetCapture(m_hWnd)); }
CWnd* PASCAL CWnd::GetCapture() { return FromHandle(::GetCapture()); }
CWnd* CWnd::SetFocus() { ASSERT_LIVE_WINDOW(); return FromHandle(::SetFocus(m_hWnd)); }
CWnd* PASCAL CWnd::GetFocus() { return FromHandle(::GetFocus()); }
CWnd* CWnd::SetActiveWindow() { return FromHandle(::SetActiveWindow(m_hWnd)); }
CWnd* PASCAL CWnd::GetActiveWindow() { return FromHandle(::GetActiveWindow()); }
BOOL CWnd::SetForegroundWindow() { return ::SetForegroundWindow(m_hWnd); }
UINT_PTR CWnd::SetTimer(UINT_PTR id, UINT nElapse, TIMERPROC fn) { ASSERT_LIVE_WINDOW(); return ::SetTimer(m_hWnd, id, nElapse, fn); }
BOOL CWnd::KillTimer(UINT_PTR id) { return ::KillTimer(m_hWnd, id); }

CWnd* CWnd::GetParent() const { return FromHandle(::GetParent(m_hWnd)); }
CWnd* CWnd::SetParent(CWnd* pNew) { return FromHandle(::SetParent(m_hWnd, pNew->GetSafeHwnd())); }
CWnd* CWnd::GetOwner() const { return FromHandle(::GetWindow(m_hWnd, GW_OWNER)); }
void CWnd::SetOwner(CWnd* pOwner) { ::SetWindowLongPtr(m_hWnd, GWLP_HWNDPARENT, (LONG_PTR)pOwner->GetSafeHwnd()); }
CWnd* CWnd::GetTopLevelParent() const { return FromHandle(::GetAncestor(m_hWnd, GA_ROOT)); }
CWnd* CWnd::GetWindow(UINT nCmd) const { return FromHandle(::GetWindow(m_hWnd, nCmd)); }
CWnd* CWnd::GetNextWindow(UINT nFlag) const { return FromHandle(::GetWindow(m_hWnd, nFlag)); }
CWnd* CWnd::GetDlgItem(int nID) const { ASSERT_LIVE_WINDOW(); return FromHandle(::GetDlgItem(m_hWnd, nID)); }
void CWnd::GetDlgItem(int nID, HWND* phWnd) const { *phWnd = ::GetDlgItem(m_hWnd, nID); }
UINT CWnd::GetDlgItemInt(int nID, BOOL* lpTrans, BOOL bSigned) const { return ::GetDlgItemInt(m_hWnd, nID, lpTrans, bSigned); }
void CWnd::SetDlgItemInt(int nID, UINT nValue, BOOL bSigned) { ::SetDlgItemInt(m_hWnd, nID, nValue, bSigned); }
int CWnd::GetDlgItemText(int nID, LPTSTR s, int n) const { return ::GetDlgItemText(m_hWnd, nID, s, n); }
int CWnd::GetDlgItemText(int nID, CString& rString) const
{
    rString.Empty();
    HWND h = ::GetDlgItem(m_hWnd, nID);
    if (h != nullptr)
        FromHandle(h)->GetWindowText(rString);
    return rString.GetLength();
}
void CWnd::SetDlgItemText(int nID, LPCTSTR s) { ::SetDlgItemText(m_hWnd, nID, s); }
LRESULT CWnd::SendDlgItemMessage(int nID, UINT m, WPARAM w, LPARAM l) const { return ::SendDlgItemMessage(m_hWnd, nID, m, w, l); }
void CWnd::CheckDlgButton(int nID, UINT nCheck) { ::CheckDlgButton(m_hWnd, nID, nCheck); }
UINT CWnd::IsDlgButtonChecked(int nID) const { return ::IsDlgButtonChecked(m_hWnd, nID); }
void CWnd::CheckRadioButton(int a, int b, int c) { ::CheckRadioButton(m_hWnd, a, b, c); }
int CWnd::GetCheckedRadioButton(int nFirst, int nLast)
{
    for (int id = nFirst; id <= nLast; ++id)
        if (::IsDlgButtonChecked(m_hWnd, id))
            return id;
    return 0;
}
CWnd* CWnd::GetNextDlgTabItem(CWnd* pCtl, BOOL bPrev) const { return FromHandle(::GetNextDlgTabItem(m_hWnd, pCtl->GetSafeHwnd(), bPrev)); }
CWnd* CWnd::GetNextDlgGroupItem(CWnd* pCtl, BOOL bPrev) const { return FromHandle(::GetNextDlgGroupItem(m_hWnd, pCtl->GetSafeHwnd(), bPrev)); }
BOOL CWnd::IsChild(const CWnd* pWnd) const { return ::IsChild(m_hWnd, pWnd->GetSafeHwnd()); }
CWnd* PASCAL CWnd::GetDesktopWindow() { return FromHandle(::GetDesktopWindow()); }

CMenu* CWnd::GetMenu() const { return CMenu::FromHandle(::GetMenu(m_hWnd)); }
BOOL CWnd::SetMenu(CMenu* pMenu) { return ::SetMenu(m_hWnd, pMenu ? pMenu->GetSafeHmenu() : nullptr); }
CMenu* CWnd::GetSystemMenu(BOOL bRevert) const { return CMenu::FromHandle(::GetSystemMenu(m_hWnd, bRevert)); }

int CWnd::MessageBox(LPCTSTR lpszText, LPCTSTR lpszCaption, UINT nType)
{
    if (lpszCaption == nullptr)
        lpszCaption = AfxGetApp() && AfxGetApp()->m_pszAppName ? AfxGetApp()->m_pszAppName : "";
    return ::MessageBox(m_hWnd, lpszText, lpszCaption, nType);
}

// ---- default handlers ----
int CWnd::OnCreate(LPCREATESTRUCT) { return (int)Default(); }
void CWnd::OnDestroy() { Default(); }
void CWnd::OnNcDestroy() { Default(); }
void CWnd::OnPaint() { Default(); }
void CWnd::OnNcPaint() { Default(); }
void CWnd::OnClose() { Default(); }
void CWnd::OnCancelMode() { Default(); }
void CWnd::OnSysColorChange() { Default(); }
void CWnd::OnTimeChange() { Default(); }
void CWnd::OnMouseLeave() { Default(); }
BOOL CWnd::OnEraseBkgnd(CDC*) { return (BOOL)Default(); }
void CWnd::OnSize(UINT, int, int) { Default(); }
void CWnd::OnMove(int, int) { Default(); }
void CWnd::OnSetFocus(CWnd*) { Default(); }
void CWnd::OnKillFocus(CWnd*) { Default(); }
void CWnd::OnCaptureChanged(CWnd*) { Default(); }
void CWnd::OnEnable(BOOL) { Default(); }
void CWnd::OnShowWindow(BOOL, UINT) { Default(); }
void CWnd::OnActivate(UINT, CWnd*, BOOL) { Default(); }
void CWnd::OnSettingChange(UINT, LPCTSTR) { Default(); }
void CWnd::OnTimer(UINT_PTR) { Default(); }
UINT CWnd::OnGetDlgCode() { return (UINT)Default(); }
BOOL CWnd::OnSetCursor(CWnd*, UINT, UINT) { return (BOOL)Default(); }
LRESULT CWnd::OnNcHitTest(CPoint) { return Default(); }
void CWnd::OnMouseMove(UINT, CPoint) { Default(); }
void CWnd::OnLButtonDown(UINT, CPoint) { Default(); }
void CWnd::OnLButtonUp(UINT, CPoint) { Default(); }
void CWnd::OnLButtonDblClk(UINT, CPoint) { Default(); }
void CWnd::OnRButtonDown(UINT, CPoint) { Default(); }
void CWnd::OnRButtonUp(UINT, CPoint) { Default(); }
void CWnd::OnRButtonDblClk(UINT, CPoint) { Default(); }
void CWnd::OnMButtonDown(UINT, CPoint) { Default(); }
void CWnd::OnMButtonUp(UINT, CPoint) { Default(); }
BOOL CWnd::OnMouseWheel(UINT, short, CPoint) { return (BOOL)Default(); }
void CWnd::OnKeyDown(UINT, UINT, UINT) { Default(); }
void CWnd::OnKeyUp(UINT, UINT, UINT) { Default(); }
void CWnd::OnChar(UINT, UINT, UINT) { Default(); }
void CWnd::OnSysKeyDown(UINT, UINT, UINT) { Default(); }
void CWnd::OnSysKeyUp(UINT, UINT, UINT) { Default(); }
void CWnd::OnSysChar(UINT, UINT, UINT) { Default(); }
void CWnd::OnHScroll(UINT, UINT, CScrollBar*) { Default(); }
void CWnd::OnVScroll(UINT, UINT, CScrollBar*) { Default(); }
HBRUSH CWnd::OnCtlColor(CDC*, CWnd*, UINT) { return (HBRUSH)Default(); }
void CWnd::OnDrawItem(int, LPDRAWITEMSTRUCT) { Default(); }
void CWnd::OnMeasureItem(int, LPMEASUREITEMSTRUCT) { Default(); }
void CWnd::OnContextMenu(CWnd*, CPoint) { Default(); }
void CWnd::OnWindowPosChanged(WINDOWPOS*) { Default(); }
void CWnd::OnWindowPosChanging(WINDOWPOS*) { Default(); }
void CWnd::OnGetMinMaxInfo(MINMAXINFO*) { Default(); }
BOOL CWnd::OnHelpInfo(HELPINFO*) { return (BOOL)Default(); }

void CWnd::OnHelp()
{
    for (HWND h = m_hWnd; h != nullptr; h = ::GetParent(h))
        if (::SendMessage(h, WM_COMMANDHELP, 0, 0))
            return;
    if (CWinApp* app = AfxGetApp())
        app->WinHelp(0, HELP_CONTENTS);
}
void CWnd::OnNcCalcSize(BOOL, NCCALCSIZE_PARAMS*) { Default(); }

// ---- scroll bar ----
IMPLEMENT_DYNAMIC(CScrollBar, CWnd)
BOOL CScrollBar::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{ return CWnd::Create(_T("SCROLLBAR"), nullptr, dwStyle, rect, pParentWnd, nID); }
int CScrollBar::GetScrollPos() const { return ::GetScrollPos(m_hWnd, SB_CTL); }
int CScrollBar::SetScrollPos(int nPos, BOOL bRedraw) { return ::SetScrollPos(m_hWnd, SB_CTL, nPos, bRedraw); }
BOOL CScrollBar::GetScrollInfo(LPSCROLLINFO si, UINT nMask)
{ si->cbSize = sizeof *si; si->fMask = nMask; return ::GetScrollInfo(m_hWnd, SB_CTL, si); }
BOOL CScrollBar::SetScrollInfo(LPSCROLLINFO si, BOOL bRedraw)
{ si->cbSize = sizeof *si; ::SetScrollInfo(m_hWnd, SB_CTL, si, bRedraw); return TRUE; }
