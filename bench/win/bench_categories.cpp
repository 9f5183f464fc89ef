// bench_categories: the swatch list against the system's list view in report
// mode (sorted, one column, a small image list of the same fifteen swatch
// colours), the same fifteen category names, font 1 and size, in one
// process. docs/benchmarks.md explains the figure.
//
//   bench_categories [--rounds N] [--reps N] [--warmup N] [--only ours|peer]
//
// Full repaint: the whole control invalidated, then UpdateWindow. Exit code
// 0 when every timed repetition painted, 1 otherwise, 2 for a setup failure.
#include <afxwin.h>
#include <commctrl.h>

#include <cstdio>

#include "HySwatchListBox.h"
#include "HyTheme.h"
#include "bench_common.h"
#include "bench_stats.h"
#include "bench_subjects.h"

namespace {

constexpr SIZE kSize = { 200, 300 };
constexpr int kCount = 15;
const char* const kNames[kCount] = { "Unfiled", "Business", "Personal", "Holiday", "Birthday", "Travel", "Meeting", "Phone Call",
                                     "Anniversary", "Doctor", "School", "Sports", "Family", "Project", "Reminder" };

class OurList : public BenchSubject
{
public:
    ~OurList() override
    {
        StopCountingPaints();
        m_list.DestroyWindow();
    }
    bool Create()
    {
        if (!CreateHost("ours", kSize, nullptr) ||
            !m_list.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, kSize.cx, kSize.cy), CWnd::FromHandle(m_host), 1))
            return false;
        for (int i = 0; i < kCount; ++i)
            m_list.AddItem(kNames[i], i + 1);
        m_list.SetCurSel(2);
        m_control = m_list.m_hWnd;
        StartCountingPaints();
        return true;
    }
    const char* Name() const override { return "ours"; }

private:
    CHySwatchListBox m_list;
};

class PeerList : public BenchSubject
{
public:
    ~PeerList() override
    {
        if (m_control != nullptr)
            ::DestroyWindow(m_control);   // the list view owns and frees its small image list
    }
    bool Create()
    {
        if (!CreateHost("peer", kSize, nullptr))
            return false;
        m_control = ::CreateWindowEx(0, WC_LISTVIEW, "", WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_SORTASCENDING | LVS_NOCOLUMNHEADER |
                                     LVS_SINGLESEL | LVS_SHOWSELALWAYS, 0, 0, kSize.cx, kSize.cy, m_host, nullptr, ::GetModuleHandle(nullptr), nullptr);
        HIMAGELIST images = ImageList_Create(12, 9, ILC_COLOR32, kCount, 0);
        if (m_control == nullptr || images == nullptr)
            return false;
        ::SendMessage(m_control, WM_SETFONT, (WPARAM)HYThemeGetFont(HYFONT_STANDARD)->GetSafeHandle(), FALSE);
        for (int i = 0; i < kCount; ++i)
        {
            HDC screen = ::GetDC(nullptr);
            HBITMAP bitmap = ::CreateCompatibleBitmap(screen, 12, 9);
            HDC dc = ::CreateCompatibleDC(screen);
            HGDIOBJ old = ::SelectObject(dc, bitmap);
            HBRUSH brush = ::CreateSolidBrush(HYThemeSwatchColor(i + 1));
            RECT all = { 0, 0, 12, 9 };
            ::FillRect(dc, &all, brush);
            ::SelectObject(dc, old);
            ImageList_Add(images, bitmap, nullptr);
            ::DeleteObject(brush), ::DeleteObject(bitmap), ::DeleteDC(dc), ::ReleaseDC(nullptr, screen);
        }
        ListView_SetImageList(m_control, images, LVSIL_SMALL);
        LVCOLUMN column = { LVCF_WIDTH, 0, kSize.cx - 4 };
        ListView_InsertColumn(m_control, 0, &column);
        for (int i = 0; i < kCount; ++i)
        {
            LVITEM item = { LVIF_TEXT | LVIF_IMAGE, i };
            item.pszText = const_cast<char*>(kNames[i]);
            item.iImage = i;
            ListView_InsertItem(m_control, &item);
        }
        ListView_SetItemState(m_control, 2, LVIS_SELECTED, LVIS_SELECTED);
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
        std::fprintf(stderr, "usage: bench_categories [--rounds N] [--reps N] [--warmup N] [--only ours|peer]\n");
        return 2;
    }
    if (!BenchInitListViews("bench_categories"))
        return 2;
    OurList ours;
    PeerList peer;
    if (!ours.Create() || !peer.Create())
    {
        std::fprintf(stderr, "bench_categories: cannot create the %s (error %lu)\n",
                     ours.Control() == nullptr ? "swatch list" : "system's list view", ::GetLastError());
        return 2;
    }
    BenchSubject* const subjects[] = { &ours, &peer };
    BenchShowSubjects(subjects, 2);
    BenchPrintVersions();
    std::printf("fifteen categories with swatches and font 1 in %ld x %ld pixels, the third selected\n", kSize.cx, kSize.cy);
    BenchPrintMethod(options);
    const char* const figureNames[] = { "full repaint" };
    const std::vector<BenchResult> results = BenchRounds(
        options, 1, subjects, 2, [](int, int) { return true; }, [](int) {},
        [&](int, int index, BenchResult* result) { BenchFullRepaints(*subjects[index], options.reps, result); });
    const bool sound = BenchPrintResults(results, 1, subjects, 2, figureNames, "", [](int, int) { return ""; });
    if (options.only == nullptr)
        std::printf("\ncategories ours/peer: full repaint %.2f\n", BenchMedian(results, 2, 0, 0) / BenchMedian(results, 2, 0, 1));
    return sound ? 0 : 1;
}
