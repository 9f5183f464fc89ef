#include "HySwatchListBox.h"

#include <cstring>

#include "HyCategoryIds.h"
#include "HyTheme.h"

namespace {

enum : int { kModeSelected = 1, kModeNormal = 2 };

char* CopyText(const char* text)
{
    const size_t n = std::strlen(text) + 1;
    char* copy = new char[n];
    std::memcpy(copy, text, n);
    return copy;
}

}  // namespace

IMPLEMENT_DYNAMIC(CHySwatchListBox, CListBox)

BEGIN_MESSAGE_MAP(CHySwatchListBox, CListBox)
    ON_WM_CREATE()
END_MESSAGE_MAP()

CHySwatchListBox::CHySwatchListBox() : swatches(10) {}

CHySwatchListBox::~CHySwatchListBox() {}

BOOL CHySwatchListBox::PreCreateWindow(CREATESTRUCT& cs)
{
    cs.style |= HYSWATCHLIST_STYLE;
    cs.style &= ~(DWORD)LBS_HASSTRINGS;   // the item data is the text
    return CListBox::PreCreateWindow(cs);
}

int CHySwatchListBox::OnCreate(LPCREATESTRUCT lpCreateStruct)
{
    if (CListBox::OnCreate(lpCreateStruct) == -1)
        return -1;
    ApplyThemeFont();
    return 0;
}

BOOL CHySwatchListBox::AttachToDialogItem(UINT nID, CWnd* pParent)
{
    if (!SubclassDlgItem(nID, pParent))
        return FALSE;
    ApplyThemeFont();
    return TRUE;
}

void CHySwatchListBox::ApplyThemeFont()
{
    SetFont(HYThemeGetFont(HYFONT_STANDARD), TRUE);
    SetItemHeight(0, (UINT)MeasureText(nullptr));
}

int CHySwatchListBox::MeasureText(const char* text)
{
    // Without a text (the measure at creation) a sample with an ascender and a descender.
    if (text == nullptr || *text == 0)
        text = "Ag";
    CClientDC dc(m_hWnd != nullptr ? this : nullptr);
    CFont* font = m_hWnd != nullptr ? GetFont() : nullptr;
    CFont* old = dc.SelectObject(font != nullptr ? font : HYThemeGetFont(HYFONT_STANDARD));
    const int height = dc.GetTextExtent(text, (int)std::strlen(text)).cy;
    dc.SelectObject(old);
    return height;
}

int CHySwatchListBox::AddItem(const char* text, int swatch)
{
    swatches.SetAt(text, (void*)(INT_PTR)swatch);
    // Without LBS_HASSTRINGS the string is the item's data; sorted by CompareItem.
    char* copy = CopyText(text);
    const int position = AddString((LPCTSTR)copy);
    if (position < 0)
        delete[] copy;   // not added: the list holds no pointer to it
    return position;
}

int CHySwatchListBox::DeleteItem(int position)
{
    if (const char* text = GetItemText(position))
        swatches.RemoveKey(text);
    return DeleteString((UINT)position);   // WM_DELETEITEM frees the text
}

const char* CHySwatchListBox::GetItemText(int position) const
{
    if (position < 0 || position >= GetCount())
        return nullptr;
    return (const char*)GetItemDataPtr(position);
}

void CHySwatchListBox::ChangeItemSwatchIndex(int position, int swatch)
{
    if (const char* text = GetItemText(position))
        ChangeItemSwatchIndex(text, swatch);
}

void CHySwatchListBox::ChangeItemSwatchIndex(const char* text, int swatch)
{
    swatches.SetAt(text, (void*)(INT_PTR)swatch);
    if (m_hWnd != nullptr)
        RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
}

int CHySwatchListBox::GetItemSwatchIndex(const char* text) const
{
    void* value = nullptr;
    return swatches.Lookup(text, value) ? (int)(INT_PTR)value : HYSWATCH_NONE;
}

void CHySwatchListBox::MeasureItem(LPMEASUREITEMSTRUCT lpMIS)
{
    lpMIS->itemHeight = (UINT)MeasureText((const char*)lpMIS->itemData);
}

int CHySwatchListBox::CompareItem(LPCOMPAREITEMSTRUCT lpCIS)
{
    const char* a = (const char*)lpCIS->itemData1;
    const char* b = (const char*)lpCIS->itemData2;
    const int r = ::CompareStringA(LOCALE_SYSTEM_DEFAULT, SORT_STRINGSORT, a ? a : "", -1, b ? b : "", -1);
    return r - CSTR_EQUAL;
}

void CHySwatchListBox::DeleteItem(LPDELETEITEMSTRUCT lpDIS)
{
    delete[] (char*)lpDIS->itemData;
}

LRESULT CHySwatchListBox::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    // A parent outside the framework never passes WM_DELETEITEM back: the
    // texts still held are freed here, and the list's own deletes see null.
    if (message == WM_DESTROY)
        FreeAllTexts();
    return CListBox::WindowProc(message, wParam, lParam);
}

void CHySwatchListBox::FreeAllTexts()
{
    const int count = GetCount();
    for (int i = 0; i < count; ++i)
    {
        delete[] (char*)GetItemDataPtr(i);
        SetItemDataPtr(i, nullptr);
    }
}

void CHySwatchListBox::DrawItem(LPDRAWITEMSTRUCT lpDIS)
{
    if (lpDIS->itemID == (UINT)-1)
    {
        HandleFocusState(lpDIS);   // an empty list: the focus mark alone
        return;
    }
    if ((lpDIS->itemAction & ODA_DRAWENTIRE) != 0)
        DrawEntireItem(lpDIS);
    else if ((lpDIS->itemAction & ODA_SELECT) != 0)
        HandleSelectionState(lpDIS);
    else if ((lpDIS->itemAction & ODA_FOCUS) != 0)
        HandleFocusState(lpDIS);
}

void CHySwatchListBox::DrawEntireItem(LPDRAWITEMSTRUCT lpDIS)
{
    DrawString(lpDIS, (lpDIS->itemState & ODS_SELECTED) != 0 ? kModeSelected : kModeNormal);
    if ((lpDIS->itemState & ODS_FOCUS) != 0)
        HandleFocusState(lpDIS);
}

void CHySwatchListBox::HandleSelectionState(LPDRAWITEMSTRUCT lpDIS)
{
    DrawEntireItem(lpDIS);
}

void CHySwatchListBox::HandleFocusState(LPDRAWITEMSTRUCT lpDIS)
{
    CDC::FromHandle(lpDIS->hDC)->DrawFocusRect(&lpDIS->rcItem);
}

void CHySwatchListBox::DrawString(LPDRAWITEMSTRUCT lpDIS, int mode)
{
    CDC* pDC = CDC::FromHandle(lpDIS->hDC);
    // Mode 2 sets no text colour: without the restore a selected row's would carry over.
    CDCSaveState saved(*pDC);
    const CRect item = lpDIS->rcItem;
    if (mode == kModeSelected)
    {
        pDC->SetTextColor(::GetSysColor(COLOR_HIGHLIGHTTEXT));
        pDC->FillSolidRect(&item, ::GetSysColor(COLOR_HIGHLIGHT));
    }
    else
    {
        pDC->FillSolidRect(&item, ::GetSysColor(COLOR_WINDOW));
    }
    const char* text = (const char*)lpDIS->itemData;
    if (text == nullptr)
        return;
    const int top = item.top + (item.Height() - HYCAT_SWATCH_HEIGHT) / 2;
    CRect swatch(item.left + HYSWATCHLIST_SWATCH_DX, top, item.left + HYSWATCHLIST_SWATCH_DX + HYSWATCHLIST_SWATCH_WIDTH,
                 top + HYCAT_SWATCH_HEIGHT);
    const COLORREF colour = HYThemeSwatchColor(GetItemSwatchIndex(text));
    const int right = swatch.right;
    pDC->FrameRect(&swatch, CBrush::FromHandle((HBRUSH)::GetStockObject(BLACK_BRUSH)));
    swatch.DeflateRect(1, 1);
    pDC->Draw3dRect(&swatch, HYThemeShiftColor(colour, HYCAT_EDGE_SHIFT), HYThemeShiftColor(colour, -HYCAT_EDGE_SHIFT));
    swatch.DeflateRect(1, 1);
    pDC->FillSolidRect(&swatch, colour);
    CRect textRect(right + HYSWATCHLIST_SWATCH_DX, item.top, item.right, item.bottom);
    pDC->SetBkMode(TRANSPARENT);
    pDC->DrawText(text, (int)std::strlen(text), &textRect, HYSWATCHLIST_TEXT_FLAGS);
}
