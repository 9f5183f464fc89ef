// The edit list's rows, layout, selection, the in-place editor's opening and
// closing, scrolling, mouse, keys, focus and the chooser. Painting is in
// HyEditListPaint.cpp, the editor in HyListItemEdit.cpp.
#include "HyEditList.h"
#include "HyEditGeometry.h"
#include "HyScrollBar.h"
#include "HyTheme.h"

#include <algorithm>
#include <cstring>

IMPLEMENT_DYNAMIC(CHyEditList, CWnd)

BEGIN_MESSAGE_MAP(CHyEditList, CWnd)
    ON_WM_CREATE()
    ON_WM_DESTROY()
    ON_WM_PAINT()
    ON_WM_ERASEBKGND()
    ON_WM_VSCROLL()
    ON_WM_SIZE()
    ON_WM_LBUTTONDOWN()
    ON_WM_MOUSEMOVE()
    ON_WM_LBUTTONUP()
    ON_WM_LBUTTONDBLCLK()
    ON_WM_RBUTTONDOWN()
    ON_WM_MOUSEWHEEL()
    ON_WM_KILLFOCUS()
    ON_WM_KEYDOWN()
    ON_WM_GETDLGCODE()
    ON_WM_SYSCOLORCHANGE()
    ON_WM_SETFOCUS()
    ON_WM_SHOWWINDOW()
    ON_MESSAGE(HYEL_TABNEXT, OnTabNext)
    ON_MESSAGE(HYEL_TABPREV, OnTabPrev)
    ON_MESSAGE(HYEL_ITEMKILLFOCUS, OnItemKillFocus)
    ON_MESSAGE(HYEL_CHARENTERED, OnCharEntered)
END_MESSAGE_MAP()

namespace {

// The measuring editor, one per process. Its window is a child of the list
// that made it and goes with that list; the next list to measure makes a new
// one. At process exit only the object goes: no window is destroyed while
// the library is being unloaded.
class MeasuringEdit : public CTernEdit
{
public:
    ~MeasuringEdit()
    {
        if (m_hWnd != nullptr)
            Detach();
    }
};

MeasuringEdit& Measurer()
{
    static MeasuringEdit edit;
    return edit;
}

CString MenuEntryText(CMenu* menu, int position)
{
    CString text;
    if (menu != nullptr && ::IsMenu(menu->m_hMenu) && position >= 0) {
        char buffer[HYEL_MENU_TEXT + 1] = {};
        ::GetMenuStringA(menu->m_hMenu, (UINT)position, buffer, HYEL_MENU_TEXT, MF_BYPOSITION);
        text = buffer;
    }
    return text;
}

}  // namespace

CHyEditList::CHyEditList()
    : paintOnly(-1), focusItem(0), tabStop(12), addCounter(0), flags(0), editedItem(-1), labelWidth(0),
      lineHeight(0), rowHeight(HYEL_ROW_HEIGHT)
{
}

CHyEditList::~CHyEditList()
{
    DestroyWindow();
}

// ---- the virtuals ----

BOOL CHyEditList::CreateEx(DWORD dwExStyle, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID,
                           LPVOID lpParam)
{
    return CWnd::CreateEx(dwExStyle, nullptr, "CEditList", dwStyle, rect, pParentWnd, nID, lpParam);
}

void CHyEditList::OnItemLButtonDblClk(int, CPoint) {}
void CHyEditList::OnItemOnRButtonDown(int, CPoint) {}
void CHyEditList::OnItemSelected(int, int) {}
void CHyEditList::OnItemChecked(int, int) {}
void CHyEditList::OnItemReturnKey() {}
void CHyEditList::DrawItemBody(CDC*, int, RECT*) {}

BOOL CHyEditList::PreCreateWindow(CREATESTRUCT& cs)
{
    cs.style |= HYEL_LIST_STYLE;
    return CWnd::PreCreateWindow(cs);
}

BOOL CHyEditList::PreTranslateMessage(MSG* pMsg)
{
    if (pMsg->message == WM_KEYDOWN && pMsg->wParam == VK_RETURN && ::GetKeyState(VK_CONTROL) >= 0 &&
        editedItem >= 0 && editedItem < GetItemCount()) {
        if (items[editedItem].acceptEnter)
            editor.SendMessage(WM_CHAR, '\r', pMsg->lParam);
        else if (CWnd* parent = GetParent())
            parent->SendMessage(pMsg->message, pMsg->wParam, pMsg->lParam);
        return TRUE;
    }
    return CWnd::PreTranslateMessage(pMsg);
}

// ---- creation ----

int CHyEditList::OnCreate(LPCREATESTRUCT lpCreateStruct)
{
    if (CWnd::OnCreate(lpCreateStruct) == -1)
        return -1;
    paintOnly = -1;
    focusItem = 0;
    tabStop = 12;
    editedItem = -1;
    rowHeight = HYEL_ROW_HEIGHT;
    {
        CClientDC screen(nullptr);
        if (screen.GetDeviceCaps(LOGPIXELSX) >= 120 && screen.GetDeviceCaps(LOGPIXELSY) >= 120)
            rowHeight = HYEL_ROW_HEIGHT_120DPI;
    }
    editor.Create(HYEL_EDITOR_STYLE, CRect(0, 0, 220, rowHeight), this, (UINT)-1);
    CRect format;
    editor.GetRect(&format);
    lineHeight = format.Height() - 2;   // measured with the editor's first font, before font 1 (intended)
    editor.SetFont(HYThemeGetFont(HYFONT_STANDARD));
    return 0;
}

void CHyEditList::OnDestroy()
{
    paintBuffer.Free();
    CWnd::OnDestroy();
}

// ---- rows ----

const CListItem* CHyEditList::Row(int nIndex) const
{
    return nIndex >= 0 && nIndex < GetItemCount() ? &items.GetData()[nIndex] : nullptr;
}

CListItem* CHyEditList::GetItem(int nIndex)
{
    return const_cast<CListItem*>(Row(nIndex));
}

int CHyEditList::FindItemIndex(const CListItem* pItem) const
{
    for (int i = 0; i < GetItemCount(); ++i)
        if (&items.GetData()[i] == pItem)
            return i;
    return -1;
}

int CHyEditList::AddItem(const CListItem& item, BOOL bRedraw)
{
    CListItem copy(item);
    copy.number = addCounter++;
    const int index = (int)items.Add(copy);
    UpdateViewInfo();
    if (bRedraw)
        RedrawAll();
    return index;
}

// The public adds append first and fill the stored row afterwards, so the
// row's number (which measuring reads) is set before its value is.
int CHyEditList::AddItem(LPCTSTR lpszLabel, LPCTSTR lpszValue, int nLabelStyle, BOOL bRedraw)
{
    CListItem item;
    item.labelStyle = nLabelStyle;
    const int index = AddItem(item, bRedraw);
    SetItemLabel(index, lpszLabel, bRedraw);
    SetItemValue(index, lpszValue, bRedraw);
    return index;
}

int CHyEditList::AddItem(UINT nMenuId, int nMenuIndex, LPCTSTR lpszLabel, LPCTSTR lpszValue, int nLabelStyle,
                         BOOL bRedraw)
{
    CListItem item;
    item.labelStyle = nLabelStyle;
    const int index = AddItem(item, bRedraw);
    SetItemMenuInfo(index, nMenuId, nMenuIndex, lpszLabel, bRedraw);
    SetItemValue(index, lpszValue, bRedraw);
    return index;
}

int CHyEditList::AddItem(CMenu* pMenu, int nMenuIndex, LPCTSTR lpszLabel, LPCTSTR lpszValue, int nLabelStyle,
                         BOOL bRedraw)
{
    CListItem item;
    item.labelStyle = nLabelStyle;
    const int index = AddItem(item, bRedraw);
    items[index].menu = pMenu;
    SetItemMenuInfo(items[index], pMenu, nMenuIndex, lpszLabel);
    if (bRedraw)
        RefreshItem(index);
    SetItemValue(index, lpszValue, bRedraw);
    return index;
}

// Deleting the open row takes its text with it; deleting a row above it
// keeps the editor on its row, which moves up.
void CHyEditList::DeleteItem(int nIndex, BOOL bRedraw)
{
    if (GetItem(nIndex) == nullptr)
        return;
    if (nIndex == editedItem)
        CloseEditor(false);
    else if (nIndex < editedItem)
        --editedItem;
    items.RemoveAt(nIndex);
    UpdateViewInfo();
    PlaceEditor();
    if (bRedraw)
        RedrawAll();
}

void CHyEditList::DeleteAllItems(BOOL bRedraw)
{
    CloseEditor(false);
    items.RemoveAll();
    UpdateViewInfo();
    if (bRedraw)
        RedrawAll();
}

void CHyEditList::SetItemValue(int nIndex, LPCTSTR lpszValue, BOOL bRedraw)
{
    CListItem* item = GetItem(nIndex);
    if (item == nullptr)
        return;
    const CString text(lpszValue ? lpszValue : "");
    item->desc.value = text;
    int lines = 1;
    for (int i = 0; i < text.GetLength(); ++i)
        lines += text[i] == '\r';
    if (!text.IsEmpty() && item->number != -1)
        lines = std::max(lines, MeasureLines(*item, text));
    if (SetItemRowHeight(*item, lines))
        UpdateViewInfo();
    if (nIndex == editedItem)   // the open row shows what it holds (ours)
        editor.SetWindowText(text);
    if (bRedraw)
        RefreshItem(nIndex);
}

void CHyEditList::GetItemValue(int nIndex, CString& value) const
{
    value = Row(nIndex) ? Row(nIndex)->desc.value : CString();
}

void CHyEditList::SetItemLabel(int nIndex, LPCTSTR lpszLabel, BOOL bRedraw)
{
    if (CListItem* item = GetItem(nIndex)) {
        item->desc.label = lpszLabel ? lpszLabel : "";
        if (bRedraw)
            RefreshItem(nIndex);
    }
}

void CHyEditList::GetItemLabel(int nIndex, CString& label) const
{
    label = Row(nIndex) ? Row(nIndex)->desc.label : CString();
}

void CHyEditList::SetItemMenuInfo(CListItem& item, CMenu* pMenu, int nMenuIndex, LPCTSTR lpszLabel)
{
    if (lpszLabel != nullptr) {
        item.desc.label = lpszLabel;
        item.fixedLabel = 1;
    } else {
        item.desc.label = MenuEntryText(pMenu, nMenuIndex);
    }
    item.menuIndex = nMenuIndex;
}

void CHyEditList::SetItemMenuInfo(int nIndex, UINT nMenuId, int nMenuIndex, LPCTSTR lpszLabel, BOOL bRedraw)
{
    CListItem* item = GetItem(nIndex);
    if (item == nullptr)
        return;
    CMenu loaded;
    loaded.LoadMenu(nMenuId);
    SetItemMenuInfo(*item, loaded.m_hMenu ? loaded.GetSubMenu(0) : nullptr, nMenuIndex, lpszLabel);
    item->menuId = nMenuId;
    loaded.DestroyMenu();
    if (bRedraw)
        RefreshItem(nIndex);
}

int CHyEditList::GetItemMenuIndex(int nIndex) const
{
    return Row(nIndex) ? Row(nIndex)->menuIndex : -1;
}

void CHyEditList::SetItemMenuIndex(int nIndex, int nMenuIndex)
{
    CListItem* item = GetItem(nIndex);
    if (item == nullptr)
        return;
    if (item->fixedLabel)
        item->menuIndex = nMenuIndex;
    else if (item->menuId != (UINT)-1)
        SetItemMenuInfo(nIndex, item->menuId, nMenuIndex, nullptr, FALSE);
    else if (item->menu != nullptr && ::IsMenu(item->menu->m_hMenu))
        SetItemMenuInfo(*item, item->menu, nMenuIndex, nullptr);
}

void CHyEditList::SetLabelWidth(int nWidth, BOOL bRedraw)
{
    labelWidth = nWidth;
    if (bRedraw) {
        UpdateViewInfo();
        RedrawAll();
    }
}

void CHyEditList::SetItemSize(int nIndex, int nWidth, int nHeight, BOOL bRedraw)
{
    CListItem* item = GetItem(nIndex);
    if (item == nullptr)
        return;
    if (nWidth != 0)
        item->width = nWidth;
    if (nHeight != 0)
        item->height = nHeight;
    UpdateViewInfo();
    if (bRedraw)
        RedrawAll();
}

void CHyEditList::GetItemSize(int nIndex, int* pWidth, int* pHeight) const
{
    const CListItem* row = Row(nIndex);
    if (pWidth)
        *pWidth = row ? row->width : 0;
    if (pHeight)
        *pHeight = row ? hy::EditRowHeight(row->height, rowHeight) : 0;
}

void CHyEditList::SetItemMinRows(int nIndex, int nRows)
{
    if (CListItem* item = GetItem(nIndex)) {
        item->minRows = nRows;
        if (SetItemRowHeight(*item, nRows))
            UpdateViewInfo();
    }
}

void CHyEditList::SetItemMaxChar(int nIndex, int nMax)
{
    if (CListItem* item = GetItem(nIndex)) {
        item->maxChars = nMax;
        if (nIndex == editedItem && editor.IsWindowVisible())
            editor.SetMaxChars(nMax);
    }
}

void CHyEditList::SetItemAcceptEnter(int nIndex, BOOL bAccept)
{
    if (CListItem* item = GetItem(nIndex))
        item->acceptEnter = bAccept ? 1 : 0;
}

BOOL CHyEditList::GetItemAcceptEnter(int nIndex) const
{
    return Row(nIndex) && Row(nIndex)->acceptEnter;
}

void CHyEditList::CollapseItem(int nIndex, BOOL bCollapse)
{
    if (CListItem* item = GetItem(nIndex))
        item->collapsed = bCollapse ? 1 : 0;
}

BOOL CHyEditList::IsItemCollapsed(int nIndex) const
{
    return Row(nIndex) && Row(nIndex)->collapsed;
}

void CHyEditList::RefreshItem(int nIndex)
{
    if (m_hWnd == nullptr || GetItem(nIndex) == nullptr)
        return;
    CRect cell, client;
    GetItemCell(nIndex, &cell);
    GetClientRect(&client);
    if (cell.IntersectRect(&cell, &client))
        InvalidateRect(&cell, FALSE);
}

void CHyEditList::Update(int nIndex)
{
    RefreshItem(nIndex);
    if (m_hWnd != nullptr)
        UpdateWindow();
}

void CHyEditList::RedrawAll()
{
    if (m_hWnd != nullptr)
        RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
}

// ---- geometry ----

std::vector<int> CHyEditList::Heights() const
{
    std::vector<int> heights((size_t)GetItemCount());
    for (int i = 0; i < GetItemCount(); ++i)
        heights[(size_t)i] = items.GetData()[i].height;
    return heights;
}

int CHyEditList::ScrollPos() const
{
    FlushScrollInfo();   // the position the system clamped to the current range
    return m_hWnd != nullptr ? GetScrollPos(SB_VERT) : 0;
}

void CHyEditList::GetItemCell(int nIndex, RECT* pRect) const
{
    const std::vector<int> heights = Heights();
    const int width = Row(nIndex) ? Row(nIndex)->width : 0;
    const HyRect cell = hy::EditRowCell(heights.data(), (int)heights.size(), rowHeight, std::max(nIndex, 0), width,
                                        ScrollPos());
    *pRect = RECT{ cell.left, cell.top, cell.right, cell.bottom };
}

void CHyEditList::GetItemRects(const CRect& cell, CListItemRects& rects) const
{
    const HyEditRowRects r = hy::EditRowRects(HyRect{ cell.left, cell.top, cell.right, cell.bottom }, labelWidth);
    rects.cell.SetRect(r.cell.left, r.cell.top, r.cell.right, r.cell.bottom);
    rects.label.SetRect(r.label.left, r.label.top, r.label.right, r.label.bottom);
    rects.value.SetRect(r.value.left, r.value.top, r.value.right, r.value.bottom);
}

void CHyEditList::GetItemRects(int nIndex, CListItemRects& rects) const
{
    CRect cell;
    GetItemCell(nIndex, &cell);
    GetItemRects(cell, rects);
}

int CHyEditList::PtToItemIndex(CPoint point) const
{
    const std::vector<int> heights = Heights();
    CRect client;
    GetClientRect(&client);
    return hy::EditRowAt(heights.data(), (int)heights.size(), rowHeight, client.Width(), ScrollPos(), point.x,
                         point.y);
}

// The scroll bar's range follows the content, but setting it costs more
// than an add. A bar that must appear does so at once, narrowing every row
// before the next is measured; any other change waits for the next paint or
// the next reading of the position, so a batch of adds sets the range once,
// and emptying and refilling the list never hides and shows the bar.
void CHyEditList::UpdateViewInfo()
{
    if (m_hWnd == nullptr)
        return;
    CRect client;
    GetClientRect(&client);
    for (int i = 0; i < GetItemCount(); ++i)
        items[i].width = client.Width();
    const std::vector<int> heights = Heights();
    const int content = std::max(hy::EditContentHeight(heights.data(), (int)heights.size(), rowHeight), 0);
    scrollRange = SCROLLINFO{ sizeof(SCROLLINFO), SIF_RANGE | SIF_PAGE, 0, content, (UINT)client.Height() + 1 };
    scrollDirty = true;
    if (content > client.Height() && (GetStyle() & WS_VSCROLL) == 0)
        FlushScrollInfo();
}

void CHyEditList::FlushScrollInfo() const
{
    if (!scrollDirty || m_hWnd == nullptr)
        return;
    scrollDirty = false;
    const bool wasLayingOut = layingOut;
    layingOut = true;
    HySetScrollInfoQuietly(m_hWnd, scrollRange, false);
    layingOut = wasLayingOut;
}

bool CHyEditList::SetItemRowHeight(CListItem& item, int lines)
{
    const int before = hy::EditRowHeight(item.height, rowHeight);
    item.height = hy::EditHeightForLines(lines, item.minRows, rowHeight, lineHeight);
    return item.height != before;
}

// Measuring and growth read the row at the position of the add number, not
// the row's index (intended); after deletes there may be none, and then the
// row itself serves.
CListItem& CHyEditList::MeasuredRow(CListItem& item)
{
    CListItem* atNumber = GetItem(item.number);
    return atNumber != nullptr ? *atNumber : item;
}

int CHyEditList::MeasureLines(CListItem& item, const CString& text)
{
    if (m_hWnd == nullptr)
        return 1;
    MeasuringEdit& measurer = Measurer();
    if (measurer.m_hWnd == nullptr || !::IsWindow(measurer.m_hWnd)) {
        if (measurer.m_hWnd != nullptr)
            measurer.Detach();
        if (!measurer.Create(HYEL_EDITOR_STYLE, CRect(0, 0, 20, rowHeight), this, (UINT)-1))
            return 1;
        measurer.SetFont(HYThemeGetFont(HYFONT_STANDARD), FALSE);
    }
    // Only the value's size counts: the cell of the row at the number's position, at the origin.
    const CListItem& sized = MeasuredRow(item);
    CListItemRects rects;
    GetItemRects(CRect(0, 0, sized.width, hy::EditRowHeight(sized.height, rowHeight)), rects);
    CRect format(0, 0, rects.value.Width(), rects.value.Height());
    format.right -= ::GetSystemMetrics(SM_CXVSCROLL);
    static DWORD margins = measurer.GetMargins();   // font 1's, the same for every measuring editor
    const int lines = LinesThatFit(text, format.Width() - LOWORD(margins) - HIWORD(margins));
    if (lines > 0)
        return lines;
    measurer.SetRect(&format);
    measurer.SetWindowText(text);
    return measurer.GetLineCount();
}

// The editor wraps a line only when it is wider than its formatting
// rectangle: a text without tabs whose every line is clearly narrower has as
// many lines as it has line breaks plus one, which is what the editor would
// answer, without the editor. 0 when the editor must measure.
int CHyEditList::LinesThatFit(const CString& text, int width)
{
    if (text.Find('\t') >= 0)
        return 0;
    static HDC measuringDC = ::CreateCompatibleDC(nullptr);   // kept for the process
    if (measuringDC == nullptr)
        return 0;
    const HGDIOBJ oldFont = ::SelectObject(measuringDC, HYThemeGetFont(HYFONT_STANDARD)->GetSafeHandle());
    int lines = 1;
    for (const char* p = text;; ++lines) {
        const char* end = std::strpbrk(p, "\r\n");
        const int length = end ? (int)(end - p) : (int)std::strlen(p);
        SIZE extent{};
        const bool fits = length == 0 || (::GetTextExtentPoint32A(measuringDC, p, length, &extent) && extent.cx + 2 < width);
        // A line too wide, or a lone CR or LF (no line break in an edit control): the editor decides.
        if (!fits || (end != nullptr && (end[0] != '\r' || end[1] != '\n'))) {
            lines = 0;
            break;
        }
        if (end == nullptr)
            break;
        p = end + 2;
    }
    ::SelectObject(measuringDC, oldFont);
    return lines;
}

// ---- selection ----

void CHyEditList::SelectItem(int nIndex, BOOL bSelect, BOOL bRedraw)
{
    if (GetItem(nIndex) == nullptr)
        return;
    focusItem = nIndex;
    if ((items[nIndex].selected != 0) == (bSelect != 0))
        return;
    if (bRedraw)
        RefreshItem(nIndex);
    OnItemSelected(nIndex, bSelect);
    if (GetItem(nIndex) == nullptr)   // the hook deleted it
        return;
    if (items[nIndex].selected)
        CloseEditor(true);
    items[nIndex].selected = bSelect ? 1 : 0;
    if (bSelect) {
        // Another row still open keeps what was typed in it (ours).
        if (editedItem != nIndex && GetItem(editedItem) != nullptr && editor.IsWindowVisible())
            editor.GetWindowText(items[editedItem].desc.value);
        RepositionEditor(nIndex);
        editor.SetSel(0, -1, TRUE);
    }
}

// Hiding the focused editor moves the focus to the list, whose kill-focus
// notice would close the row a second time: it is ignored while closing.
void CHyEditList::CloseEditor(bool commit)
{
    closing = true;
    if (commit && GetItem(editedItem) != nullptr && editor.m_hWnd != nullptr)
        editor.GetWindowText(items[editedItem].desc.value);
    if (editor.m_hWnd != nullptr)
        editor.ShowWindow(SW_HIDE);
    closing = false;
    editedItem = -1;
}

void CHyEditList::SelectAllItems(BOOL bSelect, BOOL bRedraw)
{
    for (int i = 0; i < GetItemCount(); ++i)
        SelectItem(i, bSelect, bRedraw);
}

void CHyEditList::SelectAndScrollItem(int nIndex, BOOL bSelect)
{
    SelectItem(nIndex, bSelect, TRUE);
    EnsureVisible(nIndex);
}

BOOL CHyEditList::IsItemSelected(int nIndex) const
{
    return Row(nIndex) && Row(nIndex)->selected;
}

int CHyEditList::GetSelectedCount() const
{
    int count = 0;
    for (int i = 0; i < GetItemCount(); ++i)
        count += items.GetData()[i].selected != 0;
    return count;
}

int CHyEditList::GetFirstSelectedItemIndex() const
{
    for (int i = 0; i < GetItemCount(); ++i)
        if (items.GetData()[i].selected)
            return i;
    return -1;
}

POSITION CHyEditList::GetFirstSelectedItemPosition() const
{
    return (POSITION)(INT_PTR)(GetFirstSelectedItemIndex() + 1);
}

int CHyEditList::GetNextSelectedItemIndex(POSITION& pos) const
{
    const int index = (int)(INT_PTR)pos - 1;
    int next = -1;
    for (int i = index + 1; i < GetItemCount() && next == -1; ++i)
        if (items.GetData()[i].selected)
            next = i;
    pos = (POSITION)(INT_PTR)(next + 1);
    return index;
}

void CHyEditList::EnsureVisible(int nIndex)
{
    if (m_hWnd == nullptr || GetItem(nIndex) == nullptr)
        return;
    CRect cell, client;
    GetItemCell(nIndex, &cell);
    GetClientRect(&client);
    const int delta = hy::EditEnsureVisibleDelta(HyRect{ cell.left, cell.top, cell.right, cell.bottom }, client.top,
                                                 client.bottom);
    if (delta != 0)
        ScrollTo(hy::kEditThumbPosition, ScrollPos() + delta);
}

// ---- the editor ----

void CHyEditList::RepositionEditor(int nIndex)
{
    if (editor.m_hWnd == nullptr)
        return;
    CListItemRects rects;
    GetItemRects(nIndex, rects);
    editor.MoveWindow(&rects.value, FALSE);
    editor.ShowScrollBar(SB_BOTH, FALSE);
    CRect format(rects.value);
    format.InflateRect(5, 5);
    editor.SetRect(&format);   // list coordinates; gaining the focus replaces it
    editor.SetWindowText(items[nIndex].desc.value);
    editor.SetMaxChars(items[nIndex].maxChars);
    const bool hadFocus = GetFocus() == &editor;
    editor.SetFocus();
    editor.ShowWindow(SW_SHOW);
    editedItem = nIndex;
    if (hadFocus) {   // no focus change to reset the format: the text would be drawn off the editor (ours)
        CRect own;
        editor.GetClientRect(&own);
        editor.SetRect(&own);
    }
}

// Moves a shown editor onto its row's value after the row moved.
void CHyEditList::PlaceEditor()
{
    if (editor.m_hWnd == nullptr || !editor.IsWindowVisible() || GetItem(editedItem) == nullptr)
        return;
    CListItemRects rects;
    GetItemRects(editedItem, rects);
    editor.MoveWindow(&rects.value, TRUE);
    editor.ShowScrollBar(SB_BOTH, FALSE);
}

// ---- scrolling ----

void CHyEditList::ScrollTo(int nCode, int nThumb)
{
    CRect client;
    GetClientRect(&client);
    const std::vector<int> heights = Heights();
    const int content = hy::EditContentHeight(heights.data(), (int)heights.size(), rowHeight);
    const int pos = ScrollPos();
    const int maxPos = hy::EditScrollMax(content, client.Height());
    const int target = hy::EditScrollTarget(nCode, pos, nThumb, rowHeight, client.Height(), maxPos);
    if (target == pos)
        return;
    SCROLLINFO si{ sizeof si, SIF_POS };
    si.nPos = target;
    HySetScrollInfoQuietly(m_hWnd, si, pos == 0 || target == 0 || pos == maxPos || target == maxPos);
    RedrawAll();
    PlaceEditor();
}

void CHyEditList::OnVScroll(UINT nSBCode, UINT nPos, CScrollBar*)
{
    ScrollTo((int)nSBCode, (int)nPos);
}

// A size change that the list's own scroll bar caused while laying out is
// painted with the rest of that change, at the next paint; any other is
// painted at once.
void CHyEditList::OnSize(UINT nType, int cx, int cy)
{
    CWnd::OnSize(nType, cx, cy);
    if (m_hWnd != nullptr) {
        const bool own = layingOut;
        UpdateViewInfo();
        own ? Invalidate(FALSE) : RedrawAll();
        PlaceEditor();
    }
}

BOOL CHyEditList::OnMouseWheel(UINT, short zDelta, CPoint)
{
    const int lines = hy::EditWheelLines(zDelta);
    for (int i = 0; i < std::abs(lines); ++i)
        ScrollTo(lines > 0 ? hy::kEditLineDown : hy::kEditLineUp, 0);
    return (BOOL)Default();   // the parent sees the wheel too
}

// ---- mouse ----

// Taking the focus with the pointed row as the focus row while the list
// repaints, then the previous focus row back.
void CHyEditList::TakeFocusAt(CPoint point)
{
    if (GetFocus() == this)
        return;
    const int previous = focusItem;
    focusItem = PtToItemIndex(point);
    SetFocus();
    RedrawAll();
    focusItem = previous;
}

void CHyEditList::LeftButtonSteps(CPoint point)
{
    TakeFocusAt(point);
    const int row = PtToItemIndex(point);
    if (row == -1)
        return;
    SetCapture();
    focusItem = row;
    CListItemRects rects;
    GetItemRects(row, rects);
    if (rects.label.PtInRect(point)) {
        if (items[row].IsMenuRow())   // a plain row's label ignores the click
            HandleLabelPopup(row, point);
    } else if (!items[row].selected) {
        SelectAllItems(FALSE, FALSE);
        SelectAndScrollItem(row, TRUE);
        RedrawAll();
    }
}

void CHyEditList::OnLButtonDown(UINT, CPoint point)
{
    LeftButtonSteps(point);
    Default();
}

void CHyEditList::OnMouseMove(UINT, CPoint)
{
    Default();
}

void CHyEditList::OnLButtonUp(UINT, CPoint)
{
    if (GetCapture() == this)
        ReleaseCapture();
    Default();
}

void CHyEditList::OnLButtonDblClk(UINT, CPoint point)
{
    LeftButtonSteps(point);
    Default();
    OnItemLButtonDblClk(PtToItemIndex(point), point);
}

void CHyEditList::OnRButtonDown(UINT nFlags, CPoint point)
{
    if (GetFocus() != this) {
        SetFocus();
        RedrawAll();
    }
    const int row = PtToItemIndex(point);
    if (row != -1) {
        const bool moved = focusItem != row;
        focusItem = row;
        if ((nFlags & (MK_SHIFT | MK_CONTROL)) == 0 && !items[row].selected) {
            SelectAllItems(FALSE, FALSE);
            SelectItem(row, TRUE, FALSE);
            RedrawAll();
        } else if (moved) {
            RedrawAll();
        }
    }
    OnItemOnRButtonDown(row, point);
}

// ---- the chooser ----

void CHyEditList::HandleLabelPopup(int nIndex, CPoint point)
{
    CMenu loaded;
    CMenu* popup = items[nIndex].menu;
    if (popup == nullptr && loaded.LoadMenu(items[nIndex].menuId))
        popup = loaded.GetSubMenu(0);
    if (popup != nullptr && ::IsMenu(popup->m_hMenu)) {
        const int before = items[nIndex].menuIndex;
        const int count = popup->GetMenuItemCount();
        for (int i = 0; i < count; ++i)
            popup->CheckMenuItem((UINT)i, MF_BYPOSITION | MF_UNCHECKED);
        popup->CheckMenuItem((UINT)before, MF_BYPOSITION | MF_CHECKED);
        CPoint screen(point);
        ClientToScreen(&screen);
        const UINT command = (UINT)popup->TrackPopupMenu(HYEL_CHOOSER_FLAGS, screen.x, screen.y, this);
        int position = -1;
        for (int i = 0; command != 0 && i < count && position == -1; ++i)
            if (popup->GetMenuItemID(i) == command)
                position = i;
        // The row may have gone while the menu was open.
        if (position != -1 && GetItem(nIndex) != nullptr) {
            items[nIndex].menuIndex = position;
            if (!items[nIndex].fixedLabel)
                items[nIndex].desc.label = MenuEntryText(popup, position);
            Update(nIndex);
            if (position != before)
                if (CWnd* parent = GetParent())
                    parent->PostMessage(HYEL_MENUCHANGED, (WPARAM)GetDlgCtrlID(), MAKELPARAM(nIndex, position));
        }
    }
    loaded.DestroyMenu();
}

// ---- keys and focus ----

void CHyEditList::OnKeyDown(UINT nChar, UINT, UINT)
{
    switch (nChar) {
    case VK_TAB:
        TabStep(::GetKeyState(VK_SHIFT) < 0);
        break;
    case VK_SPACE:
        if (::GetKeyState(VK_CONTROL) < 0)
            SelectItem(focusItem, !IsItemSelected(focusItem), TRUE);
        else if (::GetKeyState(VK_SHIFT) >= 0 && !IsItemSelected(focusItem))
            SelectItem(focusItem, TRUE, TRUE);
        break;
    case VK_PRIOR:
        ScrollTo(hy::kEditPageUp, 0);
        break;
    case VK_NEXT:
        ScrollTo(hy::kEditPageDown, 0);
        break;
    case VK_LEFT:
    case VK_RIGHT:
    case VK_UP:
    case VK_DOWN:
        OnArrowKeyDown(nChar);
        break;
    default:
        break;
    }
    Default();
}

void CHyEditList::OnArrowKeyDown(UINT) {}   // arrows move nothing (intended)

void CHyEditList::TabStep(bool backward)
{
    const hy::HyEditTab step = hy::EditTabTarget(GetItemCount(), GetFirstSelectedItemIndex(), backward);
    if (step.deselectAll)
        SelectAllItems(FALSE, TRUE);
    if (step.row != -1)
        SelectAndScrollItem(step.row, TRUE);
    else if (step.sibling != 0)
        FocusSibling(step.sibling);
}

void CHyEditList::FocusSibling(int direction)
{
    for (HWND h = ::GetWindow(m_hWnd, direction > 0 ? GW_HWNDNEXT : GW_HWNDPREV); h != nullptr;
         h = ::GetWindow(h, direction > 0 ? GW_HWNDNEXT : GW_HWNDPREV))
        if (::IsWindowVisible(h)) {
            ::SetFocus(h);
            return;
        }
}

LRESULT CHyEditList::OnTabNext(WPARAM, LPARAM)
{
    TabStep(false);
    return 0;
}

LRESULT CHyEditList::OnTabPrev(WPARAM, LPARAM)
{
    TabStep(true);
    return 0;
}

UINT CHyEditList::OnGetDlgCode()
{
    return HYEL_LIST_DLGCODE;
}

void CHyEditList::OnSetFocus(CWnd* pOldWnd)
{
    CWnd::OnSetFocus(pOldWnd);
    const HWND old = pOldWnd ? pOldWnd->m_hWnd : nullptr;
    if (old != nullptr && old != m_hWnd && GetItemCount() > 0) {
        if (::GetWindow(old, GW_HWNDNEXT) == m_hWnd)   // Tab from the window before
            SelectAndScrollItem(0, TRUE);
        else if (::GetWindow(old, GW_HWNDPREV) == m_hWnd)   // Shift+Tab from the window after
            SelectAndScrollItem(GetItemCount() - 1, TRUE);
    }
    RedrawAll();
}

void CHyEditList::OnKillFocus(CWnd* pNewWnd)
{
    CWnd::OnKillFocus(pNewWnd);
    if (pNewWnd == nullptr || pNewWnd->m_hWnd != m_hWnd)
        RedrawAll();
}

void CHyEditList::OnShowWindow(BOOL bShow, UINT nStatus)
{
    CWnd::OnShowWindow(bShow, nStatus);
    if (!bShow)
        SelectAllItems(FALSE, TRUE);
}

void CHyEditList::OnSysColorChange()
{
    CWnd::OnSysColorChange();
    RedrawAll();
}

LRESULT CHyEditList::OnItemKillFocus(WPARAM, LPARAM)
{
    if (closing)   // inside a close, which commits and repaints itself
        return 0;
    const int row = GetFirstSelectedItemIndex();
    if (row == -1)
        return 0;
    SelectItem(row, FALSE, FALSE);
    CRect cell;
    GetItemCell(row, &cell);
    cell.InflateRect(1, 1);
    InvalidateRect(&cell, FALSE);
    UpdateWindow();
    return 0;
}

// The open row follows the editor's line count; the heights compared are
// those of the row at the add number's position (intended, as in measuring).
LRESULT CHyEditList::OnCharEntered(WPARAM, LPARAM)
{
    CListItem* row = GetItem(editedItem);
    if (row == nullptr || editor.m_hWnd == nullptr)
        return 0;
    CListItem& probe = MeasuredRow(*row);
    const int before = hy::EditRowHeight(probe.height, rowHeight);
    SetItemRowHeight(*row, editor.GetLineCount());
    if (hy::EditRowHeight(probe.height, rowHeight) != before) {
        UpdateViewInfo();
        int start = 0, end = 0;
        editor.GetSel(start, end);
        const int index = editedItem;
        SelectItem(index, FALSE, TRUE);
        SelectItem(index, TRUE, TRUE);
        editor.SetSel(start, end, TRUE);
    }
    return 0;
}
