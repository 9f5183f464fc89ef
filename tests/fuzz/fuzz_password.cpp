// libFuzzer target for the password verifier: 32 bytes of a stored block,
// then a typed text (to its first zero). Answers are 0 or 1; 32 characters
// or more never verify; a text verifies against its own scramble and MD5.
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
    unsigned char block[32];
    std::memcpy(block, data, 32);
    const std::string text(reinterpret_cast<const char*>(data + 32), size - 32);
    const size_t n = std::strlen(text.c_str());
    const int answer = HyVerifyPassword(block, text.c_str());
    CHECK(n < 32 ? answer == 0 || answer == 1 : answer == 0);
    if (n >= 32)
        return 0;
    std::memset(block, 0, 32);
    std::memcpy(block, text.c_str(), n);
    hy::LegacyScramble(block, static_cast<int>(n), hy::DefaultScrambleTables());
    CHECK(HyVerifyPassword(block, text.c_str()) == 1);
    hy::Md5(text.c_str(), n, block);
    CHECK(HyVerifyPassword(block, text.c_str()) == 1);
    return 0;
}
