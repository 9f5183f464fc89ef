// Painting of the card views: background, cards (shadow, frames, header,
// body), the description markup, the photo box, and the default sample
// card. One paint draws into a memory buffer (the client's size, kept between
// paints), clipped to the part of the client area it was asked for, then
// copies that part to the window; only the cards whose cells meet it are
// drawn, so a paint costs the visible cards.
#include "HyCardView.h"
#include "HyCardGrid.h"
#include "HyCardMarkupDraw.h"
#include "HyTheme.h"
#include "HyUIRes.h"

#include <commctrl.h>

#include <algorithm>
#include <utility>
#include <cstdint>

namespace {

constexpr COLORREF kBlack = RGB(0, 0, 0);
constexpr COLORREF kWhite = RGB(255, 255, 255);

HYThemeStyle Style(int id)
{
    HYThemeStyle style{};
    HYThemeGetStyle(id, &style);
    return style;
}

bool IsGradient(const HYThemeStyle& s)
{
    return s.kind == HYSTYLE_GRADIENT && (s.mode == HYGRADIENT_HORIZONTAL || s.mode == HYGRADIENT_HORIZONTAL_MIRROR);
}

// Black or white: the stock brushes, so that a card's three frames create
// no brush.
void Frame(CDC* pDC, const CRect& r, COLORREF colour)
{
    ::FrameRect(pDC->m_hDC, &r, (HBRUSH)::GetStockObject(colour == kBlack ? BLACK_BRUSH : WHITE_BRUSH));
}

BITMAP Size(CBitmap& b)
{
    BITMAP bm{};
    b.GetBitmap(&bm);
    return bm;
}

// The header icons as image lists with their masks (the transparent colour
// is the top-left pixel), built once a process from the resources and kept,
// like the resize cursors: drawing one is two blits, where making a mask and
// two device contexts at every card cost more than the card's text.
void DrawIcon(CDC* pDC, UINT id, int x, int y)
{
    static std::pair<UINT, HIMAGELIST> lists[3];
    HIMAGELIST list = nullptr;
    for (auto& [key, made] : lists) {
        if (key == 0) {
            const LPCTSTR name = MAKEINTRESOURCE(id);
            const HBITMAP bitmap =
                (HBITMAP)::LoadImage(AfxFindResourceHandle(name, RT_BITMAP), name, IMAGE_BITMAP, 0, 0, 0);
            BITMAP bm{};
            if (bitmap == nullptr || !::GetObject(bitmap, sizeof(bm), &bm))
                return;
            CDC memory;
            memory.CreateCompatibleDC(nullptr);
            const HGDIOBJ old = ::SelectObject(memory.m_hDC, bitmap);
            const COLORREF transparent = memory.GetPixel(0, 0);
            ::SelectObject(memory.m_hDC, old);
            made = ImageList_Create(bm.bmWidth, bm.bmHeight, ILC_COLOR24 | ILC_MASK, 1, 0);
            ImageList_AddMasked(made, bitmap, transparent);   // blackens the copy's transparent pixels
            ::DeleteObject(bitmap);
            key = id;
        }
        if (key == id) {
            list = made;
            break;
        }
    }
    ImageList_Draw(list, 0, pDC->m_hDC, x, y, ILD_TRANSPARENT);
}

}  // namespace

void CHyCardViewBase::GetCardDescription(int nIndex, CCardDesc& desc)
{
    desc.strLabel.Format("Card Number %d", nIndex + 1);
    desc.strDescription = "Purchasing Coordinator\n"
                          "Fernhill Garden Tools\n"
                          "<L>\n"
                          "Work:\t(555) 014-2290\n"
                          "Home:\t(555) 014-7731\n"
                          "Mobile:\t(555) 014-0468\n"
                          "\n"
                          "Unit 7, Millbrook Yard\n"
                          "41 Canal Street\n"
                          "Ashford Vale\n"
                          "AV3 9QT\n"
                          "\n"
                          "The caller should replace this text with a real description in the provided "
                          "virtual member function, GetCardDescription().<W>\n";
    desc.bPrivate = TRUE;
    desc.bMasked = FALSE;
    desc.bNote = TRUE;
    desc.bPhoto = TRUE;
    desc.strCategory = "Personal";
}

void CHyCardViewBase::OnCardLButtonDblClk(int, CPoint) {}
void CHyCardViewBase::OnCardOnRButtonDown(int, CPoint) {}
void CHyCardViewBase::OnCardSelected(int, BOOL) {}
void CHyCardViewBase::OnCardChecked(int, BOOL) {}
void CHyCardViewBase::OnCardReturnKey() {}
void CHyCardViewBase::DrawPhoto(CDC*, int, RECT*) {}

CFont* CHyCardViewBase::GetLabelFont() const
{
    return HYThemeGetFont(HYFONT_CARD_TEXT);
}

BOOL CHyCardViewBase::OnEraseBkgnd(CDC*)
{
    return TRUE;   // the paint covers every pixel: erasing first would flicker
}

void CHyCardViewBase::OnPaint()
{
    paintBuffer.Paint(*this, [this](CDC& dc, const CRect& client) {
        DrawBackground(&dc);
        DrawCards(&dc);
        if (scrollMax != 0)
            dc.FillSolidRect(client.right - 1, 0, 1, client.Height(), kBlack);
    });
}

void CHyCardViewBase::OnDestroy()
{
    paintBuffer.Free();
    CWnd::OnDestroy();
}

void CHyCardViewBase::DrawBackground(CDC* pDC)
{
    CRect client;
    GetClientRect(&client);
    pDC->FillSolidRect(&client, HYThemeGetColor(HYTHEME_VIEW));
}

void CHyCardViewBase::DrawCards(CDC* pDC)
{
    CRect client;
    GetClientRect(&client);
    const int count = GetCardCount();
    if (count == 0) {
        CString text;
        text.LoadString(IDS_CARDS_EMPTY);
        CFont* old = pDC->SelectObject(GetLabelFont());
        pDC->SetBkMode(TRANSPARENT);
        pDC->SetTextColor(Style(HYTHEME_VIEW).text);
        pDC->DrawText(text, &client, DT_CENTER | DT_NOPREFIX);
        pDC->SelectObject(old);
        return;
    }
    if (singleCard != -1) {
        if (singleCard >= 0 && singleCard < count)
            DrawCard(pDC, singleCard);
        return;
    }
    // Only the rows that meet the area being painted: the same pixels as
    // drawing every card, at the cost of the visible ones.
    CRect box;
    if (pDC->GetClipBox(&box) == ERROR || !box.IntersectRect(&box, &client))
        box = client;
    const HyCardGrid g = Grid();
    const int64_t firstRow = g.scrollPos + int64_t(box.top) / g.cardHeight;
    const int64_t lastRow = g.scrollPos + int64_t(box.bottom - 1) / g.cardHeight;
    const int64_t first = std::max<int64_t>(firstRow * g.columns, 0);
    const int64_t last = std::min<int64_t>((lastRow + 1) * g.columns, count) - 1;
    for (int64_t i = first; i <= last; ++i)
        DrawCard(pDC, (int)i);
}

void CHyCardViewBase::DrawCard(CDC* pDC, int nIndex)
{
    CRect cell, client, both;
    GetCardCell(nIndex, &cell);
    GetClientRect(&client);
    if (!both.IntersectRect(&cell, &client))
        return;
    CCardDesc desc;
    GetCardDescription(nIndex, desc);
    CCardRects rects;
    GetCardRects(cell, rects, desc.bPhoto);
    const bool selected = cards[nIndex].bSelected != FALSE;
    const bool focusMark = nIndex == focusCard && GetFocus() == this;

    CRect card(rects.rcCard);
    CRect shadow(card);
    shadow.OffsetRect(2, 2);
    pDC->FillSolidRect(&shadow, HYThemeDarken(HYThemeGetColor(HYTHEME_VIEW)));
    if (focusMark) {
        CRect ring(card);
        ring.InflateRect(1, 1);
        Frame(pDC, ring, kBlack);
    }
    Frame(pDC, card, kBlack);
    card.DeflateRect(1, 1);
    Frame(pDC, card, kWhite);

    const int headerId = selected ? HYTHEME_HEADER_SEL : HYTHEME_HEADER;
    if (desc.bMasked) {
        HYThemeMaskedFill(pDC, &rects.rcHeader, headerId);
        HYThemeMaskedFill(pDC, &rects.rcBody, HYTHEME_BODY);
    } else {
        if (!selected && columns >= 2 && IsGradient(Style(HYTHEME_HEADER)))
            // The gradient runs across the whole row; each card shows its column's stretch.
            HYThemeFillGradientSlice(pDC, &rects.rcHeader, HYTHEME_HEADER, nIndex % columns, columns);
        else
            HYThemeFillStyle(pDC, &rects.rcHeader, headerId);
        HYThemeFillStyle(pDC, &rects.rcBody, HYTHEME_BODY);
    }
    DrawCardDescription(pDC, nIndex);
    if (focusMark) {
        card.DeflateRect(1, 1);
        HYThemeDrawFocusMark(pDC, &card, HYTHEME_FOCUS);
    }
}

void CHyCardViewBase::DrawCardDescription(CDC* pDC, int nIndex)
{
    CCardDesc desc;
    GetCardDescription(nIndex, desc);
    if (desc.bMasked)
        return;
    RECT cell;
    GetCardCell(nIndex, &cell);
    CCardRects rects;
    GetCardRects(CRect(cell), rects, desc.bPhoto);

    CDCSaveState state(*pDC);
    pDC->SetBkMode(TRANSPARENT);
    if (photoView)
        DrawPhotoHeader(pDC, nIndex, desc, rects);
    else
        DrawCardHeader(pDC, nIndex, desc, rects);

    CRect body(rects.rcBody);
    body.DeflateRect(2, 2);
    CDCSaveState clip(*pDC);
    pDC->IntersectClipRect(&body);
    DrawCardBody(pDC, nIndex, &body);
}

void CHyCardViewBase::DrawCardHeader(CDC* pDC, int nIndex, const CCardDesc& desc, const CCardRects& rects)
{
    const HYThemeStyle style = Style(cards[nIndex].bSelected ? HYTHEME_HEADER_SEL : HYTHEME_HEADER);
    const CRect header(rects.rcHeader);
    pDC->SelectObject(HYThemeGetFont(HYFONT_CARD_TITLE));

    // Category at the right end unless it would take more than half the header.
    const int categoryWidth = desc.strCategory.IsEmpty() ? 0 : pDC->GetTextExtent(desc.strCategory).cx;
    const bool showCategory = !desc.strCategory.IsEmpty() && categoryWidth <= header.Width() / 2;
    const CRect category(header.right - categoryWidth - 4, header.top, header.right, header.bottom);
    int right = (showCategory ? category.left : header.right) - 2;

    // Right to left: category, note, padlock.
    const auto iconTop = [&](int height) { return header.top - 1 + (headerHeight - height) / 2; };
    if (desc.bNote) {
        const BITMAP bm = Size(noteBitmap);
        right -= bm.bmWidth;
        DrawIcon(pDC, IDB_NOTE, right, iconTop(bm.bmHeight));
    }
    if (desc.bPrivate) {
        const BITMAP bm = Size(padlockBitmap);
        right -= bm.bmWidth;
        DrawIcon(pDC, IDB_PADLOCK, right, iconTop(bm.bmHeight));
    }
    if (desc.bPhoto) {
        pDC->FillSolidRect(rects.rcPhoto.right, header.top, 1, header.Height(), style.line);
        DrawCardPhoto(pDC, nIndex);
    }

    CRect label(header.left, header.top, right, header.bottom);
    label.DeflateRect(2, 2);
    if (!desc.bPhoto) {
        if (flags & HYCARD_CHECKBOXES)
            label.left = rects.rcCheck.right + 3;
    } else {
        label.left = rects.rcPhoto.right + 5;
        CRect measure(label);
        const int height = pDC->DrawText(desc.strLabel, &measure, DT_CALCRECT | DT_WORDBREAK);
        if (height < label.Height())
            label.OffsetRect(0, (label.Height() - height) / 2 - 1);
    }

    if (flags & HYCARD_CHECKBOXES) {
        // Drawn over the photo box when a card has both, as designed.
        CRect box(rects.rcCheck);
        pDC->Draw3dRect(&box, style.dark, style.light);
        box.DeflateRect(1, 1);
        Frame(pDC, box, kBlack);
        box.DeflateRect(1, 1);
        pDC->FillSolidRect(&box, kWhite);
        if (cards[nIndex].bChecked) {
            const BITMAP bm = Size(checkBitmap);
            DrawIcon(pDC, IDB_CHECK_MARK, box.left + (box.Width() - bm.bmWidth) / 2,
                     box.top + (box.Height() - bm.bmHeight) / 2);
        }
    }
    if (showCategory)
        HYThemeDrawHeaderDecoration(pDC, &category, style.text, style.line);
    pDC->SetTextColor(style.text);
    pDC->DrawText(desc.strLabel, &label,
                  desc.bPhoto ? DT_WORDBREAK | DT_NOPREFIX | DT_END_ELLIPSIS
                              : DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
    pDC->SelectObject(GetLabelFont());
    if (showCategory) {
        CRect area(category);
        pDC->DrawText(desc.strCategory, &area, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
    }
}

void CHyCardViewBase::DrawPhotoHeader(CDC* pDC, int nIndex, const CCardDesc& desc, const CCardRects& rects)
{
    const HYThemeStyle style = Style(cards[nIndex].bSelected ? HYTHEME_HEADER_SEL : HYTHEME_HEADER);
    pDC->SelectObject(GetLabelFont());
    // Icons stacked in a 16-pixel column at the body's left: padlock, then note.
    int y = rects.rcBody.top + 2;
    if (desc.bPrivate) {
        const BITMAP bm = Size(padlockBitmap);
        DrawIcon(pDC, IDB_PADLOCK, rects.rcBody.left + 2 + (16 - bm.bmWidth) / 2, y);
        y += 2 + bm.bmHeight;
    }
    if (desc.bNote) {
        const BITMAP bm = Size(noteBitmap);
        DrawIcon(pDC, IDB_NOTE, rects.rcBody.left + 2 + (16 - bm.bmWidth) / 2, y);
    }
    CRect label(rects.rcHeader);
    label.DeflateRect(2, 2);
    pDC->SetTextColor(style.text);
    pDC->DrawText(desc.strLabel, &label, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
}

void CHyCardViewBase::DrawCardBody(CDC* pDC, int nIndex, RECT* pRect)
{
    CCardDesc desc;
    GetCardDescription(nIndex, desc);
    pDC->SetBkMode(TRANSPARENT);
    if (!photoView) {
        CFont* old = pDC->SelectObject(GetLabelFont());
        pDC->SetTextColor(Style(HYTHEME_BODY).text);
        DrawFormattedText(pDC, desc.strDescription, pRect);
        pDC->SelectObject(old);
        return;
    }
    if (desc.bPhoto) {
        DrawCardPhoto(pDC, nIndex);
        return;
    }
    // No picture: the caption centred in the body.
    CString text;
    text.LoadString(IDS_NO_PHOTO);
    CCardRects rects;
    GetCardRects(nIndex, rects);
    CFont* old = pDC->SelectObject(HYThemeGetFont(HYFONT_PHOTO_CAPTION));
    CRect area(rects.rcBody);
    area.DeflateRect(16, 0);
    CRect measure(area);
    const int height = pDC->DrawText(text, &measure, DT_CALCRECT | DT_WORDBREAK);
    area.top += (area.Height() - height) / 2;
    area.bottom = area.top + height;
    pDC->SetTextColor(Style(cards[nIndex].bSelected ? HYTHEME_HEADER_SEL : HYTHEME_HEADER).text);
    pDC->DrawText(text, &area, DT_CENTER | DT_VCENTER | DT_WORDBREAK | DT_NOPREFIX | DT_END_ELLIPSIS);
    pDC->SelectObject(old);
}

void CHyCardViewBase::DrawFormattedText(CDC* pDC, const char* pszText, RECT* pRect)
{
    HyDrawMarkupText(pDC, pszText, pRect, tabStop);
}

void CHyCardViewBase::DrawCardPhoto(CDC* pDC, int nIndex)
{
    CCardRects rects;
    GetCardRects(nIndex, rects);
    if (!photoView)
        pDC->FillSolidRect(&rects.rcPhoto, HYThemeGetColor(HYTHEME_PHOTO));
    DrawPhoto(pDC, nIndex, &rects.rcPhoto);
}
