// The library's date picker as a benchmark subject.
#include "bench_subjects.h"

#include "HyDatePicker.h"

namespace {

class OurPickerSubject : public BenchSubject
{
public:
    ~OurPickerSubject() override
    {
        StopCountingPaints();
        if (::IsWindow(m_picker.m_hWnd))
            m_picker.DestroyWindow();
        m_hostWnd.Detach();
    }

    bool Create(const BenchDays& days, SIZE client)
    {
        if (!CreateHost("ours", client, nullptr) || !m_hostWnd.Attach(m_host))
            return false;
        if (!m_picker.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, client.cx, client.cy), &m_hostWnd, 100, 4, 3))
            return false;
        m_control = m_picker.m_hWnd;
        m_picker.SetDisplayMonth(days.start.wMonth, days.start.wYear, 0);
        for (size_t i = 0; i < days.events.size(); ++i)
        {
            const SYSTEMTIME& e = days.events[i];
            m_picker.AddEvent(e.wYear, e.wMonth, e.wDay, 0, days.kinds[i]);
        }
        Restart(days.start);
        StartCountingPaints();
        return true;
    }

    const char* Name() const override { return "ours"; }

    void Restart(const SYSTEMTIME& day) override { m_picker.SetHighlightDate(day.wMonth, day.wDay, day.wYear, 0); }

    bool HasStep() const override { return true; }

    void Step(const SYSTEMTIME&) override { ::SendMessage(m_control, WM_KEYDOWN, VK_RIGHT, 1); }

    bool GetHighlight(SYSTEMTIME& day) const override
    {
        int month = 0, dayOfMonth = 0, year = 0;
        m_picker.GetHighlightDate(&month, &dayOfMonth, &year);
        day = SYSTEMTIME{};
        day.wYear = static_cast<WORD>(year);
        day.wMonth = static_cast<WORD>(month);
        day.wDay = static_cast<WORD>(dayOfMonth);
        return year > 0;
    }

    bool GetFirstMonth(int& month, int& year) const override
    {
        m_picker.GetDisplayMonth(&month, &year);
        return true;
    }

    int CalendarCount() const override { return m_picker.GetCalCount(); }

private:
    CWnd m_hostWnd;
    CHyDatePicker m_picker;
};

} // namespace

std::unique_ptr<BenchSubject> BenchCreateOurPicker(const BenchDays& days, SIZE client)
{
    std::unique_ptr<OurPickerSubject> ours(new OurPickerSubject);
    if (!ours->Create(days, client))
        return nullptr;
    return ours;
}
