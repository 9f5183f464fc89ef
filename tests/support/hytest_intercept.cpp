#include "hytest_intercept.h"

#include <gtest/gtest.h>
#include <psapi.h>

#include <algorithm>

namespace hytest {

// ---- ImportPatch ----

namespace {

void WriteSlot(void** slot, void* value)
{
    DWORD old = 0;
    if (VirtualProtect(slot, sizeof(void*), PAGE_READWRITE, &old)) {
        *slot = value;
        VirtualProtect(slot, sizeof(void*), old, &old);
    }
}

void PatchModule(HMODULE module, void* original, void* replacement, std::vector<void**>& slots)
{
    BYTE* base = reinterpret_cast<BYTE*>(module);
    const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    if (dos->e_magic != IMAGE_DOS_SIGNATURE)
        return;
    const auto* nt = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
    if (nt->Signature != IMAGE_NT_SIGNATURE)
        return;
    const IMAGE_DATA_DIRECTORY& dir = nt->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    if (dir.VirtualAddress == 0)
        return;
    // Slots are matched by the address they hold, which also catches imports
    // that reach the function through a forwarder.
    for (auto* desc = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + dir.VirtualAddress);
         desc->Name != 0; ++desc) {
        for (auto* thunk = reinterpret_cast<IMAGE_THUNK_DATA*>(base + desc->FirstThunk);
             thunk->u1.Function != 0; ++thunk) {
            void** slot = reinterpret_cast<void**>(&thunk->u1.Function);
            if (*slot == original) {
                WriteSlot(slot, replacement);
                slots.push_back(slot);
            }
        }
    }
}

}  // namespace

ImportPatch::ImportPatch(const char* dll, const char* function, void* replacement)
{
    HMODULE exporter = GetModuleHandleA(dll);
    if (!exporter)
        exporter = LoadLibraryA(dll);
    m_original = exporter ? reinterpret_cast<void*>(GetProcAddress(exporter, function)) : nullptr;
    if (!m_original)
        return;
    HMODULE owner = nullptr;  // the module the resolved address lives in (after forwarding)
    GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       static_cast<LPCSTR>(m_original), &owner);
    HMODULE modules[1024];
    DWORD needed = 0;
    if (!EnumProcessModules(GetCurrentProcess(), modules, sizeof modules, &needed))
        return;
    const DWORD count = std::min<DWORD>(needed / sizeof(HMODULE), 1024);
    for (DWORD i = 0; i < count; ++i)
        if (modules[i] != exporter && modules[i] != owner)
            PatchModule(modules[i], m_original, replacement, m_slots);
}

ImportPatch::~ImportPatch()
{
    for (void** slot : m_slots)
        WriteSlot(slot, m_original);
}

// ---- replacements ----

namespace {
BeepRecorder* g_beeps = nullptr;
MessageBoxRecorder* g_boxes = nullptr;
PopupMenuRecorder* g_menus = nullptr;
DialogDriver* g_driver = nullptr;

std::string Narrow(const wchar_t* w)
{
    if (!w)
        return {};
    const int n = WideCharToMultiByte(CP_ACP, 0, w, -1, nullptr, 0, nullptr, nullptr);
    std::string s(n > 0 ? n - 1 : 0, '\0');
    if (n > 1)
        WideCharToMultiByte(CP_ACP, 0, w, -1, s.data(), n, nullptr, nullptr);
    return s;
}

}  // namespace

struct InterceptAccess
{
    static BOOL WINAPI MessageBeep(UINT type)
    {
        if (g_beeps)
            g_beeps->m_types.push_back(type);
        return TRUE;
    }

    static int WINAPI MessageBoxA(HWND owner, LPCSTR text, LPCSTR caption, UINT type)
    {
        return g_boxes->Record({owner, text ? text : "", caption ? caption : "", type});
    }
    static int WINAPI MessageBoxW(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type)
    {
        return g_boxes->Record({owner, Narrow(text), Narrow(caption), type});
    }

    static BOOL WINAPI TrackPopupMenu(HMENU menu, UINT flags, int x, int y, int, HWND owner, const RECT*)
    {
        return g_menus->Track(menu, flags, x, y, owner);
    }
    static BOOL WINAPI TrackPopupMenuEx(HMENU menu, UINT flags, int x, int y, HWND owner, LPTPMPARAMS)
    {
        return g_menus->Track(menu, flags, x, y, owner);
    }

    static LRESULT CALLBACK DialogHook(int code, WPARAM wParam, LPARAM lParam);
    static LRESULT CALLBACK DrivenDialogProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam);
};

// ---- recorders ----

BeepRecorder::BeepRecorder()
    : m_previous(g_beeps),
      m_beep("user32.dll", "MessageBeep", reinterpret_cast<void*>(&InterceptAccess::MessageBeep))
{
    g_beeps = this;
}

BeepRecorder::~BeepRecorder() { g_beeps = m_previous; }

#define HYTEST_PATCH(member, fn) member("user32.dll", #fn, reinterpret_cast<void*>(&InterceptAccess::fn))

MessageBoxRecorder::MessageBoxRecorder()
    : m_previous(g_boxes),
      HYTEST_PATCH(m_a, MessageBoxA),
      HYTEST_PATCH(m_w, MessageBoxW)
{
    g_boxes = this;
}

MessageBoxRecorder::~MessageBoxRecorder() { g_boxes = m_previous; }

int MessageBoxRecorder::Record(MessageBoxCall call)
{
    m_calls.push_back(std::move(call));
    if (m_answers.empty()) return IDOK;   // a person who reads the box and confirms it
    const int answer = m_answers.front();
    m_answers.pop_front();
    return answer;
}

PopupMenuRecorder::PopupMenuRecorder()
    : m_previous(g_menus),
      HYTEST_PATCH(m_track, TrackPopupMenu),
      HYTEST_PATCH(m_trackEx, TrackPopupMenuEx)
{
    g_menus = this;
}

#undef HYTEST_PATCH

PopupMenuRecorder::~PopupMenuRecorder() { g_menus = m_previous; }

BOOL PopupMenuRecorder::Track(HMENU menu, UINT flags, int x, int y, HWND owner)
{
    const bool notify = !(flags & TPM_NONOTIFY) && owner;
    if (notify) {
        SendMessageA(owner, WM_ENTERMENULOOP, TRUE, 0);
        SendMessageA(owner, WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(menu), MAKELPARAM(0, FALSE));
    }
    m_calls.push_back({menu, flags, x, y, owner, ReadMenu(menu)});
    UINT id = 0;
    if (!m_choices.empty()) {
        id = m_choices.front();
        m_choices.pop_front();
    }
    if (notify) {
        SendMessageA(owner, WM_UNINITMENUPOPUP, reinterpret_cast<WPARAM>(menu), 0);
        SendMessageA(owner, WM_EXITMENULOOP, TRUE, 0);
    }
    if (flags & TPM_RETURNCMD)
        return static_cast<BOOL>(id);
    if (id != 0 && owner)
        PostMessageA(owner, WM_COMMAND, MAKEWPARAM(id, 0), 0);
    return TRUE;
}

std::vector<MenuItem> ReadMenu(HMENU menu)
{
    std::vector<MenuItem> items;
    const int count = GetMenuItemCount(menu);
    for (int i = 0; i < count; ++i) {
        char text[256] = "";
        MENUITEMINFOA mii = {};
        mii.cbSize = sizeof mii;
        mii.fMask = MIIM_ID | MIIM_STATE | MIIM_FTYPE | MIIM_STRING | MIIM_SUBMENU;
        mii.dwTypeData = text;
        mii.cch = sizeof text;
        if (!GetMenuItemInfoA(menu, static_cast<UINT>(i), TRUE, &mii))
            continue;
        MenuItem item;
        item.id = mii.wID;
        item.type = mii.fType;
        item.state = mii.fState;
        item.text = text;
        if (mii.hSubMenu)
            item.submenu = ReadMenu(mii.hSubMenu);
        items.push_back(std::move(item));
    }
    return items;
}

// ---- DialogDriver ----

namespace {
const char kDriverProp[] = "hytest.DialogDriver.prev";
const char kPendingProp[] = "hytest.DialogDriver.pending";  // initialised, not yet shown
const char kRecheckProp[] = "hytest.DialogDriver.recheck";  // checked again when re-enabled
UINT DriveMessage() { static UINT m = RegisterWindowMessageA("hytest.DialogDriver.drive"); return m; }
UINT CheckMessage() { static UINT m = RegisterWindowMessageA("hytest.DialogDriver.check"); return m; }
}  // namespace

DialogDriver::DialogDriver(Callback callback) : m_callback(std::move(callback)), m_previous(g_driver)
{
    m_hook = SetWindowsHookExA(WH_CALLWNDPROC, &InterceptAccess::DialogHook, nullptr, GetCurrentThreadId());
    g_driver = this;
}

DialogDriver::~DialogDriver()
{
    if (m_hook)
        UnhookWindowsHookEx(m_hook);
    g_driver = m_previous;
}

LRESULT CALLBACK InterceptAccess::DialogHook(int code, WPARAM wParam, LPARAM lParam)
{
    DialogDriver* driver = g_driver;
    if (code == HC_ACTION && driver) {
        const auto* cwp = reinterpret_cast<const CWPSTRUCT*>(lParam);
        if (cwp->message == WM_INITDIALOG && !GetPropA(cwp->hwnd, kDriverProp)) {
            // Subclassed only to receive the cue inside the dialog's own loop;
            // every message still reaches the dialog unchanged.
            const LONG_PTR prev = SetWindowLongPtrA(cwp->hwnd, GWLP_WNDPROC,
                                                    reinterpret_cast<LONG_PTR>(&DrivenDialogProc));
            SetPropA(cwp->hwnd, kDriverProp, reinterpret_cast<HANDLE>(prev));
            // A person acts on what is on the screen: the callback runs once
            // the dialog has been shown (modal loops show it at first idle).
            if (IsWindowVisible(cwp->hwnd))
                PostMessageA(cwp->hwnd, DriveMessage(), 0, 0);
            else
                SetPropA(cwp->hwnd, kPendingProp, reinterpret_cast<HANDLE>(1));
        } else if (cwp->message == WM_SHOWWINDOW && cwp->wParam && GetPropA(cwp->hwnd, kPendingProp)) {
            RemovePropA(cwp->hwnd, kPendingProp);
            PostMessageA(cwp->hwnd, DriveMessage(), 0, 0);
        }
    }
    return CallNextHookEx(driver ? driver->m_hook : nullptr, code, wParam, lParam);
}

LRESULT CALLBACK InterceptAccess::DrivenDialogProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam)
{
    const auto prev = reinterpret_cast<WNDPROC>(GetPropA(hwnd, kDriverProp));
    if (msg == DriveMessage()) {
        if (DialogDriver* driver = g_driver) {
            ++driver->m_count;
            driver->m_callback(hwnd);
        }
        PostMessageA(hwnd, CheckMessage(), 0, 0);
        return 0;
    }
    if (msg == CheckMessage()) {
        // A dialog disabled under a modal dialog it opened is looked at
        // again once that dialog has ended.
        if (!IsWindowEnabled(hwnd)) {
            SetPropA(hwnd, kRecheckProp, reinterpret_cast<HANDLE>(1));
            return 0;
        }
        // Messages still queued (a WM_CHAR translated from a posted key, a
        // command posted by a handler) may yet end the dialog: look again
        // once they have been handled.
        const DWORD queued = HIWORD(GetQueueStatus(QS_POSTMESSAGE | QS_INPUT | QS_SENDMESSAGE));
        if (queued != 0 && wParam < 1000) {
            PostMessageA(hwnd, CheckMessage(), wParam + 1, 0);
            return 0;
        }
        // Reaching here means the dialog's loop is still running.
        char title[128] = "";
        GetWindowTextA(hwnd, title, sizeof title);
        ADD_FAILURE() << "DialogDriver: dialog \"" << title
                      << "\" still open after the callback's input was handled; ended with IDCANCEL";
        // The command ends framework dialogs too, whose modal loop is not the system's.
        SendMessageA(hwnd, WM_COMMAND, IDCANCEL, 0);
        if (IsWindow(hwnd) && IsWindowVisible(hwnd))
            EndDialog(hwnd, IDCANCEL);
        return 0;
    }
    if (msg == WM_ENABLE && wParam && RemovePropA(hwnd, kRecheckProp))
        PostMessageA(hwnd, CheckMessage(), 0, 0);
    if (msg == WM_NCDESTROY) {
        RemovePropA(hwnd, kRecheckProp);
        SetWindowLongPtrA(hwnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(prev));
        RemovePropA(hwnd, kDriverProp);
        RemovePropA(hwnd, kPendingProp);
    }
    return CallWindowProcA(prev, hwnd, msg, wParam, lParam);
}

}  // namespace hytest
