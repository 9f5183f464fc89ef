// Which swatch each category has: kept in the host profile, section
// "Category Colors", keys "Category0".."Category15" (a swatch number 1..16).
// Painting asks for a category's swatch often, so the mapping is cached and
// read again only when the profile's size or last-write time has changed,
// which is how a change by another process arrives.
#include <afxwin.h>
#include "HyTheme.h"
#include "hoststore.h"

#include <cstdlib>
#include <string>

namespace {

const char kSection[] = "Category Colors";

struct Stamp
{
    std::string path;
    bool exists = false;
    FILETIME written = {};
    DWORD sizeLow = 0;

    bool operator==(const Stamp& o) const
    {
        return path == o.path && exists == o.exists && written.dwLowDateTime == o.written.dwLowDateTime &&
               written.dwHighDateTime == o.written.dwHighDateTime && sizeLow == o.sizeLow;
    }
};

int g_swatch[HYCATEGORY_COUNT];
Stamp g_stamp;
bool g_loaded = false;

Stamp Now()
{
    Stamp s;
    s.path = hyhost::ProfilePath();
    WIN32_FILE_ATTRIBUTE_DATA data = {};
    s.exists = ::GetFileAttributesExA(s.path.c_str(), GetFileExInfoStandard, &data) != FALSE;
    if (s.exists)
    {
        s.written = data.ftLastWriteTime;
        s.sizeLow = data.nFileSizeLow;
    }
    return s;
}

std::string Key(WORD category) { return "Category" + std::to_string(category); }

void Defaults()
{
    g_swatch[0] = HYSWATCH_COUNT;   // the catch-all gets the neutral swatch
    for (int c = 1; c < HYCATEGORY_COUNT; ++c) g_swatch[c] = c;
}

// A stored swatch: whole digits, 1..16; anything else keeps the default.
int StoredSwatch(const std::string& path, WORD category, int fallback)
{
    char text[16] = "";
    ::GetPrivateProfileStringA(kSection, Key(category).c_str(), "", text, sizeof text, path.c_str());
    char* end = nullptr;
    const long value = std::strtol(text, &end, 10);
    return text[0] >= '0' && text[0] <= '9' && *end == 0 && value >= 1 && value <= HYSWATCH_COUNT ? int(value)
                                                                                                : fallback;
}

void Refresh()
{
    const Stamp now = Now();
    if (g_loaded && now == g_stamp) return;
    Defaults();
    if (now.exists)
    {
        // Drop the profile functions' own cached copy: another process wrote it.
        ::WritePrivateProfileStringA(nullptr, nullptr, nullptr, now.path.c_str());
        for (WORD c = 0; c < HYCATEGORY_COUNT; ++c) g_swatch[c] = StoredSwatch(now.path, c, g_swatch[c]);
    }
    g_stamp = now;
    g_loaded = true;
}

}  // namespace

extern "C" {

int WINAPI HYThemeSwatchOfCategory(WORD wCategory)
{
    if (wCategory >= HYCATEGORY_COUNT) return HYSWATCH_NONE;
    Refresh();
    return g_swatch[wCategory];
}

BOOL WINAPI HYThemeSetCategorySwatch(WORD wCategory, int nSwatch)
{
    if (wCategory >= HYCATEGORY_COUNT || nSwatch < 1 || nSwatch > HYSWATCH_COUNT) return FALSE;
    Refresh();
    const std::string path = hyhost::ProfilePath();
    if (!::WritePrivateProfileStringA(kSection, Key(wCategory).c_str(), std::to_string(nSwatch).c_str(),
                                      path.c_str()))
        return FALSE;   // not stored: the mapping stays as it was
    g_swatch[wCategory] = nSwatch;
    g_stamp = Now();
    return TRUE;
}

// Back to the default mapping, in memory and in the profile (the section goes).
void WINAPI HYThemeResetCategorySwatches()
{
    const std::string path = hyhost::ProfilePath();
    if (::GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES)
        ::WritePrivateProfileStringA(kSection, nullptr, nullptr, path.c_str());
    Defaults();
    g_stamp = Now();
    g_loaded = true;
}

}  // extern "C"
