// HyAfx: CString, the framework's counted, growable MBCS string.
#pragma once

#include "afxver.h"
#include <stdarg.h>

// The object is a single pointer to the characters; the length and the
// allocated size live in a header just before them, so a CString is exactly
// as large as an LPTSTR. Every CString owns its buffer (no sharing).
class HYAFX_API CString
{
public:
    CString();
    CString(const CString& stringSrc);
    CString(CString&& stringSrc) noexcept;
    CString(TCHAR ch, int nRepeat = 1);
    // lpsz may be MAKEINTRESOURCE(id): the string is then loaded from the resources.
    CString(LPCSTR lpsz);
    CString(LPCWSTR lpsz);
    CString(LPCTSTR lpch, int nLength);
    CString(const unsigned char* psz);
    ~CString();

    int GetLength() const;
    BOOL IsEmpty() const;
    void Empty();

    TCHAR GetAt(int nIndex) const;
    TCHAR operator[](int nIndex) const;
    void SetAt(int nIndex, TCHAR ch);
    operator LPCTSTR() const { return m_pchData; }

    const CString& operator=(const CString& stringSrc);
    const CString& operator=(CString&& stringSrc) noexcept;
    const CString& operator=(TCHAR ch);
    const CString& operator=(LPCSTR lpsz);
    const CString& operator=(LPCWSTR lpsz);
    const CString& operator=(const unsigned char* psz);

    const CString& operator+=(const CString& string);
    const CString& operator+=(TCHAR ch);
    const CString& operator+=(LPCTSTR lpsz);

    friend HYAFX_API CString AFXAPI operator+(const CString& string1, const CString& string2);
    friend HYAFX_API CString AFXAPI operator+(const CString& string, TCHAR ch);
    friend HYAFX_API CString AFXAPI operator+(TCHAR ch, const CString& string);
    friend HYAFX_API CString AFXAPI operator+(const CString& string, LPCTSTR lpsz);
    friend HYAFX_API CString AFXAPI operator+(LPCTSTR lpsz, const CString& string);

    int Compare(LPCTSTR lpsz) const;
    int CompareNoCase(LPCTSTR lpsz) const;
    int Collate(LPCTSTR lpsz) const;
    int CollateNoCase(LPCTSTR lpsz) const;

    CString Mid(int nFirst, int nCount) const;
    CString Mid(int nFirst) const;
    CString Left(int nCount) const;
    CString Right(int nCount) const;
    CString SpanIncluding(LPCTSTR lpszCharSet) const;
    CString SpanExcluding(LPCTSTR lpszCharSet) const;

    void MakeUpper();
    void MakeLower();
    void MakeReverse();

    int Replace(TCHAR chOld, TCHAR chNew);
    int Replace(LPCTSTR lpszOld, LPCTSTR lpszNew);
    int Remove(TCHAR chRemove);
    int Insert(int nIndex, TCHAR ch);
    int Insert(int nIndex, LPCTSTR pstr);
    int Delete(int nIndex, int nCount = 1);

    void TrimRight();
    void TrimRight(TCHAR chTarget);
    void TrimRight(LPCTSTR lpszTargets);
    void TrimLeft();
    void TrimLeft(TCHAR chTarget);
    void TrimLeft(LPCTSTR lpszTargets);

    int Find(TCHAR ch) const;
    int Find(TCHAR ch, int nStart) const;
    int Find(LPCTSTR lpszSub) const;
    int Find(LPCTSTR lpszSub, int nStart) const;
    int ReverseFind(TCHAR ch) const;
    int FindOneOf(LPCTSTR lpszCharSet) const;

    void AFX_CDECL Format(LPCTSTR lpszFormat, ...);
    void AFX_CDECL Format(UINT nFormatID, ...);
    void FormatV(LPCTSTR lpszFormat, va_list argList);
    // %1..%99 inserts, as ::FormatMessage expands them.
    void AFX_CDECL FormatMessage(LPCTSTR lpszFormat, ...);
    void AFX_CDECL FormatMessage(UINT nFormatID, ...);

    BOOL LoadString(UINT nID);

    void AnsiToOem();
    void OemToAnsi();

    LPTSTR GetBuffer(int nMinBufLength);
    void ReleaseBuffer(int nNewLength = -1);
    LPTSTR GetBufferSetLength(int nNewLength);
    void FreeExtra();
    LPTSTR LockBuffer();
    void UnlockBuffer();

private:
    struct Header;
    Header* GetHeader() const;
    void AllocBuffer(int nLen);
    void AssignCopy(int nLen, LPCTSTR lpsz);
    void ConcatInPlace(int nLen, LPCTSTR lpsz);
    void EnsureCapacity(int nLen);
    void Release();

    LPTSTR m_pchData;
};

// Comparisons with a CString or an LPCTSTR on either side (case sensitive).
HYAFX_API bool AFXAPI operator==(const CString& s1, const CString& s2);
HYAFX_API bool AFXAPI operator==(const CString& s1, LPCTSTR s2);
HYAFX_API bool AFXAPI operator==(LPCTSTR s1, const CString& s2);
HYAFX_API bool AFXAPI operator!=(const CString& s1, const CString& s2);
HYAFX_API bool AFXAPI operator!=(const CString& s1, LPCTSTR s2);
HYAFX_API bool AFXAPI operator!=(LPCTSTR s1, const CString& s2);
HYAFX_API bool AFXAPI operator<(const CString& s1, const CString& s2);
HYAFX_API bool AFXAPI operator<(const CString& s1, LPCTSTR s2);
HYAFX_API bool AFXAPI operator<(LPCTSTR s1, const CString& s2);
HYAFX_API bool AFXAPI operator>(const CString& s1, const CString& s2);
HYAFX_API bool AFXAPI operator>(const CString& s1, LPCTSTR s2);
HYAFX_API bool AFXAPI operator>(LPCTSTR s1, const CString& s2);
HYAFX_API bool AFXAPI operator<=(const CString& s1, const CString& s2);
HYAFX_API bool AFXAPI operator<=(const CString& s1, LPCTSTR s2);
HYAFX_API bool AFXAPI operator<=(LPCTSTR s1, const CString& s2);
HYAFX_API bool AFXAPI operator>=(const CString& s1, const CString& s2);
HYAFX_API bool AFXAPI operator>=(const CString& s1, LPCTSTR s2);
HYAFX_API bool AFXAPI operator>=(LPCTSTR s1, const CString& s2);

HYAFX_API const CString& AFXAPI AfxGetEmptyString();
#define afxEmptyString AfxGetEmptyString()

// Loads string nIDS and replaces %1 (and %2) with the given texts.
HYAFX_API void AFXAPI AfxFormatString1(CString& rString, UINT nIDS, LPCTSTR lpsz1);
HYAFX_API void AFXAPI AfxFormatString2(CString& rString, UINT nIDS, LPCTSTR lpsz1, LPCTSTR lpsz2);
// Replaces %1..%9 in lpszFormat with rglpsz[0..nString-1].
HYAFX_API void AFXAPI AfxFormatStrings(CString& rString, LPCTSTR lpszFormat,
                                       LPCTSTR const* rglpsz, int nString);
// Copies the iSubString'th field of lpszFullString (fields separated by chSep).
HYAFX_API BOOL AFXAPI AfxExtractSubString(CString& rString, LPCTSTR lpszFullString,
                                          int iSubString, TCHAR chSep = '\n');
