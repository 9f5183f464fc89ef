// Common control wrappers: up-down, rich edit and tooltip, as real controls
// in a real parent window.
#include <gtest/gtest.h>

#include "afxcmn.h"
#include "hytest.h"
#include "afx_test_helpers.h"

#include <string>

namespace {

BOOL CreateParent(CWnd& parent)
{
    return parent.CreateEx(0, AfxRegisterWndClass(0), _T("common controls"),
                           WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, 0, 0, 400, 300, nullptr, nullptr);
}


// ---------------------------------------------------------------------------
// up-down

TEST(ControlsSpin, RangeAndPositionClamp)
{
    RunRepeated([] {
        CWnd parent;
        ASSERT_TRUE(CreateParent(parent));
        CSpinButtonCtrl spin;
        ASSERT_TRUE(spin.Create(WS_CHILD | UDS_ARROWKEYS, CRect(0, 0, 16, 24), &parent, 701));

        spin.SetRange(-5, 20);
        int lower = 0, upper = 0;
        spin.GetRange(lower, upper);
        EXPECT_EQ(-5, lower);
        EXPECT_EQ(20, upper);
        EXPECT_EQ((DWORD)MAKELONG(20, -5), spin.GetRange());

        spin.SetPos(7);
        EXPECT_EQ(7, LOWORD(spin.GetPos()));
        EXPECT_EQ(7, spin.SetPos(30));       // answers the previous position
        EXPECT_EQ(20, LOWORD(spin.GetPos()));   // clamped to the range
        spin.SetPos(-3);
        EXPECT_EQ(-3, (short)LOWORD(spin.GetPos()));

        spin.SetRange32(-100000, 100000);
        spin.GetRange32(lower, upper);
        EXPECT_EQ(-100000, lower);
        EXPECT_EQ(100000, upper);
        spin.SetPos32(-70000);
        EXPECT_EQ(-70000, spin.GetPos32());
        spin.SetPos32(250000);
        EXPECT_EQ(100000, spin.GetPos32());

        // The arrow keys step within the range.
        spin.SetRange(0, 3);
        spin.SetPos(2);
        hytest::KeyPress(spin.m_hWnd, VK_UP);
        hytest::KeyPress(spin.m_hWnd, VK_UP);
        EXPECT_EQ(3, LOWORD(spin.GetPos()));
    });
}

TEST(ControlsSpin, BuddyBaseAndAccelerators)
{
    RunRepeated([] {
        CWnd parent;
        ASSERT_TRUE(CreateParent(parent));
        CEdit edit;
        ASSERT_TRUE(edit.Create(WS_CHILD | ES_AUTOHSCROLL, CRect(0, 0, 60, 24), &parent, 702));
        CSpinButtonCtrl spin;
        ASSERT_TRUE(spin.Create(WS_CHILD | UDS_SETBUDDYINT | UDS_NOTHOUSANDS, CRect(60, 0, 76, 24), &parent, 703));
        EXPECT_EQ(nullptr, spin.SetBuddy(&edit));
        EXPECT_EQ(&edit, spin.GetBuddy());   // the permanent wrapper

        spin.SetRange32(0, 5000);
        spin.SetPos32(1234);
        CString text;
        edit.GetWindowText(text);
        EXPECT_STREQ(_T("1234"), (LPCTSTR)text);
        // The position is read back from the buddy's text; a valid text is no error.
        edit.SetWindowText(_T("321"));
        BOOL error = TRUE;
        EXPECT_EQ(321, spin.GetPos32(&error));
        EXPECT_FALSE(error);
        EXPECT_EQ(0, HIWORD(spin.GetPos()));
        edit.SetWindowText(_T("junk"));
        spin.GetPos32(&error);
        EXPECT_TRUE(error);
        EXPECT_NE(0, HIWORD(spin.GetPos()));

        EXPECT_EQ(10, spin.SetBase(16));
        EXPECT_EQ(16u, spin.GetBase());
        spin.SetPos32(255);
        edit.GetWindowText(text);
        EXPECT_STREQ(_T("0x00FF"), (LPCTSTR)text);

        UDACCEL accel[2] = { { 0, 1 }, { 2, 10 } };
        EXPECT_TRUE(spin.SetAccel(2, accel));
        UDACCEL back[4] = {};
        EXPECT_EQ(2u, spin.GetAccel(4, back));
        EXPECT_EQ(2u, back[1].nSec);
        EXPECT_EQ(10u, back[1].nInc);
    });
}

// ---------------------------------------------------------------------------
// rich edit

struct StreamBuffer
{
    std::string data;
    size_t readPos = 0;
};

DWORD CALLBACK StreamOutCallback(DWORD_PTR cookie, LPBYTE buf, LONG cb, LONG* pcb)
{
    reinterpret_cast<StreamBuffer*>(cookie)->data.append((const char*)buf, (size_t)cb);
    *pcb = cb;
    return 0;
}

DWORD CALLBACK StreamInCallback(DWORD_PTR cookie, LPBYTE buf, LONG cb, LONG* pcb)
{
    auto* s = reinterpret_cast<StreamBuffer*>(cookie);
    size_t n = s->data.size() - s->readPos;
    if (n > (size_t)cb)
        n = (size_t)cb;
    memcpy(buf, s->data.data() + s->readPos, n);
    s->readPos += n;
    *pcb = (LONG)n;
    return 0;
}

TEST(ControlsRichEdit, SelectionTextAndStreams)
{
    RunRepeated([] {
        CWnd parent;
        ASSERT_TRUE(CreateParent(parent));
        CRichEditCtrl rich;
        ASSERT_TRUE(rich.Create(WS_CHILD | ES_MULTILINE, CRect(0, 0, 300, 200), &parent, 801));

        rich.ReplaceSel(_T("Hello rich"));
        EXPECT_EQ(10, rich.GetTextLength());
        rich.SetSel(6, 10);
        long start = 0, end = 0;
        rich.GetSel(start, end);
        EXPECT_EQ(6, start);
        EXPECT_EQ(10, end);
        EXPECT_STREQ(_T("rich"), (LPCTSTR)rich.GetSelText());
        CHARRANGE cr = { 0, 5 };
        rich.SetSel(cr);
        EXPECT_STREQ(_T("Hello"), (LPCTSTR)rich.GetSelText());
        rich.SetSel(3, 3);
        EXPECT_TRUE(rich.GetSelText().IsEmpty());

        StreamBuffer out;
        EDITSTREAM es = { (DWORD_PTR)&out, 0, StreamOutCallback };
        EXPECT_EQ(10, rich.StreamOut(SF_TEXT, es));
        EXPECT_EQ("Hello rich", out.data);

        StreamBuffer in;
        in.data = "first\rsecond\rthird";
        EDITSTREAM esIn = { (DWORD_PTR)&in, 0, StreamInCallback };
        rich.StreamIn(SF_TEXT, esIn);
        EXPECT_EQ(3, rich.GetLineCount());
        EXPECT_EQ(1, rich.LineFromChar(8));
        EXPECT_EQ(2, rich.LineFromChar(14));

        rich.EmptyUndoBuffer();
        EXPECT_FALSE(rich.CanUndo());
        rich.SetSel(0, 5);
        rich.ReplaceSel(_T("1st"), TRUE);
        EXPECT_TRUE(rich.CanUndo());
        EXPECT_TRUE(rich.Undo());
        rich.SetSel(0, 5);
        EXPECT_STREQ(_T("first"), (LPCTSTR)rich.GetSelText());
    });
}

TEST(ControlsRichEdit, LimitsFormatsAndOptions)
{
    RunRepeated([] {
        CWnd parent;
        ASSERT_TRUE(CreateParent(parent));
        CRichEditCtrl rich;
        ASSERT_TRUE(rich.Create(WS_CHILD | ES_MULTILINE, CRect(0, 0, 300, 200), &parent, 802));

        rich.LimitText(6);
        EXPECT_EQ(6, rich.GetLimitText());
        hytest::Type(rich.m_hWnd, "abcdefghij");
        EXPECT_EQ(6, rich.GetTextLength());

        EXPECT_EQ(0u, rich.SetEventMask(ENM_CHANGE | ENM_SELCHANGE));
        EXPECT_EQ((DWORD)(ENM_CHANGE | ENM_SELCHANGE), rich.GetEventMask());

        rich.SetBackgroundColor(FALSE, RGB(1, 2, 3));
        EXPECT_EQ(RGB(1, 2, 3), rich.SetBackgroundColor(TRUE, 0));

        CHARFORMAT cf = {};
        cf.dwMask = CFM_BOLD;
        cf.dwEffects = CFE_BOLD;
        EXPECT_TRUE(rich.SetDefaultCharFormat(cf));
        CHARFORMAT back = {};
        EXPECT_TRUE(rich.GetDefaultCharFormat(back) & CFM_BOLD);
        EXPECT_TRUE(back.dwEffects & CFE_BOLD);

        rich.SetSel(0, 2);
        cf.dwMask = CFM_ITALIC;
        cf.dwEffects = CFE_ITALIC;
        EXPECT_TRUE(rich.SetSelectionCharFormat(cf));
        rich.SetSel(0, 1);
        back = {};
        rich.GetSelectionCharFormat(back);
        EXPECT_TRUE(back.dwEffects & CFE_ITALIC);
        rich.SetSel(4, 5);
        rich.GetSelectionCharFormat(back);
        EXPECT_FALSE(back.dwEffects & CFE_ITALIC);

        EXPECT_TRUE(rich.SetReadOnly());
        EXPECT_TRUE(rich.GetStyle() & ES_READONLY);
        rich.SetOptions(ECOOP_AND, (DWORD)~ECO_READONLY);
        EXPECT_FALSE(rich.GetOptions() & ECO_READONLY);
        EXPECT_FALSE(rich.GetStyle() & ES_READONLY);
    });
}

// ---------------------------------------------------------------------------
// tooltip

TEST(ControlsToolTip, ToolsAddedFoundAndRemoved)
{
    RunRepeated([] {
        CWnd parent;
        ASSERT_TRUE(CreateParent(parent));
        CButton button;
        ASSERT_TRUE(button.Create(_T("Save"), WS_CHILD | WS_VISIBLE, CRect(10, 10, 90, 40), &parent, 901));
        CToolTipCtrl tips;
        ASSERT_TRUE(tips.Create(&parent, TTS_ALWAYSTIP));
        EXPECT_TRUE(tips.GetStyle() & WS_POPUP);
        EXPECT_EQ(parent.m_hWnd, ::GetWindow(tips.m_hWnd, GW_OWNER));
        EXPECT_EQ(0, tips.GetToolCount());

        EXPECT_TRUE(tips.AddTool(&button, _T("Save the record")));
        const CRect area(200, 100, 260, 140);
        EXPECT_TRUE(tips.AddTool(&parent, LPSTR_TEXTCALLBACK, &area, 7));
        EXPECT_EQ(2, tips.GetToolCount());

        CString text;
        tips.GetText(text, &button);
        EXPECT_STREQ(_T("Save the record"), (LPCTSTR)text);
        tips.UpdateTipText(_T("Store it"), &button);
        tips.GetText(text, &button);
        EXPECT_STREQ(_T("Store it"), (LPCTSTR)text);

        CToolInfo info;
        ASSERT_TRUE(tips.GetToolInfo(info, &parent, 7));
        EXPECT_EQ(LPSTR_TEXTCALLBACK, info.lpszText);
        EXPECT_EQ(area, CRect(info.rect));
        EXPECT_FALSE(tips.GetToolInfo(info, &parent, 8));

        TOOLINFO hit = {};
        EXPECT_TRUE(tips.HitTest(&parent, CPoint(210, 120), &hit));
        EXPECT_EQ(7u, hit.uId);
        EXPECT_FALSE(tips.HitTest(&parent, CPoint(150, 120), &hit));
        const CRect moved(0, 200, 50, 250);
        tips.SetToolRect(&parent, 7, &moved);
        EXPECT_TRUE(tips.HitTest(&parent, CPoint(10, 210), &hit));

        tips.DelTool(&button);
        EXPECT_EQ(1, tips.GetToolCount());
        tips.DelTool(&parent, 7);
        EXPECT_EQ(0, tips.GetToolCount());
    });
}

TEST(ControlsToolTip, DelaysAndWidth)
{
    RunRepeated([] {
        CWnd parent;
        ASSERT_TRUE(CreateParent(parent));
        CToolTipCtrl tips;
        ASSERT_TRUE(tips.Create(&parent));
        tips.SetDelayTime(TTDT_INITIAL, 250);
        EXPECT_EQ(250, tips.GetDelayTime(TTDT_INITIAL));
        // The automatic form derives the others from one value.
        tips.SetDelayTime(400);
        EXPECT_EQ(400, tips.GetDelayTime(TTDT_INITIAL));
        EXPECT_EQ(4000, tips.GetDelayTime(TTDT_AUTOPOP));
        EXPECT_EQ(-1, tips.SetMaxTipWidth(150));
        EXPECT_EQ(150, tips.GetMaxTipWidth());
    });
}

}  // namespace
