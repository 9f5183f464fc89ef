#include "GalleryStyle.h"

namespace GalleryStyle
{
COLORREF PageBackground() { return ::GetSysColor(COLOR_WINDOW); }
COLORREF SidebarBackground() { return ::GetSysColor(COLOR_BTNFACE); }
COLORREF Text() { return ::GetSysColor(COLOR_WINDOWTEXT); }
COLORREF MutedText() { return ::GetSysColor(COLOR_GRAYTEXT); }
COLORREF Rule() { return ::GetSysColor(COLOR_BTNSHADOW); }
COLORREF Accent() { return ::GetSysColor(COLOR_HIGHLIGHT); }
COLORREF AccentText() { return ::GetSysColor(COLOR_HIGHLIGHTTEXT); }
// No system colour means "error"; a clear red that reads on white and grey.
COLORREF Missing() { return RGB(190, 30, 45); }

namespace {
LOGFONT MessageFont()
{
    NONCLIENTMETRICS ncm = {};
    ncm.cbSize = sizeof(ncm);
    if (::SystemParametersInfo(SPI_GETNONCLIENTMETRICS, sizeof(ncm), &ncm, 0))
        return ncm.lfMessageFont;
    LOGFONT lf = {};
    ::GetObject(::GetStockObject(DEFAULT_GUI_FONT), sizeof(lf), &lf);
    return lf;
}

CFont* MakeFont(int heightPercent, int weight)
{
    LOGFONT lf = MessageFont();
    lf.lfHeight = lf.lfHeight * heightPercent / 100;
    lf.lfWeight = weight;
    lf.lfQuality = CLEARTYPE_QUALITY;
    CFont* font = new CFont;   // lives as long as the process
    font->CreateFontIndirect(&lf);
    return font;
}
}

CFont* BodyFont() { static CFont* f = MakeFont(110, FW_NORMAL); return f; }
CFont* BoldFont() { static CFont* f = MakeFont(110, FW_BOLD); return f; }
CFont* SectionFont() { static CFont* f = MakeFont(135, FW_BOLD); return f; }
CFont* TitleFont() { static CFont* f = MakeFont(190, FW_BOLD); return f; }

int LineHeight()
{
    static int height = 0;
    if (height == 0)
    {
        HDC hdc = ::CreateCompatibleDC(nullptr);
        HGDIOBJ old = ::SelectObject(hdc, BodyFont()->GetSafeHandle());
        TEXTMETRIC tm = {};
        ::GetTextMetrics(hdc, &tm);
        ::SelectObject(hdc, old);
        ::DeleteDC(hdc);
        height = tm.tmHeight + tm.tmExternalLeading + 6;
    }
    return height;
}

void DrawPageTitle(CDC& dc, LPCTSTR text)
{
    CDCSelect font(dc, TitleFont());
    dc.SetBkMode(TRANSPARENT);
    dc.SetTextColor(Text());
    dc.TextOut(kMargin, kMargin, text, (int)_tcslen(text));
}

int DrawSectionHeading(CDC& dc, int x, int y, int width, LPCTSTR text)
{
    CDCSelect font(dc, SectionFont());
    dc.SetBkMode(TRANSPARENT);
    dc.SetTextColor(Text());
    CSize size = dc.GetTextExtent(text, (int)_tcslen(text));
    dc.TextOut(x, y, text, (int)_tcslen(text));
    y += size.cy + 4;
    dc.FillSolidRect(x, y, width, 1, Rule());
    return y + kGap;
}

void DrawMissingBox(CDC& dc, const CRect& rc)
{
    CPen pen(PS_DOT, 1, Missing());
    CDCSelect selPen(dc, &pen);
    CDCSelect selBrush(dc, ::GetStockObject(NULL_BRUSH));
    dc.SetBkMode(TRANSPARENT);
    dc.Rectangle(rc);
    CDCSelect font(dc, BoldFont());
    dc.SetTextColor(Missing());
    CRect text = rc;
    dc.DrawText(_T("missing"), 7, &text, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
}
}

void GalleryStyle::CreateLog(CListBox& log, CWnd* parent, UINT id, DWORD extraStyle)
{
    log.Create(WS_CHILD | WS_VISIBLE | WS_BORDER | WS_VSCROLL | LBS_NOINTEGRALHEIGHT | LBS_NOSEL | extraStyle,
               CRect(0, 0, 100, 100), parent, id);
    log.SetFont(BodyFont());
}

void GalleryStyle::AppendLog(CListBox& log, LPCTSTR line, int visibleLines)
{
    if (log.m_hWnd == nullptr)
        return;
    const int at = log.AddString(line);
    log.SetTopIndex(at - visibleLines + 1 > 0 ? at - visibleLines + 1 : 0);
}
