// CSortListBox: the host's sorted list box of names (the category lists).
#pragma once
#include <afxwin.h>
#include "HyHostExport.h"

class HYHOST_API CSortListBox : public CListBox
{
    DECLARE_DYNAMIC(CSortListBox)
public:
    CSortListBox();
    // Adds LBS_SORT | LBS_NOTIFY | WS_VSCROLL to what the caller asks.
    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
    // The position of the item whose text is lpszText exactly (case-sensitive), or LB_ERR.
    int FindExact(LPCTSTR lpszText) const;
    // The selected item's text; empty when nothing is selected.
    CString GetSelectedText() const;
};
