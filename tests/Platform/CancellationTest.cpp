#include "WebSessionTest.h"

#include <deque>

using namespace Qt::StringLiterals;

namespace {

const Outcome cancelled = failed(TransportError::Code::Cancelled);

void stallOnceRead(RawConnection& connection)
{
    connection.readRequest();
    connection.stall();
}

} // namespace

class Cancellation : public testing::TestWithParam<Transport>
{
protected:
    std::unique_ptr<CurlWebSession> session = std::make_unique<CurlWebSession>(trusting());
};

TEST_P(Cancellation, ResolvesEveryRequestUnderWay)
{
    const auto server = serve(GetParam(), stallOnceRead);
    std::deque<Awaited<Response>> answers;
    for (int i = 0; i < 5; ++i)
        answers.emplace_back(session->send(i % 2 == 0 ? get(server->url()) : write(server->url())));
    runUntil([&] { return server->requests() == 5; });
    answers.emplace_back(session->send(write(server->url())));
    session->cancelAll();
    QCoreApplication::processEvents();
    for (const Awaited<Response>& answer : answers) {
        ASSERT_TRUE(answer.isDone());
        EXPECT_EQ(outcomeOf(answer), cancelled);
    }
    runUntil([&] { return server->ended() == server->connections(); });
}

TEST_P(Cancellation, ComesWithTheEndOfTheSession)
{
    const auto server = serve(GetParam(), stallOnceRead);
    const Awaited<Response> answer(session->send(write(server->url())));
    runUntil([&] { return server->requests() == 1; });
    session.reset();
    EXPECT_FALSE(answer.isDone());
    QCoreApplication::processEvents();
    ASSERT_TRUE(answer.isDone());
    EXPECT_EQ(outcomeOf(answer), cancelled);
}

TEST_P(Cancellation, HoldsForWhateverIsSentAfterwards)
{
    const auto server = serve(GetParam(), stallOnceRead);
    session->cancelAll();
    EXPECT_EQ(outcomeOf(*session, write(server->url())), cancelled);
    EXPECT_EQ(server->connections(), 0);
}

TEST_P(Cancellation, MayComeFromAReportOfProgress)
{
    const auto server = serve(GetParam(), [](RawConnection& connection) {
        connection.readHead();
        connection.drain();
    });
    Request request = write(server->url(), "POST", QByteArray(20'000'000, 'x'));
    request.onProgress = [this](qint64, qint64) { session.reset(); };
    EXPECT_EQ(outcomeOf(Awaited<Response>(session->send(request))), cancelled);
    EXPECT_FALSE(session);
}

TEST_P(Cancellation, MayComeFromWhoeverGotAnAnswer)
{
    const auto server = serve(GetParam(), [](RawConnection& connection) {
        connection.readRequest();
        connection.send(rawAnswer(200));
        connection.stall();
    });
    struct EndOnAnswer
    {
        static QCoro::Task<Response> run(std::unique_ptr<CurlWebSession>* session, Request request)
        {
            Response response = co_await (*session)->send(request);
            session->reset();
            co_return response;
        }
    };
    EXPECT_EQ(outcomeOf(Awaited<Response>(EndOnAnswer::run(&session, get(server->url())))), answered(200));
    EXPECT_FALSE(session);
}

/// A server that sends a byte now and then would keep such a request for as long as the program runs.
TEST_P(Cancellation, EndsOneRequestWhenNobodyWaitsForItAnyMore)
{
    const auto server = serve(GetParam(), [](RawConnection& connection) {
        const RawRequest request = connection.readRequest();
        if (request.target() == "/other")
            return connection.send(rawAnswer(200));
        connection.send("HTTP/1.1 200 OK\r\nContent-Length: 1000000\r\n\r\n");
        connection.trickle("x", std::chrono::milliseconds(1));
    });
    QPromise<void> leaving;
    leaving.start();
    Request request = get(server->url());
    request.abandoned = leaving.future();
    const Awaited<Response> answer(session->send(request));
    runUntil([&] { return server->requests() == 1; });
    EXPECT_FALSE(answer.isDone());
    leaving.finish();
    EXPECT_EQ(outcomeOf(answer), cancelled);
    runUntil([&] { return server->ended() == 1; });
    EXPECT_EQ(outcomeOf(*session, get(server->url(u"/other"_s))), answered(200)) << "nothing else ends";
}

TEST_P(Cancellation, OfWhatNobodyWaitsForFromTheStartIsNeverSent)
{
    const auto server = serve(GetParam(), stallOnceRead);
    Request request = get(server->url());
    {
        QPromise<void> left;
        left.start();
        request.abandoned = left.future();
    }
    EXPECT_EQ(outcomeOf(*session, request), cancelled);
    EXPECT_EQ(server->connections(), 0);
}

TEST_P(Cancellation, ChangesNothingOnceTheAnswerIsThere)
{
    const auto server = serve(GetParam(), [](RawConnection& connection) {
        for (;;) {
            connection.readRequest();
            connection.send(rawAnswer(200));
        }
    });
    QPromise<void> leaving;
    leaving.start();
    Request request = get(server->url());
    request.abandoned = leaving.future();
    EXPECT_EQ(outcomeOf(*session, request), answered(200));
    leaving.finish();
    EXPECT_EQ(outcomeOf(*session, get(server->url())), answered(200));
    EXPECT_EQ(server->connections(), 1) << "the connection is still in use";
}

INSTANTIATE_TEST_SUITE_P(
    Over, Cancellation, testing::Values(Transport::Plain, Transport::Tls), testing::PrintToStringParamName());

TEST(CancellationOfALookUp, DoesNotWaitForTheName)
{
    CurlWebSession session;
    const Awaited<Response> answer(session.send(get(QUrl(u"http://nowhere.invalid/"_s))));
    QCoreApplication::processEvents();
    session.cancelAll();
    EXPECT_EQ(outcomeOf(answer), cancelled);
}
