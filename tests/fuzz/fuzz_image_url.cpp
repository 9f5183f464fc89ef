// libFuzzer target for what a download reads from outside: byte 0 chooses
// between a url and a Content-Length value, the rest is the text. A url's
// host and path put together give back what is left after the scheme, the
// host holds no "/", a path is empty or starts with "/"; a length, when
// accepted, is between 0 and the cap; fitting any rectangle (bytes 1-20)
// never enlarges it toward the limit.
#include "HyImageRules.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#define CHECK(condition) ((condition) ? (void)0 : std::abort())

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size < 21)
        return 0;
    const std::string text(reinterpret_cast<const char*>(data + 21), size - 21);
    if (data[0] & 1)
    {
        long n = -1;
        if (hy::ParseContentLength(text.c_str(), n))
            CHECK(n >= 0 && n <= hy::kMaxImageBytes);
    }
    else
    {
        const std::string rest = hy::DropScheme(text);
        std::string host, path;
        hy::SplitHostPath(rest, host, path);
        CHECK(host + path == rest && host.find('/') == std::string::npos);
        CHECK(host.empty() ? path == rest : path[0] == '/');
        (void)hy::ImageTypeFromUrl(text.c_str());
    }
    int32_t v[5];
    std::memcpy(v, data + 1, sizeof v);
    hy::Rect32 r{ v[0], v[1], v[2], v[3] };
    const hy::Rect32 before = r;
    hy::ScalePropRect(r, v[4]);
    CHECK(r.left == before.left && r.top == before.top);
    (void)hy::CentreOffset(v[0], v[1], v[2]);
    return 0;
}
