#include "HyBitmapButton.h"

#include "CxImage.h"
#include "HyImageHelpers.h"
#include "HyTheme.h"
#include "HyUIRes.h"

namespace {
constexpr int kPictureBound = 64;   // the stored picture fits 64 x 64
}

IMPLEMENT_DYNAMIC(CHyBitmapButton, CButton)

BEGIN_MESSAGE_MAP(CHyBitmapButton, CButton)
    ON_WM_KILLFOCUS()
    ON_WM_MOUSEMOVE()
    ON_CONTROL_REFLECT_EX(BN_CLICKED, OnClicked)
    ON_WM_ACTIVATE()
    ON_WM_ENABLE()
    ON_WM_CANCELMODE()
    ON_MESSAGE(BM_SETSTYLE, OnSetStyle)
    ON_MESSAGE(WM_MOUSELEAVE, OnMouseLeave)
END_MESSAGE_MAP()

CHyBitmapButton::CHyBitmapButton()
    : reserved(1), flat(TRUE), hover(FALSE), pressed(FALSE), focused(FALSE), drawBorder(TRUE), drawFlatFocus(FALSE),
      image(nullptr)
{
    placeholder.LoadBitmap(IDB_BUTTON_PLACEHOLDER);
}

CHyBitmapButton::~CHyBitmapButton() { delete image; }

int CHyBitmapButton::SetFlat(BOOL bFlat, BOOL bRepaint)
{
    flat = bFlat;
    if (bRepaint && m_hWnd != nullptr)
        Invalidate(TRUE);
    return 0;
}

int CHyBitmapButton::DrawBorder(BOOL bEnable, BOOL bRepaint)
{
    drawBorder = bEnable;
    if (bRepaint && m_hWnd != nullptr)
        Invalidate(TRUE);
    return 0;
}

int CHyBitmapButton::DrawFlatFocus(BOOL bEnable, BOOL bRepaint)
{
    drawFlatFocus = bEnable;
    if (bRepaint && m_hWnd != nullptr)
        Invalidate(TRUE);
    return 0;
}

void CHyBitmapButton::SetCxImage(CxImage* pImage)
{
    if (image == nullptr)
        image = new CxImage;
    if (pImage != nullptr && pImage->IsValid())
    {
        image->Copy(*pImage);
        CRect fitted(0, 0, (int)image->GetWidth(), (int)image->GetHeight());
        HYScalePropRect(fitted, kPictureBound);
        image->Resample(fitted.Width(), fitted.Height(), 1);
    }
    else
        image->Destroy();
    if (m_hWnd != nullptr)
        RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
}

void CHyBitmapButton::PreSubclassWindow()
{
    // The button type becomes owner-drawn, whatever it was.
    ModifyStyle(0x1F, BS_OWNERDRAW, SWP_FRAMECHANGED);
    CButton::PreSubclassWindow();
}

BOOL CHyBitmapButton::PreTranslateMessage(MSG* pMsg)
{
    if (pMsg->message == WM_LBUTTONDBLCLK)
        pMsg->message = WM_LBUTTONDOWN;   // a double-click is two presses
    return CButton::PreTranslateMessage(pMsg);
}

void CHyBitmapButton::CancelHover()
{
    if (flat && hover)
    {
        hover = FALSE;
        Invalidate(TRUE);
    }
}

void CHyBitmapButton::OnKillFocus(CWnd*)
{
    Default();
    CancelHover();
}

void CHyBitmapButton::OnMouseMove(UINT nFlags, CPoint point)
{
    Default();
    if ((nFlags & MK_LBUTTON) != 0 && !hover)
        return;   // entered with the button held: no hover
    if (!flat)
        return;
    CPoint screen = point;
    ClientToScreen(&screen);
    if (::WindowFromPoint(screen) == m_hWnd)
    {
        if (!hover)
        {
            hover = TRUE;
            Invalidate(TRUE);
            TRACKMOUSEEVENT leave = { sizeof leave, TME_LEAVE, m_hWnd, 0 };
            ::TrackMouseEvent(&leave);
        }
    }
    else
        CancelHover();
}

BOOL CHyBitmapButton::OnClicked()
{
    SetFocus();
    if (CWnd* parent = GetParent())
        parent->SendMessage(HYWM_BITMAPBUTTON_CLICKED, 0, 0);
    return TRUE;   // handled: the parent gets no BN_CLICKED
}

void CHyBitmapButton::OnActivate(UINT nState, CWnd*, BOOL)
{
    Default();
    if (nState == WA_INACTIVE)
        CancelHover();
}

void CHyBitmapButton::OnEnable(BOOL bEnable)
{
    Default();
    if (!bEnable)
    {
        // The focus moves on whether or not the button had it, as intended.
        CWnd* parent = GetParent();
        HWND next = parent != nullptr ? ::GetNextDlgTabItem(parent->m_hWnd, m_hWnd, FALSE) : nullptr;
        if (next != nullptr && next != m_hWnd)
            ::SetFocus(next);
        else if (parent != nullptr)
            parent->SetFocus();
        CancelHover();
    }
}

void CHyBitmapButton::OnCancelMode()
{
    Default();
    CancelHover();
}

LRESULT CHyBitmapButton::OnSetStyle(WPARAM wParam, LPARAM lParam)
{
    // Whatever type is asked for, the button stays owner-drawn.
    return DefWindowProc(BM_SETSTYLE, (wParam & ~(WPARAM)0x1F) | BS_OWNERDRAW, lParam);
}

LRESULT CHyBitmapButton::OnMouseLeave(WPARAM, LPARAM)
{
    CancelHover();
    return 0;
}

void CHyBitmapButton::OnDrawBackground(CDC* pDC, const RECT* pRect)
{
    pDC->FillSolidRect(pRect, ::GetSysColor(COLOR_BTNFACE));
}

void CHyBitmapButton::OnDrawBorder(CDC* pDC, const RECT* pRect)
{
    const COLORREF light = ::GetSysColor(COLOR_BTNHIGHLIGHT), shadow = ::GetSysColor(COLOR_BTNSHADOW);
    pDC->Draw3dRect(pRect, pressed ? shadow : light, pressed ? light : shadow);
}

void CHyBitmapButton::DrawTheBitmap(CDC* pDC, int, RECT* pItem, CRect*, int)
{
    HYDrawRectImage(pDC, image, *pItem);
}

void CHyBitmapButton::DrawTheText(CDC* pDC, const char* lpszText, RECT* pItem, CRect* pCaption, int)
{
    CRect measured = *pItem;
    pDC->DrawText(lpszText, -1, &measured, DT_CALCRECT | DT_WORDBREAK | DT_CENTER);
    const CRect item(*pItem);
    measured.OffsetRect(item.left + (item.Width() - measured.Width()) / 2 - measured.left,
                        item.top + (item.Height() - measured.Height()) / 2 - measured.top);
    if (pCaption != nullptr)
        *pCaption = measured;
    // Our caption colours: element 13's text while enabled, the system's grey text when not.
    const bool enabled = IsWindowEnabled() != FALSE;
    if (!enabled)
        pDC->SetTextColor(::GetSysColor(COLOR_GRAYTEXT));
    HYThemeDrawText(pDC, lpszText, -1, &measured, DT_CENTER | DT_VCENTER | DT_WORDBREAK,
                    enabled ? HYTHEME_BUTTON : HYTHEME_CURRENT);
}

void CHyBitmapButton::DrawItem(LPDRAWITEMSTRUCT lpDIS)
{
    CDC* pDC = CDC::FromHandle(lpDIS->hDC);
    CRect item = lpDIS->rcItem;
    pDC->SetBkMode(TRANSPARENT);
    pressed = (lpDIS->itemState & ODS_SELECTED) != 0;
    focused = (lpDIS->itemState & ODS_FOCUS) != 0;
    if (!flat && focused)
    {
        CBrush black(RGB(0, 0, 0));
        pDC->FrameRect(&item, &black);
        item.DeflateRect(1, 1);
    }
    OnDrawBackground(pDC, &item);
    if (!pressed)
    {
        if (!flat)
        {
            // The classic raised edge: four one-pixel lines.
            const COLORREF outerLight = ::GetSysColor(COLOR_BTNHIGHLIGHT), innerLight = ::GetSysColor(COLOR_3DLIGHT);
            const COLORREF outerDark = ::GetSysColor(COLOR_3DDKSHADOW), innerDark = ::GetSysColor(COLOR_BTNSHADOW);
            pDC->FillSolidRect(item.left, item.top, item.Width(), 1, outerLight);
            pDC->FillSolidRect(item.left, item.top, 1, item.Height(), outerLight);
            pDC->FillSolidRect(item.left + 1, item.top + 1, item.Width() - 2, 1, innerLight);
            pDC->FillSolidRect(item.left + 1, item.top + 1, 1, item.Height() - 2, innerLight);
            pDC->FillSolidRect(item.left, item.bottom - 1, item.Width(), 1, outerDark);
            pDC->FillSolidRect(item.right - 1, item.top, 1, item.Height(), outerDark);
            pDC->FillSolidRect(item.left + 1, item.bottom - 2, item.Width() - 2, 1, innerDark);
            pDC->FillSolidRect(item.right - 2, item.top + 1, 1, item.Height() - 2, innerDark);
        }
        else if (hover && drawBorder)
            OnDrawBorder(pDC, &item);
    }
    else if (!flat)
    {
        CBrush shadow(::GetSysColor(COLOR_BTNSHADOW));
        pDC->FrameRect(&item, &shadow);
    }
    else if (drawBorder)
        OnDrawBorder(pDC, &item);

    // The content takes the whole item rectangle.
    RECT whole = lpDIS->rcItem;
    CRect caption;
    CString title;
    GetWindowText(title);
    if (image != nullptr && image->IsValid())
        DrawTheBitmap(pDC, !title.IsEmpty(), &whole, &caption, pressed);
    else if (!title.IsEmpty())
        DrawTheText(pDC, title, &whole, &caption, pressed);
    else if (placeholder.GetSafeHandle() != nullptr)
    {
        BITMAP bm = {};
        placeholder.GetBitmap(&bm);
        const CRect r(whole);
        HYThemeDrawTransparentBitmap(pDC, (HBITMAP)placeholder.GetSafeHandle(), r.left + (r.Width() - bm.bmWidth) / 2,
                                     r.top + (r.Height() - bm.bmHeight) / 2, HYCLR_TOPLEFT);
    }
    if (focused && (!flat || drawFlatFocus))
    {
        CRect mark = item;
        mark.DeflateRect(3, 3);
        pDC->DrawFocusRect(&mark);
    }
}
