#include "ServicesTest.h"

using namespace Qt::StringLiterals;

namespace {

const QString token = u"id-token"_s;
const QString general = u"We could not complete that request. Please try again."_s;
const QString ended = u"Your session ended. Please sign in again."_s;

/// An answer, and the sentence that it turns into for a signed-in user and for one who signs in.
struct Row : Named
{
    int status;
    QByteArray body;
    QString expected;
    QString expectedInPublic;
    bool announces = false;
};

class FailedAnswers : public ServicesTest, public testing::WithParamInterface<Row>
{ };

TEST_P(FailedAnswers, BecomeASentence)
{
    const Row& row = GetParam();
    const Awaited<JSONObject> call(api.createSession({}, token));
    answer(0, row.body, row.status);
    EXPECT_EQ(failureOf(call), row.expected);
    EXPECT_EQ(expiries, row.announces ? 1 : 0);
}

TEST_P(FailedAnswers, BecomeAnotherSentenceForWhoSignsIn)
{
    const Row& row = GetParam();
    const Awaited<JSONObject> call(api.passwordLogin(u"a@b.c"_s, u"p"_s, std::nullopt));
    answer(0, row.body, row.status);
    EXPECT_EQ(failureOf(call), row.expectedInPublic);
    EXPECT_EQ(expiries, 0) << "nobody's session can end before it begins";
}

const QString incorrect = u"Incorrect email or password. Please try again."_s;
const QString noAccess = u"You do not have access to that section."_s;
const QString support = u"We could not complete that request. Please try again or contact support."_s;
const QString unreadable = u"We could not read the response. Please try again."_s;
const QByteArray deep1025 = QByteArray(1025, '[') + QByteArray(1025, ']');
const QByteArray deep100000 = QByteArray(100000, '[') + QByteArray(100000, ']');

INSTANTIATE_TEST_SUITE_P(Answers, FailedAnswers,
    testing::Values(
        // clang-format off
        Row{{"Unauthorized"}, 401, "{}", ended, incorrect, true},
        Row{{"UnauthorizedWithoutBody"}, 401, "", ended, incorrect, true},
        Row{{"InvalidFirebaseToken"}, 403, R"({"error":"invalid_firebase_token"})", ended, u"The secure login service had a problem. Please try again."_s, true},
        Row{{"SessionNotFound"}, 404, R"({"message":"Session not found"})", ended, u"Session not found"_s, true},
        Row{{"Forbidden"}, 403, R"({"message":"Forbidden"})", noAccess, noAccess},
        Row{{"InvalidPasswordInCapitals"}, 400, R"({"error":"INVALID_PASSWORD"})", u"INVALID_PASSWORD"_s, incorrect},
        Row{{"TokenAlone"}, 400, R"({"error":"token"})", ended, u"The secure login service had a problem. Please try again."_s},
        Row{{"ServersWords"}, 422, R"({"errors":{"email":"taken"}})", u"taken"_s, u"taken"_s},
        Row{{"ErrorsAsAList"}, 422, R"({"errors":["taken"]})", general, general},
        Row{{"NoWords"}, 500, "", general, general},
        Row{{"PlainFatalError"}, 500, "Fatal error: x in y.php", support, support},
        Row{{"HtmlPage"}, 502, "<html>Bad gateway</html>", support, support},
        Row{{"HtmlWithSuccess"}, 200, "<HTML>", support, support},
        Row{{"TextWithSuccess"}, 200, " Down for maintenance \n", u"Down for maintenance"_s, u"Down for maintenance"_s},
        Row{{"TextOnUnauthorizedAnnouncesNothing"}, 401, "Who are you?", u"Who are you?"_s, u"Who are you?"_s},
        Row{{"TextAboutATokenAnnouncesNothing"}, 401, "token expired", ended, ended},
        Row{{"BlankText"}, 200, " \n", general, general},
        Row{{"JsonFragment"}, 200, "\"text\"", u"\"text\""_s, u"\"text\""_s},
        Row{{"JsonNumber"}, 200, "12", u"12"_s, u"12"_s},
        Row{{"JsonCutShort"}, 200, R"({"id":1)", u"{\"id\":1"_s, u"{\"id\":1"_s},
        Row{{"JsonWithATail"}, 200, "{} x", u"{} x"_s, u"{} x"_s},
        Row{{"NotUtf8"}, 200, "\xFF\xFE{}", unreadable, unreadable},
        Row{{"CutWithinACharacter"}, 500, "abc \xC3", unreadable, unreadable},
        Row{{"JsonThatIsNotUtf8"}, 200, "{\"a\":\"\xC3\x28\"}", unreadable, unreadable},
        Row{{"Redirect"}, 302, "", general, general},
        Row{{"RedirectWithAnObject"}, 307, R"({"id":1})", general, general},
        Row{{"Informational"}, 103, "{}", general, general},
        Row{{"MultipleChoices"}, 300, "{}", general, general},
        Row{{"NotModified"}, 304, "", general, general},
        Row{{"UseProxy"}, 305, "{}", general, general},
        Row{{"StatusZero"}, 0, "{}", general, general},
        Row{{"Status999"}, 999, R"({"message":"Gone to lunch"})", u"Gone to lunch"_s, u"Gone to lunch"_s},
        Row{{"TooDeep"}, 200, deep1025, QString::fromLatin1(deep1025), QString::fromLatin1(deep1025)},
        Row{{"FarTooDeep"}, 200, deep100000, QString::fromLatin1(deep100000), QString::fromLatin1(deep100000)}
        // clang-format on
        ),
    RowName());

class Successes : public ServicesTest, public testing::WithParamInterface<int>
{ };

TEST_P(Successes, GiveTheAnswer)
{
    const Awaited<JSONObject> call(api.createSession({}, token));
    answer(0, R"({"message":"token session"})", GetParam());
    EXPECT_EQ(call.result(), JSONObject(json(R"({"message":"token session"})")));
    EXPECT_EQ(expiries, 0);
}

TEST_P(Successes, AreAnEmptyObjectWithoutABody)
{
    const Awaited<JSONObject> object(api.createSession({}, token));
    const Awaited<QList<SessionSummary>> list(api.getSessions({}, {}, token));
    answer(0, "", GetParam());
    answer(1, "", GetParam());
    EXPECT_EQ(object.result(), JSONObject());
    EXPECT_TRUE(list.result().isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Statuses, Successes, testing::Values(200, 201, 204, 299));

using Perform = ServicesTest;

TEST_F(Perform, AnAnswerWithoutStatusFails)
{
    const Awaited<JSONObject> call(api.createSession({}, token));
    session->answerWithoutStatus(0);
    EXPECT_EQ(failureOf(call), general);
}

TEST_F(Perform, ATransportFailureBecomesItsSentence)
{
    const Awaited<JSONObject> call(api.createSession({}, token));
    fail(0, TransportError::Code::TimedOut);
    EXPECT_EQ(failureOf(call), u"Connection problem. Please check your internet connection and try again."_s);
    EXPECT_EQ(expiries, 0);
}

TEST_F(Perform, ATransportFailureOfTheAuthenticationEndsTheSession)
{
    const Awaited<JSONObject> call(api.createSession({}, token));
    fail(0, TransportError::Code::UserAuthenticationRequired);
    EXPECT_EQ(failureOf(call), ended);
    EXPECT_EQ(expiries, 1);
}

TEST_F(Perform, ReadsALargeAnswerOffTheMainThread)
{
    const QByteArray large = "[{\"id\":7,\"note\":\"" + QByteArray(200000, 'x') + "\"}]";
    const Awaited<QList<SessionSummary>> call(api.getSessions({}, {}, token));
    answer(0, large);
    ASSERT_EQ(call.result().size(), 1);
    EXPECT_EQ(call.result().first().raw.string(u"note"_s).size(), 200000);
}

TEST_F(Perform, WhatWouldTakeTooMuchMemoryIsUnreadable)
{
    const Awaited<QList<SessionSummary>> call(api.getSessions({}, {}, token));
    answer(0, '[' + QByteArray("{},").repeated(6'000'000) + "{}]");
    EXPECT_EQ(failureOf(call), unreadable);
}

TEST_F(Perform, ReadsALargeTextOffTheMainThread)
{
    const Awaited<QList<SessionSummary>> call(api.getSessions({}, {}, token));
    answer(0, QByteArray(200000, 'x') + "<html>");
    EXPECT_EQ(failureOf(call), support);
}

TEST_F(Perform, TheExpiryIsAnnouncedLater)
{
    bool hadFailed = false;
    const Awaited<JSONObject> call(api.createSession({}, token));
    QObject::connect(&notifications, &NotificationCenter::posted, [&] { hadFailed = call.hasFailed(); });
    answer(0, "{}", 401);
    EXPECT_EQ(expiries, 1);
    EXPECT_TRUE(hadFailed) << "the failure comes first";
}

TEST_F(Perform, TheExpiryThatAWorkerReadOfIsAnnouncedOnTheMainThread)
{
    const QByteArray large = "{\"note\":\"" + QByteArray(200000, 'x') + "\"}";
    const Awaited<JSONObject> call(api.createSession({}, token));
    bool hadFailed = false;
    const QThread* thread = nullptr;
    QObject::connect(&notifications, &NotificationCenter::posted, [&] {
        hadFailed = call.hasFailed();
        thread = QThread::currentThread();
    });
    answer(0, large, 401);
    EXPECT_EQ(failureOf(call), ended);
    EXPECT_EQ(expiries, 1);
    EXPECT_TRUE(hadFailed);
    EXPECT_EQ(thread, QCoreApplication::instance()->thread());
}

TEST_F(Perform, AnEmptyTokenIsSentAsItIs)
{
    const Awaited<JSONObject> call(api.createSession({}, QString()));
    ASSERT_EQ(session->count(), 1);
    EXPECT_EQ(session->header(0, "Authorization"), "Bearer ");
    answer(0, "{}");
    EXPECT_EQ(call.result(), JSONObject());
}

TEST_F(Perform, EveryFailureAnnouncesAnew)
{
    const Awaited<JSONObject> first(api.createSession({}, token));
    const Awaited<JSONObject> second(api.createSession({}, token));
    answer(0, "{}", 401);
    answer(1, "{}", 401);
    EXPECT_EQ(expiries, 2);
}

TEST_F(Perform, AFailureForSomebodyWhoHasLeftIsNotAnnounced)
{
    const Awaited<JSONObject> call(api.createSession({}, token));
    epoch.advance();
    answer(0, "{}", 401);
    EXPECT_EQ(failureOf(call), ended);
    EXPECT_EQ(expiries, 0);
}

TEST_F(Perform, AnAnnouncementIsDroppedWhenTheUserLeavesBeforeIt)
{
    // Waits after the failed call and leaves before the announcement's turn comes.
    const Awaited<JSONObject> call(api.createSession({}, token));
    session->answer(0, 401, "{}");
    while (!call.isDone())
        QCoreApplication::sendPostedEvents(nullptr, 0);
    epoch.advance();
    settle();
    EXPECT_EQ(expiries, 0);
}

TEST_F(Perform, AnOperationOutlivesItsClient)
{
    std::optional<Awaited<QList<SessionSummary>>> call;
    {
        const APIClient brief(backend);
        call.emplace(brief.getSessions({}, {}, token));
    }
    answer(0, R"([{"id":1}])");
    EXPECT_EQ(call->result().size(), 1);
}

} // namespace
