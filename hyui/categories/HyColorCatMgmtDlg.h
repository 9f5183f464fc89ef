// "Edit Event Categories" (template 600): the calendar's category dialog.
// The rules of CHyUICatMgmtDlg, plus a colour for each category chosen from
// sixteen swatches below the list. The theme learns the colours at OK only.
#pragma once

#include <afxwin.h>
#include <HyBaseDialog.h>

#include "HyColorSwatch.h"
#include "HySwatchListBox.h"
#include "HyUIExport.h"

class CCategoryMgr;
class CBaseTable;
class CTernUIComponentView;

enum : int
{
    HY_SWATCH_BUTTONS = 16,
    HY_SWATCH_BUTTON_SIZE = 20,     // pixels, square
    HY_SWATCH_BUTTON_PITCH = 25,    // pixels from one swatch to the next
    HY_SWATCH_BUTTON_LEFT = 15,     // client x of the first column
    HY_SWATCH_BUTTON_TOP = 185,     // client y of the first row
};

// Swatch index shown by button 1000 + k. The order is deliberate: it lays the
// colours out in the grid and maps a button to its swatch and back.
extern HYUI_API const int g_hySwatchOrder[HY_SWATCH_BUTTONS];

class HYUI_API CHyUIColorCatMgmtDlg : public CBaseDialog
{
    DECLARE_DYNAMIC(CHyUIColorCatMgmtDlg)
public:
    CHyUIColorCatMgmtDlg(CCategoryMgr* pCategoryMgr, CBaseTable* pTable, const CString& captionName,
                         CTernUIComponentView* pView, CWnd* pParent = NULL);
    virtual ~CHyUIColorCatMgmtDlg();

    WORD GetSelectedCatID() const { return m_wSelectedCatID; }
    void SetCurrentUserName(LPCTSTR lpszUser) { m_strUserName = lpszUser; }
    const CString& GetCurrentUserName() const { return m_strUserName; }
    void SetCurrentViewID(UINT nViewID) { m_nViewID = nViewID; }
    UINT GetCurrentViewID() const { return m_nViewID; }

    // Not virtual here, unlike the plain category dialog.
    void ReplaceCategoryID(WORD wOld, WORD wNew, int nFlag);
    void DeleteAllInCategory(WORD wCategory);

    // The class's only virtual function of its own.
    virtual void OnListSelectionChange();

    virtual BOOL OnInitDialog() override;
    virtual void OnOK() override;

    // Marks swatch button nID as the only selected one.
    void SelectCurrentSwatch(UINT nID);

protected:
    afx_msg void OnBtnNew();
    afx_msg void OnBtnDelete();
    afx_msg void OnBtnRename();
    afx_msg void OnBtnSwatch(UINT nID);
    DECLARE_MESSAGE_MAP()

public:
    WORD m_wSelectedCatID;
    CString m_strUserName;
    UINT m_nViewID;
    CHySwatchListBox m_listCategories;   // 601
    CCategoryMgr* m_pCategoryMgr;
    CBaseTable* m_pTable;
    CString m_strCaptionName;
    CTernUIComponentView* m_pView;
    int m_bModified;                     // a swatch was chosen
    CHyColorSwatch m_swatches[HY_SWATCH_BUTTONS];   // 1000..1015
};
