// The password prompts as a host runs them: the main window answers the
// digest request, a person types into the real dialog and confirms; help goes
// to the application; MD5 comes from advapi32.
#include "HyPasswordCheck.h"
#include "HyPasswordDlg.h"
#include "HyUIRes.h"
#include "hytest_afx.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

namespace {

// MD5("secret") (RFC 1321 arithmetic), as a host stores it.
const unsigned char kSecretMd5[16] = { 0x5e, 0xbe, 0x22, 0x94, 0xec, 0xd0, 0xe0, 0xf0,
                                       0x8e, 0xab, 0x76, 0x90, 0xd2, 0xa6, 0xee, 0x69 };

class CTestApp : public CWinApp
{
public:
    CTestApp() : CWinApp("privacy tests") {}
    std::vector<std::pair<DWORD_PTR, UINT>> help;
    void WinHelp(DWORD_PTR data, UINT cmd) override { help.emplace_back(data, cmd); }
};

// What a person does in a dialog; results of what the dialogs showed.
struct Seen
{
    std::string caption, userName;
    int limit = 0;
    bool editFocused = false;
};

// A password dialog's first modal run under an application creates its font,
// the caption's and the system's shared objects; the guards compare after it.
void WarmUpPasswordDialog()
{
    WarmUpStandardControls();
    CTestApp app;
    hytest::HostFrame owner;
    CWnd main;
    main.Attach(owner);
    app.m_pMainWnd = &main;
    hytest::MessageBoxRecorder boxes;
    hytest::DialogDriver driver([](HWND h) {
        hytest::Type(::GetDlgItem(h, 20059), "ab");
        ::PostMessage(h, WM_COMMAND, IDOK, 0);
        ::PostMessage(h, WM_COMMAND, 57670, 0);
        ::PostMessage(h, WM_COMMAND, IDCANCEL, 0);
    });
    for (int titles = 0; titles < 4; ++titles)   // each caption's first drawing
    {
        CHyPasswordDlg dlg(kSecretMd5, "Ann", titles & 1, titles >> 1, &main);
        dlg.DoModal();
    }
    app.m_pMainWnd = nullptr;
    main.Detach();
}

class PasswordTest : public GuardedTest<WarmUpPasswordDialog>
{
protected:
    CTestApp app;
    hytest::HostFrame frame;
    CWnd main;
    hytest::MessageBoxRecorder boxes;
    LRESULT answer = 0;            // the host's answer to the digest request
    std::vector<std::string> requests;
    std::vector<Seen> seen;

    void SetUp() override
    {
        main.Attach(frame);
        app.m_pMainWnd = &main;
        frame.OnMessage(HYWM_GET_PASSWORD_DIGEST, [this](HWND, WPARAM w, LPARAM l) {
            unsigned char* block = (unsigned char*)l;
            const bool zeroed = std::all_of(block, block + 32, [](unsigned char c) { return c == 0; });
            requests.push_back(std::to_string(w) + (zeroed ? " zeroed" : " dirty"));
            std::memcpy(block, kSecretMd5, 16);
            return answer;
        });
    }
    void TearDown() override
    {
        app.m_pMainWnd = nullptr;
        main.Detach();
        GuardedTest::TearDown();
    }

    // Runs `prompt` while a person types each attempt and presses OK after it
    // (or, for "<cancel>", presses Cancel).
    template <class Prompt>
    int Run(std::vector<std::string> attempts, Prompt prompt)
    {
        hytest::DialogDriver driver([&](HWND dlg) {
            char text[64] = "";
            ::GetWindowTextA(dlg, text, sizeof text);
            Seen s{ text, "", 0, false };
            ::GetDlgItemTextA(dlg, 20154, text, sizeof text);
            s.userName = text;
            HWND edit = ::GetDlgItem(dlg, 20059);
            s.limit = (int)::SendMessage(edit, EM_GETLIMITTEXT, 0, 0);
            s.editFocused = ::GetFocus() == edit;
            seen.push_back(s);
            for (const std::string& a : attempts)
            {
                if (a == "<cancel>")
                    ::PostMessage(dlg, WM_COMMAND, IDCANCEL, 0);
                else
                {
                    hytest::Type(edit, a.c_str());   // replaces what a failed attempt left selected
                    ::PostMessage(dlg, WM_COMMAND, IDOK, 0);
                }
            }
        });
        return prompt();
    }
};

TEST_F(PasswordTest, PromptsGrantWhatTheHostAndThePersonAllow)
{
    struct Case
    {
        const char* name;
        LRESULT answer;
        int editMode;
        bool masking;
        std::vector<std::string> attempts;
        int granted, dialogs, wrong;
        const char* caption;
    };
    const Case cases[] = {
        { "Ann", 0, 0, false, { "secret" }, 1, 1, 0, "Show Private Records" },
        { "Ann", 0, 1, false, { "nope", "secreT", "secret" }, 1, 1, 2, "Edit Private Record" },
        { "Ann", 0, 0, true, { "wrong", "secret" }, 1, 1, 1, "Password" },
        { "Ann", 0, 0, false, { "wrong", "<cancel>" }, 0, 1, 1, "Show Private Records" },
        { "Ann", -1, 0, false, {}, 1, 0, 0, nullptr },   // no password set: no dialog
        { "", -1, 0, false, {}, 0, 0, 0, nullptr },      // an empty name is refused first
        { "", 0, 0, true, {}, 0, 0, 0, nullptr },
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(std::string(c.name) + " " + std::to_string(c.answer) + " " + (c.masking ? "masking" : "plain"));
        answer = c.answer;
        requests.clear();
        seen.clear();
        boxes.Clear();
        const int granted = Run(c.attempts, [&] {
            return c.masking ? HyPromptForPasswordWhileMasking(c.name, &main)
                             : HyPromptForPassword(c.name, &main, c.editMode);
        });
        EXPECT_EQ(granted, c.granted);
        EXPECT_EQ(requests, std::vector<std::string>{ "2 zeroed" });   // asked once, always
        ASSERT_EQ((int)seen.size(), c.dialogs);
        if (c.dialogs)
        {
            EXPECT_EQ(seen[0].caption, c.caption);
            EXPECT_EQ(seen[0].userName, c.name);
            EXPECT_EQ(seen[0].limit, 31);
            EXPECT_TRUE(seen[0].editFocused);
        }
        ASSERT_EQ(boxes.Count(), c.wrong);
        for (const hytest::MessageBoxCall& box : boxes.Calls())
        {
            EXPECT_EQ(box.text, "The password is incorrect.");
            EXPECT_EQ(box.type, (UINT)MB_OK);   // no icon
        }
    }
}

TEST_F(PasswordTest, WithoutAMainWindowNothingIsAskedOrShown)
{
    app.m_pMainWnd = nullptr;
    EXPECT_EQ(Run({ "secret" }, [&] { return HyPromptForPassword("Ann", nullptr, 0); }), 0);
    EXPECT_TRUE(requests.empty());
    EXPECT_TRUE(seen.empty());
}

TEST_F(PasswordTest, TitleFlagsChooseTheCaptionAndTheHelpContext)
{
    // enter title, edit title -> caption, help context after Help
    const struct { int enter, edit; const char* caption; DWORD_PTR help; } cases[] = {
        { 0, 0, "Show Private Records", HID_BASE_RESOURCE + 20025 },
        { 1, 0, "Enter Password", HID_BASE_RESOURCE + 20026 },
        { 0, 1, "Edit Private Record", HID_BASE_RESOURCE + 20025 },
        { 1, 1, "Edit Private Record", HID_BASE_RESOURCE + 20026 },
    };
    for (const auto& c : cases)
    {
        app.help.clear();
        seen.clear();
        CHyPasswordDlg dlg(kSecretMd5, "Ann", c.enter, c.edit, &main);
        hytest::DialogDriver driver([&](HWND h) {
            char text[64];
            ::GetWindowTextA(h, text, sizeof text);
            seen.push_back({ text });
            ::PostMessage(h, WM_COMMAND, 57670, 0);
            ::PostMessage(h, WM_COMMAND, IDCANCEL, 0);
        });
        EXPECT_EQ(dlg.DoModal(), IDCANCEL);
        ASSERT_EQ(seen.size(), 1u);
        EXPECT_EQ(seen[0].caption, c.caption);
        EXPECT_EQ(app.help, (std::vector<std::pair<DWORD_PTR, UINT>>{ { c.help, (UINT)HELP_CONTEXT } }));
    }
}

TEST_F(PasswordTest, TheTypedTextIsWipedAndLengthsAreBounded)
{
    // 31 characters verify through the dialog (the stored block is MD5 of
    // 31 "k"); the member holds nothing afterwards.
    const std::string longest(31, 'k');
    const unsigned char stored[32] = { 0x65, 0x61, 0xe3, 0x97, 0xfa, 0xdf, 0x87, 0x3e,
                                       0x5a, 0x14, 0x3e, 0x17, 0x5e, 0xd8, 0xb8, 0x1b };
    CHyMaskPasswordDlg dlg(stored, "Ann", &main);
    hytest::DialogDriver driver([&](HWND h) {
        hytest::Type(::GetDlgItem(h, 20059), "wrong");
        ::PostMessage(h, WM_COMMAND, IDOK, 0);
        hytest::Type(::GetDlgItem(h, 20059), (longest + "xyz").c_str());   // the edit stops at 31
        ::PostMessage(h, WM_COMMAND, IDOK, 0);
    });
    EXPECT_EQ(dlg.DoModal(), IDOK);
    EXPECT_TRUE(dlg.password.IsEmpty());
    EXPECT_EQ(boxes.Count(), 1);
}

TEST(PasswordMd5, Rfc1321SuiteThroughTheSystemMd5)
{
    const struct { const char* text; const char* hex; } vectors[] = {
        { "", "d41d8cd98f00b204e9800998ecf8427e" },
        { "a", "0cc175b9c0f1b6a831c399e269772661" },
        { "abc", "900150983cd24fb0d6963f7d28e17f72" },
        { "message digest", "f96b697d7cb7938d525a2f31aaf161d0" },
        { "abcdefghijklmnopqrstuvwxyz", "c3fcd3d76192e4007dfb496cca67e13b" },
    };
    for (const auto& v : vectors)
    {
        unsigned char stored[32] = {};
        for (int i = 0; i < 16; ++i)
            stored[i] = (unsigned char)std::stoi(std::string(v.hex + 2 * i, 2), nullptr, 16);
        EXPECT_EQ(HyVerifyPassword(stored, v.text), 1) << v.text;
        stored[15] ^= 1;
        EXPECT_EQ(HyVerifyPassword(stored, v.text), 0) << v.text;
    }
}

TEST_F(PasswordTest, DialogRunsKeepObjectCountsSteady)
{
    RunRepeated([&] { Run({ "wrong", "secret" }, [&] { return HyPromptForPassword("Ann", &main, 1); }); }, 20);
}

}  // namespace
