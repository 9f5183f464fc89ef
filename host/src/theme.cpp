// The default theme: element styles, colour shading, fonts, the swatch
// colours. Drawing helpers are in theme_draw.cpp, which category has which
// swatch in theme_swatches.cpp. Palette reasons: docs/theme.md.
#include <afxwin.h>
#include "HyTheme.h"

namespace {

struct ElementStyle
{
    int id;
    HYThemeStyle style;
};

constexpr COLORREF Hex(unsigned rgb)  // 0xRRGGBB as written in docs/theme.md
{
    return RGB((rgb >> 16) & 0xFF, (rgb >> 8) & 0xFF, rgb & 0xFF);
}

//                     kind              mode                      fill            fillEnd         text            light           dark            line
const ElementStyle kElements[] = {
    { HYTHEME_BUTTON,
      { HYSTYLE_SOLID, 0,                        Hex(0xF1F5F9), Hex(0xF1F5F9), Hex(0x0F172A), Hex(0xFFFFFF), Hex(0x94A3B8), Hex(0x64748B) } },
    { HYTHEME_LIST_SELFRAME,
      { HYSTYLE_SOLID, 0,                        Hex(0x2563EB), Hex(0x2563EB), Hex(0xFFFFFF), Hex(0x93C5FD), Hex(0x1E40AF), Hex(0x1E40AF) } },
    { HYTHEME_VIEW,
      { HYSTYLE_SOLID, 0,                        Hex(0xE2E8F0), Hex(0xE2E8F0), Hex(0x334155), Hex(0xF8FAFC), Hex(0x94A3B8), Hex(0xCBD5E1) } },
    { HYTHEME_HEADER,
      { HYSTYLE_GRADIENT, HYGRADIENT_HORIZONTAL, Hex(0xDBEAFE), Hex(0xBFD4F6), Hex(0x1E3A8A), Hex(0xFFFFFF), Hex(0x7A9CD0), Hex(0x6B8FC9) } },
    { HYTHEME_BODY,
      { HYSTYLE_SOLID, 0,                        Hex(0xFFFFFF), Hex(0xFFFFFF), Hex(0x1F2937), Hex(0xFFFFFF), Hex(0xCBD5E1), Hex(0xCBD5E1) } },
    { HYTHEME_HEADER_SEL,
      { HYSTYLE_SOLID, 0,                        Hex(0x60A5FA), Hex(0x60A5FA), Hex(0x172554), Hex(0xBFDBFE), Hex(0x1E40AF), Hex(0x1E3A8A) } },
    { HYTHEME_FOCUS,
      { HYSTYLE_SOLID, 0,                        Hex(0x8A2C0D), Hex(0x8A2C0D), Hex(0xFFFFFF), Hex(0xFDBA74), Hex(0x7C2D12), Hex(0x8A2C0D) } },
    { HYTHEME_LIST,
      { HYSTYLE_SOLID, 0,                        Hex(0xD0D8E2), Hex(0xD0D8E2), Hex(0x1E293B), Hex(0xF0F8FF), Hex(0xB0B8C2), Hex(0xB0B8C2) } },
    { HYTHEME_PHOTO,
      { HYSTYLE_SOLID, 0,                        Hex(0xCBD5E1), Hex(0xCBD5E1), Hex(0x334155), Hex(0xE2E8F0), Hex(0x94A3B8), Hex(0x94A3B8) } },
    { HYTHEME_TAB_ROW,
      { HYSTYLE_SOLID, 0,                        Hex(0xE2E8F0), Hex(0xE2E8F0), Hex(0x334155), Hex(0xF8FAFC), Hex(0x94A3B8), Hex(0x94A3B8) } },
    { HYTHEME_TAB,
      { HYSTYLE_SOLID, 0,                        Hex(0xF1F5F9), Hex(0xF1F5F9), Hex(0x334155), Hex(0xFFFFFF), Hex(0x94A3B8), Hex(0xCBD5E1) } },
    { HYTHEME_TAB_ACTIVE,
      { HYSTYLE_SOLID, 0,                        Hex(0xFFFFFF), Hex(0xFFFFFF), Hex(0x0F172A), Hex(0xFFFFFF), Hex(0x94A3B8), Hex(0x2563EB) } },
    { HYTHEME_TAB_PAGE,
      { HYSTYLE_SOLID, 0,                        Hex(0xFFFFFF), Hex(0xFFFFFF), Hex(0x1F2937), Hex(0xFFFFFF), Hex(0x94A3B8), Hex(0x94A3B8) } },
};

// What unknown ids get: a neutral surface with dark text, legible anywhere.
const HYThemeStyle kFallback =
      { HYSTYLE_SOLID, 0,                        Hex(0xF8FAFC), Hex(0xF8FAFC), Hex(0x0F172A), Hex(0xFFFFFF), Hex(0x94A3B8), Hex(0x94A3B8) };

// The sixteen category colours, by swatch index 1..16. Chosen so that every
// pair stays apart in normal vision and in simulated protanopia,
// deuteranopia and tritanopia (tools/swatch_check.py).
const COLORREF kSwatches[HYSWATCH_COUNT] = {
    Hex(0x2473A8),  //  1 steel blue
    Hex(0x93C5FD),  //  2 sky
    Hex(0x65A30D),  //  3 green
    Hex(0xE85E5E),  //  4 coral
    Hex(0xBF5EE8),  //  5 orchid
    Hex(0x7C3AED),  //  6 violet
    Hex(0xDF9098),  //  7 rose
    Hex(0x871D32),  //  8 wine
    Hex(0xC2ED82),  //  9 lime
    Hex(0x1929B3),  // 10 royal blue
    Hex(0x854D0E),  // 11 brown
    Hex(0x5EEAD4),  // 12 aqua
    Hex(0x1D4E63),  // 13 petrol
    Hex(0x581C87),  // 14 deep purple
    Hex(0xFDE047),  // 15 yellow
    Hex(0x64748B),  // 16 slate: the catch-all category's neutral
};

const HYThemeStyle* FindStyle(int id)
{
    for (const ElementStyle& e : kElements)
        if (e.id == id) return &e.style;
    return nullptr;
}

int Clamp255(int v) { return v < 0 ? 0 : (v > 255 ? 255 : v); }

// ---- fonts and brushes: made on first use, deleted when the DLL unloads ----

int CALLBACK FaceFound(const LOGFONT*, const TEXTMETRIC*, DWORD, LPARAM lParam)
{
    *reinterpret_cast<bool*>(lParam) = true;
    return 0;
}

bool FaceExists(HDC hdc, const char* face)
{
    LOGFONT lf = {};
    lf.lfCharSet = DEFAULT_CHARSET;
    lstrcpynA(lf.lfFaceName, face, LF_FACESIZE);
    bool found = false;
    ::EnumFontFamiliesExA(hdc, &lf, FaceFound, reinterpret_cast<LPARAM>(&found), 0);
    return found;
}

class ThemeObjects
{
public:
    ThemeObjects()
    {
        HDC hdc = ::GetDC(NULL);
        const int dpi = hdc ? ::GetDeviceCaps(hdc, LOGPIXELSY) : 96;
        LOGFONT base = {};
        // Tahoma is crisp at 8 points (Windows, and Wine with its own fonts
        // installed); then the usual sans-serif faces of Windows and Linux
        // (which Wine sees through fontconfig); last the system's GUI font.
        static const char* const kFaces[] = { "Tahoma", "Arial", "Liberation Sans", "DejaVu Sans" };
        const char* face = nullptr;
        for (const char* f : kFaces)
            if (hdc && FaceExists(hdc, f)) { face = f; break; }
        if (face == nullptr) ::GetObjectA(::GetStockObject(DEFAULT_GUI_FONT), sizeof(base), &base);
        else lstrcpynA(base.lfFaceName, face, LF_FACESIZE);
        if (hdc) ::ReleaseDC(NULL, hdc);

        base.lfCharSet = DEFAULT_CHARSET;
        base.lfOutPrecision = OUT_DEFAULT_PRECIS;
        base.lfClipPrecision = CLIP_DEFAULT_PRECIS;
        base.lfQuality = DEFAULT_QUALITY;
        base.lfPitchAndFamily = DEFAULT_PITCH | FF_SWISS;
        base.lfHeight = -::MulDiv(8, dpi, 72);
        base.lfWeight = FW_NORMAL;
        base.lfItalic = FALSE;

        LOGFONT lf = base;
        m_fonts[0].CreateFontIndirect(&lf);           // standard
        lf.lfWeight = FW_BOLD;
        m_fonts[1].CreateFontIndirect(&lf);           // card title
        lf = base;
        m_fonts[2].CreateFontIndirect(&lf);           // card text
        lf.lfItalic = TRUE;
        m_fonts[3].CreateFontIndirect(&lf);           // photo caption

        m_focus.CreateSolidBrush(FindStyle(HYTHEME_FOCUS)->fill);
        m_rule.CreateSolidBrush(FindStyle(HYTHEME_BODY)->line);
    }

    CFont* Font(int which)
    {
        if (which < HYFONT_STANDARD || which > HYFONT_PHOTO_CAPTION) which = HYFONT_STANDARD;
        return &m_fonts[which - 1];
    }
    CBrush* FocusBrush() { return &m_focus; }
    CBrush* RuleBrush() { return &m_rule; }

private:
    CFont m_fonts[4];
    CBrush m_focus;
    CBrush m_rule;
};

// A function-local static: built on first use, destroyed (its GDI objects
// deleted) when the process detaches HyHost.dll.
ThemeObjects& Objects()
{
    static ThemeObjects objects;
    return objects;
}

}  // namespace

extern "C" {

COLORREF WINAPI HYThemeGetColor(int nId)
{
    const HYThemeStyle* s = FindStyle(nId);
    return s ? s->fill : kFallback.fill;
}

COLORREF WINAPI HYThemeFallbackColor()
{
    return kFallback.fill;
}

BOOL WINAPI HYThemeGetStyle(int nId, HYThemeStyle* pStyle)
{
    const HYThemeStyle* s = FindStyle(nId);
    if (pStyle != nullptr) *pStyle = s ? *s : kFallback;
    return s != nullptr;
}

COLORREF WINAPI HYThemeShiftColor(COLORREF cr, int nDelta)
{
    return RGB(Clamp255(GetRValue(cr) + nDelta), Clamp255(GetGValue(cr) + nDelta),
               Clamp255(GetBValue(cr) + nDelta));
}

COLORREF WINAPI HYThemeLighten(COLORREF cr) { return HYThemeShiftColor(cr, 64); }
COLORREF WINAPI HYThemeDarken(COLORREF cr) { return HYThemeShiftColor(cr, -64); }

CFont* WINAPI HYThemeGetFont(int nWhich) { return Objects().Font(nWhich); }
COLORREF WINAPI HYThemeGetFocusColor() { return FindStyle(HYTHEME_FOCUS)->fill; }
CBrush* WINAPI HYThemeGetFocusBrush() { return Objects().FocusBrush(); }
CBrush* WINAPI HYThemeGetRuleBrush() { return Objects().RuleBrush(); }

COLORREF WINAPI HYThemeSwatchColor(int nSwatch)
{
    if (nSwatch < 1 || nSwatch > HYSWATCH_COUNT) return kFallback.fill;
    return kSwatches[nSwatch - 1];
}

}  // extern "C"
