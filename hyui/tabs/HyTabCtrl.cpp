#include "HyTabCtrl.h"

#include <commctrl.h>

#include <algorithm>
#include <climits>
#include <vector>

#include "HyTabLayout.h"
#include "HyTheme.h"

namespace {

constexpr int kTextPadding = 10;   // each side of a tab's text
constexpr int kIconGap = 4;        // between the icon and the text
constexpr int kUnderline = 3;      // the active flat tab's accent bar

int SmallIcon() { return ::GetSystemMetrics(SM_CXSMICON); }

hy::TabSpan SpanOf(const CRect& r) { return hy::TabSpan{ r.left, r.right - r.left }; }

void Edges(CDC& dc, const CRect& r, COLORREF topLeft, COLORREF bottomRight, bool openBottom)
{
    dc.FillSolidRect(r.left, r.top, r.Width(), 1, topLeft);
    dc.FillSolidRect(r.left, r.top, 1, r.Height(), topLeft);
    dc.FillSolidRect(r.right - 1, r.top, 1, r.Height(), bottomRight);
    if (!openBottom)
        dc.FillSolidRect(r.left, r.bottom - 1, r.Width(), 1, bottomRight);
}

}  // namespace

// ---- CTabItem ---------------------------------------------------------------

CTabItem::CTabItem(LPCSTR textIn) : text(textIn), icon(nullptr), value(0), rect(0, 0, 0, 0) {}
CTabItem::~CTabItem() {}

CSize CTabItem::Measure(CDC* pDC, int height)
{
    const int iconPart = icon != nullptr ? SmallIcon() + kIconGap : 0;
    return CSize(kTextPadding * 2 + iconPart + pDC->GetTextExtent(text).cx, height);
}

void CTabItem::SetIcon(HICON iconIn) { icon = iconIn; }

BOOL CTabItem::HitTest(CPoint point)
{
    const hy::TabSpan span = SpanOf(rect);
    return hy::TabAt(&span, 1, point.x, point.y - rect.top, rect.Height()) == 0;
}

// ---- CHyTabCtrl -------------------------------------------------------------

IMPLEMENT_DYNAMIC(CHyTabCtrl, CWnd)

BEGIN_MESSAGE_MAP(CHyTabCtrl, CWnd)
    ON_WM_PAINT()
    ON_WM_ERASEBKGND()
    ON_WM_LBUTTONDOWN()
    ON_WM_KEYUP()
    ON_WM_GETDLGCODE()
    ON_WM_SETFOCUS()
    ON_WM_KILLFOCUS()
    ON_WM_SYSCOLORCHANGE()
    ON_WM_SIZE()
    ON_WM_CTLCOLOR()
END_MESSAGE_MAP()

CHyTabCtrl::CHyTabCtrl()
    : active(-1), style(0), accelerators(nullptr), layoutValue(0), rowHeight(0), dcFont(nullptr), rowBitmapSize(0, 0)
{
}

CHyTabCtrl::~CHyTabCtrl()
{
    for (INT_PTR i = 0; i < items.GetSize(); ++i)
        delete static_cast<CTabItem*>(items[i]);
    items.RemoveAll();
}

CTabItem* CHyTabCtrl::Item(int index)
{
    return index >= 0 && index < items.GetSize() ? static_cast<CTabItem*>(items[index]) : nullptr;
}

int CHyTabCtrl::GetItemHeight() { return rowHeight > 0 ? rowHeight : layoutValue; }
UINT CHyTabCtrl::GetStyle() { return style; }
int CHyTabCtrl::GetActiveItem() { return active; }
void CHyTabCtrl::SetActiveItem(int index) { *this = index; }
int CHyTabCtrl::GetCount() { return (int)items.GetSize(); }

CSize CHyTabCtrl::ItemSize(int index)
{
    if (CTabItem* item = Item(index))
        return CSize(item->rect.Width(), GetItemHeight());
    int total = 0;
    for (int i = 0; i < GetCount(); ++i)
        total += Item(i)->rect.Width();
    return CSize(total, GetItemHeight());
}

BOOL CHyTabCtrl::DeleteItem(int index)
{
    CTabItem* item = Item(index);
    if (item == nullptr)
        return FALSE;
    delete item;
    items.RemoveAt(index);
    // `active` stays as it is, even past the end: intended; painting and keys cope.
    if (m_hWnd != nullptr)
    {
        RecalcLayout();
        InvalidateNew(TRUE);
    }
    return TRUE;
}

int CHyTabCtrl::AddItem(LPCSTR text, long value, HICON icon)
{
    if (text == nullptr)
        return -1;
    CTabItem* item = new CTabItem(text);
    const int index = (int)items.Add(item);
    item->SetIcon(icon);
    item->value = value;
    RecalcLayout();
    InvalidateNew(TRUE);
    return index;
}

BOOL CHyTabCtrl::Create(UINT dwStyle, const CRect& rect, CWnd* pParentWnd, UINT nID)
{
    if ((dwStyle & 3) == 0)
        dwStyle += 1;
    LPCTSTR cls = AfxRegisterWndClass(CS_VREDRAW | CS_HREDRAW | CS_DBLCLKS, ::LoadCursor(nullptr, IDC_ARROW),
                                      (HBRUSH)::GetStockObject(LTGRAY_BRUSH));
    if (!CWnd::Create(cls, nullptr, dwStyle | WS_CLIPSIBLINGS | WS_CLIPCHILDREN, rect, pParentWnd, nID))
        return FALSE;
    style = dwStyle % 4;
    layoutValue = 19;
    RecalcLayout();   // tabs added before the window existed
    return TRUE;
}

void CHyTabCtrl::OnActivatePage(int, int) {}

CRect CHyTabCtrl::_GetClientRect()
{
    CRect client(0, 0, 0, 0);
    if (m_hWnd != nullptr)
        GetClientRect(&client);
    client.top = client.bottom < GetItemHeight() ? client.bottom : GetItemHeight();
    return client;
}

int CHyTabCtrl::Point2Item(CPoint point)
{
    for (int i = 0; i < GetCount(); ++i)
        if (Item(i)->HitTest(point))
            return i;
    return -1;
}

void CHyTabCtrl::AutoSize(int total, int available)
{
    std::vector<hy::TabSpan> spans;
    for (int i = 0; i < GetCount(); ++i)
        spans.push_back(SpanOf(Item(i)->rect));
    hy::AutoSizeTabs(spans.data(), (int)spans.size(), total, available);
    for (int i = 0; i < GetCount(); ++i)
        Item(i)->rect = CRect(spans[i].left, 0, spans[i].left + spans[i].width, GetItemHeight());
}

void CHyTabCtrl::OnInitDC(CDC* pDC)
{
    dcFont = ::SelectObject(pDC->GetSafeHdc(), HYThemeGetFont(HYFONT_STANDARD)->GetSafeHandle());
}

void CHyTabCtrl::OnEndDC(CDC* pDC)
{
    if (dcFont != nullptr)
        ::SelectObject(pDC->GetSafeHdc(), dcFont);
    dcFont = nullptr;
}

void CHyTabCtrl::RecalcLayout()
{
    CClientDC dc(m_hWnd != nullptr ? this : nullptr);
    OnInitDC(&dc);
    TEXTMETRIC tm = {};
    dc.GetTextMetrics(&tm);
    // The row: at least the layout value, and room for the text or a small icon.
    rowHeight = std::max({ layoutValue, (int)tm.tmHeight + 6, SmallIcon() + 3 });
    std::vector<hy::TabSpan> spans;
    for (int i = 0; i < GetCount(); ++i)
        spans.push_back(hy::TabSpan{ 0, Item(i)->Measure(&dc, rowHeight).cx });
    OnEndDC(&dc);
    const int64_t total = hy::PlaceTabs(spans.data(), (int)spans.size());
    for (int i = 0; i < GetCount(); ++i)
        Item(i)->rect = CRect(spans[i].left, 0, spans[i].left + spans[i].width, rowHeight);
    // Before the window exists there is no width to fit: the tabs keep their own.
    if (m_hWnd != nullptr)
    {
        CRect client;
        GetClientRect(&client);
        AutoSize((int)std::min<int64_t>(total, INT_MAX), client.Width());
    }
}

BOOL CHyTabCtrl::AcceleratorsEnabled() { return m_hWnd != nullptr && IsWindowEnabled(); }

CHyTabCtrl& CHyTabCtrl::operator=(int index)
{
    if (index >= 0 && index < GetCount() && index != active)
    {
        OnActivatePage(active, index);
        active = index;
        InvalidateNew(TRUE);
        if (CWnd* parent = m_hWnd != nullptr ? GetParent() : nullptr)
            parent->PostMessage(HYWM_TAB_ACTIVATED, (WPARAM)index, 0);
    }
    return *this;
}

BOOL CHyTabCtrl::PreTranslateMessage(MSG* pMsg)
{
    // Translated against our own window, so that only the parent's
    // notification tells of the key.
    if (AcceleratorsEnabled() && accelerators != nullptr && ::TranslateAccelerator(m_hWnd, accelerators, pMsg))
    {
        NMTCKEYDOWN notice = {};
        notice.hdr.hwndFrom = m_hWnd;
        notice.hdr.idFrom = (UINT_PTR)GetDlgCtrlID();
        notice.hdr.code = TCN_KEYDOWN;
        notice.wVKey = LOWORD(pMsg->wParam);
        notice.flags = (UINT)pMsg->lParam;
        if (CWnd* parent = GetParent())
            parent->SendMessage(WM_NOTIFY, notice.hdr.idFrom, (LPARAM)&notice);
        return TRUE;
    }
    return CWnd::PreTranslateMessage(pMsg);
}

void CHyTabCtrl::InvalidateNew(BOOL bErase)
{
    if (m_hWnd != nullptr)
        Invalidate(bErase);
}

// ---- input ------------------------------------------------------------------

void CHyTabCtrl::OnLButtonDown(UINT, CPoint point)
{
    SetFocus();
    const int index = Point2Item(point);
    *this = index;
    // Posted for the active tab too, and with lParam 0: intended.
    if (index >= 0 && index < GetCount())
        if (CWnd* parent = GetParent())
            parent->PostMessage(WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(), 0), 0);
    Default();
}

void CHyTabCtrl::OnKeyUp(UINT nChar, UINT, UINT)
{
    // The keys act when released, not when pressed: intended.
    hy::TabKey key;
    switch (nChar)
    {
    case VK_LEFT: key = hy::TabKey::Left; break;
    case VK_RIGHT: key = hy::TabKey::Right; break;
    case VK_HOME: key = hy::TabKey::Home; break;
    case VK_END: key = hy::TabKey::End; break;
    default: Default(); return;
    }
    *this = hy::StepTab(active, GetCount(), key);
}

UINT CHyTabCtrl::OnGetDlgCode() { return DLGC_WANTARROWS; }

void CHyTabCtrl::OnSetFocus(CWnd*)
{
    Default();
    InvalidateNew(TRUE);
}

void CHyTabCtrl::OnKillFocus(CWnd*)
{
    Default();
    InvalidateNew(TRUE);
}

void CHyTabCtrl::OnSysColorChange()
{
    Default();
    RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
}

void CHyTabCtrl::OnSize(UINT, int, int)
{
    RecalcLayout();
    InvalidateNew(TRUE);
}

// ---- painting ---------------------------------------------------------------

// Labels and check boxes placed on a page sit on the page's colour.
HBRUSH CHyTabCtrl::OnCtlColor(CDC* pDC, CWnd*, UINT nCtlColor)
{
    if (nCtlColor != CTLCOLOR_STATIC && nCtlColor != CTLCOLOR_BTN)
        return (HBRUSH)Default();
    HYThemeStyle page;
    HYThemeGetStyle(HYTHEME_TAB_PAGE, &page);
    if (pageBrush.GetSafeHandle() == nullptr)
        pageBrush.CreateSolidBrush(page.fill);
    pDC->SetBkColor(page.fill);
    pDC->SetTextColor(page.text);
    return (HBRUSH)pageBrush.GetSafeHandle();
}

BOOL CHyTabCtrl::OnEraseBkgnd(CDC*) { return TRUE; }   // OnPaint covers every pixel

void CHyTabCtrl::OnPaint()
{
    CPaintDC dc(this);
    CRect client;
    GetClientRect(&client);
    // The page area needs no buffer: one fill and its frame (whose top, for
    // raised tabs, is the row's bottom rule).
    const CRect page = _GetClientRect();
    if (!page.IsRectEmpty())
    {
        HYThemeStyle look;
        HYThemeGetStyle(HYTHEME_TAB_PAGE, &look);
        dc.FillSolidRect(&page, look.fill);
        CRect frame = page;
        frame.top -= style == HYTAB_STYLE_TABS ? 1 : 0;
        CBrush edge(look.dark);
        dc.FrameRect(&frame, &edge);
    }
    // The tab row is drawn off screen and copied in one piece.
    const CRect row(0, 0, client.Width(), std::min((int)client.bottom, GetItemHeight()));
    if (row.IsRectEmpty())
        return;
    CDC memory;
    if (!memory.CreateCompatibleDC(&dc))
        return;
    if (rowBitmapSize != row.Size())
    {
        rowBitmap.DeleteObject();
        rowBitmapSize = rowBitmap.CreateCompatibleBitmap(&dc, row.Width(), row.Height()) ? row.Size() : CSize(0, 0);
    }
    if (rowBitmap.GetSafeHandle() == nullptr)
        return;
    CDCSelect bitmap(memory, &rowBitmap);
    DrawEntireControl(memory, row);
    dc.BitBlt(0, 0, row.Width(), row.Height(), &memory, 0, 0, SRCCOPY);
}

void CHyTabCtrl::DrawEntireControl(CDC& dc, const CRect& row)
{
    HYThemeStyle strip;
    HYThemeGetStyle(HYTHEME_TAB_ROW, &strip);
    dc.FillSolidRect(&row, strip.fill);
    if (style == HYTAB_STYLE_TABS)
        dc.FillSolidRect(row.left, row.bottom - 1, row.Width(), 1, strip.line);   // the page's top edge
    OnInitDC(&dc);
    dc.SetBkMode(TRANSPARENT);
    const bool focused = ::GetFocus() == m_hWnd;
    for (int i = 0; i < GetCount(); ++i)
        if (i != active)
            DrawItem(dc, i, false, false);
    if (Item(active) != nullptr)   // last, over its neighbours' edges; past the end nothing is active
        DrawItem(dc, active, true, focused);
    OnEndDC(&dc);
}

void CHyTabCtrl::DrawItem(CDC& dc, int index, bool isActive, bool focused)
{
    CTabItem* item = Item(index);
    CRect r = item->rect;
    if (r.Width() <= 0)
        return;   // squeezed to nothing: never drawn
    HYThemeStyle look;
    HYThemeGetStyle(isActive ? HYTHEME_TAB_ACTIVE : HYTHEME_TAB, &look);
    switch (style)
    {
    case HYTAB_STYLE_BUTTONS:
        r.DeflateRect(1, 2, 1, 2);
        dc.FillSolidRect(&r, look.fill);
        if (isActive)   // pressed: dark above and left, an accent bar below
        {
            Edges(dc, r, look.dark, look.light, false);
            dc.FillSolidRect(r.left + 1, r.bottom - 3, r.Width() - 2, 2, look.line);
        }
        else
            Edges(dc, r, look.light, look.dark, false);
        break;
    case HYTAB_STYLE_FLAT:
        if (isActive)
            dc.FillSolidRect(r.left + 2, r.bottom - kUnderline, r.Width() - 4, kUnderline, look.line);
        break;
    default:
        if (!isActive)
            r.top += 2;   // inactive tabs stand lower
        dc.FillSolidRect(&r, look.fill);
        Edges(dc, r, look.light, look.dark, isActive);   // the active one opens onto the page
        break;
    }
    CRect content = r;
    content.DeflateRect(kTextPadding / 2, 0);
    if (item->icon != nullptr && content.Width() >= SmallIcon())
    {
        const int size = SmallIcon();
        ::DrawIconEx(dc.GetSafeHdc(), content.left + kTextPadding / 2, r.top + (r.Height() - size) / 2, item->icon,
                     size, size, 0, nullptr, DI_NORMAL);
        content.left += kTextPadding / 2 + size + kIconGap;
    }
    dc.SetTextColor(look.text);
    dc.DrawText(item->text, &content, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_END_ELLIPSIS | DT_NOPREFIX);
    if (focused)
    {
        CRect mark = r;
        mark.DeflateRect(2, 2);
        dc.DrawFocusRect(&mark);
    }
}
