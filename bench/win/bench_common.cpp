#include "bench_common.h"

#include <commctrl.h>
#include <shlwapi.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "bench_stats.h"
#include "bench_subjects.h"

bool BenchParseOptions(int argc, char** argv, bool takesSizeAndFigure, BenchOptions& options)
{
    for (int i = 1; i < argc; ++i)
    {
        if (std::strcmp(argv[i], "--only") == 0 && i + 1 < argc)
        {
            options.only = argv[++i];
            continue;
        }
        if (takesSizeAndFigure && std::strcmp(argv[i], "--figure") == 0 && i + 1 < argc)
        {
            options.figure = argv[++i];
            continue;
        }
        if (takesSizeAndFigure && std::strcmp(argv[i], "--size") == 0 && i + 1 < argc)
        {
            long width = 0, height = 0;
            if (std::sscanf(argv[++i], "%ldx%ld", &width, &height) != 2 || width < 64 || height < 64)
                return false;
            options.size = SIZE{ width, height };
            continue;
        }
        int* target = nullptr;
        if (std::strcmp(argv[i], "--rounds") == 0)
            target = &options.rounds;
        else if (std::strcmp(argv[i], "--reps") == 0)
            target = &options.reps;
        else if (std::strcmp(argv[i], "--warmup") == 0)
            target = &options.warmup;
        if (target == nullptr || i + 1 >= argc || std::atoi(argv[i + 1]) < (target == &options.warmup ? 0 : 1))
            return false;
        *target = std::atoi(argv[++i]);
    }
    return true;
}

double BenchNow()
{
    static LARGE_INTEGER frequency = [] {
        LARGE_INTEGER f;
        ::QueryPerformanceFrequency(&f);
        return f;
    }();
    LARGE_INTEGER t;
    ::QueryPerformanceCounter(&t);
    return static_cast<double>(t.QuadPart) * 1000.0 / static_cast<double>(frequency.QuadPart);
}

void BenchPump()
{
    MSG msg;
    while (::PeekMessage(&msg, nullptr, 0, 0, PM_REMOVE))
    {
        ::TranslateMessage(&msg);
        ::DispatchMessage(&msg);
    }
}

bool BenchFullyVisible(HWND hwnd)
{
    RECT expected;
    ::GetClientRect(hwnd, &expected);
    HRGN shape = ::CreateRectRgn(0, 0, 0, 0);
    if (::GetWindowRgn(hwnd, shape) != ERROR)
    {
        RECT box;
        ::GetRgnBox(shape, &box);
        ::IntersectRect(&expected, &expected, &box);
    }
    ::DeleteObject(shape);
    HDC dc = ::GetDC(hwnd);
    RECT clip = {};
    ::GetClipBox(dc, &clip);
    ::ReleaseDC(hwnd, dc);
    return ::EqualRect(&clip, &expected) != FALSE;
}

void BenchPrintVersions()
{
    using WineVersionFn = const char*(CDECL*)();
    HMODULE ntdll = ::GetModuleHandle("ntdll.dll");
    auto wine =
        ntdll != nullptr ? reinterpret_cast<WineVersionFn>(::GetProcAddress(ntdll, "wine_get_version")) : nullptr;
    if (wine != nullptr)
        std::printf("Wine %s, ", wine());
    HMODULE comctl = ::GetModuleHandle("comctl32.dll");
    auto getVersion =
        comctl != nullptr ? reinterpret_cast<DLLGETVERSIONPROC>(::GetProcAddress(comctl, "DllGetVersion")) : nullptr;
    DLLVERSIONINFO info = {};
    info.cbSize = sizeof info;
    if (getVersion != nullptr && SUCCEEDED(getVersion(&info)))
        std::printf("comctl32 %lu.%lu", info.dwMajorVersion, info.dwMinorVersion);
    std::printf("\n");
}

void BenchPrintHeader()
{
    std::printf("%-15s %-6s %8s %8s %8s %8s %8s %9s\n", "figure", "who", "median", "min", "q1", "q3", "max",
                "paints/op");
}

void BenchPrintRow(const char* figure, const char* name, const std::vector<double>& ms, long paints, const char* mark)
{
    const BenchSpread s = BenchSummarise(ms);
    std::printf("%-15s %-6s %8.3f %8.3f %8.3f %8.3f %8.3f %9.2f%s\n", figure, name, s.median, s.min, s.q1, s.q3,
                s.max, s.count > 0 ? static_cast<double>(paints) / s.count : 0.0, mark);
}

void BenchRecord(BenchResult* result, double ms, long painted, bool right)
{
    if (result == nullptr)
        return;
    result->ms.push_back(ms);
    result->paints += painted;
    result->unpainted += painted == 0;
    result->wrong += !right;
}

std::vector<BenchResult> BenchRounds(const BenchOptions& options, int figures, BenchSubject* const* subjects,
                                     int count, const std::function<bool(int figure, int subject)>& takesPart,
                                     const std::function<void(int subject)>& reset,
                                     const std::function<void(int figure, int subject, BenchResult* result)>& measure)
{
    std::vector<BenchResult> results(figures * count);
    for (int round = -options.warmup; round < options.rounds; ++round)
    {
        const int rotation = (round + options.warmup) % count;
        for (int figure = 0; figure < figures; ++figure)
            for (int k = 0; k < count; ++k)
            {
                const int index = (k + rotation) % count;
                BenchSubject& subject = *subjects[index];
                if (!takesPart(figure, index) ||
                    (options.only != nullptr && std::strcmp(options.only, subject.Name()) != 0))
                    continue;
                BenchResult ignored;
                BenchResult* result = round >= 0 ? &results[figure * count + index] : nullptr;
                ::SetWindowPos(subject.Host(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
                ::SetFocus(subject.Control());
                reset(index);
                ::RedrawWindow(subject.Host(), nullptr, nullptr,
                               RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW | RDW_ALLCHILDREN);
                BenchPump();
                (result != nullptr ? *result : ignored).hidden += !BenchFullyVisible(subject.Control());
                measure(figure, index, result);
            }
    }
    return results;
}

bool BenchPrintResults(const std::vector<BenchResult>& results, int figures, BenchSubject* const* subjects, int count,
                       const char* const* figureNames, const char* wrongWhat,
                       const std::function<const char*(int figure, int subject)>& mark)
{
    BenchPrintHeader();
    bool sound = true;
    for (int figure = 0; figure < figures; ++figure)
    {
        const char* label = figureNames[figure];
        for (int index = 0; index < count; ++index)
        {
            const BenchResult& r = results[figure * count + index];
            if (r.ms.empty())
                continue;
            const char* name = subjects[index]->Name();
            BenchPrintRow(label, name, r.ms, r.paints, mark(figure, index));
            label = "";
            if (r.unpainted > 0 || r.wrong > 0 || r.hidden > 0)
            {
                sound = false;
                std::printf("  ! %s, %s: %d repetitions without a paint, %d %s, %d batches partly hidden\n",
                            figureNames[figure], name, r.unpainted, r.wrong, wrongWhat, r.hidden);
            }
        }
    }
    if (!sound)
        std::printf("\nsome repetitions timed nothing or did not do their work (marked !): the figures are not "
                    "comparable\n");
    return sound;
}

void BenchShowSubjects(BenchSubject* const* subjects, int count)
{
    for (int i = 0; i < count; ++i)
        ::ShowWindow(subjects[i]->Host(), SW_SHOWNOACTIVATE);
    BenchPump();
}

void BenchPrintMethod(const BenchOptions& options)
{
    std::printf("%d rounds x %d repetitions after %d warm-up rounds; ms per operation\n\n", options.rounds,
                options.reps, options.warmup);
}

bool BenchFigureWanted(const BenchOptions& options, const char* option)
{
    return options.figure == nullptr || std::strcmp(options.figure, option) == 0;
}

double BenchMedian(const std::vector<BenchResult>& results, int count, int figure, int subject)
{
    return BenchSummarise(results[figure * count + subject].ms).median;
}

bool BenchInitListViews(const char* program)
{
    INITCOMMONCONTROLSEX icc = { sizeof icc, ICC_LISTVIEW_CLASSES };
    if (::InitCommonControlsEx(&icc))
        return true;
    std::fprintf(stderr, "%s: InitCommonControlsEx failed\n", program);
    return false;
}
