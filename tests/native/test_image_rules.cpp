// Photos without a window: the url's type, host and path; what a
// Content-Length allows; proportional fitting and centring, including the
// inputs that wrap 32-bit arithmetic.
#include "HyImageRules.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>

namespace {

TEST(ImageRules, UrlTypeHostAndPath)
{
    // url -> type, host, path
    const struct { const char* url; hy::ImageType type; const char* host; const char* path; } cases[] = {
        { "http://photos.test/a/ann.jpg", hy::kImageJpg, "photos.test", "/a/ann.jpg" },
        { "http://photos.test/ANN.JPG", hy::kImageJpg, "photos.test", "/ANN.JPG" },
        { "https://photos.test/b.bmp", hy::kImageBmp, "", "/photos.test/b.bmp" },   // 7 characters, whatever they are
        { "ftp://xphotos.test/c.Bmp", hy::kImageBmp, "photos.test", "/c.Bmp" },
        { "http://photos.test", hy::kImageNone, "", "photos.test" },               // no "/": the host is empty
        { "a.jpeg", hy::kImageNone, "", "" },
        { "b.jpg", hy::kImageJpg, "", "" },                                        // under 8 characters
        { "http://p.test/x.jpg?x=1", hy::kImageNone, "p.test", "/x.jpg?x=1" },
        { "", hy::kImageNone, "", "" },
    };
    for (const auto& c : cases)
    {
        std::string host, path;
        hy::SplitHostPath(hy::DropScheme(c.url), host, path);
        EXPECT_EQ(hy::ImageTypeFromUrl(c.url), c.type) << c.url;
        EXPECT_EQ(host + " " + path, std::string(c.host) + " " + c.path) << c.url;
    }
    EXPECT_EQ(hy::ImageTypeFromUrl(nullptr), hy::kImageNone);
}

TEST(ImageRules, ContentLengthIsReadLikeAtolButNeverWraps)
{
    // text -> accepted length, or "refused"
    const struct { const char* text; const char* length; } cases[] = {
        { "1234", "1234" }, { "  +77x", "77" }, { "0", "0" }, { "abc", "0" }, { "", "0" }, { "-0", "0" },
        { "16777216", "16777216" }, { "16777217", "refused" }, { "-1", "refused" }, { "4294967297", "refused" },
        { "1234567890123456789012345678901234567890", "refused" },
    };
    for (const auto& c : cases)
    {
        long n = 99;
        const bool accepted = hy::ParseContentLength(c.text, n);
        EXPECT_EQ(accepted ? std::to_string(n) : "refused", c.length) << c.text;
    }
}

hy::Rect32 Scaled(hy::Rect32 r, int limit) { return (hy::ScalePropRect(r, limit), r); }
std::string Str(const hy::Rect32& r)
{
    return std::to_string(r.left) + "," + std::to_string(r.top) + "," + std::to_string(r.right) + "," +
           std::to_string(r.bottom);
}

TEST(ImageRules, FittingKeepsProportionsAndTheCorner)
{
    // rect, limit -> rect
    const struct { hy::Rect32 in; int limit; const char* out; } cases[] = {
        { { 0, 0, 100, 50 }, 40, "0,0,40,20" },
        { { 10, 20, 60, 120 }, 40, "10,20,30,60" },
        { { 0, 0, 30, 20 }, 40, "0,0,30,20" },          // never enlarged
        { { 0, 0, 3, 2 }, 2, "0,0,2,1" },               // 1.33 + 0.5, truncated
        { { 0, 0, 7, 4 }, 5, "0,0,5,3" },               // 2.86 + 0.5: rounds to nearest
        { { 0, 0, 99, 201 }, 100, "0,0,49,100" },
        { { 0, 0, 0, 0 }, -5, "0,0,0,0" },              // zero divisor: left alone
        { { 0, 0, 70000, 70000 }, 70000, "0,0,70000,70000" },
        { { 0, 0, 65536, 131072 }, 65536, "0,0,0,65536" },   // 65536 * 65536 wraps to 0
        { { INT_MAX, 0, INT_MIN, 10 }, 5, "2147483647,0,-2147483648,5" },   // width 1 across the wrap
    };
    for (const auto& c : cases)
        EXPECT_EQ(Str(Scaled(c.in, c.limit)), c.out) << Str(c.in) << " " << c.limit;
    EXPECT_EQ(hy::CentreOffset(0, 51, 100), -25);   // not -24
    EXPECT_EQ(hy::CentreOffset(10, 100, 49), 35);
    EXPECT_EQ(hy::CentreOffset(INT_MAX, 2, 0), INT_MIN);
}

}  // namespace
