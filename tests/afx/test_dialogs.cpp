// The message loop, modal dialogs from the resource chain, data exchange and
// resource lookup order.
#include <afxwin.h>
#include <afxdllx.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>
#include "hytest.h"
#include "hytest_afx.h"

namespace {

// ---- resource chain ----

class ResourceChain
{
public:
    ResourceChain()
    {
        first = ::LoadLibrary("chain_first.dll");
        second = ::LoadLibrary("chain_second.dll");
        if (first != nullptr && second != nullptr)
        {
            entryFirst = new CDynLinkLibrary(first, first);
            entrySecond = new CDynLinkLibrary(second, second);
        }
    }
    ~ResourceChain()
    {
        delete entryFirst;
        delete entrySecond;
        ::FreeLibrary(first);
        ::FreeLibrary(second);
    }
    HMODULE first = nullptr, second = nullptr;
    CDynLinkLibrary* entryFirst = nullptr;
    CDynLinkLibrary* entrySecond = nullptr;
};

CString Loaded(UINT id)
{
    CString s;
    if (!s.LoadString(id))
        return "<missing>";
    return s;
}

// The application's resource module first, then the chain in order; an
// unlinked entry is no longer searched.
TEST(ResourceChainTest, FirstEntryWinsLaterEntriesFillTheGaps)
{
    ResourceChain chain;
    ASSERT_NE(nullptr, chain.entryFirst);
    auto texts = [] { return std::vector<CString>{ Loaded(100), Loaded(101), Loaded(102), Loaded(103) }; };
    EXPECT_EQ((std::vector<CString>{ "first", "first only", "second only", "<missing>" }), texts());
    EXPECT_EQ(chain.second, AfxFindResourceHandle(MAKEINTRESOURCE(200), RT_DIALOG));
    HINSTANCE saved = AfxGetResourceHandle();
    AfxSetResourceHandle(chain.second);
    EXPECT_EQ((std::vector<CString>{ "second", "first only", "second only", "<missing>" }), texts());
    AfxSetResourceHandle(saved);
    delete chain.entryFirst;
    chain.entryFirst = nullptr;
    EXPECT_EQ((std::vector<CString>{ "second", "<missing>", "second only", "<missing>" }), texts());
}

// ---- the dialog of module chain_second: data exchange ----

constexpr int IDC_NAME = 1000, IDC_COUNT = 1001, IDC_FIRST_RADIO = 1002;

class CExchangeDlg : public CDialog
{
public:
    CExchangeDlg() : CDialog(200) {}
    CString m_name = "Ada";
    int m_count = 7;
    int m_choice = 1;
    int focusIdAtCancel = 0;
protected:
    void DoDataExchange(CDataExchange* pDX) override
    {
        DDX_Text(pDX, IDC_NAME, m_name);
        DDV_MaxChars(pDX, m_name, 10);
        DDX_Text(pDX, IDC_COUNT, m_count);
        DDX_Radio(pDX, IDC_FIRST_RADIO, m_choice);
    }
    void OnCancel() override
    {
        focusIdAtCancel = ::GetDlgCtrlID(::GetFocus());
        CDialog::OnCancel();
    }
};

std::string ItemText(HWND dlg, int id)
{
    char buf[64] = "";
    ::GetDlgItemText(dlg, id, buf, sizeof buf);
    return buf;
}

// The first dialogs of a process create their font, the radio buttons'
// images and fill a DC cache; the guards compare after two full runs.
void WarmUpDialogs()
{
    WarmUpStandardControls();
    ResourceChain chain;
    for (int round = 0; round < 2; ++round)
    {
        CExchangeDlg dlg;
        hytest::DialogDriver driver([](HWND h) {
            ::SetDlgItemText(h, IDC_NAME, "warm");
            ::CheckRadioButton(h, IDC_FIRST_RADIO, IDC_FIRST_RADIO + 2, IDC_FIRST_RADIO + 2);
            ::PostMessage(h, WM_COMMAND, IDOK, 0);
        });
        dlg.DoModal();
    }
}

class DialogTest : public GuardedTest<WarmUpDialogs>
{
protected:
    ResourceChain chain;
    hytest::MessageBoxRecorder boxes;
};

TEST_F(DialogTest, ModalDialogFromChainExchangesDataBothWays)
{
    CExchangeDlg dlg;
    std::string shownName, shownCount;
    bool secondRadio = false;
    LRESULT limit = 0;
    hytest::DialogDriver driver([&](HWND h) {
        limit = ::SendDlgItemMessage(h, IDC_NAME, EM_GETLIMITTEXT, 0, 0);   // from DDV_MaxChars
        shownName = ItemText(h, IDC_NAME);
        shownCount = ItemText(h, IDC_COUNT);
        secondRadio = ::IsDlgButtonChecked(h, IDC_FIRST_RADIO + 1) == BST_CHECKED;
        ::SetDlgItemText(h, IDC_NAME, "Grace");
        ::SetDlgItemText(h, IDC_COUNT, " 42 ");
        ::CheckRadioButton(h, IDC_FIRST_RADIO, IDC_FIRST_RADIO + 2, IDC_FIRST_RADIO + 2);
        ::PostMessage(h, WM_COMMAND, MAKEWPARAM(IDOK, BN_CLICKED), (LPARAM)::GetDlgItem(h, IDOK));
    });
    EXPECT_EQ(IDOK, dlg.DoModal());
    EXPECT_EQ(1, driver.Count());
    EXPECT_EQ("Ada|7", shownName + "|" + shownCount);
    EXPECT_TRUE(secondRadio);
    EXPECT_EQ(CString("Grace"), dlg.m_name);
    EXPECT_EQ((std::vector<int>{ 42, 2, 10, 0 }), (std::vector<int>{ dlg.m_count, dlg.m_choice, (int)limit, boxes.Count() }));
    EXPECT_EQ(nullptr, dlg.m_hWnd);
    EXPECT_EQ(-1, CDialog(4343).DoModal());   // no such template
}

// A refused field keeps the dialog open with the framework's prompt and the
// focus back on the field; as with the classic exchange, text is stored
// before it is validated.
TEST_F(DialogTest, RefusedFieldsKeepTheDialogOpen)
{
    const struct { int id; const char* typed; const char* prompt; const char* name; int count; } rows[] = {
        { IDC_NAME, "Seventeen letters", "Please enter no more than 10 characters.", "Seventeen letters", 7 },
        { IDC_COUNT, "12x", "Please enter an integer.", "Ada", 7 },
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.typed);
        boxes.Clear();
        CExchangeDlg dlg;
        hytest::DialogDriver driver([&](HWND h) {
            ::SetDlgItemText(h, row.id, row.typed);
            ::PostMessage(h, WM_COMMAND, IDOK, 0);
            ::PostMessage(h, WM_COMMAND, IDCANCEL, 0);
        });
        EXPECT_EQ(IDCANCEL, dlg.DoModal());
        ASSERT_EQ(1, boxes.Count());
        EXPECT_EQ(row.prompt, boxes.Calls()[0].text);
        EXPECT_EQ((UINT)MB_ICONEXCLAMATION, boxes.Calls()[0].type & MB_ICONMASK);
        EXPECT_STREQ(row.name, dlg.m_name);
        EXPECT_EQ(row.count, dlg.m_count);
        EXPECT_EQ(row.id, dlg.focusIdAtCancel);
    }
}

// ---- PreTranslateMessage ----

class CKeyWatcher : public CWnd
{
public:
    std::vector<UINT> seen;        // keys offered to PreTranslateMessage
    std::vector<UINT> delivered;   // keys that reached OnKeyDown
    UINT eat = 'Q';
    BOOL PreTranslateMessage(MSG* pMsg) override
    {
        if (pMsg->message == WM_KEYDOWN)
        {
            seen.push_back((UINT)pMsg->wParam);
            return pMsg->wParam == eat;
        }
        return FALSE;
    }
protected:
    afx_msg void OnKeyDown(UINT nChar, UINT, UINT) { delivered.push_back(nChar); }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CKeyWatcher, CWnd)
    ON_WM_KEYDOWN()
END_MESSAGE_MAP()

class CTestApp : public CWinApp
{
public:
    CTestApp() : CWinApp("HyAfx tests") {}
};

TEST(MessageLoopTest, ApplicationLoopOffersKeysFromTargetUpThroughParents)
{
    hytest::ObjectGuard guard{ WarmUpStandardControls };
    CTestApp app;
    CKeyWatcher frame, child;
    ASSERT_TRUE(frame.CreateEx(0, nullptr, "frame", WS_OVERLAPPEDWINDOW, CRect(0, 0, 200, 200), nullptr, 0));
    ASSERT_TRUE(child.Create(nullptr, "child", WS_VISIBLE, CRect(0, 0, 50, 50), &frame, 1));
    frame.eat = 'Z';
    app.m_pMainWnd = &frame;
    EXPECT_EQ(&frame, AfxGetMainWnd());
    EXPECT_EQ(&app, AfxGetApp());
    child.PostMessage(WM_KEYDOWN, 'A', 1);
    child.PostMessage(WM_KEYDOWN, 'Q', 1);
    child.PostMessage(WM_KEYDOWN, 'Z', 1);
    ::PostQuitMessage(3);
    EXPECT_EQ(3, app.Run());
    EXPECT_EQ((std::vector<UINT>{ 'A', 'Q', 'Z' }), child.seen);
    EXPECT_EQ((std::vector<UINT>{ 'A', 'Z' }), frame.seen);   // Q was eaten by the child
    EXPECT_EQ((std::vector<UINT>{ 'A' }), child.delivered);   // Z was eaten by the frame
    app.m_pMainWnd = nullptr;
    frame.DestroyWindow();
}

TEST_F(DialogTest, ModalLoopOffersKeysToControlsAndDialogNavigation)
{
    CExchangeDlg dlg;
    CKeyWatcher edit;
    hytest::DialogDriver driver([&](HWND h) {
        edit.SubclassWindow(::GetDlgItem(h, IDC_NAME));
        HWND e = edit.m_hWnd;
        ::PostMessage(e, WM_KEYDOWN, 'Q', 1);
        ::PostMessage(e, WM_KEYDOWN, 'B', 1);
        // Escape goes to the dialog manager, which cancels the dialog.
        ::PostMessage(e, WM_KEYDOWN, VK_ESCAPE, 1);
    });
    EXPECT_EQ(IDCANCEL, dlg.DoModal());
    EXPECT_EQ((std::vector<UINT>{ 'Q', 'B', VK_ESCAPE }), edit.seen);
    EXPECT_EQ((std::vector<UINT>{ 'B' }), edit.delivered);
}

}  // namespace
