// The host's common-UI services: language modules and the profile.
#include "HyCommonUI.h"
#include "hoststore.h"
#include <stdlib.h>
#include <string>

namespace {

std::string g_langDir;      // set by the host; empty: default
std::string g_profilePath;  // set by the host; empty: default

}  // namespace

std::string hyhost::HostFolder()
{
    static const char marker = 0;   // an address inside HyHost.dll
    HMODULE self = nullptr;
    ::GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                         &marker, &self);
    char path[MAX_PATH] = "";
    DWORD n = ::GetModuleFileNameA(self, path, MAX_PATH);
    std::string folder(path, n);
    size_t slash = folder.find_last_of('\\');
    return slash == std::string::npos ? std::string(".") : folder.substr(0, slash);
}

std::string hyhost::ProfilePath()
{
    return g_profilePath.empty() ? HostFolder() + "\\HyHost.ini" : g_profilePath;
}

namespace {

// The language id of a module's first string table, 0 when it has none.
BOOL CALLBACK FirstLanguage(HMODULE, LPCSTR, LPCSTR, WORD language, LONG_PTR out)
{
    *reinterpret_cast<DWORD*>(out) = language;
    return FALSE;   // the first is enough
}

}  // namespace

void GetTernLangDllDirectory(CString& dir)
{
    if (!g_langDir.empty())
    {
        dir = g_langDir.c_str();
        return;
    }
    char env[MAX_PATH] = "";
    DWORD n = ::GetEnvironmentVariableA("HYHOST_LANGDIR", env, sizeof env);
    if (n > 0 && n < sizeof env)
    {
        dir = env;
        return;
    }
    dir = (hyhost::HostFolder() + "\\lang\\en").c_str();
}

void HySetLangDllDirectory(LPCSTR dir)
{
    g_langDir = dir != nullptr ? dir : "";
}

HINSTANCE HyLoadLangModule(LPCSTR path, HINSTANCE hOwnInstance, DWORD* pLoaderWord)
{
    if (pLoaderWord != nullptr)
        *pLoaderWord = 0;
    // Resources only: no code of the module runs.
    HMODULE module = path != nullptr
        ? ::LoadLibraryExA(path, nullptr, LOAD_LIBRARY_AS_DATAFILE | LOAD_LIBRARY_AS_IMAGE_RESOURCE)
        : nullptr;
    if (module == nullptr)
        return hOwnInstance;   // absent: the library's own English copy serves
    DWORD language = 0;
    ::EnumResourceNamesA(module, RT_STRING, [](HMODULE m, LPCSTR, LPSTR name, LONG_PTR out) -> BOOL {
        ::EnumResourceLanguagesA(m, RT_STRING, name, FirstLanguage, out);
        return FALSE;   // the first table is enough
    }, (LONG_PTR)&language);
    if (language == 0)
    {
        // Not a language module (no string table): keep the own copy.
        ::FreeLibrary(module);
        return hOwnInstance;
    }
    if (pLoaderWord != nullptr)
        *pLoaderWord = language;
    return module;
}

BOOL HyReleaseLangModule(HINSTANCE hResource, HINSTANCE hOwnInstance)
{
    if (hResource == nullptr || hResource == hOwnInstance)
        return FALSE;
    return ::FreeLibrary(hResource);
}

void HySetProfilePath(LPCSTR path)
{
    g_profilePath = path != nullptr ? path : "";
}

BOOL HyGetProfileInt(LPCSTR section, LPCSTR key, int* pValue)
{
    if (pValue == nullptr)
        return FALSE;
    *pValue = 0;
    if (section == nullptr || key == nullptr)
        return FALSE;
    const std::string path = hyhost::ProfilePath();
    char text[64] = "";
    DWORD n = ::GetPrivateProfileStringA(section, key, "", text, sizeof text, path.c_str());
    if (n == 0)
        return FALSE;   // absent: 0
    char* end = nullptr;
    long value = strtol(text, &end, 10);
    while (end != nullptr && (*end == ' ' || *end == '\t'))
        ++end;
    if (end == text || (end != nullptr && *end != 0))
        return FALSE;   // not a number: 0
    *pValue = (int)value;
    return TRUE;
}
