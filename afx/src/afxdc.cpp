// HyAfx: CDC, the window DCs and the double buffer.
#include "afxwin.h"
#include "afxstr.h"

#include <stdlib.h>

// Handle maps (afxgdi.cpp).
CGdiObject* AfxLookupGdiObject(HGDIOBJ hObject, const CRuntimeClass* pClass);
CDC* AfxLookupDC(HDC hDC);
void AfxAddPermanentDC(HDC hDC, CDC* pDC);
void AfxRemovePermanentDC(HDC hDC, CDC* pDC);

IMPLEMENT_DYNAMIC(CDC, CObject)

/////////////////////////////////////////////////////////////////////////////
// Attachment

CDC::~CDC()
{
    if (m_hDC != NULL) ::DeleteDC(Detach());
}

CDC* PASCAL CDC::FromHandle(HDC hDC)
{
    return AfxLookupDC(hDC);
}

BOOL CDC::Attach(HDC hDC)
{
    ASSERT(m_hDC == NULL);
    if (hDC == NULL) return FALSE;
    m_hDC = hDC;
    m_hAttribDC = hDC;
    AfxAddPermanentDC(hDC, this);
    return TRUE;
}

HDC CDC::Detach()
{
    HDC hDC = m_hDC;
    if (hDC != NULL) AfxRemovePermanentDC(hDC, this);
    m_hDC = NULL;
    m_hAttribDC = NULL;
    return hDC;
}

void CDC::SetAttribDC(HDC hDC) { m_hAttribDC = hDC; }

void CDC::SetOutputDC(HDC hDC)
{
    if (m_hDC != NULL) AfxRemovePermanentDC(m_hDC, this);
    m_hDC = hDC;
    if (hDC != NULL) AfxAddPermanentDC(hDC, this);
}

void CDC::ReleaseAttribDC() { m_hAttribDC = NULL; }

void CDC::ReleaseOutputDC()
{
    if (m_hDC != NULL) AfxRemovePermanentDC(m_hDC, this);
    m_hDC = NULL;
}

BOOL CDC::CreateDC(LPCTSTR lpszDriverName, LPCTSTR lpszDeviceName, LPCTSTR lpszOutput, const void* lpInitData)
{
    return Attach(::CreateDC(lpszDriverName, lpszDeviceName, lpszOutput, (const DEVMODE*)lpInitData));
}

BOOL CDC::CreateIC(LPCTSTR lpszDriverName, LPCTSTR lpszDeviceName, LPCTSTR lpszOutput, const void* lpInitData)
{
    return Attach(::CreateIC(lpszDriverName, lpszDeviceName, lpszOutput, (const DEVMODE*)lpInitData));
}

BOOL CDC::CreateCompatibleDC(CDC* pDC)
{
    return Attach(::CreateCompatibleDC(pDC->GetSafeHdc()));
}

BOOL CDC::DeleteDC()
{
    if (m_hDC == NULL) return FALSE;
    return ::DeleteDC(Detach());
}

int CDC::SaveDC()
{
    int nRet = 0;
    if (m_hAttribDC != NULL && m_hAttribDC != m_hDC) nRet = ::SaveDC(m_hAttribDC);
    if (m_hDC != NULL) nRet = ::SaveDC(m_hDC);
    return nRet;
}

BOOL CDC::RestoreDC(int nSavedDC)
{
    BOOL bRet = TRUE;
    if (m_hAttribDC != NULL && m_hAttribDC != m_hDC) bRet = ::RestoreDC(m_hAttribDC, nSavedDC);
    if (m_hDC != NULL) bRet = ::RestoreDC(m_hDC, nSavedDC) && bRet;
    return bRet;
}

int CDC::GetDeviceCaps(int nIndex) const { return ::GetDeviceCaps(m_hAttribDC, nIndex); }

/////////////////////////////////////////////////////////////////////////////
// Selection

HGDIOBJ CDC::SelectObject(HGDIOBJ hObject)
{
    ASSERT(m_hDC != NULL || m_hAttribDC != NULL);
    HGDIOBJ hOld = NULL;
    if (m_hDC != m_hAttribDC && m_hDC != NULL) hOld = ::SelectObject(m_hDC, hObject);
    if (m_hAttribDC != NULL) hOld = ::SelectObject(m_hAttribDC, hObject);
    return hOld;
}

CGdiObject* CDC::SelectStockObject(int nIndex)
{
    HGDIOBJ hObject = ::GetStockObject(nIndex);
    return hObject != NULL ? CGdiObject::FromHandle(SelectObject(hObject)) : nullptr;
}

CPen* CDC::SelectObject(CPen* pPen)
{
    return CPen::FromHandle((HPEN)SelectObject(pPen->GetSafeHandle()));
}

CBrush* CDC::SelectObject(CBrush* pBrush)
{
    return CBrush::FromHandle((HBRUSH)SelectObject(pBrush->GetSafeHandle()));
}

CFont* CDC::SelectObject(CFont* pFont)
{
    return CFont::FromHandle((HFONT)SelectObject(pFont->GetSafeHandle()));
}

CBitmap* CDC::SelectObject(CBitmap* pBitmap)
{
    // A bitmap is output surface only: the attribute DC keeps its own.
    ASSERT(m_hDC != NULL);
    return CBitmap::FromHandle((HBITMAP)::SelectObject(m_hDC, pBitmap->GetSafeHandle()));
}

CGdiObject* CDC::SelectObject(CGdiObject* pObject)
{
    HGDIOBJ hObject = pObject->GetSafeHandle();
    if (::GetObjectType(hObject) == OBJ_BITMAP)
        return CGdiObject::FromHandle(::SelectObject(m_hDC, hObject));
    return CGdiObject::FromHandle(SelectObject(hObject));
}

int CDC::SelectObject(CRgn* pRgn)
{
    int nRet = ERROR;
    HGDIOBJ hRgn = pRgn->GetSafeHandle();
    if (m_hDC != m_hAttribDC && m_hDC != NULL) nRet = (int)(INT_PTR)::SelectObject(m_hDC, hRgn);
    if (m_hAttribDC != NULL) nRet = (int)(INT_PTR)::SelectObject(m_hAttribDC, hRgn);
    return nRet;
}

CPen* CDC::GetCurrentPen() const { return CPen::FromHandle((HPEN)::GetCurrentObject(m_hDC, OBJ_PEN)); }
CBrush* CDC::GetCurrentBrush() const { return CBrush::FromHandle((HBRUSH)::GetCurrentObject(m_hDC, OBJ_BRUSH)); }
CFont* CDC::GetCurrentFont() const { return CFont::FromHandle((HFONT)::GetCurrentObject(m_hDC, OBJ_FONT)); }
CBitmap* CDC::GetCurrentBitmap() const { return CBitmap::FromHandle((HBITMAP)::GetCurrentObject(m_hDC, OBJ_BITMAP)); }

/////////////////////////////////////////////////////////////////////////////
// Attributes: setters change both DCs and answer the attribute DC's old value.

namespace {

template <class T, class F>
T SetOnBoth(HDC hDC, HDC hAttribDC, T failure, F set)
{
    T old = failure;
    if (hDC != hAttribDC && hDC != NULL) old = set(hDC);
    if (hAttribDC != NULL) old = set(hAttribDC);
    return old;
}

}  // namespace

COLORREF CDC::GetBkColor() const { return ::GetBkColor(m_hAttribDC); }
COLORREF CDC::SetBkColor(COLORREF crColor)
{
    return SetOnBoth(m_hDC, m_hAttribDC, CLR_INVALID, [&](HDC h) { return ::SetBkColor(h, crColor); });
}
int CDC::GetBkMode() const { return ::GetBkMode(m_hAttribDC); }
int CDC::SetBkMode(int nBkMode)
{
    return SetOnBoth(m_hDC, m_hAttribDC, 0, [&](HDC h) { return ::SetBkMode(h, nBkMode); });
}
COLORREF CDC::GetTextColor() const { return ::GetTextColor(m_hAttribDC); }
COLORREF CDC::SetTextColor(COLORREF crColor)
{
    return SetOnBoth(m_hDC, m_hAttribDC, CLR_INVALID, [&](HDC h) { return ::SetTextColor(h, crColor); });
}
int CDC::GetROP2() const { return ::GetROP2(m_hAttribDC); }
int CDC::SetROP2(int nDrawMode)
{
    return SetOnBoth(m_hDC, m_hAttribDC, 0, [&](HDC h) { return ::SetROP2(h, nDrawMode); });
}
UINT CDC::GetTextAlign() const { return ::GetTextAlign(m_hAttribDC); }
UINT CDC::SetTextAlign(UINT nFlags)
{
    return SetOnBoth(m_hDC, m_hAttribDC, (UINT)GDI_ERROR, [&](HDC h) { return ::SetTextAlign(h, nFlags); });
}
int CDC::GetPolyFillMode() const { return ::GetPolyFillMode(m_hAttribDC); }
int CDC::SetPolyFillMode(int nPolyFillMode)
{
    return SetOnBoth(m_hDC, m_hAttribDC, 0, [&](HDC h) { return ::SetPolyFillMode(h, nPolyFillMode); });
}
int CDC::GetStretchBltMode() const { return ::GetStretchBltMode(m_hAttribDC); }
int CDC::SetStretchBltMode(int nStretchMode)
{
    return SetOnBoth(m_hDC, m_hAttribDC, 0, [&](HDC h) { return ::SetStretchBltMode(h, nStretchMode); });
}
int CDC::GetTextCharacterExtra() const { return ::GetTextCharacterExtra(m_hAttribDC); }
int CDC::SetTextCharacterExtra(int nCharExtra)
{
    return SetOnBoth(m_hDC, m_hAttribDC, (int)0x80000000, [&](HDC h) { return ::SetTextCharacterExtra(h, nCharExtra); });
}

CPoint CDC::GetBrushOrg() const
{
    CPoint pt;
    ::GetBrushOrgEx(m_hDC, &pt);
    return pt;
}
CPoint CDC::SetBrushOrg(int x, int y)
{
    CPoint pt;
    ::SetBrushOrgEx(m_hDC, x, y, &pt);
    return pt;
}
CPoint CDC::SetBrushOrg(POINT point) { return SetBrushOrg(point.x, point.y); }
COLORREF CDC::GetNearestColor(COLORREF crColor) const { return ::GetNearestColor(m_hAttribDC, crColor); }

/////////////////////////////////////////////////////////////////////////////
// Mapping

int CDC::GetMapMode() const { return ::GetMapMode(m_hAttribDC); }
int CDC::SetMapMode(int nMapMode)
{
    return SetOnBoth(m_hDC, m_hAttribDC, 0, [&](HDC h) { return ::SetMapMode(h, nMapMode); });
}

#define HY_POINT_SETTER(Name, Api)                                                                  \
    CPoint CDC::Name(int x, int y)                                                                  \
    {                                                                                               \
        CPoint pt;                                                                                  \
        if (m_hDC != m_hAttribDC && m_hDC != NULL) ::Api(m_hDC, x, y, &pt);                         \
        if (m_hAttribDC != NULL) ::Api(m_hAttribDC, x, y, &pt);                                     \
        return pt;                                                                                  \
    }
HY_POINT_SETTER(SetViewportOrg, SetViewportOrgEx)
HY_POINT_SETTER(SetWindowOrg, SetWindowOrgEx)
HY_POINT_SETTER(OffsetViewportOrg, OffsetViewportOrgEx)
HY_POINT_SETTER(OffsetWindowOrg, OffsetWindowOrgEx)
#undef HY_POINT_SETTER

CPoint CDC::SetViewportOrg(POINT point) { return SetViewportOrg(point.x, point.y); }
CPoint CDC::SetWindowOrg(POINT point) { return SetWindowOrg(point.x, point.y); }

CSize CDC::SetViewportExt(int cx, int cy)
{
    CSize size;
    if (m_hDC != m_hAttribDC && m_hDC != NULL) ::SetViewportExtEx(m_hDC, cx, cy, &size);
    if (m_hAttribDC != NULL) ::SetViewportExtEx(m_hAttribDC, cx, cy, &size);
    return size;
}
CSize CDC::SetWindowExt(int cx, int cy)
{
    CSize size;
    if (m_hDC != m_hAttribDC && m_hDC != NULL) ::SetWindowExtEx(m_hDC, cx, cy, &size);
    if (m_hAttribDC != NULL) ::SetWindowExtEx(m_hAttribDC, cx, cy, &size);
    return size;
}
CSize CDC::SetViewportExt(SIZE size) { return SetViewportExt(size.cx, size.cy); }
CSize CDC::SetWindowExt(SIZE size) { return SetWindowExt(size.cx, size.cy); }

CPoint CDC::GetViewportOrg() const
{
    CPoint pt;
    ::GetViewportOrgEx(m_hAttribDC, &pt);
    return pt;
}
CPoint CDC::GetWindowOrg() const
{
    CPoint pt;
    ::GetWindowOrgEx(m_hAttribDC, &pt);
    return pt;
}
CSize CDC::GetViewportExt() const
{
    CSize size;
    ::GetViewportExtEx(m_hAttribDC, &size);
    return size;
}
CSize CDC::GetWindowExt() const
{
    CSize size;
    ::GetWindowExtEx(m_hAttribDC, &size);
    return size;
}

void CDC::DPtoLP(LPPOINT lpPoints, int nCount) const { ::DPtoLP(m_hAttribDC, lpPoints, nCount); }
void CDC::DPtoLP(LPRECT lpRect) const { ::DPtoLP(m_hAttribDC, (LPPOINT)lpRect, 2); }
void CDC::LPtoDP(LPPOINT lpPoints, int nCount) const { ::LPtoDP(m_hAttribDC, lpPoints, nCount); }
void CDC::LPtoDP(LPRECT lpRect) const { ::LPtoDP(m_hAttribDC, (LPPOINT)lpRect, 2); }

void CDC::DPtoLP(LPSIZE lpSize) const
{
    CSize vp = GetViewportExt(), win = GetWindowExt();
    if (vp.cx == 0 || vp.cy == 0) return;
    lpSize->cx = ::MulDiv(lpSize->cx, abs(win.cx), abs(vp.cx));
    lpSize->cy = ::MulDiv(lpSize->cy, abs(win.cy), abs(vp.cy));
}

void CDC::LPtoDP(LPSIZE lpSize) const
{
    CSize vp = GetViewportExt(), win = GetWindowExt();
    if (win.cx == 0 || win.cy == 0) return;
    lpSize->cx = ::MulDiv(lpSize->cx, abs(vp.cx), abs(win.cx));
    lpSize->cy = ::MulDiv(lpSize->cy, abs(vp.cy), abs(win.cy));
}

/////////////////////////////////////////////////////////////////////////////
// Clipping

int CDC::GetClipBox(LPRECT lpRect) const { return ::GetClipBox(m_hDC, lpRect); }
BOOL CDC::PtVisible(int x, int y) const { return ::PtVisible(m_hDC, x, y); }
BOOL CDC::PtVisible(POINT point) const { return ::PtVisible(m_hDC, point.x, point.y); }
BOOL CDC::RectVisible(LPCRECT lpRect) const { return ::RectVisible(m_hDC, lpRect); }

int CDC::SelectClipRgn(CRgn* pRgn)
{
    HRGN hRgn = (HRGN)pRgn->GetSafeHandle();
    return SetOnBoth(m_hDC, m_hAttribDC, ERROR, [&](HDC h) { return ::SelectClipRgn(h, hRgn); });
}

int CDC::SelectClipRgn(CRgn* pRgn, int nMode)
{
    HRGN hRgn = (HRGN)pRgn->GetSafeHandle();
    return SetOnBoth(m_hDC, m_hAttribDC, ERROR, [&](HDC h) { return ::ExtSelectClipRgn(h, hRgn, nMode); });
}

int CDC::ExcludeClipRect(int x1, int y1, int x2, int y2)
{
    return SetOnBoth(m_hDC, m_hAttribDC, ERROR, [&](HDC h) { return ::ExcludeClipRect(h, x1, y1, x2, y2); });
}
int CDC::ExcludeClipRect(LPCRECT r) { return ExcludeClipRect(r->left, r->top, r->right, r->bottom); }

int CDC::IntersectClipRect(int x1, int y1, int x2, int y2)
{
    return SetOnBoth(m_hDC, m_hAttribDC, ERROR, [&](HDC h) { return ::IntersectClipRect(h, x1, y1, x2, y2); });
}
int CDC::IntersectClipRect(LPCRECT r) { return IntersectClipRect(r->left, r->top, r->right, r->bottom); }

int CDC::OffsetClipRgn(int x, int y)
{
    return SetOnBoth(m_hDC, m_hAttribDC, ERROR, [&](HDC h) { return ::OffsetClipRgn(h, x, y); });
}
int CDC::OffsetClipRgn(SIZE size) { return OffsetClipRgn(size.cx, size.cy); }

/////////////////////////////////////////////////////////////////////////////
// Lines and shapes

CPoint CDC::GetCurrentPosition() const
{
    CPoint pt;
    ::GetCurrentPositionEx(m_hAttribDC, &pt);
    return pt;
}

CPoint CDC::MoveTo(int x, int y)
{
    CPoint pt;
    if (m_hDC != m_hAttribDC && m_hDC != NULL) ::MoveToEx(m_hDC, x, y, &pt);
    if (m_hAttribDC != NULL) ::MoveToEx(m_hAttribDC, x, y, &pt);
    return pt;
}
CPoint CDC::MoveTo(POINT point) { return MoveTo(point.x, point.y); }

BOOL CDC::LineTo(int x, int y)
{
    // Keeps the attribute DC's current position in step with the output.
    if (m_hAttribDC != NULL && m_hAttribDC != m_hDC) ::MoveToEx(m_hAttribDC, x, y, NULL);
    return ::LineTo(m_hDC, x, y);
}
BOOL CDC::LineTo(POINT point) { return LineTo(point.x, point.y); }

BOOL CDC::Polyline(const POINT* lpPoints, int nCount) { return ::Polyline(m_hDC, lpPoints, nCount); }
BOOL CDC::Polygon(const POINT* lpPoints, int nCount) { return ::Polygon(m_hDC, lpPoints, nCount); }
BOOL CDC::PolyPolygon(const POINT* lpPoints, const INT* lpPolyCounts, int nCount)
{
    return ::PolyPolygon(m_hDC, lpPoints, lpPolyCounts, nCount);
}
BOOL CDC::Rectangle(int x1, int y1, int x2, int y2) { return ::Rectangle(m_hDC, x1, y1, x2, y2); }
BOOL CDC::Rectangle(LPCRECT r) { return ::Rectangle(m_hDC, r->left, r->top, r->right, r->bottom); }
BOOL CDC::Ellipse(int x1, int y1, int x2, int y2) { return ::Ellipse(m_hDC, x1, y1, x2, y2); }
BOOL CDC::Ellipse(LPCRECT r) { return ::Ellipse(m_hDC, r->left, r->top, r->right, r->bottom); }
BOOL CDC::RoundRect(int x1, int y1, int x2, int y2, int x3, int y3)
{
    return ::RoundRect(m_hDC, x1, y1, x2, y2, x3, y3);
}
BOOL CDC::RoundRect(LPCRECT r, POINT point)
{
    return ::RoundRect(m_hDC, r->left, r->top, r->right, r->bottom, point.x, point.y);
}

/////////////////////////////////////////////////////////////////////////////
// Rectangles and regions

void CDC::FillRect(LPCRECT lpRect, CBrush* pBrush)
{
    ::FillRect(m_hDC, lpRect, (HBRUSH)pBrush->GetSafeHandle());
}

void CDC::FrameRect(LPCRECT lpRect, CBrush* pBrush)
{
    ::FrameRect(m_hDC, lpRect, (HBRUSH)pBrush->GetSafeHandle());
}

void CDC::InvertRect(LPCRECT lpRect) { ::InvertRect(m_hDC, lpRect); }

void CDC::FillSolidRect(LPCRECT lpRect, COLORREF clr)
{
    // The background colour stays set to clr afterwards; callers rely on it.
    ::SetBkColor(m_hDC, clr);
    ::ExtTextOut(m_hDC, 0, 0, ETO_OPAQUE, lpRect, NULL, 0, NULL);
}

void CDC::FillSolidRect(int x, int y, int cx, int cy, COLORREF clr)
{
    RECT rect = { x, y, x + cx, y + cy };
    FillSolidRect(&rect, clr);
}

void CDC::Draw3dRect(LPCRECT lpRect, COLORREF clrTopLeft, COLORREF clrBottomRight)
{
    Draw3dRect(lpRect->left, lpRect->top, lpRect->right - lpRect->left, lpRect->bottom - lpRect->top,
               clrTopLeft, clrBottomRight);
}

void CDC::Draw3dRect(int x, int y, int cx, int cy, COLORREF clrTopLeft, COLORREF clrBottomRight)
{
    // The top and left lines stop one pixel short, so the top-right and
    // bottom-left corner pixels take the bottom-right colour (intended: the
    // classic bevel look).
    FillSolidRect(x, y, cx - 1, 1, clrTopLeft);
    FillSolidRect(x, y, 1, cy - 1, clrTopLeft);
    FillSolidRect(x + cx - 1, y, 1, cy, clrBottomRight);
    FillSolidRect(x, y + cy - 1, cx, 1, clrBottomRight);
}

BOOL CDC::DrawEdge(LPRECT lpRect, UINT nEdge, UINT nFlags) { return ::DrawEdge(m_hDC, lpRect, nEdge, nFlags); }
void CDC::DrawFocusRect(LPCRECT lpRect) { ::DrawFocusRect(m_hDC, lpRect); }

CBrush* PASCAL CDC::GetHalftoneBrush()
{
    // Created once and kept for the life of the process (freed at unload).
    static CBrush s_brush;
    static INIT_ONCE s_once = INIT_ONCE_STATIC_INIT;
    ::InitOnceExecuteOnce(&s_once, [](PINIT_ONCE, PVOID, PVOID*) -> BOOL {
        WORD pattern[8];
        for (int i = 0; i < 8; ++i) pattern[i] = (WORD)(0x5555 << (i & 1));
        CBitmap bitmap;
        if (bitmap.CreateBitmap(8, 8, 1, 1, pattern)) s_brush.CreatePatternBrush(&bitmap);
        return TRUE;
    }, NULL, NULL);
    return s_brush.m_hObject != NULL ? &s_brush : nullptr;
}

namespace {

// The frame between lpRect and lpRect deflated by size, in device units
// (clip regions are device-based).
HRGN CreateFrameRgn(HDC hDC, LPCRECT lpRect, SIZE size)
{
    RECT outer = *lpRect;
    RECT inner = { outer.left + size.cx, outer.top + size.cy, outer.right - size.cx, outer.bottom - size.cy };
    ::IntersectRect(&inner, &inner, &outer);
    ::LPtoDP(hDC, (LPPOINT)&outer, 2);
    ::LPtoDP(hDC, (LPPOINT)&inner, 2);
    CRect o(outer), i(inner);
    o.NormalizeRect();
    i.NormalizeRect();
    HRGN hRgn = ::CreateRectRgnIndirect(&o);
    HRGN hInner = ::CreateRectRgnIndirect(&i);
    if (hRgn != NULL && hInner != NULL) ::CombineRgn(hRgn, hRgn, hInner, RGN_DIFF);
    if (hInner != NULL) ::DeleteObject(hInner);
    return hRgn;
}

// Inverts the pixels of hRgn with the brush pattern, inside the current clip.
void PatInvertRegion(HDC hDC, HRGN hRgn, HBRUSH hBrush)
{
    int nSaved = ::SaveDC(hDC);
    if (::ExtSelectClipRgn(hDC, hRgn, RGN_AND) != NULLREGION)
    {
        RECT box;
        ::GetClipBox(hDC, &box);
        ::SelectObject(hDC, hBrush);
        ::PatBlt(hDC, box.left, box.top, box.right - box.left, box.bottom - box.top, PATINVERT);
    }
    ::RestoreDC(hDC, nSaved);
}

}  // namespace

void CDC::DrawDragRect(LPCRECT lpRect, SIZE size, LPCRECT lpRectLast, SIZE sizeLast,
                       CBrush* pBrush, CBrush* pBrushLast)
{
    if (pBrush == NULL) pBrush = GetHalftoneBrush();
    if (pBrushLast == NULL) pBrushLast = pBrush;
    HBRUSH hBrush = (HBRUSH)pBrush->GetSafeHandle();
    HBRUSH hBrushLast = (HBRUSH)pBrushLast->GetSafeHandle();
    if (hBrush == NULL) return;

    HRGN hNew = CreateFrameRgn(m_hDC, lpRect, size);
    HRGN hLast = lpRectLast != NULL ? CreateFrameRgn(m_hDC, lpRectLast, sizeLast) : ::CreateRectRgn(0, 0, 0, 0);
    if (hNew != NULL && hLast != NULL)
    {
        if (hBrush == hBrushLast)
        {
            // Same pattern: where both frames overlap, erasing and redrawing
            // cancel out, so only the symmetric difference is touched.
            ::CombineRgn(hNew, hNew, hLast, RGN_XOR);
            PatInvertRegion(m_hDC, hNew, hBrush);
        }
        else
        {
            if (lpRectLast != NULL && hBrushLast != NULL) PatInvertRegion(m_hDC, hLast, hBrushLast);
            PatInvertRegion(m_hDC, hNew, hBrush);
        }
    }
    if (hNew != NULL) ::DeleteObject(hNew);
    if (hLast != NULL) ::DeleteObject(hLast);
}

BOOL CDC::FillRgn(CRgn* pRgn, CBrush* pBrush)
{
    return ::FillRgn(m_hDC, (HRGN)pRgn->GetSafeHandle(), (HBRUSH)pBrush->GetSafeHandle());
}
BOOL CDC::FrameRgn(CRgn* pRgn, CBrush* pBrush, int nWidth, int nHeight)
{
    return ::FrameRgn(m_hDC, (HRGN)pRgn->GetSafeHandle(), (HBRUSH)pBrush->GetSafeHandle(), nWidth, nHeight);
}
BOOL CDC::InvertRgn(CRgn* pRgn) { return ::InvertRgn(m_hDC, (HRGN)pRgn->GetSafeHandle()); }
BOOL CDC::PaintRgn(CRgn* pRgn) { return ::PaintRgn(m_hDC, (HRGN)pRgn->GetSafeHandle()); }
BOOL CDC::DrawIcon(int x, int y, HICON hIcon) { return ::DrawIcon(m_hDC, x, y, hIcon); }
BOOL CDC::DrawIcon(POINT point, HICON hIcon) { return ::DrawIcon(m_hDC, point.x, point.y, hIcon); }

/////////////////////////////////////////////////////////////////////////////
// Bit blocks and pixels

BOOL CDC::PatBlt(int x, int y, int nWidth, int nHeight, DWORD dwRop)
{
    return ::PatBlt(m_hDC, x, y, nWidth, nHeight, dwRop);
}

BOOL CDC::BitBlt(int x, int y, int nWidth, int nHeight, CDC* pSrcDC, int xSrc, int ySrc, DWORD dwRop)
{
    return ::BitBlt(m_hDC, x, y, nWidth, nHeight, pSrcDC->GetSafeHdc(), xSrc, ySrc, dwRop);
}

BOOL CDC::StretchBlt(int x, int y, int nWidth, int nHeight, CDC* pSrcDC,
                     int xSrc, int ySrc, int nSrcWidth, int nSrcHeight, DWORD dwRop)
{
    return ::StretchBlt(m_hDC, x, y, nWidth, nHeight, pSrcDC->GetSafeHdc(), xSrc, ySrc, nSrcWidth,
                        nSrcHeight, dwRop);
}

COLORREF CDC::GetPixel(int x, int y) const { return ::GetPixel(m_hDC, x, y); }
COLORREF CDC::GetPixel(POINT point) const { return ::GetPixel(m_hDC, point.x, point.y); }
COLORREF CDC::SetPixel(int x, int y, COLORREF crColor) { return ::SetPixel(m_hDC, x, y, crColor); }
COLORREF CDC::SetPixel(POINT point, COLORREF crColor) { return ::SetPixel(m_hDC, point.x, point.y, crColor); }
BOOL CDC::SetPixelV(int x, int y, COLORREF crColor) { return ::SetPixelV(m_hDC, x, y, crColor); }
BOOL CDC::SetPixelV(POINT point, COLORREF crColor) { return ::SetPixelV(m_hDC, point.x, point.y, crColor); }

/////////////////////////////////////////////////////////////////////////////
// Text

BOOL CDC::TextOut(int x, int y, LPCTSTR lpszString, int nCount)
{
    return ::TextOut(m_hDC, x, y, lpszString, nCount);
}

BOOL CDC::TextOut(int x, int y, const CString& str)
{
    return ::TextOut(m_hDC, x, y, (LPCTSTR)str, str.GetLength());
}

BOOL CDC::ExtTextOut(int x, int y, UINT nOptions, LPCRECT lpRect, LPCTSTR lpszString, UINT nCount,
                     LPINT lpDxWidths)
{
    return ::ExtTextOut(m_hDC, x, y, nOptions, lpRect, lpszString, nCount, lpDxWidths);
}

BOOL CDC::ExtTextOut(int x, int y, UINT nOptions, LPCRECT lpRect, const CString& str, LPINT lpDxWidths)
{
    return ::ExtTextOut(m_hDC, x, y, nOptions, lpRect, (LPCTSTR)str, (UINT)str.GetLength(), lpDxWidths);
}

int CDC::DrawText(LPCTSTR lpszString, int nCount, LPRECT lpRect, UINT nFormat)
{
    return ::DrawText(m_hDC, lpszString, nCount, lpRect, nFormat);
}

int CDC::DrawText(const CString& str, LPRECT lpRect, UINT nFormat)
{
    return ::DrawText(m_hDC, (LPCTSTR)str, str.GetLength(), lpRect, nFormat);
}

CSize CDC::GetTextExtent(LPCTSTR lpszString, int nCount) const
{
    CSize size;
    ::GetTextExtentPoint32(m_hAttribDC, lpszString, nCount, &size);
    return size;
}

CSize CDC::GetTextExtent(const CString& str) const
{
    return GetTextExtent((LPCTSTR)str, str.GetLength());
}

CSize CDC::GetOutputTextExtent(LPCTSTR lpszString, int nCount) const
{
    CSize size;
    ::GetTextExtentPoint32(m_hDC, lpszString, nCount, &size);
    return size;
}

CSize CDC::GetOutputTextExtent(const CString& str) const
{
    return GetOutputTextExtent((LPCTSTR)str, str.GetLength());
}

BOOL CDC::GetTextMetrics(LPTEXTMETRIC lpMetrics) const { return ::GetTextMetrics(m_hAttribDC, lpMetrics); }
BOOL CDC::GetOutputTextMetrics(LPTEXTMETRIC lpMetrics) const { return ::GetTextMetrics(m_hDC, lpMetrics); }

int CDC::GetTextFace(int nCount, LPTSTR lpszFacename) const
{
    return ::GetTextFace(m_hAttribDC, nCount, lpszFacename);
}

int CDC::GetTextFace(CString& rString) const
{
    int nResult = ::GetTextFace(m_hAttribDC, LF_FACESIZE, rString.GetBuffer(LF_FACESIZE));
    rString.ReleaseBuffer();
    return nResult;
}

/////////////////////////////////////////////////////////////////////////////
// Window DCs

IMPLEMENT_DYNAMIC(CPaintDC, CDC)
IMPLEMENT_DYNAMIC(CClientDC, CDC)
IMPLEMENT_DYNAMIC(CWindowDC, CDC)

namespace {

HWND SafeHwnd(const CWnd* pWnd)
{
    return pWnd != nullptr ? pWnd->m_hWnd : NULL;
}

}  // namespace

CPaintDC::CPaintDC(CWnd* pWnd) : m_ps(), m_hWnd(SafeHwnd(pWnd)), m_bBorrowed(FALSE)
{
    // A WM_PAINT whose wParam carries a DC asks the window to paint into that
    // DC (printing, off-screen rendering): use it as is and leave the update
    // region alone.
    const MSG* pMsg = CWnd::GetCurrentMessage();
    if (pMsg != nullptr && pMsg->message == WM_PAINT && pMsg->hwnd == m_hWnd && pMsg->wParam != 0)
    {
        m_ps.hdc = (HDC)pMsg->wParam;
        ::GetClientRect(m_hWnd, &m_ps.rcPaint);
        m_hDC = m_hAttribDC = m_ps.hdc;  // borrowed: not in the handle map, never ended
        m_bBorrowed = TRUE;
        return;
    }
    Attach(::BeginPaint(m_hWnd, &m_ps));
}

CPaintDC::~CPaintDC()
{
    if (m_bBorrowed)
    {
        m_hDC = m_hAttribDC = NULL;  // the sender's DC: nothing to end or delete
        return;
    }
    if (m_hDC == NULL) return;
    ::EndPaint(m_hWnd, &m_ps);
    Detach();
}

CClientDC::CClientDC(CWnd* pWnd) : m_hWnd(SafeHwnd(pWnd))
{
    Attach(::GetDC(m_hWnd));
}

CClientDC::~CClientDC()
{
    if (m_hDC != NULL) ::ReleaseDC(m_hWnd, Detach());
}

CWindowDC::CWindowDC(CWnd* pWnd) : m_hWnd(SafeHwnd(pWnd))
{
    Attach(::GetWindowDC(m_hWnd));
}

CWindowDC::~CWindowDC()
{
    if (m_hDC != NULL) ::ReleaseDC(m_hWnd, Detach());
}

/////////////////////////////////////////////////////////////////////////////
// CMemDCBuffer

CMemDCBuffer::CMemDCBuffer(CDC* pTargetDC, LPCRECT lpRect)
    : m_pTarget(pTargetDC), m_hOldBitmap(NULL), m_hOldFont(NULL), m_rect(lpRect), m_bPending(TRUE)
{
    m_rect.NormalizeRect();
    if (m_rect.IsRectEmpty() || pTargetDC->GetSafeHdc() == NULL) return;
    if (!m_dcMem.CreateCompatibleDC(pTargetDC)) return;
    if (!m_bitmap.CreateCompatibleBitmap(pTargetDC, m_rect.Width(), m_rect.Height()))
    {
        m_dcMem.DeleteDC();  // falls back to drawing on the target directly
        return;
    }
    HDC hMem = m_dcMem.m_hDC, hTarget = pTargetDC->m_hDC;
    m_hOldBitmap = ::SelectObject(hMem, m_bitmap.m_hObject);
    m_hOldFont = ::SelectObject(hMem, ::GetCurrentObject(hTarget, OBJ_FONT));
    ::SetTextColor(hMem, ::GetTextColor(hTarget));
    ::SetBkColor(hMem, ::GetBkColor(hTarget));
    ::SetBkMode(hMem, ::GetBkMode(hTarget));
    // Logical coordinates of the buffer equal those of the target.
    ::SetWindowOrgEx(hMem, m_rect.left, m_rect.top, NULL);
}

CMemDCBuffer::~CMemDCBuffer()
{
    if (m_bPending) Flush();
    if (m_dcMem.m_hDC != NULL)
    {
        // Pens and brushes the caller selected are the caller's; put back the
        // DC's own before it goes, so nothing of ours stays selected anywhere.
        ::SelectObject(m_dcMem.m_hDC, m_hOldBitmap);
        ::SelectObject(m_dcMem.m_hDC, m_hOldFont);
        m_dcMem.DeleteDC();
    }
}

CDC* CMemDCBuffer::GetDC()
{
    m_bPending = TRUE;
    return m_dcMem.m_hDC != NULL ? &m_dcMem : m_pTarget;
}

void CMemDCBuffer::Flush()
{
    m_bPending = FALSE;
    if (m_dcMem.m_hDC == NULL) return;
    ::BitBlt(m_pTarget->m_hDC, m_rect.left, m_rect.top, m_rect.Width(), m_rect.Height(), m_dcMem.m_hDC,
             m_rect.left, m_rect.top, SRCCOPY);
}
