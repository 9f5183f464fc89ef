#include "HyIntl.h"

#include <windows.h>
#include <vector>

CString ToFullwidthAndHira(LPCTSTR lpszText)
{
    if (lpszText == nullptr || *lpszText == '\0')
        return CString();
    const int wide = ::MultiByteToWideChar(CP_ACP, 0, lpszText, -1, nullptr, 0);
    if (wide <= 0)
        return CString();
    std::vector<wchar_t> source((size_t)wide);
    ::MultiByteToWideChar(CP_ACP, 0, lpszText, -1, source.data(), wide);
    const DWORD flags = LCMAP_FULLWIDTH | LCMAP_HIRAGANA;
    const int mapped = ::LCMapStringW(LOCALE_USER_DEFAULT, flags, source.data(), -1, nullptr, 0);
    if (mapped <= 0)
        return CString();
    std::vector<wchar_t> result((size_t)mapped);
    ::LCMapStringW(LOCALE_USER_DEFAULT, flags, source.data(), -1, result.data(), mapped);
    const int bytes = ::WideCharToMultiByte(CP_ACP, 0, result.data(), -1, nullptr, 0, nullptr, nullptr);
    if (bytes <= 0)
        return CString();
    std::vector<char> narrow((size_t)bytes);
    ::WideCharToMultiByte(CP_ACP, 0, result.data(), -1, narrow.data(), bytes, nullptr, nullptr);
    return CString(narrow.data());
}
