// An edit list between two edits on a shown frame that a framework window
// wraps, with the harness pumping through the framework's loop; the list
// records its hook calls as "|"-separated short strings.
#pragma once

#include <memory>
#include <string>

#include "HyEditList.h"
#include "hytest_afx.h"   // the framework, GoogleTest and the harness

class RecordingList : public CHyEditList
{
public:
    std::string log;
    void OnItemSelected(int i, int b) override { Log("sel " + std::to_string(i) + " " + std::to_string(b)); }
    void OnItemLButtonDblClk(int i, CPoint) override { Log("dbl " + std::to_string(i)); }
    void OnItemOnRButtonDown(int i, CPoint) override { Log("rdown " + std::to_string(i)); }
    void Log(const std::string& entry) { log.append(log.empty() ? "" : "|").append(entry); }

    CListItemRects Rects(int i) { return (GetItemRects(i, rects), rects); }
    int Pos() const { return ScrollPos(); }
    int Height(int i) const { int h = 0; return (GetItemSize(i, nullptr, &h), h); }
    std::string Value(int i) { return (GetItemValue(i, text), std::string(text)); }
    std::string Label(int i) { return (GetItemLabel(i, text), std::string(text)); }
    CRect EditorRect() { return (editor.GetWindowRect(&rects.cell), ScreenToClient(&rects.cell), rects.cell); }

private:
    CListItemRects rects;
    CString text;
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
    ~EditScene() { parent.UnsubclassWindow(); }   // the controls go with their objects
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
        const CPoint p = (label ? list.Rects(row).label : list.Rects(row).value).CenterPoint();
        hytest::Click(list, p.x, p.y);
    }
    // Steps, blank-separated: cN / lN click row N's value / label, dN delete
    // row N (D: all), tTEXT type, E Enter, T Tab, S Shift+Tab, x click the
    // edit after the list, h hide and show the list, b hide the edit before
    // it, k / f / g focus the list from the frame / the edit before / after.
    // Keys go where the focus is, as a person's do.
    void Run(const std::string& steps);
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
