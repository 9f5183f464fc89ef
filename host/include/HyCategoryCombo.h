// CCategoryCombo: the host's category drop-down list over a category
// manager. Items carry the category index as item data; two optional items
// come first: 16 "All" (host string 278) and 17 "Edit Categories..." (host
// string 277). Its own drawing is the plain name; derived combos draw more.
#pragma once
#include <afxwin.h>
#include "HyHostExport.h"

class CCategoryMgr;

enum : int
{
    HYCATCOMBO_ALL = 16,       // item data of the "all categories" item (string 278)
    HYCATCOMBO_EDIT = 17,      // item data of the "edit categories" item (string 277)
};

class HYHOST_API CCategoryCombo : public CComboBox
{
    DECLARE_DYNAMIC(CCategoryCombo)
public:
    CCategoryCombo();
    virtual ~CCategoryCombo();

    // Not owned.
    void SetCategoryMgr(CCategoryMgr* pMgr) { m_pCategoryMgr = pMgr; }
    CCategoryMgr* GetCategoryMgr() const { return m_pCategoryMgr; }

    // Empties the list and fills it: the optional items, then every category
    // of the manager in index order (index 0 included), each with its index
    // as item data. The items carry no strings of their own
    // (CBS_OWNERDRAWFIXED without CBS_HASSTRINGS); answers the count.
    int Fill(BOOL bWithAll, BOOL bWithEdit);
    // The position of the item whose data is wIndex, or CB_ERR.
    int FindIndex(DWORD_PTR wIndex) const;
    // The host's text of an item's data: 16 and 17 their strings, otherwise
    // the category's name (empty without a manager or for a free index).
    CString GetItemName(DWORD_PTR dwData) const;

    virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct) override;
    virtual void MeasureItem(LPMEASUREITEMSTRUCT lpMeasureItemStruct) override;

protected:
    CCategoryMgr* m_pCategoryMgr;
};
