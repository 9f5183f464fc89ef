// Private window messages of the date controls, shared with the host.
#pragma once

// ---- Date picker -----------------------------------------------------------
// Posted to the parent: a day or caption was chosen; HIWORD(wParam) = part code.
#define HYWM_DATEPICKER_CHOSEN          7528    // 0x1D68
// Posted to the notify window: the selection changed; wParam = year,
// LOWORD(lParam) = day, HIWORD(lParam) = month. Withheld outside the year limits.
#define HYWM_DATEPICKER_SELCHANGE       7529    // 0x1D69
// Sent by a drag source to the picker. wParam: CHyDate* (may be NULL) that
// receives the day under the point; lParam: the point in client coordinates
// (MAKELPARAM). Each answers 1 when the point lies on a day, else 0.
#define HYWM_DATEPICKER_DRAGOVER        7536    // 0x1D70 marks the day under the point as the drop target
#define HYWM_DATEPICKER_DRAGEND         7537    // 0x1D71 removes the drop-target mark
#define HYWM_DATEPICKER_DROP            7538    // 0x1D72 removes the mark and reports the day
// Sent to the notify window: the displayed months changed; 0, 0.
#define HYWM_DATEPICKER_MONTHSCHANGED   7540    // 0x1D74
// Sent to the notify window: tooltip text for a day; wParam = const CHyDate*,
// lParam = CString* that the receiver fills (left empty: no tip).
#define HYWM_DATEPICKER_GETTIP          7541    // 0x1D75

// ---- Date field ------------------------------------------------------------
// Sent to the parent before a key-down / key-up, wParam = virtual key. A
// parent that answers the message's own number consumes the key.
#define HYWM_DATEEDIT_KEYDOWN           2574
#define HYWM_DATEEDIT_KEYUP             2575
// Sent to the parent after an invalid entry was replaced by the last valid
// date; lParam = that date's time_t.
#define HYWM_DATEEDIT_RESTORED          1190
