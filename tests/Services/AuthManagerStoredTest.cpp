#include "AuthManagerTest.h"
#include "SettingsDefaults.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace {

using StartUp = AuthManagerTest;

TEST_F(StartUp, BeginsSignedOut)
{
    start();
    EXPECT_FALSE(auth->isSignedIn());
    EXPECT_FALSE(auth->isBusy.value());
    EXPECT_EQ(auth->activeRole.value(), AppRole::client);
    EXPECT_EQ(auth->role(), AppRole::client);
    EXPECT_EQ(auth->displayName(), QString());
}

TEST_F(StartUp, RestoresUserAndRole)
{
    AuthUser user = bareUser(u"notary"_s);
    user.displayName = u"Ada"_s;
    startSignedIn(user, u"client"_s);
    EXPECT_EQ(auth->user.value(), user);
    EXPECT_EQ(auth->role(), AppRole::client);
    EXPECT_EQ(auth->displayName(), u"Ada"_s);
    EXPECT_EQ(session->count(), 0) << "restoring asks nobody";
}

TEST_F(StartUp, ADisplayNameThatIsAbsentIsEmpty)
{
    startSignedIn();
    EXPECT_EQ(auth->displayName(), QString());
}

TEST_F(StartUp, TakesTheDefaultRoleWithoutWritingIt)
{
    for (const QString& stored : {u""_s, u"admin"_s, u"Notary"_s}) {
        startSignedIn(bareUser(u"notary"_s), stored);
        const int writes = defaults.writes(AuthManager::activeRoleKey);
        EXPECT_EQ(auth->activeRole.value(), AppRole::notary);
        start();
        EXPECT_EQ(defaults.writes(AuthManager::activeRoleKey), writes);
    }
}

TEST_F(StartUp, IgnoresTheRoleOfNobody)
{
    defaults.setString(AuthManager::activeRoleKey, u"admin"_s);
    start();
    EXPECT_EQ(auth->activeRole.value(), AppRole::client);
    EXPECT_EQ(storedRole(), u"admin"_s);
}

class UnreadableUsers : public AuthManagerTest, public testing::WithParamInterface<QByteArray>
{ };

TEST_P(UnreadableUsers, AreIgnoredAndLeftAsTheyAre)
{
    defaults.setData(AuthManager::userDefaultsKey, GetParam());
    start();
    EXPECT_FALSE(auth->isSignedIn());
    EXPECT_EQ(defaults.data(AuthManager::userDefaultsKey), GetParam());
}

INSTANTIATE_TEST_SUITE_P(Records, UnreadableUsers,
    testing::Values("", "{", "[]", "{}", R"({"localId":"l","email":"e","idToken":"i"})",
        R"({"localId":"l","email":"e","idToken":"i","refreshToken":7})", QByteArray("\xFF\0\x01", 3)));

using SignOut = AuthManagerTest;

TEST_F(SignOut, ForgetsTheUserHereAndOnDisk)
{
    startSignedIn(bareUser(u"admin"_s), u"admin"_s);
    auth->signOut();
    EXPECT_FALSE(auth->isSignedIn());
    EXPECT_EQ(auth->activeRole.value(), AppRole::client);
    EXPECT_EQ(auth->role(), AppRole::client);
    EXPECT_TRUE(defaults.keys().isEmpty());
    EXPECT_EQ(session->count(), 0) << "nothing is sent";
}

TEST_F(SignOut, IsHarmlessWhenSignedOut)
{
    start();
    auth->signOut();
    auth->signOut();
    EXPECT_FALSE(auth->isSignedIn());
}

/// The manager over the preferences as they are on disk, made anew at every start.
class Restarts : public ServicesTest
{
protected:
    Restarts() { restart(); }
    ~Restarts() override { session.reset(); }

    void restart()
    {
        auth.reset();
        defaults = std::make_unique<SettingsDefaults>(path());
        auth = std::make_unique<AuthManager>(backend, *defaults, clock);
    }

    SetClock clock;

    QString path() const { return resources.filePath(u"Quorvel.conf"_s); }

    QByteArray onDisk() const
    {
        QFile file(path());
        return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
    }

    void signIn(const QByteArray& response)
    {
        const Awaited<void> entering(auth->signIn(u"ada@example.com"_s, u"s3cret-pass"_s, std::nullopt));
        answer(session->count() - 1, response);
        entering.result();
    }

    std::unique_ptr<SettingsDefaults> defaults;
    std::unique_ptr<AuthManager> auth;
};

const QByteArray ada
    = R"({"idToken":"id-1","refreshToken":"refresh-1","profile":{"app_role":"notary","full_name":"Ädä ☺"}})";

TEST_F(Restarts, ResumeWhereTheUserWas)
{
    signIn(ada);
    auth->switchRole(AppRole::client);
    const std::optional<AuthUser> before = auth->user.value();
    restart();
    EXPECT_EQ(auth->user.value(), before);
    EXPECT_EQ(auth->role(), AppRole::client);
    EXPECT_EQ(auth->displayName(), u"Ädä ☺"_s);
}

TEST_F(Restarts, FindNothingAfterASignOut)
{
    signIn(ada);
    ASSERT_TRUE(onDisk().contains("refresh-1"));
    auth->signOut();
    const QByteArray bytes = onDisk();
    for (const char* gone : {"refresh-1", "id-1", "authUser", "activeRole"})
        EXPECT_FALSE(bytes.contains(gone)) << gone << " in " << bytes.toStdString();
    restart();
    EXPECT_FALSE(auth->isSignedIn());
}

TEST_F(Restarts, NeverFindThePassword)
{
    signIn(ada);
    EXPECT_FALSE(onDisk().contains("s3cret-pass"));
    EXPECT_FALSE(onDisk().contains(QByteArray("s3cret-pass").toBase64()));
}

TEST_F(Restarts, FindTheRotatedTokensAsSoonAsTheyHaveCome)
{
    setApiKey(u"key"_s);
    signIn(ada);
    const Awaited<void> renewal(auth->refreshTokenIfNeeded());
    answer(1, R"({"id_token":"id-2","refresh_token":"refresh-2"})");
    // A second look at the file, while the first manager still lives: as after a kill.
    SettingsDefaults afterKill(path());
    const AuthManager resumed(backend, afterKill, clock);
    ASSERT_TRUE(resumed.isSignedIn());
    EXPECT_EQ(resumed.user.value()->refreshToken, u"refresh-2"_s);
    EXPECT_EQ(resumed.user.value()->idToken, u"id-2"_s);
    EXPECT_FALSE(onDisk().contains("refresh-1"));
}

TEST_F(Restarts, FindNobodyAfterARefusedRenewal)
{
    setApiKey(u"key"_s);
    signIn(ada);
    const Awaited<void> renewal(auth->refreshTokenIfNeeded());
    answer(1, R"({"error":"TOKEN_EXPIRED"})", 400);
    EXPECT_FALSE(onDisk().contains("authUser"));
    restart();
    EXPECT_FALSE(auth->isSignedIn());
}

} // namespace
