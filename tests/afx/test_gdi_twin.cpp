// The GDI wrappers against the raw calls they stand for: drawing through a
// CDC on one surface and through the raw calls on a twin surface must give
// the same pixels and answers; state set through a CDC whose output and
// attribute DCs are two different surfaces; queries that must read the
// attribute DC; region combinations whose operand order matters.
#include <gtest/gtest.h>

#include "afxgdi.h"
#include "afxstr.h"
#include "hytest.h"
#include "hytest_afx.h"

#include <functional>
#include <vector>

namespace {

// Two memory DCs as a CDC's output and attribute DCs, released (not deleted)
// at the end.
struct SplitDC
{
    HDC output = ::CreateCompatibleDC(nullptr);
    HDC attrib = ::CreateCompatibleDC(nullptr);
    CDC dc;
    SplitDC()
    {
        dc.SetOutputDC(output);
        dc.SetAttribDC(attrib);
    }
    ~SplitDC()
    {
        dc.ReleaseOutputDC();
        dc.ReleaseAttribDC();
        ::DeleteDC(output);
        ::DeleteDC(attrib);
    }
};

// A state setter: the wrapper call, and the raw query of the value it sets.
struct SetterRow
{
    const char* what;
    std::function<DWORD(CDC&)> set;      // answers the previous value
    std::function<DWORD(HDC)> query;
    DWORD value;
};

const SetterRow kSetters[] = {
    { "SetTextColor", [](CDC& d) { return (DWORD)d.SetTextColor(RGB(1, 2, 3)); },
      [](HDC h) { return (DWORD)::GetTextColor(h); }, RGB(1, 2, 3) },
    { "SetBkColor", [](CDC& d) { return (DWORD)d.SetBkColor(RGB(4, 5, 6)); },
      [](HDC h) { return (DWORD)::GetBkColor(h); }, RGB(4, 5, 6) },
    { "SetBkMode", [](CDC& d) { return (DWORD)d.SetBkMode(TRANSPARENT); },
      [](HDC h) { return (DWORD)::GetBkMode(h); }, TRANSPARENT },
    { "SetROP2", [](CDC& d) { return (DWORD)d.SetROP2(R2_XORPEN); },
      [](HDC h) { return (DWORD)::GetROP2(h); }, R2_XORPEN },
    { "SetTextAlign", [](CDC& d) { return (DWORD)d.SetTextAlign(TA_CENTER | TA_BOTTOM); },
      [](HDC h) { return (DWORD)::GetTextAlign(h); }, TA_CENTER | TA_BOTTOM },
    { "SetMapMode", [](CDC& d) { return (DWORD)d.SetMapMode(MM_LOMETRIC); },
      [](HDC h) { return (DWORD)::GetMapMode(h); }, MM_LOMETRIC },
};

// A query: the wrapper call, and a raw setter that gives the two DCs different values.
struct QueryRow
{
    const char* what;
    std::function<DWORD(const CDC&)> get;
    std::function<void(HDC, bool attrib)> prepare;
    DWORD attribValue;
};

const QueryRow kQueries[] = {
    { "GetBkColor", [](const CDC& d) { return (DWORD)d.GetBkColor(); },
      [](HDC h, bool a) { ::SetBkColor(h, a ? RGB(9, 9, 9) : RGB(7, 7, 7)); }, RGB(9, 9, 9) },
    { "GetTextColor", [](const CDC& d) { return (DWORD)d.GetTextColor(); },
      [](HDC h, bool a) { ::SetTextColor(h, a ? RGB(8, 8, 8) : RGB(6, 6, 6)); }, RGB(8, 8, 8) },
    { "GetBkMode", [](const CDC& d) { return (DWORD)d.GetBkMode(); },
      [](HDC h, bool a) { ::SetBkMode(h, a ? TRANSPARENT : OPAQUE); }, TRANSPARENT },
};

}  // namespace

TEST(GdiTwin, SettersReachTheOutputAndTheAttributeDCAndAnswerTheOldValue)
{
    hytest::ObjectGuard guard;
    for (const SetterRow& row : kSetters)
    {
        SplitDC split;
        const DWORD before = row.query(split.attrib);
        EXPECT_EQ(before, row.set(split.dc)) << row.what;
        EXPECT_EQ(row.value, row.query(split.output)) << row.what << " on the output DC";
        EXPECT_EQ(row.value, row.query(split.attrib)) << row.what << " on the attribute DC";
    }
}

TEST(GdiTwin, QueriesReadTheAttributeDC)
{
    hytest::ObjectGuard guard;
    for (const QueryRow& row : kQueries)
    {
        SplitDC split;
        row.prepare(split.output, false);
        row.prepare(split.attrib, true);
        EXPECT_EQ(row.attribValue, row.get(split.dc)) << row.what;
    }
}

// Each combination through CRgn and through the raw call on copies of the
// same operands: same answer, same region.
TEST(GdiTwin, RegionCombinationsMatchTheRawCallOperandForOperand)
{
    hytest::ObjectGuard guard;
    for (int mode : { RGN_AND, RGN_OR, RGN_XOR, RGN_DIFF, RGN_COPY })
    {
        CRgn a, b, result;
        ASSERT_TRUE(a.CreateRectRgn(0, 0, 20, 20));
        ASSERT_TRUE(b.CreateRectRgn(10, 5, 30, 15));
        ASSERT_TRUE(result.CreateRectRgn(0, 0, 0, 0));
        HRGN rawA = ::CreateRectRgn(0, 0, 20, 20), rawB = ::CreateRectRgn(10, 5, 30, 15);
        HRGN raw = ::CreateRectRgn(0, 0, 0, 0);
        EXPECT_EQ(::CombineRgn(raw, rawA, rawB, mode), result.CombineRgn(&a, &b, mode)) << mode;
        EXPECT_TRUE(::EqualRgn(raw, (HRGN)result.GetSafeHandle())) << mode;
        ::DeleteObject(rawA);
        ::DeleteObject(rawB);
        ::DeleteObject(raw);
    }
}

namespace {

constexpr COLORREF kRed = RGB(255, 0, 0);
constexpr COLORREF kBlue = RGB(0, 0, 255);

int Pack(const RECT& r) { return ((r.left * 64 + r.top) * 64 + r.right) * 64 + r.bottom; }
int Pack(POINT p) { return p.x * 64 + p.y; }
int Pack(SIZE s) { return s.cx * 1024 + s.cy; }

// A drawing call through the wrapper and the raw calls it stands for; each
// answers what its calls answered. Listed are the wrappers that do more than
// pass their arguments on: fill colours they leave set, rectangles they
// adjust, previous positions and origins they hand back, strings whose length
// they supply, clip modes, and region selection answering a region type.
struct DrawRow
{
    const char* what;
    std::function<int(CDC&)> wrapper;
    std::function<int(HDC)> raw;
};

}  // namespace

TEST(GdiTwin, DrawingThroughTheWrapperMatchesTheRawCallPixelForPixel)
{
    hytest::ObjectGuard guard;
    CBrush red(kRed);
    CPen bluePen(PS_SOLID, 1, kBlue);
    CFont font;
    ASSERT_TRUE(font.CreatePointFont(100, "Arial"));
    CRgn clip, more;
    clip.CreateRectRgn(0, 0, 10, 10);
    more.CreateRectRgn(5, 5, 20, 20);
    const CRect box(3, 3, 33, 19), frame(2, 2, 22, 12);
    const std::vector<DrawRow> rows = {
        { "FillSolidRect", [&](CDC& d) { d.FillSolidRect(5, 6, 7, 8, kBlue); return (int)d.GetBkColor(); },
          [&](HDC h) {
              RECT r = { 5, 6, 12, 14 };
              ::SetBkColor(h, kBlue);
              ::ExtTextOut(h, 0, 0, ETO_OPAQUE, &r, nullptr, 0, nullptr);
              return (int)::GetBkColor(h);   // deliberately left set
          } },
        { "DrawEdge", [&](CDC& d) { CRect r(box); d.DrawEdge(r, EDGE_SUNKEN, BF_RECT | BF_ADJUST); return Pack(r); },
          [&](HDC h) { RECT r = box; ::DrawEdge(h, &r, EDGE_SUNKEN, BF_RECT | BF_ADJUST); return Pack(r); } },
        { "MoveTo and LineTo",
          [&](CDC& d) {
              d.SelectObject(&bluePen);
              d.MoveTo(2, 5);
              int old = Pack(d.MoveTo(CPoint(1, 1)));
              d.LineTo(11, 7);
              return old * 4096 + Pack(d.GetCurrentPosition());
          },
          [&](HDC h) {
              ::SelectObject(h, bluePen);
              POINT old, now;
              ::MoveToEx(h, 2, 5, nullptr);
              ::MoveToEx(h, 1, 1, &old);
              ::LineTo(h, 11, 7);
              ::GetCurrentPositionEx(h, &now);
              return Pack(old) * 4096 + Pack(now);
          } },
        { "DrawText",
          [&](CDC& d) {
              CDCSelect sel(d, &font);
              CRect calc(0, 0, 0, 0), r(frame);
              d.DrawText("Hello", -1, calc, DT_SINGLELINE | DT_CALCRECT);
              return d.DrawText(CString("WWWWWWWWWWWW"), r, DT_SINGLELINE | DT_VCENTER | DT_CENTER) * 4096 +
                     Pack(calc) + Pack(d.GetTextExtent("Hello", 5));
          },
          [&](HDC h) {
              HGDIOBJ old = ::SelectObject(h, font);
              RECT calc = {}, r = frame;
              SIZE extent;
              ::DrawText(h, "Hello", -1, &calc, DT_SINGLELINE | DT_CALCRECT);
              ::GetTextExtentPoint32(h, "Hello", 5, &extent);
              int height = ::DrawText(h, "WWWWWWWWWWWW", -1, &r, DT_SINGLELINE | DT_VCENTER | DT_CENTER);
              ::SelectObject(h, old);
              return height * 4096 + Pack(calc) + Pack(extent);
          } },
        { "IntersectClipRect and ExcludeClipRect",
          [&](CDC& d) {
              int a = d.IntersectClipRect(CRect(5, 5, 15, 15)), b = d.ExcludeClipRect(8, 8, 10, 10);
              d.FillRect(box, &red);
              return a * 16 + b + (d.PtVisible(5, 5) ? 256 : 0) + (d.RectVisible(CRect(15, 0, 20, 20)) ? 512 : 0);
          },
          [&](HDC h) {
              int a = ::IntersectClipRect(h, 5, 5, 15, 15), b = ::ExcludeClipRect(h, 8, 8, 10, 10);
              RECT outside = { 15, 0, 20, 20 };
              ::FillRect(h, &box, red);
              return a * 16 + b + (::PtVisible(h, 5, 5) ? 256 : 0) + (::RectVisible(h, &outside) ? 512 : 0);
          } },
        { "SelectClipRgn",
          [&](CDC& d) {
              d.IntersectClipRect(20, 20, 30, 30);
              int a = d.SelectClipRgn(&clip), b = d.SelectClipRgn(&more, RGN_AND);
              CRect r;
              d.GetClipBox(&r);
              d.FillRect(box, &red);
              return (a * 16 + b) * 65536 + Pack(r);
          },
          [&](HDC h) {
              ::IntersectClipRect(h, 20, 20, 30, 30);
              int a = ::SelectClipRgn(h, clip), b = ::ExtSelectClipRgn(h, more, RGN_AND);
              RECT r;
              ::GetClipBox(h, &r);
              ::FillRect(h, &box, red);
              return (a * 16 + b) * 65536 + Pack(r);
          } },
        { "SelectObject of a region", [&](CDC& d) { int t = d.SelectObject(&more); d.FillRect(box, &red); return t; },
          [&](HDC h) { int t = (int)(INT_PTR)::SelectObject(h, more); ::FillRect(h, &box, red); return t; } },
        { "viewport origin",
          [&](CDC& d) {
              int a = Pack(d.SetViewportOrg(5, 6)), b = Pack(d.OffsetViewportOrg(1, 1));
              d.FillRect(CRect(0, 0, 3, 3), &red);
              return a * 4096 + b + Pack(d.GetViewportOrg()) * 65536;
          },
          [&](HDC h) {
              POINT a, b, now;
              RECT r = { 0, 0, 3, 3 };
              ::SetViewportOrgEx(h, 5, 6, &a);
              ::OffsetViewportOrgEx(h, 1, 1, &b);
              ::FillRect(h, &r, red);
              ::GetViewportOrgEx(h, &now);
              return Pack(a) * 4096 + Pack(b) + Pack(now) * 65536;
          } },
    };
    for (const DrawRow& row : rows) {
        SCOPED_TRACE(row.what);
        Canvas wrapped(40, 24), raw(40, 24);
        const std::vector<DWORD> blank = wrapped.Pixels();
        int answered = row.wrapper(wrapped.dc());
        EXPECT_EQ(row.raw(raw.dc().m_hDC), answered);
        EXPECT_NE(blank, raw.Pixels());   // the row draws something
        EXPECT_EQ(raw.Pixels(), wrapped.Pixels());
    }
    AfxDeleteTempGdiMaps();
}
