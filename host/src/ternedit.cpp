// CTernEdit: the host's edit control with a limit that typing and pasting
// both respect.
#include <afxwin.h>
#include "HyTernEdit.h"

IMPLEMENT_DYNAMIC(CTernEdit, CEdit)

BEGIN_MESSAGE_MAP(CTernEdit, CEdit)
    ON_WM_CREATE()
    ON_WM_CHAR()
    ON_MESSAGE(WM_PASTE, OnPaste)
END_MESSAGE_MAP()

CTernEdit::CTernEdit() : m_nMaxChars(0), m_bSkipTrailByte(FALSE) {}

void CTernEdit::SetMaxChars(int nMax)
{
    m_nMaxChars = nMax > 0 ? nMax : 0;
    if (m_hWnd != nullptr)
        LimitText(m_nMaxChars);
}

int CTernEdit::OnCreate(LPCREATESTRUCT lpCreateStruct)
{
    int result = CEdit::OnCreate(lpCreateStruct);
    if (result != -1 && m_nMaxChars > 0)
        LimitText(m_nMaxChars);
    return result;
}

int CTernEdit::RoomLeft() const
{
    int limit = (int)GetLimitText();
    if (m_nMaxChars > 0 && (limit <= 0 || m_nMaxChars < limit))
        limit = m_nMaxChars;
    int start = 0, end = 0;
    GetSel(start, end);
    int room = limit - (GetWindowTextLength() - (end - start));
    return room > 0 ? room : 0;
}

void CTernEdit::OnChar(UINT nChar, UINT nRepCnt, UINT nFlags)
{
    if (m_bSkipTrailByte)
    {
        m_bSkipTrailByte = FALSE;
        return;
    }
    if (m_nMaxChars > 0)
    {
        // Control characters (Backspace, Ctrl+V, ...) are not text, except
        // Enter in a multi-line edit, which inserts a line break.
        const BOOL multiLine = (GetStyle() & ES_MULTILINE) != 0;
        int needed = 0;
        if (nChar == '\r')
            needed = multiLine && (GetStyle() & ES_WANTRETURN) != 0 ? 2 : 0;
        else if (nChar >= 0x20 && nChar != 0x7F)
            needed = ::IsDBCSLeadByte((BYTE)nChar) ? 2 : 1;
        if (needed > 0 && needed > RoomLeft())
        {
            m_bSkipTrailByte = needed == 2 && nChar != '\r';
            ::MessageBeep(MB_OK);
            return;
        }
    }
    CEdit::OnChar(nChar, nRepCnt, nFlags);
}

LRESULT CTernEdit::OnPaste(WPARAM, LPARAM)
{
    if (GetStyle() & ES_READONLY)
        return 0;
    if (!::IsClipboardFormatAvailable(CF_TEXT) || !::OpenClipboard(m_hWnd))
        return 0;
    CString text;
    if (HANDLE hData = ::GetClipboardData(CF_TEXT))
    {
        if (auto* p = static_cast<const char*>(::GlobalLock(hData)))
        {
            // The clipboard's block may be larger than its text; stop at the zero.
            SIZE_T size = ::GlobalSize(hData);
            SIZE_T n = 0;
            while (n < size && p[n] != '\0')
                ++n;
            text = CString(p, (int)n);
            ::GlobalUnlock(hData);
        }
    }
    ::CloseClipboard();
    PasteText(text);
    return 0;
}

int CTernEdit::PasteText(LPCTSTR lpszText)
{
    if (m_hWnd == nullptr || lpszText == nullptr)
        return 0;
    int len = lstrlenA(lpszText);
    if (!(GetStyle() & ES_MULTILINE))
    {
        for (int i = 0; i < len; ++i)
            if (lpszText[i] == '\r' || lpszText[i] == '\n')
            {
                len = i;
                break;
            }
    }
    // Cut to the room left, never between the two bytes of a character.
    const int room = RoomLeft();
    int fit = 0;
    while (fit < len)
    {
        int step = ::IsDBCSLeadByte((BYTE)lpszText[fit]) && fit + 1 < len ? 2 : 1;
        // A line break pasted into a multi-line edit stays whole.
        if (lpszText[fit] == '\r' && fit + 1 < len && lpszText[fit + 1] == '\n')
            step = 2;
        if (fit + step > room)
            break;
        fit += step;
    }
    if (fit == 0)
        return 0;
    ReplaceSel(CString(lpszText, fit), TRUE);
    return fit;
}
