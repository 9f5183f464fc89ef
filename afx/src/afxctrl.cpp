// HyAfx: the standard control wrappers and CMenu.
#include "afxwin.h"

#include "afxhandlemap.h"

// Every control message needs a live control.
#define SEND(msg, wp, lp) (ASSERT(::IsWindow(m_hWnd)), ::SendMessage(m_hWnd, (msg), (WPARAM)(wp), (LPARAM)(lp)))

/////////////////////////////////////////////////////////////////////////////
// CStatic

IMPLEMENT_DYNAMIC(CStatic, CWnd)

BOOL CStatic::Create(LPCTSTR lpszText, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CWnd::Create(_T("STATIC"), lpszText, dwStyle, rect, pParentWnd, nID);
}

HBITMAP CStatic::SetBitmap(HBITMAP hBitmap) { return (HBITMAP)SEND(STM_SETIMAGE, IMAGE_BITMAP, hBitmap); }
HBITMAP CStatic::GetBitmap() const { return (HBITMAP)SEND(STM_GETIMAGE, IMAGE_BITMAP, 0); }
HICON CStatic::SetIcon(HICON hIcon) { return (HICON)SEND(STM_SETICON, hIcon, 0); }
HICON CStatic::GetIcon() const { return (HICON)SEND(STM_GETICON, 0, 0); }
HCURSOR CStatic::SetCursor(HCURSOR hCursor) { return (HCURSOR)SEND(STM_SETIMAGE, IMAGE_CURSOR, hCursor); }
HCURSOR CStatic::GetCursor() { return (HCURSOR)SEND(STM_GETIMAGE, IMAGE_CURSOR, 0); }
HENHMETAFILE CStatic::SetEnhMetaFile(HENHMETAFILE hMetaFile)
{
    return (HENHMETAFILE)SEND(STM_SETIMAGE, IMAGE_ENHMETAFILE, hMetaFile);
}
HENHMETAFILE CStatic::GetEnhMetaFile() const
{
    return (HENHMETAFILE)SEND(STM_GETIMAGE, IMAGE_ENHMETAFILE, 0);
}

/////////////////////////////////////////////////////////////////////////////
// CButton

IMPLEMENT_DYNAMIC(CButton, CWnd)

BOOL CButton::Create(LPCTSTR lpszCaption, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CWnd::Create(_T("BUTTON"), lpszCaption, dwStyle, rect, pParentWnd, nID);
}

UINT CButton::GetState() const { return (UINT)SEND(BM_GETSTATE, 0, 0); }
void CButton::SetState(BOOL bHighlight) { SEND(BM_SETSTATE, bHighlight, 0); }
int CButton::GetCheck() const { return (int)SEND(BM_GETCHECK, 0, 0); }
void CButton::SetCheck(int nCheck) { SEND(BM_SETCHECK, nCheck, 0); }
UINT CButton::GetButtonStyle() const { return (UINT)::GetWindowLong(m_hWnd, GWL_STYLE) & 0xFFFF; }
void CButton::SetButtonStyle(UINT nStyle, BOOL bRedraw) { SEND(BM_SETSTYLE, nStyle, bRedraw); }
HBITMAP CButton::SetBitmap(HBITMAP hBitmap) { return (HBITMAP)SEND(BM_SETIMAGE, IMAGE_BITMAP, hBitmap); }
HBITMAP CButton::GetBitmap() const { return (HBITMAP)SEND(BM_GETIMAGE, IMAGE_BITMAP, 0); }
HICON CButton::SetIcon(HICON hIcon) { return (HICON)SEND(BM_SETIMAGE, IMAGE_ICON, hIcon); }
HICON CButton::GetIcon() const { return (HICON)SEND(BM_GETIMAGE, IMAGE_ICON, 0); }
HCURSOR CButton::SetCursor(HCURSOR hCursor) { return (HCURSOR)SEND(BM_SETIMAGE, IMAGE_CURSOR, hCursor); }
HCURSOR CButton::GetCursor() { return (HCURSOR)SEND(BM_GETIMAGE, IMAGE_CURSOR, 0); }

void CButton::DrawItem(LPDRAWITEMSTRUCT) {}

BOOL CButton::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    if (message != WM_DRAWITEM)
        return CWnd::OnChildNotify(message, wParam, lParam, pResult);
    DrawItem((LPDRAWITEMSTRUCT)lParam);
    if (pResult)
        *pResult = TRUE;
    return TRUE;
}

/////////////////////////////////////////////////////////////////////////////
// CEdit

IMPLEMENT_DYNAMIC(CEdit, CWnd)

BOOL CEdit::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CWnd::Create(_T("EDIT"), nullptr, dwStyle, rect, pParentWnd, nID);
}

void CEdit::LimitText(int nChars) { SEND(EM_LIMITTEXT, nChars, 0); }
void CEdit::SetLimitText(UINT nMax) { SEND(EM_SETLIMITTEXT, nMax, 0); }
UINT CEdit::GetLimitText() const { return (UINT)SEND(EM_GETLIMITTEXT, 0, 0); }

DWORD CEdit::GetSel() const { return (DWORD)SEND(EM_GETSEL, 0, 0); }
void CEdit::GetSel(int& nStartChar, int& nEndChar) const
{
    DWORD start = 0, end = 0;
    SEND(EM_GETSEL, &start, &end);
    nStartChar = (int)start;
    nEndChar = (int)end;
}
void CEdit::SetSel(DWORD dwSelection, BOOL bNoScroll)
{
    SetSel((int)LOWORD(dwSelection), (int)HIWORD(dwSelection), bNoScroll);
}
void CEdit::SetSel(int nStartChar, int nEndChar, BOOL bNoScroll)
{
    SEND(EM_SETSEL, nStartChar, nEndChar);
    if (!bNoScroll)
        SEND(EM_SCROLLCARET, 0, 0);
}
void CEdit::ReplaceSel(LPCTSTR lpszNewText, BOOL bCanUndo) { SEND(EM_REPLACESEL, bCanUndo, lpszNewText); }

void CEdit::Clear() { SEND(WM_CLEAR, 0, 0); }
void CEdit::Copy() { SEND(WM_COPY, 0, 0); }
void CEdit::Cut() { SEND(WM_CUT, 0, 0); }
void CEdit::Paste() { SEND(WM_PASTE, 0, 0); }
BOOL CEdit::Undo() { return (BOOL)SEND(EM_UNDO, 0, 0); }
BOOL CEdit::CanUndo() const { return (BOOL)SEND(EM_CANUNDO, 0, 0); }
void CEdit::EmptyUndoBuffer() { SEND(EM_EMPTYUNDOBUFFER, 0, 0); }
BOOL CEdit::GetModify() const { return (BOOL)SEND(EM_GETMODIFY, 0, 0); }
void CEdit::SetModify(BOOL bModified) { SEND(EM_SETMODIFY, bModified, 0); }

int CEdit::GetLineCount() const { return (int)SEND(EM_GETLINECOUNT, 0, 0); }
int CEdit::GetLine(int nIndex, LPTSTR lpszBuffer) const { return (int)SEND(EM_GETLINE, nIndex, lpszBuffer); }
int CEdit::GetLine(int nIndex, LPTSTR lpszBuffer, int nMaxLength) const
{
    if (nMaxLength <= 0 || lpszBuffer == nullptr)
        return 0;
    // The size word needs room of its own; a one-character buffer goes
    // through a local one.
    if (nMaxLength * (int)sizeof(TCHAR) < (int)sizeof(WORD)) {
        TCHAR local[2] = {};
        *(LPWORD)local = (WORD)nMaxLength;
        int n = (int)SEND(EM_GETLINE, nIndex, local);
        if (n > 0)
            lpszBuffer[0] = local[0];
        return n > nMaxLength ? nMaxLength : n;
    }
    *(LPWORD)lpszBuffer = (WORD)(nMaxLength > 0xFFFF ? 0xFFFF : nMaxLength);
    return (int)SEND(EM_GETLINE, nIndex, lpszBuffer);
}
int CEdit::LineIndex(int nLine) const { return (int)SEND(EM_LINEINDEX, nLine, 0); }
int CEdit::LineLength(int nLine) const { return (int)SEND(EM_LINELENGTH, nLine, 0); }
int CEdit::LineFromChar(int nIndex) const { return (int)SEND(EM_LINEFROMCHAR, nIndex, 0); }
int CEdit::GetFirstVisibleLine() const { return (int)SEND(EM_GETFIRSTVISIBLELINE, 0, 0); }
void CEdit::LineScroll(int nLines, int nChars) { SEND(EM_LINESCROLL, nChars, nLines); }

BOOL CEdit::SetReadOnly(BOOL bReadOnly) { return (BOOL)SEND(EM_SETREADONLY, bReadOnly, 0); }
void CEdit::SetPasswordChar(TCHAR ch) { SEND(EM_SETPASSWORDCHAR, (UINT)(_TUCHAR)ch, 0); }
TCHAR CEdit::GetPasswordChar() const { return (TCHAR)SEND(EM_GETPASSWORDCHAR, 0, 0); }
void CEdit::SetMargins(UINT nLeft, UINT nRight)
{
    SEND(EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, MAKELONG(nLeft, nRight));
}
DWORD CEdit::GetMargins() const { return (DWORD)SEND(EM_GETMARGINS, 0, 0); }
void CEdit::GetRect(LPRECT lpRect) const { SEND(EM_GETRECT, 0, lpRect); }
void CEdit::SetRect(LPCRECT lpRect) { SEND(EM_SETRECT, 0, lpRect); }
BOOL CEdit::SetTabStops(int nTabStops, LPINT rgTabStops) { return (BOOL)SEND(EM_SETTABSTOPS, nTabStops, rgTabStops); }

int CEdit::CharFromPos(CPoint pt) const { return (int)SEND(EM_CHARFROMPOS, 0, MAKELPARAM(pt.x, pt.y)); }
CPoint CEdit::PosFromChar(UINT nChar) const
{
    LRESULT r = SEND(EM_POSFROMCHAR, nChar, 0);
    return CPoint((int)(short)LOWORD(r), (int)(short)HIWORD(r));
}

/////////////////////////////////////////////////////////////////////////////
// owner-draw reflection shared by the list box and the combo box

namespace {

template <class T>
BOOL OwnerDrawChildNotify(T* pCtrl, UINT message, LPARAM lParam, LRESULT* pResult)
{
    LRESULT result = TRUE;
    switch (message) {
    case WM_DRAWITEM:
        pCtrl->DrawItem((LPDRAWITEMSTRUCT)lParam);
        break;
    case WM_MEASUREITEM:
        pCtrl->MeasureItem((LPMEASUREITEMSTRUCT)lParam);
        break;
    case WM_COMPAREITEM:
        result = pCtrl->CompareItem((LPCOMPAREITEMSTRUCT)lParam);
        break;
    case WM_DELETEITEM:
        pCtrl->DeleteItem((LPDELETEITEMSTRUCT)lParam);
        break;
    default:
        return FALSE;
    }
    if (pResult)
        *pResult = result;
    return TRUE;
}

void GetItemString(HWND hWnd, UINT lenMsg, UINT textMsg, int nIndex, CString& rString)
{
    int len = (int)::SendMessage(hWnd, lenMsg, (WPARAM)nIndex, 0);
    if (len < 0) {   // LB_ERR and CB_ERR are both -1
        rString.Empty();
        return;
    }
    LPTSTR buf = rString.GetBuffer(len + 1);
    int got = (int)::SendMessage(hWnd, textMsg, (WPARAM)nIndex, (LPARAM)buf);
    rString.ReleaseBuffer(got < 0 ? 0 : got);
}

}  // namespace

/////////////////////////////////////////////////////////////////////////////
// CListBox

IMPLEMENT_DYNAMIC(CListBox, CWnd)

BOOL CListBox::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CWnd::Create(_T("LISTBOX"), nullptr, dwStyle, rect, pParentWnd, nID);
}

int CListBox::AddString(LPCTSTR lpszItem) { return (int)SEND(LB_ADDSTRING, 0, lpszItem); }
int CListBox::InsertString(int nIndex, LPCTSTR lpszItem) { return (int)SEND(LB_INSERTSTRING, nIndex, lpszItem); }
int CListBox::DeleteString(UINT nIndex) { return (int)SEND(LB_DELETESTRING, nIndex, 0); }
void CListBox::ResetContent() { SEND(LB_RESETCONTENT, 0, 0); }
int CListBox::GetCount() const { return (int)SEND(LB_GETCOUNT, 0, 0); }
int CListBox::GetText(int nIndex, LPTSTR lpszBuffer) const { return (int)SEND(LB_GETTEXT, nIndex, lpszBuffer); }
void CListBox::GetText(int nIndex, CString& rString) const
{
    GetItemString(m_hWnd, LB_GETTEXTLEN, LB_GETTEXT, nIndex, rString);
}
int CListBox::GetTextLen(int nIndex) const { return (int)SEND(LB_GETTEXTLEN, nIndex, 0); }
DWORD_PTR CListBox::GetItemData(int nIndex) const { return (DWORD_PTR)SEND(LB_GETITEMDATA, nIndex, 0); }
int CListBox::SetItemData(int nIndex, DWORD_PTR dwItemData) { return (int)SEND(LB_SETITEMDATA, nIndex, dwItemData); }
void* CListBox::GetItemDataPtr(int nIndex) const { return (void*)GetItemData(nIndex); }
int CListBox::SetItemDataPtr(int nIndex, void* pData) { return SetItemData(nIndex, (DWORD_PTR)pData); }

int CListBox::FindString(int nStartAfter, LPCTSTR lpszItem) const { return (int)SEND(LB_FINDSTRING, nStartAfter, lpszItem); }
int CListBox::FindStringExact(int nIndexStart, LPCTSTR lpszFind) const { return (int)SEND(LB_FINDSTRINGEXACT, nIndexStart, lpszFind); }
int CListBox::SelectString(int nStartAfter, LPCTSTR lpszItem) { return (int)SEND(LB_SELECTSTRING, nStartAfter, lpszItem); }

int CListBox::GetCurSel() const { return (int)SEND(LB_GETCURSEL, 0, 0); }
int CListBox::SetCurSel(int nSelect) { return (int)SEND(LB_SETCURSEL, nSelect, 0); }
int CListBox::GetSel(int nIndex) const { return (int)SEND(LB_GETSEL, nIndex, 0); }
int CListBox::SetSel(int nIndex, BOOL bSelect) { return (int)SEND(LB_SETSEL, bSelect, nIndex); }
int CListBox::GetSelCount() const { return (int)SEND(LB_GETSELCOUNT, 0, 0); }
int CListBox::GetSelItems(int nMaxItems, LPINT rgIndex) const { return (int)SEND(LB_GETSELITEMS, nMaxItems, rgIndex); }
int CListBox::SelItemRange(BOOL bSelect, int nFirstItem, int nLastItem)
{
    return (int)SEND(LB_SELITEMRANGEEX, bSelect ? nFirstItem : nLastItem, bSelect ? nLastItem : nFirstItem);
}
int CListBox::GetCaretIndex() const { return (int)SEND(LB_GETCARETINDEX, 0, 0); }
int CListBox::SetCaretIndex(int nIndex, BOOL bScroll) { return (int)SEND(LB_SETCARETINDEX, nIndex, MAKELONG(!bScroll, 0)); }
void CListBox::SetAnchorIndex(int nIndex) { SEND(LB_SETANCHORINDEX, nIndex, 0); }
int CListBox::GetAnchorIndex() const { return (int)SEND(LB_GETANCHORINDEX, 0, 0); }

int CListBox::GetTopIndex() const { return (int)SEND(LB_GETTOPINDEX, 0, 0); }
int CListBox::SetTopIndex(int nIndex) { return (int)SEND(LB_SETTOPINDEX, nIndex, 0); }
int CListBox::GetItemRect(int nIndex, LPRECT lpRect) const { return (int)SEND(LB_GETITEMRECT, nIndex, lpRect); }
int CListBox::GetItemHeight(int nIndex) const { return (int)SEND(LB_GETITEMHEIGHT, nIndex, 0); }
int CListBox::SetItemHeight(int nIndex, UINT cyItemHeight) { return (int)SEND(LB_SETITEMHEIGHT, nIndex, MAKELONG(cyItemHeight, 0)); }
UINT CListBox::ItemFromPoint(CPoint pt, BOOL& bOutside) const
{
    DWORD r = (DWORD)SEND(LB_ITEMFROMPOINT, 0, MAKELPARAM(pt.x, pt.y));
    bOutside = (BOOL)HIWORD(r);
    return LOWORD(r);
}
int CListBox::GetHorizontalExtent() const { return (int)SEND(LB_GETHORIZONTALEXTENT, 0, 0); }
void CListBox::SetHorizontalExtent(int cxExtent) { SEND(LB_SETHORIZONTALEXTENT, cxExtent, 0); }
void CListBox::SetColumnWidth(int cxWidth) { SEND(LB_SETCOLUMNWIDTH, cxWidth, 0); }
BOOL CListBox::SetTabStops(int nTabStops, LPINT rgTabStops) { return (BOOL)SEND(LB_SETTABSTOPS, nTabStops, rgTabStops); }

void CListBox::DrawItem(LPDRAWITEMSTRUCT) {}
void CListBox::MeasureItem(LPMEASUREITEMSTRUCT) {}
int CListBox::CompareItem(LPCOMPAREITEMSTRUCT) { return 0; }
void CListBox::DeleteItem(LPDELETEITEMSTRUCT) {}

BOOL CListBox::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    if (OwnerDrawChildNotify(this, message, lParam, pResult))
        return TRUE;
    return CWnd::OnChildNotify(message, wParam, lParam, pResult);
}

/////////////////////////////////////////////////////////////////////////////
// CComboBox

IMPLEMENT_DYNAMIC(CComboBox, CWnd)

BOOL CComboBox::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CWnd::Create(_T("COMBOBOX"), nullptr, dwStyle, rect, pParentWnd, nID);
}

int CComboBox::AddString(LPCTSTR lpszString) { return (int)SEND(CB_ADDSTRING, 0, lpszString); }
int CComboBox::InsertString(int nIndex, LPCTSTR lpszString) { return (int)SEND(CB_INSERTSTRING, nIndex, lpszString); }
int CComboBox::DeleteString(UINT nIndex) { return (int)SEND(CB_DELETESTRING, nIndex, 0); }
void CComboBox::ResetContent() { SEND(CB_RESETCONTENT, 0, 0); }
int CComboBox::GetCount() const { return (int)SEND(CB_GETCOUNT, 0, 0); }
int CComboBox::GetLBText(int nIndex, LPTSTR lpszText) const { return (int)SEND(CB_GETLBTEXT, nIndex, lpszText); }
void CComboBox::GetLBText(int nIndex, CString& rString) const
{
    GetItemString(m_hWnd, CB_GETLBTEXTLEN, CB_GETLBTEXT, nIndex, rString);
}
int CComboBox::GetLBTextLen(int nIndex) const { return (int)SEND(CB_GETLBTEXTLEN, nIndex, 0); }
DWORD_PTR CComboBox::GetItemData(int nIndex) const { return (DWORD_PTR)SEND(CB_GETITEMDATA, nIndex, 0); }
int CComboBox::SetItemData(int nIndex, DWORD_PTR dwItemData) { return (int)SEND(CB_SETITEMDATA, nIndex, dwItemData); }
void* CComboBox::GetItemDataPtr(int nIndex) const { return (void*)GetItemData(nIndex); }
int CComboBox::SetItemDataPtr(int nIndex, void* pData) { return SetItemData(nIndex, (DWORD_PTR)pData); }

int CComboBox::FindString(int nStartAfter, LPCTSTR lpszString) const { return (int)SEND(CB_FINDSTRING, nStartAfter, lpszString); }
int CComboBox::FindStringExact(int nIndexStart, LPCTSTR lpszFind) const { return (int)SEND(CB_FINDSTRINGEXACT, nIndexStart, lpszFind); }
int CComboBox::SelectString(int nStartAfter, LPCTSTR lpszString) { return (int)SEND(CB_SELECTSTRING, nStartAfter, lpszString); }
int CComboBox::GetCurSel() const { return (int)SEND(CB_GETCURSEL, 0, 0); }
int CComboBox::SetCurSel(int nSelect) { return (int)SEND(CB_SETCURSEL, nSelect, 0); }
int CComboBox::GetTopIndex() const { return (int)SEND(CB_GETTOPINDEX, 0, 0); }
int CComboBox::SetTopIndex(int nIndex) { return (int)SEND(CB_SETTOPINDEX, nIndex, 0); }

void CComboBox::ShowDropDown(BOOL bShowIt) { SEND(CB_SHOWDROPDOWN, bShowIt, 0); }
BOOL CComboBox::GetDroppedState() const { return (BOOL)SEND(CB_GETDROPPEDSTATE, 0, 0); }
void CComboBox::GetDroppedControlRect(LPRECT lprect) const { SEND(CB_GETDROPPEDCONTROLRECT, 0, lprect); }
int CComboBox::GetDroppedWidth() const { return (int)SEND(CB_GETDROPPEDWIDTH, 0, 0); }
int CComboBox::SetDroppedWidth(UINT nWidth) { return (int)SEND(CB_SETDROPPEDWIDTH, nWidth, 0); }
int CComboBox::SetExtendedUI(BOOL bExtended) { return (int)SEND(CB_SETEXTENDEDUI, bExtended, 0); }
BOOL CComboBox::GetExtendedUI() const { return (BOOL)SEND(CB_GETEXTENDEDUI, 0, 0); }
int CComboBox::SetItemHeight(int nIndex, UINT cyItemHeight) { return (int)SEND(CB_SETITEMHEIGHT, nIndex, MAKELONG(cyItemHeight, 0)); }
int CComboBox::GetItemHeight(int nIndex) const { return (int)SEND(CB_GETITEMHEIGHT, nIndex, 0); }

BOOL CComboBox::LimitText(int nMaxChars) { return (BOOL)SEND(CB_LIMITTEXT, nMaxChars, 0); }
DWORD CComboBox::GetEditSel() const { return (DWORD)SEND(CB_GETEDITSEL, 0, 0); }
BOOL CComboBox::SetEditSel(int nStartChar, int nEndChar)
{
    return (BOOL)SEND(CB_SETEDITSEL, 0, MAKELONG(nStartChar, nEndChar));
}
void CComboBox::Clear() { SEND(WM_CLEAR, 0, 0); }
void CComboBox::Copy() { SEND(WM_COPY, 0, 0); }
void CComboBox::Cut() { SEND(WM_CUT, 0, 0); }
void CComboBox::Paste() { SEND(WM_PASTE, 0, 0); }

void CComboBox::DrawItem(LPDRAWITEMSTRUCT) {}
void CComboBox::MeasureItem(LPMEASUREITEMSTRUCT) {}
int CComboBox::CompareItem(LPCOMPAREITEMSTRUCT) { return 0; }
void CComboBox::DeleteItem(LPDELETEITEMSTRUCT) {}

BOOL CComboBox::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    if (OwnerDrawChildNotify(this, message, lParam, pResult))
        return TRUE;
    return CWnd::OnChildNotify(message, wParam, lParam, pResult);
}

/////////////////////////////////////////////////////////////////////////////
// CMenu

IMPLEMENT_DYNCREATE(CMenu, CObject)

namespace {

// This thread's menus (afxhandlemap.h has the thread policy).
CHandleMap<HMENU, CMenu>& MenuMap()
{
    return AfxWrapperMapOf<HMENU, CMenu, &CMenu::m_hMenu>();
}

}  // namespace

CMenu::CMenu() : m_hMenu(nullptr) {}

CMenu::~CMenu()
{
    DestroyMenu();
}

BOOL CMenu::Attach(HMENU hMenu)
{
    if (hMenu == nullptr || m_hMenu != nullptr)
        return FALSE;
    m_hMenu = hMenu;
    MenuMap().SetPermanent(hMenu, this);
    return TRUE;
}

HMENU CMenu::Detach()
{
    HMENU hMenu = m_hMenu;
    if (hMenu != nullptr)
        MenuMap().RemovePermanent(hMenu, this);
    m_hMenu = nullptr;
    return hMenu;
}

HMENU CMenu::GetSafeHmenu() const { return this == nullptr ? nullptr : m_hMenu; }

BOOL CMenu::CreateMenu() { return Attach(::CreateMenu()); }
BOOL CMenu::CreatePopupMenu() { return Attach(::CreatePopupMenu()); }

BOOL CMenu::LoadMenu(LPCTSTR lpszResourceName)
{
    HINSTANCE hInst = AfxFindResourceHandle(lpszResourceName, RT_MENU);
    return Attach(::LoadMenu(hInst, lpszResourceName));
}

BOOL CMenu::LoadMenu(UINT nIDResource) { return LoadMenu(MAKEINTRESOURCE(nIDResource)); }

BOOL CMenu::LoadMenuIndirect(const void* lpMenuTemplate)
{
    return Attach(::LoadMenuIndirect(lpMenuTemplate));
}

BOOL CMenu::DestroyMenu()
{
    if (m_hMenu == nullptr)
        return FALSE;
    HMENU hMenu = Detach();
    return ::DestroyMenu(hMenu);
}

CMenu* PASCAL CMenu::FromHandlePermanent(HMENU hMenu) { return MenuMap().LookupPermanent(hMenu); }

CMenu* PASCAL CMenu::FromHandle(HMENU hMenu)
{
    return MenuMap().FromHandle(hMenu, [](HMENU h) {
        CMenu* pMenu = new CMenu;
        pMenu->m_hMenu = h;   // not in the permanent map: it does not own the menu
        return pMenu;
    });
}

void PASCAL CMenu::DeleteTempMap() { MenuMap().DeleteTemp(); }

BOOL CMenu::AppendMenu(UINT nFlags, UINT_PTR nIDNewItem, LPCTSTR lpszNewItem)
{
    return ::AppendMenu(m_hMenu, nFlags, nIDNewItem, lpszNewItem);
}
BOOL CMenu::AppendMenu(UINT nFlags, UINT_PTR nIDNewItem, const CBitmap* pBmp)
{
    return ::AppendMenu(m_hMenu, nFlags | MF_BITMAP, nIDNewItem, (LPCTSTR)pBmp->GetSafeHandle());
}
BOOL CMenu::InsertMenu(UINT nPosition, UINT nFlags, UINT_PTR nIDNewItem, LPCTSTR lpszNewItem)
{
    return ::InsertMenu(m_hMenu, nPosition, nFlags, nIDNewItem, lpszNewItem);
}
BOOL CMenu::InsertMenu(UINT nPosition, UINT nFlags, UINT_PTR nIDNewItem, const CBitmap* pBmp)
{
    return ::InsertMenu(m_hMenu, nPosition, nFlags | MF_BITMAP, nIDNewItem,
                        (LPCTSTR)pBmp->GetSafeHandle());
}
BOOL CMenu::ModifyMenu(UINT nPosition, UINT nFlags, UINT_PTR nIDNewItem, LPCTSTR lpszNewItem)
{
    return ::ModifyMenu(m_hMenu, nPosition, nFlags, nIDNewItem, lpszNewItem);
}
BOOL CMenu::ModifyMenu(UINT nPosition, UINT nFlags, UINT_PTR nIDNewItem, const CBitmap* pBmp)
{
    return ::ModifyMenu(m_hMenu, nPosition, nFlags | MF_BITMAP, nIDNewItem,
                        (LPCTSTR)pBmp->GetSafeHandle());
}
BOOL CMenu::RemoveMenu(UINT nPosition, UINT nFlags) { return ::RemoveMenu(m_hMenu, nPosition, nFlags); }
BOOL CMenu::DeleteMenu(UINT nPosition, UINT nFlags) { return ::DeleteMenu(m_hMenu, nPosition, nFlags); }

UINT CMenu::CheckMenuItem(UINT nIDCheckItem, UINT nCheck)
{
    return (UINT)(int)::CheckMenuItem(m_hMenu, nIDCheckItem, nCheck);
}
BOOL CMenu::CheckMenuRadioItem(UINT nIDFirst, UINT nIDLast, UINT nIDItem, UINT nFlags)
{
    return ::CheckMenuRadioItem(m_hMenu, nIDFirst, nIDLast, nIDItem, nFlags);
}
UINT CMenu::EnableMenuItem(UINT nIDEnableItem, UINT nEnable)
{
    return (UINT)::EnableMenuItem(m_hMenu, nIDEnableItem, nEnable);
}
BOOL CMenu::SetDefaultItem(UINT uItem, BOOL fByPos) { return ::SetMenuDefaultItem(m_hMenu, uItem, fByPos); }
UINT CMenu::GetDefaultItem(UINT gmdiFlags, BOOL fByPos) { return ::GetMenuDefaultItem(m_hMenu, fByPos, gmdiFlags); }

UINT CMenu::GetMenuItemCount() const { return (UINT)::GetMenuItemCount(m_hMenu); }
UINT CMenu::GetMenuItemID(int nPos) const { return ::GetMenuItemID(m_hMenu, nPos); }
UINT CMenu::GetMenuState(UINT nID, UINT nFlags) const { return ::GetMenuState(m_hMenu, nID, nFlags); }
int CMenu::GetMenuString(UINT nIDItem, LPTSTR lpString, int nMaxCount, UINT nFlags) const
{
    int n = ::GetMenuString(m_hMenu, nIDItem, lpString, nMaxCount, nFlags);
    // A truncated copy is not always terminated by the system; this one always is.
    if (lpString != nullptr && nMaxCount > 0)
        lpString[n < 0 ? 0 : (n < nMaxCount ? n : nMaxCount - 1)] = 0;
    return n;
}
int CMenu::GetMenuString(UINT nIDItem, CString& rString, UINT nFlags) const
{
    // GetMenuString with no buffer answers the length.
    int len = ::GetMenuString(m_hMenu, nIDItem, nullptr, 0, nFlags);
    if (len <= 0) {
        rString.Empty();
        return 0;
    }
    LPTSTR buf = rString.GetBuffer(len + 1);
    int got = ::GetMenuString(m_hMenu, nIDItem, buf, len + 1, nFlags);
    rString.ReleaseBuffer(got < 0 ? 0 : got);
    return got;
}
CMenu* CMenu::GetSubMenu(int nPos) const { return FromHandle(::GetSubMenu(m_hMenu, nPos)); }
BOOL CMenu::GetMenuItemInfo(UINT uItem, LPMENUITEMINFO lpMenuItemInfo, BOOL fByPos)
{
    return ::GetMenuItemInfo(m_hMenu, uItem, fByPos, lpMenuItemInfo);
}
BOOL CMenu::SetMenuItemInfo(UINT uItem, LPMENUITEMINFO lpMenuItemInfo, BOOL fByPos)
{
    return ::SetMenuItemInfo(m_hMenu, uItem, fByPos, lpMenuItemInfo);
}
DWORD CMenu::GetMenuContextHelpId() const { return ::GetMenuContextHelpId(m_hMenu); }
BOOL CMenu::SetMenuContextHelpId(DWORD dwContextHelpId) { return ::SetMenuContextHelpId(m_hMenu, dwContextHelpId); }

BOOL CMenu::TrackPopupMenu(UINT nFlags, int x, int y, CWnd* pWnd, LPCRECT lpRect)
{
    return ::TrackPopupMenu(m_hMenu, nFlags, x, y, 0, pWnd->GetSafeHwnd(), lpRect);
}
BOOL CMenu::TrackPopupMenuEx(UINT fuFlags, int x, int y, CWnd* pWnd, LPTPMPARAMS lptpm)
{
    return ::TrackPopupMenuEx(m_hMenu, fuFlags, x, y, pWnd->GetSafeHwnd(), lptpm);
}

void CMenu::DrawItem(LPDRAWITEMSTRUCT) {}
void CMenu::MeasureItem(LPMEASUREITEMSTRUCT) {}

namespace {

// Whether hMenu itself (not a submenu of it) holds an owner-draw item with
// this id and data.
bool MenuHoldsOwnerDrawItem(HMENU hMenu, UINT itemID, ULONG_PTR itemData)
{
    int count = ::GetMenuItemCount(hMenu);
    for (int i = 0; i < count; ++i) {
        MENUITEMINFO mii = {};
        mii.cbSize = sizeof(mii);
        mii.fMask = MIIM_FTYPE | MIIM_ID | MIIM_DATA;
        if (::GetMenuItemInfo(hMenu, (UINT)i, TRUE, &mii) && (mii.fType & MFT_OWNERDRAW) &&
            mii.wID == itemID && mii.dwItemData == itemData)
            return true;
    }
    return false;
}

}  // namespace

BOOL PASCAL CMenu::HandleOwnerDraw(UINT message, LPARAM lParam)
{
    if (message == WM_DRAWITEM) {
        LPDRAWITEMSTRUCT lpDIS = (LPDRAWITEMSTRUCT)lParam;
        if (lpDIS == nullptr || lpDIS->CtlType != ODT_MENU)
            return FALSE;
        CMenu* pMenu = FromHandlePermanent((HMENU)lpDIS->hwndItem);
        if (pMenu == nullptr)
            return FALSE;
        pMenu->DrawItem(lpDIS);
        return TRUE;
    }
    if (message == WM_MEASUREITEM) {
        LPMEASUREITEMSTRUCT lpMIS = (LPMEASUREITEMSTRUCT)lParam;
        if (lpMIS == nullptr || lpMIS->CtlType != ODT_MENU)
            return FALSE;
        // The struct names no menu: look for the item among this thread's
        // permanent menus (a copy: MeasureItem may attach or detach).
        for (auto& entry : MenuMap().PermanentEntries()) {
            if (MenuHoldsOwnerDrawItem(entry.first, lpMIS->itemID, lpMIS->itemData)) {
                entry.second->MeasureItem(lpMIS);
                return TRUE;
            }
        }
    }
    return FALSE;
}
