#include "hytest_objects.h"

#include <windows.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

namespace hytest {

namespace {

constexpr size_t kGdiEntrySize = 24;
constexpr size_t kGdiMaxEntries = 0x10000;  // handle index is the low word

const BYTE* GdiSharedHandleTable()
{
#if defined(_WIN64)
    // gs:[0x60] is the PEB (what __readgsqword(0x60) reads, without the
    // compiler's array-bounds complaint about it).
    const BYTE* peb;
    __asm__("movq %%gs:0x60, %0" : "=r"(peb));
    return *reinterpret_cast<const BYTE* const*>(peb + 0xF8);
#else
    return nullptr;
#endif
}

long CountGdiTable()
{
    const BYTE* table = GdiSharedHandleTable();
    if (!table)
        return 0;
    MEMORY_BASIC_INFORMATION mbi = {};
    if (!VirtualQuery(table, &mbi, sizeof mbi) || mbi.State != MEM_COMMIT)
        return 0;
    const size_t readable = static_cast<size_t>(static_cast<const BYTE*>(mbi.BaseAddress) + mbi.RegionSize - table);
    const size_t entries = std::min(readable / kGdiEntrySize, kGdiMaxEntries);
    const USHORT self = static_cast<USHORT>(GetCurrentProcessId());
    long live = 0;
    for (size_t i = 0; i < entries; ++i) {
        const BYTE* e = table + i * kGdiEntrySize;
        USHORT pid;
        std::memcpy(&pid, e + 8, sizeof pid);
        // Wine leaves the process field zero (its table is per process).
        if (e[14] != 0 && (pid == 0 || pid == self))
            ++live;
    }
    return live;
}

// Helper windows the system creates with a thread's first window and
// destroys with its last one.
bool IsSystemWindow(HWND hwnd)
{
    char cls[32] = "";
    GetClassNameA(hwnd, cls, sizeof cls);
    return lstrcmpiA(cls, "IME") == 0 || lstrcmpiA(cls, "OleMainThreadWndClass") == 0;
}

BOOL CALLBACK CountChild(HWND, LPARAM counter)
{
    ++*reinterpret_cast<long*>(counter);
    return TRUE;
}

void CountTree(HWND hwnd, long* counter)
{
    if (IsSystemWindow(hwnd))
        return;
    ++*counter;
    EnumChildWindows(hwnd, &CountChild, reinterpret_cast<LPARAM>(counter));  // all descendants
}

BOOL CALLBACK CountTopLevel(HWND hwnd, LPARAM counter)
{
    CountTree(hwnd, reinterpret_cast<long*>(counter));
    return TRUE;
}

long CountThreadWindows()
{
    long n = 0;
    EnumThreadWindows(GetCurrentThreadId(), &CountTopLevel, reinterpret_cast<LPARAM>(&n));
    for (HWND h = FindWindowExA(HWND_MESSAGE, nullptr, nullptr, nullptr); h;
         h = FindWindowExA(HWND_MESSAGE, h, nullptr, nullptr))
        if (GetWindowThreadProcessId(h, nullptr) == GetCurrentThreadId())
            CountTree(h, &n);
    return n;
}

long CountMenus()
{
    // A handle value without its generation word names the live object at
    // that index, so probing every index finds every menu of this process.
    // Indices advance in steps of two (an odd value names its even
    // neighbour's object, which must not be counted twice).
    long n = 0;
    for (ULONG_PTR i = 2; i < 0x10000; i += 2)
        n += IsMenu(reinterpret_cast<HMENU>(i)) != FALSE;
    return n;
}

}  // namespace

long GdiObjectCount()
{
    if (DWORD n = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS))
        return static_cast<long>(n);
    return CountGdiTable();
}

long UserObjectCount()
{
    if (DWORD n = GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS))
        return static_cast<long>(n);
    return CountThreadWindows() + CountMenus();
}

ObjectCounts CurrentObjectCounts() { return {GdiObjectCount(), UserObjectCount()}; }

ObjectGuard::ObjectGuard(const std::function<void()>& warmUp)
{
    if (warmUp)
        warmUp();
    Rebase();
}

ObjectGuard::~ObjectGuard()
{
    if (!m_checked)
        Check("at the end of the guard's scope");
}

void ObjectGuard::Rebase()
{
    m_baseline = CurrentObjectCounts();
    m_checked = false;
}

bool ObjectGuard::Check(const char* what)
{
    m_checked = true;
    const ObjectCounts now = CurrentObjectCounts();
    if (now.gdi <= m_baseline.gdi && now.user <= m_baseline.user)
        return true;
    ADD_FAILURE() << "object counts grew " << what << ": GDI " << m_baseline.gdi << " -> " << now.gdi
                  << ", USER " << m_baseline.user << " -> " << now.user;
    return false;
}

}  // namespace hytest
