#include "RealServerTest.h"
#include "support/ApiKey.h"

#include <QFileInfo>
#include <QJsonDocument>
#include <QProcess>

using namespace Qt::StringLiterals;

namespace {

/// A second implementation of the token service, made by others: the emulator of an npm package, behind TLS.
class TokenEmulatorTest : public RealServerTest
{
protected:
    void SetUp() override
    {
        const QString packages = QString::fromLocal8Bit(qgetenv("QUORVEL_TOKEN_EMULATOR"));
        if (packages.isEmpty() || !QFileInfo(packages + u"/firebase-tools"_s).isDir())
            GTEST_SKIP() << "scripts/fetch-token-emulator could not install the emulator from npm";
        const TlsIdentity identity = TestCertificates::shared().identity();
        emulator.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        emulator.start(u"node"_s,
            {QStringLiteral(QUORVEL_TOKEN_EMULATOR_SCRIPT), packages,
                QString::fromLocal8Bit(identity.certificateFile), QString::fromLocal8Bit(identity.keyFile)});
        account = QJsonDocument::fromJson(nextLine()).object();
        ASSERT_FALSE(account.isEmpty());
        use(QUrl(u"https://localhost:%1"_s.arg(account.value(u"port"_s).toInt())));
        storeApiKey(files.path(), u"any"_s);
        config.resourceFolder = files.path();

        AuthUser user = bareUser();
        user.localId = account.value(u"localId"_s).toString();
        user.idToken = account.value(u"idToken"_s).toString();
        user.refreshToken = account.value(u"refreshToken"_s).toString();
        defaults.setData(AuthManager::userDefaultsKey, user.encoded());
        auth = std::make_unique<AuthManager>(*backend, defaults, clock);
    }

    void TearDown() override
    {
        emulator.closeWriteChannel();
        if (!emulator.waitForFinished())
            emulator.kill();
    }

    QByteArray nextLine()
    {
        while (!emulator.canReadLine()) {
            if (!emulator.waitForReadyRead(-1))
                return {};
        }
        return emulator.readLine();
    }

    void renew() { Awaited<void>(auth->refreshTokenIfNeeded()).result(); }

    QProcess emulator;
    QJsonObject account;
    std::unique_ptr<AuthManager> auth;
};

TEST_F(TokenEmulatorTest, RenewsATokenOfItsOwnAndRefusesARevokedOne)
{
    renew();
    ASSERT_TRUE(auth->isSignedIn());
    const AuthUser renewed = *auth->user.value();
    EXPECT_EQ(renewed.localId, account.value(u"localId"_s).toString());
    EXPECT_EQ(renewed.idToken.count(u'.'), 2) << "a web token";
    EXPECT_FALSE(renewed.refreshToken.isEmpty());
    EXPECT_EQ(clock.untilAlarm(), std::chrono::minutes(55)) << "it tells that its tokens live an hour";

    renew();
    ASSERT_TRUE(auth->isSignedIn()) << "with the refresh token that came last";

    emulator.write("revoke\n");
    ASSERT_EQ(nextLine(), "revoked\n");
    renew();
    EXPECT_FALSE(auth->isSignedIn());
    EXPECT_TRUE(defaults.keys().isEmpty());
}

} // namespace
