// A component's categories, kept in "<data folder>\<component>.cat".
#include "HyCategoryMgr.h"
#include "HyStoreCodec.h"
#include "hoststore.h"

CCategory::CCategory() : m_wIndex(0xFFFF) {}
CCategory::CCategory(const CCategory& other) : m_wIndex(other.m_wIndex), m_strName(other.m_strName) {}
CCategory& CCategory::operator=(const CCategory& other)
{
    m_wIndex = other.m_wIndex;
    m_strName = other.m_strName;
    return *this;
}
CCategory::~CCategory() {}

struct CCategoryMgr::Impl
{
    bool open = false;
    std::string path;
    bool used[HYCAT_MAX_COUNT] = {};
    std::string names[HYCAT_MAX_COUNT];
    int cursor = 0;   // the walk's next index

    bool Save() const
    {
        std::vector<hy::StoredCategory> list;
        for (int i = 0; i < HYCAT_MAX_COUNT; ++i)
            if (used[i]) list.push_back({ i, names[i] });
        std::vector<uint8_t> bytes;
        return hy::EncodeCategories(list, bytes) == hy::StoreError::Ok && hyhost::SaveAtomically(path, bytes);
    }

    // Another category (not except) named name, ignoring case as a person reads it.
    bool Taken(const CString& name, int except) const
    {
        for (int i = 0; i < HYCAT_MAX_COUNT; ++i)
            if (used[i] && i != except &&
                ::CompareStringA(LOCALE_USER_DEFAULT, NORM_IGNORECASE, names[i].c_str(), -1, name, -1) == CSTR_EQUAL)
                return true;
        return false;
    }

    int Fill(int index, CCategory* pCategory) const
    {
        if (pCategory != nullptr)
        {
            pCategory->SetIndex(WORD(index));
            pCategory->SetName(names[index].c_str());
        }
        return HYCAT_OK;
    }
};

namespace {
bool ValidName(const CString& name)
{
    const int n = name.GetLength();
    return n >= 1 && n <= HYCAT_MAX_NAME;
}
}  // namespace

CCategoryMgr::CCategoryMgr() : m_pImpl(new Impl) {}
CCategoryMgr::~CCategoryMgr() { delete m_pImpl; }

int CCategoryMgr::Open(LPCTSTR lpszComponent)
{
    Impl fresh;
    fresh.path = hyhost::ComponentFile(lpszComponent, ".cat");
    *m_pImpl = Impl();
    if (fresh.path.empty()) return HYCAT_ERR_NAME;
    std::vector<uint8_t> bytes;
    const hyhost::ReadResult read = hyhost::ReadWholeFile(fresh.path, bytes);
    if (read == hyhost::ReadResult::Failed) return HYCAT_ERR_IO;
    if (read == hyhost::ReadResult::Missing)
    {
        fresh.used[0] = true;
        fresh.names[0] = "Unfiled";
    }
    else
    {
        std::vector<hy::StoredCategory> list;
        if (hy::DecodeCategories(bytes.data(), bytes.size(), list) != hy::StoreError::Ok)
            return HYCAT_ERR_IO;   // refused, and never written over: the manager stays closed
        for (const hy::StoredCategory& c : list)
        {
            fresh.used[c.index] = true;
            fresh.names[c.index] = c.name;
        }
    }
    fresh.open = true;
    *m_pImpl = fresh;
    return HYCAT_OK;
}

BOOL CCategoryMgr::IsOpen() const { return m_pImpl->open; }
CString CCategoryMgr::GetFilePath() const { return m_pImpl->path.c_str(); }

int CCategoryMgr::GetCount() const
{
    int n = 0;
    for (bool used : m_pImpl->used) n += used ? 1 : 0;
    return n;
}

int CCategoryMgr::FindName(LPCTSTR lpszName, CCategory* pCategory) const
{
    if (!m_pImpl->open) return HYCAT_ERR_NOT_OPEN;
    if (lpszName == nullptr) return HYCAT_NOT_FOUND;
    const CString name(lpszName);
    for (int i = 0; i < HYCAT_MAX_COUNT; ++i)
        if (m_pImpl->used[i] &&
            ::CompareStringA(LOCALE_USER_DEFAULT, NORM_IGNORECASE, m_pImpl->names[i].c_str(), -1, name, -1) == CSTR_EQUAL)
            return m_pImpl->Fill(i, pCategory);
    return HYCAT_NOT_FOUND;
}

int CCategoryMgr::FindIndex(WORD wIndex, CCategory* pCategory) const
{
    if (!m_pImpl->open) return HYCAT_ERR_NOT_OPEN;
    if (wIndex >= HYCAT_MAX_COUNT || !m_pImpl->used[wIndex]) return HYCAT_NOT_FOUND;
    return m_pImpl->Fill(wIndex, pCategory);
}

int CCategoryMgr::FindFirst(CCategory* pCategory)
{
    m_pImpl->cursor = 0;
    return FindNext(pCategory);
}

int CCategoryMgr::FindNext(CCategory* pCategory)
{
    if (!m_pImpl->open) return HYCAT_ERR_NOT_OPEN;
    while (m_pImpl->cursor < HYCAT_MAX_COUNT)
    {
        const int i = m_pImpl->cursor++;
        if (m_pImpl->used[i]) return m_pImpl->Fill(i, pCategory);
    }
    return HYCAT_NOT_FOUND;
}

int CCategoryMgr::Add(CCategory& category)
{
    if (!m_pImpl->open) return HYCAT_ERR_NOT_OPEN;
    const CString name = category.GetName();
    if (!ValidName(name)) return HYCAT_ERR_NAME;
    if (m_pImpl->Taken(name, -1)) return HYCAT_ERR_DUPLICATE;
    int index = 1;
    while (index < HYCAT_MAX_COUNT && m_pImpl->used[index]) ++index;
    if (index == HYCAT_MAX_COUNT) return HYCAT_ERR_FULL;
    m_pImpl->used[index] = true;
    m_pImpl->names[index] = (LPCTSTR)name;
    if (!m_pImpl->Save())
    {
        m_pImpl->used[index] = false;
        m_pImpl->names[index].clear();
        return HYCAT_ERR_IO;
    }
    category.SetIndex(WORD(index));
    return HYCAT_OK;
}

int CCategoryMgr::Delete(WORD wIndex)
{
    if (!m_pImpl->open) return HYCAT_ERR_NOT_OPEN;
    if (wIndex == 0) return HYCAT_ERR_NAME;
    if (wIndex >= HYCAT_MAX_COUNT || !m_pImpl->used[wIndex]) return HYCAT_NOT_FOUND;
    m_pImpl->used[wIndex] = false;
    if (!m_pImpl->Save())
    {
        m_pImpl->used[wIndex] = true;
        return HYCAT_ERR_IO;
    }
    m_pImpl->names[wIndex].clear();
    return HYCAT_OK;
}

int CCategoryMgr::Rename(WORD wIndex, LPCTSTR lpszName)
{
    if (!m_pImpl->open) return HYCAT_ERR_NOT_OPEN;
    if (wIndex == 0) return HYCAT_ERR_NAME;
    if (wIndex >= HYCAT_MAX_COUNT || !m_pImpl->used[wIndex]) return HYCAT_NOT_FOUND;
    const CString name(lpszName != nullptr ? lpszName : "");
    if (!ValidName(name)) return HYCAT_ERR_NAME;
    if (m_pImpl->Taken(name, wIndex)) return HYCAT_ERR_DUPLICATE;
    const std::string old = m_pImpl->names[wIndex];
    m_pImpl->names[wIndex] = (LPCTSTR)name;
    if (!m_pImpl->Save())
    {
        m_pImpl->names[wIndex] = old;
        return HYCAT_ERR_IO;
    }
    return HYCAT_OK;
}
