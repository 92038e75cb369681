#include "AuthManagerTest.h"

using namespace Qt::StringLiterals;

namespace {

const QByteArray bobAnswer
    = R"({"idToken":"bob-id","refreshToken":"bob-refresh","localId":"bob","email":"bob@example.com"})";
const QByteArray renewed = R"({"id_token":"id-2","refresh_token":"refresh-2"})";

/// Ada is signed in, something of hers is under way, and things happen in an unhappy order.
class LateAnswers : public AuthManagerTest
{
protected:
    LateAnswers()
    {
        setApiKey(u"key"_s);
        startSignedIn();
    }

    Awaited<void> renew() { return Awaited<void>(auth->refreshTokenIfNeeded()); }
    Awaited<void> sync() { return Awaited<void>(auth->syncProfile(std::nullopt)); }
    Awaited<JSONObject> load() { return Awaited<JSONObject>(api.getProfile(u"id-1"_s, std::nullopt)); }

    /// Ada leaves and Bob comes.
    void replaceByBob()
    {
        auth->signOut();
        const Awaited<void> entering(auth->signIn(u"bob@example.com"_s, u"p"_s, std::nullopt));
        answer(session->count() - 1, bobAnswer);
        entering.result();
        bob = *auth->user.value();
    }

    void expectNobody()
    {
        EXPECT_FALSE(auth->isSignedIn());
        EXPECT_TRUE(defaults.keys().isEmpty());
    }

    void expectBob()
    {
        EXPECT_EQ(auth->user.value(), bob);
        EXPECT_EQ(storedUser(), bob);
    }

    AuthUser bob;
};

TEST_F(LateAnswers, ARenewalDoesNotBringBackWhoHasLeft)
{
    const auto renewal = renew();
    auth->signOut();
    answer(0, renewed);
    EXPECT_TRUE(renewal.isDone());
    expectNobody();
}

TEST_F(LateAnswers, ARenewalChangesNothingForSomebodyElse)
{
    const auto renewal = renew();
    replaceByBob();
    answer(0, renewed);
    expectBob();
}

TEST_F(LateAnswers, AFailedRenewalDoesNotSignOutSomebodyElse)
{
    const auto renewal = renew();
    replaceByBob();
    answer(0, "{}", 400);
    EXPECT_TRUE(renewal.isDone());
    expectBob();
}

TEST_F(LateAnswers, TheNextUserRenewsWhileAnOldRenewalHangs)
{
    const auto adas = renew();
    replaceByBob();
    const auto bobs = renew();
    ASSERT_EQ(session->count(), 3);
    EXPECT_TRUE(session->body(2).endsWith("=bob-refresh"));
    answer(0, renewed);
    const auto again = renew();
    EXPECT_EQ(session->count(), 3) << "Ada's late answer does not end Bob's renewal";
    answer(2, R"({"id_token":"bob-id-2"})");
    EXPECT_EQ(auth->user.value()->idToken, u"bob-id-2"_s);
}

TEST_F(LateAnswers, AProfileDoesNotBringBackWhoHasLeft)
{
    const auto syncing = sync();
    auth->signOut();
    answer(0, R"({"user":{"name":"Ada"}})");
    syncing.result();
    expectNobody();
}

TEST_F(LateAnswers, AProfileChangesNothingForSomebodyElse)
{
    const auto syncing = sync();
    replaceByBob();
    answer(0, R"({"user":{"name":"Ada","email":"ada@example.com"}})");
    syncing.result();
    expectBob();
}

TEST_F(LateAnswers, AProfileKeepsTokensRenewedMeanwhile)
{
    const auto syncing = sync();
    const auto renewal = renew();
    answer(1, renewed);
    answer(0, R"({"user":{"name":"Ada"}})");
    EXPECT_EQ(auth->user.value()->refreshToken, u"refresh-2"_s);
    EXPECT_EQ(auth->user.value()->displayName, u"Ada"_s);
    EXPECT_EQ(storedUser(), auth->user.value());
}

TEST_F(LateAnswers, ARenewalKeepsAProfileThatCameMeanwhile)
{
    const auto syncing = sync();
    const auto renewal = renew();
    answer(0, R"({"user":{"name":"Ada"}})");
    answer(1, renewed);
    EXPECT_EQ(auth->user.value()->refreshToken, u"refresh-2"_s);
    EXPECT_EQ(auth->user.value()->displayName, u"Ada"_s);
}

TEST_F(LateAnswers, ASignInOutlastsTheSignOutOfNobody)
{
    auth->signOut();
    const Awaited<void> entering(auth->signIn(u"bob@example.com"_s, u"p"_s, std::nullopt));
    // A screen that finds nobody signed in says so by signing out.
    auth->signOut();
    answer(0, bobAnswer);
    entering.result();
    EXPECT_TRUE(auth->isSignedIn());
    EXPECT_FALSE(auth->isBusy.value());
}

TEST_F(LateAnswers, AnExpiryIsOneSignOutHoweverManyCallsFail)
{
    int departures = 0;
    const QPropertyNotifier notifier
        = auth->user.addNotifier([&] { departures += auth->isSignedIn() ? 0 : 1; });
    QList<Awaited<JSONObject>> calls;
    for (int i = 0; i < 20; ++i)
        calls += load();
    for (int i = 0; i < 20; ++i)
        session->answer(i, 401, "{}");
    settle();
    for (const auto& call : calls)
        EXPECT_EQ(failureOf(call), u"Your session ended. Please sign in again."_s);
    EXPECT_EQ(departures, 1);
    EXPECT_EQ(expiries, 1) << "the first announcement makes the others those of somebody who has left";
    expectNobody();
}

TEST_F(LateAnswers, AnExpiryIsHarmlessWhenSignedOut)
{
    auth->signOut();
    const quint64 before = epoch.current();
    for (int i = 0; i < 3; ++i)
        notifications.post(u"QuorvelMac.appSessionExpired"_s);
    expectNobody();
    EXPECT_GE(epoch.current(), before);
    expiries = 0;
}

TEST_F(LateAnswers, OtherAnnouncementsSignNobodyOut)
{
    // The fixture's own observer accepts only the expiry.
    NotificationCenter elsewhere;
    const Backend other{*session, elsewhere, epoch, config, tokens};
    const AuthManager manager(other, defaults, clock);
    elsewhere.post(u"QuorvelMac.openMainWindow"_s);
    EXPECT_TRUE(manager.isSignedIn());
    elsewhere.post(u"QuorvelMac.appSessionExpired"_s);
    EXPECT_FALSE(manager.isSignedIn());
}

TEST_F(LateAnswers, ALateRefusalDoesNotSignOutTheNextUser)
{
    const auto call = load();
    replaceByBob();
    answer(0, "{}", 401);
    EXPECT_EQ(failureOf(call), u"Your session ended. Please sign in again."_s);
    expectBob();
}

TEST_F(LateAnswers, ARefusalSignsOutEvenWhileARenewalIsUnderWay)
{
    const auto call = load();
    const auto renewal = renew();
    answer(0, "{}", 401);
    expectNobody();
    answer(1, renewed);
    expectNobody();
}

TEST_F(LateAnswers, AFailedSignInAnnouncesNothing)
{
    const Awaited<void> entering(auth->signIn(u"bob@example.com"_s, u"p"_s, std::nullopt));
    answer(0, R"({"message":"session token"})", 401);
    EXPECT_TRUE(entering.hasFailed());
    EXPECT_TRUE(auth->isSignedIn()) << "Ada";
}

TEST_F(LateAnswers, TheManagerMayGoWhileSomethingIsUnderWay)
{
    const auto syncing = sync();
    const auto call = load();
    const Awaited<void> entering(auth->signIn(u"bob@example.com"_s, u"p"_s, std::nullopt));
    const auto renewal = renew();
    auth.reset();
    answer(0, R"({"user":{"name":"Ada"}})");
    answer(1, "{}", 401);
    answer(2, bobAnswer);
    answer(3, renewed);
    EXPECT_TRUE(renewal.isDone() && syncing.isDone() && entering.isDone() && call.isDone());
    EXPECT_EQ(storedUser(), bareUser()) << "nothing is written for a manager that has gone";
    EXPECT_EQ(expiries, 1);
}

TEST_F(LateAnswers, ARefusedRenewalOfAManagerThatHasGoneIsForgotten)
{
    const auto renewal = renew();
    auth.reset();
    fail(0, TransportError::Code::TimedOut);
    EXPECT_TRUE(renewal.isDone());
    EXPECT_EQ(storedUser(), bareUser());
}

} // namespace
