// The colour-category controls as a framework parent and a person see them:
// the converted menu and the category combo drawn through the parent's
// owner-draw routing, the swatch buttons' frames and clicks, the swatch
// list's order and rows, probed pixel by pixel; the host's sorted list.
#include "HyCategoryMgr.h"
#include "HyColorCatCombo.h"
#include "HyColorCatMenu.h"
#include "HyColorSwatch.h"
#include "HyDataFolder.h"
#include "HySortListBox.h"
#include "HySwatchListBox.h"
#include "HyTheme.h"
#include "HyUIRes.h"
#include "hytest_afx.h"

namespace {

constexpr UINT kCat = 1574;   // menu command of category 0
const COLORREF kBlack = RGB(0, 0, 0), kWhite = RGB(255, 255, 255), kSwatch = RGB(0, 128, 255);
COLORREF Light(COLORREF c) { return HYThemeShiftColor(c, 64); }
COLORREF Dark(COLORREF c) { return HYThemeShiftColor(c, -64); }
using Colours = std::vector<COLORREF>;

// A shown framework parent recording WM_COMMAND; a swatch (40 x 30 at 10, 10, id 9) and a list (120 x 120
// at 100, 10, id 8) holding `items` categories, the fourth selected and focused when there are so many.
struct Scene
{
    hytest::HostFrame frame{ 300, 200 };
    CWnd parent;
    CHyColorSwatch swatch;
    CHySwatchListBox list;
    explicit Scene(int items = 0)
    {
        parent.SubclassWindow(frame);
        swatch.Create(kSwatch, WS_CHILD | WS_VISIBLE, CRect(10, 10, 50, 40), &parent, 9);
        list.Create(WS_CHILD | WS_VISIBLE | LBS_HASSTRINGS, CRect(100, 10, 220, 130), &parent, 8);
        for (int i = 0; i < items; ++i)
            list.AddItem(("Category " + std::to_string(i)).c_str(), i + 1), list.SetCurSel(3), list.SetFocus();
        ::ShowWindow(frame, SW_SHOW), ::SetForegroundWindow(frame), hytest::PumpMessages();
        frame.RecordOnly({ WM_COMMAND });
    }
    ~Scene() { parent.UnsubclassWindow(); }
    // An item drawn through the parent into a 160 x 20 canvas, the item at (left, 0)-(160, 20).
    void Draw(Canvas& c, UINT type, HWND from, UINT id, ULONG_PTR data, UINT state, int left = 0)
    {
        DRAWITEMSTRUCT dis = { type, 12, id, ODA_DRAWENTIRE, state, from, c.dc().m_hDC, { left, 0, 160, 20 }, data };
        parent.SendMessage(WM_DRAWITEM, 12, (LPARAM)&dis);
    }
};

// Work (category 1, checked), an empty item (2), and More > Deep (3, checked), converted.
struct Menu
{
    CHyColorCatMenu menu;
    HMENU sub = ::CreatePopupMenu();
    Menu()
    {
        menu.CreatePopupMenu();
        menu.AppendMenu(MF_STRING | MF_CHECKED, kCat + 1, "Work"), menu.AppendMenu(MF_STRING, kCat + 2, "");
        ::AppendMenuA(sub, MF_STRING | MF_CHECKED, kCat + 3, "Deep"), menu.AppendMenu(MF_POPUP, (UINT_PTR)sub, "More");
        menu.ChangeToOwnerDraw(&menu);
    }
    // An owner-drawn item's record, and its id as the menu reports it (a submenu's handle for a submenu).
    static CHyCategoryData* Record(HMENU m, int pos, UINT* id = nullptr)
    {
        MENUITEMINFOA mii = { sizeof mii, MIIM_FTYPE | MIIM_DATA | MIIM_ID };
        ::GetMenuItemInfoA(m, pos, TRUE, &mii), id && (*id = mii.wID);
        return (mii.fType & MFT_OWNERDRAW) ? (CHyCategoryData*)mii.dwItemData : nullptr;
    }
    void Draw(Scene& s, Canvas& c, HMENU m, int pos, UINT state, int left = 0)
    {
        UINT id = 0;
        s.Draw(c, ODT_MENU, (HWND)m, (Record(m, pos, &id), id), (ULONG_PTR)Record(m, pos), state, left);
    }
};

// The first column of a 20-high row from x on that is not the background.
int FirstInk(const hytest::Renderer& r, int x, COLORREF back) { return CRect(r.Ink(CRect(x, 0, 160, 20), back)).left; }

// The tick drawn from (x, y) in a colour, row by row.
std::string Tick(const hytest::Renderer& r, int x, int y, COLORREF colour)
{
    std::string s;
    for (int i = 0; i < 56; ++i)
        s += i % 8 == 7 ? '|' : r.At(x + i % 8, y + i / 8) == colour ? '#' : '.';
    return s;
}
const std::string kTick = "......#|.....##|#...###|##.###.|#####..|.###...|..#....|", kNoTick = ".......|.......|.......|.......|.......|.......|.......|";

void WarmUp();
using CategoryTest = GuardedTest<WarmUp>;

TEST_F(CategoryTest, MenuConversionKeepsChecksSubmenusAndColoursAndItemsAsDrawn)
{
    Scene s;
    Menu m;
    const struct { HMENU menu; int pos; const char* record; COLORREF colour; UINT width; } rows[] = {
        { m.menu, 0, "Work1", HYThemeSwatchColor(HYThemeSwatchOfCategory(1)), 70 },
        { m.menu, 1, "0", HYThemeSwatchColor(HYThemeSwatchOfCategory(2)), 42 },
        { m.menu, 2, "More0", HYThemeFallbackColor(), 70 },   // a submenu maps to no category
        { m.sub, 0, "Deep1", HYThemeSwatchColor(HYThemeSwatchOfCategory(3)), 70 },
    };
    for (const auto& r : rows)
    {
        MEASUREITEMSTRUCT mis = { ODT_MENU };
        const CHyCategoryData* data = Menu::Record(r.menu, r.pos, &mis.itemID);
        ASSERT_NE(data, nullptr) << r.record;
        const LRESULT measured = s.parent.SendMessage(WM_MEASUREITEM, 0, (LPARAM)(mis.itemData = (ULONG_PTR)data, &mis));
        EXPECT_EQ(std::string(data->text) + std::to_string(data->checked), r.record);
        EXPECT_EQ(Colours({ data->colour, mis.itemWidth, mis.itemHeight, (COLORREF)measured }), Colours({ r.colour, r.width, 20, 1 })) << r.record;
    }
    EXPECT_EQ(std::vector<UINT_PTR>({ (UINT_PTR)::GetSubMenu(m.menu, 2), ::GetMenuItemID(m.sub, 0) }),   // the submenu lives on
              std::vector<UINT_PTR>({ (UINT_PTR)m.sub, kCat + 3 }));
    const COLORREF text = ::GetSysColor(COLOR_MENUTEXT), back = ::GetSysColor(COLOR_MENU), colour = Menu::Record(m.menu, 0)->colour;
    // Item left 10 and unchecked: the swatch stays at 18, not under the tick.
    const struct { int want, left; UINT state; COLORREF back, tick, text; int textX; } looks[] = {
        { 1, 10, 0, back, text, text, 40 },
        { 1, 0, ODS_SELECTED, ::GetSysColor(COLOR_HIGHLIGHT), ~text & 0xFFFFFF, ~text & 0xFFFFFF, 40 },
        { 0, 0, 0, back, text, text, 21 },
        { 0, 0, ODS_DISABLED, back, text, ::GetSysColor(COLOR_INACTIVECAPTIONTEXT), 21 },
    };
    for (const auto& l : looks)
    {
        Canvas c(160, 20);
        m.menu.SetWantColorCat(l.want), Menu::Record(m.menu, 0)->checked = l.left == 0;
        m.Draw(s, c, m.menu, 0, l.state, l.left);
        EXPECT_EQ(Tick(c, 6, 6, l.tick), l.left ? kNoTick : kTick) << l.state;
        EXPECT_EQ(l.want ? Colours({ c.At(17, 8), c.At(25, 4), c.At(34, 8), c.At(25, 14) }) : Colours(),
                  l.want ? Colours({ Light(colour), Light(colour), Dark(colour), Dark(colour) }) : Colours()) << l.state;
        EXPECT_EQ(c.Count(CRect(15, 0, 35, 20), colour), l.want ? 16 * 9 : 0) << l.state;
        EXPECT_EQ(FirstInk(c, l.want ? 35 : 14, l.back), l.textX) << l.state;
        EXPECT_GT(c.Count(CRect(l.textX, 0, 160, 20), l.text), 10) << l.state;
    }
    Canvas thin(20, 20), box(16, 16), flat(16, 16);
    CHyColorCatMenu::DrawCheckMark(&thin.dc(), 1, 1, RGB(255, 0, 0), TRUE);
    const BOOL drawn = CHyColorCatMenu::Draw3DCheckmark(&box.dc(), CRect(0, 0, 16, 16), TRUE, nullptr) + CHyColorCatMenu::Draw3DCheckmark(&flat.dc(), CRect(0, 0, 16, 16), FALSE, nullptr);
    EXPECT_EQ(Tick(thin, 1, 1, RGB(255, 0, 0)) + Tick(box, 4, 4, text) + Tick(flat, 4, 4, text), "......#|.....##|#...##.|##.##..|.###...|..#....|.......|" + kTick + kTick);
    const COLORREF face = ::GetSysColor(COLOR_BTNFACE);
    EXPECT_EQ(Colours({ box.At(2, 2), flat.At(2, 2), box.At(0, 8), (COLORREF)drawn }), Colours({ face, HYThemeShiftColor(face, 40), ::GetSysColor(COLOR_BTNSHADOW), 2 }));
}

TEST_F(CategoryTest, ComboItemsAsDrawn)
{
    hytest::TempFolder data{ "hy-cat-combo" };
    HySetDataFolder(data.path());
    CCategoryMgr mgr;
    CCategory work;
    ASSERT_TRUE(mgr.Open("Memo") == HYCAT_OK && (work.SetName("Work"), mgr.Add(work)) == HYCAT_OK);
    Scene s;
    const COLORREF text = ::GetSysColor(COLOR_WINDOWTEXT), back = ::GetSysColor(COLOR_WINDOW), colour = HYThemeSwatchColor(HYThemeSwatchOfCategory(1));
    // want, item data, state -> first ink from the item's left (4), swatch pixels
    const struct { int want; ULONG_PTR data; UINT state; int ink, swatch; } rows[] = {
        { 1, 1, 0, 4, 12 * 9 }, { 1, HYCATCOMBO_ALL, 0, 24, 0 }, { 1, HYCATCOMBO_EDIT, ODS_SELECTED, 25, 0 },   // E's stem is a pixel in
        { 0, 1, 0, 6, 0 }, { 0, HYCATCOMBO_ALL, ODS_SELECTED, 6, 0 },
    };
    CHyColorCatCombo combo(1);
    combo.Create(WS_CHILD | WS_VISIBLE | CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED, CRect(0, 50, 160, 150), &s.parent, 12);
    combo.SetCategoryMgr(&mgr);
    ASSERT_EQ(combo.Fill(TRUE, TRUE) * 10 + combo.FindIndex(1), 43);   // All, Edit, Unfiled, Work
    for (const auto& r : rows)
    {
        Canvas c(160, 20);
        combo.SetWantColorCat(r.want);
        s.Draw(c, ODT_COMBOBOX, combo, combo.FindIndex(r.data), r.data, r.state, 4);
        EXPECT_EQ(FirstInk(c, 4, r.state ? ::GetSysColor(COLOR_HIGHLIGHT) : back), r.ink) << r.want << r.data;
        EXPECT_EQ(c.Count(CRect(4, 0, 18, 20), colour) + (c.At(4, 5) == Light(colour)), r.swatch + (r.swatch != 0)) << r.want << r.data;
        EXPECT_GT(c.Count(CRect(r.ink + 1, 0, 160, 20), r.state ? ~text & 0xFFFFFF : text), 10) << r.want << r.data;
    }
    HySetDataFolder(nullptr);
}

TEST_F(CategoryTest, SwatchFramesShowTheSelectionAndFocusAndEnterAndDoubleClicksAreClicks)
{
    Scene s;
    // selected, pressed, focused -> the outer and the middle frame
    const struct { int selected; BOOL pushed, focus; COLORREF outer, middle; } rows[] = {
        { 0, FALSE, FALSE, kBlack, kWhite }, { 1, FALSE, FALSE, kBlack, kBlack },
        { 0, TRUE, FALSE, kBlack, kWhite }, { 1, FALSE, TRUE, HYThemeGetFocusColor(), kBlack },
    };
    for (const auto& r : rows)
    {
        s.swatch.Select(r.selected), s.swatch.SetState(r.pushed), ::SetFocus(r.focus ? s.swatch.m_hWnd : s.frame.hwnd());
        hytest::Renderer shot(s.swatch);
        EXPECT_EQ(Colours({ shot.At(0, 15), shot.At(1, 15), shot.At(2, 15), shot.At(3, 15), shot.At(39, 15) }),
                  Colours({ r.outer, r.middle, kWhite, kSwatch, r.outer })) << r.selected << r.pushed << r.focus;
    }
    HYTHEMEOWNERDRAWPROC previous = HYThemeSetOwnerDrawProc([](int element, LPDRAWITEMSTRUCT) { return (BOOL)(element == HYTHEME_BUTTON); });
    hytest::Renderer theme(s.swatch);
    EXPECT_EQ(theme.Count(CRect(0, 0, 40, 30), kSwatch) + (HYThemeSetOwnerDrawProc(previous) == nullptr), 0);   // the theme drew it
    s.swatch.SetFocus();
    for (LPARAM key : { 0x001C0001, 0x401C0001, 0x401C0001 })   // a press, then a held key's repeats
        ::PostMessage(s.swatch, WM_KEYDOWN, VK_RETURN, key);
    hytest::PumpMessages();
    ASSERT_EQ(s.frame.Count(WM_COMMAND), 1u);
    EXPECT_EQ(s.frame.Last(WM_COMMAND)->wParam + s.frame.Last(WM_COMMAND)->lParam, 9 + (LPARAM)s.swatch.m_hWnd);
    s.frame.Clear(), hytest::DoubleClick(s.swatch, 5, 5);
    ASSERT_EQ(s.frame.Count(WM_COMMAND), 2u);
    EXPECT_EQ(s.frame.Messages()[0].wParam + s.frame.Messages()[1].wParam, 18u);   // two BN_CLICKED, no BN_DOUBLECLICKED
    MSG enter = { s.swatch, WM_KEYDOWN, VK_RETURN };
    EXPECT_EQ(s.swatch.SendMessage(WM_GETDLGCODE, 0, (LPARAM)&enter) & ~s.swatch.SendMessage(WM_GETDLGCODE), DLGC_WANTMESSAGE);
    hytest::WindowSpy spy(s.swatch);
    spy.RecordOnly({ WM_PAINT });
    for (BOOL value : { FALSE, FALSE, TRUE, TRUE })
        s.swatch.Select(value);   // synchronous: no pumping
    EXPECT_EQ(spy.Count(WM_PAINT), 2u);
}

TEST_F(CategoryTest, SwatchListSortsByStringSortAndDrawsRowsCreatedOrAttached)
{
    Scene s;
    Canvas measure(1, 1);
    const int h = (measure.dc().SelectObject(HYThemeGetFont(HYFONT_STANDARD)), measure.dc().GetTextExtent("Ag", 2).cy), top = (h - 9) / 2;
    CDialog dlg(IDD_COLOR_CATEGORIES);
    CHySwatchListBox attached;
    hytest::DialogDriver driver([&](HWND dialog) {
        ASSERT_TRUE(attached.AttachToDialogItem(IDC_COLOR_CAT_LIST, CWnd::FromHandle(dialog)));
        for (CHySwatchListBox* list : { &s.list, &attached })   // the template's list gets what creation gives
            EXPECT_EQ(std::vector<UINT_PTR>({ (UINT_PTR)list->GetFont()->GetSafeHandle(), (UINT_PTR)list->GetItemHeight(0) }),
                      std::vector<UINT_PTR>({ (UINT_PTR)HYThemeGetFont(HYFONT_STANDARD)->GetSafeHandle(), (UINT_PTR)h }));
        for (const char* pair : { "co-op\0coop", "a-b\0ab", "we're\0were" })   // pairs the word sort orders otherwise
        {
            const char* second = pair + strlen(pair) + 1;
            const int string = ::CompareStringA(LOCALE_SYSTEM_DEFAULT, SORT_STRINGSORT, pair, -1, second, -1);
            ASSERT_NE(::CompareStringA(LOCALE_SYSTEM_DEFAULT, 0, pair, -1, second, -1), string) << pair;
            attached.ResetContent(), attached.AddItem(second, 1), attached.AddItem(pair, 2);
            EXPECT_EQ(std::string(attached.GetItemText(0)), string == CSTR_LESS_THAN ? pair : second);
        }
        ::PostMessage(dialog, WM_COMMAND, IDCANCEL, 0);
    });
    EXPECT_EQ(dlg.DoModal(), IDCANCEL);
    EXPECT_EQ(s.list.CWnd::GetStyle() & (0x112 | LBS_HASSTRINGS), 0x112u);   // WS_VSCROLL only while needed
    s.list.AddItem("Beta", 5), s.list.SetCurSel(s.list.AddItem("Alpha", 3));
    for (int swatch : { 3, 7 })
    {
        s.list.ChangeItemSwatchIndex(0, swatch);
        hytest::Renderer shot(s.list);
        const COLORREF colour = HYThemeSwatchColor(swatch);
        EXPECT_EQ(Colours({ shot.At(5, top + 4), shot.At(6, top + 4), shot.At(15, top + 4) }), Colours({ kBlack, Light(colour), Dark(colour) }));
        EXPECT_TRUE(shot.AllPixels(CRect(7, top + 2, 15, top + 7), colour));
        EXPECT_GT(shot.Count(CRect(22, 0, 120, h), ::GetSysColor(COLOR_HIGHLIGHTTEXT)), 5);   // the selected row's text
        EXPECT_GT(shot.Count(CRect(22, h, 120, 2 * h), ::GetSysColor(COLOR_WINDOWTEXT)), 5);   // not in its colour below
        EXPECT_EQ(CRect(shot.Ink(CRect(0, h, 120, 2 * h), ::GetSysColor(COLOR_WINDOW))).left, 5);
    }
    EXPECT_EQ(s.list.GetItemSwatchIndex("Alpha") * 10 + s.list.DeleteItem(0) + s.list.GetItemSwatchIndex("Alpha"), 71);
    EXPECT_EQ(std::string(s.list.GetItemText(0)), "Beta");
}

TEST_F(CategoryTest, HostSortedListFindsExactlyAndReadsTheSelection)
{
    Scene s;
    CSortListBox list;
    list.Create(WS_CHILD, CRect(0, 0, 100, 100), &s.parent, 4);
    std::string found = (~list.CWnd::GetStyle() & (LBS_SORT | LBS_NOTIFY)) ? "unsorted " : "";
    for (const char* name : { "work", "Work", "Home" })
        list.AddString(name);
    for (const char* name : { "Work", "work", "Wor" })
        list.SetCurSel(list.FindExact(name)), found += std::string(list.GetSelectedText()) + "|";
    EXPECT_EQ(found, "Work|work||");
}

// A converted menu drawn; a swatch, a list and a combo made, painted and destroyed beside the scene's.
void Churn(Scene& s)
{
    Menu m;
    Canvas c(160, 20);
    m.Draw(s, c, m.sub, 0, ODS_SELECTED);
    CHyColorSwatch swatch;
    CHySwatchListBox other;
    CHyColorCatCombo combo(1);
    swatch.Create(RGB(1, 2, 3), WS_CHILD | WS_VISIBLE, CRect(0, 150, 20, 170), &s.parent, 10);
    other.Create(WS_CHILD | WS_VISIBLE, CRect(30, 150, 90, 190), &s.parent, 11), other.AddItem("one", 1);
    combo.Create(WS_CHILD | WS_VISIBLE | CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED, CRect(100, 150, 200, 250), &s.parent, 12);
    combo.Fill(TRUE, FALSE), combo.SetCurSel(0);
    swatch.UpdateWindow(), other.UpdateWindow(), combo.UpdateWindow();
    other.DestroyWindow(), swatch.DestroyWindow(), combo.DestroyWindow();
}

void WarmUp()
{
    WarmUpStandardControls();
    Scene s(15);
    Churn(s);
    s.swatch.SetFocus(), hytest::DoubleClick(s.swatch, 5, 5);
    hytest::Renderer once(s.swatch), twice(s.list);
    CDialog dlg(IDD_COLOR_CATEGORIES);
    hytest::DialogDriver driver([](HWND h) { ::PostMessage(h, WM_COMMAND, IDCANCEL, 0); });
    dlg.DoModal();
}

TEST_F(CategoryTest, ObjectCountsStayFlat)
{
    Scene s(15);
    RunRepeated([&] {
        for (int i = 0; i < 1000; ++i)
            s.swatch.Select(i & 1), s.list.Invalidate(), s.list.UpdateWindow();
        for (int i = 0; i < 100; ++i)
            Churn(s);
    }, 1);
}

}  // namespace
