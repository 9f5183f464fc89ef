// CHyTabCtrl: a row of tabs above the host's pages. Each tab has a text, an
// optional icon and a host value; one is active. The mouse and the arrow,
// Home and End keys (at key-up) switch it, and the parent learns of each
// switch (HYWM_TAB_ACTIVATED, then WM_COMMAND for a click). Keys of a
// host-owned accelerator table reach the parent as TCN_KEYDOWN.
// Painting and the three styles: docs/tabs.md.
#pragma once

#include <afxwin.h>
#include <afxcoll.h>

#include "HyUIExport.h"

// Posted to the parent when a tab becomes active: wParam its index, lParam 0.
#define HYWM_TAB_ACTIVATED 0x0784

// The tab styles, the low two bits of the creation style.
enum : UINT
{
    HYTAB_STYLE_TABS = 1,      // raised tabs, the active one joined to the page
    HYTAB_STYLE_BUTTONS = 2,   // a row of buttons, the active one pressed
    HYTAB_STYLE_FLAT = 3,      // flat labels, the active one underlined
};

class HYUI_API CTabItem
{
public:
    CTabItem(LPCSTR text);
    virtual ~CTabItem();
    // The natural size of the tab in a row `height` high, with the DC's font.
    virtual CSize Measure(CDC* pDC, int height);
    // The icon is the host's; the tab shows it at small-icon size.
    virtual void SetIcon(HICON icon);
    // Whether the point is on the tab; a tab squeezed to nothing has no points.
    virtual BOOL HitTest(CPoint point);

    CString text;
    HICON icon;
    long value;   // the host's
    CRect rect;   // in the control's client area
};

class HYUI_API CHyTabCtrl : public CWnd
{
    DECLARE_DYNAMIC(CHyTabCtrl)
public:
    CHyTabCtrl();
    virtual ~CHyTabCtrl();

    // The tab at an index, or NULL.
    virtual CTabItem* Item(int index);
    // The height of the tab row.
    virtual int GetItemHeight();
    // The tab style, 1 to 3 (this hides CWnd::GetStyle; use CWnd::GetStyle for the window's).
    virtual UINT GetStyle();
    virtual int GetActiveItem();
    // Takes the same path as operator=.
    virtual void SetActiveItem(int index);
    virtual int GetCount();
    // (width, row height) of a tab; for an invalid index the widths of all tabs.
    virtual CSize ItemSize(int index);
    // The active index is left as it is, even past the end.
    virtual BOOL DeleteItem(int index);
    // Works before Create too; -1 for a null text.
    virtual int AddItem(LPCSTR text, long value, HICON icon);
    virtual BOOL Create(UINT dwStyle, const CRect& rect, CWnd* pParentWnd, UINT nID);
    // Called before the active index changes from oldIndex to newIndex.
    virtual void OnActivatePage(int oldIndex, int newIndex);
    // The page area: the client area below the tab row.
    virtual CRect _GetClientRect();
    virtual int Point2Item(CPoint point);
    virtual void AutoSize(int total, int available);
    virtual void OnInitDC(CDC* pDC);
    virtual void OnEndDC(CDC* pDC);
    virtual void RecalcLayout();
    // Whether PreTranslateMessage offers keys to the accelerator table:
    // while the control is enabled.
    virtual BOOL AcceleratorsEnabled();

    // Activates a valid tab other than the active one: OnActivatePage, the
    // new index, a repaint, HYWM_TAB_ACTIVATED posted to the parent.
    CHyTabCtrl& operator=(int index);
    // The host's table (not destroyed here); NULL for none.
    void SetAccelerator(HACCEL hAccel) { accelerators = hAccel; }
    HACCEL GetAccelerator() const { return accelerators; }

    virtual BOOL PreTranslateMessage(MSG* pMsg) override;

protected:
    void InvalidateNew(BOOL bErase);
    void DrawEntireControl(CDC& dc, const CRect& row);
    void DrawItem(CDC& dc, int index, bool active, bool focused);

    afx_msg void OnPaint();
    afx_msg BOOL OnEraseBkgnd(CDC* pDC);
    afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnKeyUp(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg UINT OnGetDlgCode();
    afx_msg void OnSetFocus(CWnd* pOldWnd);
    afx_msg void OnKillFocus(CWnd* pNewWnd);
    afx_msg void OnSysColorChange();
    afx_msg void OnSize(UINT nType, int cx, int cy);
    afx_msg HBRUSH OnCtlColor(CDC* pDC, CWnd* pWnd, UINT nCtlColor);
    DECLARE_MESSAGE_MAP()

public:
    CPtrArray items;   // CTabItem*, owned
    int active;
    UINT style;
    HACCEL accelerators;
    int layoutValue;   // 19 after Create: the least row height, in pixels

private:
    int rowHeight;     // the row's height as last laid out
    HGDIOBJ dcFont;    // what OnInitDC replaced, put back by OnEndDC
    CBitmap rowBitmap; // the buffer of the tab row, kept between paints
    CSize rowBitmapSize;
    CBrush pageBrush;  // what static children on the page are drawn on
};
