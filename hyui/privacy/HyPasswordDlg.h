// The private-record password dialogs and the prompts that run them. The
// host's main window hands over the stored digest of the current user
// (message 0xBEC2); the dialog verifies what is typed with HyVerifyPassword.
#pragma once

#include <afxwin.h>
#include <HyBaseDialog.h>

#include "HyUIExport.h"

// Sent to the main window: wParam 2, lParam a zeroed 32-byte buffer the host
// fills with the stored digest; -1 answers "no password set".
#define HYWM_GET_PASSWORD_DIGEST    0xBEC2
#define HY_PASSWORD_DIGEST_REQUEST  2

// "Show Private Records" (template 20025), or "Enter Password" / "Edit
// Private Record" by its two title flags.
class HYUI_API CHyPasswordDlg : public CBaseDialog
{
    DECLARE_DYNAMIC(CHyPasswordDlg)
public:
    CHyPasswordDlg(const unsigned char* storedDigest, const CString& userName, int showEnterTitle,
                   int editTitle, CWnd* pParent = NULL);
    virtual ~CHyPasswordDlg();

    virtual BOOL OnInitDialog() override;
    virtual void OnOK() override;

protected:
    virtual void DoDataExchange(CDataExchange* pDX) override;
    DECLARE_MESSAGE_MAP()

public:
    CString password;                  // wiped as soon as it has been checked
    int showEnterTitle;
    int editTitle;
    CString userName;
    const unsigned char* storedDigest; // 32 bytes, not owned
};

// "Password" (template 548): a selection holds private records.
class HYUI_API CHyMaskPasswordDlg : public CBaseDialog
{
    DECLARE_DYNAMIC(CHyMaskPasswordDlg)
public:
    CHyMaskPasswordDlg(const unsigned char* storedDigest, const CString& userName, CWnd* pParent = NULL);
    virtual ~CHyMaskPasswordDlg();

    virtual BOOL OnInitDialog() override;
    virtual void OnOK() override;

protected:
    virtual void DoDataExchange(CDataExchange* pDX) override;

public:
    CString password;
    CString userName;
    const unsigned char* storedDigest;
};

// 1 when access is granted: no password set, or the right one typed.
// editMode switches the caption to "Edit Private Record".
HYUI_API int HyPromptForPassword(LPCSTR userName, CWnd* pParent, int editMode);
HYUI_API int HyPromptForPasswordWhileMasking(LPCSTR userName, CWnd* pParent);
