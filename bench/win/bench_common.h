// What the Windows benchmarks share: the clock, the message pump, the
// visibility check, the options, the version line and the table rows.
#pragma once

#include <windows.h>

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

// One row of a results table: figure, subject, median, min, q1, q3, max and
// paints per operation, then `mark`.
void BenchPrintRow(const char* figure, const char* name, const std::vector<double>& ms, long paints, const char* mark);
void BenchPrintHeader();
