// Private-record passwords without a window: the verifier that accepts either
// form of a stored digest (MD5 of the password, or the legacy 32-byte
// scramble), the scramble itself, and a wipe the optimiser keeps.
// Platform-free; the dialogs (HyPasswordDlg.h) call these.
#pragma once

#include "HyUIExport.h"

#include <cstddef>

namespace hy {

constexpr int kPasswordDigestBytes = 32;   // the host's stored block
constexpr int kPasswordMaxChars = 31;      // longer texts never verify

// Key material of the legacy scramble (docs/privacy.md says where a
// deployment that must read older digests puts its own).
struct ScrambleTables
{
    unsigned char a[64];   // mixing table, passwords of five characters or more
    unsigned char b[32];   // short-password table, four characters or fewer
};
const ScrambleTables& DefaultScrambleTables();

// Scrambles `work`, which holds a text of n characters (0 <= n <= 31) and its
// terminating zero, in place into 32 significant bytes.
void LegacyScramble(unsigned char work[32], int n, const ScrambleTables& tables);

// 1 when `typed` matches `stored` (32 bytes) in either form, else 0; null
// pointers and texts of 32 characters or more give 0. Leaves no copy of the
// text or of a digest behind.
int VerifyPassword(const unsigned char* stored, const char* typed, const ScrambleTables& tables);

// Overwrites n bytes with zeros through a volatile pointer, so that the
// compiler cannot drop it as a dead store.
void WipeBytes(void* p, std::size_t n);

}  // namespace hy

// The exported verifier, with the default tables: 1 on a match, 0 otherwise.
HYUI_API int HyVerifyPassword(const unsigned char* stored, const char* typed);
