// Standard control wrappers and menus: real controls in a real parent
// window, owner-draw reflection through the framework's dispatch, menus
// built and read back, popup menus captured at the import boundary.
#include <gtest/gtest.h>

#include "afxwin.h"
#include "hytest.h"
#include "afx_test_helpers.h"

#include <vector>

namespace {

// A framework parent that counts what reaches its own owner-draw handlers
// and the commands it receives.
class TestParent : public CWnd
{
public:
    int drawItemCalls = 0;
    int measureItemCalls = 0;
    std::vector<UINT> commands;

    BOOL CreateFrame(bool visible = false)
    {
        return CreateEx(0, AfxRegisterWndClass(0), _T("controls"),
                        WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN | (visible ? WS_VISIBLE : 0),
                        0, 0, 400, 300, nullptr, nullptr);
    }
    ~TestParent() override
    {
        if (m_hWnd != nullptr)
            DestroyWindow();
    }

protected:
    afx_msg void OnDrawItem(int, LPDRAWITEMSTRUCT) { ++drawItemCalls; }
    afx_msg void OnMeasureItem(int, LPMEASUREITEMSTRUCT) { ++measureItemCalls; }
    afx_msg void OnCommandRange(UINT nID) { commands.push_back(nID); }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(TestParent, CWnd)
    ON_WM_DRAWITEM()
    ON_WM_MEASUREITEM()
    ON_COMMAND_RANGE(100, 999, OnCommandRange)
END_MESSAGE_MAP()


const CRect kCtrlRect(10, 10, 210, 160);

// ---------------------------------------------------------------------------
// list box

class OwnerDrawList : public CListBox
{
public:
    std::vector<UINT> drawn;
    std::vector<DWORD_PTR> deleted;
    int measured = 0;

    void DrawItem(LPDRAWITEMSTRUCT lpDIS) override { drawn.push_back(lpDIS->itemID); }
    void MeasureItem(LPMEASUREITEMSTRUCT lpMIS) override
    {
        ++measured;
        lpMIS->itemHeight = 23;
    }
    // Orders items by their data, ascending.
    int CompareItem(LPCOMPAREITEMSTRUCT lpCIS) override
    {
        if (lpCIS->itemData1 < lpCIS->itemData2) return -1;
        return lpCIS->itemData1 > lpCIS->itemData2 ? 1 : 0;
    }
    void DeleteItem(LPDELETEITEMSTRUCT lpDIS) override { deleted.push_back(lpDIS->itemData); }
};

TEST(ControlsListBox, TextAndItemDataRoundTrip)
{
    RunRepeated([] {
        TestParent parent;
        ASSERT_TRUE(parent.CreateFrame());
        CListBox list;
        ASSERT_TRUE(list.Create(WS_CHILD | WS_VISIBLE | WS_VSCROLL | LBS_NOTIFY, kCtrlRect, &parent, 201));
        EXPECT_EQ(&list, CWnd::FromHandlePermanent(list.m_hWnd));

        EXPECT_EQ(0, list.AddString(_T("Anna")));
        EXPECT_EQ(1, list.AddString(_T("Carl")));
        EXPECT_EQ(1, list.InsertString(1, _T("Berta")));
        EXPECT_EQ(3, list.GetCount());

        // Item data keeps all 64 bits.
        const DWORD_PTR big = (DWORD_PTR)0x123456789ABCDEF0ull;
        EXPECT_NE(LB_ERR, list.SetItemData(0, big));
        int local = 7;
        EXPECT_NE(LB_ERR, list.SetItemDataPtr(2, &local));
        EXPECT_EQ(big, list.GetItemData(0));
        EXPECT_EQ(&local, list.GetItemDataPtr(2));

        CString s;
        list.GetText(1, s);
        EXPECT_STREQ(_T("Berta"), (LPCTSTR)s);
        EXPECT_EQ(5, list.GetTextLen(1));
        TCHAR buf[32] = {};
        EXPECT_EQ(4, list.GetText(2, buf));
        EXPECT_STREQ(_T("Carl"), buf);
        s = _T("stale");
        list.GetText(9, s);   // bad index: empty, not the old text
        EXPECT_TRUE(s.IsEmpty());
        EXPECT_EQ(LB_ERR, list.GetTextLen(9));

        // Data moves with its item when an earlier one is deleted.
        EXPECT_EQ(2, list.DeleteString(0));
        EXPECT_EQ(&local, list.GetItemDataPtr(1));

        // Prefix search wraps past the end; exact search does not match prefixes.
        EXPECT_EQ(0, list.FindString(-1, _T("be")));
        EXPECT_EQ(1, list.FindString(0, _T("C")));
        EXPECT_EQ(LB_ERR, list.FindStringExact(-1, _T("Ber")));
        EXPECT_EQ(1, list.FindStringExact(-1, _T("carl")));
        EXPECT_EQ(LB_ERR, list.GetCurSel());
        EXPECT_EQ(1, list.SelectString(-1, _T("Ca")));
        EXPECT_EQ(1, list.GetCurSel());
        EXPECT_EQ(0, list.SetCurSel(0));
        EXPECT_EQ(0, list.GetCurSel());

        list.ResetContent();
        EXPECT_EQ(0, list.GetCount());
    });
}

TEST(ControlsListBox, MultipleSelection)
{
    RunRepeated([] {
        TestParent parent;
        ASSERT_TRUE(parent.CreateFrame());
        CListBox list;
        ASSERT_TRUE(list.Create(WS_CHILD | LBS_EXTENDEDSEL, kCtrlRect, &parent, 202));
        for (LPCTSTR t : { _T("a"), _T("b"), _T("c"), _T("d"), _T("e"), _T("f") })
            list.AddString(t);
        list.SetSel(1);
        list.SetSel(3);
        list.SetSel(4);
        list.SetSel(4, FALSE);
        EXPECT_EQ(2, list.GetSelCount());
        EXPECT_NE(0, list.GetSel(3));
        EXPECT_EQ(0, list.GetSel(4));
        int items[8] = {};
        ASSERT_EQ(2, list.GetSelItems(8, items));
        EXPECT_EQ(1, items[0]);
        EXPECT_EQ(3, items[1]);

        list.SelItemRange(TRUE, 2, 5);
        EXPECT_EQ(5, list.GetSelCount());
        list.SelItemRange(FALSE, 1, 3);
        ASSERT_EQ(2, list.GetSelItems(8, items));
        EXPECT_EQ(4, items[0]);
        EXPECT_EQ(5, items[1]);
        list.SetSel(-1, FALSE);   // -1: every item
        EXPECT_EQ(0, list.GetSelCount());
    });
}

TEST(ControlsListBox, ItemGeometryAndHitTest)
{
    RunRepeated([] {
        TestParent parent;
        ASSERT_TRUE(parent.CreateFrame());
        CListBox list;
        ASSERT_TRUE(list.Create(WS_CHILD | WS_VSCROLL | LBS_NOINTEGRALHEIGHT, kCtrlRect, &parent, 203));
        for (int i = 0; i < 40; ++i)
            list.AddString(_T("row"));
        EXPECT_NE(LB_ERR, list.SetItemHeight(0, 20));
        EXPECT_EQ(20, list.GetItemHeight(0));

        CRect rc;
        EXPECT_NE(LB_ERR, list.GetItemRect(2, &rc));
        EXPECT_EQ(40, rc.top);
        EXPECT_EQ(60, rc.bottom);

        BOOL outside = TRUE;
        EXPECT_EQ(2u, list.ItemFromPoint(CPoint(5, 45), outside));
        EXPECT_FALSE(outside);

        EXPECT_NE(LB_ERR, list.SetTopIndex(10));
        EXPECT_EQ(10, list.GetTopIndex());
        EXPECT_EQ(11u, list.ItemFromPoint(CPoint(5, 25), outside));
        EXPECT_FALSE(outside);
        EXPECT_NE(LB_ERR, list.GetItemRect(10, &rc));
        EXPECT_EQ(0, rc.top);

        // Below the last item of a short list: the nearest item, flagged outside.
        list.ResetContent();
        list.AddString(_T("only"));
        EXPECT_EQ(0u, list.ItemFromPoint(CPoint(5, 120), outside));
        EXPECT_TRUE(outside);
    });
}

TEST(ControlsListBox, OwnerDrawReachesTheControlNotTheParent)
{
    RunRepeated([] {
        TestParent parent;
        ASSERT_TRUE(parent.CreateFrame(true));
        OwnerDrawList list;
        ASSERT_TRUE(list.Create(WS_CHILD | WS_VISIBLE | LBS_OWNERDRAWFIXED | LBS_HASSTRINGS,
                                kCtrlRect, &parent, 204));
        // Measured once at creation, by the control.
        EXPECT_EQ(1, list.measured);
        EXPECT_EQ(23, list.GetItemHeight(0));

        list.AddString(_T("one"));
        list.AddString(_T("two"));
        list.SetItemData(1, 0x42);
        list.drawn.clear();
        list.Invalidate();
        list.UpdateWindow();
        ASSERT_EQ(2u, list.drawn.size());
        EXPECT_EQ(0u, list.drawn[0]);
        EXPECT_EQ(1u, list.drawn[1]);

        // Deleting an item with data reports that data.
        list.DeleteString(1);
        ASSERT_EQ(1u, list.deleted.size());
        EXPECT_EQ(0x42u, list.deleted[0]);

        EXPECT_EQ(0, parent.drawItemCalls);
        EXPECT_EQ(0, parent.measureItemCalls);
        list.DestroyWindow();
    });
}

TEST(ControlsListBox, OwnerDrawSortUsesCompareItem)
{
    RunRepeated([] {
        TestParent parent;
        ASSERT_TRUE(parent.CreateFrame());
        OwnerDrawList list;
        // No LBS_HASSTRINGS: AddString's argument is the item data.
        ASSERT_TRUE(list.Create(WS_CHILD | LBS_OWNERDRAWFIXED | LBS_SORT, kCtrlRect, &parent, 205));
        for (DWORD_PTR d : { 30, 10, 20, 5 })
            list.AddString((LPCTSTR)d);
        ASSERT_EQ(4, list.GetCount());
        EXPECT_EQ(5u, list.GetItemData(0));
        EXPECT_EQ(10u, list.GetItemData(1));
        EXPECT_EQ(20u, list.GetItemData(2));
        EXPECT_EQ(30u, list.GetItemData(3));

        // Every remaining item is reported when the control goes away.
        list.DestroyWindow();
        EXPECT_EQ(4u, list.deleted.size());
    });
}

// ---------------------------------------------------------------------------
// combo box

class OwnerDrawCombo : public CComboBox
{
public:
    int drawn = 0;
    std::vector<UINT> measured;
    std::vector<DWORD_PTR> deleted;
    void DrawItem(LPDRAWITEMSTRUCT) override { ++drawn; }
    // Variable heights: item i is 10 + 3 i pixels; the selection field 17.
    void MeasureItem(LPMEASUREITEMSTRUCT lpMIS) override
    {
        measured.push_back(lpMIS->itemID);
        lpMIS->itemHeight = lpMIS->itemID == (UINT)-1 ? 17 : 10 + 3 * lpMIS->itemID;
    }
    void DeleteItem(LPDELETEITEMSTRUCT lpDIS) override { deleted.push_back(lpDIS->itemData); }
};

TEST(ControlsComboBox, TextAndItemDataRoundTrip)
{
    RunRepeated([] {
        TestParent parent;
        ASSERT_TRUE(parent.CreateFrame());
        CComboBox combo;
        ASSERT_TRUE(combo.Create(WS_CHILD | CBS_DROPDOWNLIST | WS_VSCROLL, kCtrlRect, &parent, 301));
        EXPECT_EQ(0, combo.AddString(_T("Home")));
        EXPECT_EQ(1, combo.AddString(_T("Work")));
        EXPECT_EQ(0, combo.InsertString(0, _T("Mobile")));
        EXPECT_EQ(3, combo.GetCount());

        const DWORD_PTR big = (DWORD_PTR)0xFEDCBA9876543210ull;
        EXPECT_NE(CB_ERR, combo.SetItemData(2, big));
        EXPECT_EQ(big, combo.GetItemData(2));
        double value = 1.5;
        combo.SetItemDataPtr(0, &value);
        EXPECT_EQ(&value, combo.GetItemDataPtr(0));

        CString s;
        combo.GetLBText(1, s);
        EXPECT_STREQ(_T("Home"), (LPCTSTR)s);
        EXPECT_EQ(6, combo.GetLBTextLen(0));
        TCHAR buf[16] = {};
        EXPECT_EQ(4, combo.GetLBText(2, buf));
        EXPECT_STREQ(_T("Work"), buf);
        s = _T("stale");
        combo.GetLBText(7, s);
        EXPECT_TRUE(s.IsEmpty());

        EXPECT_EQ(2, combo.FindString(-1, _T("w")));
        EXPECT_EQ(CB_ERR, combo.FindStringExact(-1, _T("Wor")));
        EXPECT_EQ(1, combo.FindStringExact(-1, _T("home")));
        EXPECT_EQ(2, combo.SelectString(-1, _T("Wo")));
        EXPECT_EQ(2, combo.GetCurSel());
        CString shown;
        combo.GetWindowText(shown);
        EXPECT_STREQ(_T("Work"), (LPCTSTR)shown);

        EXPECT_EQ(2, combo.DeleteString(0));
        EXPECT_EQ(big, combo.GetItemData(1));
        combo.ResetContent();
        EXPECT_EQ(0, combo.GetCount());
        EXPECT_EQ(CB_ERR, combo.GetCurSel());
    });
}

TEST(ControlsComboBox, EditPartLimitAndSelection)
{
    RunRepeated([] {
        TestParent parent;
        ASSERT_TRUE(parent.CreateFrame());
        CComboBox combo;
        ASSERT_TRUE(combo.Create(WS_CHILD | WS_VISIBLE | CBS_DROPDOWN | CBS_AUTOHSCROLL, kCtrlRect, &parent, 302));
        combo.SetWindowText(_T("hello world"));
        EXPECT_TRUE(combo.SetEditSel(2, 5));
        DWORD sel = combo.GetEditSel();
        EXPECT_EQ(2, LOWORD(sel));
        EXPECT_EQ(5, HIWORD(sel));

        combo.LimitText(4);
        combo.SetWindowText(_T(""));
        HWND hEdit = ::GetWindow(combo.m_hWnd, GW_CHILD);
        ASSERT_NE(nullptr, hEdit);
        hytest::Type(hEdit, "abcdefg");
        CString text;
        combo.GetWindowText(text);
        EXPECT_STREQ(_T("abcd"), (LPCTSTR)text);
    });
}

TEST(ControlsComboBox, DropDownState)
{
    RunRepeated([] {
        TestParent parent;
        ASSERT_TRUE(parent.CreateFrame(true));
        CComboBox combo;
        ASSERT_TRUE(combo.Create(WS_CHILD | WS_VISIBLE | CBS_DROPDOWNLIST, kCtrlRect, &parent, 303));
        combo.AddString(_T("x"));
        combo.AddString(_T("y"));
        EXPECT_FALSE(combo.GetDroppedState());
        combo.ShowDropDown();
        EXPECT_TRUE(combo.GetDroppedState());
        CRect dropped;
        combo.GetDroppedControlRect(&dropped);
        CRect window;
        combo.GetWindowRect(&window);
        EXPECT_EQ(window.left, dropped.left);
        EXPECT_GT(dropped.Height(), window.Height());
        combo.ShowDropDown(FALSE);
        EXPECT_FALSE(combo.GetDroppedState());
        hytest::PumpMessages();
    });
}

TEST(ControlsComboBox, OwnerDrawVariableHeightsFromMeasureItem)
{
    RunRepeated([] {
        TestParent parent;
        ASSERT_TRUE(parent.CreateFrame(true));
        OwnerDrawCombo combo;
        ASSERT_TRUE(combo.Create(WS_CHILD | WS_VISIBLE | CBS_DROPDOWNLIST | CBS_OWNERDRAWVARIABLE | CBS_HASSTRINGS,
                                 kCtrlRect, &parent, 304));
        combo.AddString(_T("a"));
        combo.AddString(_T("b"));
        combo.AddString(_T("c"));
        // The selection field is measured at creation (itemID -1), then each item.
        ASSERT_EQ(4u, combo.measured.size());
        EXPECT_EQ((UINT)-1, combo.measured[0]);
        EXPECT_EQ(2u, combo.measured[3]);
        EXPECT_EQ(10, combo.GetItemHeight(0));
        EXPECT_EQ(16, combo.GetItemHeight(2));
        EXPECT_NE(CB_ERR, combo.SetItemHeight(1, 30));
        EXPECT_EQ(30, combo.GetItemHeight(1));

        combo.SetCurSel(1);
        combo.Invalidate();
        combo.UpdateWindow();
        EXPECT_GT(combo.drawn, 0);

        combo.SetItemData(0, 0x77);
        combo.DeleteString(0);
        ASSERT_EQ(1u, combo.deleted.size());
        EXPECT_EQ(0x77u, combo.deleted[0]);
        EXPECT_EQ(0, parent.drawItemCalls);
        EXPECT_EQ(0, parent.measureItemCalls);
        combo.DestroyWindow();
    });
}

// ---------------------------------------------------------------------------
// buttons and statics

class OwnerDrawButton : public CButton
{
public:
    int drawn = 0;
    UINT lastAction = 0;
    void DrawItem(LPDRAWITEMSTRUCT lpDIS) override
    {
        ++drawn;
        lastAction = lpDIS->itemAction;
    }
};

TEST(ControlsButton, OwnerDrawReachesTheButton)
{
    RunRepeated([] {
        TestParent parent;
        ASSERT_TRUE(parent.CreateFrame(true));
        OwnerDrawButton button;
        ASSERT_TRUE(button.Create(_T("Draw me"), WS_CHILD | WS_VISIBLE | BS_OWNERDRAW, CRect(10, 10, 90, 40),
                                  &parent, 401));
        button.drawn = 0;
        button.Invalidate();
        button.UpdateWindow();
        EXPECT_GE(button.drawn, 1);
        EXPECT_EQ(0, parent.drawItemCalls);
    });
}

TEST(ControlsButton, CheckStateAndStyle)
{
    RunRepeated([] {
        TestParent parent;
        ASSERT_TRUE(parent.CreateFrame());
        CButton check;
        ASSERT_TRUE(check.Create(_T("Private"), WS_CHILD | BS_AUTO3STATE, CRect(10, 10, 90, 30), &parent, 402));
        EXPECT_EQ(BST_UNCHECKED, check.GetCheck());
        check.SetCheck(BST_INDETERMINATE);
        EXPECT_EQ(BST_INDETERMINATE, check.GetCheck());
        EXPECT_EQ((UINT)BS_AUTO3STATE, check.GetButtonStyle() & BS_TYPEMASK);

        // Clicking cycles the auto three-state box and notifies the parent.
        check.SetCheck(BST_UNCHECKED);
        hytest::Click(check.m_hWnd, 5, 5);
        EXPECT_EQ(BST_CHECKED, check.GetCheck());
        ASSERT_EQ(1u, parent.commands.size());
        EXPECT_EQ(402u, parent.commands[0]);

        CButton push;
        ASSERT_TRUE(push.Create(_T("OK"), WS_CHILD | BS_PUSHBUTTON | BS_MULTILINE, CRect(10, 40, 90, 60), &parent, 403));
        push.SetButtonStyle(BS_DEFPUSHBUTTON);
        EXPECT_EQ((UINT)BS_DEFPUSHBUTTON, push.GetButtonStyle() & BS_TYPEMASK);
        EXPECT_TRUE(push.GetStyle() & WS_CHILD);   // only the button part is replaced
        push.SetState(TRUE);
        EXPECT_TRUE(push.GetState() & BST_PUSHED);
        push.SetState(FALSE);
        EXPECT_FALSE(push.GetState() & BST_PUSHED);
    });
}

TEST(ControlsButton, BitmapAndStaticImagesAnswerThePreviousOne)
{
    CBitmap a, b;
    ASSERT_TRUE(a.CreateBitmap(8, 8, 1, 1, nullptr));
    ASSERT_TRUE(b.CreateBitmap(8, 8, 1, 1, nullptr));
    RunRepeated([&] {
        TestParent parent;
        ASSERT_TRUE(parent.CreateFrame());
        CButton button;
        ASSERT_TRUE(button.Create(_T(""), WS_CHILD | BS_PUSHBUTTON | BS_BITMAP, CRect(0, 0, 40, 40), &parent, 404));
        EXPECT_EQ(nullptr, button.SetBitmap(a));
        EXPECT_EQ((HBITMAP)a, button.GetBitmap());
        EXPECT_EQ((HBITMAP)a, button.SetBitmap(b));
        EXPECT_EQ((HBITMAP)b, button.GetBitmap());

        CStatic pic;
        ASSERT_TRUE(pic.Create(nullptr, WS_CHILD | SS_BITMAP, CRect(50, 0, 90, 40), &parent));
        EXPECT_EQ(nullptr, pic.SetBitmap(a));
        EXPECT_EQ((HBITMAP)a, pic.GetBitmap());
        EXPECT_EQ((HBITMAP)a, pic.SetBitmap(nullptr));
    });
}

// ---------------------------------------------------------------------------
// edit

TEST(ControlsEdit, LimitStopsTyping)
{
    RunRepeated([] {
        TestParent parent;
        ASSERT_TRUE(parent.CreateFrame());
        CEdit edit;
        ASSERT_TRUE(edit.Create(WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL, CRect(0, 0, 200, 24), &parent, 501));
        edit.LimitText(5);
        EXPECT_EQ(5u, edit.GetLimitText());
        EXPECT_FALSE(edit.GetModify());
        hytest::Type(edit.m_hWnd, "abcdefg");
        CString text;
        edit.GetWindowText(text);
        EXPECT_STREQ(_T("abcde"), (LPCTSTR)text);
        EXPECT_TRUE(edit.GetModify());
        edit.SetModify(FALSE);
        EXPECT_FALSE(edit.GetModify());

        edit.SetLimitText(8);
        EXPECT_EQ(8u, edit.GetLimitText());
        hytest::Type(edit.m_hWnd, "xyzuvw");
        edit.GetWindowText(text);
        EXPECT_EQ(8, text.GetLength());
    });
}

TEST(ControlsEdit, SelectionReplaceAndUndo)
{
    RunRepeated([] {
        TestParent parent;
        ASSERT_TRUE(parent.CreateFrame());
        CEdit edit;
        ASSERT_TRUE(edit.Create(WS_CHILD | ES_AUTOHSCROLL, CRect(0, 0, 200, 24), &parent, 502));
        edit.SetWindowText(_T("hello world"));
        edit.SetSel(6, 11);
        int start = -1, end = -1;
        edit.GetSel(start, end);
        EXPECT_EQ(6, start);
        EXPECT_EQ(11, end);
        EXPECT_EQ((DWORD)MAKELONG(6, 11), edit.GetSel());

        edit.EmptyUndoBuffer();
        EXPECT_FALSE(edit.CanUndo());
        edit.ReplaceSel(_T("there"), TRUE);
        CString text;
        edit.GetWindowText(text);
        EXPECT_STREQ(_T("hello there"), (LPCTSTR)text);
        EXPECT_TRUE(edit.CanUndo());
        EXPECT_TRUE(edit.Undo());
        edit.GetWindowText(text);
        EXPECT_STREQ(_T("hello world"), (LPCTSTR)text);

        // The DWORD form: start in the low word.
        edit.SetSel(MAKELONG(1, 3));
        edit.GetSel(start, end);
        EXPECT_EQ(1, start);
        EXPECT_EQ(3, end);
        edit.Clear();
        edit.GetWindowText(text);
        EXPECT_STREQ(_T("hlo world"), (LPCTSTR)text);
    });
}

TEST(ControlsEdit, LinesOfAMultilineEdit)
{
    RunRepeated([] {
        TestParent parent;
        ASSERT_TRUE(parent.CreateFrame());
        CEdit edit;
        ASSERT_TRUE(edit.Create(WS_CHILD | ES_MULTILINE | ES_AUTOVSCROLL, CRect(0, 0, 200, 100), &parent, 503));
        edit.SetWindowText(_T("one\r\ntwo\r\nthree"));
        EXPECT_EQ(3, edit.GetLineCount());
        EXPECT_EQ(5, edit.LineIndex(1));
        EXPECT_EQ(10, edit.LineIndex(2));
        EXPECT_EQ(5, edit.LineLength(10));   // takes a character index
        EXPECT_EQ(2, edit.LineFromChar(12));

        TCHAR buf[16];
        memset(buf, 'x', sizeof(buf));
        EXPECT_EQ(5, edit.GetLine(2, buf, 15));
        EXPECT_EQ(0, memcmp(buf, _T("three"), 5));
        memset(buf, 'x', sizeof(buf));
        EXPECT_EQ(3, edit.GetLine(1, buf, 3));
        EXPECT_EQ(0, memcmp(buf, _T("two"), 3));
        // A one-character buffer gets one character and nothing beyond it.
        memset(buf, 'x', sizeof(buf));
        EXPECT_EQ(1, edit.GetLine(0, buf, 1));
        EXPECT_EQ('o', buf[0]);
        EXPECT_EQ('x', buf[1]);
        EXPECT_EQ(0, edit.GetLine(0, buf, 0));

        // The caret's position and the character under it agree.
        CPoint pt = edit.PosFromChar(6);
        int hit = edit.CharFromPos(CPoint(pt.x + 1, pt.y + 1));
        EXPECT_EQ(6, LOWORD(hit));
        EXPECT_EQ(1, HIWORD(hit));
    });
}

TEST(ControlsEdit, ReadOnlyPasswordAndMargins)
{
    RunRepeated([] {
        TestParent parent;
        ASSERT_TRUE(parent.CreateFrame());
        CEdit edit;
        ASSERT_TRUE(edit.Create(WS_CHILD | ES_AUTOHSCROLL, CRect(0, 0, 200, 24), &parent, 504));
        EXPECT_TRUE(edit.SetReadOnly());
        EXPECT_TRUE(edit.GetStyle() & ES_READONLY);
        hytest::Type(edit.m_hWnd, "abc");
        EXPECT_EQ(0, edit.GetWindowTextLength());
        edit.SetReadOnly(FALSE);
        EXPECT_FALSE(edit.GetStyle() & ES_READONLY);

        edit.SetPasswordChar('*');
        EXPECT_EQ('*', edit.GetPasswordChar());
        EXPECT_TRUE(edit.GetStyle() & ES_PASSWORD);
        edit.SetPasswordChar(0);
        EXPECT_EQ(0, edit.GetPasswordChar());

        edit.SetMargins(3, 7);
        EXPECT_EQ((DWORD)MAKELONG(3, 7), edit.GetMargins());
    });
}

// ---------------------------------------------------------------------------
// menus

// A menu template in memory: "Alpha" (300), a separator and a popup "Sub"
// holding "Beta" (301).
std::vector<WORD> MenuTemplate()
{
    std::vector<WORD> t = { 0, 0 };   // version, header size
    auto text = [&](const wchar_t* s) {
        while (*s) t.push_back((WORD)*s++);
        t.push_back(0);
    };
    t.push_back(0); t.push_back(300); text(L"Alpha");
    t.push_back(0); t.push_back(0); text(L"");            // separator
    t.push_back(MF_POPUP | MF_END); text(L"Sub");
    t.push_back(MF_END); t.push_back(301); text(L"Beta");
    return t;
}

// Open (100), a separator, Save (101), and a submenu with Cut (200) and Copy (201).
void BuildSampleMenu(CMenu& menu)
{
    ASSERT_TRUE(menu.CreatePopupMenu());
    CMenu sub;
    ASSERT_TRUE(sub.CreatePopupMenu());
    sub.AppendMenu(MF_STRING, 200, _T("Cu&t"));
    sub.AppendMenu(MF_STRING, 201, _T("&Copy"));
    ASSERT_TRUE(menu.AppendMenu(MF_STRING, 100, _T("&Open")));
    menu.AppendMenu(MF_SEPARATOR);
    menu.AppendMenu(MF_STRING, 101, _T("&Save"));
    menu.AppendMenu(MF_POPUP, (UINT_PTR)sub.Detach(), _T("&Edit"));   // owned by menu now
}

TEST(ControlsMenu, ItemsReadBackByPosition)
{
    RunRepeated([] {
        CMenu menu;
        BuildSampleMenu(menu);
        ASSERT_EQ(4u, menu.GetMenuItemCount());
        EXPECT_EQ(100u, menu.GetMenuItemID(0));
        EXPECT_EQ(0u, menu.GetMenuItemID(1));             // separator
        EXPECT_EQ(0xFFFFFFFFu, menu.GetMenuItemID(3));    // submenu
        EXPECT_TRUE(menu.GetMenuState(1, MF_BYPOSITION) & MF_SEPARATOR);

        CString s;
        EXPECT_EQ(5, menu.GetMenuString(0, s, MF_BYPOSITION));
        EXPECT_STREQ(_T("&Open"), (LPCTSTR)s);
        menu.GetMenuString(101, s, MF_BYCOMMAND);
        EXPECT_STREQ(_T("&Save"), (LPCTSTR)s);
        TCHAR buf[4];
        EXPECT_EQ(3, menu.GetMenuString(3, buf, 4, MF_BYPOSITION));   // truncated to fit
        EXPECT_STREQ(_T("&Ed"), buf);
        s = _T("stale");
        EXPECT_EQ(0, menu.GetMenuString(999, s, MF_BYCOMMAND));
        EXPECT_TRUE(s.IsEmpty());

        CMenu* pSub = menu.GetSubMenu(3);
        ASSERT_NE(nullptr, pSub);
        EXPECT_EQ(2u, pSub->GetMenuItemCount());
        EXPECT_EQ(201u, pSub->GetMenuItemID(1));
        EXPECT_EQ(nullptr, menu.GetSubMenu(0));

        // Insert, modify, remove.
        EXPECT_TRUE(menu.InsertMenu(0, MF_BYPOSITION | MF_STRING, 99, _T("&New")));
        EXPECT_EQ(99u, menu.GetMenuItemID(0));
        EXPECT_EQ(100u, menu.GetMenuItemID(1));
        EXPECT_TRUE(menu.ModifyMenu(101, MF_BYCOMMAND | MF_STRING, 102, _T("Save &As")));
        menu.GetMenuString(102, s, MF_BYCOMMAND);
        EXPECT_STREQ(_T("Save &As"), (LPCTSTR)s);
        EXPECT_EQ(0xFFFFFFFFu, menu.GetMenuState(101, MF_BYCOMMAND));

        // RemoveMenu leaves the submenu alive; DeleteMenu destroys it.
        HMENU hSub = pSub->m_hMenu;
        EXPECT_TRUE(menu.RemoveMenu(4, MF_BYPOSITION));
        EXPECT_TRUE(::IsMenu(hSub));
        menu.AppendMenu(MF_POPUP, (UINT_PTR)hSub, _T("&Edit"));
        EXPECT_TRUE(menu.DeleteMenu(4, MF_BYPOSITION));
        EXPECT_FALSE(::IsMenu(hSub));
        EXPECT_EQ(4u, menu.GetMenuItemCount());
        CMenu::DeleteTempMap();
    });
}

TEST(ControlsMenu, CheckEnableRadioAndDefault)
{
    RunRepeated([] {
        CMenu menu;
        BuildSampleMenu(menu);
        EXPECT_EQ((UINT)MF_UNCHECKED, menu.CheckMenuItem(101, MF_BYCOMMAND | MF_CHECKED));
        EXPECT_TRUE(menu.GetMenuState(101, MF_BYCOMMAND) & MF_CHECKED);
        EXPECT_EQ((UINT)MF_CHECKED, menu.CheckMenuItem(101, MF_BYCOMMAND | MF_UNCHECKED));
        EXPECT_FALSE(menu.GetMenuState(101, MF_BYCOMMAND) & MF_CHECKED);
        EXPECT_EQ((UINT)-1, menu.CheckMenuItem(555, MF_BYCOMMAND | MF_CHECKED));

        EXPECT_EQ((UINT)MF_ENABLED, menu.EnableMenuItem(0, MF_BYPOSITION | MF_GRAYED));
        EXPECT_TRUE(menu.GetMenuState(100, MF_BYCOMMAND) & MF_GRAYED);
        EXPECT_EQ((UINT)MF_GRAYED, menu.EnableMenuItem(100, MF_BYCOMMAND | MF_ENABLED));
        EXPECT_EQ((UINT)-1, menu.EnableMenuItem(555, MF_BYCOMMAND | MF_GRAYED));

        // Commands in a submenu are found through the parent menu.
        EXPECT_TRUE(menu.CheckMenuRadioItem(200, 201, 201, MF_BYCOMMAND));
        MENUITEMINFO mii = {};
        mii.cbSize = sizeof(mii);
        mii.fMask = MIIM_FTYPE | MIIM_STATE;
        CMenu* pSub = menu.GetSubMenu(3);
        ASSERT_TRUE(pSub->GetMenuItemInfo(1, &mii, TRUE));
        EXPECT_TRUE(mii.fType & MFT_RADIOCHECK);
        EXPECT_TRUE(mii.fState & MFS_CHECKED);
        ASSERT_TRUE(pSub->GetMenuItemInfo(200, &mii));
        EXPECT_FALSE(mii.fState & MFS_CHECKED);

        // SetMenuItemInfo by command.
        mii.fMask = MIIM_STATE;
        mii.fState = MFS_DISABLED;
        EXPECT_TRUE(menu.SetMenuItemInfo(101, &mii));
        EXPECT_TRUE(menu.GetMenuState(101, MF_BYCOMMAND) & MF_DISABLED);

        EXPECT_TRUE(menu.SetDefaultItem(101));
        EXPECT_EQ(101u, menu.GetDefaultItem(GMDI_USEDISABLED));
        EXPECT_EQ(2u, menu.GetDefaultItem(GMDI_USEDISABLED, TRUE));
        CMenu::DeleteTempMap();
    });
}

TEST(ControlsMenu, WrappersOwnershipAndTempMap)
{
    RunRepeated([] {
        HMENU destroyedWithObject;
        {
            CMenu menu;
            ASSERT_TRUE(menu.CreateMenu());
            destroyedWithObject = menu;
            EXPECT_EQ(&menu, CMenu::FromHandle(menu.m_hMenu));
            EXPECT_EQ(&menu, CMenu::FromHandlePermanent(menu.m_hMenu));
            EXPECT_FALSE(menu.Attach(nullptr));
        }
        EXPECT_FALSE(::IsMenu(destroyedWithObject));

        // Detach hands the menu over; the object no longer destroys it.
        HMENU kept;
        {
            CMenu menu;
            ASSERT_TRUE(menu.CreatePopupMenu());
            kept = menu.Detach();
            EXPECT_EQ(nullptr, menu.GetSafeHmenu());
            EXPECT_EQ(nullptr, CMenu::FromHandlePermanent(kept));
        }
        ASSERT_TRUE(::IsMenu(kept));

        // An unknown handle gets one temporary wrapper until DeleteTempMap,
        // which leaves the menu itself alone.
        CMenu* pTemp = CMenu::FromHandle(kept);
        ASSERT_NE(nullptr, pTemp);
        EXPECT_EQ(kept, pTemp->m_hMenu);
        EXPECT_EQ(pTemp, CMenu::FromHandle(kept));
        EXPECT_EQ(nullptr, CMenu::FromHandlePermanent(kept));
        EXPECT_EQ(nullptr, CMenu::FromHandle(nullptr));
        CMenu::DeleteTempMap();
        EXPECT_TRUE(::IsMenu(kept));

        // A second Attach is refused; the first menu stays attached.
        CMenu owner;
        ASSERT_TRUE(owner.Attach(kept));
        HMENU other = ::CreateMenu();
        EXPECT_FALSE(owner.Attach(other));
        EXPECT_EQ(kept, owner.m_hMenu);
        ::DestroyMenu(other);
        EXPECT_TRUE(owner.DestroyMenu());
        EXPECT_FALSE(::IsMenu(kept));
        EXPECT_FALSE(owner.DestroyMenu());
    });
}

TEST(ControlsMenu, LoadMenuIndirectAndMissingResource)
{
    RunRepeated([] {
        std::vector<WORD> t = MenuTemplate();
        CMenu menu;
        ASSERT_TRUE(menu.LoadMenuIndirect(t.data()));
        ASSERT_EQ(3u, menu.GetMenuItemCount());
        EXPECT_EQ(300u, menu.GetMenuItemID(0));
        EXPECT_TRUE(menu.GetMenuState(1, MF_BYPOSITION) & MF_SEPARATOR);
        CString s;
        menu.GetMenuString(2, s, MF_BYPOSITION);
        EXPECT_STREQ(_T("Sub"), (LPCTSTR)s);
        CMenu* pSub = menu.GetSubMenu(2);
        ASSERT_NE(nullptr, pSub);
        EXPECT_EQ(301u, pSub->GetMenuItemID(0));
        pSub->GetMenuString(0, s, MF_BYPOSITION);
        EXPECT_STREQ(_T("Beta"), (LPCTSTR)s);
        CMenu::DeleteTempMap();

        CMenu missing;
        EXPECT_FALSE(missing.LoadMenu(31999));
        EXPECT_EQ(nullptr, missing.m_hMenu);
        EXPECT_FALSE(missing.LoadMenu(_T("NO_SUCH_MENU")));
        EXPECT_EQ(nullptr, missing.m_hMenu);
    });
}

TEST(ControlsMenu, TrackPopupMenuReturnsOrPostsTheChoice)
{
    RunRepeated([] {
        TestParent parent;
        ASSERT_TRUE(parent.CreateFrame());
        CMenu menu;
        BuildSampleMenu(menu);
        hytest::PopupMenuRecorder popups;

        popups.Choose(101);
        EXPECT_EQ(101, menu.TrackPopupMenu(TPM_RETURNCMD | TPM_RIGHTBUTTON, 30, 40, &parent));
        ASSERT_EQ(1, popups.Count());
        EXPECT_EQ(menu.m_hMenu, popups.Calls()[0].menu);
        EXPECT_EQ(parent.m_hWnd, popups.Calls()[0].owner);
        EXPECT_EQ(30, popups.Calls()[0].x);
        EXPECT_EQ(40, popups.Calls()[0].y);
        hytest::PumpMessages();
        EXPECT_TRUE(parent.commands.empty());   // returned, not sent

        // Dismissed: 0.
        EXPECT_EQ(0, menu.TrackPopupMenu(TPM_RETURNCMD, 0, 0, &parent));

        // Without TPM_RETURNCMD the owner receives the command.
        popups.Choose(200);
        EXPECT_TRUE(menu.TrackPopupMenu(TPM_LEFTALIGN, 5, 5, &parent));
        hytest::PumpMessages();
        ASSERT_EQ(1u, parent.commands.size());
        EXPECT_EQ(200u, parent.commands[0]);

        TPMPARAMS tpm = {};
        tpm.cbSize = sizeof(tpm);
        ::SetRect(&tpm.rcExclude, 0, 0, 10, 10);
        popups.Choose(100);
        EXPECT_EQ(100, menu.TrackPopupMenuEx(TPM_RETURNCMD, 7, 8, &parent, &tpm));
        ASSERT_EQ(4, popups.Count());
        EXPECT_EQ(7, popups.Calls()[3].x);
    });
}

class OwnerDrawMenu : public CMenu
{
public:
    std::vector<UINT> drawn;
    std::vector<ULONG_PTR> measured;
    void DrawItem(LPDRAWITEMSTRUCT lpDIS) override { drawn.push_back(lpDIS->itemID); }
    void MeasureItem(LPMEASUREITEMSTRUCT lpMIS) override
    {
        measured.push_back(lpMIS->itemData);
        lpMIS->itemWidth = 80;
        lpMIS->itemHeight = 18;
    }
};

TEST(ControlsMenu, OwnerDrawItemsReachTheirMenu)
{
    RunRepeated([] {
        OwnerDrawMenu colours;
        ASSERT_TRUE(colours.CreatePopupMenu());
        colours.AppendMenu(MF_OWNERDRAW, 600, (LPCTSTR)(ULONG_PTR)0xA1);
        colours.AppendMenu(MF_OWNERDRAW, 601, (LPCTSTR)(ULONG_PTR)0xA2);
        CMenu plain;
        ASSERT_TRUE(plain.CreatePopupMenu());
        plain.AppendMenu(MF_STRING, 601, _T("same id, not owner-drawn"));

        // Through a real parent: its dispatch hands menu items to their CMenu.
        CWnd parent;
        ASSERT_TRUE(parent.CreateEx(0, nullptr, _T("menu owner"), WS_POPUP, CRect(0, 0, 50, 50), nullptr, 0));
        auto send = [&](UINT msg, void* p) { return parent.SendMessage(msg, 0, (LPARAM)p); };

        MEASUREITEMSTRUCT mis = {};
        mis.CtlType = ODT_MENU;
        mis.itemID = 601;
        mis.itemData = 0xA2;
        EXPECT_EQ(TRUE, send(WM_MEASUREITEM, &mis));
        ASSERT_EQ(1u, colours.measured.size());
        EXPECT_EQ(0xA2u, colours.measured[0]);
        EXPECT_EQ(80u, mis.itemWidth);
        EXPECT_EQ(18u, mis.itemHeight);

        mis.itemData = 0xA9;   // no item carries this data
        EXPECT_EQ(0, send(WM_MEASUREITEM, &mis));
        mis.CtlType = ODT_LISTBOX;
        mis.itemData = 0xA2;
        EXPECT_EQ(0, send(WM_MEASUREITEM, &mis));
        EXPECT_EQ(1u, colours.measured.size());

        DRAWITEMSTRUCT dis = {};
        dis.CtlType = ODT_MENU;
        dis.itemID = 600;
        dis.hwndItem = (HWND)colours.m_hMenu;
        EXPECT_EQ(TRUE, send(WM_DRAWITEM, &dis));
        ASSERT_EQ(1u, colours.drawn.size());
        EXPECT_EQ(600u, colours.drawn[0]);

        // A menu without a permanent wrapper is left to the window.
        HMENU loose = colours.Detach();
        EXPECT_FALSE(CMenu::HandleOwnerDraw(WM_DRAWITEM, (LPARAM)&dis));
        parent.DestroyWindow();
        ::DestroyMenu(loose);
    });
}

}  // namespace
