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

}  // namespace hytest
