// HyUI's string table, bitmaps and cursors, read from the built modules:
// HyUI.dll's own English copy and the English and German language modules.
#include <gtest/gtest.h>
#include <windows.h>
#include <string>
#include <utility>
#include <vector>
#include "HyUIRes.h"
#include "hytest.h"
#include "test_resources_support.h"

using restest::DataModule;
using restest::ModuleSpec;
using restest::TableString;

namespace {

struct StringEntry
{
    UINT id;
    const wchar_t* english;
    bool sameInGerman;    // the German word is the same
};

const StringEntry kStrings[] = {
    { IDS_DAY_MONDAY, L"M", true },
    { IDS_DAY_TUESDAY, L"T", false },
    { IDS_DAY_WEDNESDAY, L"W", false },
    { IDS_DAY_THURSDAY, L"Th", false },
    { IDS_DAY_FRIDAY, L"F", true },
    { IDS_DAY_SUNDAY, L"S", true },
    { IDS_DAY_SATURDAY, L"S", true },
    { IDS_CARDS_EMPTY, L"\n\nThere are no items to show in this view", false },
    { IDS_PASSWORD_ENTER_TITLE, L"Enter Password", false },
    { IDS_PASSWORD_INCORRECT, L"The password is incorrect.", false },
    { IDS_PASSWORD_EDIT_TITLE, L"Edit Private Record", false },
    { IDS_YEAR_MENU_FORMAT, L"%Y", true },
    { IDS_MONTH_MENU_FORMAT, L"%B %Y", true },
    { IDS_NO_PHOTO, L"No Photo", false },
    { IDS_URL_NO_CONNECTION, L"Could not connect to the internet", false },
    { IDS_URL_INVALID, L"The URL address is not valid", false },
    { IDS_URL_IMAGE_CORRUPT, L"The image is corrupt", false },
    { IDS_REMIND_DAYS_ON_HANDHELD, L"Remind %d days on handheld", false },
};

// The printf/strftime conversions of a text, in order ("%d", "%B" ...).
std::wstring Conversions(const std::wstring& text)
{
    std::wstring out;
    for (size_t i = 0; i + 1 < text.size(); ++i)
        if (text[i] == L'%')
        {
            out += text.substr(i, 2);
            ++i;
        }
    return out;
}

class StringTable : public ::testing::TestWithParam<ModuleSpec>
{
};

// English exactly; German translated where the word differs, with the same
// conversions in the same order, the empty-view text's two line feeds, and
// its umlauts intact (UTF-8 read as a single-byte code page shows "\u00c3").
TEST_P(StringTable, EveryTextIsExactOrTranslatedWithItsConversions)
{
    const bool german = GetParam().german;
    DataModule module(GetParam().relative);
    ASSERT_NE(module.get(), nullptr) << module.path();
    for (const StringEntry& entry : kStrings)
    {
        SCOPED_TRACE("string " + std::to_string(entry.id));
        const std::wstring text = TableString(module.get(), entry.id);
        EXPECT_FALSE(text.empty());
        if (!german || entry.sameInGerman)
            EXPECT_EQ(text, entry.english);
        else
            EXPECT_NE(text, entry.english) << "not translated";
        EXPECT_EQ(Conversions(text), Conversions(entry.english));
        EXPECT_EQ(text.find(L'\u00c3'), std::wstring::npos) << "garbled";
    }
    const std::wstring empty = TableString(module.get(), IDS_CARDS_EMPTY);
    EXPECT_TRUE(empty.size() > 3 && empty.compare(0, 2, L"\n\n") == 0 && empty[2] != L'\n' && empty[2] != L'\r');
    EXPECT_TRUE(!german || TableString(module.get(), IDS_URL_INVALID).find(L"ung\u00fcltig") != std::wstring::npos);
}

INSTANTIATE_TEST_SUITE_P(Resources, StringTable, ::testing::Values(restest::kHyUI, restest::kLangDe),
                         restest::ModuleTestName);

// ---- Bitmaps -----------------------------------------------------------------

struct BitmapEntry
{
    UINT id;
    const char* what;
    int width, height, bitsPerPixel;
    int minimumDrawnPixels;    // pixels that are not the see-through colour
};

const BitmapEntry kBitmaps[] = {
    { IDB_NOTE, "note", 16, 16, 4, 100 },
    { IDB_PADLOCK, "padlock", 12, 15, 4, 80 },
    { IDB_CHECK_MARK, "check mark", 8, 8, 8, 15 },
    { IDB_BUTTON_PLACEHOLDER, "button placeholder", 40, 32, 8, 1000 },
};

const COLORREF kSeeThrough = RGB(255, 0, 255);

// Every language a resource is present in.
std::vector<WORD> ResourceLanguages(HMODULE module, LPCWSTR type, UINT id)
{
    std::vector<WORD> languages;
    ::EnumResourceLanguagesW(module, type, MAKEINTRESOURCEW(id),
                             [](HMODULE, LPCWSTR, LPCWSTR, WORD language, LONG_PTR list) -> BOOL {
                                 reinterpret_cast<std::vector<WORD>*>(list)->push_back(language);
                                 return TRUE;
                             },
                             reinterpret_cast<LONG_PTR>(&languages));
    return languages;
}

class Pictures : public ::testing::TestWithParam<ModuleSpec>
{
};

// Each picture in the module's own language only; bitmaps of their size and
// depth, drawn on the see-through colour of their top-left pixel; resize
// cursors with the hot spot in the middle.
TEST_P(Pictures, CarryTheirLanguageSizeDepthAndHotSpot)
{
    DataModule module(GetParam().relative);
    ASSERT_NE(module.get(), nullptr) << module.path();
    const std::vector<WORD> language = { WORD(GetParam().german ? MAKELANGID(LANG_GERMAN, SUBLANG_GERMAN)
                                                                : MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US)) };
    // The process's first screen DC is cached with its objects for good.
    hytest::ObjectGuard guard([] { ::ReleaseDC(nullptr, ::GetDC(nullptr)); });
    HDC dc = ::CreateCompatibleDC(nullptr);
    for (const BitmapEntry& entry : kBitmaps)
    {
        SCOPED_TRACE(entry.what);
        EXPECT_EQ(language, ResourceLanguages(module.get(), (LPCWSTR)RT_BITMAP, entry.id));
        const std::vector<BYTE> raw = restest::RawResource(module.get(), (LPCWSTR)RT_BITMAP, entry.id);
        ASSERT_GE(raw.size(), sizeof(BITMAPINFOHEADER));
        const BITMAPINFOHEADER* header = reinterpret_cast<const BITMAPINFOHEADER*>(raw.data());
        EXPECT_EQ((std::vector<int>{ entry.width, entry.height, entry.bitsPerPixel }),
                  (std::vector<int>{ header->biWidth, header->biHeight, header->biBitCount }));
        HBITMAP bitmap = ::LoadBitmapW(module.get(), MAKEINTRESOURCEW(entry.id));
        HGDIOBJ old = ::SelectObject(dc, bitmap);
        EXPECT_EQ(::GetPixel(dc, 0, 0), kSeeThrough);
        int drawn = 0;
        for (int y = 0; y < entry.height; ++y)
            for (int x = 0; x < entry.width; ++x)
                drawn += ::GetPixel(dc, x, y) != kSeeThrough;
        EXPECT_GE(drawn, entry.minimumDrawnPixels);
        ::SelectObject(dc, old);
        ::DeleteObject(bitmap);
    }
    ::DeleteDC(dc);
    for (UINT id : { IDC_CURSOR_RESIZE_WIDTH, IDC_CURSOR_RESIZE_HEIGHT })
    {
        EXPECT_EQ(language, ResourceLanguages(module.get(), (LPCWSTR)RT_GROUP_CURSOR, id)) << id;
        HCURSOR cursor = (HCURSOR)::LoadImageW(module.get(), MAKEINTRESOURCEW(id), IMAGE_CURSOR, 32, 32, 0);
        ICONINFO info{};
        ASSERT_TRUE(cursor && ::GetIconInfo(cursor, &info)) << id;
        EXPECT_EQ(std::pair(16u, 16u), std::pair((unsigned)info.xHotspot, (unsigned)info.yHotspot)) << id;
        ::DeleteObject(info.hbmMask);
        if (info.hbmColor)
            ::DeleteObject(info.hbmColor);
        ::DestroyCursor(cursor);
    }
}

INSTANTIATE_TEST_SUITE_P(Resources, Pictures, ::testing::Values(restest::kHyUI, restest::kLangDe),
                         restest::ModuleTestName);

// The ids of every resource of a type in a module.
std::vector<UINT> ResourceIds(HMODULE module, LPCWSTR type)
{
    std::vector<UINT> ids;
    ::EnumResourceNamesW(module, type,
                         [](HMODULE, LPCWSTR, LPWSTR name, LONG_PTR list) -> BOOL {
                             if (IS_INTRESOURCE(name))
                                 reinterpret_cast<std::vector<UINT>*>(list)->push_back((UINT)(UINT_PTR)name);
                             return TRUE;
                         },
                         reinterpret_cast<LONG_PTR>(&ids));
    return ids;
}

// The English module is HyUI.dll's own copy byte for byte, so what is checked
// on the library holds for it; the German module shares the pictures.
TEST(ResourcesModules, TheEnglishModuleCarriesTheLibrarysResourcesByteForByte)
{
    DataModule library(restest::kHyUI.relative), english(restest::kLangEn.relative),
        german(restest::kLangDe.relative);
    ASSERT_TRUE(library.get() && english.get() && german.get());
    for (LPCWSTR type : { (LPCWSTR)RT_STRING, (LPCWSTR)RT_DIALOG, (LPCWSTR)RT_BITMAP, (LPCWSTR)RT_GROUP_CURSOR,
                          (LPCWSTR)RT_CURSOR })
    {
        SCOPED_TRACE("type " + std::to_string((UINT_PTR)type));
        const std::vector<UINT> ids = ResourceIds(library.get(), type);
        EXPECT_FALSE(ids.empty());
        EXPECT_EQ(ResourceIds(english.get(), type), ids);
        const bool picture = type != (LPCWSTR)RT_STRING && type != (LPCWSTR)RT_DIALOG;
        for (UINT id : ids)
        {
            const std::vector<BYTE> mine = restest::RawResource(library.get(), type, id);
            EXPECT_EQ(restest::RawResource(english.get(), type, id), mine) << id;
            EXPECT_TRUE(!picture || restest::RawResource(german.get(), type, id) == mine) << id;
        }
    }
}

}  // namespace
