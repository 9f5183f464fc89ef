// Reading HyUI's resources straight from the built module files: the
// library itself and the English and German language modules, loaded as
// data only.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>
#include <string>
#include <vector>
#include "hytest_env.h"

namespace restest {

// A module of the build opened as data (no code runs), found relative to
// the folder of the test program.
class DataModule
{
public:
    explicit DataModule(const char* relativePath)
    {
        m_path = hytest::ExeFolder() + "\\" + relativePath;
        m_module = ::LoadLibraryExA(m_path.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    }
    ~DataModule()
    {
        if (m_module) ::FreeLibrary(m_module);
    }
    DataModule(const DataModule&) = delete;
    DataModule& operator=(const DataModule&) = delete;

    HMODULE get() const { return m_module; }
    const std::string& path() const { return m_path; }

private:
    std::string m_path;
    HMODULE m_module = nullptr;
};

// The modules the resource tests look at.
struct ModuleSpec
{
    const char* name;        // for messages
    const char* relative;    // path from the test program's folder
    bool german;
};

inline const ModuleSpec kHyUI = { "HyUI.dll", "HyUI.dll", false };
inline const ModuleSpec kLangEn = { "lang/en", "lang\\en\\HyLangUI.dll", false };
inline const ModuleSpec kLangDe = { "lang/de", "lang\\de\\HyLangUI.dll", true };

inline std::string ModuleTestName(const ::testing::TestParamInfo<ModuleSpec>& info)
{
    return info.param.german ? "GermanModule" : "EnglishLibrary";
}

// A string of the table; empty when the id is absent.
inline std::wstring TableString(HMODULE module, UINT id)
{
    wchar_t buf[512];
    const int n = ::LoadStringW(module, id, buf, 512);
    return std::wstring(buf, n > 0 ? n : 0);
}

// The raw bytes of a resource; empty when it is absent.
inline std::vector<BYTE> RawResource(HMODULE module, LPCWSTR type, UINT id)
{
    HRSRC res = ::FindResourceW(module, MAKEINTRESOURCEW(id), type);
    const BYTE* p = res ? static_cast<const BYTE*>(::LockResource(::LoadResource(module, res))) : nullptr;
    return p ? std::vector<BYTE>(p, p + ::SizeofResource(module, res)) : std::vector<BYTE>();
}

}  // namespace restest
