// HyUI's dialogs, created from the built modules' templates by the real
// dialog manager: titles, sizes, font, controls and tab order in English and
// German, and texts that fit their controls.
#include <gtest/gtest.h>
#include <windows.h>
#include <string>
#include <vector>
#include "HyUIRes.h"
#include "hytest.h"
#include "test_resources_support.h"

using restest::DataModule;
using restest::ModuleSpec;

namespace {

struct ControlLayout
{
    int id;
    const wchar_t* cls;
    int x, y, cx, cy;   // dialog units
    const wchar_t* text;
};

struct DialogLayout
{
    UINT id;
    const wchar_t* title;
    int cx, cy;
    std::vector<ControlLayout> items;    // in tab order
};

const std::vector<DialogLayout>& EnglishDialogs()
{
    const wchar_t *button = L"Button", *edit = L"Edit", *label = L"Static", *list = L"ListBox";
    const int none = 0xFFFF;   // IDC_STATIC as a classic template keeps it
    static const std::vector<DialogLayout> dialogs = {
        { IDD_PASSWORD_MASKING, L"Password", 186, 98, {
            { none, label, 14, 9, 156, 24, L"One or more selected records are private records. "
                                           L"You must enter your password to continue this operation." },
            { none, label, 25, 41, 48, 8, L"User name:" },
            { IDC_PASSWORD_USER_NAME, label, 77, 41, 75, 8, L"" },
            { none, label, 25, 57, 48, 8, L"Password:" },
            { IDC_PASSWORD_EDIT, edit, 77, 55, 83, 14, L"" },
            { IDOK, button, 35, 79, 50, 14, L"OK" },
            { IDCANCEL, button, 101, 79, 50, 14, L"Cancel" } } },
        { IDD_PASSWORD, L"Show Private Records", 133, 66, {
            { none, label, 7, 7, 42, 8, L"User name:" },
            { IDC_PASSWORD_USER_NAME, label, 51, 7, 75, 8, L"" },
            { none, label, 7, 26, 42, 8, L"&Password:" },
            { IDC_PASSWORD_EDIT, edit, 51, 24, 75, 12, L"" },
            { IDOK, button, 7, 46, 35, 14, L"OK" },
            { IDCANCEL, button, 47, 46, 35, 14, L"Cancel" },
            { IDC_HELP_BUTTON, button, 91, 46, 35, 14, L"&Help" } } },
        { IDD_COLOR_CATEGORIES, L"Edit Event Categories", 154, 150, {
            { IDC_COLOR_CAT_LIST, list, 8, 8, 84, 88, L"" },
            { IDOK, button, 100, 8, 45, 14, L"OK" },
            { IDC_COLOR_CAT_NEW, button, 100, 28, 45, 14, L"&New..." },
            { IDC_COLOR_CAT_DELETE, button, 100, 44, 45, 14, L"&Delete..." },
            { IDC_COLOR_CAT_RENAME, button, 100, 60, 45, 14, L"R&ename..." },
            { IDC_HELP_BUTTON, button, 100, 82, 45, 14, L"&Help" },
            { IDC_COLOR_CAT_SELECT_LABEL, label, 10, 102, 47, 8, L"Select color:" } } },
        { IDD_DAY_PICKER, L"Select Date", 143, 116, {
            { IDC_DAY_PICKER_PLACEHOLDER, label, 10, 6, 125, 86, L"" },
            { IDOK, button, 6, 95, 40, 14, L"OK" },
            { IDCANCEL, button, 52, 95, 40, 14, L"Cancel" },
            { IDC_DAY_PICKER_TODAY, button, 96, 95, 40, 14, L"&Today" } } },
        { IDD_EDIT_CONTROLS, L"", 258, 220, {
            { IDOK, button, 106, 189, 50, 14, L"OK" } } },
    };
    return dialogs;
}

std::string Narrow(const std::wstring& text)
{
    char buf[512] = "";
    ::WideCharToMultiByte(CP_UTF8, 0, text.c_str(), -1, buf, sizeof buf, nullptr, nullptr);
    return buf;
}

std::wstring Text(HWND h)
{
    wchar_t buf[256] = L"";
    ::GetWindowTextW(h, buf, 256);
    return buf;
}

INT_PTR CALLBACK SilentDialogProc(HWND, UINT, WPARAM, LPARAM) { return FALSE; }

// A module's dialog created hidden from its template, for the object's life.
struct CreatedDialog
{
    HWND hwnd = nullptr;
    CreatedDialog(HMODULE module, UINT id)
    {
        const std::vector<BYTE> bytes = restest::RawResource(module, (LPCWSTR)RT_DIALOG, id);
        if (!bytes.empty())
            hwnd = ::CreateDialogIndirectParamW(::GetModuleHandleW(nullptr),
                                                reinterpret_cast<LPCDLGTEMPLATEW>(bytes.data()), nullptr,
                                                SilentDialogProc, 0);
    }
    ~CreatedDialog()
    {
        if (hwnd) ::DestroyWindow(hwnd);
    }
    // Left, top, width, height of a control in pixels, and a layout's in
    // pixels as the dialog manager converts dialog units.
    std::vector<int> Place(HWND child) const
    {
        RECT r;
        ::GetWindowRect(child, &r);
        ::MapWindowPoints(nullptr, hwnd, reinterpret_cast<POINT*>(&r), 2);
        return { r.left, r.top, r.right - r.left, r.bottom - r.top };
    }
    std::vector<int> Place(int x, int y, int cx, int cy) const
    {
        RECT r = { x, y, cx, cy };   // each value converted on its own, as for a control
        ::MapDialogRect(hwnd, &r);
        return { r.left, r.top, r.right, r.bottom };
    }
    LONG Style(int id) const { return ::GetWindowLongW(::GetDlgItem(hwnd, id), GWL_STYLE); }
};

class Dialogs : public ::testing::TestWithParam<ModuleSpec>
{
};

// English exactly as laid out; German translated, widened where it must be,
// never narrowed, with every English mnemonic kept and none repeated.
TEST_P(Dialogs, HaveTheirSizeFontControlsAndTexts)
{
    const bool german = GetParam().german;
    DataModule module(GetParam().relative);
    ASSERT_NE(module.get(), nullptr) << module.path();
    hytest::ObjectGuard guard([&] { CreatedDialog(module.get(), IDD_PASSWORD); });
    HDC screen = ::GetDC(nullptr);
    const LONG fontHeight = -::MulDiv(8, ::GetDeviceCaps(screen, LOGPIXELSY), 72);
    ::ReleaseDC(nullptr, screen);
    for (const DialogLayout& layout : EnglishDialogs()) {
        SCOPED_TRACE("dialog " + std::to_string(layout.id));
        CreatedDialog dlg(module.get(), layout.id);
        ASSERT_NE(dlg.hwnd, nullptr);
        RECT client;
        ::GetClientRect(dlg.hwnd, &client);
        const std::vector<int> size = dlg.Place(0, 0, layout.cx, layout.cy);
        EXPECT_EQ(client.bottom, size[3]);
        EXPECT_TRUE(german ? client.right >= size[2] : client.right == size[2]) << client.right;
        LOGFONTW font = {};
        ::GetObjectW((HFONT)::SendMessageW(dlg.hwnd, WM_GETFONT, 0, 0), sizeof font, &font);
        EXPECT_EQ(std::wstring(L"MS Sans Serif"), font.lfFaceName);
        EXPECT_EQ(fontHeight, font.lfHeight);
        const std::wstring title = Text(dlg.hwnd);
        if (!german) {
            EXPECT_EQ(title, layout.title);
        } else if (*layout.title) {
            EXPECT_FALSE(title.empty() || title == layout.title) << Narrow(title);
        }

        std::wstring keys;
        HWND child = ::GetWindow(dlg.hwnd, GW_CHILD);
        for (const ControlLayout& want : layout.items) {
            SCOPED_TRACE("control id " + std::to_string(want.id));
            ASSERT_NE(child, nullptr) << "missing";
            wchar_t cls[32] = L"";
            ::GetClassNameW(child, cls, 32);
            EXPECT_EQ(want.id, ::GetDlgCtrlID(child));
            EXPECT_EQ(0, lstrcmpiW(cls, want.cls)) << Narrow(cls);
            const std::vector<int> have = dlg.Place(child), expected = dlg.Place(want.x, want.y, want.cx, want.cy);
            EXPECT_TRUE(german ? have[2] >= expected[2] : have[2] == expected[2]) << have[2];   // width
            EXPECT_EQ((std::vector<int>{ expected[0], expected[1], expected[3] }),
                      (std::vector<int>{ have[0], have[1], have[3] }));
            const std::wstring text = Text(child), english = want.text;
            if (!german || english.empty() || english == L"OK")
                EXPECT_EQ(text, english) << Narrow(text);
            else
                EXPECT_NE(text, english) << "not translated";
            const size_t amp = text.find(L'&');
            EXPECT_EQ(english.find(L'&') != std::wstring::npos, amp != std::wstring::npos) << Narrow(text);
            if (amp != std::wstring::npos && amp + 1 < text.size()) {
                const wchar_t key = (wchar_t)(UINT_PTR)::CharUpperW((LPWSTR)(UINT_PTR)text[amp + 1]);
                EXPECT_EQ(keys.find(key), std::wstring::npos) << "mnemonic repeated: " << Narrow(text);
                keys += key;
            }
            child = ::GetWindow(child, GW_HWNDNEXT);
        }
        EXPECT_EQ(child, nullptr) << "more controls than laid out";
    }
    guard.Check("creating every dialog");
}

TEST_P(Dialogs, PasswordsNeverShowOkIsTheDefaultAndTheCalendarsPlaceholderIsHidden)
{
    DataModule module(GetParam().relative);
    ASSERT_NE(module.get(), nullptr) << module.path();
    for (UINT id : { IDD_PASSWORD, IDD_PASSWORD_MASKING }) {
        CreatedDialog dlg(module.get(), id);
        EXPECT_EQ(dlg.Style(IDC_PASSWORD_EDIT) & (ES_PASSWORD | WS_TABSTOP), ES_PASSWORD | WS_TABSTOP) << id;
        EXPECT_EQ(MAKELRESULT(IDOK, DC_HASDEFID), ::SendMessageW(dlg.hwnd, DM_GETDEFID, 0, 0)) << id;
    }
    // The swatch list draws its own items, sorted, and tells of selections and double clicks.
    const LONG listStyle = LBS_NOINTEGRALHEIGHT | LBS_OWNERDRAWFIXED | LBS_SORT | LBS_NOTIFY;
    EXPECT_EQ(CreatedDialog(module.get(), IDD_COLOR_CATEGORIES).Style(IDC_COLOR_CAT_LIST) & listStyle, listStyle);
    EXPECT_EQ(CreatedDialog(module.get(), IDD_DAY_PICKER).Style(IDC_DAY_PICKER_PLACEHOLDER) &
                  (SS_TYPEMASK | WS_VISIBLE),
              SS_GRAYRECT);
}

// ---- Texts that fit, measured in real dialogs ----------------------------------

// The size of a text drawn with the control's own font; word-wrapped to
// the given width when wrap is set.
SIZE MeasuredText(HWND control, const std::wstring& text, int width, bool wrap)
{
    HDC dc = ::GetDC(control);
    HGDIOBJ old = ::SelectObject(dc, (HFONT)::SendMessageW(control, WM_GETFONT, 0, 0));
    RECT rc = { 0, 0, width, 0 };
    ::DrawTextW(dc, text.c_str(), -1, &rc, DT_CALCRECT | (wrap ? DT_WORDBREAK : DT_SINGLELINE));
    ::SelectObject(dc, old);
    ::ReleaseDC(control, dc);
    return { rc.right - rc.left, rc.bottom - rc.top };
}

// The labels and buttons of a created dialog that do not show their whole
// text, and a title that does not fit its caption bar, each named with the
// missing pixels.
std::vector<std::string> TextsThatDoNotFit(HWND dialog, const std::string& where)
{
    std::vector<std::string> problems;
    for (HWND child = ::GetWindow(dialog, GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT)) {
        wchar_t cls[32] = L"";
        ::GetClassNameW(child, cls, 32);
        const std::wstring text = Text(child);
        if (text.empty()) continue;
        RECT client;
        ::GetClientRect(child, &client);
        const LONG style = ::GetWindowLongW(child, GWL_STYLE);
        const std::string name = where + " control " + std::to_string(::GetDlgCtrlID(child)) + " \"" + Narrow(text) + "\"";
        if (!lstrcmpiW(cls, L"Static") && (style & SS_TYPEMASK) <= SS_RIGHT) {
            // Labels wrap; the wrapped text must stay inside the control.
            const SIZE size = MeasuredText(child, text, client.right, true);
            if (size.cx > client.right || size.cy > client.bottom)
                problems.push_back(name + " needs " + std::to_string(size.cx) + " x " + std::to_string(size.cy) +
                                   " px, has " + std::to_string(client.right) + " x " + std::to_string(client.bottom));
        } else if (!lstrcmpiW(cls, L"Button")) {
            // A push button keeps its edge and a little air on both sides.
            const int margin = 2 * (::GetSystemMetrics(SM_CXEDGE) + 1);
            const SIZE size = MeasuredText(child, text, 0, false);
            if (size.cx + margin > client.right)
                problems.push_back(name + " needs " + std::to_string(size.cx + margin - client.right) +
                                   " px more width");
        }
    }
    // The title, in the caption font, beside the system buttons.
    const std::wstring title = Text(dialog);
    if (!title.empty()) {
        NONCLIENTMETRICSW metrics{};
        metrics.cbSize = sizeof metrics;
        ::SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
        HFONT font = ::CreateFontIndirectW(&metrics.lfCaptionFont);
        HDC dc = ::GetDC(dialog);
        HGDIOBJ old = ::SelectObject(dc, font);
        SIZE size{};
        ::GetTextExtentPoint32W(dc, title.c_str(), (int)title.size(), &size);
        ::SelectObject(dc, old);
        ::ReleaseDC(dialog, dc);
        ::DeleteObject(font);
        RECT window;
        ::GetWindowRect(dialog, &window);
        const int room = window.right - window.left - 2 * ::GetSystemMetrics(SM_CXDLGFRAME) -
                         2 * ::GetSystemMetrics(SM_CXSIZE) - 8;
        if (size.cx > room)
            problems.push_back(where + " title \"" + Narrow(title) + "\" needs " + std::to_string(size.cx - room) +
                               " px more width");
    }
    return problems;
}

TEST_P(Dialogs, LabelsButtonsAndTitlesShowTheirWholeText)
{
    DataModule module(GetParam().relative);
    ASSERT_NE(module.get(), nullptr) << module.path();
    auto createAll = [&] {
        std::vector<std::string> problems;
        for (const DialogLayout& layout : EnglishDialogs()) {
            CreatedDialog dialog(module.get(), layout.id);
            for (const std::string& problem :
                 TextsThatDoNotFit(dialog.hwnd, std::string(GetParam().name) + " dialog " + std::to_string(layout.id)))
                problems.push_back(problem);
        }
        hytest::PumpMessages();
        return problems;
    };
    // Two rounds first: the system keeps the first dialog's font, the first
    // control of each class and the DCs it hands out.
    hytest::ObjectGuard guard([&] { createAll(); createAll(); });
    for (const std::string& problem : createAll())
        ADD_FAILURE() << problem;
    guard.Check("creating and measuring every dialog");
}

// The colour category dialog's sixteen swatches are placed at run time in
// client pixels (two rows of eight, 20 pixels at a 25-pixel pitch from
// (15, 185)); the template must leave room for all of them in every language.
TEST_P(Dialogs, ColourCategoriesHaveRoomForTheirSwatches)
{
    DataModule module(GetParam().relative);
    ASSERT_NE(module.get(), nullptr) << module.path();
    CreatedDialog dialog(module.get(), IDD_COLOR_CATEGORIES);
    RECT client;
    ::GetClientRect(dialog.hwnd, &client);
    EXPECT_GE(client.right, 15 + 7 * 25 + 20 + 4);
    EXPECT_GE(client.bottom, 185 + 25 + 20 + 4);
    // And they sit below everything the template holds.
    for (HWND child = ::GetWindow(dialog.hwnd, GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT))
    {
        RECT r;
        ::GetWindowRect(child, &r);
        ::MapWindowPoints(nullptr, dialog.hwnd, reinterpret_cast<POINT*>(&r), 2);
        EXPECT_LT(r.bottom, 185) << "control " << ::GetDlgCtrlID(child);
    }
}

INSTANTIATE_TEST_SUITE_P(Resources, Dialogs, ::testing::Values(restest::kHyUI, restest::kLangDe),
                         restest::ModuleTestName);

}  // namespace
