// CHyColorSwatch: an owner-drawn button of one colour, framed black when
// selected and white when not; Enter and double-clicks act as clicks.
// docs/categories.md.
#pragma once

#include <afxwin.h>

#include "HyUIExport.h"

class HYUI_API CHyColorSwatch : public CButton
{
    DECLARE_DYNAMIC(CHyColorSwatch)
public:
    CHyColorSwatch();

    BOOL Create(COLORREF colour, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
    virtual BOOL PreCreateWindow(CREATESTRUCT& cs) override;
    virtual void DrawItem(LPDRAWITEMSTRUCT lpDIS) override;

    // A change repaints at once; the same value paints nothing.
    void Select(BOOL bSelect);

    COLORREF colour;
    int selected;

protected:
    afx_msg BOOL OnEraseBkgnd(CDC* pDC);
    afx_msg void OnLButtonDblClk(UINT nFlags, CPoint point);
    afx_msg void OnSysColorChange();
    afx_msg void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg LRESULT OnGetDlgCodeEx(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()
};
