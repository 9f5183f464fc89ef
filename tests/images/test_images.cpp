// CxImage over WIC and the fitting helpers: decoding by the given code with
// the depth kept, the decode-bomb cap, copy, crop, resample, raising depth,
// JPEG encoding, and drawing probed pixel by pixel.
#include "hytest_afx.h"
#include "hytest_pictures.h"

namespace {

CxImage Load(const std::string& bytes, DWORD type) { return CxImage((BYTE*)bytes.data(), (DWORD)bytes.size(), type); }

std::string Shape(const CxImage& i)
{
    return !i.IsValid() ? "invalid"
                        : std::to_string(i.GetWidth()) + "x" + std::to_string(i.GetHeight()) + "x" + std::to_string(i.GetBpp());
}

// Mean difference per channel of two pictures drawn at their size.
long MeanError(CxImage& a, CxImage& b)
{
    Canvas x(a.GetWidth(), a.GetHeight()), y(a.GetWidth(), a.GetHeight());
    a.Draw(x.dc(), 0, 0), b.Draw(y.dc(), 0, 0);
    const std::vector<DWORD> p = x.Pixels(), q = y.Pixels();
    long error = 0;
    for (size_t i = 0; i < p.size(); ++i)
        for (int shift : { 0, 8, 16 })
            error += abs((int)((p[i] >> shift) & 255) - (int)((q[i] >> shift) & 255));
    return error / (long)(p.size() * 3);
}

TEST(CxImageTest, DecodesByTheGivenCodeAndKeepsTheDepth)
{
    HRSRC r = ::FindResourceA(nullptr, MAKEINTRESOURCEA(1), (LPCSTR)RT_RCDATA);   // a 12 x 8 grey JPEG
    const std::string grey((const char*)::LockResource(::LoadResource(nullptr, r)), ::SizeofResource(nullptr, r));
    std::string bomb = SampleBmp(4, 4);
    auto* header = reinterpret_cast<BITMAPINFOHEADER*>(&bomb[sizeof(BITMAPFILEHEADER)]);
    header->biWidth = header->biHeight = 30000;   // 900 megapixels claimed in 100 bytes
    const struct { std::string bytes; DWORD type; const char* shape; } cases[] = {
        { SampleBmp(10, 6), 1, "10x6x24" }, { SampleBmp(10, 6, 8), 1, "10x6x8" }, { SampleBmp(9, 5, 4), 1, "9x5x4" },
        { grey, 2, "12x8x8" }, { SampleBmp(10, 6), 2, "invalid" }, { grey, 1, "invalid" },   // no sniffing
        { "not a picture", 1, "invalid" }, { bomb, 1, "invalid" }, { SampleJpeg(10, 6), 7, "invalid" },
    };
    for (const auto& c : cases)
        EXPECT_EQ(Shape(Load(c.bytes, c.type)), c.shape);
    CxImage greyImage = Load(grey, 2), wide = Load(SampleBmp(32, 16, 24, 8), 1), palette = Load(SampleBmp(32, 16, 8, 8), 1);
    // JPEG round trips, within an average of 16 per channel (blocks of 8
    // pixels in eight strong colours); a palette picture is raised in place.
    for (CxImage* image : { &wide, &greyImage, &palette })
    {
        BYTE* bytes = nullptr;
        long size = 0;
        ASSERT_EQ(HyEncodeJPEG(image, bytes, size), 1);
        EXPECT_EQ(std::string((char*)bytes, 2) + std::string((char*)bytes + size - 2, 2), "\xFF\xD8\xFF\xD9");
        CxImage back(bytes, (DWORD)size, 2);
        HyFreeEncodedImage(bytes);
        EXPECT_EQ(Shape(back), Shape(*image));
        EXPECT_LE(MeanError(*image, back), 16);
    }
    EXPECT_EQ(palette.GetBpp(), 24);
    BYTE* none = nullptr;
    long size = 0;
    CxImage empty;
    EXPECT_EQ(HyEncodeJPEG(&empty, none, size) + HyEncodeJPEG(nullptr, none, size), 0);
}

TEST(CxImageTest, CopyCropResampleAndDepth)
{
    CxImage palette = Load(SampleBmp(16, 12, 4), 1), copy(palette), part;
    EXPECT_TRUE(palette.Crop(4, 2, 40, 10, &part));   // clipped to the picture
    EXPECT_TRUE(copy.Resample(8, 6, 1));
    EXPECT_TRUE(palette.IncreaseBpp(24));
    EXPECT_EQ(Shape(part) + " " + Shape(copy) + " " + Shape(palette), "12x8x4 8x6x24 16x12x24");
    EXPECT_FALSE(CxImage().Resample(8, 6) || CxImage().Crop(0, 0, 1, 1) || palette.Crop(5, 5, 5, 9));
    Canvas canvas(16, 12);
    palette.Draw(canvas.dc(), 0, 0);   // the raised picture keeps every colour
    for (int i = 0; i < 16 * 12; i += 7)
        EXPECT_EQ(canvas.At(i % 16, i / 16), SampleColour(i % 16, i / 16)) << i;
}

TEST(CxImageTest, DrawRectImageFitsTheWidthAndCentresByShift)
{
    // picture, target -> the painted pixels
    const struct { int w, h; CRect target, drawn; } cases[] = {
        { 200, 100, { 10, 10, 110, 110 }, { 10, 35, 110, 85 } },
        { 50, 50, { 10, 10, 110, 110 }, { 35, 35, 85, 85 } },
        { 99, 201, { 0, 0, 100, 51 }, { 25, 0, 74, 75 } },   // 49 x 100 from y = -25: the target does not clip
    };
    for (const auto& c : cases)
    {
        CxImage image = Load(SampleBmp(c.w, c.h), 1);
        Canvas canvas(130, 130, RGB(255, 0, 255));
        canvas.dc().SetStretchBltMode(COLORONCOLOR);
        HYDrawRectImage(&canvas.dc(), &image, c.target);
        EXPECT_EQ(canvas.dc().GetStretchBltMode(), COLORONCOLOR);   // the DC as it was
        EXPECT_TRUE(CRect(canvas.Ink(CRect(0, 0, 130, 130), RGB(255, 0, 255))) == c.drawn) << c.w;
        EXPECT_EQ(canvas.Count(c.drawn, RGB(255, 0, 255)), 0);
    }
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
