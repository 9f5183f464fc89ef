// Subscription lists (files in the store's subscription format) and the
// conduit-manager folders they live in.
#include "HySubInfo.h"
#include "HyStoreCodec.h"
#include "hoststore.h"

#include <algorithm>
#include <string>
#include <vector>

struct CSubInfo::Impl
{
    std::string path;
    std::vector<std::string> names;
};

struct SubAccess
{
    static CSubInfo::Impl& Of(CSubInfo* p) { return *p->m_pImpl; }
};

CSubInfo::CSubInfo() : m_pImpl(new Impl) {}
CSubInfo::~CSubInfo() { delete m_pImpl; }
CString CSubInfo::GetPath() const { return m_pImpl->path.c_str(); }
int CSubInfo::GetCount() const { return int(m_pImpl->names.size()); }

CString CSubInfo::GetCategory(int i) const
{
    return i >= 0 && i < GetCount() ? CString(m_pImpl->names[size_t(i)].c_str()) : CString();
}

BOOL CSubInfo::AddCategory(LPCTSTR lpszCategory)
{
    if (lpszCategory == nullptr || *lpszCategory == 0) return FALSE;
    std::vector<std::string>& v = m_pImpl->names;
    if (std::find(v.begin(), v.end(), lpszCategory) != v.end()) return FALSE;
    v.push_back(lpszCategory);
    return TRUE;
}

namespace {

std::vector<std::string>::iterator Find(CSubInfo* pInfo, LPCSTR name)
{
    std::vector<std::string>& v = SubAccess::Of(pInfo).names;
    return name == nullptr ? v.end() : std::find(v.begin(), v.end(), name);
}

bool Save(CSubInfo* pInfo)
{
    const auto& info = SubAccess::Of(pInfo);
    std::vector<uint8_t> bytes;
    return !info.path.empty() && hy::EncodeSubscriptions(info.names, bytes) == hy::StoreError::Ok &&
           hyhost::SaveAtomically(info.path, bytes);
}

// Copies text into the caller's buffer of *pcb bytes; -1 and the size needed
// in *pcb when it does not fit.
int Answer(const std::string& text, LPSTR buffer, int* pcb)
{
    if (pcb == nullptr) return -1;
    const int need = int(text.size()) + 1;
    if (buffer == nullptr || *pcb < need)
    {
        *pcb = need;
        return -1;
    }
    std::copy(text.c_str(), text.c_str() + need, buffer);
    *pcb = need - 1;
    return 0;
}

}  // namespace

int WINAPI SubLoadInfo(LPCSTR lpszPath, CSubInfo* pInfo)
{
    if (lpszPath == nullptr || *lpszPath == 0 || pInfo == nullptr) return HYSUB_ERR_IO;
    std::vector<uint8_t> bytes;
    std::vector<std::string> names;
    switch (hyhost::ReadWholeFile(lpszPath, bytes))
    {
    case hyhost::ReadResult::Failed: return HYSUB_ERR_IO;
    case hyhost::ReadResult::Missing: break;   // no list yet: empty
    case hyhost::ReadResult::Ok:
        if (hy::DecodeSubscriptions(bytes.data(), bytes.size(), names) != hy::StoreError::Ok)
            return HYSUB_ERR_CORRUPT;   // pInfo keeps what it had, so nothing can save over the file
        break;
    }
    SubAccess::Of(pInfo).path = lpszPath;
    SubAccess::Of(pInfo).names.swap(names);
    return HYSUB_OK;
}

int WINAPI SubFindInfo(CSubInfo* pInfo, LPCSTR lpszCategory)
{
    return pInfo != nullptr && Find(pInfo, lpszCategory) != SubAccess::Of(pInfo).names.end() ? HYSUB_OK
                                                                                            : HYSUB_NOT_FOUND;
}

int WINAPI SubRemoveInfo(CSubInfo* pInfo, LPCSTR lpszCategory)
{
    if (pInfo == nullptr) return HYSUB_NOT_FOUND;
    const auto at = Find(pInfo, lpszCategory);
    if (at == SubAccess::Of(pInfo).names.end()) return HYSUB_NOT_FOUND;
    SubAccess::Of(pInfo).names.erase(at);
    return HYSUB_OK;
}

int WINAPI SubSaveInfo(CSubInfo* pInfo)
{
    return pInfo != nullptr && Save(pInfo) ? HYSUB_OK : HYSUB_ERR_IO;
}

int WINAPI SubDupSubscCategory(CSubInfo* pInfo, LPCSTR lpszOld, LPCSTR lpszNew)
{
    if (pInfo == nullptr || Find(pInfo, lpszOld) == SubAccess::Of(pInfo).names.end()) return HYSUB_NOT_FOUND;
    if (lpszNew == nullptr || *lpszNew == 0) return HYSUB_ERR_IO;
    if (Find(pInfo, lpszNew) != SubAccess::Of(pInfo).names.end()) return HYSUB_ERR_EXISTS;
    SubAccess::Of(pInfo).names.push_back(lpszNew);
    return HYSUB_OK;
}

int WINAPI SubUpdateInfo(CSubInfo* pInfo, LPCSTR lpszOld)
{
    if (pInfo == nullptr) return HYSUB_NOT_FOUND;
    std::vector<std::string>& v = SubAccess::Of(pInfo).names;
    const auto at = Find(pInfo, lpszOld);
    if (at == v.end()) return HYSUB_NOT_FOUND;
    const size_t place = size_t(at - v.begin());
    const std::string old = *at;
    v.erase(at);
    if (Save(pInfo)) return HYSUB_OK;
    v.insert(v.begin() + ptrdiff_t(place), old);   // the list stays as the file has it
    return HYSUB_ERR_IO;
}

int WINAPI CmGetUserFolder(LPCSTR lpszUser, LPSTR lpszFolder, int* pcb)
{
    if (lpszUser == nullptr || !hyhost::PlainFileName(lpszUser)) return -1;
    return Answer(hyhost::DataFolder() + "\\" + lpszUser, lpszFolder, pcb);
}

int WINAPI CmGetCreatorFolder(LPCSTR lpszUser, DWORD dwCreator, LPSTR lpszFolder, int* pcb)
{
    if (lpszUser == nullptr || !hyhost::PlainFileName(lpszUser)) return -1;
    std::string code;
    for (int shift = 24; shift >= 0; shift -= 8) code += char((dwCreator >> shift) & 0xFF);   // most significant first
    if (!hyhost::PlainFileName(code) || code.find(' ') == 0) return -1;
    const std::string folder = hyhost::DataFolder() + "\\" + lpszUser + "\\" + code;
    const int answer = Answer(folder, lpszFolder, pcb);
    if (answer == 0 && !hyhost::MakeFolders(folder)) return -1;
    return answer;
}
