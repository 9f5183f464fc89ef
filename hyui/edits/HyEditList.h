// The edit list: a column of rows, each a label and a framed value that is
// edited in place by one editor window laid over the open row. Rows grow with
// the lines of their text; a row's label may instead open a chooser menu. The
// owner fills the list, reads values back with GetItemValue (an open row's
// value is current once it is closed), learns of chooser changes through the
// posted HYEL_MENUCHANGED and of clicks and selections through the hooks.
// Row arithmetic: HyEditGeometry.h; decisions: docs/editlist.md.
//
// Index arguments are checked: a missing row does nothing, and a query about
// it answers -1, 0 or an empty text.
#pragma once

#include <afxwin.h>
#include <afxtempl.h>
#include <vector>
#include "HyEditMsgs.h"
#include "HyPaintBuffer.h"
#include "HyTernEdit.h"
#include "HyUIExport.h"

// The strings of one row.
class HYUI_API CListItemDesc
{
public:
    CString label;
    CString value;   // line breaks are CR LF
};

// One row, stored by value in display order.
class HYUI_API CListItem
{
public:
    int selected = 0;          // open in the editor
    int collapsed = 0;         // keeps its height, nothing painted
    int fixedLabel = 0;        // the label stays whatever chooser entry is picked
    int acceptEnter = 0;       // Enter types a line break instead of reaching the parent
    int number = -1;           // the list's add counter at the add; never renumbered
    UINT menuId = (UINT)-1;    // menu resource whose submenu 0 is the chooser
    int menuIndex = -1;        // the chosen entry's position
    CMenu* menu = nullptr;     // the caller's chooser; shared, never destroyed by the row
    CListItemDesc desc;
    int width = 0;             // the client width at the last layout
    int height = -1;           // -1: the standard row height
    int minRows = 1;
    int labelStyle = 0;        // HYEL_LABEL_LEFT or right-aligned
    int maxChars = HYEL_MAX_CHARS;

    bool IsMenuRow() const { return menuId != (UINT)-1 || menu != nullptr; }
};

// The rectangles of a row, client coordinates.
struct CListItemRects
{
    CRect cell, label, value;
};

// The in-place editor.
class HYUI_API CListItemEdit : public CTernEdit
{
    DECLARE_DYNAMIC(CListItemEdit)
public:
    CListItemEdit();

    CWnd* reading;   // gets the reading of each composition, made full-width hiragana
    int pasting;     // 1 while a paste is handled

protected:
    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    afx_msg void OnChar(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnSetFocus(CWnd* pOldWnd);
    afx_msg void OnKillFocus(CWnd* pNewWnd);
    afx_msg LRESULT OnPaste(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnImeEndComposition(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()
};

class HYUI_API CHyEditList : public CWnd
{
    DECLARE_DYNAMIC(CHyEditList)
public:
    CHyEditList();
    virtual ~CHyEditList();

    // ---- virtuals, in this order ----
    // Creates the window with the framework's default class and the text "CEditList".
    virtual BOOL CreateEx(DWORD dwExStyle, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID,
                          LPVOID lpParam = nullptr);
    virtual void OnItemLButtonDblClk(int nIndex, CPoint point);
    virtual void OnItemOnRButtonDown(int nIndex, CPoint point);
    virtual void OnItemSelected(int nIndex, int bSelected);
    virtual void OnItemChecked(int nIndex, int bChecked);   // never called by the list
    virtual void OnItemReturnKey();                          // never called by the list
    virtual void DrawItemBody(CDC* pDC, int nIndex, RECT* pRect);   // never called by the list

    virtual BOOL PreCreateWindow(CREATESTRUCT& cs) override;
    virtual BOOL PreTranslateMessage(MSG* pMsg) override;
    using CWnd::CreateEx;

    // ---- settings ----
    void SetLabelWidth(int nWidth, BOOL bRedraw);
    int GetLabelWidth() const { return labelWidth; }
    void SetTabStop(int n) { tabStop = n; }
    int GetTabStop() const { return tabStop; }
    void SetFlags(int n) { flags = n; }
    int GetFlags() const { return flags; }

    // ---- rows ----
    int AddItem(LPCTSTR lpszLabel, LPCTSTR lpszValue, int nLabelStyle, BOOL bRedraw);
    int AddItem(UINT nMenuId, int nMenuIndex, LPCTSTR lpszLabel, LPCTSTR lpszValue, int nLabelStyle, BOOL bRedraw);
    int AddItem(CMenu* pMenu, int nMenuIndex, LPCTSTR lpszLabel, LPCTSTR lpszValue, int nLabelStyle, BOOL bRedraw);
    void DeleteItem(int nIndex, BOOL bRedraw);
    void DeleteAllItems(BOOL bRedraw);
    // Valid until the next add or delete.
    CListItem* GetItem(int nIndex);
    int GetItemCount() const { return (int)items.GetSize(); }
    int FindItemIndex(const CListItem* pItem) const;

    void SetItemValue(int nIndex, LPCTSTR lpszValue, BOOL bRedraw);
    void GetItemValue(int nIndex, CString& value) const;
    void SetItemLabel(int nIndex, LPCTSTR lpszLabel, BOOL bRedraw);
    void GetItemLabel(int nIndex, CString& label) const;
    void SetItemMenuInfo(int nIndex, UINT nMenuId, int nMenuIndex, LPCTSTR lpszLabel, BOOL bRedraw);
    int GetItemMenuIndex(int nIndex) const;
    void SetItemMenuIndex(int nIndex, int nMenuIndex);
    void SetItemSize(int nIndex, int nWidth, int nHeight, BOOL bRedraw);
    void GetItemSize(int nIndex, int* pWidth, int* pHeight) const;
    void SetItemMinRows(int nIndex, int nRows);
    void SetItemMaxChar(int nIndex, int nMax);
    void SetItemAcceptEnter(int nIndex, BOOL bAccept);
    BOOL GetItemAcceptEnter(int nIndex) const;
    void CollapseItem(int nIndex, BOOL bCollapse);
    BOOL IsItemCollapsed(int nIndex) const;
    // Invalidates the row's cell (clipped to the client area); Update also repaints it now.
    void RefreshItem(int nIndex);
    void Update(int nIndex);

    // ---- selection ----
    void SelectItem(int nIndex, BOOL bSelect, BOOL bRedraw);
    void SelectAllItems(BOOL bSelect, BOOL bRedraw);
    void SelectAndScrollItem(int nIndex, BOOL bSelect);
    BOOL IsItemSelected(int nIndex) const;
    int GetSelectedCount() const;
    int GetFirstSelectedItemIndex() const;
    POSITION GetFirstSelectedItemPosition() const;   // index + 1; NULL at the end
    int GetNextSelectedItemIndex(POSITION& pos) const;
    int GetFocusItemIndex() const { return focusItem; }
    void EnsureVisible(int nIndex);

protected:
    int AddItem(const CListItem& item, BOOL bRedraw);
    const CListItem* Row(int nIndex) const;   // null for a missing row
    void SetItemMenuInfo(CListItem& item, CMenu* pMenu, int nMenuIndex, LPCTSTR lpszLabel);

    // ---- geometry ----
    std::vector<int> Heights() const;
    void GetItemCell(int nIndex, RECT* pRect) const;
    void GetItemRects(int nIndex, CListItemRects& rects) const;
    void GetItemRects(const CRect& cell, CListItemRects& rects) const;
    int PtToItemIndex(CPoint point) const;
    void UpdateViewInfo();
    void FlushScrollInfo() const;
    int ScrollPos() const;
    // The height for `lines` lines; answers whether it changed.
    bool SetItemRowHeight(CListItem& item, int lines);
    // The row whose position is item.number, else the row itself (deliberately the add number).
    CListItem& MeasuredRow(CListItem& item);
    int MeasureLines(CListItem& item, const CString& text);
    static int LinesThatFit(const CString& text, int width);

    // ---- the editor and interaction ----
    void RepositionEditor(int nIndex);
    void PlaceEditor();
    void CloseEditor(bool commit);
    void ScrollTo(int nCode, int nThumb);
    void TabStep(bool backward);
    void FocusSibling(int direction);
    void HandleLabelPopup(int nIndex, CPoint point);
    void TakeFocusAt(CPoint point);
    void LeftButtonSteps(CPoint point);
    void OnArrowKeyDown(UINT nChar);
    void RedrawAll();

    // ---- painting (HyEditListPaint.cpp) ----
    void DrawRow(CDC& dc, int nIndex, const CRect& cell, int leftMargin, int rightMargin);
    void DrawFocusMark(CDC& dc);
    void DrawFormattedText(CDC* pDC, LPCTSTR lpszText, RECT* pRect);

    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    afx_msg void OnDestroy();
    afx_msg void OnPaint();
    afx_msg BOOL OnEraseBkgnd(CDC* pDC);
    afx_msg void OnVScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar);
    afx_msg void OnSize(UINT nType, int cx, int cy);
    afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnMouseMove(UINT nFlags, CPoint point);
    afx_msg void OnLButtonUp(UINT nFlags, CPoint point);
    afx_msg void OnLButtonDblClk(UINT nFlags, CPoint point);
    afx_msg void OnRButtonDown(UINT nFlags, CPoint point);
    afx_msg BOOL OnMouseWheel(UINT nFlags, short zDelta, CPoint pt);
    afx_msg void OnKillFocus(CWnd* pNewWnd);
    afx_msg void OnSetFocus(CWnd* pOldWnd);
    afx_msg void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg UINT OnGetDlgCode();
    afx_msg void OnSysColorChange();
    afx_msg void OnShowWindow(BOOL bShow, UINT nStatus);
    afx_msg LRESULT OnTabNext(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnTabPrev(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnItemKillFocus(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnCharEntered(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

public:
    // ---- state, in this order ----
    int paintOnly;      // the only row painted; -1: all
    int focusItem;      // the row with the keyboard focus mark
    int tabStop;
    int addCounter;
    int flags;          // the owner's; not used by the list
    CListItemEdit editor;
    int editedItem;     // the row open in the editor; -1: none
    int labelWidth;     // right edge of the label column; below 1: a third of the row
    int lineHeight;     // height of each further text line
    int rowHeight;      // the standard one-line row
    CArray<CListItem, CListItem&> items;

private:
    HyPaintBuffer paintBuffer;
    bool closing = false;   // the open row is being closed
    mutable bool layingOut = false;   // the scroll bar is being given its range
    mutable bool scrollDirty = false; // scrollRange not yet given to the scroll bar
    SCROLLINFO scrollRange{};
};
