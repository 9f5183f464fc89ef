// What the Windows benchmarks share: the clock, the message pump, the
// visibility check, the options, the version line and the table rows.
#pragma once

#include <windows.h>

#include <functional>
#include <vector>

struct BenchOptions
{
    int rounds = 30;
    int reps = 20;
    int warmup = 3;
    const char* only = nullptr;   // one subject alone, for a profiler
    SIZE size = {};               // --size WxH where a benchmark takes it; 0 x 0 when not given
    const char* figure = nullptr; // --figure NAME where a benchmark takes it: that figure alone
};

// --rounds N, --reps N, --warmup N (0 or more), --only NAME and, with
// `takesSizeAndFigure`, --size WxH and --figure NAME. False for anything else.
bool BenchParseOptions(int argc, char** argv, bool takesSizeAndFigure, BenchOptions& options);

// Registers the list view's classes; false, with a message naming the
// program, when the system refuses.
bool BenchInitListViews(const char* program);

// Whether --figure leaves the figure `option` in (every figure when none is given).
bool BenchFigureWanted(const BenchOptions& options, const char* option);

// Milliseconds from QueryPerformanceCounter.
double BenchNow();

// Dispatches what the last repetition queued (notifications, timers) before
// the next one is timed.
void BenchPump();

// The whole client area can be drawn on: the clip box of a window DC covers
// the client rectangle (within the window's own region, if it has one).
bool BenchFullyVisible(HWND hwnd);

// "Wine <version>, comctl32 <major>.<minor>" and a line feed, as far as known.
void BenchPrintVersions();

// "R rounds x N repetitions after W warm-up rounds; ms per operation" and a blank line.
void BenchPrintMethod(const BenchOptions& options);

// One row of a results table: figure, subject, median, min, q1, q3, max and
// paints per operation, then `mark`.
void BenchPrintRow(const char* figure, const char* name, const std::vector<double>& ms, long paints, const char* mark);
void BenchPrintHeader();

// What one subject gave for one figure.
struct BenchResult
{
    std::vector<double> ms;
    long paints = 0;
    int unpainted = 0;   // timed repetitions without a WM_PAINT
    int wrong = 0;       // repetitions that did not do their work (a benchmark says which)
    int hidden = 0;      // batches in which the control was not fully visible
};

// Adds one timed repetition to `result` (nothing when it is null).
void BenchRecord(BenchResult* result, double ms, long painted, bool right);

class BenchSubject;

// Shows every subject's window without activating it, then dispatches what
// that queued.
void BenchShowSubjects(BenchSubject* const* subjects, int count);

// Warm-up rounds, then measured rounds (`options`); in each, every figure
// for every subject that `takesPart` in it (and is --only's, when given), the
// subjects' order rotating from round to round so that a slow phase of the
// machine falls on all of them. A batch brings the subject's window to the
// top and focuses its control, lets `reset` put it back at its start,
// repaints it and dispatches what is pending, counting the batch when the
// control is not wholly visible; then `measure(figure, subject, result)`
// times it, `result` null in warm-up rounds. Answers the results, figure by
// figure, subject by subject.
std::vector<BenchResult> BenchRounds(const BenchOptions& options, int figures, BenchSubject* const* subjects,
                                     int count, const std::function<bool(int figure, int subject)>& takesPart,
                                     const std::function<void(int subject)>& reset,
                                     const std::function<void(int figure, int subject, BenchResult* result)>& measure);

// Prints the table of BenchRounds' results (empty ones skipped), each row
// with its mark, and a "!" line under every row whose repetitions did not
// all paint, do their work (`wrongWhat`, e.g. "steps that did not move the
// day") and see the whole control, and then, when any did not, a line saying
// that the figures are not comparable. Answers whether none did.
bool BenchPrintResults(const std::vector<BenchResult>& results, int figures, BenchSubject* const* subjects, int count,
                       const char* const* figureNames, const char* wrongWhat,
                       const std::function<const char*(int figure, int subject)>& mark);

// The median of one figure's subject in BenchRounds' results.
double BenchMedian(const std::vector<BenchResult>& results, int count, int figure, int subject);
