// What the Windows benchmarks measure: each subject is one control filling
// the client area of a top-level popup window of its own at the screen's
// origin. The measured one is brought to the top, so that nothing covers it.
#pragma once

#include <windows.h>

#include <memory>
#include <vector>

// The days both calendars show: the highlighted day at the start of every
// batch and the days marked as having events.
struct BenchDays
{
    SYSTEMTIME start = {};
    std::vector<SYSTEMTIME> events;
    std::vector<int> kinds;   // the picker's kind of mark per event
};

SYSTEMTIME BenchAddDays(const SYSTEMTIME& day, int days);
bool BenchSameDay(const SYSTEMTIME& a, const SYSTEMTIME& b);

// Counting the WM_PAINT messages of any window (a handful at a time):
// subclass it, read the count, restore its window procedure (safe twice).
void BenchCountPaints(HWND hwnd);
void BenchStopCountingPaints(HWND hwnd);
long BenchPaintsOf(HWND hwnd);

class BenchSubject
{
public:
    virtual ~BenchSubject();
    BenchSubject(const BenchSubject&) = delete;
    BenchSubject& operator=(const BenchSubject&) = delete;

    virtual const char* Name() const = 0;
    HWND Host() const { return m_host; }
    HWND Control() const { return m_control; }
    // WM_PAINT messages the control has received so far.
    long Paints() const;

    // Highlights `day` again without painting (the caller repaints).
    virtual void Restart(const SYSTEMTIME& day) {}
    // Whether Step moves the highlighted day to the next one.
    virtual bool HasStep() const { return false; }
    // Moves the highlight to `next` the way a user does it; the caller then
    // calls UpdateWindow, inside the timed span.
    virtual void Step(const SYSTEMTIME& next) {}
    virtual bool GetHighlight(SYSTEMTIME& day) const { return false; }
    // Month and year of the first calendar, and the number of calendars shown.
    virtual bool GetFirstMonth(int& month, int& year) const { return false; }
    virtual int CalendarCount() const { return 0; }

protected:
    BenchSubject() = default;
    // A popup at the screen's origin with the given client size, not yet
    // shown; `days` answers the month calendar's day-state requests.
    bool CreateHost(const char* title, SIZE client, const BenchDays* days);
    // Subclasses the control to count its WM_PAINT messages.
    void StartCountingPaints();
    // Restores the control's window procedure; safe to call twice.
    void StopCountingPaints();

    HWND m_host = nullptr;
    HWND m_control = nullptr;
};

// The month calendar of the system's common controls, with the dialog font
// (DEFAULT_GUI_FONT), as a dialog would give it, and bold event days.
class BenchPeerCalendar : public BenchSubject
{
public:
    // Sizes the calendar from MCM_GETMINREQRECT to 4 x 3 months, widened or
    // heightened a pixel at a time while it shows fewer than twelve.
    static std::unique_ptr<BenchPeerCalendar> Create(const BenchDays& days);
    ~BenchPeerCalendar() override;

    const char* Name() const override { return "peer"; }
    void Restart(const SYSTEMTIME& day) override;
    bool HasStep() const override { return true; }
    void Step(const SYSTEMTIME& next) override;
    bool GetHighlight(SYSTEMTIME& day) const override;
    bool GetFirstMonth(int& month, int& year) const override;
    int CalendarCount() const override;

    SIZE ClientSize() const { return m_size; }
    SIZE OneMonth() const { return m_oneMonth; }
    // Whether MCM_GETCALENDARCOUNT answers (else CalendarCount counts the
    // months of MCM_GETMONTHRANGE).
    bool HasCalendarCount() const { return m_hasCalendarCount; }
    // Sends VK_RIGHT to the focused calendar once and sees whether the
    // selection moved. When it does not, Step selects the next day with
    // MCM_SETCURSEL, which is what the control would do for the key.
    void DetectArrowKeys(const SYSTEMTIME& start);
    bool ArrowKeysMove() const { return m_keysMove; }

private:
    BenchPeerCalendar() = default;
    void SetDayState();

    const BenchDays* m_days = nullptr;
    SIZE m_size = {};
    SIZE m_oneMonth = {};
    bool m_hasCalendarCount = false;
    bool m_keysMove = false;
};

struct BenchResult;

// `reps` timed full repaints of the subject's control: all of it
// invalidated, then UpdateWindow; what that queued is dispatched untimed.
void BenchFullRepaints(BenchSubject& subject, int reps, BenchResult* result);

// ---- bench_cards ----------------------------------------------------------

// A view of `count` host-virtual cards (or list items) whose texts are made
// from the index: what bench_cards scrolls, sorts and clicks.
class BenchCardSubject : public BenchSubject
{
public:
    // Back to the first row, untimed.
    virtual void ScrollToTop() = 0;
    // Gives the cards shuffled keys (untimed); false where there is no sort.
    virtual bool Shuffle(unsigned seed) { return false; }
    // SortItems by the integer key, ascending; the caller repaints inside the
    // timed span and then asks, untimed, whether the keys run in order.
    virtual void Sort() {}
    virtual bool InOrder() const { return false; }
    // The client point of card `index`, for a click; false where clicks are not measured.
    virtual bool CardPoint(int index, POINT& point) const { return false; }
    // The cards selected, in index order, at most `max` of them.
    virtual int Selected(int* indexes, int max) const { return 0; }
};

// The floor of a full repaint: a window whose paint creates a memory bitmap
// of its client size, fills it and blits it, and does nothing else.
// It takes part in bench_cards' full repaint only.
std::unique_ptr<BenchCardSubject> BenchCreateFloor(SIZE client);

// The library's date picker, 4 x 3 months, with the same highlighted day and
// events (bench_ours.cpp).
std::unique_ptr<BenchSubject> BenchCreateOurPicker(const BenchDays& days, SIZE client);

// The system's list view, LVS_ICON | LVS_OWNERDATA, `count` items, texts
// from LVN_GETDISPINFO, no image list.
std::unique_ptr<BenchCardSubject> BenchCreatePeerList(SIZE client, int count);

// The library's card view with `count` cards (bench_cards_ours.cpp).
std::unique_ptr<BenchCardSubject> BenchCreateOurCards(SIZE client, int count, const char* name);

// ---- bench_editlist -------------------------------------------------------

// The texts of row `index` of bench_editlist: a label and a value, and the
// chosen entry (0-2) of a chooser row, -1 for a plain row. A third of the
// rows are choosers; every tenth value has two lines.
void BenchEditRowTexts(int index, char* label, size_t labelSize, char* value, size_t valueSize, int& choice);
extern const char* const kBenchChoices[3];

// An edit list, or a list view in report mode with label editing.
class BenchEditSubject : public BenchSubject
{
public:
    // Empties the view and adds `rows` rows without painting them; the
    // caller then repaints, inside the timed span.
    virtual void Fill(int rows) = 0;
    virtual int RowCount() const = 0;
    // Opens `row` for editing (untimed), its text selected off and the caret
    // at the end; answers the window that takes the typing, or nullptr.
    virtual HWND Open(int row) = 0;
};

// The library's edit list (bench_editlist_ours.cpp).
std::unique_ptr<BenchEditSubject> BenchCreateOurEditList(SIZE client);
