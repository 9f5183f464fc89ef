#include "HyCardMarkup.h"

namespace {

constexpr std::string_view kWrap = "<W>";
constexpr std::string_view kRule = "<L>";

void AppendDoublingAmpersands(std::string& out, std::string_view text)
{
    out.reserve(out.size() + text.size());
    for (const char c : text) {
        out += c;
        if (c == '&')
            out += '&';
    }
}

}  // namespace

bool HyCardDescriptionReader::Next(HyCardLine& line)
{
    const size_t end = m_rest.find('\n');
    if (end == std::string_view::npos)
        return false;
    std::string_view raw = m_rest.substr(0, end);
    m_rest.remove_prefix(end + 1);

    line.text.clear();
    if (raw.empty()) {
        line.kind = HyCardLineKind::Plain;   // a blank keeps the line's height
        line.text.assign(1, ' ');
        return true;
    }
    // "<W>" is deleted before the tab test, so a tabbed line loses it too.
    bool wrapped = false;
    const size_t wrap = raw.find(kWrap);
    if (wrap != std::string_view::npos) {
        wrapped = true;
        AppendDoublingAmpersands(line.text, raw.substr(0, wrap));
        AppendDoublingAmpersands(line.text, raw.substr(wrap + kWrap.size()));
    } else {
        AppendDoublingAmpersands(line.text, raw);
    }
    if (raw.find('\t') != std::string_view::npos)
        line.kind = HyCardLineKind::Tabbed;
    else if (wrapped)
        line.kind = HyCardLineKind::Wrapped;   // tested before "<L>": its "<L>" is text
    else if (raw.find(kRule) != std::string_view::npos) {
        line.kind = HyCardLineKind::Rule;
        line.text.clear();
    } else
        line.kind = HyCardLineKind::Plain;
    return true;
}
