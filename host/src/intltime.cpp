// CIntlTime: regional date and time rules read from the user's locale at every
// call, so a change in the regional settings applies at once.
#include <afxwin.h>
#include "HyIntlTime.h"

#include <string.h>

namespace {

CString LocaleString(LCID lcid, LCTYPE type)
{
    char buf[128];
    int n = ::GetLocaleInfoA(lcid, type, buf, sizeof buf);
    return n > 0 ? CString(buf) : CString();
}

// One field of a picture: a run of the same pattern letter.
struct PictureField
{
    char letter = 0;
    int start = 0;       // index of the run's first letter in the picture
    int end = 0;         // one past its last letter
};

// Splits a locale picture into its letter runs and the literal text that
// precedes each run (quotes removed, '' read as one quote).
int ScanPicture(const CString& picture, PictureField* fields, CString* literals, int maxFields)
{
    int count = 0;
    CString literal;
    const int len = picture.GetLength();
    for (int i = 0; i < len;)
    {
        char c = picture[i];
        if (c == '\'')
        {
            ++i;
            while (i < len)
            {
                if (picture[i] == '\'')
                {
                    if (i + 1 < len && picture[i + 1] == '\'')
                    {
                        literal += '\'';
                        i += 2;
                        continue;
                    }
                    ++i;
                    break;
                }
                literal += picture[i++];
            }
            continue;
        }
        if ((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'))
        {
            int start = i;
            while (i < len && picture[i] == c)
                ++i;
            if (count < maxFields)
            {
                fields[count].letter = c;
                fields[count].start = start;
                fields[count].end = i;
                literals[count] = literal;
                ++count;
            }
            literal.Empty();
            continue;
        }
        literal += c;
        ++i;
    }
    return count;
}

// The literal text in front of the first field with one of the letters in
// `after` that follows a field with one of the letters in `before`.
CString SeparatorBetween(const CString& picture, const char* before, const char* after)
{
    PictureField fields[16];
    CString literals[16];
    int count = ScanPicture(picture, fields, literals, 16);
    for (int i = 0; i + 1 < count; ++i)
        if (strchr(before, fields[i].letter) != nullptr && strchr(after, fields[i + 1].letter) != nullptr)
            return literals[i + 1];
    return CString();
}

bool IsLeapYear(int year)
{
    // Every fourth year up to the 1752 calendar reform, the Gregorian rule after it.
    if (year <= 1752)
        return year % 4 == 0;
    return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

// Digits only, without blanks; -1 for anything else.
int ReadNumber(const CString& piece, int* pDigits)
{
    const int len = piece.GetLength();
    if (len == 0 || len > 4)
        return -1;
    int value = 0;
    for (int i = 0; i < len; ++i)
    {
        char c = piece[i];
        if (c < '0' || c > '9')
            return -1;
        value = value * 10 + (c - '0');
    }
    *pDigits = len;
    return value;
}

bool ToSystemTime(const CTime& time, SYSTEMTIME& st)
{
    return time.GetAsSystemTime(st) != FALSE;
}

}  // namespace

CIntlTime::CIntlTime() : CTime(CTime::GetCurrentTime()) {}
CIntlTime::CIntlTime(const CTime& time) : CTime(time) {}
CIntlTime::CIntlTime(__time64_t time) : CTime(time) {}
CIntlTime::CIntlTime(int nYear, int nMonth, int nDay, int nHour, int nMin, int nSec, int nDST)
    : CTime(nYear, nMonth, nDay, nHour, nMin, nSec, nDST)
{
}

const CIntlTime& CIntlTime::operator=(const CTime& time)
{
    CTime::operator=(time.GetTime());
    return *this;
}

BOOL CIntlTime::Is24HrFormat()
{
    // The picture decides (H is the 24-hour letter, h the 12-hour one); the
    // separate clock flag only when the picture has no hour at all.
    CString picture = LocaleString(LOCALE_USER_DEFAULT, LOCALE_STIMEFORMAT);
    PictureField fields[16];
    CString literals[16];
    int count = ScanPicture(picture, fields, literals, 16);
    for (int i = 0; i < count; ++i)
    {
        if (fields[i].letter == 'H')
            return TRUE;
        if (fields[i].letter == 'h')
            return FALSE;
    }
    return LocaleString(LOCALE_USER_DEFAULT, LOCALE_ITIME) == "1";
}

// The separator the user's picture puts between two kinds of fields; else
// the locale's separator value; else the usual one.
static CString UserSeparator(LCTYPE pictureType, const char* before, const char* after,
                             LCTYPE separatorType, const char* usual)
{
    CString sep = SeparatorBetween(LocaleString(LOCALE_USER_DEFAULT, pictureType), before, after);
    if (sep.IsEmpty())
        sep = LocaleString(LOCALE_USER_DEFAULT, separatorType);
    return sep.IsEmpty() ? CString(usual) : sep;
}

CString CIntlTime::GetTimeSeperator()
{
    return UserSeparator(LOCALE_STIMEFORMAT, "hH", "m", LOCALE_STIME, ":");
}

void CIntlTime::GetTimeSeperator(CString& rSeparator) { rSeparator = GetTimeSeperator(); }

CString CIntlTime::GetDateSeperator()
{
    return UserSeparator(LOCALE_SSHORTDATE, "dMy", "dMy", LOCALE_SDATE, "/");
}

void CIntlTime::GetDateSeperator(CString& rSeparator) { rSeparator = GetDateSeperator(); }

CString CIntlTime::GetDateFormat(int nFormat, int bUserLocale)
{
    LCID lcid = bUserLocale ? LOCALE_USER_DEFAULT : LOCALE_SYSTEM_DEFAULT;
    return LocaleString(lcid, nFormat == HYINTL_LONGDATE ? LOCALE_SLONGDATE : LOCALE_SSHORTDATE);
}

int CIntlTime::ParseDateFromFormat(LPCTSTR lpszPicture, LPCTSTR lpszText, TCHAR chSeparator,
                                   int* pYear, int* pMonth, int* pDay)
{
    if (lpszPicture == nullptr || lpszText == nullptr || chSeparator == 0 ||
        pYear == nullptr || pMonth == nullptr || pDay == nullptr)
        return 0;

    // Field order: the first run of each of d, M and y in the picture.
    char order[3];
    int orderCount = 0;
    {
        PictureField fields[16];
        CString literals[16];
        int count = ScanPicture(lpszPicture, fields, literals, 16);
        for (int i = 0; i < count && orderCount < 3; ++i)
        {
            char c = fields[i].letter;
            if ((c == 'd' || c == 'M' || c == 'y') && memchr(order, c, orderCount) == nullptr)
                order[orderCount++] = c;
        }
    }
    if (orderCount != 3)
        return 0;

    // Pieces between separators, blanks trimmed.
    CString pieces[4];
    int pieceCount = 0;
    CString current;
    for (const char* p = lpszText;; ++p)
    {
        if (*p == chSeparator || *p == '\0')
        {
            if (pieceCount == 4)
                return 0;
            current.TrimLeft(" \t");
            current.TrimRight(" \t");
            pieces[pieceCount++] = current;
            current.Empty();
            if (*p == '\0')
                break;
            continue;
        }
        current += *p;
    }
    if (pieceCount > 1 && pieces[pieceCount - 1].IsEmpty())
        --pieceCount;   // one trailing separator ("5.3.2024." in some locales)
    if (pieceCount != 2 && pieceCount != 3)
        return 0;

    int year = -1, month = -1, day = -1, yearDigits = 0;
    int piece = 0;
    for (int i = 0; i < 3; ++i)
    {
        if (order[i] == 'y' && pieceCount == 2)
            continue;
        int digits = 0;
        int value = ReadNumber(pieces[piece++], &digits);
        if (value < 0)
            return 0;
        switch (order[i])
        {
        case 'd':
            if (digits > 2) return 0;
            day = value;
            break;
        case 'M':
            if (digits > 2) return 0;
            month = value;
            break;
        default:
            if (digits != 2 && digits != 4) return 0;
            year = value;
            yearDigits = digits;
            break;
        }
    }
    if (pieceCount == 2)
    {
        year = CTime::GetCurrentTime().GetYear();
        yearDigits = 4;
    }

    static const int kDays[12] = { 31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31 };
    if (month < 1 || month > 12 || day < 1 || day > kDays[month - 1])
        return 0;
    // A two-digit year's century is the caller's choice, so 29 February
    // passes here and is judged once the full year is known.
    if (month == 2 && day == 29 && yearDigits == 4 && !IsLeapYear(year))
        return 0;

    *pYear = year;
    *pMonth = month;
    *pDay = day;
    return 1;
}

// GetDateFormatA and GetTimeFormatA share their signature: the length is
// asked first, then the text is formatted into a buffer of that size.
typedef int (WINAPI* LocaleFormatFn)(LCID, DWORD, const SYSTEMTIME*, LPCSTR, LPSTR, int);

static CString FormatInUserLocale(const CTime& time, LocaleFormatFn format, DWORD flags)
{
    SYSTEMTIME st;
    if (!ToSystemTime(time, st))
        return CString();
    int n = format(LOCALE_USER_DEFAULT, flags, &st, nullptr, nullptr, 0);
    if (n <= 0)
        return CString();
    CString text;
    n = format(LOCALE_USER_DEFAULT, flags, &st, nullptr, text.GetBuffer(n + 1), n + 1);
    text.ReleaseBuffer(n > 0 ? n - 1 : 0);
    return text;
}

CString CIntlTime::FormatDate(int nFormat) const
{
    return FormatInUserLocale(*this, ::GetDateFormatA, nFormat == HYINTL_LONGDATE ? DATE_LONGDATE : DATE_SHORTDATE);
}

CString CIntlTime::FormatTime() const
{
    return FormatInUserLocale(*this, ::GetTimeFormatA, TIME_NOSECONDS);
}
