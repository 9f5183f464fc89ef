#include "GalleryData.h"
#include <iterator>
#include <HyCommonUI.h>
#include <HyDataFolder.h>
#include <HySubInfo.h>
#include <HyBaseDialog.h>
#include "HyCatDlgRes.h"

namespace {

CString g_temporary;   // the PNG mode's own folder, removed at exit

struct SampleCategory
{
    LPCTSTR name;
    LPCTSTR records[4];
};

const SampleCategory kMemos[] = {
    { _T("Business"), { _T("Quarterly figures"), _T("Supplier contacts"), _T("Meeting notes"), nullptr } },
    { _T("Personal"), { _T("Gift ideas"), _T("Library books"), nullptr } },
    { _T("Travel"), { _T("Packing list"), _T("Train times"), _T("Hotel booking"), nullptr } },
    { _T("Ideas"), { _T("Garden plan"), nullptr } },
};
const SampleCategory kEvents[] = {
    { _T("Work"), { _T("Team meeting"), _T("Review"), nullptr } },
    { _T("Family"), { _T("Dinner at Grandma's"), nullptr } },
    { _T("Holidays"), { _T("Summer trip"), nullptr } },
    { _T("Birthdays"), { _T("Alex turns 30"), nullptr } },
    { _T("Sport"), { _T("Swimming"), _T("Football"), nullptr } },
    { _T("Health"), { _T("Dentist"), nullptr } },
};

void Seed(CCategoryMgr& manager, CBaseTable& table, const SampleCategory* samples, int count, LPCTSTR unfiled)
{
    for (int i = 0; i < count; ++i)
    {
        CCategory category;
        category.SetName(samples[i].name);
        if (manager.Add(category) != HYCAT_OK) continue;
        for (int r = 0; r < 4 && samples[i].records[r] != nullptr; ++r)
            table.AddRecord(category.GetIndex(), samples[i].records[r]);
    }
    table.AddRecord(0, unfiled);
}

void RemoveFolder(const CString& dir)
{
    WIN32_FIND_DATA fd;
    HANDLE h = ::FindFirstFile(dir + _T("\\*"), &fd);
    if (h != INVALID_HANDLE_VALUE)
    {
        do
        {
            CString name = fd.cFileName, path = dir + _T("\\") + name;
            if (name == _T(".") || name == _T("..")) continue;
            if (fd.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) RemoveFolder(path);
            else ::DeleteFile(path);
        } while (::FindNextFile(h, &fd));
        ::FindClose(h);
    }
    ::RemoveDirectory(dir);
}

struct TemporaryFolderRemover
{
    ~TemporaryFolderRemover()
    {
        if (g_temporary.IsEmpty()) return;
        HySetDataFolder(nullptr);
        HySetProfilePath(nullptr);
        RemoveFolder(g_temporary);
    }
} g_remover;

}  // namespace

GalleryCategoryStore& GalleryCategoryData()
{
    static GalleryCategoryStore store;
    return store;
}

void GalleryCategoryStore::Reopen()
{
    memos.Open(_T("memo"));
    events.Open(_T("calendar"));
    memoTable.Open(_T("memo"));
    eventTable.Open(_T("calendar"));
}

void GallerySetDataFolder(const CString& dir, bool fresh)
{
    CString folder = dir;
    if (folder.IsEmpty() && fresh)
    {
        TCHAR temp[MAX_PATH];
        ::GetTempPath(MAX_PATH, temp);
        folder.Format(_T("%shygallery-%lu"), temp, ::GetCurrentProcessId());
        RemoveFolder(folder);
        g_temporary = folder;
    }
    if (folder.IsEmpty()) return;
    ::CreateDirectory(folder, nullptr);
    HySetDataFolder(folder);
    // The category colours live beside the data, so galleries that share
    // the data share them too.
    HySetProfilePath(folder + _T("\\HyHost.ini"));   // read afresh, never reset: it keeps what a person chose
}

void GalleryOpenCategoryData()
{
    GalleryCategoryStore& store = GalleryCategoryData();
    if (store.memos.IsOpen()) return;
    HyGetDataFolder(store.folder);
    store.Reopen();
    if (store.memos.IsOpen() && store.memos.GetCount() == 1 && store.memoTable.GetRecordCount() == 0)
    {
        Seed(store.memos, store.memoTable, kMemos, (int)std::size(kMemos), _T("Loose note"));
        // "Travel" is synchronised with the handheld of the gallery's user.
        char folder[MAX_PATH];
        int size = MAX_PATH;
        if (CmGetCreatorFolder("Rosalind Abbott", HY_CREATOR_MEMO, folder, &size) == 0)
        {
            CSubInfo subscriptions;
            CString path = CString(folder) + _T("\\") + CBaseDialog::LoadHostString(IDS_HOST_SUBSCRIPTION_FILE);
            if (SubLoadInfo(path, &subscriptions) == HYSUB_OK && subscriptions.AddCategory(_T("Travel")))
                SubSaveInfo(&subscriptions);
        }
    }
    if (store.events.IsOpen() && store.events.GetCount() == 1 && store.eventTable.GetRecordCount() == 0)
        Seed(store.events, store.eventTable, kEvents, (int)std::size(kEvents), _T("Unplanned"));
}
