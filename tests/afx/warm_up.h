// Standard controls create their class's shared GDI objects on first use;
// object guards of suites that use them compare after this warm-up.
#pragma once
#include <windows.h>

inline void WarmUpStandardControls()
{
    for (const char* cls : { "EDIT", "BUTTON", "STATIC" })
    {
        HWND h = ::CreateWindowExA(0, cls, "w", WS_POPUP | WS_VISIBLE, 0, 0, 40, 20, nullptr, nullptr, nullptr, nullptr);
        ::SendMessageA(h, WM_CHAR, 'w', 1);
        ::SendMessageA(h, BM_CLICK, 0, 0);
        ::UpdateWindow(h);
        ::DestroyWindow(h);
    }
}
