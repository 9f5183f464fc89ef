#include "GalleryPictures.h"

#include <string>
#include <vector>

#include "CxImage.h"

namespace {

struct Shape
{
    int width, height, bpp;
};

Shape ShapeOf(GalleryPicture which)
{
    switch (which)
    {
    case GalleryPicture::Landscape: return { 240, 120, 24 };
    case GalleryPicture::Portrait: return { 90, 180, 24 };
    case GalleryPicture::Small: return { 32, 24, 24 };
    default: return { 120, 80, 8 };
    }
}

void Fill(CDC& dc, int l, int t, int r, int b, COLORREF c) { dc.FillSolidRect(l, t, r - l, b - t, c); }

void Ellipse(CDC& dc, int l, int t, int r, int b, COLORREF c)
{
    CBrush brush(c);
    CPen pen(PS_SOLID, 1, c);
    CDCSelect b1(dc, &brush), p1(dc, &pen);
    dc.Ellipse(l, t, r, b);
}

void Paint(CDC& dc, GalleryPicture which, int w, int h)
{
    switch (which)
    {
    case GalleryPicture::Landscape:
        for (int y = 0; y < h; ++y)   // the sky darkens upward
            Fill(dc, 0, y, w, y + 1, RGB(90 + y, 150 + y / 2, 230));
        Ellipse(dc, 170, 18, 206, 54, RGB(250, 210, 80));
        Ellipse(dc, -60, 70, 150, 190, RGB(70, 140, 70));
        Ellipse(dc, 90, 80, 320, 200, RGB(50, 115, 60));
        break;
    case GalleryPicture::Portrait:
        Fill(dc, 0, 0, w, h, RGB(220, 226, 236));
        Ellipse(dc, 5, 110, 85, 230, RGB(70, 90, 140));   // shoulders
        Ellipse(dc, 24, 40, 66, 92, RGB(224, 180, 150));   // head
        Ellipse(dc, 22, 34, 68, 62, RGB(90, 60, 40));      // hair
        break;
    case GalleryPicture::Small:
        Fill(dc, 0, 0, w, h, RGB(40, 60, 110));
        Ellipse(dc, 8, 4, 24, 20, RGB(240, 190, 60));
        break;
    case GalleryPicture::Palette:   // four tiles and a ring, all palette colours
        Fill(dc, 0, 0, w / 2, h / 2, RGB(0, 128, 128));
        Fill(dc, w / 2, 0, w, h / 2, RGB(255, 255, 0));
        Fill(dc, 0, h / 2, w / 2, h, RGB(128, 0, 128));
        Fill(dc, w / 2, h / 2, w, h, RGB(192, 192, 192));
        Ellipse(dc, w / 2 - 30, h / 2 - 30, w / 2 + 30, h / 2 + 30, RGB(255, 255, 255));
        Ellipse(dc, w / 2 - 16, h / 2 - 16, w / 2 + 16, h / 2 + 16, RGB(0, 0, 128));
        break;
    }
}

}  // namespace

std::unique_ptr<CxImage> GalleryMakePicture(GalleryPicture which)
{
    const Shape shape = ShapeOf(which);
    const int colours = shape.bpp == 8 ? 16 : 0;
    // The header, a 16-colour palette for the 8-bit picture, then the pixels
    // GDI draws into the DIB section.
    std::vector<BYTE> info(sizeof(BITMAPINFOHEADER) + colours * sizeof(RGBQUAD));
    BITMAPINFOHEADER& header = *(BITMAPINFOHEADER*)info.data();
    header = BITMAPINFOHEADER{ sizeof header, shape.width, shape.height, 1, (WORD)shape.bpp, BI_RGB };
    header.biClrUsed = colours;
    static const COLORREF kVga[16] = { RGB(0, 0, 0), RGB(128, 0, 0), RGB(0, 128, 0), RGB(128, 128, 0),
                                       RGB(0, 0, 128), RGB(128, 0, 128), RGB(0, 128, 128), RGB(192, 192, 192),
                                       RGB(128, 128, 128), RGB(192, 0, 0), RGB(0, 255, 0), RGB(255, 255, 0),
                                       RGB(0, 0, 255), RGB(255, 0, 255), RGB(0, 255, 255), RGB(255, 255, 255) };
    RGBQUAD* palette = (RGBQUAD*)(info.data() + sizeof header);
    for (int i = 0; i < colours; ++i)
        palette[i] = RGBQUAD{ GetBValue(kVga[i]), GetGValue(kVga[i]), GetRValue(kVga[i]), 0 };
    void* bits = nullptr;
    HBITMAP dib = ::CreateDIBSection(nullptr, (BITMAPINFO*)info.data(), DIB_RGB_COLORS, &bits, nullptr, 0);
    if (dib == nullptr)
        return std::make_unique<CxImage>();
    {
        CDC dc;
        dc.CreateCompatibleDC(nullptr);
        CDCSelect select(dc, CBitmap::FromHandle(dib));
        Paint(dc, which, shape.width, shape.height);
    }
    const int stride = ((shape.width * shape.bpp + 31) / 32) * 4;
    BITMAPFILEHEADER file{};
    file.bfType = 0x4D42;
    file.bfOffBits = (DWORD)(sizeof file + info.size());
    file.bfSize = file.bfOffBits + stride * shape.height;
    std::string bytes((const char*)&file, sizeof file);
    bytes.append((const char*)info.data(), info.size());
    bytes.append((const char*)bits, (size_t)stride * shape.height);
    ::DeleteObject(dib);
    return std::make_unique<CxImage>((BYTE*)bytes.data(), (DWORD)bytes.size(), (DWORD)CxImage::FORMAT_BMP);
}
