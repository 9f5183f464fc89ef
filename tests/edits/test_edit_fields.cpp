// The time, spin, number and note fields under real keys and clicks through
// the framework's loop, on a 12-hour (en-US) and a 24-hour clock: texts,
// beeps and their sounds, and what reaches the parent.
#include "HyEditFields.h"
#include "HyEditMsgs.h"
#include "HyEditTime.h"
#include "HyIntlTime.h"
#include "hytest_afx.h"

#include <cstring>

#include <memory>

namespace {

// The fields on a framework window, made inside a clock setting (they read
// it once). The parent routes HYET_STEPKEY to the spin field, as a host should.
struct Fields
{
    FrameworkLoop loop;
    hytest::HostFrame frame{ 400, 200 };
    CWnd parent;
    hytest::LocaleValues clock;
    std::unique_ptr<CHyEditTimeSpinCtrl> spin;
    std::unique_ptr<CHyEditTime> owned;
    CHyEditTime& time;
    CHyTimeSpinButtonCtrl button;
    CHyNumEdit number;

    explicit Fields(const char* picture = nullptr)
        : spin((picture && clock.Set(LOCALE_STIMEFORMAT, picture), std::make_unique<CHyEditTimeSpinCtrl>(8, 0))),
          owned(std::make_unique<CHyEditTime>(8, 0)), time(*owned)
    {
        parent.SubclassWindow(frame);
        time.Create(WS_CHILD | WS_VISIBLE | WS_BORDER, CRect(0, 0, 120, 22), &parent, 11);
        spin->Create(WS_CHILD | WS_VISIBLE | WS_BORDER, CRect(0, 30, 120, 52), &parent, 12);
        button.Create(WS_CHILD | WS_VISIBLE, CRect(122, 30, 140, 52), &parent, 13);
        number.Create(WS_CHILD | WS_VISIBLE | WS_BORDER, CRect(0, 60, 120, 82), &parent, 14);
        frame.OnMessage(HYET_STEPKEY, [this](HWND, WPARAM id, LPARAM delta) {
            return id == 12 || id == 13 ? (spin->ChangeValue((int)delta), 0) : 0;
        });
        ::ShowWindow(frame, SW_SHOW);
        ::SetForegroundWindow(frame);
    }
    ~Fields() { parent.UnsubclassWindow(); }
};

void WarmUpFields()
{
    WarmUpStandardControls();
    Fields f;
    f.time.SetFocus();
    hytest::Type(f.time, "9p");
    f.spin->SetTime(9, 30, 1);
    hytest::Click(f.button, 5, 5);
    hytest::Click(f.button, 5, 17);
    Fields g;   // a second set at once, with a note: the rich edit's library and first window
    CHyTernUIRichEdit note;
    note.Create(WS_CHILD | WS_VISIBLE | ES_MULTILINE, CRect(0, 90, 100, 120), &g.parent, 15);
    g.number.SetFocus();
    note.SetFocus();
}

using FieldTest = GuardedTest<WarmUpFields>;

// Keys typed one by one (^U Up, ^D Down, ^P Page Up, ^N Page Down, ^X
// Delete, ^L Left), and the outcome: the text after each key, the fields,
// the beeps' sounds, the lParam of each HYET_STEPKEY posted to the parent
// (one for every key-down).
struct Typing { const char *picture, *keys, *outcome; };

const Typing kTyping[] = {
    { nullptr, "930", "9|9:3|9:30 / 9:30 /  / 0 0 0" },
    { nullptr, "13", "1|1:3 / 13:30 /  / 0 0" },   // pmBefore 8
    { nullptr, "7p", "7|7:00 PM / 19:0 /  / 0 0" },
    { nullptr, "12a", "1|12|12:00 AM / 0:0 /  / 0 0 0" },
    { nullptr, "9+-x", "9|9:15 AM|9:00 AM|9:00 AM / 9:0 /  / 0 0 0 0" },
    { nullptr, "-a+", "|| / -1:0 / 48 48 48 / 0 0 0" },   // no time: each beeps
    { nullptr, "^U^D^P^N^X^L", "||||| / -1:0 /  / -1 1 -1 1 0 0" },
    { "HH:mm:ss", "13a", "1|13|13 / 13:0 / 48 / 0 0 0" },
    { "HH.mm", "9.5", "9|9.|9.5 / 9:50 /  / 0 0 0" },
};

TEST_F(FieldTest, TypingByRealKeysOnBothClocks)
{
    for (const Typing& t : kTyping) {
        Fields f(t.picture);
        f.frame.RecordOnly({ HYET_STEPKEY });
        f.frame.Clear();
        hytest::BeepRecorder beeps;
        f.time.SetFocus();
        std::string outcome, sounds, steps;
        for (const char* k = t.keys; *k; ++k) {
            static const char controls[] = "UDPNXL";
            static const UINT vks[] = { VK_UP, VK_DOWN, VK_PRIOR, VK_NEXT, VK_DELETE, VK_LEFT };
            const char* c = *k == '^' ? std::strchr(controls, *++k) : nullptr;
            c ? hytest::KeyPress(f.time, vks[c - controls]) : hytest::Type(f.time, std::string(1, *k).c_str());
            outcome += (k == t.keys || k[-1] == '^' && k - 1 == t.keys ? "" : "|") + WindowText(f.time);
        }
        for (UINT type : beeps.Types())
            sounds += (sounds.empty() ? "" : " ") + std::to_string(type);
        for (const hytest::Msg& m : f.frame.Messages())
            steps += (steps.empty() ? "" : " ") + std::to_string((int)m.lParam) + (m.sent || m.wParam != 11 ? "?" : "");
        EXPECT_EQ(outcome + " / " + std::to_string(f.time.GetHours()) + ":" + std::to_string(f.time.GetMins()) + " / " +
                      sounds + " / " + steps,
                  t.outcome) << t.keys;
    }
}

// The spin field: a click selects a part; both arrows of the button and
// Up, Down, Page Up, Page Down each step it once and select it again.
TEST_F(FieldTest, SpinPartsStepOnceAndStaySelected)
{
    Fields f;
    f.spin->SetTime(9, 30, 1);
    const auto click = [&](int at) {
        const CPoint p = f.spin->PosFromChar(at);
        hytest::Click(*f.spin, p.x + 2, p.y + 5);
    };
    const auto state = [&] {
        int start = 0, end = 0;
        f.spin->GetSel(start, end);
        return WindowText(*f.spin) + " [" + std::to_string(start) + "," + std::to_string(end) + "]";
    };
    click(3);
    std::string seen;
    for (int step = 0; step < 6; ++step) {
        if (step < 2)
            hytest::Click(f.button, 5, step == 0 ? 5 : 17);   // the upper arrow, the lower
        else
            hytest::KeyPress(*f.spin, std::vector<UINT>{ VK_UP, VK_DOWN, VK_PRIOR, VK_NEXT }[step - 2]);
        seen += state() + " ";
    }
    EXPECT_EQ(seen, "09:35 AM [3,5] 09:30 AM [3,5] 09:35 AM [3,5] 09:30 AM [3,5] 09:35 AM [3,5] 09:30 AM [3,5] ");
    click(6);
    hytest::KeyPress(*f.spin, VK_UP);
    EXPECT_EQ(state(), "09:30 PM [6,8]");
    hytest::KeyPress(*f.spin, VK_DOWN);
    EXPECT_EQ(state(), "09:30 AM [6,8]");
    click(0);
    hytest::KeyPress(*f.spin, VK_DOWN);   // 9 - 1
    EXPECT_EQ(state(), "08:30 AM [0,2]");
    // A regional change to a 24-hour clock reformats the shown field.
    f.clock.Set(LOCALE_STIMEFORMAT, "HH:mm:ss");
    f.spin->SendMessage(WM_SETTINGCHANGE);
    EXPECT_EQ(WindowText(*f.spin), "08:30");
}

TEST_F(FieldTest, NumberFieldRefusesAndAppliesItsMinimum)
{
    Fields f;
    f.number.SetMinRequireValue(5);
    hytest::BeepRecorder beeps;
    f.number.SetFocus();
    hytest::Type(f.number, "-a1");
    EXPECT_EQ(WindowText(f.number) + " " + std::to_string(beeps.Count()), "1 2");
    EXPECT_EQ(beeps.Types(), (std::vector<UINT>{ 0x0FFFFFFF, 0x0FFFFFFF }));
    for (auto [text, left] : { std::pair{ "3", "5" }, { "", "5" }, { "12", "12" }, { " -3", "5" }, { "abc", "abc" } }) {
        f.number.SetFocus();
        f.number.SetWindowText(text);
        f.time.SetFocus();
        EXPECT_EQ(WindowText(f.number), left) << "\"" << text << "\"";
    }
}

TEST_F(FieldTest, ObjectsSteady)
{
    Fields f;
    f.spin->SetTime(9, 30, 1);
    hytest::ObjectGuard guard;
    for (int i = 0; i < 1000; ++i)
        f.parent.RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
    guard.Check("1,000 repaints");
    for (int i = -1; i < 100; ++i) {   // the first round a warm-up: a second set of fields at once
        if (i == 0)
            guard.Rebase();
        Fields other;
        CHyTernUIRichEdit note;
        note.Create(WS_CHILD | WS_VISIBLE | ES_MULTILINE, CRect(0, 90, 100, 120), &other.parent, 15);
        other.spin->SetTime(i % 24, 5, 1);
        other.number.SetFocus();
        note.SetFocus();
    }
    guard.Check("100 sets of fields made and destroyed");
}

// The note field in a real modal dialog, through the dialog's own loop:
// what it tells the dialog for each input, in order (p posted, s sent).
TEST_F(FieldTest, NoteFieldInAModalDialog)
{
    FrameworkLoop loop;
    CHyTernUIRichEdit note;
    std::string seen, log;
    hytest::DialogDriver driver([&](HWND dialog) {
        hytest::WindowSpy spy(dialog);
        spy.RecordOnly({ HYRE_DBLCLK, HYRE_RBUTTONUP, HYRE_ENTER, HYRE_KILLFOCUS, HYRE_LBUTTONDOWN, HYRE_TAB });
        note.Create(WS_CHILD | WS_VISIBLE | WS_BORDER | ES_MULTILINE | ES_WANTRETURN, CRect(5, 5, 200, 60),
                    CWnd::FromHandle(dialog), 5);
        note.SetWindowText("one two");
        note.SetFocus();
        const auto state = [&](const char* step) {
            long start = 0, end = 0;
            note.GetSel(start, end);
            seen += std::string(step) + " " + std::to_string(note.GetLineCount()) + (end > start ? " sel" : "") +
                    (::IsWindowVisible(dialog) ? "" : " closed") + "|";
        };
        hytest::DoubleClick(note, 10, 8);
        state("dbl");
        note.SetEditable(1);
        hytest::DoubleClick(note, 10, 8);
        state("dbl editable");
        hytest::KeyPress(note, VK_END);
        hytest::KeyPress(note, hytest::kKeypadEnter);
        state("keypad");
        hytest::KeyPress(note, VK_RETURN);
        state("enter");
        hytest::KeyPress(note, VK_ESCAPE);
        state("escape");
        hytest::KeyPress(note, VK_TAB);
        {
            hytest::Modifiers shift(hytest::kShift);
            hytest::KeyPress(note, VK_TAB);
        }
        note.SendMessage(WM_RBUTTONUP, 0, MAKELPARAM(7, 9));
        note.LimitText(note.GetTextLength());
        hytest::BeepRecorder beeps;
        hytest::Type(note, "x");
        seen += "beeps " + std::to_string(beeps.Count()) + (beeps.Count() ? " " + std::to_string((int)beeps.Types()[0]) : "");
        CPoint screen(7, 9);
        note.ClientToScreen(&screen);
        for (const hytest::Msg& m : spy.Messages())
            log += std::to_string(m.msg - HYRE_DBLCLK) + (m.sent ? "s" : "p") +
                   (m.msg == HYRE_TAB ? std::to_string(m.wParam) : "") +
                   (m.msg == HYRE_RBUTTONUP ? (m.wParam == MAKEWPARAM(screen.x, screen.y) ? "@" : "?") : "") + " ";
        ::PostMessage(dialog, WM_COMMAND, IDCANCEL, 0);
    });
    EXPECT_EQ(CDialog(100).DoModal(), IDCANCEL);
    EXPECT_EQ(seen, "dbl 1|dbl editable 1 sel|keypad 1|enter 2|escape 2|beeps 1 -1");
    // Double clicks: a press and a report instead of the word, then a press
    // (an editable field selects the word); the keypad's Enter once, on
    // release; Tab, which also moves the focus on (sent at once, before the
    // posted reports), and Shift+Tab; the right button's point on screen.
    EXPECT_EQ(log, "4p 0p 4p 2s 3s 5p1 5p0 1p@ ");
}

}  // namespace
