// Module start-up of HyUI.dll: the language module, the extension-module
// record and the resource-chain entries.
#pragma once
#include <afxdllx.h>
#include "HyUIExport.h"

// The host services the start-up uses. The library's own start-up uses the
// host kit's; tests pass recording ones.
struct HyModuleServices
{
    void (*getLangDllDirectory)(CString& dir);
    HINSTANCE (*loadLangModule)(LPCSTR path, HINSTANCE hOwnInstance, DWORD* pLoaderWord);
    BOOL (*releaseLangModule)(HINSTANCE hResource, HINSTANCE hOwnInstance);
};

// Module-wide state; one per process for the library itself.
struct HyModuleState
{
    AFX_EXTENSION_MODULE record;
    int attachCount;             // attaches not yet matched by a detach
    HINSTANCE hOwnInstance;      // recorded at the first attach
    HINSTANCE hResource;         // the language module, or the own instance after release
    DWORD loaderWord;            // stored at the first attach, not read here
};

// The process-attach steps. FALSE when the framework refuses the record.
HYUI_API BOOL HyModuleAttach(HyModuleState& state, HINSTANCE hInstance, const HyModuleServices& services);
// The process-detach steps.
HYUI_API BOOL HyModuleDetach(HyModuleState& state, const HyModuleServices& services);

// For hosts that are regular (non-extension) framework modules: one more
// resource-chain entry for the library's record, owned by the chain.
HYUI_API CDynLinkLibrary* InitHyUIDLL();
