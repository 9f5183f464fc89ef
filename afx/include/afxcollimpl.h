// HyAfx: the algorithms behind CArray, CList and CMap (afxtempl.h): raw
// element storage, array growth and shifting, list nodes and hash buckets.
// Included by afxtempl.h; not meant to be included on its own.
#pragma once

#include <new>
#include <stdlib.h>
#include <utility>

namespace AfxCollImpl
{

template <class TYPE>
TYPE* AllocElements(int nCount)
{
    return static_cast<TYPE*>(malloc(sizeof(TYPE) * (size_t)nCount));
}

template <class TYPE>
void ConstructRange(TYPE* pElements, int nFrom, int nTo)
{
    for (int i = nFrom; i < nTo; i++)
        ::new (static_cast<void*>(pElements + i)) TYPE();   // zero for scalars
}

template <class TYPE>
void DestructRange(TYPE* pElements, int nFrom, int nTo)
{
    for (int i = nFrom; i < nTo; i++)
        pElements[i].~TYPE();
}

// Moves the first nSize elements to a fresh block of nNewMax.
template <class TYPE>
TYPE* Reallocate(TYPE* pData, int nSize, int nNewMax)
{
    TYPE* pNewData = AllocElements<TYPE>(nNewMax);
    for (int i = 0; i < nSize; i++)
    {
        ::new (static_cast<void*>(pNewData + i)) TYPE(std::move(pData[i]));
        pData[i].~TYPE();
    }
    free(pData);
    return pNewData;
}

template <class TYPE>
void ArraySetSize(TYPE*& pData, int& nSize, int& nMaxSize, int& nGrowBy, int nNewSize, int nGrowByArg)
{
    if (nGrowByArg != -1)
        nGrowBy = nGrowByArg;
    if (nNewSize <= 0)
    {
        DestructRange(pData, 0, nSize);
        free(pData);
        pData = NULL;
        nSize = nMaxSize = 0;
        return;
    }
    if (pData == NULL)
    {
        int nAlloc = nNewSize > nGrowBy ? nNewSize : nGrowBy;
        pData = AllocElements<TYPE>(nAlloc);
        ConstructRange(pData, 0, nNewSize);
        nSize = nNewSize;
        nMaxSize = nAlloc;
        return;
    }
    if (nNewSize <= nMaxSize)
    {
        if (nNewSize > nSize)
            ConstructRange(pData, nSize, nNewSize);
        else
            DestructRange(pData, nNewSize, nSize);
        nSize = nNewSize;
        return;
    }
    int nStep = nGrowBy;
    if (nStep <= 0)
    {
        // Automatic growth: an eighth of the size, between 4 and 1024 elements.
        nStep = nSize / 8;
        nStep = nStep < 4 ? 4 : (nStep > 1024 ? 1024 : nStep);
    }
    int nNewMax = nMaxSize + nStep > nNewSize ? nMaxSize + nStep : nNewSize;
    pData = Reallocate(pData, nSize, nNewMax);
    ConstructRange(pData, nSize, nNewSize);
    nSize = nNewSize;
    nMaxSize = nNewMax;
}

template <class TYPE>
void ArrayFreeExtra(TYPE*& pData, int nSize, int& nMaxSize)
{
    if (nSize == nMaxSize)
        return;
    if (nSize == 0)
    {
        free(pData);
        pData = NULL;
    }
    else
    {
        pData = Reallocate(pData, nSize, nSize);
    }
    nMaxSize = nSize;
}

// newElement is a private copy: it may have come from the array itself.
template <class TYPE>
void ArrayInsertAt(TYPE*& pData, int& nSize, int& nMaxSize, int& nGrowBy,
                   int nIndex, const TYPE& newElement, int nCount)
{
    if (nIndex < 0 || nCount <= 0)
        return;
    if (nIndex >= nSize)
    {
        ArraySetSize(pData, nSize, nMaxSize, nGrowBy, nIndex + nCount, -1);
    }
    else
    {
        int nOldSize = nSize;
        ArraySetSize(pData, nSize, nMaxSize, nGrowBy, nSize + nCount, -1);
        for (int i = nOldSize - 1; i >= nIndex; i--)
            pData[i + nCount] = std::move(pData[i]);
    }
    for (int i = nIndex; i < nIndex + nCount; i++)
        pData[i] = newElement;
}

template <class TYPE>
void ArrayRemoveAt(TYPE* pData, int& nSize, int nIndex, int nCount)
{
    if (nIndex < 0 || nCount <= 0 || nIndex >= nSize)
        return;
    if (nCount > nSize - nIndex)
        nCount = nSize - nIndex;
    for (int i = nIndex; i + nCount < nSize; i++)
        pData[i] = std::move(pData[i + nCount]);
    DestructRange(pData, nSize - nCount, nSize);
    nSize -= nCount;
}

// ---- list nodes: { pNext, pPrev, data } ----

template <class NODE, class ARG_TYPE>
NODE* ListInsert(NODE*& pHead, NODE*& pTail, int& nCount, NODE* pPrev, NODE* pNext, ARG_TYPE newElement)
{
    NODE* pNode = new NODE{ pNext, pPrev, newElement };
    if (pPrev != NULL)
        pPrev->pNext = pNode;
    else
        pHead = pNode;
    if (pNext != NULL)
        pNext->pPrev = pNode;
    else
        pTail = pNode;
    nCount++;
    return pNode;
}

template <class NODE>
void ListUnlink(NODE*& pHead, NODE*& pTail, int& nCount, NODE* pNode)
{
    if (pNode->pPrev != NULL)
        pNode->pPrev->pNext = pNode->pNext;
    else
        pHead = pNode->pNext;
    if (pNode->pNext != NULL)
        pNode->pNext->pPrev = pNode->pPrev;
    else
        pTail = pNode->pPrev;
    nCount--;
    delete pNode;
}

template <class NODE>
void ListRemoveAll(NODE*& pHead, NODE*& pTail, int& nCount)
{
    for (NODE* p = pHead; p != NULL; )
    {
        NODE* pNext = p->pNext;
        delete p;
        p = pNext;
    }
    pHead = pTail = NULL;
    nCount = 0;
}

template <class NODE>
NODE* ListFindIndex(NODE* pHead, int nCount, int nIndex)
{
    if (nIndex < 0 || nIndex >= nCount)
        return NULL;
    NODE* p = pHead;
    while (nIndex--)
        p = p->pNext;
    return p;
}

// ---- hash map associations: { pNext, nHashValue, key, value } ----

template <class ASSOC>
void MapRemoveAll(ASSOC**& pHashTable, UINT nHashTableSize, int& nCount)
{
    if (pHashTable != NULL)
    {
        for (UINT n = 0; n < nHashTableSize; n++)
        {
            for (ASSOC* p = pHashTable[n]; p != NULL; )
            {
                ASSOC* pNext = p->pNext;
                delete p;
                p = pNext;
            }
        }
        delete[] pHashTable;
        pHashTable = NULL;
    }
    nCount = 0;
}

template <class ASSOC>
void MapInitHashTable(ASSOC**& pHashTable, UINT& nHashTableSize, UINT nNewSize, BOOL bAllocNow)
{
    // Only an empty map may change its table size.
    delete[] pHashTable;
    pHashTable = NULL;
    if (nNewSize == 0)
        nNewSize = 17;
    if (bAllocNow)
        pHashTable = new ASSOC*[nNewSize]();
    nHashTableSize = nNewSize;
}

template <class ASSOC>
ASSOC* MapFirstFrom(ASSOC** pHashTable, UINT nHashTableSize, UINT nBucket)
{
    for (UINT n = nBucket; pHashTable != NULL && n < nHashTableSize; n++)
        if (pHashTable[n] != NULL)
            return pHashTable[n];
    return NULL;
}

// Steps rNextPosition past pAssoc (returns the association to report).
template <class ASSOC>
ASSOC* MapNext(ASSOC** pHashTable, UINT nHashTableSize, POSITION& rNextPosition)
{
    ASSOC* pAssoc = (ASSOC*)rNextPosition;
    if (rNextPosition == BEFORE_START_POSITION)
        pAssoc = MapFirstFrom(pHashTable, nHashTableSize, 0);
    ASSOC* pNext = pAssoc->pNext;
    if (pNext == NULL)
        pNext = MapFirstFrom(pHashTable, nHashTableSize, pAssoc->nHashValue % nHashTableSize + 1);
    rNextPosition = (POSITION)pNext;
    return pAssoc;
}

} // namespace AfxCollImpl
