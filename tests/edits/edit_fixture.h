// An edit list between two edits on a shown frame that a framework window
// wraps, with the harness pumping through the framework's loop; the list
// records its hook calls as "|"-separated short strings.
#pragma once

#include <cstdio>
#include <memory>
#include <string>

#include "HyEditList.h"
#include "hytest_afx.h"   // the framework, GoogleTest and the harness

class RecordingList : public CHyEditList
{
public:
    std::string log;
    void OnItemSelected(int i, int b) override { Log("sel %d %d", i, b); }
    void OnItemLButtonDblClk(int i, CPoint) override { Log("dbl %d", i); }
    void OnItemOnRButtonDown(int i, CPoint) override { Log("rdown %d", i); }

    CListItemRects Rects(int i) { return (GetItemRects(i, rects), rects); }
    int Pos() const { return ScrollPos(); }
    std::string Value(int i)
    {
        CString s;
        GetItemValue(i, s);
        return std::string(s);
    }

private:
    CListItemRects rects;
    template <class... Args>
    void Log(const char* format, Args... args)
    {
        char entry[32];
        std::snprintf(entry, sizeof entry, format, args...);
        log.append(log.empty() ? "" : "|").append(entry);
    }
};

// The frame (a framework window), an edit before the list and one after it.
struct EditScene
{
    enum { kListId = 7, kMenu = 300 };
    FrameworkLoop loop;
    hytest::HostFrame frame{ 600, 400 };
    CWnd parent;
    CEdit before, after;
    RecordingList list;

    EditScene()
    {
        parent.SubclassWindow(frame);
        before.Create(WS_CHILD | WS_VISIBLE | WS_TABSTOP, CRect(0, 0, 100, 20), &parent, 1);
        list.CreateEx(0, WS_CHILD | WS_VISIBLE, CRect(0, 30, 400, 230), &parent, kListId);
        after.Create(WS_CHILD | WS_VISIBLE | WS_TABSTOP, CRect(0, 240, 100, 260), &parent, 2);
        ::ShowWindow(frame, SW_SHOW);
        ::SetForegroundWindow(frame);
    }
    ~EditScene()
    {
        list.DestroyWindow();
        before.DestroyWindow();
        after.DestroyWindow();
        parent.UnsubclassWindow();
    }
    // Name (plain), Address (accepts Enter), Phone (a chooser of menu 300 at Home).
    void Fill()
    {
        list.AddItem("Name", "Ann", 0, FALSE);
        list.SetItemAcceptEnter(list.AddItem("Address", "", 0, FALSE), TRUE);
        list.AddItem((UINT)kMenu, 1, nullptr, "", 0, TRUE);
        list.log.clear();
    }
    void Click(int row, bool label = false)
    {
        const CListItemRects r = list.Rects(row);
        const CPoint p = (label ? r.label : r.value).CenterPoint();
        hytest::Click(list, p.x, p.y);
    }
    // Keys go where the focus is, as a person's do.
    void Type(const char* text) { hytest::Type(::GetFocus(), text); }
    void Key(UINT vk, unsigned mods = 0)
    {
        hytest::Modifiers held(mods);
        hytest::KeyPress(::GetFocus(), vk);
    }
};

// A scene used once with every path that makes something kept per process
// or per thread: fonts, the measuring editor, a chooser, an open row, paints.
void WarmUpEdits();

class EditListTest : public GuardedTest<WarmUpEdits>
{
protected:
    EditListTest() : scene(std::make_unique<EditScene>()), list(scene->list) {}
    void TearDown() override
    {
        scene.reset();
        GuardedTest<WarmUpEdits>::TearDown();
    }
    std::unique_ptr<EditScene> scene;
    RecordingList& list;
};
