// HyAfx: common control wrappers (up-down, rich edit, tooltip).
#include "afxcmn.h"

// Every control message needs a live control.
#define SEND(msg, wp, lp) (ASSERT(::IsWindow(m_hWnd)), ::SendMessage(m_hWnd, (msg), (WPARAM)(wp), (LPARAM)(lp)))

namespace {

void InitCommonControlClasses(DWORD dwICC)
{
    INITCOMMONCONTROLSEX icc = {};
    icc.dwSize = sizeof(icc);
    icc.dwICC = dwICC;
    ::InitCommonControlsEx(&icc);
}

// The TOOLINFO size every comctl32 version accepts (up to lParam); the
// trailing reserved member of newer headers is not needed.
const UINT kToolInfoSize = TTTOOLINFOA_V2_SIZE;

}  // namespace

/////////////////////////////////////////////////////////////////////////////
// CSpinButtonCtrl

IMPLEMENT_DYNAMIC(CSpinButtonCtrl, CWnd)

BOOL CSpinButtonCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    InitCommonControlClasses(ICC_UPDOWN_CLASS);
    return CWnd::Create(UPDOWN_CLASS, nullptr, dwStyle, rect, pParentWnd, nID);
}

BOOL CSpinButtonCtrl::SetAccel(int nAccel, UDACCEL* pAccel) { return (BOOL)SEND(UDM_SETACCEL, nAccel, pAccel); }
UINT CSpinButtonCtrl::GetAccel(int nAccel, UDACCEL* pAccel) const { return (UINT)SEND(UDM_GETACCEL, nAccel, pAccel); }
int CSpinButtonCtrl::SetBase(int nBase) { return (int)SEND(UDM_SETBASE, nBase, 0); }
UINT CSpinButtonCtrl::GetBase() const { return (UINT)SEND(UDM_GETBASE, 0, 0); }
CWnd* CSpinButtonCtrl::SetBuddy(CWnd* pWndBuddy)
{
    return CWnd::FromHandle((HWND)SEND(UDM_SETBUDDY, pWndBuddy->GetSafeHwnd(), 0));
}
CWnd* CSpinButtonCtrl::GetBuddy() const { return CWnd::FromHandle((HWND)SEND(UDM_GETBUDDY, 0, 0)); }

int CSpinButtonCtrl::SetPos(int nPos) { return (int)(short)LOWORD(SEND(UDM_SETPOS, 0, MAKELPARAM(nPos, 0))); }
int CSpinButtonCtrl::GetPos() const { return (int)SEND(UDM_GETPOS, 0, 0); }
int CSpinButtonCtrl::SetPos32(int nPos) { return (int)SEND(UDM_SETPOS32, 0, nPos); }
int CSpinButtonCtrl::GetPos32(LPBOOL lpbError) const { return (int)SEND(UDM_GETPOS32, 0, lpbError); }

void CSpinButtonCtrl::SetRange(short nLower, short nUpper) { SEND(UDM_SETRANGE, 0, MAKELPARAM(nUpper, nLower)); }
void CSpinButtonCtrl::SetRange32(int nLower, int nUpper) { SEND(UDM_SETRANGE32, nLower, nUpper); }
DWORD CSpinButtonCtrl::GetRange() const { return (DWORD)SEND(UDM_GETRANGE, 0, 0); }
void CSpinButtonCtrl::GetRange(int& lower, int& upper) const
{
    DWORD r = GetRange();
    lower = (int)(short)HIWORD(r);
    upper = (int)(short)LOWORD(r);
}
void CSpinButtonCtrl::GetRange32(int& lower, int& upper) const { SEND(UDM_GETRANGE32, &lower, &upper); }

/////////////////////////////////////////////////////////////////////////////
// CRichEditCtrl

IMPLEMENT_DYNAMIC(CRichEditCtrl, CWnd)

BOOL CRichEditCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    // Kept loaded for the life of the process: the class must outlive every
    // control made from it.
    static HMODULE s_hRichEdit = ::LoadLibrary(_T("riched20.dll"));
    if (s_hRichEdit == nullptr)
        return FALSE;
    return CWnd::Create(RICHEDIT_CLASS, nullptr, dwStyle, rect, pParentWnd, nID);
}

void CRichEditCtrl::GetSel(CHARRANGE& cr) const { SEND(EM_EXGETSEL, 0, &cr); }
void CRichEditCtrl::GetSel(long& nStartChar, long& nEndChar) const
{
    CHARRANGE cr = {};
    GetSel(cr);
    nStartChar = cr.cpMin;
    nEndChar = cr.cpMax;
}
void CRichEditCtrl::SetSel(CHARRANGE& cr) { SEND(EM_EXSETSEL, 0, &cr); }
void CRichEditCtrl::SetSel(long nStartChar, long nEndChar)
{
    CHARRANGE cr = { nStartChar, nEndChar };
    SetSel(cr);
}
void CRichEditCtrl::ReplaceSel(LPCTSTR lpszNewText, BOOL bCanUndo) { SEND(EM_REPLACESEL, bCanUndo, lpszNewText); }
CString CRichEditCtrl::GetSelText() const
{
    CHARRANGE cr = {};
    GetSel(cr);
    long len = cr.cpMax - cr.cpMin;
    CString str;
    if (len <= 0)
        return str;
    // Each character may take two bytes in a multi-byte code page.
    LPSTR buf = str.GetBuffer((int)(len * 2 + 1));
    long got = (long)SEND(EM_GETSELTEXT, 0, buf);
    str.ReleaseBuffer(got < 0 ? 0 : (int)got);
    return str;
}
long CRichEditCtrl::GetSelText(LPSTR lpBuf) const { return (long)SEND(EM_GETSELTEXT, 0, lpBuf); }
void CRichEditCtrl::HideSelection(BOOL bHide, BOOL bPerm) { SEND(EM_HIDESELECTION, bHide, bPerm); }
WORD CRichEditCtrl::GetSelectionType() const { return (WORD)SEND(EM_SELECTIONTYPE, 0, 0); }

long CRichEditCtrl::GetTextLength() const { return (long)SEND(WM_GETTEXTLENGTH, 0, 0); }
int CRichEditCtrl::GetLineCount() const { return (int)SEND(EM_GETLINECOUNT, 0, 0); }
long CRichEditCtrl::LineFromChar(long nIndex) const { return (long)SEND(EM_EXLINEFROMCHAR, 0, nIndex); }
int CRichEditCtrl::LineIndex(int nLine) const { return (int)SEND(EM_LINEINDEX, nLine, 0); }
int CRichEditCtrl::LineLength(int nLine) const { return (int)SEND(EM_LINELENGTH, nLine, 0); }
void CRichEditCtrl::LimitText(long nChars) { SEND(EM_EXLIMITTEXT, 0, nChars); }
long CRichEditCtrl::GetLimitText() const { return (long)SEND(EM_GETLIMITTEXT, 0, 0); }
BOOL CRichEditCtrl::GetModify() const { return (BOOL)SEND(EM_GETMODIFY, 0, 0); }
void CRichEditCtrl::SetModify(BOOL bModified) { SEND(EM_SETMODIFY, bModified, 0); }
BOOL CRichEditCtrl::SetReadOnly(BOOL bReadOnly) { return (BOOL)SEND(EM_SETREADONLY, bReadOnly, 0); }

DWORD CRichEditCtrl::SetEventMask(DWORD dwEventMask) { return (DWORD)SEND(EM_SETEVENTMASK, 0, dwEventMask); }
DWORD CRichEditCtrl::GetEventMask() const { return (DWORD)SEND(EM_GETEVENTMASK, 0, 0); }
COLORREF CRichEditCtrl::SetBackgroundColor(BOOL bSysColor, COLORREF cr)
{
    return (COLORREF)SEND(EM_SETBKGNDCOLOR, bSysColor, cr);
}
BOOL CRichEditCtrl::SetDefaultCharFormat(CHARFORMAT& cf)
{
    cf.cbSize = sizeof(CHARFORMAT);
    return (BOOL)SEND(EM_SETCHARFORMAT, SCF_DEFAULT, &cf);
}
DWORD CRichEditCtrl::GetDefaultCharFormat(CHARFORMAT& cf) const
{
    cf.cbSize = sizeof(CHARFORMAT);
    return (DWORD)SEND(EM_GETCHARFORMAT, SCF_DEFAULT, &cf);
}
BOOL CRichEditCtrl::SetSelectionCharFormat(CHARFORMAT& cf)
{
    cf.cbSize = sizeof(CHARFORMAT);
    return (BOOL)SEND(EM_SETCHARFORMAT, SCF_SELECTION, &cf);
}
DWORD CRichEditCtrl::GetSelectionCharFormat(CHARFORMAT& cf) const
{
    cf.cbSize = sizeof(CHARFORMAT);
    return (DWORD)SEND(EM_GETCHARFORMAT, SCF_SELECTION, &cf);
}
BOOL CRichEditCtrl::SetWordCharFormat(CHARFORMAT& cf)
{
    cf.cbSize = sizeof(CHARFORMAT);
    return (BOOL)SEND(EM_SETCHARFORMAT, SCF_SELECTION | SCF_WORD, &cf);
}
BOOL CRichEditCtrl::SetParaFormat(PARAFORMAT& pf)
{
    pf.cbSize = sizeof(PARAFORMAT);
    return (BOOL)SEND(EM_SETPARAFORMAT, 0, &pf);
}
DWORD CRichEditCtrl::GetParaFormat(PARAFORMAT& pf) const
{
    pf.cbSize = sizeof(PARAFORMAT);
    return (DWORD)SEND(EM_GETPARAFORMAT, 0, &pf);
}
void CRichEditCtrl::SetOptions(WORD wOp, DWORD dwFlags) { SEND(EM_SETOPTIONS, wOp, dwFlags); }
UINT CRichEditCtrl::GetOptions() const { return (UINT)SEND(EM_GETOPTIONS, 0, 0); }
void CRichEditCtrl::SetTargetDevice(HDC hDC, long lLineWidth) { SEND(EM_SETTARGETDEVICE, hDC, lLineWidth); }

long CRichEditCtrl::StreamIn(int nFormat, EDITSTREAM& es) { return (long)SEND(EM_STREAMIN, nFormat, &es); }
long CRichEditCtrl::StreamOut(int nFormat, EDITSTREAM& es) { return (long)SEND(EM_STREAMOUT, nFormat, &es); }

BOOL CRichEditCtrl::CanUndo() const { return (BOOL)SEND(EM_CANUNDO, 0, 0); }
BOOL CRichEditCtrl::Undo() { return (BOOL)SEND(EM_UNDO, 0, 0); }
void CRichEditCtrl::EmptyUndoBuffer() { SEND(EM_EMPTYUNDOBUFFER, 0, 0); }
BOOL CRichEditCtrl::CanPaste(UINT nFormat) const { return (BOOL)SEND(EM_CANPASTE, nFormat, 0); }
void CRichEditCtrl::Paste() { SEND(WM_PASTE, 0, 0); }
void CRichEditCtrl::PasteSpecial(UINT nClipFormat, DWORD dvAspect, HMETAFILE hMF)
{
    REPASTESPECIAL reps = { dvAspect, (DWORD_PTR)hMF };
    SEND(EM_PASTESPECIAL, nClipFormat, &reps);
}
void CRichEditCtrl::Copy() { SEND(WM_COPY, 0, 0); }
void CRichEditCtrl::Cut() { SEND(WM_CUT, 0, 0); }
void CRichEditCtrl::Clear() { SEND(WM_CLEAR, 0, 0); }

/////////////////////////////////////////////////////////////////////////////
// CToolTipCtrl

IMPLEMENT_DYNAMIC(CToolTipCtrl, CWnd)

BOOL CToolTipCtrl::Create(CWnd* pParentWnd, DWORD dwStyle)
{
    InitCommonControlClasses(ICC_WIN95_CLASSES);
    return CWnd::CreateEx(0, TOOLTIPS_CLASS, nullptr, WS_POPUP | dwStyle, CW_USEDEFAULT,
                          CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT,
                          pParentWnd->GetSafeHwnd(), nullptr, nullptr);
}

BOOL CToolTipCtrl::AddTool(CWnd* pWnd, UINT nIDText, LPCRECT lpRectTool, UINT_PTR nIDTool)
{
    if (pWnd == nullptr || nIDText == 0)
        return FALSE;
    TOOLINFO ti = {};
    ti.cbSize = kToolInfoSize;
    ti.hwnd = pWnd->GetSafeHwnd();
    if (lpRectTool == nullptr && nIDTool == 0) {
        ti.uFlags = TTF_IDISHWND;
        ti.uId = (UINT_PTR)pWnd->GetSafeHwnd();
    } else {
        ti.uId = nIDTool;
        if (lpRectTool != nullptr)
            ti.rect = *lpRectTool;
    }
    // String resources live in blocks of 16; the block names the module.
    ti.hinst = AfxFindResourceHandle(MAKEINTRESOURCE((nIDText >> 4) + 1), RT_STRING);
    ti.lpszText = (LPTSTR)MAKEINTRESOURCE(nIDText);
    return (BOOL)SEND(TTM_ADDTOOL, 0, &ti);
}

BOOL CToolTipCtrl::AddTool(CWnd* pWnd, LPCTSTR lpszText, LPCRECT lpRectTool, UINT_PTR nIDTool)
{
    if (pWnd == nullptr || lpszText == nullptr)
        return FALSE;
    TOOLINFO ti = {};
    ti.cbSize = kToolInfoSize;
    ti.hwnd = pWnd->GetSafeHwnd();
    if (lpRectTool == nullptr && nIDTool == 0) {
        ti.uFlags = TTF_IDISHWND;
        ti.uId = (UINT_PTR)pWnd->GetSafeHwnd();
    } else {
        ti.uId = nIDTool;
        if (lpRectTool != nullptr)
            ti.rect = *lpRectTool;
    }
    ti.lpszText = (LPTSTR)lpszText;
    return (BOOL)SEND(TTM_ADDTOOL, 0, &ti);
}

namespace {

// The tool identity AddTool gave: the window itself, or nIDTool of pWnd.
void ToolIdentity(TOOLINFO& ti, HWND hWnd, UINT_PTR nIDTool)
{
    ZeroMemory(&ti, sizeof(ti));
    ti.cbSize = kToolInfoSize;
    ti.hwnd = hWnd;
    ti.uId = nIDTool == 0 ? (UINT_PTR)hWnd : nIDTool;
}

}  // namespace

void CToolTipCtrl::DelTool(CWnd* pWnd, UINT_PTR nIDTool)
{
    TOOLINFO ti;
    ToolIdentity(ti, pWnd->GetSafeHwnd(), nIDTool);
    SEND(TTM_DELTOOL, 0, &ti);
}

void CToolTipCtrl::UpdateTipText(LPCTSTR lpszText, CWnd* pWnd, UINT_PTR nIDTool)
{
    TOOLINFO ti;
    ToolIdentity(ti, pWnd->GetSafeHwnd(), nIDTool);
    ti.lpszText = (LPTSTR)lpszText;
    SEND(TTM_UPDATETIPTEXT, 0, &ti);
}

void CToolTipCtrl::UpdateTipText(UINT nIDText, CWnd* pWnd, UINT_PTR nIDTool)
{
    TOOLINFO ti;
    ToolIdentity(ti, pWnd->GetSafeHwnd(), nIDTool);
    ti.hinst = AfxFindResourceHandle(MAKEINTRESOURCE((nIDText >> 4) + 1), RT_STRING);
    ti.lpszText = (LPTSTR)MAKEINTRESOURCE(nIDText);
    SEND(TTM_UPDATETIPTEXT, 0, &ti);
}

void CToolTipCtrl::SetToolRect(CWnd* pWnd, UINT_PTR nIDTool, LPCRECT lpRect)
{
    TOOLINFO ti;
    ToolIdentity(ti, pWnd->GetSafeHwnd(), nIDTool);
    ti.rect = *lpRect;
    SEND(TTM_NEWTOOLRECT, 0, &ti);
}

void CToolTipCtrl::GetText(CString& str, CWnd* pWnd, UINT_PTR nIDTool) const
{
    TOOLINFO ti;
    ToolIdentity(ti, pWnd->GetSafeHwnd(), nIDTool);
    // Older controls take no buffer size (and cap texts at 80 characters);
    // newer ones read it from wParam.
    TCHAR buf[256] = {};
    ti.lpszText = buf;
    SEND(TTM_GETTEXT, _countof(buf), &ti);
    str = buf;
}

BOOL CToolTipCtrl::GetToolInfo(CToolInfo& ToolInfo, CWnd* pWnd, UINT_PTR nIDTool) const
{
    ToolIdentity(ToolInfo, pWnd->GetSafeHwnd(), nIDTool);
    ToolInfo.szText[0] = 0;
    ToolInfo.lpszText = ToolInfo.szText;
    return (BOOL)SEND(TTM_GETTOOLINFO, 0, (TOOLINFO*)&ToolInfo);
}

void CToolTipCtrl::SetToolInfo(LPTOOLINFO lpToolInfo)
{
    if (lpToolInfo->cbSize == 0)
        lpToolInfo->cbSize = kToolInfoSize;
    SEND(TTM_SETTOOLINFO, 0, lpToolInfo);
}

int CToolTipCtrl::GetToolCount() const { return (int)SEND(TTM_GETTOOLCOUNT, 0, 0); }

BOOL CToolTipCtrl::HitTest(CWnd* pWnd, CPoint pt, LPTOOLINFO lpToolInfo) const
{
    TTHITTESTINFO hti = {};
    hti.hwnd = pWnd->GetSafeHwnd();
    hti.pt.x = pt.x;
    hti.pt.y = pt.y;
    hti.ti.cbSize = kToolInfoSize;
    if (!SEND(TTM_HITTEST, 0, &hti))
        return FALSE;
    if (lpToolInfo != nullptr)
        *lpToolInfo = hti.ti;
    return TRUE;
}

void CToolTipCtrl::Activate(BOOL bActivate) { SEND(TTM_ACTIVATE, bActivate, 0); }
void CToolTipCtrl::RelayEvent(LPMSG lpMsg) { SEND(TTM_RELAYEVENT, 0, lpMsg); }
void CToolTipCtrl::SetDelayTime(UINT nDelay) { SEND(TTM_SETDELAYTIME, TTDT_AUTOMATIC, MAKELPARAM(nDelay, 0)); }
void CToolTipCtrl::SetDelayTime(DWORD dwDuration, int iTime) { SEND(TTM_SETDELAYTIME, dwDuration, MAKELPARAM(iTime, 0)); }
int CToolTipCtrl::GetDelayTime(DWORD dwDuration) const { return (int)SEND(TTM_GETDELAYTIME, dwDuration, 0); }
int CToolTipCtrl::SetMaxTipWidth(int iWidth) { return (int)SEND(TTM_SETMAXTIPWIDTH, 0, iWidth); }
int CToolTipCtrl::GetMaxTipWidth() const { return (int)SEND(TTM_GETMAXTIPWIDTH, 0, 0); }
void CToolTipCtrl::SetTipBkColor(COLORREF clr) { SEND(TTM_SETTIPBKCOLOR, clr, 0); }
void CToolTipCtrl::SetTipTextColor(COLORREF clr) { SEND(TTM_SETTIPTEXTCOLOR, clr, 0); }
void CToolTipCtrl::Pop() { SEND(TTM_POP, 0, 0); }
void CToolTipCtrl::Update() { SEND(TTM_UPDATE, 0, 0); }
