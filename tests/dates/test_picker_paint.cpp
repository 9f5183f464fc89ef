// What the date picker draws: where the highlighted day, the week, today, the
// event marks and the drop target appear and that they can be told apart;
// the header's arrows and their hot and pressed looks; neighbouring months;
// text that fits; painting only what was invalidated; and steady GDI and
// USER object counts.
#include "picker_fixture.h"

#include <afxdisp.h>
#include <algorithm>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "HyCommonUI.h"
#include "HyTheme.h"

namespace {

using hytest::Renderer;

// Exposes the protected invalidation entry without changing the object's type.
struct InvalidateAccess : CHyDatePicker
{
    using CHyDatePicker::InvalidateDay;
};

CRect ToCRect(const HyRect& r) { return CRect(r.left, r.top, r.right, r.bottom); }

// Changed pixels between two renderings of the same size.
struct PixelDiff
{
    CRect box;                                   // empty when nothing changed
    std::set<std::pair<int, int>> where;         // relative to `origin`
    std::set<COLORREF> colours;                  // as in `after`
};

PixelDiff Compare(const Renderer& before, const Renderer& after, CPoint origin = CPoint(0, 0))
{
    PixelDiff d;
    for (int y = 0; y < before.height(); ++y)
        for (int x = 0; x < before.width(); ++x)
            if (before.At(x, y) != after.At(x, y)) {
                d.box.UnionRect(d.box, CRect(x, y, x + 1, y + 1));
                d.where.insert({x - origin.x, y - origin.y});
                d.colours.insert(after.At(x, y));
            }
    return d;
}

bool Inside(const CRect& inner, const CRect& outer)
{
    return inner.IsRectEmpty() || (inner.left >= outer.left && inner.top >= outer.top && inner.right <= outer.right &&
                                   inner.bottom <= outer.bottom);
}

std::vector<COLORREF> Pixels(const Renderer& r, const CRect& rc)
{
    std::vector<COLORREF> v;
    for (int y = rc.top; y < rc.bottom; ++y)
        for (int x = rc.left; x < rc.right; ++x)
            v.push_back(r.At(x, y));
    return v;
}

bool Uniform(const Renderer& r, const CRect& rc)
{
    return static_cast<bool>(r.AllPixels(rc, r.At(rc.left, rc.top)));
}

// The one-pixel edge of rc has a single colour, that of most of rc: nothing
// drawn inside reaches the edge.
bool EdgeClear(const Renderer& r, const CRect& rc)
{
    const COLORREF back = r.Dominant(rc);
    CRect inner = rc;
    inner.DeflateRect(1, 1);
    return r.Count(rc, back) - r.Count(inner, back) == 2 * (rc.Width() + rc.Height()) - 4;
}

int Luma(COLORREF c) { return 299 * GetRValue(c) + 587 * GetGValue(c) + 114 * GetBValue(c); }

// The darkest pixel of a rectangle: the ink of dark text on a light fill.
COLORREF Ink(const Renderer& r, const CRect& rc)
{
    const std::vector<COLORREF> v = Pixels(r, rc);
    return *std::min_element(v.begin(), v.end(), [](COLORREF a, COLORREF b) { return Luma(a) < Luma(b); });
}

}  // namespace

class DatePickerPaint : public PickerTest
{
protected:
    // The cell showing (day, month, year) in calendar index (or in the
    // calendar of that month when index is -1).
    CRect Cell(int year, int month, int day, int index = -1)
    {
        const CPoint c = DayPoint(year, month, day, index);
        const int w = picker.GetDayWidth(), h = picker.GetDayHeight();
        return CRect(c.x - w / 2, c.y - h / 2, c.x - w / 2 + w, c.y - h / 2 + h);
    }

    static CRect Grown(CRect r, int by)
    {
        r.InflateRect(by, by);
        return r;
    }

    // Renders, applies a change, renders again and answers what changed,
    // relative to `origin`.
    template <class F>
    PixelDiff ChangeOf(F change, CPoint origin = CPoint(0, 0))
    {
        Renderer before(picker.m_hWnd);
        change();
        hytest::PumpMessages();
        Renderer after(picker.m_hWnd);
        return Compare(before, after, origin);
    }
};

// ---- the selected day ----------------------------------------------------------

using DatePickerPaintSelection = DatePickerPaint;

TEST_F(DatePickerPaintSelection, TheHighlightTheWeekAndTheFocusMarkFollowTheSelectedDay)
{
    Create();
    const CRect c15 = Cell(2005, 11, 15), c16 = Cell(2005, 11, 16);
    Renderer before(picker.m_hWnd);
    const COLORREF selected = before.Dominant(c15);
    EXPECT_NE(selected, before.Dominant(c16));
    // The focus mark surrounds the selected day, and nothing else, while focused.
    const COLORREF focus = HYThemeGetFocusColor();
    CRect all;
    picker.GetClientRect(&all);
    EXPECT_GT(before.Count(Grown(c15, 1), focus), 0);
    EXPECT_EQ(before.Count(Grown(c15, 1), focus), before.Count(all, focus)) << "focus colour outside the day";

    picker.SetSelection(2005, 11, 16, 0);
    Renderer after(picker.m_hWnd);
    EXPECT_EQ(selected, after.Dominant(c16));
    EXPECT_EQ(before.Dominant(c16), after.Dominant(c15));
    CRect both;
    both.UnionRect(Grown(c15, 1), Grown(c16, 1));
    EXPECT_TRUE(Inside(Compare(before, after).box, both)) << "changed outside the two cells";

    // The whole-week style fills the row of the selected day only.
    picker.ModifyStyle(0, HYDPS_WHOLE_WEEK);
    Renderer week(picker.m_hWnd);
    for (int day = 13; day <= 19; ++day)  // Sunday 13 to Saturday 19 November 2005
        EXPECT_EQ(selected, week.Dominant(Cell(2005, 11, day))) << "day " << day;
    for (const CRect& other : { Cell(2005, 11, 12), Cell(2005, 11, 20), Cell(2005, 12, 15) })
        EXPECT_NE(selected, week.Dominant(other));

    ::SetFocus(parent);
    hytest::PumpMessages();
    EXPECT_EQ(0, Renderer(picker.m_hWnd).Count(all, focus));
}

// ---- marks -----------------------------------------------------------------------

using DatePickerPaintMarks = DatePickerPaint;

TEST_F(DatePickerPaintMarks, TodayIsMarkedInItsCellOnlyWithTheAttribute)
{
    CHyDate today;
    CHyDatePicker::GetToday(&today);
    Create(1, 1, today.month, today.year);
    picker.SetSelection(today.year, today.month, today.day == 1 ? 2 : 1, 0);
    const CRect cell = Cell(today.year, today.month, today.day);
    const PixelDiff d = ChangeOf([&] {
        picker.SetHYAttributes(HYDPA_DEFAULT & ~HYDPA_TODAY_MARK);
        picker.RedrawAll();
    });
    EXPECT_FALSE(d.where.empty()) << "no today mark";
    EXPECT_TRUE(Inside(d.box, cell)) << "today mark outside today's cell";
}

TEST_F(DatePickerPaintMarks, EachEventKindHasItsOwnShapeAndColourInsideTheDay)
{
    Create();
    const CRect cell = Cell(2005, 11, 22);
    std::vector<PixelDiff> marks;
    for (int kind = 0; kind < 4; ++kind) {
        picker.ResetEventArray(1);
        marks.push_back(ChangeOf([&] { picker.AddEvent(2005, 11, 22, 1, kind); }, cell.TopLeft()));
        EXPECT_FALSE(marks.back().where.empty()) << "kind " << kind << " draws nothing";
        EXPECT_TRUE(Inside(marks.back().box, cell)) << "kind " << kind << " outside its day";
    }
    for (int a = 0; a < 4; ++a)
        for (int b = a + 1; b < 4; ++b) {
            EXPECT_NE(marks[a].where, marks[b].where) << "kinds " << a << " and " << b << " share a shape";
            std::vector<COLORREF> common;
            std::set_intersection(marks[a].colours.begin(), marks[a].colours.end(), marks[b].colours.begin(),
                                  marks[b].colours.end(), std::back_inserter(common));
            EXPECT_TRUE(common.empty()) << "kinds " << a << " and " << b << " share a colour";
        }
}

// Each change draws something, and only inside the cell it concerns. Which
// cell shows a day's mark (a day shown twice, a day of a month without a
// calendar) is decided and counted natively.
TEST_F(DatePickerPaintMarks, MarksAppearInTheirOwnCellsOnly)
{
    Create();   // November, December 2005, January 2006; the 15th highlighted
    PixelDiff d = ChangeOf([&] { picker.AddEvent(2005, 11, 15, 1, 1); });   // on the selected day: still seen
    EXPECT_FALSE(d.where.empty());
    EXPECT_TRUE(Inside(d.box, Cell(2005, 11, 15)));
    d = ChangeOf([&] { picker.SetStartDate(12, 7, 2005, 1); });
    EXPECT_FALSE(d.where.empty());
    EXPECT_TRUE(Inside(d.box, Cell(2005, 12, 7)));

    // The drop target, while a drag is over it.
    const CRect drop = Cell(2005, 12, 20);
    const CPoint at = drop.CenterPoint();
    Renderer before(picker.m_hWnd);
    EXPECT_EQ(1, picker.SendMessage(HYWM_DATEPICKER_DRAGOVER, 0, MAKELPARAM(at.x, at.y)));
    Renderer over(picker.m_hWnd);
    d = Compare(before, over);
    EXPECT_FALSE(d.where.empty());
    EXPECT_TRUE(Inside(d.box, drop));
    picker.SendMessage(HYWM_DATEPICKER_DRAGEND, 0, 0);
    Renderer after(picker.m_hWnd);
    EXPECT_TRUE(Compare(before, after).where.empty()) << "drop mark left behind";
}

// ---- days and the day-of-week row --------------------------------------------------

using DatePickerPaintDays = DatePickerPaint;

TEST_F(DatePickerPaintDays, NeighbouringMonthsAreSubduedOrHidden)
{
    Create();
    const CRect other = Cell(2005, 10, 31, 0), own = Cell(2005, 11, 1);
    Renderer shown(picker.m_hWnd);
    const int otherInk = Luma(Ink(shown, other)), ownInk = Luma(Ink(shown, own));
    EXPECT_GT(otherInk, ownInk + 40000) << "neighbouring days not lighter than the month's own";

    picker.SetHYAttributes(HYDPA_DEFAULT & ~HYDPA_OTHER_MONTHS);
    Renderer hidden(picker.m_hWnd);
    EXPECT_TRUE(Uniform(hidden, other));
    EXPECT_FALSE(Uniform(hidden, own));
}

// The day-of-week row of a picker whose weeks begin on Monday (the host
// profile's setting) ends with Sunday's initial: the grid itself is counted
// natively for both week starts.
TEST_F(DatePickerPaintDays, MondayFirstPutsSundayLast)
{
    const hytest::TempFile profile("hyui-paint-weekstart.ini");
    // The day-of-week row of one picker, one pixel list per column.
    auto columns = [&](bool monday) {
        ::WritePrivateProfileStringA("Almanac", "WorkWeekBegins", monday ? "1" : "0", profile.path());
        HySetProfilePath(profile.path());
        CHyDatePicker p;
        p.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 210, 200), CWnd::FromHandle(parent), 1002);
        const HyRect row = p.GetCalRects(p.GetCalBounds(0)).dayOfWeek;
        const Renderer r(p.m_hWnd);
        std::vector<std::vector<COLORREF>> out;
        for (int left = row.left; out.size() < 7; left += p.GetDayWidth())
            out.push_back(Pixels(r, CRect(left, row.top, left + p.GetDayWidth(), row.bottom)));
        p.DestroyWindow();
        HySetProfilePath(nullptr);
        return out;
    };
    const auto sunday = columns(false), monday = columns(true);
    EXPECT_EQ(sunday[0], monday[6]);   // S M T W Th F S -> M T W Th F S S
    EXPECT_EQ(sunday[1], monday[0]);
    EXPECT_NE(sunday[5], monday[5]);
}

// Text never touches the edge of its rectangle at the sizes the library uses:
// the day picker dialog's calendar, a row of three, a 4 x 3 picker.
TEST_F(DatePickerPaintDays, CaptionsAndNumbersFitTheirRectangles)
{
    struct Size { int cols, rows, width, height; };
    for (const Size s : {Size{1, 1, 188, 140}, Size{3, 1, 564, 160}, Size{4, 3, 1000, 600}}) {
        CHyDatePicker p;
        ASSERT_TRUE(p.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, s.width, s.height), CWnd::FromHandle(parent), 1002,
                             s.cols, s.rows));
        p.SetHYAttributes(HYDPA_OTHER_MONTHS);  // no today frame on the edges
        p.SetSelection(2005, 12, 1, 0);         // December 2005 first: 28..31 in every calendar
        ::SetFocus(parent);
        Renderer r(p.m_hWnd);
        const std::string size = std::to_string(s.width) + "x" + std::to_string(s.height);
        for (int i = 0; i < p.GetCalCount(); ++i) {
            const HyCalParts parts = p.GetCalRects(p.GetCalBounds(i));
            for (const HyRect& hr : {parts.monthCaption, parts.yearCaption}) {
                const CRect text = ToCRect(hr);
                EXPECT_FALSE(Uniform(r, text)) << size << " calendar " << i << ": no caption";
                EXPECT_TRUE(EdgeClear(r, text)) << size << " calendar " << i << ": caption touches its edge";
            }
            for (int cell = 0; cell < 42; ++cell) {
                const CRect rc = ToCRect(hy::PickerCellRect(parts.dayGrid, p.GetDayWidth(), p.GetDayHeight(), cell));
                EXPECT_FALSE(Uniform(r, rc)) << size << " calendar " << i << " cell " << cell << ": no number";
                EXPECT_TRUE(EdgeClear(r, rc)) << size << " calendar " << i << " cell " << cell << ": number at the edge";
            }
        }
        p.DestroyWindow();
    }
}

// ---- the header ------------------------------------------------------------------------

using DatePickerPaintHeader = DatePickerPaint;

TEST_F(DatePickerPaintHeader, ArrowsAppearOnlyOnTheOuterCalendars)
{
    Create();  // three calendars in a row
    Renderer r(picker.m_hWnd);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(i != 0, Uniform(r, ToCRect(Parts(i).prevArrow))) << i;
        EXPECT_EQ(i != 2, Uniform(r, ToCRect(Parts(i).nextArrow))) << i;
    }
}

TEST_F(DatePickerPaintHeader, HotAndPressedPartsLookDifferentFromNormalAndEachOther)
{
    Create();
    const CRect arrow = ToCRect(Parts(0).prevArrow);
    const std::vector<COLORREF> normal = Pixels(Renderer(picker.m_hWnd), arrow);

    // The state the rollover timer sets while the mouse is over the arrow.
    picker.rolloverCal = 0;
    picker.rolloverPart = HYPART_PREV_ARROW;
    const std::vector<COLORREF> hot = Pixels(Renderer(picker.m_hWnd), arrow);
    picker.rolloverCal = -1;
    picker.rolloverPart = 0;

    // Pressed; then a cancel ends the press, and the release steps nothing.
    const CPoint at = arrow.CenterPoint();
    hytest::MouseDown(picker, at.x, at.y);
    const std::vector<COLORREF> pressed = Pixels(Renderer(picker.m_hWnd), arrow);
    picker.SendMessage(WM_CANCELMODE);
    EXPECT_TRUE(picker.pressed == 0 && picker.focusPart == 0 && ::GetCapture() == nullptr);
    hytest::MouseUp(picker, at.x, at.y);
    ExpectDisplay(11, 2005);
    EXPECT_TRUE(notify.Matches({}));

    EXPECT_NE(normal, hot);
    EXPECT_NE(normal, pressed);
    EXPECT_NE(hot, pressed);
    EXPECT_EQ(normal, Pixels(Renderer(picker.m_hWnd), arrow)) << "the pressed look stays";

    // A hot caption changes its own calendar's caption and nothing else.
    const PixelDiff d = ChangeOf([&] {
        picker.rolloverCal = 1;
        picker.rolloverPart = HYPART_MONTH_CAPTION;
    });
    EXPECT_FALSE(d.where.empty());
    EXPECT_TRUE(Inside(d.box, ToCRect(Parts(1).monthCaption)));
}

// ---- invalidation --------------------------------------------------------------------

using DatePickerPaintInvalidation = DatePickerPaint;

TEST_F(DatePickerPaintInvalidation, InvalidateDayCoversEveryCellShowingTheDay)
{
    Create();
    picker.UpdateWindow();
    picker.ValidateRect(nullptr);
    // 1 December 2005: December's own cell and November's neighbouring cell.
    (picker.*(&InvalidateAccess::InvalidateDay))(CHyDate(2005, 12, 1, 0));
    CRgn update, expected, one, diff;
    update.CreateRectRgn(0, 0, 0, 0);
    ASSERT_NE(ERROR, ::GetUpdateRgn(picker.m_hWnd, update, FALSE));
    expected.CreateRectRgnIndirect(Grown(Cell(2005, 12, 1), 1));
    one.CreateRectRgnIndirect(Grown(Cell(2005, 12, 1, 0), 1));
    expected.CombineRgn(&expected, &one, RGN_OR);
    diff.CreateRectRgn(0, 0, 0, 0);
    EXPECT_EQ(NULLREGION, diff.CombineRgn(&update, &expected, RGN_XOR));
    picker.ValidateRect(nullptr);
}

TEST_F(DatePickerPaintInvalidation, APaintOfOneCellMatchesTheFullPaintAndTouchesNothingElse)
{
    Create();
    CRect client;
    picker.GetClientRect(&client);
    const CRect cell = Cell(2005, 11, 15);
    Renderer r(client.Width(), client.Height());
    const int saved = ::SaveDC(r.dc());
    ::IntersectClipRect(r.dc(), cell.left, cell.top, cell.right, cell.bottom);
    picker.SendMessage(WM_PRINTCLIENT, (WPARAM)r.dc(), PRF_CLIENT);
    ::RestoreDC(r.dc(), saved);
    EXPECT_EQ(client.Width() * client.Height() - cell.Width() * cell.Height(), r.Count(client, hytest::kUnpainted));
    EXPECT_EQ(0, r.Count(cell, hytest::kUnpainted));

    Renderer whole(picker.m_hWnd);
    EXPECT_EQ(Pixels(whole, cell), Pixels(r, cell)) << "a partial paint differs from the full one";
}

// ---- resources --------------------------------------------------------------------------

using DatePickerPaintResources = DatePickerPaint;

// Every look a picker can paint (whole weeks, the four event kinds, the start
// date, today, hot header parts, the focus), a hundred pickers over.
TEST_F(DatePickerPaintResources, ObjectCountsStaySteadyOverAHundredPickersPaintingEveryLook)
{
    auto cycle = [&](int i) {
        CHyDatePicker p;
        ASSERT_TRUE(p.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 630, 200), CWnd::FromHandle(parent), 1003, 3, 1));
        p.ModifyStyle(0, i % 2 ? HYDPS_WHOLE_WEEK : 0);
        for (int kind = 0; kind < 4; ++kind)
            p.AddEvent(2005, 11, 20 + kind, 0, kind);
        CHyDate today;
        CHyDatePicker::GetToday(&today);
        p.AddEvent(today.year, today.month, today.day, 0, 1);
        p.SetStartDate(11, 3, 2005, 0);
        p.SetSelection(2005, 11, 15, 0);
        p.SetFocus();
        p.rolloverCal = i % 3;
        p.rolloverPart = 1 + i % 4;
        p.UpdateWindow();   // the real paint path: BeginPaint, update region
        Renderer rendered(p.m_hWnd);
        p.DestroyWindow();
        hytest::PumpMessages();
        AfxDeleteTempMaps();
    };
    hytest::ObjectGuard guard([&] { cycle(0); cycle(1); });
    for (int i = 0; i < 100; ++i)
        cycle(i);
    guard.Check("100 pickers");
}
