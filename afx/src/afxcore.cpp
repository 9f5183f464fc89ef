// HyAfx: run-time classes, module state and the resource chain.
#include "afximpl.h"
#include "afxdllx.h"
#include <stdio.h>

// ---- run-time classes ----
CRuntimeClass CObject::classCObject = { "CObject", (int)sizeof(CObject), nullptr, nullptr };

CRuntimeClass* CObject::GetRuntimeClass() const { return &classCObject; }
CObject::~CObject() = default;

BOOL CObject::IsKindOf(const CRuntimeClass* pClass) const
{
    return GetRuntimeClass()->IsDerivedFrom(pClass);
}

CObject* CRuntimeClass::CreateObject() const
{
    return m_pfnCreateObject ? m_pfnCreateObject() : nullptr;
}

BOOL CRuntimeClass::IsDerivedFrom(const CRuntimeClass* pBaseClass) const
{
    for (const CRuntimeClass* p = this; p != nullptr; p = p->m_pBaseClass)
        if (p == pBaseClass)
            return TRUE;
    return FALSE;
}

static AFX_ASSERT_HOOK s_pfnAssertHook = nullptr;

AFX_ASSERT_HOOK AFXAPI AfxSetAssertHook(AFX_ASSERT_HOOK pfnHook)
{
    return (AFX_ASSERT_HOOK)InterlockedExchangePointer((PVOID*)&s_pfnAssertHook, (PVOID)pfnHook);
}

void AFXAPI AfxAssertFailed(LPCSTR file, int line)
{
    if (AFX_ASSERT_HOOK pfnHook = s_pfnAssertHook)
    {
        pfnHook(file, line);
        return;
    }
    char buf[512];
    snprintf(buf, sizeof buf, "HyAfx assertion failed: %s(%d)\n", file, line);
    OutputDebugStringA(buf);
    fputs(buf, stderr);
    if (IsDebuggerPresent())
        DebugBreak();
}

// ---- state ----
static const char s_frameworkMarker = 0;   // an address inside HyAfx.dll

AfxProcessState& AfxGetProcessState()
{
    static AfxProcessState* s = [] {
        auto* p = new AfxProcessState;
        InitializeCriticalSection(&p->chainLock);
        p->hInstance = GetModuleHandle(nullptr);
        p->hResource = p->hInstance;
        GetModuleHandleEx(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                              GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                          &s_frameworkMarker, &p->hFramework);
        return p;
    }();
    return *s;
}

// Per-thread state lives in a fiber-local slot whose callback frees it when
// the thread ends. (A thread_local object with a destructor in this DLL
// corrupts the process when a worker thread exits under this toolchain.)
static void WINAPI FreeThreadState(void* p)
{
    delete static_cast<AfxThreadState*>(p);
}

AfxThreadState& AfxGetThreadState()
{
    static const DWORD slot = ::FlsAlloc(FreeThreadState);
    auto* p = static_cast<AfxThreadState*>(::FlsGetValue(slot));
    if (p == nullptr)
    {
        p = new AfxThreadState;
        ::FlsSetValue(slot, p);
    }
    return *p;
}

HINSTANCE AFXAPI AfxGetInstanceHandle() { return AfxGetProcessState().hInstance; }
HINSTANCE AFXAPI AfxGetResourceHandle() { return AfxGetProcessState().hResource; }
void AFXAPI AfxSetResourceHandle(HINSTANCE h) { AfxGetProcessState().hResource = h; }

static BOOL HasResource(HINSTANCE h, LPCTSTR name, LPCTSTR type)
{
    return h != nullptr && ::FindResource(h, name, type) != nullptr;
}

static BOOL HasString(HINSTANCE h, UINT nID)
{
    LPCTSTR block = MAKEINTRESOURCE((nID >> 4) + 1);
    HRSRC hRes = h != nullptr ? ::FindResource(h, block, RT_STRING) : nullptr;
    HGLOBAL hGlobal = hRes != nullptr ? ::LoadResource(h, hRes) : nullptr;
    auto* p = hGlobal != nullptr ? (const WCHAR*)::LockResource(hGlobal) : nullptr;
    if (p == nullptr)
        return FALSE;
    const WCHAR* end = p + ::SizeofResource(h, hRes) / sizeof(WCHAR);
    for (UINT i = 0; i < (nID & 15) && p < end; ++i)
        p += 1 + *p;
    return p < end && *p != 0;
}

// The application's resource module, then each chain entry in link order
// (its resource module, then the module holding its record); falls back to
// the application's resource module.
template <typename Has>
static HINSTANCE WalkChain(Has has)
{
    AfxProcessState& ps = AfxGetProcessState();
    if (has(ps.hResource))
        return ps.hResource;
    HINSTANCE found = nullptr;
    EnterCriticalSection(&ps.chainLock);
    for (CDynLinkLibrary* p = ps.pFirstDLL; p != nullptr && found == nullptr; p = p->m_pNextDLL)
    {
        if (has(p->m_hResource))
            found = p->m_hResource;
        else if (p->m_hOwner != p->m_hResource && has(p->m_hOwner))
            found = p->m_hOwner;
    }
    LeaveCriticalSection(&ps.chainLock);
    return found != nullptr ? found : ps.hResource;
}

HINSTANCE AFXAPI AfxFindResourceHandle(LPCTSTR lpszName, LPCTSTR lpszType)
{
    return WalkChain([&](HINSTANCE h) { return HasResource(h, lpszName, lpszType); });
}

HINSTANCE AFXAPI AfxFindStringResourceHandle(UINT nID)
{
    return WalkChain([&](HINSTANCE h) { return HasString(h, nID); });
}

CString AfxLoadFrameworkString(UINT nID)
{
    char buf[512];
    int n = ::LoadStringA(AfxGetProcessState().hFramework, nID, buf, sizeof buf);
    return CString(buf, n > 0 ? n : 0);
}

// ---- extension modules ----
BOOL AFXAPI AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE hMod)
{
    if (hMod == nullptr)
        return FALSE;
    state.hModule = hMod;
    state.hResource = hMod;
    // The record lives in its library's data: that library is the owner.
    HMODULE owner = nullptr;
    if (!GetModuleHandleEx(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                               GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                           (LPCTSTR)&state, &owner))
        owner = hMod;
    state.hOwner = owner;
    state.bInitialized = TRUE;
    return TRUE;
}

void AFXAPI AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL bAll)
{
    AfxProcessState& ps = AfxGetProcessState();
    for (;;)
    {
        CDynLinkLibrary* victim = nullptr;
        EnterCriticalSection(&ps.chainLock);
        for (CDynLinkLibrary* p = ps.pFirstDLL; p != nullptr; p = p->m_pNextDLL)
            if (p->m_pModule == &state || (bAll && !p->m_bSystem))
            {
                victim = p;
                break;
            }
        LeaveCriticalSection(&ps.chainLock);
        if (victim == nullptr)
            break;
        delete victim;   // unlinks itself
    }
    state.bInitialized = FALSE;
}

IMPLEMENT_DYNAMIC(CDynLinkLibrary, CCmdTarget)

static void LinkAtEnd(CDynLinkLibrary* pDLL)
{
    AfxProcessState& ps = AfxGetProcessState();
    EnterCriticalSection(&ps.chainLock);
    CDynLinkLibrary** pp = &ps.pFirstDLL;
    while (*pp != nullptr)
        pp = &(*pp)->m_pNextDLL;
    *pp = pDLL;
    LeaveCriticalSection(&ps.chainLock);
}

CDynLinkLibrary::CDynLinkLibrary(AFX_EXTENSION_MODULE& state, BOOL bSystem)
    : m_hModule(state.hModule), m_hResource(state.hResource),
      m_hOwner(state.hOwner ? state.hOwner : state.hModule), m_bSystem(bSystem),
      m_pModule(&state), m_pNextDLL(nullptr)
{
    LinkAtEnd(this);
}

CDynLinkLibrary::CDynLinkLibrary(HINSTANCE hModule, HINSTANCE hResource)
    : m_hModule(hModule), m_hResource(hResource), m_hOwner(hModule), m_bSystem(FALSE),
      m_pModule(nullptr), m_pNextDLL(nullptr)
{
    LinkAtEnd(this);
}

CDynLinkLibrary::~CDynLinkLibrary()
{
    AfxProcessState& ps = AfxGetProcessState();
    EnterCriticalSection(&ps.chainLock);
    for (CDynLinkLibrary** pp = &ps.pFirstDLL; *pp != nullptr; pp = &(*pp)->m_pNextDLL)
        if (*pp == this)
        {
            *pp = m_pNextDLL;
            break;
        }
    LeaveCriticalSection(&ps.chainLock);
}

CDynLinkLibrary* PASCAL CDynLinkLibrary::GetFirst() { return AfxGetProcessState().pFirstDLL; }

int PASCAL CDynLinkLibrary::GetCount()
{
    AfxProcessState& ps = AfxGetProcessState();
    EnterCriticalSection(&ps.chainLock);
    int n = 0;
    for (CDynLinkLibrary* p = ps.pFirstDLL; p != nullptr; p = p->m_pNextDLL)
        ++n;
    LeaveCriticalSection(&ps.chainLock);
    return n;
}

// ---- wait cursor ----
CWaitCursor::CWaitCursor() : m_hPrevious(::SetCursor(::LoadCursor(nullptr, IDC_WAIT))) {}
CWaitCursor::~CWaitCursor() { ::SetCursor(m_hPrevious); }
void CWaitCursor::Restore() { ::SetCursor(::LoadCursor(nullptr, IDC_WAIT)); }
