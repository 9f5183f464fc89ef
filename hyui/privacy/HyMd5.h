// MD5 (RFC 1321) over a byte range: the platform's own implementation behind
// one call (advapi32's MD5Init/MD5Update/MD5Final on Windows, libmd natively).
// Every context is wiped before it returns.
#pragma once

#include <cstddef>

namespace hy {
void Md5(const void* data, std::size_t size, unsigned char digest[16]);
}
