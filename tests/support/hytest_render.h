// Renders a window into a 32-bit top-down DIB section and probes its pixels.
#pragma once

#include <windows.h>
#include <gtest/gtest.h>

#include <vector>

namespace hytest {

// How a window is asked to paint into the memory DC.
enum class PaintMode
{
    // WM_PRINTCLIENT with PRF_CLIENT | PRF_ERASEBKGND | PRF_CHILDREN
    // (controls that support printing).
    PrintClient,
    // WM_PRINT with PRF_NONCLIENT as well (frame and scroll bars included;
    // the DIB is then sized to the window rectangle).
    Print,
    // WM_ERASEBKGND with the DC, then WM_PAINT with wParam = the DC: the
    // classic convention of controls, which paint into wParam when it is not
    // zero instead of calling BeginPaint (CPaintDC honours it). Visible child
    // windows are painted the same way at their offsets, clipped to their
    // rectangles.
    PaintDC,
};

// Colour of pixels no painting has touched yet.
constexpr COLORREF kUnpainted = RGB(0xFE, 0x01, 0xFE);

class Renderer
{
public:
    Renderer(int width, int height);
    // Sizes the DIB to the client area (window area for PaintMode::Print)
    // and renders once.
    explicit Renderer(HWND hwnd, PaintMode mode = PaintMode::PaintDC);
    ~Renderer();
    Renderer(const Renderer&) = delete;
    Renderer& operator=(const Renderer&) = delete;

    // Fills with `fill`, then has the window paint itself at the origin.
    void Render(HWND hwnd, PaintMode mode = PaintMode::PaintDC, COLORREF fill = kUnpainted);
    void Fill(COLORREF colour);

    HDC dc() const { return m_dc; }
    int width() const { return m_width; }
    int height() const { return m_height; }

    // Probes. Rectangles are clipped to the bitmap; out-of-range points read
    // CLR_INVALID.
    COLORREF At(int x, int y) const;
    int Count(const RECT& r, COLORREF colour) const;
    bool RowContains(int y, int x0, int x1, COLORREF colour) const;  // x0..x1 inclusive
    COLORREF Dominant(const RECT& r) const;
    // Every pixel, row by row: two renderings compare equal pixel for pixel.
    std::vector<DWORD> Pixels() const;
    // Every pixel of r has the colour; the failure names the first offender,
    // the number of differing pixels and the dominant colour.
    ::testing::AssertionResult AllPixels(const RECT& r, COLORREF colour) const;

    // Writes a 32-bit BMP for looking at a failure.
    bool SaveBmp(const char* path) const;

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
