// HyHost.dll is an extension module like the host's own libraries: its
// strings and templates join the process's resource chain at attach.
#include <afxdllx.h>
#include <new>

namespace {
AFX_EXTENSION_MODULE g_hostModule = {};
}

extern "C" BOOL WINAPI DllMain(HINSTANCE hInstance, DWORD dwReason, LPVOID)
{
    if (dwReason == DLL_PROCESS_ATTACH)
    {
        if (!AfxInitExtensionModule(g_hostModule, hInstance))
            return FALSE;
        new (std::nothrow) CDynLinkLibrary(g_hostModule);
    }
    else if (dwReason == DLL_PROCESS_DETACH)
        AfxTermExtensionModule(g_hostModule);
    return TRUE;
}
