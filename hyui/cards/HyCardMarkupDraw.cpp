#include "HyCardMarkupDraw.h"
#include "HyCardMarkup.h"
#include "HyTheme.h"

void HyDrawMarkupText(CDC* pDC, const char* pszText, RECT* pRect, int tabStop)
{
    TEXTMETRIC tm{};
    pDC->GetTextMetrics(&tm);
    const int ruleHeight = tm.tmHeight + tm.tmInternalLeading;
    // Only the tab stop's low byte fits the flags.
    const UINT oneLine = DT_SINGLELINE | DT_EXPANDTABS | DT_TABSTOP | ((UINT)(tabStop & 0xFF) << 8);
    HyCardDescriptionReader reader(pszText ? pszText : "");
    HyCardLine line;
    int y = pRect->top;
    while (y < pRect->bottom && reader.Next(line)) {
        CRect area(pRect->left, y, pRect->right, pRect->bottom);
        switch (line.kind) {
        case HyCardLineKind::Rule:
            y += ruleHeight / 2;
            pDC->FillRect(CRect(pRect->left, y, pRect->right, y + 1), HYThemeGetRuleBrush());
            y += 1 + ruleHeight / 2;
            break;
        case HyCardLineKind::Wrapped:
            y += pDC->DrawText(line.text.c_str(), (int)line.text.size(), &area, DT_WORDBREAK | DT_END_ELLIPSIS);
            break;
        default:
            y += pDC->DrawText(line.text.c_str(), (int)line.text.size(), &area, oneLine);
            break;
        }
    }
}
