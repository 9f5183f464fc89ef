// A date picker on a shown host frame, with a separate notify window, both
// recording the picker's private messages.
#pragma once

#include <afxwin.h>
#include <gtest/gtest.h>

#include "HyCalMonth.h"
#include "HyDatePicker.h"
#include "hytest.h"

class PickerTest : public ::testing::Test
{
protected:
    PickerTest() : parent(900, 400), notify(200, 100)
    {
        ::ShowWindow(parent, SW_SHOW);
        ::SetForegroundWindow(parent);
        notifyWnd.Attach(notify.hwnd());
        for (hytest::Recorder* r : {static_cast<hytest::Recorder*>(&parent), static_cast<hytest::Recorder*>(&notify)})
            r->RecordOnly({HYWM_DATEPICKER_CHOSEN, HYWM_DATEPICKER_SELCHANGE, HYWM_DATEPICKER_MONTHSCHANGED,
                           HYWM_DATEPICKER_GETTIP, WM_NEXTDLGCTL});
    }

    ~PickerTest() override
    {
        if (picker.m_hWnd)
            picker.DestroyWindow();
        notifyWnd.Detach();
        hytest::PumpMessages();
        AfxDeleteTempMaps();
    }

    // cols x rows calendars of 210 x 200 pixels, showing (month, year) first,
    // with day 15 of that month highlighted; recorders cleared.
    void Create(int cols = 3, int rows = 1, int month = 11, int year = 2005, bool withNotify = true)
    {
        ASSERT_TRUE(picker.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 210 * cols, 200 * rows),
                                  CWnd::FromHandle(parent), 1001, cols, rows));
        if (withNotify)
            picker.SetNotifyWindow(&notifyWnd);
        picker.SetSelection(year, month, 15, 0);
        picker.SetFocus();
        hytest::PumpMessages();
        Clear();
    }

    void Clear()
    {
        hytest::PumpMessages();
        parent.Clear();
        notify.Clear();
    }

    // Client point in the middle of the cell that shows (day, month, year),
    // looking in calendar `index` (or the first that shows it as its own day).
    CPoint DayPoint(int year, int month, int day, int index = -1)
    {
        CRect cell;
        if (picker.GetDateCellRect(CHyDate(year, month, day, 0), cell, index))
            return cell.CenterPoint();
        ADD_FAILURE() << "day " << day << "/" << month << "/" << year << " not shown";
        return CPoint(-1000, -1000);
    }

    HyCalParts Parts(int index) { return picker.GetCalRects(picker.GetCalBounds(index)); }

    static CPoint Centre(const HyRect& r) { return CPoint((r.left + r.right) / 2, (r.top + r.bottom) / 2); }

    static hytest::Expect Sel(int year, int month, int day)
    {
        return {HYWM_DATEPICKER_SELCHANGE, (WPARAM)year, MAKELPARAM(day, month), hytest::kPosted};
    }
    static hytest::Expect MonthsChanged() { return {HYWM_DATEPICKER_MONTHSCHANGED, 0, 0, hytest::kSent}; }
    static hytest::Expect Chosen(int part) { return {HYWM_DATEPICKER_CHOSEN, (WPARAM)part << 16, 0, hytest::kPosted}; }

    void ExpectDisplay(int month, int year)
    {
        int m, y;
        picker.GetDisplayMonth(&m, &y);
        EXPECT_EQ(m, month);
        EXPECT_EQ(y, year);
    }

    void ExpectHighlight(int year, int month, int day)
    {
        int y, m, d;
        picker.GetSelection(y, m, d);
        EXPECT_EQ(y, year);
        EXPECT_EQ(m, month);
        EXPECT_EQ(d, day);
    }

    hytest::HostFrame parent;
    hytest::HostFrame notify;
    CWnd notifyWnd;
    CHyDatePicker picker;
};
