#include "Http/Problem.h"
#include "Http/Router.h"
#include "Net/TlsServer.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

using namespace bridge;
using namespace std::chrono_literals;

namespace {

/// A connection whose client sends a head at once and then its body, piece by piece, in a time of its own.
class SlowClient : public RequestStream
{
public:
    SlowClient(std::string head, std::string body, std::size_t piece, std::chrono::milliseconds pause)
        : RequestStream([this] { return now_; }), head_(std::move(head)), body_(std::move(body)),
          piece_(piece), pause_(pause)
    { }

    ssize_t write(const char* bytes, size_t size) override
    {
        answer_.append(bytes, size);
        return static_cast<ssize_t>(size);
    }
    socket_t socket() const override { return -1; }

    /// What it sends has come in before anybody waits for it.
    bool isAlwaysReady = false;

    std::string status() const { return answer_.substr(0, 12); }
    std::chrono::seconds elapsed() const
    {
        return std::chrono::duration_cast<std::chrono::seconds>(now_ - SteadyMoment());
    }

private:
    std::size_t receive(char* buffer, std::size_t room, SteadyMoment deadline) override
    {
        if (!head_.empty())
            return take(head_, buffer, room);
        const SteadyMoment arrival = now_ + pause_;
        const bool isLate = arrival > deadline && !isAlwaysReady;
        now_ = isLate ? deadline : arrival;
        return isLate ? 0 : take(body_, buffer, std::min(piece_, room));
    }

    static std::size_t take(std::string& from, char* buffer, std::size_t count)
    {
        const std::size_t taken = from.copy(buffer, count);
        from.erase(0, taken);
        return taken;
    }

    SteadyMoment now_;
    std::string head_;
    std::string body_;
    std::size_t piece_;
    std::chrono::milliseconds pause_;
    std::string answer_;
};

struct Outcome
{
    std::string status;
    std::chrono::seconds elapsed;
};

class SlowBody : public testing::Test
{
protected:
    SlowBody()
    {
        router.add("POST", "/text", Access::Everybody, [](Call& call) {
            call.answer({{"size", call.text().size()}});
        });
        router.add("POST", "/file", Access::Everybody, [](Call& call) {
            call.read([](const char*, std::size_t) {});
            call.answerNothing();
        });
        router.answerAllOf(server);
    }

    Outcome serve(const std::string& path, const std::string& framing, const std::string& body,
        std::size_t piece, std::chrono::milliseconds pause)
    {
        SlowClient client("POST " + path + " HTTP/1.1\r\n" + framing + "\r\n\r\n", body, piece, pause);
        server.serveAll(client);
        return {client.status(), client.elapsed()};
    }

    TemporaryFolder folder;
    Router router{[](Call&) { throw signInNeeded(); }};
    TlsServer server{TlsIdentity(folder.path(), systemTime())};
};

} // namespace

TEST_F(SlowBody, ATextHasHalfAMinuteInAllStatedOrInChunks)
{
    const std::string text(1000, 'x');
    const Outcome quick = serve("/text", "Content-Length: 1000", text, 50, 1400ms);
    EXPECT_EQ(quick.status, "HTTP/1.1 200");
    const Outcome stated = serve("/text", "Content-Length: 1000", text, 1, 10s);
    EXPECT_EQ(stated.status, "HTTP/1.1 400");
    EXPECT_EQ(stated.elapsed, 30s);
    const Outcome inChunks = serve("/text", "Transfer-Encoding: chunked", "3e8\r\n" + text, 1, 10s);
    EXPECT_EQ(inChunks.status, "HTTP/1.1 400");
    EXPECT_EQ(inChunks.elapsed, 30s);
}

TEST_F(SlowBody, OnlyTheBodyItselfCountsInChunks)
{
    std::string chunks;
    for (int i = 0; i < 1000; ++i)
        chunks += "1;" + std::string(1000, 'x') + "\r\na\r\n";
    const Outcome client = serve("/file", "Transfer-Encoding: chunked", chunks, 1007, 500ms);
    EXPECT_EQ(client.status, "HTTP/1.1 400");
    EXPECT_EQ(client.elapsed, 60s);
}

TEST_F(SlowBody, FramingThatIsAlwaysThereAlreadyBuysNoTime)
{
    std::string chunks;
    for (int i = 0; i < 1000; ++i)
        chunks += "1;" + std::string(1000, 'x') + "\r\na\r\n";
    SlowClient client("POST /file HTTP/1.1\r\nTransfer-Encoding: chunked\r\n\r\n", chunks, 1007, 100ms);
    client.isAlwaysReady = true;
    server.serveAll(client);
    EXPECT_EQ(client.status(), "HTTP/1.1 400");
    EXPECT_EQ(client.elapsed(), 60s);
}

TEST_F(SlowBody, AFileMayTakeLongWhileItComes)
{
    const std::string file(1 << 20, 'x');
    const std::string length = "Content-Length: " + std::to_string(file.size());
    const Outcome steady = serve("/file", length, file, 20 << 10, 10s);
    EXPECT_EQ(steady.status, "HTTP/1.1 204");
    EXPECT_GT(steady.elapsed, 500s);
    const Outcome dripping = serve("/file", length, file, 5 << 10, 10s);
    EXPECT_EQ(dripping.status, "HTTP/1.1 400");
    EXPECT_EQ(dripping.elapsed, 60s);
    const Outcome pausing = serve("/file", length, file, 100 << 10, 31s);
    EXPECT_EQ(pausing.status, "HTTP/1.1 400");
    EXPECT_EQ(pausing.elapsed, 30s);
}
