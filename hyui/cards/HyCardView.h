// Card views: CHyCardView shows one card per host record in a grid scrolled
// a row at a time (a header with label, category and icons over a body with
// the description markup); CHyPhotoView shows smaller cards with a photo and
// a label strip at the bottom. Both keep no text: the host derives, answers
// GetCardDescription for each card on every paint and hit test, and learns of
// the user's actions only through the hooks below. Neither sends a message
// to its parent. Grid arithmetic: HyCardGrid.h; markup: HyCardMarkup.h;
// decisions: docs/cards.md.
#pragma once

#include <afxwin.h>
#include <afxtempl.h>
#include <commctrl.h>
#include <cstddef>
#include <vector>
#include "HyPaintBuffer.h"
#include "HyUIExport.h"

struct HyCardGrid;
struct HyCardRects;

// One card: selection, check mark, insertion serial and the host's data,
// which the view never dereferences or frees.
struct CCard
{
    BOOL bSelected = FALSE;
    BOOL bChecked = FALSE;
    int nSerial = -1;
    void* pData = nullptr;
};
static_assert(sizeof(void*) != 8 || (sizeof(CCard) == 24 && offsetof(CCard, pData) == 16));

// What the host tells about one card, filled on demand.
class CCardDesc
{
public:
    CString strLabel;
    CString strDescription;   // the markup of HyCardMarkup.h
    CString strCategory;
    BOOL bPrivate = FALSE;    // padlock icon
    BOOL bMasked = FALSE;     // hidden contents: fills only
    BOOL bNote = FALSE;       // note icon
    BOOL bPhoto = FALSE;      // photo box, 32-pixel header, two-line label
};

// The rectangles of one card, client coordinates.
struct CCardRects
{
    RECT rcCell, rcCard, rcHeader, rcPhoto, rcCheck, rcBody;
};

// The photo view works on the same records.
typedef CCard CPhotoCard;
typedef CCardDesc CPhotoCardDesc;
typedef CCardRects CPhotoCardRects;

// Flags (SetFlags).
enum : int
{
    HYCARD_CHECKBOXES = 0x1,   // cards show check boxes
    HYCARD_NORESIZE = 0x2,     // resizing by dragging the gaps is off
};

// Behaviour shared by both views; the photo view differs only in its sizes,
// its card geometry, its header and body drawing and its largest card.
class HYUI_API CHyCardViewBase : public CWnd
{
    DECLARE_DYNAMIC(CHyCardViewBase)
public:
    virtual ~CHyCardViewBase();

    // ---- the hooks, in this order ----
    virtual void GetCardDescription(int nIndex, CCardDesc& desc);
    virtual void OnCardLButtonDblClk(int nIndex, CPoint pt);
    virtual void OnCardOnRButtonDown(int nIndex, CPoint pt);
    virtual void OnCardSelected(int nIndex, BOOL bSelected);
    virtual void OnCardChecked(int nIndex, BOOL bChecked);
    virtual void OnCardReturnKey();
    virtual void DrawCardBody(CDC* pDC, int nIndex, RECT* pRect);
    virtual void DrawPhoto(CDC* pDC, int nIndex, RECT* pRect);

    virtual BOOL PreCreateWindow(CREATESTRUCT& cs) override;
    virtual BOOL PreTranslateMessage(MSG* pMsg) override;

    // ---- size and settings ----
    void SetCardSize(int cx, int cy, BOOL bRedraw);
    void GetCardSize(int* pcx, int* pcy) const;
    void SetMinCardSize(int cx, int cy) { minCardWidth = cx; minCardHeight = cy; }
    void GetMinCardSize(int* pcx, int* pcy) const;
    void SetTabStop(int n) { tabStop = n; }
    int GetTabStop() const { return tabStop; }
    void SetHeaderHeight(int n) { headerHeight = n; }
    int GetHeaderHeight() const { return headerHeight; }
    void SetFlags(int n) { flags = n; }
    int GetFlags() const { return flags; }
    int GetFocusCardIndex() const { return focusCard; }
    CFont* GetLabelFont() const;

    // ---- the cards ----
    int AddCard(void* pData, BOOL bRedraw);
    void InsertCard(int nIndex, void* pData, BOOL bRedraw);
    void DeleteCard(int nIndex, BOOL bRedraw);
    void DeleteAllCards(BOOL bRedraw);
    // Valid until the collection changes. Select with SelectCard: writing
    // bSelected here bypasses the view's record of the selection.
    CCard* GetCard(int nIndex);
    int GetCardCount() const { return (int)cards.GetSize(); }
    void SetCardData(int nIndex, void* pData);
    void* GetCardData(int nIndex) const;
    int FindCardIndexByData(void* pData) const;
    int FindCardIndex(CCard* pCard) const;

    // ---- selection and check marks ----
    void SelectCard(int nIndex, BOOL bSelect, BOOL bRedraw);
    void SelectAllCards(BOOL bSelect, BOOL bRedraw);
    BOOL IsCardSelected(int nIndex) const;
    void SelectAndScrollCard(int nIndex, BOOL bSelect);
    void CheckCard(int nIndex, BOOL bCheck, BOOL bRedraw);
    void CheckAllCards(BOOL bCheck, BOOL bRedraw);
    BOOL IsCardChecked(int nIndex) const;
    int GetSelectedCount() const { return (int)selected.size(); }
    int GetFirstSelectedCardIndex() const { return selected.empty() ? -1 : selected.front(); }
    POSITION GetFirstSelectedCardPosition() const;
    int GetNextSelectedCardIndex(POSITION& pos) const;
    BOOL EnsureVisible(int nIndex);
    void Update(int nIndex);
    // Sorts with a list-control comparison of the cards' data; not stable.
    // The focus, selection and check marks stay with their cards. Answers 1.
    BOOL SortItems(PFNLVCOMPARE pfnCompare, DWORD_PTR lParamSort);

    // Invalidate, erase and update now, the whole client area.
    void RedrawAll();

protected:
    explicit CHyCardViewBase(bool photoView);

    // ---- geometry ----
    void GetCardCell(int nIndex, RECT* pRect) const;
    void GetCardRects(int nIndex, CCardRects& rects);
    void GetCardRects(CRect rcCell, CCardRects& rects, BOOL bPhoto);
    void UpdateViewInfo();
    HyCardGrid Grid() const;
    int CardFromPoint(CPoint point) const;

    // ---- painting (HyCardViewPaint.cpp) ----
    void DrawBackground(CDC* pDC);
    void DrawCards(CDC* pDC);
    void DrawCard(CDC* pDC, int nIndex);
    void DrawCardDescription(CDC* pDC, int nIndex);
    void DrawFormattedText(CDC* pDC, const char* pszText, RECT* pRect);
    void DrawCardPhoto(CDC* pDC, int nIndex);
    void DrawCardHeader(CDC* pDC, int nIndex, const CCardDesc& desc, const CCardRects& rects);
    void DrawPhotoHeader(CDC* pDC, int nIndex, const CCardDesc& desc, const CCardRects& rects);

    // ---- interaction ----
    void ScrollTo(int nRow);
    void DeselectOthers(int nKeep, BOOL bRedraw);
    void SelectBlock(int nIndex);
    void MoveFocusByArrow(UINT nChar);
    void TakeFocusFor(int nIndex);
    void BeginDrag(int gap, CPoint point);
    void TrackDrag(CPoint point);
    void EndDrag(bool apply);
    void DrawDragFeedback(const CRect* pRects, int nCount, bool fresh);
    void SetSelectedState(int nIndex, BOOL bSelect);

    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    afx_msg void OnSize(UINT nType, int cx, int cy);
    afx_msg void OnDestroy();
    afx_msg void OnPaint();
    afx_msg BOOL OnEraseBkgnd(CDC* pDC);
    afx_msg void OnSysColorChange();
    afx_msg UINT OnGetDlgCode();
    afx_msg void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg BOOL OnMouseWheel(UINT nFlags, short zDelta, CPoint pt);
    afx_msg void OnVScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar);
    afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnLButtonUp(UINT nFlags, CPoint point);
    afx_msg void OnLButtonDblClk(UINT nFlags, CPoint point);
    afx_msg void OnRButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnMouseMove(UINT nFlags, CPoint point);
    afx_msg BOOL OnSetCursor(CWnd* pWnd, UINT nHitTest, UINT message);
    afx_msg void OnSetFocus(CWnd* pOldWnd);
    afx_msg void OnKillFocus(CWnd* pNewWnd);
    afx_msg void OnCancelMode();
    DECLARE_MESSAGE_MAP()

public:
    // ---- state, in this order ----
    int cardWidth;
    int cardHeight;
    int minCardWidth;
    int minCardHeight;
    int maxCardWidth;    // photo view only; 0 in the card view: no largest size
    int maxCardHeight;
    int columns;
    int visibleRows;
    int singleCard;      // when not -1, DrawCards draws only this card
    int focusCard;
    int tabStop;
    int headerHeight;
    int mouseMode;       // 0 idle, 1 pressed on a card, 2 width drag, 3 height drag
    CPoint dragStart;
    int dragSize;
    CBitmap padlockBitmap;
    CBitmap checkBitmap;
    CBitmap noteBitmap;
    int cardCounter;
    int flags;
    CArray<CRect, CRect&> dragRects;
    CArray<CCard, CCard&> cards;

private:
    const bool photoView;
    int scrollMax = 0;
    std::vector<int> selected;   // the selected indexes, ascending
    HyPaintBuffer paintBuffer;   // kept between paints, freed on a size change
};

class HYUI_API CHyCardView : public CHyCardViewBase
{
    DECLARE_DYNAMIC(CHyCardView)
public:
    CHyCardView();
};

class HYUI_API CHyPhotoView : public CHyCardViewBase
{
    DECLARE_DYNAMIC(CHyPhotoView)
public:
    CHyPhotoView();
};

// 1, after a small informational dialog, when the text is the library's
// hidden key; else 0 and nothing shown.
extern "C" HYUI_API int HyIsSpecialDescription(const char* pszDescription);
