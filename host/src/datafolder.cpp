// The data folder and the file primitives of the host kit's stores.
#include "HyDataFolder.h"
#include "hoststore.h"

namespace {
std::string g_dataFolder;   // set by the host; empty: default
}

namespace hyhost {

bool PlainFileName(const std::string& name)
{
    if (name.empty() || name == "." || name == ".." || name.size() >= MAX_PATH / 2) return false;
    for (unsigned char c : name)
        if (c < 32 || std::string("\\/:*?\"<>|").find(char(c)) != std::string::npos) return false;
    return true;
}

bool MakeFolders(const std::string& folder)
{
    if (folder.empty()) return false;
    DWORD attributes = ::GetFileAttributesA(folder.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES) return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    const size_t slash = folder.find_last_of("\\/");
    if (slash != std::string::npos && slash > 0 && folder[slash - 1] != ':')
        MakeFolders(folder.substr(0, slash));
    return ::CreateDirectoryA(folder.c_str(), nullptr) || ::GetLastError() == ERROR_ALREADY_EXISTS;
}

std::string DataFolder()
{
    std::string folder = g_dataFolder;
    if (folder.empty())
    {
        char env[MAX_PATH] = "";
        const DWORD n = ::GetEnvironmentVariableA("HYHOST_DATADIR", env, sizeof env);
        folder = n > 0 && n < sizeof env ? std::string(env, n) : HostFolder() + "\\data";
    }
    while (folder.size() > 1 && (folder.back() == '\\' || folder.back() == '/') && folder[folder.size() - 2] != ':')
        folder.pop_back();
    return folder;
}

std::string ComponentFile(const char* component, const char* extension)
{
    if (component == nullptr || !PlainFileName(component)) return std::string();
    return DataFolder() + "\\" + component + extension;
}

ReadResult ReadWholeFile(const std::string& path, std::vector<uint8_t>& bytes)
{
    HANDLE file = ::CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
    {
        const DWORD error = ::GetLastError();
        return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND ? ReadResult::Missing
                                                                              : ReadResult::Failed;
    }
    LARGE_INTEGER size = {};
    bool ok = ::GetFileSizeEx(file, &size) && size.QuadPart <= 64 * 1024 * 1024;
    if (ok)
    {
        bytes.assign(size_t(size.QuadPart), 0);
        DWORD done = 0;
        ok = bytes.empty() || (::ReadFile(file, bytes.data(), DWORD(bytes.size()), &done, nullptr) &&
                               done == bytes.size());
    }
    ::CloseHandle(file);
    return ok ? ReadResult::Ok : ReadResult::Failed;
}

bool SaveAtomically(const std::string& path, const std::vector<uint8_t>& bytes)
{
    const size_t slash = path.find_last_of('\\');
    if (slash != std::string::npos) MakeFolders(path.substr(0, slash));
    const std::string temp = path + ".tmp";
    HANDLE file = ::CreateFileA(temp.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return false;   // nothing of ours exists: leave whatever is there
    DWORD done = 0;
    bool ok = bytes.empty() || (::WriteFile(file, bytes.data(), DWORD(bytes.size()), &done, nullptr) &&
                                done == bytes.size());
    ok = ::FlushFileBuffers(file) && ok;
    ok = ::CloseHandle(file) && ok;
    ok = ok && ::MoveFileExA(temp.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH);
    if (!ok) ::DeleteFileA(temp.c_str());
    return ok;
}

}  // namespace hyhost

void HySetDataFolder(LPCSTR folder)
{
    g_dataFolder = folder != nullptr ? folder : "";
    hyhost::MakeFolders(hyhost::DataFolder());
}

void HyGetDataFolder(CString& folder)
{
    folder = hyhost::DataFolder().c_str();
}
