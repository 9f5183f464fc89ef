// Capture of what a person would see or hear: beeps, message boxes and popup
// menus, replaced at the DLL import boundary (the import address table slots
// of every loaded module that imports them: HyAfx.dll, HyUI.dll, the test
// executable, ...), and a driver for real modal dialogs.
//
// Limits: modules loaded after a recorder was created are not patched, nor
// calls made through GetProcAddress or from inside user32 itself (the system
// edit control's own beep, for one).
#pragma once

#include <windows.h>

#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace hytest {

// Replaces one imported function in every loaded module except the one that
// exports it, and restores the slots on destruction.
class ImportPatch
{
public:
    ImportPatch(const char* dll, const char* function, void* replacement);
    ~ImportPatch();
    ImportPatch(const ImportPatch&) = delete;
    ImportPatch& operator=(const ImportPatch&) = delete;

    void* original() const { return m_original; }

private:
    void* m_original = nullptr;
    std::vector<void**> m_slots;
};

// MessageBeep: counted and silent.
class BeepRecorder
{
public:
    BeepRecorder();
    ~BeepRecorder();
    BeepRecorder(const BeepRecorder&) = delete;
    BeepRecorder& operator=(const BeepRecorder&) = delete;

    int Count() const { return static_cast<int>(m_types.size()); }
    const std::vector<UINT>& Types() const { return m_types; }  // MB_OK, MB_ICONHAND, ...
    void Clear() { m_types.clear(); }

private:
    friend struct InterceptAccess;
    std::vector<UINT> m_types;
    BeepRecorder* m_previous;
    ImportPatch m_beep;
};

struct MessageBoxCall
{
    HWND owner;
    std::string text;     // wide-character calls converted to the ANSI code page
    std::string caption;
    UINT type;            // MB_* flags
};

// MessageBoxA/W (what the framework calls): recorded, nothing is
// shown, and each answers IDOK, as a person who reads and confirms it,
// unless another answer was queued with Answer.
class MessageBoxRecorder
{
public:
    MessageBoxRecorder();
    ~MessageBoxRecorder();
    MessageBoxRecorder(const MessageBoxRecorder&) = delete;
    MessageBoxRecorder& operator=(const MessageBoxRecorder&) = delete;

    int Count() const { return static_cast<int>(m_calls.size()); }
    const std::vector<MessageBoxCall>& Calls() const { return m_calls; }
    void Clear() { m_calls.clear(); }
    // The answer of the next box not yet answered (IDNO, IDCANCEL, ...);
    // boxes without a queued answer are confirmed with IDOK.
    void Answer(int id) { m_answers.push_back(id); }

private:
    friend struct InterceptAccess;
    int Record(MessageBoxCall call);
    std::vector<MessageBoxCall> m_calls;
    std::deque<int> m_answers;
    MessageBoxRecorder* m_previous;
    ImportPatch m_a, m_w;
};

struct MenuItem
{
    UINT id = 0;
    std::string text;
    UINT type = 0;   // MFT_* (MFT_SEPARATOR, MFT_RADIOCHECK, ...)
    UINT state = 0;  // MFS_* (MFS_CHECKED, MFS_GRAYED, MFS_DEFAULT, ...)
    bool checked() const { return (state & MFS_CHECKED) != 0; }
    std::vector<MenuItem> submenu;
};

struct PopupMenuCall
{
    HMENU menu;
    UINT flags;  // TPM_*
    int x, y;
    HWND owner;
    std::vector<MenuItem> items;  // as they were when the menu would have shown
};

// TrackPopupMenu/TrackPopupMenuEx: the owner gets WM_ENTERMENULOOP and
// WM_INITMENUPOPUP as from the real call (unless TPM_NONOTIFY), the items are
// recorded, and the next scripted command (default 0: dismissed) is chosen:
// returned with TPM_RETURNCMD, otherwise posted to the owner as WM_COMMAND and
// TRUE returned.
class PopupMenuRecorder
{
public:
    PopupMenuRecorder();
    ~PopupMenuRecorder();
    PopupMenuRecorder(const PopupMenuRecorder&) = delete;
    PopupMenuRecorder& operator=(const PopupMenuRecorder&) = delete;

    void Choose(UINT id) { m_choices.push_back(id); }
    int Count() const { return static_cast<int>(m_calls.size()); }
    const std::vector<PopupMenuCall>& Calls() const { return m_calls; }
    void Clear() { m_calls.clear(); }

private:
    friend struct InterceptAccess;
    BOOL Track(HMENU menu, UINT flags, int x, int y, HWND owner);
    std::vector<PopupMenuCall> m_calls;
    std::deque<UINT> m_choices;
    PopupMenuRecorder* m_previous;
    ImportPatch m_track, m_trackEx;
};

// Reads a menu's items (ids, texts, types, states, submenus).
std::vector<MenuItem> ReadMenu(HMENU menu);

// Drives real dialogs: whenever a dialog of this thread receives
// WM_INITDIALOG, the driver posts itself a cue; the dialog's own modal loop
// (DialogBox*, MessageBox, ...) delivers it, and the callback then runs with
// the dialog's HWND, inside that loop. The callback ends the dialog by
// posting input or commands (hytest::Click, PostMessage(WM_COMMAND), ...).
// If the dialog is still running once the queue holds nothing more (what the
// callback posted, and what that posted in turn, has been handled), the
// driver reports a failure and ends it with IDCANCEL, so a test never hangs.
// Meant for modal dialogs: a modeless one left open is reported the same way.
class DialogDriver
{
public:
    using Callback = std::function<void(HWND dialog)>;
    explicit DialogDriver(Callback callback);
    ~DialogDriver();
    DialogDriver(const DialogDriver&) = delete;
    DialogDriver& operator=(const DialogDriver&) = delete;

    int Count() const { return m_count; }  // dialogs handed to the callback

private:
    friend struct InterceptAccess;
    Callback m_callback;
    int m_count = 0;
    HHOOK m_hook = nullptr;
    DialogDriver* m_previous;
};

}  // namespace hytest
