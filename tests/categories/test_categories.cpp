// The colour-category controls as a framework parent and a person see them:
// the converted menu measured and drawn through the parent's owner-draw
// routing, the swatch buttons' frames and clicks, the swatch list's order
// and rows, probed pixel by pixel, and the host's sorted list.
#include "HyColorCatMenu.h"
#include "HyColorSwatch.h"
#include "HySortListBox.h"
#include "HySwatchListBox.h"
#include "HyTheme.h"
#include "HyUIRes.h"
#include "hytest_afx.h"

namespace {

constexpr UINT kCat = 1574;   // menu command of category 0

// A shown framework parent over a HostFrame that records WM_COMMAND.
struct Scene
{
    hytest::HostFrame frame{ 300, 200 };
    CWnd parent;
    Scene()
    {
        parent.SubclassWindow(frame);
        ::ShowWindow(frame, SW_SHOW);
        ::SetForegroundWindow(frame);
        hytest::PumpMessages();
        frame.RecordOnly({ WM_COMMAND });
    }
    ~Scene() { parent.UnsubclassWindow(); }
};

// Work (category 1, checked), Home (2), and More > Deep (3, checked), converted.
struct Menu
{
    CHyColorCatMenu menu;
    HMENU sub = ::CreatePopupMenu();
    Menu()
    {
        menu.CreatePopupMenu();
        menu.AppendMenu(MF_STRING | MF_CHECKED, kCat + 1, "Work");
        menu.AppendMenu(MF_STRING, kCat + 2, "");
        ::AppendMenuA(sub, MF_STRING | MF_CHECKED, kCat + 3, "Deep");
        menu.AppendMenu(MF_POPUP, (UINT_PTR)sub, "More");
        menu.ChangeToOwnerDraw(&menu);
    }
    static CHyCategoryData* Record(HMENU m, int pos)
    {
        MENUITEMINFOA mii = { sizeof mii, MIIM_FTYPE | MIIM_DATA };
        ::GetMenuItemInfoA(m, pos, TRUE, &mii);
        return (mii.fType & MFT_OWNERDRAW) ? (CHyCategoryData*)mii.dwItemData : nullptr;
    }
    // Draws item `pos` of `m` through the parent into a 160 x 20 canvas at item rect (left, 0, 160, 20).
    void Draw(Scene& s, Canvas& c, HMENU m, int pos, UINT state, int left = 0)
    {
        DRAWITEMSTRUCT dis = { ODT_MENU, 0, ::GetMenuItemID(m, pos), ODA_DRAWENTIRE, state, (HWND)m, c.dc().m_hDC,
                               { left, 0, 160, 20 }, (ULONG_PTR)Record(m, pos) };
        s.parent.SendMessage(WM_DRAWITEM, 0, (LPARAM)&dis);
    }
};

// Each control drawn once in every look, and a dialog run: the system's shared objects.
void WarmUp();

using CategoryTest = GuardedTest<WarmUp>;

// The tick as drawn from (x, y): "#" for the colour.
std::string Tick(const hytest::Renderer& r, int x, int y, COLORREF colour)
{
    std::string s;
    for (int row = 0; row < 7; ++row)
        for (int col = 0; col <= 7; ++col)
            s += col == 7 ? '|' : r.At(x + col, y + row) == colour ? '#' : '.';
    return s;
}
const std::string kTick = "......#|.....##|#...###|##.###.|#####..|.###...|..#....|";
const std::string kThinTick = "......#|.....##|#...##.|##.##..|.###...|..#....|.......|";

TEST_F(CategoryTest, ConversionKeepsChecksSubmenusAndCategoryColours)
{
    Menu m;
    const struct { HMENU menu; int pos; const char* text; int checked; COLORREF colour; } rows[] = {
        { m.menu, 0, "Work", 1, HYThemeSwatchColor(HYThemeSwatchOfCategory(1)) },
        { m.menu, 1, "", 0, HYThemeSwatchColor(HYThemeSwatchOfCategory(2)) },
        { m.menu, 2, "More", 0, HYThemeFallbackColor() },   // a submenu maps to no category
        { m.sub, 0, "Deep", 1, HYThemeSwatchColor(HYThemeSwatchOfCategory(3)) },
    };
    for (const auto& r : rows)
    {
        const CHyCategoryData* data = Menu::Record(r.menu, r.pos);
        ASSERT_NE(data, nullptr) << r.text;
        EXPECT_EQ(std::string(data->text) + std::to_string(data->checked), std::string(r.text) + std::to_string(r.checked));
        EXPECT_EQ(data->colour, r.colour) << r.text;
    }
    EXPECT_EQ(::GetSubMenu(m.menu, 2), m.sub);   // the submenu is still there, live
    EXPECT_TRUE(::IsMenu(m.sub));
    EXPECT_EQ(::GetMenuItemID(m.sub, 0), kCat + 3);
    CHyCategoryData copy;
    copy = *Menu::Record(m.menu, 0);
    EXPECT_EQ(CHyCategoryData(copy).text + (char)('0' + copy.checked), "Work1");
}

TEST_F(CategoryTest, MenuItemsMeasureSevenPixelsACharacter)
{
    Scene s;
    Menu m;
    const struct { HMENU menu; int pos; UINT width; } rows[] = { { m.menu, 0, 70 }, { m.menu, 1, 42 }, { m.sub, 0, 70 } };
    for (const auto& r : rows)
    {
        MEASUREITEMSTRUCT mis = { ODT_MENU, 0, ::GetMenuItemID(r.menu, r.pos), 0, 0, (ULONG_PTR)Menu::Record(r.menu, r.pos) };
        EXPECT_TRUE(s.parent.SendMessage(WM_MEASUREITEM, 0, (LPARAM)&mis));
        EXPECT_EQ(CSize(mis.itemWidth, mis.itemHeight), CSize(r.width, 20)) << r.pos;
    }
}

TEST_F(CategoryTest, MenuItemsAsDrawn)
{
    Scene s;
    Menu m;
    const COLORREF text = ::GetSysColor(COLOR_MENUTEXT), back = ::GetSysColor(COLOR_MENU);
    const COLORREF colour = Menu::Record(m.menu, 0)->colour;
    Canvas plain(160, 20);
    m.Draw(s, plain, m.menu, 0, 0, 10);   // an item not at x = 0: the swatch stays at 18
    EXPECT_EQ(plain.At(17, 8), HYThemeShiftColor(colour, 64));
    EXPECT_EQ(plain.At(25, 4), HYThemeShiftColor(colour, 64));
    EXPECT_EQ(plain.At(34, 8), HYThemeShiftColor(colour, -64));
    EXPECT_EQ(plain.At(25, 14), HYThemeShiftColor(colour, -64));
    EXPECT_TRUE(plain.AllPixels(CRect(18, 5, 34, 14), colour));
    EXPECT_EQ(CRect(plain.Ink(CRect(35, 0, 160, 20), back)).left, 40);
    const struct { int want; UINT state; COLORREF back, tick, text; int left; } looks[] = {
        { 1, ODS_SELECTED, ::GetSysColor(COLOR_HIGHLIGHT), ~text & 0xFFFFFF, ~text & 0xFFFFFF, 40 },
        { 0, 0, back, text, text, 21 },
        { 0, ODS_DISABLED, back, text, ::GetSysColor(COLOR_INACTIVECAPTIONTEXT), 21 },
    };
    for (const auto& l : looks)
    {
        Canvas c(160, 20);
        m.menu.SetWantColorCat(l.want);
        m.Draw(s, c, m.menu, 0, l.state);
        EXPECT_EQ(Tick(c, 6, 6, l.tick), kTick) << l.state;
        EXPECT_EQ(c.Count(CRect(15, 0, 35, 20), colour), l.want ? 16 * 9 : 0) << l.state;
        EXPECT_EQ(CRect(c.Ink(CRect(l.want ? 35 : 14, 0, 160, 20), l.back)).left, l.left) << l.state;
        EXPECT_GT(c.Count(CRect(l.left, 0, 160, 20), l.text), 10) << l.state;
    }
    Canvas ticks(20, 20);
    CHyColorCatMenu::DrawCheckMark(&ticks.dc(), 1, 1, RGB(255, 0, 0), TRUE);
    EXPECT_EQ(Tick(ticks, 1, 1, RGB(255, 0, 0)), kThinTick);
    for (BOOL state : { FALSE, TRUE })
    {
        Canvas box(16, 16);
        EXPECT_TRUE(CHyColorCatMenu::Draw3DCheckmark(&box.dc(), CRect(0, 0, 16, 16), state, nullptr));
        const COLORREF face = ::GetSysColor(COLOR_BTNFACE);
        EXPECT_EQ(box.At(2, 2), state ? face : HYThemeShiftColor(face, 40));
        EXPECT_EQ(box.At(0, 8), ::GetSysColor(COLOR_BTNSHADOW));
        EXPECT_EQ(Tick(box, 4, 4, text), kTick);
    }
}

// A swatch 40 x 30 at (10, 10), id 9, of a colour no frame has.
struct SwatchScene : Scene
{
    static constexpr COLORREF kColour = RGB(0, 128, 255);
    CHyColorSwatch swatch;
    SwatchScene() { swatch.Create(kColour, WS_CHILD | WS_VISIBLE, CRect(10, 10, 50, 40), &parent, 9); }
};

TEST_F(CategoryTest, SwatchFramesShowTheSelectFlagAndTheFocus)
{
    SwatchScene s;
    EXPECT_EQ(s.swatch.CWnd::GetStyle() & 0x1F, (DWORD)BS_OWNERDRAW);
    const COLORREF black = RGB(0, 0, 0), white = RGB(255, 255, 255);
    // selected, pressed, focused -> the pixels at x = 0..3 on the middle row
    const struct { int selected; BOOL pushed, focus; COLORREF px[4]; } rows[] = {
        { 0, FALSE, FALSE, { black, white, white, SwatchScene::kColour } },
        { 1, FALSE, FALSE, { black, black, white, SwatchScene::kColour } },
        { 0, TRUE, FALSE, { black, white, white, SwatchScene::kColour } },   // pressed is not selected
        { 1, FALSE, TRUE, { HYThemeGetFocusColor(), black, white, SwatchScene::kColour } },
    };
    for (const auto& r : rows)
    {
        s.swatch.Select(r.selected);
        s.swatch.SetState(r.pushed);
        ::SetFocus(r.focus ? s.swatch.m_hWnd : s.frame.hwnd());
        hytest::Renderer shot(s.swatch);
        for (int x = 0; x < 4; ++x)
            EXPECT_EQ(shot.At(x, 15), r.px[x]) << r.selected << r.pushed << r.focus << " x " << x;
        EXPECT_EQ(shot.At(39, 15), r.px[0]);
    }
}

TEST_F(CategoryTest, SwatchClicksOnEnterAndOnEachOfTwoQuickClicks)
{
    SwatchScene s;
    s.swatch.SetFocus();
    for (LPARAM key : { 0x001C0001, 0x401C0001, 0x401C0001 })   // a press, then a held key's repeats
        ::PostMessage(s.swatch, WM_KEYDOWN, VK_RETURN, key);
    hytest::PumpMessages();
    ASSERT_EQ(s.frame.Count(WM_COMMAND), 1u);
    EXPECT_EQ(s.frame.Last(WM_COMMAND)->wParam, (WPARAM)9);
    EXPECT_EQ(s.frame.Last(WM_COMMAND)->lParam, (LPARAM)s.swatch.m_hWnd);
    s.frame.Clear();
    hytest::DoubleClick(s.swatch, 5, 5);
    ASSERT_EQ(s.frame.Count(WM_COMMAND), 2u);
    EXPECT_EQ(s.frame.Messages()[0].wParam + s.frame.Messages()[1].wParam, 18u);   // two BN_CLICKED, no BN_DOUBLECLICKED
    MSG enter = { s.swatch, WM_KEYDOWN, VK_RETURN };
    EXPECT_EQ(s.swatch.SendMessage(WM_GETDLGCODE, 0, (LPARAM)&enter) & DLGC_WANTMESSAGE, DLGC_WANTMESSAGE);
    EXPECT_EQ(s.swatch.SendMessage(WM_GETDLGCODE, 0, 0) & DLGC_WANTMESSAGE, 0);
}

TEST_F(CategoryTest, SwatchRepaintsOnlyWhenTheSelectionChanges)
{
    SwatchScene s;
    hytest::WindowSpy spy(s.swatch);
    spy.RecordOnly({ WM_PAINT });
    const struct { BOOL value; size_t paints; } steps[] = { { TRUE, 1 }, { TRUE, 1 }, { FALSE, 2 }, { FALSE, 2 } };
    for (const auto& step : steps)
    {
        s.swatch.Select(step.value);   // no pumping: the paint is synchronous
        EXPECT_EQ(spy.Count(WM_PAINT), step.paints) << step.value;
    }
}

BOOL CALLBACK ThemeDrawsButtons(int element, LPDRAWITEMSTRUCT) { return element == HYTHEME_BUTTON; }

TEST_F(CategoryTest, TheThemeMayDrawTheSwatch)
{
    SwatchScene s;
    HYTHEMEOWNERDRAWPROC previous = HYThemeSetOwnerDrawProc(&ThemeDrawsButtons);
    hytest::Renderer theme(s.swatch);
    HYThemeSetOwnerDrawProc(previous);
    EXPECT_EQ(theme.Count(CRect(0, 0, 40, 30), SwatchScene::kColour), 0);
}

// A swatch list 120 x 120 at (100, 10), id 8.
struct ListScene : Scene
{
    CHySwatchListBox list;
    ListScene() { list.Create(WS_CHILD | WS_VISIBLE | LBS_HASSTRINGS, CRect(100, 10, 220, 130), &parent, 8); }
    std::string Order()
    {
        std::string s;
        for (int i = 0; i < list.GetCount(); ++i)
            s += std::string(list.GetItemText(i)) + " ";
        return s;
    }
};

int ItemHeightInFontOne()
{
    Canvas c(1, 1);
    c.dc().SelectObject(HYThemeGetFont(HYFONT_STANDARD));
    return c.dc().GetTextExtent("Ag", 2).cy;
}

TEST_F(CategoryTest, ListSortsByStringSort)
{
    ListScene s;
    const struct { const char* first; const char* second; } pairs[] = { { "co-op", "coop" }, { "a-b", "ab" }, { "we're", "were" } };
    for (const auto& p : pairs)
    {
        const int word = ::CompareStringA(LOCALE_SYSTEM_DEFAULT, 0, p.first, -1, p.second, -1);
        const int string = ::CompareStringA(LOCALE_SYSTEM_DEFAULT, SORT_STRINGSORT, p.first, -1, p.second, -1);
        ASSERT_NE(word, string) << p.first;   // a pair where the two sorts differ
        s.list.ResetContent();
        s.list.AddItem(p.second, 1);
        s.list.AddItem(p.first, 2);
        EXPECT_EQ(s.Order(), string == CSTR_LESS_THAN ? std::string(p.first) + " " + p.second + " "
                                                      : std::string(p.second) + " " + p.first + " ");
    }
}

TEST_F(CategoryTest, ListRowsAsDrawnAndAfterASwatchChange)
{
    ListScene s;
    EXPECT_EQ(s.list.CWnd::GetStyle() & (0x112 | LBS_HASSTRINGS), 0x112u);   // WS_VSCROLL only while needed
    EXPECT_EQ(s.list.GetFont()->GetSafeHandle(), HYThemeGetFont(HYFONT_STANDARD)->GetSafeHandle());
    const int h = ItemHeightInFontOne();
    EXPECT_EQ(s.list.GetItemHeight(0), h);
    s.list.AddItem("Beta", 5);
    EXPECT_EQ(s.list.AddItem("Alpha", 3), 0);
    s.list.SetCurSel(0);
    const int top = (h - 9) / 2;
    const COLORREF window = ::GetSysColor(COLOR_WINDOW), selText = ::GetSysColor(COLOR_HIGHLIGHTTEXT);
    for (int swatch : { 3, 7 })
    {
        s.list.ChangeItemSwatchIndex(0, swatch);
        EXPECT_EQ(s.list.GetItemSwatchIndex("Alpha"), swatch);
        hytest::Renderer shot(s.list);
        const COLORREF colour = HYThemeSwatchColor(swatch);
        EXPECT_EQ(shot.At(5, top + 4), RGB(0, 0, 0));
        EXPECT_EQ(shot.At(6, top + 4), HYThemeShiftColor(colour, 64));
        EXPECT_EQ(shot.At(15, top + 4), HYThemeShiftColor(colour, -64));
        EXPECT_TRUE(shot.AllPixels(CRect(7, top + 2, 15, top + 7), colour));
        EXPECT_GT(shot.Count(CRect(22, 0, 120, h), selText), 5);   // the selected row's text
        EXPECT_GT(shot.Count(CRect(22, h, 120, 2 * h), ::GetSysColor(COLOR_WINDOWTEXT)), 5);   // not the selected row's colour
        EXPECT_EQ(CRect(shot.Ink(CRect(0, h, 120, 2 * h), window)).left, 5);
    }
    s.list.DeleteItem(0);
    EXPECT_EQ(s.Order() + std::to_string(s.list.GetItemSwatchIndex("Alpha")), "Beta 0");
}

TEST_F(CategoryTest, ATemplateListAttachedLooksAsACreatedOne)
{
    CDialog dlg(IDD_COLOR_CATEGORIES);
    CHySwatchListBox list;
    hytest::DialogDriver driver([&](HWND h) {
        ASSERT_TRUE(list.AttachToDialogItem(IDC_COLOR_CAT_LIST, CWnd::FromHandle(h)));
        EXPECT_EQ(list.GetFont()->GetSafeHandle(), HYThemeGetFont(HYFONT_STANDARD)->GetSafeHandle());
        EXPECT_EQ(list.GetItemHeight(0), ItemHeightInFontOne());
        list.AddItem("coop", 1), list.AddItem("co-op", 2);
        EXPECT_EQ(std::string(list.GetItemText(0)), ::CompareStringA(0x800, 0x1000, "co-op", -1, "coop", -1) == 1 ? "co-op" : "coop");
        ::PostMessage(h, WM_COMMAND, IDCANCEL, 0);
    });
    EXPECT_EQ(dlg.DoModal(), IDCANCEL);
}

TEST_F(CategoryTest, HostSortedListFindsExactlyAndReadsTheSelection)
{
    Scene s;
    CSortListBox list;
    list.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 100, 100), &s.parent, 4);
    EXPECT_EQ(list.CWnd::GetStyle() & (LBS_SORT | LBS_NOTIFY), (DWORD)(LBS_SORT | LBS_NOTIFY));
    for (const char* name : { "work", "Work", "Home" })
        list.AddString(name);
    EXPECT_EQ(list.GetSelectedText(), "");
    const struct { const char* text; const char* found; } rows[] = { { "Work", "Work" }, { "work", "work" }, { "Wor", "" } };
    for (const auto& r : rows)
    {
        list.SetCurSel(list.FindExact(r.text));
        EXPECT_EQ(list.GetSelectedText(), r.found) << r.text;
    }
}

// A converted menu drawn, a swatch and a list made, painted and destroyed beside what the scene shows.
void Churn(Scene& s)
{
    Menu m;
    Canvas c(160, 20);
    m.Draw(s, c, m.sub, 0, ODS_SELECTED);
    CHyColorSwatch swatch;
    swatch.Create(RGB(1, 2, 3), WS_CHILD | WS_VISIBLE, CRect(0, 150, 20, 170), &s.parent, 10);
    CHySwatchListBox other;
    other.Create(WS_CHILD | WS_VISIBLE, CRect(30, 150, 90, 190), &s.parent, 11);
    other.AddItem("one", 1);
    swatch.UpdateWindow(), other.UpdateWindow();
    other.DestroyWindow(), swatch.DestroyWindow();
}

// A swatch and a scrolled list of fifteen, the fourth row selected and focused.
struct Busy : SwatchScene
{
    CHySwatchListBox list;
    Busy()
    {
        list.Create(WS_CHILD | WS_VISIBLE, CRect(100, 10, 220, 130), &parent, 8);
        for (int i = 0; i < 15; ++i)
            list.AddItem(("Category " + std::to_string(i)).c_str(), i + 1);
        list.SetCurSel(3);
        list.SetFocus();
    }
};

void WarmUp()
{
    WarmUpStandardControls();
    Scene s;
    Menu m;
    Canvas c(160, 20);
    m.Draw(s, c, m.menu, 0, ODS_SELECTED | ODS_FOCUS);
    CHyColorSwatch swatch;
    swatch.Create(0, WS_CHILD | WS_VISIBLE, CRect(0, 0, 20, 20), &s.parent, 9);
    swatch.SetFocus();
    hytest::DoubleClick(swatch, 5, 5);
    hytest::Renderer once(swatch);
    CHySwatchListBox list;
    list.Create(WS_CHILD | WS_VISIBLE, CRect(0, 30, 100, 60), &s.parent, 8);
    for (const char* name : { "x", "y", "z", "w" })
        list.AddItem(name, 1);
    list.SetCurSel(0);
    list.SetFocus();
    hytest::Renderer twice(list);
    Busy busy;
    Churn(busy);
    CDialog dlg(IDD_COLOR_CATEGORIES);
    hytest::DialogDriver driver([](HWND h) { ::PostMessage(h, WM_COMMAND, IDCANCEL, 0); });
    dlg.DoModal();
}

TEST_F(CategoryTest, ObjectCountsStayFlat)
{
    Busy s;
    RunRepeated([&] {
        for (int i = 0; i < 1000; ++i)
            s.swatch.Select(i & 1), s.list.Invalidate(), s.list.UpdateWindow();
        for (int i = 0; i < 100; ++i)
            Churn(s);
    }, 2);
}

}  // namespace
