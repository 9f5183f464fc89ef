// The host's common-UI services: language folder, language modules, profile.
#include <gtest/gtest.h>
#include <string>
#include <afxwin.h>
#include "HyCommonUI.h"

namespace {

std::string ExeFolder()
{
    char path[MAX_PATH] = "";
    ::GetModuleFileNameA(nullptr, path, MAX_PATH);
    std::string s(path);
    return s.substr(0, s.find_last_of('\\'));
}

std::string TempFile(const char* name)
{
    char dir[MAX_PATH] = "";
    ::GetTempPathA(MAX_PATH, dir);
    return std::string(dir) + name;
}

TEST(LangDirectoryTest, DefaultIsTheEnglishFolderBesideTheHostKit)
{
    ::SetEnvironmentVariableA("HYHOST_LANGDIR", nullptr);
    HySetLangDllDirectory(nullptr);
    CString dir;
    GetTernLangDllDirectory(dir);
    EXPECT_STREQ((ExeFolder() + "\\lang\\en").c_str(), dir);
}

TEST(LangDirectoryTest, EnvironmentThenHostSettingOverride)
{
    ::SetEnvironmentVariableA("HYHOST_LANGDIR", "C:\\from\\env");
    CString dir;
    GetTernLangDllDirectory(dir);
    EXPECT_STREQ("C:\\from\\env", dir);
    HySetLangDllDirectory("C:\\set\\by\\host");
    GetTernLangDllDirectory(dir);
    EXPECT_STREQ("C:\\set\\by\\host", dir);
    HySetLangDllDirectory("");
    ::SetEnvironmentVariableA("HYHOST_LANGDIR", nullptr);
}

TEST(LangModuleTest, AbsentModuleGivesTheOwnInstance)
{
    HINSTANCE own = ::GetModuleHandleA(nullptr);
    DWORD word = 99;
    EXPECT_EQ(own, HyLoadLangModule("C:\\no\\such\\folder\\HyLangUI.dll", own, &word));
    EXPECT_EQ(0u, word);
    EXPECT_EQ(own, HyLoadLangModule(nullptr, own, &word));
    // A module without a string table (a copy of this test program) is no
    // language module: the own copy serves.
    char self[MAX_PATH] = "", copy[MAX_PATH] = "";
    ::GetModuleFileNameA(nullptr, self, MAX_PATH);
    ::GetTempPathA(MAX_PATH, copy);
    lstrcatA(copy, "hy-no-strings.dll");
    ASSERT_TRUE(::CopyFileA(self, copy, FALSE));
    EXPECT_EQ(own, HyLoadLangModule(copy, own, &word));
    EXPECT_EQ(0u, word);
    ::DeleteFileA(copy);
    EXPECT_FALSE(HyReleaseLangModule(own, own));
    EXPECT_FALSE(HyReleaseLangModule(nullptr, own));
}

TEST(LangModuleTest, ResourceModuleIsLoadedAndReleased)
{
    HINSTANCE own = ::GetModuleHandleA(nullptr);
    DWORD word = 0;
    HINSTANCE module = HyLoadLangModule((ExeFolder() + "\\chain_second.dll").c_str(), own, &word);
    ASSERT_NE(own, module);
    ASSERT_NE(nullptr, module);
    EXPECT_EQ((DWORD)MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), word);
    char text[32] = "";
    EXPECT_GT(::LoadStringA(module, 100, text, sizeof text), 0);
    EXPECT_STREQ("second", text);
    EXPECT_TRUE(HyReleaseLangModule(module, own));
}

class ProfileTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        path = TempFile("hyhost-profile-test.ini");
        ::WritePrivateProfileStringA("Almanac", "WorkWeekBegins", "1", path.c_str());
        ::WritePrivateProfileStringA("Almanac", "Garbled", "12abc", path.c_str());
        ::WritePrivateProfileStringA("Almanac", "Negative", "-3", path.c_str());
        HySetProfilePath(path.c_str());
    }
    void TearDown() override
    {
        HySetProfilePath(nullptr);
        ::DeleteFileA(path.c_str());
    }
    std::string path;
};

TEST_F(ProfileTest, ReadsIntegersOfTheHostProfile)
{
    int value = -1;
    EXPECT_TRUE(HyGetProfileInt("Almanac", "WorkWeekBegins", &value));
    EXPECT_EQ(1, value);
    EXPECT_TRUE(HyGetProfileInt("Almanac", "Negative", &value));
    EXPECT_EQ(-3, value);
}

TEST_F(ProfileTest, AbsentOrUnreadableValuesAreZero)
{
    int value = -1;
    EXPECT_FALSE(HyGetProfileInt("Almanac", "NoSuchKey", &value));
    EXPECT_EQ(0, value);
    value = -1;
    EXPECT_FALSE(HyGetProfileInt("Almanac", "Garbled", &value));
    EXPECT_EQ(0, value);
    value = -1;
    EXPECT_FALSE(HyGetProfileInt("NoSuchSection", "WorkWeekBegins", &value));
    EXPECT_EQ(0, value);
    EXPECT_FALSE(HyGetProfileInt("Almanac", "WorkWeekBegins", nullptr));
    HySetProfilePath(TempFile("hyhost-no-such-profile.ini").c_str());
    value = -1;
    EXPECT_FALSE(HyGetProfileInt("Almanac", "WorkWeekBegins", &value));
    EXPECT_EQ(0, value);
}

}  // namespace

namespace {

TEST(HostModuleTest, HostResourcesAreFoundThroughTheChain)
{
    // String 283 is one of the host's own (host/res/HyHost.rc).
    CString s;
    ASSERT_TRUE(s.LoadString(283));
    HMODULE host = ::GetModuleHandleA("HyHost.dll");
    char direct[256] = "";
    ASSERT_GT(::LoadStringA(host, 283, direct, sizeof direct), 0);
    EXPECT_STREQ(direct, s);
    EXPECT_EQ(host, AfxFindStringResourceHandle(283));
}

}  // namespace
