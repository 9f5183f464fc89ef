// The category management dialog of a component and its two name dialogs.
// The rules they share with the colour category dialog are in
// HyCategoryActions.cpp.
#include "HyCatMgmtDlg.h"

#include <HyCategoryMgr.h>

#include "HyCatDlgRes.h"
#include "HyCategoryActions.h"

// ---- the name dialogs ------------------------------------------------------

IMPLEMENT_DYNAMIC(CHyUICatNewDialog, CBaseDialog)

CHyUICatNewDialog::CHyUICatNewDialog() : CBaseDialog(IDD_HOST_CATEGORY_NAME) {}
CHyUICatNewDialog::CHyUICatNewDialog(UINT nIDTemplate, CWnd* pParent) : CBaseDialog(nIDTemplate, pParent) {}

void CHyUICatNewDialog::DoDataExchange(CDataExchange* pDX)
{
    DDX_Control(pDX, IDC_CATEGORY_NAME, m_editName);
    DDX_Text(pDX, IDC_CATEGORY_NAME, m_strName);
}

BOOL CHyUICatNewDialog::OnInitDialog()
{
    CBaseDialog::OnInitDialog();
    hy::InitCategoryNameDialog(this, m_editName);
    return TRUE;
}

void CHyUICatNewDialog::OnOK()
{
    if (!UpdateData(TRUE)) return;
    if (hy::AcceptCategoryName(this, m_strName)) EndDialog(IDOK);
}

IMPLEMENT_DYNAMIC(CHyUICatRenameDialog, CBaseDialog)

CHyUICatRenameDialog::CHyUICatRenameDialog() : CBaseDialog(IDD_HOST_CATEGORY_NAME) {}
CHyUICatRenameDialog::CHyUICatRenameDialog(UINT nIDTemplate, CWnd* pParent) : CBaseDialog(nIDTemplate, pParent) {}

void CHyUICatRenameDialog::DoDataExchange(CDataExchange* pDX)
{
    DDX_Control(pDX, IDC_CATEGORY_NAME, m_editName);
    DDX_Text(pDX, IDC_CATEGORY_NAME, m_strName);
}

BOOL CHyUICatRenameDialog::OnInitDialog()
{
    CBaseDialog::OnInitDialog();
    hy::InitCategoryNameDialog(this, m_editName);
    return TRUE;
}

void CHyUICatRenameDialog::OnOK()
{
    if (!UpdateData(TRUE)) return;
    if (hy::AcceptCategoryName(this, m_strName)) EndDialog(IDOK);
}

// ---- the management dialog -------------------------------------------------

namespace {

class SortListAccess final : public hy::CategoryListAccess
{
public:
    explicit SortListAccess(CHyUICatMgmtDlg& dlg) : m_dlg(dlg) {}
    int Selected() const override { return m_dlg.m_listCategories.GetCurSel(); }
    CString Text(int pos) const override
    {
        CString text;
        m_dlg.m_listCategories.GetText(pos, text);
        return text;
    }
    int Add(const CString& name) override { return m_dlg.m_listCategories.AddString(name); }
    void Remove(int pos) override { m_dlg.m_listCategories.DeleteString(pos); }
    void Rename(int pos, const CString& name) override
    {
        m_dlg.m_listCategories.DeleteString(pos);
        m_dlg.m_listCategories.SetCurSel(m_dlg.m_listCategories.AddString(name));
    }
    void Select(int pos) override { m_dlg.m_listCategories.SetCurSel(pos); }
    void MoveRecords(WORD wOld, WORD wNew) override { m_dlg.ReplaceCategoryID(wOld, wNew, 1); }
    void DeleteRecords(WORD wCategory) override { m_dlg.DeleteAllInCategory(wCategory); }

private:
    CHyUICatMgmtDlg& m_dlg;
};

}  // namespace

IMPLEMENT_DYNAMIC(CHyUICatMgmtDlg, CBaseDialog)

BEGIN_MESSAGE_MAP(CHyUICatMgmtDlg, CBaseDialog)
    ON_BN_CLICKED(IDC_CATEGORY_NEW, OnBtnNew)
    ON_BN_CLICKED(IDC_CATEGORY_DELETE, OnBtnDelete)
    ON_BN_CLICKED(IDC_CATEGORY_RENAME, OnBtnRename)
    ON_LBN_DBLCLK(IDC_CATEGORY_LIST, OnOK)
END_MESSAGE_MAP()

CHyUICatMgmtDlg::CHyUICatMgmtDlg(CCategoryMgr* pCategoryMgr, CBaseTable* pTable, const CString& captionName,
                                 CTernUIComponentView* pView, CWnd* pParent)
    : CBaseDialog(IDD_HOST_CATEGORY_MANAGE, pParent), m_wSelectedCatID(0xFFFF), m_nViewID(0),
      m_pCategoryMgr(pCategoryMgr), m_pTable(pTable), m_strCaptionName(captionName), m_pView(pView)
{
}

CHyUICatMgmtDlg::~CHyUICatMgmtDlg() = default;

void CHyUICatMgmtDlg::DoDataExchange(CDataExchange* pDX)
{
    DDX_Control(pDX, IDC_CATEGORY_LIST, m_listCategories);
}

BOOL CHyUICatMgmtDlg::OnInitDialog()
{
    CBaseDialog::OnInitDialog();
    CenterWindow();
    SetWindowText(hy::CategoryDialogCaption(m_strCaptionName));
    m_listCategories.ResetContent();
    hy::ForEachListedCategory(m_pCategoryMgr, [this](const CString& name, WORD) {
        m_listCategories.AddString(name);
    });
    m_listCategories.SetCurSel(-1);   // nothing selected at the start
    return TRUE;
}

void CHyUICatMgmtDlg::OnBtnNew()
{
    SortListAccess list(*this);
    hy::CategoryNew(hy::ContextOf(*this, list));
}

void CHyUICatMgmtDlg::OnBtnDelete()
{
    SortListAccess list(*this);
    hy::CategoryDelete(hy::ContextOf(*this, list));
}

void CHyUICatMgmtDlg::OnBtnRename()
{
    SortListAccess list(*this);
    hy::CategoryRename(hy::ContextOf(*this, list));
}

void CHyUICatMgmtDlg::ReplaceCategoryID(WORD wOld, WORD wNew, int nFlag)
{
    hy::MoveCategoryRecords(m_pTable, m_pView, wOld, wNew, nFlag);
}

void CHyUICatMgmtDlg::DeleteAllInCategory(WORD wCategory)
{
    hy::DeleteCategoryRecords(m_pTable, m_pView, wCategory);
}

void CHyUICatMgmtDlg::OnOK()
{
    SortListAccess list(*this);
    m_wSelectedCatID = hy::SelectedCategoryId(hy::ContextOf(*this, list));
    EndDialog(IDOK);
}
