// RFC 1321's test suite, shared by the native and the Windows tests.
#pragma once

struct Md5Vector { const char* text; const char* hex; };
inline const Md5Vector kMd5Vectors[] = {
    { "", "d41d8cd98f00b204e9800998ecf8427e" },
    { "abc", "900150983cd24fb0d6963f7d28e17f72" },
    { "message digest", "f96b697d7cb7938d525a2f31aaf161d0" },
    { "abcdefghijklmnopqrstuvwxyz", "c3fcd3d76192e4007dfb496cca67e13b" },   // texts a password can be
};
