// Drawing services of the default theme: themed text, fills, marks and
// bitmaps. Every DC attribute and selection changed here is put back.
#include <afxwin.h>
#include "HyTheme.h"

#include <vector>

namespace {

HYTHEMEOWNERDRAWPROC g_ownerDraw = nullptr;

COLORREF TextColorOf(CDC* pDC, int id)
{
    if (id == HYTHEME_CURRENT) return pDC->GetTextColor();
    HYThemeStyle s;
    HYThemeGetStyle(id, &s);
    return s.text;
}

void FillSolid(HDC hdc, const RECT& r, COLORREF cr)
{
    // ExtTextOut with ETO_OPAQUE fills without a brush; the background
    // colour is restored afterwards.
    COLORREF old = ::SetBkColor(hdc, cr);
    ::ExtTextOutA(hdc, 0, 0, ETO_OPAQUE, &r, nullptr, 0, nullptr);
    ::SetBkColor(hdc, old);
}

int Lerp(int a, int b, int num, int den) { return a + (b - a) * num / den; }

COLORREF Mix(COLORREF a, COLORREF b, int num, int den)
{
    return RGB(Lerp(GetRValue(a), GetRValue(b), num, den), Lerp(GetGValue(a), GetGValue(b), num, den),
               Lerp(GetBValue(a), GetBValue(b), num, den));
}

// Colour at column x of a gradient spread over `width` columns.
COLORREF GradientAt(const HYThemeStyle& s, int x, int width)
{
    if (width <= 1) return s.fill;
    if (s.mode == HYGRADIENT_HORIZONTAL_MIRROR) {
        int half = (width - 1) / 2;
        if (half == 0) return s.fill;
        int d = x <= half ? x : (width - 1 - x);
        return Mix(s.fill, s.fillEnd, d, half);
    }
    return Mix(s.fill, s.fillEnd, x, width - 1);
}

// Fills r with columns [offset, offset + r.width) of a gradient `total` wide:
// one row of the columns' colours stretched down the rectangle, so that a
// header costs one call instead of one per column.
void FillGradientColumns(HDC hdc, const RECT& r, const HYThemeStyle& s, int offset, int total)
{
    const int width = r.right - r.left, height = r.bottom - r.top;
    if (width <= 0 || height <= 0) return;
    std::vector<DWORD> row(width);
    for (int x = 0; x < width; ++x) {
        const COLORREF c = GradientAt(s, offset + x, total);
        row[x] = (DWORD)GetRValue(c) << 16 | (DWORD)GetGValue(c) << 8 | GetBValue(c);
    }
    BITMAPINFO bi = {};
    bi.bmiHeader.biSize = sizeof(bi.bmiHeader);
    bi.bmiHeader.biWidth = width;
    bi.bmiHeader.biHeight = 1;
    bi.bmiHeader.biPlanes = 1;
    bi.bmiHeader.biBitCount = 32;
    bi.bmiHeader.biCompression = BI_RGB;
    ::StretchDIBits(hdc, r.left, r.top, width, height, 0, 0, width, 1, row.data(), &bi, DIB_RGB_COLORS, SRCCOPY);
}

bool IsGradient(const HYThemeStyle& s)
{
    return s.kind == HYSTYLE_GRADIENT
           && (s.mode == HYGRADIENT_HORIZONTAL || s.mode == HYGRADIENT_HORIZONTAL_MIRROR);
}

}  // namespace

extern "C" {

int WINAPI HYThemeDrawText(CDC* pDC, LPCTSTR lpszText, int nCount, LPRECT lpRect, UINT nFormat, int nId)
{
    if (pDC == nullptr || pDC->m_hDC == NULL || lpszText == nullptr || lpRect == nullptr) return 0;
    COLORREF oldColor = pDC->SetTextColor(TextColorOf(pDC, nId));
    int oldMode = pDC->SetBkMode(TRANSPARENT);
    int height = pDC->DrawText(lpszText, nCount, lpRect, nFormat);
    pDC->SetBkMode(oldMode);
    pDC->SetTextColor(oldColor);
    return height;
}

int WINAPI HYThemeDrawDropDownLabel(CDC* pDC, LPCTSTR lpszText, LPRECT lpRect, UINT nFormat, int nId)
{
    if (pDC == nullptr || pDC->m_hDC == NULL || lpszText == nullptr || lpRect == nullptr) return 0;
    // The arrow: a downward triangle 7 pixels wide and 4 high, 3 pixels after
    // the text (or at the right edge for right-aligned labels).
    const int kArrowW = 7, kArrowH = 4, kGap = 3;
    COLORREF color = TextColorOf(pDC, nId);
    CRect text(lpRect);
    text.right -= kArrowW + kGap;
    if (text.right < text.left) text.right = text.left;
    int height = HYThemeDrawText(pDC, lpszText, -1, &text, nFormat, nId);

    CRect measured(text);
    pDC->DrawText(lpszText, -1, &measured, (nFormat & ~(DT_END_ELLIPSIS | DT_PATH_ELLIPSIS)) | DT_CALCRECT);
    int textWidth = measured.Width() < text.Width() ? measured.Width() : text.Width();
    int x;
    if (nFormat & DT_RIGHT) x = lpRect->right - kArrowW;
    else if (nFormat & DT_CENTER) x = text.left + (text.Width() + textWidth) / 2 + kGap;
    else x = text.left + textWidth + kGap;
    if (x > lpRect->right - kArrowW) x = lpRect->right - kArrowW;
    int y = lpRect->top + (lpRect->bottom - lpRect->top - kArrowH) / 2;
    for (int row = 0; row < kArrowH; ++row) {
        RECT r = { x + row, y + row, x + kArrowW - row, y + row + 1 };
        FillSolid(pDC->m_hDC, r, color);
    }
    return height;
}

void WINAPI HYThemeFillStyle(CDC* pDC, LPCRECT lpRect, int nId)
{
    HYThemeFillGradientSlice(pDC, lpRect, nId, 0, 1);
}

void WINAPI HYThemeFillGradientSlice(CDC* pDC, LPCRECT lpRect, int nId, int nPart, int nParts)
{
    if (pDC == nullptr || pDC->m_hDC == NULL || lpRect == nullptr || ::IsRectEmpty(lpRect)) return;
    HYThemeStyle s;
    HYThemeGetStyle(nId, &s);
    if (!IsGradient(s) || nParts < 1 || nPart < 0 || nPart >= nParts) {
        FillSolid(pDC->m_hDC, *lpRect, s.fill);
        return;
    }
    int width = lpRect->right - lpRect->left;
    FillGradientColumns(pDC->m_hDC, *lpRect, s, nPart * width, nParts * width);
}

void WINAPI HYThemeMaskedFill(CDC* pDC, LPCRECT lpRect, int nId)
{
    if (pDC == nullptr || pDC->m_hDC == NULL || lpRect == nullptr || ::IsRectEmpty(lpRect)) return;
    COLORREF fill = HYThemeGetColor(nId);
    HBRUSH hatch = ::CreateHatchBrush(HS_BDIAGONAL, HYThemeShiftColor(fill, -40));
    if (hatch == NULL) {
        FillSolid(pDC->m_hDC, *lpRect, fill);
        return;
    }
    HDC hdc = pDC->m_hDC;
    COLORREF oldBk = ::SetBkColor(hdc, fill);
    int oldMode = ::SetBkMode(hdc, OPAQUE);
    // Anchor the hatch at the rectangle so that it does not crawl when the
    // area scrolls.
    POINT oldOrg;
    ::SetBrushOrgEx(hdc, lpRect->left & 7, lpRect->top & 7, &oldOrg);
    ::FillRect(hdc, lpRect, hatch);
    ::SetBrushOrgEx(hdc, oldOrg.x, oldOrg.y, nullptr);
    ::SetBkMode(hdc, oldMode);
    ::SetBkColor(hdc, oldBk);
    ::DeleteObject(hatch);
}

void WINAPI HYThemeDrawFocusMark(CDC* pDC, LPCRECT lpRect, int nId)
{
    if (pDC == nullptr || pDC->m_hDC == NULL || lpRect == nullptr) return;
    COLORREF cr = HYThemeGetColor(nId);
    CRect r(lpRect);
    for (int ring = 0; ring < 2 && r.Width() > 0 && r.Height() > 0; ++ring) {
        RECT edges[4] = {
            { r.left, r.top, r.right, r.top + 1 },
            { r.left, r.bottom - 1, r.right, r.bottom },
            { r.left, r.top, r.left + 1, r.bottom },
            { r.right - 1, r.top, r.right, r.bottom },
        };
        for (const RECT& e : edges) FillSolid(pDC->m_hDC, e, cr);
        r.DeflateRect(1, 1);
    }
}

void WINAPI HYThemeDrawHeaderDecoration(CDC* pDC, LPCRECT lpCategoryRect, COLORREF /*crText*/, COLORREF crLine)
{
    // The default look needs only the separator; crText is there for themes
    // that draw a glyph beside the category.
    if (pDC == nullptr || pDC->m_hDC == NULL || lpCategoryRect == nullptr) return;
    RECT line = { lpCategoryRect->left, lpCategoryRect->top + 3, lpCategoryRect->left + 1,
                  lpCategoryRect->bottom - 3 };
    if (line.bottom > line.top) FillSolid(pDC->m_hDC, line, crLine);
}

BOOL WINAPI HYDrawPartialBitmap(CDC* pDC, HBITMAP hBitmap, int x, int y, int xSrc, int ySrc, int cx, int cy)
{
    if (pDC == nullptr || pDC->m_hDC == NULL || hBitmap == NULL) return FALSE;
    BITMAP bm;
    if (::GetObjectA(hBitmap, sizeof(bm), &bm) == 0) return FALSE;
    // Clip the part to the bitmap, moving the destination with it.
    if (xSrc < 0) { x -= xSrc; cx += xSrc; xSrc = 0; }
    if (ySrc < 0) { y -= ySrc; cy += ySrc; ySrc = 0; }
    if (xSrc + cx > bm.bmWidth) cx = bm.bmWidth - xSrc;
    if (ySrc + cy > bm.bmHeight) cy = bm.bmHeight - ySrc;
    if (cx <= 0 || cy <= 0) return FALSE;
    HDC mem = ::CreateCompatibleDC(pDC->m_hDC);
    if (mem == NULL) return FALSE;
    HGDIOBJ old = ::SelectObject(mem, hBitmap);
    BOOL ok = ::BitBlt(pDC->m_hDC, x, y, cx, cy, mem, xSrc, ySrc, SRCCOPY);
    ::SelectObject(mem, old);
    ::DeleteDC(mem);
    return ok;
}

BOOL WINAPI HYThemeDrawTransparentBitmap(CDC* pDC, HBITMAP hBitmap, int x, int y, COLORREF crTransparent)
{
    if (pDC == nullptr || pDC->m_hDC == NULL || hBitmap == NULL) return FALSE;
    BITMAP bm;
    if (::GetObjectA(hBitmap, sizeof(bm), &bm) == 0 || bm.bmWidth <= 0 || bm.bmHeight <= 0) return FALSE;
    const int w = bm.bmWidth, h = abs(bm.bmHeight);
    HDC dst = pDC->m_hDC;
    HDC src = ::CreateCompatibleDC(dst);
    HDC maskDC = ::CreateCompatibleDC(dst);
    HBITMAP mask = ::CreateBitmap(w, h, 1, 1, nullptr);
    BOOL ok = FALSE;
    if (src != NULL && maskDC != NULL && mask != NULL) {
        HGDIOBJ oldSrc = ::SelectObject(src, hBitmap);
        HGDIOBJ oldMask = ::SelectObject(maskDC, mask);
        if (crTransparent == HYCLR_TOPLEFT) crTransparent = ::GetPixel(src, 0, 0);
        // Mask: white where the bitmap has the transparent colour.
        COLORREF oldSrcBk = ::SetBkColor(src, crTransparent);
        ::BitBlt(maskDC, 0, 0, w, h, src, 0, 0, SRCCOPY);
        ::SetBkColor(src, oldSrcBk);
        // dst ^= src; dst &= mask (mono: 1 -> white, 0 -> black); dst ^= src.
        COLORREF oldBk = ::SetBkColor(dst, RGB(255, 255, 255));
        COLORREF oldText = ::SetTextColor(dst, RGB(0, 0, 0));
        ::BitBlt(dst, x, y, w, h, src, 0, 0, SRCINVERT);
        ::BitBlt(dst, x, y, w, h, maskDC, 0, 0, SRCAND);
        ok = ::BitBlt(dst, x, y, w, h, src, 0, 0, SRCINVERT);
        ::SetTextColor(dst, oldText);
        ::SetBkColor(dst, oldBk);
        ::SelectObject(maskDC, oldMask);
        ::SelectObject(src, oldSrc);
    }
    if (mask != NULL) ::DeleteObject(mask);
    if (maskDC != NULL) ::DeleteDC(maskDC);
    if (src != NULL) ::DeleteDC(src);
    return ok;
}

BOOL WINAPI HYThemeOwnerDraw(int nElement, LPDRAWITEMSTRUCT lpDIS)
{
    // The default theme draws nothing itself: the control's own drawing runs.
    return g_ownerDraw != nullptr && lpDIS != nullptr && g_ownerDraw(nElement, lpDIS);
}

HYTHEMEOWNERDRAWPROC WINAPI HYThemeSetOwnerDrawProc(HYTHEMEOWNERDRAWPROC pfn)
{
    HYTHEMEOWNERDRAWPROC old = g_ownerDraw;
    g_ownerDraw = pfn;
    return old;
}

}  // extern "C"
