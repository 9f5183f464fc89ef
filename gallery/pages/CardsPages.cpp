// The "Address cards" and "Photo cards" pages. The address page shows a
// card view of sample contacts using every feature of the description
// markup, with check boxes, sort buttons and a live log of the view's hook
// calls; the page drives a few real clicks when it opens, so the picture
// shows a multiple selection and ticked cards. The photo page shows a photo
// view whose pictures the page draws itself (GDI placeholders), cards
// without a photo, and an empty view.
#include <algorithm>
#include "GalleryPage.h"
#include "GalleryStyle.h"
#include "HyCardView.h"

namespace {

constexpr UINT kCardsId = 3101, kLogId = 3102, kSortNameId = 3103, kSortCompanyId = 3104, kChecksId = 3105;
constexpr UINT kPhotosId = 3111, kEmptyId = 3112;
constexpr int kTop = 96;        // the sections below the page title
constexpr int kHeading = 40;    // a section heading and the space under it
constexpr int kLogLines = 8;
constexpr int kButtonWidth = 150, kButtonHeight = 26;

struct Contact
{
    LPCTSTR name, title, company, work, home, mobile, street, city, category;
    bool isPrivate, masked, note, photo;
    COLORREF tint;   // the placeholder picture's colour
};

const Contact kContacts[] = {
    { _T("Abbott, Rosalind"), _T("Head of Research"), _T("Marlow & Finch Labs"), _T("(555) 201-3300"),
      _T("(555) 201-7781"), _T("(555) 201-9902"), _T("14 Orchard Lane"), _T("Greywater, GW1 4RT"), _T("Business"),
      false, false, true, true, RGB(0xC0, 0x72, 0x4A) },
    { _T("Brennan, Tomas"), _T("Carpenter"), _T("Brennan Joinery"), _T("(555) 318-4410"), nullptr,
      _T("(555) 318-0071"), _T("2 Mill Row"), _T("Eastfold, EF2 9LP"), _T("Suppliers"), false, false, false, false,
      0 },
    { _T("Castellanos, Ines"), _T("Paediatrician"), _T("Riverside Clinic"), _T("(555) 442-1200"),
      _T("(555) 442-8815"), nullptr, _T("Flat 3, 88 Quay Street"), _T("Portmere, PM4 1AA"), _T("Family"), true,
      false, true, true, RGB(0x4A, 0x7C, 0xB0) },
    { _T("Dunmore, Private"), nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, _T("Personal"), true,
      true, false, false, 0 },
    { _T("Eriksen, Pia"), _T("Translator"), _T("Nordlys Languages"), _T("(555) 506-6060"), nullptr, nullptr,
      _T("9 Harbour View"), _T("Saltby, SB7 3QE"),
      _T("Translators and interpreters for the spring catalogue"), false, false, false, true,
      RGB(0x5E, 0x9E, 0x62) },
    { _T("Fairbairn, Duncan"), _T("Treasurer"), _T("Hillside Cycling Club"), nullptr, _T("(555) 611-2048"),
      _T("(555) 611-5150"), _T("The Old Forge"), _T("Kirkby Moss, KM1 8DD"), _T("Clubs"), false, false, true,
      false, 0 },
    { _T("Gallagher, Nora"), _T("Office Manager"), _T("Crane & Lowe Solicitors"), _T("(555) 733-9000"), nullptr,
      _T("(555) 733-1212"), _T("Suite 12, Lime House"), _T("Westgate, WG3 6HN"), _T("Business"), false, false,
      false, true, RGB(0x9A, 0x6A, 0xB4) },
    { _T("Hartley, Sam"), _T("Student"), nullptr, nullptr, _T("(555) 840-3317"), _T("(555) 840-0090"),
      _T("27 Beech Close"), _T("Millford, MF5 2WS"), _T("Family"), false, false, false, true, RGB(0xB8, 0x9A, 0x3C) },
};
constexpr int kContactCount = (int)(sizeof(kContacts) / sizeof(kContacts[0]));

CString Description(const Contact& c)
{
    CString text;
    if (c.title)
        text += CString(c.title) + _T("\n");
    if (c.company)
        text += CString(c.company) + _T("\n");
    text += _T("<L>\n");
    if (c.work)
        text += CString(_T("Work:\t")) + c.work + _T("\n");
    if (c.home)
        text += CString(_T("Home:\t")) + c.home + _T("\n");
    if (c.mobile)
        text += CString(_T("Mobile:\t")) + c.mobile + _T("\n");
    text += _T("\n");
    if (c.street)
        text += CString(c.street) + _T("\n") + c.city + _T("\n\n");
    if (c.note)
        text += _T("Prefers calls after ten in the morning; the note icon marks a record with a note.<W>\n");
    return text;
}

int CALLBACK CompareByName(LPARAM a, LPARAM b, LPARAM)
{
    return lstrcmp(((const Contact*)a)->name, ((const Contact*)b)->name);
}

int CALLBACK CompareByCompany(LPARAM a, LPARAM b, LPARAM)
{
    const LPCTSTR x = ((const Contact*)a)->company, y = ((const Contact*)b)->company;
    return lstrcmp(x ? x : _T("~"), y ? y : _T("~"));   // no company sorts last
}

// The address book's view: the texts come from the contact each card holds.
class CAddressView : public CHyCardView
{
public:
    CListBox* log = nullptr;

    void GetCardDescription(int nIndex, CCardDesc& desc) override
    {
        const Contact* c = (const Contact*)GetCardData(nIndex);
        if (c == nullptr)
            return;
        desc.strLabel = c->name;
        desc.strDescription = Description(*c);
        desc.strCategory = c->category;
        desc.bPrivate = c->isPrivate;
        desc.bMasked = c->masked;
        desc.bNote = c->note;
    }
    void OnCardSelected(int i, BOOL b) override { Log(_T("OnCardSelected(%d, %d)"), i, b); }
    void OnCardChecked(int i, BOOL b) override { Log(_T("OnCardChecked(%d, %d)"), i, b); }
    void OnCardLButtonDblClk(int i, CPoint pt) override { Log(_T("OnCardLButtonDblClk(%d, %d,%d)"), i, pt.x, pt.y); }
    void OnCardOnRButtonDown(int i, CPoint pt) override { Log(_T("OnCardOnRButtonDown(%d, %d,%d)"), i, pt.x, pt.y); }
    void OnCardReturnKey() override { Log(_T("OnCardReturnKey()"), 0, 0); }

private:
    void Log(LPCTSTR format, int a, int b, int c = 0)
    {
        if (log == nullptr || log->m_hWnd == nullptr)
            return;
        CString line;
        line.Format(format, a, b, c);
        GalleryStyle::AppendLog(*log, line, kLogLines);
    }
};

class CPhotoCardsView : public CHyPhotoView
{
public:
    void GetCardDescription(int nIndex, CPhotoCardDesc& desc) override
    {
        const Contact* c = (const Contact*)GetCardData(nIndex);
        if (c == nullptr)
            return;
        desc.strLabel = c->name;
        desc.bPrivate = c->isPrivate;
        desc.bMasked = c->masked;
        desc.bNote = c->note;
        desc.bPhoto = c->photo;
    }
    // A placeholder portrait: head and shoulders on a tinted ground.
    void DrawPhoto(CDC* pDC, int nIndex, RECT* pRect) override
    {
        const Contact* c = (const Contact*)GetCardData(nIndex);
        if (c == nullptr)
            return;
        CRect r(pRect);
        pDC->FillSolidRect(&r, c->tint);
        CBrush skin(RGB(0xF2, 0xD6, 0xBC)), coat(RGB(0x3A, 0x40, 0x4C));
        CPen none(PS_NULL, 0, RGB(0, 0, 0));
        CPen* oldPen = pDC->SelectObject(&none);
        CBrush* oldBrush = pDC->SelectObject(&coat);
        const int w = r.Width(), h = r.Height();
        pDC->Ellipse(r.left + w / 8, r.top + h * 5 / 8, r.right - w / 8, r.bottom + h * 3 / 8);
        pDC->SelectObject(&skin);
        pDC->Ellipse(r.left + w * 5 / 16, r.top + h / 6, r.right - w * 5 / 16, r.top + h * 5 / 8);
        pDC->SelectObject(oldBrush);
        pDC->SelectObject(oldPen);
    }
};

int ViewWidth(int cards, int cardWidth) { return cards * cardWidth + ::GetSystemMetrics(SM_CXVSCROLL) + 2; }

}  // namespace

class CAddressCardsPage : public CGalleryPage
{
public:
    CSize GetContentSize(int cx) override
    {
        (void)cx;
        return CSize(GalleryStyle::kMargin * 2 + ViewWidth(3, 220), LogTop() + kHeading + LogHeight() + 24);
    }

protected:
    void OnCreatePage() override
    {
        using namespace GalleryStyle;
        CreateLog(m_log, this, kLogId);
        m_view.log = &m_log;
        m_view.Create(nullptr, _T(""), WS_CHILD | WS_VISIBLE, CRect(0, 0, ViewWidth(3, 220), 2 * 170 + 2), this,
                      kCardsId);
        m_view.SetFlags(HYCARD_CHECKBOXES);
        for (const Contact& c : kContacts)
            m_view.AddCard((void*)&c, FALSE);
        const struct { LPCTSTR text; UINT id; } buttons[] = {
            { _T("Sort by name"), kSortNameId }, { _T("Sort by company"), kSortCompanyId },
            { _T("Check boxes on/off"), kChecksId } };
        for (int i = 0; i < 3; ++i) {
            m_buttons[i].Create(buttons[i].text, WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_PUSHBUTTON,
                                CRect(0, 0, kButtonWidth, kButtonHeight), this, buttons[i].id);
            m_buttons[i].SetFont(BodyFont());
        }
        // Real clicks: two check boxes, then a card and a second one with Ctrl.
        Click(0, 0, true);
        Click(2, 0, true);
        Click(1, 0, false);
        Click(4, MK_CONTROL, false);
    }

    void Layout(int cx, int scrollY) override
    {
        (void)cx;
        using namespace GalleryStyle;
        if (m_buttons[2].m_hWnd == nullptr)
            return;
        m_view.SetWindowPos(nullptr, kMargin, kTop + kHeading - scrollY, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        for (int i = 0; i < 3; ++i)
            m_buttons[i].SetWindowPos(nullptr, kMargin + i * (kButtonWidth + kGap), ButtonsTop() - scrollY, 0, 0,
                                      SWP_NOSIZE | SWP_NOZORDER);
        m_log.SetWindowPos(nullptr, kMargin, LogTop() + kHeading - scrollY, ViewWidth(3, 220), LogHeight(),
                           SWP_NOZORDER);
    }

    void Paint(CDC& dc, const CRect& rcContent) override
    {
        (void)rcContent;
        using namespace GalleryStyle;
        DrawPageTitle(dc, _T("Address cards"));
        const int width = ViewWidth(3, 220);
        DrawSectionHeading(dc, kMargin, kTop, width,
                           _T("CHyCardView: eight contacts, check boxes, a multiple selection"));
        DrawSectionHeading(dc, kMargin, LogTop(), width, _T("Hook calls, newest last"));
    }

    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override
    {
        switch (LOWORD(wParam)) {
        case kSortNameId: m_view.SortItems(&CompareByName, 0); return TRUE;
        case kSortCompanyId: m_view.SortItems(&CompareByCompany, 0); return TRUE;
        case kChecksId:
            m_view.SetFlags(m_view.GetFlags() ^ HYCARD_CHECKBOXES);
            m_view.RedrawAll();
            return TRUE;
        default: return CGalleryPage::OnCommand(wParam, lParam);
        }
    }

private:
    int ButtonsTop() const { return kTop + kHeading + 2 * 170 + 2 + GalleryStyle::kGap; }
    int LogTop() const { return ButtonsTop() + kButtonHeight + GalleryStyle::kMargin; }
    int LogHeight() const { return GalleryStyle::LineHeight() * kLogLines + 4; }

    // A press and release on card i: on its label, or on its check box.
    void Click(int i, UINT modifiers, bool checkBox)
    {
        const int col = i % 3, row = i / 3;
        const CPoint at = checkBox ? CPoint(col * 220 + 10, row * 170 + 13) : CPoint(col * 220 + 110, row * 170 + 80);
        m_view.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON | modifiers, MAKELPARAM(at.x, at.y));
        m_view.SendMessage(WM_LBUTTONUP, modifiers, MAKELPARAM(at.x, at.y));
    }

    CAddressView m_view;
    CListBox m_log;
    CButton m_buttons[3];
};

GALLERY_REGISTER_PAGE(CAddressCardsPage, _T("Address cards"), _T("address-cards"), 20)

class CPhotoCardsPage : public CGalleryPage
{
public:
    CSize GetContentSize(int cx) override
    {
        (void)cx;
        return CSize(GalleryStyle::kMargin * 2 + ViewWidth(4, 144), EmptyTop() + kHeading + 134 + 2 + 24);
    }

protected:
    void OnCreatePage() override
    {
        m_view.Create(nullptr, _T(""), WS_CHILD | WS_VISIBLE, CRect(0, 0, ViewWidth(4, 144), 2 * 134 + 2), this,
                      kPhotosId);
        for (const Contact& c : kContacts)
            m_view.AddCard((void*)&c, FALSE);
        m_view.SelectCard(5, TRUE, FALSE);
        m_view.SelectCard(2, TRUE, FALSE);
        m_empty.Create(nullptr, _T(""), WS_CHILD | WS_VISIBLE, CRect(0, 0, ViewWidth(4, 144), 134 + 2), this,
                       kEmptyId);
    }

    void Layout(int cx, int scrollY) override
    {
        (void)cx;
        using namespace GalleryStyle;
        if (m_view.m_hWnd == nullptr)
            return;
        m_view.SetWindowPos(nullptr, kMargin, kTop + kHeading - scrollY, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        m_empty.SetWindowPos(nullptr, kMargin, EmptyTop() + kHeading - scrollY, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    }

    void Paint(CDC& dc, const CRect& rcContent) override
    {
        (void)rcContent;
        using namespace GalleryStyle;
        DrawPageTitle(dc, _T("Photo cards"));
        const int width = ViewWidth(4, 144);
        DrawSectionHeading(dc, kMargin, kTop, width, _T("CHyPhotoView: pictures drawn by the page, two selected"));
        DrawSectionHeading(dc, kMargin, EmptyTop(), width, _T("An empty view"));
    }

private:
    int EmptyTop() const { return kTop + kHeading + 2 * 134 + 2 + GalleryStyle::kMargin; }

    CPhotoCardsView m_view;
    CHyPhotoView m_empty;
};

GALLERY_REGISTER_PAGE(CPhotoCardsPage, _T("Photo cards"), _T("photo-cards"), 30)
