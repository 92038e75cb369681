#include "RealServerTest.h"
#include "support/ApiKey.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace {

const QString offline = u"Connection problem. Please check your internet connection and try again."_s;

/// A booking or an upload; both are writes, which must never arrive twice.
struct Write : Named
{
    std::function<QCoro::Task<JSONObject>(const APIClient&, const MultipartFile&)> start;
};

class Writes : public RealServerTest, public testing::WithParamInterface<std::tuple<Write, bool>>
{
protected:
    void serveEach(const RawServer::Script& script) { serve(std::get<1>(GetParam()), script); }

    Awaited<JSONObject> write(const QByteArray& content = "%PDF")
    {
        const QString path = files.filePath(u"deed.pdf"_s);
        QFile onDisk(path);
        if (!onDisk.open(QFile::WriteOnly) || onDisk.write(content) != content.size())
            qFatal("a file of the test cannot be written");
        onDisk.close();
        const MultipartFile file{
            u"desktop_files[]"_s, u"deed.pdf"_s, u"application/pdf"_s, {path, content.size()}};
        return Awaited<JSONObject>(std::get<0>(GetParam()).start(APIClient(*backend), file));
    }

    /// Leaves a connection open and idle behind.
    void read()
    {
        const Awaited<JSONObject> reading(APIClient(*backend).getProfile(token, std::nullopt));
        reading.result();
    }

    qsizetype arrived() const
    {
        const QList<RawRequest> seen = server->seen();
        return std::count_if(
            seen.begin(), seen.end(), [](const RawRequest& request) { return request.method() == "POST"; });
    }
};

/// Answers reads for as long as the client wants, and hands each write to the script.
RawServer::Script answerReads(RawServer::Script onWrite)
{
    return [onWrite = std::move(onWrite)](RawConnection& client) {
        while (client.readRequest().method() == "GET")
            client.send(rawAnswer(200));
        onWrite(client);
    };
}

TEST_P(Writes, ArriveOnceWhenNobodyReplies)
{
    serveEach(answerReads([](RawConnection& client) { client.close(); }));
    EXPECT_EQ(failureOnceDone(write()), offline);
    EXPECT_EQ(arrived(), 1);
}

TEST_P(Writes, ArriveOnceWhenNobodyRepliesAfterARead)
{
    serveEach(answerReads([](RawConnection& client) { client.close(); }));
    read();
    EXPECT_EQ(failureOnceDone(write()), offline);
    EXPECT_EQ(arrived(), 1);
}

TEST_P(Writes, ArriveOnceAfterHalfAStatusLine)
{
    serveEach(answerReads([](RawConnection& client) { client.send("HTTP/1."); }));
    read();
    EXPECT_EQ(failureOnceDone(write()), offline);
    EXPECT_EQ(arrived(), 1);
}

TEST_P(Writes, ArriveOnceAfterAReset)
{
    serveEach(answerReads([](RawConnection& client) { client.reset(); }));
    read();
    EXPECT_EQ(failureOnceDone(write()), offline);
    EXPECT_EQ(arrived(), 1);
}

TEST_P(Writes, SucceedThoughTheIdleConnectionHasBeenClosed)
{
    serveEach([](RawConnection& client) {
        const bool isRead = client.readRequest().method() == "GET";
        client.send(rawAnswer(200, isRead ? "{}" : R"({"id":5})"));
    });
    read();
    runUntil([this] { return server->ended() == 1; });
    EXPECT_EQ(write().result().intValue(u"id"_s), 5);
    EXPECT_EQ(arrived(), 1);
}

const auto book = [](const APIClient& api, const MultipartFile&) {
    return api.createSession({{u"contact_name"_s, u"Ada"_s}}, u"id-token"_s);
};
const auto upload = [](const APIClient& api, const MultipartFile& file) {
    return api.uploadSessionFiles(7, u"Deed"_s, u"notarized_document"_s, {file}, u"id-token"_s, {});
};

INSTANTIATE_TEST_SUITE_P(Connections, Writes,
    testing::Combine(testing::Values(Write{{"Booking"}, book}, Write{{"Upload"}, upload}), testing::Bool()),
    Connection());

/// A file that is no repetition of any of its parts of a usual buffer's size.
QByteArray largeFile()
{
    QByteArray content(8 * 1024 * 1024, Qt::Uninitialized);
    for (qsizetype i = 0; i < content.size(); ++i)
        content[i] = char(i % 65521 % 251);
    return content;
}

using LargeUploads = Writes;

TEST_P(LargeUploads, EndWithTheServersWordsWhenItHasHadEnough)
{
    serveEach([](RawConnection& client) {
        const RawRequest request = client.readHead();
        client.skipBody(100000);
        client.countRequest(request);
        client.send(rawAnswer(413, R"({"message":"That file is too large."})", "Connection: close\r\n"));
        client.drain();
    });
    EXPECT_EQ(failureOnceDone(write(largeFile())), u"That file is too large."_s);
    EXPECT_EQ(server->connections(), 1);
}

TEST_P(LargeUploads, AreSeenOnceWhereverTheyBreak)
{
    for (const int percent : {1, 50, 99}) {
        serveEach([percent](RawConnection& client) {
            const RawRequest request = client.readHead();
            client.skipBody(request.header("Content-Length").toLongLong() * percent / 100);
            client.reset();
        });
        EXPECT_EQ(failureOnceDone(write(largeFile())), offline) << percent << " %";
        EXPECT_EQ(server->connections(), 1) << percent << " %";
    }
}

TEST_P(LargeUploads, ArriveWhole)
{
    serveEach([](RawConnection& client) {
        client.readRequest();
        client.send(rawAnswer(200, R"({"data":{"uploaded":1}})"));
    });
    const QByteArray content = largeFile();
    EXPECT_EQ(write(content).result().intValue(u"uploaded"_s), 1);
    const RawRequest request = server->seen().first();
    const QByteArray mark = request.header("Content-Type").split('=').value(1);
    EXPECT_TRUE(request.body.startsWith("--" + mark + "\r\n"));
    EXPECT_TRUE(request.body.endsWith("\r\n\r\n" + content + "\r\n--" + mark + "--\r\n"));
}

INSTANTIATE_TEST_SUITE_P(Connections, LargeUploads,
    testing::Combine(testing::Values(Write{{"Upload"}, upload}), testing::Bool()), Connection());

/// What ends a session, over a real connection.
class SessionEnds : public RealServerTest, public testing::WithParamInterface<bool>
{
protected:
    SessionEnds() { defaults.setData(AuthManager::userDefaultsKey, bareUser().encoded()); }

    void start() { auth = std::make_unique<AuthManager>(*backend, defaults, clock); }

    std::unique_ptr<AuthManager> auth;
};

TEST_P(SessionEnds, OnceHoweverManyCallsAreRefused)
{
    serve(GetParam(), [](RawConnection& client) {
        for (;;) {
            client.readRequest();
            client.send(rawAnswer(401));
        }
    });
    start();
    int departures = 0;
    const QPropertyNotifier notifier = auth->user.addNotifier([&departures] { ++departures; });
    QList<Awaited<JSONObject>> calls;
    for (int i = 0; i < 20; ++i)
        calls += Awaited<JSONObject>(APIClient(*backend).getProfile(token, std::nullopt));
    for (const auto& call : calls)
        EXPECT_EQ(failureOnceDone(call), u"Your session ended. Please sign in again."_s);
    EXPECT_EQ(departures, 1);
    EXPECT_FALSE(auth->isSignedIn());
    EXPECT_TRUE(defaults.keys().isEmpty());
}

TEST_P(SessionEnds, WhenARenewalIsRedirected)
{
    RawServer elsewhere([](RawConnection& client) { client.send(rawAnswer(200)); });
    serve(GetParam(), [to = elsewhere.url().toEncoded()](RawConnection& client) {
        client.readRequest();
        client.send(rawAnswer(307, {}, "Location: " + to + "\r\n"));
    });
    start();
    storeApiKey(files.path(), u"key"_s);
    config.resourceFolder = files.path();
    finished(auth->refreshTokenIfNeeded());
    EXPECT_FALSE(auth->isSignedIn());
    EXPECT_EQ(server->requests(), 1);
    EXPECT_EQ(elsewhere.connections(), 0);
}

INSTANTIATE_TEST_SUITE_P(Connections, SessionEnds, testing::Bool(),
    [](const auto& connection) { return connection.param ? "OverTls" : "InTheClear"; });

} // namespace
