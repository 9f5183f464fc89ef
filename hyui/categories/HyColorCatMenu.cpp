#include "HyColorCatMenu.h"

#include "HyCategoryIds.h"
#include "HyCategoryItemDraw.h"
#include "HyTheme.h"

CHyCategoryData::CHyCategoryData() : checked(0), colour(0xFFFF) {}

CHyCategoryData::CHyCategoryData(const CHyCategoryData& other)
    : checked(other.checked), colour(other.colour), text(other.text)
{
}

CHyCategoryData& CHyCategoryData::operator=(const CHyCategoryData& other)
{
    checked = other.checked;
    colour = other.colour;
    text = other.text;
    return *this;
}

CHyCategoryData::~CHyCategoryData() {}

IMPLEMENT_DYNCREATE(CHyColorCatMenu, CMenu)

CHyColorCatMenu::CHyColorCatMenu() : wantColor(1), spare(0) {}

CHyColorCatMenu::~CHyColorCatMenu()
{
    for (POSITION pos = submenus.GetHeadPosition(); pos != nullptr;)
    {
        CHyColorCatMenu* sub = (CHyColorCatMenu*)submenus.GetNext(pos);
        sub->Detach();   // the handle belongs to the converted menu, which destroys it
        delete sub;
    }
    submenus.RemoveAll();
    for (POSITION pos = records.GetHeadPosition(); pos != nullptr;)
        delete (CHyCategoryData*)records.GetNext(pos);
    records.RemoveAll();
}

void CHyColorCatMenu::ChangeToOwnerDraw(CHyColorCatMenu* menu)
{
    const int count = (int)menu->GetMenuItemCount();
    for (int i = 0; i < count; ++i)
    {
        char text[HYCATMENU_TEXT_MAX + 1] = {};
        menu->GetMenuString((UINT)i, text, HYCATMENU_TEXT_MAX, MF_BYPOSITION);
        // Read before ModifyMenu: the owner-draw change clears the check.
        const UINT state = menu->GetMenuState((UINT)i, MF_BYPOSITION);
        const UINT id = menu->GetMenuItemID(i);
        CHyCategoryData* record = new CHyCategoryData;
        record->text = text;
        // A submenu's id is -1: it maps to no category, so its swatch is the theme's fallback colour (intended).
        record->colour = HYThemeSwatchColor(HYThemeSwatchOfCategory((WORD)(id - HYCATMENU_FIRST_ID)));
        record->checked = (state & MF_CHECKED) != 0 ? 1 : 0;
        records.AddTail(record);
        if (HMENU popup = ::GetSubMenu(menu->m_hMenu, i))
        {
            // MF_POPUP with the same handle keeps the submenu; without it the item would lose (and destroy) it.
            menu->ModifyMenu((UINT)i, HYCATMENU_CONVERT_FLAGS | MF_POPUP, (UINT_PTR)popup, (LPCTSTR)record);
            CHyColorCatMenu* sub = new CHyColorCatMenu;
            submenus.AddTail(sub);
            sub->Attach(popup);
            sub->ChangeToOwnerDraw(sub);
        }
        else
        {
            menu->ModifyMenu((UINT)i, HYCATMENU_CONVERT_FLAGS, id, (LPCTSTR)record);
        }
    }
}

void CHyColorCatMenu::MeasureItem(LPMEASUREITEMSTRUCT lpMIS)
{
    const CHyCategoryData* record = (const CHyCategoryData*)lpMIS->itemData;
    const int chars = record != nullptr ? record->text.GetLength() : 0;
    lpMIS->itemWidth = (UINT)(HYCATMENU_CHAR_WIDTH * chars + HYCATMENU_ITEM_PADDING);
    lpMIS->itemHeight = HYCATMENU_ITEM_HEIGHT;
}

void CHyColorCatMenu::DrawItem(LPDRAWITEMSTRUCT lpDIS)
{
    const CHyCategoryData* record = (const CHyCategoryData*)lpDIS->itemData;
    CDC* pDC = CDC::FromHandle(lpDIS->hDC);
    CDCSaveState saved(*pDC);
    const CRect item = lpDIS->rcItem;
    const COLORREF text = hy::DrawCategoryItemBack(pDC, *lpDIS, COLOR_MENUTEXT, COLOR_MENU);
    if (record == nullptr)
        return;
    if (record->checked)
        DrawCheckMark(pDC, item.left + HYCATMENU_CHECK_INSET, item.top + HYCATMENU_CHECK_INSET, text, FALSE);
    // Deliberately rounds toward minus infinity.
    const int top = item.top + ((item.Height() - HYCAT_SWATCH_HEIGHT) >> 1);
    // Absolute x on purpose: menu items start at x = 0.
    CRect swatch(HYCATMENU_SWATCH_LEFT, top, HYCATMENU_SWATCH_RIGHT, top + HYCAT_SWATCH_HEIGHT);
    if (lpDIS->itemID != (UINT)-1)
        hy::DrawCategoryItemText(pDC, *lpDIS, text, wantColor ? HYCATMENU_TEXT_X : HYCATMENU_TEXT_X_PLAIN,
                                 item.top + HYCATMENU_TEXT_DY, record->text);
    if (wantColor)
        hy::DrawCategorySwatch(pDC, swatch, record->colour);
}

void CHyColorCatMenu::DrawCheckMark(CDC* pDC, int x, int y, COLORREF colour, BOOL thin)
{
    // Rows [a, b) of each of the seven columns.
    static const int kStroke[7][2] = { { 2, 5 }, { 3, 6 }, { 4, 7 }, { 3, 6 }, { 2, 5 }, { 1, 4 }, { 0, 3 } };
    CPen pen(PS_SOLID, 1, colour);
    CPen* old = pDC->SelectObject(&pen);
    const int shorter = thin ? 1 : 0;
    for (int k = 0; k < 7; ++k)
    {
        pDC->MoveTo(x + k, y + kStroke[k][0]);
        pDC->LineTo(x + k, y + kStroke[k][1] - shorter);
    }
    pDC->SelectObject(old);
}

BOOL CHyColorCatMenu::Draw3DCheckmark(CDC* pDC, const CRect& rect, BOOL state, HBITMAP)
{
    COLORREF face = ::GetSysColor(COLOR_BTNFACE);
    if (!state)
        face = HYThemeShiftColor(face, HYCAT_CHECK_LIGHTEN);
    pDC->FillSolidRect(&rect, face);
    CRect edge = rect;
    pDC->DrawEdge(&edge, BDR_SUNKENOUTER, BF_RECT);
    DrawCheckMark(pDC, rect.left + 4, rect.top + 4, ::GetSysColor(COLOR_MENUTEXT), FALSE);
    return TRUE;
}
