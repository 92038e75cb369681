#include "AuthManagerTest.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

const QString ended = u"Your session ended. Please sign in again."_s;
const QString noConnection = u"Connection problem. Please check your internet connection and try again."_s;
const QByteArray renewed = R"({"id_token":"id-2","refresh_token":"refresh-2","expires_in":"3600"})";

/// Requests that meet a renewal on its way.
class TokenGateTest : public AuthManagerTest
{
protected:
    TokenGateTest()
    {
        setApiKey(u"key"_s);
        startSignedIn();
    }

    Awaited<void> renew() { return Awaited<void>(auth->refreshTokenIfNeeded()); }
    Awaited<JSONObject> load() { return Awaited<JSONObject>(api.getProfile(u"id-1"_s, std::nullopt)); }
    QByteArray bearer(qsizetype number) { return session->header(number, "Authorization"); }
};

/// Nobody waits for its end.
template <typename T>
void launchCall(QCoro::Task<T> task)
{
    const Awaited<T> call(std::move(task));
}

struct CallRow : Named
{
    std::function<void(const APIClient& api, const QString& token)> call;
};

class EveryCall : public TokenGateTest, public testing::WithParamInterface<CallRow>
{ };

TEST_P(EveryCall, WaitsForTheRenewalAndCarriesTheNewToken)
{
    const auto renewal = renew();
    GetParam().call(api, u"id-1"_s);
    settle();
    ASSERT_EQ(session->count(), 1) << "the renewal alone";
    answer(0, renewed);
    ASSERT_EQ(session->count(), 2);
    EXPECT_EQ(bearer(1), "Bearer id-2");
    answer(1, "{}");
}

INSTANTIATE_TEST_SUITE_P(Kinds, EveryCall,
    testing::Values(
        CallRow{{"Read"},
            [](const APIClient& api, const QString& token) { launchCall(api.getSession(7, token)); }},
        CallRow{{"List"},
            [](const APIClient& api, const QString& token) { launchCall(api.getAdminUsers(token)); }},
        CallRow{{"Profile"},
            [](const APIClient& api, const QString& token) {
                launchCall(api.getProfile(token, AppRole::notary));
            }},
        CallRow{{"Write"},
            [](const APIClient& api, const QString& token) { launchCall(api.createSession({}, token)); }},
        CallRow{{"Delete"},
            [](const APIClient& api, const QString& token) { launchCall(api.deleteAdminUser(7, token)); }},
        CallRow{{"Upload"},
            [](const APIClient& api, const QString& token) {
                launchCall(api.uploadSessionFiles(7, u"Deed"_s, u"supporting_document"_s, {}, token, {}));
            }}),
    RowName());

TEST_F(TokenGateTest, AllWhoWaitGoOutTogether)
{
    const auto renewal = renew();
    const QList<Awaited<JSONObject>> calls{load(), load(), load()};
    answer(0, renewed);
    ASSERT_EQ(session->count(), 4);
    for (int number = 1; number <= 3; ++number) {
        EXPECT_EQ(bearer(number), "Bearer id-2");
        answer(number, "{}");
    }
}

TEST_F(TokenGateTest, NobodyWaitsWithoutARenewal)
{
    const auto call = load();
    EXPECT_EQ(session->count(), 1);
    EXPECT_EQ(bearer(0), "Bearer id-1");
    answer(0, "{}");
}

TEST_F(TokenGateTest, ATokenThatWasReplacedMeanwhileIsExchanged)
{
    const auto renewal = renew();
    answer(0, renewed);
    const auto call = load();
    EXPECT_EQ(bearer(1), "Bearer id-2");
    answer(1, "{}");
    const auto again = renew();
    answer(2, R"({"id_token":"id-3"})");
    const auto later = load();
    EXPECT_EQ(bearer(3), "Bearer id-3") << "through both renewals";
    answer(3, "{}");
}

TEST_F(TokenGateTest, ATokenOfSomebodyElseIsLeftAlone)
{
    const auto renewal = renew();
    answer(0, renewed);
    auth->signOut();
    const auto call = load();
    EXPECT_EQ(bearer(1), "Bearer id-1") << "nobody's request goes out in the name of another";
    answer(1, "{}");
}

TEST_F(TokenGateTest, AFailedRenewalEndsTheWaitWithTheSession)
{
    const auto renewal = renew();
    const auto call = load();
    answer(0, "{}", 400);
    EXPECT_FALSE(auth->isSignedIn());
    EXPECT_EQ(failureOf(call), ended);
    EXPECT_EQ(session->count(), 1) << "nothing is sent for somebody who has left";
}

TEST_F(TokenGateTest, LeavingEndsTheWait)
{
    const auto renewal = renew();
    const auto call = load();
    auth->leave();
    EXPECT_EQ(failureOf(call), ended);
    answer(0, renewed);
    EXPECT_EQ(session->count(), 1);
}

TEST_F(TokenGateTest, TheNextPersonDoesNotWaitForTheRenewalOfTheOneBefore)
{
    const auto renewal = renew();
    auth->leave();
    const Awaited<void> entering(auth->signIn(u"bob@example.com"_s, u"p"_s, std::nullopt));
    answer(1, R"({"idToken":"bob-id","refreshToken":"bob-refresh","localId":"bob"})");
    const Awaited<JSONObject> call(api.getProfile(u"bob-id"_s, std::nullopt));
    EXPECT_EQ(bearer(2), "Bearer bob-id");
    answer(2, "{}");
    const auto own = renew();
    const auto waiting = Awaited<JSONObject>(api.getProfile(u"bob-id"_s, std::nullopt));
    answer(0, renewed);
    EXPECT_EQ(session->count(), 4) << "the late answer of another's renewal lets nobody through";
    answer(3, R"({"id_token":"bob-id-2"})");
    EXPECT_EQ(bearer(4), "Bearer bob-id-2");
    answer(4, "{}");
}

TEST_F(TokenGateTest, TheEndOfTheProgramEndsTheWait)
{
    const auto renewal = renew();
    const auto call = load();
    session->cancelAll();
    settle();
    EXPECT_TRUE(call.hasFailed());
    EXPECT_EQ(session->count(), 1);
    EXPECT_TRUE(auth->isSignedIn());
}

TEST_F(TokenGateTest, TheManagersEndEndsTheWait)
{
    const auto renewal = renew();
    const auto call = load();
    auth.reset();
    settle();
    EXPECT_EQ(bearer(1), "Bearer id-1");
    answer(1, "{}");
    answer(0, renewed);
}

/// The same with a token whose life is known.
class KnownToken : public TokenGateTest
{
protected:
    KnownToken()
    {
        const auto first = renew();
        answer(0, renewed);
    }
    Awaited<JSONObject> call() { return Awaited<JSONObject>(api.getProfile(u"id-2"_s, std::nullopt)); }
};

TEST_F(KnownToken, ARenewalByTheClockThatDoesNotGetThroughLetsRequestsGoAsTheyAre)
{
    clock.pass(55min);
    const auto waiting = call();
    EXPECT_EQ(session->count(), 2);
    fail(1, TransportError::Code::TimedOut);
    ASSERT_EQ(session->count(), 3);
    EXPECT_EQ(bearer(2), "Bearer id-2");
    answer(2, "{}");
}

TEST_F(KnownToken, ATokenThatHasEndedIsRenewedBeforeTheRequest)
{
    clock.pass(55min);
    fail(1, TransportError::Code::CannotConnectToHost);
    clock.pass(30s);
    clock.pass(29s);
    EXPECT_EQ(session->count(), 2) << "the next try is a minute later";
    clock.cancelAlarm(); // as when the system has no timer left
    clock.pass(10min);
    const auto waiting = call();
    ASSERT_EQ(session->count(), 3);
    EXPECT_EQ(session->request(2).url.path(), u"/v1/token"_s);
    answer(2, R"({"id_token":"id-3"})");
    EXPECT_EQ(bearer(3), "Bearer id-3");
    answer(3, "{}");
}

TEST_F(KnownToken, ATokenThatHasEndedIsNotSentWhereItCannotBeRenewed)
{
    clock.pass(2h);
    const auto waiting = call();
    fail(1, TransportError::Code::CannotConnectToHost);
    EXPECT_EQ(failureOf(waiting), noConnection);
    EXPECT_EQ(session->count(), 2);
    EXPECT_TRUE(auth->isSignedIn()) << "the network is away, not the person";
}

} // namespace
