// CHyMenuButton: an owner-drawn push button showing one item of a menu; a
// press pops the menu up with that item checked, and the chosen item becomes
// the button's. The host reads the choice with GetMenuIndex.
#pragma once

#include <afxwin.h>

#include "HyUIExport.h"

class HYUI_API CHyMenuButton : public CButton
{
    DECLARE_DYNAMIC(CHyMenuButton)
public:
    CHyMenuButton();

    virtual void DrawItem(LPDRAWITEMSTRUCT lpDIS) override;
    // With a menu the host keeps (not owned), or with a menu resource whose
    // first submenu holds the choices.
    virtual BOOL Create(CMenu* pMenu, int nIndex, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
    virtual BOOL Create(UINT nMenuID, int nIndex, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
    virtual BOOL PreCreateWindow(CREATESTRUCT& cs) override;

    void SetButtonMenu(CMenu* pMenu, int nIndex);
    void SetMenuIndex(int nIndex);
    int GetMenuIndex() const { return menuIndex; }
    // The caption becomes the current item's text (empty past the last item).
    void UpdateButtonText();

protected:
    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    afx_msg void OnLButtonDblClk(UINT nFlags, CPoint point);
    afx_msg void OnSysColorChange();
    afx_msg void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnSize(UINT nType, int cx, int cy);
    afx_msg void OnClicked();
    afx_msg LRESULT OnGetDlgCodeEx(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

public:
    UINT menuId;
    CMenu* menu;
    int menuIndex;
};
