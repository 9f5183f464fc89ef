// HyAfx: the collection templates (CArray, CList, CMap and the typed
// pointer wrappers). Elements are constructed and destroyed one by one, so any
// copyable type may be stored.
#pragma once

#include "afxstr.h"
#include <new>
#include <stdlib.h>
#include <utility>

#ifndef HYAFX_POSITION_DEFINED
#define HYAFX_POSITION_DEFINED
// An opaque iterator of the lists and maps.
struct __POSITION {};
typedef __POSITION* POSITION;
#define BEFORE_START_POSITION ((POSITION)-1L)
#endif

// ---- element helpers, overridable per type as in the classic framework ----

template <class TYPE, class ARG_TYPE>
inline BOOL AFXAPI CompareElements(const TYPE* pElement1, const ARG_TYPE* pElement2)
{
    return *pElement1 == *pElement2;
}

template <class ARG_KEY>
inline UINT AFXAPI HashKey(ARG_KEY key)
{
    return (UINT)(((ULONG_PTR)key) >> 4);
}

inline UINT AFXAPI HyHashString(LPCTSTR key)
{
    UINT nHash = 0;
    while (key != NULL && *key)
        nHash = (nHash << 5) + nHash + (BYTE)*key++;
    return nHash;
}

template <>
inline UINT AFXAPI HashKey<WORD>(WORD key) { return key; }
template <>
inline UINT AFXAPI HashKey<LPCTSTR>(LPCTSTR key) { return HyHashString(key); }
template <>
inline UINT AFXAPI HashKey<const CString&>(const CString& key) { return HyHashString(key); }
template <>
inline UINT AFXAPI HashKey<CString>(CString key) { return HyHashString(key); }

#include "afxcollimpl.h"

// ---- CArray ----

template <class TYPE, class ARG_TYPE = const TYPE&>
class CArray : public CObject
{
public:
    typedef TYPE BASE_TYPE;
    typedef ARG_TYPE BASE_ARG_TYPE;

    CArray() : m_pData(NULL), m_nSize(0), m_nMaxSize(0), m_nGrowBy(0) {}
    ~CArray() override { RemoveAll(); }

    int GetSize() const { return m_nSize; }
    int GetCount() const { return m_nSize; }
    BOOL IsEmpty() const { return m_nSize == 0; }
    int GetUpperBound() const { return m_nSize - 1; }
    void SetSize(int nNewSize, int nGrowBy = -1)
    {
        AfxCollImpl::ArraySetSize(m_pData, m_nSize, m_nMaxSize, m_nGrowBy, nNewSize, nGrowBy);
    }
    void FreeExtra() { AfxCollImpl::ArrayFreeExtra(m_pData, m_nSize, m_nMaxSize); }
    void RemoveAll() { SetSize(0); }

    TYPE GetAt(int nIndex) const { ASSERT(nIndex >= 0 && nIndex < m_nSize); return m_pData[nIndex]; }
    void SetAt(int nIndex, ARG_TYPE newElement)
    {
        ASSERT(nIndex >= 0 && nIndex < m_nSize);
        if (nIndex >= 0 && nIndex < m_nSize)
            m_pData[nIndex] = newElement;
    }
    TYPE& ElementAt(int nIndex) { ASSERT(nIndex >= 0 && nIndex < m_nSize); return m_pData[nIndex]; }
    const TYPE* GetData() const { return m_pData; }
    TYPE* GetData() { return m_pData; }

    void SetAtGrow(int nIndex, ARG_TYPE newElement)
    {
        if (nIndex < 0)
            return;
        TYPE copy(newElement);   // newElement may live in this array
        if (nIndex >= m_nSize)
            SetSize(nIndex + 1);
        m_pData[nIndex] = std::move(copy);
    }
    int Add(ARG_TYPE newElement)
    {
        int nIndex = m_nSize;
        SetAtGrow(nIndex, newElement);
        return nIndex;
    }
    int Append(const CArray& src)
    {
        int nOldSize = m_nSize;
        int nSrcSize = src.m_nSize;   // src may be *this
        SetSize(m_nSize + nSrcSize);
        for (int i = 0; i < nSrcSize; i++)
            m_pData[nOldSize + i] = (&src == this) ? m_pData[i] : src.m_pData[i];
        return nOldSize;
    }
    void Copy(const CArray& src)
    {
        if (&src == this)
            return;
        SetSize(src.m_nSize);
        for (int i = 0; i < m_nSize; i++)
            m_pData[i] = src.m_pData[i];
    }

    TYPE operator[](int nIndex) const { return GetAt(nIndex); }
    TYPE& operator[](int nIndex) { return ElementAt(nIndex); }

    void InsertAt(int nIndex, ARG_TYPE newElement, int nCount = 1)
    {
        TYPE copy(newElement);
        AfxCollImpl::ArrayInsertAt(m_pData, m_nSize, m_nMaxSize, m_nGrowBy, nIndex, copy, nCount);
    }
    void RemoveAt(int nIndex, int nCount = 1)
    {
        AfxCollImpl::ArrayRemoveAt(m_pData, m_nSize, nIndex, nCount);
    }
    void InsertAt(int nStartIndex, CArray* pNewArray)
    {
        if (pNewArray == NULL || pNewArray->GetSize() == 0 || nStartIndex < 0)
            return;
        if (pNewArray == this)
        {
            CArray copy;
            copy.Copy(*this);
            InsertAt(nStartIndex, &copy);
            return;
        }
        InsertAt(nStartIndex, pNewArray->m_pData[0], pNewArray->m_nSize);
        for (int i = 1; i < pNewArray->m_nSize; i++)
            m_pData[nStartIndex + i] = pNewArray->m_pData[i];
    }

protected:
    TYPE* m_pData;
    int m_nSize;
    int m_nMaxSize;
    int m_nGrowBy;
};

// ---- CList ----

template <class TYPE, class ARG_TYPE = const TYPE&>
class CList : public CObject
{
protected:
    struct CNode
    {
        CNode* pNext;
        CNode* pPrev;
        TYPE data;
    };

public:
    explicit CList(int nBlockSize = 10)
        : m_pNodeHead(NULL), m_pNodeTail(NULL), m_nCount(0), m_nBlockSize(nBlockSize) {}
    ~CList() override { RemoveAll(); }

    int GetCount() const { return m_nCount; }
    int GetSize() const { return m_nCount; }
    BOOL IsEmpty() const { return m_nCount == 0; }

    TYPE& GetHead() { ASSERT(m_pNodeHead); return m_pNodeHead->data; }
    const TYPE& GetHead() const { ASSERT(m_pNodeHead); return m_pNodeHead->data; }
    TYPE& GetTail() { ASSERT(m_pNodeTail); return m_pNodeTail->data; }
    const TYPE& GetTail() const { ASSERT(m_pNodeTail); return m_pNodeTail->data; }

    TYPE RemoveHead()
    {
        ASSERT(m_pNodeHead);
        TYPE value(std::move(m_pNodeHead->data));
        AfxCollImpl::ListUnlink(m_pNodeHead, m_pNodeTail, m_nCount, m_pNodeHead);
        return value;
    }
    TYPE RemoveTail()
    {
        ASSERT(m_pNodeTail);
        TYPE value(std::move(m_pNodeTail->data));
        AfxCollImpl::ListUnlink(m_pNodeHead, m_pNodeTail, m_nCount, m_pNodeTail);
        return value;
    }
    POSITION AddHead(ARG_TYPE newElement)
    {
        return (POSITION)AfxCollImpl::ListInsert<CNode, ARG_TYPE>(m_pNodeHead, m_pNodeTail, m_nCount, NULL, m_pNodeHead, newElement);
    }
    POSITION AddTail(ARG_TYPE newElement)
    {
        return (POSITION)AfxCollImpl::ListInsert<CNode, ARG_TYPE>(m_pNodeHead, m_pNodeTail, m_nCount, m_pNodeTail, NULL, newElement);
    }
    void AddHead(CList* pNewList)
    {
        // Walk backwards so the other list keeps its order at our head.
        int nAdd = pNewList->m_nCount;
        CNode* p = pNewList->m_pNodeTail;
        for (int i = 0; i < nAdd; i++, p = p->pPrev)
            AddHead(p->data);
    }
    void AddTail(CList* pNewList)
    {
        int nAdd = pNewList->m_nCount;   // pNewList may be this list
        CNode* p = pNewList->m_pNodeHead;
        for (int i = 0; i < nAdd; i++, p = p->pNext)
            AddTail(p->data);
    }
    void RemoveAll() { AfxCollImpl::ListRemoveAll(m_pNodeHead, m_pNodeTail, m_nCount); }

    POSITION GetHeadPosition() const { return (POSITION)m_pNodeHead; }
    POSITION GetTailPosition() const { return (POSITION)m_pNodeTail; }
    TYPE& GetNext(POSITION& rPosition)
    {
        CNode* p = (CNode*)rPosition;
        rPosition = (POSITION)p->pNext;
        return p->data;
    }
    const TYPE& GetNext(POSITION& rPosition) const
    {
        CNode* p = (CNode*)rPosition;
        rPosition = (POSITION)p->pNext;
        return p->data;
    }
    TYPE& GetPrev(POSITION& rPosition)
    {
        CNode* p = (CNode*)rPosition;
        rPosition = (POSITION)p->pPrev;
        return p->data;
    }
    const TYPE& GetPrev(POSITION& rPosition) const
    {
        CNode* p = (CNode*)rPosition;
        rPosition = (POSITION)p->pPrev;
        return p->data;
    }

    TYPE& GetAt(POSITION position) { return ((CNode*)position)->data; }
    const TYPE& GetAt(POSITION position) const { return ((CNode*)position)->data; }
    void SetAt(POSITION pos, ARG_TYPE newElement) { ((CNode*)pos)->data = newElement; }
    void RemoveAt(POSITION position)
    {
        AfxCollImpl::ListUnlink(m_pNodeHead, m_pNodeTail, m_nCount, (CNode*)position);
    }
    POSITION InsertBefore(POSITION position, ARG_TYPE newElement)
    {
        if (position == NULL)
            return AddHead(newElement);
        CNode* pOld = (CNode*)position;
        return (POSITION)AfxCollImpl::ListInsert<CNode, ARG_TYPE>(m_pNodeHead, m_pNodeTail, m_nCount, pOld->pPrev, pOld, newElement);
    }
    POSITION InsertAfter(POSITION position, ARG_TYPE newElement)
    {
        if (position == NULL)
            return AddTail(newElement);
        CNode* pOld = (CNode*)position;
        return (POSITION)AfxCollImpl::ListInsert<CNode, ARG_TYPE>(m_pNodeHead, m_pNodeTail, m_nCount, pOld, pOld->pNext, newElement);
    }

    POSITION Find(ARG_TYPE searchValue, POSITION startAfter = NULL) const
    {
        CNode* p = startAfter == NULL ? m_pNodeHead : ((CNode*)startAfter)->pNext;
        for (; p != NULL; p = p->pNext)
            if (CompareElements(&p->data, &searchValue))
                return (POSITION)p;
        return NULL;
    }
    POSITION FindIndex(int nIndex) const
    {
        return (POSITION)AfxCollImpl::ListFindIndex(m_pNodeHead, m_nCount, nIndex);
    }

protected:
    CNode* m_pNodeHead;
    CNode* m_pNodeTail;
    int m_nCount;
    int m_nBlockSize;
};

// ---- CMap ----

template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
class CMap : public CObject
{
protected:
    struct CAssoc
    {
        CAssoc* pNext;
        UINT nHashValue;
        KEY key;
        VALUE value;
    };

public:
    typedef KEY BASE_KEY;
    typedef ARG_KEY BASE_ARG_KEY;
    typedef VALUE BASE_VALUE;
    typedef ARG_VALUE BASE_ARG_VALUE;

    explicit CMap(int nBlockSize = 10)
        : m_pHashTable(NULL), m_nHashTableSize(17), m_nCount(0), m_nBlockSize(nBlockSize) {}
    ~CMap() override { RemoveAll(); }

    int GetCount() const { return m_nCount; }
    int GetSize() const { return m_nCount; }
    BOOL IsEmpty() const { return m_nCount == 0; }

    BOOL Lookup(ARG_KEY key, VALUE& rValue) const
    {
        UINT nHash;
        CAssoc* pAssoc = GetAssocAt(key, nHash);
        if (pAssoc == NULL)
            return FALSE;
        rValue = pAssoc->value;
        return TRUE;
    }
    VALUE& operator[](ARG_KEY key)
    {
        UINT nHash;
        CAssoc* pAssoc = GetAssocAt(key, nHash);
        if (pAssoc == NULL)
        {
            if (m_pHashTable == NULL)
                InitHashTable(m_nHashTableSize);
            pAssoc = new CAssoc{ m_pHashTable[nHash % m_nHashTableSize], nHash, KEY(key), VALUE() };
            m_pHashTable[nHash % m_nHashTableSize] = pAssoc;
            m_nCount++;
        }
        return pAssoc->value;
    }
    void SetAt(ARG_KEY key, ARG_VALUE newValue) { (*this)[key] = newValue; }
    BOOL RemoveKey(ARG_KEY key)
    {
        if (m_pHashTable == NULL)
            return FALSE;
        UINT nHash = HashKey<ARG_KEY>(key);
        CAssoc** ppPrev = &m_pHashTable[nHash % m_nHashTableSize];
        for (CAssoc* p = *ppPrev; p != NULL; ppPrev = &p->pNext, p = p->pNext)
        {
            if (p->nHashValue == nHash && CompareElements(&p->key, &key))
            {
                *ppPrev = p->pNext;
                delete p;
                m_nCount--;
                return TRUE;
            }
        }
        return FALSE;
    }
    void RemoveAll() { AfxCollImpl::MapRemoveAll(m_pHashTable, m_nHashTableSize, m_nCount); }

    POSITION GetStartPosition() const { return m_nCount == 0 ? NULL : BEFORE_START_POSITION; }
    void GetNextAssoc(POSITION& rNextPosition, KEY& rKey, VALUE& rValue) const
    {
        CAssoc* pAssoc = AfxCollImpl::MapNext(m_pHashTable, m_nHashTableSize, rNextPosition);
        rKey = pAssoc->key;
        rValue = pAssoc->value;
    }

    UINT GetHashTableSize() const { return m_nHashTableSize; }
    void InitHashTable(UINT hashSize, BOOL bAllocNow = TRUE)
    {
        ASSERT(m_nCount == 0);
        if (m_nCount != 0)
            return;
        AfxCollImpl::MapInitHashTable(m_pHashTable, m_nHashTableSize, hashSize, bAllocNow);
    }

protected:
    CAssoc* GetAssocAt(ARG_KEY key, UINT& nHash) const
    {
        nHash = HashKey<ARG_KEY>(key);
        if (m_pHashTable == NULL)
            return NULL;
        for (CAssoc* p = m_pHashTable[nHash % m_nHashTableSize]; p != NULL; p = p->pNext)
            if (p->nHashValue == nHash && CompareElements(&p->key, &key))
                return p;
        return NULL;
    }

    CAssoc** m_pHashTable;
    UINT m_nHashTableSize;
    int m_nCount;
    int m_nBlockSize;
};

// ---- typed pointer wrappers ----

template <class BASE_CLASS, class TYPE>
class CTypedPtrArray : public BASE_CLASS
{
public:
    TYPE GetAt(int nIndex) const { return (TYPE)BASE_CLASS::GetAt(nIndex); }
    TYPE& ElementAt(int nIndex) { return (TYPE&)BASE_CLASS::ElementAt(nIndex); }
    void SetAt(int nIndex, TYPE ptr) { BASE_CLASS::SetAt(nIndex, ptr); }
    void SetAtGrow(int nIndex, TYPE newElement) { BASE_CLASS::SetAtGrow(nIndex, newElement); }
    int Add(TYPE newElement) { return BASE_CLASS::Add(newElement); }
    int Append(const CTypedPtrArray& src) { return BASE_CLASS::Append(src); }
    void Copy(const CTypedPtrArray& src) { BASE_CLASS::Copy(src); }
    void InsertAt(int nIndex, TYPE newElement, int nCount = 1) { BASE_CLASS::InsertAt(nIndex, newElement, nCount); }
    void InsertAt(int nStartIndex, CTypedPtrArray* pNewArray) { BASE_CLASS::InsertAt(nStartIndex, pNewArray); }
    TYPE operator[](int nIndex) const { return (TYPE)BASE_CLASS::operator[](nIndex); }
    TYPE& operator[](int nIndex) { return (TYPE&)BASE_CLASS::operator[](nIndex); }
};

template <class BASE_CLASS, class TYPE>
class CTypedPtrList : public BASE_CLASS
{
public:
    explicit CTypedPtrList(int nBlockSize = 10) : BASE_CLASS(nBlockSize) {}

    TYPE& GetHead() { return (TYPE&)BASE_CLASS::GetHead(); }
    TYPE GetHead() const { return (TYPE)BASE_CLASS::GetHead(); }
    TYPE& GetTail() { return (TYPE&)BASE_CLASS::GetTail(); }
    TYPE GetTail() const { return (TYPE)BASE_CLASS::GetTail(); }
    TYPE RemoveHead() { return (TYPE)BASE_CLASS::RemoveHead(); }
    TYPE RemoveTail() { return (TYPE)BASE_CLASS::RemoveTail(); }
    POSITION AddHead(TYPE newElement) { return BASE_CLASS::AddHead(newElement); }
    POSITION AddTail(TYPE newElement) { return BASE_CLASS::AddTail(newElement); }
    void AddHead(CTypedPtrList* pNewList) { BASE_CLASS::AddHead(pNewList); }
    void AddTail(CTypedPtrList* pNewList) { BASE_CLASS::AddTail(pNewList); }
    TYPE& GetNext(POSITION& rPosition) { return (TYPE&)BASE_CLASS::GetNext(rPosition); }
    TYPE GetNext(POSITION& rPosition) const { return (TYPE)BASE_CLASS::GetNext(rPosition); }
    TYPE& GetPrev(POSITION& rPosition) { return (TYPE&)BASE_CLASS::GetPrev(rPosition); }
    TYPE GetPrev(POSITION& rPosition) const { return (TYPE)BASE_CLASS::GetPrev(rPosition); }
    TYPE& GetAt(POSITION position) { return (TYPE&)BASE_CLASS::GetAt(position); }
    TYPE GetAt(POSITION position) const { return (TYPE)BASE_CLASS::GetAt(position); }
    void SetAt(POSITION pos, TYPE newElement) { BASE_CLASS::SetAt(pos, newElement); }
    POSITION InsertBefore(POSITION position, TYPE newElement) { return BASE_CLASS::InsertBefore(position, newElement); }
    POSITION InsertAfter(POSITION position, TYPE newElement) { return BASE_CLASS::InsertAfter(position, newElement); }
};

template <class BASE_CLASS, class KEY, class VALUE>
class CTypedPtrMap : public BASE_CLASS
{
public:
    explicit CTypedPtrMap(int nBlockSize = 10) : BASE_CLASS(nBlockSize) {}

    BOOL Lookup(typename BASE_CLASS::BASE_ARG_KEY key, VALUE& rValue) const
    {
        typename BASE_CLASS::BASE_VALUE value = NULL;
        BOOL bFound = BASE_CLASS::Lookup(key, value);
        rValue = (VALUE)value;
        return bFound;
    }
    VALUE& operator[](typename BASE_CLASS::BASE_ARG_KEY key) { return (VALUE&)BASE_CLASS::operator[](key); }
    void SetAt(KEY key, VALUE newValue) { BASE_CLASS::SetAt(key, newValue); }
    BOOL RemoveKey(KEY key) { return BASE_CLASS::RemoveKey(key); }
    void GetNextAssoc(POSITION& rPosition, KEY& rKey, VALUE& rValue) const
    {
        typename BASE_CLASS::BASE_KEY keyBase;
        typename BASE_CLASS::BASE_VALUE valueBase;
        BASE_CLASS::GetNextAssoc(rPosition, keyBase, valueBase);
        rKey = (KEY)keyBase;
        rValue = (VALUE)valueBase;
    }
};

// The rest of the core headers, as the classic afxtempl.h brings them.
#include "afx.h"
