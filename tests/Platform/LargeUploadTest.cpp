#include "UploadsTest.h"

using namespace Qt::StringLiterals;

namespace {

/// The most memory that this process has held since forgetPeak(), in bytes.
qint64 peakMemory()
{
    QFile status(u"/proc/self/status"_s);
    EXPECT_TRUE(status.open(QIODevice::ReadOnly));
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith("VmHWM:"))
            return line.simplified().split(' ').value(1).toLongLong() * 1024;
    }
    return 0;
}

/// \returns whether the system allows it
bool forgetPeak()
{
    QFile file(u"/proc/self/clear_refs"_s);
    return file.open(QIODevice::WriteOnly) && file.write("5") == 1;
}

} // namespace

class LargeUpload : public Uploads
{ };

TEST_P(LargeUpload, TakesLittleMemory)
{
    constexpr qint64 size = qint64(2) * 1024 * 1024 * 1024 + 1;
    constexpr qint64 most = 16 * 1024 * 1024;
    const auto server = serve(GetParam(), [](RawConnection& connection) {
        const RawRequest request = connection.readHead();
        connection.skipBody(request.header("Content-Length").toLongLong());
        connection.countRequest(request);
        connection.send(rawAnswer(200));
    });
    const QString path = file(u"sparse"_s, {});
    ASSERT_TRUE(QFile::resize(path, size));
    EXPECT_EQ(outcomeOf(session, get(server->url())), answered(200));
    if (!forgetPeak())
        GTEST_SKIP() << "the system does not let a process measure itself anew";
    const qint64 before = peakMemory();
    EXPECT_EQ(outcomeOf(session, upload(server->url(), path, size)), answered(200));
    EXPECT_GT(server->received(), size);
    EXPECT_LT(peakMemory() - before, most);
}

INSTANTIATE_TEST_SUITE_P(
    Over, LargeUpload, testing::Values(Transport::Plain), testing::PrintToStringParamName());
