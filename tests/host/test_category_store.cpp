// The host kit's storage on real files in a temporary data folder: category
// managers, record tables and their write walks, the component view's
// category messages, subscription lists, the conduit folders and the stored
// category swatches.
#include <gtest/gtest.h>

#include <afxwin.h>
#include "HyBaseTable.h"
#include "HyCategoryMgr.h"
#include "HyCommonUI.h"
#include "HyComponentDoc.h"
#include "HyDataFolder.h"
#include "HySubInfo.h"
#include "HyTheme.h"
#include "hytest.h"
#include "hytest_afx.h"
#include "hytest_env.h"

#include <string>
#include <vector>

namespace {

using hytest::FileBytes;

INT_PTR CALLBACK Quiet(HWND, UINT, WPARAM, LPARAM) { return FALSE; }

void WarmUp()
{
    hytest::HostFrame frame;
    ::DestroyWindow(::CreateDialogParamA(::GetModuleHandleA("HyHost.dll"), MAKEINTRESOURCEA(128), frame, Quiet, 0));
    CTernUIComponentView view;
    view.Create(WS_VISIBLE, CRect(0, 0, 50, 50), CWnd::FromHandle(frame), 1);
    view.DestroyWindow();
}

class Store : public GuardedTest<WarmUp>
{
protected:
    hytest::TempFolder data{ "hy-store" };
    std::string cat = data / "Memo.cat", rec = data / "Memo.rec";
    void SetUp() override { HySetDataFolder(data.path()); }

    std::string NameOf(CCategoryMgr& m, WORD index)
    {
        CCategory c;
        return m.FindIndex(index, &c) == HYCAT_OK ? std::string(c.GetName()) : "-";
    }
};

TEST_F(Store, CategoriesTakeTheLowestFreeIndexAndKeepNamesUniqueIgnoringCase)
{
    CCategoryMgr m;
    ASSERT_EQ(m.Open("Memo"), HYCAT_OK);
    EXPECT_EQ(std::string(m.GetFilePath()), cat);
    EXPECT_EQ(m.GetCount() * 100 + (FileBytes(cat).empty() ? 1 : 0), 101);   // "Unfiled" alone, not yet written
    EXPECT_EQ(NameOf(m, 0), "Unfiled");
    const struct { const char* name; int result; WORD index; } adds[] = {
        { "Work", HYCAT_OK, 1 }, { "Home", HYCAT_OK, 2 }, { "hOME", HYCAT_ERR_DUPLICATE, 0 },
        { "unfiled", HYCAT_ERR_DUPLICATE, 0 }, { "", HYCAT_ERR_NAME, 0 },
        { "Sixteen chars..", HYCAT_OK, 3 }, { "Sixteen chars...", HYCAT_ERR_NAME, 0 },
    };
    for (const auto& a : adds)
    {
        CCategory c;
        c.SetName(a.name);
        EXPECT_EQ(m.Add(c), a.result) << a.name;
        if (a.result == HYCAT_OK) EXPECT_EQ(c.GetIndex(), a.index) << a.name;
    }
    EXPECT_EQ(m.Delete(1), HYCAT_OK);
    CCategory play;
    play.SetName("Play");
    EXPECT_EQ(m.Add(play) * 100 + play.GetIndex(), 1);   // the freed 1, not 4
    EXPECT_EQ((std::vector<int>{ m.Delete(0), m.Rename(0, "Misc"), m.Rename(2, "PLAY"), m.Rename(2, "HOME"),
                                 m.Delete(9), m.FindName("Nothing", nullptr) }),
              (std::vector<int>{ HYCAT_ERR_NAME, HYCAT_ERR_NAME, HYCAT_ERR_DUPLICATE, HYCAT_OK, HYCAT_NOT_FOUND, 4 }));
    CCategory found;
    EXPECT_EQ(m.FindName("home", &found) * 100 + found.GetIndex(), 2);
    for (int i = m.GetCount(); i < HYCAT_MAX_COUNT; ++i)
    {
        CCategory c;
        c.SetName(("More " + std::to_string(i)).c_str());
        ASSERT_EQ(m.Add(c), HYCAT_OK) << i;
    }
    CCategory extra;
    extra.SetName("Extra");
    EXPECT_EQ(m.Add(extra), HYCAT_ERR_FULL);

    CCategoryMgr again;   // another reader sees every change, in index order
    ASSERT_EQ(again.Open("Memo"), HYCAT_OK);
    std::string walk;
    for (int r = again.FindFirst(&found); r == HYCAT_OK; r = again.FindNext(&found))
        walk += std::to_string(found.GetIndex()) + ":" + std::string(found.GetName()) + " ";
    EXPECT_EQ(walk.substr(0, 44), "0:Unfiled 1:Play 2:HOME 3:Sixteen chars.. 4:");
    EXPECT_EQ(again.GetCount(), 16);
}

TEST_F(Store, CorruptTruncatedOrForeignFilesAreRefusedAndLeftByteForByte)
{
    CCategoryMgr m;
    CBaseTable t;
    ASSERT_EQ(m.Open("Memo"), HYCAT_OK);
    CCategory c;
    c.SetName("Work");
    ASSERT_EQ(m.Add(c), HYCAT_OK);
    ASSERT_TRUE(t.Open("Memo") && t.AddRecord(1, "text") == 1);
    const std::string goodCat = FileBytes(cat), goodRec = FileBytes(rec);
    std::string flipped = goodCat;
    flipped.back() ^= 0x20;
    const std::string cases[] = { goodCat.substr(0, goodCat.size() - 1), flipped, "[Settings]\r\nplain text\r\n",
                                  goodRec, goodCat + '\0' };
    for (const std::string& bytes : cases)
    {
        ASSERT_TRUE(hytest::WriteFileBytes(cat, bytes) && hytest::WriteFileBytes(rec, bytes == goodRec ? goodCat : bytes));
        EXPECT_EQ(m.Open("Memo"), HYCAT_ERR_IO) << bytes.size();
        EXPECT_FALSE(m.IsOpen() || t.Open("Memo"));
        EXPECT_EQ(m.Add(c) * 10 + m.Delete(1), HYCAT_ERR_NOT_OPEN * 11);
        EXPECT_EQ(t.AddRecord(0, "x"), 0u);
        EXPECT_EQ(FileBytes(cat), bytes);
        EXPECT_EQ(FileBytes(rec), bytes == goodRec ? goodCat : bytes);
    }
}

TEST_F(Store, ASaveThatCannotReplaceTheFileLeavesItAndNoTemporaryFile)
{
    CCategoryMgr m;
    ASSERT_EQ(m.Open("Memo"), HYCAT_OK);
    CCategory c;
    c.SetName("Work");
    ASSERT_EQ(m.Add(c), HYCAT_OK);
    const std::string before = FileBytes(cat);
    HANDLE held = ::CreateFileA(cat.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(held, INVALID_HANDLE_VALUE);
    c.SetName("Home");
    EXPECT_EQ(m.Add(c), HYCAT_ERR_IO);
    EXPECT_EQ(m.Rename(1, "Job"), HYCAT_ERR_IO);
    EXPECT_EQ(m.Delete(1), HYCAT_ERR_IO);
    ::CloseHandle(held);
    EXPECT_EQ(FileBytes(cat), before);
    EXPECT_EQ(::GetFileAttributesA((cat + ".tmp").c_str()), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(m.GetCount() * 100 + m.FindName("Work", nullptr), 200);   // each change undone in memory
}

TEST_F(Store, RecordsKeepOrderAndIdsAndAWriteWalkSavesOnceAtItsEnd)
{
    {
        CBaseTable t;
        ASSERT_TRUE(t.Open("Memo"));
        EXPECT_EQ((std::vector<DWORD>{ t.AddRecord(2, "a"), t.AddRecord(1, "b"), t.AddRecord(2, "c"), t.AddRecord(16, "x") }),
                  (std::vector<DWORD>{ 1, 2, 3, 0 }));
    }
    CBaseTable t;
    ASSERT_TRUE(t.Open("Memo"));
    EXPECT_EQ(t.AddRecord(0, "d"), 4u);   // the next id outlives the table
    {
        CBaseIterator reader(&t);
        for (CBaseRecord* r = reader.FindFirst(); r != nullptr; r = reader.FindNext())
        {
            r->SetCategoryId(9);   // a reader changes nothing
            r->MarkDeleted();
        }
    }
    EXPECT_EQ(t.CountInCategory(2, FALSE) * 10 + t.CountInCategory(9, FALSE), 20);
    const std::string before = FileBytes(rec);
    std::string seen;
    {
        CBaseIterator walk(&t);
        for (CBaseRecord* r = walk.FindFirst(HYREC_WRITE); r != nullptr; r = walk.FindNext(HYREC_WRITE))
        {
            seen += std::to_string(r->GetId()) + std::string(r->GetText());
            if (r->GetCategoryId() == 2) r->SetCategoryId(5);
            if (r->GetId() == 2) r->MarkDeleted();
            EXPECT_EQ(FileBytes(rec), before) << "saved before the walk ended, at " << r->GetId();
        }
        EXPECT_NE(FileBytes(rec), before);
        walk.FindFirst(HYREC_WRITE)->SetCategoryId(7);   // a walk cut short saves when the iterator goes
    }
    EXPECT_EQ(seen, "1a2b3c4d");
    CBaseTable again;
    ASSERT_TRUE(again.Open("Memo"));
    EXPECT_EQ((std::vector<int>{ again.GetRecordCount(), again.CountInCategory(7, FALSE), again.CountInCategory(5, FALSE),
                                 again.CountInCategory(1, TRUE) }),
              (std::vector<int>{ 4, 1, 1, 1 }));
    EXPECT_TRUE(again.UndeleteRecord(2, 3));
    EXPECT_FALSE(again.UndeleteRecord(2, 3) || again.UndeleteRecord(99, 1));
}

TEST_F(Store, TheViewMovesAndDeletesACategorysRecordsAndKeepsTheUndoInStep)
{
    CBaseTable t;
    ASSERT_TRUE(t.Open("Memo"));
    for (WORD c : { 1, 1, 2, 1 }) t.AddRecord(c, "r");
    CComponentDoc doc;
    {
        CBaseIterator walk(&t);   // record 2 was deleted earlier, and its undo kept
        for (CBaseRecord* r = walk.FindFirst(HYREC_WRITE); r != nullptr; r = walk.FindNext(HYREC_WRITE))
            if (r->GetId() == 2) r->MarkDeleted();
    }
    doc.GetUndoObject()->Add(2, 1);
    doc.GetUndoObject()->Add(3, 2);
    hytest::HostFrame frame;
    CTernUIComponentView view;
    ASSERT_TRUE(view.Create(WS_VISIBLE, CRect(0, 0, 100, 100), CWnd::FromHandle(frame), 7));
    view.SetTable(&t);
    view.SetDocument(&doc);
    EXPECT_EQ(view.SendMessage(HYWM_CATEGORY_MOVE, 1, 4), 0);
    CBaseTable moved;
    ASSERT_TRUE(moved.Open("Memo"));
    EXPECT_EQ((std::vector<int>{ moved.CountInCategory(4, FALSE), moved.CountInCategory(4, TRUE), moved.CountInCategory(1, FALSE),
                                 doc.GetUndoObject()->CountInCategory(4), doc.GetUndoObject()->CountInCategory(1) }),
              (std::vector<int>{ 2, 1, 0, 1, 0 }));
    EXPECT_EQ(view.SendMessage(HYWM_CATEGORY_DELETE, 4, 0), 0);
    CBaseTable deleted;
    ASSERT_TRUE(deleted.Open("Memo"));
    EXPECT_EQ((std::vector<int>{ deleted.CountInCategory(4, FALSE), deleted.CountInCategory(4, TRUE), deleted.CountInCategory(2, FALSE),
                                 doc.GetUndoObject()->GetCount() }),
              (std::vector<int>{ 0, 3, 1, 1 }));
    EXPECT_EQ(doc.GetUndoObject()->Undo(&t), 0);   // record 3 is live: nothing to bring back
    view.DestroyWindow();
}

TEST_F(Store, SubscriptionListsPersistAndAFailedWriteLeavesTheFileAsItWas)
{
    const std::string path = data / "Subscriptions.dat";
    CSubInfo info;
    ASSERT_EQ(SubLoadInfo(path.c_str(), &info), HYSUB_OK);
    EXPECT_EQ(info.GetCount(), 0);
    EXPECT_TRUE(info.AddCategory("Work") && info.AddCategory("Home") && !info.AddCategory("Work"));
    ASSERT_EQ(SubSaveInfo(&info), HYSUB_OK);
    EXPECT_EQ((std::vector<int>{ SubFindInfo(&info, "Work"), SubFindInfo(&info, "work"),
                                 SubDupSubscCategory(&info, "Work", "Job"), SubDupSubscCategory(&info, "Work", "Home"),
                                 SubDupSubscCategory(&info, "None", "New"), SubUpdateInfo(&info, "Work") }),
              (std::vector<int>{ HYSUB_OK, HYSUB_NOT_FOUND, HYSUB_OK, HYSUB_ERR_EXISTS, HYSUB_NOT_FOUND, HYSUB_OK }));
    CSubInfo read;
    ASSERT_EQ(SubLoadInfo(path.c_str(), &read), HYSUB_OK);
    EXPECT_EQ(std::string(read.GetCategory(0)) + "," + std::string(read.GetCategory(1)) + "," +
                  std::to_string(read.GetCount()), "Home,Job,2");

    const std::string saved = FileBytes(path);
    HANDLE held = ::CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_EQ(SubUpdateInfo(&read, "Job"), HYSUB_ERR_IO);   // the file cannot be replaced while held
    ::CloseHandle(held);
    ::CreateDirectoryA((path + ".tmp").c_str(), nullptr);   // a folder where the temporary file goes
    EXPECT_EQ(SubRemoveInfo(&read, "Home") * 10 + SubSaveInfo(&read), HYSUB_ERR_IO);
    ::RemoveDirectoryA((path + ".tmp").c_str());
    EXPECT_EQ(FileBytes(path), saved);
    EXPECT_EQ(SubFindInfo(&read, "Job"), HYSUB_OK);   // put back when its save failed

    std::string corrupt = saved;
    corrupt[corrupt.size() - 2] ^= 1;
    ASSERT_TRUE(hytest::WriteFileBytes(path, corrupt));
    EXPECT_EQ(SubLoadInfo(path.c_str(), &info), HYSUB_ERR_CORRUPT);
    EXPECT_EQ(FileBytes(path), corrupt);
}

TEST_F(Store, ConduitFoldersAnswerByOrdinalAndNameTheCreatorFromItsHighByte)
{
    HMODULE host = ::GetModuleHandleA("HyHost.dll");
    typedef int(WINAPI * UserFn)(LPCSTR, LPSTR, int*);
    typedef int(WINAPI * CreatorFn)(LPCSTR, DWORD, LPSTR, int*);
    const auto user = reinterpret_cast<UserFn>(::GetProcAddress(host, MAKEINTRESOURCEA(201)));
    const auto creator = reinterpret_cast<CreatorFn>(::GetProcAddress(host, MAKEINTRESOURCEA(202)));
    ASSERT_TRUE(user == &CmGetUserFolder && creator == &CmGetCreatorFolder);
    char folder[MAX_PATH];
    int cb = MAX_PATH;
    ASSERT_EQ(creator("Ann", 0x48794361, folder, &cb), 0);
    EXPECT_EQ(std::string(folder) + "|" + std::to_string(cb), data / "Ann\\HyCa|" + std::to_string(strlen(folder)));
    EXPECT_NE(::GetFileAttributesA(folder) & FILE_ATTRIBUTE_DIRECTORY, 0u);
    cb = 4;
    EXPECT_EQ((std::vector<int>{ user("Ann", folder, &cb), cb, user("", folder, &cb), user("..", folder, &cb) }),
              (std::vector<int>{ -1, int(strlen(data.path())) + 5, -1, -1 }));
}

TEST_F(Store, CategorySwatchesAreKeptInTheProfileAndAnotherWritersChangeIsSeen)
{
    const hytest::TempFile profile("hy-swatches.ini");
    HySetProfilePath(profile.path());
    HYThemeResetCategorySwatches();
    ASSERT_TRUE(HYThemeSetCategorySwatch(3, 9));
    EXPECT_EQ(::GetPrivateProfileIntA("Category Colors", "Category3", 0, profile.path()), 9u);
    // Another process rewrites the profile.
    ASSERT_TRUE(hytest::WriteFileBytes(profile.path(), "[Category Colors]\r\nCategory5=12\r\nCategory6=99\r\n"
                                                       "Category0=x\r\n"));
    EXPECT_EQ((std::vector<int>{ HYThemeSwatchOfCategory(3), HYThemeSwatchOfCategory(5), HYThemeSwatchOfCategory(6),
                                 HYThemeSwatchOfCategory(0) }),
              (std::vector<int>{ 3, 12, 6, 16 }));
    HYThemeResetCategorySwatches();
    EXPECT_EQ(::GetPrivateProfileIntA("Category Colors", "Category5", 0, profile.path()), 0u);
    EXPECT_EQ(HYThemeSwatchOfCategory(5), 5);
    HySetProfilePath(nullptr);
}

// The delete confirmation drops its subscription notice by hiding it and
// moving everything below up 30 pixels: the notice's band must be exactly
// that at the dialog font.
TEST_F(Store, TheDeleteConfirmationsNoticeIsABandOfThirtyPixelsAboveTheRadios)
{
    hytest::HostFrame frame;
    HWND dlg = ::CreateDialogParamA(::GetModuleHandleA("HyHost.dll"), MAKEINTRESOURCEA(128), frame, Quiet, 0);
    ASSERT_NE(dlg, nullptr);
    auto top = [&](int id) { RECT r; ::GetWindowRect(::GetDlgItem(dlg, id), &r); return r; };
    const RECT notice = top(431), keep = top(394);
    EXPECT_EQ(keep.top - notice.top, 30);
    EXPECT_LE(notice.bottom, keep.top);
    ::DestroyWindow(dlg);
}

}  // namespace
