// HyAfx: windows, message dispatch, the message loop, dialogs and data
// exchange. The umbrella a window-using module includes.
#pragma once
#include "afx.h"
#include "afxgeom.h"
#include "afxgdi.h"
#include "afxmsg.h"
#include "afxres.h"

// windows.h makes these macros; the classes have members of the same names.
#undef GetNextWindow

class CWnd;
class CMenu;
class CDataExchange;
class CScrollBar;

// ---- command targets ----
class HYAFX_API CCmdTarget : public CObject
{
    DECLARE_DYNAMIC(CCmdTarget)
public:
    CCmdTarget();
    // Routes a command or control notification through this object's maps.
    // nCode is the notification code (0 for a menu/accelerator command);
    // pResult receives the handler's result for WM_NOTIFY.
    virtual BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, void* pHandlerInfo);

protected:
    static const AFX_MSGMAP* GetThisMessageMap();
    virtual const AFX_MSGMAP* GetMessageMap() const;
    // Finds the first entry of this object's map chain (most derived class
    // first) for the message, code and id; NULL if none.
    const AFX_MSGMAP_ENTRY* FindMessageEntry(UINT nMessage, UINT nCode, UINT nID) const;
    friend class CWnd;
};

// The message being processed, per thread (for Default and GetCurrentMessage).
struct AFX_THREAD_MSG
{
    HWND hwnd;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
};

// ---- windows ----
class HYAFX_API CWnd : public CCmdTarget
{
    DECLARE_DYNCREATE(CWnd)
public:
    HWND m_hWnd;

    CWnd();
    virtual ~CWnd();

    operator HWND() const;
    // NULL for a NULL object: callers rely on pWnd->GetSafeHwnd() with pWnd == NULL.
    HWND GetSafeHwnd() const;
    BOOL operator==(const CWnd& wnd) const { return wnd.m_hWnd == m_hWnd; }
    BOOL operator!=(const CWnd& wnd) const { return wnd.m_hWnd != m_hWnd; }

    // Handle map (per thread). FromHandle wraps unknown windows in a
    // temporary object that lives until the next idle time.
    static CWnd* PASCAL FromHandle(HWND hWnd);
    static CWnd* PASCAL FromHandlePermanent(HWND hWnd);
    static void PASCAL DeleteTempMap();
    BOOL Attach(HWND hWndNew);
    HWND Detach();
    BOOL SubclassWindow(HWND hWnd);
    BOOL SubclassDlgItem(UINT nID, CWnd* pParent);
    HWND UnsubclassWindow();

    // Creation. A NULL class name means the framework's default class.
    virtual BOOL Create(LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle,
                        const RECT& rect, CWnd* pParentWnd, UINT nID, void* pContext = nullptr);
    BOOL CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle,
                  int x, int y, int nWidth, int nHeight, HWND hWndParent, HMENU nIDorHMenu,
                  LPVOID lpParam = nullptr);
    BOOL CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle,
                  const RECT& rect, CWnd* pParentWnd, UINT nID, LPVOID lpParam = nullptr);
    virtual BOOL DestroyWindow();
    virtual BOOL PreCreateWindow(CREATESTRUCT& cs);
    virtual void PreSubclassWindow();
    virtual void PostNcDestroy();

    // Dispatch.
    virtual BOOL PreTranslateMessage(MSG* pMsg);
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    virtual BOOL OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
    virtual BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    virtual BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    BOOL ReflectChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    static BOOL PASCAL ReflectLastMsg(HWND hWndChild, LRESULT* pResult = nullptr);
    LRESULT Default();
    static const MSG* PASCAL GetCurrentMessage();
    // Offers pMsg to PreTranslateMessage of the target window and each of its
    // parents up to (and including) hWndStop.
    static BOOL PASCAL WalkPreTranslateTree(HWND hWndStop, MSG* pMsg);

    // Messages.
    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    BOOL PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    BOOL SendNotifyMessage(UINT message, WPARAM wParam, LPARAM lParam) const;
    void SendMessageToDescendants(UINT message, WPARAM wParam = 0, LPARAM lParam = 0,
                                  BOOL bDeep = TRUE, BOOL bOnlyPerm = FALSE);

    // Styles and state.
    DWORD GetStyle() const;
    DWORD GetExStyle() const;
    BOOL ModifyStyle(DWORD dwRemove, DWORD dwAdd, UINT nFlags = 0);
    BOOL ModifyStyleEx(DWORD dwRemove, DWORD dwAdd, UINT nFlags = 0);
    int GetDlgCtrlID() const;
    int SetDlgCtrlID(int nID);
    BOOL IsWindowVisible() const;
    BOOL IsWindowEnabled() const;
    BOOL EnableWindow(BOOL bEnable = TRUE);
    BOOL ShowWindow(int nCmdShow);
    BOOL IsIconic() const;
    BOOL IsZoomed() const;

    // Text and font.
    void SetWindowText(LPCTSTR lpszString);
    int GetWindowText(LPTSTR lpszStringBuf, int nMaxCount) const;
    void GetWindowText(CString& rString) const;
    int GetWindowTextLength() const;
    void SetFont(CFont* pFont, BOOL bRedraw = TRUE);
    CFont* GetFont() const;

    // Geometry.
    void GetWindowRect(LPRECT lpRect) const;
    void GetClientRect(LPRECT lpRect) const;
    void ClientToScreen(LPPOINT lpPoint) const;
    void ClientToScreen(LPRECT lpRect) const;
    void ScreenToClient(LPPOINT lpPoint) const;
    void ScreenToClient(LPRECT lpRect) const;
    void MapWindowPoints(CWnd* pwndTo, LPPOINT lpPoint, UINT nCount) const;
    void MapWindowPoints(CWnd* pwndTo, LPRECT lpRect) const;
    void MoveWindow(int x, int y, int nWidth, int nHeight, BOOL bRepaint = TRUE);
    void MoveWindow(LPCRECT lpRect, BOOL bRepaint = TRUE);
    BOOL SetWindowPos(const CWnd* pWndInsertAfter, int x, int y, int cx, int cy, UINT nFlags);
    void CenterWindow(CWnd* pAlternateOwner = nullptr);
    int SetWindowRgn(HRGN hRgn, BOOL bRedraw);
    int GetWindowRgn(HRGN hRgn) const;
    CWnd* ChildWindowFromPoint(POINT point) const;
    static CWnd* PASCAL WindowFromPoint(POINT point);

    // Painting.
    CDC* GetDC();
    CDC* GetWindowDC();
    int ReleaseDC(CDC* pDC);
    CDC* BeginPaint(LPPAINTSTRUCT lpPaint);
    void EndPaint(LPPAINTSTRUCT lpPaint);
    void Invalidate(BOOL bErase = TRUE);
    void InvalidateRect(LPCRECT lpRect, BOOL bErase = TRUE);
    void InvalidateRgn(CRgn* pRgn, BOOL bErase = TRUE);
    void ValidateRect(LPCRECT lpRect);
    void ValidateRgn(CRgn* pRgn);
    BOOL RedrawWindow(LPCRECT lpRectUpdate = nullptr, CRgn* prgnUpdate = nullptr,
                      UINT flags = RDW_INVALIDATE | RDW_UPDATENOW | RDW_ERASE);
    void UpdateWindow();
    BOOL GetUpdateRect(LPRECT lpRect, BOOL bErase = FALSE);
    void SetRedraw(BOOL bRedraw = TRUE);

    // Scrolling.
    int GetScrollPos(int nBar) const;
    int SetScrollPos(int nBar, int nPos, BOOL bRedraw = TRUE);
    void GetScrollRange(int nBar, LPINT lpMinPos, LPINT lpMaxPos) const;
    void SetScrollRange(int nBar, int nMinPos, int nMaxPos, BOOL bRedraw = TRUE);
    BOOL GetScrollInfo(int nBar, LPSCROLLINFO lpScrollInfo, UINT nMask = SIF_ALL);
    BOOL SetScrollInfo(int nBar, LPSCROLLINFO lpScrollInfo, BOOL bRedraw = TRUE);
    int GetScrollLimit(int nBar);
    void ShowScrollBar(UINT nBar, BOOL bShow = TRUE);
    BOOL EnableScrollBar(int nSBFlags, UINT nArrowFlags = ESB_ENABLE_BOTH);
    void ScrollWindow(int xAmount, int yAmount, LPCRECT lpRect = nullptr, LPCRECT lpClipRect = nullptr);
    int ScrollWindowEx(int dx, int dy, LPCRECT lpRectScroll, LPCRECT lpRectClip,
                       CRgn* prgnUpdate, LPRECT lpRectUpdate, UINT flags);

    // Input.
    CWnd* SetCapture();
    static CWnd* PASCAL GetCapture();
    CWnd* SetFocus();
    static CWnd* PASCAL GetFocus();
    CWnd* SetActiveWindow();
    static CWnd* PASCAL GetActiveWindow();
    BOOL SetForegroundWindow();
    UINT_PTR SetTimer(UINT_PTR nIDEvent, UINT nElapse, TIMERPROC lpfnTimer = nullptr);
    BOOL KillTimer(UINT_PTR nIDEvent);

    // Relatives.
    CWnd* GetParent() const;
    CWnd* SetParent(CWnd* pWndNewParent);
    CWnd* GetOwner() const;
    void SetOwner(CWnd* pOwnerWnd);
    CWnd* GetTopLevelParent() const;
    CWnd* GetWindow(UINT nCmd) const;
    CWnd* GetNextWindow(UINT nFlag = GW_HWNDNEXT) const;
    CWnd* GetDlgItem(int nID) const;
    void GetDlgItem(int nID, HWND* phWnd) const;
    UINT GetDlgItemInt(int nID, BOOL* lpTrans = nullptr, BOOL bSigned = TRUE) const;
    void SetDlgItemInt(int nID, UINT nValue, BOOL bSigned = TRUE);
    int GetDlgItemText(int nID, LPTSTR lpStr, int nMaxCount) const;
    int GetDlgItemText(int nID, CString& rString) const;
    void SetDlgItemText(int nID, LPCTSTR lpszString);
    LRESULT SendDlgItemMessage(int nID, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    void CheckDlgButton(int nIDButton, UINT nCheck);
    UINT IsDlgButtonChecked(int nIDButton) const;
    void CheckRadioButton(int nIDFirstButton, int nIDLastButton, int nIDCheckButton);
    int GetCheckedRadioButton(int nIDFirstButton, int nIDLastButton);
    CWnd* GetNextDlgTabItem(CWnd* pWndCtl, BOOL bPrevious = FALSE) const;
    CWnd* GetNextDlgGroupItem(CWnd* pWndCtl, BOOL bPrevious = FALSE) const;
    BOOL IsChild(const CWnd* pWnd) const;
    static CWnd* PASCAL GetDesktopWindow();

    // Menus.
    CMenu* GetMenu() const;
    BOOL SetMenu(CMenu* pMenu);
    CMenu* GetSystemMenu(BOOL bRevert) const;

    // Data exchange and modality.
    BOOL UpdateData(BOOL bSaveAndValidate = TRUE);
    virtual void DoDataExchange(CDataExchange* pDX);
    int RunModalLoop(DWORD dwFlags = 0);
    virtual BOOL ContinueModal();
    virtual void EndModalLoop(int nResult);

    int MessageBox(LPCTSTR lpszText, LPCTSTR lpszCaption = nullptr, UINT nType = MB_OK);

    // The framework's own window procedure, shared by every CWnd.
    static LRESULT CALLBACK AfxWndProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam);

protected:
    WNDPROC m_pfnSuper;       // the procedure Default() reaches (subclassed/superclassed controls)
    int m_nModalResult;
    DWORD m_nFlags;           // WF_* below

    enum { WF_MODALLOOP = 0x0001, WF_CONTINUEMODAL = 0x0002, WF_TEMPORARY = 0x0004 };

    // Default handlers: each passes the message to Default().
    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    afx_msg void OnDestroy();
    afx_msg void OnNcDestroy();
    afx_msg void OnPaint();
    afx_msg void OnNcPaint();
    afx_msg void OnClose();
    afx_msg void OnCancelMode();
    afx_msg void OnSysColorChange();
    afx_msg void OnTimeChange();
    afx_msg void OnMouseLeave();
    afx_msg BOOL OnEraseBkgnd(CDC* pDC);
    afx_msg void OnSize(UINT nType, int cx, int cy);
    afx_msg void OnMove(int x, int y);
    afx_msg void OnSetFocus(CWnd* pOldWnd);
    afx_msg void OnKillFocus(CWnd* pNewWnd);
    afx_msg void OnCaptureChanged(CWnd* pWnd);
    afx_msg void OnEnable(BOOL bEnable);
    afx_msg void OnShowWindow(BOOL bShow, UINT nStatus);
    afx_msg void OnActivate(UINT nState, CWnd* pWndOther, BOOL bMinimized);
    afx_msg void OnSettingChange(UINT uFlags, LPCTSTR lpszSection);
    afx_msg void OnTimer(UINT_PTR nIDEvent);
    afx_msg UINT OnGetDlgCode();
    afx_msg BOOL OnSetCursor(CWnd* pWnd, UINT nHitTest, UINT message);
    afx_msg LRESULT OnNcHitTest(CPoint point);
    afx_msg void OnMouseMove(UINT nFlags, CPoint point);
    afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnLButtonUp(UINT nFlags, CPoint point);
    afx_msg void OnLButtonDblClk(UINT nFlags, CPoint point);
    afx_msg void OnRButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnRButtonUp(UINT nFlags, CPoint point);
    afx_msg void OnRButtonDblClk(UINT nFlags, CPoint point);
    afx_msg void OnMButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnMButtonUp(UINT nFlags, CPoint point);
    afx_msg BOOL OnMouseWheel(UINT nFlags, short zDelta, CPoint pt);
    afx_msg void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnKeyUp(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnChar(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnSysKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnSysKeyUp(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnSysChar(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnHScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar);
    afx_msg void OnVScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar);
    afx_msg HBRUSH OnCtlColor(CDC* pDC, CWnd* pWnd, UINT nCtlColor);
    afx_msg void OnDrawItem(int nIDCtl, LPDRAWITEMSTRUCT lpDrawItemStruct);
    afx_msg void OnMeasureItem(int nIDCtl, LPMEASUREITEMSTRUCT lpMeasureItemStruct);
    afx_msg void OnContextMenu(CWnd* pWnd, CPoint pos);
    afx_msg void OnWindowPosChanged(WINDOWPOS* lpwndpos);
    afx_msg void OnWindowPosChanging(WINDOWPOS* lpwndpos);
    afx_msg void OnGetMinMaxInfo(MINMAXINFO* lpMMI);
    afx_msg BOOL OnHelpInfo(HELPINFO* pHelpInfo);
    // Help for the current context: WM_COMMANDHELP goes to this window, then
    // up its parents, until one shows help; if none does, the application's
    // help contents.
    afx_msg void OnHelp();
    afx_msg void OnNcCalcSize(BOOL bCalcValidRects, NCCALCSIZE_PARAMS* lpncsp);

    static const AFX_MSGMAP* GetThisMessageMap();
    virtual const AFX_MSGMAP* GetMessageMap() const override;

private:
    friend class CDialog;
    friend struct AfxCreateHook;
    BOOL DispatchToMap(UINT message, UINT nCode, UINT nID, WPARAM wParam, LPARAM lParam,
                       LRESULT* pResult);
    CWnd(const CWnd&) = delete;
    void operator=(const CWnd&) = delete;
};

// Flags of RunModalLoop.
#define MLF_NOIDLEMSG 0x0001
#define MLF_NOKICKIDLE 0x0002
#define MLF_SHOWONIDLE 0x0004

// A scroll bar control (the classic handler type of WM_HSCROLL/WM_VSCROLL).
class HYAFX_API CScrollBar : public CWnd
{
    DECLARE_DYNAMIC(CScrollBar)
public:
    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
    int GetScrollPos() const;
    int SetScrollPos(int nPos, BOOL bRedraw = TRUE);
    BOOL GetScrollInfo(LPSCROLLINFO lpScrollInfo, UINT nMask = SIF_ALL);
    BOOL SetScrollInfo(LPSCROLLINFO lpScrollInfo, BOOL bRedraw = TRUE);
};

// Registers (once) and returns the name of a framework window class with the
// given attributes; the procedure is CWnd::AfxWndProc.
HYAFX_API LPCTSTR AFXAPI AfxRegisterWndClass(UINT nClassStyle, HCURSOR hCursor = nullptr,
                                             HBRUSH hbrBackground = nullptr, HICON hIcon = nullptr);
// Name of the framework's default window class (CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW,
// arrow cursor, no background brush).
#define AFX_WND_CLASS _T("AfxWnd")

// ---- threads and the application ----
class HYAFX_API CWinThread : public CCmdTarget
{
    DECLARE_DYNAMIC(CWinThread)
public:
    CWinThread();
    CWnd* m_pMainWnd;
    DWORD m_nThreadID;
    MSG m_msgCur;

    virtual BOOL InitInstance();
    virtual int ExitInstance();
    virtual int Run();
    virtual BOOL PreTranslateMessage(MSG* pMsg);
    virtual BOOL OnIdle(LONG lCount);
    virtual BOOL IsIdleMessage(MSG* pMsg);
    BOOL PumpMessage();
    virtual CWnd* GetMainWnd();
};

class HYAFX_API CWinApp : public CWinThread
{
    DECLARE_DYNAMIC(CWinApp)
public:
    explicit CWinApp(LPCTSTR lpszAppName = nullptr);
    virtual ~CWinApp();

    LPCTSTR m_pszAppName;
    HINSTANCE m_hInstance;
    LPTSTR m_lpCmdLine;
    int m_nCmdShow;

    HCURSOR LoadStandardCursor(LPCTSTR lpszCursorName) const;
    HCURSOR LoadCursor(UINT nIDResource) const;
    HICON LoadIcon(UINT nIDResource) const;
    HICON LoadStandardIcon(LPCTSTR lpszIconName) const;
    virtual int DoMessageBox(LPCTSTR lpszPrompt, UINT nType, UINT nIDPrompt);

    // The help file WinHelp opens (null: none).
    LPCTSTR m_pszHelpFilePath;
    // Opens help for a context (HELP_CONTEXT) or another WinHelp command,
    // owned by the main window. Hosts override it to show help their way.
    virtual void WinHelp(DWORD_PTR dwData, UINT nCmd = HELP_CONTEXT);
};

HYAFX_API CWinApp* AFXAPI AfxGetApp();
HYAFX_API CWinThread* AFXAPI AfxGetThread();
HYAFX_API CWnd* AFXAPI AfxGetMainWnd();
// Runs the application object: InitInstance, then Run (or ExitInstance).
HYAFX_API int AFXAPI AfxWinMain(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPTSTR lpCmdLine,
                                int nCmdShow);
// Pumps one message through the thread's PreTranslateMessage chain;
// FALSE on WM_QUIT.
HYAFX_API BOOL AFXAPI AfxPumpMessage();

// ---- message boxes and strings ----
HYAFX_API int AFXAPI AfxMessageBox(LPCTSTR lpszText, UINT nType = MB_OK, UINT nIDHelp = 0);
HYAFX_API int AFXAPI AfxMessageBox(UINT nIDPrompt, UINT nType = MB_OK, UINT nIDHelp = (UINT)-1);

// ---- dialogs ----
class HYAFX_API CDialog : public CWnd
{
    DECLARE_DYNAMIC(CDialog)
public:
    CDialog();
    explicit CDialog(LPCTSTR lpszTemplateName, CWnd* pParentWnd = nullptr);
    explicit CDialog(UINT nIDTemplate, CWnd* pParentWnd = nullptr);
    virtual ~CDialog();

    // Modeless creation from a template found through the resource chain.
    virtual BOOL Create(LPCTSTR lpszTemplateName, CWnd* pParentWnd = nullptr);
    virtual BOOL Create(UINT nIDTemplate, CWnd* pParentWnd = nullptr);
    BOOL CreateIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd = nullptr);
    BOOL InitModalIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd = nullptr);

    // Runs the dialog modally; returns the EndDialog code, or -1 when the
    // template cannot be found or the dialog cannot be created.
    virtual INT_PTR DoModal();
    void EndDialog(int nResult);

    virtual BOOL OnInitDialog();
    virtual void OnOK();
    virtual void OnCancel();
    virtual void OnSetFont(CFont* pFont);
    virtual BOOL PreTranslateMessage(MSG* pMsg) override;

    void NextDlgCtrl() const;
    void PrevDlgCtrl() const;
    void GotoDlgCtrl(CWnd* pWndCtrl);
    void SetDefID(UINT nID);
    DWORD GetDefID() const;
    void MapDialogRect(LPRECT lpRect) const;

    LPCTSTR m_lpszTemplateName;
    // The dialog's help id (its template id unless changed): its help context
    // is HID_BASE_RESOURCE + m_nIDHelp.
    UINT m_nIDHelp;
    CWnd* m_pParentWnd;

protected:
    LPCDLGTEMPLATE m_lpDialogTemplate;
    HWND PreModal();
    void PostModal();
    BOOL CreateFromTemplate(LPCDLGTEMPLATE lpTemplate, HINSTANCE hInst, CWnd* pParentWnd);
    static INT_PTR CALLBACK AfxDlgProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam);

    afx_msg LRESULT OnCommandHelp(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()
};

// ---- data exchange ----
// A failed exchange does not throw: Fail() marks the exchange failed, moves
// the focus to the offending control and every later DDX/DDV call of the
// same pass does nothing. UpdateData then returns FALSE.
class HYAFX_API CDataExchange
{
public:
    CDataExchange(CWnd* pDlgWnd, BOOL bSaveAndValidate);
    BOOL m_bSaveAndValidate;
    CWnd* m_pDlgWnd;
    HWND m_hWndLastControl;
    BOOL m_bEditLastControl;
    BOOL m_bFailed;

    HWND PrepareCtrl(int nIDC);
    HWND PrepareEditCtrl(int nIDC);
    void Fail();
};

HYAFX_API void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, CString& value);
HYAFX_API void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, int& value);
HYAFX_API void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, UINT& value);
HYAFX_API void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, long& value);
HYAFX_API void AFXAPI DDX_Check(CDataExchange* pDX, int nIDC, int& value);
HYAFX_API void AFXAPI DDX_Radio(CDataExchange* pDX, int nIDC, int& value);
HYAFX_API void AFXAPI DDX_Control(CDataExchange* pDX, int nIDC, CWnd& rControl);
HYAFX_API void AFXAPI DDV_MaxChars(CDataExchange* pDX, CString const& value, int nChars);
HYAFX_API void AFXAPI DDV_MinMaxInt(CDataExchange* pDX, int value, int minVal, int maxVal);

// ---- misc ----
class HYAFX_API CWaitCursor
{
public:
    CWaitCursor();
    ~CWaitCursor();
    void Restore();
private:
    HCURSOR m_hPrevious;
};

// Frees the per-thread temporary wrappers (windows, GDI objects, DCs, menus).
HYAFX_API void AFXAPI AfxDeleteTempMaps();

#include "afxctrl.h"
