// The default theme of HyHost.dll: colours, shading, swatches, fonts and the
// drawing services, painted with real GDI into 32-bit DIBs.
#include <gtest/gtest.h>

#include <afxwin.h>
#include "HyCommonUI.h"
#include "HyTheme.h"
#include "hytest.h"
#include "hytest_env.h"
#include "hytest_afx.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

const int kNamedIds[] = { HYTHEME_BUTTON, HYTHEME_LIST_SELFRAME, HYTHEME_VIEW, HYTHEME_HEADER, HYTHEME_BODY,
                          HYTHEME_HEADER_SEL, HYTHEME_FOCUS, HYTHEME_LIST, HYTHEME_PHOTO };

double Linear(int c)
{
    double v = c / 255.0;
    return v <= 0.04045 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
}

// The WCAG contrast ratio of two colours.
double Contrast(COLORREF a, COLORREF b)
{
    auto lum = [](COLORREF c) {
        return 0.2126 * Linear(GetRValue(c)) + 0.7152 * Linear(GetGValue(c)) + 0.0722 * Linear(GetBValue(c));
    };
    double la = lum(a), lb = lum(b);
    if (la < lb) std::swap(la, lb);
    return (la + 0.05) / (lb + 0.05);
}

double RgbDistance(COLORREF x, COLORREF y)
{
    double dr = GetRValue(x) - GetRValue(y), dg = GetGValue(x) - GetGValue(y), db = GetBValue(x) - GetBValue(y);
    return std::sqrt(dr * dr + dg * dg + db * db);
}

HYThemeStyle StyleOf(int id)
{
    HYThemeStyle s = {};
    HYThemeGetStyle(id, &s);
    return s;
}

}  // namespace

TEST(ThemeColors, NamedIdsAnswerTheirStyleUnknownOnesTheFallbackAndTextReads)
{
    for (int id : kNamedIds) {
        HYThemeStyle s = {};
        EXPECT_TRUE(HYThemeGetStyle(id, &s)) << id;
        EXPECT_EQ(HYThemeGetColor(id), s.fill) << id;
        EXPECT_NE(s.fill, HYThemeFallbackColor()) << "id " << id << " looks unknown";
        EXPECT_EQ(s.kind == 0x4D, id == HYTHEME_HEADER) << id;   // only the unselected header is a gradient
        EXPECT_GE(Contrast(s.text, s.fill), 4.5) << "text on fill of id " << id;
        EXPECT_GE(Contrast(s.text, s.fillEnd), 4.5) << "text on gradient end of id " << id;
    }
    for (int id : { 0, 1, 40, 69, 1000, -5 }) {
        HYThemeStyle s = {};
        EXPECT_FALSE(HYThemeGetStyle(id, &s)) << id;
        EXPECT_TRUE(HYThemeGetColor(id) == HYThemeFallbackColor() && s.fill == HYThemeFallbackColor()) << id;
    }
    EXPECT_EQ(2, StyleOf(HYTHEME_HEADER).mode);   // horizontal
    // The edit list's labels sit on the base colour lightened by 32; "No Photo"
    // takes a header's text colour on the card body; the focus mark crosses all.
    EXPECT_GE(Contrast(StyleOf(HYTHEME_LIST).text, HYThemeShiftColor(HYThemeGetColor(HYTHEME_LIST), 32)), 4.5);
    for (int id : { HYTHEME_HEADER, HYTHEME_HEADER_SEL })
        EXPECT_GE(Contrast(StyleOf(id).text, HYThemeGetColor(HYTHEME_BODY)), 4.5) << id;
    for (int id : { HYTHEME_BODY, HYTHEME_VIEW, HYTHEME_HEADER, HYTHEME_HEADER_SEL })
        EXPECT_GE(Contrast(HYThemeGetFocusColor(), HYThemeGetColor(id)), 3.0) << id;
}

TEST(ThemeShift, AddsToEachChannelAndClamps)
{
    const struct { COLORREF in; int by; COLORREF out; } rows[] = {
        { RGB(10, 20, 30), 32, RGB(42, 52, 62) },      { RGB(10, 20, 30), -5, RGB(5, 15, 25) },
        { RGB(1, 2, 3), 1000, RGB(255, 255, 255) },    { RGB(253, 254, 255), -1000, RGB(0, 0, 0) },
    };
    for (const auto& r : rows)
        EXPECT_EQ(r.out, HYThemeShiftColor(r.in, r.by)) << r.by;
    EXPECT_EQ(HYThemeLighten(RGB(200, 10, 100)), RGB(255, 74, 164));   // by 64
    EXPECT_EQ(HYThemeDarken(RGB(200, 10, 100)), RGB(136, 0, 36));
}

TEST(ThemeSwatches, CategoriesMapToSixteenDistinctSwatchesAndOutOfRangeIsRefused)
{
    const hytest::TempFile profile("hy-theme-swatches.ini");   // changes are stored: never in a shared profile
    HySetProfilePath(profile.path());
    HYThemeResetCategorySwatches();
    EXPECT_EQ(HYThemeSwatchOfCategory(0), 16);   // the catch-all gets the neutral swatch
    for (WORD c = 1; c < 16; ++c) EXPECT_EQ(HYThemeSwatchOfCategory(c), c);
    EXPECT_EQ(HYThemeSwatchOfCategory(16), HYSWATCH_NONE);
    EXPECT_TRUE(HYThemeSetCategorySwatch(3, 9) && HYThemeSetCategorySwatch(15, 16));
    for (int bad : { 0, 17, -1 })
        EXPECT_FALSE(HYThemeSetCategorySwatch(2, bad)) << bad;
    EXPECT_FALSE(HYThemeSetCategorySwatch(16, 5));
    // The neighbours and refused changes leave their swatches alone.
    EXPECT_EQ((std::vector<int>{ 2, 9, 4, 16 }), (std::vector<int>{ HYThemeSwatchOfCategory(2), HYThemeSwatchOfCategory(3),
                                                HYThemeSwatchOfCategory(4), HYThemeSwatchOfCategory(15) }));
    HYThemeResetCategorySwatches();
    HySetProfilePath(nullptr);
    for (int bad : { 0, 17, -3 })
        EXPECT_EQ(HYThemeSwatchColor(bad), HYThemeFallbackColor()) << bad;
    // Two swatches read as two colours at 12 x 9 pixels (the colour-blind
    // views were checked when the palette was chosen: docs/theme.md).
    for (int i = 1; i <= 16; ++i) {
        EXPECT_NE(HYThemeSwatchColor(i), HYThemeFallbackColor()) << i;
        for (int j = i + 1; j <= 16; ++j)
            EXPECT_GE(RgbDistance(HYThemeSwatchColor(i), HYThemeSwatchColor(j)), 55.0) << i << " and " << j;
    }
}

TEST(ThemeFonts, FontsAndBrushesAreOneObjectEachOwnedByTheTheme)
{
    for (int which : { HYFONT_STANDARD, HYFONT_CARD_TITLE, HYFONT_CARD_TEXT, HYFONT_PHOTO_CAPTION }) {
        CFont* f = HYThemeGetFont(which);
        EXPECT_TRUE(f && ::GetObjectType(f->GetSafeHandle()) == OBJ_FONT && HYThemeGetFont(which) == f) << which;
    }
    EXPECT_EQ(HYThemeGetFont(99), HYThemeGetFont(HYFONT_STANDARD));
    LOGBRUSH lb = {};
    HYThemeGetFocusBrush()->GetLogBrush(&lb);
    EXPECT_EQ(lb.lbColor, HYThemeGetColor(HYTHEME_FOCUS));
    HYThemeGetRuleBrush()->GetLogBrush(&lb);
    EXPECT_GT(Contrast(lb.lbColor, HYThemeGetColor(HYTHEME_BODY)), 1.3) << "a rule must show on the body";
}

// ---------------------------------------------------------------------------
// Drawing services

TEST(ThemeDrawing, TextTakesTheElementsTextColourAndRestoresTheDC)
{
    Canvas c(120, 30, RGB(255, 255, 255));
    CDCSelect font(c.dc(), HYThemeGetFont(HYFONT_STANDARD));
    c.dc().SetTextColor(RGB(1, 2, 3));
    c.dc().SetBkMode(OPAQUE);
    c.dc().SetBkColor(RGB(9, 9, 9));
    CRect r(10, 5, 110, 25);
    EXPECT_GT(HYThemeDrawText(&c.dc(), "MWMWMW", -1, &r, DT_SINGLELINE | DT_LEFT | DT_TOP, HYTHEME_HEADER), 0);
    EXPECT_GT(c.Count(r, StyleOf(HYTHEME_HEADER).text), 10);
    // Transparent (no background box), inside its rectangle, the DC as it was.
    EXPECT_EQ((std::vector<int>{ 0, 0, 0 }), (std::vector<int>{ c.CountAll(RGB(9, 9, 9)), c.CountAll(RGB(1, 2, 3)),
                                                c.Count(CRect(0, 0, 10, 30), StyleOf(HYTHEME_HEADER).text) }));
    EXPECT_TRUE(c.dc().GetTextColor() == RGB(1, 2, 3) && c.dc().GetBkMode() == OPAQUE);
    // HYTHEME_CURRENT keeps the DC's own colour.
    c.dc().FillSolidRect(&r, RGB(255, 255, 255));
    HYThemeDrawText(&c.dc(), "MWMWMW", -1, &r, DT_SINGLELINE | DT_LEFT | DT_TOP, HYTHEME_CURRENT);
    EXPECT_GT(c.Count(r, RGB(1, 2, 3)), 10);
}

TEST(ThemeDrawing, DropDownLabelDrawsAnArrowAfterTheText)
{
    const COLORREF ink = StyleOf(HYTHEME_BODY).text;
    const int y = (20 - 4) / 2;
    CRect r(0, 0, 160, 20);
    Canvas c(160, 20);
    CDCSelect font(c.dc(), HYThemeGetFont(HYFONT_STANDARD));
    HYThemeDrawDropDownLabel(&c.dc(), "Home", &r, DT_SINGLELINE | DT_VCENTER | DT_RIGHT, HYTHEME_BODY);
    // Right-aligned: the arrow's widest row fills the last 7 columns, the text clear of it.
    EXPECT_TRUE(c.AllPixels(CRect(153, y, 160, y + 1), ink));
    EXPECT_EQ(c.At(156, y + 3), ink);   // the tip
    EXPECT_EQ(c.At(153, y + 3), RGB(255, 255, 255));
    EXPECT_GT(c.Count(CRect(100, 0, 150, 20), ink), 5);
    EXPECT_EQ(c.Count(CRect(150, 0, 153, 20), ink), 0);
    // Left-aligned: the arrow follows the text at a 3-pixel gap.
    c.Fill(RGB(255, 255, 255));
    HYThemeDrawDropDownLabel(&c.dc(), "Home", &r, DT_SINGLELINE | DT_VCENTER | DT_LEFT, HYTHEME_BODY);
    int textWidth = c.dc().GetTextExtent("Home", 4).cx;
    EXPECT_TRUE(c.AllPixels(CRect(textWidth + 3, y, textWidth + 10, y + 1), ink));
    EXPECT_EQ(c.Count(CRect(textWidth + 11, 0, 160, 20), ink), 0);
}

TEST(ThemeDrawing, FillsAndMarksStayInsideTheirRectangle)
{
    Canvas c(60, 40, hytest::kUnpainted);
    CRect r(10, 10, 50, 30);
    const int area = r.Width() * r.Height();
    // Masked fill: the body colour hatched with its 40-darker shade.
    HYThemeMaskedFill(&c.dc(), &r, HYTHEME_BODY);
    COLORREF fill = HYThemeGetColor(HYTHEME_BODY), hatch = HYThemeShiftColor(fill, -40);
    EXPECT_EQ(c.Count(r, fill) + c.Count(r, hatch), area) << "only the two colours inside";
    EXPECT_GT(c.Count(r, hatch), area / 16);
    EXPECT_GT(c.Count(r, fill), area / 2);
    EXPECT_EQ(c.CountAll(hytest::kUnpainted), 60 * 40 - area);
    // Focus mark: a two-pixel ring inside the rectangle.
    c.Fill(hytest::kUnpainted);
    HYThemeDrawFocusMark(&c.dc(), &r, HYTHEME_FOCUS);
    COLORREF f = HYThemeGetColor(HYTHEME_FOCUS);
    EXPECT_TRUE(c.AllPixels(CRect(10, 10, 50, 12), f));
    EXPECT_TRUE(c.AllPixels(CRect(48, 10, 50, 30), f));
    EXPECT_TRUE(c.AllPixels(CRect(12, 12, 48, 28), hytest::kUnpainted));
    EXPECT_EQ(c.CountAll(f), area - 36 * 16);
    // Header decoration: a separator in the line colour, 3 pixels in from top and bottom.
    c.Fill(hytest::kUnpainted);
    HYThemeDrawHeaderDecoration(&c.dc(), &r, RGB(0, 0, 0), RGB(10, 200, 30));
    EXPECT_TRUE(c.AllPixels(CRect(10, 13, 11, 27), RGB(10, 200, 30)));
    EXPECT_EQ(c.CountAll(RGB(10, 200, 30)), 14);
}

TEST(ThemeDrawing, GradientSlicesJoinAcrossColumns)
{
    HYThemeStyle s = StyleOf(HYTHEME_HEADER);
    const int w = 50;
    Canvas c(3 * w, 10, hytest::kUnpainted);
    for (int part = 0; part < 3; ++part) {
        CRect r(part * w, 0, (part + 1) * w, 10);
        HYThemeFillGradientSlice(&c.dc(), &r, HYTHEME_HEADER, part, 3);
    }
    EXPECT_EQ(c.At(0, 5), s.fill);
    EXPECT_EQ(c.At(3 * w - 1, 5), s.fillEnd);
    // Each column is one colour, and neighbours (across slice borders too) differ a little.
    for (int x = 0; x < 3 * w; ++x) {
        EXPECT_TRUE(c.AllPixels(CRect(x, 0, x + 1, 10), c.At(x, 0))) << x;
        EXPECT_LE(x > 0 ? RgbDistance(c.At(x - 1, 0), c.At(x, 0)) : 0.0, 3.0) << x;
    }
    CRect r(0, 0, w, 4);
    HYThemeFillStyle(&c.dc(), &r, HYTHEME_HEADER);   // the whole ramp in one rectangle
    EXPECT_TRUE(c.At(0, 0) == s.fill && c.At(w - 1, 3) == s.fillEnd);
    HYThemeFillStyle(&c.dc(), &r, HYTHEME_HEADER_SEL);   // a solid element fills flat
    EXPECT_TRUE(c.AllPixels(r, HYThemeGetColor(HYTHEME_HEADER_SEL)));
}

namespace {

// A 20 x 20 bitmap with four 10 x 10 quadrants: red, green / blue, white.
HBITMAP MakeQuadrants()
{
    DWORD bits[20 * 20];
    for (int y = 0; y < 20; ++y)
        for (int x = 0; x < 20; ++x)
            bits[y * 20 + x] = y < 10 ? (x < 10 ? 0xFF0000 : 0x00FF00) : (x < 10 ? 0x0000FF : 0xFFFFFF);
    return ::CreateBitmap(20, 20, 1, 32, bits);
}

}  // namespace

TEST(ThemeBitmaps, PartialAndTransparentBitmapsDrawOnlyWhatTheyShould)
{
    auto drawAll = [] {
        HBITMAP hbm = MakeQuadrants();
        Canvas c(40, 40, hytest::kUnpainted);
        // The green quadrant only.
        EXPECT_TRUE(HYDrawPartialBitmap(&c.dc(), hbm, 5, 5, 10, 0, 10, 10));
        EXPECT_TRUE(c.AllPixels(CRect(5, 5, 15, 15), RGB(0, 255, 0)));
        EXPECT_EQ(c.CountAll(hytest::kUnpainted), 40 * 40 - 100);
        // A part reaching past the bitmap is clipped to it; empty parts are refused.
        c.Fill(hytest::kUnpainted);
        EXPECT_TRUE(HYDrawPartialBitmap(&c.dc(), hbm, 0, 0, 15, 15, 10, 10));
        EXPECT_EQ(c.CountAll(hytest::kUnpainted), 40 * 40 - 25);
        EXPECT_FALSE(HYDrawPartialBitmap(&c.dc(), hbm, 0, 0, 20, 0, 5, 5));
        EXPECT_FALSE(HYDrawPartialBitmap(&c.dc(), hbm, 0, 0, 0, 0, 0, 5));
        EXPECT_FALSE(HYDrawPartialBitmap(&c.dc(), NULL, 0, 0, 0, 0, 5, 5));
        // Transparent: the top-left pixel's colour (red) is the default key.
        c.Fill(hytest::kUnpainted);
        EXPECT_TRUE(HYThemeDrawTransparentBitmap(&c.dc(), hbm, 5, 5, HYCLR_TOPLEFT));
        EXPECT_TRUE(c.AllPixels(CRect(5, 5, 15, 15), hytest::kUnpainted));
        EXPECT_TRUE(c.AllPixels(CRect(15, 5, 25, 15), RGB(0, 255, 0)));
        EXPECT_TRUE(c.AllPixels(CRect(15, 15, 25, 25), RGB(255, 255, 255)));
        c.Fill(hytest::kUnpainted);
        EXPECT_TRUE(HYThemeDrawTransparentBitmap(&c.dc(), hbm, 0, 0, RGB(255, 255, 255)));
        EXPECT_TRUE(c.AllPixels(CRect(10, 10, 20, 20), hytest::kUnpainted));
        EXPECT_TRUE(c.AllPixels(CRect(0, 0, 10, 10), RGB(255, 0, 0)));
        EXPECT_TRUE(c.dc().GetTextColor() == RGB(0, 0, 0) && c.dc().GetBkColor() == RGB(255, 255, 255));
        // The other services, for the object count.
        CRect r(0, 0, 40, 40);
        CDCSelect font(c.dc(), HYThemeGetFont(HYFONT_CARD_TITLE));
        HYThemeDrawDropDownLabel(&c.dc(), "Menu", &r, DT_SINGLELINE, HYTHEME_BODY);
        HYThemeMaskedFill(&c.dc(), &r, HYTHEME_HEADER);
        HYThemeFillGradientSlice(&c.dc(), &r, HYTHEME_HEADER, 1, 2);
        HYThemeDrawFocusMark(&c.dc(), &r, HYTHEME_FOCUS);
        ::DeleteObject(hbm);
    };
    RunRepeated(drawAll, 20);
}
