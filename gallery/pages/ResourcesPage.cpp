// The "Resources" page: the library's strings, bitmaps, cursors and dialog
// templates exactly as the resource chain finds them (the language module
// first, HyUI.dll's own English copy second), each with the module it came
// from. What the chain does not find is marked "missing".
#include <afxdllx.h>
#include <algorithm>
#include <vector>
#include "GalleryHost.h"
#include "GalleryPage.h"
#include "GalleryRender.h"
#include "GalleryStyle.h"
#include "HyUIRes.h"

namespace {

const UINT kStringIds[] = {
    IDS_DAY_MONDAY, IDS_DAY_TUESDAY, IDS_DAY_WEDNESDAY, IDS_DAY_THURSDAY, IDS_DAY_FRIDAY,
    IDS_DAY_SUNDAY, IDS_DAY_SATURDAY, IDS_CARDS_EMPTY, IDS_PASSWORD_ENTER_TITLE,
    IDS_PASSWORD_INCORRECT, IDS_PASSWORD_EDIT_TITLE, IDS_YEAR_MENU_FORMAT, IDS_MONTH_MENU_FORMAT,
    IDS_NO_PHOTO, IDS_URL_NO_CONNECTION, IDS_URL_INVALID, IDS_URL_IMAGE_CORRUPT,
    IDS_REMIND_DAYS_ON_HANDHELD,
};
const UINT kBitmapIds[] = { IDB_NOTE, IDB_PADLOCK, IDB_CHECK_MARK, IDB_BUTTON_PLACEHOLDER };
const UINT kCursorIds[] = { IDC_CURSOR_RESIZE_WIDTH, IDC_CURSOR_RESIZE_HEIGHT };
const UINT kDialogIds[] = { IDD_PASSWORD_MASKING, IDD_PASSWORD, IDD_COLOR_CATEGORIES, IDD_DAY_PICKER,
                            IDD_EDIT_CONTROLS };

constexpr UINT kFirstDialogButton = 2000;
constexpr int kBitmapZoom = 3;
constexpr int kStringsWidth = 600;    // id, text and source columns
constexpr int kPicturesWidth = 400;   // bitmaps and cursors beside the strings
constexpr int kContentWidth = GalleryStyle::kMargin * 2 + kStringsWidth + GalleryStyle::kMargin + kPicturesWidth;

struct StringEntry
{
    UINT id;
    bool found;
    CString text;
    CString source;
};

struct BitmapEntry
{
    UINT id;
    CBitmap bitmap;
    BITMAP info;
    CString source;
};

struct CursorEntry
{
    UINT id;
    HCURSOR hCursor;
    CString source;
};

struct DialogEntry
{
    UINT id;
    CString title;
    CString note;        // why there is no preview
    HBITMAP hPreview;    // the dialog as it looks, frame included
    CSize size;
    CButton button;
    CRect rect;          // preview area in content coordinates (set by layout)
};

// The module that actually holds resource id of type: the chain's answer
// when it holds it, else NULL.
HMODULE ChainModule(UINT id, LPCTSTR type)
{
    HINSTANCE h = AfxFindResourceHandle(MAKEINTRESOURCE(id), type);
    return (h != nullptr && ::FindResource(h, MAKEINTRESOURCE(id), type) != nullptr) ? h : nullptr;
}

// A copy of dialog template id from the chain without WS_VISIBLE, so that a
// preview is made without the dialog ever appearing.
std::vector<BYTE> HiddenTemplate(UINT id)
{
    std::vector<BYTE> bytes;
    HMODULE h = ChainModule(id, RT_DIALOG);
    HRSRC res = h ? ::FindResource(h, MAKEINTRESOURCE(id), RT_DIALOG) : nullptr;
    HGLOBAL global = res ? ::LoadResource(h, res) : nullptr;
    const BYTE* data = global ? (const BYTE*)::LockResource(global) : nullptr;
    if (data == nullptr)
        return bytes;
    bytes.assign(data, data + ::SizeofResource(h, res));
    // DLGTEMPLATEEX starts with version 1 and signature 0xFFFF; its style is at 12.
    const bool extended = bytes.size() >= 16 && *(const WORD*)&bytes[2] == 0xFFFF;
    const size_t styleOffset = extended ? 12 : 0;
    if (bytes.size() < styleOffset + 4)
        return {};
    DWORD style;
    memcpy(&style, &bytes[styleOffset], 4);
    style &= ~WS_VISIBLE;
    memcpy(&bytes[styleOffset], &style, 4);
    return bytes;
}

// Makes the dialog from its template, hidden, and paints it into a bitmap.
void MakePreview(DialogEntry& entry, CWnd* pOwner)
{
    std::vector<BYTE> bytes = HiddenTemplate(entry.id);
    if (bytes.empty())
    {
        entry.note = _T("missing");
        return;
    }
    // Kept aligned for the dialog manager: a DWORD-aligned copy.
    std::vector<DWORD> aligned((bytes.size() + 3) / 4);
    memcpy(aligned.data(), bytes.data(), bytes.size());
    CDialog dialog;
    if (!dialog.CreateIndirect((LPCDLGTEMPLATE)aligned.data(), pOwner))
    {
        entry.note = _T("cannot be created (a control class is not registered)");
        return;
    }
    dialog.GetWindowText(entry.title);
    // Controls paint only while visible: show it far off the screen, inactive.
    dialog.SetWindowPos(nullptr, -32000, -32000, 0, 0,
                        SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_SHOWWINDOW);
    entry.hPreview = GalleryRenderWindow(dialog.m_hWnd);
    dialog.DestroyWindow();
    BITMAP bm = {};
    if (entry.hPreview != nullptr && ::GetObject(entry.hPreview, sizeof(bm), &bm) == sizeof(bm))
        entry.size = CSize(bm.bmWidth, bm.bmHeight);
}

// Draws text with each line feed shown as an accented "\n".
void DrawVisibleLineFeeds(CDC& dc, int x, int y, const CString& text, COLORREF color)
{
    int start = 0;
    for (;;)
    {
        int lf = text.Find('\n', start);
        CString part = lf < 0 ? text.Mid(start) : text.Mid(start, lf - start);
        dc.SetTextColor(color);
        dc.TextOut(x, y, part);
        x += dc.GetTextExtent(part).cx;
        if (lf < 0)
            break;
        dc.SetTextColor(GalleryStyle::Accent());
        dc.TextOut(x, y, _T("\\n"), 2);
        x += dc.GetTextExtent(_T("\\n"), 2).cx;
        start = lf + 1;
    }
}

} // namespace

class CResourcesPage : public CGalleryPage
{
public:
    CResourcesPage();
    ~CResourcesPage() override;
    CSize GetContentSize(int cx) override;
    void GetExtraImages(std::vector<ExtraImage>& images) override;

protected:
    void OnCreatePage() override;
    void Layout(int cx, int scrollY) override;
    void Paint(CDC& dc, const CRect& rcContent) override;
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;

private:
    // Places the dialog previews for width cx; answers the content height.
    int FlowDialogs(int cx);
    int PicturesBottom() const;
    int StringsBottom() const;

    std::vector<StringEntry> m_strings;
    std::vector<BitmapEntry*> m_bitmaps;
    std::vector<CursorEntry> m_cursors;
    std::vector<DialogEntry*> m_dialogs;
    int m_nDialogsTop;
};

GALLERY_REGISTER_PAGE(CResourcesPage, _T("Resources"), _T("resources"), 10)

CResourcesPage::CResourcesPage() : m_nDialogsTop(0) {}

CResourcesPage::~CResourcesPage()
{
    for (BitmapEntry* entry : m_bitmaps)
        delete entry;
    for (DialogEntry* entry : m_dialogs)
    {
        if (entry->hPreview != nullptr)
            ::DeleteObject(entry->hPreview);
        delete entry;
    }
}

void CResourcesPage::OnCreatePage()
{
    for (UINT id : kStringIds)
    {
        StringEntry entry{ id, false, CString(), CString() };
        entry.found = entry.text.LoadString(id) && !entry.text.IsEmpty();
        if (entry.found)
            entry.source = GalleryModuleName(AfxFindStringResourceHandle(id));
        m_strings.push_back(entry);
    }
    for (UINT id : kBitmapIds)
    {
        BitmapEntry* entry = new BitmapEntry;
        entry->id = id;
        entry->info = BITMAP{};
        if (HMODULE h = ChainModule(id, RT_BITMAP))
            entry->source = GalleryModuleName(h);
        if (entry->bitmap.LoadBitmap(id))
            entry->bitmap.GetBitmap(&entry->info);
        m_bitmaps.push_back(entry);
    }
    for (UINT id : kCursorIds)
    {
        CursorEntry entry{ id, nullptr, CString() };
        if (HMODULE h = ChainModule(id, RT_GROUP_CURSOR))
        {
            entry.source = GalleryModuleName(h);
            entry.hCursor = AfxGetApp()->LoadCursor(id);
        }
        m_cursors.push_back(entry);
    }
    for (size_t i = 0; i < std::size(kDialogIds); ++i)
    {
        DialogEntry* entry = new DialogEntry;
        entry->id = kDialogIds[i];
        entry->hPreview = nullptr;
        MakePreview(*entry, this);
        CString caption;
        caption = _T("Open...");
        entry->button.Create(caption, WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_PUSHBUTTON, CRect(0, 0, 88, 26), this,
                             kFirstDialogButton + (UINT)i);
        entry->button.SetFont(GalleryStyle::BodyFont());
        entry->button.EnableWindow(entry->hPreview != nullptr);
        m_dialogs.push_back(entry);
    }
}

int CResourcesPage::StringsBottom() const
{
    return 96 + GalleryStyle::LineHeight() * (int)(m_strings.size() + 1);
}

int CResourcesPage::PicturesBottom() const
{
    return 96 + 150 + 120;
}

int CResourcesPage::FlowDialogs(int cx)
{
    const int left = GalleryStyle::kMargin;
    const int right = std::max(cx, kContentWidth) - GalleryStyle::kMargin;
    int x = left;
    int y = m_nDialogsTop + 40;   // below the section heading
    int rowHeight = 0;
    const int header = 34;   // title line and button above each preview
    for (DialogEntry* entry : m_dialogs)
    {
        CSize size = entry->hPreview ? entry->size : CSize(220, 90);
        int width = std::max((int)size.cx, 220);
        if (x > left && x + width > right)
        {
            x = left;
            y += rowHeight + GalleryStyle::kMargin;
            rowHeight = 0;
        }
        entry->rect = CRect(x, y + header, x + size.cx, y + header + size.cy);
        rowHeight = std::max(rowHeight, header + (int)size.cy);
        x += width + GalleryStyle::kMargin;
    }
    return y + rowHeight + GalleryStyle::kMargin;
}

CSize CResourcesPage::GetContentSize(int cx)
{
    m_nDialogsTop = std::max(StringsBottom(), PicturesBottom()) + GalleryStyle::kMargin;
    int bottom = FlowDialogs(cx);
    return CSize(kContentWidth, bottom);
}

void CResourcesPage::Layout(int cx, int scrollY)
{
    GetContentSize(cx);
    for (DialogEntry* entry : m_dialogs)
    {
        CRect button(entry->rect.right - 88, entry->rect.top - 32, entry->rect.right, entry->rect.top - 6);
        if (entry->rect.Width() < 200)
            button.OffsetRect(std::max(200, (int)entry->rect.Width()) - entry->rect.Width(), 0);
        button.OffsetRect(0, -scrollY);
        entry->button.MoveWindow(&button);
    }
}

void CResourcesPage::Paint(CDC& dc, const CRect&)
{
    using namespace GalleryStyle;
    const int line = LineHeight();
    int y = kMargin;
    {
        CDCSelect font(dc, TitleFont());
        dc.SetTextColor(Text());
        dc.TextOut(kMargin, y, _T("Resources"), 9);
    }
    y += 40;
    {
        HMODULE hResource = GalleryLibraryResourceModule();
        CString intro = _T("As the resource chain finds them: the language module first, then HyUI.dll's own English copy.  Language module: ");
        intro += hResource == nullptr ? CString(_T("(HyUI.dll not attached)"))
                 : hResource == ::GetModuleHandle(_T("HyUI.dll")) ? CString(_T("none"))
                 : GalleryModuleName(hResource);
        dc.SetTextColor(MutedText());
        CRect rc(kMargin, y, kContentWidth - kMargin, y + line);
        dc.DrawText(intro, &rc, DT_LEFT | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
    }

    // Strings: id, text, source.
    const int top = 96;
    const int idX = kMargin, textX = kMargin + 64, sourceX = kMargin + 400;
    y = DrawSectionHeading(dc, kMargin, top, kStringsWidth, _T("Strings"));
    for (const StringEntry& entry : m_strings)
    {
        CString id;
        id.Format(_T("%u"), entry.id);
        dc.SetTextColor(MutedText());
        dc.TextOut(idX, y, id);
        if (entry.found)
        {
            DrawVisibleLineFeeds(dc, textX, y, entry.text, Text());
            dc.SetTextColor(MutedText());
            dc.TextOut(sourceX, y, entry.source);
        }
        else
        {
            CDCSelect bold(dc, BoldFont());
            dc.SetTextColor(Missing());
            dc.TextOut(textX, y, _T("missing"), 7);
        }
        y += line;
    }

    // Bitmaps: each at three times its size and at its own size, with its facts.
    const int picX = kMargin + kStringsWidth + kMargin;
    y = DrawSectionHeading(dc, picX, top, kPicturesWidth, _T("Bitmaps"));
    int x = picX;
    CDC memDC;
    memDC.CreateCompatibleDC(&dc);
    for (BitmapEntry* entry : m_bitmaps)
    {
        CRect box(x, y, x + 84, y + 84);
        if (entry->bitmap.GetSafeHandle() != nullptr)
        {
            const int w = entry->info.bmWidth, h = entry->info.bmHeight;
            int zoom = std::max(1, std::min(kBitmapZoom, std::min(84 / std::max(1, w), 84 / std::max(1, h))));
            CDCSelect sel(memDC, &entry->bitmap);
            dc.FillSolidRect(&box, SidebarBackground());
            dc.SetStretchBltMode(COLORONCOLOR);
            int zx = box.left + (box.Width() - w * zoom) / 2, zy = box.top + (box.Height() - h * zoom) / 2;
            dc.StretchBlt(zx, zy, w * zoom, h * zoom, &memDC, 0, 0, w, h, SRCCOPY);
            CString facts;
            facts.Format(_T("%u  %dx%d"), entry->id, w, h);
            dc.SetTextColor(Text());
            dc.TextOut(box.left, box.bottom + 4, facts);
            dc.BitBlt(box.right - w - 2, box.bottom + 6, w, h, &memDC, 0, 0, SRCCOPY);
        }
        else
        {
            DrawMissingBox(dc, box);
            CString id;
            id.Format(_T("%u"), entry->id);
            dc.SetTextColor(Text());
            dc.TextOut(box.left, box.bottom + 4, id);
        }
        x += 84 + 12;
    }

    // Cursors.
    y = DrawSectionHeading(dc, picX, top + 150, kPicturesWidth, _T("Cursors"));
    x = picX;
    for (const CursorEntry& entry : m_cursors)
    {
        CRect box(x, y, x + 64, y + 48);
        CString label;
        label.Format(_T("%u"), entry.id);
        if (entry.hCursor != nullptr)
        {
            dc.FillSolidRect(&box, SidebarBackground());
            ::DrawIconEx(dc.m_hDC, box.left + 16, box.top + 8, entry.hCursor, 32, 32, 0, nullptr, DI_NORMAL);
            label += _T("  ") + entry.source;
        }
        else
            DrawMissingBox(dc, box);
        dc.SetTextColor(Text());
        dc.TextOut(box.right + 8, box.top + 16, label);
        x += 190;
    }

    // Dialogs: the preview of each template under its title and button.
    y = DrawSectionHeading(dc, kMargin, m_nDialogsTop, kContentWidth - 2 * kMargin, _T("Dialogs"));
    (void)y;
    for (DialogEntry* entry : m_dialogs)
    {
        CString title;
        title.Format(_T("%u"), entry->id);
        if (!entry->title.IsEmpty())
            title += _T("  \"") + entry->title + _T("\"");
        else if (entry->hPreview != nullptr)
            title += _T("  (no title)");
        CDCSelect bold(dc, BoldFont());
        dc.SetTextColor(Text());
        dc.TextOut(entry->rect.left, entry->rect.top - 28, title);
        if (entry->hPreview != nullptr)
        {
            CDCSelect sel(memDC, CBitmap::FromHandle(entry->hPreview));
            dc.BitBlt(entry->rect.left, entry->rect.top, entry->size.cx, entry->size.cy, &memDC, 0, 0, SRCCOPY);
        }
        else
        {
            CRect box = entry->rect;
            DrawMissingBox(dc, box);
            if (entry->note != _T("missing"))
            {
                CDCSelect body(dc, BodyFont());
                dc.SetTextColor(Missing());
                CRect note(box.left + 6, box.bottom - line - 4, box.right - 6, box.bottom - 4);
                dc.DrawText(entry->note, &note, DT_CENTER | DT_SINGLELINE | DT_END_ELLIPSIS | DT_NOPREFIX);
            }
        }
    }
}

BOOL CResourcesPage::OnCommand(WPARAM wParam, LPARAM lParam)
{
    UINT id = LOWORD(wParam);
    if (HIWORD(wParam) == BN_CLICKED && id >= kFirstDialogButton && id < kFirstDialogButton + m_dialogs.size())
    {
        // Exactly as a host opens a library template: a plain CDialog(id).
        CDialog dialog(kDialogIds[id - kFirstDialogButton], this);
        if (dialog.DoModal() == -1)
            MessageBox(_T("The dialog could not be created."), _T("HyUI Gallery"), MB_ICONEXCLAMATION);
        return TRUE;
    }
    return CGalleryPage::OnCommand(wParam, lParam);
}

void CResourcesPage::GetExtraImages(std::vector<ExtraImage>& images)
{
    for (DialogEntry* entry : m_dialogs)
        if (entry->hPreview != nullptr)
        {
            CString suffix;
            suffix.Format(_T("dialog-%u"), entry->id);
            images.push_back({ suffix, entry->hPreview });
        }
}
