// Scroll information given to a window's vertical bar without letting the
// bar draw itself at once: Wine's redraw of a scroll bar costs more than a
// paint of a whole control. The bar is invalidated, to be drawn with the
// next paint, only when its look changed.
#pragma once

#include <windows.h>

// Sets `si` on hwnd's vertical bar. The bar is invalidated when its thumb
// moved by a pixel, it appeared, went or changed state, or `endChanged` (the
// position reached or left an end, which changes the arrows); when the bar
// cannot be read, the whole window, frame included, is.
void HySetScrollInfoQuietly(HWND hwnd, const SCROLLINFO& si, bool endChanged);
