// The edit list's in-place editor: tells the list of Tab, of every other
// character and of losing the focus, and hands composition readings to a
// companion window.
#include "HyEditList.h"
#include "HyIntl.h"

#include <imm.h>
#include <vector>

IMPLEMENT_DYNAMIC(CListItemEdit, CTernEdit)

BEGIN_MESSAGE_MAP(CListItemEdit, CTernEdit)
    ON_WM_CREATE()
    ON_WM_CHAR()
    ON_WM_SETFOCUS()
    ON_WM_KILLFOCUS()
    ON_MESSAGE(WM_PASTE, OnPaste)
    ON_MESSAGE(WM_IME_ENDCOMPOSITION, OnImeEndComposition)
END_MESSAGE_MAP()

CListItemEdit::CListItemEdit() : reading(nullptr), pasting(0) {}

int CListItemEdit::OnCreate(LPCREATESTRUCT lpCreateStruct)
{
    return CTernEdit::OnCreate(lpCreateStruct);
}

void CListItemEdit::OnChar(UINT nChar, UINT nRepCnt, UINT nFlags)
{
    CWnd* list = GetParent();
    if (nChar == VK_TAB) {   // moves on; never typed into the value
        if (list != nullptr)
            list->SendMessage(::GetKeyState(VK_SHIFT) < 0 ? HYEL_TABPREV : HYEL_TABNEXT);
        return;
    }
    CTernEdit::OnChar(nChar, nRepCnt, nFlags);
    if (list != nullptr)
        list->SendMessage(HYEL_CHARENTERED, nChar);
}

void CListItemEdit::OnSetFocus(CWnd* pOldWnd)
{
    if (pOldWnd != nullptr && ::IsWindow(pOldWnd->m_hWnd))
        pOldWnd->UpdateWindow();
    CRect own;
    GetClientRect(&own);
    SetRect(&own);
    CTernEdit::OnSetFocus(pOldWnd);
}

void CListItemEdit::OnKillFocus(CWnd* pNewWnd)
{
    CTernEdit::OnKillFocus(pNewWnd);
    RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    if (!pasting)
        if (CWnd* list = GetParent())
            list->SendMessage(HYEL_ITEMKILLFOCUS);
}

// A paste grows the row as typing does (ours).
LRESULT CListItemEdit::OnPaste(WPARAM wParam, LPARAM lParam)
{
    pasting = 1;
    const LRESULT result = CTernEdit::OnPaste(wParam, lParam);
    pasting = 0;
    if (CWnd* list = GetParent())
        list->SendMessage(HYEL_CHARENTERED);
    return result;
}

LRESULT CListItemEdit::OnImeEndComposition(WPARAM, LPARAM)
{
    if (reading != nullptr && ::IsWindow(reading->m_hWnd)) {
        if (HIMC context = ::ImmGetContext(m_hWnd)) {
            const LONG bytes = ::ImmGetCompositionStringA(context, GCS_RESULTREADSTR, nullptr, 0);
            if (bytes > 0) {
                std::vector<char> text((size_t)bytes + 1, '\0');
                ::ImmGetCompositionStringA(context, GCS_RESULTREADSTR, text.data(), (DWORD)bytes);
                CString shown;
                reading->GetWindowText(shown);
                reading->SetWindowText(shown + ToFullwidthAndHira(text.data()));
            }
            ::ImmReleaseContext(m_hWnd, context);
        }
    }
    return Default();
}
