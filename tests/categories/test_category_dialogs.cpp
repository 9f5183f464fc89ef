// Both category dialogs over a real data folder, driven through their real
// modal loops: what each action does to the categories, the records, the undo
// entries and the subscription list, in memory and in the files as a fresh
// process reads them; refusals and questions as a person sees them.
#include <gtest/gtest.h>

#include <HyBaseTable.h>
#include <HyCommonUI.h>
#include <HyCategoryMgr.h>
#include <HyComponentDoc.h>
#include <HyDataFolder.h>
#include <HySubInfo.h>
#include <HyTheme.h>

#include <map>
#include <string>

#include "HyCatDlgRes.h"
#include "HyCatMgmtDlg.h"
#include "HyUIRes.h"
#include "HyColorCatMgmtDlg.h"
#include "hytest.h"
#include "hytest_afx.h"
#include "census/category_census.h"

namespace {

const char* const kComponent = "memo";
const char* const kUser = "Pat";
// Categories by index with their live and deleted records; the deleted
// records of 1 and 2 are the undo entries of the last delete.
struct Seed { const char* name; int live, deleted; };
const Seed kSeed[] = { { "Unfiled", 2, 1 }, { "Business", 3, 1 }, { "Personal", 4, 2 }, { "Travel", 1, 0 } };
const char kSeedCensus[] = "0:Unfiled:2/1 1:Business:3/1 2:Personal:4/2 3:Travel:1/0 ";

using Files = std::map<std::string, std::string>;

// A data folder and a profile of its own with the seed, one subscription
// category ("Travel") and a view over the table.
struct World
{
    hytest::TempFolder dir{ "hycat" };
    hytest::TempFile profile{ "hycat.ini" };   // category colours stay out of the shared profile
    CCategoryMgr manager;
    CBaseTable table;
    CComponentDoc doc;
    hytest::HostFrame frame;
    CTernUIComponentView view;

    World()
    {
        HySetDataFolder(dir.path());
        HySetProfilePath(profile.path());
        HYThemeResetCategorySwatches();
        EXPECT_EQ(HYCAT_OK, manager.Open(kComponent));
        EXPECT_TRUE(table.Open(kComponent));
        for (WORD c = 0; c < std::size(kSeed); ++c)
        {
            CCategory category;
            category.SetName(kSeed[c].name);
            EXPECT_TRUE(c == 0 || manager.Add(category) == HYCAT_OK);
            for (int r = 0; r < kSeed[c].live + kSeed[c].deleted; ++r) table.AddRecord(c, "record", FALSE);
        }
        CBaseIterator walk(&table);   // the first records of each category are the deleted ones
        int seen[std::size(kSeed)] = {};
        for (CBaseRecord* rec = walk.FindFirst(HYREC_WRITE); rec; rec = walk.FindNext(HYREC_WRITE))
            if (seen[rec->GetCategoryId()]++ < kSeed[rec->GetCategoryId()].deleted)
            {
                rec->MarkDeleted();
                if (rec->GetCategoryId() != 0) doc.GetUndoObject()->Add(rec->GetId(), rec->GetCategoryId());
            }
        CSubInfo subs;
        EXPECT_EQ(HYSUB_OK, SubLoadInfo(SubscriptionPath().c_str(), &subs));
        subs.AddCategory("Travel");
        EXPECT_EQ(HYSUB_OK, SubSaveInfo(&subs));
        view.Create(WS_CHILD, CRect(0, 0, 10, 10), CWnd::FromHandle(frame.hwnd()), 1);
        view.SetTable(&table);
        view.SetDocument(&doc);
    }
    ~World()
    {
        view.DestroyWindow();
        HySetDataFolder(nullptr);
        HySetProfilePath(nullptr);
        HYThemeResetCategorySwatches();
    }

    std::string SubscriptionPath() const
    {
        char folder[MAX_PATH];
        int size = MAX_PATH;
        EXPECT_EQ(0, CmGetCreatorFolder(kUser, HY_CREATOR_MEMO, folder, &size));
        return std::string(folder) + "\\" + (LPCTSTR)CBaseDialog::LoadHostString(IDS_HOST_SUBSCRIPTION_FILE);
    }
    std::string Subscriptions() const
    {
        CSubInfo subs;
        SubLoadInfo(SubscriptionPath().c_str(), &subs);
        std::string out;
        for (int i = 0; i < subs.GetCount(); ++i) out += std::string(i ? "," : "") + (LPCTSTR)subs.GetCategory(i);
        return out;
    }
    Files Snapshot() const { return hytest::TreeBytes(dir.path()); }
    std::string InMemory() { return CategoryCensus(manager, table); }
    // The same from a fresh process reading the files.
    std::string Census() const
    {
        const std::string command = "\"\"" + hytest::ExeFolder() + "\\category_census.exe\" \"" + dir.path() + "\" " + kComponent + "\"";
        std::string out;
        if (FILE* p = _popen(command.c_str(), "r"))
        {
            char buf[512];
            for (size_t n; (n = fread(buf, 1, sizeof buf, p)) > 0;) out.append(buf, n);
            _pclose(p);
        }
        return out;
    }
};

// What a run posts: an item to select (by text), the command, then what the
// nested dialog is answered (a name, or a radio), then OK for the dialog.
struct Step
{
    const char* select;   // nullptr: nothing selected
    UINT command;         // New, Delete or Rename of the plain dialog; mapped for the colour one
    const char* typed;    // name dialog: the text, or nullptr to cancel it
    int radio;            // delete confirmation: 0 keep, 1 delete, -1 cancel
    int swatch = -1;      // colour dialog: the swatch button k clicked after selecting
    UINT finish = IDOK;   // how the dialog ends: IDOK, IDCANCEL, SC_CLOSE or VK_ESCAPE
};

UINT ColourCommand(UINT plain) { return plain - IDC_CATEGORY_NEW + IDC_COLOR_CAT_NEW; }

HWND FindItem(HWND list, const char* text, bool ownerData)
{
    for (int i = 0, n = (int)::SendMessageA(list, LB_GETCOUNT, 0, 0); i < n; ++i)
    {
        char buf[64] = "";
        if (ownerData) lstrcpynA(buf, (const char*)::SendMessageA(list, LB_GETITEMDATA, i, 0), 64);
        else ::SendMessageA(list, LB_GETTEXT, i, (LPARAM)buf);
        if (strcmp(buf, text) == 0) return ::SendMessageA(list, LB_SETCURSEL, i, 0), list;
    }
    return nullptr;
}

// Runs one dialog through one step and records what it showed.
struct DialogRun
{
    hytest::MessageBoxRecorder boxes;
    std::string nested;            // "name ", "confirm ", "confirm+note "
    HWND focusAfterName = nullptr; // the focus once the name dialog's OK was handled
    HWND nameEdit = nullptr;
    int confirmHeight = 0;

    template <class Dialog> void Go(World& w, Dialog& dlg, const Step& step, bool colour)
    {
        HWND manage = nullptr;
        w.frame.OnMessage(WM_APP, [&](HWND, WPARAM, LPARAM) { focusAfterName = ::GetFocus(); return 0; });
        hytest::DialogDriver driver([&](HWND d) {
            if (::GetDlgItem(d, IDC_CATEGORY_LIST) || ::GetDlgItem(d, IDC_COLOR_CAT_LIST))
            {
                manage = d;
                HWND list = ::GetDlgItem(d, colour ? IDC_COLOR_CAT_LIST : IDC_CATEGORY_LIST);
                if (step.select) EXPECT_TRUE(FindItem(list, step.select, colour)) << step.select;
                else ::SendMessageA(list, LB_SETCURSEL, (WPARAM)-1, 0);
                if (step.swatch >= 0)
                    ::PostMessageA(d, WM_COMMAND, MAKEWPARAM(IDC_COLOR_CAT_SWATCH_FIRST + step.swatch, BN_CLICKED),
                                   (LPARAM)::GetDlgItem(d, IDC_COLOR_CAT_SWATCH_FIRST + step.swatch));
                if (step.command)
                    ::PostMessageA(d, WM_COMMAND, colour ? ColourCommand(step.command) : step.command, 0);
                if (!Nests(step, dlg)) Finish(d, step.finish);
                return;
            }
            if (HWND edit = ::GetDlgItem(d, IDC_CATEGORY_NAME))
            {
                nested += "name ";
                nameEdit = edit;
                if (step.typed) ::SetWindowTextA(edit, step.typed);
                ::PostMessageA(d, WM_COMMAND, step.typed ? IDOK : IDCANCEL, 0);
                ::PostMessageA(w.frame.hwnd(), WM_APP, 0, 0);
                ::PostMessageA(d, WM_COMMAND, IDCANCEL, 0);   // for a refused name; gone with the dialog otherwise
            }
            else if (::GetDlgItem(d, IDC_CATEGORY_KEEP_RECORDS))
            {
                RECT r;
                ::GetWindowRect(d, &r);
                confirmHeight = r.bottom - r.top;
                nested += ::IsWindowVisible(::GetDlgItem(d, IDC_CATEGORY_SUBSCRIPTION_NOTE)) ? "confirm+note " : "confirm ";
                if (step.radio == 1)
                    ::CheckRadioButton(d, IDC_CATEGORY_KEEP_RECORDS, IDC_CATEGORY_DELETE_RECORDS, IDC_CATEGORY_DELETE_RECORDS);
                ::PostMessageA(d, WM_COMMAND, step.radio < 0 ? IDCANCEL : IDOK, 0);
            }
            Finish(manage, step.finish);
        });
        dlg.DoModal();
    }
    static void Finish(HWND d, UINT how)
    {
        if (how == SC_CLOSE) ::PostMessageA(d, WM_SYSCOMMAND, SC_CLOSE, 0);
        else if (how == VK_ESCAPE) ::PostMessageA(::GetDlgItem(d, IDC_COLOR_CAT_LIST), WM_KEYDOWN, VK_ESCAPE, 1);
        else ::PostMessageA(d, WM_COMMAND, how, 0);
    }
    template <class Dialog> static bool Nests(const Step& s, Dialog& dlg)
    {
        if (s.command == 0) return false;
        if (s.command == IDC_CATEGORY_NEW) return dlg.m_pCategoryMgr->GetCount() < HYCAT_MAX_COUNT;
        return s.select != nullptr;
    }
};

}  // namespace

namespace {

CString Host(UINT id) { return CBaseDialog::LoadHostString(id); }

std::string Format(UINT id, const char* first, const char* second)
{
    LPCTSTR texts[2] = { first, second ? second : "" };
    CString out;
    AfxFormatStrings(out, Host(id), texts, 2);
    return (LPCTSTR)out;
}

enum Mode { kTable = 1, kView = 2, kBoth = 3 };

// Runs the plain or the colour dialog of a world through one step.
void RunDialog(World& w, DialogRun& run, const Step& step, bool colour, int mode = kTable, UINT view = 0)
{
    CBaseTable* table = (mode & kTable) ? &w.table : nullptr;
    CTernUIComponentView* pView = (mode & kView) ? &w.view : nullptr;
    if (colour)
    {
        CHyUIColorCatMgmtDlg dlg(&w.manager, table, "Memo", pView, CWnd::FromHandle(w.frame.hwnd()));
        dlg.SetCurrentUserName(kUser), dlg.SetCurrentViewID(view);
        run.Go(w, dlg, step, true);
    }
    else
    {
        CHyUICatMgmtDlg dlg(&w.manager, table, "Memo", pView, CWnd::FromHandle(w.frame.hwnd()));
        dlg.SetCurrentUserName(kUser), dlg.SetCurrentViewID(view);
        run.Go(w, dlg, step, false);
    }
}

const UINT kNew = IDC_CATEGORY_NEW, kDelete = IDC_CATEGORY_DELETE, kRename = IDC_CATEGORY_RENAME;

struct Action
{
    const char* label;
    Step step;
    int from, to;         // the records of `from` move to `to`; -1: none move
    bool deletes;         // the live records of `from` are marked deleted
    UINT question;        // the host string asked, 0 for none
    const char* census;   // afterwards
};

const Action kActions[] = {
    { "delete keeping the records", { "Business", kDelete, nullptr, 0 }, 1, 0, false, 0, "0:Unfiled:5/2 2:Personal:4/2 3:Travel:1/0 " },
    { "delete with the records", { "Business", kDelete, nullptr, 1 }, 1, -1, true, 0, "0:Unfiled:2/1 1:-:0/4 2:Personal:4/2 3:Travel:1/0 " },
    { "rename onto another name merges", { "Business", kRename, "personal", 0 }, 1, 2, false, IDS_HOST_MERGE,
      "0:Unfiled:2/1 2:Personal:7/3 3:Travel:1/0 " },
    { "plain rename", { "Business", kRename, "Work", 0 }, -1, -1, false, 0, "0:Unfiled:2/1 1:Work:3/1 2:Personal:4/2 3:Travel:1/0 " },
    { "same text", { "Business", kRename, "Business", 0 }, -1, -1, false, 0, kSeedCensus },
    { "case change only", { "Business", kRename, "BUSINESS", 0 }, -1, -1, false, 0, "0:Unfiled:2/1 1:BUSINESS:3/1 2:Personal:4/2 3:Travel:1/0 " },
};

// Only the named category's records move, in memory, in the files a fresh
// process reads, in the undo entries and in what the view is asked; totals
// never change; the same text changes no byte.
TEST(CategoryDialogs, MoveOnlyTheNamedCategorysRecords)
{
    for (bool colour : { false, true })
        for (int mode : { kTable, kView, kBoth })
            for (const Action& a : kActions)
            {
                SCOPED_TRACE(std::string(a.label) + (colour ? ", colour dialog" : ", plain dialog") + ", mode " +
                             std::to_string(mode));
                World w;
                const Files before = w.Snapshot();
                hytest::WindowSpy viewSpy(w.view.GetSafeHwnd());
                viewSpy.RecordOnly({ HYWM_CATEGORY_MOVE, HYWM_CATEGORY_DELETE });
                DialogRun run;
                if (a.question) run.boxes.Answer(IDYES);
                RunDialog(w, run, a.step, colour, mode);

                EXPECT_EQ(a.census, w.InMemory());
                EXPECT_EQ(a.census, w.Census());
                ASSERT_EQ(a.question ? 1 : 0, run.boxes.Count());
                if (a.question) { EXPECT_EQ(Format(a.question, a.step.typed, a.step.select), run.boxes.Calls()[0].text); }
                if (a.to < 0 && !a.deletes && strcmp(a.step.typed, a.step.select) == 0) { EXPECT_TRUE(before == w.Snapshot()); }

                // The view is asked once, and only when the dialog has no table.
                const bool asks = mode == kView && (a.to >= 0 || a.deletes);
                const UINT msg = a.deletes ? HYWM_CATEGORY_DELETE : HYWM_CATEGORY_MOVE;
                EXPECT_EQ(asks ? 1 : 0, viewSpy.Count(msg));
                if (asks) { EXPECT_TRUE(viewSpy.Matches({ { msg, (WPARAM)a.from, (LPARAM)(a.deletes ? 0 : a.to), hytest::kSent } })); }

                // Undo entries follow (one Business, two Personal at the start) when a view is there.
                CUndoDeleteInfo* undo = w.doc.GetUndoObject();
                const bool follows = (mode & kView) != 0;
                const int business = a.from == 1 && follows ? 0 : 1;
                EXPECT_EQ(business, undo->CountInCategory(1));
                EXPECT_EQ(2 + (a.to == 2 && follows ? 1 : 0), undo->CountInCategory(2));
                EXPECT_EQ(a.to == 0 && follows ? 1 : 0, undo->CountInCategory(0));
            }
}

enum Setup { kPlain, kFull, kHoldCategories, kHoldSubscriptions, kTripsListed };

struct BoxCase
{
    const char* label;
    Step step;
    Setup setup;           // kFull: sixteen categories; kHold...: that file cannot be replaced
    UINT view;             // HY_VIEW_MEMO: the user's subscriptions count
    int boxes;
    UINT text;             // host string of the last box (0: none)
    UINT caption;          // host string of its caption, 0: not checked
    UINT type;
    int answer;            // the first box's answer, 0: confirmed
    const char* nested;
    const char* subscriptions;   // the list afterwards; nullptr: no file may change at all
};

const BoxCase kBoxCases[] = {
    { "delete with nothing selected", { nullptr, kDelete, nullptr, 0 }, kPlain, 0, 1, IDS_HOST_SELECT_TO_DELETE, 0, MB_OK, 0, "", nullptr },
    { "rename with nothing selected", { nullptr, kRename, nullptr, 0 }, kPlain, 0, 1, IDS_HOST_SELECT_TO_RENAME, 0, MB_OK, 0, "", nullptr },
    { "a sixteenth category, before any name is asked", { nullptr, kNew, "Extra", 0 }, kFull, 0, 1, IDS_HOST_TOO_MANY,
      IDS_HOST_CATEGORIES, MB_ICONEXCLAMATION, 0, "", nullptr },
    { "a name of blanks", { nullptr, kNew, "   ", 0 }, kPlain, 0, 1, IDS_HOST_NAME_EMPTY, IDS_HOST_CATEGORIES, MB_ICONEXCLAMATION, 0,
      "name ", nullptr },
    { "a name taken, ignoring case", { nullptr, kNew, "business", 0 }, kPlain, 0, 1, IDS_HOST_NAME_TAKEN, IDS_HOST_NAME_TAKEN_CAPTION,
      MB_ICONEXCLAMATION, 0, "name ", nullptr },
    { "a merge answered No", { "Business", kRename, "Personal", 0 }, kPlain, 0, 1, IDS_HOST_MERGE, 0, MB_YESNO, IDNO, "name ", nullptr },
    { "a cancelled name", { "Business", kRename, nullptr, 0 }, kPlain, 0, 0, 0, 0, 0, 0, "name ", nullptr },
    { "a cancelled delete", { "Business", kDelete, nullptr, -1 }, kPlain, 0, 0, 0, 0, 0, 0, "confirm ", nullptr },
    { "a category the manager cannot delete keeps its records", { "Business", kDelete, nullptr, 0 }, kHoldCategories, 0, 0, 0, 0, 0, 0,
      "confirm ", nullptr },
    { "deleting a subscribed category", { "Travel", kDelete, nullptr, 0 }, kPlain, HY_VIEW_MEMO, 0, 0, 0, 0, 0, "confirm+note ", "" },
    { "deleting another", { "Business", kDelete, nullptr, 0 }, kPlain, HY_VIEW_MEMO, 0, 0, 0, 0, 0, "confirm ", "Travel" },
    { "renaming a subscribed category", { "Travel", kRename, "Trips", 0 }, kPlain, HY_VIEW_MEMO, 1, IDS_HOST_RENAME_SUBSCRIPTION, 0,
      MB_OKCANCEL | MB_ICONEXCLAMATION, 0, "name ", "Trips" },
    { "merging into a subscribed category", { "Business", kRename, "Travel", 0 }, kPlain, HY_VIEW_MEMO, 1,
      IDS_HOST_MERGE_INTO_SUBSCRIPTION, 0, MB_YESNO, 0, "name ", "Travel" },
    { "merging a subscribed category", { "Travel", kRename, "Business", 0 }, kPlain, HY_VIEW_MEMO, 1, IDS_HOST_MERGE_FROM_SUBSCRIPTION,
      0, MB_YESNO, 0, "name ", "" },
    // A failure is reported with the stop icon; the rename still happens and the list keeps every byte.
    { "a new name listed already", { "Travel", kRename, "Trips", 0 }, kTripsListed, HY_VIEW_MEMO, 2, IDS_HOST_SUBSCRIPTION_DUP_FAILED, 0,
      MB_ICONHAND, 0, "name ", "Travel,Trips" },
    { "a list that cannot be written", { "Travel", kRename, "Trips", 0 }, kHoldSubscriptions, HY_VIEW_MEMO, 2,
      IDS_HOST_SUBSCRIPTION_UPDATE_FAILED, 0, MB_ICONHAND, 0, "name ", "Travel" },
};

// What a person is shown and what reaches the files: refusals and cancels
// change no byte; the subscription list follows deletes, renames and merges;
// the delete confirmation shows its notice only for a subscribed category.
TEST(CategoryDialogs, ShowTheirBoxesAndKeepTheFilesInStep)
{
    std::map<std::string, int> heights;
    for (const BoxCase& c : kBoxCases)
    {
        SCOPED_TRACE(c.label);
        World w;
        for (int i = 0; c.setup == kFull && i < 12; ++i)
        {
            CCategory extra;
            extra.SetName(("Extra " + std::to_string(i)).c_str());
            ASSERT_EQ(HYCAT_OK, w.manager.Add(extra));
        }
        if (c.setup == kTripsListed)
        {
            CSubInfo subs;
            SubLoadInfo(w.SubscriptionPath().c_str(), &subs);
            subs.AddCategory("Trips");
            SubSaveInfo(&subs);
        }
        const Files before = w.Snapshot();
        const std::string held = c.setup == kHoldCategories ? (LPCTSTR)w.manager.GetFilePath() : w.SubscriptionPath();
        HANDLE hold = c.setup == kHoldCategories || c.setup == kHoldSubscriptions
                          ? ::CreateFileA(held.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr)
                          : INVALID_HANDLE_VALUE;
        DialogRun run;
        if (c.answer) run.boxes.Answer(c.answer);
        RunDialog(w, run, c.step, false, kTable, c.view);
        if (hold != INVALID_HANDLE_VALUE) ::CloseHandle(hold);
        EXPECT_EQ(c.nested, run.nested);
        heights[run.nested] = run.confirmHeight;
        if (c.boxes == 2) { EXPECT_NE(std::string::npos, w.Census().find("3:Trips:1/0")); }
        if (c.subscriptions) { EXPECT_EQ(c.subscriptions, w.Subscriptions()); }
        else { EXPECT_TRUE(before == w.Snapshot()); }
        ASSERT_EQ(c.boxes, run.boxes.Count());
        if (!c.boxes) continue;
        const hytest::MessageBoxCall& box = run.boxes.Calls().back();
        const std::string text = c.text == IDS_HOST_NAME_TAKEN ? "'" + std::string(c.step.typed) + "'" + (LPCTSTR)Host(c.text)
                                                               : Format(c.text, c.step.typed, c.step.select);
        EXPECT_EQ(text, box.text);
        if (c.caption) { EXPECT_EQ((LPCTSTR)Host(c.caption), box.caption); }
        EXPECT_EQ(c.type, box.type);
        if (c.text == IDS_HOST_NAME_EMPTY) { EXPECT_EQ(run.nameEdit, run.focusAfterName); }
    }
    EXPECT_EQ(HY_DELETE_NOTE_BAND, heights["confirm+note "] - heights["confirm "]);
}

struct ColourCase
{
    const char* label;
    Step step;
    WORD category;
    int swatch;            // the theme's swatch of the category afterwards
};

// Button k shows swatch kOrder[k]: button 11 is swatch 9.
const ColourCase kColourCases[] = {
    { "a new category takes the first free colour", { nullptr, kNew, "Zed", 0 }, 4, 3 },
    { "a chosen colour survives a rename", { "Personal", kRename, "Home", 0, 11 }, 2, 9 },
    { "a chosen colour is kept at OK", { "Personal", 0, nullptr, 0, 11 }, 2, 9 },
    { "Cancel forgets it", { "Personal", 0, nullptr, 0, 11, IDCANCEL }, 2, 4 },
    { "so does the close box", { "Personal", 0, nullptr, 0, 11, SC_CLOSE }, 2, 4 },
    { "and Escape", { "Personal", 0, nullptr, 0, 11, VK_ESCAPE }, 2, 4 },
};

// Colours reach the theme at OK only, and a rename keeps an item's colour.
TEST(ColourCategoryDialog, HandsColoursToTheThemeAtOkOnly)
{
    for (const ColourCase& c : kColourCases)
    {
        SCOPED_TRACE(c.label);
        World w;
        HYThemeSetCategorySwatch(1, 1), HYThemeSetCategorySwatch(2, 4), HYThemeSetCategorySwatch(3, 2);
        DialogRun run;
        RunDialog(w, run, c.step, true);
        EXPECT_EQ(c.swatch, HYThemeSwatchOfCategory(c.category));
    }
}

// A dialog run leaves no GDI or USER object behind.
TEST(CategoryDialogs, LeaveNoObjectsBehind)
{
    RunRepeated([] {
        World w;
        DialogRun a, b;
        RunDialog(w, a, { "Business", kRename, "Work", 0 }, false);
        RunDialog(w, b, { "Personal", 0, nullptr, 0, 3 }, true);
    });
}

}  // namespace
