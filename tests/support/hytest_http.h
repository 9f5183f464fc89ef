// A real HTTP server on 127.0.0.1 for download tests, and the per-user proxy
// setting that routes WinINet to it. The server runs on its own thread and
// answers each accepted connection with the next script: bytes sent at once
// or dripped, a silent stall, a graceful close or a reset. It records each
// request line. Hosts in tests are ".test" names: WinINet hands every
// request to the proxy (this server), so no name is ever resolved and the
// url's port (0: the service's default, 80) is never dialled.
//
// Also here: the process's kernel handle count, and capture of debug output.
#pragma once

#include <windows.h>

#include <memory>
#include <string>
#include <vector>

namespace hytest {

struct HttpStep
{
    enum Kind { Send, Drip, Stall, Close, Reset } kind;
    std::string bytes;   // Send, Drip
    int ms = 0;          // Drip: the pause after each 16 bytes; Stall: how long (less if the client hangs up)
};
using HttpScript = std::vector<HttpStep>;

// A response: status line, headers (Content-Length added unless `length` is
// given; "" for none) and body, sent at once, then the connection closed.
HttpScript HttpResponse(const std::string& status, const std::string& body, const std::string& headers = "",
                        const char* length = nullptr);

class HttpServer
{
public:
    HttpServer();
    ~HttpServer();
    HttpServer(const HttpServer&) = delete;
    HttpServer& operator=(const HttpServer&) = delete;

    int port() const;
    // The scripts for the next connections, in order; a connection beyond
    // them is reset at once.
    void Serve(std::vector<HttpScript> scripts);
    // Returns once no connection is being answered (2 s at most).
    void WaitIdle() const;
    // Request lines seen since the last Serve ("GET http://a.test/b.jpg HTTP/1.0").
    std::vector<std::string> Requests() const;

private:
    struct State;
    std::shared_ptr<State> m_state;
    HANDLE m_thread = nullptr;
};

// Points the current user's proxy setting at 127.0.0.1:port for its
// lifetime (port 0: a port nothing listens on), restoring what was there.
class ProxySetting
{
public:
    explicit ProxySetting(int port);
    ~ProxySetting();
    ProxySetting(const ProxySetting&) = delete;
    ProxySetting& operator=(const ProxySetting&) = delete;

private:
    struct Saved;
    std::unique_ptr<Saved> m_saved;
};

// Open kernel handles of this process.
long KernelHandleCount();

// OutputDebugString text of this process while it lives.
class DebugOutputCapture
{
public:
    DebugOutputCapture();
    ~DebugOutputCapture();
    DebugOutputCapture(const DebugOutputCapture&) = delete;
    DebugOutputCapture& operator=(const DebugOutputCapture&) = delete;
    const std::vector<std::string>& Lines() const { return m_lines; }

private:
    static LONG CALLBACK Handler(EXCEPTION_POINTERS* info);
    std::vector<std::string> m_lines;
    void* m_handle;
};

}  // namespace hytest
