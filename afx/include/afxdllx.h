// HyAfx: extension modules and the resource chain.
//
// Every module that shares the framework with its host (an extension module)
// keeps one AFX_EXTENSION_MODULE record and links CDynLinkLibrary entries
// into the process's resource chain. Resources are looked up in the
// application's resource module first, then in each chain entry in the order
// the entries were linked: first the entry's resource module, then the module
// that holds the record (so a library's own copy fills what its resource
// module lacks).
#pragma once
#include "afxwin.h"

struct HYAFX_API AFX_EXTENSION_MODULE
{
    BOOL bInitialized;
    HMODULE hModule;      // the module the record was initialised with
    HMODULE hResource;    // where the module's resources are taken from
    HMODULE hOwner;       // the module whose data holds this record
};

// Initialises the record with a module handle; FALSE when hMod is NULL.
HYAFX_API BOOL AFXAPI AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE hMod);
// Unlinks and deletes the chain entries made for this record (with bAll,
// every extension entry of the chain) and marks the record uninitialised.
HYAFX_API void AFXAPI AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL bAll = FALSE);

class HYAFX_API CDynLinkLibrary : public CCmdTarget
{
    DECLARE_DYNAMIC(CDynLinkLibrary)
public:
    // Links this entry at the end of the process's chain.
    CDynLinkLibrary(AFX_EXTENSION_MODULE& state, BOOL bSystem = FALSE);
    CDynLinkLibrary(HINSTANCE hModule, HINSTANCE hResource);
    virtual ~CDynLinkLibrary();   // unlinks

    HMODULE m_hModule;
    HMODULE m_hResource;
    HMODULE m_hOwner;
    BOOL m_bSystem;
    AFX_EXTENSION_MODULE* m_pModule;
    CDynLinkLibrary* m_pNextDLL;

    // Chain inspection (first linked first).
    static CDynLinkLibrary* PASCAL GetFirst();
    static int PASCAL GetCount();
};
