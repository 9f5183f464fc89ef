// Built twice by the tests: as is it must compile; with HY_WRONG_SIGNATURE
// the handler takes (UINT) instead of (UINT, CPoint) and it must not.
#include <afxwin.h>

class CHandlerOwner : public CWnd
{
protected:
#ifdef HY_WRONG_SIGNATURE
    afx_msg void OnLButtonDown(UINT nFlags);
#else
    afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
#endif
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CHandlerOwner, CWnd)
    ON_WM_LBUTTONDOWN()
END_MESSAGE_MAP()

#ifdef HY_WRONG_SIGNATURE
void CHandlerOwner::OnLButtonDown(UINT) {}
#else
void CHandlerOwner::OnLButtonDown(UINT, CPoint) {}
#endif

int main() { return 0; }
