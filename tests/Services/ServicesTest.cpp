#include "ServicesTest.h"
#include "support/ApiKey.h"

#include <QJsonDocument>

using namespace Qt::StringLiterals;

QJsonObject json(const QByteArray& text)
{
    const QJsonDocument document = QJsonDocument::fromJson(text);
    if (!document.isObject())
        qFatal("no JSON object: %s", text.constData());
    return document.object();
}

ServicesTest::ServicesTest()
{
    config.websiteURL = QUrl(u"https://bridge.example"_s);
    config.bridgeBaseURL = QUrl(u"https://bridge.example/mobile-bridge/v1"_s);
    config.secureTokenURL = QUrl(u"https://tokens.example"_s);
    config.resourceFolder = resources.path();
    QObject::connect(&notifications, &NotificationCenter::posted, [this](const QString& name) {
        EXPECT_EQ(name, u"QuorvelMac.appSessionExpired"_s);
        ++expiries;
    });
}

ServicesTest::~ServicesTest()
{
    session.reset();
}

void ServicesTest::setApiKey(const QString& key)
{
    storeApiKey(resources.path(), key);
}

void ServicesTest::answer(qsizetype number, const QByteArray& body, int status)
{
    session->answer(number, status, body);
    settle();
}

void ServicesTest::fail(qsizetype number, TransportError::Code code)
{
    session->fail(number, code);
    settle();
}
