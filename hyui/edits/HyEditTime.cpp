// The time field, its spin-field form and the spin button. What a character
// does and how a text reads are in HyTimeText.cpp; this file applies them to
// the edit control.
#include "HyEditTime.h"
#include "HyIntlTime.h"
#include "HyTimeText.h"

IMPLEMENT_DYNAMIC(CHyEditTime, CTernEdit)
IMPLEMENT_DYNAMIC(CHyEditTimeSpinCtrl, CHyEditTime)
IMPLEMENT_DYNAMIC(CHyTimeSpinButtonCtrl, CSpinButtonCtrl)

BEGIN_MESSAGE_MAP(CHyEditTime, CTernEdit)
    ON_WM_CHAR()
    ON_WM_KEYDOWN()
    ON_WM_LBUTTONDBLCLK()
    ON_WM_RBUTTONUP()
END_MESSAGE_MAP()

BEGIN_MESSAGE_MAP(CHyEditTimeSpinCtrl, CHyEditTime)
    ON_WM_LBUTTONUP()
    ON_WM_LBUTTONDBLCLK()
    ON_WM_SETTINGCHANGE()
END_MESSAGE_MAP()

BEGIN_MESSAGE_MAP(CHyTimeSpinButtonCtrl, CSpinButtonCtrl)
    ON_NOTIFY_REFLECT(UDN_DELTAPOS, OnDeltaPos)
END_MESSAGE_MAP()

namespace {

CString Designator(LCTYPE type)
{
    char text[33] = {};
    ::GetLocaleInfoA(LOCALE_USER_DEFAULT, type, text, 32);
    return text;
}

}  // namespace

// ---- CHyEditTime ----

CHyEditTime::CHyEditTime(int nPmBefore, int nSpare)
    : separator(CIntlTime::GetTimeSeperator()), minutes(0), hours(-1), pmBefore(nPmBefore), valid(0), forceAM(0),
      forcePM(0), hasSeparator(0), is24Hour(CIntlTime::Is24HrFormat()), spare(nSpare)
{
    allowedChars = CString("0123456789") + separator;
}

void CHyEditTime::SetTime(int nHours, int nMinutes, int bFormat)
{
    hours = nHours;
    minutes = nMinutes;
    if (bFormat)
        FormatTime();
}

void CHyEditTime::SetNoTime()
{
    forceAM = 0;
    forcePM = 0;
}

int CHyEditTime::FormatTime()
{
    if (hours > 24 || minutes > 60)   // signed, and both bounds inclusive (intended)
        return 0;
    SetWindowText(CIntlTime(1990, 1, 1, hours, minutes, 0).FormatTime());
    return 1;
}

void CHyEditTime::Round(int& nMinutes)
{
    hy::RoundMinutes(nMinutes);
}

HyTimeFields CHyEditTime::Fields() const
{
    HyTimeFields f;
    f.hours = hours;
    f.minutes = minutes;
    f.valid = valid != 0;
    f.forceAM = forceAM != 0;
    f.forcePM = forcePM != 0;
    f.hasSeparator = hasSeparator != 0;
    return f;
}

void CHyEditTime::Store(const HyTimeFields& f)
{
    hours = f.hours;
    minutes = f.minutes;
    valid = f.valid;
    forceAM = f.forceAM;
    forcePM = f.forcePM;
    hasSeparator = f.hasSeparator;
}

// The designators are the locale's of the moment, read only for reading a text.
HyTimeRules CHyEditTime::Rules(bool designators) const
{
    HyTimeRules rules;
    rules.separator = (LPCTSTR)separator;
    rules.am = designators ? (LPCTSTR)Designator(LOCALE_S1159) : "";
    rules.pm = designators ? (LPCTSTR)Designator(LOCALE_S2359) : "";
    rules.is24Hour = is24Hour != 0;
    rules.pmBefore = pmBefore;
    return rules;
}

void CHyEditTime::Beep() const
{
    ::MessageBeep(MB_ICONEXCLAMATION);
}

void CHyEditTime::ReadTime(int)
{
    if (m_hWnd == nullptr)
        return;
    CString text;
    GetWindowText(text);
    HyTimeFields f = Fields();
    const HyTimeRead read = hy::ReadTime((LPCTSTR)text, Rules(true), f);
    Store(f);
    if (read.change == HyTimeTextChange::Emptied) {
        SetWindowText("");
    } else if (read.change == HyTimeTextChange::Rewritten) {
        SetWindowText(read.text.c_str());
        SetSel((int)read.text.size(), (int)read.text.size());
    }
}

void CHyEditTime::OnChar(UINT nChar, UINT nRepCnt, UINT nFlags)
{
    CString text;
    GetWindowText(text);
    HyTimeFields f = Fields();
    const HyTimeCharPlan plan = hy::PlanTimeChar((unsigned char)nChar, (LPCTSTR)text, f, Rules(false), (LPCTSTR)allowedChars);
    Store(f);
    if (plan.beep)
        return Beep();
    if (plan.selectAllFirst)   // the typed character replaces "None"
        SetSel(0, -1);
    if (plan.insert)
        CTernEdit::OnChar(nChar, nRepCnt, nFlags);
    if (plan.read)
        ReadTime(0);
    if (plan.format)
        FormatTime();
    if (plan.selectAllAfter)
        SetSel(0, -1);
}

void CHyEditTime::OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags)
{
    const int step = nChar == VK_DOWN || nChar == VK_NEXT ? 1 : nChar == VK_UP || nChar == VK_PRIOR ? -1 : 0;
    if (nChar == VK_DELETE)
        valid = 0;
    if (CWnd* parent = GetParent())
        parent->PostMessage(HYET_STEPKEY, (WPARAM)GetDlgCtrlID(), (LPARAM)step);
    if (step == 0)
        CTernEdit::OnKeyDown(nChar, nRepCnt, nFlags);
}

void CHyEditTime::OnLButtonDblClk(UINT, CPoint)
{
    SetSel(0, -1, FALSE);
}

void CHyEditTime::OnRButtonUp(UINT, CPoint) {}   // no context menu

// ---- CHyEditTimeSpinCtrl ----

CHyEditTimeSpinCtrl::CHyEditTimeSpinCtrl(int nPmBefore, int nSpare) : CHyEditTime(nPmBefore, nSpare) {}

int CHyEditTimeSpinCtrl::FormatTime()
{
    CString sep(separator);
    sep.Replace("%", "%%");
    const CString format = is24Hour ? "%H" + sep + "%M" : "%I" + sep + "%M %p";
    SetWindowText(CTime(2001, 5, 1, hours, minutes, 0, -1).Format(format));
    return 1;
}

int CHyEditTimeSpinCtrl::SeparatorAt() const
{
    CString text;
    GetWindowText(text);
    return separator.IsEmpty() ? -1 : text.Find(separator[0]);
}

void CHyEditTimeSpinCtrl::ChangeValue(int nDelta)
{
    int start = 0, end = 0;
    GetSel(start, end);
    HyTimeFields f = Fields();
    const HySpinPart part = hy::SpinStep(f, is24Hour != 0, start, SeparatorAt(), nDelta);
    Store(f);
    SetTime(hours, minutes, 1);
    const HySpan span = hy::SpinSpan(part, SeparatorAt());
    SetSel(span.start, span.end);
    SetFocus();
}

void CHyEditTimeSpinCtrl::OnLButtonUp(UINT nFlags, CPoint point)
{
    int start = 0, end = 0;
    GetSel(start, end);
    if (!(start == 0 && end == GetWindowTextLength())) {
        const int p = SeparatorAt();
        const HySpan span = hy::SpinSpan(hy::SpinPartAt(LOWORD(CharFromPos(point)), p), p);
        SetSel(span.start, span.end);
    }
    CTernEdit::OnLButtonUp(nFlags, point);
}

void CHyEditTimeSpinCtrl::OnLButtonDblClk(UINT, CPoint) {}   // no word selection

void CHyEditTimeSpinCtrl::OnSettingChange(UINT, LPCTSTR)
{
    is24Hour = CIntlTime::Is24HrFormat();   // the separator read at construction stays
    FormatTime();
}

// ---- CHyTimeSpinButtonCtrl ----

// Keeps the up-down's default range, where the upper arrow gives -1 and so
// raises the time as Up does, and has no buddy: an up-down selects its
// buddy's whole text at each release, and the next step would hit the hours.
void CHyTimeSpinButtonCtrl::OnDeltaPos(NMHDR* pNMHDR, LRESULT* pResult)
{
    if (CWnd* parent = GetParent())
        parent->PostMessage(HYET_STEPKEY, (WPARAM)GetDlgCtrlID(), (LPARAM)((NMUPDOWN*)pNMHDR)->iDelta);
    *pResult = 0;
}
