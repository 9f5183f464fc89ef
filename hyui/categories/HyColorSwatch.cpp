#include "HyColorSwatch.h"

#include "HyTheme.h"

IMPLEMENT_DYNAMIC(CHyColorSwatch, CButton)

BEGIN_MESSAGE_MAP(CHyColorSwatch, CButton)
    ON_WM_ERASEBKGND()
    ON_WM_LBUTTONDBLCLK()
    ON_WM_SYSCOLORCHANGE()
    ON_WM_KEYDOWN()
    ON_MESSAGE(WM_GETDLGCODE, OnGetDlgCodeEx)
END_MESSAGE_MAP()

CHyColorSwatch::CHyColorSwatch() : colour(0), selected(0) {}

BOOL CHyColorSwatch::Create(COLORREF crColour, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    colour = crColour;
    return CButton::Create(_T(""), dwStyle, rect, pParentWnd, nID);
}

BOOL CHyColorSwatch::PreCreateWindow(CREATESTRUCT& cs)
{
    cs.style |= BS_OWNERDRAW;
    return CButton::PreCreateWindow(cs);
}

void CHyColorSwatch::Select(BOOL bSelect)
{
    if (bSelect == selected)
        return;
    selected = bSelect;
    RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
}

BOOL CHyColorSwatch::OnEraseBkgnd(CDC*)
{
    return TRUE;   // the drawing covers every pixel
}

void CHyColorSwatch::OnLButtonDblClk(UINT nFlags, CPoint point)
{
    // The second click of a quick pair is a press too, never lost.
    SendMessage(WM_LBUTTONDOWN, nFlags, MAKELPARAM(point.x, point.y));
}

void CHyColorSwatch::OnSysColorChange()
{
    Default();
    RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
}

void CHyColorSwatch::OnKeyDown(UINT nChar, UINT, UINT nFlags)
{
    if (nChar != VK_RETURN)
    {
        Default();
        return;
    }
    // Enter is a click; a held key's repeats (bit 14) are not.
    if ((nFlags & 0x4000) == 0)
        if (CWnd* parent = GetParent())
            parent->PostMessage(WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(), BN_CLICKED), (LPARAM)m_hWnd);
}

LRESULT CHyColorSwatch::OnGetDlgCodeEx(WPARAM, LPARAM lParam)
{
    LRESULT code = Default();
    const MSG* msg = (const MSG*)lParam;   // may be null
    if (msg != nullptr && (msg->message == WM_KEYDOWN || msg->message == WM_CHAR) && msg->wParam == VK_RETURN)
        code |= DLGC_WANTMESSAGE;
    return code;
}

void CHyColorSwatch::DrawItem(LPDRAWITEMSTRUCT lpDIS)
{
    if (HYThemeOwnerDraw(HYTHEME_BUTTON, lpDIS))
        return;   // the theme drew it
    CDC* pDC = CDC::FromHandle(lpDIS->hDC);
    CBrush* black = CBrush::FromHandle((HBRUSH)::GetStockObject(BLACK_BRUSH));
    CBrush* white = CBrush::FromHandle((HBRUSH)::GetStockObject(WHITE_BRUSH));
    CRect r = lpDIS->rcItem;
    pDC->FrameRect(&r, black);
    r.DeflateRect(1, 1);
    // The middle frame shows the Select flag, not the pressed state.
    pDC->FrameRect(&r, selected ? black : white);
    r.DeflateRect(1, 1);
    pDC->FrameRect(&r, white);
    r.DeflateRect(1, 1);
    pDC->FillSolidRect(&r, colour);
    if ((lpDIS->itemState & ODS_FOCUS) != 0)
    {
        CBrush focus(HYThemeGetFocusColor());
        pDC->FrameRect(&lpDIS->rcItem, &focus);
    }
}
