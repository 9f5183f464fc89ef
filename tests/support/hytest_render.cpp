#include "hytest_render.h"

#include <algorithm>
#include <cstdio>
#include <map>

namespace hytest {

namespace {

DWORD ToPixel(COLORREF c) { return (GetRValue(c) << 16) | (GetGValue(c) << 8) | GetBValue(c); }
COLORREF ToColour(DWORD p) { return RGB((p >> 16) & 0xFF, (p >> 8) & 0xFF, p & 0xFF); }

std::string ColourText(COLORREF c)
{
    char buf[32];
    std::snprintf(buf, sizeof buf, "RGB(%u,%u,%u)", GetRValue(c), GetGValue(c), GetBValue(c));
    return buf;
}

}  // namespace

Renderer::Renderer(int width, int height) { Create(width, height); }

Renderer::Renderer(HWND hwnd)
{
    RECT rc = {};
    GetClientRect(hwnd, &rc);
    Create(rc.right, rc.bottom);
    Render(hwnd);
}

Renderer::~Renderer()
{
    if (m_dc) {
        SelectObject(m_dc, m_oldBitmap);
        DeleteDC(m_dc);
    }
    if (m_bitmap)
        DeleteObject(m_bitmap);
}

void Renderer::Create(int width, int height)
{
    m_width = std::max(width, 1);
    m_height = std::max(height, 1);
    BITMAPINFO bi = {};
    bi.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
    bi.bmiHeader.biWidth = m_width;
    bi.bmiHeader.biHeight = -m_height;  // top-down
    bi.bmiHeader.biPlanes = 1;
    bi.bmiHeader.biBitCount = 32;
    bi.bmiHeader.biCompression = BI_RGB;
    void* bits = nullptr;
    m_bitmap = CreateDIBSection(nullptr, &bi, DIB_RGB_COLORS, &bits, nullptr, 0);
    m_bits = static_cast<DWORD*>(bits);
    m_dc = CreateCompatibleDC(nullptr);
    m_oldBitmap = SelectObject(m_dc, m_bitmap);
    Fill(kUnpainted);
}

void Renderer::Fill(COLORREF colour)
{
    GdiFlush();
    std::fill(m_bits, m_bits + static_cast<size_t>(m_width) * m_height, ToPixel(colour));
}

std::vector<DWORD> Renderer::Pixels() const
{
    GdiFlush();
    return std::vector<DWORD>(m_bits, m_bits + static_cast<size_t>(m_width) * m_height);
}

void Renderer::Render(HWND hwnd, COLORREF fill)
{
    Fill(fill);
    const RECT all = {0, 0, m_width, m_height};
    PaintTree(hwnd, POINT{0, 0}, all);
    GdiFlush();
}

void Renderer::PaintTree(HWND hwnd, POINT origin, const RECT& clip)
{
    const int saved = SaveDC(m_dc);
    SetViewportOrgEx(m_dc, origin.x, origin.y, nullptr);
    HRGN rgn = CreateRectRgnIndirect(&clip);
    SelectClipRgn(m_dc, rgn);
    DeleteObject(rgn);
    SendMessageA(hwnd, WM_ERASEBKGND, reinterpret_cast<WPARAM>(m_dc), 0);
    SendMessageA(hwnd, WM_PAINT, reinterpret_cast<WPARAM>(m_dc), 0);
    RestoreDC(m_dc, saved);

    // Children bottom of the z-order first, so the topmost ends up on top.
    HWND child = GetWindow(hwnd, GW_CHILD);
    HWND last = child ? GetWindow(child, GW_HWNDLAST) : nullptr;
    for (HWND c = last; c; c = GetWindow(c, GW_HWNDPREV)) {
        if (!(GetWindowLongA(c, GWL_STYLE) & WS_VISIBLE))
            continue;
        RECT rc;
        GetClientRect(c, &rc);
        POINT at = {0, 0};
        MapWindowPoints(c, hwnd, &at, 1);
        const POINT childOrigin = {origin.x + at.x, origin.y + at.y};
        RECT childClip = {childOrigin.x, childOrigin.y, childOrigin.x + rc.right, childOrigin.y + rc.bottom};
        RECT both;
        if (IntersectRect(&both, &childClip, &clip))
            PaintTree(c, childOrigin, both);
    }
}

COLORREF Renderer::At(int x, int y) const
{
    if (x < 0 || y < 0 || x >= m_width || y >= m_height)
        return CLR_INVALID;
    GdiFlush();
    return ToColour(m_bits[static_cast<size_t>(y) * m_width + x] & 0xFFFFFF);
}

namespace {
RECT Clipped(const RECT& r, int w, int h)
{
    return RECT{std::max<LONG>(r.left, 0), std::max<LONG>(r.top, 0), std::min<LONG>(r.right, w),
                std::min<LONG>(r.bottom, h)};
}

// The bounding box of the points of r (clipped) where `differs` holds.
template <class Differs>
RECT Bounds(const RECT& r, int w, int h, Differs differs)
{
    const RECT c = Clipped(r, w, h);
    RECT box{ c.right, c.bottom, c.left, c.top };
    for (int y = c.top; y < c.bottom; ++y)
        for (int x = c.left; x < c.right; ++x)
            if (differs(x, y))
                box = { std::min<LONG>(box.left, x), std::min<LONG>(box.top, y), std::max<LONG>(box.right, x + 1),
                        std::max<LONG>(box.bottom, y + 1) };
    return box.left < box.right ? box : RECT{};
}
}  // namespace

int Renderer::Count(const RECT& r, COLORREF colour) const
{
    const RECT c = Clipped(r, m_width, m_height);
    int n = 0;
    for (int y = c.top; y < c.bottom; ++y)
        for (int x = c.left; x < c.right; ++x)
            n += At(x, y) == colour;
    return n;
}

RECT Renderer::Ink(const RECT& r, COLORREF colour) const
{
    return Bounds(r, m_width, m_height, [&](int x, int y) { return At(x, y) != colour; });
}

RECT Renderer::Ink(const RECT& r, const Renderer& other) const
{
    return Bounds(r, m_width, m_height, [&](int x, int y) { return At(x, y) != other.At(x, y); });
}

COLORREF Renderer::Dominant(const RECT& r) const
{
    const RECT c = Clipped(r, m_width, m_height);
    std::map<COLORREF, int> counts;
    for (int y = c.top; y < c.bottom; ++y)
        for (int x = c.left; x < c.right; ++x)
            ++counts[At(x, y)];
    COLORREF best = CLR_INVALID;
    int bestCount = 0;
    for (const auto& [colour, n] : counts)
        if (n > bestCount) {
            best = colour;
            bestCount = n;
        }
    return best;
}

::testing::AssertionResult Renderer::AllPixels(const RECT& r, COLORREF colour) const
{
    const RECT c = Clipped(r, m_width, m_height);
    int bad = 0, firstX = -1, firstY = -1;
    for (int y = c.top; y < c.bottom; ++y)
        for (int x = c.left; x < c.right; ++x)
            if (At(x, y) != colour && bad++ == 0) {
                firstX = x;
                firstY = y;
            }
    if (c.left >= c.right || c.top >= c.bottom)
        return ::testing::AssertionFailure() << "rectangle lies outside the bitmap";
    if (bad == 0)
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure()
           << bad << " pixel(s) of (" << r.left << "," << r.top << ")-(" << r.right << "," << r.bottom
           << ") are not " << ColourText(colour) << "; first at (" << firstX << "," << firstY << ") is "
           << ColourText(At(firstX, firstY)) << "; dominant " << ColourText(Dominant(r));
}

}  // namespace hytest
