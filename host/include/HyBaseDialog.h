// CBaseDialog: a dialog of the host. Its template and its strings are looked
// up in the host's own resources (HyHost.dll) first and then along the
// framework's resource chain, so host dialogs keep their host wording while a
// library's dialogs derived from it still find their own templates.
#pragma once

#include <afxwin.h>
#include "HyHostExport.h"

class HYHOST_API CBaseDialog : public CDialog
{
    DECLARE_DYNAMIC(CBaseDialog)
public:
    CBaseDialog();
    explicit CBaseDialog(UINT nIDTemplate, CWnd* pParent = NULL);
    explicit CBaseDialog(LPCTSTR lpszTemplateName, CWnd* pParent = NULL);

    virtual INT_PTR DoModal() override;
    virtual BOOL Create(LPCTSTR lpszTemplateName, CWnd* pParentWnd = NULL) override;
    virtual BOOL Create(UINT nIDTemplate, CWnd* pParentWnd = NULL) override;

    // The host's resource module (HyHost.dll).
    static HINSTANCE GetHostResourceHandle();
    // A string from the host's resources, else from the resource chain;
    // FALSE (and an empty string) when neither has it.
    static BOOL LoadHostString(CString& rString, UINT nID);
    static CString LoadHostString(UINT nID);
    // A message box owned by this dialog with host strings for text and caption
    // (caption 0: the dialog's own caption).
    int HostMessageBox(UINT nIDText, UINT nIDCaption, UINT nType = MB_OK);

protected:
    // The template from the host's module, or null when it has none.
    static LPCDLGTEMPLATE FindHostTemplate(LPCTSTR lpszTemplateName);

    DECLARE_MESSAGE_MAP()
};
