// The category dialogs' window-free rules and the host kit's file format:
// round trips of the three kinds of file and every way a file is refused.
#include "HyCategoryRules.h"
#include "HyStoreCodec.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Bytes = std::vector<uint8_t>;
using hy::StoreError;

TEST(CategoryRules, CaptionTrimQuestionAndSwatch)
{
    const struct { const char* templ; const char* name; const char* caption; } captions[] = {
        { "%1 Categories", "Work", "Work Categories" },
        { "%1 Categories", "", "Categories" },       // the placeholder and the blank after it go
        { "Edit %1", "", "Edit " },                  // at the very end: only what is there is cut
        { "%1", "", "" },
        { "Categories", "Work", "Categories" },      // no placeholder: whole
    };
    for (const auto& c : captions)
        EXPECT_EQ(hy::CategoryCaption(c.templ, c.name), c.caption) << c.templ << " / " << c.name;

    EXPECT_EQ(hy::TrimCategoryName("  Home  "), "Home  ");
    EXPECT_EQ(hy::TrimCategoryName("   "), "");
    EXPECT_EQ(hy::TrimCategoryName("\tHome"), "\tHome");   // blanks only

    const struct { bool oldSub, targetSub; const char* oldName; const char* target; int id; } questions[] = {
        { false, false, "Work", "Home", 313 }, { false, false, "Work", "Work", 0 },
        { false, false, "Work", "WORK", 313 }, { false, true, "Work", "Home", 423 },
        { true, false, "Work", "Home", 432 },  { true, true, "Work", "Work", 433 },
    };
    for (const auto& q : questions)
        EXPECT_EQ(hy::MergeQuestionId(q.oldSub, q.targetSub, q.oldName, q.target), q.id) << q.oldName << q.target;

    const struct { std::vector<int> used; int swatch; } swatches[] = {
        { {}, 1 }, { { 1, 2, 3 }, 4 }, { { 16 }, 1 }, { { 2, 1, 3, 4, 5, 6, 8, 9, 10, 11, 12, 13, 14, 15, 16 }, 7 },
        { { 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15 }, 15 },
        { { 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16 }, 15 },   // never 16
    };
    for (const auto& s : swatches)
        EXPECT_EQ(hy::NewCategorySwatch(s.used.data(), int(s.used.size())), s.swatch) << s.used.size();
}

// A file of the given magic around a hand-made body, with a correct header.
Bytes File(const char* magic, uint32_t count, const Bytes& body, uint32_t version = 1)
{
    Bytes out(magic, magic + 4);
    auto put = [&](uint32_t v) { for (int i = 0; i < 4; ++i) out.push_back(uint8_t(v >> (8 * i))); };
    put(version);
    put(count);
    put(uint32_t(body.size()));
    put(hy::StoreCrc32(body.data(), body.size()));
    out.insert(out.end(), body.begin(), body.end());
    return out;
}

Bytes Cat(int index, const std::string& name)
{
    Bytes b{ uint8_t(index), uint8_t(name.size()) };
    b.insert(b.end(), name.begin(), name.end());
    return b;
}

Bytes Join(std::initializer_list<Bytes> parts)
{
    Bytes out;
    for (const Bytes& p : parts) out.insert(out.end(), p.begin(), p.end());
    return out;
}

Bytes U32(uint32_t v) { return { uint8_t(v), uint8_t(v >> 8), uint8_t(v >> 16), uint8_t(v >> 24) }; }

Bytes Rec(uint32_t id, uint16_t category, uint8_t flags, const std::string& text, uint32_t length = ~0u)
{
    Bytes b = Join({ U32(id), { uint8_t(category), uint8_t(category >> 8), flags },
                     U32(length == ~0u ? uint32_t(text.size()) : length) });
    b.insert(b.end(), text.begin(), text.end());
    return b;
}

StoreError DecodeAny(char kind, const Bytes& f)
{
    std::vector<hy::StoredCategory> cats;
    hy::StoredRecords recs;
    std::vector<std::string> subs;
    if (kind == 'c') return hy::DecodeCategories(f.data(), f.size(), cats);
    if (kind == 'r') return hy::DecodeRecords(f.data(), f.size(), recs);
    return hy::DecodeSubscriptions(f.data(), f.size(), subs);
}

TEST(StoreCodec, ThreeKindsRoundTripByteForByte)
{
    const std::vector<hy::StoredCategory> cats = { { 0, "Unfiled" }, { 7, "Fifteen chars.." }, { 3, "\xe9t\xe9" } };
    hy::StoredRecords recs;
    recs.nextId = 9;
    recs.records = { { 4, 7, false, "later first" }, { 2, 0, true, "" }, { 8, 15, false, std::string(300, 'x') } };
    const std::vector<std::string> subs = { "Work", "work", "Home" };   // exact text differs

    Bytes a, b;
    ASSERT_EQ(hy::EncodeCategories(cats, a), StoreError::Ok);
    std::vector<hy::StoredCategory> cats2;
    ASSERT_EQ(hy::DecodeCategories(a.data(), a.size(), cats2), StoreError::Ok);
    ASSERT_EQ(cats2.size(), 3u);
    EXPECT_EQ(cats2[1].index * 1000 + int(cats2[1].name.size()), 7015);
    EXPECT_EQ(cats2[2].name, "\xe9t\xe9");
    ASSERT_EQ(hy::EncodeCategories(cats2, b), StoreError::Ok);
    EXPECT_EQ(a, b);

    ASSERT_EQ(hy::EncodeRecords(recs, a), StoreError::Ok);
    hy::StoredRecords recs2;
    ASSERT_EQ(hy::DecodeRecords(a.data(), a.size(), recs2), StoreError::Ok);
    ASSERT_EQ(recs2.records.size(), 3u);
    EXPECT_EQ(recs2.nextId, 9u);
    EXPECT_EQ(recs2.records[0].id * 100 + recs2.records[0].category, 407u);   // order kept
    EXPECT_TRUE(recs2.records[1].deleted);
    EXPECT_FALSE(recs2.records[2].deleted);
    EXPECT_EQ(recs2.records[2].text, recs.records[2].text);
    ASSERT_EQ(hy::EncodeRecords(recs2, b), StoreError::Ok);
    EXPECT_EQ(a, b);

    ASSERT_EQ(hy::EncodeSubscriptions(subs, a), StoreError::Ok);
    std::vector<std::string> subs2;
    ASSERT_EQ(hy::DecodeSubscriptions(a.data(), a.size(), subs2), StoreError::Ok);
    EXPECT_EQ(subs2, subs);
    EXPECT_EQ(File("HYSB", 3, Join({ { 4 }, { 'W', 'o', 'r', 'k' }, { 4 }, { 'w', 'o', 'r', 'k' },
                                     { 4 }, { 'H', 'o', 'm', 'e' } })), a);   // the layout itself
}

TEST(StoreCodec, RefusesCorruptTruncatedAndForeignFiles)
{
    const Bytes good = File("HYCT", 2, Join({ Cat(0, "Unfiled"), Cat(5, "Work") }));
    auto cut = [&](size_t n) { return Bytes(good.begin(), good.begin() + n); };
    auto flip = [&](size_t at) { Bytes b = good; b[at] ^= 0x20; return b; };
    Bytes trailing = good;
    trailing.push_back(0);
    const struct { const char* what; char kind; Bytes file; StoreError error; } cases[] = {
        { "good", 'c', good, StoreError::Ok },
        { "empty", 'c', {}, StoreError::Truncated },
        { "header only", 'c', cut(19), StoreError::Truncated },
        { "body cut", 'c', cut(good.size() - 1), StoreError::Truncated },
        { "trailing byte", 'c', trailing, StoreError::TrailingBytes },
        { "foreign", 'c', flip(0), StoreError::ForeignMagic },
        { "records file", 'c', File("HYRC", 0, U32(1)), StoreError::WrongKind },
        { "categories as records", 'r', good, StoreError::WrongKind },
        { "version 2", 'c', File("HYCT", 1, Cat(0, "Unfiled"), 2), StoreError::BadVersion },
        { "name byte changed", 'c', flip(good.size() - 1), StoreError::BadChecksum },
        { "17 entries", 'c', File("HYCT", 17, Bytes(17 * 3, 1)), StoreError::BadCount },
        { "count past body", 'c', File("HYCT", 9, Cat(0, "Unfiled")), StoreError::BadCount },
        { "count short", 'c', File("HYCT", 3, Join({ Cat(0, "Unfiled"), Cat(2, "A") })), StoreError::Truncated },
        { "entries past count", 'c', File("HYCT", 1, Join({ Cat(0, "Unfiled"), Cat(2, "A") })), StoreError::TrailingBytes },
        { "index 16", 'c', File("HYCT", 2, Join({ Cat(0, "Unfiled"), Cat(16, "A") })), StoreError::BadIndex },
        { "index twice", 'c', File("HYCT", 2, Join({ Cat(0, "Unfiled"), Cat(0, "A") })), StoreError::DuplicateIndex },
        { "16-char name", 'c', File("HYCT", 1, Cat(0, std::string(16, 'n'))), StoreError::BadName },
        { "empty name", 'c', File("HYCT", 2, Join({ Cat(0, "Unfiled"), Cat(1, "") })), StoreError::BadName },
        { "NUL in name", 'c', File("HYCT", 1, Cat(0, std::string("a\0b", 3))), StoreError::BadName },
        { "names equal but case", 'c', File("HYCT", 2, Join({ Cat(0, "Work"), Cat(1, "wORK") })), StoreError::DuplicateName },
        { "no index 0", 'c', File("HYCT", 1, Cat(3, "Work")), StoreError::NoCatchAll },
        { "no next id", 'r', File("HYRC", 0, {}), StoreError::Truncated },
        { "next id 0", 'r', File("HYRC", 0, U32(0)), StoreError::BadRecord },
        { "id 0", 'r', File("HYRC", 1, Join({ U32(5), Rec(0, 1, 0, "a") })), StoreError::BadRecord },
        { "id at next id", 'r', File("HYRC", 1, Join({ U32(5), Rec(5, 1, 0, "a") })), StoreError::BadRecord },
        { "unknown flag", 'r', File("HYRC", 1, Join({ U32(5), Rec(1, 1, 2, "a") })), StoreError::BadRecord },
        { "category 16", 'r', File("HYRC", 1, Join({ U32(5), Rec(1, 16, 0, "a") })), StoreError::BadIndex },
        { "same id twice", 'r', File("HYRC", 2, Join({ U32(5), Rec(3, 1, 0, "a"), Rec(3, 2, 1, "b") })), StoreError::DuplicateId },
        { "text past body", 'r', File("HYRC", 1, Join({ U32(5), Rec(1, 1, 0, "abc", 4) })), StoreError::Truncated },
        { "text over limit", 'r', File("HYRC", 1, Join({ U32(5), Rec(1, 1, 0, "a", 70000) })), StoreError::BadRecord },
        { "same subscription", 's', File("HYSB", 2, Join({ { 1, 'A' }, { 1, 'A' } })), StoreError::DuplicateName },
        { "subscription name cut", 's', File("HYSB", 1, { 5, 'A' }), StoreError::Truncated },
    };
    for (const auto& c : cases)
        EXPECT_EQ(int(DecodeAny(c.kind, c.file)), int(c.error)) << c.what;
}

TEST(StoreCodec, EncodingRefusesWhatDecodingWould)
{
    Bytes out{ 42 };
    EXPECT_EQ(hy::EncodeCategories({ { 1, "Work" } }, out), StoreError::NoCatchAll);
    EXPECT_EQ(hy::EncodeCategories({ { 0, "Unfiled" }, { 1, "UNFILED" } }, out), StoreError::DuplicateName);
    EXPECT_EQ(hy::EncodeSubscriptions({ std::string(16, 's') }, out), StoreError::BadName);
    hy::StoredRecords recs;
    recs.records = { { 1, 0, false, "a" } };   // next id 1 does not lie above id 1
    EXPECT_EQ(hy::EncodeRecords(recs, out), StoreError::BadRecord);
    EXPECT_EQ(out, Bytes{ 42 });   // a refused encoding writes nothing
}

}  // namespace
