// HyAfx: dialogs (modal and modeless, from templates found through the
// resource chain) and dialog data exchange.
#include "afximpl.h"
#include <stdlib.h>
#include <errno.h>

IMPLEMENT_DYNAMIC(CDialog, CWnd)

BEGIN_MESSAGE_MAP(CDialog, CWnd)
    ON_COMMAND(IDOK, OnOK)
    ON_COMMAND(IDCANCEL, OnCancel)
    ON_MESSAGE(WM_COMMANDHELP, OnCommandHelp)
END_MESSAGE_MAP()

// The dialog's own context when none is given; nothing when it has no help id.
LRESULT CDialog::OnCommandHelp(WPARAM, LPARAM lParam)
{
    if (lParam == 0 && m_nIDHelp != 0)
        lParam = HID_BASE_RESOURCE + m_nIDHelp;
    CWinApp* app = AfxGetApp();
    if (lParam == 0 || app == nullptr)
        return FALSE;
    app->WinHelp((DWORD_PTR)lParam, HELP_CONTEXT);
    return TRUE;
}

CDialog::CDialog()
    : m_lpszTemplateName(nullptr), m_nIDHelp(0), m_pParentWnd(nullptr), m_lpDialogTemplate(nullptr)
{
}

CDialog::CDialog(LPCTSTR lpszTemplateName, CWnd* pParentWnd)
    : m_lpszTemplateName(lpszTemplateName), m_nIDHelp(0), m_pParentWnd(pParentWnd),
      m_lpDialogTemplate(nullptr)
{
    if (IS_INTRESOURCE(lpszTemplateName))
        m_nIDHelp = (UINT)(UINT_PTR)lpszTemplateName;
}

CDialog::CDialog(UINT nIDTemplate, CWnd* pParentWnd)
    : m_lpszTemplateName(MAKEINTRESOURCE(nIDTemplate)), m_nIDHelp(nIDTemplate),
      m_pParentWnd(pParentWnd), m_lpDialogTemplate(nullptr)
{
}

CDialog::~CDialog()
{
    if (m_hWnd != nullptr)
        DestroyWindow();
}

INT_PTR CALLBACK CDialog::AfxDlgProc(HWND hWnd, UINT message, WPARAM, LPARAM)
{
    if (message != WM_INITDIALOG)
        return FALSE;
    CWnd* pWnd = CWnd::FromHandlePermanent(hWnd);
    CDialog* pDlg = pWnd && pWnd->IsKindOf(RUNTIME_CLASS(CDialog)) ? static_cast<CDialog*>(pWnd) : nullptr;
    return pDlg != nullptr ? pDlg->OnInitDialog() : TRUE;
}

BOOL CDialog::CreateFromTemplate(LPCDLGTEMPLATE lpTemplate, HINSTANCE hInst, CWnd* pParentWnd)
{
    ASSERT(m_hWnd == nullptr);   // one dialog an object
    AfxHookWindowCreate(this);
    HWND hWnd = ::CreateDialogIndirectParam(hInst, lpTemplate, pParentWnd->GetSafeHwnd(), AfxDlgProc, 0);
    AfxUnhookWindowCreate();
    if (hWnd == nullptr && m_hWnd != nullptr)
        Detach();
    return hWnd != nullptr;
}

static LPCDLGTEMPLATE LoadTemplate(LPCTSTR lpszTemplateName, HINSTANCE* phInst)
{
    HINSTANCE hInst = AfxFindResourceHandle(lpszTemplateName, RT_DIALOG);
    HRSRC hRsrc = ::FindResource(hInst, lpszTemplateName, RT_DIALOG);
    if (hRsrc == nullptr)
        return nullptr;
    HGLOBAL hGlobal = ::LoadResource(hInst, hRsrc);
    *phInst = hInst;
    return hGlobal ? (LPCDLGTEMPLATE)::LockResource(hGlobal) : nullptr;
}

BOOL CDialog::Create(LPCTSTR lpszTemplateName, CWnd* pParentWnd)
{
    m_lpszTemplateName = lpszTemplateName;
    if (pParentWnd == nullptr)
        pParentWnd = AfxGetMainWnd();
    m_pParentWnd = pParentWnd;
    HINSTANCE hInst = nullptr;
    LPCDLGTEMPLATE lpTemplate = LoadTemplate(lpszTemplateName, &hInst);
    return lpTemplate != nullptr && CreateFromTemplate(lpTemplate, hInst, pParentWnd);
}

BOOL CDialog::Create(UINT nIDTemplate, CWnd* pParentWnd)
{
    m_nIDHelp = nIDTemplate;
    return Create(MAKEINTRESOURCE(nIDTemplate), pParentWnd);
}

BOOL CDialog::CreateIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd)
{
    if (pParentWnd == nullptr)
        pParentWnd = AfxGetMainWnd();
    m_pParentWnd = pParentWnd;
    return CreateFromTemplate(lpDialogTemplate, AfxGetResourceHandle(), pParentWnd);
}

BOOL CDialog::InitModalIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd)
{
    m_lpDialogTemplate = lpDialogTemplate;
    m_lpszTemplateName = nullptr;
    m_pParentWnd = pParentWnd;
    return TRUE;
}

HWND CDialog::PreModal()
{
    // The owner: the given parent's top-level window, else the main window.
    HWND hWnd = m_pParentWnd->GetSafeHwnd();
    if (hWnd == nullptr)
        if (CWnd* pMain = AfxGetMainWnd())
            hWnd = pMain->GetSafeHwnd();
    if (hWnd != nullptr)
        hWnd = ::GetAncestor(hWnd, GA_ROOT);
    return hWnd;
}

void CDialog::PostModal() { AfxDeleteTempMaps(); }

INT_PTR CDialog::DoModal()
{
    HINSTANCE hInst = AfxGetResourceHandle();
    LPCDLGTEMPLATE lpTemplate = m_lpDialogTemplate;
    if (m_lpszTemplateName != nullptr)
        lpTemplate = LoadTemplate(m_lpszTemplateName, &hInst);
    if (lpTemplate == nullptr)
        return -1;

    HWND hWndOwner = PreModal();
    BOOL bEnableOwner = FALSE;
    if (hWndOwner != nullptr && ::IsWindowEnabled(hWndOwner))
    {
        ::EnableWindow(hWndOwner, FALSE);
        bEnableOwner = TRUE;
    }

    m_nModalResult = -1;
    m_nFlags |= WF_CONTINUEMODAL;
    if (CreateFromTemplate(lpTemplate, hInst, CWnd::FromHandle(hWndOwner)) && ContinueModal())
    {
        DWORD dwFlags = MLF_SHOWONIDLE;
        if (GetStyle() & DS_NOIDLEMSG)
            dwFlags |= MLF_NOIDLEMSG;
        RunModalLoop(dwFlags);
    }
    m_nFlags &= ~(WF_MODALLOOP | WF_CONTINUEMODAL);

    if (m_hWnd != nullptr)
        ::SetWindowPos(m_hWnd, nullptr, 0, 0, 0, 0,
                       SWP_HIDEWINDOW | SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE | SWP_NOZORDER);
    if (bEnableOwner)
        ::EnableWindow(hWndOwner, TRUE);
    if (hWndOwner != nullptr && ::GetActiveWindow() == m_hWnd)
        ::SetActiveWindow(hWndOwner);
    DestroyWindow();
    PostModal();
    return m_nModalResult;
}

void CDialog::EndDialog(int nResult)
{
    ASSERT_LIVE_WINDOW();
    if (m_nFlags & (WF_MODALLOOP | WF_CONTINUEMODAL))
        EndModalLoop(nResult);
    else
        ::EndDialog(m_hWnd, nResult);
}

BOOL CDialog::OnInitDialog()
{
    UpdateData(FALSE);
    return TRUE;   // the dialog manager puts the focus on the first control
}

void CDialog::OnOK()
{
    if (!UpdateData(TRUE))
        return;   // a refused field keeps the dialog open
    EndDialog(IDOK);
}

void CDialog::OnCancel() { EndDialog(IDCANCEL); }
void CDialog::OnSetFont(CFont*) {}

BOOL CDialog::PreTranslateMessage(MSG* pMsg)
{
    // Keyboard navigation of the dialog (Tab, arrows, Enter, Escape, mnemonics).
    if (pMsg->message >= WM_KEYFIRST && pMsg->message <= WM_KEYLAST && m_hWnd != nullptr &&
        (pMsg->hwnd == m_hWnd || ::IsChild(m_hWnd, pMsg->hwnd)))
        return ::IsDialogMessage(m_hWnd, pMsg);
    return FALSE;
}

void CDialog::NextDlgCtrl() const { ::SendMessage(m_hWnd, WM_NEXTDLGCTL, 0, 0); }
void CDialog::PrevDlgCtrl() const { ::SendMessage(m_hWnd, WM_NEXTDLGCTL, 1, 0); }
void CDialog::GotoDlgCtrl(CWnd* pWndCtrl) { ::SendMessage(m_hWnd, WM_NEXTDLGCTL, (WPARAM)pWndCtrl->GetSafeHwnd(), 1); }
void CDialog::SetDefID(UINT nID) { ::SendMessage(m_hWnd, DM_SETDEFID, nID, 0); }
DWORD CDialog::GetDefID() const { return (DWORD)::SendMessage(m_hWnd, DM_GETDEFID, 0, 0); }
void CDialog::MapDialogRect(LPRECT lpRect) const { ::MapDialogRect(m_hWnd, lpRect); }

// ---- data exchange ----
BOOL CWnd::UpdateData(BOOL bSaveAndValidate)
{
    CDataExchange dx(this, bSaveAndValidate);
    DoDataExchange(&dx);
    return !dx.m_bFailed;
}

void CWnd::DoDataExchange(CDataExchange*) {}

CDataExchange::CDataExchange(CWnd* pDlgWnd, BOOL bSaveAndValidate)
    : m_bSaveAndValidate(bSaveAndValidate), m_pDlgWnd(pDlgWnd), m_hWndLastControl(nullptr),
      m_bEditLastControl(FALSE), m_bFailed(FALSE)
{
}

HWND CDataExchange::PrepareCtrl(int nIDC)
{
    HWND hWnd = ::GetDlgItem(m_pDlgWnd->GetSafeHwnd(), nIDC);
    ASSERT(hWnd != nullptr);   // an exchange with a control the dialog does not have
    m_hWndLastControl = hWnd;
    m_bEditLastControl = FALSE;
    return hWnd;
}

HWND CDataExchange::PrepareEditCtrl(int nIDC)
{
    HWND hWnd = PrepareCtrl(nIDC);
    m_bEditLastControl = TRUE;
    return hWnd;
}

void CDataExchange::Fail()
{
    if (m_bSaveAndValidate && m_hWndLastControl != nullptr)
    {
        // Back to the offending field, its text selected for retyping.
        if (m_pDlgWnd->IsKindOf(RUNTIME_CLASS(CDialog)))
            ::SendMessage(m_pDlgWnd->m_hWnd, WM_NEXTDLGCTL, (WPARAM)m_hWndLastControl, 1);
        else
            ::SetFocus(m_hWndLastControl);
        if (m_bEditLastControl)
            ::SendMessage(m_hWndLastControl, EM_SETSEL, 0, -1);
    }
    m_bFailed = TRUE;
}

static CString ControlText(HWND hWnd)
{
    CString s;
    if (hWnd != nullptr)
        CWnd::FromHandle(hWnd)->GetWindowText(s);
    return s;
}

void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, CString& value)
{
    if (pDX->m_bFailed)
        return;
    HWND hWnd = pDX->PrepareEditCtrl(nIDC);
    if (pDX->m_bSaveAndValidate)
        value = ControlText(hWnd);
    else
        ::SetWindowText(hWnd, value);
}

// Parses a whole decimal number (surrounding blanks allowed).
static BOOL ParseLong(const CString& text, long long& out)
{
    CString t = text;
    t.TrimLeft();
    t.TrimRight();
    if (t.IsEmpty())
        return FALSE;
    char* end = nullptr;
    errno = 0;
    long long v = strtoll(t, &end, 10);
    if (errno != 0 || end == nullptr || *end != 0)
        return FALSE;
    out = v;
    return TRUE;
}

static void FailWithPrompt(CDataExchange* pDX, UINT nIDPrompt)
{
    AfxMessageBox(AfxLoadFrameworkString(nIDPrompt), MB_ICONEXCLAMATION, nIDPrompt);
    pDX->Fail();
}

template <typename T>
static void TextNumber(CDataExchange* pDX, int nIDC, T& value, long long lo, long long hi, UINT nIDPrompt,
                       const char* fmt)
{
    if (pDX->m_bFailed)
        return;
    HWND hWnd = pDX->PrepareEditCtrl(nIDC);
    if (pDX->m_bSaveAndValidate)
    {
        long long v = 0;
        if (!ParseLong(ControlText(hWnd), v) || v < lo || v > hi)
            FailWithPrompt(pDX, nIDPrompt);
        else
            value = (T)v;
    }
    else
    {
        CString s;
        s.Format(fmt, value);
        ::SetWindowText(hWnd, s);
    }
}

void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, int& value)
{ TextNumber(pDX, nIDC, value, INT_MIN, INT_MAX, AFX_IDP_PARSE_INT, "%d"); }
void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, long& value)
{ TextNumber(pDX, nIDC, value, LONG_MIN, LONG_MAX, AFX_IDP_PARSE_INT, "%ld"); }
void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, UINT& value)
{ TextNumber(pDX, nIDC, value, 0, UINT_MAX, AFX_IDP_PARSE_UINT, "%u"); }

void AFXAPI DDX_Check(CDataExchange* pDX, int nIDC, int& value)
{
    if (pDX->m_bFailed)
        return;
    HWND hWnd = pDX->PrepareCtrl(nIDC);
    if (pDX->m_bSaveAndValidate)
        value = (int)::SendMessage(hWnd, BM_GETCHECK, 0, 0);
    else
        ::SendMessage(hWnd, BM_SETCHECK, (WPARAM)value, 0);
}

void AFXAPI DDX_Radio(CDataExchange* pDX, int nIDC, int& value)
{
    if (pDX->m_bFailed)
        return;
    HWND hWnd = pDX->PrepareCtrl(nIDC);
    if (pDX->m_bSaveAndValidate)
        value = -1;
    // The group runs from nIDC to the next control with WS_GROUP.
    int index = 0;
    for (HWND h = hWnd; h != nullptr; h = ::GetWindow(h, GW_HWNDNEXT), ++index)
    {
        if (h != hWnd && (::GetWindowLong(h, GWL_STYLE) & WS_GROUP))
            break;
        if (!(::SendMessage(h, WM_GETDLGCODE, 0, 0) & DLGC_RADIOBUTTON))
            continue;
        if (pDX->m_bSaveAndValidate)
        {
            if (::SendMessage(h, BM_GETCHECK, 0, 0) == BST_CHECKED)
                value = index;
        }
        else
            ::SendMessage(h, BM_SETCHECK, index == value ? BST_CHECKED : BST_UNCHECKED, 0);
    }
}

void AFXAPI DDX_Control(CDataExchange* pDX, int nIDC, CWnd& rControl)
{
    if (rControl.m_hWnd != nullptr || pDX->m_bFailed)
        return;
    HWND hWnd = pDX->PrepareCtrl(nIDC);
    if (hWnd != nullptr)
        rControl.SubclassWindow(hWnd);
}

void AFXAPI DDV_MaxChars(CDataExchange* pDX, CString const& value, int nChars)
{
    if (pDX->m_bFailed)
        return;
    if (pDX->m_bSaveAndValidate && value.GetLength() > nChars)
    {
        CString count, prompt;
        count.Format("%d", nChars);
        prompt = AfxLoadFrameworkString(AFX_IDP_PARSE_STRING_SIZE);
        prompt.Replace("%1", count);
        AfxMessageBox(prompt, MB_ICONEXCLAMATION, AFX_IDP_PARSE_STRING_SIZE);
        pDX->Fail();
    }
    else if (!pDX->m_bSaveAndValidate && pDX->m_hWndLastControl != nullptr && pDX->m_bEditLastControl)
        ::SendMessage(pDX->m_hWndLastControl, EM_LIMITTEXT, (WPARAM)nChars, 0);
}

void AFXAPI DDV_MinMaxInt(CDataExchange* pDX, int value, int minVal, int maxVal)
{
    if (pDX->m_bFailed || !pDX->m_bSaveAndValidate || (value >= minVal && value <= maxVal))
        return;
    CString lo, hi, prompt;
    lo.Format("%d", minVal);
    hi.Format("%d", maxVal);
    prompt = AfxLoadFrameworkString(AFX_IDP_PARSE_INT_RANGE);
    prompt.Replace("%1", lo);
    prompt.Replace("%2", hi);
    AfxMessageBox(prompt, MB_ICONEXCLAMATION, AFX_IDP_PARSE_INT_RANGE);
    pDX->Fail();
}
