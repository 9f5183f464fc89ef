// CHySwatchListBox: a sorted owner-drawn list of names, each with a colour
// swatch. Items carry their text as item data (no LBS_HASSTRINGS): the list
// owns a heap copy of each text and frees it when the item goes. Sorting is
// by string sort (hyphens and apostrophes count). docs/categories.md.
#pragma once

#include <afxwin.h>
#include <afxcoll.h>

#include "HyUIExport.h"

class HYUI_API CHySwatchListBox : public CListBox
{
    DECLARE_DYNAMIC(CHySwatchListBox)
public:
    CHySwatchListBox();
    virtual ~CHySwatchListBox();

    virtual BOOL PreCreateWindow(CREATESTRUCT& cs) override;
    // For a list made by a dialog template: subclasses the control and gives
    // it what creation would have (font 1, the item height measured in it).
    BOOL AttachToDialogItem(UINT nID, CWnd* pParent);
    // Font 1 and the item height it needs.
    void ApplyThemeFont();

    // Adds a copy of the text in sorted place with its swatch; answers the position.
    int AddItem(const char* text, int swatch);
    // Forgets the item's swatch, then removes it.
    int DeleteItem(int position);
    void ChangeItemSwatchIndex(int position, int swatch);
    void ChangeItemSwatchIndex(const char* text, int swatch);
    // The swatch of a text; HYSWATCH_NONE (0) for a text it does not hold.
    int GetItemSwatchIndex(const char* text) const;
    // The text of an item (its data), or NULL.
    const char* GetItemText(int position) const;

    virtual void DrawItem(LPDRAWITEMSTRUCT lpDIS) override;
    virtual void MeasureItem(LPMEASUREITEMSTRUCT lpMIS) override;
    virtual int CompareItem(LPCOMPAREITEMSTRUCT lpCIS) override;
    virtual void DeleteItem(LPDELETEITEMSTRUCT lpDIS) override;

    void DrawEntireItem(LPDRAWITEMSTRUCT lpDIS);
    void HandleSelectionState(LPDRAWITEMSTRUCT lpDIS);
    void HandleFocusState(LPDRAWITEMSTRUCT lpDIS);
    // mode 1: selected, mode 2: normal.
    void DrawString(LPDRAWITEMSTRUCT lpDIS, int mode);

    CMapStringToPtr swatches;   // text -> swatch index

protected:
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    DECLARE_MESSAGE_MAP()

private:
    int MeasureText(const char* text);
    void FreeAllTexts();
};
