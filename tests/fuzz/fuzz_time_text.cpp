// libFuzzer target for time text: any bytes pasted into a time field, under
// fuzzed regional rules. Bytes 0-2 choose the clock and marks, pmBefore and
// the separator's length (0-3, taken from the next bytes); the rest is the
// text. Whenever the text reads as valid: hours and minutes are not
// negative, minutes are a multiple of 5 and 100 x hours + minutes <= 2355. A
// rewritten text reads again without being rewritten a second time.
#include "HyTimeText.h"

#include <cstdint>
#include <cstdlib>
#include <string>

#define CHECK(condition) ((condition) ? (void)0 : std::abort())

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size < 3)
        return 0;
    const size_t separator = data[2] % 4 < size - 3 ? data[2] % 4 : size - 3;
    const HyTimeRules rules{ std::string(reinterpret_cast<const char*>(data + 3), separator), "AM", "PM",
                             (data[0] & 1) != 0, data[1] % 32 - 4 };
    HyTimeFields fields{ (data[0] & 8) ? -1 : 0, 0, false, (data[0] & 2) != 0, (data[0] & 4) != 0 };
    const std::string text(reinterpret_cast<const char*>(data + 3 + separator), size - 3 - separator);
    const HyTimeRead read = hy::ReadTime(text, rules, fields);
    if (fields.valid)
        CHECK(fields.hours >= 0 && fields.minutes >= 0 && fields.minutes % 5 == 0 &&
              (int64_t)fields.hours * 100 + fields.minutes <= 2355);
    HyTimeFields again = fields;   // no second rewrite, but where no separator can show
    CHECK(read.change != HyTimeTextChange::Rewritten || rules.separator.empty() || rules.separator[0] == '\0' ||
          hy::ReadTime(read.text, rules, again).change != HyTimeTextChange::Rewritten);
    return 0;
}
