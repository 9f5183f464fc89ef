// bench_timefield: one step of the time spin field against the system's date
// and time picker in time mode, in one process, with the same font and size.
// docs/benchmarks.md explains the figure.
//
//   bench_timefield [--rounds N] [--reps N] [--warmup N] [--only ours|peer]
//
// A step is Up sent to the focused field, what it posts routed (ours: the
// host passes HYET_STEPKEY to ChangeValue, as a host does), then
// UpdateWindow. Exit code 0 when every timed step painted and moved the
// minutes, 1 otherwise, 2 for a setup failure.
#include <afxwin.h>
#include <commctrl.h>

#include <cstdio>

#include "HyEditTime.h"
#include "HyTheme.h"
#include "bench_common.h"
#include "bench_stats.h"
#include "bench_subjects.h"

namespace {

constexpr SIZE kField = { 160, 26 };

// A host that wires the field's steps to the field.
class StepHost : public CWnd
{
public:
    CHyEditTimeSpinCtrl* field = nullptr;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == HYET_STEPKEY && field != nullptr) {
            field->ChangeValue((int)lParam);
            return 0;
        }
        return CWnd::WindowProc(message, wParam, lParam);
    }
};

class TimeSubject : public BenchSubject
{
public:
    virtual int Minutes() const = 0;   // the minutes shown
    virtual void Step() = 0;           // Up, and what it posts routed
};

class OurTimeField : public TimeSubject
{
public:
    ~OurTimeField() override
    {
        StopCountingPaints();
        m_field.DestroyWindow();
        m_hostWnd.UnsubclassWindow();
    }
    bool Create()
    {
        if (!CreateHost("ours", kField, nullptr) || !m_hostWnd.SubclassWindow(m_host))
            return false;
        m_hostWnd.field = &m_field;
        if (!m_field.Create(WS_CHILD | WS_VISIBLE | WS_BORDER, CRect(0, 0, kField.cx, kField.cy), &m_hostWnd, 1))
            return false;
        m_field.SetFont(HYThemeGetFont(HYFONT_STANDARD));
        m_field.SetTime(9, 30, 1);
        m_field.SetSel(3, 5);   // the minutes
        m_control = m_field.m_hWnd;
        StartCountingPaints();
        return true;
    }
    const char* Name() const override { return "ours"; }
    int Minutes() const override { return m_field.GetMins(); }
    void Step() override
    {
        ::SendMessage(m_control, WM_KEYDOWN, VK_UP, 1);
        MSG msg;
        while (::PeekMessage(&msg, m_host, HYET_STEPKEY, HYET_STEPKEY, PM_REMOVE))
            ::DispatchMessage(&msg);
    }

private:
    StepHost m_hostWnd;
    CHyEditTimeSpinCtrl m_field{ 8, 0 };
};

class PeerTimePicker : public TimeSubject
{
public:
    bool Create()
    {
        if (!CreateHost("peer", kField, nullptr))
            return false;
        m_control = ::CreateWindowEx(0, DATETIMEPICK_CLASS, "", WS_CHILD | WS_VISIBLE | WS_BORDER | DTS_TIMEFORMAT | DTS_UPDOWN,
                                     0, 0, kField.cx, kField.cy, m_host, nullptr, ::GetModuleHandle(nullptr), nullptr);
        if (m_control == nullptr)
            return false;
        ::SendMessage(m_control, WM_SETFONT, (WPARAM)HYThemeGetFont(HYFONT_STANDARD)->GetSafeHandle(), FALSE);
        SYSTEMTIME time = { 2001, 5, 2, 1, 9, 30 };
        ::SendMessage(m_control, DTM_SETSYSTEMTIME, GDT_VALID, (LPARAM)&time);
        StartCountingPaints();
        return true;
    }
    const char* Name() const override { return "peer"; }
    int Minutes() const override
    {
        SYSTEMTIME time = {};
        ::SendMessage(m_control, DTM_GETSYSTEMTIME, 0, (LPARAM)&time);
        return time.wMinute;
    }
    void Step() override { ::SendMessage(m_control, WM_KEYDOWN, VK_UP, 1); }
    // Moves the selection on with Right until Up changes the minutes (each
    // trial undone with Down): which field a focused picker selects varies.
    void SelectMinutes()
    {
        for (int i = 0; i < 8; ++i) {
            const int before = Minutes();
            Step();
            const bool minutes = Minutes() != before;
            ::SendMessage(m_control, WM_KEYDOWN, VK_DOWN, 1);
            if (minutes)
                return;
            ::SendMessage(m_control, WM_KEYDOWN, VK_RIGHT, 1);
        }
    }
};

void Measure(TimeSubject& subject, int reps, BenchResult* result)
{
    for (int i = 0; i < reps; ++i) {
        const int before = subject.Minutes();
        const long paints = subject.Paints();
        const double t0 = BenchNow();
        subject.Step();
        ::UpdateWindow(subject.Control());
        const double t1 = BenchNow();
        const int after = subject.Minutes();
        BenchPump();
        BenchRecord(result, t1 - t0, subject.Paints() - paints, after != before);
    }
}

} // namespace

int main(int argc, char** argv)
{
    BenchOptions options;
    INITCOMMONCONTROLSEX icc = { sizeof icc, ICC_DATE_CLASSES };
    if (!BenchParseOptions(argc, argv, false, options))
    {
        std::fprintf(stderr, "usage: bench_timefield [--rounds N] [--reps N] [--warmup N] [--only ours|peer]\n");
        return 2;
    }
    OurTimeField ours;
    PeerTimePicker peer;
    if (!::InitCommonControlsEx(&icc) || !ours.Create() || !peer.Create())
    {
        std::fprintf(stderr, "bench_timefield: cannot create the %s (error %lu)\n",
                     ours.Control() == nullptr ? "time field" : "date and time picker", ::GetLastError());
        return 2;
    }
    TimeSubject* const fields[] = { &ours, &peer };
    BenchSubject* const subjects[] = { &ours, &peer };
    const int subjectCount = 2;
    BenchShowSubjects(subjects, subjectCount);

    BenchPrintVersions();
    std::printf("one step of the minutes in %ld x %ld pixels\n", kField.cx, kField.cy);
    BenchPrintMethod(options);
    const char* const figureNames[] = { "Up, routed, painted" };
    const std::vector<BenchResult> results = BenchRounds(
        options, 1, subjects, subjectCount, [](int, int) { return true; }, [&](int index) {
            if (index == 1)
                peer.SelectMinutes();
        },
        [&](int, int index, BenchResult* result) { Measure(*fields[index], options.reps, result); });
    const bool sound = BenchPrintResults(results, 1, subjects, subjectCount, figureNames, "that did not move the minutes",
                                         [](int, int) { return ""; });
    if (options.only == nullptr)
        std::printf("\ntimefield ours/peer: step %.2f (medians)\n",
                    BenchMedian(results, subjectCount, 0, 0) / BenchMedian(results, subjectCount, 0, 1));
    return sound ? 0 : 1;
}
