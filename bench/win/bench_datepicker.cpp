// bench_datepicker: the date picker (12 months, 4 x 3) against the month
// calendar of the system's common controls showing 12 months in the same
// rectangle, in one process. docs/benchmarks.md explains the figures.
//
//   bench_datepicker [--rounds N] [--reps N] [--warmup N] [--only ours|peer|floor]
//
// --only measures one subject alone, for a profiler (perf record under Wine).
//
// Each round measures every subject in turn (the order rotates from round to
// round, so that drift of the machine spreads evenly), N repetitions each,
// every repetition timed on its own with QueryPerformanceCounter. Exit code
// 0 when every timed repetition painted and every step moved the day, 1
// otherwise, 2 for a setup failure.
#include <windows.h>
#include <commctrl.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "bench_common.h"
#include "bench_stats.h"
#include "bench_subjects.h"

namespace {

enum Figure
{
    kRepaint,
    kStep,
    kFigureCount
};

const char* const kFigureNames[kFigureCount] = { "full repaint", "arrow-key step" };

void MeasureRepaint(BenchSubject& subject, int reps, BenchResult* result)
{
    HWND control = subject.Control();
    for (int i = 0; i < reps; ++i)
    {
        const long before = subject.Paints();
        const double t0 = BenchNow();
        ::RedrawWindow(control, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
        const double t1 = BenchNow();
        const long painted = subject.Paints() - before;
        BenchPump();
        BenchRecord(result, t1 - t0, painted, true);
    }
}

void MeasureStep(BenchSubject& subject, const BenchDays& days, int reps, BenchResult* result)
{
    HWND control = subject.Control();
    SYSTEMTIME day = days.start;
    for (int i = 0; i < reps; ++i)
    {
        const SYSTEMTIME next = BenchAddDays(day, 1);
        const long before = subject.Paints();
        const double t0 = BenchNow();
        subject.Step(next);
        ::UpdateWindow(control);
        const double t1 = BenchNow();
        const long painted = subject.Paints() - before;
        SYSTEMTIME now = {};
        const bool moved = subject.GetHighlight(now) && BenchSameDay(now, next);
        BenchPump();
        day = next;
        BenchRecord(result, t1 - t0, painted, moved);
    }
}

// Today at midnight, and a dozen event days of three kinds spread over the
// twelve months from today's on; three of them lie on the first steps.
BenchDays MakeDays()
{
    BenchDays days;
    ::GetLocalTime(&days.start);
    days.start = BenchAddDays(days.start, 0);
    SYSTEMTIME firstOfMonth = days.start;
    firstOfMonth.wDay = 1;
    const int offsets[] = { 2, 9, 16, 30, 45, 61, 77, 100, 140, 190, 250, 300 };
    for (int i = 0; i < static_cast<int>(sizeof offsets / sizeof offsets[0]); ++i)
    {
        const SYSTEMTIME e = BenchAddDays(offsets[i] < 30 ? days.start : firstOfMonth, offsets[i]);
        days.events.push_back(e);
        days.kinds.push_back(i % 3);
    }
    return days;
}

void PrintShown(BenchSubject& subject)
{
    int month = 0, year = 0;
    subject.GetFirstMonth(month, year);
    std::printf("%-5s shows %d calendars from %02d/%04d\n", subject.Name(), subject.CalendarCount(), month, year);
}

} // namespace

int main(int argc, char** argv)
{
    BenchOptions options;
    if (!BenchParseOptions(argc, argv, false, options))
    {
        std::fprintf(stderr, "usage: bench_datepicker [--rounds N] [--reps N] [--warmup N] [--only ours|peer|floor]\n");
        return 2;
    }
    INITCOMMONCONTROLSEX icc = { sizeof icc, ICC_DATE_CLASSES };
    if (!::InitCommonControlsEx(&icc))
    {
        std::fprintf(stderr, "bench_datepicker: InitCommonControlsEx failed\n");
        return 2;
    }

    const BenchDays days = MakeDays();
    std::unique_ptr<BenchPeerCalendar> peer = BenchPeerCalendar::Create(days);
    if (!peer)
    {
        // Seen when the wineserver still runs from the prefix's creation,
        // before the null driver was chosen: `wineserver -w`, then again.
        std::fprintf(stderr, "bench_datepicker: cannot create the month calendar or its window (error %lu)\n",
                     ::GetLastError());
        return 2;
    }
    const SIZE size = peer->ClientSize();
    const int screenWidth = ::GetSystemMetrics(SM_CXSCREEN), screenHeight = ::GetSystemMetrics(SM_CYSCREEN);
    if (size.cx > screenWidth || size.cy > screenHeight)
    {
        // Parts of a window beyond the screen are clipped and would not paint.
        std::fprintf(stderr, "bench_datepicker: %ld x %ld does not fit the %d x %d screen\n", size.cx, size.cy,
                     screenWidth, screenHeight);
        return 2;
    }
    std::unique_ptr<BenchSubject> ours = BenchCreateOurPicker(days, size);
    std::unique_ptr<BenchSubject> floor = BenchCreateFloor(size);
    if (!ours || !floor)
    {
        std::fprintf(stderr, "bench_datepicker: cannot create the %s\n", !ours ? "date picker" : "floor window");
        return 2;
    }
    BenchSubject* const subjects[] = { ours.get(), peer.get(), floor.get() };
    const int subjectCount = 3;
    BenchShowSubjects(subjects, subjectCount);
    peer->DetectArrowKeys(days.start);

    BenchPrintVersions();
    std::printf("12 months (4 x 3) in %ld x %ld client pixels; peer's one month (MCM_GETMINREQRECT) %ld x %ld\n",
                size.cx, size.cy, peer->OneMonth().cx, peer->OneMonth().cy);
    PrintShown(*ours);
    PrintShown(*peer);
    if (!peer->HasCalendarCount())
        std::printf("(MCM_GETCALENDARCOUNT does not answer: the peer's count is its visible month range)\n");
    BenchPrintMethod(options);

    const std::vector<BenchResult> results = BenchRounds(
        options, kFigureCount, subjects, subjectCount,
        [&](int figure, int index) { return figure != kStep || subjects[index]->HasStep(); },
        [&](int index) { subjects[index]->Restart(days.start); },
        [&](int figure, int index, BenchResult* result) {
            if (figure == kRepaint)
                MeasureRepaint(*subjects[index], options.reps, result);
            else
                MeasureStep(*subjects[index], days, options.reps, result);
        });

    // The peer's step by MCM_SETCURSEL is marked "*".
    const auto mark = [&](int figure, int index) {
        return figure == kStep && index == 1 && !peer->ArrowKeysMove() ? " *" : "";
    };
    const bool sound = BenchPrintResults(results, kFigureCount, subjects, subjectCount, kFigureNames,
                                         "steps that did not move the day", mark);
    auto median = [&](int figure, int index) { return BenchMedian(results, subjectCount, figure, index); };
    if (options.only == nullptr)
        std::printf("\nours/peer (medians): full repaint %.2f, arrow-key step %.2f%s; ours/floor (full repaint) %.1f\n",
                    median(kRepaint, 0) / median(kRepaint, 1), median(kStep, 0) / median(kStep, 1),
                    peer->ArrowKeysMove() ? "" : " *", median(kRepaint, 0) / median(kRepaint, 2));
    if (!peer->ArrowKeysMove() && !results[kStep * subjectCount + 1].ms.empty())
        std::printf("* this month calendar ignores VK_RIGHT; its step is MCM_SETCURSEL to the next day, "
                    "then UpdateWindow\n");

    floor.reset();
    ours.reset();
    peer.reset();
    return sound ? 0 : 1;
}
