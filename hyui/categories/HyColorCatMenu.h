// CHyCategoryData and CHyColorCatMenu: a menu of categories turned
// owner-drawn, each item with its category's colour swatch and, when it was
// checked, a tick. Items are measured and drawn through the framework's
// owner-draw routing of permanent menus. docs/categories.md.
#pragma once

#include <afxwin.h>
#include <afxcoll.h>

#include "HyUIExport.h"

// What an owner-drawn category item shows (the item's data).
class HYUI_API CHyCategoryData
{
public:
    CHyCategoryData();
    CHyCategoryData(const CHyCategoryData& other);
    CHyCategoryData& operator=(const CHyCategoryData& other);
    virtual ~CHyCategoryData();

    int checked;        // 1 when the item was checked at conversion, else 0
    COLORREF colour;    // the swatch; 0xFFFF until set
    CString text;
};

class HYUI_API CHyColorCatMenu : public CMenu
{
    DECLARE_DYNCREATE(CHyColorCatMenu)
public:
    CHyColorCatMenu();
    virtual ~CHyColorCatMenu();

    // Turns every item of `menu` (and, recursively, of its submenus) owner-drawn.
    // The records and the submenus' wrappers are this object's.
    void ChangeToOwnerDraw(CHyColorCatMenu* menu);

    virtual void MeasureItem(LPMEASUREITEMSTRUCT lpMIS) override;
    virtual void DrawItem(LPDRAWITEMSTRUCT lpDIS) override;

    // A tick of seven strokes with its top-left at (x, y); thin strokes are a pixel shorter.
    static void DrawCheckMark(CDC* pDC, int x, int y, COLORREF colour, BOOL thin);
    // A sunken box with a tick; `state` 0 draws a lighter face. The bitmap is not used.
    static BOOL Draw3DCheckmark(CDC* pDC, const CRect& rect, BOOL state, HBITMAP hBitmap);

    void SetWantColorCat(int want) { wantColor = want; }
    int GetWantColorCat() const { return wantColor; }

    int wantColor;   // 0: no swatch, the text further left
    int spare;       // kept 0; nothing reads it
    CPtrList submenus;   // CHyColorCatMenu*, wrappers of the converted menu's submenus
    CPtrList records;    // CHyCategoryData*, the items' data
};
