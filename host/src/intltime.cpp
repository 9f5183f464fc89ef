// CIntlTime: regional date and time rules read from the user's locale at every
// call, so a change in the regional settings applies at once.
#include <afxwin.h>
#include "HyIntlTime.h"
#include "HyDatePicture.h"

namespace {

CString LocaleString(LCID lcid, LCTYPE type)
{
    char buf[128];
    int n = ::GetLocaleInfoA(lcid, type, buf, sizeof buf);
    return n > 0 ? CString(buf) : CString();
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
    const char hourLetter = hy::FirstFieldLetter((LPCTSTR)LocaleString(LOCALE_USER_DEFAULT, LOCALE_STIMEFORMAT), "hH");
    if (hourLetter != 0)
        return hourLetter == 'H';
    return LocaleString(LOCALE_USER_DEFAULT, LOCALE_ITIME) == "1";
}

// The separator the user's picture puts between two kinds of fields; else
// the locale's separator value; else the usual one.
static CString UserSeparator(LCTYPE pictureType, const char* before, const char* after,
                             LCTYPE separatorType, const char* usual)
{
    CString sep = hy::SeparatorBetween((LPCTSTR)LocaleString(LOCALE_USER_DEFAULT, pictureType), before, after).c_str();
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

    hy::PictureDate date;
    if (!hy::ParseDatePicture(lpszPicture, lpszText, chSeparator, CTime::GetCurrentTime().GetYear(), date))
        return 0;
    *pYear = date.year;
    *pMonth = date.month;
    *pDay = date.day;
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
