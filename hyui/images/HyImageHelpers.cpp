#include "HyImageHelpers.h"

#include <wininet.h>

#include <cstdlib>
#include <string>

#include "HyImageRules.h"
#include "HyUIRes.h"

namespace {

constexpr DWORD kDefaultTimeout = 30000;
DWORD g_timeout = kDefaultTimeout;

// The body: Content-Length bytes plus one, in a single read, and the picture
// made of what came; 0 or the failure's string id.
UINT ReadImage(HINTERNET request, hy::ImageType type, CxImage*& image)
{
    char text[32] = {};
    DWORD textSize = sizeof text;
    long n = 0;
    if (!::HttpQueryInfoA(request, HTTP_QUERY_CONTENT_LENGTH, text, &textSize, nullptr) ||
        !hy::ParseContentLength(text, n))
        return IDS_URL_IMAGE_CORRUPT;
    // Two bytes over: a body longer than declared can fill all n + 1 read,
    // and the terminating zero still fits.
    BYTE* buffer = (BYTE*)std::malloc((size_t)n + 2);
    if (buffer == nullptr)
        return IDS_URL_IMAGE_CORRUPT;
    DWORD read = 0;
    UINT failure = IDS_URL_IMAGE_CORRUPT;
    if (::InternetReadFile(request, buffer, (DWORD)n + 1, &read))   // one read, by design
    {
        buffer[read] = 0;
        image = new CxImage(buffer, read, type);   // handed over undecided: the caller tests it
        failure = 0;
    }
    std::free(buffer);
    return failure;
}

}  // namespace

void HySetDownloadTimeout(DWORD milliseconds) { g_timeout = milliseconds != 0 ? milliseconds : kDefaultTimeout; }

CxImage* HYDownloadURLImage(LPCSTR url, int quiet)
{
    CWaitCursor wait;
    const hy::ImageType type = hy::ImageTypeFromUrl(url);
    if (type == hy::kImageNone)
        return nullptr;   // the one silent refusal
    UINT failure = 0;
    CxImage* image = nullptr;
    HINTERNET connection = nullptr, request = nullptr;
    HINTERNET session = ::InternetOpenA("Ternplan", INTERNET_OPEN_TYPE_PRECONFIG, nullptr, nullptr, 0);
    if (session == nullptr)
        failure = IDS_URL_NO_CONNECTION;
    else
    {
        std::string host, path;
        hy::SplitHostPath(hy::DropScheme(url), host, path);
        connection = ::InternetConnectA(session, host.c_str(), 0, "", "", INTERNET_SERVICE_HTTP, 0, 0);
        if (connection == nullptr)
            failure = IDS_URL_INVALID;
        else
        {
            // Without these the system waits for a silent server for ever.
            for (DWORD option : { INTERNET_OPTION_SEND_TIMEOUT, INTERNET_OPTION_RECEIVE_TIMEOUT })
                ::InternetSetOptionA(connection, option, &g_timeout, sizeof g_timeout);
            request = ::HttpOpenRequestA(connection, "GET", path.c_str(), "HTTP/1.0", nullptr, nullptr,
                                         INTERNET_FLAG_NO_CACHE_WRITE, 0);
            if (request == nullptr)
            {
                failure = IDS_URL_INVALID;
                ::InternetCloseHandle(connection);
                connection = nullptr;
            }
            else if (!::HttpSendRequestA(request, nullptr, 0, nullptr, 0))
                failure = IDS_URL_INVALID;
            else
                failure = ReadImage(request, type, image);   // the status code is never looked at
        }
    }
    // Request, connection, session: in that order.
    for (HINTERNET handle : { request, connection, session })
        if (handle != nullptr)
            ::InternetCloseHandle(handle);
    if (!quiet && failure != 0)
        AfxMessageBox(failure, MB_ICONEXCLAMATION, (UINT)-1);
    return image;
}

int HyEncodeJPEG(CxImage* pImage, BYTE*& pBuffer, long& nSize)
{
    pBuffer = nullptr;
    nSize = 0;
    if (pImage == nullptr)
        return 0;
    if (pImage->Encode(pBuffer, nSize, CxImage::FORMAT_JPG))
        return 1;
    if (pImage->GetBpp() >= 16)
        return 0;
    // The caller's picture is raised to 24 bits in place: intended.
    return pImage->IncreaseBpp(24) && pImage->Encode(pBuffer, nSize, CxImage::FORMAT_JPG) ? 1 : 0;
}

void HYScalePropRect(CRect& rect, int limit)
{
    hy::Rect32 r{ rect.left, rect.top, rect.right, rect.bottom };
    hy::ScalePropRect(r, limit);
    rect.SetRect(r.left, r.top, r.right, r.bottom);
}

void HYDrawRectImage(CDC* pDC, CxImage* pImage, const RECT& rcTarget)
{
    if (pDC == nullptr || pImage == nullptr || !pImage->IsValid())
        return;
    using hy::Span;   // wraps as 32-bit arithmetic does, whatever the rectangle holds
    CRect scaled(0, 0, (int)pImage->GetWidth(), (int)pImage->GetHeight());
    // Only the target's width limits the picture, even in a shallow target: intended.
    HYScalePropRect(scaled, Span(rcTarget.left, rcTarget.right));
    const int x = hy::CentreOffset(rcTarget.left, Span(rcTarget.left, rcTarget.right), scaled.Width());
    const int y = hy::CentreOffset(rcTarget.top, Span(rcTarget.top, rcTarget.bottom), scaled.Height());
    pImage->Draw(pDC->GetSafeHdc(), x, y, scaled.Width(), scaled.Height(), nullptr);
}
