// libFuzzer target for the host kit's file format. Every input is decoded as
// each of the three kinds of file; and, so that mutations reach the entries
// past the checksum, it is also sealed as a body (first byte: kind, next
// four: the count) under a correct header. Whatever decodes must encode to
// the very same bytes.
#include "HyStoreCodec.h"

#include <cstdint>
#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

#define CHECK(condition) ((condition) ? (void)0 : std::abort())

namespace {

void RoundTrip(int kind, const uint8_t* data, size_t size)
{
    std::vector<uint8_t> again;
    if (kind == 0)
    {
        std::vector<hy::StoredCategory> list;
        if (hy::DecodeCategories(data, size, list) != hy::StoreError::Ok) return;
        CHECK(!list.empty() && list.size() <= 16);
        CHECK(hy::EncodeCategories(list, again) == hy::StoreError::Ok);
    }
    else if (kind == 1)
    {
        hy::StoredRecords set;
        if (hy::DecodeRecords(data, size, set) != hy::StoreError::Ok) return;
        CHECK(hy::EncodeRecords(set, again) == hy::StoreError::Ok);
    }
    else
    {
        std::vector<std::string> names;
        if (hy::DecodeSubscriptions(data, size, names) != hy::StoreError::Ok) return;
        CHECK(hy::EncodeSubscriptions(names, again) == hy::StoreError::Ok);
    }
    CHECK(again.size() == size && std::equal(again.begin(), again.end(), data));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    for (int kind = 0; kind < 3; ++kind) RoundTrip(kind, data, size);
    if (size < 5) return 0;
    static const char magics[3][5] = { "HYCT", "HYRC", "HYSB" };
    const int kind = data[0] % 3;
    const size_t length = size - 5;
    const uint32_t crc = hy::StoreCrc32(data + 5, length);
    std::vector<uint8_t> file(magics[kind], magics[kind] + 4);
    const uint32_t header[4] = { 1, uint32_t(data[1] | data[2] << 8 | data[3] << 16 | uint32_t(data[4]) << 24),
                                 uint32_t(length), crc };
    for (uint32_t v : header)
        for (int i = 0; i < 4; ++i) file.push_back(uint8_t(v >> (8 * i)));
    file.insert(file.end(), data + 5, data + size);
    RoundTrip(kind, file.data(), file.size());
    return 0;
}
