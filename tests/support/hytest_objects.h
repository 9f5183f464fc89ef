// GDI and USER object counts of this process, and a guard that fails a test
// when they grow.
#pragma once

#include <functional>

namespace hytest {

struct ObjectCounts
{
    long gdi = 0;
    long user = 0;
};

// Live GDI objects of this process: GetGuiResources(GR_GDIOBJECTS) where it
// answers, otherwise the live entries of the process's GDI shared handle
// table (PEB->GdiSharedHandleTable, 24-byte entries, live when the type byte
// at offset 14 is non-zero; an entry naming another process is skipped).
long GdiObjectCount();

// USER objects: GetGuiResources(GR_USEROBJECTS) where it answers, otherwise
// the windows of this thread (top-level, their descendants and message-only
// windows; the system's per-thread IME and OLE helper windows excluded) plus the menus this
// process can reach (IsMenu over the handle table's indices).
long UserObjectCount();

ObjectCounts CurrentObjectCounts();

// Takes a baseline (after running the optional warm-up) and, at Check() or
// destruction, fails the test with both counts when either has grown.
class ObjectGuard
{
public:
    explicit ObjectGuard(const std::function<void()>& warmUp = {});
    ~ObjectGuard();
    ObjectGuard(const ObjectGuard&) = delete;
    ObjectGuard& operator=(const ObjectGuard&) = delete;

    void Rebase();                  // new baseline: now
    bool Check(const char* what = "");  // ADD_FAILURE on growth; false then
    void Dismiss() { m_checked = true; }  // no check at destruction

private:
    ObjectCounts m_baseline;
    bool m_checked = false;
};

}  // namespace hytest
