#include "UploadsTest.h"

#include "support/WithoutPrivileges.h"

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using Code = TransportError::Code;

namespace {

const Outcome unreadable = failed(Code::CannotReadFile);

void answerOne(RawConnection& connection)
{
    connection.readRequest();
    connection.send(rawAnswer(200));
}

/// Reads a body of any size without keeping it.
void swallowOne(RawConnection& connection)
{
    const RawRequest request = connection.readHead();
    connection.skipBody(request.header("Content-Length").toLongLong());
    connection.countRequest(request);
    connection.send(rawAnswer(200));
}

} // namespace

TEST_P(Uploads, SendTheirPartsInSequence)
{
    const auto server = serve(GetParam(), answerOne);
    QByteArray content;
    for (int i = 0; i < 300'000; ++i)
        content += char(i * 7 + i / 251);
    Request request = write(server->url(), "POST", "start\r\n");
    request.body.append(RequestBody::File{file(u"a"_s, content), content.size()});
    request.body.append(QByteArray());
    request.body.append(QByteArray("\r\nbetween\r\n"));
    request.body.append(RequestBody::File{file(u"b ü \"q\""_s, "second"), 6});
    request.body.append(QByteArray("\r\nend"));
    EXPECT_EQ(outcomeOf(session, request), answered(200));
    const RawRequest seen = server->seen().value(0);
    EXPECT_TRUE(seen.body == "start\r\n" + content + "\r\nbetween\r\nsecond\r\nend");
    EXPECT_EQ(seen.header("Content-Length"), QByteArray::number(request.body.size()));
}

TEST_P(Uploads, MayBeEmpty)
{
    const auto server = serve(GetParam(), answerOne);
    EXPECT_EQ(outcomeOf(session, upload(server->url(), file(u"empty"_s, {}), 0)), answered(200));
    EXPECT_EQ(server->seen().value(0).header("Content-Length"), "0");
}

TEST_P(Uploads, ReportTheirProgress)
{
    const auto server = serve(GetParam(), swallowOne);
    constexpr qint64 size = 30'000'000;
    Request request = upload(server->url(), file(u"large"_s, QByteArray(size, 'x')), size);
    QList<qint64> reports;
    request.onProgress = [&reports](qint64 sent, qint64 total) {
        EXPECT_EQ(total, size);
        reports += sent;
    };
    EXPECT_EQ(outcomeOf(session, request), answered(200));
    ASSERT_FALSE(reports.isEmpty());
    EXPECT_TRUE(std::is_sorted(reports.begin(), reports.end()));
    EXPECT_EQ(reports.count(size), 1);
    EXPECT_EQ(reports.last(), size);
    EXPECT_GT(reports.first(), 0);
}

TEST_P(Uploads, OfWhatIsNoReadableFileAreNotBegun)
{
    const QString fifo = folder.filePath(u"fifo"_s);
    ASSERT_EQ(mkfifo(QFile::encodeName(fifo).constData(), 0600), 0);
    const QString dangling = folder.filePath(u"dangling"_s);
    ASSERT_TRUE(QFile::link(folder.filePath(u"nothing"_s), dangling));
    const auto server = serve(GetParam(), answerOne);
    const QString shorter = file(u"shorter"_s, "12345");
    for (const QString& path : {fifo, dangling, folder.path(), u"/dev/zero"_s, u"/dev/stdin"_s, QString(),
             shorter, folder.filePath(u"missing"_s)}) {
        Request request = upload(server->url(), file(u"good"_s, "12"), 2);
        request.body.append(RequestBody::File{path, 6});
        EXPECT_EQ(outcomeOf(session, request), unreadable) << path.toStdString();
    }
    EXPECT_EQ(server->connections(), 0);
}

TEST_P(Uploads, OfFilesThatMayNotBeReadAreNotBegun)
{
    const QString path = file(u"private"_s, "secret");
    ASSERT_TRUE(QFile::setPermissions(path, {}));
    ASSERT_EQ(chmod(QFile::encodeName(folder.path()).constData(), 0755), 0);
    const auto server = serve(GetParam(), answerOne);
    const WithoutPrivileges ordinary;
    EXPECT_EQ(outcomeOf(session, upload(server->url(), path, 6)), unreadable);
    EXPECT_EQ(server->connections(), 0);
}

INSTANTIATE_TEST_SUITE_P(
    Over, Uploads, testing::Values(Transport::Plain, Transport::Tls), testing::PrintToStringParamName());

/// What happens to a file while it is being sent.
class ChangingUploads : public Uploads
{
protected:
    static constexpr qint64 size = 48'000'000;

    /// Uploads the file and makes the change once some of it has arrived.
    Outcome uploadWhile(const std::function<void(const QString& path)>& change)
    {
        // The server answers on a thread of its own, which may still be at a gate when the client has given
        // up.
        const auto begun = std::make_shared<Gate>();
        const auto changed = std::make_shared<Gate>();
        server = serve(GetParam(), [begun, changed](RawConnection& connection) {
            const RawRequest request = connection.readHead();
            connection.skipBody(100'000);
            begun->open();
            changed->pass();
            connection.skipBody(size - 100'000);
            connection.countRequest(request);
            connection.send(rawAnswer(200));
        });
        const QString path = file(u"file"_s, QByteArray(size, 'x'));
        const Awaited<Response> answer(session.send(upload(server->url(), path, size)));
        std::thread changer([&] {
            begun->pass();
            change(path);
            changed->open();
        });
        const Outcome outcome = outcomeOf(answer);
        changer.join();
        return outcome;
    }

    std::unique_ptr<RawServer> server;
};

TEST_P(ChangingUploads, FailWhenTheFileShrinks)
{
    EXPECT_EQ(uploadWhile([](const QString& path) { QFile::resize(path, 1000); }), unreadable);
    EXPECT_EQ(server->requests(), 0);
    EXPECT_EQ(server->connections(), 1);
}

TEST_P(ChangingUploads, SendTheStatedSizeWhenTheFileGrows)
{
    EXPECT_EQ(uploadWhile([](const QString& path) { QFile::resize(path, 2 * size); }), answered(200));
    EXPECT_EQ(server->requests(), 1);
    EXPECT_LT(server->received(), size + 1000);
}

TEST_P(ChangingUploads, GoOnWhenTheFileIsDeletedOrReplaced)
{
    EXPECT_EQ(uploadWhile([](const QString& path) { QFile::remove(path); }), answered(200));
    EXPECT_EQ(uploadWhile([this](const QString& path) {
        const QString other = file(u"other"_s, "short");
        rename(QFile::encodeName(other).constData(), QFile::encodeName(path).constData());
    }),
        answered(200));
    EXPECT_EQ(server->requests(), 1);
}

INSTANTIATE_TEST_SUITE_P(Over, ChangingUploads, testing::Values(Transport::Plain, Transport::Tls),
    testing::PrintToStringParamName());
