// The library's edit list as a bench_editlist subject: rows from
// BenchEditRowTexts, the chooser rows on one menu built in code.
#include "bench_subjects.h"

#include "HyEditList.h"

namespace {

class OurEditSubject : public BenchEditSubject
{
public:
    ~OurEditSubject() override
    {
        StopCountingPaints();
        if (::IsWindow(m_list.m_hWnd))
            m_list.DestroyWindow();
        m_hostWnd.Detach();
        m_menu.DestroyMenu();
    }

    bool Create(SIZE client)
    {
        if (!CreateHost("ours", client, nullptr) || !m_hostWnd.Attach(m_host) || !m_menu.CreatePopupMenu())
            return false;
        for (int i = 0; i < 3; ++i)
            m_menu.AppendMenu(MF_STRING, 100 + i, kBenchChoices[i]);
        if (!m_list.CreateEx(0, WS_CHILD | WS_VISIBLE, CRect(0, 0, client.cx, client.cy), &m_hostWnd, 100))
            return false;
        m_control = m_list.m_hWnd;
        StartCountingPaints();
        return true;
    }

    const char* Name() const override { return "ours"; }
    int RowCount() const override { return m_list.GetItemCount(); }

    void Fill(int rows) override
    {
        m_list.DeleteAllItems(FALSE);
        char label[64], value[128];
        for (int i = 0; i < rows; ++i)
        {
            int choice = -1;
            BenchEditRowTexts(i, label, sizeof label, value, sizeof value, choice);
            if (choice >= 0)
                m_list.AddItem(&m_menu, choice, nullptr, value, 0, FALSE);
            else
                m_list.AddItem(label, value, 0, FALSE);
        }
    }

    HWND Open(int row) override
    {
        m_list.SelectAllItems(FALSE, FALSE);
        m_list.SelectAndScrollItem(row, TRUE);
        if (!m_list.editor.IsWindowVisible())
            return nullptr;
        m_list.editor.SetSel(-1, -1);
        ::UpdateWindow(m_control);
        return m_list.editor.m_hWnd;
    }

private:
    CWnd m_hostWnd;
    CMenu m_menu;
    CHyEditList m_list;
};

} // namespace

std::unique_ptr<BenchEditSubject> BenchCreateOurEditList(SIZE client)
{
    std::unique_ptr<OurEditSubject> ours(new OurEditSubject);
    if (!ours->Create(client))
        return nullptr;
    return ours;
}
