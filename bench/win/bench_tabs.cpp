// bench_tabs: the tab control against the system's tab control
// (SysTabControl32, one row), the same eight tabs (texts, 16-pixel icons,
// font 1) at the same size, and the floor of a full repaint, in one process.
// docs/benchmarks.md explains the figures.
//
//   bench_tabs [--rounds N] [--reps N] [--warmup N] [--only ours|peer|floor] [--figure repaint|switch]
//
// Full repaint: the whole control invalidated, then UpdateWindow. Tab
// switch: WM_KEYDOWN and WM_KEYUP of Right, then UpdateWindow (ours acts at
// key-up, the peer at key-down); before a step from the last tab both are
// put back on the first, untimed, since the peer does not wrap. Exit code 0
// when every timed repetition painted (and every switch moved the tab), 1
// otherwise, 2 for a setup failure.
#include <afxwin.h>
#include <commctrl.h>

#include <cstdio>
#include <memory>

#include "HyTabCtrl.h"
#include "HyTheme.h"
#include "bench_common.h"
#include "bench_stats.h"
#include "bench_subjects.h"

namespace {

constexpr SIZE kSize = { 640, 120 };
constexpr int kTabs = 8;
const char* const kNames[kTabs] = { "Contacts", "Calendar", "Memos", "Tasks", "Categories", "Photos", "Notes", "Settings" };
const LPCTSTR kIcons[4] = { IDI_INFORMATION, IDI_WARNING, IDI_QUESTION, IDI_ERROR };

class TabSubject : public BenchSubject
{
public:
    virtual int Active() const = 0;
    virtual void SetFirst() = 0;
};

class OurTabs : public TabSubject
{
public:
    ~OurTabs() override
    {
        StopCountingPaints();
        m_tabs.DestroyWindow();
    }
    bool Create()
    {
        if (!CreateHost("ours", kSize, nullptr))
            return false;
        for (int i = 0; i < kTabs; ++i)
            m_tabs.AddItem(kNames[i], i, ::LoadIcon(nullptr, kIcons[i % 4]));
        if (!m_tabs.Create(WS_CHILD | WS_VISIBLE | HYTAB_STYLE_TABS, CRect(0, 0, kSize.cx, kSize.cy), CWnd::FromHandle(m_host), 1))
            return false;
        m_tabs = 0;
        m_control = m_tabs.m_hWnd;
        StartCountingPaints();
        return true;
    }
    const char* Name() const override { return "ours"; }
    int Active() const override { return const_cast<CHyTabCtrl&>(m_tabs).GetActiveItem(); }
    void SetFirst() override { m_tabs = 0; }

private:
    CHyTabCtrl m_tabs;
};

class PeerTabs : public TabSubject
{
public:
    ~PeerTabs() override
    {
        if (m_images != nullptr)
            ImageList_Destroy(m_images);
    }
    bool Create()
    {
        if (!CreateHost("peer", kSize, nullptr))
            return false;
        m_control = ::CreateWindowEx(0, WC_TABCONTROL, "", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS, 0, 0, kSize.cx, kSize.cy,
                                     m_host, nullptr, ::GetModuleHandle(nullptr), nullptr);
        m_images = ImageList_Create(16, 16, ILC_COLOR32 | ILC_MASK, kTabs, 0);
        if (m_control == nullptr || m_images == nullptr)
            return false;
        ::SendMessage(m_control, WM_SETFONT, (WPARAM)HYThemeGetFont(HYFONT_STANDARD)->GetSafeHandle(), FALSE);
        for (int i = 0; i < kTabs; ++i)
            ImageList_AddIcon(m_images, ::LoadIcon(nullptr, kIcons[i % 4]));
        TabCtrl_SetImageList(m_control, m_images);
        for (int i = 0; i < kTabs; ++i)
        {
            TCITEM item = { TCIF_TEXT | TCIF_IMAGE };
            item.pszText = const_cast<char*>(kNames[i]);
            item.iImage = i;
            TabCtrl_InsertItem(m_control, i, &item);
        }
        StartCountingPaints();
        return true;
    }
    const char* Name() const override { return "peer"; }
    int Active() const override { return TabCtrl_GetCurSel(m_control); }
    void SetFirst() override { TabCtrl_SetCurSel(m_control, 0); }

private:
    HIMAGELIST m_images = nullptr;
};

void Switch(TabSubject& subject, int reps, BenchResult* result)
{
    for (int i = 0; i < reps; ++i)
    {
        if (subject.Active() == kTabs - 1)
        {
            subject.SetFirst();
            ::UpdateWindow(subject.Control());
            BenchPump();
        }
        const int before = subject.Active();
        const long paints = subject.Paints();
        const double t0 = BenchNow();
        ::SendMessage(subject.Control(), WM_KEYDOWN, VK_RIGHT, 0x014D0001);
        ::SendMessage(subject.Control(), WM_KEYUP, VK_RIGHT, 0xC14D0001);
        ::UpdateWindow(subject.Control());
        const double t1 = BenchNow();
        BenchPump();
        BenchRecord(result, t1 - t0, subject.Paints() - paints, subject.Active() == before + 1);
    }
}

}  // namespace

int main(int argc, char** argv)
{
    BenchOptions options;
    INITCOMMONCONTROLSEX icc = { sizeof icc, ICC_TAB_CLASSES };
    if (!BenchParseOptions(argc, argv, true, options))
    {
        std::fprintf(stderr, "usage: bench_tabs [--rounds N] [--reps N] [--warmup N] [--only ours|peer|floor] "
                             "[--figure repaint|switch]\n");
        return 2;
    }
    OurTabs ours;
    PeerTabs peer;
    std::unique_ptr<BenchCardSubject> floor = BenchCreateFloor(kSize);
    if (!::InitCommonControlsEx(&icc) || !ours.Create() || !peer.Create() || !floor)
    {
        std::fprintf(stderr, "bench_tabs: cannot create the %s (error %lu)\n",
                     ours.Control() == nullptr ? "tab control" : peer.Control() == nullptr ? "system's tab control" : "floor window",
                     ::GetLastError());
        return 2;
    }
    TabSubject* const tabs[] = { &ours, &peer };
    BenchSubject* const subjects[] = { &ours, &peer, floor.get() };
    BenchShowSubjects(subjects, 3);
    BenchPrintVersions();
    std::printf("eight tabs with 16-pixel icons and font 1 in %ld x %ld pixels, one row\n", kSize.cx, kSize.cy);
    BenchPrintMethod(options);
    const char* const figureNames[] = { "full repaint", "tab switch" };
    const char* const figureOptions[] = { "repaint", "switch" };
    const std::vector<BenchResult> results = BenchRounds(
        options, 2, subjects, 3,
        [&](int figure, int subject) { return BenchFigureWanted(options, figureOptions[figure]) && (figure == 0 || subject < 2); },
        [](int) {},
        [&](int figure, int index, BenchResult* result) {
            figure == 0 ? BenchFullRepaints(*subjects[index], options.reps, result) : Switch(*tabs[index], options.reps, result);
        });
    const bool sound = BenchPrintResults(results, 2, subjects, 3, figureNames, "that did not move to the next tab",
                                         [](int, int) { return ""; });
    if (options.only == nullptr && options.figure == nullptr)
        std::printf("\ntabs ours/peer: full repaint %.2f, tab switch %.2f (medians)\n",
                    BenchMedian(results, 3, 0, 0) / BenchMedian(results, 3, 0, 1),
                    BenchMedian(results, 3, 1, 0) / BenchMedian(results, 3, 1, 1));
    return sound ? 0 : 1;
}
