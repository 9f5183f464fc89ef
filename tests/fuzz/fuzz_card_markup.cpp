// libFuzzer target for the card description markup: any bytes a host passes
// as a description. Every line feed ends exactly one line; a line holds no
// line feed; each "&" of the source line appears doubled; a rule has no text;
// only a wrapped line can be empty (an empty source line becomes a blank).
#include "HyCardMarkup.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#define CHECK(condition) ((condition) ? (void)0 : std::abort())

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::string_view description(reinterpret_cast<const char*>(data), size);
    const auto amps = [](std::string_view s) { return std::count(s.begin(), s.end(), '&'); };
    HyCardDescriptionReader reader(description);
    HyCardLine line;
    size_t start = 0;
    while (reader.Next(line)) {
        const size_t end = description.find('\n', start);
        CHECK(end != std::string_view::npos && line.text.find('\n') == std::string::npos);
        const bool rule = line.kind == HyCardLineKind::Rule;
        CHECK(rule ? line.text.empty() : amps(line.text) == 2 * amps(description.substr(start, end - start)));
        CHECK(!line.text.empty() || rule || line.kind == HyCardLineKind::Wrapped);   // "<W>" alone leaves nothing
        start = end + 1;
    }
    CHECK(description.find('\n', start) == std::string_view::npos);   // no line feed left unread
    return 0;
}
