// The host kit's file format: one layout for its three kinds of file (a
// component's categories, a component's records, a subscription list).
//
//   offset  size  field
//   0       4     magic: "HYCT" categories, "HYRC" records, "HYSB" subscriptions
//   4       4     version (1)
//   8       4     number of entries
//   12      4     body length in bytes (the rest of the file, exactly)
//   16      4     CRC-32 (IEEE, reflected, as zip) of the body
//   20      ...   body
//
// All numbers little-endian. Bodies, entry after entry:
//   categories:    index u8 (0..15), name length u8 (1..15), name
//   records:       next id u32 first; then id u32, category u16 (0..15),
//                  flags u8 (bit 0: deleted), text length u32, text
//   subscriptions: name length u8 (1..15), name
// Names and texts are ANSI bytes without NUL. A category file holds index 0;
// its names differ ignoring ASCII case. Record ids are non-zero, distinct and
// below the next id. Subscription names differ as exact text.
//
// Decoding refuses anything else with an error and never reads past the
// buffer; encoding refuses what decoding would refuse, so a save can never
// write a file that a later open turns away.
#pragma once
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace hy {

enum class StoreError
{
    Ok = 0,
    Truncated,        // shorter than its header or its body says
    ForeignMagic,     // not a file of this system
    WrongKind,        // a file of this system, of another kind
    BadVersion,
    BadChecksum,
    TrailingBytes,    // bytes after the body, or a body longer than its entries
    BadCount,         // more entries than the kind allows
    BadIndex,         // a category index outside 0..15
    DuplicateIndex,
    BadName,          // empty, over 15 bytes, or with a NUL
    DuplicateName,
    NoCatchAll,       // a category file without index 0
    BadRecord,        // id 0 or not below the next id, unknown flags, over-long text
    DuplicateId,
};

struct StoredCategory
{
    int index;
    std::string name;
};

struct StoredRecord
{
    uint32_t id;
    uint16_t category;
    bool deleted;
    std::string text;
};

struct StoredRecords
{
    uint32_t nextId = 1;
    std::vector<StoredRecord> records;
};

constexpr int kStoreMaxCategories = 16;
constexpr size_t kStoreMaxName = 15;
constexpr size_t kStoreMaxText = 65535;
constexpr size_t kStoreHeaderSize = 20;

StoreError EncodeCategories(const std::vector<StoredCategory>& in, std::vector<uint8_t>& out);
StoreError DecodeCategories(const uint8_t* data, size_t size, std::vector<StoredCategory>& out);
StoreError EncodeRecords(const StoredRecords& in, std::vector<uint8_t>& out);
StoreError DecodeRecords(const uint8_t* data, size_t size, StoredRecords& out);
StoreError EncodeSubscriptions(const std::vector<std::string>& in, std::vector<uint8_t>& out);
StoreError DecodeSubscriptions(const uint8_t* data, size_t size, std::vector<std::string>& out);

// True when two names are equal ignoring the case of ASCII letters.
bool SameNameIgnoringCase(const std::string& a, const std::string& b);
uint32_t StoreCrc32(const uint8_t* data, size_t size);

}  // namespace hy
