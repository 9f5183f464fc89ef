// Geometry classes and GDI wrappers, drawn into real 32-bit DIB sections.
#include <gtest/gtest.h>

#include "afxgdi.h"
#include "afxstr.h"
#include "hytest.h"
#include "hytest_afx.h"

#include <functional>
#include <memory>
#include <vector>

namespace {

constexpr COLORREF kWhite = RGB(255, 255, 255);
constexpr COLORREF kBlack = RGB(0, 0, 0);
constexpr COLORREF kRed = RGB(255, 0, 0);
constexpr COLORREF kBlue = RGB(0, 0, 255);

}  // namespace

/////////////////////////////////////////////////////////////////////////////
// Geometry: CPoint, CSize and CRect as one table of operations and results.

namespace {

// An operation on fresh values and the rectangle it gives (points and sizes
// are carried in left/top, right/bottom unused).
struct GeometryRow
{
    const char* what;
    std::function<CRect()> op;
    CRect expected;
};

CRect P(CPoint p) { return CRect(p.x, p.y, 0, 0); }
CRect S(CSize s) { return CRect(s.cx, s.cy, 0, 0); }
const RECT kSides = { 1, 2, 3, 4 };

const GeometryRow kGeometry[] = {
    { "point from lParam, signed", [] { return P(CPoint((DWORD)MAKELPARAM(-5, -7))); }, CRect(-5, -7, 0, 0) },
    { "size from DWORD, signed", [] { return S(CSize((DWORD)MAKELONG(300, -1))); }, CRect(300, -1, 0, 0) },
    { "point - point is a size", [] { return S(CPoint(10, 20) - CPoint(3, 4)); }, CRect(7, 16, 0, 0) },
    { "+= size, -= point, Offset", [] { CPoint a(10, 20); a += CSize(1, 1); a -= CPoint(1, 2); a.Offset(CSize(5, 5)); return P(a); }, CRect(15, 24, 0, 0) },
    { "size - size", [] { return S(CSize(1, 1) - CSize(3, -2)); }, CRect(-2, 3, 0, 0) },
    { "from point and size", [] { return CRect(CPoint(10, 20), CSize(30, 40)); }, CRect(10, 20, 40, 60) },
    { "size, centre", [] { CRect r(10, 20, 40, 60); return CRect(r.Size().cx, r.Size().cy, r.CenterPoint().x, r.CenterPoint().y); }, CRect(30, 40, 25, 40) },
    { "corner references write through", [] { CRect r(0, 0, 10, 10); r.TopLeft() = CPoint(2, 3); r.BottomRight().Offset(5, 5); return r; }, CRect(2, 3, 15, 15) },
    { "normalize both axes", [] { CRect r(50, 40, 10, 5); r.NormalizeRect(); return r; }, CRect(10, 5, 50, 40) },
    { "&, &=", [] { CRect c(0, 0, 100, 50); c &= CRect(60, 20, 200, 80); return c & CRect(0, 0, 90, 90); }, CRect(60, 20, 90, 50) },
    { "disjoint intersection is all zero", [] { CRect i(1, 1, 2, 2); i.IntersectRect(CRect(0, 0, 100, 50), CRect(300, 300, 400, 400)); return i; }, CRect(0, 0, 0, 0) },
    { "|, |=, empty ignored", [] { CRect c(0, 0, 10, 10); c |= CRect(500, 500, 500, 600); return c | CRect(20, 5, 30, 40); }, CRect(0, 0, 30, 40) },
    { "subtract a full side", [] { CRect r; r.SubtractRect(CRect(0, 0, 100, 100), CRect(0, 0, 100, 30)); return r; }, CRect(0, 30, 100, 100) },
    { "subtract a hole", [] { CRect r; r.SubtractRect(CRect(0, 0, 100, 100), CRect(10, 10, 20, 20)); return r; }, CRect(0, 0, 100, 100) },
    { "deflate size", [] { CRect r(10, 10, 20, 20); r.DeflateRect(CSize(1, 2)); return r; }, CRect(11, 12, 19, 18) },
    { "inflate per side", [] { CRect r(10, 10, 20, 20); r.InflateRect(1, 2, 3, 4); return r; }, CRect(9, 8, 23, 24) },
    { "deflate per side", [] { CRect r(10, 10, 20, 20); r.DeflateRect(1, 2, 3, 4); return r; }, CRect(11, 12, 17, 16) },
    { "+= RECT*", [] { CRect r(10, 10, 20, 20); r += &kSides; return r; }, CRect(9, 8, 23, 24) },
    { "-= RECT*", [] { CRect r(10, 10, 20, 20); r -= &kSides; return r; }, CRect(11, 12, 17, 16) },
    { "offset point, size", [] { CRect r(0, 0, 10, 5); r.OffsetRect(CPoint(-3, -4)); r.OffsetRect(CSize(1, 1)); return r; }, CRect(-2, -3, 8, 2) },
    { "+ point, - size", [] { CRect r(1, 1, 11, 6); return (r + CPoint(2, 3)) - CSize(1, 1); }, CRect(2, 3, 12, 8) },
};

}  // namespace

TEST(GdiGeometry, OperationsGiveTheirRectangles)
{
    for (const GeometryRow& row : kGeometry)
        EXPECT_EQ(row.expected, row.op()) << row.what;
}

TEST(GdiGeometry, EmptyIsNotNullAndPtInRectLeavesOutTheFarEdges)
{
    EXPECT_TRUE(CRect(50, 40, 10, 5).IsRectEmpty());
    EXPECT_TRUE(CRect(5, 5, 5, 20).IsRectEmpty() && !CRect(5, 5, 5, 20).IsRectNull());
    EXPECT_TRUE((CRect(0, 0, 100, 50) & CRect(100, 0, 150, 50)).IsRectEmpty());   // a shared edge only
    const CRect box(10, 10, 20, 20);
    EXPECT_TRUE(box.PtInRect(CPoint(10, 10)) && box.PtInRect(CPoint(19, 19)));
    EXPECT_FALSE(box.PtInRect(CPoint(20, 15)) || box.PtInRect(CPoint(15, 20)) || box.PtInRect(CPoint(9, 15)));
    EXPECT_TRUE(box != CRect(10, 10, 20, 21) && CPoint(15, 24) != CPoint(15, 25));
}

/////////////////////////////////////////////////////////////////////////////
// GdiObjects: ownership and handle maps

TEST(GdiObjects, AnObjectDeletesItsHandleUnlessDetachedAndFromHandleFindsIt)
{
    HGDIOBJ deleted, detached;
    {
        CBrush brush(kRed);
        deleted = brush.m_hObject;
        EXPECT_EQ(OBJ_BRUSH, ::GetObjectType(deleted));
        CPen pen(PS_SOLID, 1, kBlue);
        detached = pen.Detach();
        EXPECT_EQ(nullptr, pen.GetSafeHandle());
    }
    EXPECT_EQ(0u, (unsigned)::GetObjectType(deleted));
    EXPECT_EQ(OBJ_PEN, ::GetObjectType(detached));
    ::DeleteObject(detached);
    CBrush* volatile pNone = nullptr;   // volatile: a pointer the compiler cannot prove null
    EXPECT_EQ(nullptr, pNone->GetSafeHandle());

    CFont font;
    ASSERT_TRUE(font.CreatePointFont(90, "Arial"));
    EXPECT_EQ(&font, CFont::FromHandle((HFONT)font.m_hObject));
    EXPECT_EQ(&font, CGdiObject::FromHandle(font.m_hObject));
    HGDIOBJ h = font.Detach();
    EXPECT_NE(&font, CGdiObject::FromHandle(h));  // no longer owned: a temporary wrapper
    AfxDeleteTempGdiMaps();
    ::DeleteObject(h);
}

// One temporary wrapper per foreign handle, freed at idle without deleting
// the handle (lifetimes across threads: test_handlemap.cpp).
TEST(GdiObjects, TemporaryWrappersAreReusedAndFreedWithoutDeletingTheHandle)
{
    HBRUSH h = ::CreateSolidBrush(kRed);
    CBrush* p1 = CBrush::FromHandle(h);
    EXPECT_TRUE(p1 && p1->m_hObject == h && CBrush::FromHandle(h) == p1 && CGdiObject::FromHandle(h) == p1);
    AfxDeleteTempGdiMaps();
    EXPECT_TRUE(::DeleteObject(h));
    EXPECT_EQ(nullptr, CGdiObject::FromHandle(nullptr));
}

TEST(GdiObjects, GenericLookupAnswersAWrapperOfTheObjectsKind)
{
    CPen pen(PS_SOLID, 1, kRed);
    HGDIOBJ stockPen = ::GetStockObject(BLACK_PEN), stockFont = ::GetStockObject(DEFAULT_GUI_FONT);
    EXPECT_TRUE(CGdiObject::FromHandle(stockPen)->IsKindOf(RUNTIME_CLASS(CPen)));
    EXPECT_TRUE(CGdiObject::FromHandle(stockFont)->IsKindOf(RUNTIME_CLASS(CFont)));
    EXPECT_TRUE(CGdiObject::FromHandle(::GetStockObject(WHITE_BRUSH))->IsKindOf(RUNTIME_CLASS(CBrush)));
    // A wrapper of the wrong kind is replaced, not handed out as another type.
    CGdiObject* pGeneric = CGdiObject::FromHandle(stockPen);
    CBrush* pWrong = CBrush::FromHandle((HBRUSH)stockPen);
    EXPECT_NE((CGdiObject*)pWrong, pGeneric);
    EXPECT_TRUE(pWrong->IsKindOf(RUNTIME_CLASS(CBrush)));
    AfxDeleteTempGdiMaps();
    EXPECT_EQ(OBJ_PEN, ::GetObjectType(stockPen));
}

TEST(GdiObjects, CreatePointFontConvertsTenthsOfAPointToPixels)
{
    Canvas s(4, 4);
    CFont font;
    ASSERT_TRUE(font.CreatePointFont(120, "Arial", &s.dc()));
    LOGFONT lf = {};
    font.GetLogFont(&lf);
    const int dpi = s.dc().GetDeviceCaps(LOGPIXELSY);
    EXPECT_EQ(-::MulDiv(12, dpi, 72), lf.lfHeight);
    EXPECT_STREQ("Arial", lf.lfFaceName);
    s.dc().SetMapMode(MM_LOMETRIC);   // tenths of a millimetre: the height follows
    CFont metric;
    ASSERT_TRUE(metric.CreatePointFont(720, "Arial", &s.dc()));  // one inch
    metric.GetLogFont(&lf);
    EXPECT_NEAR(-254, lf.lfHeight, 3);
}

/////////////////////////////////////////////////////////////////////////////
// GdiSelect: selection answers the previous object, so a restore restores.

TEST(GdiSelect, SelectObjectAnswersThePreviousObjectOfTheSameKind)
{
    Canvas s(8, 8);
    CDC& dc = s.dc();
    HGDIOBJ hDefaultPen = ::GetCurrentObject(dc.m_hDC, OBJ_PEN);
    CPen red(PS_SOLID, 1, kRed), blue(PS_SOLID, 1, kBlue);

    CPen* pOld = dc.SelectObject(&red);
    ASSERT_NE(nullptr, pOld);
    EXPECT_EQ(hDefaultPen, pOld->m_hObject);
    EXPECT_EQ(red.m_hObject, ::GetCurrentObject(dc.m_hDC, OBJ_PEN));
    // Our own pen comes back as itself, not as a copy.
    EXPECT_EQ(&red, dc.SelectObject(&blue));
    EXPECT_EQ(&blue, dc.GetCurrentPen());
    dc.SelectObject(pOld);
    EXPECT_EQ(hDefaultPen, ::GetCurrentObject(dc.m_hDC, OBJ_PEN));

    CBrush brush(kRed);
    HGDIOBJ hDefaultBrush = ::GetCurrentObject(dc.m_hDC, OBJ_BRUSH);
    CGdiObject* pOldBrush = dc.SelectObject(static_cast<CGdiObject*>(&brush));
    EXPECT_TRUE(pOldBrush->IsKindOf(RUNTIME_CLASS(CBrush)));
    EXPECT_EQ(hDefaultBrush, pOldBrush->m_hObject);
    CGdiObject* pStock = dc.SelectStockObject(NULL_BRUSH);
    EXPECT_EQ(&brush, pStock);
    dc.SelectObject(pOldBrush);
    EXPECT_EQ(hDefaultBrush, ::GetCurrentObject(dc.m_hDC, OBJ_BRUSH));
    AfxDeleteTempGdiMaps();
}

TEST(GdiSelect, ScopeHelperRestoresOnExit)
{
    Canvas s(8, 8);
    HGDIOBJ hDefaultBrush = ::GetCurrentObject(s.dc().m_hDC, OBJ_BRUSH);
    CBrush brush(kBlue);
    {
        CDCSelect sel(s.dc(), &brush);
        EXPECT_EQ(brush.m_hObject, ::GetCurrentObject(s.dc().m_hDC, OBJ_BRUSH));
        EXPECT_EQ(hDefaultBrush, sel.GetOldHandle());
    }
    EXPECT_EQ(hDefaultBrush, ::GetCurrentObject(s.dc().m_hDC, OBJ_BRUSH));
    {
        CDCSaveState save(s.dc());
        s.dc().SelectObject(&brush);
        s.dc().SetTextColor(kRed);
        s.dc().SetViewportOrg(5, 5);
    }
    EXPECT_EQ(hDefaultBrush, ::GetCurrentObject(s.dc().m_hDC, OBJ_BRUSH));
    EXPECT_NE(kRed, s.dc().GetTextColor());
    EXPECT_EQ(CPoint(0, 0), s.dc().GetViewportOrg());
    // The brush can be deleted now: nothing holds it selected.
    EXPECT_TRUE(brush.DeleteObject());
}

/////////////////////////////////////////////////////////////////////////////
// GdiDC: attachment, temporaries, attributes

// Sizes convert as extents: the viewport's flip leaves their sign alone.
TEST(GdiDC, SizesKeepTheirSignThroughAFlippedMapping)
{
    Canvas s(20, 20);
    s.dc().SetMapMode(MM_ANISOTROPIC);
    s.dc().SetWindowExt(10, 10);
    s.dc().SetViewportExt(20, -20);
    CSize size(3, 4);
    s.dc().LPtoDP(&size);
    EXPECT_EQ(CSize(6, 8), size);
    s.dc().DPtoLP(&size);
    EXPECT_EQ(CSize(3, 4), size);
}

/////////////////////////////////////////////////////////////////////////////
// GdiDraw: pixel results of the rectangle helpers

TEST(GdiDraw, Draw3dRectColoursSidesAndGivesCornersToTheBottomRight)
{
    Canvas s(20, 20);
    s.dc().Draw3dRect(CRect(2, 2, 12, 8), kRed, kBlue);
    // Top and left in the first colour; right and bottom, corners included, in the second.
    EXPECT_TRUE(s.AllPixels(CRect(2, 2, 11, 3), kRed));
    EXPECT_TRUE(s.AllPixels(CRect(2, 2, 3, 7), kRed));
    EXPECT_TRUE(s.AllPixels(CRect(2, 7, 12, 8), kBlue));
    EXPECT_TRUE(s.AllPixels(CRect(11, 2, 12, 8), kBlue));
    EXPECT_EQ(9 + 5 - 1, s.CountAll(kRed));
    EXPECT_EQ(10 + 6 - 1, s.CountAll(kBlue));
}

/////////////////////////////////////////////////////////////////////////////
// GdiDragRect: XOR drag feedback

// Drawing the same frame again erases it; a move draws the new frame and
// erases the old; a new brush erases with the last one.
TEST(GdiDragRect, DrawingAgainErasesAndAMoveRedrawsWithTheNewBrush)
{
    Canvas s(50, 50), expected(50, 50);
    s.dc().FillSolidRect(0, 0, 20, 50, kRed);
    const auto clean = s.Pixels();
    CRect r(5, 5, 30, 25);
    s.dc().DrawDragRect(r, CSize(3, 3), nullptr, CSize(0, 0));
    EXPECT_NE(clean, s.Pixels());
    EXPECT_EQ(clean[15 * 50 + 15], s.Pixels()[15 * 50 + 15]);  // inside untouched
    s.dc().DrawDragRect(CRect(0, 0, 0, 0), CSize(0, 0), r, CSize(3, 3));
    EXPECT_EQ(clean, s.Pixels());

    CBrush white(kWhite), red(kRed), blue(kBlue);  // pattern XOR white: every frame pixel is inverted
    Canvas m(50, 50);
    CRect a(5, 5, 25, 25), b(12, 10, 40, 35);
    m.dc().DrawDragRect(a, CSize(2, 2), nullptr, CSize(0, 0), &white);
    EXPECT_EQ(20 * 20 - 16 * 16, m.CountAll(kBlack));
    m.dc().DrawDragRect(b, CSize(2, 2), a, CSize(2, 2), &white);
    expected.dc().DrawDragRect(b, CSize(2, 2), nullptr, CSize(0, 0), &white);
    EXPECT_EQ(expected.Pixels(), m.Pixels());

    Canvas c(40, 40);
    const auto blank = c.Pixels();
    CRect q(4, 4, 30, 30);
    c.dc().DrawDragRect(q, CSize(1, 1), nullptr, CSize(0, 0), &red);
    EXPECT_EQ(RGB(0, 255, 255), c.At(4, 10));  // white XOR red
    c.dc().DrawDragRect(q, CSize(1, 1), q, CSize(1, 1), &blue, &red);
    EXPECT_EQ(RGB(255, 255, 0), c.At(4, 10));  // red erased, blue drawn
    c.dc().DrawDragRect(CRect(0, 0, 0, 0), CSize(0, 0), q, CSize(1, 1), &blue, &blue);
    EXPECT_EQ(blank, c.Pixels());
}

TEST(GdiDragRect, KeepsTheCallersClipAndSelection)
{
    Canvas s(40, 40);
    s.dc().IntersectClipRect(0, 0, 20, 40);
    HGDIOBJ hBrush = ::GetCurrentObject(s.dc().m_hDC, OBJ_BRUSH);
    CBrush white(kWhite);
    s.dc().DrawDragRect(CRect(5, 5, 35, 35), CSize(1, 1), nullptr, CSize(0, 0), &white);
    EXPECT_EQ(0, s.Count(CRect(20, 0, 40, 40), kBlack));  // clipped away
    EXPECT_EQ(kBlack, s.At(5, 20));
    EXPECT_EQ(hBrush, ::GetCurrentObject(s.dc().m_hDC, OBJ_BRUSH));
    CRect box;
    s.dc().GetClipBox(&box);
    EXPECT_EQ(CRect(0, 0, 20, 40), box);
}

/////////////////////////////////////////////////////////////////////////////
// GdiMemBuffer: double-buffered painting

// The buffer copies to the target when it ends (in target coordinates), or
// at Flush, never after Discard; it starts with the target's font and
// colours; an empty rectangle is drawn directly; nothing is left behind.
TEST(GdiMemBuffer, CopiesAtTheEndOrFlushNeverAfterDiscard)
{
    Canvas s(40, 40);
    {
        CMemDCBuffer buf(&s.dc(), CRect(10, 10, 30, 30));
        ASSERT_TRUE(buf.IsBuffered());
        buf->FillSolidRect(CRect(10, 10, 30, 30), kBlue);
        buf->FillSolidRect(CRect(15, 15, 20, 20), kRed);
        EXPECT_EQ(0, s.CountAll(kBlue));  // nothing on the target yet
    }
    EXPECT_EQ(400 - 25, s.CountAll(kBlue));
    EXPECT_EQ(25, s.Count(CRect(15, 15, 20, 20), kRed));
    EXPECT_EQ(40 * 40 - 400, s.CountAll(kWhite));
    s.Fill(kWhite);
    {
        CMemDCBuffer buf(&s.dc(), CRect(0, 0, 10, 10));
        buf.GetDC()->FillSolidRect(0, 0, 10, 10, kRed);
        buf.Flush();
        EXPECT_EQ(100, s.CountAll(kRed));
        s.Fill(kWhite);  // the destructor must not copy again
    }
    {
        CMemDCBuffer buf(&s.dc(), CRect(0, 0, 10, 10));
        buf.GetDC()->FillSolidRect(0, 0, 10, 10, kRed);
        buf.Discard();
    }
    EXPECT_EQ(0, s.CountAll(kRed));
}

TEST(GdiMemBuffer, StartsWithTheTargetsFontAndColoursAndLeavesNothingBehind)
{
    Canvas s(64, 64);
    CFont font;
    font.CreatePointFont(140, "Arial");
    CDCSelect sel(s.dc(), &font);
    s.dc().SetTextColor(kRed);
    {
        CMemDCBuffer buf(&s.dc(), CRect(0, 0, 20, 20));
        EXPECT_EQ(font.m_hObject, ::GetCurrentObject(buf->m_hDC, OBJ_FONT));
        EXPECT_EQ(kRed, buf->GetTextColor());
        buf.Discard();
    }
    CMemDCBuffer direct(&s.dc(), CRect(5, 5, 5, 9));
    EXPECT_FALSE(direct.IsBuffered());
    EXPECT_EQ(&s.dc(), direct.GetDC());
    RunRepeated([&] {
        CMemDCBuffer buf(&s.dc(), CRect(0, 0, 64, 64));
        CPen pen(PS_SOLID, 1, kRed);
        CDCSelect pens(*buf.GetDC(), &pen);
        buf->Rectangle(2, 2, 60, 60);
    }, 100);
    EXPECT_EQ(kRed, s.At(2, 2));
}
