// The host's common-UI services: language folder, language modules, profile.
#include <gtest/gtest.h>
#include <string>
#include <vector>
#include <afxwin.h>
#include "HyCommonUI.h"
#include "hytest_env.h"

namespace {

std::string LangDir()
{
    CString dir;
    GetTernLangDllDirectory(dir);
    return std::string(dir);
}

// The answer and the value of a profile read; -1 stands for "left alone".
std::vector<int> ProfileInt(const char* section, const char* key)
{
    int value = -1;
    return { HyGetProfileInt(section, key, &value) != FALSE, value };
}

}  // namespace

TEST(HostLanguage, TheFolderIsTheHostsSettingElseTheEnvironmentElseEnglishBesideTheKit)
{
    HySetLangDllDirectory(nullptr);
    EXPECT_EQ(hytest::ExeFolder() + "\\lang\\en", LangDir());
    ::SetEnvironmentVariableA("HYHOST_LANGDIR", "C:\\from\\env");
    EXPECT_EQ("C:\\from\\env", LangDir());
    HySetLangDllDirectory("C:\\set\\by\\host");
    EXPECT_EQ("C:\\set\\by\\host", LangDir());
    HySetLangDllDirectory("");
    ::SetEnvironmentVariableA("HYHOST_LANGDIR", nullptr);
}

TEST(HostLanguage, AResourceModuleIsLoadedElseTheOwnInstanceServesAndTheHostsStringsComeThroughTheChain)
{
    HINSTANCE own = ::GetModuleHandleA(nullptr);
    DWORD word = 0;
    HINSTANCE module = HyLoadLangModule((hytest::ExeFolder() + "\\chain_second.dll").c_str(), own, &word);
    ASSERT_NE(own, module);
    ASSERT_NE(nullptr, module);
    EXPECT_EQ((DWORD)MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), word);
    char text[32] = "";
    ::LoadStringA(module, 100, text, sizeof text);
    EXPECT_STREQ("second", text);
    EXPECT_TRUE(HyReleaseLangModule(module, own));

    // Absent, unnamed, or without a string table (a copy of this program).
    char self[MAX_PATH] = "";
    ::GetModuleFileNameA(nullptr, self, MAX_PATH);
    const hytest::TempFile copy("hy-no-strings.dll");
    ASSERT_TRUE(::CopyFileA(self, copy.path(), FALSE));
    for (const char* path : { "C:\\no\\such\\folder\\HyLangUI.dll", (const char*)nullptr, copy.path() }) {
        word = 99;
        EXPECT_EQ(own, HyLoadLangModule(path, own, &word)) << (path ? path : "null");
        EXPECT_EQ(0u, word);
    }
    EXPECT_FALSE(HyReleaseLangModule(own, own));
    EXPECT_FALSE(HyReleaseLangModule(nullptr, own));

    // The host's own strings are found through the resource chain.
    CString s;
    ASSERT_TRUE(s.LoadString(283));
    HMODULE host = ::GetModuleHandleA("HyHost.dll");
    char direct[256] = "";
    ::LoadStringA(host, 283, direct, sizeof direct);
    EXPECT_STREQ(direct, s);
    EXPECT_EQ(host, AfxFindStringResourceHandle(283));
}

TEST(HostProfile, ReadsWholeIntegersAndAnswersZeroForAnythingElse)
{
    const hytest::TempFile profile("hyhost-profile-test.ini"), missing("hyhost-no-such-profile.ini");
    ::WritePrivateProfileStringA("Almanac", "WorkWeekBegins", "1", profile.path());
    ::WritePrivateProfileStringA("Almanac", "Garbled", "12abc", profile.path());
    ::WritePrivateProfileStringA("Almanac", "Negative", "-3", profile.path());
    HySetProfilePath(profile.path());
    EXPECT_EQ((std::vector<int>{ 1, 1 }), ProfileInt("Almanac", "WorkWeekBegins"));
    EXPECT_EQ((std::vector<int>{ 1, -3 }), ProfileInt("Almanac", "Negative"));
    EXPECT_EQ((std::vector<int>{ 0, 0 }), ProfileInt("Almanac", "NoSuchKey"));
    EXPECT_EQ((std::vector<int>{ 0, 0 }), ProfileInt("Almanac", "Garbled"));
    EXPECT_EQ((std::vector<int>{ 0, 0 }), ProfileInt("NoSuchSection", "WorkWeekBegins"));
    EXPECT_FALSE(HyGetProfileInt("Almanac", "WorkWeekBegins", nullptr));
    HySetProfilePath(missing.path());
    EXPECT_EQ((std::vector<int>{ 0, 0 }), ProfileInt("Almanac", "WorkWeekBegins"));
    HySetProfilePath(nullptr);
}

