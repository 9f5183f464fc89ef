// libFuzzer target for the date-picture parser and scanner.
// Input: a separator byte, then the picture, a line break, the typed text.
#include "HyCalendar.h"
#include "HyDatePicture.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace {

constexpr int kThisYear = 2031;

void Check(bool condition)
{
    if (!condition)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size < 1)
        return 0;
    const char separator = static_cast<char>(data[0]);
    const std::string_view rest(reinterpret_cast<const char*>(data + 1), size - 1);
    const size_t newline = rest.find('\n');
    const std::string_view picture = rest.substr(0, newline);
    const std::string_view text = newline == std::string_view::npos ? std::string_view() : rest.substr(newline + 1);

    hy::PictureDate date;
    if (hy::ParseDatePicture(picture, text, separator, kThisYear, date)) {
        // A parsed date is always a real one: the month has the day, a
        // two-digit year allowing 29 February.
        Check(date.month >= 1 && date.month <= 12);
        Check(date.year >= 0 && date.year <= 9999);
        const int longest = date.year < 100 ? hy::kDaysInMonth[12 + date.month]
                                            : hy::BritishDaysInMonth(date.year, date.month);
        Check(date.day >= 1 && date.day <= longest);
    }
    const std::string separatorText = hy::SeparatorBetween(picture, "dMy", "dMy");
    Check(separatorText.size() <= picture.size());
    const char letter = hy::FirstFieldLetter(picture, "hH");
    Check(letter == 0 || letter == 'h' || letter == 'H');
    return 0;
}
