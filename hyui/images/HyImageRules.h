// Photos without a window: which picture type a url names, how a url is cut
// into host and path, what a Content-Length header allows us to allocate,
// and the proportional fitting and centring of a picture in a rectangle.
// Platform-free; HyImageHelpers.cpp calls these and does the HTTP and GDI.
#pragma once

#include <cstdint>
#include <string>

namespace hy {

// CxImage's format codes.
enum ImageType : int
{
    kImageNone = 0,
    kImageBmp = 1,
    kImageJpg = 2,
};

// By the url's last three characters, ignoring case: "jpg" or "bmp"; else none.
ImageType ImageTypeFromUrl(const char* url);

// What is left of a url once its first seven characters (the "http://" it is
// assumed to start with) are dropped, whatever they are; empty when shorter.
std::string DropScheme(const std::string& url);

// Splits at the first "/": the host before it, the path from it on. Without
// one the host is empty and the path is all of it.
void SplitHostPath(const std::string& rest, std::string& host, std::string& path);

// The largest body we accept (16 MiB).
constexpr long kMaxImageBytes = 16L * 1024 * 1024;
// Reads a Content-Length value as atol does (leading blanks, a sign, digits up
// to the first other character; none reads as 0), but refuses (false) a
// negative value or one above kMaxImageBytes instead of wrapping.
bool ParseContentLength(const char* text, long& length);

// Rectangles in signed 32-bit pixels; arithmetic on them wraps, as 32-bit
// machine arithmetic does, instead of overflowing.
struct Rect32
{
    int32_t left, top, right, bottom;
};

// Shrinks rect to fit a square of `limit` pixels, keeping its proportions and
// its top-left corner; never enlarges. The scaled side is
// trunc(limit * side / other + 0.5), the product in 32 bits. A zero divisor
// (possible only with a negative limit) leaves the rect as it is.
void ScalePropRect(Rect32& rect, int32_t limit);

// to - from, wrapping as 32-bit arithmetic does.
int32_t Span(int32_t from, int32_t to);

// Where a span of `inner` pixels starts when centred in `outer` pixels from
// `start`: half the difference by arithmetic shift, so halves round toward
// minus infinity (-49 >> 1 == -25).
int32_t CentreOffset(int32_t start, int32_t outer, int32_t inner);

}  // namespace hy
