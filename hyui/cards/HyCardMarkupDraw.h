// Drawing of the description markup (HyCardMarkup.h) into a rectangle with
// the DC's font and colours: card bodies, and the edit list's service for
// derived classes.
#pragma once

#include <afxwin.h>
#include "HyUIExport.h"

// Lines are read only while there is room below, so the rest of a long
// description costs nothing; tabs stop every `tabStop` average characters.
HYUI_API void HyDrawMarkupText(CDC* pDC, const char* pszText, RECT* pRect, int tabStop);
