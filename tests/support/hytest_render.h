// Renders a window into a 32-bit top-down DIB section and probes its pixels.
#pragma once

#include <windows.h>
#include <gtest/gtest.h>

#include <vector>

namespace hytest {

// Colour of pixels no painting has touched yet.
constexpr COLORREF kUnpainted = RGB(0xFE, 0x01, 0xFE);

class Renderer
{
public:
    Renderer(int width, int height);
    // Sizes the DIB to the client area and renders once.
    explicit Renderer(HWND hwnd);
    ~Renderer();
    Renderer(const Renderer&) = delete;
    Renderer& operator=(const Renderer&) = delete;

    // Fills with `fill`, then has the window and its visible children paint
    // themselves (WM_ERASEBKGND and WM_PAINT with the DC in wParam).
    void Render(HWND hwnd, COLORREF fill = kUnpainted);
    void Fill(COLORREF colour);

    HDC dc() const { return m_dc; }
    int width() const { return m_width; }
    int height() const { return m_height; }

    // Probes. Rectangles are clipped to the bitmap; out-of-range points read
    // CLR_INVALID.
    COLORREF At(int x, int y) const;
    int Count(const RECT& r, COLORREF colour) const;
    COLORREF Dominant(const RECT& r) const;
    // The bounding box of the pixels of r that are not `colour` (or that
    // differ from `other`'s); an empty rectangle when there are none.
    RECT Ink(const RECT& r, COLORREF colour) const;
    RECT Ink(const RECT& r, const Renderer& other) const;
    // Every pixel, row by row: two renderings compare equal pixel for pixel.
    std::vector<DWORD> Pixels() const;
    // Every pixel of r has the colour; the failure names the first offender,
    // the number of differing pixels and the dominant colour.
    ::testing::AssertionResult AllPixels(const RECT& r, COLORREF colour) const;

private:
    void Create(int width, int height);
    void PaintTree(HWND hwnd, POINT origin, const RECT& clip);

    HDC m_dc = nullptr;
    HBITMAP m_bitmap = nullptr;
    HGDIOBJ m_oldBitmap = nullptr;
    DWORD* m_bits = nullptr;
    int m_width = 0;
    int m_height = 0;
};

}  // namespace hytest
