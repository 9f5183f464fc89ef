#include "HyScrollBar.h"

void HySetScrollInfoQuietly(HWND hwnd, const SCROLLINFO& si, bool endChanged)
{
    SCROLLBARINFO before{ sizeof before }, after{ sizeof after };
    const bool known = ::GetScrollBarInfo(hwnd, OBJID_VSCROLL, &before) != FALSE;
    ::SetScrollInfo(hwnd, SB_VERT, &si, FALSE);
    if (!known || !::GetScrollBarInfo(hwnd, OBJID_VSCROLL, &after)) {
        ::RedrawWindow(hwnd, nullptr, nullptr, RDW_FRAME | RDW_INVALIDATE);
        return;
    }
    if (!::EqualRect(&before.rcScrollBar, &after.rcScrollBar) || before.rgstate[0] != after.rgstate[0]) {
        ::RedrawWindow(hwnd, nullptr, nullptr, RDW_FRAME | RDW_INVALIDATE | RDW_NOCHILDREN);   // appeared or went
        return;
    }
    if (before.xyThumbTop != after.xyThumbTop || before.xyThumbBottom != after.xyThumbBottom || endChanged) {
        RECT bar = after.rcScrollBar;
        ::MapWindowPoints(nullptr, hwnd, (LPPOINT)&bar, 2);
        ::RedrawWindow(hwnd, &bar, nullptr, RDW_FRAME | RDW_INVALIDATE);
    }
}
