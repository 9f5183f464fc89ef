// CBaseDialog: host dialogs whose templates and strings come from HyHost.dll
// before the resource chain.
#include <afxwin.h>
#include "HyBaseDialog.h"

IMPLEMENT_DYNAMIC(CBaseDialog, CDialog)

BEGIN_MESSAGE_MAP(CBaseDialog, CDialog)
END_MESSAGE_MAP()

CBaseDialog::CBaseDialog() {}
CBaseDialog::CBaseDialog(UINT nIDTemplate, CWnd* pParent) : CDialog(nIDTemplate, pParent) {}
CBaseDialog::CBaseDialog(LPCTSTR lpszTemplateName, CWnd* pParent) : CDialog(lpszTemplateName, pParent) {}

HINSTANCE CBaseDialog::GetHostResourceHandle()
{
    static HINSTANCE s_hHost = [] {
        HMODULE h = nullptr;
        ::GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                             reinterpret_cast<LPCSTR>(&CBaseDialog::GetHostResourceHandle), &h);
        return static_cast<HINSTANCE>(h);
    }();
    return s_hHost;
}

LPCDLGTEMPLATE CBaseDialog::FindHostTemplate(LPCTSTR lpszTemplateName)
{
    if (lpszTemplateName == nullptr)
        return nullptr;
    HINSTANCE hHost = GetHostResourceHandle();
    HRSRC hRsrc = ::FindResourceA(hHost, lpszTemplateName, RT_DIALOG);
    HGLOBAL hGlobal = hRsrc != nullptr ? ::LoadResource(hHost, hRsrc) : nullptr;
    return hGlobal != nullptr ? static_cast<LPCDLGTEMPLATE>(::LockResource(hGlobal)) : nullptr;
}

INT_PTR CBaseDialog::DoModal()
{
    LPCDLGTEMPLATE lpHost = FindHostTemplate(m_lpszTemplateName);
    if (lpHost == nullptr)
        return CDialog::DoModal();   // the chain's template, as any dialog
    // Run from the host's copy, then look as constructed again.
    LPCTSTR lpszName = m_lpszTemplateName;
    LPCDLGTEMPLATE lpOld = m_lpDialogTemplate;
    m_lpDialogTemplate = lpHost;
    m_lpszTemplateName = nullptr;
    INT_PTR result = CDialog::DoModal();
    m_lpszTemplateName = lpszName;
    m_lpDialogTemplate = lpOld;
    return result;
}

BOOL CBaseDialog::Create(LPCTSTR lpszTemplateName, CWnd* pParentWnd)
{
    LPCDLGTEMPLATE lpHost = FindHostTemplate(lpszTemplateName);
    if (lpHost == nullptr)
        return CDialog::Create(lpszTemplateName, pParentWnd);
    m_lpszTemplateName = lpszTemplateName;
    return CreateIndirect(lpHost, pParentWnd);
}

BOOL CBaseDialog::Create(UINT nIDTemplate, CWnd* pParentWnd)
{
    m_nIDHelp = nIDTemplate;
    return Create(MAKEINTRESOURCE(nIDTemplate), pParentWnd);
}

BOOL CBaseDialog::LoadHostString(CString& rString, UINT nID)
{
    char buf[1024];
    int n = ::LoadStringA(GetHostResourceHandle(), nID, buf, sizeof buf);
    if (n > 0)
    {
        rString = CString(buf, n);
        return TRUE;
    }
    if (rString.LoadString(nID))
        return TRUE;
    rString.Empty();
    return FALSE;
}

CString CBaseDialog::LoadHostString(UINT nID)
{
    CString s;
    LoadHostString(s, nID);
    return s;
}

int CBaseDialog::HostMessageBox(UINT nIDText, UINT nIDCaption, UINT nType)
{
    CString text = LoadHostString(nIDText);
    CString caption;
    if (nIDCaption != 0)
        caption = LoadHostString(nIDCaption);
    else if (m_hWnd != nullptr)
        GetWindowText(caption);
    return ::MessageBoxA(GetSafeHwnd(), text, caption, nType);
}
