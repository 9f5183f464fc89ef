// CTernEdit: its limit holds for typing and for pasting real clipboard text.
#include <afxwin.h>
#include <gtest/gtest.h>
#include "hytest.h"
#include "hytest_afx.h"
#include "HyTernEdit.h"

#include <string>
#include <vector>

namespace {

// Puts text on the clipboard; nullptr leaves it empty.
void PutOnClipboard(HWND owner, const char* text)
{
    ASSERT_TRUE(::OpenClipboard(owner));
    ::EmptyClipboard();
    if (text != nullptr) {
        const size_t n = strlen(text) + 1;
        HGLOBAL h = ::GlobalAlloc(GMEM_MOVEABLE, n);
        memcpy(::GlobalLock(h), text, n);
        ::GlobalUnlock(h);
        EXPECT_NE(nullptr, ::SetClipboardData(CF_TEXT, h));
    }
    ::CloseClipboard();
}

// An editor that marks the time its paste runs, as derived editors do.
class CMarkingEdit : public CTernEdit
{
public:
    int pasting = 0;
    int pastingSeenByInsert = -1;

protected:
    afx_msg LRESULT OnPasteMarked(WPARAM wParam, LPARAM lParam)
    {
        pasting = 1;
        LRESULT r = CTernEdit::OnPaste(wParam, lParam);
        pasting = 0;
        return r;
    }
    afx_msg LRESULT OnReplaceSel(WPARAM, LPARAM)
    {
        pastingSeenByInsert = pasting;
        return Default();
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CMarkingEdit, CTernEdit)
    ON_MESSAGE(WM_PASTE, OnPasteMarked)
    ON_MESSAGE(EM_REPLACESEL, OnReplaceSel)
END_MESSAGE_MAP()

// Standard controls, a frame with a focused bordered edit, typing and a paste.
void WarmUp()
{
    WarmUpStandardControls();
    for (int round = 0; round < 2; ++round)
    {
        hytest::HostFrame frame;
        CTernEdit edit;
        edit.SetMaxChars(2);
        edit.Create(WS_CHILD | WS_VISIBLE | WS_BORDER | ES_AUTOHSCROLL, CRect(10, 10, 210, 90),
                    CWnd::FromHandle(frame), 100);
        edit.SetFocus();
        hytest::Type(edit, "abc");
        edit.SendMessage(WM_PASTE);
        edit.DestroyWindow();
        hytest::PumpMessages();
    }
    AfxDeleteTempMaps();
}

class TernEditTest : public GuardedTest<WarmUp>
{
protected:
    hytest::HostFrame frame;
    hytest::BeepRecorder beeps;

    void Make(CTernEdit& edit, DWORD style = ES_AUTOHSCROLL)
    {
        ASSERT_TRUE(edit.Create(WS_CHILD | WS_VISIBLE | WS_BORDER | style, CRect(10, 10, 210, 90),
                                CWnd::FromHandle(frame), 100));
        edit.SetFocus();
    }
};

}  // namespace

TEST_F(TernEditTest, TypingStopsAtTheLimitWithABeepPerRefusedKeyOnlyWhileALimitIsSet)
{
    CTernEdit edit;
    edit.SetMaxChars(5);     // before the window exists
    Make(edit);
    EXPECT_EQ(5u, edit.GetLimitText());
    std::vector<std::string> steps;
    hytest::Type(edit, "abcdefg");
    steps.push_back(WindowText(edit) + std::to_string(beeps.Count()));
    // Editing keys still work at the limit, and a selection makes room.
    hytest::Char(edit, '\b');
    steps.push_back(WindowText(edit));
    hytest::Type(edit, "X");
    steps.push_back(WindowText(edit));
    edit.SetSel(0, 2);
    hytest::Type(edit, "Z");
    steps.push_back(WindowText(edit) + std::to_string(beeps.Count()));
    edit.DestroyWindow();

    // Set on a live window, then removed.
    CTernEdit live;
    Make(live);
    live.SetMaxChars(3);
    EXPECT_TRUE(live.GetMaxChars() == 3 && live.GetLimitText() == 3u);
    hytest::Type(live, "abcd");
    steps.push_back(WindowText(live));
    live.SetMaxChars(0);
    EXPECT_GT(live.GetLimitText(), 3u);
    hytest::Type(live, "def");
    steps.push_back(WindowText(live) + std::to_string(beeps.Count()));
    EXPECT_EQ((std::vector<std::string>{ "abcde2", "abcd", "abcdX", "ZcdX2", "abc", "abcdef3" }), steps);
    live.DestroyWindow();
}

// Pastes: whatever the way in, what fits goes in, never half a line break,
// and a paste never beeps.
struct PasteCase
{
    const char* name;
    DWORD style;
    int maxChars;           // 0: no limit of ours
    const char* typed;      // typed first
    int selStart, selEnd;   // then selected (-1: leave the caret at the end)
    const char* clipboard;  // nullptr: an empty clipboard
    bool ctrlV;             // Ctrl+V instead of WM_PASTE
    int pastes;
    const char* expected;
};

const PasteCase kPastes[] = {
    { "WhatFitsGoesIn", ES_AUTOHSCROLL, 5, "ab", -1, -1, "0123456789", false, 1, "ab012" },
    { "FullTakesNothingMore", ES_AUTOHSCROLL, 5, "ab", -1, -1, "0123456789", false, 2, "ab012" },
    { "SelectionIsReplacedAndCountsAsRoom", ES_AUTOHSCROLL, 5, "abcde", 1, 4, "WXYZ", false, 1, "aWXYe" },
    { "CtrlVTakesTheSamePath", ES_AUTOHSCROLL, 4, "", -1, -1, "pasted text", true, 1, "past" },
    { "SingleLineTakesTheFirstLine", ES_AUTOHSCROLL, 0, "", -1, -1, "one\r\ntwo", false, 1, "one" },
    { "MultiLineTakesEveryLine", ES_MULTILINE | ES_WANTRETURN, 0, "", -1, -1, "one\r\ntwo", false, 1, "one\r\ntwo" },
    { "LineBreakIsNeverCutInHalf", ES_MULTILINE | ES_WANTRETURN, 4, "", -1, -1, "one\r\ntwo", false, 1, "one" },
    { "ReadOnlyTakesNothing", ES_AUTOHSCROLL | ES_READONLY, 0, "", -1, -1, "text", false, 1, "" },
    { "EmptyClipboardGivesNothing", ES_AUTOHSCROLL, 0, "", -1, -1, nullptr, false, 1, "" },
};

TEST_F(TernEditTest, PastesInsertWhatFitsWithoutBeeping)
{
    for (const PasteCase& c : kPastes) {
        SCOPED_TRACE(c.name);
        CTernEdit edit;
        Make(edit, c.style);
        if (c.maxChars > 0) edit.SetMaxChars(c.maxChars);
        hytest::Type(edit, c.typed);
        if (c.selStart >= 0) edit.SetSel(c.selStart, c.selEnd);
        PutOnClipboard(frame, c.clipboard);
        for (int i = 0; i < c.pastes; ++i) {
            if (c.ctrlV)
                hytest::Char(edit, 0x16);
            else
                edit.SendMessage(WM_PASTE);
        }
        EXPECT_EQ(c.expected, WindowText(edit));
        EXPECT_EQ(0, beeps.Count());
        edit.DestroyWindow();
    }
}

TEST_F(TernEditTest, DerivedEditorWrapsTheHostPaste)
{
    CMarkingEdit edit;
    Make(edit);
    edit.SetMaxChars(6);
    PutOnClipboard(frame, "clipboard");
    edit.SendMessage(WM_PASTE);
    EXPECT_EQ("clipbo", WindowText(edit));
    EXPECT_TRUE(edit.pastingSeenByInsert == 1 && edit.pasting == 0);   // the text went in inside the paste
    edit.DestroyWindow();
}
