// Date and time pictures of the regional settings ("M/d/yyyy", "HH:mm",
// "dd'.'MM'.'yyyy") and the parser of dates typed in a picture's field
// order. Platform-free: the caller reads the locale and passes the pictures.
#pragma once

#include <string>
#include <string_view>

namespace hy {

// One field of a picture: a run of the same pattern letter.
struct PictureField
{
    char letter = 0;
    int start = 0;   // index of the run's first letter in the picture
    int end = 0;     // one past its last letter
};

// Splits a picture into its letter runs (at most maxFields) and the literal
// text in front of each run: quotes removed, '' read as one quote, an
// unclosed quote running to the end. Answers the number of fields.
int ScanPicture(std::string_view picture, PictureField* fields, std::string* literals, int maxFields);

// The literal text in front of the first field with one of the letters in
// `after` that directly follows a field with one of the letters in `before`;
// empty when there is none.
std::string SeparatorBetween(std::string_view picture, const char* before, const char* after);

// The first letter among `letters` that the picture uses as a field, or 0.
char FirstFieldLetter(std::string_view picture, const char* letters);

struct PictureDate
{
    int year = -1;
    int month = -1;
    int day = -1;
};

// Parses text written in the picture's field order (the first run of each of
// d, M and y) with fields split by `separator`. Day and month take 1 or 2
// digits, the year 2 or 4 and is reported as typed (a two-digit year stays
// below 100). Two fields are the day and month in picture order, and the
// year is then currentYear. Blanks and tabs around fields and one trailing
// separator are allowed. A month must have the day, 29 February counting
// as possible for a two-digit year (its century is the caller's choice) and
// following the British leap rule for a four-digit one. Answers false, with
// `out` untouched, for anything else.
bool ParseDatePicture(std::string_view picture, std::string_view text, char separator, int currentYear,
                      PictureDate& out);

} // namespace hy
