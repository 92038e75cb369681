#include "WebSessionTest.h"

#include <openssl/ssl.h>

#include <QFile>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;
using Code = TransportError::Code;
using Quality = TestCertificates::Quality;

namespace {

void answerOne(RawConnection& connection)
{
    connection.readRequest();
    connection.send(rawAnswer(200));
}

const Outcome refused = failed(Code::SecureConnectionFailed);

} // namespace

class BadCertificate : public testing::TestWithParam<Quality>
{ };

TEST_P(BadCertificate, SeesNoByteOfARequest)
{
    RawServer server(answerOne, {.identity = TestCertificates::shared().identity(GetParam())});
    CurlWebSession session(trusting());
    EXPECT_EQ(outcomeOf(session, write(server.url())), refused);
    EXPECT_EQ(outcomeOf(session, get(server.url())), refused);
    EXPECT_GE(server.connections(), 2);
    EXPECT_EQ(server.received(), 0);
}

INSTANTIATE_TEST_SUITE_P(Of, BadCertificate,
    testing::Values(Quality::Expired, Quality::NotYetValid, Quality::OtherHost, Quality::SelfSigned,
        Quality::ForClientsOnly, Quality::SignedByLeaf));

TEST(Certificate, OfATrustedAuthorityIsAccepted)
{
    RawServer server(answerOne, {});
    CurlWebSession session(trusting());
    EXPECT_EQ(outcomeOf(session, write(server.url())), answered(200));
    QUrl byName = server.url();
    byName.setHost(u"localhost"_s);
    EXPECT_EQ(outcomeOf(session, write(byName)), answered(200));
}

TEST(Certificate, OfAnUnknownAuthorityIsRefused)
{
    for (const QByteArray& trustedFile :
        {QByteArray(), QByteArray("/nowhere.pem"), QByteArray("/dev/null")}) {
        CurlWebSession::Options options;
        options.trustedFile = trustedFile;
        RawServer server(answerOne, {});
        CurlWebSession session(options);
        EXPECT_EQ(outcomeOf(session, write(server.url())), refused);
        EXPECT_EQ(server.received(), 0);
    }
}

TEST(Certificate, FileThatHoldsNoneTrustsNobody)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(u"trusted.pem"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("no certificate");
    file.close();
    CurlWebSession::Options options;
    options.trustedFile = QFile::encodeName(file.fileName());
    RawServer server(answerOne, {});
    CurlWebSession session(options);
    EXPECT_EQ(outcomeOf(session, write(server.url())), refused);
    EXPECT_EQ(server.received(), 0);
}

TEST(Certificate, FileIsNamedByTheEnvironment)
{
    const QByteArray before = qgetenv("SSL_CERT_FILE");
    qputenv("SSL_CERT_FILE", TestCertificates::shared().authorityFile());
    RawServer server(answerOne, {});
    CurlWebSession session;
    EXPECT_EQ(outcomeOf(session, write(server.url())), answered(200));
    qputenv("SSL_CERT_FILE", before);
}

struct Version
{
    std::string name;
    int number;
    Outcome want;
};

static void PrintTo(const Version& version, std::ostream* out)
{
    *out << version.name;
}

class TlsVersion : public testing::TestWithParam<Version>
{ };

TEST_P(TlsVersion, IsAcceptedFromOneDotTwoOn)
{
    RawServer::Tls tls;
    tls.oldestVersion = GetParam().number;
    tls.newestVersion = GetParam().number;
    RawServer server(answerOne, tls);
    CurlWebSession session(trusting());
    EXPECT_EQ(outcomeOf(session, write(server.url())), GetParam().want);
    if (GetParam().want == refused) {
        EXPECT_EQ(server.received(), 0);
    }
}

INSTANTIATE_TEST_SUITE_P(Of, TlsVersion,
    testing::Values(Version{"1_0", TLS1_VERSION, refused}, Version{"1_1", TLS1_1_VERSION, refused},
        Version{"1_2", TLS1_2_VERSION, answered(200)}, Version{"1_3", TLS1_3_VERSION, answered(200)}),
    [](const auto& version) { return version.param.name; });
