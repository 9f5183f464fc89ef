// MD5 through libmd, for the native build of the platform-free code.
#include "HyMd5.h"
#include "HyPasswordCheck.h"

#include <md5.h>

namespace hy {
void Md5(const void* data, std::size_t size, unsigned char digest[16])
{
    MD5_CTX context;
    MD5Init(&context);
    MD5Update(&context, static_cast<const unsigned char*>(data), size);
    MD5Final(digest, &context);
    WipeBytes(&context, sizeof context);
}
}  // namespace hy
