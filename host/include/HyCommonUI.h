// The host's common-UI services: where the language modules are, loading and
// releasing one, and reading the host's profile.
#pragma once
#include <afx.h>
#include "HyHostExport.h"

// Fills dir with the folder that holds the language modules: the one set by
// HySetLangDllDirectory, else the environment variable HYHOST_LANGDIR, else
// "<folder of HyHost.dll>\lang\en". Never fails.
HYHOST_API void GetTernLangDllDirectory(CString& dir);
// Sets the folder for this process (NULL or "" returns to the default).
HYHOST_API void HySetLangDllDirectory(LPCSTR dir);

// Loads the language module at path for the library whose module is
// hOwnInstance. Returns its handle, or hOwnInstance when the module is absent
// or is not a resource module, so the library's own copy is used. The word
// receives the language id of the module's first string table (0 for the
// own instance).
HYHOST_API HINSTANCE HyLoadLangModule(LPCSTR path, HINSTANCE hOwnInstance, DWORD* pLoaderWord);
// Releases what HyLoadLangModule returned; non-zero when a module was
// released, zero when hResource was the own instance (or NULL).
HYHOST_API BOOL HyReleaseLangModule(HINSTANCE hResource, HINSTANCE hOwnInstance);

// The host's profile: an INI file whose path the host sets (default:
// "HyHost.ini" beside HyHost.dll). Reads the integer key of section into
// *pValue; FALSE with *pValue = 0 when the key is absent or not a number.
HYHOST_API BOOL HyGetProfileInt(LPCSTR section, LPCSTR key, int* pValue);
HYHOST_API void HySetProfilePath(LPCSTR path);
