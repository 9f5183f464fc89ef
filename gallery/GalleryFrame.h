// The gallery's main window: the page selector on the left, the selected page
// filling the rest.
#pragma once
#include <afxwin.h>
#include "GalleryPage.h"

class CGalleryFrame;

// The list of pages: one row a page, the selected one highlighted. Click or
// Up/Down/Home/End select.
class CGallerySidebar : public CWnd
{
public:
    CGallerySidebar();
    BOOL Create(CGalleryFrame* pFrame, const RECT& rect, UINT nID);
    void SetSelection(int index);
    void SetCaption(const CString& caption) { m_caption = caption; }
    void PaintInto(CDC* pDC);

protected:
    CRect ItemRect(int index) const;
    int ItemFromPoint(CPoint point) const;

    afx_msg void OnPaint();
    afx_msg BOOL OnEraseBkgnd(CDC* pDC);
    afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg UINT OnGetDlgCode();
    afx_msg void OnSetFocus(CWnd* pOldWnd);
    afx_msg void OnKillFocus(CWnd* pNewWnd);
    afx_msg LRESULT OnPrintClient(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    CGalleryFrame* m_pFrame;
    int m_nSelection;
    CString m_caption;   // the language line under the title
};

class CGalleryFrame : public CWnd
{
public:
    CGalleryFrame();
    virtual ~CGalleryFrame();

    // Creates the main window (hidden) with the first page selected.
    BOOL Create(const CString& languageCaption);
    // Shows page index; the previous page window is destroyed.
    void SelectPage(int index);
    int GetSelectedPage() const { return m_nPage; }
    CGalleryPage* GetPage() const { return m_pPage; }
    // Sizes the window so that the client area fits the selected page's
    // content in full (the PNG mode).
    void FitToPage();

protected:
    void LayoutChildren();

    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    afx_msg void OnSize(UINT nType, int cx, int cy);
    afx_msg BOOL OnEraseBkgnd(CDC* pDC);
    afx_msg void OnPaint();
    afx_msg void OnSetFocus(CWnd* pOldWnd);
    afx_msg void OnGetMinMaxInfo(MINMAXINFO* lpMMI);
    afx_msg void OnNcDestroy();
    afx_msg LRESULT OnPrintClient(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnPasswordRequest(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    CGallerySidebar m_sidebar;
    CGalleryPage* m_pPage;
    int m_nPage;
};
