// bench_editlist: the edit list with 200 rows against the system's list view
// in report mode with label editing (two columns, the same texts, font 1,
// the same size) and the floor of a full repaint, in one process.
// docs/benchmarks.md explains the figures.
//
//   bench_editlist [--rounds N] [--reps N] [--warmup N] [--only ours|peer|floor] [--figure layout|typing]
//
// Layout + paint: empty the view, add 200 rows without painting (the list
// view between WM_SETREDRAW off and on), one RedrawWindow that updates now.
// Typing: one WM_CHAR to the open editor of row 100 (the list view's:
// LVM_EDITLABEL's edit; the floor's: a bare multi-line edit like ours), then
// UpdateWindow; the text is put back untimed.
// Exit code 0 when every timed repetition painted and did its work, 1
// otherwise, 2 for a setup failure.
#include <windows.h>
#include <commctrl.h>

#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include <afxwin.h>
#include "HyEditMsgs.h"
#include "HyTheme.h"
#include "bench_common.h"
#include "bench_stats.h"
#include "bench_subjects.h"

namespace {

constexpr int kRows = 200;
constexpr int kTypedRow = 100;
constexpr SIZE kClient = { 640, 720 };

enum Figure
{
    kLayout,
    kTyping,
    kFigureCount
};

const char* const kFigureNames[kFigureCount] = { "layout + paint", "typing" };
const char* const kFigureOptions[kFigureCount] = { "layout", "typing" };
const bool kTakesPart[kFigureCount][3] = { { true, true, true }, { true, true, true } };

class PeerEditSubject : public BenchEditSubject
{
public:
    bool Create(SIZE client)
    {
        if (!CreateHost("peer", client, nullptr))
            return false;
        m_control = ::CreateWindowEx(0, WC_LISTVIEW, "", WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_EDITLABELS, 0, 0,
                                     client.cx, client.cy, m_host, nullptr, ::GetModuleHandle(nullptr), nullptr);
        if (m_control == nullptr)
            return false;
        ::SendMessage(m_control, WM_SETFONT, (WPARAM)HYThemeGetFont(HYFONT_STANDARD)->GetSafeHandle(), FALSE);
        const int labelWidth = client.cx / 3;
        LVCOLUMN column = { LVCF_TEXT | LVCF_WIDTH };
        column.pszText = const_cast<char*>("Label");
        column.cx = labelWidth;
        ::SendMessage(m_control, LVM_INSERTCOLUMN, 0, (LPARAM)&column);
        column.pszText = const_cast<char*>("Value");
        column.cx = client.cx - labelWidth - ::GetSystemMetrics(SM_CXVSCROLL);
        ::SendMessage(m_control, LVM_INSERTCOLUMN, 1, (LPARAM)&column);
        StartCountingPaints();
        return true;
    }

    const char* Name() const override { return "peer"; }
    int RowCount() const override { return (int)::SendMessage(m_control, LVM_GETITEMCOUNT, 0, 0); }

    void Fill(int rows) override
    {
        ::SendMessage(m_control, WM_SETREDRAW, FALSE, 0);
        ::SendMessage(m_control, LVM_DELETEALLITEMS, 0, 0);
        char label[64], value[128];
        for (int i = 0; i < rows; ++i)
        {
            int choice = -1;
            BenchEditRowTexts(i, label, sizeof label, value, sizeof value, choice);
            LVITEM item = { LVIF_TEXT, i };
            item.pszText = label;
            ::SendMessage(m_control, LVM_INSERTITEM, 0, (LPARAM)&item);
            item.iSubItem = 1;
            item.pszText = value;
            ::SendMessage(m_control, LVM_SETITEMTEXT, i, (LPARAM)&item);
        }
        ::SendMessage(m_control, WM_SETREDRAW, TRUE, 0);
    }

    HWND Open(int row) override
    {
        ::SetFocus(m_control);
        ::SendMessage(m_control, LVM_ENSUREVISIBLE, row, FALSE);
        HWND edit = (HWND)::SendMessage(m_control, LVM_EDITLABEL, row, 0);
        if (edit == nullptr)
            return nullptr;
        const int length = ::GetWindowTextLength(edit);
        ::SendMessage(edit, EM_SETSEL, length, length);
        ::UpdateWindow(m_control);
        return edit;
    }
};

std::string TextOf(HWND hwnd)
{
    std::string text((size_t)::GetWindowTextLength(hwnd) + 1, '\0');
    text.resize((size_t)::GetWindowText(hwnd, &text[0], (int)text.size()));
    return text;
}

void MeasureLayout(BenchSubject& subject, BenchEditSubject* edits, int reps, BenchResult* result)
{
    for (int i = 0; i < reps; ++i)
    {
        const long before = subject.Paints();
        const double t0 = BenchNow();
        if (edits != nullptr)
            edits->Fill(kRows);
        ::RedrawWindow(subject.Control(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
        const double t1 = BenchNow();
        BenchPump();
        BenchRecord(result, t1 - t0, subject.Paints() - before, edits == nullptr || edits->RowCount() == kRows);
    }
}

// The typing floor: the system's multi-line edit alone, with the in-place
// editor's style, font and size and row 100's text, the caret at the end.
HWND OpenBareEdit(BenchSubject& floor)
{
    char label[64], value[128];
    int choice = -1;
    BenchEditRowTexts(kTypedRow, label, sizeof label, value, sizeof value, choice);
    HWND edit = ::CreateWindowEx(0, "EDIT", value, HYEL_EDITOR_STYLE | WS_VISIBLE, 0, 0, kClient.cx * 2 / 3, 16,
                                 floor.Control(), nullptr, ::GetModuleHandle(nullptr), nullptr);
    ::SendMessage(edit, WM_SETFONT, (WPARAM)HYThemeGetFont(HYFONT_STANDARD)->GetSafeHandle(), FALSE);
    ::SetFocus(edit);
    ::SendMessage(edit, EM_SETSEL, std::strlen(value), std::strlen(value));
    ::UpdateWindow(floor.Control());
    return edit;
}

void MeasureTyping(BenchSubject& subject, BenchEditSubject* edits, int reps, BenchResult* result)
{
    HWND editor = edits != nullptr ? edits->Open(kTypedRow) : OpenBareEdit(subject);
    if (editor == nullptr)
    {
        for (int i = 0; i < reps; ++i)
            BenchRecord(result, 0, 0, false);
        return;
    }
    BenchCountPaints(editor);
    const std::string text = TextOf(editor);
    for (int i = 0; i < reps; ++i)
    {
        const long before = BenchPaintsOf(editor);
        const double t0 = BenchNow();
        ::SendMessage(editor, WM_CHAR, 'x', 1);
        ::UpdateWindow(subject.Control());
        const double t1 = BenchNow();
        const bool right = TextOf(editor) == text + "x";
        const long painted = BenchPaintsOf(editor) - before;
        ::SetWindowText(editor, text.c_str());
        ::SendMessage(editor, EM_SETSEL, text.size(), text.size());
        ::UpdateWindow(subject.Control());
        BenchPump();
        BenchRecord(result, t1 - t0, painted, right);
    }
    BenchStopCountingPaints(editor);
    if (edits == nullptr)
        ::DestroyWindow(editor);
}

} // namespace

int main(int argc, char** argv)
{
    BenchOptions options;
    if (!BenchParseOptions(argc, argv, true, options) || options.size.cx != 0)
    {
        std::fprintf(stderr, "usage: bench_editlist [--rounds N] [--reps N] [--warmup N] [--only ours|peer|floor] "
                             "[--figure layout|typing]\n");
        return 2;
    }
    if (!BenchInitListViews("bench_editlist"))
        return 2;
    std::unique_ptr<BenchEditSubject> ours = BenchCreateOurEditList(kClient);
    std::unique_ptr<PeerEditSubject> peer(new PeerEditSubject);
    std::unique_ptr<BenchCardSubject> floor = BenchCreateFloor(kClient);
    if (!ours || !peer->Create(kClient) || !floor)
    {
        std::fprintf(stderr, "bench_editlist: cannot create the %s (error %lu)\n",
                     !ours ? "edit list" : !floor ? "floor window" : "list view", ::GetLastError());
        return 2;
    }
    BenchEditSubject* const edits[] = { ours.get(), peer.get(), nullptr };
    BenchSubject* const subjects[] = { ours.get(), peer.get(), floor.get() };
    const int subjectCount = 3;
    BenchShowSubjects(subjects, subjectCount);
    ours->Fill(kRows);
    peer->Fill(kRows);
    BenchPump();

    BenchPrintVersions();
    std::printf("%d rows (a third choosers, every tenth two lines) in %ld x %ld client pixels\n", kRows, kClient.cx,
                kClient.cy);
    BenchPrintMethod(options);

    const std::vector<BenchResult> results = BenchRounds(
        options, kFigureCount, subjects, subjectCount,
        [&](int figure, int index) { return kTakesPart[figure][index] && BenchFigureWanted(options, kFigureOptions[figure]); },
        [&](int) {},
        [&](int figure, int index, BenchResult* result) {
            if (figure == kLayout)
                MeasureLayout(*subjects[index], edits[index], options.reps, result);
            else
                MeasureTyping(*subjects[index], edits[index], options.reps, result);
        });

    const bool sound = BenchPrintResults(results, kFigureCount, subjects, subjectCount, kFigureNames,
                                         "that did not do their work", [](int, int) { return ""; });
    auto median = [&](int figure, int index) { return BenchMedian(results, subjectCount, figure, index); };
    if (options.only == nullptr && options.figure == nullptr)
    {
        std::printf("\nours/floor: layout + paint %.1f, typing %.2f (the floor of typing: the system's edit alone)\n",
                    median(kLayout, 0) / median(kLayout, 2), median(kTyping, 0) / median(kTyping, 2));
        std::printf("editlist ours/peer: layout+paint %.2f, typing %.2f (medians)\n",
                    median(kLayout, 0) / median(kLayout, 1), median(kTyping, 0) / median(kTyping, 1));
    }
    floor.reset();
    peer.reset();
    ours.reset();
    return sound ? 0 : 1;
}
