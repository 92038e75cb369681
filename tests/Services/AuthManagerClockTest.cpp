#include "AuthManagerTest.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

const QByteArray ada
    = R"({"idToken":"id-1","refreshToken":"refresh-1","localId":"ada","email":"ada@example.com"})";
const QByteArray renewed = R"({"id_token":"id-2","refresh_token":"refresh-2","expires_in":"3600"})";

/// Somebody is signed in all day, whatever the token's life.
class ClockTest : public AuthManagerTest
{
protected:
    ClockTest() { setApiKey(u"key"_s); }

    void signIn(const QByteArray& response = ada)
    {
        const Awaited<void> entering(auth->signIn(u"ada@example.com"_s, u"p"_s, std::nullopt));
        answer(session->count() - 1, response);
        entering.result();
    }
};

struct ToldRow : Named
{
    QByteArray signIn;
    std::chrono::seconds renewedAfter;
};

class ToldLifetimes : public ClockTest, public testing::WithParamInterface<ToldRow>
{ };

TEST_P(ToldLifetimes, SetTheAlarm)
{
    start();
    signIn(GetParam().signIn);
    EXPECT_EQ(clock.untilAlarm(), GetParam().renewedAfter);
}

QByteArray saying(const QByteArray& more)
{
    return R"({"idToken":"id-1","refreshToken":"refresh-1")" + more + "}";
}

INSTANTIATE_TEST_SUITE_P(SignIns, ToldLifetimes,
    testing::Values(ToldRow{{"Nothing"}, saying(""), 3300s},
        ToldRow{{"Number"}, saying(R"(,"expires_in":7200)"), 6900s},
        ToldRow{{"Text"}, saying(R"(,"expires_in":"7200")"), 6900s},
        ToldRow{{"OtherKey"}, saying(R"(,"expiresIn":"7200")"), 6900s},
        ToldRow{{"BothKeys"}, saying(R"(,"expiresIn":"60","expires_in":"7200")"), 6900s},
        ToldRow{{"Zero"}, saying(R"(,"expires_in":0)"), 3300s},
        ToldRow{{"Negative"}, saying(R"(,"expires_in":-5)"), 3300s},
        ToldRow{{"Word"}, saying(R"(,"expires_in":"soon")"), 3300s},
        ToldRow{{"Null"}, saying(R"(,"expires_in":null)"), 3300s},
        ToldRow{{"Centuries"}, saying(R"(,"expires_in":99999999999)"), 3300s},
        ToldRow{{"Short"}, saying(R"(,"expires_in":20)"), 10s},
        ToldRow{{"InTheFirebasePart"},
            R"({"firebase":{"idToken":"id-1","refreshToken":"refresh-1","expiresIn":"7200"},"expires_in":60})",
            6900s}),
    RowName());

TEST_F(ClockTest, RenewsBeforeTheTokenEndsAgainAndAgain)
{
    start();
    signIn();
    for (int round = 1; round <= 9; ++round) {
        clock.pass(55min);
        ASSERT_EQ(session->count(), round + 1) << "an eight-hour day";
        EXPECT_EQ(session->request(round).url.path(), u"/v1/token"_s);
        answer(round, renewed);
        EXPECT_EQ(clock.untilAlarm(), 55min);
    }
    EXPECT_TRUE(auth->isSignedIn());
    EXPECT_EQ(storedUser()->idToken, u"id-2"_s);
}

TEST_F(ClockTest, ARenewalByTheWindowSetsTheAlarm)
{
    startSignedIn();
    EXPECT_FALSE(clock.untilAlarm()) << "how old the stored token is nobody knows";
    const Awaited<void> renewal(auth->refreshTokenIfNeeded());
    answer(0, renewed);
    EXPECT_EQ(clock.untilAlarm(), 55min);
}

struct EndRow : Named
{
    std::function<void(FakeWebSession&)> resolve;
    bool staysSignedIn;
};

class ClockEnds : public ClockTest, public testing::WithParamInterface<EndRow>
{ };

TEST_P(ClockEnds, SignOutOnlyAfterARefusal)
{
    start();
    signIn();
    clock.pass(55min);
    GetParam().resolve(*session);
    settle();
    EXPECT_EQ(auth->isSignedIn(), GetParam().staysSignedIn);
    EXPECT_EQ(storedUser().has_value(), GetParam().staysSignedIn);
    if (GetParam().staysSignedIn)
        EXPECT_EQ(clock.untilAlarm(), 1min);
    else
        EXPECT_FALSE(clock.untilAlarm());
}

EndRow answered(const std::string& name, int status, const QByteArray& body, bool stays)
{
    return {{name}, [=](FakeWebSession& session) { session.answer(1, status, body); }, stays};
}

EndRow unreachable(const std::string& name, TransportError::Code code)
{
    return {{name}, [=](FakeWebSession& session) { session.fail(1, code); }, true};
}

INSTANTIATE_TEST_SUITE_P(Answers, ClockEnds,
    testing::Values(answered("Refused", 400, R"({"error":{"message":"TOKEN_EXPIRED"}})", false),
        answered("Unauthorized", 401, "{}", false), answered("Forbidden", 403, "no", false),
        answered("Broken", 500, "oops", true), answered("Busy", 503, "", true),
        answered("TooMany", 429, "{}", true), answered("Portal", 200, "<html>", true),
        answered("Redirect", 302, "{}", true),
        EndRow{{"NoStatus"}, [](FakeWebSession& session) { session.answerWithoutStatus(1); }, true},
        unreachable("TimedOut", TransportError::Code::TimedOut),
        unreachable("NoHost", TransportError::Code::CannotFindHost),
        unreachable("WrongCertificate", TransportError::Code::SecureConnectionFailed)),
    RowName());

TEST_F(ClockTest, TriesAgainAfterAMinuteThenTwoThenFourThenEveryFive)
{
    start();
    signIn();
    clock.pass(55min);
    int number = 1;
    for (const auto pause : {1min, 2min, 4min, 5min, 5min}) {
        fail(number++, TransportError::Code::NotConnectedToInternet);
        EXPECT_EQ(session->count(), number);
        clock.pass(pause - 1ms);
        EXPECT_EQ(session->count(), number);
        clock.pass(1ms);
        ASSERT_EQ(session->count(), number + 1);
    }
    answer(number, renewed);
    EXPECT_EQ(clock.untilAlarm(), 55min);
}

TEST_F(ClockTest, TheWindowsRenewalAndTheClocksAreOne)
{
    start();
    signIn();
    const Awaited<void> renewal(auth->refreshTokenIfNeeded());
    clock.pass(55min);
    EXPECT_EQ(session->count(), 2);
    answer(1, renewed);
    EXPECT_EQ(clock.untilAlarm(), 55min);
}

TEST_F(ClockTest, TimesNothingOnceTheUserHasLeft)
{
    start();
    EXPECT_FALSE(clock.untilAlarm());
    signIn();
    auth->signOut();
    EXPECT_FALSE(clock.untilAlarm());
    signIn();
    auth->leave();
    EXPECT_FALSE(clock.untilAlarm());
}

TEST_F(ClockTest, WithoutAKeyTheAlarmIsTheLast)
{
    setApiKey({});
    start();
    signIn();
    clock.pass(55min);
    EXPECT_EQ(session->count(), 1);
    EXPECT_FALSE(clock.untilAlarm());
    EXPECT_TRUE(auth->isSignedIn());
}

/// Who is the same person when a session has ended and somebody signs in.
struct ReturnRow : Named
{
    QByteArray second;
    bool isTheSame;
};

class Returns : public ClockTest, public testing::WithParamInterface<ReturnRow>
{
protected:
    Returns()
    {
        start();
        signIn(
            R"({"idToken":"a","refreshToken":"b","localId":"ada","email":"ada@example.com","is_admin":true})");
        auth->switchRole(AppRole::client);
        QObject::connect(auth.get(), &AuthManager::personLeft, [this] { ++departures; });
    }

    int departures = 0;
};

TEST_P(Returns, BringBackWhatTheSessionsEndInterrupted)
{
    auth->signOut();
    EXPECT_EQ(departures, 0);
    ASSERT_TRUE(auth->interrupted());
    EXPECT_EQ(auth->interrupted()->localId, u"ada"_s);
    auth->resumeRole();
    signIn(GetParam().second);
    EXPECT_EQ(departures, GetParam().isTheSame ? 0 : 1);
    EXPECT_FALSE(auth->interrupted());
    EXPECT_EQ(auth->role(), GetParam().isTheSame ? AppRole::client : AppRole::admin);
    EXPECT_EQ(storedRole(), GetParam().isTheSame ? u"client"_s : u"admin"_s);
}

INSTANTIATE_TEST_SUITE_P(People, Returns,
    testing::Values(
        ReturnRow{{"Same"},
            R"({"idToken":"c","refreshToken":"d","localId":"ada","email":"x@example.com","is_admin":1})",
            true},
        ReturnRow{{"OtherId"},
            R"({"idToken":"c","refreshToken":"d","localId":"eve","email":"ada@example.com","is_admin":1})",
            false},
        ReturnRow{{"SameAddress"},
            R"({"idToken":"c","refreshToken":"d","email":"ADA@example.com","is_admin":1})", true},
        ReturnRow{{"OtherAddress"},
            R"({"idToken":"c","refreshToken":"d","email":"eve@example.com","is_admin":1})", false}),
    RowName());

TEST_F(Returns, WithoutAWishTheRoleIsTheDefaultOne)
{
    auth->signOut();
    signIn(R"({"idToken":"a","refreshToken":"b","localId":"ada","is_admin":true})");
    EXPECT_EQ(auth->role(), AppRole::admin);
}

TEST_F(Returns, ARoleThatIsHeldNoMoreIsNotBroughtBack)
{
    auth->switchRole(AppRole::admin);
    auth->signOut();
    auth->resumeRole();
    signIn(R"({"idToken":"a","refreshToken":"b","localId":"ada"})");
    EXPECT_EQ(auth->role(), AppRole::client);
}

TEST_F(Returns, WhoeverLeavesInterruptsNothing)
{
    auth->leave();
    EXPECT_EQ(departures, 1);
    EXPECT_FALSE(auth->interrupted());
    EXPECT_FALSE(auth->isSignedIn());
    EXPECT_TRUE(defaults.keys().isEmpty());
    auth->signOut();
    EXPECT_FALSE(auth->interrupted()) << "a screen that finds nobody ends no session";
}

TEST_F(Returns, ASessionThatEndsWhileNobodyIsThereChangesNothing)
{
    auth->signOut();
    auth->signOut();
    ASSERT_TRUE(auth->interrupted());
    auth->leave();
    EXPECT_FALSE(auth->interrupted());
}

/// Whoever hears of one of them sees both.
TEST_F(ClockTest, UserAndRoleChangeTogether)
{
    start();
    QStringList heard;
    const auto note = [&] {
        heard += (auth->isSignedIn() ? u"in as "_s : u"out as "_s) + rawValue(auth->activeRole.value());
    };
    const QPropertyNotifier onUser = auth->user.addNotifier(note);
    const QPropertyNotifier onRole = auth->activeRole.addNotifier(note);
    signIn(R"({"idToken":"a","refreshToken":"b","localId":"ada","is_admin":true})");
    EXPECT_EQ(heard, QStringList(2, u"in as admin"_s));
    heard.clear();
    auth->signOut();
    EXPECT_EQ(heard, QStringList(2, u"out as client"_s));
}

} // namespace
