// HyUI.dll loaded with each language folder: translated resources come first,
// what a module lacks comes from the library's English copy, and the module
// leaves the resource chain when the library goes.
#include <gtest/gtest.h>
#include <afxwin.h>
#include <string>
#include "hytest_env.h"

namespace {

// Loads HyUI.dll with HYHOST_LANGDIR set to folder, for the scope.
class LibraryWithLanguage
{
public:
    explicit LibraryWithLanguage(const std::string& folder)
    {
        ::SetEnvironmentVariableA("HYHOST_LANGDIR", folder.c_str());
        module = ::LoadLibraryA("HyUI.dll");
    }
    ~LibraryWithLanguage()
    {
        if (module != nullptr)
            ::FreeLibrary(module);
        ::SetEnvironmentVariableA("HYHOST_LANGDIR", nullptr);
    }
    HMODULE module = nullptr;
};

CString Loaded(UINT id)
{
    CString s;
    return s.LoadString(id) ? s : CString("<missing>");
}

std::string StringOf(const std::string& file, UINT id)
{
    HMODULE m = ::LoadLibraryExA(file.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    char text[256] = "";
    if (m != nullptr)
    {
        ::LoadStringA(m, id, text, sizeof text);
        ::FreeLibrary(m);
    }
    return text;
}

// Strings 12501 (Monday), 12502 (Tuesday) and 12547 ("No Photo") with each
// language folder: translated where the module has them, English from the
// library where it lacks them or is absent.
TEST(LanguageTest, EachFolderGivesItsTranslationsAndTheLibraryTheRest)
{
    const std::string german = StringOf(hytest::ExeFolder() + "\\lang\\de\\HyLangUI.dll", 12547);
    ASSERT_FALSE(german.empty() || german == "No Photo");
    const struct { std::string folder; const char* monday; const char* tuesday; std::string photo; } rows[] = {
        { hytest::ExeFolder() + "\\lang\\de", nullptr, nullptr, german },
        { hytest::ExeFolder() + "\\lang\\en", "M", "T", "No Photo" },
        { hytest::ExeFolder() + "\\partial", "Mo", "T", "No Photo" },   // one string of a block, not another block
        { "C:\\no\\such\\folder", "M", "T", "No Photo" },
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.folder);
        LibraryWithLanguage lib(row.folder);
        ASSERT_NE(nullptr, lib.module);
        EXPECT_EQ(row.photo, std::string(Loaded(12547)));
        if (row.monday) {
            EXPECT_EQ(std::string(row.monday) + row.tuesday, std::string(Loaded(12501) + Loaded(12502)));
        }
    }
    // The library is gone, and with it its entries of the resource chain.
    EXPECT_EQ(CString("<missing><missing>"), Loaded(12501) + Loaded(12547));
}

}  // namespace
