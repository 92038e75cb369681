#include "AuthManagerTest.h"

using namespace Qt::StringLiterals;

namespace {

const QByteArray adaAnswer = R"({"firebase":{"idToken":"id-2","refreshToken":"refresh-2","localId":"ada"},
    "profile":{"user":{"id":3,"full_name":"Ada","email":"ada@example.com","role":"notary"}}})";

/// One of the two ways in; they differ in nothing but the request.
struct Way : Named
{
    std::function<QCoro::Task<>(AuthManager&)> enter;
    QByteArray path;
};

class Entering : public AuthManagerTest, public testing::WithParamInterface<Way>
{ };

TEST_P(Entering, SignsInFromTheAnswer)
{
    start();
    const Awaited<void> entering(GetParam().enter(*auth));
    EXPECT_TRUE(session->request(0).url.toEncoded().endsWith(GetParam().path));
    EXPECT_FALSE(auth->isSignedIn());
    answer(0, adaAnswer);
    entering.result();

    ASSERT_TRUE(auth->isSignedIn());
    const AuthUser user = *auth->user.value();
    EXPECT_EQ(user.idToken, u"id-2"_s);
    EXPECT_EQ(user.sqlUserId, 3);
    EXPECT_EQ(auth->displayName(), u"Ada"_s);
    EXPECT_EQ(auth->role(), AppRole::notary);
    EXPECT_EQ(storedUser(), user);
    EXPECT_EQ(storedRole(), u"notary"_s);
}

TEST_P(Entering, IsBusyMeanwhile)
{
    start();
    QList<bool> states;
    const QPropertyNotifier notifier = auth->isBusy.addNotifier([&] { states += auth->isBusy.value(); });
    const Awaited<void> entering(GetParam().enter(*auth));
    EXPECT_EQ(states, QList<bool>{true});
    answer(0, adaAnswer);
    EXPECT_EQ(states, (QList<bool>{true, false}));
}

TEST_P(Entering, FallsBackToTheTypedAddress)
{
    start();
    const Awaited<void> entering(GetParam().enter(*auth));
    answer(0, R"({"idToken":"i","refreshToken":"r"})");
    ASSERT_TRUE(auth->isSignedIn());
    EXPECT_EQ(auth->user.value()->email, u"typed@example.com"_s);
}

TEST_P(Entering, FailsWithTheBridgesSentence)
{
    start();
    const Awaited<void> entering(GetParam().enter(*auth));
    answer(0, R"({"error":"INVALID_PASSWORD"})", 400);
    EXPECT_EQ(failureOf(entering), u"Incorrect email or password. Please try again."_s);
    EXPECT_FALSE(auth->isBusy.value());
    EXPECT_FALSE(auth->isSignedIn());
    EXPECT_TRUE(defaults.keys().isEmpty());
    EXPECT_EQ(expiries, 0);
}

TEST_P(Entering, FailsWhenTheAnswerHasNoTokens)
{
    start();
    const Awaited<void> entering(GetParam().enter(*auth));
    answer(0, R"({"idToken":"i"})");
    EXPECT_EQ(failureOf(entering), u"Sign-in could not be completed. Please try again or contact support."_s);
    EXPECT_FALSE(auth->isBusy.value());
    EXPECT_FALSE(auth->isSignedIn());
    EXPECT_TRUE(defaults.keys().isEmpty());
}

TEST_P(Entering, FailsWhenTheConnectionDoes)
{
    start();
    const Awaited<void> entering(GetParam().enter(*auth));
    fail(0, TransportError::Code::CannotConnectToHost);
    EXPECT_EQ(
        failureOf(entering), u"Connection problem. Please check your internet connection and try again."_s);
    EXPECT_FALSE(auth->isBusy.value());
}

TEST_P(Entering, AnswersNobodyWhenTheManagerHasGone)
{
    start();
    const Awaited<void> entering(GetParam().enter(*auth));
    auth.reset();
    answer(0, adaAnswer);
    entering.result();
    EXPECT_TRUE(defaults.keys().isEmpty());
}

/// A way in is a coroutine: a plain function hands over what it is made of by value.
QCoro::Task<> signIn(AuthManager& auth)
{
    return auth.signIn(u" typed@example.com\n"_s, u" pass word "_s, std::nullopt);
}

QCoro::Task<> registerClient(AuthManager& auth)
{
    return auth.registerClient({u" Ada "_s, u" typed@example.com\n"_s, u" pass word "_s, {}, {}, {}});
}

INSTANTIATE_TEST_SUITE_P(Ways, Entering,
    testing::Values(Way{{"SignIn"}, &signIn, "/mobile-bridge/v1/auth/password-login"},
        Way{{"RegisterClient"}, &registerClient, "/mobile-bridge/v1/auth/client-register"}),
    RowName());

using SignIn = AuthManagerTest;

TEST_F(SignIn, PassesTheHintOnButFollowsTheStoredRole)
{
    defaults.setString(AuthManager::activeRoleKey, u"client"_s);
    start();
    const Awaited<void> entering(auth->signIn(u"a@b.c"_s, u"p"_s, AppRole::admin));
    EXPECT_EQ(json(session->body(0)).value(u"role_hint"_s), u"admin"_s);
    answer(0, adaAnswer);
    EXPECT_EQ(auth->role(), AppRole::client) << "a role chosen earlier survives a new sign-in";
    EXPECT_EQ(defaults.writes(AuthManager::activeRoleKey), 1) << "and is not written again";
}

TEST_F(SignIn, ReplacesAStoredRoleThatTheUserMayNotUse)
{
    defaults.setString(AuthManager::activeRoleKey, u"notary"_s);
    start();
    const Awaited<void> entering(auth->signIn(u"a@b.c"_s, u"p"_s, std::nullopt));
    answer(0, R"({"idToken":"i","refreshToken":"r","profile":{"is_business":true}})");
    EXPECT_EQ(auth->activeRole.value(), AppRole::business);
    EXPECT_EQ(storedRole(), u"business"_s);
}

TEST_F(SignIn, ReplacesAStoredRoleThatIsNone)
{
    defaults.setString(AuthManager::activeRoleKey, u"Notary"_s);
    start();
    const Awaited<void> entering(auth->signIn(u"a@b.c"_s, u"p"_s, std::nullopt));
    answer(0, adaAnswer);
    EXPECT_EQ(storedRole(), u"notary"_s);
}

TEST_F(SignIn, BeginsANewEpoch)
{
    start();
    const quint64 before = epoch.current();
    const Awaited<void> entering(auth->signIn(u"a@b.c"_s, u"p"_s, std::nullopt));
    EXPECT_EQ(epoch.current(), before);
    answer(0, adaAnswer);
    EXPECT_NE(epoch.current(), before);
}

TEST_F(SignIn, TellsObserversOfAUserWhoIsWhole)
{
    start();
    AppRole roleSeen = AppRole::client;
    const QPropertyNotifier notifier = auth->user.addNotifier([&] { roleSeen = auth->role(); });
    const Awaited<void> entering(auth->signIn(u"a@b.c"_s, u"p"_s, std::nullopt));
    answer(0, adaAnswer);
    EXPECT_EQ(roleSeen, AppRole::notary);
}

using SyncProfile = AuthManagerTest;

TEST_F(SyncProfile, DoesNothingWhenSignedOut)
{
    start();
    Awaited<void>(auth->syncProfile(AppRole::client)).result();
    EXPECT_EQ(session->count(), 0);
}

TEST_F(SyncProfile, MergesTheWholeAnswerIntoTheUser)
{
    startSignedIn();
    const Awaited<void> sync(auth->syncProfile(AppRole::business));
    EXPECT_EQ(session->request(0).url.query(), u"role_hint=business"_s);
    EXPECT_EQ(session->header(0, "Authorization"), "Bearer id-1");
    answer(0,
        R"({"user":{"id":3,"name":"Ada L"},"is_business":true,"business":{"id":12,"company_name":"Firm"}})");
    sync.result();
    const AuthUser user = *auth->user.value();
    EXPECT_EQ(user.displayName, u"Ada L"_s);
    EXPECT_EQ(user.businessId, 12);
    EXPECT_EQ(user.idToken, u"id-1"_s);
    EXPECT_EQ(storedUser(), user);
    EXPECT_EQ(auth->role(), AppRole::business);
}

TEST_F(SyncProfile, LeavesTheUserAloneWhenItFails)
{
    startSignedIn();
    const AuthUser before = *auth->user.value();
    const Awaited<void> sync(auth->syncProfile(std::nullopt));
    EXPECT_FALSE(session->request(0).url.hasQuery());
    answer(0, R"({"message":"Try later"})", 500);
    EXPECT_EQ(failureOf(sync), u"Try later"_s);
    EXPECT_EQ(auth->user.value(), before);
    EXPECT_EQ(storedUser(), before);
}

} // namespace
