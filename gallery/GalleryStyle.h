// The gallery's own look: colours, fonts and spacing shared by the frame and
// the pages. Colours are the system's (the host kit's theme is for the
// library's controls; the gallery's chrome follows the desktop).
#pragma once
#include <afxwin.h>

namespace GalleryStyle
{
COLORREF PageBackground();   // the pages' canvas
COLORREF SidebarBackground();
COLORREF Text();
COLORREF MutedText();        // captions, ids, module names
COLORREF Rule();             // separators and frames
COLORREF Accent();           // the selected page, escapes such as \n
COLORREF AccentText();
COLORREF Missing();          // what the resource chain did not find

// Fonts, created once, alive until the process ends.
CFont* BodyFont();
CFont* BoldFont();
CFont* SectionFont();        // section headings
CFont* TitleFont();          // the page title

// The body font's line height in pixels.
int LineHeight();

// Spacing, in pixels.
constexpr int kMargin = 24;
constexpr int kGap = 12;
constexpr int kSidebarWidth = 196;

// Draws the page's title at the top left of the page.
void DrawPageTitle(CDC& dc, LPCTSTR text);
// Draws a section heading with a rule under it across width; returns the y
// below it.
int DrawSectionHeading(CDC& dc, int x, int y, int width, LPCTSTR text);
// A page's log: a list box in the body font, no selection; lines are
// appended and the newest kept in sight (of `visibleLines`).
void CreateLog(CListBox& log, CWnd* parent, UINT id, DWORD extraStyle = 0);
void AppendLog(CListBox& log, LPCTSTR line, int visibleLines);
// Draws a dashed placeholder box with the word "missing" centred in it.
void DrawMissingBox(CDC& dc, const CRect& rc);
}
