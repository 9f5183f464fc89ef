// Module start-up: the attach and detach steps with a recording loader and
// release, against the real resource chain.
#include <gtest/gtest.h>
#include <string>
#include <vector>
#include "HyModule.h"

namespace {

struct LoaderLog
{
    CString directory = "C:\\HyUI\\lang\\de";
    HINSTANCE answer = nullptr;     // what the loader returns
    DWORD word = 0x5A5A;
    BOOL releaseAnswer = TRUE;
    std::vector<std::string> loads;  // paths asked for
    std::vector<HINSTANCE> loadOwners;
    std::vector<std::pair<HINSTANCE, HINSTANCE>> releases;
};
LoaderLog* g_log = nullptr;

void RecordingDirectory(CString& dir) { dir = g_log->directory; }
HINSTANCE RecordingLoad(LPCSTR path, HINSTANCE own, DWORD* word)
{
    g_log->loads.push_back(path);
    g_log->loadOwners.push_back(own);
    *word = g_log->word;
    return g_log->answer;
}
BOOL RecordingRelease(HINSTANCE res, HINSTANCE own)
{
    g_log->releases.push_back({ res, own });
    return g_log->releaseAnswer;
}
const HyModuleServices kRecording = { RecordingDirectory, RecordingLoad, RecordingRelease };

class ModuleStartTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        g_log = &log;
        own = ::GetModuleHandleA(nullptr);
        language = ::LoadLibraryExA("chain_second.dll", nullptr, LOAD_LIBRARY_AS_DATAFILE);
        ASSERT_NE(nullptr, language);
        log.answer = language;
    }
    void TearDown() override
    {
        while (state.attachCount > 0)
            HyModuleDetach(state, kRecording);
        ::FreeLibrary(language);
        g_log = nullptr;
    }
    LoaderLog log;
    HyModuleState state = {};
    HINSTANCE own = nullptr, language = nullptr;
};

TEST_F(ModuleStartTest, FirstAttachLoadsTheLanguageModuleFromTheThemeFolder)
{
    int entries = CDynLinkLibrary::GetCount();
    ASSERT_TRUE(HyModuleAttach(state, own, kRecording));
    ASSERT_EQ(1u, log.loads.size());
    EXPECT_EQ("C:\\HyUI\\lang\\de\\HyLangUI.dll", log.loads[0]);
    EXPECT_EQ(own, log.loadOwners[0]);
    EXPECT_EQ(own, state.hOwnInstance);
    EXPECT_EQ(language, state.hResource);
    EXPECT_EQ(0x5A5Au, state.loaderWord);
    EXPECT_EQ(1, state.attachCount);
    EXPECT_EQ(language, state.record.hResource);   // the record is the language module's
    EXPECT_EQ(entries + 1, CDynLinkLibrary::GetCount());
}

TEST_F(ModuleStartTest, FolderEndingInABackslashGetsASecondOne)
{
    log.directory = "C:\\lang\\";
    ASSERT_TRUE(HyModuleAttach(state, own, kRecording));
    EXPECT_EQ("C:\\lang\\\\HyLangUI.dll", log.loads.at(0));
}

TEST_F(ModuleStartTest, SecondAttachAddsAnEntryWithoutLoadingAgain)
{
    int entries = CDynLinkLibrary::GetCount();
    ASSERT_TRUE(HyModuleAttach(state, own, kRecording));
    ASSERT_TRUE(HyModuleAttach(state, (HINSTANCE)0x1234, kRecording));
    EXPECT_EQ(1u, log.loads.size());
    EXPECT_EQ(own, state.hOwnInstance);   // recorded at the first attach only
    EXPECT_EQ(2, state.attachCount);
    EXPECT_EQ(entries + 2, CDynLinkLibrary::GetCount());
    EXPECT_TRUE(state.record.bInitialized);
}

TEST_F(ModuleStartTest, ResourcesComeFromTheLanguageModuleThroughTheChain)
{
    ASSERT_TRUE(HyModuleAttach(state, own, kRecording));
    CString s;
    ASSERT_TRUE(s.LoadString(102));
    EXPECT_STREQ("second only", s);
    EXPECT_EQ(language, AfxFindResourceHandle(MAKEINTRESOURCE(200), RT_DIALOG));
}

TEST_F(ModuleStartTest, LastDetachReleasesAndFallsBackToTheOwnInstance)
{
    ASSERT_TRUE(HyModuleAttach(state, own, kRecording));
    ASSERT_TRUE(HyModuleAttach(state, own, kRecording));
    EXPECT_TRUE(HyModuleDetach(state, kRecording));
    EXPECT_TRUE(log.releases.empty());   // not the last detach yet
    EXPECT_EQ(language, state.hResource);
    EXPECT_TRUE(HyModuleDetach(state, kRecording));
    ASSERT_EQ(1u, log.releases.size());
    EXPECT_EQ(language, log.releases[0].first);
    EXPECT_EQ(own, log.releases[0].second);
    EXPECT_EQ(own, state.hResource);
    EXPECT_EQ(0, state.attachCount);
}

TEST_F(ModuleStartTest, ReleaseAnsweringZeroKeepsTheHandle)
{
    log.releaseAnswer = FALSE;
    ASSERT_TRUE(HyModuleAttach(state, own, kRecording));
    EXPECT_TRUE(HyModuleDetach(state, kRecording));
    EXPECT_EQ(1u, log.releases.size());
    EXPECT_EQ(language, state.hResource);
}

TEST_F(ModuleStartTest, DetachRemovesTheRecordsEntries)
{
    int entries = CDynLinkLibrary::GetCount();
    ASSERT_TRUE(HyModuleAttach(state, own, kRecording));
    EXPECT_TRUE(HyModuleDetach(state, kRecording));
    EXPECT_EQ(entries, CDynLinkLibrary::GetCount());
    EXPECT_FALSE(state.record.bInitialized);
}

TEST_F(ModuleStartTest, RefusedRecordFailsTheAttach)
{
    log.answer = nullptr;   // the framework refuses a record without a module
    int entries = CDynLinkLibrary::GetCount();
    EXPECT_FALSE(HyModuleAttach(state, own, kRecording));
    EXPECT_EQ(entries, CDynLinkLibrary::GetCount());
    EXPECT_EQ(1, state.attachCount);   // counted before the record was refused
    state.attachCount = 0;
}

TEST(InitHyUIDLLTest, AddsOneEntryForTheLibrary)
{
    int entries = CDynLinkLibrary::GetCount();
    CDynLinkLibrary* entry = InitHyUIDLL();
    ASSERT_NE(nullptr, entry);
    EXPECT_EQ(entries + 1, CDynLinkLibrary::GetCount());
    EXPECT_EQ(::GetModuleHandleA("HyUI.dll"), entry->m_hOwner);
    delete entry;
    EXPECT_EQ(entries, CDynLinkLibrary::GetCount());
}

}  // namespace
