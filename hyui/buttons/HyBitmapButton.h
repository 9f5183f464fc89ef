// CHyBitmapButton: an owner-drawn push button showing a picture (CxImage),
// else its caption, else a placeholder; classic 3-D or flat (a border only
// while the mouse is over it). A click reaches the parent as
// HYWM_BITMAPBUTTON_CLICKED, sent, never as BN_CLICKED: since the button
// takes the focus first, the parent tells buttons apart by GetFocus.
// Attach it to an existing button (SubclassDlgItem); it makes it owner-drawn.
#pragma once

#include <afxwin.h>

#include "HyUIExport.h"

class CxImage;

// Sent to the parent for a click: wParam 0, lParam 0.
#define HYWM_BITMAPBUTTON_CLICKED 0x2900

class HYUI_API CHyBitmapButton : public CButton
{
    DECLARE_DYNAMIC(CHyBitmapButton)
public:
    CHyBitmapButton();
    virtual ~CHyBitmapButton();

    virtual void DrawItem(LPDRAWITEMSTRUCT lpDIS) override;
    // The face (default: the button face colour).
    virtual void OnDrawBackground(CDC* pDC, const RECT* pRect);
    // A flat button's border: raised, or sunken while pressed.
    virtual void OnDrawBorder(CDC* pDC, const RECT* pRect);
    // The picture, scaled and centred in the whole item rectangle.
    virtual void DrawTheBitmap(CDC* pDC, int bHasTitle, RECT* pItem, CRect* pCaption, int bPressed);
    // The caption, word-wrapped and centred.
    virtual void DrawTheText(CDC* pDC, const char* lpszText, RECT* pItem, CRect* pCaption, int bPressed);

    virtual void PreSubclassWindow() override;
    // A double-click arrives as a second press.
    virtual BOOL PreTranslateMessage(MSG* pMsg) override;

    int SetFlat(BOOL bFlat, BOOL bRepaint = TRUE);
    int DrawBorder(BOOL bEnable, BOOL bRepaint = TRUE);
    int DrawFlatFocus(BOOL bEnable, BOOL bRepaint = TRUE);
    // Copies the picture, fitted to 64 pixels; NULL or an invalid one empties it.
    void SetCxImage(CxImage* pImage);
    // The button's own copy (NULL before the first SetCxImage).
    CxImage* GetCxImage() const { return image; }

protected:
    void CancelHover();

    afx_msg void OnKillFocus(CWnd* pNewWnd);
    afx_msg void OnMouseMove(UINT nFlags, CPoint point);
    afx_msg BOOL OnClicked();
    afx_msg void OnActivate(UINT nState, CWnd* pWndOther, BOOL bMinimized);
    afx_msg void OnEnable(BOOL bEnable);
    afx_msg void OnCancelMode();
    afx_msg LRESULT OnSetStyle(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnMouseLeave(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

public:
    int reserved;
    BOOL flat;
    BOOL hover;
    BOOL pressed;
    BOOL focused;
    BOOL drawBorder;
    BOOL drawFlatFocus;
    CxImage* image;
    CBitmap placeholder;
};
