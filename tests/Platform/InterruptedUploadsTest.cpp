#include "UploadsTest.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using Code = TransportError::Code;

static const QByteArray tooLarge("{\"message\":\"Too large\"}");

/// A server that ends an upload on its way.
class InterruptedUploads : public Uploads
{
protected:
    static constexpr qint64 size = 20'000'000;

    void SetUp() override { path = file(u"file"_s, QByteArray(size, 'x')); }

    QString path;
};

TEST_P(InterruptedUploads, AreNotSentAgainAfterAReset)
{
    for (const int percent : {0, 1, 50, 99, 100}) {
        const auto server = serve(GetParam(), [percent](RawConnection& connection) {
            connection.readHead();
            connection.skipBody(size * percent / 100);
            connection.reset();
        });
        EXPECT_EQ(outcomeOf(session, upload(server->url(), path, size)), failed(Code::NetworkConnectionLost))
            << percent;
        EXPECT_EQ(server->connections(), 1) << percent;
    }
}

/// A refusal is read although the server takes no more of the body.
TEST_P(InterruptedUploads, AreAnsweredHalfWay)
{
    for (const int percent : {0, 1, 50, 99}) {
        const auto server = serve(GetParam(), [percent](RawConnection& connection) {
            connection.readHead();
            connection.skipBody(size * percent / 100);
            connection.send(rawAnswer(413, tooLarge));
            connection.stall();
        });
        EXPECT_EQ(outcomeOf(session, upload(server->url(), path, size)), answered(413, tooLarge)) << percent;
        EXPECT_EQ(server->connections(), 1);
        EXPECT_EQ(server->requests(), 0);
    }
}

/// A server that hangs up with bytes of the body unread resets the connection, which can take its own answer
/// back before anyone has read it. Answered or not, nothing is sent again.
TEST_P(InterruptedUploads, AreAnsweredOrLostWhenTheServerHangsUp)
{
    for (const int percent : {0, 1, 50, 99}) {
        const auto server = serve(GetParam(), [percent](RawConnection& connection) {
            connection.readHead();
            connection.skipBody(size * percent / 100);
            connection.send(rawAnswer(413, tooLarge));
        });
        EXPECT_THAT(outcomeOf(session, upload(server->url(), path, size)),
            testing::AnyOf(answered(413, tooLarge), failed(Code::NetworkConnectionLost)))
            << percent;
        EXPECT_EQ(server->connections(), 1);
        EXPECT_EQ(server->requests(), 0);
    }
}

/// The body still arrives whole when the answer comes early and is no refusal.
TEST_P(InterruptedUploads, GoOnAfterAnEarlySuccess)
{
    const auto server = serve(GetParam(), [](RawConnection& connection) {
        const RawRequest request = connection.readHead();
        connection.send(rawAnswer(200));
        connection.skipBody(size);
        connection.countRequest(request);
        connection.stall();
    });
    EXPECT_EQ(outcomeOf(session, upload(server->url(), path, size)), answered(200));
    runUntil([&] { return server->requests() == 1; });
    EXPECT_EQ(server->connections(), 1);
}

INSTANTIATE_TEST_SUITE_P(Over, InterruptedUploads, testing::Values(Transport::Plain, Transport::Tls),
    testing::PrintToStringParamName());
