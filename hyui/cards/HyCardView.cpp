// CHyCardView and CHyPhotoView: the cards, selection and check marks,
// keyboard, mouse, scrolling, resizing by drag and sorting. Painting is in
// HyCardViewPaint.cpp; the arithmetic in HyCardGrid.cpp.
//
// Nothing a click, key or scroll does costs the card count: the card under
// a point is found by arithmetic, and the selected indexes are kept in
// ascending order beside the cards, so deselecting and counting walk only
// the selection.
#include "HyCardView.h"
#include "HyScrollBar.h"
#include "HyCardGrid.h"
#include "HyUIRes.h"

#include <algorithm>
#include <climits>
#include <cstdint>
#include <cstdlib>

namespace {

RECT ToRect(const HyRect& r) { return RECT{ r.left, r.top, r.right, r.bottom }; }
HyRect ToHy(const RECT& r) { return HyRect{ r.left, r.top, r.right, r.bottom }; }

bool IsDown(int vk) { return ::GetKeyState(vk) < 0; }

SCROLLINFO ScrollInfo(UINT mask)
{
    SCROLLINFO si{};
    si.cbSize = sizeof(si);
    si.fMask = mask;
    return si;
}

// Loaded once a process and kept: the cursor stays set while a drag runs.
HCURSOR ResizeCursor(int gap)
{
    static HCURSOR cursors[2];
    HCURSOR& cursor = cursors[gap == hy::kWidthGap ? 0 : 1];
    if (cursor == nullptr) {
        const LPCTSTR id = MAKEINTRESOURCE(gap == hy::kWidthGap ? IDC_CURSOR_RESIZE_WIDTH : IDC_CURSOR_RESIZE_HEIGHT);
        cursor = ::LoadCursor(AfxFindResourceHandle(id, RT_GROUP_CURSOR), id);
    }
    return cursor;
}

// The sort's compare function and argument; one sort at a time.
PFNLVCOMPARE s_sortCompare = nullptr;
LPARAM s_sortParam = 0;
const CHyCardViewBase* s_sortView = nullptr;

int __cdecl CompareCards(const void* a, const void* b)
{
    return s_sortCompare((LPARAM) static_cast<const CCard*>(a)->pData, (LPARAM) static_cast<const CCard*>(b)->pData,
                         s_sortParam);
}

}  // namespace

IMPLEMENT_DYNAMIC(CHyCardViewBase, CWnd)
IMPLEMENT_DYNAMIC(CHyCardView, CHyCardViewBase)
IMPLEMENT_DYNAMIC(CHyPhotoView, CHyCardViewBase)

BEGIN_MESSAGE_MAP(CHyCardViewBase, CWnd)
    ON_WM_CREATE()
    ON_WM_SIZE()
    ON_WM_DESTROY()
    ON_WM_PAINT()
    ON_WM_ERASEBKGND()
    ON_WM_SYSCOLORCHANGE()
    ON_WM_GETDLGCODE()
    ON_WM_KEYDOWN()
    ON_WM_MOUSEWHEEL()
    ON_WM_VSCROLL()
    ON_WM_LBUTTONDOWN()
    ON_WM_LBUTTONUP()
    ON_WM_LBUTTONDBLCLK()
    ON_WM_RBUTTONDOWN()
    ON_WM_MOUSEMOVE()
    ON_WM_SETCURSOR()
    ON_WM_SETFOCUS()
    ON_WM_KILLFOCUS()
    ON_WM_CANCELMODE()
END_MESSAGE_MAP()

CHyCardViewBase::CHyCardViewBase(bool photo)
    : cardWidth(photo ? 144 : 220), cardHeight(photo ? 134 : 170), minCardWidth(photo ? 80 : 50),
      minCardHeight(photo ? 70 : 50), maxCardWidth(photo ? 144 : 0), maxCardHeight(photo ? 134 : 0), columns(1),
      visibleRows(1), singleCard(-1), focusCard(0), tabStop(12), headerHeight(20), mouseMode(0), dragSize(0),
      cardCounter(0), flags(0), photoView(photo)
{
}

CHyCardViewBase::~CHyCardViewBase() = default;

CHyCardView::CHyCardView() : CHyCardViewBase(false) {}

CHyPhotoView::CHyPhotoView() : CHyCardViewBase(true) {}

BOOL CHyCardViewBase::PreCreateWindow(CREATESTRUCT& cs)
{
    cs.style |= WS_CLIPSIBLINGS | WS_CLIPCHILDREN | WS_BORDER | WS_VSCROLL | WS_TABSTOP;
    return CWnd::PreCreateWindow(cs);
}

int CHyCardViewBase::OnCreate(LPCREATESTRUCT lpCreateStruct)
{
    if (CWnd::OnCreate(lpCreateStruct) == -1)
        return -1;
    cardWidth = photoView ? 144 : 220;
    cardHeight = photoView ? 134 : 170;
    minCardWidth = photoView ? 80 : 50;
    minCardHeight = photoView ? 70 : 50;
    maxCardWidth = photoView ? 144 : 0;
    maxCardHeight = photoView ? 134 : 0;
    columns = visibleRows = 1;
    singleCard = -1;
    focusCard = 0;
    tabStop = 12;
    headerHeight = 20;
    mouseMode = 0;
    for (CBitmap* b : { &padlockBitmap, &checkBitmap, &noteBitmap })
        b->DeleteObject();   // a window created again reloads them
    padlockBitmap.LoadBitmap(IDB_PADLOCK);
    checkBitmap.LoadBitmap(IDB_CHECK_MARK);
    noteBitmap.LoadBitmap(IDB_NOTE);
    return 0;
}

void CHyCardViewBase::OnSize(UINT nType, int cx, int cy)
{
    CWnd::OnSize(nType, cx, cy);
    if (m_hWnd == nullptr)
        return;
    UpdateViewInfo();
    RedrawAll();
}

void CHyCardViewBase::OnSysColorChange()
{
    CWnd::OnSysColorChange();
    RedrawAll();
}

void CHyCardViewBase::RedrawAll()
{
    if (m_hWnd != nullptr)
        RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
}

// ---- geometry -------------------------------------------------------------

HyCardGrid CHyCardViewBase::Grid() const
{
    HyCardGrid g;
    if (m_hWnd != nullptr) {
        RECT client;
        ::GetClientRect(m_hWnd, &client);
        g.clientWidth = client.right;
        g.clientHeight = client.bottom;
        SCROLLINFO si = ScrollInfo(SIF_POS);
        if (::GetScrollInfo(m_hWnd, SB_VERT, &si))
            g.scrollPos = si.nPos;
    }
    g.cardWidth = cardWidth;
    g.cardHeight = cardHeight;
    g.count = GetCardCount();
    g.columns = std::max(columns, 1);
    g.visibleRows = std::max(visibleRows, 1);
    g.scrollMax = scrollMax;
    return g;
}

void CHyCardViewBase::UpdateViewInfo()
{
    if (m_hWnd == nullptr)
        return;
    HyCardGrid g = Grid();
    hy::CardLayout(g);
    columns = g.columns;
    visibleRows = g.visibleRows;
    scrollMax = g.scrollMax;
    // The position lives in the scroll bar, which clamps it to the new range.
    SetScrollRange(SB_VERT, 0, scrollMax, TRUE);
}

void CHyCardViewBase::GetCardCell(int nIndex, RECT* pRect) const
{
    *pRect = ToRect(hy::CardCell(Grid(), nIndex));
}

void CHyCardViewBase::GetCardRects(int nIndex, CCardRects& rects)
{
    RECT cell;
    GetCardCell(nIndex, &cell);
    CCardDesc desc;
    GetCardDescription(nIndex, desc);
    GetCardRects(CRect(cell), rects, desc.bPhoto);
}

void CHyCardViewBase::GetCardRects(CRect rcCell, CCardRects& rects, BOOL bPhoto)
{
    // The card view sets the header height from the photo flag on every call
    // (deliberate); the photo view keeps the member's value.
    const HyCardRects r = photoView ? hy::PhotoViewRects(ToHy(rcCell), headerHeight)
                                    : hy::CardViewRects(ToHy(rcCell), bPhoto != FALSE, headerHeight);
    rects.rcCell = ToRect(r.rcCell);
    rects.rcCard = ToRect(r.rcCard);
    rects.rcHeader = ToRect(r.rcHeader);
    rects.rcPhoto = ToRect(r.rcPhoto);
    rects.rcCheck = ToRect(r.rcCheck);
    rects.rcBody = ToRect(r.rcBody);
}

int CHyCardViewBase::CardFromPoint(CPoint point) const
{
    return hy::CardAt(Grid(), point.x, point.y);
}

void CHyCardViewBase::SetCardSize(int cx, int cy, BOOL bRedraw)
{
    if (cx < 1 || cy < 1)
        return;
    cardWidth = cx;
    cardHeight = cy;
    UpdateViewInfo();
    if (bRedraw)
        RedrawAll();
}

void CHyCardViewBase::GetCardSize(int* pcx, int* pcy) const
{
    if (pcx)
        *pcx = cardWidth;
    if (pcy)
        *pcy = cardHeight;
}

void CHyCardViewBase::GetMinCardSize(int* pcx, int* pcy) const
{
    if (pcx)
        *pcx = minCardWidth;
    if (pcy)
        *pcy = minCardHeight;
}

// ---- the cards ------------------------------------------------------------

int CHyCardViewBase::AddCard(void* pData, BOOL bRedraw)
{
    CCard card;
    card.pData = pData;
    card.nSerial = cardCounter++;
    const int index = (int)cards.Add(card);
    UpdateViewInfo();
    if (bRedraw)
        RedrawAll();
    return index;
}

void CHyCardViewBase::InsertCard(int nIndex, void* pData, BOOL bRedraw)
{
    if (nIndex < 0)
        return;   // refused: there is no place before the first card
    CCard card;
    card.pData = pData;
    card.nSerial = cardCounter++;
    if (nIndex >= GetCardCount()) {
        cards.SetSize(nIndex);   // default cards fill any gap
        cards.Add(card);
    } else {
        cards.InsertAt(nIndex, card);
        for (auto it = std::lower_bound(selected.begin(), selected.end(), nIndex); it != selected.end(); ++it)
            ++*it;
    }
    UpdateViewInfo();
    if (bRedraw)
        RedrawAll();
}

void CHyCardViewBase::DeleteCard(int nIndex, BOOL bRedraw)
{
    if (nIndex < 0 || nIndex >= GetCardCount())
        return;
    cards.RemoveAt(nIndex);
    auto it = std::lower_bound(selected.begin(), selected.end(), nIndex);
    if (it != selected.end() && *it == nIndex)
        it = selected.erase(it);
    for (; it != selected.end(); ++it)
        --*it;
    UpdateViewInfo();
    if (bRedraw)
        RedrawAll();
}

void CHyCardViewBase::DeleteAllCards(BOOL bRedraw)
{
    if (GetCardCount() > 0) {
        cards.RemoveAll();
        selected.clear();
    }
    UpdateViewInfo();
    if (bRedraw)
        RedrawAll();
}

CCard* CHyCardViewBase::GetCard(int nIndex)
{
    return nIndex >= 0 && nIndex < GetCardCount() ? &cards[nIndex] : nullptr;
}

void CHyCardViewBase::SetCardData(int nIndex, void* pData)
{
    if (CCard* card = GetCard(nIndex))
        card->pData = pData;
}

void* CHyCardViewBase::GetCardData(int nIndex) const
{
    return nIndex >= 0 && nIndex < GetCardCount() ? cards[nIndex].pData : nullptr;
}

int CHyCardViewBase::FindCardIndexByData(void* pData) const
{
    for (int i = 0; i < GetCardCount(); ++i)
        if (cards[i].pData == pData)
            return i;
    return -1;
}

int CHyCardViewBase::FindCardIndex(CCard* pCard) const
{
    const CCard* first = cards.GetData();
    if (first == nullptr || pCard < first || pCard >= first + GetCardCount())
        return -1;
    return (int)(pCard - first);
}

// ---- selection and check marks -------------------------------------------

void CHyCardViewBase::SetSelectedState(int nIndex, BOOL bSelect)
{
    cards[nIndex].bSelected = bSelect;
    auto it = std::lower_bound(selected.begin(), selected.end(), nIndex);
    const bool listed = it != selected.end() && *it == nIndex;
    if (bSelect && !listed)
        selected.insert(it, nIndex);
    else if (!bSelect && listed)
        selected.erase(it);
}

void CHyCardViewBase::SelectCard(int nIndex, BOOL bSelect, BOOL bRedraw)
{
    if (nIndex == -1) {
        SelectAllCards(bSelect, bRedraw);
        return;
    }
    if (nIndex < 0 || nIndex >= GetCardCount())
        return;
    focusCard = nIndex;
    bSelect = bSelect ? TRUE : FALSE;
    if (cards[nIndex].bSelected == bSelect)
        return;   // the focus moved; no hook
    SetSelectedState(nIndex, bSelect);
    if (bRedraw && m_hWnd != nullptr) {
        CRect cell, client, both;
        GetCardCell(nIndex, &cell);
        GetClientRect(&client);
        if (both.IntersectRect(&cell, &client))
            InvalidateRect(&cell, TRUE);
    }
    OnCardSelected(nIndex, bSelect);
}

void CHyCardViewBase::SelectAllCards(BOOL bSelect, BOOL bRedraw)
{
    // In index order, one hook per changed card; the focus card stays where it is.
    bool changed = false;
    if (bSelect) {
        for (int i = 0; i < GetCardCount(); ++i)
            if (!cards[i].bSelected) {
                SetSelectedState(i, TRUE);
                OnCardSelected(i, TRUE);
                changed = true;
            }
    } else {
        changed = !selected.empty();
        DeselectOthers(-1, FALSE);
    }
    if (changed && bRedraw)
        RedrawAll();
}

void CHyCardViewBase::DeselectOthers(int nKeep, BOOL bRedraw)
{
    const std::vector<int> was = selected;   // a hook may change the selection
    bool changed = false;
    for (int i : was)
        if (i != nKeep && i < GetCardCount() && cards[i].bSelected) {
            SetSelectedState(i, FALSE);
            OnCardSelected(i, FALSE);
            changed = true;
        }
    if (changed && bRedraw)
        RedrawAll();
}

BOOL CHyCardViewBase::IsCardSelected(int nIndex) const
{
    return nIndex >= 0 && nIndex < GetCardCount() ? cards[nIndex].bSelected : FALSE;
}

void CHyCardViewBase::SelectAndScrollCard(int nIndex, BOOL bSelect)
{
    SelectCard(nIndex, bSelect, TRUE);
    EnsureVisible(nIndex);
}

void CHyCardViewBase::CheckCard(int nIndex, BOOL bCheck, BOOL bRedraw)
{
    if (nIndex == -1) {
        CheckAllCards(bCheck, bRedraw);
        return;
    }
    if (nIndex < 0 || nIndex >= GetCardCount())
        return;
    cards[nIndex].bChecked = bCheck;   // not compared with the old state
    if (bRedraw && m_hWnd != nullptr) {
        CCardRects rects;
        GetCardRects(nIndex, rects);
        CRect client, both;
        GetClientRect(&client);
        if (both.IntersectRect(&rects.rcCheck, &client))
            InvalidateRect(&rects.rcCheck, TRUE);
    }
    OnCardChecked(nIndex, bCheck);   // every time, changed or not: deliberate
}

void CHyCardViewBase::CheckAllCards(BOOL bCheck, BOOL bRedraw)
{
    bool changed = false;
    for (int i = 0; i < GetCardCount(); ++i)
        if (!cards[i].bChecked != !bCheck) {
            CheckCard(i, bCheck, FALSE);
            changed = true;
        }
    if (changed && bRedraw)
        RedrawAll();
}

BOOL CHyCardViewBase::IsCardChecked(int nIndex) const
{
    return nIndex >= 0 && nIndex < GetCardCount() ? cards[nIndex].bChecked : FALSE;
}

POSITION CHyCardViewBase::GetFirstSelectedCardPosition() const
{
    return selected.empty() ? nullptr : (POSITION)(INT_PTR)(selected.front() + 1);
}

int CHyCardViewBase::GetNextSelectedCardIndex(POSITION& pos) const
{
    const int index = (int)(INT_PTR)pos - 1;
    const auto next = std::upper_bound(selected.begin(), selected.end(), index);
    pos = next == selected.end() ? nullptr : (POSITION)(INT_PTR)(*next + 1);
    return index;
}

BOOL CHyCardViewBase::EnsureVisible(int nIndex)
{
    if (nIndex < 0 || nIndex >= GetCardCount())
        return FALSE;
    const int row = nIndex / std::max(columns, 1);
    const int pos = Grid().scrollPos;
    if (row >= pos && row <= pos + visibleRows - 1)
        return FALSE;
    ScrollTo(row < pos ? row : row - visibleRows + 1);
    return TRUE;
}

void CHyCardViewBase::Update(int nIndex)
{
    if (m_hWnd == nullptr || nIndex < 0 || nIndex >= GetCardCount())
        return;
    RECT cell;
    GetCardCell(nIndex, &cell);
    InvalidateRect(&cell, TRUE);
    UpdateWindow();
}

BOOL CHyCardViewBase::SortItems(PFNLVCOMPARE pfnCompare, DWORD_PTR lParamSort)
{
    const int count = GetCardCount();
    if (count == 0 || pfnCompare == nullptr)
        return TRUE;
    s_sortCompare = pfnCompare;
    s_sortParam = (LPARAM)lParamSort;
    s_sortView = this;
    const int serial = focusCard >= 0 && focusCard < count ? cards[focusCard].nSerial : -1;
    std::qsort(cards.GetData(), count, sizeof(CCard), &CompareCards);   // not stable, as designed
    s_sortView = nullptr;
    focusCard = -1;
    selected.clear();
    for (int i = 0; i < count; ++i) {
        if (serial != -1 && cards[i].nSerial == serial && focusCard == -1)
            focusCard = i;
        if (cards[i].bSelected)
            selected.push_back(i);
    }
    RedrawAll();
    return TRUE;
}

// ---- keyboard -------------------------------------------------------------

BOOL CHyCardViewBase::PreTranslateMessage(MSG* pMsg)
{
    if (pMsg->message == WM_KEYDOWN && pMsg->hwnd == m_hWnd) {
        if (pMsg->wParam == VK_ESCAPE && (mouseMode == 2 || mouseMode == 3) && GetCapture() == this) {
            EndDrag(false);
            ReleaseCapture();
            return TRUE;
        }
        if (pMsg->wParam == VK_RETURN) {
            OnCardReturnKey();   // before dialog navigation: not the default button
            return TRUE;
        }
    }
    return CWnd::PreTranslateMessage(pMsg);
}

UINT CHyCardViewBase::OnGetDlgCode()
{
    return DLGC_WANTARROWS | DLGC_WANTCHARS;
}

void CHyCardViewBase::OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags)
{
    const bool ctrl = IsDown(VK_CONTROL), shift = IsDown(VK_SHIFT);
    switch (nChar) {
    case VK_SPACE:
        if (focusCard >= 0 && focusCard < GetCardCount()) {
            const BOOL selectedNow = cards[focusCard].bSelected;
            if (ctrl)
                SelectCard(focusCard, !selectedNow, TRUE);
            else if (!shift && !selectedNow)
                SelectCard(focusCard, TRUE, TRUE);
        }
        break;
    case VK_PRIOR:
        OnVScroll(SB_PAGEUP, 0, nullptr);
        break;
    case VK_NEXT:
        OnVScroll(SB_PAGEDOWN, 0, nullptr);
        break;
    case VK_LEFT:
    case VK_UP:
    case VK_RIGHT:
    case VK_DOWN:
        // Shift with an arrow is deliberately not a way to extend the selection.
        if (!shift || ctrl)
            MoveFocusByArrow(nChar);
        break;
    default:
        break;
    }
    CWnd::OnKeyDown(nChar, nRepCnt, nFlags);
}

void CHyCardViewBase::MoveFocusByArrow(UINT nChar)
{
    const int from = focusCard;
    const int to = hy::CardArrowTarget(Grid(), from, (int)nChar);
    if (to == from || to < 0 || to >= GetCardCount())
        return;
    if (IsDown(VK_CONTROL)) {
        focusCard = to;   // only the focus moves
        EnsureVisible(to);
        RedrawAll();
        return;
    }
    focusCard = to;
    SelectAllCards(FALSE, TRUE);
    SelectAndScrollCard(to, TRUE);
    Update(from);
}

// ---- scrolling ------------------------------------------------------------

BOOL CHyCardViewBase::OnMouseWheel(UINT nFlags, short zDelta, CPoint pt)
{
    const int notches = zDelta / WHEEL_DELTA;   // truncated toward zero: 119 is no notch
    for (int i = 0; i < std::abs(notches); ++i)
        OnVScroll(notches > 0 ? SB_LINEUP : SB_LINEDOWN, 0, nullptr);
    return CWnd::OnMouseWheel(nFlags, zDelta, pt);
}

void CHyCardViewBase::OnVScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar)
{
    const int pos = Grid().scrollPos;
    int to = pos;
    switch (nSBCode) {
    case SB_LINEUP: to = pos - 1; break;
    case SB_LINEDOWN: to = pos + 1; break;
    case SB_PAGEUP: to = pos - visibleRows; break;
    case SB_PAGEDOWN: to = pos + visibleRows; break;
    case SB_THUMBPOSITION:
    case SB_THUMBTRACK: {
        // The message carries 16 bits; a thumb dragged past row 65,535 (or
        // read as negative past 32,767) is read back from the scroll bar.
        to = (int)(nPos & 0xFFFF);
        SCROLLINFO si = ScrollInfo(SIF_TRACKPOS);
        if (::GetScrollInfo(m_hWnd, SB_VERT, &si) && (si.nTrackPos & 0xFFFF) == to)
            to = si.nTrackPos;
        break;
    }
    case SB_ENDSCROLL:
        return;
    default:
        break;
    }
    (void)pScrollBar;
    ScrollTo(to);
}

void CHyCardViewBase::ScrollTo(int nRow)
{
    if (m_hWnd == nullptr)
        return;
    const int pos = Grid().scrollPos;
    const int to = std::clamp(nRow, 0, scrollMax);
    if (to == pos)
        return;
    SCROLLINFO si = ScrollInfo(SIF_POS);
    si.nPos = to;
    HySetScrollInfoQuietly(m_hWnd, si, pos == 0 || to == 0 || pos == scrollMax || to == scrollMax);
    CRect client;
    GetClientRect(&client);
    // A move of more than a client height repaints everything; clamping keeps
    // the product of far rows and tall cards inside an int.
    const int64_t limit = int64_t(client.Height()) + cardHeight;
    const int dy = (int)std::clamp(-int64_t(to - pos) * cardHeight, -limit, limit);
    ScrollWindowEx(0, dy, nullptr, nullptr, nullptr, nullptr, SW_INVALIDATE);
    UpdateWindow();
}

// ---- mouse ----------------------------------------------------------------

void CHyCardViewBase::TakeFocusFor(int nIndex)
{
    if (GetFocus() == this)
        return;
    SetFocus();
    // Painted once as if the pressed card already had the focus.
    const int saved = focusCard;
    focusCard = nIndex;
    RedrawAll();
    focusCard = saved;
}

void CHyCardViewBase::OnLButtonDown(UINT nFlags, CPoint point)
{
    const int hit = CardFromPoint(point);
    TakeFocusFor(hit);
    const int gap = hy::CardGapAt(Grid(), (flags & HYCARD_NORESIZE) != 0, point.x, point.y);
    if (gap != hy::kNoGap) {
        BeginDrag(gap, point);
        return;
    }
    const bool ctrl = (nFlags & MK_CONTROL) != 0, shift = (nFlags & MK_SHIFT) != 0;
    if (hit >= 0) {
        SetCapture();
        mouseMode = 1;
        focusCard = hit;
        if (flags & HYCARD_CHECKBOXES) {
            CCardRects rects;
            GetCardRects(hit, rects);
            if (::PtInRect(&rects.rcCheck, point))
                CheckCard(hit, !cards[hit].bChecked, TRUE);
        }
        if (ctrl) {
            SelectCard(hit, !cards[hit].bSelected, FALSE);
            RedrawAll();
        } else if (shift) {
            SelectBlock(hit);
            RedrawAll();
        } else if (!cards[hit].bSelected) {
            DeselectOthers(hit, FALSE);
            SelectCard(hit, TRUE, FALSE);
            RedrawAll();
        }
        // A press on a card of a multiple selection waits for the release.
    } else if (!ctrl && !shift) {
        SelectAllCards(FALSE, TRUE);
    }
    CWnd::OnLButtonDown(nFlags, point);
}

void CHyCardViewBase::SelectBlock(int nIndex)
{
    SelectCard(nIndex, TRUE, FALSE);
    const int cols = std::max(columns, 1);
    const hy::HyCardBlock block = hy::CardBlock(selected.data(), (int)selected.size(), cols);
    // Rows x columns of the grid, not a range of indexes (deliberate). The
    // cards that change are the selected ones and the block's own: walked
    // in index order, one hook each.
    std::vector<int> touched = selected;
    for (int row = block.firstRow; row <= block.lastRow; ++row)
        for (int col = block.firstColumn; col <= block.lastColumn; ++col) {
            const int64_t i = int64_t(row) * cols + col;
            if (i < GetCardCount())
                touched.push_back((int)i);
        }
    std::sort(touched.begin(), touched.end());
    touched.erase(std::unique(touched.begin(), touched.end()), touched.end());
    for (int i : touched) {
        const BOOL want = block.Holds(i, cols) ? TRUE : FALSE;
        if (cards[i].bSelected != want) {
            SetSelectedState(i, want);
            OnCardSelected(i, want);
        }
    }
}

void CHyCardViewBase::OnLButtonUp(UINT nFlags, CPoint point)
{
    if (GetCapture() == this) {
        if (mouseMode == 2 || mouseMode == 3) {
            EndDrag(true);
        } else if (mouseMode == 1 && !(nFlags & (MK_CONTROL | MK_SHIFT))) {
            // A plain click on a card of a multiple selection keeps only that card.
            if (CardFromPoint(point) == focusCard && GetSelectedCount() > 1)
                DeselectOthers(focusCard, TRUE);
        }
        ReleaseCapture();
        mouseMode = 0;
    }
    CWnd::OnLButtonUp(nFlags, point);
}

void CHyCardViewBase::OnLButtonDblClk(UINT nFlags, CPoint point)
{
    const int hit = CardFromPoint(point);
    if ((flags & HYCARD_CHECKBOXES) && hit >= 0) {
        // With check boxes a double click on a card never reaches the host
        // (deliberate); on the check box it is a second press.
        CCardRects rects;
        GetCardRects(hit, rects);
        if (::PtInRect(&rects.rcCheck, point))
            OnLButtonDown(nFlags, point);
        return;
    }
    OnCardLButtonDblClk(hit, point);
    CWnd::OnLButtonDblClk(nFlags, point);
}

void CHyCardViewBase::OnRButtonDown(UINT nFlags, CPoint point)
{
    if (GetFocus() != this) {
        SetFocus();
        RedrawAll();
    }
    const int hit = CardFromPoint(point);
    if (hit >= 0) {
        const int was = focusCard;
        focusCard = hit;
        if (!(nFlags & (MK_CONTROL | MK_SHIFT))) {
            if (!cards[hit].bSelected) {
                DeselectOthers(hit, FALSE);
                SelectCard(hit, TRUE, FALSE);
                RedrawAll();
            } else if (hit != was) {
                RedrawAll();
            }
        }
    }
    OnCardOnRButtonDown(hit, point);
    CWnd::OnRButtonDown(nFlags, point);
}

void CHyCardViewBase::OnSetFocus(CWnd* pOldWnd)
{
    CWnd::OnSetFocus(pOldWnd);
    if (pOldWnd != this)
        RedrawAll();
}

void CHyCardViewBase::OnKillFocus(CWnd* pNewWnd)
{
    CWnd::OnKillFocus(pNewWnd);
    if (pNewWnd != this)
        RedrawAll();
}

// ---- resizing by drag ------------------------------------------------------

BOOL CHyCardViewBase::OnSetCursor(CWnd* pWnd, UINT nHitTest, UINT message)
{
    if (pWnd == this && nHitTest == HTCLIENT && !(flags & HYCARD_NORESIZE)) {
        CPoint point;
        ::GetCursorPos(&point);
        ScreenToClient(&point);
        const int gap = hy::CardGapAt(Grid(), false, point.x, point.y);
        if (gap != hy::kNoGap) {
            ::SetCursor(ResizeCursor(gap));
            return TRUE;
        }
    }
    return CWnd::OnSetCursor(pWnd, nHitTest, message);
}

void CHyCardViewBase::BeginDrag(int gap, CPoint point)
{
    SetCapture();
    const bool width = gap == hy::kWidthGap;
    dragStart = point;
    dragSize = width ? cardWidth : cardHeight;
    mouseMode = width ? 2 : 3;
    HyRect strips[512];
    const HyCardGrid g = Grid();
    const int n = width ? hy::CardWidthStrips(g, dragSize, strips, 512) : hy::CardHeightStrips(g, dragSize, strips, 512);
    dragRects.RemoveAll();
    for (int i = 0; i < std::min(n, 512); ++i) {
        CRect r(ToRect(strips[i]));
        dragRects.Add(r);
    }
    DrawDragFeedback(nullptr, 0, true);
    ::SetCursor(ResizeCursor(gap));
}

void CHyCardViewBase::OnMouseMove(UINT nFlags, CPoint point)
{
    if ((mouseMode == 2 || mouseMode == 3) && GetCapture() == this)
        TrackDrag(point);
    CWnd::OnMouseMove(nFlags, point);
}

void CHyCardViewBase::TrackDrag(CPoint point)
{
    CRect client;
    GetClientRect(&client);
    const bool width = mouseMode == 2;
    int size;
    if (width) {
        const int margin = scrollMax == 0 ? ::GetSystemMetrics(SM_CXVSCROLL) : 5;
        size = hy::CardDragSize(cardWidth, dragStart.x, point.x, client.right, margin, minCardWidth, maxCardWidth);
    } else {
        size = hy::CardDragSize(cardHeight, dragStart.y, point.y, client.bottom, 5, minCardHeight, maxCardHeight);
    }
    if (size == dragSize)
        return;
    HyRect strips[512];
    const HyCardGrid g = Grid();
    const int n = std::min(512, width ? hy::CardWidthStrips(g, size, strips, 512)
                                      : hy::CardHeightStrips(g, size, strips, 512));
    CRect fresh[512];
    for (int i = 0; i < n; ++i)
        fresh[i] = ToRect(strips[i]);
    DrawDragFeedback(fresh, n, false);
    dragRects.RemoveAll();
    for (int i = 0; i < n; ++i)
        dragRects.Add(fresh[i]);
    dragSize = size;
    ::SetCursor(ResizeCursor(width ? hy::kWidthGap : hy::kHeightGap));
}

// Draws pRects as the new feedback over dragRects as the old, so that only
// the difference changes; with `fresh`, dragRects is drawn with nothing old.
void CHyCardViewBase::DrawDragFeedback(const CRect* pRects, int nCount, bool fresh)
{
    if (m_hWnd == nullptr)
        return;
    CClientDC dc(this);
    CBrush gray(RGB(0x80, 0x80, 0x80));
    const CSize thick(3, 3);   // more than half a strip: each strip is filled
    const CRect none(0, 0, 0, 0);
    const int old = (int)dragRects.GetSize();
    if (fresh) {
        for (int i = 0; i < old; ++i)
            dc.DrawDragRect(&dragRects[i], thick, nullptr, thick, &gray, &gray);
        return;
    }
    for (int i = 0; i < std::max(old, nCount); ++i)
        dc.DrawDragRect(i < nCount ? &pRects[i] : &none, thick, i < old ? &dragRects[i] : &none, thick, &gray,
                        &gray);
}

void CHyCardViewBase::EndDrag(bool apply)
{
    DrawDragFeedback(nullptr, 0, false);   // erases the old strips
    dragRects.RemoveAll();
    const bool width = mouseMode == 2;
    mouseMode = 0;
    if (!apply || dragSize == (width ? cardWidth : cardHeight))
        return;
    (width ? cardWidth : cardHeight) = dragSize;
    UpdateViewInfo();
    RedrawAll();
}

void CHyCardViewBase::OnCancelMode()
{
    CWnd::OnCancelMode();
    if (mouseMode == 2 || mouseMode == 3) {
        EndDrag(false);
        if (GetCapture() == this)
            ReleaseCapture();
    }
}
