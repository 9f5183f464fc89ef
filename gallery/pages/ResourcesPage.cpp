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
#include "HyTheme.h"
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
constexpr int kBitmapZoom = 3;          // the enlarged copy beside each bitmap...
constexpr int kZoomedLimit = 120;       // ...at 2x when 3x would be larger than this
constexpr int kMinPicturesWidth = 400;  // bitmaps and cursors beside the strings
constexpr int kColumnGap = 24;          // between the strings table's columns
constexpr int kMinCardWidth = 240;      // a dialog card, whatever its preview...
constexpr int kMaxTitleWidth = 420;     // ...widened for its title up to this, elided beyond
constexpr int kButtonWidth = 88, kButtonHeight = 26;
constexpr int kTop = 96;                // the sections below the page title
constexpr int kCursorBox = 48;

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
    int titleWidth;      // of the card's title line
    HBITMAP hPreview;    // the dialog as it looks, frame included
    CSize size;
    CButton button;
    CRect card;          // title, preview and button in content coordinates (set by layout)
    CRect rect;          // preview area in content coordinates (set by layout)
};

// The module that actually holds resource id of type: the chain's answer
// when it holds it, else NULL.
HMODULE ChainModule(UINT id, LPCTSTR type)
{
    HINSTANCE h = AfxFindResourceHandle(MAKEINTRESOURCE(id), type);
    return (h != nullptr && ::FindResource(h, MAKEINTRESOURCE(id), type) != nullptr) ? h : nullptr;
}

// A dialog card's title line: id and caption.
CString CardTitle(const DialogEntry& entry)
{
    CString title;
    title.Format(_T("%u"), entry.id);
    if (!entry.title.IsEmpty())
        title += _T("  \"") + entry.title + _T("\"");
    else if (entry.hPreview != nullptr)
        title += _T("  (no title)");
    return title;
}

// Makes the dialog from its template, hidden, and paints it into a bitmap.
void MakePreview(DialogEntry& entry, CWnd* pOwner)
{
    std::vector<DWORD> aligned = GalleryHiddenTemplate(entry.id);
    if (aligned.empty())
    {
        entry.note = _T("missing");
        return;
    }
    CDialog dialog;
    if (!dialog.CreateIndirect((LPCDLGTEMPLATE)aligned.data(), pOwner))
    {
        entry.note = _T("cannot be created (a control class is not registered)");
        return;
    }
    dialog.GetWindowText(entry.title);
    entry.hPreview = GalleryRenderHiddenDialog(dialog);
    dialog.DestroyWindow();
    BITMAP bm = {};
    if (entry.hPreview != nullptr && ::GetObject(entry.hPreview, sizeof(bm), &bm) == sizeof(bm))
        entry.size = CSize(bm.bmWidth, bm.bmHeight);
}

// The width of text drawn by DrawVisibleLineFeeds.
int VisibleLineFeedsWidth(CDC& dc, const CString& text)
{
    int width = 0;
    int start = 0;
    for (;;)
    {
        int lf = text.Find('\n', start);
        CString part = lf < 0 ? text.Mid(start) : text.Mid(start, lf - start);
        width += dc.GetTextExtent(part).cx;
        if (lf < 0)
            return width;
        width += dc.GetTextExtent(_T("\\n"), 2).cx;
        start = lf + 1;
    }
}

// The enlargement that shows a bitmap's pixels without making it huge.
int ZoomOf(const BITMAP& bm)
{
    int zoom = kBitmapZoom;
    while (zoom > 2 && (bm.bmWidth * zoom > kZoomedLimit || bm.bmHeight * zoom > kZoomedLimit))
        --zoom;
    return zoom;
}

// Draws hBitmap at (x, y) and zoom times its size, nearest neighbour, leaving
// its key colour (the top-left pixel) showing the page through.
void DrawTransparent(CDC& dc, HBITMAP hBitmap, const BITMAP& bm, int x, int y, int zoom)
{
    if (zoom == 1)
    {
        HYThemeDrawTransparentBitmap(&dc, hBitmap, x, y, HYCLR_TOPLEFT);
        return;
    }
    CDC src, dst;
    src.CreateCompatibleDC(&dc);
    dst.CreateCompatibleDC(&dc);
    CBitmap zoomed;
    zoomed.CreateCompatibleBitmap(&dc, bm.bmWidth * zoom, bm.bmHeight * zoom);
    {
        CDCSelect selSrc(src, CBitmap::FromHandle(hBitmap));
        CDCSelect selDst(dst, &zoomed);
        dst.SetStretchBltMode(COLORONCOLOR);
        dst.StretchBlt(0, 0, bm.bmWidth * zoom, bm.bmHeight * zoom, &src, 0, 0, bm.bmWidth, bm.bmHeight, SRCCOPY);
    }
    HYThemeDrawTransparentBitmap(&dc, (HBITMAP)zoomed.GetSafeHandle(), x, y, HYCLR_TOPLEFT);
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
    // Places the dialog cards for width cx; answers the content height.
    int FlowDialogs(int cx);
    // Measures the strings table's columns and the pictures with the page font.
    void MeasureColumns();
    int PicturesBottom() const;
    int StringsBottom() const;
    int CursorsTop() const;
    int ContentWidth() const { return m_nPicturesX + m_nPicturesWidth + GalleryStyle::kMargin; }

    std::vector<StringEntry> m_strings;
    std::vector<BitmapEntry*> m_bitmaps;
    std::vector<CursorEntry> m_cursors;
    std::vector<DialogEntry*> m_dialogs;
    int m_nDialogsTop;
    int m_nTextX, m_nSourceX, m_nStringsWidth;   // the strings table
    int m_nPicturesX, m_nPicturesWidth;          // bitmaps and cursors
    int m_nZoomedX, m_nBitmapLabelX;             // the 2x/3x copies and the labels
};

GALLERY_REGISTER_PAGE(CResourcesPage, _T("Resources"), _T("resources"), 10)

CResourcesPage::CResourcesPage()
    : m_nDialogsTop(0), m_nTextX(0), m_nSourceX(0), m_nStringsWidth(0), m_nPicturesX(0),
      m_nPicturesWidth(kMinPicturesWidth), m_nZoomedX(0), m_nBitmapLabelX(0)
{
}

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
        entry->titleWidth = 0;
        MakePreview(*entry, this);
        CString caption;
        caption = _T("Open...");
        entry->button.Create(caption, WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_PUSHBUTTON,
                             CRect(0, 0, kButtonWidth, kButtonHeight), this,
                             kFirstDialogButton + (UINT)i);
        entry->button.SetFont(GalleryStyle::BodyFont());
        entry->button.EnableWindow(entry->hPreview != nullptr);
        m_dialogs.push_back(entry);
    }
    MeasureColumns();
}

void CResourcesPage::MeasureColumns()
{
    using namespace GalleryStyle;
    CClientDC screen(nullptr);
    CDCSelect font(screen, BodyFont());
    int idWidth = 0, textWidth = 0, sourceWidth = 0;
    for (const StringEntry& entry : m_strings)
    {
        CString id;
        id.Format(_T("%u"), entry.id);
        idWidth = std::max(idWidth, (int)screen.GetTextExtent(id).cx);
        if (entry.found)
        {
            textWidth = std::max(textWidth, VisibleLineFeedsWidth(screen, entry.text));
            sourceWidth = std::max(sourceWidth, (int)screen.GetTextExtent(entry.source).cx);
        }
    }
    {
        CDCSelect bold(screen, BoldFont());
        textWidth = std::max(textWidth, (int)screen.GetTextExtent(_T("missing"), 7).cx);
    }
    m_nTextX = kMargin + idWidth + kGap * 2;
    m_nSourceX = m_nTextX + textWidth + kColumnGap;
    m_nStringsWidth = m_nSourceX + sourceWidth - kMargin;

    // Bitmaps: one a row, the bitmap, its enlarged copy, then id, size and module.
    int widest = 0, widestZoomed = 0, labelWidth = 0;
    for (const BitmapEntry* entry : m_bitmaps)
    {
        widest = std::max(widest, (int)entry->info.bmWidth);
        widestZoomed = std::max(widestZoomed, (int)entry->info.bmWidth * ZoomOf(entry->info));
        labelWidth = std::max(labelWidth, (int)screen.GetTextExtent(entry->source).cx);
    }
    labelWidth = std::max(labelWidth, (int)screen.GetTextExtent(_T("00000  000x000  (3x)")).cx);
    widestZoomed = std::max(widestZoomed, 84);   // the "missing" box
    m_nPicturesX = kMargin + m_nStringsWidth + kMargin * 2;
    m_nZoomedX = m_nPicturesX + widest + kGap;
    m_nBitmapLabelX = m_nZoomedX + widestZoomed + kGap;
    int cursorsWidth = 64 + kGap;
    for (const CursorEntry& entry : m_cursors)
        cursorsWidth = std::max(cursorsWidth, 64 + kGap + (int)screen.GetTextExtent(entry.source).cx);
    {
        CDCSelect bold(screen, BoldFont());
        for (DialogEntry* entry : m_dialogs)
            entry->titleWidth = screen.GetTextExtent(CardTitle(*entry)).cx;
    }
    m_nPicturesWidth = std::max({ kMinPicturesWidth, m_nBitmapLabelX + labelWidth - m_nPicturesX, cursorsWidth });
}

int CResourcesPage::StringsBottom() const
{
    return kTop + GalleryStyle::LineHeight() * (int)(m_strings.size() + 1);
}

// The height of a bitmap's row: its enlarged copy or its two label lines.
static int BitmapRowHeight(const BitmapEntry* entry)
{
    int picture = entry->bitmap.GetSafeHandle() != nullptr ? (int)entry->info.bmHeight * ZoomOf(entry->info) : 84;
    return std::max(picture, GalleryStyle::LineHeight() * 2) + GalleryStyle::kGap;
}

int CResourcesPage::CursorsTop() const
{
    int y = kTop + 40;   // below the section heading
    for (const BitmapEntry* entry : m_bitmaps)
        y += BitmapRowHeight(entry);
    return y + GalleryStyle::kGap;
}

int CResourcesPage::PicturesBottom() const
{
    return CursorsTop() + 40 + (kCursorBox + GalleryStyle::kGap) * (int)m_cursors.size();
}

int CResourcesPage::FlowDialogs(int cx)
{
    using namespace GalleryStyle;
    const int left = kMargin;
    const int right = std::max(cx, ContentWidth()) - kMargin;
    const int titleHeight = LineHeight() + 4;              // the title line above the preview
    const int buttonHeight = kGap / 2 + kButtonHeight;     // the button below it
    int x = left;
    int y = m_nDialogsTop + 40;   // below the section heading
    int rowHeight = 0;
    for (DialogEntry* entry : m_dialogs)
    {
        CSize size = entry->hPreview ? entry->size : CSize(kMinCardWidth, 90);
        int width = std::max({ (int)size.cx, kMinCardWidth, std::min(entry->titleWidth, kMaxTitleWidth) });
        if (x > left && x + width > right)
        {
            x = left;
            y += rowHeight + kMargin;
            rowHeight = 0;
        }
        entry->card = CRect(x, y, x + width, y + titleHeight + size.cy + buttonHeight);
        entry->rect = CRect(x, y + titleHeight, x + size.cx, y + titleHeight + size.cy);
        rowHeight = std::max(rowHeight, (int)entry->card.Height());
        x += width + kMargin;
    }
    return y + rowHeight + kMargin;
}

CSize CResourcesPage::GetContentSize(int cx)
{
    m_nDialogsTop = std::max(StringsBottom(), PicturesBottom()) + GalleryStyle::kMargin;
    int bottom = FlowDialogs(cx);
    return CSize(ContentWidth(), bottom);
}

void CResourcesPage::Layout(int cx, int scrollY)
{
    GetContentSize(cx);
    for (DialogEntry* entry : m_dialogs)
    {
        // Under the preview, flush with its right edge.
        const int right = std::max((int)entry->rect.right, (int)entry->card.left + kButtonWidth);
        CRect button(right - kButtonWidth, entry->card.bottom - kButtonHeight, right, entry->card.bottom);
        button.OffsetRect(0, -scrollY);
        entry->button.MoveWindow(&button);
    }
}

void CResourcesPage::Paint(CDC& dc, const CRect&)
{
    using namespace GalleryStyle;
    const int line = LineHeight();
    const int contentWidth = ContentWidth();
    int y = kMargin;
    DrawPageTitle(dc, _T("Resources"));
    y += 40;
    {
        HMODULE hResource = GalleryLibraryResourceModule();
        CString intro = _T("As the resource chain finds them: the language module first, then HyUI.dll's own English copy.  Language: ");
        intro += GalleryLanguageName();
        if (hResource != nullptr && hResource != ::GetModuleHandle(_T("HyUI.dll")))
            intro += _T(" (") + GalleryModuleName(hResource) + _T(")");
        dc.SetTextColor(MutedText());
        CRect rc(kMargin, y, contentWidth - kMargin, y + line);
        dc.DrawText(intro, &rc, DT_LEFT | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
    }

    // Strings: id, text, source, each column as wide as its longest entry.
    const int idX = kMargin;
    y = DrawSectionHeading(dc, kMargin, kTop, m_nStringsWidth, _T("Strings"));
    for (const StringEntry& entry : m_strings)
    {
        CString id;
        id.Format(_T("%u"), entry.id);
        dc.SetTextColor(MutedText());
        dc.TextOut(idX, y, id);
        if (entry.found)
        {
            DrawVisibleLineFeeds(dc, m_nTextX, y, entry.text, Text());
            dc.SetTextColor(MutedText());
            dc.TextOut(m_nSourceX, y, entry.source);
        }
        else
        {
            CDCSelect bold(dc, BoldFont());
            dc.SetTextColor(Missing());
            dc.TextOut(m_nTextX, y, _T("missing"), 7);
        }
        y += line;
    }

    // Bitmaps, one a row: at their own size and enlarged, on the page with
    // their key colour left out, then id, size and module.
    y = DrawSectionHeading(dc, m_nPicturesX, kTop, m_nPicturesWidth, _T("Bitmaps"));
    for (BitmapEntry* entry : m_bitmaps)
    {
        const int rowHeight = BitmapRowHeight(entry) - kGap;
        CString facts;
        facts.Format(_T("%u"), entry->id);
        if (entry->bitmap.GetSafeHandle() != nullptr)
        {
            const int w = entry->info.bmWidth, h = entry->info.bmHeight;
            const int zoom = ZoomOf(entry->info);
            HBITMAP hBitmap = (HBITMAP)entry->bitmap.GetSafeHandle();
            DrawTransparent(dc, hBitmap, entry->info, m_nPicturesX, y + (rowHeight - h) / 2, 1);
            DrawTransparent(dc, hBitmap, entry->info, m_nZoomedX, y + (rowHeight - h * zoom) / 2, zoom);
            CString size;
            size.Format(_T("  %dx%d  (%dx)"), w, h, zoom);
            facts += size;
        }
        else
            DrawMissingBox(dc, CRect(m_nZoomedX, y, m_nZoomedX + 84, y + 84));
        const int labelY = y + (rowHeight - 2 * line) / 2;
        dc.SetTextColor(Text());
        dc.TextOut(m_nBitmapLabelX, labelY, facts);
        dc.SetTextColor(MutedText());
        dc.TextOut(m_nBitmapLabelX, labelY + line, entry->source);
        y += rowHeight + kGap;
    }

    // Cursors, one a row, with id and module.
    y = DrawSectionHeading(dc, m_nPicturesX, CursorsTop(), m_nPicturesWidth, _T("Cursors"));
    for (const CursorEntry& entry : m_cursors)
    {
        CRect box(m_nPicturesX, y, m_nPicturesX + 64, y + kCursorBox);
        CString label;
        label.Format(_T("%u"), entry.id);
        if (entry.hCursor != nullptr)
        {
            dc.FillSolidRect(&box, SidebarBackground());
            ::DrawIconEx(dc.m_hDC, box.left + 16, box.top + (kCursorBox - 32) / 2, entry.hCursor, 32, 32, 0, nullptr,
                         DI_NORMAL);
        }
        else
            DrawMissingBox(dc, box);
        const int labelY = box.top + (kCursorBox - 2 * line) / 2;
        dc.SetTextColor(Text());
        dc.TextOut(box.right + kGap, labelY, label);
        dc.SetTextColor(MutedText());
        dc.TextOut(box.right + kGap, labelY + line, entry.source);
        y += kCursorBox + kGap;
    }

    // Dialogs: a card each, the title on its own line, the preview under it
    // and its button at the card's bottom right.
    DrawSectionHeading(dc, kMargin, m_nDialogsTop, contentWidth - 2 * kMargin, _T("Dialogs"));
    CDC memDC;
    memDC.CreateCompatibleDC(&dc);
    for (DialogEntry* entry : m_dialogs)
    {
        CString title = CardTitle(*entry);
        {
            CDCSelect bold(dc, BoldFont());
            dc.SetTextColor(Text());
            CRect rcTitle(entry->card.left, entry->card.top, entry->card.right, entry->rect.top);
            dc.DrawText(title, &rcTitle, DT_LEFT | DT_TOP | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
        }
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
