// CHyDayPickerDlg: the modal "Select Date" dialog (template 607). One month
// of a CHyDatePicker in place of the template's placeholder, "OK", "Cancel"
// and "&Today"; a double-click on a day confirms.
#pragma once

#include <afxwin.h>
#include "HyUIExport.h"

class CHyDatePicker;

class HYUI_API CHyDayPickerDlg : public CDialog
{
    DECLARE_DYNAMIC(CHyDayPickerDlg)
public:
    // date: an OLE date; exactly -1.0 means today.
    explicit CHyDayPickerDlg(double date, CWnd* pParent = nullptr);
    virtual ~CHyDayPickerDlg();

    // Effective only before DoModal.
    void SetMinYear(int nYear) { minYear = nYear; }
    void SetMaxYear(int nYear) { maxYear = nYear; }
    void GetSelectYearMonthDay(int& nYear, int& nMonth, int& nDay) const;
    // The picker while the dialog is open, else NULL.
    CHyDatePicker* GetPicker() const { return picker; }

    virtual BOOL OnInitDialog() override;
    virtual void OnOK() override;

protected:
    afx_msg void OnToday();
    afx_msg LRESULT OnDatePickerDblClk(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

public:
    CHyDatePicker* picker;
    double date;
    int year;
    int month;
    int day;
    int maxYear;
    int minYear;
};
