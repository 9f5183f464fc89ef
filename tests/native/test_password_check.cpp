// Private-record passwords without a window: MD5 against RFC 1321, the
// legacy scramble worked by hand with chosen tables, and the verifier's
// acceptance of either stored form.
#include "HyMd5.h"
#include "HyPasswordCheck.h"
#include "md5_vectors.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

namespace {

std::string Hex(const unsigned char* p, size_t n)
{
    std::string s;
    for (size_t i = 0; i < n; ++i)
        s += { "0123456789abcdef"[p[i] >> 4], "0123456789abcdef"[p[i] & 15] };
    return s;
}

struct Block { unsigned char b[32] = {}; std::string str() const { return std::string((const char*)b, 32); } };

Block Scrambled(const std::string& text, const hy::ScrambleTables& t)
{
    Block w;
    std::memcpy(w.b, text.c_str(), text.size() + 1);
    hy::LegacyScramble(w.b, (int)text.size(), t);
    return w;
}

Block Md5Block(const std::string& text, unsigned char tail)
{
    Block w;
    hy::Md5(text.data(), text.size(), w.b);
    std::memset(w.b + 16, tail, 16);
    return w;
}

TEST(PasswordCheck, Md5MatchesRfc1321)
{
    for (const Md5Vector& v : kMd5Vectors)
        EXPECT_EQ(Hex(Md5Block(v.text, 0).b, 16), v.hex) << v.text;
}

// "abcde" expands by 5 (+5), 10 (+10) and 12 (+20) bytes.
const std::string kExpanded("abcdefghijklmnopqrstuvwxyz{|}~\x7f\x80", 32);

TEST(PasswordCheck, ScrambleWorkedByHand)
{
    hy::ScrambleTables t{};
    EXPECT_EQ(Scrambled("abcde", t).str(), kExpanded);   // a zero table A leaves the expansion
    // Mixes start at 2, 16, 24, 8 with (i, r) = (7, 3), (35, 7), (51, 7), (19, 7):
    // index 2 is met at p = 15 and p = 7 once i wraps past 63, index 7 at p = 2 and p = 12.
    t.a[2] = 0x80;
    t.a[7] = 0x01;
    std::string mixed = kExpanded;
    mixed[15] ^= 0x01, mixed[7] ^= 0x01, mixed[2] ^= 0x20, mixed[12] ^= 0x02;   // rotated right by 7, 7, 3, 7
    EXPECT_EQ(Scrambled("abcde", t).str(), mixed);
    // Four characters or fewer: zero fill, then table B from (b[0] + n) mod 32.
    t.b[5] = 0xFF;
    std::string shortText("abcd");
    shortText.resize(32, '\0');
    shortText[0] ^= (char)0xFF;   // j = (97 + 4) mod 32 = 5
    EXPECT_EQ(Scrambled("abcd", t).str(), shortText);
    // Digests written with our tables must keep verifying.
    EXPECT_EQ(Hex(Scrambled("secret", hy::DefaultScrambleTables()).b, 32),
              "3f2d92788f3d9a265ba37d1ab81b0ac9b8a0d53dfca193323f97e4cc655e8443");
}

// (The fuzz target checks that every text verifies against its own scramble and MD5.)
TEST(PasswordCheck, VerifierRefusesWhatDoesNotMatchInFull)
{
    Block s = Scrambled("secret", hy::DefaultScrambleTables());
    s.b[31] ^= 1;   // all 32 bytes of a scramble count
    EXPECT_EQ(HyVerifyPassword(s.b, "secret"), 0);
    EXPECT_EQ(HyVerifyPassword(Md5Block("secret", 0xA5).b, "secret"), 1);   // an MD5 block's tail does not
    EXPECT_EQ(HyVerifyPassword(Md5Block("secret", 0).b, "secreT"), 0);
    const std::string tooLong(32, 'q');
    EXPECT_EQ(HyVerifyPassword(Md5Block(tooLong, 0).b, tooLong.c_str()), 0);
    EXPECT_EQ(HyVerifyPassword(nullptr, ""), 0);
    EXPECT_EQ(HyVerifyPassword(s.b, nullptr), 0);
}

}  // namespace
