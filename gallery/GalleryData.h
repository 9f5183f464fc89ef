// The gallery's components in a data folder: the memos and the calendar's
// events, each with its categories and records, as a host keeps them. The
// PNG mode works on fresh sample data in a folder of its own; an interactive
// gallery on the folder given by --data (or the host kit's default), which
// keeps what a person changes and may be shared by two galleries.
#pragma once
#include <afxwin.h>
#include <HyBaseTable.h>
#include <HyCategoryMgr.h>

struct GalleryCategoryStore
{
    CString folder;
    CCategoryMgr memos, events;
    CBaseTable memoTable, eventTable;
    // Reads every file again.
    void Reopen();
};

// Chooses the data folder before any page opens it: dir empty and fresh set
// gives a new temporary folder (removed at exit); empty otherwise gives the
// host kit's default.
void GallerySetDataFolder(const CString& dir, bool fresh);
// Opens the store, writing the sample data into a folder that has none.
void GalleryOpenCategoryData();
GalleryCategoryStore& GalleryCategoryData();
