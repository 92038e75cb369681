#include "ScreenTest.h"

#include <QJsonDocument>

using namespace Qt::StringLiterals;

bool RecordedOpens::openWebsite(const QUrl& url)
{
    websites += url;
    return true;
}

bool RecordedOpens::composeMail(const QString& address)
{
    mails += address;
    return true;
}

AuthUser account(const QString& name, const QList<AppRole>& roles)
{
    const QString word = name.toLower().remove(u' ');
    AuthUser user;
    user.localId = word;
    user.email = word + u"@example.com"_s;
    user.displayName = name;
    user.idToken = word + u"-token"_s;
    user.refreshToken = word + u"-refresh"_s;
    user.isBusiness = roles.contains(AppRole::business);
    user.isNotary = roles.contains(AppRole::notary);
    user.isAdmin = roles.contains(AppRole::admin);
    return user;
}

QJsonObject object(const QByteArray& json)
{
    const QJsonDocument document = QJsonDocument::fromJson(json);
    EXPECT_TRUE(document.isObject()) << json.toStdString();
    return document.object();
}

ScreenTest::ScreenTest()
{
    config.websiteURL = QUrl(u"https://notary.example"_s);
    config.bridgeBaseURL = QUrl(u"https://notary.example/mobile-bridge/v1"_s);
    config.secureTokenURL = QUrl(u"https://tokens.example"_s);
    config.supportEmail = u"support@notary.example"_s;
}

ScreenTest::~ScreenTest()
{
    webSession.reset();
}

void ScreenTest::signIn(const AuthUser& user, AppRole role)
{
    auth.user = user;
    auth.activeRole = role;
}

void ScreenTest::replaceUser(const AuthUser& user, AppRole role)
{
    auth.leave();
    signIn(user, role);
}

QString ScreenTest::line(qsizetype number) const
{
    const QString base = config.bridgeBaseURL.toString();
    QString url = request(number).url.toString(QUrl::FullyEncoded);
    EXPECT_TRUE(url.startsWith(base)) << url.toStdString();
    return QString::fromLatin1(request(number).method) + u' ' + url.remove(0, base.size());
}

QByteArray ScreenTest::text(qsizetype number) const
{
    QByteArray text;
    for (const RequestBody::Part& part : request(number).body.parts()) {
        if (const auto* bytes = std::get_if<QByteArray>(&part))
            text += *bytes;
    }
    return text;
}

QJsonObject ScreenTest::body(qsizetype number) const
{
    return object(text(number));
}

void ScreenTest::answer(qsizetype number, const QByteArray& json, int status)
{
    ASSERT_LT(number, requestCount());
    webSession->answer(number, status, json);
    settle();
}

void ScreenTest::fail(qsizetype number, TransportError::Code code)
{
    ASSERT_LT(number, requestCount());
    webSession->fail(number, code);
    settle();
}

QFuture<QList<FoundFile>> ScreenTest::lookNow(const QStringList& paths)
{
    QList<FoundFile> found;
    for (const QString& path : paths)
        found += FoundFile::at(path);
    return QtFuture::makeReadyFuture(found);
}

QList<QString> ScreenTest::alertOf(const ScreenModel& model)
{
    const std::optional<AlertMessage>& alert = model.alert.value();
    return alert ? QList<QString>{alert->title, alert->message} : QList<QString>();
}
