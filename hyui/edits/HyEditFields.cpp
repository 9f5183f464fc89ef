#include "HyEditFields.h"
#include "HyTimeText.h"

IMPLEMENT_DYNAMIC(CHyNumEdit, CEdit)
IMPLEMENT_DYNAMIC(CHyTernUIRichEdit, CRichEditCtrl)

BEGIN_MESSAGE_MAP(CHyNumEdit, CEdit)
    ON_WM_CHAR()
    ON_CONTROL_REFLECT(EN_KILLFOCUS, OnKillFocusReflect)
END_MESSAGE_MAP()

BEGIN_MESSAGE_MAP(CHyTernUIRichEdit, CRichEditCtrl)
    ON_WM_LBUTTONDBLCLK()
    ON_WM_RBUTTONUP()
    ON_WM_KEYDOWN()
    ON_CONTROL_REFLECT(EN_KILLFOCUS, OnKillFocusReflect)
    ON_WM_KEYUP()
    ON_WM_LBUTTONDOWN()
    ON_WM_CLOSE()
    ON_WM_DESTROY()
    ON_WM_CHAR()
END_MESSAGE_MAP()

namespace {

constexpr LPARAM kExtendedKey = 0x01000000;   // bit 24: the keypad's Enter

}  // namespace

// ---- CHyNumEdit ----

CHyNumEdit::CHyNumEdit() : minRequire(0), allowedChars("0123456789") {}

void CHyNumEdit::OnChar(UINT nChar, UINT nRepCnt, UINT nFlags)
{
    if (nChar != '\b' && (nChar == 0 || allowedChars.Find((TCHAR)nChar) < 0)) {
        ::MessageBeep(0x0FFFFFFF);   // this very sound value, not the usual -1 (intended)
        return;
    }
    CEdit::OnChar(nChar, nRepCnt, nFlags);
}

void CHyNumEdit::OnKillFocusReflect()
{
    CString text;
    GetWindowText(text);
    std::string replacement;
    if (hy::NumberBelowMinimum((LPCTSTR)text, minRequire, replacement))
        SetWindowText(replacement.c_str());
}

// ---- CHyTernUIRichEdit ----

CHyTernUIRichEdit::CHyTernUIRichEdit() : editable(0) {}

void CHyTernUIRichEdit::Notify(UINT message, WPARAM wParam, bool send)
{
    if (CWnd* parent = GetParent())
        send ? (void)parent->SendMessage(message, wParam) : (void)parent->PostMessage(message, wParam);
}

BOOL CHyTernUIRichEdit::PreTranslateMessage(MSG* pMsg)
{
    // The keypad's Enter never reaches a dialog as its default button; the main Enter does.
    if (pMsg->message == WM_KEYDOWN && pMsg->wParam == VK_RETURN && (pMsg->lParam & kExtendedKey) != 0)
        return TRUE;
    return CRichEditCtrl::PreTranslateMessage(pMsg);
}

void CHyTernUIRichEdit::OnLButtonDblClk(UINT nFlags, CPoint point)
{
    if (!editable)
        return Notify(HYRE_DBLCLK, 0, false);
    CRichEditCtrl::OnLButtonDblClk(nFlags, point);
}

void CHyTernUIRichEdit::OnRButtonUp(UINT nFlags, CPoint point)
{
    CPoint screen(point);
    ClientToScreen(&screen);
    Notify(HYRE_RBUTTONUP, MAKEWPARAM(screen.x, screen.y), false);
    CRichEditCtrl::OnRButtonUp(nFlags, point);
}

void CHyTernUIRichEdit::OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags)
{
    if (nChar == VK_ESCAPE)   // swallowed: a dialog does not close on it
        return;
    if (nChar == VK_TAB)
        Notify(HYRE_TAB, ::GetKeyState(VK_SHIFT) < 0 ? 0 : 1, false);
    CRichEditCtrl::OnKeyDown(nChar, nRepCnt, nFlags);
}

void CHyTernUIRichEdit::OnKillFocusReflect()
{
    Notify(HYRE_KILLFOCUS, 0, true);
}

void CHyTernUIRichEdit::OnKeyUp(UINT nChar, UINT nRepCnt, UINT nFlags)
{
    if (nChar == VK_RETURN && (nFlags & (kExtendedKey >> 16)) != 0)
        return Notify(HYRE_ENTER, 0, true);
    CRichEditCtrl::OnKeyUp(nChar, nRepCnt, nFlags);
}

void CHyTernUIRichEdit::OnLButtonDown(UINT nFlags, CPoint point)
{
    Notify(HYRE_LBUTTONDOWN, 0, false);
    CRichEditCtrl::OnLButtonDown(nFlags, point);
}

void CHyTernUIRichEdit::OnClose()
{
    CRichEditCtrl::OnClose();
}

void CHyTernUIRichEdit::OnDestroy()
{
    CRichEditCtrl::OnDestroy();
}

// At the limit every character beeps, and still goes on to the control.
void CHyTernUIRichEdit::OnChar(UINT nChar, UINT nRepCnt, UINT nFlags)
{
    if (GetTextLength() >= (long)SendMessage(EM_GETLIMITTEXT))
        ::MessageBeep(0xFFFFFFFF);
    CRichEditCtrl::OnChar(nChar, nRepCnt, nFlags);
}
