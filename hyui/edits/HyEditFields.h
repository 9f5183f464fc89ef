// Two small fields a dialog attaches to its items. CHyNumEdit takes digits
// only and, when left, puts its minimum in place of an empty or smaller
// entry. CHyTernUIRichEdit is a note field that tells its parent of clicks,
// Tab, the keypad's Enter and the lost focus (HYRE_*), so the parent can
// switch between viewing and editing; while not editable a double click is
// reported instead of selecting a word.
#pragma once

#include <afxwin.h>
#include <afxcmn.h>
#include "HyEditMsgs.h"
#include "HyUIExport.h"

class HYUI_API CHyNumEdit : public CEdit
{
    DECLARE_DYNAMIC(CHyNumEdit)
public:
    CHyNumEdit();
    void SetMinRequireValue(int nMin) { minRequire = nMin; }

protected:
    afx_msg void OnChar(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnKillFocusReflect();
    DECLARE_MESSAGE_MAP()

public:
    int minRequire;
    CString allowedChars;
};

class HYUI_API CHyTernUIRichEdit : public CRichEditCtrl
{
    DECLARE_DYNAMIC(CHyTernUIRichEdit)
public:
    CHyTernUIRichEdit();
    void SetEditable(int bEditable) { editable = bEditable; }
    virtual BOOL PreTranslateMessage(MSG* pMsg) override;

protected:
    afx_msg void OnLButtonDblClk(UINT nFlags, CPoint point);
    afx_msg void OnRButtonUp(UINT nFlags, CPoint point);
    afx_msg void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnKillFocusReflect();
    afx_msg void OnKeyUp(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnClose();
    afx_msg void OnDestroy();
    afx_msg void OnChar(UINT nChar, UINT nRepCnt, UINT nFlags);
    void Notify(UINT message, WPARAM wParam, bool send);
    DECLARE_MESSAGE_MAP()

public:
    int editable;
};
