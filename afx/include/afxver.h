// HyAfx: base definitions shared by every framework header.
#pragma once

#ifndef _MBCS
#define _MBCS
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#include <tchar.h>
#include <stddef.h>

#ifdef HYAFX_BUILD
#define HYAFX_API __declspec(dllexport)
#else
#define HYAFX_API __declspec(dllimport)
#endif

#define AFXAPI
#define AFX_CDECL __cdecl
#define AFX_MSG_CALL
#define afx_msg
#define AFX_STATIC static

// ASSERT is live where HYAFX_ASSERTS is defined (the Windows test build:
// CMake option HYAFX_LIVE_ASSERT) or in a debug build (_DEBUG); elsewhere it
// compiles to nothing and its expression is not evaluated.
#ifndef ASSERT
#if defined(HYAFX_ASSERTS) || defined(_DEBUG)
#define ASSERT(f) ((void)((f) || (AfxAssertFailed(__FILE__, __LINE__), 0)))
#else
#define ASSERT(f) ((void)0)
#endif
#endif
#define VERIFY(f) ((void)(f))
#define ASSERT_VALID(p) ((void)0)
#define TRACE(...) ((void)0)

// Reports a failed ASSERT: to the installed hook when there is one, else to
// the debugger's output and stderr (and a break when a debugger is attached).
// Execution continues after the report.
HYAFX_API void AFXAPI AfxAssertFailed(LPCSTR file, int line);
typedef void (AFXAPI* AFX_ASSERT_HOOK)(LPCSTR file, int line);
// Installs the hook (NULL: none) and answers the previous one. The test
// harness installs one that turns a failed ASSERT into a test failure.
HYAFX_API AFX_ASSERT_HOOK AFXAPI AfxSetAssertHook(AFX_ASSERT_HOOK pfnHook);

class CObject;
class CArchive;

// Run-time class information (DECLARE_DYNAMIC / DECLARE_DYNCREATE).
struct HYAFX_API CRuntimeClass
{
    LPCSTR m_lpszClassName;
    int m_nObjectSize;
    CObject* (*m_pfnCreateObject)();
    CRuntimeClass* m_pBaseClass;

    CObject* CreateObject() const;
    BOOL IsDerivedFrom(const CRuntimeClass* pBaseClass) const;
};

#define RUNTIME_CLASS(class_name) (&class_name::class##class_name)

#define DECLARE_DYNAMIC(class_name) \
public: \
    static CRuntimeClass class##class_name; \
    virtual CRuntimeClass* GetRuntimeClass() const;

#define DECLARE_DYNCREATE(class_name) \
    DECLARE_DYNAMIC(class_name) \
    static CObject* CreateObject();

#define IMPLEMENT_RUNTIMECLASS_(class_name, base_class_name, pfnNew) \
    CRuntimeClass class_name::class##class_name = { \
        #class_name, (int)sizeof(class_name), pfnNew, RUNTIME_CLASS(base_class_name) }; \
    CRuntimeClass* class_name::GetRuntimeClass() const { return RUNTIME_CLASS(class_name); }

#define IMPLEMENT_DYNAMIC(class_name, base_class_name) \
    IMPLEMENT_RUNTIMECLASS_(class_name, base_class_name, nullptr)

#define IMPLEMENT_DYNCREATE(class_name, base_class_name) \
    CObject* class_name::CreateObject() { return new class_name; } \
    IMPLEMENT_RUNTIMECLASS_(class_name, base_class_name, class_name::CreateObject)

// The root of the class tree.
class HYAFX_API CObject
{
public:
    static CRuntimeClass classCObject;
    virtual CRuntimeClass* GetRuntimeClass() const;
    virtual ~CObject();
    BOOL IsKindOf(const CRuntimeClass* pClass) const;
    virtual void AssertValid() const {}

protected:
    CObject() = default;
private:
    CObject(const CObject&) = delete;
    void operator=(const CObject&) = delete;
};

// ---- module and resource chain services (afxdllx.h has the extension-module record) ----
HYAFX_API HINSTANCE AFXAPI AfxGetInstanceHandle();
HYAFX_API HINSTANCE AFXAPI AfxGetResourceHandle();
HYAFX_API void AFXAPI AfxSetResourceHandle(HINSTANCE hInstResource);
// Walks the resource chain (the application's resource module, then every
// CDynLinkLibrary in the order they were linked) and returns the first module
// holding the resource; falls back to AfxGetResourceHandle().
HYAFX_API HINSTANCE AFXAPI AfxFindResourceHandle(LPCTSTR lpszName, LPCTSTR lpszType);
// The same walk for one string of a string table: the first module whose
// table holds a non-empty string nID. (Tables are stored in blocks of 16, so
// a module holding the block but not the string does not hide later ones.)
HYAFX_API HINSTANCE AFXAPI AfxFindStringResourceHandle(UINT nID);
