// New, Delete and Rename of the two category dialogs, the subscription
// lookups and the record moves. The order of every step matters: records
// move before their category goes, and a step the category manager refuses
// stops the action, so nothing is moved into or out of a category that did
// not change.
#include "HyCategoryActions.h"

#include <HyBaseDialog.h>
#include <HyBaseTable.h>
#include <HyCategoryMgr.h>
#include <HyComponentDoc.h>
#include <HySubInfo.h>
#include <HyCategoryRules.h>

#include "HyCatDlgRes.h"
#include "HyCatMgmtDlg.h"

namespace hy {
namespace {

CString HostString(UINT id) { return CBaseDialog::LoadHostString(id); }

// Host string id with %1 and %2 replaced.
CString FormatHost(UINT id, LPCTSTR first, LPCTSTR second = NULL)
{
    LPCTSTR texts[2] = { first, second != NULL ? second : _T("") };
    CString out;
    AfxFormatStrings(out, HostString(id), texts, second != NULL ? 2 : 1);
    return out;
}

int Ask(const CategoryDialogContext& ctx, const CString& text, UINT type)
{
    CString caption;
    ctx.dialog->GetWindowText(caption);
    return ctx.dialog->MessageBox(text, caption, type);
}

DWORD CreatorOfView(UINT viewId)
{
    switch (viewId)
    {
    case HY_VIEW_ADDRESS: return HY_CREATOR_ADDRESS;
    case HY_VIEW_MEMO: return HY_CREATOR_MEMO;
    default: return 0;   // other views have no handheld subscriptions
    }
}

// The component's subscription list for the dialog's user and view.
class Subscriptions
{
public:
    explicit Subscriptions(const CategoryDialogContext& ctx)
    {
        const DWORD creator = CreatorOfView(ctx.viewId);
        if (creator == 0 || ctx.userName == NULL || ctx.userName->IsEmpty()) return;
        char folder[MAX_PATH] = "";
        int size = sizeof folder;
        if (CmGetCreatorFolder(*ctx.userName, creator, folder, &size) != 0) return;
        CString path = folder;
        path += _T("\\");
        path += HostString(IDS_HOST_SUBSCRIPTION_FILE);
        m_loaded = SubLoadInfo(path, &m_info) == HYSUB_OK;
    }
    BOOL Has(const CString& category) { return m_loaded && SubFindInfo(&m_info, category) == HYSUB_OK; }
    void Remove(const CString& category)
    {
        if (SubRemoveInfo(&m_info, category) == HYSUB_OK) SubSaveInfo(&m_info);
    }
    CSubInfo* Info() { return &m_info; }

private:
    CSubInfo m_info;
    BOOL m_loaded = FALSE;
};

// The delete confirmation (host template 128): keep the records (394, the
// default, so Enter never deletes records) or delete them (395).
class CDeleteConfirmDlg : public CBaseDialog
{
public:
    CDeleteConfirmDlg(CWnd* parent, const CString& question, BOOL subscription)
        : CBaseDialog(IDD_HOST_CATEGORY_DELETE, parent), m_question(question), m_subscription(subscription)
    {
    }

    int m_nChoice = 0;   // 0 keep (move to category 0), 1 delete

    virtual BOOL OnInitDialog() override
    {
        CBaseDialog::OnInitDialog();
        SetWindowText(m_question);
        if (!m_subscription) DropSubscriptionNote();
        CWnd* keep = GetDlgItem(IDC_CATEGORY_KEEP_RECORDS);
        if (keep != NULL) GotoDlgCtrl(keep);
        return FALSE;   // the focus is set
    }

protected:
    virtual void DoDataExchange(CDataExchange* pDX) override
    {
        DDX_Radio(pDX, IDC_CATEGORY_KEEP_RECORDS, m_nChoice);
    }

private:
    void DropSubscriptionNote()
    {
        if (CWnd* note = GetDlgItem(IDC_CATEGORY_SUBSCRIPTION_NOTE))
        {
            note->SetWindowText(_T(""));
            note->ShowWindow(SW_HIDE);
        }
        CRect frame;
        GetWindowRect(&frame);
        MoveWindow(frame.left, frame.top, frame.Width(), frame.Height() - HY_DELETE_NOTE_BAND);
        static const int kMoved[] = { IDOK, IDCANCEL, IDC_CATEGORY_KEEP_RECORDS, IDC_CATEGORY_DELETE_RECORDS };
        for (int id : kMoved)
        {
            CWnd* control = GetDlgItem(id);
            if (control == NULL) continue;
            CRect r;
            control->GetWindowRect(&r);
            ScreenToClient(&r);
            r.OffsetRect(0, -HY_DELETE_NOTE_BAND);
            control->MoveWindow(&r);
        }
    }

    CString m_question;
    BOOL m_subscription;
};

// The selected row, or -1 after telling the person to select one first.
int SelectedOrRefuse(const CategoryDialogContext& ctx, UINT refusal)
{
    const int sel = ctx.list->Selected();
    if (sel < 0) AfxMessageBox(HostString(refusal), MB_OK);
    return sel;
}

}  // namespace

CString CategoryDialogCaption(const CString& captionName)
{
    CString templ = HostString(IDS_HOST_CATEGORY_CAPTION);
    return CString(CategoryCaption(std::string((LPCTSTR)templ), std::string((LPCTSTR)captionName)).c_str());
}

void CategoryNew(const CategoryDialogContext& ctx)
{
    // The count refusal comes before the name is asked for; index 0 counts.
    if (ctx.manager->GetCount() >= HYCAT_MAX_COUNT)
    {
        ctx.dialog->HostMessageBox(IDS_HOST_TOO_MANY, IDS_HOST_CATEGORIES, MB_OK | MB_ICONEXCLAMATION);
        return;
    }
    CHyUICatNewDialog ask(IDD_HOST_CATEGORY_NAME, ctx.dialog);
    if (ask.DoModal() != IDOK) return;
    const CString name = ask.GetName();

    CCategory existing;
    if (ctx.manager->FindName(name, &existing) != HYCAT_NOT_FOUND)
    {
        CString text = _T("'") + name + _T("'") + HostString(IDS_HOST_NAME_TAKEN);
        ctx.dialog->MessageBox(text, HostString(IDS_HOST_NAME_TAKEN_CAPTION), MB_OK | MB_ICONEXCLAMATION);
        return;
    }
    CCategory category;
    category.SetName(name);
    if (ctx.manager->Add(category) != HYCAT_OK) return;   // the manager's errors are not shown
    ctx.list->Select(ctx.list->Add(name));
}

void CategoryDelete(const CategoryDialogContext& ctx)
{
    const int sel = SelectedOrRefuse(ctx, IDS_HOST_SELECT_TO_DELETE);
    if (sel < 0) return;
    const CString name = ctx.list->Text(sel);
    Subscriptions subscriptions(ctx);
    const BOOL subscribed = subscriptions.Has(name);

    CDeleteConfirmDlg confirm(ctx.dialog, FormatHost(IDS_HOST_DELETE_QUESTION, name), subscribed);
    if (confirm.DoModal() != IDOK) return;

    CCategory category;
    if (ctx.manager->FindName(name, &category) != HYCAT_OK) return;
    const WORD id = category.GetIndex();
    if (subscribed) subscriptions.Remove(name);
    // A category the manager could not delete keeps its records.
    if (ctx.manager->Delete(id) != HYCAT_OK) return;
    if (confirm.m_nChoice == 1)
        ctx.list->DeleteRecords(id);
    else
        ctx.list->MoveRecords(id, 0);
    ctx.list->Remove(sel);
}

void CategoryRename(const CategoryDialogContext& ctx)
{
    const int sel = SelectedOrRefuse(ctx, IDS_HOST_SELECT_TO_RENAME);
    if (sel < 0) return;
    const CString oldName = ctx.list->Text(sel);
    Subscriptions subscriptions(ctx);
    const BOOL oldSubscribed = subscriptions.Has(oldName);

    CHyUICatRenameDialog ask(IDD_HOST_CATEGORY_NAME, ctx.dialog);
    ask.SetName(oldName);
    if (ask.DoModal() != IDOK) return;
    const CString newName = ask.GetName();

    CCategory old;
    if (ctx.manager->FindName(oldName, &old) != HYCAT_OK) return;
    CCategory target;
    int found = ctx.manager->FindName(newName, &target);
    if (found != HYCAT_NOT_FOUND && target.GetIndex() == old.GetIndex())
    {
        // The manager finds the category itself for the same text or a change
        // of case. Merging it into itself would delete it and orphan its
        // records: the same text does nothing, a change of case is a rename.
        if (newName == oldName) return;
        found = HYCAT_NOT_FOUND;
    }

    if (found == HYCAT_NOT_FOUND)
    {
        if (oldSubscribed)
        {
            if (Ask(ctx, FormatHost(IDS_HOST_RENAME_SUBSCRIPTION, newName, oldName),
                    MB_OKCANCEL | MB_ICONEXCLAMATION) != IDOK)
                return;
            // A failure is reported and the rename still goes on.
            if (SubDupSubscCategory(subscriptions.Info(), oldName, newName) != HYSUB_OK)
                Ask(ctx, FormatHost(IDS_HOST_SUBSCRIPTION_DUP_FAILED, newName, oldName), MB_OK | MB_ICONHAND);
            else if (SubUpdateInfo(subscriptions.Info(), oldName) != HYSUB_OK)
                Ask(ctx, FormatHost(IDS_HOST_SUBSCRIPTION_UPDATE_FAILED, newName, oldName), MB_OK | MB_ICONHAND);
        }
        if (ctx.manager->Rename(old.GetIndex(), newName) != HYCAT_OK) return;
        ctx.list->Rename(sel, newName);
        return;
    }

    // Another category has the name: merge into it.
    const BOOL targetSubscribed = subscriptions.Has(target.GetName());
    const int question = MergeQuestionId(oldSubscribed != FALSE, targetSubscribed != FALSE,
                                         std::string((LPCTSTR)oldName), std::string((LPCTSTR)newName));
    if (question != 0 && Ask(ctx, FormatHost(question, newName, oldName), MB_YESNO) == IDNO) return;
    ctx.list->MoveRecords(old.GetIndex(), target.GetIndex());
    if (oldSubscribed) subscriptions.Remove(oldName);
    ctx.manager->Delete(old.GetIndex());
    ctx.list->Remove(sel);
}

WORD SelectedCategoryId(const CategoryDialogContext& ctx)
{
    const int sel = ctx.list->Selected();
    CCategory category;
    if (sel < 0 || ctx.manager->FindName(ctx.list->Text(sel), &category) != HYCAT_OK) return 0xFFFF;
    return category.GetIndex();
}

void MoveCategoryRecords(CBaseTable* table, CTernUIComponentView* view, WORD wOld, WORD wNew, int nFlag)
{
    if (table == NULL)
    {
        if (view->GetSafeHwnd() != NULL) view->SendMessage(HYWM_CATEGORY_MOVE, wOld, wNew);
        return;
    }
    {
        CBaseIterator walk(table);   // one save, when the walk ends
        for (CBaseRecord* record = walk.FindFirst(nFlag); record != NULL; record = walk.FindNext(nFlag))
            if (record->GetCategoryId() == wOld) record->SetCategoryId(wNew);
    }
    CComponentDoc* doc = view != NULL ? view->GetDocument() : NULL;
    CUndoDeleteInfo* undo = doc != NULL ? doc->GetUndoObject() : NULL;
    if (undo != NULL && !undo->IsEmpty()) undo->ReplaceCategoryID(wOld, wNew);
}

void DeleteCategoryRecords(CBaseTable* table, CTernUIComponentView* view, WORD wCategory)
{
    if (table == NULL)
    {
        if (view->GetSafeHwnd() != NULL) view->SendMessage(HYWM_CATEGORY_DELETE, wCategory, 0);
        return;
    }
    {
        CBaseIterator walk(table);
        for (CBaseRecord* record = walk.FindFirst(HYREC_WRITE); record != NULL; record = walk.FindNext(HYREC_WRITE))
            if (record->GetCategoryId() == wCategory && !record->IsDeleted()) record->MarkDeleted(TRUE);
    }
    // An undo must not bring records back into a category that is gone.
    CComponentDoc* doc = view != NULL ? view->GetDocument() : NULL;
    CUndoDeleteInfo* undo = doc != NULL ? doc->GetUndoObject() : NULL;
    if (undo != NULL && !undo->IsEmpty()) undo->DeleteAllInCategory(wCategory);
}

void InitCategoryNameDialog(CBaseDialog* dialog, CTernEdit& edit)
{
    dialog->CenterWindow();
    edit.SendMessage(EM_LIMITTEXT, HYCAT_MAX_NAME);   // the control's own limit
    edit.SetMaxChars(HYCAT_MAX_NAME);                 // and the host edit's, for pasting
}

BOOL AcceptCategoryName(CBaseDialog* dialog, CString& name)
{
    name = TrimCategoryName(std::string((LPCTSTR)name)).c_str();
    if (!name.IsEmpty()) return TRUE;
    dialog->HostMessageBox(IDS_HOST_NAME_EMPTY, IDS_HOST_CATEGORIES, MB_OK | MB_ICONEXCLAMATION);
    if (CWnd* edit = dialog->GetDlgItem(IDC_CATEGORY_NAME)) dialog->GotoDlgCtrl(edit);
    return FALSE;
}

}  // namespace hy
