// The "Editing" page: an edit list holding one contact. Plain rows, chooser
// rows (from a menu resource, from a menu built in code, one with a fixed
// label), an address that takes Enter as a line break, a note sized for
// three lines, a collapsed row and a long value that wraps. The page opens
// the note and types into it, so the picture shows a row being edited; a log
// lists the chooser notifications and the Enter keys the list hands on.
#include <algorithm>
#include "GalleryPage.h"
#include "GalleryStyle.h"
#include "HyEditList.h"

namespace {

constexpr UINT kListId = 3210, kLogId = 3211, kPhoneMenu = 3200;
constexpr int kTop = 96, kHeading = 40, kLogLines = 6;
constexpr int kListWidth = 560, kListHeight = 262;

}  // namespace

class CEditingPage : public CGalleryPage
{
public:
    CSize GetContentSize(int cx) override
    {
        (void)cx;
        return CSize(GalleryStyle::kMargin * 2 + kListWidth, LogTop() + kHeading + LogHeight() + 24);
    }

protected:
    void OnCreatePage() override
    {
        m_log.Create(WS_CHILD | WS_VISIBLE | WS_BORDER | WS_VSCROLL | LBS_NOINTEGRALHEIGHT | LBS_NOSEL,
                     CRect(0, 0, 100, 100), this, kLogId);
        m_log.SetFont(GalleryStyle::BodyFont());
        m_list.CreateEx(WS_EX_CLIENTEDGE, WS_CHILD | WS_VISIBLE, CRect(0, 0, kListWidth, kListHeight), this, kListId);
        m_list.SetLabelWidth(150, FALSE);
        m_email.CreatePopupMenu();
        m_email.AppendMenu(MF_STRING, 3221, _T("E-mail"));
        m_email.AppendMenu(MF_STRING, 3222, _T("E-mail 2"));
        m_email.AppendMenu(MF_STRING, 3223, _T("Web page"));
        m_list.AddItem(_T("Name"), _T("Rosalind Abbott"), 0, FALSE);
        m_list.AddItem(_T("Company"), _T("Marlow & Finch Labs"), 0, FALSE);
        m_list.AddItem(kPhoneMenu, 0, nullptr, _T("(555) 201-3300"), 0, FALSE);
        m_list.AddItem(kPhoneMenu, 2, nullptr, _T("(555) 201-9902"), 0, FALSE);
        m_list.AddItem(kPhoneMenu, 1, _T("Pager"), _T("(555) 201-0440"), 0, FALSE);   // a fixed label
        m_list.AddItem(&m_email, 0, nullptr, _T("r.abbott@marlowfinch.example"), 0, FALSE);
        const int address = m_list.AddItem(_T("Address"), _T("14 Orchard Lane\r\nGreywater, GW1 4RT"), 0, FALSE);
        m_list.SetItemAcceptEnter(address, TRUE);
        m_list.CollapseItem(m_list.AddItem(_T("Spouse"), _T(""), 0, FALSE), TRUE);
        m_list.AddItem(_T("Directions"),
                       _T("From the station take the river path east past the mill; the lab is the brick building "
                          "behind the orchard, entrance on the north side."),
                       HYEL_LABEL_LEFT, FALSE);
        const int note = m_list.AddItem(_T("Note"), _T(""), 0, TRUE);
        m_list.SetItemMinRows(note, 3);
        m_list.SetItemAcceptEnter(note, TRUE);
        // Enter in the company row, as the message loop offers it: handed to this page.
        m_list.SelectAndScrollItem(1, TRUE);
        MSG enter{ m_list.editor.m_hWnd, WM_KEYDOWN, VK_RETURN, 1 };
        m_list.PreTranslateMessage(&enter);
        m_list.SelectItem(1, FALSE, TRUE);
        // A person's typing, character by character, into the open note.
        m_list.SelectAndScrollItem(note, TRUE);
        for (const TCHAR* p = _T("Prefers calls after ten;\rasks for the lab's fax first."); *p; ++p)
            m_list.editor.SendMessage(WM_CHAR, (WPARAM)(BYTE)*p, 1);
    }

    void Layout(int cx, int scrollY) override
    {
        (void)cx;
        using namespace GalleryStyle;
        if (m_list.m_hWnd == nullptr)
            return;
        m_list.SetWindowPos(nullptr, kMargin, kTop + kHeading - scrollY, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        m_log.SetWindowPos(nullptr, kMargin, LogTop() + kHeading - scrollY, kListWidth, LogHeight(), SWP_NOZORDER);
    }

    void Paint(CDC& dc, const CRect& rcContent) override
    {
        (void)rcContent;
        using namespace GalleryStyle;
        DrawPageTitle(dc, _T("Editing"));
        DrawSectionHeading(dc, kMargin, kTop, kListWidth,
                           _T("CHyEditList: a contact, the note being typed in"));
        DrawSectionHeading(dc, kMargin, LogTop(), kListWidth, _T("Chooser changes and Enter keys, newest last"));
    }

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        CString line;
        if (message == HYEL_MENUCHANGED)
            line.Format(_T("HYEL_MENUCHANGED: control %u, row %d, entry %d"), (UINT)wParam, LOWORD(lParam),
                        HIWORD(lParam));
        else if (message == WM_KEYDOWN && wParam == VK_RETURN)
            line.Format(_T("WM_KEYDOWN VK_RETURN from row %d"), m_list.GetFirstSelectedItemIndex());
        if (!line.IsEmpty() && m_log.m_hWnd != nullptr) {
            const int at = m_log.AddString(line);
            m_log.SetTopIndex(std::max(0, at - kLogLines + 1));
            return 0;
        }
        return CGalleryPage::WindowProc(message, wParam, lParam);
    }

private:
    int LogTop() const { return kTop + kHeading + kListHeight + GalleryStyle::kMargin; }
    int LogHeight() const { return GalleryStyle::LineHeight() * kLogLines + 4; }

    CHyEditList m_list;
    CMenu m_email;
    CListBox m_log;
};

GALLERY_REGISTER_PAGE(CEditingPage, _T("Editing"), _T("editing"), 50)
