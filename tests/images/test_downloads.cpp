// Photo downloads from a real HTTP server on 127.0.0.1, reached through the
// user's proxy setting: what comes back, the message a person sees, the
// request the server got, the wait cursor, and no handle left behind.
#include "HyImageHelpers.h"
#include "hytest_afx.h"
#include "image_samples.h"

namespace {

using hytest::HttpResponse;
using hytest::HttpScript;
using hytest::HttpStep;

std::vector<HCURSOR> g_cursors;
HCURSOR WINAPI RecordCursor(HCURSOR cursor)
{
    g_cursors.push_back(cursor);
    return nullptr;
}

std::string Jpeg()
{
    std::string bmp = SampleBmp(10, 6);
    CxImage image((BYTE*)bmp.data(), (DWORD)bmp.size(), 1);
    BYTE* bytes = nullptr;
    long size = 0;
    HyEncodeJPEG(&image, bytes, size);
    std::string out((const char*)bytes, size);
    HyFreeEncodedImage(bytes);
    return out;
}

// What a download gave: "null", "invalid" or "WxH", then the message's id.
std::string Outcome(CxImage* image, const hytest::MessageBoxRecorder& boxes)
{
    std::string s = image == nullptr ? "null" : image->IsValid() ? std::to_string(image->GetWidth()) + "x" +
                                                                       std::to_string(image->GetHeight())
                                                                 : "invalid";
    for (const hytest::MessageBoxCall& box : boxes.Calls())
        s += " \"" + box.text + "\"/" + std::to_string(box.type);
    delete image;
    return s;
}

struct Case
{
    const char* what;
    const char* url;
    std::vector<HttpScript> scripts;
    const char* outcome;
    int requests;   // request lines, each "GET http://photos.test:80<path> HTTP/1.0" (port 0: the default, 80)
};

// The wait cursor's first loading creates its pictures.
void WarmUp()
{
    WarmUpStandardControls();
    CWaitCursor wait;
}

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
    void TearDown() override { HySetDownloadTimeout(0); GuardedTest::TearDown(); }

    void Check(const Case& c, int quiet = 0)
    {
        SCOPED_TRACE(c.what);
        hytest::MessageBoxRecorder boxes;
        g_cursors.clear();
        server.Serve(c.scripts);
        const long handles = hytest::KernelHandleCount();
        EXPECT_EQ(Outcome(HYDownloadURLImage(c.url, quiet), boxes), c.outcome);
        server.WaitIdle();   // the server's own socket is gone too
        EXPECT_EQ(hytest::KernelHandleCount(), handles);
        const std::vector<std::string> requests = server.Requests();
        EXPECT_EQ((int)requests.size(), c.requests);
        for (const std::string& line : requests)
            EXPECT_EQ(line, "GET http://photos.test:80" + std::string(strchr(c.url + 7, '/')) + " HTTP/1.0");
        ASSERT_EQ(g_cursors.size(), 2u);
        EXPECT_EQ(g_cursors[0], ::LoadCursor(nullptr, IDC_WAIT));
    }
};

const std::string kJpeg = Jpeg(), kBmp = SampleBmp(10, 6);
const std::string kNoConnection = "null \"Could not connect to the internet\"/48";
const std::string kInvalidUrl = "null \"The URL address is not valid\"/48";
const std::string kCorrupt = "null \"The image is corrupt\"/48";

HttpScript Redirect(const char* to) { return HttpResponse("302 Found", "", std::string("Location: ") + to + "\r\n"); }
HttpScript Then(HttpScript a, const HttpStep& b) { return (a.push_back(b), a); }

TEST_F(DownloadTest, EveryAnswerGivesItsOutcome)
{
    const std::string head = "HTTP/1.0 200 OK\r\nContent-Length: " + std::to_string(kJpeg.size()) + "\r\n\r\n";
    std::string broken = kJpeg;
    broken.replace(0, 20, 20, 'x');
    std::vector<HttpScript> loop(30, Redirect("http://photos.test/loop.jpg"));
    const Case cases[] = {
        { "reset before a reply", "http://photos.test/a.jpg", { { { HttpStep::Reset } } }, kInvalidUrl.c_str(), 1 },
        { "redirect loop", "http://photos.test/loop.jpg", loop, kInvalidUrl.c_str(), 31 },
        { "no Content-Length", "http://photos.test/a.jpg", { HttpResponse("200 OK", kJpeg, "", "") }, kCorrupt.c_str(), 1 },
        { "chunked", "http://photos.test/a.jpg",
          { HttpResponse("200 OK", "5\r\nhello\r\n0\r\n\r\n", "Transfer-Encoding: chunked\r\n", "") }, kCorrupt.c_str(), 1 },
        { "length -1", "http://photos.test/a.jpg", { HttpResponse("200 OK", kJpeg, "", "-1") }, kCorrupt.c_str(), 1 },
        { "length 2^32 + 1", "http://photos.test/a.jpg", { HttpResponse("200 OK", kJpeg, "", "4294967297") },
          kCorrupt.c_str(), 1 },
        { "a 40-character length", "http://photos.test/a.jpg",
          { HttpResponse("200 OK", kJpeg, "", "0000000000000000000000000000000000000100") }, kCorrupt.c_str(), 1 },
        { "reset mid-body", "http://photos.test/a.jpg",
          { { { HttpStep::Send, head + kJpeg.substr(0, 100) }, { HttpStep::Stall, "", 100 }, { HttpStep::Reset } } },
          kCorrupt.c_str(), 1 },
        { "stall past the timeout", "http://photos.test/a.jpg",
          { { { HttpStep::Send, head + kJpeg.substr(0, 10) }, { HttpStep::Stall, "", 3000 } } }, kCorrupt.c_str(), 1 },
        { "404 page", "http://photos.test/a.jpg", { HttpResponse("404 Not Found", "<html>gone</html>") }, "invalid", 1 },
        { "short body, then closed", "http://photos.test/a.jpg",
          { HttpResponse("200 OK", kJpeg.substr(0, 10), "", "1000") }, "invalid", 1 },
        { "length short of the picture", "http://photos.test/a.jpg", { HttpResponse("200 OK", kJpeg, "", "100") },
          "invalid", 1 },
        { "broken JPEG header", "http://photos.test/a.jpg", { HttpResponse("200 OK", broken) }, "invalid", 1 },
        { "BMP bytes at .jpg", "http://photos.test/a.jpg", { HttpResponse("200 OK", kBmp) }, "invalid", 1 },
        { "gzip body", "http://photos.test/a.jpg",
          { HttpResponse("200 OK", std::string("\x1f\x8b\x08\0\0\0\0\0\0\x03\x03\0\0\0\0\0\0\0\0\0", 20),
                         "Content-Encoding: gzip\r\n") }, "invalid", 1 },
        { "length 0", "http://photos.test/a.jpg", { HttpResponse("200 OK", "") }, "invalid", 1 },
        { "slow drip", "http://photos.test/a.jpg", { { { HttpStep::Drip, head + kJpeg, 5 } } }, "10x6", 1 },
        { "500 with a picture", "http://photos.test/A.JPG", { HttpResponse("500 Oops", kJpeg) }, "10x6", 1 },
        { "text/html with a picture", "http://photos.test/a.jpg",
          { HttpResponse("200 OK", kJpeg, "Content-Type: text/html\r\n") }, "10x6", 1 },
        { "302 to a picture", "http://photos.test/a.jpg",
          { Redirect("http://photos.test/a.jpg"), HttpResponse("200 OK", kJpeg) }, "10x6", 2 },
        { "a bitmap", "http://photos.test/b.Bmp", { HttpResponse("200 OK", kBmp) }, "10x6", 1 },
        // Decided by the system's HTTP client, not by us (docs/images.md):
        { "closed before a reply", "http://photos.test/a.jpg", { { { HttpStep::Close } } }, kCorrupt.c_str(), 1 },
        { "garbage before a reply", "http://photos.test/a.jpg", { { { HttpStep::Send, "garbage\r\n\r\n" } } }, kCorrupt.c_str(), 1 },
        { "empty host: no \"/\"", "http://photos.jpg", {}, kInvalidUrl.c_str(), 0 },
        { "empty host: https", "https://photos.test/a.jpg", {}, kInvalidUrl.c_str(), 0 },
        { "empty host: under 8 characters", "a.jpg", {}, kInvalidUrl.c_str(), 0 },
        { ".jpeg", "http://photos.test/a.jpeg", {}, "null", 0 },
        { ".png", "http://photos.test/a.png", {}, "null", 0 },
        { "a query", "http://photos.test/a.jpg?x=1", {}, "null", 0 },
        { "empty url", "", {}, "null", 0 },
    };
    for (const Case& c : cases)
        Check(c);
}

TEST_F(DownloadTest, QuietShowsNothingAndNothingListeningIsInvalid)
{
    Check({ "quiet", "http://photos.test/a.jpg", { HttpResponse("200 OK", kJpeg, "", "") }, "null", 1 }, 1);
    hytest::ProxySetting nowhere(0);
    Check({ "nothing listening", "http://photos.test/a.jpg", {}, kInvalidUrl.c_str(), 0 });
}

TEST_F(DownloadTest, HandlesAndObjectsStayFlat)
{
    const Case ok{ "fine", "http://photos.test/a.jpg", { HttpResponse("200 OK", kJpeg) }, "10x6", 1 };
    Check(ok);
    const long handles = hytest::KernelHandleCount();
    RunRepeated([&] { for (int i = 0; i < 100; ++i) Check(ok); }, 1);
    EXPECT_LE(hytest::KernelHandleCount(), handles);
}

}  // namespace
