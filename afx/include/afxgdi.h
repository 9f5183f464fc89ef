// HyAfx: GDI wrappers. CGdiObject and its kinds (CPen, CBrush, CFont,
// CBitmap, CRgn), the device context CDC and its window flavours, plus two
// scope helpers of our own (CDCSelect, CDCSaveState) and a double buffer
// (CMemDCBuffer) that make select-and-restore the default.
//
// Handle maps (per thread, docs/framework.md): an object that owns a handle
// (Attach, Create*) is found again by FromHandle on the thread that attached
// it; any other handle gets a temporary wrapper that does not own it, one per
// handle and thread, freed by AfxDeleteTempGdiMaps() (idle processing) or
// when the thread ends.
#pragma once

#include "afxver.h"
#include "afxgeom.h"

class CString;
class CWnd;
class CDC;

// Frees this thread's temporary CGdiObject and CDC wrappers. The handles they
// wrap are left alone.
HYAFX_API void AFXAPI AfxDeleteTempGdiMaps();

/////////////////////////////////////////////////////////////////////////////
// CGdiObject

class HYAFX_API CGdiObject : public CObject
{
    DECLARE_DYNAMIC(CGdiObject)
public:
    HGDIOBJ m_hObject;

    CGdiObject() noexcept : m_hObject(NULL) {}
    // Deletes the attached object, if any.
    virtual ~CGdiObject();

    // Safe on a NULL pointer: answers NULL.
    HGDIOBJ GetSafeHandle() const;
    operator HGDIOBJ() const { return GetSafeHandle(); }

    static CGdiObject* PASCAL FromHandle(HGDIOBJ hObject);
    static void PASCAL DeleteTempMap();
    BOOL Attach(HGDIOBJ hObject);
    HGDIOBJ Detach();

    BOOL DeleteObject();
    int GetObject(int nCount, LPVOID lpObject) const;
    UINT GetObjectType() const;
    BOOL CreateStockObject(int nIndex);
    BOOL UnrealizeObject();
    BOOL operator==(const CGdiObject& obj) const { return obj.m_hObject == m_hObject; }
    BOOL operator!=(const CGdiObject& obj) const { return obj.m_hObject != m_hObject; }
};

/////////////////////////////////////////////////////////////////////////////
// CPen

class HYAFX_API CPen : public CGdiObject
{
    DECLARE_DYNAMIC(CPen)
public:
    static CPen* PASCAL FromHandle(HPEN hPen);

    CPen() noexcept {}
    // A failed creation leaves the object empty (GetSafeHandle() == NULL).
    CPen(int nPenStyle, int nWidth, COLORREF crColor);
    CPen(int nPenStyle, int nWidth, const LOGBRUSH* pLogBrush,
         int nStyleCount = 0, const DWORD* lpStyle = NULL);

    BOOL CreatePen(int nPenStyle, int nWidth, COLORREF crColor);
    BOOL CreatePen(int nPenStyle, int nWidth, const LOGBRUSH* pLogBrush,
                   int nStyleCount = 0, const DWORD* lpStyle = NULL);
    BOOL CreatePenIndirect(LPLOGPEN lpLogPen);

    operator HPEN() const { return (HPEN)GetSafeHandle(); }
    int GetLogPen(LOGPEN* pLogPen) { return ::GetObject(m_hObject, sizeof(LOGPEN), pLogPen); }
    int GetExtLogPen(EXTLOGPEN* pLogPen) { return ::GetObject(m_hObject, sizeof(EXTLOGPEN), pLogPen); }
};

/////////////////////////////////////////////////////////////////////////////
// CBrush

class CBitmap;

class HYAFX_API CBrush : public CGdiObject
{
    DECLARE_DYNAMIC(CBrush)
public:
    static CBrush* PASCAL FromHandle(HBRUSH hBrush);

    CBrush() noexcept {}
    // A failed creation leaves the object empty (GetSafeHandle() == NULL).
    explicit CBrush(COLORREF crColor);
    CBrush(int nIndex, COLORREF crColor);
    explicit CBrush(CBitmap* pBitmap);

    BOOL CreateSolidBrush(COLORREF crColor);
    BOOL CreateHatchBrush(int nIndex, COLORREF crColor);
    BOOL CreateBrushIndirect(const LOGBRUSH* lpLogBrush);
    BOOL CreatePatternBrush(CBitmap* pBitmap);
    BOOL CreateDIBPatternBrush(const void* lpPackedDIB, UINT nUsage);
    // System colour brushes are owned by the system; deleting one is harmless.
    BOOL CreateSysColorBrush(int nIndex);

    operator HBRUSH() const { return (HBRUSH)GetSafeHandle(); }
    int GetLogBrush(LOGBRUSH* pLogBrush) { return ::GetObject(m_hObject, sizeof(LOGBRUSH), pLogBrush); }
};

/////////////////////////////////////////////////////////////////////////////
// CFont

class HYAFX_API CFont : public CGdiObject
{
    DECLARE_DYNAMIC(CFont)
public:
    static CFont* PASCAL FromHandle(HFONT hFont);

    CFont() noexcept {}

    BOOL CreateFontIndirect(const LOGFONT* lpLogFont);
    BOOL CreateFont(int nHeight, int nWidth, int nEscapement, int nOrientation, int nWeight,
                    BYTE bItalic, BYTE bUnderline, BYTE cStrikeOut, BYTE nCharSet,
                    BYTE nOutPrecision, BYTE nClipPrecision, BYTE nQuality,
                    BYTE nPitchAndFamily, LPCTSTR lpszFacename);
    // nPointSize is in tenths of a point; the height is converted to logical
    // units of pDC (the screen when NULL).
    BOOL CreatePointFont(int nPointSize, LPCTSTR lpszFaceName, CDC* pDC = NULL);
    // lfHeight of *lpLogFont is in tenths of a point.
    BOOL CreatePointFontIndirect(const LOGFONT* lpLogFont, CDC* pDC = NULL);

    operator HFONT() const { return (HFONT)GetSafeHandle(); }
    int GetLogFont(LOGFONT* pLogFont) { return ::GetObject(m_hObject, sizeof(LOGFONT), pLogFont); }
};

/////////////////////////////////////////////////////////////////////////////
// CBitmap

class HYAFX_API CBitmap : public CGdiObject
{
    DECLARE_DYNAMIC(CBitmap)
public:
    static CBitmap* PASCAL FromHandle(HBITMAP hBitmap);

    CBitmap() noexcept {}

    // Finds the module through the resource chain (AfxFindResourceHandle).
    BOOL LoadBitmap(LPCTSTR lpszResourceName);
    BOOL LoadBitmap(UINT nIDResource);
    BOOL LoadOEMBitmap(UINT nIDBitmap);
    BOOL CreateBitmap(int nWidth, int nHeight, UINT nPlanes, UINT nBitcount, const void* lpBits);
    BOOL CreateBitmapIndirect(LPBITMAP lpBitmap);
    BOOL CreateCompatibleBitmap(CDC* pDC, int nWidth, int nHeight);
    BOOL CreateDiscardableBitmap(CDC* pDC, int nWidth, int nHeight);
    // Extension of ours: a top-down 32 bits-per-pixel DIB section (BI_RGB,
    // pixels as 0x00RRGGBB). *ppvBits, when given, receives the pixel memory.
    BOOL CreateDIBSection32(int nWidth, int nHeight, void** ppvBits = NULL);

    operator HBITMAP() const { return (HBITMAP)GetSafeHandle(); }
    int GetBitmap(BITMAP* pBitMap) { return ::GetObject(m_hObject, sizeof(BITMAP), pBitMap); }
    DWORD SetBitmapBits(DWORD dwCount, const void* lpBits);
    DWORD GetBitmapBits(DWORD dwCount, LPVOID lpBits) const;
    CSize SetBitmapDimension(int nWidth, int nHeight);
    CSize GetBitmapDimension() const;
};

/////////////////////////////////////////////////////////////////////////////
// CRgn

class HYAFX_API CRgn : public CGdiObject
{
    DECLARE_DYNAMIC(CRgn)
public:
    static CRgn* PASCAL FromHandle(HRGN hRgn);

    CRgn() noexcept {}

    BOOL CreateRectRgn(int x1, int y1, int x2, int y2);
    BOOL CreateRectRgnIndirect(LPCRECT lpRect);
    BOOL CreateEllipticRgn(int x1, int y1, int x2, int y2);
    BOOL CreateEllipticRgnIndirect(LPCRECT lpRect);
    BOOL CreatePolygonRgn(const POINT* lpPoints, int nCount, int nMode);
    BOOL CreatePolyPolygonRgn(const POINT* lpPoints, const INT* lpPolyCounts, int nCount, int nPolyFillMode);
    BOOL CreateRoundRectRgn(int x1, int y1, int x2, int y2, int x3, int y3);

    // This region must exist already; it receives the result.
    int CombineRgn(CRgn* pRgn1, CRgn* pRgn2, int nCombineMode);
    int CopyRgn(CRgn* pRgnSrc);
    BOOL EqualRgn(CRgn* pRgn) const;
    int OffsetRgn(int x, int y);
    int OffsetRgn(POINT point);
    BOOL PtInRegion(int x, int y) const;
    BOOL PtInRegion(POINT point) const;
    BOOL RectInRegion(LPCRECT lpRect) const;
    int GetRgnBox(LPRECT lpRect) const;
    void SetRectRgn(int x1, int y1, int x2, int y2);
    void SetRectRgn(LPCRECT lpRect);
    int GetRegionData(LPRGNDATA lpRgnData, int nCount) const;

    operator HRGN() const { return (HRGN)GetSafeHandle(); }
};

/////////////////////////////////////////////////////////////////////////////
// CDC
//
// m_hDC receives output, m_hAttribDC answers queries; both are the same
// handle unless SetAttribDC/SetOutputDC split them. State setters (colours,
// modes, mapping, selection, clipping) apply to both.

class HYAFX_API CDC : public CObject
{
    DECLARE_DYNAMIC(CDC)
public:
    HDC m_hDC;
    HDC m_hAttribDC;
    BOOL m_bPrinting;

    CDC() noexcept : m_hDC(NULL), m_hAttribDC(NULL), m_bPrinting(FALSE) {}
    // Deletes an attached DC (DeleteDC); window DCs are released by their classes.
    virtual ~CDC();

    // Safe on a NULL pointer: answers NULL.
    HDC GetSafeHdc() const;
    operator HDC() const { return GetSafeHdc(); }

    static CDC* PASCAL FromHandle(HDC hDC);
    static void PASCAL DeleteTempMap();
    BOOL Attach(HDC hDC);
    HDC Detach();
    void SetAttribDC(HDC hDC);
    void SetOutputDC(HDC hDC);
    void ReleaseAttribDC();
    void ReleaseOutputDC();
    BOOL IsPrinting() const { return m_bPrinting; }

    BOOL CreateDC(LPCTSTR lpszDriverName, LPCTSTR lpszDeviceName, LPCTSTR lpszOutput, const void* lpInitData);
    BOOL CreateIC(LPCTSTR lpszDriverName, LPCTSTR lpszDeviceName, LPCTSTR lpszOutput, const void* lpInitData);
    // pDC == NULL: compatible with the screen.
    BOOL CreateCompatibleDC(CDC* pDC);
    BOOL DeleteDC();

    int SaveDC();
    BOOL RestoreDC(int nSavedDC);
    int GetDeviceCaps(int nIndex) const;

    // ---- selection: each returns the previously selected object ----
    CGdiObject* SelectStockObject(int nIndex);
    CPen* SelectObject(CPen* pPen);
    CBrush* SelectObject(CBrush* pBrush);
    CFont* SelectObject(CFont* pFont);
    CBitmap* SelectObject(CBitmap* pBitmap);
    CGdiObject* SelectObject(CGdiObject* pObject);
    // Regions are copied into the clip region: answers the region type.
    int SelectObject(CRgn* pRgn);
    HGDIOBJ SelectObject(HGDIOBJ hObject);

    CPen* GetCurrentPen() const;
    CBrush* GetCurrentBrush() const;
    CFont* GetCurrentFont() const;
    CBitmap* GetCurrentBitmap() const;

    // ---- attributes ----
    COLORREF GetBkColor() const;
    COLORREF SetBkColor(COLORREF crColor);
    int GetBkMode() const;
    int SetBkMode(int nBkMode);
    COLORREF GetTextColor() const;
    COLORREF SetTextColor(COLORREF crColor);
    int GetROP2() const;
    int SetROP2(int nDrawMode);
    UINT GetTextAlign() const;
    UINT SetTextAlign(UINT nFlags);
    int GetPolyFillMode() const;
    int SetPolyFillMode(int nPolyFillMode);
    int GetStretchBltMode() const;
    int SetStretchBltMode(int nStretchMode);
    CPoint GetBrushOrg() const;
    CPoint SetBrushOrg(int x, int y);
    CPoint SetBrushOrg(POINT point);
    COLORREF GetNearestColor(COLORREF crColor) const;

    // ---- mapping ----
    int GetMapMode() const;
    int SetMapMode(int nMapMode);
    CPoint GetViewportOrg() const;
    CPoint SetViewportOrg(int x, int y);
    CPoint SetViewportOrg(POINT point);
    CPoint OffsetViewportOrg(int nWidth, int nHeight);
    CSize GetViewportExt() const;
    CSize SetViewportExt(int cx, int cy);
    CSize SetViewportExt(SIZE size);
    CPoint GetWindowOrg() const;
    CPoint SetWindowOrg(int x, int y);
    CPoint SetWindowOrg(POINT point);
    CPoint OffsetWindowOrg(int nWidth, int nHeight);
    CSize GetWindowExt() const;
    CSize SetWindowExt(int cx, int cy);
    CSize SetWindowExt(SIZE size);

    void DPtoLP(LPPOINT lpPoints, int nCount = 1) const;
    void DPtoLP(LPRECT lpRect) const;
    // Sizes keep their sign: only the scale of the mapping applies.
    void DPtoLP(LPSIZE lpSize) const;
    void LPtoDP(LPPOINT lpPoints, int nCount = 1) const;
    void LPtoDP(LPRECT lpRect) const;
    void LPtoDP(LPSIZE lpSize) const;

    // ---- clipping ----
    int GetClipBox(LPRECT lpRect) const;
    BOOL PtVisible(int x, int y) const;
    BOOL PtVisible(POINT point) const;
    BOOL RectVisible(LPCRECT lpRect) const;
    // pRgn == NULL removes the clip region.
    int SelectClipRgn(CRgn* pRgn);
    int SelectClipRgn(CRgn* pRgn, int nMode);
    int ExcludeClipRect(int x1, int y1, int x2, int y2);
    int ExcludeClipRect(LPCRECT lpRect);
    int IntersectClipRect(int x1, int y1, int x2, int y2);
    int IntersectClipRect(LPCRECT lpRect);
    int OffsetClipRgn(int x, int y);
    int OffsetClipRgn(SIZE size);

    // ---- lines and shapes ----
    CPoint GetCurrentPosition() const;
    CPoint MoveTo(int x, int y);
    CPoint MoveTo(POINT point);
    BOOL LineTo(int x, int y);
    BOOL LineTo(POINT point);
    BOOL Polyline(const POINT* lpPoints, int nCount);
    BOOL Polygon(const POINT* lpPoints, int nCount);
    BOOL PolyPolygon(const POINT* lpPoints, const INT* lpPolyCounts, int nCount);
    BOOL Rectangle(int x1, int y1, int x2, int y2);
    BOOL Rectangle(LPCRECT lpRect);
    BOOL Ellipse(int x1, int y1, int x2, int y2);
    BOOL Ellipse(LPCRECT lpRect);
    BOOL RoundRect(int x1, int y1, int x2, int y2, int x3, int y3);
    BOOL RoundRect(LPCRECT lpRect, POINT point);

    // ---- rectangles and regions ----
    void FillRect(LPCRECT lpRect, CBrush* pBrush);
    void FrameRect(LPCRECT lpRect, CBrush* pBrush);
    void InvertRect(LPCRECT lpRect);
    // Leaves the background colour set to clr.
    void FillSolidRect(LPCRECT lpRect, COLORREF clr);
    void FillSolidRect(int x, int y, int cx, int cy, COLORREF clr);
    void Draw3dRect(LPCRECT lpRect, COLORREF clrTopLeft, COLORREF clrBottomRight);
    void Draw3dRect(int x, int y, int cx, int cy, COLORREF clrTopLeft, COLORREF clrBottomRight);
    BOOL DrawEdge(LPRECT lpRect, UINT nEdge, UINT nFlags);
    void DrawFocusRect(LPCRECT lpRect);
    // Draws the frame of lpRect (size.cx by size.cy thick) and erases the one
    // of lpRectLast by XOR: calling it again with the same rectangle as
    // lpRectLast removes it. pBrush NULL: the halftone brush.
    void DrawDragRect(LPCRECT lpRect, SIZE size, LPCRECT lpRectLast, SIZE sizeLast,
                      CBrush* pBrush = NULL, CBrush* pBrushLast = NULL);
    // A cached 50% checker brush (not to be deleted by the caller).
    static CBrush* PASCAL GetHalftoneBrush();
    BOOL FillRgn(CRgn* pRgn, CBrush* pBrush);
    BOOL FrameRgn(CRgn* pRgn, CBrush* pBrush, int nWidth, int nHeight);
    BOOL InvertRgn(CRgn* pRgn);
    BOOL PaintRgn(CRgn* pRgn);
    BOOL DrawIcon(int x, int y, HICON hIcon);
    BOOL DrawIcon(POINT point, HICON hIcon);

    // ---- bit blocks and pixels ----
    BOOL PatBlt(int x, int y, int nWidth, int nHeight, DWORD dwRop);
    // pSrcDC may be NULL for raster operations without a source.
    BOOL BitBlt(int x, int y, int nWidth, int nHeight, CDC* pSrcDC, int xSrc, int ySrc, DWORD dwRop);
    BOOL StretchBlt(int x, int y, int nWidth, int nHeight, CDC* pSrcDC,
                    int xSrc, int ySrc, int nSrcWidth, int nSrcHeight, DWORD dwRop);
    COLORREF GetPixel(int x, int y) const;
    COLORREF GetPixel(POINT point) const;
    COLORREF SetPixel(int x, int y, COLORREF crColor);
    COLORREF SetPixel(POINT point, COLORREF crColor);
    BOOL SetPixelV(int x, int y, COLORREF crColor);
    BOOL SetPixelV(POINT point, COLORREF crColor);

    // ---- text ----
    BOOL TextOut(int x, int y, LPCTSTR lpszString, int nCount);
    BOOL TextOut(int x, int y, const CString& str);
    BOOL ExtTextOut(int x, int y, UINT nOptions, LPCRECT lpRect, LPCTSTR lpszString,
                    UINT nCount, LPINT lpDxWidths);
    BOOL ExtTextOut(int x, int y, UINT nOptions, LPCRECT lpRect, const CString& str, LPINT lpDxWidths);
    int DrawText(LPCTSTR lpszString, int nCount, LPRECT lpRect, UINT nFormat);
    int DrawText(const CString& str, LPRECT lpRect, UINT nFormat);
    // Measured on the attribute DC.
    CSize GetTextExtent(LPCTSTR lpszString, int nCount) const;
    CSize GetTextExtent(const CString& str) const;
    // Measured on the output DC.
    CSize GetOutputTextExtent(LPCTSTR lpszString, int nCount) const;
    CSize GetOutputTextExtent(const CString& str) const;
    BOOL GetTextMetrics(LPTEXTMETRIC lpMetrics) const;
    BOOL GetOutputTextMetrics(LPTEXTMETRIC lpMetrics) const;
    int GetTextFace(int nCount, LPTSTR lpszFacename) const;
    int GetTextFace(CString& rString) const;
    int SetTextCharacterExtra(int nCharExtra);
    int GetTextCharacterExtra() const;

private:
    CDC(const CDC&) = delete;
    void operator=(const CDC&) = delete;
};

/////////////////////////////////////////////////////////////////////////////
// Window DCs. A NULL window means the whole screen (CClientDC, CWindowDC).

class HYAFX_API CPaintDC : public CDC
{
    DECLARE_DYNAMIC(CPaintDC)
public:
    // BeginPaint; the destructor calls EndPaint. During a WM_PAINT whose
    // wParam is a DC (the convention for painting into a given DC), that DC is
    // used instead, with rcPaint the client area, and nothing is validated.
    explicit CPaintDC(CWnd* pWnd);
    virtual ~CPaintDC();
    PAINTSTRUCT m_ps;
protected:
    HWND m_hWnd;
private:
    BOOL m_bBorrowed;
};

class HYAFX_API CClientDC : public CDC
{
    DECLARE_DYNAMIC(CClientDC)
public:
    // GetDC; the destructor calls ReleaseDC.
    explicit CClientDC(CWnd* pWnd);
    virtual ~CClientDC();
protected:
    HWND m_hWnd;
};

class HYAFX_API CWindowDC : public CDC
{
    DECLARE_DYNAMIC(CWindowDC)
public:
    // GetWindowDC; the destructor calls ReleaseDC.
    explicit CWindowDC(CWnd* pWnd);
    virtual ~CWindowDC();
protected:
    HWND m_hWnd;
};

/////////////////////////////////////////////////////////////////////////////
// Extensions of ours (not classic framework classes): scope helpers that make
// select-and-restore the default.

// Selects a pen, brush, font or bitmap into a DC (output and attribute DC) for
// the lifetime of the helper; the destructor (or Restore) selects the previous
// object back. Not for regions: they are copied, not selected.
class CDCSelect
{
public:
    CDCSelect(CDC& dc, CGdiObject* pObject) noexcept
        : CDCSelect(dc.m_hDC, dc.m_hAttribDC, pObject ? pObject->m_hObject : NULL) {}
    CDCSelect(CDC& dc, HGDIOBJ hObject) noexcept
        : CDCSelect(dc.m_hDC, dc.m_hAttribDC, hObject) {}
    CDCSelect(HDC hDC, HGDIOBJ hObject) noexcept : CDCSelect(hDC, hDC, hObject) {}
    ~CDCSelect() { Restore(); }

    // Selects the previous object back now; the destructor then does nothing.
    void Restore() noexcept
    {
        if (m_hOld != NULL) ::SelectObject(m_hDC, m_hOld);
        if (m_hOldAttrib != NULL) ::SelectObject(m_hAttribDC, m_hOldAttrib);
        m_hOld = m_hOldAttrib = NULL;
    }
    // The object that was selected before (NULL when nothing was selected).
    HGDIOBJ GetOldHandle() const noexcept { return m_hOld; }

private:
    CDCSelect(HDC hDC, HDC hAttribDC, HGDIOBJ hObject) noexcept
        : m_hDC(hDC), m_hAttribDC(hAttribDC), m_hOld(NULL), m_hOldAttrib(NULL)
    {
        if (hObject == NULL) return;
        if (m_hDC != NULL) m_hOld = ::SelectObject(m_hDC, hObject);
        if (m_hAttribDC != NULL && m_hAttribDC != m_hDC) m_hOldAttrib = ::SelectObject(m_hAttribDC, hObject);
    }
    CDCSelect(const CDCSelect&) = delete;
    void operator=(const CDCSelect&) = delete;

    HDC m_hDC;
    HDC m_hAttribDC;
    HGDIOBJ m_hOld;
    HGDIOBJ m_hOldAttrib;
};

// Saves the whole DC state (selections, colours, modes, clipping, mapping) and
// restores it at the end of the scope.
class CDCSaveState
{
public:
    explicit CDCSaveState(CDC& dc) noexcept : m_pDC(&dc), m_nSaved(dc.SaveDC()) {}
    ~CDCSaveState() { Restore(); }
    void Restore() noexcept
    {
        if (m_nSaved != 0) m_pDC->RestoreDC(m_nSaved);
        m_nSaved = 0;
    }
private:
    CDCSaveState(const CDCSaveState&) = delete;
    void operator=(const CDCSaveState&) = delete;
    CDC* m_pDC;
    int m_nSaved;
};

// Double buffer for flicker-free painting: a memory DC with a compatible
// bitmap covering lpRect (logical coordinates of the target, which must be in
// MM_TEXT). Draw through GetDC() with the target's coordinates; the buffer is
// copied to the target by Flush() or, if something may have been drawn since
// the last Flush(), by the destructor. The memory DC starts with the target's
// font, text colour, background colour and mode. When the buffer cannot be
// created (empty or huge rectangle) GetDC() answers the target itself, so the
// painting code needs no second path.
class HYAFX_API CMemDCBuffer
{
public:
    CMemDCBuffer(CDC* pTargetDC, LPCRECT lpRect);
    ~CMemDCBuffer();

    CDC* GetDC();
    CDC* operator->() { return GetDC(); }
    operator CDC*() { return GetDC(); }
    BOOL IsBuffered() const { return m_dcMem.m_hDC != NULL; }
    const CRect& GetRect() const { return m_rect; }
    CDC* GetTargetDC() const { return m_pTarget; }

    // Copies the buffer to the target now.
    void Flush();
    // Nothing is copied by the destructor (unless drawn again through GetDC()).
    void Discard() { m_bPending = FALSE; }

private:
    CMemDCBuffer(const CMemDCBuffer&) = delete;
    void operator=(const CMemDCBuffer&) = delete;

    CDC* m_pTarget;
    CDC m_dcMem;
    CBitmap m_bitmap;
    HGDIOBJ m_hOldBitmap;
    HGDIOBJ m_hOldFont;
    CRect m_rect;
    BOOL m_bPending;
};
