#include "RealServerTest.h"

using namespace Qt::StringLiterals;

RealServerTest::RealServerTest()
{
    CurlWebSession::Options options;
    options.connectTimeout = std::chrono::seconds(1);
    options.idleTimeout = std::chrono::seconds(1);
    options.largestBody = 1024 * 1024;
    options.trustedFile = TestCertificates::shared().authorityFile();
    session = std::make_unique<CurlWebSession>(options);
    backend = std::make_unique<Backend>(Backend{*session, notifications, epoch, config, tokens});
    QObject::connect(&notifications, &NotificationCenter::posted, [this] { ++expiries; });
}

RealServerTest::~RealServerTest()
{
    session->cancelAll();
    settle();
}

void RealServerTest::use(const QUrl& website)
{
    config.websiteURL = website;
    config.bridgeBaseURL = website;
    config.bridgeBaseURL.setPath(u"/mobile-bridge/v1"_s);
    config.secureTokenURL = website;
}

void RealServerTest::serve(bool overTls, const RawServer::Script& script)
{
    if (overTls)
        return serve(TestCertificates::Quality::Valid, script);
    server = std::make_unique<RawServer>(script);
    use(server->url(u"/"_s));
}

void RealServerTest::serve(TestCertificates::Quality certificate, const RawServer::Script& script)
{
    RawServer::Tls tls;
    tls.identity = TestCertificates::shared().identity(certificate);
    server = std::make_unique<RawServer>(script, tls);
    use(server->url(u"/"_s));
}
