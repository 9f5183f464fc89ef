// The "Editing" page: an edit list holding one contact. Plain rows, chooser
// rows (from a menu resource, from a menu built in code, one with a fixed
// label), an address that takes Enter as a line break, a note sized for
// three lines, a collapsed row and a long value that wraps. The page opens
// the note and types into it, so the picture shows a row being edited.
// Under it the fields: a time field with its spin button wired as a host
// wires them, a time field showing "None", a number field with a minimum and
// a note field made editable by a double click. A log lists what the
// controls tell the page.
#include <algorithm>
#include "GalleryPage.h"
#include "GalleryStyle.h"
#include "HyEditFields.h"
#include "HyEditList.h"
#include "HyEditTime.h"

namespace {

constexpr UINT kListId = 3210, kLogId = 3211, kPhoneMenu = 3200;
constexpr UINT kSpinId = 3231, kSpinButtonId = 3232, kTimeId = 3233, kNumberId = 3234, kNoteId = 3235;
constexpr int kTop = 96, kHeading = 40, kLogLines = 8;
constexpr int kListWidth = 560, kListHeight = 262;
constexpr int kFieldRow = 34, kFieldLeft = 220, kNoteHeight = 64;
const LPCTSTR kFieldLabels[] = { _T("Time, with its spin button"), _T("Time (afternoon below 8)"),
                                 _T("Number (at least 5)"), _T("Note (double-click to edit)") };

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
        GalleryStyle::CreateLog(m_log, this, kLogId);
        CreateFields();
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
        const int y = FieldsTop() + kHeading - scrollY, x = kMargin + kFieldLeft;
        m_spin.SetWindowPos(nullptr, x, y, 120, 24, SWP_NOZORDER);
        m_spinButton.SetWindowPos(nullptr, x + 122, y, 18, 24, SWP_NOZORDER);
        m_time.SetWindowPos(nullptr, x, y + kFieldRow, 120, 24, SWP_NOZORDER);
        m_number.SetWindowPos(nullptr, x, y + 2 * kFieldRow, 120, 24, SWP_NOZORDER);
        m_note.SetWindowPos(nullptr, x, y + 3 * kFieldRow, kListWidth - kFieldLeft, kNoteHeight, SWP_NOZORDER);
    }

    void Paint(CDC& dc, const CRect& rcContent) override
    {
        (void)rcContent;
        using namespace GalleryStyle;
        DrawPageTitle(dc, _T("Editing"));
        DrawSectionHeading(dc, kMargin, kTop, kListWidth,
                           _T("CHyEditList: a contact, the note being typed in"));
        DrawSectionHeading(dc, kMargin, FieldsTop(), kListWidth,
                           _T("Fields: time, spin, number and note (CHyEditTime, CHyNumEdit, ...)"));
        CFont* old = dc.SelectObject(BodyFont());
        dc.SetTextColor(Text());
        dc.SetBkMode(TRANSPARENT);
        for (int i = 0; i < 4; ++i) {
            CRect label(kMargin, FieldsTop() + kHeading + i * kFieldRow, kMargin + kFieldLeft - 8,
                        FieldsTop() + kHeading + i * kFieldRow + 24);
            dc.DrawText(kFieldLabels[i], -1, &label, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
        }
        dc.SelectObject(old);
        // The note's border, under the control: the rich edit draws no frame into a picture.
        CRect noteFrame(kMargin + kFieldLeft, FieldsTop() + kHeading + 3 * kFieldRow, kMargin + kListWidth,
                        FieldsTop() + kHeading + 3 * kFieldRow + kNoteHeight);
        dc.FrameRect(&noteFrame, CBrush::FromHandle(::GetSysColorBrush(COLOR_WINDOWFRAME)));
        DrawSectionHeading(dc, kMargin, LogTop(), kListWidth, _T("What the controls tell the page, newest last"));
    }

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        static const LPCTSTR kNoteNames[] = { _T("HYRE_DBLCLK"), _T("HYRE_RBUTTONUP"), _T("HYRE_ENTER"),
                                              _T("HYRE_KILLFOCUS"), _T("HYRE_LBUTTONDOWN"), _T("HYRE_TAB") };
        CString line;
        if (message == HYET_STEPKEY)
            line.Format(_T("HYET_STEPKEY: control %u, step %d"), (UINT)wParam, (int)lParam);
        else if (message >= HYRE_DBLCLK && message <= HYRE_TAB)
            line.Format(_T("%s: wParam 0x%IX"), kNoteNames[message - HYRE_DBLCLK], (UINT_PTR)wParam);
        else if (message == HYEL_MENUCHANGED)
            line.Format(_T("HYEL_MENUCHANGED: control %u, row %d, entry %d"), (UINT)wParam, LOWORD(lParam),
                        HIWORD(lParam));
        else if (message == WM_KEYDOWN && wParam == VK_RETURN)
            line.Format(_T("WM_KEYDOWN VK_RETURN from row %d"), m_list.GetFirstSelectedItemIndex());
        if (!line.IsEmpty() && m_log.m_hWnd != nullptr) {
            GalleryStyle::AppendLog(m_log, line, kLogLines);
            // The host's wiring: steps from the field or its button go to the field.
            if (message == HYET_STEPKEY && (wParam == kSpinId || wParam == kSpinButtonId))
                m_spin.ChangeValue((int)lParam);
            if (message == HYRE_DBLCLK)
                m_note.SetEditable(1);
            return 0;
        }
        return CGalleryPage::WindowProc(message, wParam, lParam);
    }

private:
    void CreateFields()
    {
        m_spin.Create(WS_CHILD | WS_VISIBLE | WS_BORDER | WS_TABSTOP, CRect(0, 0, 120, 24), this, kSpinId);
        m_spinButton.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 18, 24), this, kSpinButtonId);
        m_time.Create(WS_CHILD | WS_VISIBLE | WS_BORDER | WS_TABSTOP, CRect(0, 0, 120, 24), this, kTimeId);
        m_number.Create(WS_CHILD | WS_VISIBLE | WS_BORDER | WS_TABSTOP, CRect(0, 0, 120, 24), this, kNumberId);
        m_note.Create(WS_CHILD | WS_VISIBLE | WS_BORDER | WS_TABSTOP | ES_MULTILINE | ES_WANTRETURN | WS_VSCROLL,
                      CRect(0, 0, 100, kNoteHeight), this, kNoteId);
        for (CWnd* w : { (CWnd*)&m_spin, (CWnd*)&m_time, (CWnd*)&m_number, (CWnd*)&m_note })
            w->SetFont(GalleryStyle::BodyFont());
        m_spin.SetTime(9, 30, 1);
        m_time.SetWindowText(_T("None"));   // no time yet: typing replaces the word
        m_number.SetMinRequireValue(5);
        m_number.SetWindowText(_T("12"));
        m_note.SetWindowText(_T("Met at the spring fair; interested in the orchard survey."));
        // A person's input: Up on the spin field's minutes, a double click on the
        // note (reported, and the page makes the note editable). What the
        // controls post is handled before the list is filled and opened.
        m_spin.SetSel(3, 5);
        m_spin.SendMessage(WM_KEYDOWN, VK_UP, 1);
        for (UINT message : { WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_LBUTTONUP })
            m_note.SendMessage(message, message == WM_LBUTTONUP ? 0 : MK_LBUTTON, MAKELPARAM(12, 8));
        MSG msg;
        while (::PeekMessage(&msg, m_hWnd, 0, 0, PM_REMOVE))
            ::DispatchMessage(&msg);
    }

    int FieldsTop() const { return kTop + kHeading + kListHeight + GalleryStyle::kMargin; }
    int LogTop() const { return FieldsTop() + kHeading + 3 * kFieldRow + kNoteHeight + GalleryStyle::kMargin; }
    int LogHeight() const { return GalleryStyle::LineHeight() * kLogLines + 4; }

    CHyEditList m_list;
    CMenu m_email;
    CListBox m_log;
    CHyEditTimeSpinCtrl m_spin{ 8, 0 };
    CHyTimeSpinButtonCtrl m_spinButton;
    CHyEditTime m_time{ 8, 0 };
    CHyNumEdit m_number;
    CHyTernUIRichEdit m_note;
};

GALLERY_REGISTER_PAGE(CEditingPage, _T("Editing"), _T("editing"), 50)
