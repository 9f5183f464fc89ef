#include "hytest_input.h"
#include "hytest_messages.h"

#include <cstring>

namespace hytest {

namespace {

void SetKey(UINT vk, bool down)
{
    BYTE state[256];
    GetKeyboardState(state);
    state[vk] = down ? static_cast<BYTE>(state[vk] | 0x80) : static_cast<BYTE>(state[vk] & ~0x80);
    SetKeyboardState(state);
}

bool IsDown(UINT vk) { return (GetKeyState(static_cast<int>(vk)) & 0x8000) != 0; }

void PostAndPump(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam)
{
    PostMessageA(hwnd, msg, wParam, lParam);
    PumpMessages();
}

LPARAM Point(int x, int y)
{
    return MAKELPARAM(static_cast<WORD>(static_cast<short>(x)), static_cast<WORD>(static_cast<short>(y)));
}

bool IsExtended(UINT vk)
{
    switch (vk) {
    case VK_INSERT: case VK_DELETE: case VK_HOME: case VK_END: case VK_PRIOR: case VK_NEXT:
    case VK_LEFT: case VK_RIGHT: case VK_UP: case VK_DOWN:
        return true;
    default:
        return false;
    }
}

LPARAM KeyLParam(UINT vk, bool up, bool wasDown)
{
    const bool keypadEnter = vk == kKeypadEnter;
    vk &= 0xFFFF;
    LPARAM l = 1 | (static_cast<LPARAM>(MapVirtualKeyA(vk, MAPVK_VK_TO_VSC) & 0xFF) << 16);
    if (IsExtended(vk) || keypadEnter)
        l |= LPARAM(1) << 24;
    if (wasDown || up)
        l |= LPARAM(1) << 30;
    if (up)
        l |= LPARAM(1) << 31;
    return l;
}

// MK_* flags matching the current key state.
WPARAM MouseKeyFlags()
{
    WPARAM mk = 0;
    if (IsDown(VK_LBUTTON)) mk |= MK_LBUTTON;
    if (IsDown(VK_SHIFT)) mk |= MK_SHIFT;
    if (IsDown(VK_CONTROL)) mk |= MK_CONTROL;
    return mk;
}

}  // namespace

Modifiers::Modifiers(unsigned mods)
{
    GetKeyboardState(m_saved);
    BYTE state[256];
    std::memcpy(state, m_saved, sizeof state);
    auto press = [&state](UINT generic, UINT left) {
        state[generic] |= 0x80;
        state[left] |= 0x80;
    };
    if (mods & kShift)
        press(VK_SHIFT, VK_LSHIFT);
    if (mods & kCtrl)
        press(VK_CONTROL, VK_LCONTROL);
    SetKeyboardState(state);
}

Modifiers::~Modifiers() { SetKeyboardState(m_saved); }

void MouseMove(HWND hwnd, int x, int y) { PostAndPump(hwnd, WM_MOUSEMOVE, MouseKeyFlags(), Point(x, y)); }

void MouseDown(HWND hwnd, int x, int y)
{
    SetKey(VK_LBUTTON, true);
    PostAndPump(hwnd, WM_LBUTTONDOWN, MouseKeyFlags(), Point(x, y));
}

void MouseUp(HWND hwnd, int x, int y)
{
    SetKey(VK_LBUTTON, false);
    PostAndPump(hwnd, WM_LBUTTONUP, MouseKeyFlags(), Point(x, y));
}

void Click(HWND hwnd, int x, int y)
{
    MouseDown(hwnd, x, y);
    MouseUp(hwnd, x, y);
}

void Drag(HWND hwnd, int fromX, int fromY, int toX, int toY)
{
    MouseDown(hwnd, fromX, fromY);
    MouseMove(hwnd, toX, toY);
    MouseUp(hwnd, toX, toY);
}

void DoubleClick(HWND hwnd, int x, int y)
{
    const bool dblclks = (GetClassLongPtrA(hwnd, GCL_STYLE) & CS_DBLCLKS) != 0;
    Click(hwnd, x, y);
    SetKey(VK_LBUTTON, true);
    PostAndPump(hwnd, dblclks ? WM_LBUTTONDBLCLK : WM_LBUTTONDOWN, MouseKeyFlags(), Point(x, y));
    MouseUp(hwnd, x, y);
}

void MouseWheel(HWND hwnd, int x, int y, int delta)
{
    POINT pt = {x, y};
    ClientToScreen(hwnd, &pt);
    const WPARAM w = MAKEWPARAM(static_cast<WORD>(MouseKeyFlags()), static_cast<WORD>(static_cast<short>(delta)));
    PostAndPump(hwnd, WM_MOUSEWHEEL, w, Point(pt.x, pt.y));
}

void KeyDown(HWND hwnd, UINT vk)
{
    const bool wasDown = IsDown(vk & 0xFFFF);
    SetKey(vk & 0xFFFF, true);
    PostAndPump(hwnd, WM_KEYDOWN, vk & 0xFFFF, KeyLParam(vk, false, wasDown));
}

void KeyUp(HWND hwnd, UINT vk)
{
    SetKey(vk & 0xFFFF, false);
    PostAndPump(hwnd, WM_KEYUP, vk & 0xFFFF, KeyLParam(vk, true, true));
}

void KeyPress(HWND hwnd, UINT vk)
{
    KeyDown(hwnd, vk);
    KeyUp(hwnd, vk);
}

void Char(HWND hwnd, char ch)
{
    PostAndPump(hwnd, WM_CHAR, static_cast<BYTE>(ch), 1);
}

void Type(HWND hwnd, const char* text)
{
    for (const char* p = text; *p; ++p) {
        const SHORT scan = VkKeyScanA(*p);
        const UINT vk = LOBYTE(scan);
        const unsigned shifts = HIBYTE(scan);
        if (scan == -1 || (shifts & ~1u) != 0) {  // no plain or shifted key gives it
            Char(hwnd, *p);
            continue;
        }
        if ((shifts & 1) && !IsDown(VK_SHIFT)) {
            Modifiers shift(kShift);
            KeyPress(hwnd, vk);
        } else {
            KeyPress(hwnd, vk);
        }
    }
}

}  // namespace hytest
