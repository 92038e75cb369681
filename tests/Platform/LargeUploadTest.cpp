#include "UploadsTest.h"
#include "support/PeakMemory.h"

using namespace Qt::StringLiterals;

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
    if (!PeakMemory::forget())
        GTEST_SKIP() << "the system does not let a process measure itself anew";
    const qint64 before = PeakMemory::bytes();
    EXPECT_EQ(outcomeOf(session, upload(server->url(), path, size)), answered(200));
    EXPECT_GT(server->received(), size);
    EXPECT_LT(PeakMemory::bytes() - before, most + PeakMemory::kept);
}

INSTANTIATE_TEST_SUITE_P(
    Over, LargeUpload, testing::Values(Transport::Plain), testing::PrintToStringParamName());
