// The intl service of HyHost.dll: text conversions by the user's locale.
#pragma once

#include <afx.h>
#include "HyHostExport.h"

// The text with half-width characters made full-width and katakana made
// hiragana (a reading as a person would write it); empty when it cannot be
// converted.
HYHOST_API CString ToFullwidthAndHira(LPCTSTR lpszText);
