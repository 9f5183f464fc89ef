// Entry point of every Wine-run suite.
//
// A listener checks after each test that the test destroyed every top-level
// window it created on this thread. A window left behind is reported as a
// failure of that test (class and title named) and only then destroyed, so
// the leak is never hidden and later tests start from a clean thread.
// Messages still queued at that point are discarded without being
// dispatched: no code of a finished test runs during the next one.
//
// Each suite runs on a desktop of its own. Focus, activation and the
// foreground window belong to a desktop, so suites that CTest runs side by
// side never take the focus from each other's windows.
//
// A failed ASSERT in the framework or in code built on it (live in this
// build) fails the running test at the ASSERT's file and line.
#include <gtest/gtest.h>
#include <windows.h>

#include "afxver.h"

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

namespace {

BOOL CALLBACK CollectWindow(HWND hwnd, LPARAM list)
{
    reinterpret_cast<std::vector<HWND>*>(list)->push_back(hwnd);
    return TRUE;
}

std::vector<HWND> ThreadWindows()
{
    std::vector<HWND> list;
    EnumThreadWindows(GetCurrentThreadId(), &CollectWindow, reinterpret_cast<LPARAM>(&list));
    list.erase(std::remove_if(list.begin(), list.end(),
                              [](HWND h) {
                                  char cls[32] = "";
                                  GetClassNameA(h, cls, sizeof cls);
                                  return lstrcmpiA(cls, "IME") == 0;  // the system's own
                              }),
               list.end());
    return list;
}

class LeftoverWindowCheck : public testing::EmptyTestEventListener
{
    void OnTestStart(const testing::TestInfo&) override { m_before = ThreadWindows(); }

    void OnTestEnd(const testing::TestInfo&) override
    {
        std::vector<HWND> leftovers;
        for (HWND h : ThreadWindows())
            if (std::find(m_before.begin(), m_before.end(), h) == m_before.end())
                leftovers.push_back(h);
        for (HWND h : leftovers) {
            char cls[64] = "", title[64] = "";
            GetClassNameA(h, cls, sizeof cls);
            GetWindowTextA(h, title, sizeof title);
            ADD_FAILURE() << "window left behind by the test: class \"" << cls << "\", title \"" << title << "\"";
        }
        for (HWND h : leftovers)
            if (IsWindow(h))
                DestroyWindow(h);
        MSG msg;
        while (PeekMessageA(&msg, nullptr, 0, 0, PM_REMOVE)) {
        }
    }

    std::vector<HWND> m_before;
};

// Moves this thread, before it owns any window, onto a new desktop named
// after the process. Failing that, the suite runs on the shared desktop.
void UseOwnDesktop()
{
    char name[64];
    wsprintfA(name, "hytest-%lu", GetCurrentProcessId());
    HDESK desk = CreateDesktopA(name, nullptr, nullptr, 0, GENERIC_ALL, nullptr);
    if (!desk || !SetThreadDesktop(desk)) {
        fprintf(stderr, "hytest: no desktop of its own (error %lu); sharing the default one\n", GetLastError());
        if (desk)
            CloseDesktop(desk);
    }
}

// A crash ends the suite at once with a line naming the test and the
// exception: without this filter Wine starts its debugger, which can keep
// the suite's output open and CTest waiting.
LONG WINAPI EndOnCrash(EXCEPTION_POINTERS* info)
{
    const testing::TestInfo* test = testing::UnitTest::GetInstance()->current_test_info();
    fprintf(stderr, "hytest: exception 0x%08lx at %p in %s.%s\n", info->ExceptionRecord->ExceptionCode,
            info->ExceptionRecord->ExceptionAddress, test ? test->test_suite_name() : "-", test ? test->name() : "-");
    fflush(stderr);
    TerminateProcess(GetCurrentProcess(), 3);
    return EXCEPTION_EXECUTE_HANDLER;
}

void AFXAPI FailTheRunningTest(LPCSTR file, int line)
{
    ADD_FAILURE_AT(file, line) << "ASSERT failed";
}

}  // namespace

int main(int argc, char** argv)
{
    SetUnhandledExceptionFilter(&EndOnCrash);
    UseOwnDesktop();
    testing::InitGoogleTest(&argc, argv);
    AfxSetAssertHook(&FailTheRunningTest);
    testing::UnitTest::GetInstance()->listeners().Append(new LeftoverWindowCheck);
    if (RUN_ALL_TESTS() != 0)
        return 1;
    // CTest passes a suite on this line, not on the exit code alone: a Wine
    // program whose server dies under it ends with exit code 0.
    printf("%s\n", "hytest: the suite ran to its end and passed");
    fflush(stdout);
    return 0;
}
