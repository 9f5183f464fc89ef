// What the gallery knows as a host: where it runs from, which language module
// the library uses, and how to name modules and paths for a person.
#pragma once
#include <afxwin.h>

// The folder of HyGallery.exe, without a trailing backslash.
CString GalleryExeDir();
// A module as a person reads it: "HyUI.dll (English copy)", "HyHost.dll",
// the language module's path below the gallery's folder
// ("lang\de\HyLangUI.dll"; it is mapped as a data file, so it is named after
// the host kit's language folder), else the module's path below the
// gallery's folder or its full path.
CString GalleryModuleName(HMODULE hModule);
// The folder the host kit takes language modules from, no trailing backslash.
CString GalleryLanguageFolder();
// The language the library speaks: the language folder's name ("en", "de"),
// "built-in English" when no language module was loaded.
CString GalleryLanguageName();
// The module HyUI.dll takes its resources from first (the language module,
// or HyUI.dll itself when none was loaded); NULL before the library is
// attached.
HMODULE GalleryLibraryResourceModule();
// A Windows path as the person who started the gallery reads it: the Unix
// path under Wine, the Windows path elsewhere.
CString GalleryDisplayPath(const CString& windowsPath);
// A path given on the command line: a Unix path under Wine ("/tmp/out") is
// turned into its Windows form; any other path is made absolute.
CString GalleryWindowsPath(const CString& argument);
// One line to the standard output or error stream (as bytes, unconverted).
void GalleryPrintLine(const CString& line, bool toStdErr = false);

// The gallery as the host of private records: its main window answers the
// library's password-digest request (0xBEC2) with the digest of "secret", or
// with -1 ("no password set") while that switch is on. Every request counts.
LRESULT GalleryAnswerPasswordRequest(WPARAM wParam, LPARAM lParam);
void GallerySetNoPassword(bool noPassword);
int GalleryPasswordRequests();
