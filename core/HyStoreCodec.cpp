#include "HyStoreCodec.h"

#include <algorithm>
#include <cstring>

namespace hy {
namespace {

const char kMagics[3][5] = { "HYCT", "HYRC", "HYSB" };
constexpr uint32_t kVersion = 1;
enum Kind { kCategories = 0, kRecords = 1, kSubscriptions = 2 };

// Smallest encoded entry of each kind: a bound for the header's count before
// anything is reserved.
constexpr size_t kMinEntry[3] = { 3, 11, 2 };
constexpr size_t kMaxEntries[3] = { kStoreMaxCategories, 0xFFFFFFFFu, kStoreMaxCategories };

void PutU32(std::vector<uint8_t>& out, uint32_t v)
{
    for (int i = 0; i < 4; ++i) out.push_back(uint8_t(v >> (8 * i)));
}

uint32_t GetU32(const uint8_t* p)
{
    return uint32_t(p[0]) | uint32_t(p[1]) << 8 | uint32_t(p[2]) << 16 | uint32_t(p[3]) << 24;
}

// A bounded reader over the body: every Take checks what is left first.
struct Reader
{
    const uint8_t* p;
    size_t left;
    bool Take(size_t n, const uint8_t*& at)
    {
        if (n > left) return false;
        at = p;
        p += n;
        left -= n;
        return true;
    }
};

bool ValidName(const std::string& name)
{
    return !name.empty() && name.size() <= kStoreMaxName && name.find('\0') == std::string::npos;
}

void Seal(Kind kind, uint32_t count, std::vector<uint8_t>& body, std::vector<uint8_t>& out)
{
    out.clear();
    out.reserve(kStoreHeaderSize + body.size());
    out.insert(out.end(), kMagics[kind], kMagics[kind] + 4);
    PutU32(out, kVersion);
    PutU32(out, count);
    PutU32(out, uint32_t(body.size()));
    PutU32(out, StoreCrc32(body.data(), body.size()));
    out.insert(out.end(), body.begin(), body.end());
}

// Checks the header; on success the reader covers the body and count is set.
StoreError Open(Kind kind, const uint8_t* data, size_t size, Reader& body, uint32_t& count)
{
    if (data == nullptr || size < kStoreHeaderSize) return StoreError::Truncated;
    if (std::memcmp(data, kMagics[kind], 4) != 0)
    {
        for (const char* magic : kMagics)
            if (std::memcmp(data, magic, 4) == 0) return StoreError::WrongKind;
        return StoreError::ForeignMagic;
    }
    if (GetU32(data + 4) != kVersion) return StoreError::BadVersion;
    count = GetU32(data + 8);
    const uint32_t length = GetU32(data + 12);
    const size_t available = size - kStoreHeaderSize;
    if (length > available) return StoreError::Truncated;
    if (length < available) return StoreError::TrailingBytes;
    if (StoreCrc32(data + kStoreHeaderSize, length) != GetU32(data + 16)) return StoreError::BadChecksum;
    if (count > kMaxEntries[kind] || count > length / kMinEntry[kind]) return StoreError::BadCount;
    body = Reader{ data + kStoreHeaderSize, length };
    return StoreError::Ok;
}

bool ReadName(Reader& r, std::string& name)
{
    const uint8_t* at = nullptr;
    if (!r.Take(1, at)) return false;
    const size_t n = *at;
    if (!r.Take(n, at)) return false;
    name.assign(reinterpret_cast<const char*>(at), n);
    return true;
}

StoreError CheckCategories(const std::vector<StoredCategory>& list)
{
    if (list.size() > size_t(kStoreMaxCategories)) return StoreError::BadCount;
    bool seen[kStoreMaxCategories] = {};
    for (size_t i = 0; i < list.size(); ++i)
    {
        const StoredCategory& c = list[i];
        if (c.index < 0 || c.index >= kStoreMaxCategories) return StoreError::BadIndex;
        if (seen[c.index]) return StoreError::DuplicateIndex;
        seen[c.index] = true;
        if (!ValidName(c.name)) return StoreError::BadName;
        for (size_t j = 0; j < i; ++j)
            if (SameNameIgnoringCase(list[j].name, c.name)) return StoreError::DuplicateName;
    }
    return seen[0] ? StoreError::Ok : StoreError::NoCatchAll;
}

StoreError CheckRecords(const StoredRecords& in)
{
    if (in.nextId == 0 || in.records.size() > 0xFFFFFFFFu) return StoreError::BadRecord;
    std::vector<uint32_t> ids;
    ids.reserve(in.records.size());
    for (const StoredRecord& r : in.records)
    {
        if (r.category >= kStoreMaxCategories) return StoreError::BadIndex;
        if (r.id == 0 || r.id >= in.nextId || r.text.size() > kStoreMaxText ||
            r.text.find('\0') != std::string::npos)
            return StoreError::BadRecord;
        ids.push_back(r.id);
    }
    std::sort(ids.begin(), ids.end());
    return std::adjacent_find(ids.begin(), ids.end()) != ids.end() ? StoreError::DuplicateId : StoreError::Ok;
}

StoreError CheckSubscriptions(const std::vector<std::string>& names)
{
    if (names.size() > size_t(kStoreMaxCategories)) return StoreError::BadCount;
    for (size_t i = 0; i < names.size(); ++i)
    {
        if (!ValidName(names[i])) return StoreError::BadName;
        for (size_t j = 0; j < i; ++j)
            if (names[j] == names[i]) return StoreError::DuplicateName;   // exact text, deliberately
    }
    return StoreError::Ok;
}

}  // namespace

uint32_t StoreCrc32(const uint8_t* data, size_t size)
{
    uint32_t crc = 0xFFFFFFFFu;
    for (size_t i = 0; i < size; ++i)
    {
        crc ^= data[i];
        for (int bit = 0; bit < 8; ++bit) crc = (crc >> 1) ^ (0xEDB88320u & (0u - (crc & 1u)));
    }
    return ~crc;
}

bool SameNameIgnoringCase(const std::string& a, const std::string& b)
{
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i)
    {
        char x = a[i], y = b[i];
        if (x >= 'a' && x <= 'z') x = char(x - 'a' + 'A');
        if (y >= 'a' && y <= 'z') y = char(y - 'a' + 'A');
        if (x != y) return false;
    }
    return true;
}

StoreError EncodeCategories(const std::vector<StoredCategory>& in, std::vector<uint8_t>& out)
{
    const StoreError e = CheckCategories(in);
    if (e != StoreError::Ok) return e;
    std::vector<uint8_t> body;
    for (const StoredCategory& c : in)
    {
        body.push_back(uint8_t(c.index));
        body.push_back(uint8_t(c.name.size()));
        body.insert(body.end(), c.name.begin(), c.name.end());
    }
    Seal(kCategories, uint32_t(in.size()), body, out);
    return StoreError::Ok;
}

StoreError DecodeCategories(const uint8_t* data, size_t size, std::vector<StoredCategory>& out)
{
    Reader r{};
    uint32_t count = 0;
    StoreError e = Open(kCategories, data, size, r, count);
    if (e != StoreError::Ok) return e;
    std::vector<StoredCategory> list;
    list.reserve(count);
    for (uint32_t i = 0; i < count; ++i)
    {
        const uint8_t* at = nullptr;
        StoredCategory c{};
        if (!r.Take(1, at)) return StoreError::Truncated;
        c.index = *at;
        if (!ReadName(r, c.name)) return StoreError::Truncated;
        list.push_back(c);
    }
    if (r.left != 0) return StoreError::TrailingBytes;
    e = CheckCategories(list);
    if (e == StoreError::Ok) out.swap(list);
    return e;
}

StoreError EncodeRecords(const StoredRecords& in, std::vector<uint8_t>& out)
{
    const StoreError e = CheckRecords(in);
    if (e != StoreError::Ok) return e;
    std::vector<uint8_t> body;
    PutU32(body, in.nextId);
    for (const StoredRecord& r : in.records)
    {
        PutU32(body, r.id);
        body.push_back(uint8_t(r.category));
        body.push_back(uint8_t(r.category >> 8));
        body.push_back(r.deleted ? 1 : 0);
        PutU32(body, uint32_t(r.text.size()));
        body.insert(body.end(), r.text.begin(), r.text.end());
    }
    Seal(kRecords, uint32_t(in.records.size()), body, out);
    return StoreError::Ok;
}

StoreError DecodeRecords(const uint8_t* data, size_t size, StoredRecords& out)
{
    Reader r{};
    uint32_t count = 0;
    StoreError e = Open(kRecords, data, size, r, count);
    if (e != StoreError::Ok) return e;
    StoredRecords set;
    const uint8_t* at = nullptr;
    if (!r.Take(4, at)) return StoreError::Truncated;
    set.nextId = GetU32(at);
    set.records.reserve(count);
    for (uint32_t i = 0; i < count; ++i)
    {
        StoredRecord rec{};
        if (!r.Take(11, at)) return StoreError::Truncated;
        rec.id = GetU32(at);
        rec.category = uint16_t(at[4] | at[5] << 8);
        if (at[6] > 1) return StoreError::BadRecord;   // unknown flag bits
        rec.deleted = at[6] == 1;
        const uint32_t length = GetU32(at + 7);
        if (length > kStoreMaxText) return StoreError::BadRecord;
        if (!r.Take(length, at)) return StoreError::Truncated;
        rec.text.assign(reinterpret_cast<const char*>(at), length);
        set.records.push_back(std::move(rec));
    }
    if (r.left != 0) return StoreError::TrailingBytes;
    e = CheckRecords(set);
    if (e == StoreError::Ok) out = std::move(set);
    return e;
}

StoreError EncodeSubscriptions(const std::vector<std::string>& in, std::vector<uint8_t>& out)
{
    const StoreError e = CheckSubscriptions(in);
    if (e != StoreError::Ok) return e;
    std::vector<uint8_t> body;
    for (const std::string& name : in)
    {
        body.push_back(uint8_t(name.size()));
        body.insert(body.end(), name.begin(), name.end());
    }
    Seal(kSubscriptions, uint32_t(in.size()), body, out);
    return StoreError::Ok;
}

StoreError DecodeSubscriptions(const uint8_t* data, size_t size, std::vector<std::string>& out)
{
    Reader r{};
    uint32_t count = 0;
    StoreError e = Open(kSubscriptions, data, size, r, count);
    if (e != StoreError::Ok) return e;
    std::vector<std::string> names(count);
    for (std::string& name : names)
        if (!ReadName(r, name)) return StoreError::Truncated;
    if (r.left != 0) return StoreError::TrailingBytes;
    e = CheckSubscriptions(names);
    if (e == StoreError::Ok) out.swap(names);
    return e;
}

}  // namespace hy
