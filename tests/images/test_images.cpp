// CxImage over WIC and the fitting helpers: decoding by the given code with
// the depth kept, the decode-bomb cap, copy, crop, resample, raising depth,
// JPEG encoding, and drawing probed pixel by pixel.
#include "HyImageHelpers.h"
#include "hytest_afx.h"
#include "image_samples.h"

namespace {

CxImage Load(const std::string& bytes, DWORD type) { return CxImage((BYTE*)bytes.data(), (DWORD)bytes.size(), type); }

std::string GreyJpeg()
{
    HRSRC r = ::FindResourceA(nullptr, MAKEINTRESOURCEA(1), (LPCSTR)RT_RCDATA);
    return std::string((const char*)::LockResource(::LoadResource(nullptr, r)), ::SizeofResource(nullptr, r));
}

std::string Shape(const CxImage& i)
{
    return i.IsValid() ? std::to_string(i.GetWidth()) + "x" + std::to_string(i.GetHeight()) + "x" +
                             std::to_string(i.GetBpp())
                       : "invalid";
}

TEST(CxImageTest, DecodesByTheGivenCodeAndKeepsTheDepth)
{
    std::string bomb = SampleBmp(4, 4);
    reinterpret_cast<BITMAPINFOHEADER*>(&bomb[sizeof(BITMAPFILEHEADER)])->biWidth = 30000;   // 30000 x 30000 claimed
    reinterpret_cast<BITMAPINFOHEADER*>(&bomb[sizeof(BITMAPFILEHEADER)])->biHeight = 30000;
    const struct { std::string bytes; DWORD type; const char* shape; } cases[] = {
        { SampleBmp(10, 6), 1, "10x6x24" }, { SampleBmp(10, 6, 8), 1, "10x6x8" }, { SampleBmp(9, 5, 4), 1, "9x5x4" },
        { GreyJpeg(), 2, "12x8x8" },
        { SampleBmp(10, 6), 2, "invalid" },   // no sniffing
        { GreyJpeg(), 1, "invalid" }, { "not a picture", 1, "invalid" }, { bomb, 1, "invalid" },
    };
    for (const auto& c : cases)
        EXPECT_EQ(Shape(Load(c.bytes, c.type)), c.shape);
    EXPECT_EQ(Shape(CxImage(nullptr, 10, 1)), "invalid");
}

TEST(CxImageTest, CopyCropResampleAndDepth)
{
    CxImage palette = Load(SampleBmp(16, 12, 4), 1), copy(palette), part;
    EXPECT_TRUE(palette.Crop(4, 2, 40, 10, &part));   // clipped to the picture
    EXPECT_EQ(Shape(part), "12x8x4");
    EXPECT_TRUE(copy.Resample(8, 6, 1));
    EXPECT_EQ(Shape(copy) + " " + Shape(palette), "8x6x24 16x12x4");   // the original is untouched
    EXPECT_TRUE(palette.IncreaseBpp(24));
    EXPECT_EQ(Shape(palette), "16x12x24");
    EXPECT_FALSE(CxImage().Resample(8, 6) || CxImage().Crop(0, 0, 1, 1) || palette.Crop(5, 5, 5, 9));
    Canvas canvas(16, 12);
    palette.Draw(canvas.dc(), 0, 0);   // the raised picture keeps every colour
    for (int y = 0; y < 12; y += 3)
        for (int x = 0; x < 16; x += 5)
            EXPECT_EQ(canvas.At(x, y), SampleColour(x, y)) << x << "," << y;
}

TEST(CxImageTest, JpegEncodingOfTrueColourGreyAndPalettes)
{
    CxImage wide = Load(SampleBmp(32, 16, 24, 8), 1), grey = Load(GreyJpeg(), 2),
            palette = Load(SampleBmp(32, 16, 8, 8), 1);
    for (CxImage* image : { &wide, &grey, &palette })
    {
        BYTE* bytes = nullptr;
        long size = 0;
        ASSERT_EQ(HyEncodeJPEG(image, bytes, size), 1);
        ASSERT_GT(size, 4);
        EXPECT_EQ(bytes[0] * 256 + bytes[1], 0xFFD8);
        EXPECT_EQ(bytes[size - 2] * 256 + bytes[size - 1], 0xFFD9);
        CxImage back(bytes, (DWORD)size, 2);
        HyFreeEncodedImage(bytes);
        EXPECT_EQ(Shape(back), Shape(*image));
        // The stated error: on average at most 16 per channel over the picture
        // (blocks of 8 pixels in eight contrasting colours).
        Canvas a(32, 16), b(32, 16);
        image->Draw(a.dc(), 0, 0), back.Draw(b.dc(), 0, 0);
        long error = 0;
        for (int y = 0; y < 16; ++y)
            for (int x = 0; x < 32; ++x)
                for (int shift : { 0, 8, 16 })
                    error += abs((int)((a.At(x, y) >> shift) & 255) - (int)((b.At(x, y) >> shift) & 255));
        EXPECT_LE(error / (32 * 16 * 3), 16);
    }
    EXPECT_EQ(palette.GetBpp(), 24);   // raised in place
    BYTE* none = nullptr;
    long size = 0;
    CxImage empty;
    EXPECT_EQ(HyEncodeJPEG(&empty, none, size), 0);
    EXPECT_EQ(HyEncodeJPEG(nullptr, none, size), 0);
}

std::string Str(const RECT& r)
{
    return std::to_string(r.left) + "," + std::to_string(r.top) + "," + std::to_string(r.right) + "," + std::to_string(r.bottom);
}

TEST(CxImageTest, DrawRectImageFitsTheWidthAndCentresByShift)
{
    // picture, target -> where it lands (l, t, r, b of the painted pixels)
    const struct { int w, h; RECT target; RECT drawn; } cases[] = {
        { 200, 100, { 10, 10, 110, 110 }, { 10, 35, 110, 85 } },
        { 50, 50, { 10, 10, 110, 110 }, { 35, 35, 85, 85 } },
        { 99, 201, { 0, 0, 100, 51 }, { 25, 0, 74, 75 } },   // 49 x 100 from y = -25: the target does not clip
    };
    for (const auto& c : cases)
    {
        CxImage image = Load(SampleBmp(c.w, c.h), 1);
        Canvas canvas(130, 130, RGB(255, 0, 255));
        const int mode = canvas.dc().SetStretchBltMode(COLORONCOLOR);
        HYDrawRectImage(&canvas.dc(), &image, c.target);
        EXPECT_EQ(canvas.dc().GetStretchBltMode(), COLORONCOLOR);   // the DC as it was
        canvas.dc().SetStretchBltMode(mode);
        const RECT ink = canvas.Ink(CRect(0, 0, 130, 130), RGB(255, 0, 255));
        EXPECT_EQ(Str(ink), Str(c.drawn));
        EXPECT_EQ(canvas.Count(c.drawn, RGB(255, 0, 255)), 0);
    }
    CRect r(0, 0, 3, 2);
    HYScalePropRect(r, 2);
    EXPECT_EQ(r, CRect(0, 0, 2, 1));
}

TEST(CxImageTest, ObjectCountsStayFlat)
{
    const std::string bytes = SampleBmp(64, 48, 8);
    CxImage image = Load(bytes, 1);
    Canvas canvas(100, 100);
    RunRepeated([&] { for (int i = 0; i < 1000; ++i) HYDrawRectImage(&canvas.dc(), &image, CRect(0, 0, 96, 96)); });
    RunRepeated([&] { for (int i = 0; i < 100; ++i) { CxImage a = Load(bytes, 1), b(a); b.Resample(20, 15); } });
}

}  // namespace
