// CBaseDialog: templates and strings from HyHost.dll first, then the resource
// chain; dialogs run through the real modal loop.
#include <afxwin.h>
#include <gtest/gtest.h>
#include "hytest.h"
#include "hytest_afx.h"
#include "HyBaseDialog.h"

#include <string>
#include <utility>
#include <vector>

namespace {

constexpr UINT kHostTemplate = 109;     // in HyHost.dll
constexpr UINT kChainOnly = 4242;       // only in the chain module below
constexpr UINT kNowhere = 4343;
constexpr int kNameEdit = 142;

std::string Caption(HWND h)
{
    char buf[128] = {};
    ::GetWindowTextA(h, buf, sizeof buf);
    return buf;
}

// A resource module in the chain (the application's resource module for the
// test's duration) holding its own copy of template 109 and template 4242.
class ChainModule
{
public:
    ChainModule() : m_module(::LoadLibraryExA("chain_second.dll", nullptr, LOAD_LIBRARY_AS_DATAFILE))
    {
        EXPECT_NE(nullptr, m_module);
        AfxSetResourceHandle(m_module);
    }
    ~ChainModule()
    {
        AfxSetResourceHandle(m_saved);
        ::FreeLibrary(m_module);
    }

private:
    HMODULE m_module;
    HINSTANCE m_saved = AfxGetResourceHandle();
};

// The new-category dialog as a host would write it.
class CNameDialog : public CBaseDialog
{
public:
    CNameDialog() : CBaseDialog(kHostTemplate) {}
    CString m_name;
    int refusals = 0;

protected:
    void DoDataExchange(CDataExchange* pDX) override { DDX_Text(pDX, kNameEdit, m_name); }
    void OnOK() override
    {
        CString text;
        GetDlgItemText(kNameEdit, text);
        if (text.IsEmpty())
        {
            ++refusals;
            HostMessageBox(183, 182, MB_ICONEXCLAMATION);
            return;
        }
        CBaseDialog::OnOK();
    }
};

struct Shown
{
    std::string caption;
    bool hasNameEdit = false;
};

Shown RunAndCancel(CDialog& dlg, INT_PTR* result)
{
    Shown shown;
    hytest::DialogDriver driver([&](HWND h) {
        shown.caption = Caption(h);
        shown.hasNameEdit = ::GetDlgItem(h, kNameEdit) != nullptr;
        ::PostMessage(h, WM_COMMAND, IDCANCEL, 0);
    });
    *result = dlg.DoModal();
    return shown;
}

void WarmUpDialogs()
{
    for (int round = 0; round < 2; ++round)
    {
        CBaseDialog dlg(kHostTemplate);
        INT_PTR r;
        RunAndCancel(dlg, &r);
    }
}

class BaseDialogTest : public GuardedTest<WarmUpDialogs>
{
protected:
    hytest::MessageBoxRecorder boxes;
};

}  // namespace

TEST_F(BaseDialogTest, TemplateComesFromTheHostThenTheChainAndAMissingOneAnswersMinusOneModalOrNot)
{
    ChainModule chain;
    INT_PTR result = 0;

    // A plain dialog finds the chain's copy of 109; ours the host's; what the
    // host lacks comes from the chain.
    CDialog plain(kHostTemplate);
    CBaseDialog host(kHostTemplate), chainOnly(kChainOnly);
    std::vector<std::string> captions;
    for (CDialog* dlg : { &plain, static_cast<CDialog*>(&host), static_cast<CDialog*>(&chainOnly) }) {
        const Shown shown = RunAndCancel(*dlg, &result);
        captions.push_back(shown.caption + (shown.hasNameEdit ? "+edit" : "") + (result == IDCANCEL ? "" : "?"));
    }
    EXPECT_EQ((std::vector<std::string>{ "Chain copy", "Category Name+edit", "Chain only" }), captions);
    EXPECT_EQ(nullptr, host.m_hWnd);
    CBaseDialog nowhere(kNowhere);
    hytest::DialogDriver driver([](HWND h) { ::PostMessage(h, WM_COMMAND, IDCANCEL, 0); });
    EXPECT_EQ(-1, nowhere.DoModal());
    EXPECT_EQ(0, driver.Count());

    // Modeless: the same order.
    hytest::HostFrame frame;
    for (const auto& [id, caption] : { std::pair<UINT, std::string>{ kHostTemplate, "Category Name" },
                                        { kChainOnly, "Chain only" } }) {
        CBaseDialog modeless;
        ASSERT_TRUE(modeless.Create(id, CWnd::FromHandle(frame)));
        EXPECT_EQ(caption, Caption(modeless.m_hWnd));
        modeless.DestroyWindow();
    }
    hytest::PumpMessages();
}

TEST_F(BaseDialogTest, HostDialogExchangesDataAndRefusesWithHostTexts)
{
    CNameDialog dlg;
    dlg.m_name = "Work";
    std::string preset;
    bool openAfterRefusal = false;
    hytest::DialogDriver driver([&](HWND h) {
        char buf[64] = {};
        ::GetDlgItemTextA(h, kNameEdit, buf, sizeof buf);
        preset = buf;
        ::SetDlgItemTextA(h, kNameEdit, "");
        ::SendMessage(h, WM_COMMAND, IDOK, 0);       // refused with a host message
        openAfterRefusal = ::IsWindowVisible(h) != FALSE;
        ::SetDlgItemTextA(h, kNameEdit, "Team");
        ::PostMessage(h, WM_COMMAND, IDOK, 0);
    });
    EXPECT_EQ(IDOK, dlg.DoModal());
    EXPECT_EQ("Work|Team", preset + "|" + std::string(dlg.m_name));
    EXPECT_TRUE(openAfterRefusal && dlg.refusals == 1);
    ASSERT_EQ(1, boxes.Count());
    char text[256] = {}, caption[256] = {};
    ::LoadStringA(CBaseDialog::GetHostResourceHandle(), 183, text, sizeof text);
    ::LoadStringA(CBaseDialog::GetHostResourceHandle(), 182, caption, sizeof caption);
    EXPECT_NE("", std::string(text));
    EXPECT_EQ(std::string(text) + "|" + caption, boxes.Calls()[0].text + "|" + boxes.Calls()[0].caption);
    EXPECT_EQ((UINT)MB_ICONEXCLAMATION, boxes.Calls()[0].type & MB_ICONMASK);

    CString s = "stale", found;   // a missing host string empties the output
    EXPECT_FALSE(CBaseDialog::LoadHostString(s, 4343));
    EXPECT_TRUE(CBaseDialog::LoadHostString(found, 183));
    EXPECT_EQ(CString("|") + text, s + "|" + found);
}
