// The time, spin, number and note fields under real keys and clicks through
// the framework's loop, on a 12-hour (en-US) and a 24-hour clock: texts,
// beeps and their sounds, and what reaches the parent.
#include "HyEditFields.h"
#include "HyEditTime.h"
#include "hytest_afx.h"

#include <cctype>

namespace {

// The fields on a framework window (made after any clock setting: they read
// it once). The parent routes HYET_STEPKEY to the spin field, as a host should.
struct Fields
{
    FrameworkLoop loop;
    hytest::HostFrame frame{ 400, 200, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN | WS_VISIBLE };
    CWnd parent;
    CHyEditTime time{ 8, 0 };
    CHyEditTimeSpinCtrl spin{ 8, 0 };
    CHyTimeSpinButtonCtrl button;
    CHyNumEdit number;
    CHyTernUIRichEdit note;

    Fields()
    {
        parent.SubclassWindow(frame);
        for (auto [edit, id] : { std::pair<CEdit*, int>{ &time, 11 }, { &spin, 12 }, { &number, 14 } })
            edit->Create(WS_CHILD | WS_VISIBLE | WS_BORDER, CRect(0, id * 30 - 330, 120, id * 30 - 308), &parent, id);
        button.Create(WS_CHILD | WS_VISIBLE, CRect(122, 30, 140, 52), &parent, 13);
        note.Create(WS_CHILD | WS_VISIBLE | ES_MULTILINE, CRect(0, 120, 100, 150), &parent, 15);
        frame.OnMessage(HYET_STEPKEY, [this](HWND, WPARAM id, LPARAM delta) { return id != 11 ? (spin.ChangeValue((int)delta), 0) : 0; });
        ::SetForegroundWindow(frame);
    }
};

void WarmUpFields()
{
    WarmUpStandardControls();
    Fields f, g;   // two sets at once
    hytest::Type(f.time, "9p");
    hytest::Click(f.button, 5, 5);
    g.note.SetFocus();
}

using FieldTest = GuardedTest<WarmUpFields>;

// Keys typed one by one into the time field (^ before U D P N X L: Up,
// Down, Page Up, Page Down, Delete, Left), and the outcome: the text after
// each key, the fields, the beeps' sounds, the lParam of each HYET_STEPKEY
// posted to the parent (one for every key-down).
const struct { const char *picture, *keys, *outcome; } kTyping[] = {
    { nullptr, "930", "9|9:3|9:30 / 9:30 / / 0 0 0" },
    { nullptr, "7p", "7|7:00 PM / 19:0 / / 0 0" },
    { nullptr, "9+-x", "9|9:15 AM|9:00 AM|9:00 AM / 9:0 / / 0 0 0 0" },
    { nullptr, "-a+", "|| / -1:0 / 48 48 48 / 0 0 0" },   // no time: each beeps
    { nullptr, "^U^D^P^N^X^L", "||||| / -1:0 / / -1 1 -1 1 0 0" },
    { "HH:mm:ss", "13a", "1|13|13 / 13:0 / 48 / 0 0 0" },
    { "HH.mm", "9.5", "9|9.|9.5 / 9:50 / / 0 0 0" },
};

TEST_F(FieldTest, TypingByRealKeysOnBothClocks)
{
    for (const auto& t : kTyping) {
        hytest::LocaleValues clock(LOCALE_STIMEFORMAT, t.picture ? t.picture : "h:mm:ss tt");
        Fields f;
        hytest::BeepRecorder beeps;
        std::string outcome;
        for (const char* k = t.keys; *k; ++k) {
            const size_t control = *k == '^' ? std::string("UDPNXL").find(*++k) : std::string::npos;
            control != std::string::npos
                ? hytest::KeyPress(f.time, std::vector<UINT>{ VK_UP, VK_DOWN, VK_PRIOR, VK_NEXT, VK_DELETE, VK_LEFT }[control])
                : hytest::Type(f.time, std::string(1, *k).c_str());
            outcome += "|" + WindowText(f.time);
        }
        outcome = outcome.substr(1) + " / " + std::to_string(f.time.GetHours()) + ":" + std::to_string(f.time.GetMins()) + " /";
        for (UINT type : beeps.Types())
            outcome += " " + std::to_string(type);
        outcome += " /";
        for (const hytest::Msg& m : f.frame.Messages())
            outcome += m.msg != HYET_STEPKEY ? "" : " " + std::to_string((int)m.lParam) + (m.sent || m.wParam != 11 ? "?" : "");
        EXPECT_EQ(outcome, t.outcome) << t.keys;
    }
}

// The spin field: a click selects a part; both arrows of the button and
// Up, Down, Page Up, Page Down each step it once and select it again; a
// regional change to a 24-hour clock reformats it. Then the number field,
// and the objects: 1,000 repaints, 100 sets of fields made and destroyed.
TEST_F(FieldTest, SpinAndNumberFields)
{
    Fields f;
    f.spin.SetTime(9, 30, 1);
    std::string seen;
    for (const char* step : { "3", "^", "v", "U", "D", "P", "N", "6", "U", "D", "0", "D" }) {
        std::isdigit(*step) ? hytest::Click(f.spin, f.spin.PosFromChar(*step - '0').x + 2, 5)
        : *step == '^' || *step == 'v' ? hytest::Click(f.button, 5, *step == '^' ? 5 : 17)
                                       : hytest::KeyPress(f.spin, std::vector<UINT>{ VK_UP, VK_DOWN, VK_PRIOR, VK_NEXT }[std::string("UDPN").find(*step)]);
        const DWORD sel = f.spin.GetSel();
        seen += WindowText(f.spin) + " " + std::to_string(LOWORD(sel)) + std::to_string(HIWORD(sel)) + "|";
    }
    EXPECT_EQ(seen, "09:30 AM 35|09:35 AM 35|09:30 AM 35|09:35 AM 35|09:30 AM 35|09:35 AM 35|09:30 AM 35|"
                    "09:30 AM 68|09:30 PM 68|09:30 AM 68|09:30 AM 02|08:30 AM 02|");
    hytest::LocaleValues clock(LOCALE_STIMEFORMAT, "HH:mm:ss");
    f.spin.SendMessage(WM_SETTINGCHANGE);
    EXPECT_EQ(WindowText(f.spin), "08:30");
    // The number field: "-" and letters beep with their own sound; leaving
    // it puts the minimum in place of an empty or smaller entry.
    f.number.SetMinRequireValue(5);
    hytest::BeepRecorder beeps;
    seen = (hytest::Type(f.number, "-a1"), WindowText(f.number));
    for (const char* text : { "3", "", "12", " -3", "abc", "99999999999", "4x" })
        seen += "|" + (f.number.SetFocus(), f.number.SetWindowText(text), f.time.SetFocus(), WindowText(f.number));
    EXPECT_EQ(seen, "1|5|5|12|5|abc|99999999999|5");   // read as "%d" reads: blanks, a sign, saturation
    EXPECT_EQ(beeps.Types(), (std::vector<UINT>{ 0x0FFFFFFF, 0x0FFFFFFF }));
    hytest::ObjectGuard guard;
    for (int i = 0; i < 1000; ++i)
        f.parent.RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
    for (int i = 0; i < 100; ++i)
        (Fields().note.SetFocus());
    guard.Check("1,000 repaints, 100 sets of fields");
}

// The note field in a real modal dialog, through the dialog's own loop.
// Steps: d double click, e editable, K the keypad's Enter, E Enter, X Escape, T Tab,
// S Shift+Tab, R the right button, L the limit reached and a character typed;
// after each: the lines, "sel" when a selection, "closed" when the dialog is
// gone. Then what the field told the dialog, in order (p posted, s sent).
TEST_F(FieldTest, NoteFieldInAModalDialog)
{
    FrameworkLoop loop;
    CHyTernUIRichEdit note;
    std::string seen, log;
    hytest::BeepRecorder beeps;
    hytest::DialogDriver driver([&](HWND dialog) {
        hytest::WindowSpy spy(dialog);   // records only what the field tells it, with the field there
        note.Create(WS_CHILD | WS_VISIBLE | ES_MULTILINE | ES_WANTRETURN, CRect(5, 5, 200, 60), CWnd::FromHandle(dialog), 5);
        note.SetWindowText("one two");
        note.SetFocus();
        for (char step : std::string("dedKEXTSRL")) {
            hytest::Modifiers shift(step == 'S' ? +hytest::kShift : 0u);
            const size_t at = std::string("deKEXTSRL").find(step);
            at == 0 ? hytest::DoubleClick(note, 10, 8) : at == 1 ? note.SetEditable(1)
            : at == 7 ? (void)note.SendMessage(WM_RBUTTONUP, 0, MAKELPARAM(7, 9))
            : at == 8 ? (note.LimitText(note.GetTextLength()), hytest::Type(note, "x"))
                      : hytest::KeyPress(note, std::vector<UINT>{ hytest::kKeypadEnter, VK_RETURN, VK_ESCAPE, VK_TAB, VK_TAB }[at - 2]);
            seen += std::to_string(note.GetLineCount()) + (note.GetSelText().IsEmpty() ? "" : "sel") +
                    (::IsWindowVisible(dialog) ? " " : "closed ");
        }
        CPoint screen(7, 9);
        note.ClientToScreen(&screen);
        for (const hytest::Msg& m : spy.Messages())
            if (m.msg >= HYRE_DBLCLK && m.msg <= HYRE_TAB)
                log += std::to_string(m.msg - HYRE_DBLCLK) + (m.sent ? "s" : "p") + (m.msg == HYRE_TAB ? std::to_string(m.wParam) : "") +
                       (m.msg == HYRE_RBUTTONUP ? (m.wParam == MAKEWPARAM(screen.x, screen.y) ? "@" : "?") : "") + " ";
        ::PostMessage(dialog, WM_COMMAND, IDCANCEL, 0);
    });
    EXPECT_EQ(CDialog(100).DoModal(), IDCANCEL);
    // A double click is a press and a report instead of the word, until the
    // field is editable; the keypad's Enter breaks no line and is reported on
    // release; Enter breaks one; Tab also moves the focus on (the lost focus
    // sent at once, before the posted reports); at the limit a character beeps.
    EXPECT_EQ(seen, "1 1 1sel 1sel 2 2 2 2 2 2 ");
    EXPECT_EQ(log, "4p 0p 4p 2s 3s 5p1 5p0 1p@ ");
    EXPECT_EQ(beeps.Types(), std::vector<UINT>{ 0xFFFFFFFF });
}

}  // namespace
