// libFuzzer target for the password verifier: the first 32 bytes are a
// stored block, the rest a typed text (up to its first zero). The verifier
// answers 0 or 1, refuses 32 characters or more, and accepts the text against
// its own scramble and against its MD5 whatever the block's last 16 bytes.
#include "HyMd5.h"
#include "HyPasswordCheck.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#define CHECK(condition) ((condition) ? (void)0 : std::abort())

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size < 32)
        return 0;
    unsigned char stored[32];
    std::memcpy(stored, data, 32);
    const std::string text(reinterpret_cast<const char*>(data + 32), size - 32);
    const char* typed = text.c_str();
    const size_t n = std::strlen(typed);

    const int answer = HyVerifyPassword(stored, typed);
    CHECK(answer == 0 || answer == 1);
    if (n >= 32)
    {
        CHECK(answer == 0);
        return 0;
    }
    unsigned char own[32] = {};
    std::memcpy(own, typed, n + 1);
    hy::LegacyScramble(own, static_cast<int>(n), hy::DefaultScrambleTables());
    CHECK(HyVerifyPassword(own, typed) == 1);
    hy::Md5(typed, n, stored);
    CHECK(HyVerifyPassword(stored, typed) == 1);
    return 0;
}
