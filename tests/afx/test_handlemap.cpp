// The handle maps of windows, menus, GDI objects and DCs: an owner is seen
// only on its own thread, and temporary wrappers are freed at idle time and
// when their thread ends. And live ASSERT: misuse fails the running test.
#include <gtest/gtest.h>
#include <gtest/gtest-spi.h>

#include "hytest_afx.h"
#include "afxtempl.h"

#include <functional>
#include <vector>

namespace {

struct WndKind
{
    using Object = CWnd;
    static HWND Create() { return ::CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, 8, 8, nullptr, nullptr, nullptr, nullptr); }
    static void Destroy(HWND h) { ::DestroyWindow(h); }
    static HWND HandleOf(CWnd* p) { return p->m_hWnd; }
};
struct MenuKind
{
    using Object = CMenu;
    static HMENU Create() { return ::CreatePopupMenu(); }
    static void Destroy(HMENU h) { ::DestroyMenu(h); }
    static HMENU HandleOf(CMenu* p) { return p->m_hMenu; }
};
struct BrushKind
{
    using Object = CBrush;
    static HBRUSH Create() { return ::CreateSolidBrush(RGB(1, 2, 3)); }
    static void Destroy(HBRUSH h) { ::DeleteObject(h); }
    static HBRUSH HandleOf(CBrush* p) { return (HBRUSH)p->m_hObject; }
};
struct DCKind
{
    using Object = CDC;
    static HDC Create() { return ::CreateCompatibleDC(nullptr); }
    static void Destroy(HDC h) { ::DeleteDC(h); }
    static HDC HandleOf(CDC* p) { return p->m_hDC; }
};

void RunOnSecondThread(std::function<void()> body)
{
    HANDLE thread = ::CreateThread(nullptr, 0, [](LPVOID pv) -> DWORD {
        (*static_cast<std::function<void()>*>(pv))();
        return 0;  // ends with its temporary wrappers still in place
    }, &body, 0, nullptr);
    ASSERT_NE(nullptr, thread);
    ::WaitForSingleObject(thread, INFINITE);
    ::CloseHandle(thread);
}

// Bytes in use on every heap of the process.
long long BusyHeapBytes()
{
    HANDLE heaps[64];
    DWORD n = ::GetProcessHeaps(64, heaps);
    long long total = 0;
    for (DWORD i = 0; i < n && i < 64; ++i)
    {
        ::HeapLock(heaps[i]);
        PROCESS_HEAP_ENTRY e{};
        while (::HeapWalk(heaps[i], &e))
            if (e.wFlags & PROCESS_HEAP_ENTRY_BUSY)
                total += e.cbData;
        ::HeapUnlock(heaps[i]);
    }
    return total;
}

template <class Kind>
class HandleMaps : public ::testing::Test
{
};
using Kinds = ::testing::Types<WndKind, MenuKind, BrushKind, DCKind>;
TYPED_TEST_SUITE(HandleMaps, Kinds);

TYPED_TEST(HandleMaps, AnOwnerIsSeenOnlyOnItsOwnThread)
{
    using Object = typename TypeParam::Object;
    auto h = TypeParam::Create();
    Object owner;
    ASSERT_TRUE(owner.Attach(h));
    EXPECT_EQ(&owner, Object::FromHandle(h));

    Object* pOther = nullptr;
    decltype(h) hWrapped = nullptr;
    RunOnSecondThread([&] {
        pOther = Object::FromHandle(h);
        hWrapped = TypeParam::HandleOf(pOther);
    });
    EXPECT_NE(&owner, pOther);  // that thread had a temporary wrapper of its own
    EXPECT_EQ(h, hWrapped);
    // The ended thread's cleanup left the handle and this thread's owner alone.
    EXPECT_EQ(&owner, Object::FromHandle(h));
    EXPECT_EQ(h, owner.Detach());
    TypeParam::Destroy(h);
}

TYPED_TEST(HandleMaps, TemporaryWrappersAreFreedAtIdleAndWhenTheirThreadEnds)
{
    using Object = typename TypeParam::Object;
    WarmUpStandardControls();
    hytest::ObjectGuard guard;
    std::vector<decltype(TypeParam::Create())> handles;
    for (int i = 0; i < 200; ++i)
        handles.push_back(TypeParam::Create());
    auto thousandLookups = [&] {
        for (int round = 0; round < 5; ++round)
            for (auto h : handles)
                ASSERT_EQ(h, TypeParam::HandleOf(Object::FromHandle(h)));
    };
    auto threadRound = [&] { RunOnSecondThread(thousandLookups); };

    thousandLookups();  // warm-up: this thread's tables and the heap's own bookkeeping
    AfxDeleteTempMaps();
    threadRound();
    const long long before = BusyHeapBytes();
    for (int i = 0; i < 3; ++i)
    {
        thousandLookups();
        const long long held = BusyHeapBytes();
        AfxDeleteTempMaps();
        EXPECT_GE(held - BusyHeapBytes(), (long long)(200 * sizeof(Object))) << "not freed at idle time";
        threadRound();
    }
    EXPECT_LT(BusyHeapBytes() - before, 4096) << "wrappers of ended threads kept";
    for (auto h : handles)
        TypeParam::Destroy(h);
}

// ---- live ASSERT ----

LPCSTR g_assertFile;
int g_assertLine;
void AFXAPI RecordAssert(LPCSTR file, int line)
{
    g_assertFile = file;
    g_assertLine = line;
}

TEST(LiveAssert, AFailedAssertNamesItsPlaceAndFailsTheRunningTest)
{
    CWnd unattached;
    CArray<int, int> empty;
    AFX_ASSERT_HOOK pfnHarness = AfxSetAssertHook(&RecordAssert);
    unattached.GetStyle();  // checked inside the DLL
    AfxSetAssertHook(pfnHarness);
    ASSERT_NE(nullptr, g_assertFile);
    EXPECT_NE(nullptr, strstr(g_assertFile, "afxwndmembers.cpp")) << g_assertFile;
    EXPECT_GT(g_assertLine, 0);

    EXPECT_NONFATAL_FAILURE(unattached.GetStyle(), "ASSERT failed");
    EXPECT_NONFATAL_FAILURE(empty.SetAt(3, 1), "ASSERT failed");  // checked in the header
    EXPECT_EQ(0, empty.GetSize());
}

}  // namespace
