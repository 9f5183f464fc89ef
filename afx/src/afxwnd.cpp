// HyAfx: command targets, windows, the handle map, creation and dispatch.
#include "afximpl.h"
#include "afxhandlemap.h"
#include <set>
#include <string>
#include <stdio.h>

// ---- command targets ----
IMPLEMENT_DYNAMIC(CCmdTarget, CObject)

CCmdTarget::CCmdTarget() = default;

const AFX_MSGMAP* CCmdTarget::GetThisMessageMap()
{
    static const AFX_MSGMAP_ENTRY entries[] = { { 0, 0, 0, 0, AfxEntry_End, nullptr } };
    static const AFX_MSGMAP map = { nullptr, &entries[0] };
    return &map;
}

const AFX_MSGMAP* CCmdTarget::GetMessageMap() const { return GetThisMessageMap(); }

const AFX_MSGMAP_ENTRY* CCmdTarget::FindMessageEntry(UINT nMessage, UINT nCode, UINT nID) const
{
    for (const AFX_MSGMAP* map = GetMessageMap(); map != nullptr;
         map = map->pfnGetBaseMap ? map->pfnGetBaseMap() : nullptr)
    {
        for (const AFX_MSGMAP_ENTRY* e = map->lpEntries; e->nKind != AfxEntry_End; ++e)
            if (e->nMessage == nMessage && e->nCode == nCode && nID >= e->nID && nID <= e->nLastID)
                return e;
    }
    return nullptr;
}

BOOL CCmdTarget::OnCmdMsg(UINT nID, int nCode, void* pExtra, void* pHandlerInfo)
{
    const AFX_MSGMAP_ENTRY* e = FindMessageEntry(WM_COMMAND, (UINT)nCode, nID);
    if (e == nullptr)
        return FALSE;
    if (pHandlerInfo != nullptr)
        return TRUE;   // asked only whether a handler exists
    LRESULT lResult = 0;
    return e->pfn(this, nID, MAKEWPARAM(nID, nCode), (LPARAM)pExtra, &lResult);
}

// ---- windows: construction and the handle map ----
IMPLEMENT_DYNCREATE(CWnd, CCmdTarget)

const AFX_MSGMAP* CWnd::GetThisMessageMap()
{
    static const AFX_MSGMAP_ENTRY entries[] = { { 0, 0, 0, 0, AfxEntry_End, nullptr } };
    static const AFX_MSGMAP map = { &CCmdTarget::GetThisMessageMap, &entries[0] };
    return &map;
}

const AFX_MSGMAP* CWnd::GetMessageMap() const { return GetThisMessageMap(); }

CWnd::CWnd() : m_hWnd(nullptr), m_pfnSuper(nullptr), m_nModalResult(0), m_nFlags(0) {}

CWnd::~CWnd()
{
    if (m_hWnd != nullptr && !(m_nFlags & WF_TEMPORARY) && FromHandlePermanent(m_hWnd) == this)
    {
        // Destroying a live window from its object's destructor: the virtual
        // handlers of derived classes are gone, so only the base ones run.
        ::DestroyWindow(m_hWnd);
        if (m_hWnd != nullptr)
            Detach();
    }
}

namespace {

// This thread's windows (afxhandlemap.h has the thread policy).
CHandleMap<HWND, CWnd>& WndMap()
{
    return AfxWrapperMapOf<HWND, CWnd, &CWnd::m_hWnd>();
}

}  // namespace

CWnd* PASCAL CWnd::FromHandlePermanent(HWND hWnd) { return WndMap().LookupPermanent(hWnd); }
CWnd* PASCAL CWnd::FromHandle(HWND hWnd)
{
    return WndMap().FromHandle(hWnd, [](HWND h) {
        CWnd* p = new CWnd;
        p->m_hWnd = h;
        p->m_nFlags |= WF_TEMPORARY;
        return p;
    });
}
void PASCAL CWnd::DeleteTempMap() { WndMap().DeleteTemp(); }

BOOL CWnd::Attach(HWND hWndNew)
{
    if (hWndNew == nullptr || m_hWnd != nullptr)
        return FALSE;
    // One object a window: attaching a second one is a misuse.
    ASSERT(FromHandlePermanent(hWndNew) == nullptr);
    WndMap().SetPermanent(hWndNew, this);
    m_hWnd = hWndNew;
    return TRUE;
}

HWND CWnd::Detach()
{
    HWND h = m_hWnd;
    if (h != nullptr)
        WndMap().RemovePermanent(h, this);
    m_hWnd = nullptr;
    return h;
}

BOOL CWnd::SubclassWindow(HWND hWnd)
{
    ASSERT(::IsWindow(hWnd));
    if (!Attach(hWnd))
        return FALSE;
    PreSubclassWindow();
    WNDPROC old = (WNDPROC)::SetWindowLongPtr(hWnd, GWLP_WNDPROC, (LONG_PTR)&CWnd::AfxWndProc);
    if (old != &CWnd::AfxWndProc)
        m_pfnSuper = old;
    return TRUE;
}

BOOL CWnd::SubclassDlgItem(UINT nID, CWnd* pParent)
{
    HWND hWndControl = ::GetDlgItem(pParent->GetSafeHwnd(), (int)nID);
    return hWndControl != nullptr && SubclassWindow(hWndControl);
}

HWND CWnd::UnsubclassWindow()
{
    ASSERT_LIVE_WINDOW();
    if (m_pfnSuper != nullptr)
        ::SetWindowLongPtr(m_hWnd, GWLP_WNDPROC, (LONG_PTR)m_pfnSuper);
    m_pfnSuper = nullptr;
    return Detach();
}

// ---- creation ----
static LRESULT CALLBACK AfxCbtFilterHook(int code, WPARAM wParam, LPARAM lParam)
{
    AfxThreadState& ts = AfxGetThreadState();
    if (code == HCBT_CREATEWND && ts.pWndInit != nullptr)
    {
        // Attach before WM_NCCREATE so the object sees its whole life.
        CWnd* pWnd = ts.pWndInit;
        ts.pWndInit = nullptr;
        pWnd->SubclassWindow((HWND)wParam);
    }
    return ::CallNextHookEx(ts.hHookOldCbt, code, wParam, lParam);
}

void AfxHookWindowCreate(CWnd* pWnd)
{
    AfxThreadState& ts = AfxGetThreadState();
    if (ts.hHookOldCbt == nullptr)
        ts.hHookOldCbt = ::SetWindowsHookEx(WH_CBT, AfxCbtFilterHook, nullptr, ::GetCurrentThreadId());
    ts.pWndInit = pWnd;
}

BOOL AfxUnhookWindowCreate()
{
    AfxThreadState& ts = AfxGetThreadState();
    if (ts.hHookOldCbt != nullptr)
    {
        ::UnhookWindowsHookEx(ts.hHookOldCbt);
        ts.hHookOldCbt = nullptr;
    }
    if (ts.pWndInit != nullptr)
    {
        ts.pWndInit = nullptr;
        return FALSE;   // the window was never created
    }
    return TRUE;
}

static HINSTANCE FrameworkInstance() { return AfxGetProcessState().hFramework; }

void AfxEnsureDefaultClass()
{
    WNDCLASS wc;
    if (::GetClassInfo(FrameworkInstance(), AFX_WND_CLASS, &wc))
        return;
    wc = WNDCLASS{};
    wc.style = CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW | CS_GLOBALCLASS;
    wc.lpfnWndProc = &CWnd::AfxWndProc;
    wc.hInstance = FrameworkInstance();
    wc.hCursor = ::LoadCursor(nullptr, IDC_ARROW);
    wc.lpszClassName = AFX_WND_CLASS;
    ::RegisterClass(&wc);
}

LPCTSTR AFXAPI AfxRegisterWndClass(UINT nClassStyle, HCURSOR hCursor, HBRUSH hbrBackground, HICON hIcon)
{
    static std::set<std::string> names;   // stable storage for the returned names
    char name[128];
    snprintf(name, sizeof name, "Afx:%p:%x:%p:%p:%p", (void*)FrameworkInstance(), nClassStyle,
             (void*)hCursor, (void*)hbrBackground, (void*)hIcon);
    const std::string& stored = *names.insert(name).first;
    WNDCLASS wc;
    if (!::GetClassInfo(FrameworkInstance(), stored.c_str(), &wc))
    {
        wc = WNDCLASS{};
        wc.style = nClassStyle | CS_GLOBALCLASS;
        wc.lpfnWndProc = &CWnd::AfxWndProc;
        wc.hInstance = FrameworkInstance();
        wc.hCursor = hCursor;
        wc.hbrBackground = hbrBackground;
        wc.hIcon = hIcon;
        wc.lpszClassName = stored.c_str();
        if (!::RegisterClass(&wc))
            return nullptr;
    }
    return stored.c_str();
}

BOOL CWnd::PreCreateWindow(CREATESTRUCT& cs)
{
    if (cs.lpszClass == nullptr)
    {
        AfxEnsureDefaultClass();
        cs.lpszClass = AFX_WND_CLASS;
    }
    return TRUE;
}

BOOL CWnd::CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle,
                    int x, int y, int nWidth, int nHeight, HWND hWndParent, HMENU nIDorHMenu,
                    LPVOID lpParam)
{
    ASSERT(m_hWnd == nullptr);   // one window an object
    if (m_hWnd != nullptr)
        return FALSE;
    CREATESTRUCT cs{};
    cs.dwExStyle = dwExStyle;
    cs.lpszClass = lpszClassName;
    cs.lpszName = lpszWindowName;
    cs.style = dwStyle;
    cs.x = x;
    cs.y = y;
    cs.cx = nWidth;
    cs.cy = nHeight;
    cs.hwndParent = hWndParent;
    cs.hMenu = nIDorHMenu;
    cs.hInstance = AfxGetInstanceHandle();
    cs.lpCreateParams = lpParam;
    if (!PreCreateWindow(cs))
    {
        PostNcDestroy();
        return FALSE;
    }
    AfxHookWindowCreate(this);
    HWND hWnd = ::CreateWindowEx(cs.dwExStyle, cs.lpszClass, cs.lpszName, cs.style, cs.x, cs.y,
                                 cs.cx, cs.cy, cs.hwndParent, cs.hMenu, cs.hInstance,
                                 cs.lpCreateParams);
    if (!AfxUnhookWindowCreate())
        PostNcDestroy();   // never attached: the object's life ends here
    return hWnd != nullptr;
}

BOOL CWnd::CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle,
                    const RECT& rect, CWnd* pParentWnd, UINT nID, LPVOID lpParam)
{
    return CreateEx(dwExStyle, lpszClassName, lpszWindowName, dwStyle, rect.left, rect.top,
                    rect.right - rect.left, rect.bottom - rect.top, pParentWnd->GetSafeHwnd(),
                    (HMENU)(UINT_PTR)nID, lpParam);
}

BOOL CWnd::Create(LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, const RECT& rect,
                  CWnd* pParentWnd, UINT nID, void*)
{
    // Always a child window.
    return CreateEx(0, lpszClassName, lpszWindowName, dwStyle | WS_CHILD, rect, pParentWnd, nID);
}

BOOL CWnd::DestroyWindow()
{
    if (m_hWnd == nullptr)
        return FALSE;
    return ::DestroyWindow(m_hWnd);
}

void CWnd::PreSubclassWindow() {}
void CWnd::PostNcDestroy() {}

// ---- dispatch ----
LRESULT CALLBACK CWnd::AfxWndProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    CWnd* pWnd = FromHandlePermanent(hWnd);
    if (pWnd == nullptr)
        return ::DefWindowProc(hWnd, message, wParam, lParam);

    AfxThreadState& ts = AfxGetThreadState();
    AFX_THREAD_MSG saved = ts.lastMsg;
    ts.lastMsg = { hWnd, message, wParam, lParam };
    LRESULT lResult = pWnd->WindowProc(message, wParam, lParam);
    if (message == WM_NCDESTROY && FromHandlePermanent(hWnd) == pWnd)
    {
        // The window is gone: unhook the object and let it end its life.
        if (pWnd->m_pfnSuper != nullptr &&
            (WNDPROC)::GetWindowLongPtr(hWnd, GWLP_WNDPROC) == &CWnd::AfxWndProc)
            ::SetWindowLongPtr(hWnd, GWLP_WNDPROC, (LONG_PTR)pWnd->m_pfnSuper);
        pWnd->Detach();
        pWnd->m_pfnSuper = nullptr;
        pWnd->PostNcDestroy();
    }
    ts.lastMsg = saved;
    return lResult;
}

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    LRESULT lResult = 0;
    if (!OnWndMsg(message, wParam, lParam, &lResult))
        lResult = DefWindowProc(message, wParam, lParam);
    return lResult;
}

LRESULT CWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (m_pfnSuper != nullptr)
        return ::CallWindowProc(m_pfnSuper, m_hWnd, message, wParam, lParam);
    return ::DefWindowProc(m_hWnd, message, wParam, lParam);
}

LRESULT CWnd::Default()
{
    const AFX_THREAD_MSG& m = AfxGetThreadState().lastMsg;
    return DefWindowProc(m.message, m.wParam, m.lParam);
}

const MSG* PASCAL CWnd::GetCurrentMessage()
{
    AfxThreadState& ts = AfxGetThreadState();
    ts.lastSentMsg.hwnd = ts.lastMsg.hwnd;
    ts.lastSentMsg.message = ts.lastMsg.message;
    ts.lastSentMsg.wParam = ts.lastMsg.wParam;
    ts.lastSentMsg.lParam = ts.lastMsg.lParam;
    ts.lastSentMsg.time = ::GetMessageTime();
    DWORD pos = ::GetMessagePos();
    ts.lastSentMsg.pt = { (short)LOWORD(pos), (short)HIWORD(pos) };
    return &ts.lastSentMsg;
}

// The control a reflectable parent message came from; NULL for menus and
// for messages that are not reflected.
static HWND ReflectionTarget(HWND hWndParent, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message)
    {
    case WM_DRAWITEM: {
        auto* p = (LPDRAWITEMSTRUCT)lParam;
        return p->CtlType == ODT_MENU ? nullptr : p->hwndItem;
    }
    case WM_MEASUREITEM: {
        auto* p = (LPMEASUREITEMSTRUCT)lParam;
        return p->CtlType == ODT_MENU ? nullptr : ::GetDlgItem(hWndParent, (int)p->CtlID);
    }
    case WM_COMPAREITEM:
        return ((LPCOMPAREITEMSTRUCT)lParam)->hwndItem;
    case WM_DELETEITEM:
        return ((LPDELETEITEMSTRUCT)lParam)->hwndItem;
    case WM_CTLCOLORMSGBOX: case WM_CTLCOLOREDIT: case WM_CTLCOLORLISTBOX: case WM_CTLCOLORBTN:
    case WM_CTLCOLORDLG: case WM_CTLCOLORSCROLLBAR: case WM_CTLCOLORSTATIC:
    case WM_HSCROLL: case WM_VSCROLL:
    case WM_COMMAND:
        return (HWND)lParam;
    case WM_VKEYTOITEM: case WM_CHARTOITEM:
        return (HWND)lParam;
    case WM_NOTIFY:
        return ((NMHDR*)lParam)->hwndFrom;
    default:
        return nullptr;
    }
}

static BOOL ReflectTo(HWND hWndChild, UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    CWnd* pChild = CWnd::FromHandlePermanent(hWndChild);
    if (pChild == nullptr)
        return FALSE;
    LRESULT lResult = 0;
    BOOL handled = pChild->OnChildNotify(message, wParam, lParam, &lResult);
    if (handled && pResult != nullptr)
        *pResult = lResult;
    return handled;
}

BOOL PASCAL CWnd::ReflectLastMsg(HWND hWndChild, LRESULT* pResult)
{
    const AFX_THREAD_MSG& m = AfxGetThreadState().lastMsg;
    return ReflectTo(hWndChild, m.message, m.wParam, m.lParam, pResult);
}

BOOL CWnd::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    return ReflectChildNotify(message, wParam, lParam, pResult);
}

BOOL CWnd::ReflectChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    switch (message)
    {
    case WM_COMMAND: {
        const AFX_MSGMAP_ENTRY* e = FindMessageEntry(WM_REFLECT_BASE + WM_COMMAND, HIWORD(wParam), 0);
        return e != nullptr && e->pfn(this, 0, wParam, lParam, pResult);
    }
    case WM_NOTIFY: {
        auto* pNMHDR = (NMHDR*)lParam;
        const AFX_MSGMAP_ENTRY* e = FindMessageEntry(WM_REFLECT_BASE + WM_NOTIFY, pNMHDR->code, 0);
        return e != nullptr && e->pfn(this, 0, wParam, lParam, pResult);
    }
    case WM_CTLCOLORMSGBOX: case WM_CTLCOLOREDIT: case WM_CTLCOLORLISTBOX: case WM_CTLCOLORBTN:
    case WM_CTLCOLORDLG: case WM_CTLCOLORSCROLLBAR: case WM_CTLCOLORSTATIC: {
        const AFX_MSGMAP_ENTRY* e = FindMessageEntry(WM_REFLECT_BASE + WM_CTLCOLOR, 0, 0);
        return e != nullptr && e->pfn(this, message - WM_CTLCOLORMSGBOX, wParam, lParam, pResult);
    }
    case WM_DRAWITEM: case WM_MEASUREITEM: case WM_COMPAREITEM: case WM_DELETEITEM:
    case WM_HSCROLL: case WM_VSCROLL: case WM_VKEYTOITEM: case WM_CHARTOITEM:
        return DispatchToMap(WM_REFLECT_BASE + message, 0, 0, wParam, lParam, pResult);
    default:
        return FALSE;
    }
}

BOOL CWnd::DispatchToMap(UINT message, UINT nCode, UINT nID, WPARAM wParam, LPARAM lParam,
                         LRESULT* pResult)
{
    const AFX_MSGMAP_ENTRY* e = FindMessageEntry(message, nCode, nID);
    return e != nullptr && e->pfn(this, nID, wParam, lParam, pResult);
}

BOOL CWnd::OnCommand(WPARAM wParam, LPARAM lParam)
{
    UINT nID = LOWORD(wParam);
    HWND hWndCtrl = (HWND)lParam;
    int nCode = HIWORD(wParam);
    if (hWndCtrl != nullptr)
    {
        // The control gets the first look at its own notification.
        if (ReflectTo(hWndCtrl, WM_COMMAND, wParam, lParam, nullptr))
            return TRUE;
    }
    else if (nCode == 1)
        nCode = 0;   // an accelerator routes like a menu command
    return OnCmdMsg(nID, nCode, nullptr, nullptr);
}

BOOL CWnd::OnNotify(WPARAM, LPARAM lParam, LRESULT* pResult)
{
    auto* pNMHDR = (NMHDR*)lParam;
    if (pNMHDR->hwndFrom != nullptr && ReflectTo(pNMHDR->hwndFrom, WM_NOTIFY, 0, lParam, pResult))
        return TRUE;
    const AFX_MSGMAP_ENTRY* e = FindMessageEntry(WM_NOTIFY, pNMHDR->code, (UINT)pNMHDR->idFrom);
    return e != nullptr && e->pfn(this, (UINT)pNMHDR->idFrom, (WPARAM)pNMHDR->idFrom, lParam, pResult);
}

BOOL CWnd::OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    LRESULT lResult = 0;
    if (message == WM_COMMAND)
    {
        if (!OnCommand(wParam, lParam))
            return FALSE;
        *pResult = 1;
        return TRUE;
    }
    if (message == WM_NOTIFY)
    {
        if (!OnNotify(wParam, lParam, &lResult))
            return FALSE;
        *pResult = lResult;
        return TRUE;
    }
    // Owner-draw menu items are drawn and measured by their CMenu object.
    if ((message == WM_DRAWITEM && ((LPDRAWITEMSTRUCT)lParam)->CtlType == ODT_MENU) ||
        (message == WM_MEASUREITEM && ((LPMEASUREITEMSTRUCT)lParam)->CtlType == ODT_MENU))
    {
        if (CMenu::HandleOwnerDraw(message, lParam))
        {
            *pResult = TRUE;
            return TRUE;
        }
    }
    // Notifications a control can handle itself go to the control first;
    // the parent's own handler runs only when the control declines.
    if (HWND hWndChild = ReflectionTarget(m_hWnd, message, wParam, lParam))
    {
        if (ReflectTo(hWndChild, message, wParam, lParam, &lResult))
        {
            *pResult = lResult;
            return TRUE;
        }
    }
    if (!DispatchToMap(message, 0, 0, wParam, lParam, &lResult))
        return FALSE;
    *pResult = lResult;
    return TRUE;
}

BOOL CWnd::PreTranslateMessage(MSG*) { return FALSE; }

BOOL PASCAL CWnd::WalkPreTranslateTree(HWND hWndStop, MSG* pMsg)
{
    // From the target up through its parents; a top-level window ends the walk.
    for (HWND h = pMsg->hwnd; h != nullptr;)
    {
        if (CWnd* pWnd = FromHandlePermanent(h))
            if (pWnd->PreTranslateMessage(pMsg))
                return TRUE;
        if (h == hWndStop || !(::GetWindowLong(h, GWL_STYLE) & WS_CHILD))
            break;
        h = ::GetParent(h);
    }
    return FALSE;
}
