// HyUI.dll loaded with each language folder: translated resources come first,
// what a module lacks comes from the library's English copy, and the module
// leaves the resource chain when the library goes.
#include <gtest/gtest.h>
#include <afxwin.h>
#include <string>

namespace {

std::string BinFolder()
{
    char path[MAX_PATH] = "";
    ::GetModuleFileNameA(nullptr, path, MAX_PATH);
    std::string s(path);
    return s.substr(0, s.find_last_of('\\'));
}

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

TEST(LanguageTest, GermanModuleTranslatesTheLibrary)
{
    const std::string de = BinFolder() + "\\lang\\de";
    const std::string german = StringOf(de + "\\HyLangUI.dll", 12547);
    ASSERT_FALSE(german.empty());
    ASSERT_NE("No Photo", german);
    LibraryWithLanguage lib(de);
    ASSERT_NE(nullptr, lib.module);
    EXPECT_STREQ(german.c_str(), Loaded(12547));
}

TEST(LanguageTest, EnglishModuleGivesTheEnglishTexts)
{
    LibraryWithLanguage lib(BinFolder() + "\\lang\\en");
    ASSERT_NE(nullptr, lib.module);
    EXPECT_STREQ("No Photo", Loaded(12547));
    EXPECT_STREQ("\n\nThere are no items to show in this view", Loaded(12520));
}

TEST(LanguageTest, MissingIdComesFromTheLibrarysEnglishCopy)
{
    const std::string partial = BinFolder() + "\\partial";
    {
        LibraryWithLanguage lib(partial);
        ASSERT_NE(nullptr, lib.module);
        EXPECT_STREQ("Mo", Loaded(12501));          // translated
        EXPECT_STREQ("T", Loaded(12502));           // same block, not translated
        EXPECT_STREQ("No Photo", Loaded(12547));    // another block
    }
    // The library is gone, and with it its entries of the resource chain.
    EXPECT_STREQ("<missing>", Loaded(12501));
    EXPECT_STREQ("<missing>", Loaded(12547));
}

TEST(LanguageTest, AbsentModuleFallsBackToTheEnglishCopy)
{
    LibraryWithLanguage lib("C:\\no\\such\\folder");
    ASSERT_NE(nullptr, lib.module);
    EXPECT_STREQ("No Photo", Loaded(12547));
    EXPECT_STREQ("M", Loaded(12501));
}

}  // namespace
