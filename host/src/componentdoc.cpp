// A component's undo information, its document and its view, which moves or
// deletes the records of a category when the category dialogs ask.
#include "HyComponentDoc.h"
#include "HyBaseTable.h"
#include "HyCategoryMgr.h"

#include <algorithm>
#include <vector>

struct CUndoDeleteInfo::Impl
{
    struct Entry
    {
        DWORD id;
        WORD category;
    };
    std::vector<Entry> entries;
};

CUndoDeleteInfo::CUndoDeleteInfo() : m_pImpl(new Impl) {}
CUndoDeleteInfo::~CUndoDeleteInfo() { delete m_pImpl; }
BOOL CUndoDeleteInfo::IsEmpty() const { return m_pImpl->entries.empty(); }
int CUndoDeleteInfo::GetCount() const { return int(m_pImpl->entries.size()); }
void CUndoDeleteInfo::Add(DWORD dwRecordId, WORD wCategory) { m_pImpl->entries.push_back({ dwRecordId, wCategory }); }
void CUndoDeleteInfo::Clear() { m_pImpl->entries.clear(); }

void CUndoDeleteInfo::ReplaceCategoryID(WORD wOld, WORD wNew)
{
    for (Impl::Entry& e : m_pImpl->entries)
        if (e.category == wOld) e.category = wNew;
}

void CUndoDeleteInfo::DeleteAllInCategory(WORD wCategory)
{
    std::vector<Impl::Entry>& v = m_pImpl->entries;
    v.erase(std::remove_if(v.begin(), v.end(), [&](const Impl::Entry& e) { return e.category == wCategory; }), v.end());
}

int CUndoDeleteInfo::CountInCategory(WORD wCategory) const
{
    return int(std::count_if(m_pImpl->entries.begin(), m_pImpl->entries.end(),
                             [&](const Impl::Entry& e) { return e.category == wCategory; }));
}

int CUndoDeleteInfo::Undo(CBaseTable* pTable)
{
    int restored = 0;
    if (pTable != nullptr)
        for (const Impl::Entry& e : m_pImpl->entries) restored += pTable->UndeleteRecord(e.id, e.category) ? 1 : 0;
    Clear();
    return restored;
}

CComponentDoc::CComponentDoc() {}
CComponentDoc::~CComponentDoc() {}

IMPLEMENT_DYNAMIC(CTernUIComponentView, CWnd)

BEGIN_MESSAGE_MAP(CTernUIComponentView, CWnd)
    ON_MESSAGE(HYWM_CATEGORY_MOVE, OnCategoryMove)
    ON_MESSAGE(HYWM_CATEGORY_DELETE, OnCategoryDelete)
END_MESSAGE_MAP()

CTernUIComponentView::CTernUIComponentView() : m_pTable(nullptr), m_pDocument(nullptr) {}
CTernUIComponentView::~CTernUIComponentView() {}

BOOL CTernUIComponentView::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CWnd::Create(AfxRegisterWndClass(0), "", dwStyle | WS_CHILD, rect, pParentWnd, nID);
}

// Every record of the old category moves, deleted ones too, so that an undo
// never brings a record back into a category that is gone.
LRESULT CTernUIComponentView::OnCategoryMove(WPARAM wParam, LPARAM lParam)
{
    const WORD from = WORD(wParam), to = WORD(lParam);
    if (m_pTable == nullptr || from >= HYCAT_MAX_COUNT || to >= HYCAT_MAX_COUNT) return 0;
    CBaseIterator walk(m_pTable);
    for (CBaseRecord* r = walk.FindFirst(HYREC_WRITE); r != nullptr; r = walk.FindNext(HYREC_WRITE))
        if (r->GetCategoryId() == from) r->SetCategoryId(to);
    CUndoDeleteInfo* undo = m_pDocument != nullptr ? m_pDocument->GetUndoObject() : nullptr;
    if (undo != nullptr && !undo->IsEmpty()) undo->ReplaceCategoryID(from, to);
    return 0;
}

LRESULT CTernUIComponentView::OnCategoryDelete(WPARAM wParam, LPARAM)
{
    const WORD category = WORD(wParam);
    if (m_pTable == nullptr || category >= HYCAT_MAX_COUNT) return 0;
    CBaseIterator walk(m_pTable);
    for (CBaseRecord* r = walk.FindFirst(HYREC_WRITE); r != nullptr; r = walk.FindNext(HYREC_WRITE))
        if (r->GetCategoryId() == category && !r->IsDeleted()) r->MarkDeleted(TRUE);
    CUndoDeleteInfo* undo = m_pDocument != nullptr ? m_pDocument->GetUndoObject() : nullptr;
    if (undo != nullptr) undo->DeleteAllInCategory(category);
    return 0;
}
