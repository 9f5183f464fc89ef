// HyAfx: the thread and application objects, the message pump, the modal
// loop and message boxes.
#include "afximpl.h"

IMPLEMENT_DYNAMIC(CWinThread, CCmdTarget)
IMPLEMENT_DYNAMIC(CWinApp, CWinThread)

CWinThread::CWinThread() : m_pMainWnd(nullptr), m_nThreadID(::GetCurrentThreadId()), m_msgCur{}
{
    AfxGetThreadState().pThread = this;
}

BOOL CWinThread::InitInstance() { return FALSE; }
int CWinThread::ExitInstance() { return (int)m_msgCur.wParam; }
CWnd* CWinThread::GetMainWnd() { return m_pMainWnd; }

BOOL CWinThread::PreTranslateMessage(MSG* pMsg)
{
    return CWnd::WalkPreTranslateTree(nullptr, pMsg);
}

BOOL CWinThread::IsIdleMessage(MSG* pMsg)
{
    // Timer ticks and the caret's paint messages do not end an idle period.
    return pMsg->message != WM_TIMER && pMsg->message != WM_PAINT && pMsg->message != 0x0118;
}

BOOL CWinThread::OnIdle(LONG lCount)
{
    if (lCount <= 0)
        return TRUE;   // one more pass, then clean up
    AfxDeleteTempMaps();
    return FALSE;
}

static BOOL PreTranslateOnThread(MSG* pMsg)
{
    if (CWinThread* pThread = AfxGetThreadState().pThread)
        return pThread->PreTranslateMessage(pMsg);
    return CWnd::WalkPreTranslateTree(nullptr, pMsg);
}

BOOL CWinThread::PumpMessage()
{
    if (!::GetMessage(&m_msgCur, nullptr, 0, 0))
        return FALSE;
    if (!PreTranslateMessage(&m_msgCur))
    {
        ::TranslateMessage(&m_msgCur);
        ::DispatchMessage(&m_msgCur);
    }
    return TRUE;
}

int CWinThread::Run()
{
    BOOL bIdle = TRUE;
    LONG lIdleCount = 0;
    MSG msg;
    for (;;)
    {
        while (bIdle && !::PeekMessage(&msg, nullptr, 0, 0, PM_NOREMOVE))
            if (!OnIdle(lIdleCount++))
                bIdle = FALSE;
        do
        {
            if (!PumpMessage())
                return ExitInstance();
            if (IsIdleMessage(&m_msgCur))
            {
                bIdle = TRUE;
                lIdleCount = 0;
            }
        } while (::PeekMessage(&msg, nullptr, 0, 0, PM_NOREMOVE));
    }
}

BOOL AFXAPI AfxPumpMessage()
{
    MSG msg;
    if (!::GetMessage(&msg, nullptr, 0, 0))
    {
        ::PostQuitMessage((int)msg.wParam);   // let the outer loop see it too
        return FALSE;
    }
    if (!PreTranslateOnThread(&msg))
    {
        ::TranslateMessage(&msg);
        ::DispatchMessage(&msg);
    }
    return TRUE;
}

CWinApp::CWinApp(LPCTSTR lpszAppName)
    : m_pszAppName(lpszAppName), m_hInstance(::GetModuleHandle(nullptr)), m_lpCmdLine(nullptr),
      m_nCmdShow(SW_SHOWNORMAL), m_pszHelpFilePath(nullptr)
{
    AfxGetProcessState().pApp = this;
}

CWinApp::~CWinApp()
{
    AfxProcessState& ps = AfxGetProcessState();
    if (ps.pApp == this)
        ps.pApp = nullptr;
    if (AfxGetThreadState().pThread == this)
        AfxGetThreadState().pThread = nullptr;
}

HCURSOR CWinApp::LoadStandardCursor(LPCTSTR name) const { return ::LoadCursor(nullptr, name); }
HICON CWinApp::LoadStandardIcon(LPCTSTR name) const { return ::LoadIcon(nullptr, name); }
HCURSOR CWinApp::LoadCursor(UINT nID) const
{ return ::LoadCursor(AfxFindResourceHandle(MAKEINTRESOURCE(nID), RT_GROUP_CURSOR), MAKEINTRESOURCE(nID)); }
HICON CWinApp::LoadIcon(UINT nID) const
{ return ::LoadIcon(AfxFindResourceHandle(MAKEINTRESOURCE(nID), RT_GROUP_ICON), MAKEINTRESOURCE(nID)); }

static LPCTSTR AppCaption()
{
    CWinApp* app = AfxGetApp();
    if (app != nullptr && app->m_pszAppName != nullptr)
        return app->m_pszAppName;
    static char name[MAX_PATH];
    if (name[0] == 0)
    {
        ::GetModuleFileName(nullptr, name, MAX_PATH);
        char* base = strrchr(name, '\\');
        if (base != nullptr)
            memmove(name, base + 1, strlen(base));
        if (char* dot = strrchr(name, '.'))
            *dot = 0;
    }
    return name;
}

// The owner of a message box: the active window of this thread, else the
// main window.
static HWND MessageBoxOwner()
{
    HWND h = ::GetActiveWindow();
    if (h == nullptr)
        if (CWnd* pMain = AfxGetMainWnd())
            h = pMain->GetSafeHwnd();
    return h;
}

int CWinApp::DoMessageBox(LPCTSTR lpszPrompt, UINT nType, UINT)
{
    return ::MessageBox(MessageBoxOwner(), lpszPrompt, AppCaption(), nType);
}

void CWinApp::WinHelp(DWORD_PTR dwData, UINT nCmd)
{
    CWnd* main = AfxGetMainWnd();
    ::WinHelp(main != nullptr ? main->GetSafeHwnd() : nullptr, m_pszHelpFilePath, nCmd, dwData);
}

CWinApp* AFXAPI AfxGetApp() { return AfxGetProcessState().pApp; }
CWinThread* AFXAPI AfxGetThread() { return AfxGetThreadState().pThread; }

CWnd* AFXAPI AfxGetMainWnd()
{
    CWinThread* t = AfxGetThread();
    if (t == nullptr)
        t = AfxGetApp();
    return t != nullptr ? t->GetMainWnd() : nullptr;
}

int AFXAPI AfxWinMain(HINSTANCE hInstance, HINSTANCE, LPTSTR lpCmdLine, int nCmdShow)
{
    CWinApp* app = AfxGetApp();
    if (app == nullptr)
        return -1;
    app->m_hInstance = hInstance;
    app->m_lpCmdLine = lpCmdLine;
    app->m_nCmdShow = nCmdShow;
    AfxGetThreadState().pThread = app;
    if (!app->InitInstance())
        return app->ExitInstance();
    return app->Run();
}

int AFXAPI AfxMessageBox(LPCTSTR lpszText, UINT nType, UINT nIDHelp)
{
    if (CWinApp* app = AfxGetApp())
        return app->DoMessageBox(lpszText, nType, nIDHelp);
    return ::MessageBox(MessageBoxOwner(), lpszText, AppCaption(), nType);
}

int AFXAPI AfxMessageBox(UINT nIDPrompt, UINT nType, UINT nIDHelp)
{
    CString prompt;
    if (!prompt.LoadString(nIDPrompt))
        prompt = AfxLoadFrameworkString(nIDPrompt);
    if (nIDHelp == (UINT)-1)
        nIDHelp = nIDPrompt;
    return AfxMessageBox(prompt, nType, nIDHelp);
}

void AFXAPI AfxDeleteTempMaps()
{
    CWnd::DeleteTempMap();
    CMenu::DeleteTempMap();
    AfxDeleteTempGdiMaps();
}

// ---- modal loop ----
int CWnd::RunModalLoop(DWORD dwFlags)
{
    BOOL bShowOnIdle = (dwFlags & MLF_SHOWONIDLE) && !(GetStyle() & WS_VISIBLE);
    BOOL bIdleDue = TRUE;
    HWND hWndOwner = ::GetWindow(m_hWnd, GW_OWNER);
    if (hWndOwner == nullptr)
        hWndOwner = ::GetParent(m_hWnd);
    m_nFlags |= WF_MODALLOOP | WF_CONTINUEMODAL;
    int result = 0;
    while (ContinueModal())
    {
        MSG msg;
        if (!::PeekMessage(&msg, nullptr, 0, 0, PM_NOREMOVE))
        {
            if (bShowOnIdle)
            {
                ShowWindow(SW_SHOWNORMAL);
                UpdateWindow();
                bShowOnIdle = FALSE;
                continue;
            }
            if (bIdleDue)
            {
                // Once per idle period the owner hears that the loop waits;
                // its answer may post input or end the loop.
                bIdleDue = FALSE;
                if (!(dwFlags & MLF_NOIDLEMSG) && hWndOwner != nullptr)
                    ::SendMessage(hWndOwner, WM_ENTERIDLE, MSGF_DIALOGBOX, (LPARAM)m_hWnd);
                continue;
            }
            ::WaitMessage();
            continue;
        }
        if (!AfxPumpMessage())
        {
            result = -1;
            break;
        }
        if (msg.message != WM_TIMER && msg.message != WM_PAINT)
            bIdleDue = TRUE;
    }
    m_nFlags &= ~(WF_MODALLOOP | WF_CONTINUEMODAL);
    return result == -1 ? -1 : m_nModalResult;
}

BOOL CWnd::ContinueModal() { return (m_nFlags & WF_CONTINUEMODAL) != 0; }

void CWnd::EndModalLoop(int nResult)
{
    m_nModalResult = nResult;
    if (m_nFlags & WF_CONTINUEMODAL)
    {
        m_nFlags &= ~WF_CONTINUEMODAL;
        ::PostMessage(m_hWnd, WM_NULL, 0, 0);   // wake the loop
    }
}
