// The table library's records: one table per component, read from and
// written to the component's record file. A record has an id, a category
// index, a deleted mark and a text. Records keep the order in which they
// were added; a category change never reorders them, and deleted records
// stay in the file (marked), so an undo can bring them back.
//
// Changes made through an iterator opened with HYREC_WRITE are saved once,
// when the walk ends (FindFirst/FindNext answers NULL) or the iterator is
// destroyed, not once per record.
#pragma once
#include <afx.h>
#include "HyHostExport.h"

class CBaseTable;

enum : UINT
{
    HYREC_READ = 0,
    HYREC_WRITE = 1,           // records may be changed; the table saves at the end of the walk
};

class HYHOST_API CBaseRecord
{
public:
    DWORD GetId() const;
    WORD GetCategoryId() const;
    void SetCategoryId(WORD wCategory);      // only through a HYREC_WRITE iterator
    BOOL IsDeleted() const;
    void MarkDeleted(BOOL bDeleted = TRUE);  // only through a HYREC_WRITE iterator
    CString GetText() const;

private:
    friend class CBaseTable;
    friend class CBaseIterator;
    CBaseRecord(CBaseTable* pTable, int nRow);
    CBaseTable* m_pTable;
    int m_nRow;
    BOOL m_bWritable;
};

class HYHOST_API CBaseTable
{
public:
    CBaseTable();
    virtual ~CBaseTable();

    // Reads the component's record file (missing: an empty table). A corrupt,
    // truncated or foreign file is refused (FALSE) and left untouched.
    BOOL Open(LPCTSTR lpszComponent);
    BOOL IsOpen() const;
    CString GetFilePath() const;

    // Appends a live record and saves; answers its id (0 on failure). A host
    // that adds many at once passes bSave FALSE and calls Save at the end.
    DWORD AddRecord(WORD wCategory, LPCTSTR lpszText, BOOL bSave = TRUE);
    // Writes the table now; FALSE when the save failed (the file is unchanged).
    BOOL Save();
    int GetRecordCount() const;               // live and deleted
    // Records of one category: live ones, or deleted ones with bDeleted.
    int CountInCategory(WORD wCategory, BOOL bDeleted) const;
    // Takes back a deletion (the undo of a delete); FALSE when no such record.
    BOOL UndeleteRecord(DWORD dwId, WORD wCategory);

private:
    friend class CBaseRecord;
    friend class CBaseIterator;
    struct Impl;
    Impl* m_pImpl;
    CBaseTable(const CBaseTable&) = delete;
    CBaseTable& operator=(const CBaseTable&) = delete;
};

class HYHOST_API CBaseIterator
{
public:
    explicit CBaseIterator(CBaseTable* pTable);
    ~CBaseIterator();   // ends the walk: saves once when a record changed

    // The first / next record in record order (deleted ones included), or
    // NULL at the end, which also ends the walk.
    CBaseRecord* FindFirst(UINT nFlags = HYREC_READ);
    CBaseRecord* FindNext(UINT nFlags = HYREC_READ);

private:
    void EndWalk();
    CBaseTable* m_pTable;
    CBaseRecord* m_pRecord;
    BOOL m_bDirty;
    CBaseIterator(const CBaseIterator&) = delete;
    CBaseIterator& operator=(const CBaseIterator&) = delete;
};
