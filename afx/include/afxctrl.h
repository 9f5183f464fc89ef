// HyAfx: the standard controls (static, button, edit, list box, combo box)
// and menus. Included at the end of afxwin.h.
//
// The control wrappers are thin: each member sends the control's own
// message. Create() creates the window through CWnd::Create with the
// system class name, so the object is attached from the first message on.
//
// Owner draw. The parent's dispatch reflects WM_DRAWITEM, WM_MEASUREITEM,
// WM_COMPAREITEM and WM_DELETEITEM to the control's OnChildNotify; CButton,
// CListBox and CComboBox answer them with their virtual DrawItem,
// MeasureItem, CompareItem and DeleteItem, and the parent's own handler does
// not run. Owner-draw menu items go through CMenu::HandleOwnerDraw (below).
#pragma once

/////////////////////////////////////////////////////////////////////////////
// CStatic

class HYAFX_API CStatic : public CWnd
{
    DECLARE_DYNAMIC(CStatic)
public:
    CStatic() = default;

    BOOL Create(LPCTSTR lpszText, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd,
                UINT nID = 0xffff);

    // Each setter answers the previous image (SS_BITMAP / SS_ICON / SS_ENHMETAFILE
    // styles); the control does not take ownership of the handle.
    HBITMAP SetBitmap(HBITMAP hBitmap);
    HBITMAP GetBitmap() const;
    HICON SetIcon(HICON hIcon);
    HICON GetIcon() const;
    HCURSOR SetCursor(HCURSOR hCursor);
    HCURSOR GetCursor();
    HENHMETAFILE SetEnhMetaFile(HENHMETAFILE hMetaFile);
    HENHMETAFILE GetEnhMetaFile() const;
};

/////////////////////////////////////////////////////////////////////////////
// CButton

class HYAFX_API CButton : public CWnd
{
    DECLARE_DYNAMIC(CButton)
public:
    CButton() = default;

    BOOL Create(LPCTSTR lpszCaption, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    // BST_PUSHED, BST_FOCUS and the check state, as BM_GETSTATE answers them.
    UINT GetState() const;
    void SetState(BOOL bHighlight);
    int GetCheck() const;
    void SetCheck(int nCheck);
    // The BS_* part of the window style (the low word).
    UINT GetButtonStyle() const;
    void SetButtonStyle(UINT nStyle, BOOL bRedraw = TRUE);

    HBITMAP SetBitmap(HBITMAP hBitmap);
    HBITMAP GetBitmap() const;
    HICON SetIcon(HICON hIcon);
    HICON GetIcon() const;
    HCURSOR SetCursor(HCURSOR hCursor);
    HCURSOR GetCursor();

    // Called for BS_OWNERDRAW buttons (reflected WM_DRAWITEM). The default
    // draws nothing.
    virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);

protected:
    virtual BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam,
                               LRESULT* pResult) override;
};

/////////////////////////////////////////////////////////////////////////////
// CEdit

class HYAFX_API CEdit : public CWnd
{
    DECLARE_DYNAMIC(CEdit)
public:
    CEdit() = default;

    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    // Limits. 0 means the control's maximum.
    void LimitText(int nChars = 0);
    void SetLimitText(UINT nMax);
    UINT GetLimitText() const;

    // Selection. The DWORD form packs the start in the low word and the end in
    // the high word (truncated for texts beyond 65535 characters).
    DWORD GetSel() const;
    void GetSel(int& nStartChar, int& nEndChar) const;
    void SetSel(DWORD dwSelection, BOOL bNoScroll = FALSE);
    void SetSel(int nStartChar, int nEndChar, BOOL bNoScroll = FALSE);
    void ReplaceSel(LPCTSTR lpszNewText, BOOL bCanUndo = FALSE);

    // Clipboard and undo.
    void Clear();
    void Copy();
    void Cut();
    void Paste();
    BOOL Undo();
    BOOL CanUndo() const;
    void EmptyUndoBuffer();

    BOOL GetModify() const;
    void SetModify(BOOL bModified = TRUE);

    // Lines. -1 means the line of the caret.
    int GetLineCount() const;
    // Copies line nIndex without a terminating zero (lpszBuffer's first word
    // holds the buffer size in characters, as EM_GETLINE expects); answers the
    // number of characters copied.
    int GetLine(int nIndex, LPTSTR lpszBuffer) const;
    // Same; sets the size word itself. Nothing is copied when nMaxLength is 0.
    int GetLine(int nIndex, LPTSTR lpszBuffer, int nMaxLength) const;
    int LineIndex(int nLine = -1) const;
    int LineLength(int nLine = -1) const;
    int LineFromChar(int nIndex = -1) const;
    int GetFirstVisibleLine() const;
    void LineScroll(int nLines, int nChars = 0);

    BOOL SetReadOnly(BOOL bReadOnly = TRUE);
    void SetPasswordChar(TCHAR ch);
    TCHAR GetPasswordChar() const;
    void SetMargins(UINT nLeft, UINT nRight);
    DWORD GetMargins() const;
    void GetRect(LPRECT lpRect) const;
    void SetRect(LPCRECT lpRect);
    BOOL SetTabStops(int nTabStops, LPINT rgTabStops);

    // Character index in the low word, line in the high word.
    int CharFromPos(CPoint pt) const;
    // Client position of the character's top-left corner.
    CPoint PosFromChar(UINT nChar) const;
};

/////////////////////////////////////////////////////////////////////////////
// CListBox

class HYAFX_API CListBox : public CWnd
{
    DECLARE_DYNAMIC(CListBox)
public:
    CListBox() = default;

    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    // Items. Indices are zero-based; errors are LB_ERR / LB_ERRSPACE.
    int AddString(LPCTSTR lpszItem);
    int InsertString(int nIndex, LPCTSTR lpszItem);
    int DeleteString(UINT nIndex);
    void ResetContent();
    int GetCount() const;
    int GetText(int nIndex, LPTSTR lpszBuffer) const;
    // Empty on a bad index.
    void GetText(int nIndex, CString& rString) const;
    int GetTextLen(int nIndex) const;
    DWORD_PTR GetItemData(int nIndex) const;
    int SetItemData(int nIndex, DWORD_PTR dwItemData);
    void* GetItemDataPtr(int nIndex) const;
    int SetItemDataPtr(int nIndex, void* pData);

    // Search: nStartAfter -1 searches from the top; the search wraps.
    int FindString(int nStartAfter, LPCTSTR lpszItem) const;
    int FindStringExact(int nIndexStart, LPCTSTR lpszFind) const;
    int SelectString(int nStartAfter, LPCTSTR lpszItem);

    // Single selection.
    int GetCurSel() const;
    int SetCurSel(int nSelect);
    // Multiple selection.
    int GetSel(int nIndex) const;
    int SetSel(int nIndex, BOOL bSelect = TRUE);
    int GetSelCount() const;
    int GetSelItems(int nMaxItems, LPINT rgIndex) const;
    int SelItemRange(BOOL bSelect, int nFirstItem, int nLastItem);
    int GetCaretIndex() const;
    int SetCaretIndex(int nIndex, BOOL bScroll = TRUE);
    void SetAnchorIndex(int nIndex);
    int GetAnchorIndex() const;

    // Geometry.
    int GetTopIndex() const;
    int SetTopIndex(int nIndex);
    int GetItemRect(int nIndex, LPRECT lpRect) const;
    int GetItemHeight(int nIndex) const;
    int SetItemHeight(int nIndex, UINT cyItemHeight);
    // The nearest item; bOutside is TRUE when the point lies outside every item.
    UINT ItemFromPoint(CPoint pt, BOOL& bOutside) const;
    int GetHorizontalExtent() const;
    void SetHorizontalExtent(int cxExtent);
    void SetColumnWidth(int cxWidth);
    BOOL SetTabStops(int nTabStops, LPINT rgTabStops);

    // Owner draw (LBS_OWNERDRAWFIXED / LBS_OWNERDRAWVARIABLE), reached through
    // reflection. The defaults do nothing; CompareItem answers 0 (equal).
    virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);
    virtual void MeasureItem(LPMEASUREITEMSTRUCT lpMeasureItemStruct);
    virtual int CompareItem(LPCOMPAREITEMSTRUCT lpCompareItemStruct);
    virtual void DeleteItem(LPDELETEITEMSTRUCT lpDeleteItemStruct);

protected:
    virtual BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam,
                               LRESULT* pResult) override;
};

/////////////////////////////////////////////////////////////////////////////
// CComboBox

class HYAFX_API CComboBox : public CWnd
{
    DECLARE_DYNAMIC(CComboBox)
public:
    CComboBox() = default;

    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    // Items of the list part. Errors are CB_ERR / CB_ERRSPACE.
    int AddString(LPCTSTR lpszString);
    int InsertString(int nIndex, LPCTSTR lpszString);
    int DeleteString(UINT nIndex);
    void ResetContent();
    int GetCount() const;
    int GetLBText(int nIndex, LPTSTR lpszText) const;
    // Empty on a bad index.
    void GetLBText(int nIndex, CString& rString) const;
    int GetLBTextLen(int nIndex) const;
    DWORD_PTR GetItemData(int nIndex) const;
    int SetItemData(int nIndex, DWORD_PTR dwItemData);
    void* GetItemDataPtr(int nIndex) const;
    int SetItemDataPtr(int nIndex, void* pData);

    int FindString(int nStartAfter, LPCTSTR lpszString) const;
    int FindStringExact(int nIndexStart, LPCTSTR lpszFind) const;
    int SelectString(int nStartAfter, LPCTSTR lpszString);
    int GetCurSel() const;
    int SetCurSel(int nSelect);
    int GetTopIndex() const;
    int SetTopIndex(int nIndex);

    // The drop-down list.
    void ShowDropDown(BOOL bShowIt = TRUE);
    BOOL GetDroppedState() const;
    // Screen coordinates of the dropped list.
    void GetDroppedControlRect(LPRECT lprect) const;
    int GetDroppedWidth() const;
    int SetDroppedWidth(UINT nWidth);
    int SetExtendedUI(BOOL bExtended = TRUE);
    BOOL GetExtendedUI() const;

    // nIndex -1 is the selection field, otherwise a list item.
    int SetItemHeight(int nIndex, UINT cyItemHeight);
    int GetItemHeight(int nIndex) const;

    // The edit part.
    BOOL LimitText(int nMaxChars);
    // Start in the low word, end in the high word.
    DWORD GetEditSel() const;
    BOOL SetEditSel(int nStartChar, int nEndChar);
    void Clear();
    void Copy();
    void Cut();
    void Paste();

    // Owner draw (CBS_OWNERDRAWFIXED / CBS_OWNERDRAWVARIABLE), through
    // reflection. The defaults do nothing; CompareItem answers 0 (equal).
    virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);
    virtual void MeasureItem(LPMEASUREITEMSTRUCT lpMeasureItemStruct);
    virtual int CompareItem(LPCOMPAREITEMSTRUCT lpCompareItemStruct);
    virtual void DeleteItem(LPDELETEITEMSTRUCT lpDeleteItemStruct);

protected:
    virtual BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam,
                               LRESULT* pResult) override;
};

/////////////////////////////////////////////////////////////////////////////
// CMenu

// A menu handle with an owner. Attach makes the object the handle's
// permanent wrapper (per thread); FromHandle wraps other handles in a
// temporary object that lives until DeleteTempMap (idle time). The
// destructor destroys an attached menu; Detach first to keep it.
class HYAFX_API CMenu : public CObject
{
    DECLARE_DYNCREATE(CMenu)
public:
    HMENU m_hMenu;

    CMenu();
    virtual ~CMenu();

    BOOL CreateMenu();
    BOOL CreatePopupMenu();
    // Finds the module through the resource chain (AfxFindResourceHandle with RT_MENU).
    BOOL LoadMenu(LPCTSTR lpszResourceName);
    BOOL LoadMenu(UINT nIDResource);
    BOOL LoadMenuIndirect(const void* lpMenuTemplate);
    BOOL DestroyMenu();

    static CMenu* PASCAL FromHandle(HMENU hMenu);
    static CMenu* PASCAL FromHandlePermanent(HMENU hMenu);
    // Deletes this thread's temporary wrappers (not the menus they wrap).
    static void PASCAL DeleteTempMap();
    BOOL Attach(HMENU hMenu);
    HMENU Detach();

    // Safe on a NULL pointer: answers NULL.
    HMENU GetSafeHmenu() const;
    operator HMENU() const { return GetSafeHmenu(); }
    BOOL operator==(const CMenu& menu) const { return menu.m_hMenu == m_hMenu; }
    BOOL operator!=(const CMenu& menu) const { return menu.m_hMenu != m_hMenu; }

    // Items.
    BOOL AppendMenu(UINT nFlags, UINT_PTR nIDNewItem = 0, LPCTSTR lpszNewItem = nullptr);
    BOOL AppendMenu(UINT nFlags, UINT_PTR nIDNewItem, const CBitmap* pBmp);
    BOOL InsertMenu(UINT nPosition, UINT nFlags, UINT_PTR nIDNewItem = 0,
                    LPCTSTR lpszNewItem = nullptr);
    BOOL InsertMenu(UINT nPosition, UINT nFlags, UINT_PTR nIDNewItem, const CBitmap* pBmp);
    BOOL ModifyMenu(UINT nPosition, UINT nFlags, UINT_PTR nIDNewItem = 0,
                    LPCTSTR lpszNewItem = nullptr);
    BOOL ModifyMenu(UINT nPosition, UINT nFlags, UINT_PTR nIDNewItem, const CBitmap* pBmp);
    // RemoveMenu keeps a removed submenu alive; DeleteMenu destroys it.
    BOOL RemoveMenu(UINT nPosition, UINT nFlags);
    BOOL DeleteMenu(UINT nPosition, UINT nFlags);

    // State. Check/Enable answer the previous state, or (UINT)-1 when the item
    // does not exist.
    UINT CheckMenuItem(UINT nIDCheckItem, UINT nCheck);
    BOOL CheckMenuRadioItem(UINT nIDFirst, UINT nIDLast, UINT nIDItem, UINT nFlags);
    UINT EnableMenuItem(UINT nIDEnableItem, UINT nEnable);
    BOOL SetDefaultItem(UINT uItem, BOOL fByPos = FALSE);
    UINT GetDefaultItem(UINT gmdiFlags, BOOL fByPos = FALSE);

    // Queries.
    UINT GetMenuItemCount() const;
    // 0xFFFFFFFF for a submenu or a bad position.
    UINT GetMenuItemID(int nPos) const;
    UINT GetMenuState(UINT nID, UINT nFlags) const;
    int GetMenuString(UINT nIDItem, LPTSTR lpString, int nMaxCount, UINT nFlags) const;
    int GetMenuString(UINT nIDItem, CString& rString, UINT nFlags) const;
    // A temporary wrapper of the submenu at nPos, or NULL.
    CMenu* GetSubMenu(int nPos) const;
    BOOL GetMenuItemInfo(UINT uItem, LPMENUITEMINFO lpMenuItemInfo, BOOL fByPos = FALSE);
    BOOL SetMenuItemInfo(UINT uItem, LPMENUITEMINFO lpMenuItemInfo, BOOL fByPos = FALSE);
    DWORD GetMenuContextHelpId() const;
    BOOL SetMenuContextHelpId(DWORD dwContextHelpId);

    // Shows the menu as a popup owned by pWnd. With TPM_RETURNCMD the result
    // is the chosen command (0 when the menu is cancelled), otherwise whether
    // the call succeeded.
    BOOL TrackPopupMenu(UINT nFlags, int x, int y, CWnd* pWnd, LPCRECT lpRect = nullptr);
    BOOL TrackPopupMenuEx(UINT fuFlags, int x, int y, CWnd* pWnd, LPTPMPARAMS lptpm);

    // Owner-draw items (MF_OWNERDRAW) of a menu with a permanent CMenu. The
    // defaults do nothing.
    virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);
    virtual void MeasureItem(LPMEASUREITEMSTRUCT lpMeasureItemStruct);

    // The window dispatch calls this for WM_DRAWITEM and WM_MEASUREITEM whose
    // CtlType is ODT_MENU, before the window's own OnDrawItem/OnMeasureItem.
    // WM_DRAWITEM goes to the permanent CMenu of DRAWITEMSTRUCT::hwndItem;
    // WM_MEASUREITEM to the permanent CMenu that holds an owner-draw item with
    // the struct's itemID and itemData. Answers TRUE when such a menu handled
    // it (the message's result is then TRUE), FALSE otherwise.
    static BOOL PASCAL HandleOwnerDraw(UINT message, LPARAM lParam);
};
