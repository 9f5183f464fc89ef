// bench_images: HYDrawRectImage drawing a 640 x 480 photo into a 96 x 96
// target against the system's static control showing the same picture
// (SS_BITMAP | SS_REALSIZECONTROL, stretched to the scaled 96 x 72), in one
// process. docs/benchmarks.md explains the figure.
//
//   bench_images [--rounds N] [--reps N] [--warmup N] [--only ours|peer]
//
// A repetition is a full repaint: the whole control invalidated, then
// UpdateWindow. Exit code 0 when every timed repaint painted, 1 otherwise,
// 2 for a setup failure.
#include <afxwin.h>

#include <cstdio>
#include <memory>
#include <string>

#include "HyImageHelpers.h"
#include "bench_common.h"
#include "bench_stats.h"
#include "bench_subjects.h"

namespace {

constexpr SIZE kPhoto = { 640, 480 }, kTarget = { 96, 96 }, kScaled = { 96, 72 };

// The photo: a sky, a sun and hills, drawn into a 24-bit DIB section.
HBITMAP MakePhoto(std::string& bmpFile)
{
    BITMAPINFOHEADER header{ sizeof header, kPhoto.cx, kPhoto.cy, 1, 24, BI_RGB };
    void* bits = nullptr;
    HBITMAP dib = ::CreateDIBSection(nullptr, (BITMAPINFO*)&header, DIB_RGB_COLORS, &bits, nullptr, 0);
    if (dib == nullptr)
        return nullptr;
    HDC dc = ::CreateCompatibleDC(nullptr);
    HGDIOBJ old = ::SelectObject(dc, dib);
    for (int y = 0; y < kPhoto.cy; ++y)
    {
        HBRUSH row = ::CreateSolidBrush(RGB(60 + y / 4, 120 + y / 8, 230 - y / 6));
        RECT r{ 0, y, kPhoto.cx, y + 1 };
        ::FillRect(dc, &r, row);
        ::DeleteObject(row);
    }
    HBRUSH sun = ::CreateSolidBrush(RGB(250, 210, 80)), hill = ::CreateSolidBrush(RGB(60, 130, 70));
    HGDIOBJ oldBrush = ::SelectObject(dc, sun);
    ::Ellipse(dc, 440, 60, 540, 160);
    ::SelectObject(dc, hill);
    ::Ellipse(dc, -200, 300, 500, 800);
    ::SelectObject(dc, oldBrush);
    ::DeleteObject(sun);
    ::DeleteObject(hill);
    ::SelectObject(dc, old);
    ::DeleteDC(dc);
    const int stride = ((kPhoto.cx * 24 + 31) / 32) * 4;
    BITMAPFILEHEADER file{ 0x4D42, (DWORD)(sizeof file + sizeof header + stride * kPhoto.cy), 0, 0,
                           (DWORD)(sizeof file + sizeof header) };
    bmpFile.assign((const char*)&file, sizeof file);
    bmpFile.append((const char*)&header, sizeof header);
    bmpFile.append((const char*)bits, (size_t)stride * kPhoto.cy);
    return dib;
}

// Our control: a window that draws the photo with HYDrawRectImage.
class PhotoWnd : public CWnd
{
public:
    CxImage* image = nullptr;

protected:
    afx_msg void OnPaint()
    {
        CPaintDC dc(this);
        CRect client;
        GetClientRect(&client);
        dc.FillSolidRect(&client, RGB(255, 255, 255));
        HYDrawRectImage(&dc, image, client);
    }
    afx_msg BOOL OnEraseBkgnd(CDC*) { return TRUE; }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(PhotoWnd, CWnd)
    ON_WM_PAINT()
    ON_WM_ERASEBKGND()
END_MESSAGE_MAP()

class OurPhoto : public BenchSubject
{
public:
    ~OurPhoto() override
    {
        StopCountingPaints();
        m_wnd.DestroyWindow();
    }
    bool Create(CxImage* image)
    {
        if (!CreateHost("ours", kTarget, nullptr))
            return false;
        m_wnd.image = image;
        if (!m_wnd.CreateEx(0, AfxRegisterWndClass(0), "", WS_CHILD | WS_VISIBLE, CRect(0, 0, kTarget.cx, kTarget.cy),
                            CWnd::FromHandle(m_host), 1))
            return false;
        m_control = m_wnd.m_hWnd;
        StartCountingPaints();
        return true;
    }
    const char* Name() const override { return "ours"; }

private:
    PhotoWnd m_wnd;
};

class PeerStatic : public BenchSubject
{
public:
    bool Create(HBITMAP photo)
    {
        if (!CreateHost("peer", kScaled, nullptr))
            return false;
        m_control = ::CreateWindowEx(0, "STATIC", "", WS_CHILD | WS_VISIBLE | SS_BITMAP | SS_REALSIZECONTROL, 0, 0,
                                     kScaled.cx, kScaled.cy, m_host, nullptr, ::GetModuleHandle(nullptr), nullptr);
        if (m_control == nullptr)
            return false;
        ::SendMessage(m_control, STM_SETIMAGE, IMAGE_BITMAP, (LPARAM)photo);
        ::SetWindowPos(m_control, nullptr, 0, 0, kScaled.cx, kScaled.cy, SWP_NOZORDER | SWP_NOMOVE);
        StartCountingPaints();
        return true;
    }
    const char* Name() const override { return "peer"; }
};

}  // namespace

int main(int argc, char** argv)
{
    BenchOptions options;
    if (!BenchParseOptions(argc, argv, false, options))
    {
        std::fprintf(stderr, "usage: bench_images [--rounds N] [--reps N] [--warmup N] [--only ours|peer]\n");
        return 2;
    }
    std::string bmp;
    HBITMAP photo = MakePhoto(bmp);
    std::unique_ptr<CxImage> image(new CxImage((BYTE*)bmp.data(), (DWORD)bmp.size(), CxImage::FORMAT_BMP));
    OurPhoto ours;
    PeerStatic peer;
    if (photo == nullptr || !image->IsValid() || !ours.Create(image.get()) || !peer.Create(photo))
    {
        std::fprintf(stderr, "bench_images: cannot make the photo or the controls (error %lu)\n", ::GetLastError());
        return 2;
    }
    BenchSubject* const subjects[] = { &ours, &peer };
    BenchShowSubjects(subjects, 2);
    BenchPrintVersions();
    std::printf("a %ld x %ld photo: ours fitted into %ld x %ld, the static control stretched to %ld x %ld\n", kPhoto.cx,
                kPhoto.cy, kTarget.cx, kTarget.cy, kScaled.cx, kScaled.cy);
    BenchPrintMethod(options);
    const char* const figureNames[] = { "full repaint" };
    const std::vector<BenchResult> results = BenchRounds(
        options, 1, subjects, 2, [](int, int) { return true; }, [](int) {},
        [&](int, int index, BenchResult* result) { BenchFullRepaints(*subjects[index], options.reps, result); });
    const bool sound = BenchPrintResults(results, 1, subjects, 2, figureNames, "", [](int, int) { return ""; });
    if (options.only == nullptr)
        std::printf("\nimages ours/peer: full repaint %.2f (medians)\n",
                    BenchMedian(results, 2, 0, 0) / BenchMedian(results, 2, 0, 1));
    ::DeleteObject(photo);
    return sound ? 0 : 1;
}
