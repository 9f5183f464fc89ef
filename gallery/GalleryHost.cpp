#include "GalleryHost.h"
#include <afxdllx.h>
#include "HyCommonUI.h"

CString GalleryExeDir()
{
    TCHAR path[MAX_PATH] = {};
    ::GetModuleFileName(nullptr, path, MAX_PATH);
    CString dir(path);
    int slash = dir.ReverseFind('\\');
    return slash >= 0 ? dir.Left(slash) : dir;
}

namespace {
// A path below the gallery's folder without that folder, else unchanged.
CString BelowExeDir(const CString& path)
{
    CString prefix = GalleryExeDir() + _T("\\");
    if (path.GetLength() > prefix.GetLength() && prefix.CompareNoCase(path.Left(prefix.GetLength())) == 0)
        return path.Mid(prefix.GetLength());
    return path;
}
}

CString GalleryLanguageFolder()
{
    CString dir;
    GetTernLangDllDirectory(dir);
    dir.TrimRight('\\');
    return dir;
}

CString GalleryModuleName(HMODULE hModule)
{
    if (hModule == nullptr)
        return _T("(none)");
    if (hModule == ::GetModuleHandle(_T("HyUI.dll")))
        return _T("HyUI.dll (English copy)");
    if (hModule == ::GetModuleHandle(_T("HyHost.dll")))
        return _T("HyHost.dll");
    TCHAR path[MAX_PATH] = {};
    if (::GetModuleFileName(hModule, path, MAX_PATH) != 0)
        return BelowExeDir(path);
    // A language module is mapped as a data file, which has no module name:
    // it is the one in the language folder the host kit names.
    return BelowExeDir(GalleryLanguageFolder() + _T("\\HyLangUI.dll"));
}

CString GalleryLanguageName()
{
    HMODULE hResource = GalleryLibraryResourceModule();
    if (hResource == nullptr)
        return _T("HyUI.dll not attached");
    if (hResource == ::GetModuleHandle(_T("HyUI.dll")))
        return _T("built-in English");
    CString folder = GalleryLanguageFolder();
    int slash = folder.ReverseFind('\\');
    return slash >= 0 ? folder.Mid(slash + 1) : folder;
}

HMODULE GalleryLibraryResourceModule()
{
    HMODULE hLibrary = ::GetModuleHandle(_T("HyUI.dll"));
    if (hLibrary == nullptr)
        return nullptr;
    for (CDynLinkLibrary* entry = CDynLinkLibrary::GetFirst(); entry != nullptr; entry = entry->m_pNextDLL)
        if (entry->m_hOwner == hLibrary)
            return entry->m_hResource;
    return nullptr;
}

namespace {
// Wine's own path conversions; absent on Windows.
typedef char* (CDECL* UnixFileNameFn)(LPCWSTR);
typedef WCHAR* (CDECL* DosFileNameFn)(LPCSTR);

FARPROC WineExport(LPCSTR name)
{
    return ::GetProcAddress(::GetModuleHandle(_T("kernel32.dll")), name);
}
}

CString GalleryDisplayPath(const CString& windowsPath)
{
    auto toUnix = (UnixFileNameFn)WineExport("wine_get_unix_file_name");
    WCHAR wide[MAX_PATH];
    if (toUnix == nullptr || ::MultiByteToWideChar(CP_ACP, 0, windowsPath, -1, wide, MAX_PATH) == 0)
        return windowsPath;
    char* unixPath = toUnix(wide);
    if (unixPath == nullptr)
        return windowsPath;
    CString result(unixPath);
    ::HeapFree(::GetProcessHeap(), 0, unixPath);
    return result;
}

CString GalleryWindowsPath(const CString& argument)
{
    CString path = argument;
    auto toDos = (DosFileNameFn)WineExport("wine_get_dos_file_name");
    if (toDos != nullptr && !path.IsEmpty() && path[0] == '/')
    {
        if (WCHAR* dos = toDos(path))
        {
            char narrow[MAX_PATH] = {};
            ::WideCharToMultiByte(CP_ACP, 0, dos, -1, narrow, MAX_PATH, nullptr, nullptr);
            ::HeapFree(::GetProcessHeap(), 0, dos);
            path = narrow;
        }
    }
    TCHAR full[MAX_PATH] = {};
    if (::GetFullPathName(path, MAX_PATH, full, nullptr) != 0)
        path = full;
    path.TrimRight('\\');
    return path;
}

void GalleryPrintLine(const CString& line, bool toStdErr)
{
    HANDLE h = ::GetStdHandle(toStdErr ? STD_ERROR_HANDLE : STD_OUTPUT_HANDLE);
    if (h == nullptr || h == INVALID_HANDLE_VALUE)
        return;
    CString text = line + _T("\n");
    DWORD written = 0;
    ::WriteFile(h, (LPCTSTR)text, (DWORD)text.GetLength(), &written, nullptr);
}

namespace {
bool g_noPassword = false;
int g_passwordRequests = 0;
}  // namespace

LRESULT GalleryAnswerPasswordRequest(WPARAM wParam, LPARAM lParam)
{
    // MD5("secret"), as a host stores a password: 16 bytes, the rest zero.
    static const BYTE kSecretMd5[16] = { 0x5e, 0xbe, 0x22, 0x94, 0xec, 0xd0, 0xe0, 0xf0,
                                         0x8e, 0xab, 0x76, 0x90, 0xd2, 0xa6, 0xee, 0x69 };
    ++g_passwordRequests;
    if (wParam != 2 || lParam == 0)
        return 0;
    if (g_noPassword)
        return -1;
    memcpy((BYTE*)lParam, kSecretMd5, sizeof kSecretMd5);
    return 0;
}

void GallerySetNoPassword(bool noPassword) { g_noPassword = noPassword; }
int GalleryPasswordRequests() { return g_passwordRequests; }
