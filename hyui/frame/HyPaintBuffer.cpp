#include "HyPaintBuffer.h"

#include <optional>

void HyPaintBuffer::Paint(CWnd& wnd, const std::function<void(CDC& dc, const CRect& client)>& draw)
{
    CPaintDC dc(&wnd);
    CRect client, area, clip;
    wnd.GetClientRect(&client);
    const int kind = dc.GetClipBox(&clip);
    if (kind == NULLREGION)
        return;
    area = client;
    if (kind != ERROR && !area.IntersectRect(&client, &clip))
        return;
    CDC* buffer = Get(dc, client.Size());
    std::optional<CMemDCBuffer> fallback;
    if (buffer == nullptr)
        buffer = fallback.emplace(&dc, &area).GetDC();
    {
        CDCSaveState state(*buffer);
        buffer->IntersectClipRect(&area);   // what is drawn is what meets it
        buffer->SetTextColor(dc.GetTextColor());
        buffer->SetBkColor(dc.GetBkColor());
        buffer->SetBkMode(dc.GetBkMode());
        draw(*buffer, client);
    }
    if (!fallback)   // the temporary buffer copies itself when it goes
        dc.BitBlt(area.left, area.top, area.Width(), area.Height(), buffer, area.left, area.top, SRCCOPY);
}

CDC* HyPaintBuffer::Get(CDC& target, CSize size)
{
    if (m_dc.m_hDC != nullptr && m_size == size)
        return &m_dc;
    Free();
    if (size.cx <= 0 || size.cy <= 0 || !m_dc.CreateCompatibleDC(&target))
        return nullptr;
    if (!m_bitmap.CreateCompatibleBitmap(&target, size.cx, size.cy)) {
        m_dc.DeleteDC();
        return nullptr;
    }
    m_oldBitmap = ::SelectObject(m_dc.m_hDC, m_bitmap.m_hObject);
    m_size = size;
    return &m_dc;
}

void HyPaintBuffer::Free()
{
    if (m_dc.m_hDC != nullptr) {
        ::SelectObject(m_dc.m_hDC, m_oldBitmap);
        m_dc.DeleteDC();
    }
    m_bitmap.DeleteObject();
    m_size = CSize(0, 0);
}
