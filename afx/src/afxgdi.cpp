// HyAfx: handle maps and the GDI object wrappers.
#include "afxgdi.h"

#include "afxhandlemap.h"

/////////////////////////////////////////////////////////////////////////////
// Handle maps (afxhandlemap.h has the thread policy).

namespace {

CHandleMap<HGDIOBJ, CGdiObject>& GdiMap()
{
    return AfxWrapperMapOf<HGDIOBJ, CGdiObject, &CGdiObject::m_hObject>();
}

CHandleMap<HDC, CDC>& DCMap()
{
    return AfxHandleMapOf<HDC, CDC>([](CDC* pDC) {
        pDC->m_hDC = NULL;
        pDC->m_hAttribDC = NULL;
        delete pDC;
    });
}

bool IsKindOfClass(const CObject* p, const CRuntimeClass* pClass)
{
    for (const CRuntimeClass* c = p->GetRuntimeClass(); c != nullptr; c = c->m_pBaseClass)
        if (c == pClass) return true;
    return false;
}

CGdiObject* NewWrapperOfKind(const CRuntimeClass* pClass, HGDIOBJ hObject)
{
    if (pClass == RUNTIME_CLASS(CGdiObject))
    {
        // A plain lookup: answer the wrapper that fits the object's type.
        switch (::GetObjectType(hObject))
        {
        case OBJ_PEN:
        case OBJ_EXTPEN: pClass = RUNTIME_CLASS(CPen); break;
        case OBJ_BRUSH: pClass = RUNTIME_CLASS(CBrush); break;
        case OBJ_FONT: pClass = RUNTIME_CLASS(CFont); break;
        case OBJ_BITMAP: pClass = RUNTIME_CLASS(CBitmap); break;
        case OBJ_REGION: pClass = RUNTIME_CLASS(CRgn); break;
        default: break;
        }
    }
    if (pClass == RUNTIME_CLASS(CPen)) return new CPen;
    if (pClass == RUNTIME_CLASS(CBrush)) return new CBrush;
    if (pClass == RUNTIME_CLASS(CFont)) return new CFont;
    if (pClass == RUNTIME_CLASS(CBitmap)) return new CBitmap;
    if (pClass == RUNTIME_CLASS(CRgn)) return new CRgn;
    return new CGdiObject;
}

// Hides from the optimiser that 'p' came from 'this', so that the documented
// NULL-pointer safety of GetSafeHandle/GetSafeHdc survives.
template <class T>
inline const T* Opaque(const T* p)
{
    __asm__("" : "+r"(p));
    return p;
}

}  // namespace

// Shared with afxdc.cpp.
CGdiObject* AfxLookupGdiObject(HGDIOBJ hObject, const CRuntimeClass* pClass);
CDC* AfxLookupDC(HDC hDC);
void AfxAddPermanentDC(HDC hDC, CDC* pDC);
void AfxRemovePermanentDC(HDC hDC, CDC* pDC);

CGdiObject* AfxLookupGdiObject(HGDIOBJ hObject, const CRuntimeClass* pClass)
{
    if (hObject == NULL) return nullptr;
    CHandleMap<HGDIOBJ, CGdiObject>& map = GdiMap();
    if (CGdiObject* p = map.LookupPermanent(hObject); p != nullptr && IsKindOfClass(p, pClass))
        return p;
    if (CGdiObject* p = map.LookupTemporary(hObject); p != nullptr && IsKindOfClass(p, pClass))
        return p;
    // A wrapper of another kind for the same handle is retired, not handed
    // out as this kind.
    CGdiObject* p = NewWrapperOfKind(pClass, hObject);
    p->m_hObject = hObject;
    map.SetTemporary(hObject, p);
    return p;
}

CDC* AfxLookupDC(HDC hDC)
{
    return DCMap().FromHandle(hDC, [](HDC h) {
        CDC* p = new CDC;
        p->m_hDC = h;
        p->m_hAttribDC = h;
        return p;
    });
}

void AfxAddPermanentDC(HDC hDC, CDC* pDC) { DCMap().SetPermanent(hDC, pDC); }
void AfxRemovePermanentDC(HDC hDC, CDC* pDC) { DCMap().RemovePermanent(hDC, pDC); }

HYAFX_API void AFXAPI AfxDeleteTempGdiMaps()
{
    GdiMap().DeleteTemp();
    DCMap().DeleteTemp();
}

void PASCAL CGdiObject::DeleteTempMap() { GdiMap().DeleteTemp(); }
void PASCAL CDC::DeleteTempMap() { DCMap().DeleteTemp(); }

HDC CDC::GetSafeHdc() const
{
    const CDC* p = Opaque(this);
    return p != nullptr ? p->m_hDC : NULL;
}

/////////////////////////////////////////////////////////////////////////////
// CGdiObject

IMPLEMENT_DYNAMIC(CGdiObject, CObject)
IMPLEMENT_DYNAMIC(CPen, CGdiObject)
IMPLEMENT_DYNAMIC(CBrush, CGdiObject)
IMPLEMENT_DYNAMIC(CFont, CGdiObject)
IMPLEMENT_DYNAMIC(CBitmap, CGdiObject)
IMPLEMENT_DYNAMIC(CRgn, CGdiObject)

CGdiObject::~CGdiObject()
{
    DeleteObject();
}

HGDIOBJ CGdiObject::GetSafeHandle() const
{
    const CGdiObject* p = Opaque(this);
    return p != nullptr ? p->m_hObject : NULL;
}

CGdiObject* PASCAL CGdiObject::FromHandle(HGDIOBJ hObject)
{
    return AfxLookupGdiObject(hObject, RUNTIME_CLASS(CGdiObject));
}

BOOL CGdiObject::Attach(HGDIOBJ hObject)
{
    ASSERT(m_hObject == NULL);
    if (hObject == NULL) return FALSE;
    m_hObject = hObject;
    GdiMap().SetPermanent(hObject, this);
    return TRUE;
}

HGDIOBJ CGdiObject::Detach()
{
    HGDIOBJ hObject = m_hObject;
    if (hObject != NULL) GdiMap().RemovePermanent(hObject, this);
    m_hObject = NULL;
    return hObject;
}

BOOL CGdiObject::DeleteObject()
{
    if (m_hObject == NULL) return FALSE;
    return ::DeleteObject(Detach());
}

int CGdiObject::GetObject(int nCount, LPVOID lpObject) const
{
    return ::GetObject(m_hObject, nCount, lpObject);
}

UINT CGdiObject::GetObjectType() const
{
    return (UINT)::GetObjectType(m_hObject);
}

BOOL CGdiObject::CreateStockObject(int nIndex)
{
    return Attach(::GetStockObject(nIndex));
}

BOOL CGdiObject::UnrealizeObject()
{
    return ::UnrealizeObject(m_hObject);
}

/////////////////////////////////////////////////////////////////////////////
// CPen

CPen* PASCAL CPen::FromHandle(HPEN hPen)
{
    return static_cast<CPen*>(AfxLookupGdiObject(hPen, RUNTIME_CLASS(CPen)));
}

CPen::CPen(int nPenStyle, int nWidth, COLORREF crColor)
{
    CreatePen(nPenStyle, nWidth, crColor);
}

CPen::CPen(int nPenStyle, int nWidth, const LOGBRUSH* pLogBrush, int nStyleCount, const DWORD* lpStyle)
{
    CreatePen(nPenStyle, nWidth, pLogBrush, nStyleCount, lpStyle);
}

BOOL CPen::CreatePen(int nPenStyle, int nWidth, COLORREF crColor)
{
    return Attach(::CreatePen(nPenStyle, nWidth, crColor));
}

BOOL CPen::CreatePen(int nPenStyle, int nWidth, const LOGBRUSH* pLogBrush, int nStyleCount, const DWORD* lpStyle)
{
    return Attach(::ExtCreatePen((DWORD)nPenStyle, (DWORD)nWidth, pLogBrush, (DWORD)nStyleCount, lpStyle));
}

BOOL CPen::CreatePenIndirect(LPLOGPEN lpLogPen)
{
    return Attach(::CreatePenIndirect(lpLogPen));
}

/////////////////////////////////////////////////////////////////////////////
// CBrush

CBrush* PASCAL CBrush::FromHandle(HBRUSH hBrush)
{
    return static_cast<CBrush*>(AfxLookupGdiObject(hBrush, RUNTIME_CLASS(CBrush)));
}

CBrush::CBrush(COLORREF crColor) { CreateSolidBrush(crColor); }
CBrush::CBrush(int nIndex, COLORREF crColor) { CreateHatchBrush(nIndex, crColor); }
CBrush::CBrush(CBitmap* pBitmap) { CreatePatternBrush(pBitmap); }

BOOL CBrush::CreateSolidBrush(COLORREF crColor)
{
    return Attach(::CreateSolidBrush(crColor));
}

BOOL CBrush::CreateHatchBrush(int nIndex, COLORREF crColor)
{
    return Attach(::CreateHatchBrush(nIndex, crColor));
}

BOOL CBrush::CreateBrushIndirect(const LOGBRUSH* lpLogBrush)
{
    return Attach(::CreateBrushIndirect(lpLogBrush));
}

BOOL CBrush::CreatePatternBrush(CBitmap* pBitmap)
{
    HBITMAP hbm = (HBITMAP)pBitmap->GetSafeHandle();
    return hbm != NULL && Attach(::CreatePatternBrush(hbm));
}

BOOL CBrush::CreateDIBPatternBrush(const void* lpPackedDIB, UINT nUsage)
{
    return Attach(::CreateDIBPatternBrushPt(lpPackedDIB, nUsage));
}

BOOL CBrush::CreateSysColorBrush(int nIndex)
{
    return Attach(::GetSysColorBrush(nIndex));
}

/////////////////////////////////////////////////////////////////////////////
// CFont

CFont* PASCAL CFont::FromHandle(HFONT hFont)
{
    return static_cast<CFont*>(AfxLookupGdiObject(hFont, RUNTIME_CLASS(CFont)));
}

BOOL CFont::CreateFontIndirect(const LOGFONT* lpLogFont)
{
    return Attach(::CreateFontIndirect(lpLogFont));
}

BOOL CFont::CreateFont(int nHeight, int nWidth, int nEscapement, int nOrientation, int nWeight,
                       BYTE bItalic, BYTE bUnderline, BYTE cStrikeOut, BYTE nCharSet,
                       BYTE nOutPrecision, BYTE nClipPrecision, BYTE nQuality,
                       BYTE nPitchAndFamily, LPCTSTR lpszFacename)
{
    return Attach(::CreateFont(nHeight, nWidth, nEscapement, nOrientation, nWeight, bItalic,
                               bUnderline, cStrikeOut, nCharSet, nOutPrecision, nClipPrecision,
                               nQuality, nPitchAndFamily, lpszFacename));
}

BOOL CFont::CreatePointFont(int nPointSize, LPCTSTR lpszFaceName, CDC* pDC)
{
    LOGFONT lf = {};
    lf.lfCharSet = DEFAULT_CHARSET;
    lf.lfHeight = nPointSize;
    if (lpszFaceName != NULL) lstrcpyn(lf.lfFaceName, lpszFaceName, LF_FACESIZE);
    return CreatePointFontIndirect(&lf, pDC);
}

BOOL CFont::CreatePointFontIndirect(const LOGFONT* lpLogFont, CDC* pDC)
{
    HDC hDC = pDC != NULL ? pDC->m_hAttribDC : ::GetDC(NULL);
    if (hDC == NULL) return FALSE;

    // Tenths of a point -> device pixels -> logical units of the DC.
    LOGFONT lf = *lpLogFont;
    POINT pt[2] = { { 0, 0 }, { 0, ::MulDiv(lf.lfHeight, ::GetDeviceCaps(hDC, LOGPIXELSY), 720) } };
    ::DPtoLP(hDC, pt, 2);
    int height = pt[1].y - pt[0].y;
    lf.lfHeight = -(height < 0 ? -height : height);  // negative: character height, not cell height

    if (pDC == NULL) ::ReleaseDC(NULL, hDC);
    return CreateFontIndirect(&lf);
}

/////////////////////////////////////////////////////////////////////////////
// CBitmap

CBitmap* PASCAL CBitmap::FromHandle(HBITMAP hBitmap)
{
    return static_cast<CBitmap*>(AfxLookupGdiObject(hBitmap, RUNTIME_CLASS(CBitmap)));
}

BOOL CBitmap::LoadBitmap(LPCTSTR lpszResourceName)
{
    HINSTANCE hInst = AfxFindResourceHandle(lpszResourceName, RT_BITMAP);
    return Attach(::LoadBitmap(hInst, lpszResourceName));
}

BOOL CBitmap::LoadBitmap(UINT nIDResource)
{
    return LoadBitmap(MAKEINTRESOURCE(nIDResource));
}

BOOL CBitmap::LoadOEMBitmap(UINT nIDBitmap)
{
    return Attach(::LoadBitmap(NULL, MAKEINTRESOURCE(nIDBitmap)));
}

BOOL CBitmap::CreateBitmap(int nWidth, int nHeight, UINT nPlanes, UINT nBitcount, const void* lpBits)
{
    return Attach(::CreateBitmap(nWidth, nHeight, nPlanes, nBitcount, lpBits));
}

BOOL CBitmap::CreateBitmapIndirect(LPBITMAP lpBitmap)
{
    return Attach(::CreateBitmapIndirect(lpBitmap));
}

BOOL CBitmap::CreateCompatibleBitmap(CDC* pDC, int nWidth, int nHeight)
{
    return Attach(::CreateCompatibleBitmap(pDC->m_hDC, nWidth, nHeight));
}

BOOL CBitmap::CreateDiscardableBitmap(CDC* pDC, int nWidth, int nHeight)
{
    return Attach(::CreateDiscardableBitmap(pDC->m_hDC, nWidth, nHeight));
}

BOOL CBitmap::CreateDIBSection32(int nWidth, int nHeight, void** ppvBits)
{
    BITMAPINFO bmi = {};
    bmi.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
    bmi.bmiHeader.biWidth = nWidth;
    bmi.bmiHeader.biHeight = -nHeight;  // top-down: row 0 first in memory
    bmi.bmiHeader.biPlanes = 1;
    bmi.bmiHeader.biBitCount = 32;
    bmi.bmiHeader.biCompression = BI_RGB;
    void* pvBits = nullptr;
    HBITMAP hbm = ::CreateDIBSection(NULL, &bmi, DIB_RGB_COLORS, &pvBits, NULL, 0);
    if (ppvBits != NULL) *ppvBits = hbm != NULL ? pvBits : nullptr;
    return Attach(hbm);
}

DWORD CBitmap::SetBitmapBits(DWORD dwCount, const void* lpBits)
{
    return (DWORD)::SetBitmapBits((HBITMAP)m_hObject, dwCount, lpBits);
}

DWORD CBitmap::GetBitmapBits(DWORD dwCount, LPVOID lpBits) const
{
    return (DWORD)::GetBitmapBits((HBITMAP)m_hObject, (LONG)dwCount, lpBits);
}

CSize CBitmap::SetBitmapDimension(int nWidth, int nHeight)
{
    CSize size;
    ::SetBitmapDimensionEx((HBITMAP)m_hObject, nWidth, nHeight, &size);
    return size;
}

CSize CBitmap::GetBitmapDimension() const
{
    CSize size;
    ::GetBitmapDimensionEx((HBITMAP)m_hObject, &size);
    return size;
}

/////////////////////////////////////////////////////////////////////////////
// CRgn

CRgn* PASCAL CRgn::FromHandle(HRGN hRgn)
{
    return static_cast<CRgn*>(AfxLookupGdiObject(hRgn, RUNTIME_CLASS(CRgn)));
}

BOOL CRgn::CreateRectRgn(int x1, int y1, int x2, int y2)
{
    return Attach(::CreateRectRgn(x1, y1, x2, y2));
}

BOOL CRgn::CreateRectRgnIndirect(LPCRECT lpRect)
{
    return Attach(::CreateRectRgnIndirect(lpRect));
}

BOOL CRgn::CreateEllipticRgn(int x1, int y1, int x2, int y2)
{
    return Attach(::CreateEllipticRgn(x1, y1, x2, y2));
}

BOOL CRgn::CreateEllipticRgnIndirect(LPCRECT lpRect)
{
    return Attach(::CreateEllipticRgnIndirect(lpRect));
}

BOOL CRgn::CreatePolygonRgn(const POINT* lpPoints, int nCount, int nMode)
{
    return Attach(::CreatePolygonRgn(lpPoints, nCount, nMode));
}

BOOL CRgn::CreatePolyPolygonRgn(const POINT* lpPoints, const INT* lpPolyCounts, int nCount, int nPolyFillMode)
{
    return Attach(::CreatePolyPolygonRgn(lpPoints, lpPolyCounts, nCount, nPolyFillMode));
}

BOOL CRgn::CreateRoundRectRgn(int x1, int y1, int x2, int y2, int x3, int y3)
{
    return Attach(::CreateRoundRectRgn(x1, y1, x2, y2, x3, y3));
}

int CRgn::CombineRgn(CRgn* pRgn1, CRgn* pRgn2, int nCombineMode)
{
    return ::CombineRgn((HRGN)m_hObject, (HRGN)pRgn1->GetSafeHandle(), (HRGN)pRgn2->GetSafeHandle(),
                        nCombineMode);
}

int CRgn::CopyRgn(CRgn* pRgnSrc)
{
    return ::CombineRgn((HRGN)m_hObject, (HRGN)pRgnSrc->GetSafeHandle(), NULL, RGN_COPY);
}

BOOL CRgn::EqualRgn(CRgn* pRgn) const
{
    return ::EqualRgn((HRGN)m_hObject, (HRGN)pRgn->GetSafeHandle());
}

int CRgn::OffsetRgn(int x, int y) { return ::OffsetRgn((HRGN)m_hObject, x, y); }
int CRgn::OffsetRgn(POINT point) { return ::OffsetRgn((HRGN)m_hObject, point.x, point.y); }
BOOL CRgn::PtInRegion(int x, int y) const { return ::PtInRegion((HRGN)m_hObject, x, y); }
BOOL CRgn::PtInRegion(POINT point) const { return ::PtInRegion((HRGN)m_hObject, point.x, point.y); }
BOOL CRgn::RectInRegion(LPCRECT lpRect) const { return ::RectInRegion((HRGN)m_hObject, lpRect); }
int CRgn::GetRgnBox(LPRECT lpRect) const { return ::GetRgnBox((HRGN)m_hObject, lpRect); }

void CRgn::SetRectRgn(int x1, int y1, int x2, int y2)
{
    ::SetRectRgn((HRGN)m_hObject, x1, y1, x2, y2);
}

void CRgn::SetRectRgn(LPCRECT lpRect)
{
    ::SetRectRgn((HRGN)m_hObject, lpRect->left, lpRect->top, lpRect->right, lpRect->bottom);
}

int CRgn::GetRegionData(LPRGNDATA lpRgnData, int nCount) const
{
    return (int)::GetRegionData((HRGN)m_hObject, (DWORD)nCount, lpRgnData);
}
