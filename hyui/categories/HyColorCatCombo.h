// CHyColorCatCombo: the host's category drop-down list, each category drawn
// with its colour swatch. docs/categories.md.
#pragma once

#include <afxwin.h>

#include "HyCategoryCombo.h"
#include "HyUIExport.h"

class HYUI_API CHyColorCatCombo : public CCategoryCombo
{
    DECLARE_DYNAMIC(CHyColorCatCombo)
public:
    explicit CHyColorCatCombo(int wantColour = 1);

    virtual void DrawItem(LPDRAWITEMSTRUCT lpDIS) override;

    void SetWantColorCat(int want) { wantColor = want; }
    int GetWantColorCat() const { return wantColor; }

    int wantColor;   // 0: no swatch, the text further left

protected:
    DECLARE_MESSAGE_MAP()
};
