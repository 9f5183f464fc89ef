#include <winsock2.h>   // before anything that brings in windows.h
#include <ws2tcpip.h>

#include "hytest_http.h"

#include <atomic>
#include <mutex>

namespace hytest {

struct HttpServer::State
{
    static constexpr size_t kDripBytes = 16;
    SOCKET listener = INVALID_SOCKET;
    int port = 0;
    std::atomic<bool> stop{ false };
    std::atomic<bool> answering{ false };
    mutable std::mutex lock;
    std::vector<HttpScript> scripts;
    size_t next = 0;
    std::vector<std::string> requests;

    // Reads the request head (up to a blank line, 2 s at most) and records
    // its first line.
    void ReadRequest(SOCKET s)
    {
        std::string head;
        char buffer[1024];
        DWORD start = ::GetTickCount();
        while (head.find("\r\n\r\n") == std::string::npos && ::GetTickCount() - start < 2000 && !stop)
        {
            fd_set readable;
            FD_ZERO(&readable);
            FD_SET(s, &readable);
            timeval wait{ 0, 50000 };
            if (::select(0, &readable, nullptr, nullptr, &wait) <= 0)
                continue;
            const int n = ::recv(s, buffer, sizeof buffer, 0);
            if (n <= 0)
                break;
            head.append(buffer, n);
        }
        std::lock_guard<std::mutex> hold(lock);
        requests.push_back(head.substr(0, head.find("\r\n")));
    }

    // Waits ms, or less once the client has hung up (when a socket is given).
    void Pause(int ms, SOCKET s = INVALID_SOCKET)
    {
        for (DWORD start = ::GetTickCount(); !stop && (int)(::GetTickCount() - start) < ms;)
        {
            if (s == INVALID_SOCKET)
            {
                ::Sleep(10);
                continue;
            }
            fd_set readable;
            FD_ZERO(&readable);
            FD_SET(s, &readable);
            timeval wait{ 0, 10000 };
            char c;
            if (::select(0, &readable, nullptr, nullptr, &wait) > 0 && ::recv(s, &c, 1, MSG_PEEK) <= 0)
                return;
        }
    }

    static void Reset(SOCKET s)
    {
        linger hard{ 1, 0 };
        ::setsockopt(s, SOL_SOCKET, SO_LINGER, (const char*)&hard, sizeof hard);
        ::closesocket(s);
    }

    void Answer(SOCKET s)
    {
        ReadRequest(s);
        HttpScript script;
        {
            std::lock_guard<std::mutex> hold(lock);
            if (next >= scripts.size())
                return Reset(s);
            script = scripts[next++];
        }
        for (const HttpStep& step : script)
            switch (step.kind)
            {
            case HttpStep::Send: ::send(s, step.bytes.data(), (int)step.bytes.size(), 0); break;
            case HttpStep::Drip:
                for (size_t at = 0; at < step.bytes.size() && !stop; at += kDripBytes)
                {
                    ::send(s, step.bytes.data() + at, (int)step.bytes.substr(at, kDripBytes).size(), 0);
                    ::Sleep(step.ms);
                }
                break;
            case HttpStep::Stall: Pause(step.ms, s); break;
            case HttpStep::Close: ::shutdown(s, SD_SEND); ::closesocket(s); return;
            case HttpStep::Reset: return Reset(s);
            }
        ::shutdown(s, SD_SEND);
        ::closesocket(s);
    }

    static DWORD WINAPI Run(void* param)
    {
        std::shared_ptr<State> self = *(std::shared_ptr<State>*)param;
        delete (std::shared_ptr<State>*)param;
        while (!self->stop)
        {
            fd_set readable;
            FD_ZERO(&readable);
            FD_SET(self->listener, &readable);
            timeval wait{ 0, 50000 };
            if (::select(0, &readable, nullptr, nullptr, &wait) <= 0)
                continue;
            self->answering = true;
            SOCKET s = ::accept(self->listener, nullptr, nullptr);
            if (s != INVALID_SOCKET)
                self->Answer(s);
            self->answering = false;
        }
        return 0;
    }
};

HttpScript HttpResponse(const std::string& status, const std::string& body, const std::string& headers,
                        const char* length)
{
    std::string head = "HTTP/1.0 " + status + "\r\n" + headers;
    if (length == nullptr)
        head += "Content-Length: " + std::to_string(body.size()) + "\r\n";
    else if (*length != '\0')
        head += std::string("Content-Length: ") + length + "\r\n";
    return { { HttpStep::Send, head + "\r\n" + body } };
}

HttpServer::HttpServer() : m_state(std::make_shared<State>())
{
    WSADATA data;
    ::WSAStartup(MAKEWORD(2, 2), &data);
    m_state->listener = ::socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    int size = sizeof address;
    ::bind(m_state->listener, (sockaddr*)&address, sizeof address);
    ::listen(m_state->listener, 8);
    ::getsockname(m_state->listener, (sockaddr*)&address, &size);
    m_state->port = ntohs(address.sin_port);
    m_thread = ::CreateThread(nullptr, 0, &State::Run, new std::shared_ptr<State>(m_state), 0, nullptr);
}

HttpServer::~HttpServer()
{
    m_state->stop = true;
    ::WaitForSingleObject(m_thread, INFINITE);
    ::CloseHandle(m_thread);
    ::closesocket(m_state->listener);
    ::WSACleanup();
}

int HttpServer::port() const { return m_state->port; }

void HttpServer::WaitIdle() const
{
    for (DWORD start = ::GetTickCount(); m_state->answering && ::GetTickCount() - start < 2000;)
        ::Sleep(1);
}

void HttpServer::Serve(std::vector<HttpScript> scripts)
{
    std::lock_guard<std::mutex> hold(m_state->lock);
    m_state->scripts = std::move(scripts);
    m_state->next = 0;
    m_state->requests.clear();
}

std::vector<std::string> HttpServer::Requests() const
{
    std::lock_guard<std::mutex> hold(m_state->lock);
    return m_state->requests;
}

// ---- the proxy setting ----------------------------------------------------

namespace {
const char kSettings[] = "Software\\Microsoft\\Windows\\CurrentVersion\\Internet Settings";
const char* const kValues[] = { "ProxyEnable", "ProxyServer", "ProxyOverride" };
}  // namespace

struct ProxySetting::Saved
{
    struct Value { bool present = false; DWORD type = 0; std::vector<BYTE> data; };
    Value values[3];
};

ProxySetting::ProxySetting(int port) : m_saved(new Saved)
{
    HKEY key = nullptr;
    ::RegCreateKeyExA(HKEY_CURRENT_USER, kSettings, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr);
    for (int i = 0; i < 3; ++i)
    {
        Saved::Value& v = m_saved->values[i];
        DWORD size = 0;
        if (::RegQueryValueExA(key, kValues[i], nullptr, &v.type, nullptr, &size) == ERROR_SUCCESS)
        {
            v.present = true;
            v.data.resize(size);
            ::RegQueryValueExA(key, kValues[i], nullptr, &v.type, v.data.data(), &size);
        }
    }
    const DWORD enable = 1;
    const std::string server = "127.0.0.1:" + std::to_string(port != 0 ? port : 9);   // 9: discard, closed here
    ::RegSetValueExA(key, "ProxyEnable", 0, REG_DWORD, (const BYTE*)&enable, sizeof enable);
    ::RegSetValueExA(key, "ProxyServer", 0, REG_SZ, (const BYTE*)server.c_str(), (DWORD)server.size() + 1);
    ::RegDeleteValueA(key, "ProxyOverride");
    ::RegCloseKey(key);
}

ProxySetting::~ProxySetting()
{
    HKEY key = nullptr;
    if (::RegOpenKeyExA(HKEY_CURRENT_USER, kSettings, 0, KEY_ALL_ACCESS, &key) != ERROR_SUCCESS)
        return;
    for (int i = 0; i < 3; ++i)
    {
        const Saved::Value& v = m_saved->values[i];
        if (v.present)
            ::RegSetValueExA(key, kValues[i], 0, v.type, v.data.data(), (DWORD)v.data.size());
        else
            ::RegDeleteValueA(key, kValues[i]);
    }
    ::RegCloseKey(key);
}

// ---- handles and debug output ---------------------------------------------

// Asks this process's own handle table about each handle value in turn.
// Wine 8 answers 0 to GetProcessHandleCount, and its system-wide handle list
// (SystemHandleInformation) is no way out: its server crashes when that list
// is read while another process is starting, and every program of the run
// then ends at once with exit code 0. Handle values are multiples of 4 and a
// new handle takes the lowest free slot, so the walk ends 256 slots past the
// highest handle this process has been seen holding.
long KernelHandleCount()
{
    static ULONG_PTR highest = 0;
    long count = 0;
    DWORD flags;
    for (ULONG_PTR value = 4; value <= highest + 256 * 4; value += 4)
        if (::GetHandleInformation((HANDLE)value, &flags))
            ++count, highest = value > highest ? value : highest;
    return count;
}

namespace {
DebugOutputCapture* g_capture = nullptr;
}

DebugOutputCapture::DebugOutputCapture() : m_handle(::AddVectoredExceptionHandler(1, &Handler))
{
    g_capture = this;
}

DebugOutputCapture::~DebugOutputCapture()
{
    ::RemoveVectoredExceptionHandler(m_handle);
    g_capture = nullptr;
}

LONG CALLBACK DebugOutputCapture::Handler(EXCEPTION_POINTERS* info)
{
    const EXCEPTION_RECORD* r = info->ExceptionRecord;
    // OutputDebugStringA raises this with the length and the text.
    if (g_capture != nullptr && r->ExceptionCode == DBG_PRINTEXCEPTION_C && r->NumberParameters >= 2)
        g_capture->m_lines.emplace_back((const char*)r->ExceptionInformation[1],
                                        strnlen((const char*)r->ExceptionInformation[1],
                                                (size_t)r->ExceptionInformation[0]));   // the count takes the zero in
    return EXCEPTION_CONTINUE_SEARCH;
}

}  // namespace hytest
