// Painting of CHyDatePicker: calendars, header parts, day-of-week initials,
// days and their marks. Design and colour choices: docs/datepicker-painting.md.
//
// One paint fills the invalid area with the body colour once and draws every
// calendar that meets it into a memory buffer, then copies the buffer to the
// window. Nothing is created per cell: fonts come from the theme, shapes are
// drawn with the DC pen and brush, day numbers are constant strings.
#include "HyDatePicker.h"
#include "HyDatePickerImpl.h"
#include "HyCalMonth.h"
#include "HyPickerDecisions.h"
#include "HyTheme.h"
#include "HyUIRes.h"

#include <algorithm>
#include <vector>

namespace {

// Event kinds with a look of their own; other kinds are drawn like kind 0.
constexpr int kEventLooks = hy::kEventLooks;
// Swatches of the event kinds 0..3: petrol, wine, royal blue, brown. Dark
// enough to keep 2.7:1 or more on the selection fill and 6.8:1 on white,
// and four different hue families.
constexpr int kEventSwatch[kEventLooks] = { 13, 8, 10, 11 };

// Day-of-week initials in weekday order from Sunday; Sunday's id comes
// after Monday..Friday and Saturday's last: the order is intended.
constexpr UINT kDowIds[7] = { IDS_DAY_SUNDAY,   IDS_DAY_MONDAY, IDS_DAY_TUESDAY,  IDS_DAY_WEDNESDAY,
                              IDS_DAY_THURSDAY, IDS_DAY_FRIDAY, IDS_DAY_SATURDAY };

// "1".."31" without formatting at paint time; index 0 is unused.
struct DayTexts
{
    char text[32][3];
    int length[32];
    constexpr DayTexts() : text(), length()
    {
        for (int d = 1; d < 32; ++d) {
            if (d < 10) {
                text[d][0] = char('0' + d);
                length[d] = 1;
            } else {
                text[d][0] = char('0' + d / 10);
                text[d][1] = char('0' + d % 10);
                length[d] = 2;
            }
        }
    }
};
constexpr DayTexts kDayTexts;

// Everything a paint needs that does not change from calendar to calendar:
// colours, fonts and their heights, the initials, today and the focus.
// Built once per paint.
struct PaintKit
{
    const CHyDatePicker* owner = nullptr;

    COLORREF body, bodyText, bodyLine, otherText;
    COLORREF headerFill, headerText, headerLine;
    COLORREF hotFill, pressedFill, pressedText, pressedEdge;
    COLORREF selFill, selText, selOtherText;
    COLORREF todayFrame, startMark, dropFill, dropFrame;
    COLORREF eventColour[kEventLooks];

    CFont* dayFont = nullptr;
    CFont* captionFont = nullptr;
    int dayTextHeight = 0;
    int captionTextHeight = 0;
    int digitWidth[10] = {};   // advance of '0'..'9' in the day font

    CString dow[7];
    CHyDate today;
    std::vector<HyMonthYear> shownMonths;   // every calendar's own month
    bool focused = false;
    bool wholeWeek = false;

    void Load(const CHyDatePicker* picker, CDC* pDC)
    {
        owner = picker;
        HYThemeStyle bodyStyle, headerStyle, selStyle, frameStyle;
        HYThemeGetStyle(HYTHEME_BODY, &bodyStyle);
        HYThemeGetStyle(HYTHEME_HEADER, &headerStyle);
        HYThemeGetStyle(HYTHEME_HEADER_SEL, &selStyle);
        HYThemeGetStyle(HYTHEME_LIST_SELFRAME, &frameStyle);

        body = bodyStyle.fill;
        bodyText = bodyStyle.text;
        bodyLine = bodyStyle.line;
        // Neighbouring months: the body text lightened, 5.6:1 on white
        // against 14.7:1 for the calendar's own days.
        otherText = HYThemeLighten(bodyStyle.text);

        // A solid header: a per-column gradient costs a GDI call per pixel column.
        headerFill = headerStyle.fill;
        headerText = headerStyle.text;
        headerLine = headerStyle.line;
        // Hot: the header's ramp end darkened, framed; pressed: the selection blue.
        hotFill = HYThemeShiftColor(headerStyle.fillEnd, -32);
        pressedFill = selStyle.fill;
        pressedText = selStyle.text;
        pressedEdge = selStyle.dark;

        selFill = selStyle.fill;
        selText = selStyle.text;
        selOtherText = selStyle.dark;

        todayFrame = selStyle.dark;
        startMark = frameStyle.fill;
        dropFill = headerStyle.fillEnd;
        dropFrame = headerStyle.line;
        for (int k = 0; k < kEventLooks; ++k)
            eventColour[k] = HYThemeSwatchColor(kEventSwatch[k]);

        dayFont = HYThemeGetFont(HYFONT_STANDARD);
        captionFont = HYThemeGetFont(HYFONT_CARD_TITLE);
        captionTextHeight = TextHeight(pDC, captionFont);
        {
            CDCSelect font(*pDC, dayFont);
            TEXTMETRIC tm = {};
            dayTextHeight = pDC->GetTextMetrics(&tm) ? tm.tmHeight : 0;
            if (!::GetCharWidth32A(pDC->m_hDC, '0', '9', digitWidth))
                for (int& w : digitWidth)
                    w = tm.tmAveCharWidth;
        }

        for (int i = 0; i < 7; ++i)
            dow[i].LoadString(kDowIds[i]);

        CHyDatePicker::GetToday(&today);
        shownMonths.clear();
        for (int i = 0, n = picker->GetCalCount(); i < n; ++i)
            if (const CHyCalMonth* cal = picker->GetCalendar(i))
                shownMonths.push_back(HyMonthYear{ cal->month, cal->year });
        HWND hwnd = picker->GetSafeHwnd();
        focused = hwnd != NULL && ::GetFocus() == hwnd;
        wholeWeek = hwnd != NULL && (picker->GetStyle() & HYDPS_WHOLE_WEEK) != 0;
    }

    static int TextHeight(CDC* pDC, CFont* pFont)
    {
        CDCSelect font(*pDC, pFont);
        TEXTMETRIC tm = {};
        return pDC->GetTextMetrics(&tm) ? tm.tmHeight : 0;
    }
};

// The kit of the paint in progress on this thread; the Draw* members find it
// here so that their signatures stay (DC, calendar, parts). One per thread:
// pickers of two UI threads paint at the same time.
thread_local PaintKit* g_paintKit = nullptr;

class PaintKitScope
{
public:
    PaintKitScope(const CHyDatePicker* picker, CDC* pDC) : m_previous(g_paintKit)
    {
        m_kit.Load(picker, pDC);
        g_paintKit = &m_kit;
    }
    ~PaintKitScope() { g_paintKit = m_previous; }
    const PaintKit& Kit() const { return m_kit; }

private:
    PaintKit m_kit;
    PaintKit* m_previous;
};

// The kit for a Draw* call: the running paint's, or one built for this call.
const PaintKit& KitFor(const CHyDatePicker* picker, CDC* pDC, PaintKit& local)
{
    if (g_paintKit != nullptr && g_paintKit->owner == picker)
        return *g_paintKit;
    local.Load(picker, pDC);
    return local;
}

using hydp::ToCRect;

bool Meets(const CRect& a, const CRect& b)
{
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

void Fill(HDC hdc, const RECT& r, COLORREF colour)
{
    ::SetBkColor(hdc, colour);
    ::ExtTextOutA(hdc, 0, 0, ETO_OPAQUE, &r, nullptr, 0, nullptr);
}

// A one-pixel frame on the edge of r.
void Frame(HDC hdc, const RECT& r, COLORREF colour)
{
    Fill(hdc, RECT{ r.left, r.top, r.right, r.top + 1 }, colour);
    Fill(hdc, RECT{ r.left, r.bottom - 1, r.right, r.bottom }, colour);
    Fill(hdc, RECT{ r.left, r.top + 1, r.left + 1, r.bottom - 1 }, colour);
    Fill(hdc, RECT{ r.right - 1, r.top + 1, r.right, r.bottom - 1 }, colour);
}

// Text centred in r; TA_CENTER | TA_TOP is set by the caller. Clipped to r
// so that a picker made too small never writes into a neighbouring cell.
void CentredText(HDC hdc, const RECT& r, const char* text, int length, int textHeight)
{
    const int x = (r.left + r.right) / 2;
    const int y = r.top + (r.bottom - r.top - textHeight) / 2;
    ::ExtTextOutA(hdc, x, y, ETO_CLIPPED, &r, text, (UINT)length, nullptr);
}

// Shapes in the DC pen and brush (DC_PEN / DC_BRUSH selected by the caller).
void ShapeColour(HDC hdc, COLORREF colour)
{
    ::SetDCPenColor(hdc, colour);
    ::SetDCBrushColor(hdc, colour);
}

void Triangle(HDC hdc, POINT a, POINT b, POINT c)
{
    const POINT pts[3] = { a, b, c };
    ::Polygon(hdc, pts, 3);
}

CRect CellRect(const HyRect& grid, int dayWidth, int dayHeight, int cell)
{
    return ToCRect(hy::PickerCellRect(grid, dayWidth, dayHeight, cell));
}

// Mark sizes grow with the cell: 4 pixels in the day picker's 26 x 16 cells.
int MarkSize(int dayWidth, int dayHeight)
{
    const int s = (dayWidth < dayHeight ? dayWidth : dayHeight) / 4;
    return s < 3 ? 3 : s;
}

// Event marks, each in its own corner or edge and of its own shape, so that
// the kind is told apart without its colour:
//   kind 0: a round dot at the bottom right;
//   kind 1: a triangle in the top-right corner;
//   kind 2: a bar along the bottom, under the number;
//   kind 3: a square at the bottom left.
// `inner` is the cell inside the today frame.
void DrawEventMark(HDC hdc, const CRect& inner, int look, int s, COLORREF colour)
{
    ShapeColour(hdc, colour);
    switch (look) {
    case 1:
        Triangle(hdc, POINT{ inner.right - 1 - s - 1, inner.top }, POINT{ inner.right - 1, inner.top },
                 POINT{ inner.right - 1, inner.top + s + 1 });
        break;
    case 2: {
        const int width = inner.Width() / 2;
        const int left = inner.left + (inner.Width() - width) / 2;
        Fill(hdc, RECT{ left, inner.bottom - 2, left + width, inner.bottom }, colour);
        break;
    }
    case 3:
        Fill(hdc, RECT{ inner.left, inner.bottom - s, inner.left + s, inner.bottom }, colour);
        break;
    default:
        ::Ellipse(hdc, inner.right - s - 1, inner.bottom - s - 1, inner.right, inner.bottom);
        break;
    }
}

// The start mark: an open corner bracket at the top left, two pixels thick,
// a shape no event mark uses.
void DrawStartMark(HDC hdc, const CRect& inner, int s, COLORREF colour)
{
    const int arm = s + 2;
    Fill(hdc, RECT{ inner.left, inner.top, inner.left + arm, inner.top + 2 }, colour);
    Fill(hdc, RECT{ inner.left, inner.top + 2, inner.left + 2, inner.top + arm }, colour);
}

// Arrow glyph: a filled triangle pointing left (prev) or right, centred in r.
void DrawArrowGlyph(HDC hdc, const CRect& r, bool left, COLORREF colour)
{
    int a = r.Height() / 4;
    if (a < 2)
        a = 2;
    const int cx = r.left + r.Width() / 2;
    const int cy = r.top + r.Height() / 2;
    ShapeColour(hdc, colour);
    const int tip = left ? cx - a / 2 - 1 : cx + a / 2 + 1;
    const int base = left ? tip + a : tip - a;
    Triangle(hdc, POINT{ tip, cy }, POINT{ base, cy - a }, POINT{ base, cy + a });
}

}  // namespace

// ---------------------------------------------------------------------------
// Messages

BOOL CHyDatePicker::OnEraseBkgnd(CDC*)
{
    // The paint covers every pixel it is asked for; erasing first would flicker.
    return TRUE;
}

void CHyDatePicker::OnPaint()
{
    CPaintDC dc(this);
    // The paint DC's clip box is the invalid area; the print path paints
    // exactly that through the buffer.
    OnPrintClient((WPARAM)dc.GetSafeHdc(), PRF_CLIENT);
}

LRESULT CHyDatePicker::OnPrintClient(WPARAM wParam, LPARAM)
{
    HDC hdc = (HDC)wParam;
    if (hdc == NULL || calendars == nullptr)
        return 0;
    CDC* pTarget = CDC::FromHandle(hdc);

    CRect area;
    GetClientRect(&area);
    CRect clipBox;
    const int clip = pTarget->GetClipBox(&clipBox);
    if (clip == NULLREGION)
        return 0;
    if (clip != ERROR && !area.IntersectRect(&area, &clipBox))
        return 0;

    CMemDCBuffer buffer(pTarget, &area);
    CDC* pDC = buffer.GetDC();
    CDCSaveState state(*pDC);
    PaintKitScope scope(this, pDC);

    // One fill for the whole area: the calendars' backgrounds and the gaps
    // between them (outside the window region, but printed).
    Fill(pDC->m_hDC, area, scope.Kit().body);
    for (int i = 0; i < calCount; ++i)
        DrawCalendar(pDC, i, area);
    return 0;
}

// ---------------------------------------------------------------------------
// Calendars

void CHyDatePicker::DrawCalendar(CDC* pDC, int nIndex, const CRect& rcClip)
{
    if (calendars == nullptr || nIndex < 0 || nIndex >= calCount)
        return;
    const CRect bounds = GetCalBounds(nIndex);
    if (!Meets(bounds, rcClip))
        return;
    PaintKit local;
    const PaintKit& kit = KitFor(this, pDC, local);
    // The Draw* parts below expect this set-up: transparent text centred at
    // its x, and the DC pen and brush for shapes. All of it is undone here.
    CDCSaveState state(*pDC);
    HDC hdc = pDC->m_hDC;
    ::SetBkMode(hdc, TRANSPARENT);
    ::SetTextAlign(hdc, TA_CENTER | TA_TOP | TA_NOUPDATECP);
    ::SelectObject(hdc, ::GetStockObject(DC_PEN));
    ::SelectObject(hdc, ::GetStockObject(DC_BRUSH));

    // A hairline frame separates neighbouring months.
    Frame(hdc, bounds, kit.bodyLine);

    const HyCalParts parts = GetCalRects(bounds);
    if (Meets(ToCRect(parts.header), rcClip))
        DrawHeader(pDC, nIndex, parts);
    if (Meets(ToCRect(parts.dayOfWeek), rcClip))
        DrawDow(pDC, nIndex, parts);
    CRect grid = ToCRect(parts.dayGrid);
    grid.InflateRect(1, 1);  // the focus ring reaches one pixel out
    if (Meets(grid, rcClip))
        DrawDays(pDC, nIndex, parts);
}

// Hot / pressed state of a header part of a calendar: 0 normal, 1 hot, 2 pressed.
static int PartState(const CHyDatePicker& p, int nIndex, int part)
{
    if (p.pressed && p.focusCal == nIndex && p.focusPart == part)
        return 2;
    if (p.rolloverCal == nIndex && p.rolloverPart == part)
        return 1;
    return 0;
}

// Background of a hot or pressed header part; answers the glyph colour.
static COLORREF DrawPartBack(HDC hdc, const CRect& r, int state, const PaintKit& kit)
{
    if (state == 0)
        return kit.headerText;
    Fill(hdc, r, state == 2 ? kit.pressedFill : kit.hotFill);
    Frame(hdc, r, state == 2 ? kit.pressedEdge : kit.headerLine);
    return state == 2 ? kit.pressedText : kit.headerText;
}

void CHyDatePicker::DrawHeader(CDC* pDC, int nIndex, const HyCalParts& parts)
{
    PaintKit local;
    const PaintKit& kit = KitFor(this, pDC, local);
    Fill(pDC->m_hDC, ToCRect(parts.header), kit.headerFill);
    CDCSelect font(*pDC, kit.captionFont);
    DrawMonth(pDC, nIndex, parts);
    DrawYear(pDC, nIndex, parts);
    DrawHeaderArrows(pDC, nIndex, parts);
}

// A caption in its state's look (normal, hot, pressed: pressed text sits one
// pixel lower right).
static void DrawCaption(const CHyDatePicker& picker, HDC hdc, int nIndex, const HyRect& rect, int part,
                        bool clickable, const CString& text, const PaintKit& kit)
{
    CRect r = ToCRect(rect);
    const int state = clickable ? PartState(picker, nIndex, part) : 0;
    ::SetTextColor(hdc, DrawPartBack(hdc, r, state, kit));
    if (state == 2)
        r.OffsetRect(1, 1);
    CentredText(hdc, r, text, text.GetLength(), kit.captionTextHeight);
}

void CHyDatePicker::DrawMonth(CDC* pDC, int nIndex, const HyCalParts& parts)
{
    if (flags & HYDP_YEAR_ONLY_HEADER)
        return;
    PaintKit local;
    const PaintKit& kit = KitFor(this, pDC, local);
    CString text;
    GetMonthString(calendars[nIndex].month, text);
    DrawCaption(*this, pDC->m_hDC, nIndex, parts.monthCaption, HYPART_MONTH_CAPTION,
                (flags & HYDP_MONTH_CAPTION) != 0, text, kit);
}

void CHyDatePicker::DrawYear(CDC* pDC, int nIndex, const HyCalParts& parts)
{
    if (flags & HYDP_MONTH_ONLY_HEADER)
        return;
    PaintKit local;
    const PaintKit& kit = KitFor(this, pDC, local);
    CString text;
    GetYearString(calendars[nIndex].year, text);
    DrawCaption(*this, pDC->m_hDC, nIndex, parts.yearCaption, HYPART_YEAR_CAPTION,
                (flags & HYDP_YEAR_CAPTION) != 0, text, kit);
}

void CHyDatePicker::DrawHeaderArrows(CDC* pDC, int nIndex, const HyCalParts& parts)
{
    PaintKit local;
    const PaintKit& kit = KitFor(this, pDC, local);
    HDC hdc = pDC->m_hDC;
    const int c = cols > 0 ? cols : 1;
    // Drawn only where a click steps the months (the same tests as hit-testing).
    const bool prev = (flags & HYDP_PREV_ARROW) && nIndex % c == 0 && !(flags & HYDP_YEAR_ONLY_HEADER);
    const bool next = (flags & HYDP_NEXT_ARROW) && nIndex % c == c - 1 && !(flags & HYDP_MONTH_ONLY_HEADER);
    if (prev) {
        CRect r = ToCRect(parts.prevArrow);
        const int state = PartState(*this, nIndex, HYPART_PREV_ARROW);
        const COLORREF glyph = DrawPartBack(hdc, r, state, kit);
        if (state == 2)
            r.OffsetRect(1, 1);
        DrawArrowGlyph(hdc, r, true, glyph);
    }
    if (next) {
        CRect r = ToCRect(parts.nextArrow);
        const int state = PartState(*this, nIndex, HYPART_NEXT_ARROW);
        const COLORREF glyph = DrawPartBack(hdc, r, state, kit);
        if (state == 2)
            r.OffsetRect(1, 1);
        DrawArrowGlyph(hdc, r, false, glyph);
    }
}

void CHyDatePicker::DrawDow(CDC* pDC, int nIndex, const HyCalParts& parts)
{
    PaintKit local;
    const PaintKit& kit = KitFor(this, pDC, local);
    HDC hdc = pDC->m_hDC;
    CDCSelect font(*pDC, kit.dayFont);
    ::SetTextColor(hdc, kit.headerText);
    const bool mondayFirst = calendars[nIndex].mondayFirst != 0;
    // September 1752 is always laid out Sunday first.
    const bool sundayGrid = calendars[nIndex].cellDay[0] == -1;
    const HyRect& row = parts.dayOfWeek;
    for (int c = 0; c < 7; ++c) {
        const CString& text = kit.dow[(mondayFirst && !sundayGrid) ? (c + 1) % 7 : c];
        const RECT r = { row.left + c * dayWidth, row.top, row.left + (c + 1) * dayWidth, row.bottom };
        CentredText(hdc, r, text, text.GetLength(), kit.dayTextHeight);
    }
    if (hyAttributes & HYDPA_GRID_RULE)
        Fill(hdc, RECT{ row.left, row.bottom - 1, row.left + 7 * dayWidth, row.bottom }, kit.bodyLine);
}

namespace {

// What the day cells show depends on the picker's state and the paint's kit.
HyDayCellInputs DayCellInputs(const CHyDatePicker& p, const PaintKit& kit)
{
    HyDayCellInputs in;
    in.shownMonths = kit.shownMonths.data();
    in.shownCount = (int)kit.shownMonths.size();
    in.events = p.events.GetData();
    in.eventCount = (int)p.events.GetSize();
    in.otherMonths = (p.GetHYAttributes() & HYDPA_OTHER_MONTHS) != 0;
    in.todayMark = (p.GetHYAttributes() & HYDPA_TODAY_MARK) != 0;
    in.highlightOn = (p.flags & HYDP_HIGHLIGHT) != 0;
    in.wholeWeek = kit.wholeWeek;
    in.highlight = p.highlight;
    in.today = kit.today;
    in.start = p.startDate;
    in.drop = p.dropDate;
    return in;
}

// One row of day cells being painted: where it is and what its cells show.
struct DayRow
{
    HDC hdc;
    const PaintKit& kit;
    const HyDayGrid& grid;
    HyRect area;        // the calendar's day grid
    int dayWidth, dayHeight, row;

    RECT Rect() const
    {
        return RECT{ area.left, area.top + row * dayHeight, area.left + 7 * dayWidth, area.top + (row + 1) * dayHeight };
    }
    CRect Cell(int col) const { return CellRect(area, dayWidth, dayHeight, row * 7 + col); }
    const HyDayCell& At(int col) const { return grid.cells[row * 7 + col]; }
    bool OnSelection(int col) const { return row == grid.highlightRow || row * 7 + col == grid.highlightCell; }
};

// Fills first: the selection (the cell, or its week) and the drop target.
void PaintDayFills(const DayRow& r)
{
    if (r.row == r.grid.highlightRow)
        Fill(r.hdc, r.Rect(), r.kit.selFill);
    for (int col = 0; col < 7; ++col) {
        if (r.row * 7 + col == r.grid.highlightCell && r.grid.highlightRow < 0)
            Fill(r.hdc, r.Cell(col), r.kit.selFill);
        else if (r.At(col).drop && r.row != r.grid.highlightRow)
            Fill(r.hdc, r.Cell(col), r.kit.dropFill);
    }
}

// Numbers: one ExtTextOut per run of cells of one colour, each number
// centred in its cell through the advances (a call per cell costs more than
// the glyphs). TA_LEFT is set by the caller.
void PaintDayNumbers(const DayRow& r)
{
    const RECT rowRect = r.Rect();
    char text[14];
    int advance[14];
    int count = 0, runX = 0, runEnd = 0;
    COLORREF runColour = CLR_INVALID;
    const int y = rowRect.top + (r.dayHeight - r.kit.dayTextHeight) / 2;
    auto flush = [&] {
        if (count > 0)
            ::ExtTextOutA(r.hdc, runX, y, ETO_CLIPPED, &rowRect, text, (UINT)count, advance);
        count = 0;
    };
    for (int col = 0; col < 7; ++col) {
        const HyDayCell& c = r.At(col);
        if (!c.shown) {
            flush();
            continue;
        }
        const bool sel = r.OnSelection(col);
        const COLORREF colour = c.own ? (sel ? r.kit.selText : r.kit.bodyText) : (sel ? r.kit.selOtherText : r.kit.otherText);
        if (colour != runColour) {
            flush();
            ::SetTextColor(r.hdc, colour);
            runColour = colour;
        }
        const char* digits = kDayTexts.text[c.date.day];
        const int length = kDayTexts.length[c.date.day];
        int width = 0;
        for (int i = 0; i < length; ++i)
            width += r.kit.digitWidth[digits[i] - '0'];
        const int x = r.area.left + col * r.dayWidth + (r.dayWidth - width) / 2;
        if (count == 0)
            runX = x;
        else
            advance[count - 1] += x - runEnd;   // the gap up to this number
        for (int i = 0; i < length; ++i) {
            text[count] = digits[i];
            advance[count++] = r.kit.digitWidth[digits[i] - '0'];
        }
        runEnd = x + width;
    }
    flush();
}

// Marks on top: event, start, today frame, drop frame.
void PaintDayMarks(const DayRow& r)
{
    const int s = MarkSize(r.dayWidth, r.dayHeight);
    for (int col = 0; col < 7; ++col) {
        const HyDayCell& c = r.At(col);
        if (!c.marked)
            continue;
        const CRect cell = r.Cell(col);
        CRect inner = cell;
        inner.DeflateRect(2, 2);
        if (c.eventLook)
            DrawEventMark(r.hdc, inner, c.eventLook - 1, s, r.kit.eventColour[c.eventLook - 1]);
        if (c.start)
            DrawStartMark(r.hdc, inner, s, r.kit.startMark);
        if (c.today) {
            CRect frame = cell;
            frame.DeflateRect(1, 1);
            Frame(r.hdc, frame, r.kit.todayFrame);
        }
        if (c.drop)
            Frame(r.hdc, cell, r.kit.dropFrame);
    }
}

}  // namespace

void CHyDatePicker::DrawDays(CDC* pDC, int nIndex, const HyCalParts& parts)
{
    PaintKit local;
    const PaintKit& kit = KitFor(this, pDC, local);
    const HyRect& area = parts.dayGrid;
    // Rows that the clip box meets (one pixel more for the focus ring).
    CRect clip;
    if (pDC->GetClipBox(&clip) == ERROR)
        clip = ToCRect(area);
    const int h = dayHeight > 0 ? dayHeight : 1;
    const int firstRow = clip.top - 1 < area.top ? 0 : (int)(clip.top - 1 - area.top) / h;
    const int lastRow = clip.bottom + 1 <= area.top ? -1 : std::min(5, (int)(clip.bottom + 1 - area.top) / h);
    if (firstRow > lastRow)
        return;

    HyDayGrid grid;
    hy::ComputeDayCells(calendars[nIndex], DayCellInputs(*this, kit), grid);
    CDCSelect font(*pDC, kit.dayFont);
    const UINT oldAlign = ::SetTextAlign(pDC->m_hDC, TA_LEFT | TA_TOP | TA_NOUPDATECP);
    for (int row = firstRow; row <= lastRow; ++row) {
        const DayRow r{ pDC->m_hDC, kit, grid, area, dayWidth, h, row };
        PaintDayFills(r);
        PaintDayNumbers(r);
        PaintDayMarks(r);
    }
    // The focus ring surrounds the highlighted cell, one pixel outside it, so
    // the today frame and the marks inside stay visible.
    if (kit.focused && grid.highlightCell >= 0) {
        CRect ring = CellRect(area, dayWidth, dayHeight, grid.highlightCell);
        ring.InflateRect(1, 1);
        HYThemeDrawFocusMark(pDC, &ring, HYTHEME_FOCUS);
    }
    ::SetTextAlign(pDC->m_hDC, oldAlign);
}

// ---------------------------------------------------------------------------
// Invalidation

void CHyDatePicker::InvalidateDay(const CHyDate& date)
{
    if (GetSafeHwnd() == NULL || calendars == nullptr)
        return;
    for (int i = 0; i < calCount; ++i) {
        const int cell = hy::CellShowingDate(calendars[i], date);
        if (cell < 0)
            continue;
        CRect r = GetCellRect(i, cell);
        r.InflateRect(1, 1);  // with the focus ring
        InvalidateRect(&r, FALSE);
    }
}
