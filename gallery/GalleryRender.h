// Rendering windows into bitmaps and bitmaps into PNG files, for the PNG mode
// and the dialog previews.
#pragma once
#include <afxwin.h>
#include <vector>

// Paints hWnd's client area and its visible descendants (bottom of the
// z-order first) into pDC, hWnd's client origin at clientOrigin. Windows are
// asked with WM_ERASEBKGND and WM_PAINT (the DC in wParam), their frames with
// WM_PRINT.
void GalleryPaintClientTree(HWND hWnd, CDC* pDC, CPoint clientOrigin);

// A 32-bit DIB section of hWnd's client area with everything in it.
// NULL on failure; the caller deletes the bitmap.
HBITMAP GalleryRenderClient(HWND hWnd);
// The same for the whole window: its frame and caption drawn as the desktop
// draws them, then the client tree.
HBITMAP GalleryRenderWindow(HWND hWnd);

// Writes a DIB section as a PNG file with the Windows Imaging Component.
// The caller has initialised COM. Returns an HRESULT.
HRESULT GalleryWritePng(HBITMAP hDib, LPCTSTR path);

// A DWORD-aligned copy of dialog template id, as the resource chain finds it,
// without WS_VISIBLE, so that a preview is made without the dialog ever
// appearing. Empty when the template is missing or malformed.
std::vector<DWORD> GalleryHiddenTemplate(UINT id);

// Renders a dialog created from such a template, frame included: controls
// paint only while visible, so it is shown far off the screen, inactive,
// first. The caller destroys the dialog and deletes the bitmap.
HBITMAP GalleryRenderHiddenDialog(CWnd& dialog);
