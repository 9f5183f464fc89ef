// "Edit Event Categories": the category rules of the plain dialog (shared in
// HyCategoryActions.cpp) over a swatch list, with sixteen colour swatches.
#include "HyColorCatMgmtDlg.h"

#include <HyCategoryMgr.h>
#include <HyTheme.h>
#include <HyCategoryRules.h>

#include "HyCategoryActions.h"
#include "HyUIRes.h"

const int g_hySwatchOrder[HY_SWATCH_BUTTONS] = { 4, 11, 16, 1, 10, 6, 13, 8, 7, 15, 3, 9, 12, 2, 5, 14 };

namespace {

// The list keeps no strings: each item's data is its text.
const char* ItemText(const CHySwatchListBox& list, int pos)
{
    const char* text = list.GetItemText(pos);
    return text != nullptr ? text : "";
}

class SwatchListAccess final : public hy::CategoryListAccess
{
public:
    explicit SwatchListAccess(CHyUIColorCatMgmtDlg& dlg) : m_dlg(dlg) {}
    int Selected() const override { return m_dlg.m_listCategories.GetCurSel(); }
    CString Text(int pos) const override { return CString(ItemText(m_dlg.m_listCategories, pos)); }
    int Add(const CString& name) override
    {
        // A new category gets the first free colour of 1..15, never 16.
        int used[HY_SWATCH_BUTTONS + 1];
        int count = 0;
        for (int i = 0; i < m_dlg.m_listCategories.GetCount() && count < HY_SWATCH_BUTTONS + 1; ++i)
            used[count++] = m_dlg.m_listCategories.GetItemSwatchIndex(ItemText(m_dlg.m_listCategories, i));
        return m_dlg.m_listCategories.AddItem(name, hy::NewCategorySwatch(used, count));
    }
    void Remove(int pos) override { m_dlg.m_listCategories.DeleteItem(pos); }
    void Rename(int pos, const CString& name) override
    {
        // The item keeps its colour: read it before the item goes.
        const int swatch = m_dlg.m_listCategories.GetItemSwatchIndex(ItemText(m_dlg.m_listCategories, pos));
        m_dlg.m_listCategories.DeleteItem(pos);
        Select(m_dlg.m_listCategories.AddItem(name, swatch));
    }
    void Select(int pos) override
    {
        m_dlg.m_listCategories.SetCurSel(pos);
        m_dlg.OnListSelectionChange();
    }
    void MoveRecords(WORD wOld, WORD wNew) override { m_dlg.ReplaceCategoryID(wOld, wNew, 1); }
    void DeleteRecords(WORD wCategory) override { m_dlg.DeleteAllInCategory(wCategory); }

private:
    CHyUIColorCatMgmtDlg& m_dlg;
};

}  // namespace

IMPLEMENT_DYNAMIC(CHyUIColorCatMgmtDlg, CBaseDialog)

BEGIN_MESSAGE_MAP(CHyUIColorCatMgmtDlg, CBaseDialog)
    ON_BN_CLICKED(IDC_COLOR_CAT_NEW, OnBtnNew)
    ON_BN_CLICKED(IDC_COLOR_CAT_DELETE, OnBtnDelete)
    ON_BN_CLICKED(IDC_COLOR_CAT_RENAME, OnBtnRename)
    ON_LBN_DBLCLK(IDC_COLOR_CAT_LIST, OnOK)
    ON_LBN_SELCHANGE(IDC_COLOR_CAT_LIST, OnListSelectionChange)
    ON_COMMAND_RANGE(IDC_COLOR_CAT_SWATCH_FIRST, IDC_COLOR_CAT_SWATCH_LAST, OnBtnSwatch)
END_MESSAGE_MAP()

CHyUIColorCatMgmtDlg::CHyUIColorCatMgmtDlg(CCategoryMgr* pCategoryMgr, CBaseTable* pTable,
                                           const CString& captionName, CTernUIComponentView* pView,
                                           CWnd* pParent)
    : CBaseDialog(IDD_COLOR_CATEGORIES, pParent), m_wSelectedCatID(0xFFFF), m_nViewID(0),
      m_pCategoryMgr(pCategoryMgr), m_pTable(pTable), m_strCaptionName(captionName), m_pView(pView),
      m_bModified(0)
{
}

CHyUIColorCatMgmtDlg::~CHyUIColorCatMgmtDlg() = default;

BOOL CHyUIColorCatMgmtDlg::OnInitDialog()
{
    CBaseDialog::OnInitDialog();
    SetWindowText(hy::CategoryDialogCaption(m_strCaptionName));
    // The template's list is attached after it exists.
    m_listCategories.AttachToDialogItem(IDC_COLOR_CAT_LIST, this);

    for (int k = 0; k < HY_SWATCH_BUTTONS; ++k)
    {
        const int x = HY_SWATCH_BUTTON_LEFT + (k % 8) * HY_SWATCH_BUTTON_PITCH;
        const int y = HY_SWATCH_BUTTON_TOP + (k / 8) * HY_SWATCH_BUTTON_PITCH;
        const CRect rect(x, y, x + HY_SWATCH_BUTTON_SIZE, y + HY_SWATCH_BUTTON_SIZE);
        m_swatches[k].Create(HYThemeSwatchColor(g_hySwatchOrder[k]), WS_CHILD | WS_VISIBLE, rect, this,
                             IDC_COLOR_CAT_SWATCH_FIRST + k);
    }

    hy::ForEachListedCategory(m_pCategoryMgr, [this](const CString& name, WORD index) {
        m_listCategories.AddItem(name, HYThemeSwatchOfCategory(index));
    });
    m_listCategories.SetCurSel(0);
    OnListSelectionChange();
    return TRUE;
}

void CHyUIColorCatMgmtDlg::OnListSelectionChange()
{
    const int sel = m_listCategories.GetCurSel();
    if (sel < 0) return;
    const int swatch = m_listCategories.GetItemSwatchIndex(ItemText(m_listCategories, sel));
    for (int k = 0; k < HY_SWATCH_BUTTONS; ++k)
    {
        if (g_hySwatchOrder[k] == swatch)
        {
            SelectCurrentSwatch(IDC_COLOR_CAT_SWATCH_FIRST + k);
            return;
        }
    }
    // A colour outside the grid marks no swatch.
    SelectCurrentSwatch(0);
}

void CHyUIColorCatMgmtDlg::SelectCurrentSwatch(UINT nID)
{
    for (int k = 0; k < HY_SWATCH_BUTTONS; ++k)
        if (m_swatches[k].GetSafeHwnd() != NULL)
            m_swatches[k].Select(nID == static_cast<UINT>(IDC_COLOR_CAT_SWATCH_FIRST + k));
}

void CHyUIColorCatMgmtDlg::OnBtnSwatch(UINT nID)
{
    const int sel = m_listCategories.GetCurSel();
    if (sel < 0) return;   // no category to colour
    m_listCategories.ChangeItemSwatchIndex(sel, g_hySwatchOrder[nID - IDC_COLOR_CAT_SWATCH_FIRST]);
    SelectCurrentSwatch(nID);
    m_bModified = 1;
}

void CHyUIColorCatMgmtDlg::OnBtnNew()
{
    SwatchListAccess list(*this);
    hy::CategoryNew(hy::ContextOf(*this, list));
}

void CHyUIColorCatMgmtDlg::OnBtnDelete()
{
    SwatchListAccess list(*this);
    hy::CategoryDelete(hy::ContextOf(*this, list));
}

void CHyUIColorCatMgmtDlg::OnBtnRename()
{
    SwatchListAccess list(*this);
    hy::CategoryRename(hy::ContextOf(*this, list));
}

void CHyUIColorCatMgmtDlg::ReplaceCategoryID(WORD wOld, WORD wNew, int nFlag)
{
    hy::MoveCategoryRecords(m_pTable, m_pView, wOld, wNew, nFlag);
}

void CHyUIColorCatMgmtDlg::DeleteAllInCategory(WORD wCategory)
{
    hy::DeleteCategoryRecords(m_pTable, m_pView, wCategory);
}

void CHyUIColorCatMgmtDlg::OnOK()
{
    // The theme learns the colours here, and only here.
    for (int i = 0; i < m_listCategories.GetCount(); ++i)
    {
        const char* name = ItemText(m_listCategories, i);
        CCategory category;
        if (m_pCategoryMgr != NULL && m_pCategoryMgr->FindName(name, &category) == HYCAT_OK)
            HYThemeSetCategorySwatch(category.GetIndex(), m_listCategories.GetItemSwatchIndex(name));
    }
    SwatchListAccess list(*this);
    m_wSelectedCatID = hy::SelectedCategoryId(hy::ContextOf(*this, list));
    EndDialog(IDOK);
}
