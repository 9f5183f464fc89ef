// The GDI wrappers against the raw calls they stand for: state set through a
// CDC whose output and attribute DCs are two different surfaces, queries that
// must read the attribute DC, and region combinations whose operand order
// matters.
#include <gtest/gtest.h>

#include "afxgdi.h"
#include "hytest.h"

#include <functional>

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
