// Rendering windows into bitmaps and bitmaps into PNG files, for the PNG mode
// and the dialog previews.
#pragma once
#include <afxwin.h>

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
