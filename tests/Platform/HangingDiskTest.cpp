#include "UploadsTest.h"

#include "Worker.h"

using namespace Qt::StringLiterals;

namespace {

/// Keeps every thread busy that waits for disks, so that whatever else a disk is asked for comes when this
/// goes.
class HangingDisk
{
public:
    HangingDisk()
    {
        for (int k = 0; k < mostDiskThreads; ++k) {
            jobs_ += onDisk([gate = gate_] {
                gate->pass();
                return true;
            });
        }
    }
    HangingDisk(const HangingDisk&) = delete;
    HangingDisk& operator=(const HangingDisk&) = delete;
    ~HangingDisk() { answer(); }

    void answer()
    {
        if (std::exchange(hangs_, false))
            gate_->open();
    }

private:
    const std::shared_ptr<Gate> gate_ = std::make_shared<Gate>();
    QList<QFuture<bool>> jobs_;
    bool hangs_ = true;
};

/// Takes bodies of any size without keeping them.
void swallow(RawConnection& connection)
{
    const RawRequest request = connection.readHead();
    connection.skipBody(request.header("Content-Length").toLongLong());
    connection.countRequest(request);
    connection.send(rawAnswer(200));
}

} // namespace

/// Uploads from a disk that does not answer for a while, such as the mount of a server that is away.
class UploadsFromAHangingDisk : public Uploads
{
protected:
    static constexpr qint64 size = 48'000'000;

    QString path = file(u"file"_s, QByteArray(size, 'x'));
};

TEST_P(UploadsFromAHangingDisk, WaitAloneUntilItAnswers)
{
    const auto server = serve(GetParam(), swallow);
    HangingDisk disk;
    const Awaited<Response> answer(session.send(upload(server->url(), path, size)));
    EXPECT_EQ(outcomeOf(session, get(server->url())), answered(200));
    EXPECT_EQ(outcomeOf(session, write(server->url())), answered(200));
    EXPECT_FALSE(answer.isDone());
    EXPECT_EQ(server->requests(), 2);
    disk.answer();
    EXPECT_EQ(outcomeOf(answer), answered(200));
}

TEST_P(UploadsFromAHangingDisk, WaitAloneOnTheirWay)
{
    const auto server = serve(GetParam(), swallow);
    const Awaited<Response> answer(session.send(upload(server->url(), path, size)));
    runUntil([&] { return server->received() > size / 4; });
    HangingDisk disk;
    EXPECT_EQ(outcomeOf(session, get(server->url())), answered(200));
    EXPECT_FALSE(answer.isDone());
    disk.answer();
    EXPECT_EQ(outcomeOf(answer), answered(200));
    EXPECT_EQ(server->requests(), 2);
}

TEST_P(UploadsFromAHangingDisk, EndWithTheSession)
{
    const auto server = serve(GetParam(), swallow);
    const HangingDisk disk;
    const Awaited<Response> answer(session.send(upload(server->url(), path, size)));
    session.cancelAll();
    EXPECT_EQ(outcomeOf(answer), failed(TransportError::Code::Cancelled));
    EXPECT_EQ(server->connections(), 0);
}

/// As long as a server may take, which here is not long.
class UploadsFromADeadDisk : public UploadsFromAHangingDisk
{
protected:
    static CurlWebSession::Options impatient()
    {
        CurlWebSession::Options options = trusting();
        options.idleTimeout = std::chrono::seconds(1);
        return options;
    }

    const Outcome unreadable = failed(TransportError::Code::CannotReadFile);
    CurlWebSession impatientSession{impatient()};
};

TEST_P(UploadsFromADeadDisk, FailUnsentWhenItDoesNotAnswerInTime)
{
    const auto server = serve(GetParam(), swallow);
    const HangingDisk disk;
    EXPECT_EQ(outcomeOf(impatientSession, upload(server->url(), path, size)), unreadable);
    EXPECT_EQ(server->connections(), 0);
}

TEST_P(UploadsFromADeadDisk, FailOnTheirWayWhenItDoesNotAnswerInTime)
{
    const auto server = serve(GetParam(), swallow);
    const Awaited<Response> answer(impatientSession.send(upload(server->url(), path, size)));
    runUntil([&] { return server->received() > size / 4; });
    const HangingDisk disk;
    EXPECT_EQ(outcomeOf(answer), unreadable);
    EXPECT_EQ(server->requests(), 0);
}

INSTANTIATE_TEST_SUITE_P(Over, UploadsFromAHangingDisk, testing::Values(Transport::Plain, Transport::Tls),
    testing::PrintToStringParamName());
INSTANTIATE_TEST_SUITE_P(Over, UploadsFromADeadDisk, testing::Values(Transport::Plain, Transport::Tls),
    testing::PrintToStringParamName());
