// Input helpers: real mouse and keyboard messages delivered to a window.
//
// Every helper POSTS its messages and then pumps the queue (PumpMessages), so
// they arrive through the message loop as hardware input does, are seen as
// posted by the recorders, and key-downs are translated into WM_CHAR by the
// loop. Coordinates are client coordinates of the target window. Button and
// key helpers set the thread's key state (SetKeyboardState) so that
// GetKeyState in a handler agrees with the message: the button or key is
// down while its down message is handled and up for its up message.
// GetMessagePos/GetCursorPos are not moved.
#pragma once

#include <windows.h>

namespace hytest {

enum : unsigned
{
    kShift = 0x1,
    kCtrl = 0x2,
};

// Holds Shift/Ctrl down (as GetKeyState sees them) for its lifetime and
// restores the whole keyboard state afterwards.
class Modifiers
{
public:
    explicit Modifiers(unsigned mods);
    ~Modifiers();
    Modifiers(const Modifiers&) = delete;
    Modifiers& operator=(const Modifiers&) = delete;

private:
    BYTE m_saved[256];
};

void MouseMove(HWND hwnd, int x, int y);
void MouseDown(HWND hwnd, int x, int y);   // the left button
void MouseUp(HWND hwnd, int x, int y);   // the left button
// Down then up at the same point.
void Click(HWND hwnd, int x, int y);   // the left button
// Down at one point, one move to another and up there.
void Drag(HWND hwnd, int fromX, int fromY, int toX, int toY);   // the left button
// DOWN, UP, DBLCLK, UP as the system delivers it to a CS_DBLCLKS class;
// DOWN, UP, DOWN, UP to a class without it.
void DoubleClick(HWND hwnd, int x, int y);   // the left button
// WM_MOUSEWHEEL (delta in WHEEL_DELTA units of 120; x, y in client coordinates,
// converted to screen coordinates as the message carries them).
void MouseWheel(HWND hwnd, int x, int y, int delta);

// WM_KEYDOWN with repeat count,
// scan code, extended-key and context bits; the pump translates it, so a
// character key also delivers its WM_CHAR.
// kKeypadEnter: VK_RETURN with the extended-key bit, the numeric keypad's Enter.
constexpr UINT kKeypadEnter = 0x10000 | VK_RETURN;
void KeyDown(HWND hwnd, UINT vk);
void KeyUp(HWND hwnd, UINT vk);
void KeyPress(HWND hwnd, UINT vk);  // down then up
// A WM_CHAR alone (for characters no key produces).
void Char(HWND hwnd, char ch);
// Types text key by key (down, char, up), holding Shift where the character
// needs it.
void Type(HWND hwnd, const char* text);

}  // namespace hytest
