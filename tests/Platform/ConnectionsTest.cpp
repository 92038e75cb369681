#include "WebSessionTest.h"

#include <deque>

namespace {

/// Answers every request on a connection until the client closes it.
void answerAll(RawConnection& connection)
{
    for (;;) {
        connection.readRequest();
        connection.send(rawAnswer(200));
    }
}

} // namespace

class Connections : public testing::TestWithParam<Transport>
{
protected:
    CurlWebSession session{trusting()};
};

TEST_P(Connections, AreSharedByReads)
{
    const auto server = serve(GetParam(), answerAll);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(outcomeOf(session, get(server->url())), answered(200));
    EXPECT_EQ(server->connections(), 1);
}

TEST_P(Connections, AreNotSharedByWrites)
{
    const auto server = serve(GetParam(), answerAll);
    EXPECT_EQ(outcomeOf(session, get(server->url())), answered(200));
    for (const char* method : {"POST", "PUT", "DELETE", "PATCH"})
        EXPECT_EQ(outcomeOf(session, write(server->url(), method)), answered(200));
    EXPECT_EQ(server->connections(), 5);
    EXPECT_EQ(server->requests(), 5);
}

TEST_P(Connections, ThatTheServerClosesWhileIdleDoNoHarm)
{
    const auto server = serve(GetParam(), [](RawConnection& connection) {
        connection.readRequest();
        connection.send(rawAnswer(200));
        connection.close();
    });
    for (int i = 0; i < 20; ++i) {
        EXPECT_EQ(outcomeOf(session, get(server->url())), answered(200));
        const int before = server->requests();
        EXPECT_EQ(outcomeOf(session, write(server->url())), answered(200));
        EXPECT_EQ(server->requests() - before, 1);
    }
}

TEST_P(Connections, ThatAreStuckDoNotHoldUpAnother)
{
    const auto server = serve(GetParam(), [](RawConnection& connection) {
        if (connection.readRequest().target() == "/stuck")
            connection.stall();
        connection.send(rawAnswer(200));
    });
    std::deque<Awaited<Response>> stuck;
    for (int i = 0; i < 6; ++i)
        stuck.emplace_back(session.send(write(server->url(QStringLiteral("/stuck")))));
    runUntil([&] { return server->requests() == 6; });
    EXPECT_EQ(outcomeOf(session, write(server->url())), answered(200));
    EXPECT_EQ(outcomeOf(session, get(server->url())), answered(200));
    for (const Awaited<Response>& answer : stuck)
        EXPECT_FALSE(answer.isDone());
    session.cancelAll();
}

TEST_P(Connections, CarryManyRequestsAtOnce)
{
    constexpr int many = 50;
    const auto server = serve(GetParam(), answerAll);
    std::deque<Awaited<Response>> answers;
    for (int i = 0; i < many; ++i)
        answers.emplace_back(session.send(i % 2 == 0 ? get(server->url()) : write(server->url())));
    for (const Awaited<Response>& answer : answers)
        EXPECT_EQ(outcomeOf(answer), answered(200));
    EXPECT_EQ(server->requests(), many);
}

/// Reads may be sent again: the answer that a dead connection kept back still comes.
TEST_P(Connections, ThatDieUnderAReadAreReplaced)
{
    const auto server = serve(GetParam(), [](RawConnection& connection) {
        connection.readRequest();
        connection.send(rawAnswer(200));
        if (connection.number() == 0)
            connection.readRequest();
        else
            answerAll(connection);
    });
    EXPECT_EQ(outcomeOf(session, get(server->url())), answered(200));
    EXPECT_EQ(outcomeOf(session, get(server->url())), answered(200));
    EXPECT_EQ(server->connections(), 2);
}

INSTANTIATE_TEST_SUITE_P(
    Over, Connections, testing::Values(Transport::Plain, Transport::Tls), testing::PrintToStringParamName());

TEST(Connection, RefusedIsAFailure)
{
    const QUrl gone = RawServer([](RawConnection&) {}).url();
    CurlWebSession session;
    EXPECT_EQ(outcomeOf(session, write(gone)), failed(TransportError::Code::CannotConnectToHost));
}

TEST(Connection, ToAnUnknownHostIsAFailure)
{
    CurlWebSession session;
    EXPECT_EQ(outcomeOf(session, get(QUrl(QStringLiteral("http://nowhere.invalid/")))),
        failed(TransportError::Code::CannotFindHost));
}
