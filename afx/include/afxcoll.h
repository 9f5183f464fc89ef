// HyAfx: the non-template collections (arrays, lists and maps of pointers,
// words, bytes and strings).
#pragma once

#include "afxstr.h"

#ifndef HYAFX_POSITION_DEFINED
#define HYAFX_POSITION_DEFINED
// An opaque iterator of the lists and maps.
struct __POSITION {};
typedef __POSITION* POSITION;
#define BEFORE_START_POSITION ((POSITION)-1L)
#endif

// ---- arrays ----
// A growable array: SetSize(n, nGrowBy) sets the element count (new elements
// are zero / empty) and, when nGrowBy is not -1, the growth step (0: automatic).
#define HYAFX_DECLARE_ARRAY(class_name, TYPE, ARG_TYPE)                              \
class HYAFX_API class_name : public CObject                                          \
{                                                                                    \
    DECLARE_DYNAMIC(class_name)                                                      \
public:                                                                              \
    typedef TYPE BASE_TYPE;                                                          \
    typedef ARG_TYPE BASE_ARG_TYPE;                                                  \
                                                                                     \
    class_name();                                                                    \
    ~class_name() override;                                                          \
                                                                                     \
    int GetSize() const { return m_nSize; }                                          \
    int GetCount() const { return m_nSize; }                                         \
    BOOL IsEmpty() const { return m_nSize == 0; }                                    \
    int GetUpperBound() const { return m_nSize - 1; }                                \
    void SetSize(int nNewSize, int nGrowBy = -1);                                    \
    void FreeExtra();                                                                \
    void RemoveAll() { SetSize(0); }                                                 \
                                                                                     \
    TYPE GetAt(int nIndex) const                                                     \
        { ASSERT(nIndex >= 0 && nIndex < m_nSize); return m_pData[nIndex]; }         \
    void SetAt(int nIndex, ARG_TYPE newElement);                                     \
    TYPE& ElementAt(int nIndex)                                                      \
        { ASSERT(nIndex >= 0 && nIndex < m_nSize); return m_pData[nIndex]; }         \
    const BASE_TYPE* GetData() const { return m_pData; }                              \
    TYPE* GetData() { return m_pData; }                                              \
                                                                                     \
    void SetAtGrow(int nIndex, ARG_TYPE newElement);                                 \
    int Add(ARG_TYPE newElement);                                                    \
    int Append(const class_name& src);                                               \
    void Copy(const class_name& src);                                                \
                                                                                     \
    TYPE operator[](int nIndex) const { return GetAt(nIndex); }                      \
    TYPE& operator[](int nIndex) { return ElementAt(nIndex); }                       \
                                                                                     \
    void InsertAt(int nIndex, ARG_TYPE newElement, int nCount = 1);                  \
    void RemoveAt(int nIndex, int nCount = 1);                                       \
    void InsertAt(int nStartIndex, class_name* pNewArray);                           \
                                                                                     \
protected:                                                                           \
    TYPE* m_pData;                                                                   \
    int m_nSize;                                                                     \
    int m_nMaxSize;                                                                  \
    int m_nGrowBy;                                                                   \
};

HYAFX_DECLARE_ARRAY(CByteArray, BYTE, BYTE)
HYAFX_DECLARE_ARRAY(CWordArray, WORD, WORD)
HYAFX_DECLARE_ARRAY(CDWordArray, DWORD, DWORD)
HYAFX_DECLARE_ARRAY(CUIntArray, UINT, UINT)
HYAFX_DECLARE_ARRAY(CPtrArray, void*, void*)
HYAFX_DECLARE_ARRAY(CObArray, CObject*, CObject*)
HYAFX_DECLARE_ARRAY(CStringArray, CString, const CString&)

// ---- doubly linked lists ----
// A POSITION is a node; it stays valid until that node is removed.
#define HYAFX_DECLARE_LIST(class_name, TYPE, ARG_TYPE)                               \
class HYAFX_API class_name : public CObject                                          \
{                                                                                    \
    DECLARE_DYNAMIC(class_name)                                                      \
protected:                                                                           \
    struct CNode                                                                     \
    {                                                                                \
        CNode* pNext;                                                                \
        CNode* pPrev;                                                                \
        TYPE data;                                                                   \
    };                                                                               \
public:                                                                              \
    explicit class_name(int nBlockSize = 10);                                        \
    ~class_name() override;                                                          \
                                                                                     \
    int GetCount() const { return m_nCount; }                                        \
    int GetSize() const { return m_nCount; }                                         \
    BOOL IsEmpty() const { return m_nCount == 0; }                                   \
                                                                                     \
    TYPE& GetHead() { ASSERT(m_pNodeHead); return m_pNodeHead->data; }               \
    TYPE GetHead() const { ASSERT(m_pNodeHead); return m_pNodeHead->data; }          \
    TYPE& GetTail() { ASSERT(m_pNodeTail); return m_pNodeTail->data; }               \
    TYPE GetTail() const { ASSERT(m_pNodeTail); return m_pNodeTail->data; }          \
                                                                                     \
    TYPE RemoveHead();                                                               \
    TYPE RemoveTail();                                                               \
    POSITION AddHead(ARG_TYPE newElement);                                           \
    POSITION AddTail(ARG_TYPE newElement);                                           \
    void AddHead(class_name* pNewList);                                              \
    void AddTail(class_name* pNewList);                                              \
    void RemoveAll();                                                                \
                                                                                     \
    POSITION GetHeadPosition() const { return (POSITION)m_pNodeHead; }               \
    POSITION GetTailPosition() const { return (POSITION)m_pNodeTail; }               \
    TYPE& GetNext(POSITION& rPosition)                                               \
        { CNode* p = (CNode*)rPosition; rPosition = (POSITION)p->pNext; return p->data; } \
    TYPE GetNext(POSITION& rPosition) const                                          \
        { CNode* p = (CNode*)rPosition; rPosition = (POSITION)p->pNext; return p->data; } \
    TYPE& GetPrev(POSITION& rPosition)                                               \
        { CNode* p = (CNode*)rPosition; rPosition = (POSITION)p->pPrev; return p->data; } \
    TYPE GetPrev(POSITION& rPosition) const                                          \
        { CNode* p = (CNode*)rPosition; rPosition = (POSITION)p->pPrev; return p->data; } \
                                                                                     \
    TYPE& GetAt(POSITION position) { return ((CNode*)position)->data; }              \
    TYPE GetAt(POSITION position) const { return ((CNode*)position)->data; }         \
    void SetAt(POSITION pos, ARG_TYPE newElement) { ((CNode*)pos)->data = newElement; } \
    void RemoveAt(POSITION position);                                                \
    POSITION InsertBefore(POSITION position, ARG_TYPE newElement);                   \
    POSITION InsertAfter(POSITION position, ARG_TYPE newElement);                    \
                                                                                     \
    POSITION Find(ARG_TYPE searchValue, POSITION startAfter = NULL) const;           \
    POSITION FindIndex(int nIndex) const;                                            \
                                                                                     \
protected:                                                                           \
    CNode* m_pNodeHead;                                                              \
    CNode* m_pNodeTail;                                                              \
    int m_nCount;                                                                    \
    int m_nBlockSize;                                                                \
};

HYAFX_DECLARE_LIST(CPtrList, void*, void*)
HYAFX_DECLARE_LIST(CObList, CObject*, CObject*)
HYAFX_DECLARE_LIST(CStringList, CString, const CString&)

// ---- hash maps ----
// Iterate with GetStartPosition / GetNextAssoc; the order is unspecified.
#define HYAFX_DECLARE_MAP(class_name, KEY, ARG_KEY, VALUE, ARG_VALUE)                \
class HYAFX_API class_name : public CObject                                          \
{                                                                                    \
    DECLARE_DYNAMIC(class_name)                                                      \
protected:                                                                           \
    struct CAssoc                                                                    \
    {                                                                                \
        CAssoc* pNext;                                                               \
        UINT nHashValue;                                                             \
        KEY key;                                                                     \
        VALUE value;                                                                 \
    };                                                                               \
public:                                                                              \
    typedef KEY BASE_KEY;                                                            \
    typedef ARG_KEY BASE_ARG_KEY;                                                    \
    typedef VALUE BASE_VALUE;                                                        \
    typedef ARG_VALUE BASE_ARG_VALUE;                                                \
                                                                                     \
    explicit class_name(int nBlockSize = 10);                                        \
    ~class_name() override;                                                          \
                                                                                     \
    int GetCount() const { return m_nCount; }                                        \
    int GetSize() const { return m_nCount; }                                         \
    BOOL IsEmpty() const { return m_nCount == 0; }                                   \
                                                                                     \
    BOOL Lookup(ARG_KEY key, VALUE& rValue) const;                                   \
    VALUE& operator[](ARG_KEY key);                                                  \
    void SetAt(ARG_KEY key, ARG_VALUE newValue) { (*this)[key] = newValue; }         \
    BOOL RemoveKey(ARG_KEY key);                                                     \
    void RemoveAll();                                                                \
                                                                                     \
    POSITION GetStartPosition() const                                                \
        { return m_nCount == 0 ? NULL : BEFORE_START_POSITION; }                     \
    void GetNextAssoc(POSITION& rNextPosition, KEY& rKey, VALUE& rValue) const;      \
                                                                                     \
    UINT GetHashTableSize() const { return m_nHashTableSize; }                       \
    void InitHashTable(UINT hashSize, BOOL bAllocNow = TRUE);                        \
                                                                                     \
protected:                                                                           \
    CAssoc* GetAssocAt(ARG_KEY key, UINT& nHash) const;                              \
    CAssoc** m_pHashTable;                                                           \
    UINT m_nHashTableSize;                                                           \
    int m_nCount;                                                                    \
    int m_nBlockSize;                                                                \
};

HYAFX_DECLARE_MAP(CMapStringToPtr, CString, LPCTSTR, void*, void*)
HYAFX_DECLARE_MAP(CMapStringToOb, CString, LPCTSTR, CObject*, CObject*)
HYAFX_DECLARE_MAP(CMapStringToString, CString, LPCTSTR, CString, LPCTSTR)
HYAFX_DECLARE_MAP(CMapPtrToPtr, void*, void*, void*, void*)
HYAFX_DECLARE_MAP(CMapWordToPtr, WORD, WORD, void*, void*)
