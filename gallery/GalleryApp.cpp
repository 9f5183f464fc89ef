// HyGallery.exe: the reference host.
//
//   HyGallery [--lang xx] [--out DIR] [--png DIR] [--data DIR] [--list]
//
// --lang xx   take the library's resources from lang\xx\HyLangUI.dll
// --png DIR   write one PNG a page into DIR, print their paths, exit
// --out DIR   the same when there is no display (DISPLAY unset or empty);
//             with a display the gallery is interactive
// --data DIR  keep the gallery's categories and records in DIR; without it
//             the PNG mode starts from fresh sample data
// --list      print the pages' file names (their slugs), one a line, exit
//
// The library picks its language module when HyUI.dll is attached, before
// any code of ours runs. --lang therefore sets HYHOST_LANGDIR (which the host
// kit's GetTernLangDllDirectory honours) and runs the gallery again as a
// child process with the same arguments. The PNG mode without --lang does
// that once for each language module found under lang\.
#include <afxwin.h>
#include <objbase.h>
#include <algorithm>
#include <vector>
#include "GalleryData.h"
#include "GalleryFrame.h"
#include "GalleryHost.h"
#include "GalleryRender.h"
#include "HyCommonUI.h"
#include "HyModule.h"

namespace {

struct GalleryOptions
{
    CString lang;       // empty: the host kit's default
    CString outDir;     // --out or --png, as given
    CString dataDir;    // --data: the interactive gallery's data folder
    bool forcePng = false;
    bool help = false;
    bool list = false;
    CString error;
};

GalleryOptions ParseOptions(int argc, char** argv)
{
    GalleryOptions options;
    for (int i = 1; i < argc; ++i)
    {
        CString arg(argv[i]);
        bool hasValue = i + 1 < argc;
        if (arg == _T("--lang") && hasValue)
            options.lang = argv[++i];
        else if (arg == _T("--out") && hasValue)
            options.outDir = argv[++i];
        else if (arg == _T("--png") && hasValue)
        {
            options.outDir = argv[++i];
            options.forcePng = true;
        }
        else if (arg == _T("--data") && hasValue)
            options.dataDir = argv[++i];
        else if (arg == _T("--list"))
            options.list = true;
        else if (arg == _T("--help") || arg == _T("-h") || arg == _T("/?"))
            options.help = true;
        else
            options.error.Format(_T("unknown or incomplete option '%s'"), (LPCTSTR)arg);
    }
    for (int i = 0; i < options.lang.GetLength(); ++i)
        if (!_istalpha((unsigned char)options.lang[i]) && options.lang[i] != '-')
            options.error.Format(_T("not a language folder name: '%s'"), (LPCTSTR)options.lang);
    return options;
}

CString EnvironmentValue(LPCTSTR name)
{
    TCHAR value[MAX_PATH * 2] = {};
    DWORD n = ::GetEnvironmentVariable(name, value, _countof(value));
    return (n > 0 && n < _countof(value)) ? CString(value) : CString();
}

bool FileExists(const CString& path)
{
    DWORD attributes = ::GetFileAttributes(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

CString LangDir(const CString& lang) { return GalleryExeDir() + _T("\\lang\\") + lang; }

// The language folders under lang\ that hold a language module, sorted.
std::vector<CString> BuiltLanguages()
{
    std::vector<CString> langs;
    WIN32_FIND_DATA fd;
    HANDLE find = ::FindFirstFile(GalleryExeDir() + _T("\\lang\\*"), &fd);
    if (find == INVALID_HANDLE_VALUE)
        return langs;
    do
    {
        CString name(fd.cFileName);
        if ((fd.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) && name != _T(".") && name != _T("..") &&
            FileExists(LangDir(name) + _T("\\HyLangUI.dll")))
            langs.push_back(name);
    } while (::FindNextFile(find, &fd));
    ::FindClose(find);
    std::sort(langs.begin(), langs.end(), [](const CString& a, const CString& b) { return a.Compare(b) < 0; });
    return langs;
}

// Quotes one argument so that the C runtime's parser gives it back unchanged.
CString QuoteArgument(const CString& arg)
{
    if (!arg.IsEmpty() && arg.FindOneOf(_T(" \t\"")) < 0)
        return arg;
    CString quoted = _T("\"");
    int backslashes = 0;
    for (int i = 0; i < arg.GetLength(); ++i)
    {
        TCHAR ch = arg[i];
        if (ch == '\\')
        {
            ++backslashes;
            continue;
        }
        for (int k = 0; k < (ch == '"' ? backslashes * 2 + 1 : backslashes); ++k)
            quoted += '\\';
        backslashes = 0;
        quoted += ch;
    }
    for (int k = 0; k < backslashes * 2; ++k)
        quoted += '\\';
    quoted += '"';
    return quoted;
}

// Runs this program again with args and the language folder langDir; waits
// for it and answers its exit code.
int RunSelf(const std::vector<CString>& args, const CString& langDir)
{
    TCHAR exe[MAX_PATH] = {};
    ::GetModuleFileName(nullptr, exe, MAX_PATH);
    CString commandLine = QuoteArgument(exe);
    for (const CString& arg : args)
        commandLine += _T(" ") + QuoteArgument(arg);
    ::SetEnvironmentVariable(_T("HYHOST_LANGDIR"), langDir);
    ::SetEnvironmentVariable(_T("HYGALLERY_CHILD"), _T("1"));

    STARTUPINFO si = {};
    si.cb = sizeof(si);
    si.dwFlags = STARTF_USESTDHANDLES;
    si.hStdInput = ::GetStdHandle(STD_INPUT_HANDLE);
    si.hStdOutput = ::GetStdHandle(STD_OUTPUT_HANDLE);
    si.hStdError = ::GetStdHandle(STD_ERROR_HANDLE);
    PROCESS_INFORMATION pi = {};
    std::vector<TCHAR> buffer((LPCTSTR)commandLine, (LPCTSTR)commandLine + commandLine.GetLength() + 1);
    if (!::CreateProcess(exe, buffer.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &si, &pi))
    {
        GalleryPrintLine(_T("HyGallery: cannot start a second copy of the gallery"), true);
        return 1;
    }
    ::WaitForSingleObject(pi.hProcess, INFINITE);
    DWORD code = 1;
    ::GetExitCodeProcess(pi.hProcess, &code);
    ::CloseHandle(pi.hThread);
    ::CloseHandle(pi.hProcess);
    return (int)code;
}

bool CreateDirectories(const CString& dir)
{
    if (::CreateDirectory(dir, nullptr) || ::GetLastError() == ERROR_ALREADY_EXISTS)
        return true;
    int slash = dir.ReverseFind('\\');
    if (slash <= 2)
        return false;
    return CreateDirectories(dir.Left(slash)) && (::CreateDirectory(dir, nullptr) || ::GetLastError() == ERROR_ALREADY_EXISTS);
}

// The sidebar's language line.
CString LanguageCaption()
{
    return _T("Language: ") + GalleryLanguageName();
}

int WriteImage(HBITMAP hBitmap, const CString& path)
{
    HRESULT hr = hBitmap != nullptr ? GalleryWritePng(hBitmap, path) : E_FAIL;
    if (FAILED(hr))
    {
        CString message;
        message.Format(_T("HyGallery: could not write %s (0x%08lX)"), (LPCTSTR)GalleryDisplayPath(path), (unsigned long)hr);
        GalleryPrintLine(message, true);
        return 1;
    }
    GalleryPrintLine(GalleryDisplayPath(path));
    return 0;
}

// Writes every page (and the images a page adds) as PNG files into outDir.
int RunPngMode(const CString& outDir, const CString& lang)
{
    if (!CreateDirectories(outDir))
    {
        GalleryPrintLine(_T("HyGallery: cannot create ") + GalleryDisplayPath(outDir), true);
        return 1;
    }
    HRESULT hrCom = ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    CString tag = lang.IsEmpty() ? CString() : _T("-") + lang;
    int failures = 0;
    {
        CGalleryFrame frame;
        if (!frame.Create(LanguageCaption()))
        {
            GalleryPrintLine(_T("HyGallery: cannot create the main window"), true);
            return 1;
        }
        // Controls paint only while visible; the null display shows nothing.
        frame.ShowWindow(SW_SHOWNOACTIVATE);
        const std::vector<GalleryPageInfo>& pages = GalleryPages();
        for (int i = 0; i < (int)pages.size(); ++i)
        {
            frame.SelectPage(i);
            frame.FitToPage();
            CString base = outDir + _T("\\gallery-") + pages[i].slug;
            HBITMAP hPage = GalleryRenderClient(frame.m_hWnd);
            failures += WriteImage(hPage, base + tag + _T(".png"));
            if (hPage != nullptr)
                ::DeleteObject(hPage);
            if (CGalleryPage* page = frame.GetPage())
            {
                std::vector<CGalleryPage::ExtraImage> extras;
                page->GetExtraImages(extras);
                for (const CGalleryPage::ExtraImage& extra : extras)
                    failures += WriteImage(extra.hBitmap, base + _T("-") + extra.suffix + tag + _T(".png"));
            }
        }
        frame.DestroyWindow();
    }
    if (SUCCEEDED(hrCom))
        ::CoUninitialize();
    return failures == 0 ? 0 : 1;
}

} // namespace

class CGalleryApp : public CWinApp
{
public:
    CGalleryApp() : CWinApp(_T("HyUI Gallery")), m_nExitCode(0) {}
    BOOL InitInstance() override;
    int ExitInstance() override;

private:
    int m_nExitCode;
};

CGalleryApp theApp;

BOOL CGalleryApp::InitInstance()
{
    GalleryOptions options = ParseOptions(__argc, __argv);
    if (options.help || !options.error.IsEmpty())
    {
        if (!options.error.IsEmpty())
            GalleryPrintLine(_T("HyGallery: ") + options.error, true);
        GalleryPrintLine(_T("usage: HyGallery [--lang xx] [--out DIR] [--png DIR] [--data DIR] [--list]"), !options.error.IsEmpty());
        m_nExitCode = options.error.IsEmpty() ? 0 : 2;
        return FALSE;
    }
    if (options.list)
    {
        // What the page checks read, so they never keep a list of their own.
        for (const GalleryPageInfo& page : GalleryPages())
            GalleryPrintLine(page.slug);
        return FALSE;
    }
    const bool pngMode = options.forcePng || (!options.outDir.IsEmpty() && EnvironmentValue(_T("DISPLAY")).IsEmpty());
    const bool isChild = !EnvironmentValue(_T("HYGALLERY_CHILD")).IsEmpty();
    std::vector<CString> args;
    for (int i = 1; i < __argc; ++i)
        args.push_back(__argv[i]);

    if (!options.lang.IsEmpty())
    {
        CString dir = LangDir(options.lang);
        // HyUI.dll has read the language folder already: run again with it set.
        if (!isChild && EnvironmentValue(_T("HYHOST_LANGDIR")).CompareNoCase(dir) != 0)
        {
            m_nExitCode = RunSelf(args, dir);
            return FALSE;
        }
        if (!FileExists(dir + _T("\\HyLangUI.dll")))
            GalleryPrintLine(_T("HyGallery: no language module in ") + dir +
                                 _T("; the library's own English copy is used"), true);
    }
    else if (pngMode && !isChild)
    {
        // Every language module the build made, one run each.
        std::vector<CString> langs = BuiltLanguages();
        if (!langs.empty())
        {
            for (const CString& lang : langs)
            {
                std::vector<CString> langArgs = args;
                langArgs.push_back(_T("--lang"));
                langArgs.push_back(lang);
                m_nExitCode = std::max(m_nExitCode, RunSelf(langArgs, LangDir(lang)));
            }
            return FALSE;
        }
    }

    // A regular framework module adds its own chain entry for the library.
    InitHyUIDLL();
    GallerySetDataFolder(GalleryWindowsPath(options.dataDir), pngMode && options.dataDir.IsEmpty());

    if (pngMode)
    {
        m_nExitCode = RunPngMode(GalleryWindowsPath(options.outDir), options.lang);
        return FALSE;
    }

    CGalleryFrame* frame = new CGalleryFrame;
    if (!frame->Create(LanguageCaption()))
    {
        delete frame;
        m_nExitCode = 1;
        return FALSE;
    }
    m_pMainWnd = frame;
    frame->ShowWindow(m_nCmdShow);
    frame->UpdateWindow();
    return TRUE;
}

int CGalleryApp::ExitInstance()
{
    if (m_pMainWnd != nullptr)
    {
        delete m_pMainWnd;   // the window is gone; the object remains
        m_pMainWnd = nullptr;
        return CWinApp::ExitInstance();
    }
    return m_nExitCode;
}

int WINAPI WinMain(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPSTR lpCmdLine, int nCmdShow)
{
    return AfxWinMain(hInstance, hPrevInstance, lpCmdLine, nCmdShow);
}
