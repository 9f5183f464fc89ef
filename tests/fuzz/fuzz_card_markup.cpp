// libFuzzer target for the card description markup: any bytes a host passes
// as a description. Every line feed ends exactly one line; a line holds no
// line feed; each "&" of the source line appears doubled; a rule has no text;
// only a wrapped line can be empty (an empty source line becomes a blank).
#include "HyCardMarkup.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace {

void Check(bool condition)
{
    if (!condition)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::string_view description(reinterpret_cast<const char*>(data), size);
    HyCardDescriptionReader reader(description);
    HyCardLine line;
    size_t lines = 0, start = 0;
    while (reader.Next(line)) {
        const size_t end = description.find('\n', start);
        Check(end != std::string_view::npos);
        const std::string_view source = description.substr(start, end - start);
        start = end + 1;
        ++lines;
        Check(line.text.find('\n') == std::string::npos);
        if (line.kind == HyCardLineKind::Rule) {
            Check(line.text.empty());
            continue;
        }
        const auto amps = [](std::string_view s) { return std::count(s.begin(), s.end(), '&'); };
        Check(amps(line.text) == 2 * amps(source));
        Check(!line.text.empty() || line.kind == HyCardLineKind::Wrapped);   // "<W>" alone leaves nothing
    }
    Check(lines == static_cast<size_t>(std::count(description.begin(), description.end(), '\n')));
    return 0;
}
