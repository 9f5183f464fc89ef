// HyAfx private: per-process and per-thread framework state.
#pragma once
#include "afxwin.h"

class CDynLinkLibrary;

struct AfxProcessState
{
    HINSTANCE hInstance = nullptr;       // the application's module
    HINSTANCE hResource = nullptr;       // the application's resource module
    HINSTANCE hFramework = nullptr;      // HyAfx.dll itself
    CWinApp* pApp = nullptr;
    CDynLinkLibrary* pFirstDLL = nullptr; // the resource chain, first linked first
    CRITICAL_SECTION chainLock;
};

struct AfxThreadState
{
    AFX_THREAD_MSG lastMsg{};             // the message being dispatched
    MSG lastSentMsg{};
    CWnd* pWndInit = nullptr;             // the object being created
    HHOOK hHookOldCbt = nullptr;
    CWinThread* pThread = nullptr;
};

AfxProcessState& AfxGetProcessState();
AfxThreadState& AfxGetThreadState();

// Installs the creation hook for pWnd until the matching AfxUnhookWindowCreate.
void AfxHookWindowCreate(CWnd* pWnd);
BOOL AfxUnhookWindowCreate();

// Ensures AFX_WND_CLASS is registered.
void AfxEnsureDefaultClass();
// Loads a framework string from HyAfx.dll's own table.
CString AfxLoadFrameworkString(UINT nID);

// A member that needs a live window checks it, as the classic framework's do.
#define ASSERT_LIVE_WINDOW() ASSERT(::IsWindow(m_hWnd))
