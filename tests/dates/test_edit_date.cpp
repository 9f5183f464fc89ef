// CHyEditDate: a real edit window in a month/day/year locale, driven by real
// focus changes and keys; message boxes are recorded at the import boundary.
#include <afxwin.h>
#include <afxdisp.h>
#include <gtest/gtest.h>
#include "hytest.h"
#include "hytest_afx.h"
#include "HyEditDate.h"
#include "HyDateHelpers.h"
#include "HyIntlTime.h"

#include <string>
#include <utility>
#include <vector>

namespace {

constexpr UINT kFieldId = 100;

// The locale's short date of a day, as the field should show it.
std::string ShortDate(int year, int month, int day)
{
    std::string text(HyGetDate(COleDateTime(year, month, day, 0, 0, 0).m_dt, 1));
    if (text.empty())
        ADD_FAILURE() << "no short date for " << year << "-" << month << "-" << day;
    return text;
}

// The selection as (start, end).
std::pair<int, int> Sel(const CEdit& edit)
{
    int start = -1, end = -1;
    edit.GetSel(start, end);
    return { start, end };
}

std::vector<int> Parts(const CHyEditDate& field)
{
    return { field.Year(), field.Month(), field.Day() };
}

// The field inside a frame, beside a plain edit that can take the focus.
struct FieldRig
{
    hytest::HostFrame frame;
    CHyEditDate field;
    CEdit other;

    explicit FieldRig(DWORD style = ES_AUTOHSCROLL)
    {
        CWnd* parent = CWnd::FromHandle(frame);
        EXPECT_TRUE(field.Create(WS_CHILD | WS_VISIBLE | WS_BORDER | WS_TABSTOP | style, CRect(10, 10, 210, 34),
                                 parent, kFieldId));
        EXPECT_TRUE(other.Create(WS_CHILD | WS_VISIBLE | WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL,
                                 CRect(10, 50, 210, 74), parent, kFieldId + 1));
        ::ShowWindow(frame, SW_SHOW);
        field.SetFocus();
        hytest::PumpMessages();
    }
    ~FieldRig()
    {
        field.DestroyWindow();
        other.DestroyWindow();
        hytest::PumpMessages();
    }
    // Replaces the text as a user would: select everything and type.
    void Retype(const char* text)
    {
        field.SetFocus();
        field.SetSel(0, -1);
        hytest::Char(field, '\b');
        hytest::Type(field, text);
    }
    void LeaveField()
    {
        other.SetFocus();
        hytest::PumpMessages();
    }
};

void WarmUp()
{
    WarmUpStandardControls();
    for (int round = 0; round < 2; ++round)
    {
        FieldRig rig;
        rig.field.SetBlankString("None");
        rig.Retype("1/2/03");
        rig.LeaveField();
        rig.field.SetFocus();
        hytest::KeyPress(rig.field, VK_DELETE);
        hytest::DoubleClick(rig.field, 5, 5);
    }
    AfxDeleteTempMaps();
}

class EditDateTest : public GuardedTest<WarmUp>
{
protected:
    hytest::LocaleValues locale;
    hytest::MessageBoxRecorder boxes;

    void SetUp() override
    {
        ASSERT_TRUE(locale.Set(LOCALE_SSHORTDATE, "M/d/yyyy"));
    }
};

// ---- reading what was typed -------------------------------------------------

using EditDateTyping = EditDateTest;

// Typed, then the focus leaves: a date the field accepts is rewritten in the
// locale's short form (M/d/yyyy here); anything else stays as typed, without
// a complaint. Two-digit years pivot on the first valid year (the year and
// leap rules themselves are tested natively).
TEST_F(EditDateTyping, FocusLossRewritesAnAcceptedDateAndKeepsEverythingElse)
{
    const int thisYear = CTime::GetCurrentTime().GetYear();
    const struct
    {
        int minYear;
        const char* typed;
        std::string shown;
        int year, valid;
    } rows[] = {
        {1904, "1/2/03", ShortDate(2003, 1, 2), 2003, 1},
        {1950, "1/2/49", "1/2/49", 2049, 0},   // the pivot moves with the first year (past the last one)
        {1904, "12/24", ShortDate(thisYear, 12, 24), thisYear, 1},
        {1904, "2/31/2005", "2/31/2005", 1999, 0},   // the refused parse left -1; the year step still ran
        {1904, "7/4/1850", "7/4/1850", 3750, 0},     // the century rule: out of range
        {1904, "31.12.2005", "31.12.2005", -1, -1},  // not this locale's separator
    };
    FieldRig rig;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.typed);
        rig.field.SetMinYear(row.minYear);
        rig.Retype(row.typed);
        rig.LeaveField();
        EXPECT_EQ(row.shown, WindowText(rig.field));
        if (row.year != -1) {
            EXPECT_EQ(row.year, rig.field.Year());
        }
        if (row.valid != -1) {
            EXPECT_EQ(row.valid, rig.field.IsValidDate());
        }
    }
    EXPECT_TRUE(boxes.Calls().empty());   // focus loss never complains

}

// ---- the blank text ----------------------------------------------------------

using EditDateBlank = EditDateTest;

// Only the exact blank text is blank (and parses to "no date"); an emptied
// field shows it on focus loss, unless blanks are allowed; deleting or erasing
// everything shows it selected, ready to be typed over.
TEST_F(EditDateBlank, TheExactBlankTextStandsForAnEmptiedField)
{
    FieldRig rig;
    EXPECT_EQ(1, rig.field.IsBlank());   // no blank text: the empty field is blank
    rig.field.SetDate(2005, 3, 5);
    rig.field.SetWindowText("");
    rig.LeaveField();
    EXPECT_EQ("", WindowText(rig.field));
    EXPECT_EQ(-1, rig.field.Year());

    rig.field.SetBlankString("None");
    for (auto [text, blank] : { std::pair("None", 1), { "", 0 }, { "none", 0 }, { "None ", 0 } })
    {
        rig.field.SetWindowText(text);
        EXPECT_EQ(blank, rig.field.IsBlank()) << text;
    }
    rig.field.SetWindowText("None");
    EXPECT_EQ(1, rig.field.ReadFormat());
    EXPECT_EQ(std::vector<int>({ -1, -1, -1 }), Parts(rig.field));

    rig.field.SetFocus();
    rig.field.SetWindowText("");
    rig.LeaveField();
    EXPECT_EQ("None", WindowText(rig.field));
    rig.field.SetFocus();
    rig.field.AllowBlank(1);
    rig.field.SetWindowText("");
    rig.LeaveField();
    EXPECT_EQ("", WindowText(rig.field));
    EXPECT_TRUE(boxes.Calls().empty());

    rig.field.SetFocus();
    rig.field.SetWindowText("5");
    rig.field.SetSel(0, 0);
    hytest::KeyPress(rig.field, VK_DELETE);
    EXPECT_EQ("None", WindowText(rig.field));
    hytest::Type(rig.field, "7");      // the blank text was selected
    EXPECT_EQ("7", WindowText(rig.field));
    hytest::Char(rig.field, '\b');
    EXPECT_EQ("None", WindowText(rig.field));
}

// ---- setting, reading and restoring the date -----------------------------------

using EditDateValue = EditDateTest;

// Every setter shows the local day; GetDate answers one o'clock; impossible
// parts change nothing; no date shows the blank text; SetEdit shows a date
// outside the range without complaint.
TEST_F(EditDateValue, SettersShowTheLocalDayAndGetDateIsOneOClock)
{
    FieldRig rig;
    rig.field.SetDate(2005, 1, 1);
    EXPECT_EQ(ShortDate(2005, 1, 1), WindowText(rig.field));
    EXPECT_EQ(COleDateTime(2005, 1, 1, 1, 0, 0).m_dt, rig.field.GetDate());
    EXPECT_EQ("1", std::string(rig.field.GetDay()));
    for (auto [month, day] : { std::pair(13, 1), { 0, 1 }, { 1, 32 }, { 1, 0 } })
        rig.field.SetDate(2005, month, day);
    EXPECT_EQ(ShortDate(2005, 1, 1), WindowText(rig.field));
    EXPECT_EQ(std::vector<int>({ 2005, 1, 1 }), Parts(rig.field));

    rig.field.SetDate((long)CTime(2010, 11, 30, 23, 30, 0).GetTime());
    EXPECT_EQ(ShortDate(2010, 11, 30), WindowText(rig.field));
    rig.field.SetDate(COleDateTime(2011, 7, 9, 18, 0, 0).m_dt);
    EXPECT_EQ(ShortDate(2011, 7, 9), WindowText(rig.field));
    EXPECT_EQ(COleDateTime(2011, 7, 9, 1, 0, 0).m_dt, rig.field.GetDate());
    rig.field.SetBlankString("None");
    rig.field.SetDate(-1.0);
    EXPECT_EQ("None", WindowText(rig.field));
    EXPECT_EQ(-1.0, rig.field.GetDate());
    rig.field.SetEdit(COleDateTime(2040, 7, 4, 0, 0, 0).m_dt);
    EXPECT_EQ(ShortDate(2040, 7, 4), WindowText(rig.field));
    EXPECT_EQ((std::vector<int>{ 2040, 0, 0 }), (std::vector<int>{ rig.field.Year(), rig.field.IsValidDate(), boxes.Count() }));
}

// A refused date brings back the last one set (by time or OLE date), with
// the host's exclamation and a sent restore message carrying that time.
TEST_F(EditDateValue, ARefusedDateRestoresTheLastOneSetAndTellsUserAndParent)
{
    FieldRig rig;
    const CTime last(2004, 6, 15, 12, 0, 0);
    rig.field.SetDate((long)last.GetTime());
    rig.field.SetWindowText("7/4/1850");
    ASSERT_EQ(1, rig.field.ReadFormat());
    EXPECT_EQ(0, rig.field.WriteFormat(1));
    ASSERT_EQ(1, boxes.Count());
    EXPECT_EQ(UINT(MB_ICONEXCLAMATION), boxes.Calls()[0].type & MB_ICONMASK);
    char text[512] = "";
    ::LoadStringA(::GetModuleHandleA("HyHost.dll"), 283, text, sizeof text);
    EXPECT_TRUE(*text && boxes.Calls()[0].text == text);
    EXPECT_EQ(ShortDate(2004, 6, 15), WindowText(rig.field));
    const hytest::Msg* restored = rig.frame.Last(HYWM_DATEEDIT_RESTORED);
    EXPECT_TRUE(restored && restored->sent && restored->lParam == (LPARAM)last.GetTime());
    EXPECT_EQ(std::pair(0, rig.field.GetWindowTextLength()), Sel(rig.field));

    rig.field.SetDate(COleDateTime(2012, 8, 20, 0, 0, 0).m_dt);
    rig.field.SetDate(1850, 1, 1);    // out of range: back to 20 August 2012
    EXPECT_EQ(2, boxes.Count());
    EXPECT_EQ(ShortDate(2012, 8, 20), WindowText(rig.field));
    restored = rig.frame.Last(HYWM_DATEEDIT_RESTORED);
    EXPECT_TRUE(restored && restored->lParam == (LPARAM)CTime(2012, 8, 20, 0, 0, 0).GetTime());
}

// What was typed, read without rewriting it, in each of the three forms.
TEST_F(EditDateValue, DateEnteredReadsTheTextInEachForm)
{
    FieldRig rig;
    int y = 0, m = 0, d = 0;
    long t = 0;
    double ole = 0;
    rig.Retype("3/5/2005");   // still focused: nothing rewritten yet
    EXPECT_EQ(std::vector<int>({ 1, 1, 1 }), std::vector<int>({ rig.field.GetDateEntered(y, m, d),
                                                               rig.field.GetDateEntered(t), rig.field.GetDateEntered(ole) }));
    EXPECT_EQ(std::vector<int>({ 2005, 3, 5 }), std::vector<int>({ y, m, d }));
    EXPECT_TRUE(t == (long)CTime(2005, 3, 5, 1, 0, 0).GetTime() && ole == COleDateTime(2005, 3, 5, 1, 0, 0).m_dt);
    rig.Retype("2/30/2005");
    EXPECT_EQ(std::vector<int>({ 0, 0, 0 }), std::vector<int>({ rig.field.GetDateEntered(y, m, d),
                                                               rig.field.GetDateEntered(t), rig.field.GetDateEntered(ole) }));
    EXPECT_TRUE(y == -1 && t == -1 && ole == -1.0);
    EXPECT_EQ("2/30/2005", WindowText(rig.field));
}

// ---- keys ----------------------------------------------------------------------

using EditDateKeys = EditDateTest;

TEST_F(EditDateKeys, ParentAnsweringTheKeyMessageConsumesTheKey)
{
    FieldRig rig;
    rig.field.SetWindowText("12");
    rig.frame.OnMessage(HYWM_DATEEDIT_KEYDOWN,
                        [](HWND, WPARAM, LPARAM) -> LRESULT { return HYWM_DATEEDIT_KEYDOWN; });
    rig.field.SetSel(0, 0);
    hytest::KeyPress(rig.field, VK_DELETE);
    EXPECT_EQ("12", WindowText(rig.field));
    const hytest::Msg *down = rig.frame.Last(HYWM_DATEEDIT_KEYDOWN), *up = rig.frame.Last(HYWM_DATEEDIT_KEYUP);
    ASSERT_TRUE(down && up);
    EXPECT_TRUE(down->sent && down->wParam == VK_DELETE && up->wParam == VK_DELETE && up->seq > down->seq);

    // Any other answer leaves the key to the field.
    rig.frame.OnMessage(HYWM_DATEEDIT_KEYDOWN, [](HWND, WPARAM, LPARAM) -> LRESULT { return 1; });
    hytest::KeyPress(rig.field, VK_DELETE);
    EXPECT_EQ("2", WindowText(rig.field));
}

TEST_F(EditDateKeys, EnterIsSwallowedAndADoubleClickSelectsTheWholeText)
{
    // A multi-line edit that wants Enter would insert a line break.
    FieldRig rig(ES_MULTILINE | ES_WANTRETURN | ES_AUTOVSCROLL);
    rig.field.SetWindowText("3/5/2005 x");
    rig.field.SetSel(8, 8);
    hytest::KeyPress(rig.field, VK_RETURN);
    EXPECT_EQ("3/5/2005 x", WindowText(rig.field));
    EXPECT_EQ(1, rig.field.GetLineCount());
    hytest::DoubleClick(rig.field, 4, 8);
    EXPECT_EQ(std::pair(0, 10), Sel(rig.field));
}

} // namespace
