// A component's records, kept in "<data folder>\<component>.rec", and the
// iterator whose write walks save once at their end.
#include "HyBaseTable.h"
#include "HyCategoryMgr.h"
#include "HyStoreCodec.h"
#include "hoststore.h"

struct CBaseTable::Impl
{
    bool open = false;
    std::string path;
    hy::StoredRecords data;
    bool pending = false;                       // changed by a write walk, not yet saved
    std::vector<hy::StoredRecord> walkStart;    // the records as a write walk found them

    bool Save() const
    {
        std::vector<uint8_t> bytes;
        return hy::EncodeRecords(data, bytes) == hy::StoreError::Ok && hyhost::SaveAtomically(path, bytes);
    }
    hy::StoredRecord& Row(int n) { return data.records[size_t(n)]; }
};

// ---- CBaseRecord

CBaseRecord::CBaseRecord(CBaseTable* pTable, int nRow) : m_pTable(pTable), m_nRow(nRow), m_bWritable(FALSE) {}

DWORD CBaseRecord::GetId() const { return m_pTable->m_pImpl->Row(m_nRow).id; }
WORD CBaseRecord::GetCategoryId() const { return m_pTable->m_pImpl->Row(m_nRow).category; }
BOOL CBaseRecord::IsDeleted() const { return m_pTable->m_pImpl->Row(m_nRow).deleted; }
CString CBaseRecord::GetText() const { return m_pTable->m_pImpl->Row(m_nRow).text.c_str(); }

// Through a read-only iterator these two deliberately do nothing: a reader
// must not be able to leave unsaved changes behind.
void CBaseRecord::SetCategoryId(WORD wCategory)
{
    hy::StoredRecord& row = m_pTable->m_pImpl->Row(m_nRow);
    if (!m_bWritable || wCategory >= HYCAT_MAX_COUNT || row.category == wCategory) return;
    row.category = wCategory;
    m_pTable->m_pImpl->pending = true;
}

void CBaseRecord::MarkDeleted(BOOL bDeleted)
{
    hy::StoredRecord& row = m_pTable->m_pImpl->Row(m_nRow);
    if (!m_bWritable || row.deleted == (bDeleted != FALSE)) return;
    row.deleted = bDeleted != FALSE;
    m_pTable->m_pImpl->pending = true;
}

// ---- CBaseTable

CBaseTable::CBaseTable() : m_pImpl(new Impl) {}
CBaseTable::~CBaseTable() { delete m_pImpl; }

BOOL CBaseTable::Open(LPCTSTR lpszComponent)
{
    Impl fresh;
    fresh.path = hyhost::ComponentFile(lpszComponent, ".rec");
    *m_pImpl = Impl();
    if (fresh.path.empty()) return FALSE;
    std::vector<uint8_t> bytes;
    const hyhost::ReadResult read = hyhost::ReadWholeFile(fresh.path, bytes);
    if (read == hyhost::ReadResult::Failed) return FALSE;
    if (read == hyhost::ReadResult::Ok &&
        hy::DecodeRecords(bytes.data(), bytes.size(), fresh.data) != hy::StoreError::Ok)
        return FALSE;   // refused, and never written over: the table stays closed
    fresh.open = true;
    *m_pImpl = std::move(fresh);
    return TRUE;
}

BOOL CBaseTable::IsOpen() const { return m_pImpl->open; }
CString CBaseTable::GetFilePath() const { return m_pImpl->path.c_str(); }

DWORD CBaseTable::AddRecord(WORD wCategory, LPCTSTR lpszText)
{
    hy::StoredRecords& data = m_pImpl->data;
    const std::string text = lpszText != nullptr ? lpszText : "";
    if (!m_pImpl->open || wCategory >= HYCAT_MAX_COUNT || text.size() > hy::kStoreMaxText ||
        data.nextId == 0xFFFFFFFFu)
        return 0;
    const DWORD id = data.nextId;
    data.records.push_back({ id, wCategory, false, text });
    ++data.nextId;
    if (!m_pImpl->Save())
    {
        data.records.pop_back();
        --data.nextId;
        return 0;
    }
    return id;
}

BOOL CBaseTable::Save() { return m_pImpl->open && m_pImpl->Save(); }

int CBaseTable::GetRecordCount() const { return int(m_pImpl->data.records.size()); }

int CBaseTable::CountInCategory(WORD wCategory, BOOL bDeleted) const
{
    int n = 0;
    for (const hy::StoredRecord& r : m_pImpl->data.records)
        n += r.category == wCategory && r.deleted == (bDeleted != FALSE) ? 1 : 0;
    return n;
}

BOOL CBaseTable::UndeleteRecord(DWORD dwId, WORD wCategory)
{
    if (!m_pImpl->open || wCategory >= HYCAT_MAX_COUNT) return FALSE;
    for (hy::StoredRecord& r : m_pImpl->data.records)
    {
        if (r.id != dwId) continue;
        if (!r.deleted) return FALSE;   // nothing to take back
        const hy::StoredRecord before = r;
        r.deleted = false;
        r.category = wCategory;
        if (m_pImpl->Save()) return TRUE;
        r = before;
        return FALSE;
    }
    return FALSE;
}

// ---- CBaseIterator

CBaseIterator::CBaseIterator(CBaseTable* pTable)
    : m_pTable(pTable), m_pRecord(new CBaseRecord(pTable, -1)), m_bDirty(FALSE)
{
}

CBaseIterator::~CBaseIterator()
{
    EndWalk();
    delete m_pRecord;
}

// m_bDirty: this walk has handed out a writable record, so it owns the
// table's pending changes and saves them (or, when the save fails, puts the
// records back as the walk found them).
void CBaseIterator::EndWalk()
{
    m_pRecord->m_nRow = -1;
    m_pRecord->m_bWritable = FALSE;
    if (!m_bDirty || m_pTable == nullptr) return;
    m_bDirty = FALSE;
    CBaseTable::Impl& t = *m_pTable->m_pImpl;
    if (t.pending && !t.Save()) t.data.records = t.walkStart;
    t.pending = false;
    t.walkStart.clear();
}

CBaseRecord* CBaseIterator::FindFirst(UINT nFlags)
{
    EndWalk();
    return FindNext(nFlags);
}

CBaseRecord* CBaseIterator::FindNext(UINT nFlags)
{
    if (m_pTable == nullptr || !m_pTable->IsOpen()) return nullptr;
    CBaseTable::Impl& t = *m_pTable->m_pImpl;
    const int row = m_pRecord->m_nRow + 1;
    if (row >= int(t.data.records.size()))
    {
        EndWalk();
        return nullptr;
    }
    const bool writable = (nFlags & HYREC_WRITE) != 0;
    if (writable && !m_bDirty)
    {
        m_bDirty = TRUE;
        t.walkStart = t.data.records;
    }
    m_pRecord->m_nRow = row;
    m_pRecord->m_bWritable = writable;
    return m_pRecord;
}
