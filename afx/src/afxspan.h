// HyAfx private: the %D %H %M %S formatting shared by the two span classes.
#pragma once
#include "afxstr.h"

// %D days, %H %M %S two-digit hours, minutes, seconds, %% a percent sign;
// an unknown code is kept as written.
CString AfxFormatSpan(LPCTSTR pFormat, long days, long hours, long minutes, long seconds);
