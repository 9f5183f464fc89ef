// The table library's categories: one manager per component, sixteen slots
// (indexes 0..15). Index 0 is the catch-all category that records fall back
// to; it always exists and cannot be renamed or deleted. Every change is
// written to the component's category file at once; a change whose save
// fails is undone in memory and answered with HYCAT_ERR_IO.
#pragma once
#include <afx.h>
#include "HyHostExport.h"

// Result codes of CCategoryMgr. FindName's "no such name" is 4.
enum : int
{
    HYCAT_OK = 0,
    HYCAT_ERR_FULL = 1,        // Add: all sixteen indexes are taken
    HYCAT_ERR_NAME = 2,        // empty, longer than 15 characters, or index 0 touched
    HYCAT_ERR_DUPLICATE = 3,   // Add/Rename: another category has that name (ignoring case)
    HYCAT_NOT_FOUND = 4,       // FindName/FindIndex/FindFirst/FindNext: none
    HYCAT_ERR_IO = 5,          // the category file could not be read or written
    HYCAT_ERR_NOT_OPEN = 6,    // Open was not called or failed
};

enum : int
{
    HYCAT_MAX_COUNT = 16,      // indexes 0..15, the catch-all included
    HYCAT_MAX_NAME = 15,       // characters of a name
};

class HYHOST_API CCategory
{
public:
    CCategory();
    CCategory(const CCategory& other);
    CCategory& operator=(const CCategory& other);
    virtual ~CCategory();

    WORD GetIndex() const { return m_wIndex; }
    const CString& GetName() const { return m_strName; }
    void SetName(LPCTSTR lpszName) { m_strName = lpszName; }
    // Set by the manager when it adds or finds the category.
    void SetIndex(WORD wIndex) { m_wIndex = wIndex; }

private:
    WORD m_wIndex;     // 0xFFFF until the manager gives it one
    CString m_strName;
};

class HYHOST_API CCategoryMgr
{
public:
    CCategoryMgr();
    virtual ~CCategoryMgr();

    // Reads the component's category file from the data folder (a missing
    // file gives the catch-all category alone, named "Unfiled", not yet
    // written). A corrupt, truncated or foreign file is refused with
    // HYCAT_ERR_IO and left untouched; the manager then stays closed.
    // Opening again re-reads the file (another process may have changed it).
    int Open(LPCTSTR lpszComponent);
    BOOL IsOpen() const;
    // The component's category file.
    CString GetFilePath() const;

    // Categories held, the catch-all index 0 included.
    int GetCount() const;
    // By name, ignoring case. HYCAT_OK and *pCategory filled, else HYCAT_NOT_FOUND (4).
    int FindName(LPCTSTR lpszName, CCategory* pCategory) const;
    int FindIndex(WORD wIndex, CCategory* pCategory) const;
    // Walk in index order, index 0 first. HYCAT_NOT_FOUND after the last.
    int FindFirst(CCategory* pCategory);
    int FindNext(CCategory* pCategory);

    // Gives the category the lowest free index (written into it) and saves.
    int Add(CCategory& category);
    // Removes a category (not 0) and saves. Records keep their index: moving
    // or deleting them is the caller's business.
    int Delete(WORD wIndex);
    // Renames index wIndex (not 0); a name held by another category is refused.
    int Rename(WORD wIndex, LPCTSTR lpszName);

private:
    struct Impl;
    Impl* m_pImpl;
    CCategoryMgr(const CCategoryMgr&) = delete;
    CCategoryMgr& operator=(const CCategoryMgr&) = delete;
};
