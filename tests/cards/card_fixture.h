// A card view (or photo view) on a shown host frame that records its hook
// calls as short strings, with helpers that find the points of a card and
// drive the view with real mouse and key messages.
#pragma once

#include <afxwin.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "HyCardView.h"
#include "hytest.h"
#include "hytest_afx.h"

// Everything a test sets of the cards' descriptions; the same for every card.
struct SampleDesc
{
    std::string description = "Line\n";
    std::string category;
    bool isPrivate = false, masked = false, note = false, photo = false;
    std::string label;   // empty: "Card <index>"
};

template <class Base>
class RecordingView : public Base
{
public:
    std::vector<std::string> log;
    SampleDesc sample;

    using Base::GetCardCell;
    using Base::GetCardRects;

    void GetCardDescription(int i, CCardDesc& d) override
    {
        d.strLabel = sample.label.empty() ? ("Card " + std::to_string(i)).c_str() : sample.label.c_str();
        d.strDescription = sample.description.c_str();
        d.strCategory = sample.category.c_str();
        d.bPrivate = sample.isPrivate;
        d.bMasked = sample.masked;
        d.bNote = sample.note;
        d.bPhoto = sample.photo;
    }
    void OnCardSelected(int i, BOOL b) override { Log("sel", i, b); }
    void OnCardChecked(int i, BOOL b) override { Log("chk", i, b); }
    void OnCardLButtonDblClk(int i, CPoint) override { Log("dbl", i); }
    void OnCardOnRButtonDown(int i, CPoint) override { Log("rdown", i); }
    void OnCardReturnKey() override { log.push_back("ret"); }
    void DrawPhoto(CDC* pDC, int, RECT* r) override { pDC->FillSolidRect(r, RGB(255, 0, 0)); }

    CCardRects Rects(int i)
    {
        CCardRects r;
        GetCardRects(i, r);
        return r;
    }
    std::string Log() const
    {
        std::string s;
        for (const std::string& e : log)
            s += (s.empty() ? "" : "|") + e;
        return s;
    }

private:
    void Log(const char* what, int i, int b = -2)
    {
        log.push_back(std::string(what) + " " + std::to_string(i) + (b == -2 ? "" : " " + std::to_string(b)));
    }
};

// A shown frame and a focused view, clicked, keyed and dragged once: the
// theme's fonts and brushes, the frame's and scroll bar's first paints.
inline void WarmUpCards()
{
    WarmUpStandardControls();
    hytest::HostFrame frame(900, 600);
    ::ShowWindow(frame, SW_SHOW);
    ::SetForegroundWindow(frame);
    RecordingView<CHyCardView> view;
    view.sample.masked = true;
    view.Create(nullptr, "", WS_CHILD | WS_VISIBLE, CRect(0, 0, 662, 342), CWnd::FromHandle(frame), 1);
    view.SetFlags(HYCARD_CHECKBOXES);
    for (int i = 0; i < 12; ++i)
        view.AddCard(nullptr, TRUE);
    view.SetFocus();
    hytest::Click(view, 100, 100);
    hytest::KeyPress(view, VK_RIGHT);
    hytest::MouseDown(view, 218, 40);
    hytest::MouseMove(view, 240, 40);
    hytest::MouseUp(view, 240, 40);
    view.sample = SampleDesc{ "a\n<L>\nb\n", "Cat", true, false, true, true };
    view.CheckCard(-1, TRUE, TRUE);
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
        if (view.m_hWnd)
            view.DestroyWindow();
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

    static CPoint Centre(const RECT& r) { return CPoint((r.left + r.right) / 2, (r.top + r.bottom) / 2); }
    CPoint Body(int i) { return Centre(view.Rects(i).rcBody); }
    CPoint Check(int i) { return Centre(view.Rects(i).rcCheck); }
    // Cell i of the grid, which may hold no card.
    CPoint Cell(int i)
    {
        RECT r;
        view.GetCardCell(i, &r);
        return CPoint(r.left + 20, r.top + 60);
    }

    std::string Selected()
    {
        std::string s;
        for (int i = 0; i < view.GetCardCount(); ++i)
            if (view.IsCardSelected(i))
                s += (s.empty() ? "" : " ") + std::to_string(i);
        return s;
    }

    std::unique_ptr<hytest::HostFrame> frame;
    hytest::HostFrame& parent;
    RecordingView<View> view;
};
