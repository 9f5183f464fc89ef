// The subscription library: which categories of a component are handheld
// subscriptions. A component's list lives in one file, "<folder>\<string
// 430>", where the conduit-manager library gives the folder from the user
// name and the component's four-character creator code.
#pragma once
#include <afx.h>
#include "HyHostExport.h"

// A loaded subscription list: the file it came from and its entries.
class HYHOST_API CSubInfo
{
public:
    CSubInfo();
    ~CSubInfo();
    CString GetPath() const;
    int GetCount() const;
    CString GetCategory(int i) const;   // entry i's category name
    // Adds an entry (the gallery and tests use it); FALSE when present.
    BOOL AddCategory(LPCTSTR lpszCategory);

private:
    friend struct SubAccess;
    struct Impl;
    Impl* m_pImpl;
    CSubInfo(const CSubInfo&) = delete;
    CSubInfo& operator=(const CSubInfo&) = delete;
};

// Result codes of the Sub* functions.
enum : int
{
    HYSUB_OK = 0,
    HYSUB_NOT_FOUND = 1,       // SubFindInfo, SubRemoveInfo, SubDupSubscCategory: no such entry
    HYSUB_ERR_IO = 2,          // the file could not be read or written (left as it was)
    HYSUB_ERR_CORRUPT = 3,     // SubLoadInfo: not a subscription file (left untouched)
    HYSUB_ERR_EXISTS = 4,      // SubDupSubscCategory: the new name has an entry already
};

extern "C" {
// Reads the list at lpszPath into pInfo (a missing file is an empty list).
HYHOST_API int WINAPI SubLoadInfo(LPCSTR lpszPath, CSubInfo* pInfo);
// HYSUB_OK when lpszCategory (exact text) has an entry.
HYHOST_API int WINAPI SubFindInfo(CSubInfo* pInfo, LPCSTR lpszCategory);
// Removes the entry in memory.
HYHOST_API int WINAPI SubRemoveInfo(CSubInfo* pInfo, LPCSTR lpszCategory);
// Writes the list to its file, atomically.
HYHOST_API int WINAPI SubSaveInfo(CSubInfo* pInfo);
// Copies the entry of lpszOld under lpszNew in memory (a rename's first step).
HYHOST_API int WINAPI SubDupSubscCategory(CSubInfo* pInfo, LPCSTR lpszOld, LPCSTR lpszNew);
// A rename's second step: removes lpszOld's entry and writes the list.
HYHOST_API int WINAPI SubUpdateInfo(CSubInfo* pInfo, LPCSTR lpszOld);

// The conduit-manager library (ordinals 201 and 202 of HyHost.dll).
// The user's folder below the data folder; answers 0 and the length in *pcb,
// or -1 when the buffer is too small or the name is empty.
HYHOST_API int WINAPI CmGetUserFolder(LPCSTR lpszUser, LPSTR lpszFolder, int* pcb);
// The folder of the component whose creator code is dwCreator for that user:
// "<user folder>\<the code's four characters>"; created when missing.
HYHOST_API int WINAPI CmGetCreatorFolder(LPCSTR lpszUser, DWORD dwCreator, LPSTR lpszFolder, int* pcb);
}
