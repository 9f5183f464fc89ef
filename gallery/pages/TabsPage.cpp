// The "Tabs and buttons" page: the tab control in its three styles, with
// icons, a row squeezed into less room than its tabs want, pages the page
// switches when the control reports a new tab (HYWM_TAB_ACTIVATED), and
// Ctrl+Tab / Ctrl+Shift+Tab from the page's accelerator table, which the
// control hands to the page as TCN_KEYDOWN. Then bitmap buttons (flat and
// 3-D, with a photo, a caption, neither, disabled, hovered, pressed,
// focused) and menu buttons (from a resource, from code, with an "&", and
// elided). A log shows what the controls tell the page; the first entries
// come from real clicks and keys.
#include "GalleryPage.h"
#include "GalleryStyle.h"
#include "CxImage.h"
#include "GalleryPictures.h"
#include "HyBitmapButton.h"
#include "HyMenuButton.h"
#include "HyTabCtrl.h"
#include <commctrl.h>

namespace {

constexpr UINT kTabsId = 3601, kLogId = 3610, kAccelNext = 3620, kAccelPrevious = 3621;
constexpr int kTop = 96, kHeading = 40, kLogLines = 8, kWidth = 620, kTabsHeight = 92, kSqueezed = 300;
const char* const kNames[] = { "Contacts", "Calendar", "Memos", "Tasks", "Categories" };
const LPCTSTR kIcons[] = { IDI_INFORMATION, IDI_WARNING, IDI_QUESTION, IDI_ERROR, IDI_APPLICATION };
constexpr UINT kButtonsId = 3630, kMenuButtonsId = 3640, kPhoneMenu = 3200;
constexpr int kButton = 76, kButtonRow = 72, kMenuWidth = 140;
const LPCTSTR kButtonNames[] = { _T("flat, photo"), _T("3-D, photo"), _T("caption"), _T("neither"),
                                 _T("disabled"), _T("hovered"), _T("pressed") };
const LPCTSTR kStyleNames[] = { _T("Style 1: tabs"), _T("Style 2: buttons"), _T("Style 3: flat"),
                                _T("Squeezed into 300 pixels") };

}  // namespace

class CTabsPage : public CGalleryPage
{
public:
    ~CTabsPage() override
    {
        if (m_accelerators != nullptr)
            ::DestroyAcceleratorTable(m_accelerators);
    }
    CSize GetContentSize(int) override { return CSize(GalleryStyle::kMargin * 2 + kWidth, LogTop() + kHeading + LogHeight() + 24); }

protected:
    void OnCreatePage() override
    {
        ACCEL keys[] = { { FVIRTKEY | FCONTROL, VK_TAB, kAccelNext }, { FVIRTKEY | FCONTROL | FSHIFT, VK_TAB, kAccelPrevious } };
        m_accelerators = ::CreateAcceleratorTable(keys, 2);
        for (int row = 0; row < 4; ++row)
        {
            CHyTabCtrl& tabs = m_tabs[row];
            for (int i = 0; i < 5; ++i)
                tabs.AddItem(kNames[i], i, row == 1 ? nullptr : ::LoadIcon(nullptr, kIcons[i]));
            tabs.Create(WS_CHILD | WS_VISIBLE | WS_TABSTOP | (row == 3 ? 1 : row + 1),
                        CRect(0, 0, row == 3 ? kSqueezed : kWidth, kTabsHeight), this, kTabsId + row);
            tabs.SetAccelerator(m_accelerators);
            m_pages[row].Create(_T(""), WS_CHILD | WS_VISIBLE | SS_LEFT | SS_NOPREFIX, CRect(0, 0, 10, 10), &tabs, 1);
            m_pages[row].SetFont(GalleryStyle::BodyFont());
            tabs = row == 2 ? 1 : 0;
        }
        MSG msg;
        while (::PeekMessage(&msg, m_hWnd, 0, 0, PM_REMOVE))   // the first tabs shown: not logged
            ::DispatchMessage(&msg);
        GalleryStyle::CreateLog(m_log, this, kLogId);
        // A person's input: a click on "Memos" in the first row, then Right
        // released in it, then Ctrl+Tab in the second.
        const CPoint memos = m_tabs[0].Item(2)->rect.CenterPoint();
        m_tabs[0].SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(memos.x, memos.y));
        m_tabs[0].SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(memos.x, memos.y));
        m_tabs[0].SendMessage(WM_KEYDOWN, VK_RIGHT, 1);
        m_tabs[0].SendMessage(WM_KEYUP, VK_RIGHT, 0xC0000001);
        MSG ctrlTab{ m_tabs[1].m_hWnd, WM_KEYDOWN, VK_TAB, 0x000F0001 };
        BYTE state[256] = {}, saved[256];
        ::GetKeyboardState(saved);
        state[VK_CONTROL] = 0x80;
        ::SetKeyboardState(state);
        m_tabs[1].PreTranslateMessage(&ctrlTab);
        ::SetKeyboardState(saved);
        while (::PeekMessage(&msg, m_hWnd, 0, 0, PM_REMOVE))
            ::DispatchMessage(&msg);
        for (int row = 0; row < 4; ++row)
            ShowPage(row);
        CreateButtons();
    }

    void Layout(int, int scrollY) override
    {
        using namespace GalleryStyle;
        if (m_log.m_hWnd == nullptr)
            return;
        for (int row = 0; row < 4; ++row)
        {
            m_tabs[row].SetWindowPos(nullptr, kMargin, RowTop(row) + LineHeight() + 8 - scrollY, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
            const CRect page = m_tabs[row]._GetClientRect();
            m_pages[row].SetWindowPos(nullptr, page.left + 12, page.top + 10, page.Width() - 24, page.Height() - 20, SWP_NOZORDER);
        }
        for (int i = 0; i < 7; ++i)
            m_buttons[i].SetWindowPos(nullptr, kMargin + i * (kButton + 12), ButtonsTop() + kHeading - scrollY, 0, 0,
                                      SWP_NOSIZE | SWP_NOZORDER);
        for (int i = 0; i < 4; ++i)
            m_menuButtons[i].SetWindowPos(nullptr, kMargin + i * (kMenuWidth + 12), MenusTop() - scrollY, 0, 0,
                                          SWP_NOSIZE | SWP_NOZORDER);
        m_log.SetWindowPos(nullptr, kMargin, LogTop() + kHeading - scrollY, kWidth, LogHeight(), SWP_NOZORDER);
    }

    void Paint(CDC& dc, const CRect&) override
    {
        using namespace GalleryStyle;
        DrawPageTitle(dc, _T("Tabs and buttons"));
        DrawSectionHeading(dc, kMargin, kTop, kWidth,
                           _T("CHyTabCtrl: click a tab, Left/Right/Home/End, Ctrl+Tab and Ctrl+Shift+Tab"));
        CFont* old = dc.SelectObject(BodyFont());
        dc.SetBkMode(TRANSPARENT);
        dc.SetTextColor(MutedText());
        for (int row = 0; row < 4; ++row)
            dc.TextOut(kMargin, RowTop(row), kStyleNames[row]);
        DrawSectionHeading(dc, kMargin, ButtonsTop(), kWidth, _T("CHyBitmapButton and CHyMenuButton"));
        for (int i = 0; i < 7; ++i)
        {
            CRect label(kMargin + i * (kButton + 12) - 6, ButtonsTop() + kHeading + kButtonRow + 4,
                        kMargin + i * (kButton + 12) + kButton + 6, ButtonsTop() + kHeading + kButtonRow + 4 + LineHeight());
            dc.DrawText(kButtonNames[i], -1, &label, DT_CENTER | DT_SINGLELINE | DT_NOPREFIX);
        }
        dc.SelectObject(old);
        DrawSectionHeading(dc, kMargin, LogTop(), kWidth, _T("What the controls tell the page, newest last"));
    }

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        CString line;
        if (message == HYWM_BITMAPBUTTON_CLICKED)
        {
            // Every bitmap button sends the same message: the one clicked has the focus.
            const HWND focus = ::GetFocus();
            for (int i = 0; i < 7; ++i)
                if (m_buttons[i].m_hWnd == focus)
                    line.Format(_T("0x2900 (bitmap button clicked): the \"%s\" button has the focus"), kButtonNames[i]);
        }
        else if (message == HYWM_TAB_ACTIVATED)
            line.Format(_T("0x0784 (tab activated): tab %d"), (int)wParam);
        else if (message == WM_COMMAND && LOWORD(wParam) >= kTabsId && LOWORD(wParam) < kTabsId + 4)
            line.Format(_T("WM_COMMAND from tab control %u"), (UINT)LOWORD(wParam) - kTabsId + 1);
        else if (message == WM_NOTIFY && ((NMHDR*)lParam)->code == TCN_KEYDOWN)
        {
            const NMTCKEYDOWN* key = (const NMTCKEYDOWN*)lParam;
            const int row = (int)key->hdr.idFrom - (int)kTabsId;
            const bool back = ::GetKeyState(VK_SHIFT) < 0;
            line.Format(_T("TCN_KEYDOWN: key 0x%02X, flags 0x%08X: %s tab"), key->wVKey, key->flags, back ? _T("previous") : _T("next"));
            if (row >= 0 && row < 4 && m_tabs[row].GetCount() > 0)   // the host's choice: Ctrl+Tab steps with a wrap
            {
                const int count = m_tabs[row].GetCount(), at = m_tabs[row].GetActiveItem();
                m_tabs[row] = back ? (at + count - 1) % count : (at + 1) % count;
            }
        }
        if (!line.IsEmpty() && m_log.m_hWnd != nullptr)
        {
            GalleryStyle::AppendLog(m_log, line, kLogLines);
            for (int row = 0; row < 4; ++row)
                ShowPage(row);
            return 0;
        }
        return CGalleryPage::WindowProc(message, wParam, lParam);
    }

private:
    void ShowPage(int row)
    {
        CTabItem* item = m_tabs[row].Item(m_tabs[row].GetActiveItem());
        CString text;
        if (item != nullptr)
            text.Format(_T("The %s page: the host shows it when the control reports its tab."), (LPCTSTR)item->text);
        CString shown;
        m_pages[row].GetWindowText(shown);
        if (shown != text)
            m_pages[row].SetWindowText(text);
    }

    // Buttons made as a dialog's would be: system buttons, then subclassed.
    void CreateButtons()
    {
        m_photo = GalleryMakePicture(GalleryPicture::Portrait);
        const LPCTSTR captions[] = { _T(""), _T(""), _T("Send now"), _T(""), _T("Off"), _T(""), _T("Push") };
        for (int i = 0; i < 7; ++i)
        {
            HWND h = ::CreateWindow(_T("BUTTON"), captions[i], WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_PUSHBUTTON, 0, 0,
                                    kButton, kButtonRow, m_hWnd, (HMENU)(UINT_PTR)(kButtonsId + i), nullptr, nullptr);
            m_buttons[i].SubclassWindow(h);
            m_buttons[i].SetFont(GalleryStyle::BodyFont());
            if (i < 2 || i == 5)
                m_buttons[i].SetCxImage(m_photo.get());
            m_buttons[i].SetFlat(i == 0 || i == 3 || i == 5, FALSE);
        }
        m_buttons[4].EnableWindow(FALSE);
        m_buttons[6].SetFlat(FALSE, FALSE);
        m_buttons[6].SetState(TRUE);    // held down
        m_codeMenu.CreatePopupMenu();
        m_codeMenu.AppendMenu(MF_STRING, 3651, _T("&Head office"));
        m_codeMenu.AppendMenu(MF_STRING, 3652, _T("R&&D lab"));
        m_codeMenu.AppendMenu(MF_STRING, 3653, _T("Main reception desk, ground floor"));
        const CRect place(0, 0, kMenuWidth, 26);
        m_menuButtons[0].Create(kPhoneMenu, 1, WS_CHILD | WS_VISIBLE | WS_TABSTOP, place, this, kMenuButtonsId);
        m_menuButtons[1].Create(&m_codeMenu, 0, WS_CHILD | WS_VISIBLE | WS_TABSTOP, place, this, kMenuButtonsId + 1);
        m_menuButtons[2].Create(&m_codeMenu, 1, WS_CHILD | WS_VISIBLE | WS_TABSTOP, place, this, kMenuButtonsId + 2);
        m_menuButtons[3].Create(&m_codeMenu, 2, WS_CHILD | WS_VISIBLE | WS_TABSTOP, place, this, kMenuButtonsId + 3);
        // A click on the 3-D photo button, as a person makes it, then the focus
        // stays on it.
        m_buttons[1].SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(10, 10));
        m_buttons[1].SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(10, 10));
        m_buttons[5].hover = TRUE;   // as with the mouse over it
    }

    int RowTop(int row) const { return kTop + kHeading + row * (kTabsHeight + GalleryStyle::LineHeight() + 22); }
    int ButtonsTop() const { return RowTop(4); }
    int MenusTop() const { return ButtonsTop() + kHeading + kButtonRow + GalleryStyle::LineHeight() + 16; }
    int LogTop() const { return MenusTop() + 26 + GalleryStyle::kMargin; }
    int LogHeight() const { return GalleryStyle::LineHeight() * kLogLines + 4; }

    CHyTabCtrl m_tabs[4];
    CStatic m_pages[4];
    CListBox m_log;
    HACCEL m_accelerators = nullptr;
    CHyBitmapButton m_buttons[7];
    CHyMenuButton m_menuButtons[4];
    CMenu m_codeMenu;
    std::unique_ptr<CxImage> m_photo;
};

GALLERY_REGISTER_PAGE(CTabsPage, _T("Tabs and buttons"), _T("tabs"), 90)
