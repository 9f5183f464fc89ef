// HyAfx: CString.
#include "afxstr.h"

#include <ctype.h>
#include <limits.h>
#include <mbctype.h>
#include <mbstring.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

struct CString::Header
{
    int nDataLength;
    int nAllocLength;   // 0 only for the shared empty block, which is never written
    TCHAR* data() { return reinterpret_cast<TCHAR*>(this + 1); }
};

namespace {

struct EmptyBlock
{
    int nDataLength;
    int nAllocLength;
    TCHAR chNul[8];
};
EmptyBlock g_emptyBlock = { 0, 0, { 0 } };
static_assert(sizeof(int) * 2 == offsetof(EmptyBlock, chNul), "header layout");

LPTSTR EmptyData() { return g_emptyBlock.chNul; }

int SafeStrlen(LPCTSTR lpsz) { return lpsz ? (int)strlen(lpsz) : 0; }

// The character walk follows the thread's multibyte code page, so a DBCS
// trail byte is never taken for a character of its own.
inline int CharSize(LPCTSTR p)
{
    return (_ismbblead((unsigned char)*p) && p[1] != '\0') ? 2 : 1;
}

inline bool SameChar(LPCTSTR p, int nSize, LPCTSTR q, int nSizeQ)
{
    return nSize == nSizeQ && memcmp(p, q, nSize) == 0;
}

bool CharInSet(LPCTSTR p, int nSize, LPCTSTR lpszSet)
{
    for (LPCTSTR q = lpszSet; *q; )
    {
        int n = CharSize(q);
        if (SameChar(p, nSize, q, n))
            return true;
        q += n;
    }
    return false;
}

inline bool IsSingleSpace(LPCTSTR p, int nSize)
{
    return nSize == 1 && isspace((unsigned char)*p);
}

// Loads string nID of the string table block holding it, converting it to the
// ANSI code page; any length.
bool LoadResourceString(UINT nID, CString& rString)
{
    LPCTSTR lpszBlock = MAKEINTRESOURCE((nID >> 4) + 1);
    HINSTANCE hInst = AfxFindStringResourceHandle(nID);
    if (hInst == NULL)
        return false;
    HRSRC hRes = ::FindResourceA(hInst, lpszBlock, RT_STRING);
    if (hRes == NULL)
        return false;
    HGLOBAL hGlobal = ::LoadResource(hInst, hRes);
    if (hGlobal == NULL)
        return false;
    const WCHAR* p = static_cast<const WCHAR*>(::LockResource(hGlobal));
    DWORD cbSize = ::SizeofResource(hInst, hRes);
    if (p == NULL)
        return false;
    const WCHAR* pEnd = p + cbSize / sizeof(WCHAR);
    for (UINT i = 0; i < (nID & 15); i++)
    {
        if (p >= pEnd)
            return false;
        p += 1 + *p;
    }
    if (p >= pEnd || *p == 0)
        return false;
    int nWide = *p++;
    if (p + nWide > pEnd)
        return false;
    int nLen = ::WideCharToMultiByte(CP_ACP, 0, p, nWide, NULL, 0, NULL, NULL);
    LPTSTR lpsz = rString.GetBufferSetLength(nLen);
    ::WideCharToMultiByte(CP_ACP, 0, p, nWide, lpsz, nLen, NULL, NULL);
    rString.ReleaseBuffer(nLen);
    return true;
}

} // namespace

// ---- storage ----

CString::Header* CString::GetHeader() const
{
    return reinterpret_cast<Header*>(m_pchData) - 1;
}

void CString::AllocBuffer(int nLen)
{
    // Replaces the buffer with an uninitialised one of nLen characters.
    Release();
    if (nLen <= 0)
    {
        m_pchData = EmptyData();
        return;
    }
    Header* pHeader = static_cast<Header*>(malloc(sizeof(Header) + nLen + 1));
    pHeader->nDataLength = nLen;
    pHeader->nAllocLength = nLen;
    m_pchData = pHeader->data();
    m_pchData[nLen] = '\0';
}

void CString::Release()
{
    if (m_pchData != EmptyData())
        free(GetHeader());
    m_pchData = EmptyData();
}

void CString::EnsureCapacity(int nLen)
{
    // Keeps the content; grows the buffer to hold at least nLen characters.
    Header* pOld = GetHeader();
    if (m_pchData != EmptyData() && pOld->nAllocLength >= nLen)
        return;
    int nAlloc = nLen;
    if (m_pchData != EmptyData() && nAlloc < pOld->nAllocLength * 2)
        nAlloc = pOld->nAllocLength * 2;   // amortised growth for repeated +=
    Header* pHeader = static_cast<Header*>(malloc(sizeof(Header) + nAlloc + 1));
    int nOldLen = pOld->nDataLength;
    pHeader->nDataLength = nOldLen;
    pHeader->nAllocLength = nAlloc;
    memcpy(pHeader->data(), m_pchData, nOldLen + 1);
    if (m_pchData != EmptyData())
        free(pOld);
    m_pchData = pHeader->data();
}

void CString::AssignCopy(int nLen, LPCTSTR lpsz)
{
    if (nLen <= 0)
    {
        Empty();
        return;
    }
    if (m_pchData != EmptyData() && GetHeader()->nAllocLength >= nLen
        && (lpsz < m_pchData || lpsz > m_pchData + GetHeader()->nAllocLength))
    {
        memcpy(m_pchData, lpsz, nLen);
    }
    else
    {
        CString strNew;
        strNew.AllocBuffer(nLen);
        memcpy(strNew.m_pchData, lpsz, nLen);
        *this = static_cast<CString&&>(strNew);
        return;
    }
    GetHeader()->nDataLength = nLen;
    m_pchData[nLen] = '\0';
}

void CString::ConcatInPlace(int nLen, LPCTSTR lpsz)
{
    int nOldLen = GetLength();
    if (nLen <= 0 || nOldLen > INT_MAX - nLen)
        return;
    if (m_pchData != EmptyData() && GetHeader()->nAllocLength >= nOldLen + nLen)
    {
        memmove(m_pchData + nOldLen, lpsz, nLen);
    }
    else
    {
        // lpsz may point into our own buffer: fill the new block before
        // freeing the old one. Half again as much room for further appends.
        size_t nNewLen = (size_t)nOldLen + (size_t)nLen;
        size_t nAlloc = nNewLen + nNewLen / 2;
        if (nAlloc > INT_MAX)
            nAlloc = nNewLen;
        Header* pHeader = static_cast<Header*>(malloc(sizeof(Header) + nAlloc + 1));
        pHeader->nDataLength = (int)nNewLen;
        pHeader->nAllocLength = (int)nAlloc;
        memcpy(pHeader->data(), m_pchData, (size_t)nOldLen);
        memcpy(pHeader->data() + nOldLen, lpsz, (size_t)nLen);
        pHeader->data()[nNewLen] = '\0';
        Release();
        m_pchData = pHeader->data();
        return;
    }
    GetHeader()->nDataLength = nOldLen + nLen;
    m_pchData[nOldLen + nLen] = '\0';
}

// ---- construction ----

CString::CString() : m_pchData(EmptyData()) {}

CString::CString(const CString& stringSrc) : m_pchData(EmptyData())
{
    AssignCopy(stringSrc.GetLength(), stringSrc.m_pchData);
}

CString::CString(CString&& stringSrc) noexcept : m_pchData(stringSrc.m_pchData)
{
    stringSrc.m_pchData = EmptyData();
}

CString::CString(TCHAR ch, int nRepeat) : m_pchData(EmptyData())
{
    if (nRepeat > 0)
    {
        AllocBuffer(nRepeat);
        memset(m_pchData, ch, nRepeat);
    }
}

CString::CString(LPCSTR lpsz) : m_pchData(EmptyData())
{
    if (lpsz != NULL && IS_INTRESOURCE(lpsz))
        LoadString(LOWORD(reinterpret_cast<ULONG_PTR>(lpsz)));
    else
        AssignCopy(SafeStrlen(lpsz), lpsz);
}

CString::CString(LPCWSTR lpsz) : m_pchData(EmptyData())
{
    *this = lpsz;
}

CString::CString(LPCTSTR lpch, int nLength) : m_pchData(EmptyData())
{
    if (lpch != NULL && nLength > 0)
        AssignCopy(nLength, lpch);
}

CString::CString(const unsigned char* psz) : m_pchData(EmptyData())
{
    *this = reinterpret_cast<LPCSTR>(psz);
}

CString::~CString()
{
    Release();
}

// ---- basic access ----

int CString::GetLength() const { return GetHeader()->nDataLength; }
BOOL CString::IsEmpty() const { return GetLength() == 0; }

void CString::Empty()
{
    if (m_pchData == EmptyData())
        return;
    Release();
}

TCHAR CString::GetAt(int nIndex) const
{
    ASSERT(nIndex >= 0 && nIndex < GetLength());
    return m_pchData[nIndex];
}

TCHAR CString::operator[](int nIndex) const
{
    ASSERT(nIndex >= 0 && nIndex < GetLength());
    return m_pchData[nIndex];
}

void CString::SetAt(int nIndex, TCHAR ch)
{
    ASSERT(nIndex >= 0 && nIndex < GetLength());
    if (nIndex >= 0 && nIndex < GetLength())
        m_pchData[nIndex] = ch;
}

// ---- assignment and concatenation ----

const CString& CString::operator=(const CString& stringSrc)
{
    if (this != &stringSrc)
        AssignCopy(stringSrc.GetLength(), stringSrc.m_pchData);
    return *this;
}

const CString& CString::operator=(CString&& stringSrc) noexcept
{
    if (this != &stringSrc)
    {
        Release();
        m_pchData = stringSrc.m_pchData;
        stringSrc.m_pchData = EmptyData();
    }
    return *this;
}

const CString& CString::operator=(TCHAR ch)
{
    AssignCopy(1, &ch);
    return *this;
}

const CString& CString::operator=(LPCSTR lpsz)
{
    AssignCopy(SafeStrlen(lpsz), lpsz);
    return *this;
}

const CString& CString::operator=(LPCWSTR lpsz)
{
    int nWide = lpsz ? (int)wcslen(lpsz) : 0;
    if (nWide == 0)
    {
        Empty();
        return *this;
    }
    int nLen = ::WideCharToMultiByte(CP_ACP, 0, lpsz, nWide, NULL, 0, NULL, NULL);
    CString strNew;
    strNew.AllocBuffer(nLen);
    ::WideCharToMultiByte(CP_ACP, 0, lpsz, nWide, strNew.m_pchData, nLen, NULL, NULL);
    *this = static_cast<CString&&>(strNew);
    return *this;
}

const CString& CString::operator=(const unsigned char* psz)
{
    return *this = reinterpret_cast<LPCSTR>(psz);
}

const CString& CString::operator+=(const CString& string)
{
    ConcatInPlace(string.GetLength(), string.m_pchData);
    return *this;
}

const CString& CString::operator+=(TCHAR ch)
{
    ConcatInPlace(1, &ch);
    return *this;
}

const CString& CString::operator+=(LPCTSTR lpsz)
{
    ConcatInPlace(SafeStrlen(lpsz), lpsz);
    return *this;
}

static CString ConcatTwo(LPCTSTR p1, int n1, LPCTSTR p2, int n2)
{
    CString s;
    LPTSTR p = s.GetBufferSetLength(n1 + n2);
    memcpy(p, p1, n1);
    memcpy(p + n1, p2, n2);
    s.ReleaseBuffer(n1 + n2);
    return s;
}

CString AFXAPI operator+(const CString& string1, const CString& string2)
{
    return ConcatTwo(string1, string1.GetLength(), string2, string2.GetLength());
}

CString AFXAPI operator+(const CString& string, TCHAR ch)
{
    return ConcatTwo(string, string.GetLength(), &ch, 1);
}

CString AFXAPI operator+(TCHAR ch, const CString& string)
{
    return ConcatTwo(&ch, 1, string, string.GetLength());
}

CString AFXAPI operator+(const CString& string, LPCTSTR lpsz)
{
    return ConcatTwo(string, string.GetLength(), lpsz, SafeStrlen(lpsz));
}

CString AFXAPI operator+(LPCTSTR lpsz, const CString& string)
{
    return ConcatTwo(lpsz, SafeStrlen(lpsz), string, string.GetLength());
}

// ---- comparison ----

int CString::Compare(LPCTSTR lpsz) const
{
    return strcmp(m_pchData, lpsz ? lpsz : "");
}

int CString::CompareNoCase(LPCTSTR lpsz) const
{
    return _mbsicmp(reinterpret_cast<const unsigned char*>(m_pchData),
                    reinterpret_cast<const unsigned char*>(lpsz ? lpsz : ""));
}

int CString::Collate(LPCTSTR lpsz) const
{
    return _mbscoll(reinterpret_cast<const unsigned char*>(m_pchData),
                    reinterpret_cast<const unsigned char*>(lpsz ? lpsz : ""));
}

int CString::CollateNoCase(LPCTSTR lpsz) const
{
    return _mbsicoll(reinterpret_cast<const unsigned char*>(m_pchData),
                     reinterpret_cast<const unsigned char*>(lpsz ? lpsz : ""));
}

bool AFXAPI operator==(const CString& s1, const CString& s2) { return s1.Compare(s2) == 0; }
bool AFXAPI operator==(const CString& s1, LPCTSTR s2) { return s1.Compare(s2) == 0; }
bool AFXAPI operator==(LPCTSTR s1, const CString& s2) { return s2.Compare(s1) == 0; }
bool AFXAPI operator!=(const CString& s1, const CString& s2) { return s1.Compare(s2) != 0; }
bool AFXAPI operator!=(const CString& s1, LPCTSTR s2) { return s1.Compare(s2) != 0; }
bool AFXAPI operator!=(LPCTSTR s1, const CString& s2) { return s2.Compare(s1) != 0; }
bool AFXAPI operator<(const CString& s1, const CString& s2) { return s1.Compare(s2) < 0; }
bool AFXAPI operator<(const CString& s1, LPCTSTR s2) { return s1.Compare(s2) < 0; }
bool AFXAPI operator<(LPCTSTR s1, const CString& s2) { return s2.Compare(s1) > 0; }
bool AFXAPI operator>(const CString& s1, const CString& s2) { return s1.Compare(s2) > 0; }
bool AFXAPI operator>(const CString& s1, LPCTSTR s2) { return s1.Compare(s2) > 0; }
bool AFXAPI operator>(LPCTSTR s1, const CString& s2) { return s2.Compare(s1) < 0; }
bool AFXAPI operator<=(const CString& s1, const CString& s2) { return s1.Compare(s2) <= 0; }
bool AFXAPI operator<=(const CString& s1, LPCTSTR s2) { return s1.Compare(s2) <= 0; }
bool AFXAPI operator<=(LPCTSTR s1, const CString& s2) { return s2.Compare(s1) >= 0; }
bool AFXAPI operator>=(const CString& s1, const CString& s2) { return s1.Compare(s2) >= 0; }
bool AFXAPI operator>=(const CString& s1, LPCTSTR s2) { return s1.Compare(s2) >= 0; }
bool AFXAPI operator>=(LPCTSTR s1, const CString& s2) { return s2.Compare(s1) <= 0; }

// ---- extraction ----

CString CString::Mid(int nFirst) const
{
    return Mid(nFirst, GetLength() - nFirst);
}

CString CString::Mid(int nFirst, int nCount) const
{
    int nLen = GetLength();
    if (nFirst < 0)
        nFirst = 0;
    if (nCount < 0)
        nCount = 0;
    if (nFirst > nLen)
        nFirst = nLen;
    if (nCount > nLen - nFirst)
        nCount = nLen - nFirst;
    return CString(m_pchData + nFirst, nCount);
}

CString CString::Left(int nCount) const
{
    return Mid(0, nCount);
}

CString CString::Right(int nCount) const
{
    int nLen = GetLength();
    if (nCount < 0)
        nCount = 0;
    if (nCount > nLen)
        nCount = nLen;
    return CString(m_pchData + nLen - nCount, nCount);
}

CString CString::SpanIncluding(LPCTSTR lpszCharSet) const
{
    LPCTSTR p = m_pchData;
    while (*p)
    {
        int n = CharSize(p);
        if (!CharInSet(p, n, lpszCharSet))
            break;
        p += n;
    }
    return Left((int)(p - m_pchData));
}

CString CString::SpanExcluding(LPCTSTR lpszCharSet) const
{
    LPCTSTR p = m_pchData;
    while (*p)
    {
        int n = CharSize(p);
        if (CharInSet(p, n, lpszCharSet))
            break;
        p += n;
    }
    return Left((int)(p - m_pchData));
}

// ---- in-place changes ----

void CString::MakeUpper()
{
    for (LPTSTR p = m_pchData; *p; )
    {
        int n = CharSize(p);
        if (n == 1)
            *p = (TCHAR)toupper((unsigned char)*p);
        p += n;
    }
}

void CString::MakeLower()
{
    for (LPTSTR p = m_pchData; *p; )
    {
        int n = CharSize(p);
        if (n == 1)
            *p = (TCHAR)tolower((unsigned char)*p);
        p += n;
    }
}

void CString::MakeReverse()
{
    int nLen = GetLength();
    if (nLen < 2)
        return;
    CString strNew;
    LPTSTR pDest = strNew.GetBufferSetLength(nLen) + nLen;
    for (LPCTSTR p = m_pchData; *p; )
    {
        int n = CharSize(p);   // a double-byte character keeps its byte order
        pDest -= n;
        memcpy(pDest, p, n);
        p += n;
    }
    strNew.ReleaseBuffer(nLen);
    *this = static_cast<CString&&>(strNew);
}

int CString::Replace(TCHAR chOld, TCHAR chNew)
{
    int nCount = 0;
    if (chOld == chNew)
        return 0;
    for (LPTSTR p = m_pchData; *p; )
    {
        int n = CharSize(p);
        if (n == 1 && *p == chOld)
        {
            *p = chNew;
            nCount++;
        }
        p += n;
    }
    return nCount;
}

int CString::Replace(LPCTSTR lpszOld, LPCTSTR lpszNew)
{
    int nOldLen = SafeStrlen(lpszOld);
    if (nOldLen == 0)
        return 0;
    int nNewLen = SafeStrlen(lpszNew);
    CString strResult;
    int nCount = 0;
    LPCTSTR pRun = m_pchData;
    for (LPCTSTR p = m_pchData; *p; )
    {
        if (strncmp(p, lpszOld, nOldLen) == 0)
        {
            strResult.ConcatInPlace((int)(p - pRun), pRun);
            strResult.ConcatInPlace(nNewLen, lpszNew);
            p += nOldLen;
            pRun = p;
            nCount++;
        }
        else
        {
            p += CharSize(p);
        }
    }
    if (nCount == 0)
        return 0;
    strResult.ConcatInPlace((int)(m_pchData + GetLength() - pRun), pRun);
    *this = static_cast<CString&&>(strResult);
    return nCount;
}

int CString::Remove(TCHAR chRemove)
{
    LPTSTR pDest = m_pchData;
    int nCount = 0;
    for (LPCTSTR p = m_pchData; *p; )
    {
        int n = CharSize(p);
        if (n == 1 && *p == chRemove)
        {
            nCount++;
        }
        else
        {
            memmove(pDest, p, n);
            pDest += n;
        }
        p += n;
    }
    if (nCount > 0)
    {
        *pDest = '\0';
        GetHeader()->nDataLength = (int)(pDest - m_pchData);
    }
    return nCount;
}

int CString::Insert(int nIndex, TCHAR ch)
{
    TCHAR sz[2] = { ch, '\0' };
    return Insert(nIndex, sz);
}

int CString::Insert(int nIndex, LPCTSTR pstr)
{
    int nLen = GetLength();
    int nInsert = SafeStrlen(pstr);
    if (nIndex < 0)
        nIndex = 0;
    if (nIndex > nLen)
        nIndex = nLen;
    if (nInsert == 0)
        return nLen;
    CString strNew;
    LPTSTR p = strNew.GetBufferSetLength(nLen + nInsert);
    memcpy(p, m_pchData, nIndex);
    memcpy(p + nIndex, pstr, nInsert);
    memcpy(p + nIndex + nInsert, m_pchData + nIndex, nLen - nIndex);
    strNew.ReleaseBuffer(nLen + nInsert);
    *this = static_cast<CString&&>(strNew);
    return GetLength();
}

int CString::Delete(int nIndex, int nCount)
{
    int nLen = GetLength();
    if (nIndex < 0)
        nIndex = 0;
    if (nCount > 0 && nIndex < nLen)
    {
        if (nCount > nLen - nIndex)
            nCount = nLen - nIndex;
        memmove(m_pchData + nIndex, m_pchData + nIndex + nCount, nLen - nIndex - nCount + 1);
        GetHeader()->nDataLength = nLen - nCount;
    }
    return GetLength();
}

// ---- trimming ----

namespace {

template <class Pred>
LPCTSTR FindTrailingRun(LPCTSTR psz, Pred pred)
{
    LPCTSTR pLast = NULL;
    for (LPCTSTR p = psz; *p; )
    {
        int n = CharSize(p);
        if (pred(p, n))
        {
            if (pLast == NULL)
                pLast = p;
        }
        else
        {
            pLast = NULL;
        }
        p += n;
    }
    return pLast;
}

template <class Pred>
LPCTSTR SkipLeadingRun(LPCTSTR psz, Pred pred)
{
    LPCTSTR p = psz;
    while (*p)
    {
        int n = CharSize(p);
        if (!pred(p, n))
            break;
        p += n;
    }
    return p;
}

} // namespace

#define HY_TRIM_RIGHT(pred)                                        \
    do {                                                           \
        LPCTSTR pLast = FindTrailingRun(m_pchData, pred);          \
        if (pLast != NULL)                                         \
        {                                                          \
            int nNewLen = (int)(pLast - m_pchData);                \
            m_pchData[nNewLen] = '\0';                             \
            GetHeader()->nDataLength = nNewLen;                    \
        }                                                          \
    } while (0)

#define HY_TRIM_LEFT(pred)                                         \
    do {                                                           \
        LPCTSTR pFirst = SkipLeadingRun(m_pchData, pred);          \
        if (pFirst != m_pchData)                                   \
        {                                                          \
            int nNewLen = GetLength() - (int)(pFirst - m_pchData); \
            memmove(m_pchData, pFirst, nNewLen + 1);               \
            GetHeader()->nDataLength = nNewLen;                    \
        }                                                          \
    } while (0)

void CString::TrimRight()
{
    HY_TRIM_RIGHT(IsSingleSpace);
}

void CString::TrimRight(TCHAR chTarget)
{
    HY_TRIM_RIGHT([chTarget](LPCTSTR p, int n) { return n == 1 && *p == chTarget; });
}

void CString::TrimRight(LPCTSTR lpszTargets)
{
    HY_TRIM_RIGHT([lpszTargets](LPCTSTR p, int n) { return CharInSet(p, n, lpszTargets); });
}

void CString::TrimLeft()
{
    HY_TRIM_LEFT(IsSingleSpace);
}

void CString::TrimLeft(TCHAR chTarget)
{
    HY_TRIM_LEFT([chTarget](LPCTSTR p, int n) { return n == 1 && *p == chTarget; });
}

void CString::TrimLeft(LPCTSTR lpszTargets)
{
    HY_TRIM_LEFT([lpszTargets](LPCTSTR p, int n) { return CharInSet(p, n, lpszTargets); });
}

#undef HY_TRIM_RIGHT
#undef HY_TRIM_LEFT

// ---- searching ----

int CString::Find(TCHAR ch) const
{
    return Find(ch, 0);
}

int CString::Find(TCHAR ch, int nStart) const
{
    if (nStart < 0)
        nStart = 0;
    if (nStart >= GetLength())
        return -1;
    for (LPCTSTR p = m_pchData + nStart; *p; )
    {
        int n = CharSize(p);
        if (n == 1 && *p == ch)
            return (int)(p - m_pchData);
        p += n;
    }
    return -1;
}

int CString::Find(LPCTSTR lpszSub) const
{
    return Find(lpszSub, 0);
}

int CString::Find(LPCTSTR lpszSub, int nStart) const
{
    if (nStart < 0)
        nStart = 0;
    int nLen = GetLength();
    if (nStart > nLen)
        return -1;
    int nSub = SafeStrlen(lpszSub);
    if (nSub == 0)
        return nStart;
    for (LPCTSTR p = m_pchData + nStart; *p; p += CharSize(p))
    {
        if (strncmp(p, lpszSub, nSub) == 0)
            return (int)(p - m_pchData);
    }
    return -1;
}

int CString::ReverseFind(TCHAR ch) const
{
    int nFound = -1;
    for (LPCTSTR p = m_pchData; *p; )
    {
        int n = CharSize(p);
        if (n == 1 && *p == ch)
            nFound = (int)(p - m_pchData);
        p += n;
    }
    return nFound;
}

int CString::FindOneOf(LPCTSTR lpszCharSet) const
{
    for (LPCTSTR p = m_pchData; *p; )
    {
        int n = CharSize(p);
        if (CharInSet(p, n, lpszCharSet))
            return (int)(p - m_pchData);
        p += n;
    }
    return -1;
}

// ---- formatting ----

void CString::FormatV(LPCTSTR lpszFormat, va_list argList)
{
    va_list argCopy;
    va_copy(argCopy, argList);
    int nLen = vsnprintf(NULL, 0, lpszFormat, argCopy);
    va_end(argCopy);
    if (nLen < 0)
    {
        Empty();
        return;
    }
    CString strNew;
    LPTSTR p = strNew.GetBufferSetLength(nLen);
    va_copy(argCopy, argList);
    vsnprintf(p, nLen + 1, lpszFormat, argCopy);
    va_end(argCopy);
    strNew.ReleaseBuffer(nLen);
    *this = static_cast<CString&&>(strNew);
}

void AFX_CDECL CString::Format(LPCTSTR lpszFormat, ...)
{
    va_list argList;
    va_start(argList, lpszFormat);
    FormatV(lpszFormat, argList);
    va_end(argList);
}

void AFX_CDECL CString::Format(UINT nFormatID, ...)
{
    CString strFormat;
    strFormat.LoadString(nFormatID);
    va_list argList;
    va_start(argList, nFormatID);
    FormatV(strFormat, argList);
    va_end(argList);
}

static void FormatMessageInto(CString& rString, LPCTSTR lpszFormat, va_list* pArgs)
{
    LPSTR lpszBuffer = NULL;
    DWORD nLen = ::FormatMessageA(FORMAT_MESSAGE_FROM_STRING | FORMAT_MESSAGE_ALLOCATE_BUFFER,
                                  lpszFormat, 0, 0, reinterpret_cast<LPSTR>(&lpszBuffer), 0, pArgs);
    if (nLen == 0 || lpszBuffer == NULL)
        rString.Empty();
    else
        rString = CString(lpszBuffer, (int)nLen);
    if (lpszBuffer != NULL)
        ::LocalFree(lpszBuffer);
}

void AFX_CDECL CString::FormatMessage(LPCTSTR lpszFormat, ...)
{
    va_list argList;
    va_start(argList, lpszFormat);
    FormatMessageInto(*this, lpszFormat, &argList);
    va_end(argList);
}

void AFX_CDECL CString::FormatMessage(UINT nFormatID, ...)
{
    CString strFormat;
    strFormat.LoadString(nFormatID);
    va_list argList;
    va_start(argList, nFormatID);
    FormatMessageInto(*this, strFormat, &argList);
    va_end(argList);
}

BOOL CString::LoadString(UINT nID)
{
    CString strLoaded;
    if (!LoadResourceString(nID, strLoaded))
    {
        Empty();
        return FALSE;
    }
    *this = static_cast<CString&&>(strLoaded);
    return TRUE;
}

void CString::AnsiToOem()
{
    if (!IsEmpty())
        ::CharToOemA(m_pchData, m_pchData);
}

void CString::OemToAnsi()
{
    if (!IsEmpty())
        ::OemToCharA(m_pchData, m_pchData);
}

// ---- raw buffer access ----

LPTSTR CString::GetBuffer(int nMinBufLength)
{
    if (nMinBufLength < 0)
        nMinBufLength = 0;
    // Always hand out a private block, even for an empty string.
    EnsureCapacity(nMinBufLength);
    return m_pchData;
}

void CString::ReleaseBuffer(int nNewLength)
{
    if (m_pchData == EmptyData())
        return;
    if (nNewLength < 0)
        nNewLength = (int)strnlen(m_pchData, GetHeader()->nAllocLength);
    if (nNewLength > GetHeader()->nAllocLength)
        nNewLength = GetHeader()->nAllocLength;
    GetHeader()->nDataLength = nNewLength;
    m_pchData[nNewLength] = '\0';
}

LPTSTR CString::GetBufferSetLength(int nNewLength)
{
    if (nNewLength < 0)
        nNewLength = 0;
    GetBuffer(nNewLength);
    GetHeader()->nDataLength = nNewLength;
    m_pchData[nNewLength] = '\0';
    return m_pchData;
}

void CString::FreeExtra()
{
    if (m_pchData == EmptyData() || GetHeader()->nAllocLength == GetLength())
        return;
    CString strNew(m_pchData, GetLength());
    *this = static_cast<CString&&>(strNew);
}

LPTSTR CString::LockBuffer()
{
    // Buffers are never shared, so locking only has to make the block private.
    return GetBuffer(0);
}

void CString::UnlockBuffer()
{
}

// ---- helpers ----

const CString& AFXAPI AfxGetEmptyString()
{
    static const CString s_strEmpty;
    return s_strEmpty;
}

void AFXAPI AfxFormatStrings(CString& rString, LPCTSTR lpszFormat, LPCTSTR const* rglpsz, int nString)
{
    CString strResult;
    LPCTSTR pRun = lpszFormat;
    for (LPCTSTR p = lpszFormat; *p; )
    {
        if (p[0] == '%' && p[1] >= '1' && p[1] <= '9' && p[1] - '1' < nString)
        {
            strResult += CString(pRun, (int)(p - pRun));
            LPCTSTR lpszInsert = rglpsz[p[1] - '1'];
            strResult += lpszInsert ? lpszInsert : "";
            p += 2;
            pRun = p;
        }
        else
        {
            p += CharSize(p);
        }
    }
    strResult += pRun;
    rString = static_cast<CString&&>(strResult);
}

void AFXAPI AfxFormatString1(CString& rString, UINT nIDS, LPCTSTR lpsz1)
{
    CString strFormat;
    strFormat.LoadString(nIDS);
    AfxFormatStrings(rString, strFormat, &lpsz1, 1);
}

void AFXAPI AfxFormatString2(CString& rString, UINT nIDS, LPCTSTR lpsz1, LPCTSTR lpsz2)
{
    CString strFormat;
    strFormat.LoadString(nIDS);
    LPCTSTR rglpsz[2] = { lpsz1, lpsz2 };
    AfxFormatStrings(rString, strFormat, rglpsz, 2);
}

BOOL AFXAPI AfxExtractSubString(CString& rString, LPCTSTR lpszFullString, int iSubString, TCHAR chSep)
{
    if (lpszFullString == NULL || iSubString < 0)
    {
        rString.Empty();
        return FALSE;
    }
    while (iSubString--)
    {
        lpszFullString = strchr(lpszFullString, chSep);
        if (lpszFullString == NULL)
        {
            rString.Empty();
            return FALSE;
        }
        lpszFullString++;
    }
    LPCTSTR lpchEnd = strchr(lpszFullString, chSep);
    int nLen = lpchEnd == NULL ? (int)strlen(lpszFullString) : (int)(lpchEnd - lpszFullString);
    rString = CString(lpszFullString, nLen);
    return TRUE;
}
