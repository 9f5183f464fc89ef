#include "CxImage.h"

#include <wincodec.h>

#include <cstdlib>
#include <cstring>
#include <vector>

namespace {

// Releases a COM interface when it goes out of scope.
template <class T>
class ComRef
{
public:
    ComRef() = default;
    ComRef(const ComRef&) = delete;
    ComRef& operator=(const ComRef&) = delete;
    ~ComRef() { if (p) p->Release(); }
    T** operator&() { return &p; }
    T* operator->() const { return p; }
    operator T*() const { return p; }
    T* p = nullptr;
};

// COM for the length of one call: initialised here only when the thread had
// not done it, and balanced. A thread in the other apartment model is fine
// for WIC as it is.
class ComScope
{
public:
    ComScope() : m_hr(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)) {}
    ~ComScope() { if (SUCCEEDED(m_hr)) ::CoUninitialize(); }
    ComScope(const ComScope&) = delete;
    ComScope& operator=(const ComScope&) = delete;

private:
    HRESULT m_hr;
};

bool CreateFactory(ComRef<IWICImagingFactory>& factory)
{
    return SUCCEEDED(::CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                        IID_IWICImagingFactory, (void**)&factory));
}

UINT Stride(UINT width, UINT bpp) { return ((width * bpp + 31) / 32) * 4; }

}  // namespace

struct CxImage::Pixels
{
    UINT width = 0, height = 0, bpp = 0;
    bool grey = false;                // 8 bits, the palette a grey ramp
    std::vector<RGBQUAD> palette;     // for 1, 4 and 8 bits
    std::vector<BYTE> bits;           // top-down rows, DWORD-aligned

    UINT stride() const { return Stride(width, bpp); }
    WICPixelFormatGUID format() const
    {
        switch (bpp)
        {
        case 1: return GUID_WICPixelFormat1bppIndexed;
        case 4: return GUID_WICPixelFormat4bppIndexed;
        case 8: return grey ? GUID_WICPixelFormat8bppGray : GUID_WICPixelFormat8bppIndexed;
        default: return GUID_WICPixelFormat24bppBGR;
        }
    }

    void SetGreyRamp()
    {
        grey = true;
        palette.resize(256);
        for (int i = 0; i < 256; ++i)
            palette[i] = RGBQUAD{ (BYTE)i, (BYTE)i, (BYTE)i, 0 };
    }

    // Takes the pixels (and the palette) of a WIC source in our layout.
    bool Read(IWICImagingFactory* factory, IWICBitmapSource* source)
    {
        UINT w = 0, h = 0;
        WICPixelFormatGUID fmt;
        if (FAILED(source->GetSize(&w, &h)) || FAILED(source->GetPixelFormat(&fmt)) || w == 0 || h == 0 ||
            w > MAX_SIDE || h > MAX_SIDE || (ULONGLONG)w * h > MAX_PIXELS)
            return false;
        ComRef<IWICBitmapSource> converted;
        IWICBitmapSource* from = source;
        bpp = IsEqualGUID(fmt, GUID_WICPixelFormat1bppIndexed)   ? 1
              : IsEqualGUID(fmt, GUID_WICPixelFormat4bppIndexed) ? 4
              : IsEqualGUID(fmt, GUID_WICPixelFormat8bppIndexed) ? 8
              : IsEqualGUID(fmt, GUID_WICPixelFormat8bppGray)    ? 8
                                                                 : 24;
        if (IsEqualGUID(fmt, GUID_WICPixelFormat8bppGray))
            SetGreyRamp();
        else if (bpp < 24)
        {
            ComRef<IWICPalette> wicPalette;
            UINT count = 0;
            WICColor colors[256];
            if (FAILED(factory->CreatePalette(&wicPalette)) || FAILED(source->CopyPalette(wicPalette)) ||
                FAILED(wicPalette->GetColors(256, colors, &count)))
                return false;
            palette.resize(1u << bpp);   // entries past the file's count stay black
            for (UINT i = 0; i < count && i < palette.size(); ++i)
                palette[i] = RGBQUAD{ (BYTE)colors[i], (BYTE)(colors[i] >> 8), (BYTE)(colors[i] >> 16), 0 };
        }
        else if (!IsEqualGUID(fmt, GUID_WICPixelFormat24bppBGR))
        {
            if (FAILED(::WICConvertBitmapSource(GUID_WICPixelFormat24bppBGR, source, &converted)))
                return false;
            from = converted;
        }
        width = w;
        height = h;
        bits.assign((size_t)stride() * h, 0);
        return SUCCEEDED(from->CopyPixels(nullptr, stride(), (UINT)bits.size(), bits.data()));
    }

    // A WIC bitmap over a copy of these pixels, palette included.
    bool ToBitmap(IWICImagingFactory* factory, ComRef<IWICBitmap>& bitmap) const
    {
        if (FAILED(factory->CreateBitmapFromMemory(width, height, format(), stride(), (UINT)bits.size(),
                                                   (BYTE*)bits.data(), &bitmap)))
            return false;
        if (bpp > 8 || grey)
            return true;
        std::vector<WICColor> colors;
        for (const RGBQUAD& q : palette)
            colors.push_back(0xFF000000u | (q.rgbRed << 16) | (q.rgbGreen << 8) | q.rgbBlue);
        ComRef<IWICPalette> wicPalette;
        return SUCCEEDED(factory->CreatePalette(&wicPalette)) &&
               SUCCEEDED(wicPalette->InitializeCustom(colors.data(), (UINT)colors.size())) &&
               SUCCEEDED(bitmap->SetPalette(wicPalette));
    }

    // The same picture in 24 bits, through the palette.
    Pixels Expanded() const
    {
        Pixels wide;
        wide.width = width;
        wide.height = height;
        wide.bpp = 24;
        wide.bits.assign((size_t)wide.stride() * height, 0);
        for (UINT y = 0; y < height; ++y)
            for (UINT x = 0; x < width; ++x)
            {
                const RGBQUAD q = palette[Index(x, y)];
                BYTE* p = &wide.bits[(size_t)y * wide.stride() + x * 3];
                p[0] = q.rgbBlue, p[1] = q.rgbGreen, p[2] = q.rgbRed;
            }
        return wide;
    }

    BYTE Index(UINT x, UINT y) const
    {
        const BYTE b = bits[(size_t)y * stride() + x * bpp / 8];
        const UINT shift = 8 - bpp - (x * bpp) % 8;   // the leftmost pixel in the high bits
        return (BYTE)((b >> shift) & ((1u << bpp) - 1));
    }
};

CxImage::CxImage() : m_pixels(nullptr) {}

CxImage::CxImage(BYTE* buffer, DWORD size, DWORD imagetype) : m_pixels(nullptr)
{
    if (buffer == nullptr || size == 0 || (imagetype != FORMAT_BMP && imagetype != FORMAT_JPG))
        return;
    ComScope com;
    ComRef<IWICImagingFactory> factory;
    ComRef<IWICStream> stream;
    ComRef<IWICBitmapDecoder> decoder;
    ComRef<IWICBitmapFrameDecode> frame;
    if (!CreateFactory(factory) || FAILED(factory->CreateStream(&stream)) ||
        FAILED(stream->InitializeFromMemory(buffer, size)) ||
        FAILED(factory->CreateDecoder(imagetype == FORMAT_BMP ? GUID_ContainerFormatBmp : GUID_ContainerFormatJpeg,
                                      nullptr, &decoder)) ||
        FAILED(decoder->Initialize(stream, WICDecodeMetadataCacheOnDemand)) || FAILED(decoder->GetFrame(0, &frame)))
        return;
    Pixels* pixels = new Pixels;
    if (pixels->Read(factory, frame))
        m_pixels = pixels;
    else
        delete pixels;
}

CxImage::CxImage(const CxImage& src) : m_pixels(nullptr) { Copy(src); }

CxImage& CxImage::operator=(const CxImage& src)
{
    Copy(src);
    return *this;
}

CxImage::~CxImage() { delete m_pixels; }

bool CxImage::Copy(const CxImage& src)
{
    if (&src == this)
        return IsValid();
    Destroy();
    if (src.m_pixels != nullptr)
        m_pixels = new Pixels(*src.m_pixels);
    return IsValid();
}

bool CxImage::Destroy()
{
    delete m_pixels;
    m_pixels = nullptr;
    return true;
}

bool CxImage::IsValid() const { return m_pixels != nullptr; }
DWORD CxImage::GetWidth() const { return m_pixels ? m_pixels->width : 0; }
DWORD CxImage::GetHeight() const { return m_pixels ? m_pixels->height : 0; }
WORD CxImage::GetBpp() const { return m_pixels ? (WORD)m_pixels->bpp : 0; }

bool CxImage::Resample(long newx, long newy, int mode, CxImage* iDst)
{
    if (!IsValid() || newx <= 0 || newy <= 0 || newx > MAX_SIDE || newy > MAX_SIDE ||
        (ULONGLONG)newx * newy > MAX_PIXELS)
        return false;
    ComScope com;
    ComRef<IWICImagingFactory> factory;
    ComRef<IWICBitmap> bitmap;
    ComRef<IWICBitmapScaler> scaler;
    // A colour palette is spread to 24 bits first; grey stays grey.
    const bool palette = m_pixels->bpp < 24 && !m_pixels->grey;
    if (!CreateFactory(factory) || !(palette ? m_pixels->Expanded() : *m_pixels).ToBitmap(factory, bitmap) ||
        FAILED(factory->CreateBitmapScaler(&scaler)) ||
        FAILED(scaler->Initialize(bitmap, (UINT)newx, (UINT)newy,
                                  mode == 1 ? WICBitmapInterpolationModeFant : WICBitmapInterpolationModeNearestNeighbor)))
        return false;
    Pixels* result = new Pixels;
    if (!result->Read(factory, scaler))
    {
        delete result;
        return false;
    }
    CxImage& dst = iDst != nullptr ? *iDst : *this;
    dst.Destroy();
    dst.m_pixels = result;
    return true;
}

bool CxImage::Crop(long left, long top, long right, long bottom, CxImage* iDst)
{
    if (!IsValid())
        return false;
    left = left < 0 ? 0 : left;
    top = top < 0 ? 0 : top;
    right = right > (long)m_pixels->width ? (long)m_pixels->width : right;
    bottom = bottom > (long)m_pixels->height ? (long)m_pixels->height : bottom;
    if (left >= right || top >= bottom)
        return false;
    ComScope com;
    ComRef<IWICImagingFactory> factory;
    ComRef<IWICBitmap> bitmap;
    ComRef<IWICBitmapClipper> clipper;
    const WICRect part{ (INT)left, (INT)top, (INT)(right - left), (INT)(bottom - top) };
    if (!CreateFactory(factory) || !m_pixels->ToBitmap(factory, bitmap) ||
        FAILED(factory->CreateBitmapClipper(&clipper)) || FAILED(clipper->Initialize(bitmap, &part)))
        return false;
    Pixels* result = new Pixels;
    if (!result->Read(factory, clipper))
    {
        delete result;
        return false;
    }
    result->grey = m_pixels->grey;
    CxImage& dst = iDst != nullptr ? *iDst : *this;
    dst.Destroy();
    dst.m_pixels = result;
    return true;
}

bool CxImage::IncreaseBpp(DWORD nbit)
{
    if (!IsValid())
        return false;
    if (nbit <= m_pixels->bpp)
        return true;
    if (nbit != 24)
        return false;
    Pixels* wide = new Pixels(m_pixels->Expanded());
    delete m_pixels;
    m_pixels = wide;
    return true;
}

bool CxImage::Encode(BYTE*& buffer, long& size, DWORD imagetype)
{
    buffer = nullptr;
    size = 0;
    if (!IsValid() || imagetype != FORMAT_JPG || (m_pixels->bpp != 24 && !m_pixels->grey))
        return false;
    ComScope com;
    ComRef<IWICImagingFactory> factory;
    ComRef<IStream> stream;
    ComRef<IWICBitmapEncoder> encoder;
    ComRef<IWICBitmapFrameEncode> frame;
    ComRef<IPropertyBag2> options;
    WICPixelFormatGUID fmt = m_pixels->format();
    const WICPixelFormatGUID wanted = fmt;
    if (!CreateFactory(factory) || FAILED(::CreateStreamOnHGlobal(nullptr, TRUE, &stream)) ||
        FAILED(factory->CreateEncoder(GUID_ContainerFormatJpeg, nullptr, &encoder)) ||
        FAILED(encoder->Initialize(stream, WICBitmapEncoderNoCache)) ||
        FAILED(encoder->CreateNewFrame(&frame, &options)) || FAILED(frame->Initialize(options)) ||
        FAILED(frame->SetSize(m_pixels->width, m_pixels->height)) || FAILED(frame->SetPixelFormat(&fmt)) ||
        !IsEqualGUID(fmt, wanted) ||
        FAILED(frame->WritePixels(m_pixels->height, m_pixels->stride(), (UINT)m_pixels->bits.size(),
                                  m_pixels->bits.data())) ||
        FAILED(frame->Commit()) || FAILED(encoder->Commit()))
        return false;
    STATSTG stat = {};
    LARGE_INTEGER start = {};
    if (FAILED(stream->Stat(&stat, STATFLAG_NONAME)) || stat.cbSize.QuadPart == 0 ||
        stat.cbSize.QuadPart > 0x7FFFFFFF || FAILED(stream->Seek(start, STREAM_SEEK_SET, nullptr)))
        return false;
    BYTE* bytes = (BYTE*)std::malloc((size_t)stat.cbSize.QuadPart);
    ULONG got = 0;
    if (bytes == nullptr || FAILED(stream->Read(bytes, (ULONG)stat.cbSize.QuadPart, &got)) ||
        got != stat.cbSize.QuadPart)
    {
        std::free(bytes);
        return false;
    }
    buffer = bytes;
    size = (long)got;
    return true;
}

long CxImage::Draw(HDC hdc, long x, long y, long cx, long cy, RECT* pClipRect)
{
    if (!IsValid() || hdc == nullptr)
        return 0;
    const Pixels& p = *m_pixels;
    cx = cx < 0 ? (long)p.width : cx;
    cy = cy < 0 ? (long)p.height : cy;
    struct
    {
        BITMAPINFOHEADER header;
        RGBQUAD colors[256];
    } info = {};
    info.header.biSize = sizeof info.header;
    info.header.biWidth = (LONG)p.width;
    info.header.biHeight = -(LONG)p.height;   // top-down rows
    info.header.biPlanes = 1;
    info.header.biBitCount = (WORD)p.bpp;
    info.header.biCompression = BI_RGB;
    info.header.biClrUsed = (DWORD)p.palette.size();
    if (!p.palette.empty())
        std::memcpy(info.colors, p.palette.data(), p.palette.size() * sizeof(RGBQUAD));
    const int saved = ::SaveDC(hdc);
    if (pClipRect != nullptr)
        ::IntersectClipRect(hdc, pClipRect->left, pClipRect->top, pClipRect->right, pClipRect->bottom);
    ::SetStretchBltMode(hdc, HALFTONE);
    ::SetBrushOrgEx(hdc, 0, 0, nullptr);   // halftoning needs its brush origin reset
    const int lines = ::StretchDIBits(hdc, x, y, cx, cy, 0, 0, (int)p.width, (int)p.height, p.bits.data(),
                                      (const BITMAPINFO*)&info, DIB_RGB_COLORS, SRCCOPY);
    ::RestoreDC(hdc, saved);
    return lines > 0 ? 1 : 0;
}

void HyFreeEncodedImage(BYTE* buffer) { std::free(buffer); }
