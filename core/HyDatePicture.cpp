#include "HyDatePicture.h"

#include "HyCalendar.h"

#include <cstring>

namespace {

constexpr int kMaxFields = 16;
constexpr int kMaxPieces = 3;

bool IsLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

// Reads a quoted literal starting after its opening quote; answers the index
// after the closing quote (or the end).
size_t ReadQuoted(std::string_view picture, size_t i, std::string& literal)
{
    while (i < picture.size()) {
        if (picture[i] != '\'') {
            literal += picture[i++];
            continue;
        }
        if (i + 1 < picture.size() && picture[i + 1] == '\'') {
            literal += '\'';
            i += 2;
            continue;
        }
        return i + 1;
    }
    return i;
}

std::string_view Trim(std::string_view s)
{
    while (!s.empty() && (s.front() == ' ' || s.front() == '\t'))
        s.remove_prefix(1);
    while (!s.empty() && (s.back() == ' ' || s.back() == '\t'))
        s.remove_suffix(1);
    return s;
}

// Digits only, 1 to 4 of them; -1 for anything else.
int ReadNumber(std::string_view piece, int& digits)
{
    if (piece.empty() || piece.size() > 4)
        return -1;
    int value = 0;
    for (char c : piece) {
        if (c < '0' || c > '9')
            return -1;
        value = value * 10 + (c - '0');
    }
    digits = static_cast<int>(piece.size());
    return value;
}

// The order of the first d, M and y runs; false unless all three occur.
bool FieldOrder(std::string_view picture, char order[3])
{
    hy::PictureField fields[kMaxFields];
    std::string literals[kMaxFields];
    const int count = hy::ScanPicture(picture, fields, literals, kMaxFields);
    int found = 0;
    for (int i = 0; i < count && found < 3; ++i) {
        const char c = fields[i].letter;
        if ((c == 'd' || c == 'M' || c == 'y') && std::memchr(order, c, found) == nullptr)
            order[found++] = c;
    }
    return found == 3;
}

// Splits text at the separator into two or three trimmed pieces, allowing
// one trailing separator; answers the piece count, 0 when it is not 2 or 3.
int SplitPieces(std::string_view text, char separator, std::string_view pieces[kMaxPieces + 1])
{
    int count = 0;
    size_t start = 0;
    for (size_t i = 0;; ++i) {
        const bool end = i == text.size();
        if (!end && text[i] != separator)
            continue;
        if (count == kMaxPieces + 1)
            return 0;
        pieces[count++] = Trim(text.substr(start, i - start));
        start = i + 1;
        if (end)
            break;
    }
    if (count > 1 && pieces[count - 1].empty())
        --count;   // one trailing separator ("5.3.2024." in some locales)
    return count == 2 || count == 3 ? count : 0;
}

} // namespace

namespace hy {

int ScanPicture(std::string_view picture, PictureField* fields, std::string* literals, int maxFields)
{
    int count = 0;
    std::string literal;
    for (size_t i = 0; i < picture.size();) {
        const char c = picture[i];
        if (c == '\'') {
            i = ReadQuoted(picture, i + 1, literal);
            continue;
        }
        if (!IsLetter(c)) {
            literal += c;
            ++i;
            continue;
        }
        const size_t start = i;
        while (i < picture.size() && picture[i] == c)
            ++i;
        if (count < maxFields) {
            fields[count] = PictureField{c, static_cast<int>(start), static_cast<int>(i)};
            literals[count] = literal;
            ++count;
        }
        literal.clear();
    }
    return count;
}

std::string SeparatorBetween(std::string_view picture, const char* before, const char* after)
{
    PictureField fields[kMaxFields];
    std::string literals[kMaxFields];
    const int count = ScanPicture(picture, fields, literals, kMaxFields);
    for (int i = 0; i + 1 < count; ++i)
        if (std::strchr(before, fields[i].letter) != nullptr && std::strchr(after, fields[i + 1].letter) != nullptr)
            return literals[i + 1];
    return std::string();
}

char FirstFieldLetter(std::string_view picture, const char* letters)
{
    PictureField fields[kMaxFields];
    std::string literals[kMaxFields];
    const int count = ScanPicture(picture, fields, literals, kMaxFields);
    for (int i = 0; i < count; ++i)
        if (std::strchr(letters, fields[i].letter) != nullptr)
            return fields[i].letter;
    return 0;
}

bool ParseDatePicture(std::string_view picture, std::string_view text, char separator, int currentYear,
                      PictureDate& out)
{
    char order[3];
    std::string_view pieces[kMaxPieces + 1];
    if (separator == 0 || !FieldOrder(picture, order))
        return false;
    const int pieceCount = SplitPieces(text, separator, pieces);
    if (pieceCount == 0)
        return false;

    PictureDate date;
    int yearDigits = 4, piece = 0;
    date.year = currentYear;   // replaced when the text has a year
    for (char field : order) {
        if (field == 'y' && pieceCount == 2)
            continue;
        int digits = 0;
        const int value = ReadNumber(pieces[piece++], digits);
        if (value < 0 || (field == 'y' ? digits != 2 && digits != 4 : digits > 2))
            return false;
        (field == 'd' ? date.day : field == 'M' ? date.month : date.year) = value;
        if (field == 'y')
            yearDigits = digits;
    }

    if (date.month < 1 || date.month > 12 || date.day < 1)
        return false;
    // A two-digit year's century is the caller's choice, so 29 February
    // passes then and is judged once the full year is known.
    const int length = yearDigits == 2 ? kDaysInMonth[12 + date.month] : BritishDaysInMonth(date.year, date.month);
    if (date.day > length)
        return false;
    out = date;
    return true;
}

} // namespace hy
