// CxImage: a picture held as our own pixels (1, 4 or 8 bits with a palette,
// 8-bit grey, or 24-bit BGR), decoded from memory by the Windows Imaging
// Component at construction and drawn with StretchDIBits. Every WIC object
// is released before a call returns; nothing of COM is kept.
#pragma once

#include <windows.h>

#include "HyUIExport.h"

class HYUI_API CxImage
{
public:
    // Format codes: the constructor takes the decoder from the code alone
    // (the bytes are not sniffed).
    enum { FORMAT_BMP = 1, FORMAT_JPG = 2 };
    // Larger pictures are refused as invalid, so a small file that claims a
    // huge size cannot make us allocate for it.
    enum { MAX_PIXELS = 32 * 1024 * 1024, MAX_SIDE = 32768 };

    CxImage();
    // Decodes size bytes; IsValid() says whether that worked.
    CxImage(BYTE* buffer, DWORD size, DWORD imagetype);
    CxImage(const CxImage& src);
    CxImage& operator=(const CxImage& src);
    ~CxImage();

    bool Copy(const CxImage& src);
    // Empties the picture; IsValid() is then false.
    bool Destroy();
    bool IsValid() const;
    DWORD GetWidth() const;
    DWORD GetHeight() const;
    WORD GetBpp() const;

    // To newx x newy: mode 1 smooth (Fant), else nearest neighbour. The
    // result is 24-bit, or 8-bit grey for a grey picture. Into iDst when given.
    bool Resample(long newx, long newy, int mode = 1, CxImage* iDst = NULL);
    // Keeps the part [left, right) x [top, bottom), clipped to the picture,
    // with the same depth and palette. Into iDst when given.
    bool Crop(long left, long top, long right, long bottom, CxImage* iDst = NULL);
    // Raises a palette picture to 24 bits; asking for no more bits than it
    // has changes nothing and succeeds. Only 24 is a target.
    bool IncreaseBpp(DWORD nbit);
    // JPEG (FORMAT_JPG) of a 24-bit or grey picture, into a new buffer the
    // caller frees with HyFreeEncodedImage. A colour palette fails.
    bool Encode(BYTE*& buffer, long& size, DWORD imagetype);
    // Stretches the picture to (x, y, cx, cy) with halftoning (cx, cy < 0:
    // its own size), clipped to pClipRect when given; the DC is left as it
    // was found. 1 when drawn.
    long Draw(HDC hdc, long x, long y, long cx = -1, long cy = -1, RECT* pClipRect = 0);

private:
    struct Pixels;
    Pixels* m_pixels;   // null when empty
};

// Frees a buffer CxImage::Encode or HyEncodeJPEG made.
HYUI_API void HyFreeEncodedImage(BYTE* buffer);
