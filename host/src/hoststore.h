// Inside HyHost.dll: its folder, the profile in use, and whole-file reads and
// atomic saves shared by the category, record and subscription stores.
#pragma once
#include <windows.h>
#include <cstdint>
#include <string>
#include <vector>

namespace hyhost {

// The folder of HyHost.dll, without a trailing backslash.
std::string HostFolder();
// The profile in use: HySetProfilePath's, else "<HostFolder>\HyHost.ini".
std::string ProfilePath();
// The data folder in use (HyGetDataFolder's text).
std::string DataFolder();
// "<data folder>\<component><extension>", or empty when the component is not
// a plain file name (empty, a path separator or a character files refuse).
std::string ComponentFile(const char* component, const char* extension);
// True when name can be one element of a path.
bool PlainFileName(const std::string& name);
// Creates a folder and any missing parents; true when it exists afterwards.
bool MakeFolders(const std::string& folder);

enum class ReadResult { Ok, Missing, Failed };
// The whole file; files over 64 MB are refused as Failed.
ReadResult ReadWholeFile(const std::string& path, std::vector<uint8_t>& bytes);
// Writes "<path>.tmp" fully, flushes it and moves it over path. On any
// failure the temporary file is deleted and path is left as it was.
bool SaveAtomically(const std::string& path, const std::vector<uint8_t>& bytes);

}  // namespace hyhost
