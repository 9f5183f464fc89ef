// Private-record passwords without a window: MD5 against the RFC 1321 suite,
// the legacy scramble worked by hand with chosen tables, and the verifier's
// acceptance of either stored form.
#include "HyMd5.h"
#include "HyPasswordCheck.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

namespace {

std::string Hex(const unsigned char* p, size_t n)
{
    static const char digits[] = "0123456789abcdef";
    std::string s;
    for (size_t i = 0; i < n; ++i)
        s += { digits[p[i] >> 4], digits[p[i] & 15] };
    return s;
}

std::string Md5Hex(const std::string& text)
{
    unsigned char d[16];
    hy::Md5(text.data(), text.size(), d);
    return Hex(d, 16);
}

struct Block { unsigned char b[32] = {}; };

Block Scrambled(const std::string& text, const hy::ScrambleTables& t)
{
    Block w;
    std::memcpy(w.b, text.c_str(), text.size() + 1);
    hy::LegacyScramble(w.b, (int)text.size(), t);
    return w;
}

std::string Str(const Block& w) { return std::string((const char*)w.b, 32); }

TEST(PasswordMd5, Rfc1321Suite)
{
    EXPECT_EQ(Md5Hex(""), "d41d8cd98f00b204e9800998ecf8427e");
    EXPECT_EQ(Md5Hex("a"), "0cc175b9c0f1b6a831c399e269772661");
    EXPECT_EQ(Md5Hex("abc"), "900150983cd24fb0d6963f7d28e17f72");
    EXPECT_EQ(Md5Hex("message digest"), "f96b697d7cb7938d525a2f31aaf161d0");
    EXPECT_EQ(Md5Hex("abcdefghijklmnopqrstuvwxyz"), "c3fcd3d76192e4007dfb496cca67e13b");
    EXPECT_EQ(Md5Hex("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789"),
              "d174ab98d277d9f5a5611c2c9f419d9f");
    std::string eighty;
    for (int i = 0; i < 8; ++i)
        eighty += "1234567890";
    EXPECT_EQ(Md5Hex(eighty), "57edf4a22be3c955ac49da2e2107b67a");
}

// "abcde" expands to 5 + 5 (+5) + 10 (+10) + 12 (+20) bytes; an all-zero
// mixing table leaves the expansion as it is.
const char kExpandedAbcde[] = "abcdefghijklmnopqrstuvwxyz{|}~\x7f\x80";

TEST(PasswordScramble, ZeroMixingTableShowsTheExpansion)
{
    const hy::ScrambleTables zero{};
    EXPECT_EQ(Str(Scrambled("abcde", zero)), std::string(kExpandedAbcde, 32));
    // 31 characters: one byte is copied, raised by 31.
    const std::string text(31, 'A');
    EXPECT_EQ(Str(Scrambled(text, zero)), text + char('A' + 31));
}

TEST(PasswordScramble, OneHotMixingTableReachesTheBytesItsIndexMeets)
{
    // Mixes of "abcde" start at 2, 16, 24, 8 with (i, r) = (7, 3), (35, 7),
    // (51, 7), (19, 7). Index 7 is met in the first (p = 2, rotated by 3) and
    // the third (20 steps from 51: p = 12, rotated by 7); never in the others.
    hy::ScrambleTables t{};
    t.a[7] = 0x01;
    std::string expected(kExpandedAbcde, 32);
    expected[2] ^= 0x20;    // 0x01 rotated right by 3
    expected[12] ^= 0x02;   // 0x01 rotated right by 7
    EXPECT_EQ(Str(Scrambled("abcde", t)), expected);

    // Index 2 is met after i wraps past 63: by the second mix 31 steps from
    // 35 (p = 16 + 31 wraps to 15), by the third 15 steps from 51 (p = 24 + 15
    // wraps to 7).
    hy::ScrambleTables u{};
    u.a[2] = 0x80;
    expected.assign(kExpandedAbcde, 32);
    expected[15] ^= 0x01;   // 0x80 rotated right by 7
    expected[7] ^= 0x01;
    EXPECT_EQ(Str(Scrambled("abcde", u)), expected);
}

TEST(PasswordScramble, ShortTextsZeroFillAndUseTheShortTable)
{
    hy::ScrambleTables t{};
    for (int i = 0; i < 32; ++i)
        t.b[i] = (unsigned char)(i + 1);
    // The empty text: j = 0, so the block is table B itself.
    EXPECT_EQ(Str(Scrambled("", t)), Str(Block{ { 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16,
                                                  17, 18, 19, 20, 21, 22, 23, 24, 25, 26, 27, 28, 29, 30, 31, 32 } }));
    // "abcd": j = (97 + 4) mod 32 = 5, so position p takes B[(5 + p) mod 32].
    hy::ScrambleTables one{};
    one.b[5] = 0xFF;
    std::string expected("abcd");
    expected[0] ^= (char)0xFF;
    expected.resize(32, '\0');
    EXPECT_EQ(Str(Scrambled("abcd", one)), expected);
    // Four characters never touch the mixing table; five always expand.
    hy::ScrambleTables a = one;
    a.a[0] = 0x55;
    EXPECT_EQ(Str(Scrambled("abcd", a)), expected);
    EXPECT_EQ(Str(Scrambled("abcde", one)), std::string(kExpandedAbcde, 32));
}

// Digests written by earlier installations with our tables must keep
// verifying: these pin the default tables and the scramble together.
TEST(PasswordScramble, DefaultTablesKeepEarlierDigests)
{
    const hy::ScrambleTables& t = hy::DefaultScrambleTables();
    const Block s5 = Scrambled("secret", t);
    const Block s3 = Scrambled("abc", t);
    EXPECT_EQ(Hex(s5.b, 32), "3f2d92788f3d9a265ba37d1ab81b0ac9b8a0d53dfca193323f97e4cc655e8443");
    EXPECT_EQ(Hex(s3.b, 32), "10de9d726479daa368f4927d9a2eb830928a859c2fd21ba35601a822283a55b4");
}

Block Md5Block(const std::string& text, unsigned char tail)
{
    Block w;
    hy::Md5(text.data(), text.size(), w.b);
    std::memset(w.b + 16, tail, 16);
    return w;
}

TEST(PasswordVerify, AcceptsEitherStoredForm)
{
    const hy::ScrambleTables& t = hy::DefaultScrambleTables();
    // MD5 of the characters alone (RFC value of "abc"): the last 16 bytes are ignored.
    Block abc;
    const unsigned char md5abc[16] = { 0x90, 0x01, 0x50, 0x98, 0x3c, 0xd2, 0x4f, 0xb0,
                                       0xd6, 0x96, 0x3f, 0x7d, 0x28, 0xe1, 0x7f, 0x72 };
    std::memcpy(abc.b, md5abc, 16);
    std::memset(abc.b + 16, 0xA5, 16);
    EXPECT_EQ(HyVerifyPassword(abc.b, "abc"), 1);
    EXPECT_EQ(HyVerifyPassword(abc.b, "abC"), 0);
    EXPECT_EQ(HyVerifyPassword(Md5Block("", 0x11).b, ""), 1);   // an empty text is verified too

    for (const std::string& text : { std::string(), std::string("abcd"), std::string("abcde"), std::string("secret"), std::string(31, 'z') })
    {
        Block s = Scrambled(text, t);
        EXPECT_EQ(HyVerifyPassword(s.b, text.c_str()), 1) << text;
        s.b[31] ^= 1;   // all 32 bytes of the scramble count
        EXPECT_EQ(HyVerifyPassword(s.b, text.c_str()), 0) << text;
        EXPECT_EQ(HyVerifyPassword(Md5Block(text, 0).b, text.c_str()), 1) << text;
        EXPECT_EQ(HyVerifyPassword(Md5Block(text + "x", 0).b, text.c_str()), 0) << text;
    }
}

TEST(PasswordVerify, RefusesNullAndOverlongTexts)
{
    const std::string text(32, 'q');
    const Block m = Md5Block(text, 0);
    EXPECT_EQ(HyVerifyPassword(m.b, text.c_str()), 0);
    EXPECT_EQ(HyVerifyPassword(m.b, (text + text).c_str()), 0);
    EXPECT_EQ(HyVerifyPassword(nullptr, "abc"), 0);
    EXPECT_EQ(HyVerifyPassword(m.b, nullptr), 0);
}

}  // namespace
