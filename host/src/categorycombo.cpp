// CCategoryCombo: the host's drop-down list of the categories of a manager.
#include <afxwin.h>
#include "HyBaseDialog.h"
#include "HyCategoryCombo.h"
#include "HyCategoryMgr.h"

namespace {
constexpr UINT kIdsAll = 278;    // "All"
constexpr UINT kIdsEdit = 277;   // "Edit Categories..."
}  // namespace

IMPLEMENT_DYNAMIC(CCategoryCombo, CComboBox)

CCategoryCombo::CCategoryCombo() : m_pCategoryMgr(nullptr) {}

CCategoryCombo::~CCategoryCombo() {}

int CCategoryCombo::Fill(BOOL bWithAll, BOOL bWithEdit)
{
    ResetContent();
    // Without CBS_HASSTRINGS the "string" of an item is its data.
    if (bWithAll)
        InsertString(-1, (LPCTSTR)(DWORD_PTR)HYCATCOMBO_ALL);
    if (bWithEdit)
        InsertString(-1, (LPCTSTR)(DWORD_PTR)HYCATCOMBO_EDIT);
    if (m_pCategoryMgr != nullptr)
    {
        CCategory category;
        for (int rc = m_pCategoryMgr->FindFirst(&category); rc == HYCAT_OK; rc = m_pCategoryMgr->FindNext(&category))
            InsertString(-1, (LPCTSTR)(DWORD_PTR)category.GetIndex());
    }
    return GetCount();
}

int CCategoryCombo::FindIndex(DWORD_PTR wIndex) const
{
    const int count = GetCount();
    for (int i = 0; i < count; ++i)
        if (GetItemData(i) == wIndex)
            return i;
    return CB_ERR;
}

CString CCategoryCombo::GetItemName(DWORD_PTR dwData) const
{
    if (dwData == HYCATCOMBO_ALL)
        return CBaseDialog::LoadHostString(kIdsAll);
    if (dwData == HYCATCOMBO_EDIT)
        return CBaseDialog::LoadHostString(kIdsEdit);
    CCategory category;
    if (m_pCategoryMgr != nullptr && dwData <= 0xFFFF && m_pCategoryMgr->FindIndex((WORD)dwData, &category) == HYCAT_OK)
        return category.GetName();
    return CString();
}

void CCategoryCombo::DrawItem(LPDRAWITEMSTRUCT lpDIS)
{
    CDC* pDC = CDC::FromHandle(lpDIS->hDC);
    const CRect r = lpDIS->rcItem;
    const bool selected = (lpDIS->itemState & ODS_SELECTED) != 0;
    const int saved = pDC->SaveDC();
    pDC->FillSolidRect(&r, ::GetSysColor(selected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
    if (lpDIS->itemID != (UINT)-1)
    {
        pDC->SetTextColor(::GetSysColor(selected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
        pDC->SetBkMode(TRANSPARENT);
        CRect text(r.left + 2, r.top, r.right, r.bottom);
        pDC->DrawText(GetItemName(lpDIS->itemData), &text, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
    }
    if ((lpDIS->itemState & ODS_FOCUS) != 0)
        pDC->DrawFocusRect(&r);
    pDC->RestoreDC(saved);
}

void CCategoryCombo::MeasureItem(LPMEASUREITEMSTRUCT lpMIS)
{
    // The first measure comes during creation, before the list has a font of its own.
    CClientDC dc(m_hWnd != nullptr ? this : nullptr);
    CFont* font = m_hWnd != nullptr ? GetFont() : nullptr;
    CFont* old = font != nullptr ? dc.SelectObject(font) : nullptr;
    TEXTMETRIC tm;
    dc.GetTextMetrics(&tm);
    if (old != nullptr)
        dc.SelectObject(old);
    lpMIS->itemHeight = (UINT)(tm.tmHeight + 2);
}
