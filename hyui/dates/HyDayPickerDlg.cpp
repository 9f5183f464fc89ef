#include "HyDayPickerDlg.h"

#include <afxdisp.h>

#include "HyDateHelpers.h"
#include "HyDateMsgs.h"
#include "HyDatePicker.h"
#include "HyOleDate.h"
#include "HyUIRes.h"

IMPLEMENT_DYNAMIC(CHyDayPickerDlg, CDialog)

BEGIN_MESSAGE_MAP(CHyDayPickerDlg, CDialog)
    ON_BN_CLICKED(IDC_DAY_PICKER_TODAY, OnToday)
    ON_MESSAGE(HYWM_DATEPICKER_CHOSEN, OnDatePickerDblClk)
END_MESSAGE_MAP()

CHyDayPickerDlg::CHyDayPickerDlg(double dateIn, CWnd* pParent)
    : CDialog(IDD_DAY_PICKER, pParent), picker(nullptr),
      // Exactly -1.0 stands for today; any other value is taken as given.
      date(dateIn == -1.0 ? (double)COleDateTime::GetCurrentTime() : dateIn), year(0), month(0), day(0),
      maxYear(2031), minYear(1970)
{
}

CHyDayPickerDlg::~CHyDayPickerDlg()
{
    delete picker;
}

void CHyDayPickerDlg::GetSelectYearMonthDay(int& nYear, int& nMonth, int& nDay) const
{
    nYear = year;
    nMonth = month;
    nDay = day;
}

BOOL CHyDayPickerDlg::OnInitDialog()
{
    const BOOL result = CDialog::OnInitDialog();

    CRect place;
    if (CWnd* placeholder = GetDlgItem(IDC_DAY_PICKER_PLACEHOLDER))
    {
        placeholder->GetWindowRect(&place);
        ScreenToClient(&place);
    }
    delete picker;
    picker = new CHyDatePicker;
    picker->Create(WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | WS_TABSTOP, place, this, IDC_DAY_PICKER_CALENDAR, 1, 1,
                   place.Width(), place.Height());
    picker->SetMinYear(minYear);
    picker->SetMaxYear(maxYear);

    const COleDateTime start(date);
    year = start.GetYear();
    month = start.GetMonth();
    day = start.GetDay();
    picker->SetSelection(year, month, day, 0);

    // Tab order by z-order alone: "OK", "Cancel", "&Today", then the picker.
    CWnd* ok = GetDlgItem(IDOK);
    CWnd* cancel = GetDlgItem(IDCANCEL);
    CWnd* today = GetDlgItem(IDC_DAY_PICKER_TODAY);
    const UINT keep = SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE;
    if (today)
        picker->SetWindowPos(today, 0, 0, 0, 0, keep);
    if (ok)
        ::SetWindowPos(ok->m_hWnd, HWND_TOP, 0, 0, 0, 0, keep);
    if (ok && cancel)
        cancel->SetWindowPos(ok, 0, 0, 0, 0, keep);
    if (cancel && today)
        today->SetWindowPos(cancel, 0, 0, 0, 0, keep);
    return result;
}

void CHyDayPickerDlg::OnToday()
{
    if (!picker)
        return;
    const CTime now = CTime::GetCurrentTime();
    picker->SetSelection(now.GetYear(), now.GetMonth(), now.GetDay(), 1);
}

void CHyDayPickerDlg::OnOK()
{
    if (picker)
        picker->GetSelection(year, month, day);
    CDialog::OnOK();
}

LRESULT CHyDayPickerDlg::OnDatePickerDblClk(WPARAM wParam, LPARAM)
{
    if (HIWORD(wParam) == HYPART_DAY_GRID)
        OnOK();
    return 0;
}

int HyDisplayHyDayPickerDlg(double& date)
{
    CHyDayPickerDlg dialog(date, nullptr);
    dialog.SetMinYear(1970);
    if (dialog.DoModal() != IDOK)
        return 0;
    int year, month, day;
    dialog.GetSelectYearMonthDay(year, month, day);
    double chosen;
    if (!hy::DateToOleDate(year, month, day, chosen))
        return 0;   // nothing usable was selected: the argument stays as it was
    date = chosen;
    return 1;
}
