// A rectangle of the platform-free layout code: left and top inside, right
// and bottom outside, as a RECT. Platform-free; the window classes convert.
#pragma once

struct HyRect
{
    int left, top, right, bottom;

    int Width() const { return right - left; }
    int Height() const { return bottom - top; }
    bool Contains(int x, int y) const { return x >= left && x < right && y >= top && y < bottom; }
    bool IsEmpty() const { return right <= left || bottom <= top; }
};
