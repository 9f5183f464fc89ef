// bench_cards: the card view with 100,000 host-virtual cards against the
// system's list view (LVS_ICON | LVS_OWNERDATA, 100,000 items) and the floor
// of a full repaint, in one process and the same rectangle.
// docs/benchmarks.md explains the figures.
//
//   bench_cards [--size WxH] [--rounds N] [--reps N] [--warmup N] [--only ours|peer|floor|ours1k]
//               [--figure repaint|scroll|sort|click]
//
// --only and --figure measure one subject or one figure alone, for a profiler.
//
// The size defaults to the screen, at most 1280 x 800. Each round measures
// every subject in turn (the order rotates from round to round), N
// repetitions each, every repetition timed on its own. Exit code 0 when every
// timed repetition painted and did what it should, 1 otherwise, 2 for a
// setup failure.
#include <windows.h>
#include <commctrl.h>

#include <cstdio>
#include <vector>

#include "bench_common.h"
#include "bench_stats.h"
#include "bench_subjects.h"

namespace {

constexpr int kCards = 100000;
constexpr int kFewCards = 1000;

enum Figure
{
    kRepaint,
    kScroll,
    kSort,
    kClick,
    kFigureCount
};

const char* const kFigureNames[kFigureCount] = { "full repaint", "one-row scroll", "sort, repaint", "click-select" };
const char* const kFigureOptions[kFigureCount] = { "repaint", "scroll", "sort", "click" };

// Which subjects take part in a figure: ours, peer, floor, ours1k.
const bool kTakesPart[kFigureCount][4] = {
    { true, true, true, false },
    { true, true, false, false },
    { true, false, false, false },
    { true, false, false, true },
};

// One repetition of a figure; answers whether it did what it should. Work
// outside [t0, t1] (a shuffle, the checks) is not timed.
bool Repeat(Figure figure, BenchCardSubject& subject, int rep, double& t0, double& t1)
{
    HWND control = subject.Control();
    switch (figure)
    {
    case kRepaint:
        t0 = BenchNow();
        ::RedrawWindow(control, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
        t1 = BenchNow();
        return true;
    case kScroll: {
        const int before = ::GetScrollPos(control, SB_VERT);
        t0 = BenchNow();
        ::SendMessage(control, WM_VSCROLL, SB_LINEDOWN, 0);
        ::UpdateWindow(control);
        t1 = BenchNow();
        return ::GetScrollPos(control, SB_VERT) > before;
    }
    case kSort:
        subject.Shuffle(static_cast<unsigned>(rep) + 1);
        t0 = BenchNow();
        subject.Sort();
        ::UpdateWindow(control);
        t1 = BenchNow();
        return subject.InOrder();
    case kClick: {
        // Card 0 and card 1 in turn, so that every click changes the selection.
        int selected[2] = { -1, -1 };
        const int card = subject.Selected(selected, 2) == 1 && selected[0] == 0 ? 1 : 0;
        POINT p = {};
        subject.CardPoint(card, p);
        t0 = BenchNow();
        ::SendMessage(control, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(p.x, p.y));
        ::SendMessage(control, WM_LBUTTONUP, 0, MAKELPARAM(p.x, p.y));
        ::UpdateWindow(control);
        t1 = BenchNow();
        return subject.Selected(selected, 2) == 1 && selected[0] == card;
    }
    default:
        return false;
    }
}

void Measure(Figure figure, BenchCardSubject& subject, int reps, BenchResult* result)
{
    for (int i = 0; i < reps; ++i)
    {
        const long before = subject.Paints();
        double t0 = 0, t1 = 0;
        const bool right = Repeat(figure, subject, i, t0, t1);
        const long painted = subject.Paints() - before;
        BenchPump();
        BenchRecord(result, t1 - t0, painted, right);
    }
}

SIZE DefaultSize()
{
    const int width = ::GetSystemMetrics(SM_CXSCREEN), height = ::GetSystemMetrics(SM_CYSCREEN);
    return SIZE{ width < 1280 ? width : 1280, height < 800 ? height : 800 };
}

} // namespace

int main(int argc, char** argv)
{
    BenchOptions options;
    if (!BenchParseOptions(argc, argv, true, options))
    {
        std::fprintf(stderr, "usage: bench_cards [--size WxH] [--rounds N] [--reps N] [--warmup N] "
                             "[--only ours|peer|floor|ours1k] [--figure repaint|scroll|sort|click]\n");
        return 2;
    }
    if (!BenchInitListViews("bench_cards"))
        return 2;
    const SIZE size = options.size.cx > 0 ? options.size : DefaultSize();
    const int screenWidth = ::GetSystemMetrics(SM_CXSCREEN), screenHeight = ::GetSystemMetrics(SM_CYSCREEN);
    if (size.cx > screenWidth || size.cy > screenHeight)
    {
        // Parts of a window beyond the screen are clipped and would not paint.
        std::fprintf(stderr, "bench_cards: %ld x %ld does not fit the %d x %d screen\n", size.cx, size.cy,
                     screenWidth, screenHeight);
        return 2;
    }
    std::unique_ptr<BenchCardSubject> ours = BenchCreateOurCards(size, kCards, "ours");
    std::unique_ptr<BenchCardSubject> peer = BenchCreatePeerList(size, kCards);
    std::unique_ptr<BenchCardSubject> floor = BenchCreateFloor(size);
    std::unique_ptr<BenchCardSubject> few = BenchCreateOurCards(size, kFewCards, "ours1k");
    if (!ours || !peer || !floor || !few)
    {
        // Seen when the wineserver still runs from the prefix's creation,
        // before the display driver was chosen: `wineserver -w`, then again.
        std::fprintf(stderr, "bench_cards: cannot create the %s (error %lu)\n",
                     !ours ? "card view" : !peer ? "list view" : !floor ? "floor window" : "small card view",
                     ::GetLastError());
        return 2;
    }
    BenchCardSubject* const cards[] = { ours.get(), peer.get(), floor.get(), few.get() };
    BenchSubject* const subjects[] = { ours.get(), peer.get(), floor.get(), few.get() };
    const int subjectCount = 4;
    BenchShowSubjects(subjects, subjectCount);

    BenchPrintVersions();
    std::printf("%d cards (and %d for the click's comparison) in %ld x %ld client pixels on a %d x %d screen\n",
                kCards, kFewCards, size.cx, size.cy, screenWidth, screenHeight);
    BenchPrintMethod(options);

    const std::vector<BenchResult> results = BenchRounds(
        options, kFigureCount, subjects, subjectCount,
        [&](int figure, int index) { return kTakesPart[figure][index] && BenchFigureWanted(options, kFigureOptions[figure]); },
        [&](int index) { cards[index]->ScrollToTop(); },
        [&](int figure, int index, BenchResult* result) {
            Measure(static_cast<Figure>(figure), *cards[index], options.reps, result);
        });

    const bool sound = BenchPrintResults(results, kFigureCount, subjects, subjectCount, kFigureNames,
                                         "that did not do their work", [](int, int) { return ""; });
    auto median = [&](int figure, int index) { return BenchMedian(results, subjectCount, figure, index); };
    if (options.only == nullptr && options.figure == nullptr)
    {
        std::printf("\ncards ours/peer (medians): full repaint %.2f, one-row scroll %.2f\n",
                    median(kRepaint, 0) / median(kRepaint, 1), median(kScroll, 0) / median(kScroll, 1));
        std::printf("ours/floor (full repaint) %.1f; sort of %d shuffled cards, repaint included: %.1f ms (median); "
                    "click-to-select %d/%d cards (medians) %.2f\n",
                    median(kRepaint, 0) / median(kRepaint, 2), kCards, median(kSort, 0), kCards, kFewCards,
                    median(kClick, 0) / median(kClick, 3));
    }

    few.reset();
    floor.reset();
    peer.reset();
    ours.reset();
    return sound ? 0 : 1;
}
