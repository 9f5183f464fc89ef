// Control wrappers on real controls in a real parent. Most wrappers send one
// message: one table checks those that place two arguments, pack or supply
// parameters (both halves, defaults, flags) send the right message with the
// right parameters and hand back the control's answer. A wrapper that passes
// nothing, or its one argument as it comes, would only restate its own line
// and is not listed; nor is the second of two wrappers built alike. The rest
// tests what the wrappers add: string and output adapters, owner-draw
// reflection, tool identities.
#include <gtest/gtest.h>

#include "afxcmn.h"
#include "hytest.h"
#include "hytest_afx.h"

#include <utility>
#include <vector>

namespace {

BOOL CreateParent(CWnd& parent, bool visible = false)
{
    return parent.CreateEx(0, AfxRegisterWndClass(0), _T("controls"),
                           WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN | (visible ? WS_VISIBLE : 0),
                           0, 0, 400, 300, nullptr, nullptr);
}

const CRect kCtrlRect(10, 10, 210, 160);

// One real control of every wrapped class.
struct Controls
{
    CWnd parent;
    CListBox list;
    CComboBox combo;
    CStatic picture;
    CButton button;
    CEdit edit;
    CSpinButtonCtrl spin;
    CRichEditCtrl rich;
    CToolTipCtrl tip;

    bool Create()
    {
        return CreateParent(parent) && list.Create(WS_CHILD, kCtrlRect, &parent, 201) &&
               combo.Create(WS_CHILD | CBS_DROPDOWN, kCtrlRect, &parent, 202) &&
               picture.Create(nullptr, WS_CHILD | SS_BITMAP, kCtrlRect, &parent, 203) &&
               button.Create(_T("b"), WS_CHILD, kCtrlRect, &parent, 204) &&
               edit.Create(WS_CHILD | ES_MULTILINE, kCtrlRect, &parent, 205) &&
               spin.Create(WS_CHILD, kCtrlRect, &parent, 206) &&
               rich.Create(WS_CHILD | ES_MULTILINE, kCtrlRect, &parent, 207) && tip.Create(&parent);
    }
    ~Controls()
    {
        tip.DestroyWindow();
        parent.DestroyWindow();
    }
};

// What the spy answers instead of the control; buffers whose addresses the
// wrappers must pass through.
const LRESULT kAnswer = 0x2A;
const LPCTSTR kText = _T("text");
const HBITMAP kBitmap = (HBITMAP)0x1234;   // never used: the spy answers
const HICON kIcon = (HICON)0x2345;
const HENHMETAFILE kMeta = (HENHMETAFILE)0x3456;
const HDC kDC = (HDC)0x4567;
TCHAR g_text[32];
RECT g_rect;
int g_ints[4];
BOOL g_flag;
UDACCEL g_accel[2];
CHARFORMAT g_cf;
PARAFORMAT g_pf;
EDITSTREAM g_stream;

struct Forward
{
    const char* call;
    CWnd& (*target)(Controls&);
    UINT msg;
    WPARAM wParam;
    LPARAM lParam;
    LRESULT (*invoke)(Controls&);
    bool answers;   // the wrapper returns the control's answer unchanged
};

#define FWD(ctl, msg, wp, lp, expr)                                               \
    { #ctl "." #expr, [](Controls& c) -> CWnd& { return c.ctl; }, msg, (WPARAM)(wp), \
      (LPARAM)(lp), [](Controls& c) { return (LRESULT)(c.ctl.expr); }, true }
#define FWD_VOID(ctl, msg, wp, lp, expr)                                              \
    { #ctl "." #expr, [](Controls& c) -> CWnd& { return c.ctl; }, msg, (WPARAM)(wp), \
      (LPARAM)(lp), [](Controls& c) { c.ctl.expr; return LRESULT(0); }, false }

const std::vector<Forward>& ListAndComboRows()
{
    static const std::vector<Forward> rows = {
        FWD(list, LB_INSERTSTRING, 2, kText, InsertString(2, kText)),
        FWD(list, LB_GETTEXT, 4, g_text, GetText(4, g_text)),
        FWD(list, LB_SETITEMDATA, 7, 0x77, SetItemData(7, 0x77)),
        FWD(list, LB_SETITEMDATA, 9, g_text, SetItemDataPtr(9, g_text)),
        FWD(list, LB_FINDSTRING, -1, kText, FindString(-1, kText)),
        FWD(list, LB_SELECTSTRING, 3, kText, SelectString(3, kText)),
        FWD(list, LB_SETSEL, TRUE, 6, SetSel(6)),   // the flag first, the index second
        FWD(list, LB_SETSEL, FALSE, -1, SetSel(-1, FALSE)),
        FWD(list, LB_GETSELITEMS, 4, g_ints, GetSelItems(4, g_ints)),
        FWD(list, LB_SELITEMRANGEEX, 2, 5, SelItemRange(TRUE, 2, 5)),
        FWD(list, LB_SELITEMRANGEEX, 5, 2, SelItemRange(FALSE, 2, 5)),   // a reversed range deselects
        FWD(list, LB_SETCARETINDEX, 3, 0, SetCaretIndex(3, TRUE)),
        FWD(list, LB_SETCARETINDEX, 3, 1, SetCaretIndex(3, FALSE)),
        FWD(list, LB_GETITEMRECT, 2, &g_rect, GetItemRect(2, &g_rect)),
        FWD(list, LB_SETITEMHEIGHT, 1, 20, SetItemHeight(1, 20)),
        FWD(list, LB_ITEMFROMPOINT, 0, MAKELPARAM(5, 45), ItemFromPoint(CPoint(5, 45), g_flag)),
        FWD(list, LB_SETTABSTOPS, 2, g_ints, SetTabStops(2, g_ints)),

        FWD(combo, CB_INSERTSTRING, 1, kText, InsertString(1, kText)),
        FWD(combo, CB_GETLBTEXT, 3, g_text, GetLBText(3, g_text)),
        FWD(combo, CB_SETITEMDATA, 6, 0x66, SetItemData(6, 0x66)),
        FWD(combo, CB_FINDSTRING, -1, kText, FindString(-1, kText)),
        FWD_VOID(combo, CB_SHOWDROPDOWN, TRUE, 0, ShowDropDown()),
        FWD(combo, CB_SETEXTENDEDUI, TRUE, 0, SetExtendedUI()),
        FWD(combo, CB_SETITEMHEIGHT, 1, 30, SetItemHeight(1, 30)),
        FWD(combo, CB_SETEDITSEL, 0, MAKELONG(2, 5), SetEditSel(2, 5)),
    };
    return rows;
}

const std::vector<Forward>& ButtonAndEditRows()
{
    static const std::vector<Forward> rows = {
        FWD(picture, STM_SETIMAGE, IMAGE_BITMAP, kBitmap, SetBitmap(kBitmap)),
        FWD(picture, STM_SETIMAGE, IMAGE_CURSOR, kIcon, SetCursor(kIcon)),
        FWD(picture, STM_SETIMAGE, IMAGE_ENHMETAFILE, kMeta, SetEnhMetaFile(kMeta)),

        FWD_VOID(button, BM_SETSTYLE, BS_DEFPUSHBUTTON, FALSE, SetButtonStyle(BS_DEFPUSHBUTTON, FALSE)),
        FWD(button, BM_SETIMAGE, IMAGE_BITMAP, kBitmap, SetBitmap(kBitmap)),
        FWD(button, BM_SETIMAGE, IMAGE_ICON, kIcon, SetIcon(kIcon)),
        FWD(button, BM_SETIMAGE, IMAGE_CURSOR, kIcon, SetCursor(kIcon)),

        FWD_VOID(edit, EM_SETSEL, 6, 11, SetSel(6, 11, TRUE)),
        FWD_VOID(edit, EM_SCROLLCARET, 0, 0, SetSel(6, 11)),
        FWD_VOID(edit, EM_SETSEL, 1, 3, SetSel(MAKELONG(1, 3))),   // the start in the low word
        FWD_VOID(edit, EM_REPLACESEL, TRUE, kText, ReplaceSel(kText, TRUE)),
        FWD(edit, EM_GETLINE, 2, g_text, GetLine(2, g_text)),
        FWD_VOID(edit, EM_LINESCROLL, 4, 2, LineScroll(2, 4)),   // characters first, lines second
        FWD(edit, EM_SETREADONLY, TRUE, 0, SetReadOnly()),
        FWD_VOID(edit, EM_SETPASSWORDCHAR, 0xE9, 0, SetPasswordChar((TCHAR)0xE9)),   // no sign extension
        FWD_VOID(edit, EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, MAKELONG(3, 7), SetMargins(3, 7)),
        FWD(edit, EM_SETTABSTOPS, 2, g_ints, SetTabStops(2, g_ints)),
        FWD(edit, EM_CHARFROMPOS, 0, MAKELPARAM(5, 9), CharFromPos(CPoint(5, 9))),
    };
    return rows;
}

const std::vector<Forward>& CommonControlRows()
{
    static const std::vector<Forward> rows = {
        FWD(spin, UDM_SETACCEL, 2, g_accel, SetAccel(2, g_accel)),
        FWD(spin, UDM_SETPOS, 0, MAKELPARAM(-3, 0), SetPos(-3)),
        FWD(spin, UDM_SETPOS32, 0, -70000, SetPos32(-70000)),
        FWD_VOID(spin, UDM_SETRANGE, 0, MAKELPARAM(20, -5), SetRange(-5, 20)),   // the upper limit low
        FWD_VOID(spin, UDM_SETRANGE32, -100000, 100000, SetRange32(-100000, 100000)),
        FWD_VOID(spin, UDM_GETRANGE32, &g_ints[0], &g_ints[1], GetRange32(g_ints[0], g_ints[1])),

        FWD_VOID(rich, EM_REPLACESEL, FALSE, kText, ReplaceSel(kText)),
        FWD_VOID(rich, EM_HIDESELECTION, TRUE, FALSE, HideSelection(TRUE, FALSE)),
        FWD_VOID(rich, EM_EXLIMITTEXT, 0, 6, LimitText(6)),
        FWD_VOID(rich, EM_SETMODIFY, TRUE, 0, SetModify()),
        FWD(rich, EM_SETBKGNDCOLOR, FALSE, RGB(1, 2, 3), SetBackgroundColor(FALSE, RGB(1, 2, 3))),
        FWD(rich, EM_SETCHARFORMAT, SCF_DEFAULT, &g_cf, SetDefaultCharFormat(g_cf)),
        FWD(rich, EM_SETCHARFORMAT, SCF_SELECTION, &g_cf, SetSelectionCharFormat(g_cf)),
        FWD(rich, EM_GETCHARFORMAT, SCF_SELECTION, &g_cf, GetSelectionCharFormat(g_cf)),
        FWD(rich, EM_SETCHARFORMAT, SCF_SELECTION | SCF_WORD, &g_cf, SetWordCharFormat(g_cf)),
        FWD(rich, EM_SETPARAFORMAT, 0, &g_pf, SetParaFormat(g_pf)),
        FWD_VOID(rich, EM_SETOPTIONS, ECOOP_AND, (DWORD)~ECO_READONLY, SetOptions(ECOOP_AND, (DWORD)~ECO_READONLY)),
        FWD_VOID(rich, EM_SETTARGETDEVICE, kDC, 500, SetTargetDevice(kDC, 500)),
        FWD(rich, EM_STREAMIN, SF_TEXT, &g_stream, StreamIn(SF_TEXT, g_stream)),

        FWD_VOID(tip, TTM_SETDELAYTIME, TTDT_AUTOMATIC, 400, SetDelayTime(400)),
        FWD_VOID(tip, TTM_SETDELAYTIME, TTDT_INITIAL, 250, SetDelayTime(TTDT_INITIAL, 250)),
    };
    return rows;
}

#undef FWD
#undef FWD_VOID

void CheckRow(Controls& c, const Forward& row)
{
    SCOPED_TRACE(row.call);
    hytest::WindowSpy spy(row.target(c).m_hWnd);
    spy.RecordOnly({ row.msg });
    spy.OnMessage(row.msg, [](HWND, WPARAM, LPARAM) { return kAnswer; });
    g_cf.cbSize = g_pf.cbSize = 0;   // the format wrappers fill the size in
    LRESULT got = row.invoke(c);
    ASSERT_EQ(1u, spy.Count(row.msg)) << hytest::MessageName(row.msg);
    if (row.lParam == (LPARAM)&g_cf) {
        EXPECT_EQ(sizeof g_cf, g_cf.cbSize);
    }
    if (row.lParam == (LPARAM)&g_pf) {
        EXPECT_EQ(sizeof g_pf, g_pf.cbSize);
    }
    EXPECT_EQ(row.wParam, spy.Last(row.msg)->wParam);
    EXPECT_EQ(row.lParam, spy.Last(row.msg)->lParam);
    if (row.answers) {
        EXPECT_EQ(kAnswer, got);
    }
}

TEST(ControlWrappers, EachSendsItsMessageAndAnswersTheReply)
{
    RunRepeated([] {
        Controls c;
        ASSERT_TRUE(c.Create());
        for (const auto* rows : { &ListAndComboRows(), &ButtonAndEditRows(), &CommonControlRows() })
            for (const Forward& row : *rows)
                CheckRow(c, row);
    });
}

// ---------------------------------------------------------------------------
// what the wrappers add

TEST(ControlWrappers, StringAdaptersReadWholeItemsAndEmptyOnABadIndex)
{
    RunRepeated([] {
        Controls c;
        ASSERT_TRUE(c.Create());
        for (LPCTSTR t : { _T("Anna"), _T("Berta"), _T("Carl") }) {
            c.list.AddString(t);
            c.combo.AddString(t);
        }
        CString s;
        c.list.GetText(1, s);
        EXPECT_STREQ(_T("Berta"), (LPCTSTR)s);
        c.list.GetText(9, s);
        EXPECT_TRUE(s.IsEmpty());
        c.combo.GetLBText(2, s);
        EXPECT_STREQ(_T("Carl"), (LPCTSTR)s);
        s = _T("stale");
        c.combo.GetLBText(7, s);
        EXPECT_TRUE(s.IsEmpty());

        // GetLine writes the buffer size into the buffer; a one-character
        // buffer gets one character and nothing beyond it.
        c.edit.SetWindowText(_T("one\r\ntwo\r\nthree"));
        TCHAR buf[8];
        memset(buf, 'x', sizeof(buf));
        EXPECT_EQ(3, c.edit.GetLine(1, buf, 3));
        EXPECT_EQ(0, memcmp(buf, _T("twox"), 4));
        memset(buf, 'x', sizeof(buf));
        EXPECT_EQ(1, c.edit.GetLine(2, buf, 1));
        EXPECT_EQ(0, memcmp(buf, _T("tx"), 2));
        EXPECT_EQ(0, c.edit.GetLine(0, buf, 0));

        c.rich.SetWindowText(_T("Hello rich"));
        c.rich.SetSel(6, 10);
        EXPECT_STREQ(_T("rich"), (LPCTSTR)c.rich.GetSelText());
        c.rich.SetSel(3, 3);
        EXPECT_TRUE(c.rich.GetSelText().IsEmpty());
    });
}

TEST(ControlWrappers, OutputAdaptersSplitTheControlsAnswer)
{
    RunRepeated([] {
        Controls c;
        ASSERT_TRUE(c.Create());
        c.edit.SetWindowText(_T("one\r\ntwo"));
        c.edit.SetSel(2, 6);
        int start = -1, end = -1;
        c.edit.GetSel(start, end);
        EXPECT_EQ(std::pair(2, 6), std::pair(start, end));
        CPoint pt = c.edit.PosFromChar(6);
        EXPECT_EQ((DWORD)MAKELONG(6, 1), (DWORD)c.edit.CharFromPos(CPoint(pt.x + 1, pt.y + 1)));

        c.rich.SetWindowText(_T("Hello rich"));
        c.rich.SetSel(1, 4);
        long from = 0, to = 0;
        c.rich.GetSel(from, to);
        EXPECT_EQ(std::pair(1L, 4L), std::pair(from, to));

        c.spin.SetRange(-5, 20);
        int lower = 0, upper = 0;
        c.spin.GetRange(lower, upper);
        EXPECT_EQ(std::pair(-5, 20), std::pair(lower, upper));
        c.spin.SetPos(-3);
        EXPECT_EQ(-3, c.spin.SetPos(4));   // the previous position, sign kept
        // The buddy comes back as its permanent wrapper.
        EXPECT_EQ(nullptr, c.spin.SetBuddy(&c.edit));
        EXPECT_EQ(&c.edit, c.spin.GetBuddy());

        c.list.AddString(_T("only"));
        BOOL outside = FALSE;
        EXPECT_EQ(0u, c.list.ItemFromPoint(CPoint(5, 120), outside));
        EXPECT_TRUE(outside);
    });
}

TEST(ControlWrappers, ToolsAreIdentifiedByWindowOrById)
{
    RunRepeated([] {
        Controls c;
        ASSERT_TRUE(c.Create());
        CToolTipCtrl& tips = c.tip;
        EXPECT_FALSE(tips.AddTool(nullptr, _T("no window")));
        EXPECT_TRUE(tips.AddTool(&c.button, _T("Save the record")));
        const CRect area(200, 100, 260, 140);
        EXPECT_TRUE(tips.AddTool(&c.parent, LPSTR_TEXTCALLBACK, &area, 7));
        CString text;
        tips.GetText(text, &c.button);
        EXPECT_STREQ(_T("Save the record"), (LPCTSTR)text);
        CToolInfo info;
        ASSERT_TRUE(tips.GetToolInfo(info, &c.parent, 7));
        EXPECT_TRUE(info.lpszText == LPSTR_TEXTCALLBACK && CRect(info.rect) == area);
        TOOLINFO hit = {};
        EXPECT_TRUE(tips.HitTest(&c.button, CPoint(3, 3), &hit));   // the whole window is the tool
        EXPECT_EQ((UINT_PTR)c.button.m_hWnd, hit.uId);
        tips.DelTool(&c.button);
        tips.DelTool(&c.parent, 7);
        EXPECT_EQ(0, tips.GetToolCount());
    });
}

// ---------------------------------------------------------------------------
// owner-draw reflection: the control's own virtuals, never the parent's

class TestParent : public CWnd
{
public:
    int ownerDrawCalls = 0;

protected:
    afx_msg void OnDrawItem(int, LPDRAWITEMSTRUCT) { ++ownerDrawCalls; }
    afx_msg void OnMeasureItem(int, LPMEASUREITEMSTRUCT) { ++ownerDrawCalls; }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(TestParent, CWnd)
    ON_WM_DRAWITEM()
    ON_WM_MEASUREITEM()
END_MESSAGE_MAP()

// Records what reaches the control: drawn item ids, measured item ids (with
// height 10 + 3 id, 17 for the selection field), deleted item data; sorts by
// item data.
template <class Base>
class OwnerDrawn : public Base
{
public:
    std::vector<UINT> drawn, measured;
    std::vector<DWORD_PTR> deleted;
    void DrawItem(LPDRAWITEMSTRUCT lpDIS) override { drawn.push_back(lpDIS->itemID); }
    void MeasureItem(LPMEASUREITEMSTRUCT lpMIS) override
    {
        measured.push_back(lpMIS->itemID);
        lpMIS->itemHeight = lpMIS->itemID == (UINT)-1 ? 17 : 10 + 3 * lpMIS->itemID;
    }
    int CompareItem(LPCOMPAREITEMSTRUCT lpCIS) override
    {
        if (lpCIS->itemData1 < lpCIS->itemData2) return -1;
        return lpCIS->itemData1 > lpCIS->itemData2 ? 1 : 0;
    }
    void DeleteItem(LPDELETEITEMSTRUCT lpDIS) override { deleted.push_back(lpDIS->itemData); }
};

class OwnerDrawButton : public CButton
{
public:
    int drawn = 0;
    void DrawItem(LPDRAWITEMSTRUCT) override { ++drawn; }
};

TEST(ControlWrappers, OwnerDrawReachesTheControlNotTheParent)
{
    RunRepeated([] {
        TestParent parent;
        ASSERT_TRUE(CreateParent(parent, true));
        OwnerDrawn<CListBox> list;
        ASSERT_TRUE(list.Create(WS_CHILD | WS_VISIBLE | LBS_OWNERDRAWFIXED | LBS_HASSTRINGS, kCtrlRect, &parent, 204));
        EXPECT_EQ(1u, list.measured.size());   // once, at creation
        list.AddString(_T("one"));
        list.AddString(_T("two"));
        list.SetItemData(1, 0x42);
        list.drawn.clear();
        list.Invalidate();
        list.UpdateWindow();
        EXPECT_EQ((std::vector<UINT>{ 0, 1 }), list.drawn);
        list.DeleteString(1);
        EXPECT_EQ(std::vector<DWORD_PTR>{ 0x42 }, list.deleted);

        OwnerDrawn<CComboBox> combo;
        ASSERT_TRUE(combo.Create(WS_CHILD | WS_VISIBLE | CBS_DROPDOWNLIST | CBS_OWNERDRAWVARIABLE | CBS_HASSTRINGS,
                                 CRect(220, 10, 380, 160), &parent, 304));
        for (LPCTSTR t : { _T("a"), _T("b"), _T("c") })
            combo.AddString(t);
        // The selection field first (itemID -1), then each item as it comes.
        EXPECT_EQ((std::vector<UINT>{ (UINT)-1, 0, 1, 2 }), combo.measured);
        EXPECT_EQ(16, combo.GetItemHeight(2));
        combo.SetCurSel(1);
        combo.Invalidate();
        combo.UpdateWindow();
        EXPECT_FALSE(combo.drawn.empty());

        OwnerDrawButton button;
        ASSERT_TRUE(button.Create(_T("Draw me"), WS_CHILD | WS_VISIBLE | BS_OWNERDRAW, CRect(10, 170, 90, 200),
                                  &parent, 401));
        button.Invalidate();
        button.UpdateWindow();
        EXPECT_GE(button.drawn, 1);
        EXPECT_EQ(0, parent.ownerDrawCalls);
        list.DestroyWindow();
        combo.DestroyWindow();
    });
}

TEST(ControlWrappers, OwnerDrawSortUsesCompareItemAndDestroyReportsEveryItem)
{
    RunRepeated([] {
        CWnd parent;
        ASSERT_TRUE(CreateParent(parent));
        OwnerDrawn<CListBox> list;
        // No LBS_HASSTRINGS: AddString's argument is the item data.
        ASSERT_TRUE(list.Create(WS_CHILD | LBS_OWNERDRAWFIXED | LBS_SORT, kCtrlRect, &parent, 205));
        for (DWORD_PTR d : { 30, 10, 20, 5 })
            list.AddString((LPCTSTR)d);
        std::vector<DWORD_PTR> order;
        for (int i = 0; i < list.GetCount(); ++i)
            order.push_back(list.GetItemData(i));
        EXPECT_EQ((std::vector<DWORD_PTR>{ 5, 10, 20, 30 }), order);
        list.DestroyWindow();
        EXPECT_EQ(4u, list.deleted.size());
    });
}

}  // namespace
