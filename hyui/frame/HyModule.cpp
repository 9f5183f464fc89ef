// Module start-up of HyUI.dll.
#include "HyModule.h"
#include <new>
#include "HyCommonUI.h"

namespace {

HyModuleState g_module = {};   // the library's own, per process

const HyModuleServices& HostServices()
{
    static const HyModuleServices services = { GetTernLangDllDirectory, HyLoadLangModule,
                                               HyReleaseLangModule };
    return services;
}

}  // namespace

BOOL HyModuleAttach(HyModuleState& state, HINSTANCE hInstance, const HyModuleServices& services)
{
    if (state.attachCount == 0)
    {
        state.hOwnInstance = hInstance;
        CString dir;
        services.getLangDllDirectory(dir);   // its result is not checked
        CString path;
        // One backslash, whether or not the folder already ends in one.
        path.Format("%s\\%s", (LPCTSTR)dir, "HyLangUI.dll");
        DWORD word = 0;
        state.hResource = services.loadLangModule(path, state.hOwnInstance, &word);
        state.loaderWord = word;
    }
    ++state.attachCount;
    // Deliberately the resource module, not the own instance: the framework
    // then looks for this library's resources in the translation first.
    if (!AfxInitExtensionModule(state.record, state.hResource))
        return FALSE;
    // A failed allocation of the entry is tolerated: no entry, still loaded.
    new (std::nothrow) CDynLinkLibrary(state.record);
    return TRUE;
}

BOOL HyModuleDetach(HyModuleState& state, const HyModuleServices& services)
{
    AfxTermExtensionModule(state.record);
    --state.attachCount;
    if (state.attachCount == 0 && services.releaseLangModule(state.hResource, state.hOwnInstance))
        state.hResource = state.hOwnInstance;
    return TRUE;
}

CDynLinkLibrary* InitHyUIDLL()
{
    return new (std::nothrow) CDynLinkLibrary(g_module.record);
}

extern "C" BOOL WINAPI DllMain(HINSTANCE hInstance, DWORD dwReason, LPVOID)
{
    switch (dwReason)
    {
    case DLL_PROCESS_ATTACH:
        return HyModuleAttach(g_module, hInstance, HostServices());
    case DLL_PROCESS_DETACH:
        return HyModuleDetach(g_module, HostServices());
    default:
        return TRUE;   // thread attach and detach touch nothing
    }
}
