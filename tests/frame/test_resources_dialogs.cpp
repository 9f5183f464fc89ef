// HyUI's dialog templates in the built modules: titles, sizes, font and
// controls in English and German, and German texts that fit their controls
// when the dialogs are really created.
#include <gtest/gtest.h>
#include <windows.h>
#include <string>
#include <vector>
#include "HyUIRes.h"
#include "hytest.h"
#include "test_resources_support.h"

using restest::DataModule;
using restest::DialogItem;
using restest::DialogTemplate;
using restest::ModuleSpec;

namespace {

const WORD kButton = 0x80, kEdit = 0x81, kStatic = 0x82, kListBox = 0x83;

struct ControlLayout
{
    int id;
    WORD classAtom;
    int x, y, cx, cy;
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
    static const std::vector<DialogLayout> dialogs = {
        { IDD_PASSWORD_MASKING, L"Password", 186, 98, {
            { IDC_STATIC, kStatic, 14, 9, 156, 24, L"One or more selected records are private records. "
                                                   L"You must enter your password to continue this operation." },
            { IDC_STATIC, kStatic, 25, 41, 48, 8, L"User name:" },
            { IDC_PASSWORD_USER_NAME, kStatic, 77, 41, 75, 8, L"" },
            { IDC_STATIC, kStatic, 25, 57, 48, 8, L"Password:" },
            { IDC_PASSWORD_EDIT, kEdit, 77, 55, 83, 14, L"" },
            { IDOK, kButton, 35, 79, 50, 14, L"OK" },
            { IDCANCEL, kButton, 101, 79, 50, 14, L"Cancel" } } },
        { IDD_PASSWORD, L"Show Private Records", 133, 66, {
            { IDC_STATIC, kStatic, 7, 7, 42, 8, L"User name:" },
            { IDC_PASSWORD_USER_NAME, kStatic, 51, 7, 75, 8, L"" },
            { IDC_STATIC, kStatic, 7, 26, 42, 8, L"&Password:" },
            { IDC_PASSWORD_EDIT, kEdit, 51, 24, 75, 12, L"" },
            { IDOK, kButton, 7, 46, 35, 14, L"OK" },
            { IDCANCEL, kButton, 47, 46, 35, 14, L"Cancel" },
            { IDC_HELP_BUTTON, kButton, 91, 46, 35, 14, L"&Help" } } },
        { IDD_COLOR_CATEGORIES, L"Edit Event Categories", 154, 150, {
            { IDC_COLOR_CAT_LIST, kListBox, 8, 8, 84, 88, L"" },
            { IDOK, kButton, 100, 8, 45, 14, L"OK" },
            { IDC_COLOR_CAT_NEW, kButton, 100, 28, 45, 14, L"&New..." },
            { IDC_COLOR_CAT_DELETE, kButton, 100, 44, 45, 14, L"&Delete..." },
            { IDC_COLOR_CAT_RENAME, kButton, 100, 60, 45, 14, L"R&ename..." },
            { IDC_HELP_BUTTON, kButton, 100, 82, 45, 14, L"&Help" },
            { IDC_COLOR_CAT_SELECT_LABEL, kStatic, 10, 102, 47, 8, L"Select color:" } } },
        { IDD_DAY_PICKER, L"Select Date", 143, 116, {
            { IDC_DAY_PICKER_PLACEHOLDER, kStatic, 10, 6, 125, 86, L"" },
            { IDOK, kButton, 6, 95, 40, 14, L"OK" },
            { IDCANCEL, kButton, 52, 95, 40, 14, L"Cancel" },
            { IDC_DAY_PICKER_TODAY, kButton, 96, 95, 40, 14, L"&Today" } } },
        { IDD_EDIT_CONTROLS, L"", 258, 220, {
            { IDOK, kButton, 106, 189, 50, 14, L"OK" } } },
    };
    return dialogs;
}

std::string Narrow(const std::wstring& text)
{
    char buf[512] = "";
    ::WideCharToMultiByte(CP_UTF8, 0, text.c_str(), -1, buf, sizeof buf, nullptr, nullptr);
    return buf;
}

class DialogTemplates : public ::testing::TestWithParam<ModuleSpec>
{
};

// English exactly as laid out; German translated, widened where it must be,
// never narrowed, with every English mnemonic kept and none repeated.
TEST_P(DialogTemplates, TemplatesHaveTheirSizeFontControlsAndTexts)
{
    const bool german = GetParam().german;
    DataModule module(GetParam().relative);
    ASSERT_NE(module.get(), nullptr) << module.path();
    for (const DialogLayout& layout : EnglishDialogs())
    {
        SCOPED_TRACE("dialog " + std::to_string(layout.id));
        DialogTemplate dlg;
        ASSERT_TRUE(restest::LoadDialogTemplate(module.get(), layout.id, dlg));
        EXPECT_TRUE(german ? dlg.cx >= layout.cx : dlg.cx == layout.cx) << dlg.cx;
        EXPECT_EQ(dlg.cy, layout.cy);
        EXPECT_EQ(dlg.face, L"MS Sans Serif");
        EXPECT_EQ(dlg.pointSize, 8);
        EXPECT_EQ(dlg.style & (WS_POPUP | WS_VISIBLE), (DWORD)WS_POPUP);
        if (!german) {
            EXPECT_EQ(dlg.title, layout.title);
        } else if (*layout.title) {
            EXPECT_FALSE(dlg.title.empty() || dlg.title == layout.title) << Narrow(dlg.title);
        }
        ASSERT_EQ(dlg.items.size(), layout.items.size());
        std::wstring keys;
        for (size_t i = 0; i < layout.items.size(); ++i)
        {
            const ControlLayout& want = layout.items[i];
            const DialogItem& have = dlg.items[i];
            SCOPED_TRACE("control " + std::to_string(i) + " id " + std::to_string(want.id));
            EXPECT_TRUE(restest::SameId(have.id, want.id)) << have.id;
            EXPECT_EQ(have.classAtom, want.classAtom) << Narrow(have.className);
            EXPECT_EQ(std::vector<int>({ have.x, have.y, have.cy }), std::vector<int>({ want.x, want.y, want.cy }));
            EXPECT_TRUE(german ? have.cx >= want.cx : have.cx == want.cx) << have.cx;
            EXPECT_TRUE(have.style & WS_CHILD);
            const std::wstring english = want.text;
            if (!german || english.empty() || english == L"OK")
                EXPECT_EQ(have.text, english) << Narrow(have.text);
            else
                EXPECT_NE(have.text, english) << "not translated";
            const size_t amp = have.text.find(L'&');
            EXPECT_EQ(english.find(L'&') != std::wstring::npos, amp != std::wstring::npos) << Narrow(have.text);
            if (amp == std::wstring::npos || amp + 1 >= have.text.size())
                continue;
            wchar_t key = (wchar_t)(UINT_PTR)::CharUpperW((LPWSTR)(UINT_PTR)have.text[amp + 1]);
            EXPECT_EQ(keys.find(key), std::wstring::npos) << "mnemonic repeated: " << Narrow(have.text);
            keys += key;
        }
    }
}

TEST_P(DialogTemplates, PasswordsNeverShowAndTheCalendarsPlaceholderIsHidden)
{
    DataModule module(GetParam().relative);
    ASSERT_NE(module.get(), nullptr) << module.path();
    for (UINT id : { IDD_PASSWORD, IDD_PASSWORD_MASKING })
    {
        DialogTemplate dlg;
        ASSERT_TRUE(restest::LoadDialogTemplate(module.get(), id, dlg));
        const DialogItem* field = dlg.Find(IDC_PASSWORD_EDIT);
        const DialogItem* ok = dlg.Find(IDOK);
        ASSERT_TRUE(field && ok);
        EXPECT_EQ(field->style & (ES_PASSWORD | WS_TABSTOP), (DWORD)(ES_PASSWORD | WS_TABSTOP));
        EXPECT_EQ(ok->style & 0x0F, (DWORD)BS_DEFPUSHBUTTON);
    }
    // The swatch list draws its own items, sorted, and tells of selections and double clicks.
    DialogTemplate categories, picker;
    ASSERT_TRUE(restest::LoadDialogTemplate(module.get(), IDD_COLOR_CATEGORIES, categories));
    ASSERT_TRUE(restest::LoadDialogTemplate(module.get(), IDD_DAY_PICKER, picker));
    const DWORD listStyle = WS_VSCROLL | LBS_NOINTEGRALHEIGHT | LBS_OWNERDRAWFIXED | LBS_SORT | LBS_NOTIFY;
    ASSERT_NE(categories.Find(IDC_COLOR_CAT_LIST), nullptr);
    EXPECT_EQ(categories.Find(IDC_COLOR_CAT_LIST)->style & listStyle, listStyle);
    const DialogItem* placeholder = picker.Find(IDC_DAY_PICKER_PLACEHOLDER);
    ASSERT_NE(placeholder, nullptr);
    EXPECT_EQ(placeholder->style & (SS_TYPEMASK | WS_VISIBLE), (DWORD)SS_GRAYRECT);
}

INSTANTIATE_TEST_SUITE_P(Resources, DialogTemplates,
                         ::testing::Values(restest::kHyUI, restest::kLangDe),
                         [](const ::testing::TestParamInfo<ModuleSpec>& info) {
                             return std::string(info.param.german ? "GermanModule" : "EnglishLibrary");
                         });

// ---- Texts that fit, measured in real dialogs ----------------------------------

INT_PTR CALLBACK SilentDialogProc(HWND, UINT, WPARAM, LPARAM)
{
    return FALSE;
}

HWND CreateFromTemplate(HMODULE module, UINT id)
{
    std::vector<BYTE> bytes = restest::RawResource(module, (LPCWSTR)RT_DIALOG, id);
    if (bytes.empty())
        return nullptr;
    return ::CreateDialogIndirectParamW(::GetModuleHandleW(nullptr),
                                        reinterpret_cast<LPCDLGTEMPLATEW>(bytes.data()), nullptr,
                                        SilentDialogProc, 0);
}

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
    for (HWND child = ::GetWindow(dialog, GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT))
    {
        wchar_t cls[32] = L"", text[256] = L"";
        ::GetClassNameW(child, cls, 32);
        ::GetWindowTextW(child, text, 256);
        if (!*text)
            continue;
        RECT client;
        ::GetClientRect(child, &client);
        LONG style = ::GetWindowLongW(child, GWL_STYLE);
        std::string name = where + " control " + std::to_string(::GetDlgCtrlID(child)) + " \"" + Narrow(text) + "\"";
        if (!lstrcmpiW(cls, L"Static") && (style & SS_TYPEMASK) <= SS_RIGHT)
        {
            // Labels wrap; the wrapped text must stay inside the control.
            SIZE size = MeasuredText(child, text, client.right, true);
            if (size.cx > client.right || size.cy > client.bottom)
                problems.push_back(name + " needs " + std::to_string(size.cx) + " x " + std::to_string(size.cy) +
                                   " px, has " + std::to_string(client.right) + " x " + std::to_string(client.bottom));
        }
        else if (!lstrcmpiW(cls, L"Button"))
        {
            // A push button keeps its edge and a little air on both sides.
            const int margin = 2 * (::GetSystemMetrics(SM_CXEDGE) + 1);
            SIZE size = MeasuredText(child, text, 0, false);
            if (size.cx + margin > client.right)
                problems.push_back(name + " needs " + std::to_string(size.cx + margin - client.right) +
                                   " px more width");
        }
    }
    // The title, in the caption font, beside the system buttons.
    wchar_t title[256] = L"";
    ::GetWindowTextW(dialog, title, 256);
    if (*title)
    {
        NONCLIENTMETRICSW metrics{};
        metrics.cbSize = sizeof metrics;
        ::SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
        HFONT font = ::CreateFontIndirectW(&metrics.lfCaptionFont);
        HDC dc = ::GetDC(dialog);
        HGDIOBJ old = ::SelectObject(dc, font);
        SIZE size{};
        ::GetTextExtentPoint32W(dc, title, lstrlenW(title), &size);
        ::SelectObject(dc, old);
        ::ReleaseDC(dialog, dc);
        ::DeleteObject(font);
        RECT window;
        ::GetWindowRect(dialog, &window);
        int room = window.right - window.left - 2 * ::GetSystemMetrics(SM_CXDLGFRAME) -
                   2 * ::GetSystemMetrics(SM_CXSIZE) - 8;
        if (size.cx > room)
            problems.push_back(where + " title \"" + Narrow(title) + "\" needs " + std::to_string(size.cx - room) +
                               " px more width");
    }
    return problems;
}

class DialogTextsFit : public ::testing::TestWithParam<ModuleSpec>
{
};

TEST_P(DialogTextsFit, LabelsButtonsAndTitlesShowTheirWholeText)
{
    DataModule module(GetParam().relative);
    ASSERT_NE(module.get(), nullptr) << module.path();
    auto createAll = [&] {
        std::vector<std::string> problems;
        for (const DialogLayout& layout : EnglishDialogs())
        {
            HWND dialog = CreateFromTemplate(module.get(), layout.id);
            if (!dialog)
            {
                problems.push_back("dialog " + std::to_string(layout.id) + " was not created");
                continue;
            }
            for (const std::string& problem :
                 TextsThatDoNotFit(dialog, std::string(GetParam().name) + " dialog " + std::to_string(layout.id)))
                problems.push_back(problem);
            ::DestroyWindow(dialog);
        }
        hytest::PumpMessages();
        return problems;
    };
    // Two rounds first: the system keeps the first dialog's font, the first
    // control of each class and the DCs it hands out.
    hytest::ObjectGuard guard([&] { createAll(); createAll(); });
    for (const std::string& problem : createAll())
        ADD_FAILURE() << problem;
    createAll();
    guard.Check("creating and measuring every dialog");
}

INSTANTIATE_TEST_SUITE_P(Resources, DialogTextsFit,
                         ::testing::Values(restest::kHyUI, restest::kLangDe),
                         [](const ::testing::TestParamInfo<ModuleSpec>& info) {
                             return std::string(info.param.german ? "German" : "English");
                         });

}  // namespace
