// A component's document, its undo information and its view: what the
// category dialogs reach when they move or delete the records of a category.
#pragma once
#include <afxwin.h>
#include "HyHostExport.h"

class CBaseTable;

// Sent by the category dialogs to the component view when they have no
// record table of their own: move the records of category wParam to
// category lParam / delete (mark deleted) the records of category wParam.
// Both answer 0.
#define HYWM_CATEGORY_MOVE    0x2500
#define HYWM_CATEGORY_DELETE  0x2501

// The records of the last delete, kept so that it can be undone.
class HYHOST_API CUndoDeleteInfo
{
public:
    CUndoDeleteInfo();
    virtual ~CUndoDeleteInfo();

    BOOL IsEmpty() const;
    int GetCount() const;
    // Remembers a record that was just marked deleted.
    void Add(DWORD dwRecordId, WORD wCategory);
    // Entries of category wOld now belong to wNew.
    void ReplaceCategoryID(WORD wOld, WORD wNew);
    // Forgets the entries of a category that no longer exists.
    void DeleteAllInCategory(WORD wCategory);
    // Entries of one category.
    int CountInCategory(WORD wCategory) const;
    // Brings every remembered record back into its category and forgets them;
    // answers how many came back.
    int Undo(CBaseTable* pTable);
    void Clear();

private:
    struct Impl;
    Impl* m_pImpl;
    CUndoDeleteInfo(const CUndoDeleteInfo&) = delete;
    CUndoDeleteInfo& operator=(const CUndoDeleteInfo&) = delete;
};

class HYHOST_API CComponentDoc
{
public:
    CComponentDoc();
    virtual ~CComponentDoc();
    CUndoDeleteInfo* GetUndoObject() { return &m_undo; }

private:
    CUndoDeleteInfo m_undo;
};

// A component's view: a child window over a record table that moves or
// deletes the records of a category when asked by HYWM_CATEGORY_MOVE or
// HYWM_CATEGORY_DELETE, and keeps the document's undo information in step.
class HYHOST_API CTernUIComponentView : public CWnd
{
    DECLARE_DYNAMIC(CTernUIComponentView)
public:
    CTernUIComponentView();
    virtual ~CTernUIComponentView();

    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
    // Neither is owned.
    void SetTable(CBaseTable* pTable) { m_pTable = pTable; }
    CBaseTable* GetTable() const { return m_pTable; }
    void SetDocument(CComponentDoc* pDoc) { m_pDocument = pDoc; }
    CComponentDoc* GetDocument() const { return m_pDocument; }

protected:
    afx_msg LRESULT OnCategoryMove(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnCategoryDelete(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    CBaseTable* m_pTable;
    CComponentDoc* m_pDocument;
};
