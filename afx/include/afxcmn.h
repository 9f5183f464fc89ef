// HyAfx: wrappers of the common controls (up-down, rich edit, tooltip).
// Create() registers the control classes it needs (InitCommonControlsEx, or
// the rich edit library) on first use.
#pragma once
#include "afxwin.h"
#include <commctrl.h>
#include <richedit.h>

/////////////////////////////////////////////////////////////////////////////
// CSpinButtonCtrl

class HYAFX_API CSpinButtonCtrl : public CWnd
{
    DECLARE_DYNAMIC(CSpinButtonCtrl)
public:
    CSpinButtonCtrl() = default;

    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    BOOL SetAccel(int nAccel, UDACCEL* pAccel);
    // Copies up to nAccel entries; answers the number of entries the control has.
    UINT GetAccel(int nAccel, UDACCEL* pAccel) const;
    int SetBase(int nBase);
    UINT GetBase() const;
    CWnd* SetBuddy(CWnd* pWndBuddy);
    CWnd* GetBuddy() const;

    // 16-bit position: the previous position.
    int SetPos(int nPos);
    // The position in the low word; the high word is non-zero on error.
    int GetPos() const;
    int SetPos32(int nPos);
    int GetPos32(LPBOOL lpbError = nullptr) const;

    void SetRange(short nLower, short nUpper);
    void SetRange32(int nLower, int nUpper);
    // Upper limit in the low word, lower in the high word.
    DWORD GetRange() const;
    void GetRange(int& lower, int& upper) const;
    void GetRange32(int& lower, int& upper) const;
};

/////////////////////////////////////////////////////////////////////////////
// CRichEditCtrl

class HYAFX_API CRichEditCtrl : public CWnd
{
    DECLARE_DYNAMIC(CRichEditCtrl)
public:
    CRichEditCtrl() = default;

    // Loads riched20.dll (once; kept loaded) and creates a RICHEDIT_CLASS window.
    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    // Selection.
    void GetSel(CHARRANGE& cr) const;
    void GetSel(long& nStartChar, long& nEndChar) const;
    void SetSel(CHARRANGE& cr);
    void SetSel(long nStartChar, long nEndChar);
    void ReplaceSel(LPCTSTR lpszNewText, BOOL bCanUndo = FALSE);
    CString GetSelText() const;
    long GetSelText(LPSTR lpBuf) const;
    void HideSelection(BOOL bHide, BOOL bPerm);
    WORD GetSelectionType() const;

    // Text.
    long GetTextLength() const;
    int GetLineCount() const;
    long LineFromChar(long nIndex) const;
    int LineIndex(int nLine = -1) const;
    int LineLength(int nLine = -1) const;
    // 0 means the control's default (64K characters).
    void LimitText(long nChars = 0);
    long GetLimitText() const;
    BOOL GetModify() const;
    void SetModify(BOOL bModified = TRUE);
    BOOL SetReadOnly(BOOL bReadOnly = TRUE);

    // Formatting. cbSize is set by the wrappers.
    DWORD SetEventMask(DWORD dwEventMask);
    DWORD GetEventMask() const;
    // Answers the previous background colour.
    COLORREF SetBackgroundColor(BOOL bSysColor, COLORREF cr);
    BOOL SetDefaultCharFormat(CHARFORMAT& cf);
    DWORD GetDefaultCharFormat(CHARFORMAT& cf) const;
    BOOL SetSelectionCharFormat(CHARFORMAT& cf);
    DWORD GetSelectionCharFormat(CHARFORMAT& cf) const;
    BOOL SetWordCharFormat(CHARFORMAT& cf);
    BOOL SetParaFormat(PARAFORMAT& pf);
    DWORD GetParaFormat(PARAFORMAT& pf) const;
    void SetOptions(WORD wOp, DWORD dwFlags);
    UINT GetOptions() const;
    void SetTargetDevice(HDC hDC, long lLineWidth);

    // Streams (SF_TEXT / SF_RTF, optionally | SFF_SELECTION): characters moved.
    long StreamIn(int nFormat, EDITSTREAM& es);
    long StreamOut(int nFormat, EDITSTREAM& es);

    // Clipboard and undo.
    BOOL CanUndo() const;
    BOOL Undo();
    void EmptyUndoBuffer();
    BOOL CanPaste(UINT nFormat = 0) const;
    void Paste();
    void PasteSpecial(UINT nClipFormat, DWORD dvAspect = 0, HMETAFILE hMF = nullptr);
    void Copy();
    void Cut();
    void Clear();
};

/////////////////////////////////////////////////////////////////////////////
// CToolTipCtrl

// A TOOLINFO with room for the text GetToolInfo retrieves.
class CToolInfo : public TOOLINFO
{
public:
    TCHAR szText[256];
};

// Tools are added without TTF_SUBCLASS: forward the mouse messages of the
// tool windows with RelayEvent (typically from PreTranslateMessage).
class HYAFX_API CToolTipCtrl : public CWnd
{
    DECLARE_DYNAMIC(CToolTipCtrl)
public:
    CToolTipCtrl() = default;

    // A WS_POPUP tooltip window owned by pParentWnd.
    BOOL Create(CWnd* pParentWnd, DWORD dwStyle = 0);

    // With no rectangle and no nIDTool the tool is the whole window pWnd
    // (TTF_IDISHWND); otherwise nIDTool names a rectangle of pWnd.
    // LPSTR_TEXTCALLBACK asks pWnd's parent for the text (TTN_GETDISPINFO).
    BOOL AddTool(CWnd* pWnd, UINT nIDText, LPCRECT lpRectTool = nullptr, UINT_PTR nIDTool = 0);
    BOOL AddTool(CWnd* pWnd, LPCTSTR lpszText = LPSTR_TEXTCALLBACK, LPCRECT lpRectTool = nullptr,
                 UINT_PTR nIDTool = 0);
    void DelTool(CWnd* pWnd, UINT_PTR nIDTool = 0);
    void UpdateTipText(LPCTSTR lpszText, CWnd* pWnd, UINT_PTR nIDTool = 0);
    void UpdateTipText(UINT nIDText, CWnd* pWnd, UINT_PTR nIDTool = 0);
    void SetToolRect(CWnd* pWnd, UINT_PTR nIDTool, LPCRECT lpRect);
    void GetText(CString& str, CWnd* pWnd, UINT_PTR nIDTool = 0) const;

    BOOL GetToolInfo(CToolInfo& ToolInfo, CWnd* pWnd, UINT_PTR nIDTool = 0) const;
    void SetToolInfo(LPTOOLINFO lpToolInfo);
    int GetToolCount() const;
    // The tool under pt (client coordinates of pWnd); fills lpToolInfo.
    BOOL HitTest(CWnd* pWnd, CPoint pt, LPTOOLINFO lpToolInfo) const;

    void Activate(BOOL bActivate);
    void RelayEvent(LPMSG lpMsg);
    // TTDT_AUTOMATIC with the initial delay.
    void SetDelayTime(UINT nDelay);
    void SetDelayTime(DWORD dwDuration, int iTime);
    int GetDelayTime(DWORD dwDuration) const;
    int SetMaxTipWidth(int iWidth);
    int GetMaxTipWidth() const;
    void SetTipBkColor(COLORREF clr);
    void SetTipTextColor(COLORREF clr);
    void Pop();
    void Update();
};
