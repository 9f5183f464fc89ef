// Time fields. CHyEditTime takes a time typed loosely ("9", "930", "9:3",
// "7p"), reads it rounded to five minutes and shows it in the user's format;
// + and - step a quarter hour, A and P force morning or afternoon, and the
// vertical arrow and page keys are posted to the parent (HYET_STEPKEY) for a
// companion spin button. CHyEditTimeSpinCtrl shows the time in a fixed shape
// whose hour, minute and designator parts a click selects and ChangeValue
// steps; CHyTimeSpinButtonCtrl posts its steps to the parent, which passes
// them to ChangeValue. Text rules: HyTimeText.h; decisions: docs/timefields.md.
#pragma once

#include <afxwin.h>
#include <afxcmn.h>
#include "HyEditMsgs.h"
#include "HyTernEdit.h"
#include "HyUIExport.h"

struct HyTimeFields;
struct HyTimeRules;

class HYUI_API CHyEditTime : public CTernEdit
{
    DECLARE_DYNAMIC(CHyEditTime)
public:
    // Reads the clock and the separator once. No time (hours -1) until set.
    CHyEditTime(int nPmBefore, int nSpare);

    void SetTime(int nHours, int nMinutes, int bFormat);
    int GetHours() const { return hours; }
    int GetMins() const { return minutes; }
    int IsValid() const { return valid; }
    void SetValid(int bValid) { valid = bValid; }
    int IsForceAM() const { return forceAM; }
    int IsForcePM() const { return forcePM; }
    void ForceAM(int b) { forceAM = b; }
    void ForcePM(int b) { forcePM = b; }
    void SetNoTime();   // clears both marks, nothing else

    // Shows the time in the user's format; 0, the text untouched, outside
    // hours 24 and minutes 60 (both inclusive: hours -1 shows 23:xx).
    virtual int FormatTime();
    void ReadTime(int);
    static void Round(int& nMinutes);

protected:
    afx_msg void OnChar(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnLButtonDblClk(UINT nFlags, CPoint point);
    afx_msg void OnRButtonUp(UINT nFlags, CPoint point);

    HyTimeFields Fields() const;
    void Store(const HyTimeFields& f);
    HyTimeRules Rules(bool designators) const;
    void Beep() const;
    DECLARE_MESSAGE_MAP()

public:
    // ---- state, in this order ----
    CString allowedChars;   // the digits and the separator
    CString separator;
    int minutes;
    int hours;              // 0..23; -1 for no time
    int pmBefore;
    int valid;
    int forceAM;
    int forcePM;
    int hasSeparator;
    int is24Hour;
    int spare;              // stored, not consulted
};

class HYUI_API CHyEditTimeSpinCtrl : public CHyEditTime
{
    DECLARE_DYNAMIC(CHyEditTimeSpinCtrl)
public:
    CHyEditTimeSpinCtrl(int nPmBefore, int nSpare);

    // "HH" sep "MM", or "hh" sep "MM AM" on a 12-hour clock; no range check.
    virtual int FormatTime() override;
    // One step of the part holding the selection: new = old - nDelta.
    virtual void ChangeValue(int nDelta);

protected:
    afx_msg void OnLButtonUp(UINT nFlags, CPoint point);
    afx_msg void OnLButtonDblClk(UINT nFlags, CPoint point);
    afx_msg void OnSettingChange(UINT uFlags, LPCTSTR lpszSection);
    DECLARE_MESSAGE_MAP()

    int SeparatorAt() const;
};

class HYUI_API CHyTimeSpinButtonCtrl : public CSpinButtonCtrl
{
    DECLARE_DYNAMIC(CHyTimeSpinButtonCtrl)
protected:
    afx_msg void OnDeltaPos(NMHDR* pNMHDR, LRESULT* pResult);
    DECLARE_MESSAGE_MAP()
};
