// CSortListBox: the host's sorted list of names.
#include <afxwin.h>
#include <cstring>
#include "HySortListBox.h"

IMPLEMENT_DYNAMIC(CSortListBox, CListBox)

CSortListBox::CSortListBox() {}

BOOL CSortListBox::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CListBox::Create(dwStyle | LBS_SORT | LBS_NOTIFY | WS_VSCROLL, rect, pParentWnd, nID);
}

int CSortListBox::FindExact(LPCTSTR lpszText) const
{
    // The list's own exact search ignores case; names differing only in case are different here.
    const int count = GetCount();
    CString item;
    for (int i = 0; i < count; ++i)
    {
        GetText(i, item);
        if (std::strcmp(item, lpszText) == 0)
            return i;
    }
    return LB_ERR;
}

CString CSortListBox::GetSelectedText() const
{
    CString text;
    const int sel = GetCurSel();
    if (sel != LB_ERR)
        GetText(sel, text);
    return text;
}
