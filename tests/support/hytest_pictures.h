// Pictures made in memory for the suites that link HyUI: BMP files of any
// size and depth whose pixel (x, y) has a known colour, the same as JPEG,
// and as a CxImage (one colour, SampleColour(0, 0), with `block` larger
// than the picture).
#pragma once

#include "HyImageHelpers.h"

#include <string>

// Pixel (x, y): a diagonal pattern of eight colours in blocks of `block` pixels.
inline int SampleIndex(int x, int y, int block) { return (x / block + y / block) % 8; }
inline COLORREF SampleColour(int x, int y, int block = 4)
{
    static const COLORREF kColours[8] = { RGB(200, 30, 30), RGB(30, 160, 40), RGB(40, 60, 210), RGB(240, 200, 40),
                                          RGB(20, 20, 20), RGB(250, 250, 250), RGB(130, 40, 160), RGB(30, 170, 170) };
    return kColours[SampleIndex(x, y, block)];
}

// A BMP file, bottom-up; bpp 24, or 8 or 4 with the eight colours as palette.
inline std::string SampleBmp(int w, int h, int bpp = 24, int block = 4)
{
    const int stride = ((w * bpp + 31) / 32) * 4, colours = bpp == 24 ? 0 : 1 << bpp;
    const BITMAPFILEHEADER file{ 0x4D42, DWORD(14 + 40 + colours * 4 + stride * h), 0, 0, DWORD(14 + 40 + colours * 4) };
    const BITMAPINFOHEADER info{ sizeof info, w, h, 1, (WORD)bpp, BI_RGB };
    std::string out = std::string((const char*)&file, sizeof file) + std::string((const char*)&info, sizeof info);
    for (int i = 0; i < colours; ++i)
        out += { (char)GetBValue(SampleColour(i * 4, 0)), (char)GetGValue(SampleColour(i * 4, 0)),
                 (char)GetRValue(SampleColour(i * 4, 0)), 0 };
    for (int y = h - 1; y >= 0; --y)
    {
        std::string row(stride, '\0');
        for (int x = 0; x < w; ++x)
            if (bpp == 24)
                for (int c = 0; c < 3; ++c)
                    row[x * 3 + c] = (char)(SampleColour(x, y, block) >> (16 - 8 * c));   // blue, green, red
            else
                row[x * bpp / 8] |= (char)(SampleIndex(x, y, block) << (8 - bpp - x * bpp % 8));
        out += row;
    }
    return out;
}

inline std::string SampleJpeg(int w, int h)
{
    const std::string bmp = SampleBmp(w, h);
    CxImage image((BYTE*)bmp.data(), (DWORD)bmp.size(), CxImage::FORMAT_BMP);
    BYTE* bytes = nullptr;
    long size = 0;
    HyEncodeJPEG(&image, bytes, size);
    const std::string out((const char*)bytes, size);
    HyFreeEncodedImage(bytes);
    return out;
}

inline CxImage SampleImage(int w, int h, int block = 1 << 20)
{
    const std::string bmp = SampleBmp(w, h, 24, block);
    return CxImage((BYTE*)bmp.data(), (DWORD)bmp.size(), CxImage::FORMAT_BMP);
}
