// HyAfx: the non-template collections (arrays, lists and maps of pointers,
// words, bytes and strings). Each is a thin class over CArray, CList or CMap
// (afxtempl.h) with the classic name and run-time class.
#pragma once

#include "afxtempl.h"

// ---- arrays ----
// A growable array: SetSize(n, nGrowBy) sets the element count (new elements
// are zero / empty) and, when nGrowBy is not -1, the growth step (0: automatic).
class HYAFX_API CByteArray : public CArray<BYTE, BYTE> { DECLARE_DYNAMIC(CByteArray) };
class HYAFX_API CWordArray : public CArray<WORD, WORD> { DECLARE_DYNAMIC(CWordArray) };
class HYAFX_API CDWordArray : public CArray<DWORD, DWORD> { DECLARE_DYNAMIC(CDWordArray) };
class HYAFX_API CUIntArray : public CArray<UINT, UINT> { DECLARE_DYNAMIC(CUIntArray) };
class HYAFX_API CPtrArray : public CArray<void*, void*> { DECLARE_DYNAMIC(CPtrArray) };
class HYAFX_API CObArray : public CArray<CObject*, CObject*> { DECLARE_DYNAMIC(CObArray) };
class HYAFX_API CStringArray : public CArray<CString, const CString&> { DECLARE_DYNAMIC(CStringArray) };

// ---- doubly linked lists ----
// A POSITION is a node; it stays valid until that node is removed.
class HYAFX_API CPtrList : public CList<void*, void*> { DECLARE_DYNAMIC(CPtrList) using CList::CList; };
class HYAFX_API CObList : public CList<CObject*, CObject*> { DECLARE_DYNAMIC(CObList) using CList::CList; };
class HYAFX_API CStringList : public CList<CString, const CString&> { DECLARE_DYNAMIC(CStringList) using CList::CList; };

// ---- hash maps ----
// Iterate with GetStartPosition / GetNextAssoc; the order is unspecified.
// (DECLARE_DYNAMIC leaves the members public.)
class HYAFX_API CMapStringToPtr : public CMap<CString, LPCTSTR, void*, void*>
{ DECLARE_DYNAMIC(CMapStringToPtr) using CMap::CMap; };
class HYAFX_API CMapStringToOb : public CMap<CString, LPCTSTR, CObject*, CObject*>
{ DECLARE_DYNAMIC(CMapStringToOb) using CMap::CMap; };
class HYAFX_API CMapStringToString : public CMap<CString, LPCTSTR, CString, LPCTSTR>
{ DECLARE_DYNAMIC(CMapStringToString) using CMap::CMap; };
class HYAFX_API CMapPtrToPtr : public CMap<void*, void*, void*, void*> { DECLARE_DYNAMIC(CMapPtrToPtr) using CMap::CMap; };
class HYAFX_API CMapWordToPtr : public CMap<WORD, WORD, void*, void*> { DECLARE_DYNAMIC(CMapWordToPtr) using CMap::CMap; };
