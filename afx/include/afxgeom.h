// HyAfx: CPoint, CSize and CRect, thin value classes over POINT, SIZE and RECT.
// Header-only: every member is inline, so nothing here is exported.
#pragma once

#include "afxver.h"

class CPoint;
class CRect;

class CSize : public tagSIZE
{
public:
    CSize() noexcept { cx = 0; cy = 0; }
    CSize(int initCX, int initCY) noexcept { cx = initCX; cy = initCY; }
    CSize(SIZE initSize) noexcept { cx = initSize.cx; cy = initSize.cy; }
    CSize(POINT initPt) noexcept { cx = initPt.x; cy = initPt.y; }
    // Low word is cx, high word cy, both signed.
    CSize(DWORD dwSize) noexcept { cx = (short)LOWORD(dwSize); cy = (short)HIWORD(dwSize); }

    BOOL operator==(SIZE size) const noexcept { return cx == size.cx && cy == size.cy; }
    BOOL operator!=(SIZE size) const noexcept { return cx != size.cx || cy != size.cy; }
    void operator+=(SIZE size) noexcept { cx += size.cx; cy += size.cy; }
    void operator-=(SIZE size) noexcept { cx -= size.cx; cy -= size.cy; }

    CSize operator+(SIZE size) const noexcept { return CSize(cx + size.cx, cy + size.cy); }
    CSize operator-(SIZE size) const noexcept { return CSize(cx - size.cx, cy - size.cy); }
    CSize operator-() const noexcept { return CSize(-cx, -cy); }
    inline CPoint operator+(POINT point) const noexcept;
    inline CPoint operator-(POINT point) const noexcept;
    inline CRect operator+(const RECT* lpRect) const noexcept;
    inline CRect operator-(const RECT* lpRect) const noexcept;
};

class CPoint : public tagPOINT
{
public:
    CPoint() noexcept { x = 0; y = 0; }
    CPoint(int initX, int initY) noexcept { x = initX; y = initY; }
    CPoint(POINT initPt) noexcept { x = initPt.x; y = initPt.y; }
    CPoint(SIZE initSize) noexcept { x = initSize.cx; y = initSize.cy; }
    // Unpacks a message lParam: low word x, high word y, both signed.
    CPoint(DWORD dwPoint) noexcept { x = (short)LOWORD(dwPoint); y = (short)HIWORD(dwPoint); }

    void Offset(int xOffset, int yOffset) noexcept { x += xOffset; y += yOffset; }
    void Offset(POINT point) noexcept { x += point.x; y += point.y; }
    void Offset(SIZE size) noexcept { x += size.cx; y += size.cy; }

    BOOL operator==(POINT point) const noexcept { return x == point.x && y == point.y; }
    BOOL operator!=(POINT point) const noexcept { return x != point.x || y != point.y; }
    void operator+=(SIZE size) noexcept { x += size.cx; y += size.cy; }
    void operator-=(SIZE size) noexcept { x -= size.cx; y -= size.cy; }
    void operator+=(POINT point) noexcept { x += point.x; y += point.y; }
    void operator-=(POINT point) noexcept { x -= point.x; y -= point.y; }

    CPoint operator+(SIZE size) const noexcept { return CPoint(x + size.cx, y + size.cy); }
    CPoint operator-(SIZE size) const noexcept { return CPoint(x - size.cx, y - size.cy); }
    CPoint operator-() const noexcept { return CPoint(-x, -y); }
    CPoint operator+(POINT point) const noexcept { return CPoint(x + point.x, y + point.y); }
    // The difference of two points is a distance, hence a CSize.
    CSize operator-(POINT point) const noexcept { return CSize(x - point.x, y - point.y); }

    inline CRect operator+(const RECT* lpRect) const noexcept;
    inline CRect operator-(const RECT* lpRect) const noexcept;
};

class CRect : public tagRECT
{
public:
    CRect() noexcept { left = top = right = bottom = 0; }
    CRect(int l, int t, int r, int b) noexcept { left = l; top = t; right = r; bottom = b; }
    CRect(const RECT& srcRect) noexcept { ::CopyRect(this, &srcRect); }
    CRect(LPCRECT lpSrcRect) noexcept { ::CopyRect(this, lpSrcRect); }
    CRect(POINT point, SIZE size) noexcept
    {
        left = point.x; top = point.y;
        right = point.x + size.cx; bottom = point.y + size.cy;
    }
    CRect(POINT topLeft, POINT bottomRight) noexcept
    {
        left = topLeft.x; top = topLeft.y;
        right = bottomRight.x; bottom = bottomRight.y;
    }

    int Width() const noexcept { return right - left; }
    int Height() const noexcept { return bottom - top; }
    CSize Size() const noexcept { return CSize(right - left, bottom - top); }
    // References into the rectangle itself: writing through them moves the corner.
    CPoint& TopLeft() noexcept { return *reinterpret_cast<CPoint*>(&left); }
    CPoint& BottomRight() noexcept { return *reinterpret_cast<CPoint*>(&right); }
    const CPoint& TopLeft() const noexcept { return *reinterpret_cast<const CPoint*>(&left); }
    const CPoint& BottomRight() const noexcept { return *reinterpret_cast<const CPoint*>(&right); }
    CPoint CenterPoint() const noexcept { return CPoint((left + right) / 2, (top + bottom) / 2); }
    void SwapLeftRight() noexcept { LONG t = left; left = right; right = t; }

    operator LPRECT() noexcept { return this; }
    operator LPCRECT() const noexcept { return this; }

    // Empty: no area (width or height <= 0). Null: all four coordinates zero.
    BOOL IsRectEmpty() const noexcept { return ::IsRectEmpty(this); }
    BOOL IsRectNull() const noexcept { return left == 0 && right == 0 && top == 0 && bottom == 0; }
    BOOL PtInRect(POINT point) const noexcept { return ::PtInRect(this, point); }

    void SetRect(int x1, int y1, int x2, int y2) noexcept { ::SetRect(this, x1, y1, x2, y2); }
    void SetRect(POINT topLeft, POINT bottomRight) noexcept
    {
        ::SetRect(this, topLeft.x, topLeft.y, bottomRight.x, bottomRight.y);
    }
    void SetRectEmpty() noexcept { ::SetRectEmpty(this); }
    void CopyRect(LPCRECT lpSrcRect) noexcept { ::CopyRect(this, lpSrcRect); }
    BOOL EqualRect(LPCRECT lpRect) const noexcept { return ::EqualRect(this, lpRect); }

    void InflateRect(int x, int y) noexcept { ::InflateRect(this, x, y); }
    void InflateRect(SIZE size) noexcept { ::InflateRect(this, size.cx, size.cy); }
    void InflateRect(LPCRECT lpRect) noexcept
    {
        left -= lpRect->left; top -= lpRect->top;
        right += lpRect->right; bottom += lpRect->bottom;
    }
    void InflateRect(int l, int t, int r, int b) noexcept
    {
        left -= l; top -= t; right += r; bottom += b;
    }
    void DeflateRect(int x, int y) noexcept { ::InflateRect(this, -x, -y); }
    void DeflateRect(SIZE size) noexcept { ::InflateRect(this, -size.cx, -size.cy); }
    void DeflateRect(LPCRECT lpRect) noexcept
    {
        left += lpRect->left; top += lpRect->top;
        right -= lpRect->right; bottom -= lpRect->bottom;
    }
    void DeflateRect(int l, int t, int r, int b) noexcept
    {
        left += l; top += t; right -= r; bottom -= b;
    }

    void NormalizeRect() noexcept
    {
        LONG t;
        if (left > right) { t = left; left = right; right = t; }
        if (top > bottom) { t = top; top = bottom; bottom = t; }
    }

    void OffsetRect(int x, int y) noexcept { ::OffsetRect(this, x, y); }
    void OffsetRect(POINT point) noexcept { ::OffsetRect(this, point.x, point.y); }
    void OffsetRect(SIZE size) noexcept { ::OffsetRect(this, size.cx, size.cy); }

    // The platform rules apply: an empty intersection leaves this rectangle
    // all zero; UnionRect ignores empty operands.
    BOOL IntersectRect(LPCRECT lpRect1, LPCRECT lpRect2) noexcept
    {
        return ::IntersectRect(this, lpRect1, lpRect2);
    }
    BOOL UnionRect(LPCRECT lpRect1, LPCRECT lpRect2) noexcept
    {
        return ::UnionRect(this, lpRect1, lpRect2);
    }
    BOOL SubtractRect(LPCRECT lpRectSrc1, LPCRECT lpRectSrc2) noexcept
    {
        return ::SubtractRect(this, lpRectSrc1, lpRectSrc2);
    }

    CRect& operator=(const RECT& srcRect) noexcept { ::CopyRect(this, &srcRect); return *this; }
    BOOL operator==(const RECT& rect) const noexcept { return ::EqualRect(this, &rect); }
    BOOL operator!=(const RECT& rect) const noexcept { return !::EqualRect(this, &rect); }
    void operator+=(POINT point) noexcept { ::OffsetRect(this, point.x, point.y); }
    void operator+=(SIZE size) noexcept { ::OffsetRect(this, size.cx, size.cy); }
    void operator+=(LPCRECT lpRect) noexcept { InflateRect(lpRect); }
    void operator-=(POINT point) noexcept { ::OffsetRect(this, -point.x, -point.y); }
    void operator-=(SIZE size) noexcept { ::OffsetRect(this, -size.cx, -size.cy); }
    void operator-=(LPCRECT lpRect) noexcept { DeflateRect(lpRect); }
    void operator&=(const RECT& rect) noexcept { ::IntersectRect(this, this, &rect); }
    void operator|=(const RECT& rect) noexcept { ::UnionRect(this, this, &rect); }

    CRect operator+(POINT pt) const noexcept { CRect r(*this); ::OffsetRect(&r, pt.x, pt.y); return r; }
    CRect operator-(POINT pt) const noexcept { CRect r(*this); ::OffsetRect(&r, -pt.x, -pt.y); return r; }
    CRect operator+(SIZE size) const noexcept { CRect r(*this); ::OffsetRect(&r, size.cx, size.cy); return r; }
    CRect operator-(SIZE size) const noexcept { CRect r(*this); ::OffsetRect(&r, -size.cx, -size.cy); return r; }
    CRect operator+(LPCRECT lpRect) const noexcept { CRect r(this); r.InflateRect(lpRect); return r; }
    CRect operator-(LPCRECT lpRect) const noexcept { CRect r(this); r.DeflateRect(lpRect); return r; }
    // Beats pointer subtraction through operator LPRECT for a non-const RECT*.
    CRect operator-(LPRECT lpRect) const noexcept { CRect r(this); r.DeflateRect(lpRect); return r; }
    CRect operator&(const RECT& rect2) const noexcept { CRect r; ::IntersectRect(&r, this, &rect2); return r; }
    CRect operator|(const RECT& rect2) const noexcept { CRect r; ::UnionRect(&r, this, &rect2); return r; }
};

inline CPoint CSize::operator+(POINT point) const noexcept { return CPoint(cx + point.x, cy + point.y); }
inline CPoint CSize::operator-(POINT point) const noexcept { return CPoint(cx - point.x, cy - point.y); }
inline CRect CSize::operator+(const RECT* lpRect) const noexcept { return CRect(lpRect) + *this; }
inline CRect CSize::operator-(const RECT* lpRect) const noexcept { return CRect(lpRect) - *this; }
inline CRect CPoint::operator+(const RECT* lpRect) const noexcept { return CRect(lpRect) + *this; }
inline CRect CPoint::operator-(const RECT* lpRect) const noexcept { return CRect(lpRect) - *this; }
