#include "WebSessionTest.h"

#include <QTimer>

using namespace std::chrono_literals;
using Code = TransportError::Code;

namespace {

CurlWebSession::Options impatient()
{
    CurlWebSession::Options options = trusting();
    options.connectTimeout = 300ms;
    options.idleTimeout = 1s;
    return options;
}

const Outcome timedOut = failed(Code::TimedOut);

} // namespace

class Timeouts : public testing::TestWithParam<Transport>
{
protected:
    CurlWebSession session{impatient()};
};

TEST_P(Timeouts, EndARequestThatGetsNoAnswer)
{
    const auto server = serve(GetParam(), [](RawConnection& connection) {
        connection.readRequest();
        connection.stall();
    });
    const Awaited<Response> write_(session.send(write(server->url())));
    const Awaited<Response> read(session.send(get(server->url())));
    EXPECT_EQ(outcomeOf(write_), timedOut);
    EXPECT_EQ(outcomeOf(read), timedOut);
    EXPECT_EQ(server->requests(), 2);
}

TEST_P(Timeouts, EndAnAnswerThatStops)
{
    const auto server = serve(GetParam(), [](RawConnection& connection) {
        connection.readRequest();
        connection.send("HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\n{");
        connection.stall();
    });
    EXPECT_EQ(outcomeOf(session, get(server->url())), timedOut);
}

TEST_P(Timeouts, EndAnUploadThatNobodyTakes)
{
    const auto server = serve(GetParam(), [](RawConnection& connection) {
        connection.readHead();
        connection.stall();
    });
    EXPECT_EQ(outcomeOf(session, write(server->url(), "POST", QByteArray(64'000'000, 'x'))), timedOut);
    EXPECT_EQ(server->requests(), 0);
}

/// An answer of a byte now and then lasts for as long as it likes, and holds up nothing else.
TEST_P(Timeouts, SpareAnAnswerThatTrickles)
{
    const auto server = serve(GetParam(), [](RawConnection& connection) {
        if (connection.readRequest().method() == "POST")
            connection.send(rawAnswer(200));
        connection.send("HTTP/1.1 200 OK\r\nContent-Length: 1000000\r\n\r\n");
        connection.trickle("x", 100ms);
    });
    const Awaited<Response> slow(session.send(get(server->url())));
    int ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&ticks] { ++ticks; });
    timer.start(50ms);
    runUntil([&ticks] { return ticks >= 50; });
    EXPECT_EQ(outcomeOf(session, write(server->url())), answered(200));
    EXPECT_FALSE(slow.isDone());
    session.cancelAll();
    EXPECT_EQ(outcomeOf(slow), failed(Code::Cancelled));
}

INSTANTIATE_TEST_SUITE_P(
    Over, Timeouts, testing::Values(Transport::Plain, Transport::Tls), testing::PrintToStringParamName());

TEST(Timeout, IsAMinuteUnlessTold)
{
    const CurlWebSession::Options options;
    EXPECT_EQ(options.connectTimeout, 60s);
    EXPECT_EQ(options.idleTimeout, 60s);
    EXPECT_EQ(options.largestBody, 256 * 1024 * 1024);
}

TEST(Timeout, EndsAHandshakeThatHangs)
{
    RawServer server([](RawConnection& connection) { connection.stall(); });
    QUrl url = server.url();
    url.setScheme(QStringLiteral("https"));
    CurlWebSession session(impatient());
    EXPECT_EQ(outcomeOf(session, write(url)), timedOut);
    EXPECT_EQ(server.connections(), 1);
}

/// The event loop turns while an answer floods in, and the flood ends at the limit.
class Flood : public testing::TestWithParam<Transport>
{ };

TEST_P(Flood, LeavesTheEventLoopTurning)
{
    const auto server = serve(GetParam(), [](RawConnection& connection) {
        connection.readRequest();
        connection.send("HTTP/1.1 200 OK\r\n\r\n");
        const QByteArray piece(256 * 1024, 'x');
        for (;;)
            connection.send(piece);
    });
    CurlWebSession session(trusting());
    const Awaited<Response> answer(session.send(get(server->url())));
    int turns = 0;
    while (!answer.isDone()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        ++turns;
    }
    EXPECT_EQ(outcomeOf(answer), unusable());
    constexpr int mebibytes = 256;
    constexpr int mostPerTurn = 16;
    EXPECT_GE(turns, mebibytes / mostPerTurn);
}

INSTANTIATE_TEST_SUITE_P(
    Over, Flood, testing::Values(Transport::Plain, Transport::Tls), testing::PrintToStringParamName());
