// Private to the date picker's sources (HyDatePicker.cpp, HyDatePickerInput.cpp,
// HyDatePickerPaint.cpp): conversions and ids they share.
#pragma once

#include <afxwin.h>
#include "HyPickerLayout.h"

namespace hydp {

constexpr UINT_PTR kRolloverTimer = 1;

inline CRect ToCRect(const HyRect& r)
{
    return CRect(r.left, r.top, r.right, r.bottom);
}

inline HyRect ToHyRect(const RECT& r)
{
    return HyRect{r.left, r.top, r.right, r.bottom};
}

}  // namespace hydp
