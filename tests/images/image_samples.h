// Pictures made in memory for the image tests: BMP files of any size and
// depth whose pixel (x, y) has a known colour.
#pragma once

#include <windows.h>

#include <string>

// The colour of pixel (x, y) in every sample: a diagonal pattern of eight
// colours in blocks of `block` pixels.
inline COLORREF SampleColour(int x, int y, int block = 4)
{
    static const COLORREF kColours[8] = { RGB(200, 30, 30), RGB(30, 160, 40), RGB(40, 60, 210), RGB(240, 200, 40),
                                          RGB(20, 20, 20), RGB(250, 250, 250), RGB(130, 40, 160), RGB(30, 170, 170) };
    return kColours[((x / block) + (y / block)) % 8];
}

// A BMP file, bottom-up; bpp 24, or 8 or 4 with the eight colours as palette.
inline std::string SampleBmp(int w, int h, int bpp = 24, int block = 4)
{
    const int stride = ((w * bpp + 31) / 32) * 4, colours = bpp == 24 ? 0 : 1 << bpp;
    BITMAPFILEHEADER file{};
    BITMAPINFOHEADER info{ sizeof info, w, h, 1, (WORD)bpp, BI_RGB };
    file.bfType = 0x4D42;
    file.bfOffBits = sizeof file + sizeof info + colours * 4;
    file.bfSize = file.bfOffBits + stride * h;
    std::string out((const char*)&file, sizeof file);
    out.append((const char*)&info, sizeof info);
    for (int i = 0; i < colours; ++i)
    {
        const COLORREF c = SampleColour(i * block, 0, block);
        out += { (char)GetBValue(c), (char)GetGValue(c), (char)GetRValue(c), 0 };
    }
    for (int y = h - 1; y >= 0; --y)
    {
        std::string row(stride, '\0');
        for (int x = 0; x < w; ++x)
        {
            const COLORREF c = SampleColour(x, y, block);
            const int index = ((x / block) + (y / block)) % 8;
            if (bpp == 24)
                row[x * 3] = (char)GetBValue(c), row[x * 3 + 1] = (char)GetGValue(c), row[x * 3 + 2] = (char)GetRValue(c);
            else if (bpp == 8)
                row[x] = (char)index;
            else
                row[x / 2] |= (char)(x % 2 ? index : index << 4);
        }
        out += row;
    }
    return out;
}
