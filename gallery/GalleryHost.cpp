#include "GalleryHost.h"
#include <afxdllx.h>

CString GalleryExeDir()
{
    TCHAR path[MAX_PATH] = {};
    ::GetModuleFileName(nullptr, path, MAX_PATH);
    CString dir(path);
    int slash = dir.ReverseFind('\\');
    return slash >= 0 ? dir.Left(slash) : dir;
}

CString GalleryModuleName(HMODULE hModule)
{
    TCHAR path[MAX_PATH] = {};
    if (hModule == nullptr || ::GetModuleFileName(hModule, path, MAX_PATH) == 0)
        return _T("(none)");
    CString name(path);
    CString prefix = GalleryExeDir() + _T("\\");
    if (name.GetLength() > prefix.GetLength() && prefix.CompareNoCase(name.Left(prefix.GetLength())) == 0)
        return name.Mid(prefix.GetLength());
    return name;
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
