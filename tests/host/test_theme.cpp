// The default theme of HyHost.dll: colours, shading, swatches, fonts and the
// drawing services, painted with real GDI into 32-bit DIBs.
#include <gtest/gtest.h>

#include <afxwin.h>
#include "HyTheme.h"
#include "hytest.h"
#include "hytest_afx.h"

#include <algorithm>
#include <cmath>

namespace {

const int kNamedIds[] = { HYTHEME_BUTTON, HYTHEME_LIST_SELFRAME, HYTHEME_VIEW, HYTHEME_HEADER, HYTHEME_BODY,
                          HYTHEME_HEADER_SEL, HYTHEME_FOCUS, HYTHEME_LIST, HYTHEME_PHOTO };

// ---- colour science shared by the contrast and swatch tests ----

double Linear(int c)
{
    double v = c / 255.0;
    return v <= 0.04045 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
}

double Luminance(COLORREF c)
{
    return 0.2126 * Linear(GetRValue(c)) + 0.7152 * Linear(GetGValue(c)) + 0.0722 * Linear(GetBValue(c));
}

double Contrast(COLORREF a, COLORREF b)
{
    double la = Luminance(a), lb = Luminance(b);
    if (la < lb) std::swap(la, lb);
    return (la + 0.05) / (lb + 0.05);
}

struct Lab { double L, a, b; };

Lab LabOfLinear(double r, double g, double b)
{
    double X = 0.4124564 * r + 0.3575761 * g + 0.1804375 * b;
    double Y = 0.2126729 * r + 0.7151522 * g + 0.0721750 * b;
    double Z = 0.0193339 * r + 0.1191920 * g + 0.9503041 * b;
    auto f = [](double t) { return t > 0.008856 ? std::cbrt(t) : 7.787 * t + 16.0 / 116.0; };
    double fx = f(X / 0.95047), fy = f(Y), fz = f(Z / 1.08883);
    return { 116 * fy - 16, 500 * (fx - fy), 200 * (fy - fz) };
}

// Colour-vision deficiency simulation on linear RGB (Machado, Oliveira and
// Fernandes 2009, severity 1.0); index 0 is normal vision.
const double kViews[4][3][3] = {
    { { 1, 0, 0 }, { 0, 1, 0 }, { 0, 0, 1 } },
    { { 0.152286, 1.052583, -0.204868 }, { 0.114503, 0.786281, 0.099216 }, { -0.003882, -0.048116, 1.051998 } },
    { { 0.367322, 0.860646, -0.227968 }, { 0.280085, 0.672501, 0.047413 }, { -0.011820, 0.042940, 0.968881 } },
    { { 1.255528, -0.076749, -0.178779 }, { -0.078411, 0.930809, 0.147602 }, { 0.004733, 0.691367, 0.303900 } },
};
const char* const kViewNames[4] = { "normal", "protanopia", "deuteranopia", "tritanopia" };

Lab Seen(COLORREF c, int view)
{
    double in[3] = { Linear(GetRValue(c)), Linear(GetGValue(c)), Linear(GetBValue(c)) };
    double out[3];
    for (int i = 0; i < 3; ++i) {
        double v = 0;
        for (int j = 0; j < 3; ++j) v += kViews[view][i][j] * in[j];
        out[i] = std::clamp(v, 0.0, 1.0);
    }
    return LabOfLinear(out[0], out[1], out[2]);
}

double DeltaE(const Lab& x, const Lab& y)
{
    return std::sqrt((x.L - y.L) * (x.L - y.L) + (x.a - y.a) * (x.a - y.a) + (x.b - y.b) * (x.b - y.b));
}

double RgbDistance(COLORREF x, COLORREF y)
{
    double dr = GetRValue(x) - GetRValue(y), dg = GetGValue(x) - GetGValue(y), db = GetBValue(x) - GetBValue(y);
    return std::sqrt(dr * dr + dg * dg + db * db);
}

}  // namespace

// ---------------------------------------------------------------------------
// Colours of elements

TEST(ThemeColors, NamedIdsAnswerTheirStyleUnknownOnesTheFallback)
{
    for (int id : kNamedIds) {
        HYThemeStyle s = {};
        EXPECT_TRUE(HYThemeGetStyle(id, &s)) << id;
        EXPECT_EQ(HYThemeGetColor(id), s.fill) << id;
        EXPECT_NE(s.fill, HYThemeFallbackColor()) << "id " << id << " looks unknown";
        EXPECT_EQ(s.kind == 0x4D, id == HYTHEME_HEADER) << id;   // only the unselected header is a gradient
    }
    EXPECT_NE(HYThemeGetColor(HYTHEME_HEADER), HYThemeGetColor(HYTHEME_HEADER_SEL));
    EXPECT_NE(HYThemeGetColor(HYTHEME_VIEW), HYThemeGetColor(HYTHEME_BODY));
    for (int id : { 0, 1, 40, 69, 1000, -5 }) {
        EXPECT_EQ(HYThemeGetColor(id), HYThemeFallbackColor()) << id;
        HYThemeStyle s = {};
        EXPECT_FALSE(HYThemeGetStyle(id, &s)) << id;
        EXPECT_EQ(s.fill, HYThemeFallbackColor());
        EXPECT_GE(Contrast(s.text, s.fill), 4.5);
    }
    EXPECT_FALSE(HYThemeGetStyle(1000, nullptr));
    HYThemeStyle header = {};
    HYThemeGetStyle(HYTHEME_HEADER, &header);
    EXPECT_EQ(2, header.mode);   // horizontal
    EXPECT_NE(header.fill, header.fillEnd);
}

TEST(ThemeColors, TextIsLegibleOnEveryFill)
{
    for (int id : kNamedIds) {
        HYThemeStyle s = {};
        HYThemeGetStyle(id, &s);
        EXPECT_GE(Contrast(s.text, s.fill), 4.5) << "text on fill of id " << id;
        EXPECT_GE(Contrast(s.text, s.fillEnd), 4.5) << "text on gradient end of id " << id;
    }
    // The edit list draws its labels on the base colour lightened by 32.
    HYThemeStyle list = {};
    HYThemeGetStyle(HYTHEME_LIST, &list);
    EXPECT_GE(Contrast(list.text, HYThemeShiftColor(list.fill, 32)), 4.5);
    // "No Photo" is drawn on the card body in the text colour of the header,
    // selected or not, so both header text colours must read on the body too.
    for (int id : { HYTHEME_HEADER, HYTHEME_HEADER_SEL }) {
        HYThemeStyle header = {};
        HYThemeGetStyle(id, &header);
        EXPECT_GE(Contrast(header.text, HYThemeGetColor(HYTHEME_BODY)), 4.5) << id;
    }
    // The focus mark must stand out (3:1) against whatever it crosses.
    for (int id : { HYTHEME_BODY, HYTHEME_VIEW, HYTHEME_HEADER, HYTHEME_HEADER_SEL })
        EXPECT_GE(Contrast(HYThemeGetFocusColor(), HYThemeGetColor(id)), 3.0) << id;
}

// ---------------------------------------------------------------------------
// Shading

TEST(ThemeShift, AddsToEachChannelAndClamps)
{
    const struct { COLORREF in; int by; COLORREF out; } rows[] = {
        { RGB(10, 20, 30), 32, RGB(42, 52, 62) },      { RGB(10, 20, 30), -5, RGB(5, 15, 25) },
        { RGB(250, 5, 128), 10, RGB(255, 15, 138) },   { RGB(250, 5, 128), -10, RGB(240, 0, 118) },
        { RGB(1, 2, 3), 1000, RGB(255, 255, 255) },    { RGB(253, 254, 255), -1000, RGB(0, 0, 0) },
    };
    for (const auto& r : rows)
        EXPECT_EQ(r.out, HYThemeShiftColor(r.in, r.by)) << r.by;
    EXPECT_EQ(HYThemeLighten(RGB(200, 10, 100)), RGB(255, 74, 164));   // by 64
    EXPECT_EQ(HYThemeDarken(RGB(200, 10, 100)), RGB(136, 0, 36));
}

// ---------------------------------------------------------------------------
// Category swatches

class ThemeSwatches : public ::testing::Test
{
protected:
    void SetUp() override { HYThemeResetCategorySwatches(); }
    void TearDown() override { HYThemeResetCategorySwatches(); }
};

TEST_F(ThemeSwatches, CategoriesMapToSwatchesAndOutOfRangeIsRefused)
{
    EXPECT_EQ(HYThemeSwatchOfCategory(0), 16);   // the catch-all gets the neutral swatch
    for (WORD c = 1; c < 16; ++c) EXPECT_EQ(HYThemeSwatchOfCategory(c), c);
    EXPECT_EQ(HYThemeSwatchOfCategory(16), HYSWATCH_NONE);
    EXPECT_TRUE(HYThemeSetCategorySwatch(3, 9));
    EXPECT_TRUE(HYThemeSetCategorySwatch(15, 16));
    EXPECT_EQ(HYThemeSwatchOfCategory(3), 9);
    EXPECT_EQ(HYThemeSwatchOfCategory(4), 4);   // the neighbours are untouched
    EXPECT_EQ(HYThemeSwatchOfCategory(15), 16);
    for (int bad : { 0, 17, -1 })
        EXPECT_FALSE(HYThemeSetCategorySwatch(2, bad)) << bad;
    EXPECT_FALSE(HYThemeSetCategorySwatch(16, 5));
    EXPECT_EQ(HYThemeSwatchOfCategory(2), 2);
    for (int bad : { 0, 17, -3 })
        EXPECT_EQ(HYThemeSwatchColor(bad), HYThemeFallbackColor()) << bad;
}

TEST_F(ThemeSwatches, SixteenColoursStayApartForCommonColourVisionDeficiencies)
{
    // CIE76 distance in CIELAB after simulation; 15 is far beyond the
    // just-noticeable difference (about 2.3), so two swatches read as two
    // different colours at 12 x 9 pixels.
    const double kMinDeltaE = 15.0;
    const double kMinRgb = 55.0;
    for (int i = 1; i <= 16; ++i)
        for (int j = i + 1; j <= 16; ++j) {
            COLORREF a = HYThemeSwatchColor(i), b = HYThemeSwatchColor(j);
            EXPECT_GE(RgbDistance(a, b), kMinRgb) << "swatches " << i << " and " << j;
            for (int v = 0; v < 4; ++v)
                EXPECT_GE(DeltaE(Seen(a, v), Seen(b, v)), kMinDeltaE)
                    << "swatches " << i << " and " << j << " under " << kViewNames[v];
        }
}

// ---------------------------------------------------------------------------
// Fonts and brushes

TEST(ThemeFonts, FontsAndBrushesAreOneObjectEachOwnedByTheTheme)
{
    for (int which : { HYFONT_STANDARD, HYFONT_CARD_TITLE, HYFONT_CARD_TEXT, HYFONT_PHOTO_CAPTION }) {
        CFont* f = HYThemeGetFont(which);
        ASSERT_NE(f, nullptr) << which;
        EXPECT_EQ(::GetObjectType(f->GetSafeHandle()), (DWORD)OBJ_FONT);
        EXPECT_EQ(HYThemeGetFont(which), f) << which;
    }
    EXPECT_EQ(HYThemeGetFont(99), HYThemeGetFont(HYFONT_STANDARD));
    LOGFONT title = {}, text = {};
    HYThemeGetFont(HYFONT_CARD_TITLE)->GetLogFont(&title);
    HYThemeGetFont(HYFONT_CARD_TEXT)->GetLogFont(&text);
    EXPECT_GT(title.lfWeight, text.lfWeight);

    LOGBRUSH lb = {};
    HYThemeGetFocusBrush()->GetLogBrush(&lb);
    EXPECT_EQ(lb.lbColor, HYThemeGetColor(HYTHEME_FOCUS));
    HYThemeGetRuleBrush()->GetLogBrush(&lb);
    EXPECT_GT(Contrast(lb.lbColor, HYThemeGetColor(HYTHEME_BODY)), 1.3) << "a rule must show on the body";

    auto queryAll = [] {
        for (int w = 0; w <= 5; ++w) HYThemeGetFont(w);
        HYThemeGetFocusBrush();
        HYThemeGetRuleBrush();
    };
    hytest::ObjectGuard guard(queryAll);
    for (int i = 0; i < 100; ++i) queryAll();
    guard.Check("theme font and brush queries");
}

TEST(ThemeFonts, TheFaceIsReallyAvailable)
{
    // The font mapper must not have substituted another face.
    Canvas canvas(8, 8, hytest::kUnpainted);
    LOGFONT lf = {};
    HYThemeGetFont(HYFONT_STANDARD)->GetLogFont(&lf);
    CDCSelect sel(canvas.dc(), HYThemeGetFont(HYFONT_STANDARD));
    CString face;
    canvas.dc().GetTextFace(face);
    EXPECT_STREQ((LPCTSTR)face, lf.lfFaceName);
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
    HYThemeStyle header = {};
    HYThemeGetStyle(HYTHEME_HEADER, &header);
    CRect r(10, 5, 110, 25);
    int h = HYThemeDrawText(&c.dc(), "MWMWMW", -1, &r, DT_SINGLELINE | DT_LEFT | DT_TOP, HYTHEME_HEADER);
    EXPECT_GT(h, 0);
    EXPECT_GT(c.Count(r, header.text), 10);
    // Transparent: no background box around the glyphs.
    EXPECT_EQ(c.Count(CRect(0, 0, 120, 30), RGB(9, 9, 9)), 0);
    EXPECT_EQ(c.Count(CRect(0, 0, 120, 30), RGB(1, 2, 3)), 0);
    // Nothing outside the rectangle.
    EXPECT_EQ(c.Count(CRect(0, 0, 10, 30), header.text), 0);
    EXPECT_EQ(c.dc().GetTextColor(), RGB(1, 2, 3));
    EXPECT_EQ(c.dc().GetBkMode(), OPAQUE);

    // HYTHEME_CURRENT keeps the DC's own colour.
    c.dc().FillSolidRect(&r, RGB(255, 255, 255));
    HYThemeDrawText(&c.dc(), "MWMWMW", -1, &r, DT_SINGLELINE | DT_LEFT | DT_TOP, HYTHEME_CURRENT);
    EXPECT_GT(c.Count(r, RGB(1, 2, 3)), 10);
}

TEST(ThemeDrawing, DropDownLabelDrawsAnArrowAfterTheText)
{
    Canvas c(160, 20, RGB(255, 255, 255));
    CDCSelect font(c.dc(), HYThemeGetFont(HYFONT_STANDARD));
    HYThemeStyle body = {};
    HYThemeGetStyle(HYTHEME_BODY, &body);
    CRect r(0, 0, 160, 20);
    HYThemeDrawDropDownLabel(&c.dc(), "Home", &r, DT_SINGLELINE | DT_VCENTER | DT_RIGHT, HYTHEME_BODY);
    // Right-aligned: the arrow's widest row fills the last 7 columns.
    int y = (20 - 4) / 2;
    EXPECT_TRUE(c.AllPixels(CRect(153, y, 160, y + 1), body.text));
    EXPECT_EQ(c.At(156, y + 3), body.text);  // the tip
    EXPECT_EQ(c.At(153, y + 3), RGB(255, 255, 255));
    // The text sits left of the arrow, clear of it.
    EXPECT_GT(c.Count(CRect(100, 0, 150, 20), body.text), 5);
    EXPECT_EQ(c.Count(CRect(150, 0, 153, 20), body.text), 0);

    // Left-aligned: the arrow follows the text at a 3-pixel gap.
    Canvas l(160, 20, RGB(255, 255, 255));
    CDCSelect font2(l.dc(), HYThemeGetFont(HYFONT_STANDARD));
    HYThemeDrawDropDownLabel(&l.dc(), "Home", &r, DT_SINGLELINE | DT_VCENTER | DT_LEFT, HYTHEME_BODY);
    int textWidth = l.dc().GetTextExtent("Home", 4).cx;
    EXPECT_TRUE(l.AllPixels(CRect(textWidth + 3, y, textWidth + 10, y + 1), body.text));
    EXPECT_EQ(l.Count(CRect(textWidth + 11, 0, 160, 20), body.text), 0);
}

TEST(ThemeDrawing, MaskedFillHatchesInsideTheRectangleOnly)
{
    Canvas c(60, 40, hytest::kUnpainted);
    CRect r(10, 10, 50, 30);
    HYThemeMaskedFill(&c.dc(), &r, HYTHEME_BODY);
    COLORREF fill = HYThemeGetColor(HYTHEME_BODY), hatch = HYThemeShiftColor(fill, -40);
    int nFill = c.Count(r, fill), nHatch = c.Count(r, hatch);
    EXPECT_EQ(nFill + nHatch, r.Width() * r.Height()) << "only the two colours inside";
    EXPECT_GT(nHatch, r.Width() * r.Height() / 16);
    EXPECT_GT(nFill, r.Width() * r.Height() / 2);
    EXPECT_EQ(c.Count(CRect(0, 0, 60, 10), hytest::kUnpainted), 60 * 10);
    EXPECT_EQ(c.Count(CRect(0, 30, 60, 40), hytest::kUnpainted), 60 * 10);
    EXPECT_EQ(c.Count(CRect(0, 10, 10, 30), hytest::kUnpainted), 10 * 20);
    EXPECT_EQ(c.dc().GetBkMode(), OPAQUE);  // the memory DC's default, untouched
}

TEST(ThemeDrawing, FocusMarkIsATwoPixelRingInside)
{
    Canvas c(40, 30, hytest::kUnpainted);
    CRect r(5, 5, 35, 25);
    HYThemeDrawFocusMark(&c.dc(), &r, HYTHEME_FOCUS);
    COLORREF f = HYThemeGetColor(HYTHEME_FOCUS);
    EXPECT_TRUE(c.AllPixels(CRect(5, 5, 35, 7), f));
    EXPECT_TRUE(c.AllPixels(CRect(5, 23, 35, 25), f));
    EXPECT_TRUE(c.AllPixels(CRect(5, 5, 7, 25), f));
    EXPECT_TRUE(c.AllPixels(CRect(33, 5, 35, 25), f));
    EXPECT_TRUE(c.AllPixels(CRect(7, 7, 33, 23), hytest::kUnpainted));
    EXPECT_EQ(c.Count(CRect(0, 0, 40, 30), f), 30 * 20 - 26 * 16);
}

TEST(ThemeDrawing, GradientSlicesJoinAcrossColumns)
{
    HYThemeStyle s = {};
    HYThemeGetStyle(HYTHEME_HEADER, &s);
    const int w = 50;
    Canvas c(3 * w, 10, hytest::kUnpainted);
    for (int part = 0; part < 3; ++part) {
        CRect r(part * w, 0, (part + 1) * w, 10);
        HYThemeFillGradientSlice(&c.dc(), &r, HYTHEME_HEADER, part, 3);
    }
    EXPECT_EQ(c.At(0, 5), s.fill);
    EXPECT_EQ(c.At(3 * w - 1, 5), s.fillEnd);
    // Each column is one colour top to bottom, and neighbouring columns
    // (across slice borders too) differ by at most a small step.
    for (int x = 0; x < 3 * w; ++x) {
        EXPECT_TRUE(c.AllPixels(CRect(x, 0, x + 1, 10), c.At(x, 0))) << x;
        if (x > 0) {
            EXPECT_LE(RgbDistance(c.At(x - 1, 0), c.At(x, 0)), 3.0) << x;
        }
    }
    // The whole-rectangle fill spans the same ramp.
    Canvas whole(w, 4, hytest::kUnpainted);
    CRect r(0, 0, w, 4);
    HYThemeFillStyle(&whole.dc(), &r, HYTHEME_HEADER);
    EXPECT_EQ(whole.At(0, 0), s.fill);
    EXPECT_EQ(whole.At(w - 1, 3), s.fillEnd);
    // A solid element fills flat.
    HYThemeFillStyle(&whole.dc(), &r, HYTHEME_HEADER_SEL);
    EXPECT_TRUE(whole.AllPixels(r, HYThemeGetColor(HYTHEME_HEADER_SEL)));
}

TEST(ThemeDrawing, HeaderDecorationIsASeparatorInTheLineColour)
{
    Canvas c(40, 20, hytest::kUnpainted);
    CRect r(20, 0, 40, 20);
    HYThemeDrawHeaderDecoration(&c.dc(), &r, RGB(0, 0, 0), RGB(10, 200, 30));
    EXPECT_TRUE(c.AllPixels(CRect(20, 3, 21, 17), RGB(10, 200, 30)));
    EXPECT_EQ(c.Count(CRect(0, 0, 40, 20), RGB(10, 200, 30)), 14);
}

namespace {

// A 20 x 20 bitmap with four 10 x 10 quadrants: red, green / blue, white.
HBITMAP MakeQuadrants()
{
    HDC hdc = ::CreateCompatibleDC(NULL);
    BITMAPINFO bi = {};
    bi.bmiHeader.biSize = sizeof(bi.bmiHeader);
    bi.bmiHeader.biWidth = 20;
    bi.bmiHeader.biHeight = -20;
    bi.bmiHeader.biPlanes = 1;
    bi.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    HBITMAP hbm = ::CreateDIBSection(hdc, &bi, DIB_RGB_COLORS, &bits, NULL, 0);
    DWORD* p = static_cast<DWORD*>(bits);
    for (int y = 0; y < 20; ++y)
        for (int x = 0; x < 20; ++x)
            p[y * 20 + x] = y < 10 ? (x < 10 ? 0xFF0000 : 0x00FF00) : (x < 10 ? 0x0000FF : 0xFFFFFF);
    ::DeleteDC(hdc);
    return hbm;
}

}  // namespace

TEST(ThemeBitmaps, PartialBitmapDrawsOnlyThePart)
{
    HBITMAP hbm = MakeQuadrants();
    ASSERT_NE(hbm, nullptr);
    {
        Canvas c(40, 40, hytest::kUnpainted);
        EXPECT_TRUE(HYDrawPartialBitmap(&c.dc(), hbm, 5, 5, 10, 0, 10, 10));  // the green quadrant
        EXPECT_TRUE(c.AllPixels(CRect(5, 5, 15, 15), RGB(0, 255, 0)));
        EXPECT_EQ(c.Count(CRect(0, 0, 40, 40), hytest::kUnpainted), 40 * 40 - 100);

        // A part reaching past the bitmap is clipped to it.
        Canvas d(40, 40, hytest::kUnpainted);
        EXPECT_TRUE(HYDrawPartialBitmap(&d.dc(), hbm, 0, 0, 15, 15, 10, 10));
        EXPECT_TRUE(d.AllPixels(CRect(0, 0, 5, 5), RGB(255, 255, 255)));
        EXPECT_EQ(d.Count(CRect(0, 0, 40, 40), hytest::kUnpainted), 40 * 40 - 25);

        EXPECT_FALSE(HYDrawPartialBitmap(&d.dc(), hbm, 0, 0, 20, 0, 5, 5));
        EXPECT_FALSE(HYDrawPartialBitmap(&d.dc(), hbm, 0, 0, 0, 0, 0, 5));
        EXPECT_FALSE(HYDrawPartialBitmap(&d.dc(), NULL, 0, 0, 0, 0, 5, 5));
    }
    ::DeleteObject(hbm);
}

TEST(ThemeBitmaps, TransparentBitmapLeavesTheKeyColourAlone)
{
    HBITMAP hbm = MakeQuadrants();
    Canvas c(30, 30, RGB(40, 50, 60));
    COLORREF background = RGB(40, 50, 60);
    // Default key: the top-left pixel (red) is transparent.
    EXPECT_TRUE(HYThemeDrawTransparentBitmap(&c.dc(), hbm, 5, 5, HYCLR_TOPLEFT));
    EXPECT_TRUE(c.AllPixels(CRect(5, 5, 15, 15), background));
    EXPECT_TRUE(c.AllPixels(CRect(15, 5, 25, 15), RGB(0, 255, 0)));
    EXPECT_TRUE(c.AllPixels(CRect(5, 15, 15, 25), RGB(0, 0, 255)));
    EXPECT_TRUE(c.AllPixels(CRect(15, 15, 25, 25), RGB(255, 255, 255)));
    // An explicit key.
    Canvas d(30, 30, background);
    EXPECT_TRUE(HYThemeDrawTransparentBitmap(&d.dc(), hbm, 0, 0, RGB(255, 255, 255)));
    EXPECT_TRUE(d.AllPixels(CRect(10, 10, 20, 20), background));
    EXPECT_TRUE(d.AllPixels(CRect(0, 0, 10, 10), RGB(255, 0, 0)));
    // The DC's colours are as they were.
    EXPECT_EQ(d.dc().GetTextColor(), RGB(0, 0, 0));
    EXPECT_EQ(d.dc().GetBkColor(), RGB(255, 255, 255));
    ::DeleteObject(hbm);
}

TEST(ThemeBitmaps, DrawingServicesDoNotLeakGdiObjects)
{
    HBITMAP hbm = MakeQuadrants();
    Canvas c(80, 40, hytest::kUnpainted);
    CRect r(0, 0, 80, 40);
    auto drawAll = [&] {
        CDCSelect font(c.dc(), HYThemeGetFont(HYFONT_CARD_TITLE));
        HYThemeDrawText(&c.dc(), "Text", -1, &r, DT_SINGLELINE, HYTHEME_BODY);
        HYThemeDrawDropDownLabel(&c.dc(), "Menu", &r, DT_SINGLELINE, HYTHEME_BODY);
        HYThemeMaskedFill(&c.dc(), &r, HYTHEME_HEADER);
        HYThemeFillGradientSlice(&c.dc(), &r, HYTHEME_HEADER, 1, 2);
        HYThemeDrawFocusMark(&c.dc(), &r, HYTHEME_FOCUS);
        HYThemeDrawHeaderDecoration(&c.dc(), &r, 0, 0);
        HYThemeDrawTransparentBitmap(&c.dc(), hbm, 1, 1, HYCLR_TOPLEFT);
        HYDrawPartialBitmap(&c.dc(), hbm, 1, 1, 2, 2, 5, 5);
    };
    hytest::ObjectGuard guard(drawAll);
    for (int i = 0; i < 300; ++i) drawAll();
    guard.Check("theme drawing");
    ::DeleteObject(hbm);
}

// ---------------------------------------------------------------------------
// Owner drawing and the export table

namespace {
int g_ownerDrawCalls = 0;
int g_lastElement = 0;
BOOL CALLBACK DrawsEverything(int element, LPDRAWITEMSTRUCT)
{
    ++g_ownerDrawCalls;
    g_lastElement = element;
    return TRUE;
}
}  // namespace

TEST(ThemeOwnerDraw, DeclinesByDefaultSoTheControlDraws)
{
    DRAWITEMSTRUCT dis = {};
    EXPECT_FALSE(HYThemeOwnerDraw(13, &dis));
    EXPECT_FALSE(HYThemeOwnerDraw(13, nullptr));

    EXPECT_EQ(HYThemeSetOwnerDrawProc(DrawsEverything), nullptr);
    g_ownerDrawCalls = 0;
    EXPECT_TRUE(HYThemeOwnerDraw(13, &dis));
    EXPECT_EQ(g_ownerDrawCalls, 1);
    EXPECT_EQ(g_lastElement, 13);
    EXPECT_EQ(HYThemeSetOwnerDrawProc(nullptr), DrawsEverything);
    EXPECT_FALSE(HYThemeOwnerDraw(13, &dis));
}

TEST(ThemeExports, NumberedOperationsAreReachableByOrdinal)
{
    HMODULE host = ::GetModuleHandleA("HyHost.dll");
    ASSERT_NE(host, nullptr);
    struct { int ordinal; FARPROC fn; } table[] = {
        { 108, (FARPROC)&HYThemeShiftColor },       { 115, (FARPROC)&HYThemeGetColor },
        { 116, (FARPROC)&HYThemeGetFont },          { 118, (FARPROC)&HYThemeDrawText },
        { 120, (FARPROC)&HYThemeGetFocusColor },    { 141, (FARPROC)&HYThemeDrawDropDownLabel },
        { 149, (FARPROC)&HYThemeSwatchColor },      { 152, (FARPROC)&HYThemeSwatchOfCategory },
        { 153, (FARPROC)&HYThemeSetCategorySwatch },
    };
    for (const auto& e : table) {
        EXPECT_EQ(::GetProcAddress(host, MAKEINTRESOURCEA(e.ordinal)), e.fn) << "ordinal " << e.ordinal;
    }
    // Through the ordinal, as a host that links by number would call it.
    typedef COLORREF(WINAPI * ColorById)(int);
    auto byNumber = reinterpret_cast<ColorById>(::GetProcAddress(host, MAKEINTRESOURCEA(115)));
    ASSERT_NE(byNumber, nullptr);
    EXPECT_EQ(byNumber(HYTHEME_VIEW), HYThemeGetColor(HYTHEME_VIEW));
    EXPECT_NE(::GetProcAddress(host, "HYDrawPartialBitmap"), nullptr);
}
