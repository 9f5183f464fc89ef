// Process settings a test changes for its scope and puts back: user-locale
// values, the C runtime's time zone, and files in the temporary folder.
#pragma once

#include <windows.h>

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace hytest {

// The folder of the test program, without a trailing separator.
std::string ExeFolder();

// User-locale values (LOCALE_SSHORTDATE, LOCALE_STIMEFORMAT, ...) changed
// for a scope; the destructor restores them in reverse order.
class LocaleValues
{
public:
    LocaleValues() = default;
    LocaleValues(LCTYPE type, const char* value) { Set(type, value); }
    ~LocaleValues();
    LocaleValues(const LocaleValues&) = delete;
    LocaleValues& operator=(const LocaleValues&) = delete;

    // False when the system refused the value.
    bool Set(LCTYPE type, const char* value);

private:
    std::vector<std::pair<LCTYPE, std::string>> m_saved;
};

// The user-locale value of a type, as the locale services answer it.
std::string LocaleValue(LCTYPE type);

// The C runtime's TZ (for example "EST5") for a scope.
class TimeZone
{
public:
    explicit TimeZone(const char* tz);
    ~TimeZone();
    TimeZone(const TimeZone&) = delete;
    TimeZone& operator=(const TimeZone&) = delete;

private:
    std::string m_saved;
};

// A path in the temporary folder, unique to this process (suites may run side
// by side); whatever is written there is deleted at the end of the scope.
class TempFile
{
public:
    explicit TempFile(const char* name);
    ~TempFile();
    TempFile(const TempFile&) = delete;
    TempFile& operator=(const TempFile&) = delete;

    const char* path() const { return m_path.c_str(); }

private:
    std::string m_path;
};

// A folder in the temporary folder, unique to this process, made at once;
// it and everything below it (read-only files included) go at the end of
// the scope.
class TempFolder
{
public:
    explicit TempFolder(const char* name);
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const char* path() const { return m_path.c_str(); }
    std::string operator/(const std::string& name) const { return m_path + "\\" + name; }

private:
    std::string m_path;
};

// The whole content of a file; empty when it cannot be read.
std::string FileBytes(const std::string& path);
// Every file below a folder, subfolders included: path -> bytes. Compare two
// to prove that nothing was written.
std::map<std::string, std::string> TreeBytes(const std::string& folder);
// Writes a file whole (replacing it); false on failure.
bool WriteFileBytes(const std::string& path, const std::string& bytes);

}  // namespace hytest
