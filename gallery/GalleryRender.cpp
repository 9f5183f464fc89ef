#include "GalleryRender.h"
#include <wincodec.h>
#include <algorithm>
#include <vector>

namespace {
// Every window is painted into a bitmap of its own with its origin at the
// bitmap's origin, then copied into place: the system's controls clip their
// painting to their client rectangle in device units, so they draw nothing
// into a DC whose origin is moved.
void PaintWindowFrameAndClient(HWND hWnd, CDC* pDC, CPoint at);

void PaintChildren(HWND hWnd, CDC* pDC)
{
    HWND first = ::GetWindow(hWnd, GW_CHILD);
    if (first == nullptr)
        return;
    for (HWND child = ::GetWindow(first, GW_HWNDLAST); child != nullptr; child = ::GetWindow(child, GW_HWNDPREV))
    {
        if ((::GetWindowLong(child, GWL_STYLE) & WS_VISIBLE) == 0)
            continue;
        CRect window;
        ::GetWindowRect(child, &window);
        ::MapWindowPoints(nullptr, hWnd, (LPPOINT)&window, 2);
        PaintWindowFrameAndClient(child, pDC, window.TopLeft());
    }
}

void PaintWindowFrameAndClient(HWND hWnd, CDC* pDC, CPoint at)
{
    CRect window;
    ::GetWindowRect(hWnd, &window);
    CPoint client(0, 0);
    ::ClientToScreen(hWnd, &client);
    CRect clientRect;
    ::GetClientRect(hWnd, &clientRect);
    clientRect.OffsetRect(client);
    if (clientRect == window)
    {
        GalleryPaintClientTree(hWnd, pDC, at);
        return;
    }
    CDC mem;
    CBitmap bitmap;
    if (window.IsRectEmpty() || !mem.CreateCompatibleDC(pDC) ||
        !bitmap.CreateCompatibleBitmap(pDC, window.Width(), window.Height()))
        return;
    CDCSelect sel(mem, &bitmap);
    mem.BitBlt(0, 0, window.Width(), window.Height(), pDC, at.x, at.y, SRCCOPY);   // what lies below
    ::SendMessage(hWnd, WM_PRINT, (WPARAM)mem.m_hDC, PRF_NONCLIENT);
    GalleryPaintClientTree(hWnd, &mem, CPoint(client.x - window.left, client.y - window.top));
    pDC->BitBlt(at.x, at.y, window.Width(), window.Height(), &mem, 0, 0, SRCCOPY);
}
}

void GalleryPaintClientTree(HWND hWnd, CDC* pDC, CPoint clientOrigin)
{
    CRect client;
    ::GetClientRect(hWnd, &client);
    CDC mem;
    CBitmap bitmap;
    if (client.IsRectEmpty() || !mem.CreateCompatibleDC(pDC) ||
        !bitmap.CreateCompatibleBitmap(pDC, client.Width(), client.Height()))
        return;
    CDCSelect sel(mem, &bitmap);
    // What lies below shows through controls that paint no background.
    mem.BitBlt(0, 0, client.Width(), client.Height(), pDC, clientOrigin.x, clientOrigin.y, SRCCOPY);
    ::SendMessage(hWnd, WM_ERASEBKGND, (WPARAM)mem.m_hDC, 0);
    // WM_PAINT with the DC in wParam: the controls and CPaintDC paint into it;
    // the rich edit paints only through WM_PRINTCLIENT.
    char cls[16] = "";
    ::GetClassNameA(hWnd, cls, sizeof cls);
    ::SendMessage(hWnd, _strnicmp(cls, "RichEdit", 8) == 0 ? WM_PRINTCLIENT : WM_PAINT, (WPARAM)mem.m_hDC,
                  PRF_CLIENT | PRF_ERASEBKGND);
    PaintChildren(hWnd, &mem);
    pDC->BitBlt(clientOrigin.x, clientOrigin.y, client.Width(), client.Height(), &mem, 0, 0, SRCCOPY);
}

namespace {
HBITMAP RenderInto(HWND hWnd, CSize size, void (*paint)(HWND, CDC*))
{
    if (size.cx <= 0 || size.cy <= 0)
        return nullptr;
    CBitmap bitmap;
    if (!bitmap.CreateDIBSection32(size.cx, size.cy))
        return nullptr;
    CDC dc;
    dc.CreateCompatibleDC(nullptr);
    {
        CDCSelect sel(dc, &bitmap);
        dc.FillSolidRect(0, 0, size.cx, size.cy, ::GetSysColor(COLOR_WINDOW));
        paint(hWnd, &dc);
        ::GdiFlush();
    }
    return (HBITMAP)bitmap.Detach();
}
}

HBITMAP GalleryRenderClient(HWND hWnd)
{
    CRect rc;
    ::GetClientRect(hWnd, &rc);
    return RenderInto(hWnd, rc.Size(), [](HWND h, CDC* pDC) { GalleryPaintClientTree(h, pDC, CPoint(0, 0)); });
}

HBITMAP GalleryRenderWindow(HWND hWnd)
{
    CRect rc;
    ::GetWindowRect(hWnd, &rc);
    return RenderInto(hWnd, rc.Size(), [](HWND h, CDC* pDC) {
        CRect window;
        ::GetWindowRect(h, &window);
        CPoint client(0, 0);
        ::ClientToScreen(h, &client);
        CRect frame(0, 0, window.Width(), window.Height());
        DWORD style = ::GetWindowLong(h, GWL_STYLE);
        // The frame and caption as the desktop draws an active window.
        if (style & (WS_BORDER | WS_DLGFRAME | WS_THICKFRAME))
        {
            pDC->FillSolidRect(&frame, ::GetSysColor(COLOR_BTNFACE));
            pDC->DrawEdge(&frame, EDGE_RAISED, BF_RECT | BF_ADJUST);
        }
        if ((style & WS_CAPTION) == WS_CAPTION)
        {
            CRect caption(frame.left, frame.top, frame.right, client.y - window.top);
            caption.bottom = std::max(caption.top + 1, caption.bottom - 1);
            ::DrawCaption(h, pDC->m_hDC, &caption, DC_ACTIVE | DC_TEXT | DC_GRADIENT | DC_ICON);
        }
        GalleryPaintClientTree(h, pDC, CPoint(client.x - window.left, client.y - window.top));
    });
}

HRESULT GalleryWritePng(HBITMAP hDib, LPCTSTR path)
{
    BITMAP bm = {};
    if (::GetObject(hDib, sizeof(bm), &bm) != sizeof(bm) || bm.bmWidth <= 0 || bm.bmHeight <= 0)
        return E_INVALIDARG;
    const int width = bm.bmWidth;
    const int height = bm.bmHeight;

    // Read back as top-down 32-bit rows, whatever the bitmap's own layout.
    std::vector<BYTE> bgrx((size_t)width * 4 * height);
    BITMAPINFO bmi = {};
    bmi.bmiHeader.biSize = sizeof(bmi.bmiHeader);
    bmi.bmiHeader.biWidth = width;
    bmi.bmiHeader.biHeight = -height;
    bmi.bmiHeader.biPlanes = 1;
    bmi.bmiHeader.biBitCount = 32;
    bmi.bmiHeader.biCompression = BI_RGB;
    HDC hdc = ::CreateCompatibleDC(nullptr);
    int lines = ::GetDIBits(hdc, hDib, 0, (UINT)height, bgrx.data(), &bmi, DIB_RGB_COLORS);
    ::DeleteDC(hdc);
    if (lines != height)
        return E_FAIL;

    // 24-bit BGR rows: every PNG encoder takes that format.
    const UINT stride = ((UINT)width * 3 + 3) & ~3u;
    std::vector<BYTE> pixels((size_t)stride * height);
    for (int y = 0; y < height; ++y)
    {
        const BYTE* src = bgrx.data() + (size_t)width * 4 * y;
        BYTE* dst = pixels.data() + (size_t)stride * y;
        for (int x = 0; x < width; ++x)
        {
            dst[x * 3 + 0] = src[x * 4 + 0];
            dst[x * 3 + 1] = src[x * 4 + 1];
            dst[x * 3 + 2] = src[x * 4 + 2];
        }
    }

    WCHAR widePath[MAX_PATH];
    if (::MultiByteToWideChar(CP_ACP, 0, path, -1, widePath, MAX_PATH) == 0)
        return E_INVALIDARG;

    IWICImagingFactory* factory = nullptr;
    IWICStream* stream = nullptr;
    IWICBitmapEncoder* encoder = nullptr;
    IWICBitmapFrameEncode* frame = nullptr;
    IPropertyBag2* options = nullptr;
    HRESULT hr = ::CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                    IID_IWICImagingFactory, (void**)&factory);
    if (SUCCEEDED(hr)) hr = factory->CreateStream(&stream);
    if (SUCCEEDED(hr)) hr = stream->InitializeFromFilename(widePath, GENERIC_WRITE);
    if (SUCCEEDED(hr)) hr = factory->CreateEncoder(GUID_ContainerFormatPng, nullptr, &encoder);
    if (SUCCEEDED(hr)) hr = encoder->Initialize(stream, WICBitmapEncoderNoCache);
    if (SUCCEEDED(hr)) hr = encoder->CreateNewFrame(&frame, &options);
    if (SUCCEEDED(hr)) hr = frame->Initialize(options);
    if (SUCCEEDED(hr)) hr = frame->SetSize((UINT)width, (UINT)height);
    WICPixelFormatGUID format = GUID_WICPixelFormat24bppBGR;
    if (SUCCEEDED(hr)) hr = frame->SetPixelFormat(&format);
    if (SUCCEEDED(hr) && !IsEqualGUID(format, GUID_WICPixelFormat24bppBGR)) hr = E_FAIL;
    if (SUCCEEDED(hr)) hr = frame->WritePixels((UINT)height, stride, (UINT)pixels.size(), pixels.data());
    if (SUCCEEDED(hr)) hr = frame->Commit();
    if (SUCCEEDED(hr)) hr = encoder->Commit();
    if (options) options->Release();
    if (frame) frame->Release();
    if (encoder) encoder->Release();
    if (stream) stream->Release();
    if (factory) factory->Release();
    return hr;
}

std::vector<DWORD> GalleryHiddenTemplate(UINT id)
{
    HINSTANCE h = AfxFindResourceHandle(MAKEINTRESOURCE(id), RT_DIALOG);
    HRSRC res = h ? ::FindResource(h, MAKEINTRESOURCE(id), RT_DIALOG) : nullptr;
    HGLOBAL global = res ? ::LoadResource(h, res) : nullptr;
    const BYTE* data = global ? (const BYTE*)::LockResource(global) : nullptr;
    const DWORD size = res ? ::SizeofResource(h, res) : 0;
    if (data == nullptr || size < 16)
        return {};
    std::vector<DWORD> aligned((size + 3) / 4);
    BYTE* bytes = (BYTE*)aligned.data();
    memcpy(bytes, data, size);
    // DLGTEMPLATEEX starts with version 1 and signature 0xFFFF; its style is at 12.
    const size_t styleOffset = *(const WORD*)&bytes[2] == 0xFFFF ? 12 : 0;
    DWORD style;
    memcpy(&style, &bytes[styleOffset], 4);
    style &= ~WS_VISIBLE;
    memcpy(&bytes[styleOffset], &style, 4);
    return aligned;
}

HBITMAP GalleryRenderHiddenDialog(CWnd& dialog)
{
    dialog.SetWindowPos(nullptr, -32000, -32000, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_SHOWWINDOW);
    return GalleryRenderWindow(dialog.m_hWnd);
}
