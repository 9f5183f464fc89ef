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
    ASSERT_TRUE(s.LoadString(102));
    EXPECT_STREQ("second only", s);
    EXPECT_EQ(language, AfxFindResourceHandle(MAKEINTRESOURCE(200), RT_DIALOG));

    // A second attach adds an entry without loading again; the own instance
    // is recorded at the first attach only.
    ASSERT_TRUE(HyModuleAttach(state, (HINSTANCE)0x1234, kRecording));
    EXPECT_EQ(1u, log.loads.size());
    EXPECT_EQ(own, state.hOwnInstance);
    EXPECT_EQ(2, state.attachCount);
    EXPECT_EQ(entries + 2, CDynLinkLibrary::GetCount());
    EXPECT_TRUE(state.record.bInitialized);

    EXPECT_TRUE(HyModuleDetach(state, kRecording));
    EXPECT_TRUE(log.releases.empty());   // not the last detach yet
    EXPECT_EQ(language, state.hResource);
    EXPECT_TRUE(HyModuleDetach(state, kRecording));
    EXPECT_EQ((std::vector<std::pair<HINSTANCE, HINSTANCE>>{ { language, own } }), log.releases);
    EXPECT_EQ(own, state.hResource);
    EXPECT_EQ(0, state.attachCount);
    EXPECT_EQ(entries, CDynLinkLibrary::GetCount());
    EXPECT_FALSE(state.record.bInitialized);
}

TEST_F(ModuleStartTest, AFolderEndingInABackslashGetsASecondOneAndARefusedReleaseKeepsTheHandle)
{
    log.directory = "C:\\lang\\";
    log.releaseAnswer = FALSE;
    ASSERT_TRUE(HyModuleAttach(state, own, kRecording));
    EXPECT_EQ("C:\\lang\\\\HyLangUI.dll", log.loads.at(0));
    EXPECT_TRUE(HyModuleDetach(state, kRecording));
    EXPECT_EQ(1u, log.releases.size());
    EXPECT_EQ(language, state.hResource);
}

TEST_F(ModuleStartTest, ARefusedRecordFailsTheAttach)
{
    log.answer = nullptr;   // the framework refuses a record without a module
    const int entries = CDynLinkLibrary::GetCount();
    EXPECT_FALSE(HyModuleAttach(state, own, kRecording));
    EXPECT_EQ(entries, CDynLinkLibrary::GetCount());
    EXPECT_EQ(1, state.attachCount);   // counted before the record was refused
    state.attachCount = 0;

    CDynLinkLibrary* entry = InitHyUIDLL();   // the library's own entry
    ASSERT_NE(nullptr, entry);
    EXPECT_EQ(entries + 1, CDynLinkLibrary::GetCount());
    EXPECT_EQ(::GetModuleHandleA("HyUI.dll"), entry->m_hOwner);
    delete entry;
    EXPECT_EQ(entries, CDynLinkLibrary::GetCount());
}

}  // namespace
