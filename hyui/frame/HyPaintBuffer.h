// Double-buffered painting for the library's windows: a memory device context
// with a bitmap of the client's size, made at the first paint of a size and
// kept, so that a paint neither allocates nor touches fresh memory. Without
// memory for it a paint falls back to a temporary buffer of the painted part.
#pragma once

#include <afxwin.h>
#include <functional>

class HyPaintBuffer
{
public:
    HyPaintBuffer() = default;
    ~HyPaintBuffer() { Free(); }
    HyPaintBuffer(const HyPaintBuffer&) = delete;
    HyPaintBuffer& operator=(const HyPaintBuffer&) = delete;

    // Handles WM_PAINT for `wnd`: `draw` paints the client area into the
    // buffer, clipped to the part to update (with the screen DC's text and
    // background settings), and that part is copied to the screen.
    void Paint(CWnd& wnd, const std::function<void(CDC& dc, const CRect& client)>& draw);

    // Lets the bitmap go (on a size change or when the window goes).
    void Free();

private:
    CDC* Get(CDC& target, CSize size);

    CBitmap m_bitmap;   // before the DC: the DC goes first, letting the bitmap go
    CDC m_dc;
    HGDIOBJ m_oldBitmap = nullptr;
    CSize m_size;
};
