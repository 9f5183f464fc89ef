// Photo downloads from a real HTTP server on 127.0.0.1, reached through the
// user's proxy setting: what comes back, the message a person sees, the
// requests the server got, the wait cursor, and no handle left behind.
#include "HyImageHelpers.h"
#include "hytest_afx.h"
#include "hytest_pictures.h"

namespace {

using hytest::HttpScript;
using hytest::HttpStep;

std::vector<HCURSOR> g_cursors;
HCURSOR WINAPI RecordCursor(HCURSOR cursor) { return g_cursors.push_back(cursor), nullptr; }

HttpScript Ok(const std::string& body, const char* length = nullptr, const std::string& headers = "")
{
    return hytest::HttpResponse("200 OK", body, headers, length);
}
HttpScript Redirect() { return hytest::HttpResponse("302 Found", "", "Location: http://photos.test/a.jpg\r\n"); }

// "null", "invalid" or "WxH", then each message as "text/type".
std::string Outcome(CxImage* image, const hytest::MessageBoxRecorder& boxes)
{
    std::string s = !image ? "null" : !image->IsValid() ? "invalid"
                        : std::to_string(image->GetWidth()) + "x" + std::to_string(image->GetHeight());
    for (const hytest::MessageBoxCall& box : boxes.Calls())
        s += " " + box.text + "/" + std::to_string(box.type);
    delete image;
    return s;
}

const std::string kBmp = SampleBmp(10, 6), kJpeg = SampleJpeg(10, 6);
const std::string k14001 = "null The URL address is not valid/48", k14002 = "null The image is corrupt/48";
// A reset before any reply fails the send (14001); on a busy machine Wine
// sometimes reads it as an answer that ended at once, as after a close (14002).
const std::string kReset = k14001 + "|" + k14002;
const std::string kHead = "HTTP/1.0 200 OK\r\nContent-Length: " + std::to_string(kJpeg.size()) + "\r\n\r\n";

// The wait cursor's first loading creates its pictures.
void WarmUp() { WarmUpStandardControls(), CWaitCursor(); }

class DownloadTest : public GuardedTest<WarmUp>
{
protected:
    hytest::HttpServer server;
    hytest::ProxySetting proxy{ server.port() };
    hytest::ImportPatch cursor{ "user32.dll", "SetCursor", (void*)&RecordCursor };
    void SetUp() override
    {
        HySetDownloadTimeout(700);
        delete HYDownloadURLImage("http://photos.test/first.jpg", 1);   // the HTTP client's first start
        server.WaitIdle();
    }
    void TearDown() override { HySetDownloadTimeout(0), GuardedTest::TearDown(); }
    bool countEachDownload = true;   // counting walks the handle table: the long runs count once around

    // Each request line must be "GET http://photos.test:80<path> HTTP/1.0":
    // the url's port 0 is the default, 80. An outcome "A|B" accepts either.
    void Check(const char* url, std::vector<HttpScript> scripts, const std::string& outcome, size_t requests,
               int quiet = 0)
    {
        SCOPED_TRACE(url);
        hytest::MessageBoxRecorder boxes;
        g_cursors.clear();
        server.Serve(std::move(scripts));
        const long handles = countEachDownload ? hytest::KernelHandleCount() : 0;
        const std::string got = Outcome(HYDownloadURLImage(url, quiet), boxes);
        const size_t bar = outcome.find('|');
        EXPECT_TRUE(got == outcome.substr(0, bar) || (bar != std::string::npos && got == outcome.substr(bar + 1)))
            << got << " for " << outcome;
        server.WaitIdle();   // the server's own socket is gone too
        if (countEachDownload && bar == std::string::npos) {   // (after a raced reset the system may keep its socket a while)
            EXPECT_EQ(hytest::KernelHandleCount(), handles);
        }
        EXPECT_EQ(server.Requests(), std::vector<std::string>(requests, "GET http://photos.test:80" +
                                                                        std::string(strchr(url + 7, '/') ?: "") + " HTTP/1.0"));
        EXPECT_EQ(g_cursors, (std::vector<HCURSOR>{ ::LoadCursor(nullptr, IDC_WAIT), nullptr }));
    }
};

TEST_F(DownloadTest, EveryAnswerGivesItsOutcome)
{
    const char* const a = "http://photos.test/a.jpg";
    std::string broken = kJpeg;
    broken.replace(0, 20, 20, 'x');
    const struct { const char* url; std::vector<HttpScript> scripts; std::string outcome; size_t requests; } cases[] = {
        { a, { { { HttpStep::Reset } } }, kReset, 1 },                                     // reset before a reply
        { a, std::vector<HttpScript>(30, Redirect()), kReset, 31 },                          // 30 redirects, then reset
        { "http://photos.jpg", {}, k14001, 0 },                                              // empty host: no "/"
        { "https://photos.test/a.jpg", {}, k14001, 0 }, { "a.jpg", {}, k14001, 0 },          // ... https, too short
        { a, { Ok(kJpeg, "") }, k14002, 1 },                                                  // no Content-Length
        { a, { Ok("5\r\nhello\r\n0\r\n\r\n", "", "Transfer-Encoding: chunked\r\n") }, k14002, 1 },
        { a, { Ok(kJpeg, "-1") }, k14002, 1 }, { a, { Ok(kJpeg, "4294967297") }, k14002, 1 },
        { a, { Ok(kJpeg, "0000000000000000000000000000000000000100") }, k14002, 1 },    // 40 characters
        { a, { { { HttpStep::Send, kHead + kJpeg.substr(0, 99) }, { HttpStep::Stall, "", 100 }, { HttpStep::Reset } } },
          k14002, 1 },                                                                        // reset mid-body
        { a, { { { HttpStep::Send, kHead + kJpeg.substr(0, 9) }, { HttpStep::Stall, "", 3000 } } }, k14002, 1 },
        { a, { { { HttpStep::Close } } }, k14002, 1 },                                      // Wine: closed before a reply
        { a, { { { HttpStep::Send, "garbage\r\n\r\n" } } }, k14002, 1 },                    // Wine: not HTTP
        { a, { hytest::HttpResponse("404 Not Found", "<html>gone</html>") }, "invalid", 1 },
        { a, { Ok(kJpeg.substr(0, 10), "1000") }, "invalid", 1 },                           // short body, closed
        { a, { Ok(kJpeg, "100") }, "invalid", 1 }, { a, { Ok(broken) }, "invalid", 1 },
        { a, { Ok(kBmp) }, "invalid", 1 }, { a, { Ok("") }, "invalid", 1 },                  // no sniffing; length 0
        { a, { Ok(std::string("\x1f\x8b\x08\0\0\0\0\0\0\x03\x03\0\0\0\0\0\0\0\0\0", 20), nullptr,
                  "Content-Encoding: gzip\r\n") }, "invalid", 1 },
        { a, { { { HttpStep::Drip, kHead + kJpeg, 5 } } }, "10x6", 1 },                     // slow drip
        { "http://photos.test/A.JPG", { hytest::HttpResponse("500 Oops", kJpeg) }, "10x6", 1 },
        { a, { Ok(kJpeg, nullptr, "Content-Type: text/html\r\n") }, "10x6", 1 },
        { a, { Redirect(), Ok(kJpeg) }, "10x6", 2 }, { "http://photos.test/b.Bmp", { Ok(kBmp) }, "10x6", 1 },
        { "http://photos.test/a.jpeg", {}, "null", 0 }, { "http://photos.test/a.png", {}, "null", 0 },
        { "http://photos.test/a.jpg?x=1", {}, "null", 0 }, { "", {}, "null", 0 },
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE("case " + std::to_string(&c - cases));
        Check(c.url, c.scripts, c.outcome, c.requests);
    }
    Check(a, { Ok(kJpeg, "") }, "null", 1, 1);   // quiet
    hytest::ProxySetting nowhere(0);
    Check(a, {}, k14001, 0);   // nothing listening
}

TEST_F(DownloadTest, HandlesAndObjectsStayFlat)
{
    countEachDownload = false;
    const long handles = hytest::KernelHandleCount();
    RunRepeated([&] { for (int i = 0; i < 100; ++i) Check("http://photos.test/a.jpg", { Ok(kJpeg) }, "10x6", 1); }, 1);
    EXPECT_EQ(hytest::KernelHandleCount(), handles);
}

}  // namespace
