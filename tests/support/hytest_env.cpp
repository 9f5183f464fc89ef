#include "hytest_env.h"

#include <stdlib.h>
#include <time.h>

#include <string>

namespace hytest {

std::string ExeFolder()
{
    char path[MAX_PATH] = "";
    ::GetModuleFileNameA(nullptr, path, MAX_PATH);
    const std::string s(path);
    return s.substr(0, s.find_last_of("\\/"));
}

std::string LocaleValue(LCTYPE type)
{
    char buf[128] = "";
    ::GetLocaleInfoA(LOCALE_USER_DEFAULT, type, buf, sizeof buf);
    return buf;
}

bool LocaleValues::Set(LCTYPE type, const char* value)
{
    m_saved.emplace_back(type, LocaleValue(type));
    return ::SetLocaleInfoA(LOCALE_USER_DEFAULT, type, value) != 0;
}

LocaleValues::~LocaleValues()
{
    for (auto it = m_saved.rbegin(); it != m_saved.rend(); ++it)
        ::SetLocaleInfoA(LOCALE_USER_DEFAULT, it->first, it->second.c_str());
}

TimeZone::TimeZone(const char* tz)
{
    const char* old = getenv("TZ");
    m_saved = std::string("TZ=") + (old ? old : "");
    _putenv((std::string("TZ=") + tz).c_str());
    _tzset();
}

TimeZone::~TimeZone()
{
    _putenv(m_saved.c_str());
    _tzset();
}

TempFile::TempFile(const char* name)
{
    char dir[MAX_PATH] = "";
    ::GetTempPathA(MAX_PATH, dir);
    m_path = std::string(dir) + std::to_string(::GetCurrentProcessId()) + "-" + name;
}

TempFile::~TempFile() { ::DeleteFileA(m_path.c_str()); }

namespace {
void RemoveTree(const std::string& path)
{
    WIN32_FIND_DATAA found;
    HANDLE find = ::FindFirstFileA((path + "\\*").c_str(), &found);
    while (find != INVALID_HANDLE_VALUE)
    {
        const std::string name = found.cFileName, full = path + "\\" + name;
        if (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)
        {
            if (name != "." && name != "..") RemoveTree(full);
        }
        else
        {
            ::SetFileAttributesA(full.c_str(), FILE_ATTRIBUTE_NORMAL);
            ::DeleteFileA(full.c_str());
        }
        if (!::FindNextFileA(find, &found)) break;
    }
    if (find != INVALID_HANDLE_VALUE) ::FindClose(find);
    ::SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL);
    ::RemoveDirectoryA(path.c_str());
}
}  // namespace

TempFolder::TempFolder(const char* name) : m_path(TempFile(name).path())
{
    RemoveTree(m_path);   // left over by an earlier run that was cut short
    ::CreateDirectoryA(m_path.c_str(), nullptr);
}

TempFolder::~TempFolder() { RemoveTree(m_path); }

std::map<std::string, std::string> TreeBytes(const std::string& folder)
{
    std::map<std::string, std::string> tree;
    WIN32_FIND_DATAA found;
    HANDLE find = ::FindFirstFileA((folder + "\\*").c_str(), &found);
    for (bool more = find != INVALID_HANDLE_VALUE; more; more = ::FindNextFileA(find, &found))
    {
        const std::string name = found.cFileName, full = folder + "\\" + name;
        if (!(found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY))
            tree[full] = FileBytes(full);
        else if (name != "." && name != "..")
            tree.merge(TreeBytes(full));
    }
    if (find != INVALID_HANDLE_VALUE) ::FindClose(find);
    return tree;
}

std::string FileBytes(const std::string& path)
{
    HANDLE file = ::CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                nullptr, OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) return std::string();
    std::string bytes(::GetFileSize(file, nullptr), '\0');
    DWORD done = 0;
    if (!bytes.empty() && !::ReadFile(file, &bytes[0], DWORD(bytes.size()), &done, nullptr)) bytes.clear();
    ::CloseHandle(file);
    return bytes;
}

bool WriteFileBytes(const std::string& path, const std::string& bytes)
{
    HANDLE file = ::CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) return false;
    DWORD done = 0;
    const bool ok = bytes.empty() || (::WriteFile(file, bytes.data(), DWORD(bytes.size()), &done, nullptr) &&
                                      done == bytes.size());
    return ::CloseHandle(file) && ok;
}

}  // namespace hytest
