// Date pictures: reading typed dates in a picture's field order, and the
// separators and letters a picture uses.
#include "HyDatePicture.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

constexpr int kThisYear = 2031;   // what the caller passes as the current year
constexpr int kUntouched = -7;

struct ParseCase
{
    const char* picture;
    const char* text;
    char separator;
    bool ok;
    int year, month, day;   // when ok
};

const ParseCase kParses[] = {
    // the picture's field order
    {"M/d/yyyy", "1/2/2005", '/', true, 2005, 1, 2},
    {"dd.MM.yyyy", "1.2.2005", '.', true, 2005, 2, 1},
    {"yyyy-MM-dd", "2005-12-09", '-', true, 2005, 12, 9},
    {"dddd, MMMM d, yyyy", "3/4/2005", '/', true, 2005, 4, 3},   // first run of each letter
    // a two-digit year is reported as typed; its century is unknown, so 29 February passes
    {"M/d/yyyy", "1/2/03", '/', true, 3, 1, 2},
    {"M/d/yyyy", "1/2/99", '/', true, 99, 1, 2},
    {"M/d/yyyy", "2/29/01", '/', true, 1, 2, 29},
    {"M/d/yyyy", "2/30/01", '/', false},
    // day and month alone: the caller's current year
    {"dd.MM.yyyy", "5.3", '.', true, kThisYear, 3, 5},
    {"yyyy-MM-dd", "3-5", '-', true, kThisYear, 3, 5},
    {"M/d/yyyy", "2/29", '/', false},   // 2031 has no 29 February
    // blanks around fields and one trailing separator
    {"dd.MM.yyyy", " 5 . 3 . 2024. ", '.', true, 2024, 3, 5},
    {"dd.MM.yyyy", "\t5.3.2024", '.', true, 2024, 3, 5},
    {"dd.MM.yyyy", "5.3.2024..", '.', false},
    // leap days on the British calendar
    {"d/M/yyyy", "29/2/2000", '/', true, 2000, 2, 29},
    {"d/M/yyyy", "29/2/1900", '/', false},
    {"d/M/yyyy", "29/2/1700", '/', true, 1700, 2, 29},
    {"d/M/yyyy", "29/2/1701", '/', false},
    // wrong separator, pictures without all three fields
    {"M/d/yyyy", "1.2.2005", '/', false},
    {"MM/yyyy", "1/2/2005", '/', false},
    {"", "1/2/2005", '/', false},
    {"M/d/yyyy", "1/2/2005", '\0', false},
    {"'d'M/d/yyyy", "1/2/2005", '/', true, 2005, 1, 2},   // a quoted letter is no field
};

const char* const kBadTexts[] = {
    "", "   ", "abc", "1/2/2005x", "1/x/2005", "+1/2/2005", "-1/2/2005", "1/2/2005/6", "1/2/3/4",
    "2", "1//2005", "/1/2005", "13/1/2005", "0/1/2005", "1/0/2005", "1/32/2005",
    "2/31/2024", "2/30/2000", "4/31/2024", "1/2/5", "1/2/123", "1/2/20051", "001/2/2005",
    "2/29/2023", "2/29/1900", "1/2//", "1 2/3/2005", "99999999999/1/2005",
};

hy::PictureDate Untouched()
{
    hy::PictureDate d;
    d.year = d.month = d.day = kUntouched;
    return d;
}

} // namespace

TEST(DatePictureParse, ReadsTheFieldsInThePicturesOrder)
{
    for (const ParseCase& c : kParses) {
        hy::PictureDate out = Untouched();
        const bool ok = hy::ParseDatePicture(c.picture, c.text, c.separator, kThisYear, out);
        SCOPED_TRACE(std::string(c.picture) + " | " + c.text);
        EXPECT_EQ(c.ok, ok);
        EXPECT_EQ((c.ok ? std::vector<int>{c.year, c.month, c.day} : std::vector<int>(3, kUntouched)),
                  (std::vector<int>{out.year, out.month, out.day}));
    }
}

TEST(DatePictureParse, BadTextIsRefusedAndLeavesTheOutput)
{
    for (const char* text : kBadTexts) {
        hy::PictureDate out = Untouched();
        EXPECT_FALSE(hy::ParseDatePicture("M/d/yyyy", text, '/', kThisYear, out)) << '"' << text << '"';
        EXPECT_EQ(std::vector<int>(3, kUntouched), (std::vector<int>{out.year, out.month, out.day})) << text;
    }
}

TEST(DatePictureScan, SeparatorsAndLettersComeFromFieldsNotQuotedText)
{
    struct Case { const char* picture; const char* before; const char* after; const char* separator; };
    const Case cases[] = {
        {"M/d/yyyy", "dMy", "dMy", "/"},
        {"dd'. 'MM'. 'yyyy", "dMy", "dMy", ". "},
        {"yyyy'''x'MM", "dMy", "dMy", "'x"},       // '' is one quote
        {"HH:mm:ss", "hH", "m", ":"},
        {"h 'h' mm", "hH", "m", " h "},
        {"dddd", "dMy", "dMy", ""},
        {"d/'unclosed", "dMy", "dMy", ""},
    };
    for (const Case& c : cases)
        EXPECT_EQ(c.separator, hy::SeparatorBetween(c.picture, c.before, c.after)) << c.picture;

    EXPECT_EQ('H', hy::FirstFieldLetter("'h'HH:mm", "hH"));
    EXPECT_EQ('h', hy::FirstFieldLetter("tt h:mm", "hH"));
    EXPECT_EQ(0, hy::FirstFieldLetter("mm:ss", "hH"));
}
