#include "AuthManagerTest.h"

using namespace Qt::StringLiterals;

namespace {

class Renewal : public AuthManagerTest
{
protected:
    Renewal() { setApiKey(u"key&=+ä"_s); }

    Awaited<void> renew() { return Awaited<void>(auth->refreshTokenIfNeeded()); }
};

TEST_F(Renewal, AsksTheTokenService)
{
    startSignedIn();
    const auto renewal = renew();
    ASSERT_EQ(session->count(), 1);
    const Request& request = session->request(0);
    EXPECT_EQ(request.method, "POST");
    EXPECT_EQ(request.url.toEncoded(), "https://tokens.example/v1/token?key=key%26%3D%2B%C3%A4");
    ASSERT_EQ(request.headers.size(), 1);
    EXPECT_EQ(session->header(0, "Content-Type"), "application/x-www-form-urlencoded");
    EXPECT_EQ(session->body(0), "grant_type=refresh_token&refresh_token=refresh-1");
}

TEST_F(Renewal, SendsAnyTokenWhole)
{
    AuthUser user = bareUser();
    user.refreshToken = u"a&b=c+d%41/ü ~"_s;
    startSignedIn(user);
    const auto renewal = renew();
    const QByteArray start = "grant_type=refresh_token&refresh_token=";
    const QByteArray body = session->body(0);
    ASSERT_TRUE(body.startsWith(start));
    const QByteArray value = body.sliced(start.size());
    EXPECT_FALSE(value.contains('&') || value.contains('=') || value.contains('+'));
    EXPECT_EQ(QString::fromUtf8(QByteArray::fromPercentEncoding(value)), user.refreshToken);
}

struct AnswerRow : Named
{
    QByteArray answer;
    QString localId;
    QString idToken;
    QString refreshToken;
};

class RenewalAnswers : public Renewal, public testing::WithParamInterface<AnswerRow>
{ };

TEST_P(RenewalAnswers, ReplaceTheTokens)
{
    const AnswerRow& row = GetParam();
    AuthUser expected = bareUser(u"notary"_s);
    startSignedIn(expected, u"client"_s);
    const quint64 before = epoch.current();
    const auto renewal = renew();
    answer(0, row.answer);
    renewal.result();
    expected.localId = row.localId;
    expected.idToken = row.idToken;
    expected.refreshToken = row.refreshToken;
    EXPECT_EQ(auth->user.value(), expected);
    EXPECT_EQ(storedUser(), expected);
    EXPECT_EQ(auth->role(), AppRole::client);
    EXPECT_EQ(epoch.current(), before) << "it is the same user";
}

INSTANTIATE_TEST_SUITE_P(Answers, RenewalAnswers,
    testing::Values(
        // clang-format off
        AnswerRow{{"Everything"}, R"({"user_id":"new","id_token":"id-2","refresh_token":"refresh-2","expires_in":"3600"})", u"new"_s, u"id-2"_s, u"refresh-2"_s},
        AnswerRow{{"IdTokenOnly"}, R"({"id_token":"id-2"})", u"local"_s, u"id-2"_s, u"refresh-1"_s},
        AnswerRow{{"EmptyTexts"}, R"({"user_id":"","id_token":"null","refresh_token":" "})", u"local"_s, u"id-1"_s, u"refresh-1"_s},
        AnswerRow{{"OtherKeys"}, R"({"idToken":"id-2","refreshToken":"refresh-2"})", u"local"_s, u"id-1"_s, u"refresh-1"_s},
        AnswerRow{{"Nothing"}, "{}", u"local"_s, u"id-1"_s, u"refresh-1"_s} // clang-format on
        ),
    RowName());

struct RefusalRow : Named
{
    std::function<void(FakeWebSession&)> resolve;
};

class RenewalFailures : public Renewal, public testing::WithParamInterface<RefusalRow>
{ };

TEST_P(RenewalFailures, SignOut)
{
    startSignedIn(bareUser(), u"client"_s);
    const auto renewal = renew();
    GetParam().resolve(*session);
    settle();
    EXPECT_NO_THROW(renewal.result());
    EXPECT_FALSE(auth->isSignedIn());
    EXPECT_TRUE(defaults.keys().isEmpty());
    EXPECT_EQ(session->count(), 1);
}

RefusalRow refused(const std::string& name, int status, const QByteArray& body)
{
    return {{name}, [=](FakeWebSession& session) { session.answer(0, status, body); }};
}

RefusalRow unreachable(const std::string& name, TransportError::Code code)
{
    return {{name}, [=](FakeWebSession& session) { session.fail(0, code); }};
}

INSTANTIATE_TEST_SUITE_P(Answers, RenewalFailures,
    testing::Values(refused("Refused", 400, R"({"error":{"message":"TOKEN_EXPIRED"}})"),
        refused("RefusedWithTokens", 403, R"({"id_token":"id-2"})"), refused("ServerError", 500, "oops"),
        refused("Redirect", 302, R"({"id_token":"id-2"})"), refused("EmptyBody", 200, ""),
        refused("Html", 200, "<html>"), refused("List", 200, R"([{"id_token":"id-2"}])"),
        refused("CutShort", 200, R"({"id_token":"id-2")"),
        RefusalRow{{"NoStatus"}, [](FakeWebSession& session) { session.answerWithoutStatus(0); }},
        unreachable("TimedOut", TransportError::Code::TimedOut),
        unreachable("WrongCertificate", TransportError::Code::SecureConnectionFailed),
        unreachable("NoHost", TransportError::Code::CannotFindHost)),
    RowName());

TEST_F(Renewal, NeedsAUser)
{
    start();
    renew().result();
    EXPECT_EQ(session->count(), 0);
}

TEST_F(Renewal, NeedsARefreshToken)
{
    AuthUser user = bareUser();
    user.refreshToken.clear();
    startSignedIn(user);
    renew().result();
    EXPECT_EQ(session->count(), 0);
    EXPECT_TRUE(auth->isSignedIn());
}

TEST_F(Renewal, NeedsAKey)
{
    startSignedIn();
    for (const QString& key : {u""_s, QString()}) {
        setApiKey(key);
        renew().result();
    }
    config.resourceFolder = u"/nowhere"_s;
    renew().result();
    EXPECT_EQ(session->count(), 0);
    EXPECT_TRUE(auth->isSignedIn());
}

TEST_F(Renewal, HappensAgainEveryTime)
{
    startSignedIn();
    for (int round = 0; round < 3; ++round) {
        const auto renewal = renew();
        answer(round, "{}");
        renewal.result();
    }
    EXPECT_EQ(session->count(), 3);
}

TEST_F(Renewal, UsesARefreshTokenOnlyOnce)
{
    startSignedIn();
    const auto first = renew();
    const auto second = renew();
    EXPECT_TRUE(second.isDone());
    EXPECT_EQ(session->count(), 1);
    answer(0, R"({"id_token":"id-2","refresh_token":"refresh-2"})");
    const auto third = renew();
    EXPECT_TRUE(session->body(1).endsWith("=refresh-2"));
}

/// Whatever somebody does who is told of the new tokens, they are no longer to be lost.
TEST_F(Renewal, IsOnDiskBeforeAnybodyHearsOfIt)
{
    startSignedIn();
    std::optional<AuthUser> storedThen;
    const QPropertyNotifier notifier = auth->user.addNotifier([&] { storedThen = storedUser(); });
    const auto renewal = renew();
    answer(0, R"({"id_token":"id-2","refresh_token":"refresh-2"})");
    ASSERT_TRUE(storedThen);
    EXPECT_EQ(storedThen->refreshToken, u"refresh-2"_s);
}

TEST_F(Renewal, KeepsTheUserWhenTheProgramEnds)
{
    startSignedIn();
    const auto renewal = renew();
    session->cancelAll();
    settle();
    renewal.result();
    EXPECT_TRUE(auth->isSignedIn());
    EXPECT_EQ(storedUser(), bareUser());
}

} // namespace
