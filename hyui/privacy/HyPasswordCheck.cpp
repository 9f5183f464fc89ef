#include "HyPasswordCheck.h"

#include "HyMd5.h"

#include <cstring>

namespace hy {
namespace {

// Our own key material: the first bytes of SHA-512("HyUI scramble table A")
// and of SHA-256("HyUI scramble table B"). A deployment that must accept
// digests written with other tables replaces these two arrays.
const ScrambleTables kDefaultTables = {
    {
        0x57, 0x73, 0xDE, 0x6F, 0x11, 0xC0, 0x06, 0x76, 0x66, 0x12, 0xAD, 0x46, 0x4C, 0x6A, 0x01, 0x80,
        0xBB, 0x26, 0xF2, 0x07, 0xC0, 0xF2, 0x16, 0x18, 0xCB, 0x7F, 0xAE, 0x65, 0x23, 0x1E, 0x1A, 0x5B,
        0x78, 0x5D, 0xD5, 0x12, 0x07, 0xA3, 0xD1, 0x47, 0x11, 0x36, 0x6A, 0x4B, 0x0F, 0x21, 0x8A, 0x13,
        0x4C, 0x2A, 0x89, 0xD7, 0x03, 0x5A, 0xAA, 0x4E, 0x3F, 0x2A, 0xBD, 0xE1, 0x07, 0x36, 0x07, 0xD0,
    },
    {
        0x28, 0x3A, 0x55, 0xB4, 0x71, 0xBC, 0xFE, 0x72, 0x64, 0x79, 0xDA, 0xA3, 0x68, 0xF4, 0x92, 0x7D,
        0x9A, 0x2E, 0xB8, 0x30, 0x92, 0x8A, 0x85, 0x9C, 0x2F, 0xD2, 0x1B, 0xA3, 0x56, 0x01, 0xA8, 0x22,
    },
};

unsigned char RotateRight(unsigned char v, unsigned r)
{
    // Rotates within the byte; r is 0..7.
    return static_cast<unsigned char>((v >> r) | (v << ((8 - r) & 7)));
}

// Compares every byte whatever the first difference, so the time taken says
// nothing about how much of a guess was right.
bool SameBytes(const unsigned char* x, const unsigned char* y, std::size_t n)
{
    unsigned char diff = 0;
    for (std::size_t i = 0; i < n; ++i)
        diff |= static_cast<unsigned char>(x[i] ^ y[i]);
    return diff == 0;
}

}  // namespace

const ScrambleTables& DefaultScrambleTables() { return kDefaultTables; }

void WipeBytes(void* p, std::size_t n)
{
    volatile unsigned char* v = static_cast<volatile unsigned char*>(p);
    while (n--)
        *v++ = 0;
}

void LegacyScramble(unsigned char b[32], int n, const ScrambleTables& t)
{
    if (n < 0 || n > kPasswordMaxChars)
        return;
    if (n <= 4)
    {
        std::memset(b + n, 0, 32 - n);
        const unsigned j = (b[0] + static_cast<unsigned>(n)) % 32;
        for (unsigned p = 0; p < 32; ++p)
            b[p] ^= t.b[(j + p) % 32];
        return;
    }
    // Expand by repeating the text, each copy raised by the length the buffer
    // had before that copy, until all 32 bytes are filled.
    while (n < 32)
    {
        const int k = 2 * n > 32 ? 32 - n : n;
        for (int i = 0; i < k; ++i)
            b[n + i] = static_cast<unsigned char>(b[i] + n);
        n += k;
    }
    // Four mixes; the order of the start positions (2, 16, 24, 8) is intended.
    static const unsigned kStarts[4] = { 2, 16, 24, 8 };
    for (unsigned s : kStarts)
    {
        unsigned i = (b[s] + b[s + 1]) % 64u;
        const unsigned r = (b[s + 2] + b[s + 3]) % 8u;
        unsigned p = s;
        for (int step = 0; step < 32; ++step)
        {
            b[p] ^= RotateRight(t.a[i], r);
            p = (p + 1) % 32;
            i = (i + 1) % 64;
        }
    }
}

int VerifyPassword(const unsigned char* stored, const char* typed, const ScrambleTables& tables)
{
    if (stored == nullptr || typed == nullptr)
        return 0;
    // Reads at most 32 characters of the text, whatever its length.
    std::size_t n = 0;
    while (n < kPasswordDigestBytes && typed[n] != '\0')
        ++n;
    if (n > static_cast<std::size_t>(kPasswordMaxChars))
        return 0;

    unsigned char work[kPasswordDigestBytes] = {};
    unsigned char digest[16];
    std::memcpy(work, typed, n);
    Md5(work, n, digest);   // over the characters only, without the terminating zero
    int match = SameBytes(digest, stored, sizeof digest) ? 1 : 0;
    WipeBytes(digest, sizeof digest);
    if (!match)
    {
        std::memset(work, 0, sizeof work);
        std::memcpy(work, typed, n + 1);   // with its terminating zero this time
        LegacyScramble(work, static_cast<int>(n), tables);
        match = SameBytes(work, stored, sizeof work) ? 1 : 0;
    }
    WipeBytes(work, sizeof work);
    return match;
}

}  // namespace hy

int HyVerifyPassword(const unsigned char* stored, const char* typed)
{
    return hy::VerifyPassword(stored, typed, hy::DefaultScrambleTables());
}
