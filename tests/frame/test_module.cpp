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

TEST_F(ModuleStartTest, FirstAttachLoadsTheLanguageModuleLastDetachReleasesIt)
{
    const int entries = CDynLinkLibrary::GetCount();
    ASSERT_TRUE(HyModuleAttach(state, own, kRecording));
    EXPECT_EQ(std::vector<std::string>{ "C:\\HyUI\\lang\\de\\HyLangUI.dll" }, log.loads);
    EXPECT_EQ(std::vector<HINSTANCE>{ own }, log.loadOwners);
    EXPECT_EQ((std::vector<HINSTANCE>{ own, language, language }),
              (std::vector<HINSTANCE>{ state.hOwnInstance, state.hResource, state.record.hResource }));
    EXPECT_EQ(0x5A5Au, state.loaderWord);
    // Resources come from the language module through the chain.
    CString s;
    EXPECT_TRUE(s.LoadString(102) && s == "second only");

    // A second attach adds an entry without loading again; the own instance
    // is recorded at the first attach only.
    ASSERT_TRUE(HyModuleAttach(state, (HINSTANCE)0x1234, kRecording));
    EXPECT_TRUE(log.loads.size() == 1 && state.hOwnInstance == own && state.record.bInitialized);
    EXPECT_EQ((std::vector<int>{ 2, entries + 2 }), (std::vector<int>{ state.attachCount, CDynLinkLibrary::GetCount() }));

    EXPECT_TRUE(HyModuleDetach(state, kRecording));
    EXPECT_TRUE(log.releases.empty() && state.hResource == language);   // not the last detach yet
    EXPECT_TRUE(HyModuleDetach(state, kRecording));
    EXPECT_EQ((std::vector<std::pair<HINSTANCE, HINSTANCE>>{ { language, own } }), log.releases);
    EXPECT_TRUE(state.hResource == own && !state.record.bInitialized);
    EXPECT_EQ((std::vector<int>{ 0, entries }), (std::vector<int>{ state.attachCount, CDynLinkLibrary::GetCount() }));
}

TEST_F(ModuleStartTest, AFolderEndingInABackslashGetsASecondOneAndARefusedReleaseKeepsTheHandle)
{
    log.directory = "C:\\lang\\";
    log.releaseAnswer = FALSE;
    ASSERT_TRUE(HyModuleAttach(state, own, kRecording));
    EXPECT_EQ("C:\\lang\\\\HyLangUI.dll", log.loads.at(0));
    EXPECT_TRUE(HyModuleDetach(state, kRecording));
    EXPECT_TRUE(log.releases.size() == 1 && state.hResource == language);
}

TEST_F(ModuleStartTest, ARefusedRecordFailsTheAttach)
{
    log.answer = nullptr;   // the framework refuses a record without a module
    const int entries = CDynLinkLibrary::GetCount();
    EXPECT_FALSE(HyModuleAttach(state, own, kRecording));
    // Counted before the record was refused.
    EXPECT_EQ((std::vector<int>{ 1, entries }), (std::vector<int>{ state.attachCount, CDynLinkLibrary::GetCount() }));
    state.attachCount = 0;

    CDynLinkLibrary* entry = InitHyUIDLL();   // the library's own entry
    ASSERT_NE(nullptr, entry);
    EXPECT_TRUE(CDynLinkLibrary::GetCount() == entries + 1 && entry->m_hOwner == ::GetModuleHandleA("HyUI.dll"));
    delete entry;
    EXPECT_EQ(entries, CDynLinkLibrary::GetCount());
}

}  // namespace
