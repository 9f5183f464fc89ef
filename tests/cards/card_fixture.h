// A card view (or photo view) on a shown host frame that records its hook
// calls as "|"-separated short strings, with helpers that find the points of
// a card and read its selection.
#pragma once

#include <array>
#include <cstdio>
#include <memory>

#include "HyCardView.h"
#include "hytest_afx.h"   // the framework, GoogleTest and the harness

template <class Base>
class RecordingView : public Base
{
public:
    std::string log;
    CCardDesc sample{ .strLabel = "Card", .strDescription = "Line\n" };   // every card's

    void GetCardDescription(int, CCardDesc& d) override { d = sample; }
    void OnCardSelected(int i, BOOL b) override { Log("sel %d %d", i, b); }
    void OnCardChecked(int i, BOOL b) override { Log("chk %d %d", i, b); }
    void OnCardLButtonDblClk(int i, CPoint) override { Log("dbl %d", i); }
    void OnCardOnRButtonDown(int i, CPoint) override { Log("rdown %d", i); }
    void OnCardReturnKey() override { Log("ret"); }
    void DrawPhoto(CDC* pDC, int, RECT* r) override { pDC->FillSolidRect(r, RGB(255, 0, 0)); }

    CCardRects Rects(int i) { return (this->GetCardRects(i, rects), rects); }

private:
    CCardRects rects;
    template <class... Args>
    void Log(const char* format, Args... args)
    {
        char entry[32];
        std::snprintf(entry, sizeof entry, format, args...);
        log.append(log.empty() ? "" : "|").append(entry);
    }
};

// Fills a dialog with a focused one-card view and posts Enter, a resize
// drag with Escape inside it, and the dialog's own Cancel: posted, so that
// the dialog's loop delivers them.
template <class View>
void EnterAndEscapeInDialog(RecordingView<View>& view, HWND dialog)
{
    view.Create(nullptr, "", WS_CHILD | WS_VISIBLE, CRect(0, 0, 442, 172), CWnd::FromHandle(dialog), 7);
    view.AddCard(nullptr, FALSE);
    view.SetFocus();
    for (auto [message, wParam, x] : { std::array<UINT, 3>{ WM_KEYDOWN, VK_RETURN, 0 }, { WM_LBUTTONDOWN, 1, 218 },
                                       { WM_MOUSEMOVE, 1, 300 }, { WM_KEYDOWN, VK_ESCAPE, 0 },
                                       { WM_LBUTTONUP, 0, 300 } })
        view.PostMessage(message, wParam, message == WM_KEYDOWN ? 1 : MAKELPARAM(x, 40));
    ::PostMessage(dialog, WM_COMMAND, IDCANCEL, 0);
}

// The first uses of the process: a shown frame, a view in a dialog it owns,
// then a view in the frame with every icon, dragged: the theme's fonts and
// brushes, the icons' image lists, the first paints, the system's cached
// device contexts.
inline void WarmUpCards()
{
    WarmUpStandardControls();
    hytest::HostFrame frame(900, 600);
    ::ShowWindow(frame, SW_SHOW);
    ::SetForegroundWindow(frame);
    RecordingView<CHyCardView> view;
    {
        hytest::DialogDriver driver([&](HWND h) { EnterAndEscapeInDialog(view, h); });
        CDialog(100).DoModal();
    }
    view.Create(nullptr, "", WS_CHILD | WS_VISIBLE, CRect(0, 0, 662, 342), CWnd::FromHandle(frame), 1);
    view.sample = { .strLabel = "Card", .strDescription = "a\n", .bPrivate = 1, .bNote = 1 };   // every icon
    view.SetFlags(HYCARD_CHECKBOXES);
    for (int i = 0; i < 12; ++i)   // with a scroll bar
        view.AddCard(nullptr, TRUE);
    view.CheckCard(0, TRUE, TRUE);
    ::SetCursorPos(100, 100);   // the first pointer move
    hytest::Drag(view, 218, 40, 240, 40);   // both resize cursors
    hytest::Drag(view, 40, 168, 40, 190);
    view.DestroyWindow();
    hytest::PumpMessages();
}

template <class View>
class CardViewTest : public GuardedTest<WarmUpCards>
{
protected:
    CardViewTest() : frame(std::make_unique<hytest::HostFrame>(900, 600)), parent(*frame)
    {
        ::ShowWindow(parent, SW_SHOW);
        ::SetForegroundWindow(parent);
        parent.RecordOnly({ WM_COMMAND, WM_NOTIFY });
    }
    // The windows go before the guard's last pump, so that what they free
    // on the way is counted.
    void TearDown() override
    {
        EXPECT_EQ(parent.Count(WM_COMMAND) + parent.Count(WM_NOTIFY), 0u) << "the view talks to its parent";
        view.DestroyWindow();   // none when it went with a dialog
        frame.reset();
        GuardedTest<WarmUpCards>::TearDown();
    }

    // A view whose client area is width x height (the border added), with
    // `count` cards whose data are 1..count.
    void Create(int count, int width = 660, int height = 340, int flags = 0)
    {
        ASSERT_TRUE(view.Create(nullptr, "", WS_CHILD | WS_VISIBLE, CRect(0, 0, width + 2, height + 2),
                                CWnd::FromHandle(parent), 7));
        view.SetFlags(flags);
        for (int i = 0; i < count; ++i)
            view.AddCard((void*)(INT_PTR)(i + 1), FALSE);
        view.SetFocus();
        hytest::PumpMessages();
        view.log.clear();
    }

    // The indexes for which `is` answers true, blank-separated; "-" for none.
    template <class Is>
    std::string Which(Is is)
    {
        std::string s;
        for (int i = 0; i < view.GetCardCount(); ++i)
            if ((view.*is)(i))
                s.append(s.empty() ? "" : " ").append(std::to_string(i));
        return s.empty() ? "-" : s;
    }
    std::string Selected() { return Which(&View::IsCardSelected); }

    std::unique_ptr<hytest::HostFrame> frame;
    hytest::HostFrame& parent;
    RecordingView<View> view;
};
