// What the two category dialogs share: New, Delete and Rename with their
// refusals and questions, the subscription lookups, and the record moves.
// Internal to HyUI; each dialog supplies its list through CategoryListAccess.
#pragma once

#include <afxwin.h>

class CBaseDialog;
class CTernEdit;
class CCategoryMgr;
class CBaseTable;
class CTernUIComponentView;

namespace hy {

// The dialog's list of category names, whatever kind of list box it is.
class CategoryListAccess
{
public:
    virtual int Selected() const = 0;                 // LB_ERR when none
    virtual CString Text(int pos) const = 0;
    virtual int Add(const CString& name) = 0;         // a new category; answers its position
    virtual void Remove(int pos) = 0;
    virtual void Rename(int pos, const CString& name) = 0;   // keeps the item selected
    virtual void Select(int pos) = 0;
    // The dialog's (possibly overridden) record moves.
    virtual void MoveRecords(WORD wOld, WORD wNew) = 0;
    virtual void DeleteRecords(WORD wCategory) = 0;

protected:
    ~CategoryListAccess() = default;
};

// Everything one run of a category dialog works on.
struct CategoryDialogContext
{
    CBaseDialog* dialog;
    CCategoryMgr* manager;
    const CString* userName;
    UINT viewId;
    CategoryListAccess* list;
};

// The context of one of the category dialogs (their members share names).
template <class Dialog> CategoryDialogContext ContextOf(Dialog& dialog, CategoryListAccess& list)
{
    return { &dialog, dialog.m_pCategoryMgr, &dialog.m_strUserName, dialog.m_nViewID, &list };
}

// The caption from host string 285 and the caption name.
CString CategoryDialogCaption(const CString& captionName);
// Fills the list with every category but index 0, through add(name, index).
template <class AddFn> void ForEachListedCategory(CCategoryMgr* manager, AddFn add);

void CategoryNew(const CategoryDialogContext& ctx);
void CategoryDelete(const CategoryDialogContext& ctx);
void CategoryRename(const CategoryDialogContext& ctx);
// The selected item's category index, 0xFFFF when nothing is selected.
WORD SelectedCategoryId(const CategoryDialogContext& ctx);

// The record moves of both dialogs (table, else the view's messages).
void MoveCategoryRecords(CBaseTable* table, CTernUIComponentView* view, WORD wOld, WORD wNew, int nFlag);
void DeleteCategoryRecords(CBaseTable* table, CTernUIComponentView* view, WORD wCategory);

// The name dialogs' shared steps.
void InitCategoryNameDialog(CBaseDialog* dialog, CTernEdit& edit);
// TRUE when the typed name (trimmed in place) may be accepted; otherwise the
// refusal has been shown and the focus is back on the edit.
BOOL AcceptCategoryName(CBaseDialog* dialog, CString& name);

}  // namespace hy

#include <HyCategoryMgr.h>

template <class AddFn> void hy::ForEachListedCategory(CCategoryMgr* manager, AddFn add)
{
    if (manager == NULL) return;
    CCategory category;
    for (int rc = manager->FindFirst(&category); rc == HYCAT_OK; rc = manager->FindNext(&category))
        if (category.GetIndex() != 0) add(category.GetName(), category.GetIndex());
}
