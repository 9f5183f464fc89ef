// Contact photos for the host and the photo views: fetching a picture over
// HTTP, encoding it as JPEG, and fitting it into a rectangle.
#pragma once

#include <afxwin.h>

#include "CxImage.h"
#include "HyUIExport.h"

// Fetches a url ending in "jpg" or "bmp" (any case) as a new CxImage the
// caller deletes and must test with IsValid(); NULL on failure, with the
// reason in a message box unless quiet. Blocks under the wait cursor.
HYUI_API CxImage* HYDownloadURLImage(LPCSTR url, int quiet);
// Time allowed to send a request and to wait for each part of the answer, in
// milliseconds (default 30,000); 0 restores the default.
HYUI_API void HySetDownloadTimeout(DWORD milliseconds);

// JPEG bytes of the picture (free them with HyFreeEncodedImage). A palette
// picture is raised to 24 bits in place first. 1 on success.
HYUI_API int HyEncodeJPEG(CxImage* pImage, BYTE*& pBuffer, long& nSize);

// Shrinks rect to fit a limit x limit square, keeping proportions and the
// top-left corner; never enlarges.
HYUI_API void HYScalePropRect(CRect& rect, int limit);

// Draws the picture centred in the target, scaled to fit its width.
HYUI_API void HYDrawRectImage(CDC* pDC, CxImage* pImage, const RECT& rcTarget);
