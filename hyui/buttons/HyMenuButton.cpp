#include "HyMenuButton.h"

#include "HyTheme.h"

namespace {

// The popup with the choices: the button's menu, or the first submenu of its
// menu resource, loaded for the length of one operation.
class ChoiceMenu
{
public:
    ChoiceMenu(CMenu* menu, UINT resourceId) : m_popup(menu)
    {
        if (m_popup == nullptr && m_loaded.LoadMenu(resourceId))
            m_popup = m_loaded.GetSubMenu(0);
    }
    ~ChoiceMenu()
    {
        if (m_loaded.GetSafeHmenu() != nullptr)
            m_loaded.DestroyMenu();
    }
    CMenu* get() const { return m_popup; }

private:
    CMenu m_loaded;
    CMenu* m_popup;
};

}  // namespace

IMPLEMENT_DYNAMIC(CHyMenuButton, CButton)

BEGIN_MESSAGE_MAP(CHyMenuButton, CButton)
    ON_WM_CREATE()
    ON_WM_LBUTTONDBLCLK()
    ON_WM_SYSCOLORCHANGE()
    ON_WM_KEYDOWN()
    ON_WM_SIZE()
    ON_CONTROL_REFLECT(BN_CLICKED, OnClicked)
    ON_MESSAGE(WM_GETDLGCODE, OnGetDlgCodeEx)
END_MESSAGE_MAP()

CHyMenuButton::CHyMenuButton() : menuId(0), menu(nullptr), menuIndex(0) {}

BOOL CHyMenuButton::Create(CMenu* pMenu, int nIndex, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    menu = pMenu;
    menuIndex = nIndex;
    return CButton::Create(_T(""), dwStyle, rect, pParentWnd, nID);
}

BOOL CHyMenuButton::Create(UINT nMenuID, int nIndex, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    menuId = nMenuID;
    menuIndex = nIndex;
    return CButton::Create(_T(""), dwStyle, rect, pParentWnd, nID);
}

BOOL CHyMenuButton::PreCreateWindow(CREATESTRUCT& cs)
{
    cs.style |= BS_OWNERDRAW;
    return CButton::PreCreateWindow(cs);
}

void CHyMenuButton::SetButtonMenu(CMenu* pMenu, int nIndex)
{
    menu = pMenu;
    menuIndex = nIndex;
    UpdateButtonText();
}

void CHyMenuButton::SetMenuIndex(int nIndex)
{
    menuIndex = nIndex;
    UpdateButtonText();
}

void CHyMenuButton::UpdateButtonText()
{
    ChoiceMenu choices(menu, menuId);
    CString text;
    if (choices.get() != nullptr)
        choices.get()->GetMenuString(menuIndex, text, MF_BYPOSITION);   // past the last item: empty
    if (m_hWnd != nullptr)
        SetWindowText(text);
}

int CHyMenuButton::OnCreate(LPCREATESTRUCT)
{
    if (Default() == -1)
        return -1;
    UpdateButtonText();
    return 0;
}

void CHyMenuButton::OnLButtonDblClk(UINT nFlags, CPoint point)
{
    // A double-click is a second press, never lost.
    SendMessage(WM_LBUTTONDOWN, nFlags, MAKELPARAM(point.x, point.y));
}

void CHyMenuButton::OnSysColorChange()
{
    Default();
    RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
}

void CHyMenuButton::OnKeyDown(UINT nChar, UINT, UINT nFlags)
{
    // Enter opens the menu once: a held key's repeats (bit 14) are ignored.
    if (nChar == VK_RETURN)
    {
        if ((nFlags & 0x4000) == 0)
            if (CWnd* parent = GetParent())
                parent->PostMessage(WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(), BN_CLICKED), (LPARAM)m_hWnd);
        return;
    }
    Default();
}

void CHyMenuButton::OnSize(UINT, int, int) { Default(); }

LRESULT CHyMenuButton::OnGetDlgCodeEx(WPARAM, LPARAM lParam)
{
    LRESULT code = Default();
    const MSG* msg = (const MSG*)lParam;   // may be null
    if (msg != nullptr && (msg->message == WM_KEYDOWN || msg->message == WM_CHAR) && msg->wParam == VK_RETURN)
        code |= DLGC_WANTALLKEYS;
    return code;
}

void CHyMenuButton::OnClicked()
{
    ChoiceMenu choices(menu, menuId);
    CMenu* popup = choices.get();
    if (popup == nullptr)
        return;   // no menu: nothing opens
    CRect window;
    GetWindowRect(&window);
    const int count = (int)popup->GetMenuItemCount();
    for (int i = 0; i < count; ++i)
        popup->CheckMenuItem(i, MF_BYPOSITION | MF_UNCHECKED);
    popup->CheckMenuItem(menuIndex, MF_BYPOSITION | MF_CHECKED);
    const UINT chosen = (UINT)popup->TrackPopupMenu(TPM_RETURNCMD | TPM_RIGHTBUTTON, window.left + 10, window.top + 10, this);
    if (chosen == 0)
        return;   // cancelled
    for (int i = 0; i < count; ++i)
        if (popup->GetMenuItemID(i) == chosen)
        {
            menuIndex = i;
            UpdateButtonText();
            return;
        }
}

void CHyMenuButton::DrawItem(LPDRAWITEMSTRUCT lpDIS)
{
    if (HYThemeOwnerDraw(HYTHEME_BUTTON, lpDIS))
        return;   // the theme drew the button itself
    CDC* pDC = CDC::FromHandle(lpDIS->hDC);
    CRect r = lpDIS->rcItem;
    const bool isPressed = (lpDIS->itemState & ODS_SELECTED) != 0;
    CBrush black(RGB(0, 0, 0));
    pDC->FrameRect(&r, &black);
    r.DeflateRect(1, 1);
    HYThemeStyle look;
    HYThemeGetStyle(HYTHEME_BUTTON, &look);
    pDC->Draw3dRect(&r, isPressed ? look.dark : look.light, isPressed ? look.light : look.dark);
    r.DeflateRect(1, 1);
    pDC->FillSolidRect(&r, look.fill);
    if ((lpDIS->itemState & ODS_FOCUS) != 0)
    {
        CRect mark = r;
        mark.DeflateRect(1, 1);
        pDC->FrameRect(&mark, HYThemeGetFocusBrush());
    }
    if (isPressed)
        r.OffsetRect(1, 1);
    CRect text(r.left + 3, r.top + 3, r.right - 10, r.bottom - 3);
    text.DeflateRect(5, 0);
    CString caption;
    GetWindowText(caption);
    CFont* old = pDC->SelectObject(HYThemeGetFont(HYFONT_STANDARD));
    pDC->SetBkMode(TRANSPARENT);
    pDC->SetTextColor(look.text);
    // No DT_NOPREFIX: an "&" underlines the next character, as in the menu.
    pDC->DrawText(caption, &text, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_END_ELLIPSIS);
    pDC->SelectObject(old);
}
