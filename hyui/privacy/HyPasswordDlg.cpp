#include "HyPasswordDlg.h"

#include "HyPasswordCheck.h"
#include "HyUIRes.h"

namespace {

// Overwrites a string's characters before its buffer is let go.
void WipeString(CString& s)
{
    const int n = s.GetLength();
    if (n > 0)
        hy::WipeBytes(s.GetBuffer(n), (size_t)n);
    s.Empty();
}

// Both dialogs exchange the same field, limited alike.
void ExchangePassword(CDataExchange* pDX, CString& password)
{
    DDX_Text(pDX, IDC_PASSWORD_EDIT, password);
    DDV_MaxChars(pDX, password, hy::kPasswordMaxChars);
}

void ShowUserName(CDialog& dlg, const CString& userName)
{
    dlg.SetDlgItemText(IDC_PASSWORD_USER_NAME, userName);
    if (CWnd* edit = dlg.GetDlgItem(IDC_PASSWORD_EDIT))
        edit->SetFocus();
}

// OK in both dialogs: exchange, verify, then close or complain. The typed
// text is wiped from the member whatever the outcome; a wrong password keeps
// the dialog open with the text selected, as often as it is retried.
void CheckPasswordAndClose(CDialog& dlg, CString& password, const unsigned char* storedDigest)
{
    WipeString(password);   // an earlier attempt's buffer is overwritten, not just freed
    if (!dlg.UpdateData(TRUE))
        return;
    const int granted = HyVerifyPassword(storedDigest, password);
    WipeString(password);
    CWnd* edit = dlg.GetDlgItem(IDC_PASSWORD_EDIT);
    if (!granted)
    {
        // A plain box, with no icon, is intended.
        AfxMessageBox(IDS_PASSWORD_INCORRECT, MB_OK);
        if (edit != NULL)
            dlg.SendMessage(WM_NEXTDLGCTL, (WPARAM)edit->GetSafeHwnd(), TRUE);
        return;
    }
    if (edit != NULL)
    {
        // The edit's own copy: overwritten in place, then emptied.
        const int n = edit->GetWindowTextLength();
        edit->SetWindowText(CString('*', n));
        edit->SetWindowText("");
    }
    dlg.EndDialog(IDOK);
}

// Asks the main window for the stored digest; empty names are refused after
// the request and before its answer is looked at, an order that is intended.
template <class Run>
int Prompt(LPCSTR userName, Run run)
{
    CWnd* main = AfxGetMainWnd();
    if (main == NULL || main->GetSafeHwnd() == NULL)
        return 0;
    unsigned char digest[hy::kPasswordDigestBytes] = {};
    const LRESULT answer = main->SendMessage(HYWM_GET_PASSWORD_DIGEST, HY_PASSWORD_DIGEST_REQUEST, (LPARAM)digest);
    int granted = 0;
    if (userName != NULL && userName[0] != '\0')
        granted = answer == -1 ? 1 : (run(digest) == IDOK ? 1 : 0);
    hy::WipeBytes(digest, sizeof digest);
    return granted;
}

}  // namespace

// ---- CHyPasswordDlg --------------------------------------------------------

IMPLEMENT_DYNAMIC(CHyPasswordDlg, CBaseDialog)

BEGIN_MESSAGE_MAP(CHyPasswordDlg, CBaseDialog)
    ON_COMMAND(IDC_HELP_BUTTON, OnHelp)
END_MESSAGE_MAP()

CHyPasswordDlg::CHyPasswordDlg(const unsigned char* digest, const CString& name, int enterTitle, int editTitleIn,
                               CWnd* pParent)
    : CBaseDialog(IDD_PASSWORD, pParent), showEnterTitle(enterTitle), editTitle(editTitleIn), userName(name),
      storedDigest(digest)
{
}

CHyPasswordDlg::~CHyPasswordDlg() { WipeString(password); }

void CHyPasswordDlg::DoDataExchange(CDataExchange* pDX)
{
    CBaseDialog::DoDataExchange(pDX);
    ExchangePassword(pDX, password);
}

BOOL CHyPasswordDlg::OnInitDialog()
{
    CBaseDialog::OnInitDialog();
    CString caption;
    if (showEnterTitle && caption.LoadString(IDS_PASSWORD_ENTER_TITLE))
    {
        SetWindowText(caption);
        m_nIDHelp = IDD_PASSWORD_ENTER_HELP;
    }
    // Applied second, so it wins when both are set.
    if (editTitle && caption.LoadString(IDS_PASSWORD_EDIT_TITLE))
        SetWindowText(caption);
    ShowUserName(*this, userName);
    return FALSE;   // the focus was set by hand
}

void CHyPasswordDlg::OnOK() { CheckPasswordAndClose(*this, password, storedDigest); }

// ---- CHyMaskPasswordDlg ----------------------------------------------------

IMPLEMENT_DYNAMIC(CHyMaskPasswordDlg, CBaseDialog)

CHyMaskPasswordDlg::CHyMaskPasswordDlg(const unsigned char* digest, const CString& name, CWnd* pParent)
    : CBaseDialog(IDD_PASSWORD_MASKING, pParent), userName(name), storedDigest(digest)
{
}

CHyMaskPasswordDlg::~CHyMaskPasswordDlg() { WipeString(password); }

void CHyMaskPasswordDlg::DoDataExchange(CDataExchange* pDX)
{
    CBaseDialog::DoDataExchange(pDX);
    ExchangePassword(pDX, password);
}

BOOL CHyMaskPasswordDlg::OnInitDialog()
{
    CBaseDialog::OnInitDialog();
    ShowUserName(*this, userName);
    return FALSE;
}

void CHyMaskPasswordDlg::OnOK() { CheckPasswordAndClose(*this, password, storedDigest); }

// ---- the prompts -----------------------------------------------------------

int HyPromptForPassword(LPCSTR userName, CWnd* pParent, int editMode)
{
    return Prompt(userName, [&](const unsigned char* digest) {
        // The prompt never asks for the "Enter Password" caption.
        CHyPasswordDlg dlg(digest, userName, 0, editMode, pParent);
        return dlg.DoModal();
    });
}

int HyPromptForPasswordWhileMasking(LPCSTR userName, CWnd* pParent)
{
    return Prompt(userName, [&](const unsigned char* digest) {
        CHyMaskPasswordDlg dlg(digest, userName, pParent);
        return dlg.DoModal();
    });
}
