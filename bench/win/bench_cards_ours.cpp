// The library's card view as a bench_cards subject: host-virtual cards whose
// label and description are made from the index on every request, and whose
// data is an integer key for the sort.
#include "bench_subjects.h"

#include <algorithm>
#include <random>
#include <vector>

#include "HyCardView.h"

namespace {

class BenchCardView : public CHyCardView
{
public:
    using CHyCardView::GetCardCell;

    void GetCardDescription(int nIndex, CCardDesc& desc) override
    {
        desc.strLabel.Format("Contact %d", nIndex);
        desc.strDescription.Format("Company %d & Sons\nWork:\t555-%04d\nHome:\t555-%04d\n<L>\ncontact%d@example.com\n",
                                   nIndex % 997, nIndex % 10000, (nIndex * 7) % 10000, nIndex);
        desc.strCategory = (nIndex % 3) == 0 ? "Work" : "";
        desc.bNote = (nIndex % 5) == 0;
    }
};

int CALLBACK ByKey(LPARAM a, LPARAM b, LPARAM)
{
    return a < b ? -1 : a > b ? 1 : 0;
}

class OurCardsSubject : public BenchCardSubject
{
public:
    explicit OurCardsSubject(const char* name) : m_name(name) {}
    ~OurCardsSubject() override
    {
        StopCountingPaints();
        if (::IsWindow(m_view.m_hWnd))
            m_view.DestroyWindow();
        m_hostWnd.Detach();
    }

    bool Create(SIZE client, int count)
    {
        if (!CreateHost(m_name, client, nullptr) || !m_hostWnd.Attach(m_host))
            return false;
        // The border is the view's own: the window is the client size plus it.
        if (!m_view.Create(nullptr, "", WS_CHILD | WS_VISIBLE, CRect(0, 0, client.cx, client.cy), &m_hostWnd, 100))
            return false;
        m_control = m_view.m_hWnd;
        for (int i = 0; i < count; ++i)   // the host window is not shown yet: no scroll bar repaints
            m_view.AddCard(reinterpret_cast<void*>(static_cast<INT_PTR>(i)), FALSE);
        StartCountingPaints();
        return true;
    }

    const char* Name() const override { return m_name; }
    void ScrollToTop() override { m_view.EnsureVisible(0); }

    bool Shuffle(unsigned seed) override
    {
        std::vector<int> keys(m_view.GetCardCount());
        for (size_t i = 0; i < keys.size(); ++i)
            keys[i] = static_cast<int>(i);
        std::shuffle(keys.begin(), keys.end(), std::mt19937(seed));
        for (size_t i = 0; i < keys.size(); ++i)
            m_view.SetCardData(static_cast<int>(i), reinterpret_cast<void*>(static_cast<INT_PTR>(keys[i])));
        return true;
    }

    void Sort() override { m_view.SortItems(&ByKey, 0); }

    bool InOrder() const override
    {
        for (int i = 0; i < m_view.GetCardCount(); ++i)
            if (m_view.GetCardData(i) != reinterpret_cast<void*>(static_cast<INT_PTR>(i)))
                return false;
        return true;
    }

    bool CardPoint(int index, POINT& point) const override
    {
        RECT cell;
        m_view.GetCardCell(index, &cell);
        point = POINT{ cell.left + (cell.right - cell.left) / 2, cell.top + (cell.bottom - cell.top) / 2 };
        return true;
    }

    int Selected(int* indexes, int max) const override
    {
        int n = 0;
        for (POSITION pos = m_view.GetFirstSelectedCardPosition(); pos != nullptr && n < max;)
            indexes[n++] = m_view.GetNextSelectedCardIndex(pos);
        return n;
    }

private:
    const char* m_name;
    CWnd m_hostWnd;
    BenchCardView m_view;
};

} // namespace

std::unique_ptr<BenchCardSubject> BenchCreateOurCards(SIZE client, int count, const char* name)
{
    std::unique_ptr<OurCardsSubject> ours(new OurCardsSubject(name));
    if (!ours->Create(client, count))
        return nullptr;
    return ours;
}
