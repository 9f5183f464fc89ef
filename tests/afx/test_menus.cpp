// CMenu: who owns a menu, the string adapters, popup menus that return or
// post the choice (captured at the import boundary), owner-drawn items
// handed to their menu by a window's dispatch.
#include <gtest/gtest.h>

#include "afxwin.h"
#include "hytest.h"
#include "hytest_afx.h"

#include <vector>

namespace {

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

TEST(Menus, StringsAndSubmenusReadBack)
{
    RunRepeated([] {
        CMenu menu;
        BuildSampleMenu(menu);
        CString open, save, none = _T("stale");
        EXPECT_EQ(5, menu.GetMenuString(0, open, MF_BYPOSITION));
        menu.GetMenuString(101, save, MF_BYCOMMAND);
        EXPECT_EQ(0, menu.GetMenuString(999, none, MF_BYCOMMAND));
        EXPECT_EQ(CString(_T("&Open|&Save|")), open + _T("|") + save + _T("|") + none);
        ASSERT_NE(nullptr, menu.GetSubMenu(3));
        EXPECT_EQ(201u, menu.GetSubMenu(3)->GetMenuItemID(1));
        EXPECT_EQ(nullptr, menu.GetSubMenu(0));
        CMenu::DeleteTempMap();
    });
}

TEST(Menus, WrappersOwnershipAndTempMap)
{
    RunRepeated([] {
        HMENU destroyedWithObject;
        {
            CMenu menu;
            ASSERT_TRUE(menu.CreateMenu());
            destroyedWithObject = menu;
            EXPECT_EQ(&menu, CMenu::FromHandle(menu.m_hMenu));
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
        EXPECT_EQ(kept, pTemp->m_hMenu);
        EXPECT_EQ(pTemp, CMenu::FromHandle(kept));
        EXPECT_EQ(nullptr, CMenu::FromHandlePermanent(kept));
        EXPECT_EQ(nullptr, CMenu::FromHandle(nullptr));
        CMenu::DeleteTempMap();
        EXPECT_TRUE(::IsMenu(kept));

        CMenu owner;
        ASSERT_TRUE(owner.Attach(kept));
        EXPECT_TRUE(owner.DestroyMenu());
        EXPECT_FALSE(::IsMenu(kept) || owner.DestroyMenu());
    });
}

// A framework window that records the commands it receives.
class CommandSink : public CWnd
{
public:
    std::vector<UINT> commands;

protected:
    afx_msg void OnCommandRange(UINT nID) { commands.push_back(nID); }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CommandSink, CWnd)
    ON_COMMAND_RANGE(100, 999, OnCommandRange)
END_MESSAGE_MAP()

TEST(Menus, TrackPopupMenuReturnsOrPostsTheChoice)
{
    RunRepeated([] {
        CommandSink parent;
        ASSERT_TRUE(parent.CreateEx(0, AfxRegisterWndClass(0), _T("menu owner"), WS_OVERLAPPEDWINDOW, 0, 0, 200,
                                    100, nullptr, nullptr));
        CMenu menu;
        BuildSampleMenu(menu);
        hytest::PopupMenuRecorder popups;

        popups.Choose(101);
        EXPECT_EQ(101, menu.TrackPopupMenu(TPM_RETURNCMD | TPM_RIGHTBUTTON, 30, 40, &parent));
        ASSERT_EQ(1, popups.Count());
        const hytest::PopupMenuCall& call = popups.Calls()[0];
        EXPECT_TRUE(call.menu == menu.m_hMenu && call.owner == parent.m_hWnd && call.x == 30 && call.y == 40);
        hytest::PumpMessages();
        EXPECT_TRUE(parent.commands.empty());   // returned, not sent

        EXPECT_EQ(0, menu.TrackPopupMenu(TPM_RETURNCMD, 0, 0, &parent));   // dismissed

        // Without TPM_RETURNCMD the owner receives the command.
        popups.Choose(200);
        EXPECT_TRUE(menu.TrackPopupMenu(TPM_LEFTALIGN, 5, 5, &parent));
        hytest::PumpMessages();
        EXPECT_EQ(std::vector<UINT>{ 200 }, parent.commands);

        TPMPARAMS tpm = {};
        tpm.cbSize = sizeof(tpm);
        popups.Choose(100);
        EXPECT_EQ(100, menu.TrackPopupMenuEx(TPM_RETURNCMD, 7, 8, &parent, &tpm));
        ASSERT_EQ(4, popups.Count());
        EXPECT_EQ(7, popups.Calls()[3].x);
        parent.DestroyWindow();
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

TEST(Menus, OwnerDrawItemsReachTheirMenu)
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
        EXPECT_EQ(std::vector<ULONG_PTR>{ 0xA2 }, colours.measured);
        EXPECT_EQ(std::pair(80u, 18u), std::pair(mis.itemWidth, mis.itemHeight));
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
        EXPECT_EQ(std::vector<UINT>{ 600 }, colours.drawn);

        // A menu without a permanent wrapper is left to the window.
        HMENU loose = colours.Detach();
        EXPECT_FALSE(CMenu::HandleOwnerDraw(WM_DRAWITEM, (LPARAM)&dis));
        parent.DestroyWindow();
        ::DestroyMenu(loose);
    });
}

}  // namespace
