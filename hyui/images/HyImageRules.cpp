#include "HyImageRules.h"

#include <cstring>

namespace hy {
namespace {

int32_t Wrap(int64_t v) { return static_cast<int32_t>(static_cast<uint32_t>(v)); }
int32_t Sub(int32_t a, int32_t b) { return Wrap(static_cast<int64_t>(a) - b); }
int32_t Add(int32_t a, int32_t b) { return Wrap(static_cast<int64_t>(a) + b); }

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool EndsWith(const char* text, size_t n, const char* ext)
{
    for (int i = 0; i < 3; ++i)
        if (Lower(text[n - 3 + i]) != ext[i])
            return false;
    return true;
}

// trunc(limit * side / other + 0.5): the product wraps in 32 bits, the
// division and the half are in double precision, then truncated toward zero.
int32_t ScaledSide(int32_t limit, int32_t side, int32_t other)
{
    const int32_t product = Wrap(static_cast<int64_t>(limit) * side);
    // Through 64 bits: INT32_MIN / -1 + 0.5 does not fit 32 and wraps like the rest.
    return Wrap(static_cast<int64_t>(static_cast<double>(product) / other + 0.5));
}

}  // namespace

ImageType ImageTypeFromUrl(const char* url)
{
    const size_t n = url != nullptr ? std::strlen(url) : 0;
    if (n < 3)
        return kImageNone;
    if (EndsWith(url, n, "jpg"))
        return kImageJpg;
    return EndsWith(url, n, "bmp") ? kImageBmp : kImageNone;
}

std::string DropScheme(const std::string& url)
{
    // The rightmost (length - strlen("http:://") + 1) characters: the literal's
    // extra colon makes that 7 dropped, an arithmetic that is intended.
    const size_t dropped = std::strlen("http:://") - 1;
    return url.size() > dropped ? url.substr(dropped) : std::string();
}

void SplitHostPath(const std::string& rest, std::string& host, std::string& path)
{
    const size_t slash = rest.find('/');
    host = slash == std::string::npos ? std::string() : rest.substr(0, slash);
    path = slash == std::string::npos ? rest : rest.substr(slash);
}

bool ParseContentLength(const char* text, long& length)
{
    length = 0;
    if (text == nullptr)
        return false;
    while (*text == ' ' || (*text >= '\t' && *text <= '\r'))
        ++text;
    const bool negative = *text == '-';
    if (*text == '-' || *text == '+')
        ++text;
    int64_t value = 0;
    for (; *text >= '0' && *text <= '9'; ++text)
    {
        value = value * 10 + (*text - '0');
        if (value > kMaxImageBytes)
            return false;   // too large, however many digits follow
    }
    if (negative && value != 0)
        return false;
    length = static_cast<long>(value);
    return true;
}

int32_t Span(int32_t from, int32_t to) { return Sub(to, from); }

void ScalePropRect(Rect32& r, int32_t limit)
{
    const int32_t w = Span(r.left, r.right), h = Span(r.top, r.bottom);
    if (w <= limit && h <= limit)
        return;
    if (w <= h)
    {
        if (h == 0)
            return;
        r.right = Add(r.left, ScaledSide(limit, w, h));
        r.bottom = Add(r.top, limit);
    }
    else
    {
        if (w == 0)
            return;
        r.right = Add(r.left, limit);
        r.bottom = Add(r.top, ScaledSide(limit, h, w));
    }
}

int32_t CentreOffset(int32_t start, int32_t outer, int32_t inner)
{
    return Add(start, Sub(outer, inner) >> 1);   // an arithmetic shift: -49 >> 1 == -25, intended
}

}  // namespace hy
