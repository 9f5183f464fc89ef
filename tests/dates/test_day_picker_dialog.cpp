// The "Select Date" dialog and HyDisplayHyDayPickerDlg, driven through the
// dialog's real modal loop.
#include <afxdisp.h>
#include <gtest/gtest.h>

#include <functional>
#include <utility>
#include <vector>

#include "HyCalMonth.h"
#include "HyDateHelpers.h"
#include "HyDatePicker.h"
#include "HyDayPickerDlg.h"
#include "HyOleDate.h"
#include "HyUIRes.h"
#include "hytest.h"
#include "hytest_afx.h"

namespace {

double OleDate(int year, int month, int day)
{
    double date = 0;
    EXPECT_TRUE(hy::DateToOleDate(year, month, day, date));
    return date;
}

CHyDatePicker* PickerOf(HWND dialog)
{
    return static_cast<CHyDatePicker*>(CWnd::FromHandlePermanent(::GetDlgItem(dialog, IDC_DAY_PICKER_CALENDAR)));
}

// Client point of the middle of a day of the picker's own month.
CPoint DayPoint(CHyDatePicker* picker, int day)
{
    const CHyCalMonth* cal = picker->GetCalendar(0);
    CRect cell;
    picker->GetDateCellRect(CHyDate(cal->year, cal->month, day, 0), cell, 0);
    return cell.CenterPoint();
}

INT_PTR RunDialog(CHyDayPickerDlg& dialog, const std::function<void(HWND)>& act)
{
    hytest::DialogDriver driver(act);
    return dialog.DoModal();
}

void WarmUpDialogs()
{
    for (int round = 0; round < 2; ++round)
    {
        CHyDayPickerDlg dialog(OleDate(2005, 11, 15));
        RunDialog(dialog, [](HWND h) { ::PostMessage(h, WM_COMMAND, IDCANCEL, 0); });
    }
    AfxDeleteTempMaps();
}

using DayPickerDialogTest = GuardedTest<WarmUpDialogs>;

std::vector<int> Ymd(CHyDayPickerDlg& dialog)
{
    int y, m, d;
    dialog.GetSelectYearMonthDay(y, m, d);
    return { y, m, d };
}

TEST_F(DayPickerDialogTest, PickerTakesThePlaceholdersPlaceAndTabOrderAndOpensOnTheDate)
{
    CHyDayPickerDlg dialog(OleDate(2005, 11, 15));
    CRect placeholder, pickerRect;
    int cols = 0, rows = 0, y = 0, m = 0, d = 0;
    RunDialog(dialog, [&](HWND h) {
        HWND ph = ::GetDlgItem(h, IDC_DAY_PICKER_PLACEHOLDER);
        ::GetWindowRect(ph, &placeholder);
        CHyDatePicker* picker = PickerOf(h);
        ASSERT_NE(picker, nullptr);
        picker->GetWindowRect(&pickerRect);
        picker->GetCalColRowCount(&cols, &rows);
        picker->GetSelection(y, m, d);
        EXPECT_EQ(CSize(picker->absCalWidth, picker->absCalHeight), placeholder.Size());
        EXPECT_FALSE(::IsWindowVisible(ph));
        // The tab order: OK, Cancel, Today, then the picker; OK has the focus.
        std::vector<HWND> order = { ::GetFocus() };
        for (int i = 0; i < 4; ++i)
            order.push_back(::GetNextDlgTabItem(h, order.back(), FALSE));
        EXPECT_EQ((std::vector<HWND>{ ::GetDlgItem(h, IDOK), ::GetDlgItem(h, IDCANCEL), ::GetDlgItem(h, IDC_DAY_PICKER_TODAY),
                                      picker->m_hWnd, ::GetDlgItem(h, IDOK) }), order);
        ::PostMessage(h, WM_COMMAND, IDCANCEL, 0);
    });
    EXPECT_EQ(pickerRect, placeholder);
    EXPECT_EQ(std::vector<int>({ 1, 1, 2005, 11, 15 }), std::vector<int>({ cols, rows, y, m, d }));
}

// What the user does in a dialog opened on a day (15 November 2005 unless
// said: -1 is today, 0 the OLE epoch), and the result and day it ends with.
TEST_F(DayPickerDialogTest, ADoubleClickConfirmsTodaySelectsTodayAndCancelKeepsTheFirstDay)
{
    const CTime now = CTime::GetCurrentTime();
    const std::vector<int> today = {now.GetYear(), now.GetMonth(), now.GetDay()};
    auto ok = [](HWND h) { ::PostMessage(h, WM_COMMAND, IDOK, 0); };
    auto clickDay = [](HWND h, int day, bool twice) {
        CHyDatePicker* picker = PickerOf(h);
        const CPoint at = DayPoint(picker, day);
        if (twice)
            hytest::DoubleClick(picker->m_hWnd, at.x, at.y);
        else
            hytest::Click(picker->m_hWnd, at.x, at.y);
    };
    const struct
    {
        const char* what;
        double start;
        std::function<void(HWND)> act;
        INT_PTR result;
        std::vector<int> ymd;
    } rows[] = {
        {"double-click the 24th", OleDate(2005, 11, 15), [&](HWND h) { clickDay(h, 24, true); }, IDOK, {2005, 11, 24}},
        {"Today, which keeps the dialog open, then OK", OleDate(2005, 11, 15),
         [&](HWND h) {
             ::SendMessage(::GetDlgItem(h, IDC_DAY_PICKER_TODAY), BM_CLICK, 0, 0);
             hytest::PumpMessages();
             EXPECT_TRUE(::IsWindowVisible(h));
             int month = 0, year = 0;
             PickerOf(h)->GetDisplayMonth(&month, &year);
             EXPECT_EQ(std::pair(now.GetMonth(), now.GetYear()), std::pair(month, year));
             ::PostMessage(h, WM_COMMAND, IDOK, 0);
         },
         IDOK, today},
        {"click the 3rd, then Cancel", OleDate(2005, 11, 15),
         [&](HWND h) {
             clickDay(h, 3, false);
             ::PostMessage(h, WM_COMMAND, IDCANCEL, 0);
         },
         IDCANCEL, {2005, 11, 15}},
        {"opened on -1, OK", -1.0, ok, IDOK, today},
        {"opened on 0, OK", 0.0, ok, IDOK, {1899, 12, 30}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        CHyDayPickerDlg dialog(row.start);
        EXPECT_EQ(row.result, RunDialog(dialog, row.act));
        EXPECT_EQ(row.ymd, Ymd(dialog));
    }
}

// ---- HyDisplayHyDayPickerDlg ----------------------------------------------------

// A confirmed day comes back at midnight, with the dialog's limits from 1970;
// a cancel leaves the argument as it was.
TEST_F(DayPickerDialogTest, ConfirmedDayReturnsAtMidnightAndCancelLeavesTheArgument)
{
    double date = OleDate(2005, 11, 15) + 0.75;
    {
        hytest::DialogDriver confirm([](HWND h) {
            CHyDatePicker* picker = PickerOf(h);
            EXPECT_EQ(picker->GetMinYear(), 1970);
            const CPoint at = DayPoint(picker, 20);
            hytest::DoubleClick(picker->m_hWnd, at.x, at.y);
        });
        EXPECT_EQ(1, HyDisplayHyDayPickerDlg(date));
        EXPECT_EQ(OleDate(2005, 11, 20), date);
    }
    hytest::DialogDriver cancel([](HWND h) { ::PostMessage(h, WM_COMMAND, IDCANCEL, 0); });
    date = 38671.123456789012;
    EXPECT_EQ(0, HyDisplayHyDayPickerDlg(date));
    EXPECT_EQ(38671.123456789012, date);
}

} // namespace
