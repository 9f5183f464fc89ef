// The category management dialog of a component (template 114 of the host)
// and the two small dialogs that ask for a name (template 109). They work on
// the host's category manager, move or delete the records of a deleted
// category, keep the document's undo information in step and the handheld
// subscription list with it.
#pragma once

#include <afxwin.h>
#include <HyBaseDialog.h>
#include <HySortListBox.h>
#include <HyTernEdit.h>

#include "HyUIExport.h"

class CCategoryMgr;
class CBaseTable;
class CTernUIComponentView;

// Asks for a new category's name: at most 15 characters, leading blanks
// trimmed (trailing ones kept), an empty name refused.
class HYUI_API CHyUICatNewDialog : public CBaseDialog
{
    DECLARE_DYNAMIC(CHyUICatNewDialog)
public:
    CHyUICatNewDialog();
    CHyUICatNewDialog(UINT nIDTemplate, CWnd* pParent);
    const CString& GetName() const { return m_strName; }

    virtual BOOL OnInitDialog() override;
    virtual void OnOK() override;

protected:
    virtual void DoDataExchange(CDataExchange* pDX) override;

public:
    CTernEdit m_editName;   // 142
    CString m_strName;
};

// The same for a rename, preset with the old name.
class HYUI_API CHyUICatRenameDialog : public CBaseDialog
{
    DECLARE_DYNAMIC(CHyUICatRenameDialog)
public:
    CHyUICatRenameDialog();
    CHyUICatRenameDialog(UINT nIDTemplate, CWnd* pParent);
    const CString& GetName() const { return m_strName; }
    void SetName(LPCTSTR lpszName) { m_strName = lpszName; }

    virtual BOOL OnInitDialog() override;
    virtual void OnOK() override;

protected:
    virtual void DoDataExchange(CDataExchange* pDX) override;

public:
    CTernEdit m_editName;   // 142
    CString m_strName;
};

class HYUI_API CHyUICatMgmtDlg : public CBaseDialog
{
    DECLARE_DYNAMIC(CHyUICatMgmtDlg)
public:
    // None of the pointers is owned; pTable and pView may be null.
    CHyUICatMgmtDlg(CCategoryMgr* pCategoryMgr, CBaseTable* pTable, const CString& captionName,
                    CTernUIComponentView* pView, CWnd* pParent = NULL);
    virtual ~CHyUICatMgmtDlg();

    // The chosen category, 0xFFFF when none was selected at OK.
    WORD GetSelectedCatID() const { return m_wSelectedCatID; }
    void SetCurrentUserName(LPCTSTR lpszUser) { m_strUserName = lpszUser; }
    const CString& GetCurrentUserName() const { return m_strUserName; }
    void SetCurrentViewID(UINT nViewID) { m_nViewID = nViewID; }
    UINT GetCurrentViewID() const { return m_nViewID; }

    // Overridable record moves: a derived dialog may move or delete records
    // its own way. These are the class's first virtual functions of its own.
    virtual void ReplaceCategoryID(WORD wOld, WORD wNew, int nFlag);
    virtual void DeleteAllInCategory(WORD wCategory);

    virtual BOOL OnInitDialog() override;
    virtual void OnOK() override;

protected:
    virtual void DoDataExchange(CDataExchange* pDX) override;
    afx_msg void OnBtnNew();
    afx_msg void OnBtnDelete();
    afx_msg void OnBtnRename();
    DECLARE_MESSAGE_MAP()

public:
    WORD m_wSelectedCatID;
    CString m_strUserName;
    UINT m_nViewID;
    CSortListBox m_listCategories;   // 140
    CCategoryMgr* m_pCategoryMgr;
    CBaseTable* m_pTable;
    CString m_strCaptionName;
    CTernUIComponentView* m_pView;
};
