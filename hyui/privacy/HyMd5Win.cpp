// MD5 through advapi32, which exports MD5Init/MD5Update/MD5Final without a
// header: the context layout below is the one those calls use. MD5Final
// leaves the digest inside the context.
#include "HyMd5.h"
#include "HyPasswordCheck.h"

#include <windows.h>

#include <cstring>

namespace {
struct Md5Context
{
    ULONG count[2];
    ULONG state[4];
    unsigned char input[64];
    unsigned char digest[16];
};
}  // namespace

extern "C" {
void WINAPI MD5Init(Md5Context* context);
void WINAPI MD5Update(Md5Context* context, const unsigned char* input, unsigned int size);
void WINAPI MD5Final(Md5Context* context);
}

namespace hy {
void Md5(const void* data, std::size_t size, unsigned char digest[16])
{
    Md5Context context;
    MD5Init(&context);
    MD5Update(&context, static_cast<const unsigned char*>(data), static_cast<unsigned int>(size));
    MD5Final(&context);
    std::memcpy(digest, context.digest, 16);
    WipeBytes(&context, sizeof context);
}
}  // namespace hy
