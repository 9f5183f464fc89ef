// HyAfx: the non-template collections, built on the algorithms the
// templates use.
#include "afxtempl.h"

using namespace AfxCollImpl;

// ---- arrays ----

#define HYAFX_IMPLEMENT_ARRAY(class_name, TYPE, ARG_TYPE)                              \
IMPLEMENT_DYNAMIC(class_name, CObject)                                                 \
class_name::class_name() : m_pData(NULL), m_nSize(0), m_nMaxSize(0), m_nGrowBy(0) {}   \
class_name::~class_name() { SetSize(0); }                                              \
void class_name::SetSize(int nNewSize, int nGrowBy)                                    \
{                                                                                      \
    ArraySetSize(m_pData, m_nSize, m_nMaxSize, m_nGrowBy, nNewSize, nGrowBy);          \
}                                                                                      \
void class_name::FreeExtra() { ArrayFreeExtra(m_pData, m_nSize, m_nMaxSize); }         \
void class_name::SetAt(int nIndex, ARG_TYPE newElement)                                \
{                                                                                      \
    ASSERT(nIndex >= 0 && nIndex < m_nSize);                                           \
    if (nIndex >= 0 && nIndex < m_nSize)                                               \
        m_pData[nIndex] = newElement;                                                  \
}                                                                                      \
void class_name::SetAtGrow(int nIndex, ARG_TYPE newElement)                            \
{                                                                                      \
    if (nIndex < 0)                                                                    \
        return;                                                                        \
    TYPE copy(newElement); /* newElement may live in this array */                     \
    if (nIndex >= m_nSize)                                                             \
        SetSize(nIndex + 1);                                                           \
    m_pData[nIndex] = std::move(copy);                                                 \
}                                                                                      \
int class_name::Add(ARG_TYPE newElement)                                               \
{                                                                                      \
    int nIndex = m_nSize;                                                              \
    SetAtGrow(nIndex, newElement);                                                     \
    return nIndex;                                                                     \
}                                                                                      \
int class_name::Append(const class_name& src)                                          \
{                                                                                      \
    int nOldSize = m_nSize;                                                            \
    int nSrcSize = src.m_nSize;                                                        \
    SetSize(m_nSize + nSrcSize);                                                       \
    for (int i = 0; i < nSrcSize; i++)                                                 \
        m_pData[nOldSize + i] = (&src == this) ? m_pData[i] : src.m_pData[i];          \
    return nOldSize;                                                                   \
}                                                                                      \
void class_name::Copy(const class_name& src)                                           \
{                                                                                      \
    if (&src == this)                                                                  \
        return;                                                                        \
    SetSize(src.m_nSize);                                                              \
    for (int i = 0; i < m_nSize; i++)                                                  \
        m_pData[i] = src.m_pData[i];                                                   \
}                                                                                      \
void class_name::InsertAt(int nIndex, ARG_TYPE newElement, int nCount)                 \
{                                                                                      \
    TYPE copy(newElement);                                                             \
    ArrayInsertAt(m_pData, m_nSize, m_nMaxSize, m_nGrowBy, nIndex, copy, nCount);      \
}                                                                                      \
void class_name::RemoveAt(int nIndex, int nCount)                                      \
{                                                                                      \
    ArrayRemoveAt(m_pData, m_nSize, nIndex, nCount);                                   \
}                                                                                      \
void class_name::InsertAt(int nStartIndex, class_name* pNewArray)                      \
{                                                                                      \
    if (pNewArray == NULL || pNewArray->m_nSize == 0 || nStartIndex < 0)               \
        return;                                                                        \
    if (pNewArray == this)                                                             \
    {                                                                                  \
        class_name copy;                                                               \
        copy.Copy(*this);                                                              \
        InsertAt(nStartIndex, &copy);                                                  \
        return;                                                                        \
    }                                                                                  \
    InsertAt(nStartIndex, pNewArray->m_pData[0], pNewArray->m_nSize);                  \
    for (int i = 1; i < pNewArray->m_nSize; i++)                                       \
        m_pData[nStartIndex + i] = pNewArray->m_pData[i];                              \
}

HYAFX_IMPLEMENT_ARRAY(CByteArray, BYTE, BYTE)
HYAFX_IMPLEMENT_ARRAY(CWordArray, WORD, WORD)
HYAFX_IMPLEMENT_ARRAY(CDWordArray, DWORD, DWORD)
HYAFX_IMPLEMENT_ARRAY(CUIntArray, UINT, UINT)
HYAFX_IMPLEMENT_ARRAY(CPtrArray, void*, void*)
HYAFX_IMPLEMENT_ARRAY(CObArray, CObject*, CObject*)
HYAFX_IMPLEMENT_ARRAY(CStringArray, CString, const CString&)

// ---- lists ----

#define HYAFX_IMPLEMENT_LIST(class_name, TYPE, ARG_TYPE)                               \
IMPLEMENT_DYNAMIC(class_name, CObject)                                                 \
class_name::class_name(int nBlockSize)                                                 \
    : m_pNodeHead(NULL), m_pNodeTail(NULL), m_nCount(0), m_nBlockSize(nBlockSize) {}   \
class_name::~class_name() { RemoveAll(); }                                             \
TYPE class_name::RemoveHead()                                                          \
{                                                                                      \
    ASSERT(m_pNodeHead != NULL);                                                       \
    TYPE value(std::move(m_pNodeHead->data));                                          \
    ListUnlink(m_pNodeHead, m_pNodeTail, m_nCount, m_pNodeHead);                       \
    return value;                                                                      \
}                                                                                      \
TYPE class_name::RemoveTail()                                                          \
{                                                                                      \
    ASSERT(m_pNodeTail != NULL);                                                       \
    TYPE value(std::move(m_pNodeTail->data));                                          \
    ListUnlink(m_pNodeHead, m_pNodeTail, m_nCount, m_pNodeTail);                       \
    return value;                                                                      \
}                                                                                      \
POSITION class_name::AddHead(ARG_TYPE newElement)                                      \
{                                                                                      \
    return (POSITION)ListInsert<CNode, ARG_TYPE>(m_pNodeHead, m_pNodeTail, m_nCount,   \
                                                 NULL, m_pNodeHead, newElement);       \
}                                                                                      \
POSITION class_name::AddTail(ARG_TYPE newElement)                                      \
{                                                                                      \
    return (POSITION)ListInsert<CNode, ARG_TYPE>(m_pNodeHead, m_pNodeTail, m_nCount,   \
                                                 m_pNodeTail, NULL, newElement);       \
}                                                                                      \
void class_name::AddHead(class_name* pNewList)                                         \
{                                                                                      \
    int nAdd = pNewList->m_nCount;                                                     \
    CNode* p = pNewList->m_pNodeTail;                                                  \
    for (int i = 0; i < nAdd; i++, p = p->pPrev)                                       \
        AddHead(p->data);                                                              \
}                                                                                      \
void class_name::AddTail(class_name* pNewList)                                         \
{                                                                                      \
    int nAdd = pNewList->m_nCount;                                                     \
    CNode* p = pNewList->m_pNodeHead;                                                  \
    for (int i = 0; i < nAdd; i++, p = p->pNext)                                       \
        AddTail(p->data);                                                              \
}                                                                                      \
void class_name::RemoveAll() { ListRemoveAll(m_pNodeHead, m_pNodeTail, m_nCount); }    \
void class_name::RemoveAt(POSITION position)                                           \
{                                                                                      \
    ListUnlink(m_pNodeHead, m_pNodeTail, m_nCount, (CNode*)position);                  \
}                                                                                      \
POSITION class_name::InsertBefore(POSITION position, ARG_TYPE newElement)              \
{                                                                                      \
    if (position == NULL)                                                              \
        return AddHead(newElement);                                                    \
    CNode* pOld = (CNode*)position;                                                    \
    return (POSITION)ListInsert<CNode, ARG_TYPE>(m_pNodeHead, m_pNodeTail, m_nCount,   \
                                                 pOld->pPrev, pOld, newElement);       \
}                                                                                      \
POSITION class_name::InsertAfter(POSITION position, ARG_TYPE newElement)               \
{                                                                                      \
    if (position == NULL)                                                              \
        return AddTail(newElement);                                                    \
    CNode* pOld = (CNode*)position;                                                    \
    return (POSITION)ListInsert<CNode, ARG_TYPE>(m_pNodeHead, m_pNodeTail, m_nCount,   \
                                                 pOld, pOld->pNext, newElement);       \
}                                                                                      \
POSITION class_name::Find(ARG_TYPE searchValue, POSITION startAfter) const             \
{                                                                                      \
    CNode* p = startAfter == NULL ? m_pNodeHead : ((CNode*)startAfter)->pNext;         \
    for (; p != NULL; p = p->pNext)                                                    \
        if (p->data == searchValue)                                                    \
            return (POSITION)p;                                                        \
    return NULL;                                                                       \
}                                                                                      \
POSITION class_name::FindIndex(int nIndex) const                                       \
{                                                                                      \
    return (POSITION)ListFindIndex(m_pNodeHead, m_nCount, nIndex);                     \
}

HYAFX_IMPLEMENT_LIST(CPtrList, void*, void*)
HYAFX_IMPLEMENT_LIST(CObList, CObject*, CObject*)
HYAFX_IMPLEMENT_LIST(CStringList, CString, const CString&)

// ---- maps ----

namespace {

UINT HashOf(LPCTSTR key) { return HyHashString(key); }
UINT HashOf(void* key) { return (UINT)(((ULONG_PTR)key) >> 4); }
UINT HashOf(WORD key) { return key; }

} // namespace

#define HYAFX_IMPLEMENT_MAP(class_name, KEY, ARG_KEY, VALUE, ARG_VALUE)                \
IMPLEMENT_DYNAMIC(class_name, CObject)                                                 \
class_name::class_name(int nBlockSize)                                                 \
    : m_pHashTable(NULL), m_nHashTableSize(17), m_nCount(0), m_nBlockSize(nBlockSize) {} \
class_name::~class_name() { RemoveAll(); }                                             \
class_name::CAssoc* class_name::GetAssocAt(ARG_KEY key, UINT& nHash) const             \
{                                                                                      \
    nHash = HashOf(key);                                                               \
    if (m_pHashTable == NULL)                                                          \
        return NULL;                                                                   \
    for (CAssoc* p = m_pHashTable[nHash % m_nHashTableSize]; p != NULL; p = p->pNext)  \
        if (p->nHashValue == nHash && p->key == key)                                   \
            return p;                                                                  \
    return NULL;                                                                       \
}                                                                                      \
BOOL class_name::Lookup(ARG_KEY key, VALUE& rValue) const                              \
{                                                                                      \
    UINT nHash;                                                                        \
    CAssoc* pAssoc = GetAssocAt(key, nHash);                                           \
    if (pAssoc == NULL)                                                                \
        return FALSE;                                                                  \
    rValue = pAssoc->value;                                                            \
    return TRUE;                                                                       \
}                                                                                      \
VALUE& class_name::operator[](ARG_KEY key)                                             \
{                                                                                      \
    UINT nHash;                                                                        \
    CAssoc* pAssoc = GetAssocAt(key, nHash);                                           \
    if (pAssoc == NULL)                                                                \
    {                                                                                  \
        if (m_pHashTable == NULL)                                                      \
            InitHashTable(m_nHashTableSize);                                           \
        CAssoc*& rBucket = m_pHashTable[nHash % m_nHashTableSize];                     \
        pAssoc = new CAssoc{ rBucket, nHash, key, {} };                                \
        rBucket = pAssoc;                                                              \
        m_nCount++;                                                                    \
    }                                                                                  \
    return pAssoc->value;                                                              \
}                                                                                      \
BOOL class_name::RemoveKey(ARG_KEY key)                                                \
{                                                                                      \
    if (m_pHashTable == NULL)                                                          \
        return FALSE;                                                                  \
    UINT nHash = HashOf(key);                                                          \
    CAssoc** ppPrev = &m_pHashTable[nHash % m_nHashTableSize];                         \
    for (CAssoc* p = *ppPrev; p != NULL; ppPrev = &p->pNext, p = p->pNext)             \
    {                                                                                  \
        if (p->nHashValue == nHash && p->key == key)                                   \
        {                                                                              \
            *ppPrev = p->pNext;                                                        \
            delete p;                                                                  \
            m_nCount--;                                                                \
            return TRUE;                                                               \
        }                                                                              \
    }                                                                                  \
    return FALSE;                                                                      \
}                                                                                      \
void class_name::RemoveAll() { MapRemoveAll(m_pHashTable, m_nHashTableSize, m_nCount); } \
void class_name::GetNextAssoc(POSITION& rNextPosition, KEY& rKey, VALUE& rValue) const \
{                                                                                      \
    CAssoc* pAssoc = MapNext(m_pHashTable, m_nHashTableSize, rNextPosition);           \
    rKey = pAssoc->key;                                                                \
    rValue = pAssoc->value;                                                            \
}                                                                                      \
void class_name::InitHashTable(UINT hashSize, BOOL bAllocNow)                          \
{                                                                                      \
    ASSERT(m_nCount == 0);                                                             \
    if (m_nCount != 0)                                                                 \
        return;                                                                        \
    MapInitHashTable(m_pHashTable, m_nHashTableSize, hashSize, bAllocNow);             \
}

HYAFX_IMPLEMENT_MAP(CMapStringToPtr, CString, LPCTSTR, void*, void*)
HYAFX_IMPLEMENT_MAP(CMapStringToOb, CString, LPCTSTR, CObject*, CObject*)
HYAFX_IMPLEMENT_MAP(CMapStringToString, CString, LPCTSTR, CString, LPCTSTR)
HYAFX_IMPLEMENT_MAP(CMapPtrToPtr, void*, void*, void*, void*)
HYAFX_IMPLEMENT_MAP(CMapWordToPtr, WORD, WORD, void*, void*)
