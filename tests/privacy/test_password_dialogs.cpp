// The password prompts as a host runs them: the main window answers the
// digest request, a person types into the real dialog and confirms; help goes
// to the application; MD5 comes from advapi32.
#include "../native/md5_vectors.h"
#include "HyPasswordCheck.h"
#include "HyPasswordDlg.h"
#include "hytest_afx.h"

#include <algorithm>
#include <cstring>

namespace {

// MD5("secret"), as a host stores it.
const unsigned char kSecretMd5[32] = { 0x5e, 0xbe, 0x22, 0x94, 0xec, 0xd0, 0xe0, 0xf0,
                                       0x8e, 0xab, 0x76, 0x90, 0xd2, 0xa6, 0xee, 0x69 };

struct CTestApp : CWinApp
{
    std::vector<DWORD_PTR> help;
    void WinHelp(DWORD_PTR data, UINT cmd) override { help.push_back(cmd == HELP_CONTEXT ? data : 0); }
};

// An application whose main window answers the digest request, and a person
// who types each attempt and presses OK ("<help>": the Help button, "<esc>":
// Escape, "<close>": the close box; Cancel after the last attempt).
struct Host
{
    CTestApp app;
    hytest::HostFrame frame;
    CWnd main;
    hytest::MessageBoxRecorder boxes;
    LRESULT answer = 0;
    std::string log;   // "ask" per request, the caption and the edit's limit per dialog
    unsigned char* block = nullptr;   // where the prompt's digest buffer was
    std::vector<std::string> attempts;
    hytest::DialogDriver driver{ [this](HWND dlg) {
        HWND edit = ::GetDlgItem(dlg, 20059);
        log += " " + WindowText(*CWnd::FromHandle(dlg)) + "/" + std::to_string(::SendMessage(edit, EM_GETLIMITTEXT, 0, 0));
        for (const std::string& a : attempts)
            if (a == "<esc>")
                ::PostMessage(edit, WM_KEYDOWN, VK_ESCAPE, 1);
            else if (a == "<close>")
                ::PostMessage(dlg, WM_SYSCOMMAND, SC_CLOSE, 0);
            else
            {
                a == "<help>" ? void() : hytest::Type(edit, a.c_str());   // replaces a failed attempt, left selected
                ::PostMessage(dlg, WM_COMMAND, a == "<help>" ? 57670 : IDOK, 0);
            }
        ::PostMessage(dlg, WM_COMMAND, IDCANCEL, 0);
    } };
    Host()
    {
        main.Attach(frame);
        app.m_pMainWnd = &main;
        frame.OnMessage(HYWM_GET_PASSWORD_DIGEST, [this](HWND, WPARAM w, LPARAM l) {
            block = (unsigned char*)l;
            log += w == 2 && std::all_of(block, block + 32, [](unsigned char c) { return c == 0; }) ? "ask" : "bad";
            std::memcpy(block, kSecretMd5, 32);
            return answer;
        });
    }
    ~Host() { main.Detach(); }
};

// A first run of every caption creates the system's shared objects.
void WarmUp()
{
    WarmUpStandardControls();
    Host host;
    host.attempts = { "ab", "<help>" };
    for (int titles = 0; titles < 4; ++titles)
        CHyPasswordDlg(kSecretMd5, "Ann", titles & 1, titles >> 1, &host.main).DoModal();
}

using PasswordTest = GuardedTest<WarmUp>;

TEST_F(PasswordTest, PromptsGrantWhatTheHostAndThePersonAllow)
{
    const struct { const char* name; LRESULT answer; int mode; std::vector<std::string> attempts; int granted, wrong;
                   const char* log; } cases[] = {
        { "Ann", 0, 0, { "secret" }, 1, 0, "ask Show Private Records/31" },
        { "Ann", 0, 1, { "nope", "secreT", "secret" }, 1, 2, "ask Edit Private Record/31" },
        { "Ann", 0, 2, { "wrong", "secret" }, 1, 1, "ask Password/31" },
        { "Ann", 0, 0, { "wrong" }, 0, 1, "ask Show Private Records/31" },
        { "Ann", 0, 0, { "secre", "<esc>" }, 0, 1, "ask Show Private Records/31" },
        { "Ann", 0, 2, { "<close>" }, 0, 0, "ask Password/31" },
        { "Ann", -1, 0, {}, 1, 0, "ask" },   // no password set: no dialog
        { "", -1, 0, {}, 0, 0, "ask" },      // the request comes first, then the empty name refuses
        { "", 0, 2, {}, 0, 0, "ask" },
    };
    for (const auto& c : cases)
    {
        Host host;
        host.answer = c.answer;
        host.attempts = c.attempts;
        hytest::DebugOutputCapture debug;
        ::OutputDebugStringA("probe");
        const int granted = c.mode == 2 ? HyPromptForPasswordWhileMasking(c.name, &host.main)
                                        : HyPromptForPassword(c.name, &host.main, c.mode);
        unsigned char left[32] = {};
        if (host.block != nullptr)
            std::memcpy(left, host.block, 32);   // the prompt's buffer, just after it returned
        EXPECT_EQ(std::count(left, left + 32, 0), 32) << "the digest outlived the prompt";
        EXPECT_EQ(debug.Lines().empty() ? "" : debug.Lines()[0], "probe");
        for (const std::string& line : debug.Lines())
            EXPECT_EQ(line.find("secret"), std::string::npos) << line;
        EXPECT_EQ(granted, c.granted) << c.log;
        EXPECT_EQ(host.log, c.log);
        ASSERT_EQ(host.boxes.Count(), c.wrong) << c.log;
        for (const hytest::MessageBoxCall& box : host.boxes.Calls())
            EXPECT_EQ(box.text + "/" + std::to_string(box.type), "The password is incorrect./0");   // no icon
    }
    CWinApp noWindow;   // no main window: nothing asked, nothing shown, no access
    EXPECT_EQ(HyPromptForPassword("Ann", nullptr, 0), 0);
}

TEST_F(PasswordTest, TitleFlagsChooseTheCaptionAndTheHelpContext)
{
    const char* captions[] = { "Show Private Records", "Enter Password", "Edit Private Record", "Edit Private Record" };
    for (int titles = 0; titles < 4; ++titles)
    {
        Host host;
        host.attempts = { "<help>", "kkkkkkkkkkkkkkkkkkkkkkkkkkkkkkkkkk" };   // 34 typed, 31 taken
        CHyPasswordDlg dlg((const unsigned char*)"\x65\x61\xe3\x97\xfa\xdf\x87\x3e\x5a\x14\x3e\x17\x5e\xd8\xb8\x1b",
                           "Ann", titles & 1, titles >> 1, &host.main);   // MD5 of 31 "k"
        EXPECT_EQ(dlg.DoModal(), IDOK);
        EXPECT_EQ(host.log, std::string(" ") + captions[titles] + "/31");
        EXPECT_EQ(host.app.help, std::vector<DWORD_PTR>{ HID_BASE_RESOURCE + ((titles & 1) ? 20026 : 20025) });
        EXPECT_TRUE(dlg.password.IsEmpty());   // wiped once checked
    }
}

TEST_F(PasswordTest, SystemMd5AndRepeatedRunsHoldUp)
{
    for (const Md5Vector& v : kMd5Vectors)
    {
        unsigned char stored[32] = {};
        for (int i = 0; i < 16; ++i)
            stored[i] = (unsigned char)std::stoi(std::string(v.hex + 2 * i, 2), nullptr, 16);
        EXPECT_EQ(HyVerifyPassword(stored, v.text), 1) << v.text;
    }
    const long handles = hytest::KernelHandleCount();
    RunRepeated([] { Host host; host.attempts = { "wrong", "secret" }; HyPromptForPassword("Ann", &host.main, 1); }, 100);
    EXPECT_LE(hytest::KernelHandleCount(), handles);
}

}  // namespace
