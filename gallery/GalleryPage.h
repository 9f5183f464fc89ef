// A page of the gallery and the registry that lists them.
//
// A page is a child window of the main frame that shows one control family.
// It paints its own content in content coordinates (the page scrolls
// vertically when its content is taller than the window) and places its child
// controls in Layout. Adding a page is adding one file to pages/:
//
//     class CMyPage : public CGalleryPage { ... };
//     GALLERY_REGISTER_PAGE(CMyPage, "My controls", "my-controls", 50)
#pragma once
#include <afxwin.h>
#include <vector>

class CGalleryPage : public CWnd
{
public:
    CGalleryPage();

    // Creates the page window in pParent at rect, then OnCreatePage.
    BOOL CreatePage(CWnd* pParent, const RECT& rect, UINT nID);

    // The size the content needs at client width cx (the PNG mode sizes its
    // image to it; the interactive window scrolls when it is taller).
    virtual CSize GetContentSize(int cx) = 0;

    // Images a page renders besides itself in PNG mode (name suffix and a
    // 32-bit DIB section each). The default has none.
    struct ExtraImage
    {
        CString suffix;
        HBITMAP hBitmap;   // owned by the page
    };
    virtual void GetExtraImages(std::vector<ExtraImage>& images) { (void)images; }

    // Paints the whole page into pDC (client coordinates), used by the
    // window's WM_PAINT and by WM_PRINTCLIENT.
    void PaintInto(CDC* pDC);

    int GetScrollY() const { return m_nScrollY; }

protected:
    // Creates the page's child controls.
    virtual void OnCreatePage() {}
    // Places the child controls for client width cx; y positions are content
    // coordinates minus scrollY.
    virtual void Layout(int cx, int scrollY) { (void)cx; (void)scrollY; }
    // Paints the content; rcContent is the visible part in content coordinates.
    virtual void Paint(CDC& dc, const CRect& rcContent) = 0;

    void ScrollTo(int y);
    void UpdateScrollRange();

    afx_msg void OnPaint();
    afx_msg BOOL OnEraseBkgnd(CDC* pDC);
    afx_msg void OnSize(UINT nType, int cx, int cy);
    afx_msg void OnVScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar);
    afx_msg BOOL OnMouseWheel(UINT nFlags, short zDelta, CPoint pt);
    afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
    afx_msg LRESULT OnPrintClient(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    int m_nScrollY;
};

// One registered page: its title in the selector, the name its PNG file
// carries, its place in the selector (ascending) and its factory.
struct GalleryPageInfo
{
    LPCTSTR title;
    LPCTSTR slug;
    int order;
    CGalleryPage* (*create)();
};

// The registered pages, sorted by order.
const std::vector<GalleryPageInfo>& GalleryPages();
void GalleryRegisterPage(const GalleryPageInfo& info);

struct GalleryPageRegistrar
{
    explicit GalleryPageRegistrar(const GalleryPageInfo& info) { GalleryRegisterPage(info); }
};

#define GALLERY_REGISTER_PAGE(Class, title, slug, order)                                    \
    static CGalleryPage* Create##Class() { return new Class; }                               \
    static const GalleryPageRegistrar s_register##Class({ title, slug, order, Create##Class });
