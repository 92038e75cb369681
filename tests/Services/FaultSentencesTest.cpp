#include "RealServerTest.h"

using namespace Qt::StringLiterals;

namespace {

const QString general = u"We could not complete that request. Please try again."_s;
const QString support = u"We could not complete that request. Please try again or contact support."_s;
const QString unreadable = u"We could not read the response. Please try again."_s;
const QString ended = u"Your session ended. Please sign in again."_s;
const QString offline = u"Connection problem. Please check your internet connection and try again."_s;
const QString connection = u"Connection problem. Please try again."_s;

/// What a server does with a request that it has read, and what the person is told.
struct Fault : Named
{
    RawServer::Script reply;
    QString expected;
    bool announces = false;
};

class Faults : public RealServerTest, public testing::WithParamInterface<std::tuple<Fault, bool>>
{ };

TEST_P(Faults, AreTheirSentence)
{
    const auto& [fault, overTls] = GetParam();
    serve(overTls, [reply = fault.reply](RawConnection& client) {
        client.readRequest();
        reply(client);
    });
    const Awaited<JSONObject> call(APIClient(*backend).createSession({}, token));
    EXPECT_EQ(failureOnceDone(call), fault.expected);
    EXPECT_EQ(expiries, fault.announces ? 1 : 0);
    EXPECT_EQ(server->requests(), 1) << "a write arrives once";
}

Fault sends(const std::string& name, const QByteArray& bytes, const QString& expected, bool announces = false)
{
    return {{name}, [bytes](RawConnection& client) { client.send(bytes); }, expected, announces};
}

Fault answers(const std::string& name, int status, const QByteArray& body, const QString& expected,
    bool announces = false)
{
    return sends(name, rawAnswer(status, body), expected, announces);
}

const QByteArray head = "HTTP/1.1 200 OK\r\nContent-Type: application/json\r\n";

INSTANTIATE_TEST_SUITE_P(Connections, Faults,
    testing::Combine(
        testing::Values(
            // clang-format off
        Fault{{"Close"}, [](RawConnection& client) { client.close(); }, offline},
        Fault{{"Reset"}, [](RawConnection& client) { client.reset(); }, offline},
        Fault{{"Silence"}, [](RawConnection& client) { client.stall(); }, offline},
        Fault{{"SilenceWithinTheBody"}, [](RawConnection& client) { client.send(head + "Content-Length: 100\r\n\r\n{"); client.stall(); }, offline},
        Fault{{"ResetWithinTheBody"}, [](RawConnection& client) { client.send(head + "Content-Length: 100\r\n\r\n{"); client.reset(); }, offline},
        sends("CutShort", head + "Content-Length: 100\r\n\r\n{\"id\":1}", offline),
        sends("CutWithinAChunk", head + "Transfer-Encoding: chunked\r\n\r\n20\r\n{\"id\":1}", offline),
        sends("BrokenChunk", head + "Transfer-Encoding: chunked\r\n\r\nzz\r\n{}\r\n0\r\n\r\n", offline),
        sends("NegativeLength", head + "Content-Length: -2\r\n\r\n{}", connection),
        sends("LengthOf20Digits", head + "Content-Length: 99999999999999999999\r\n\r\n{}", general),
        sends("LengthTooShort", head + "Content-Length: 5\r\n\r\n{\"id\":1}", u"{\"id\""_s),
        sends("HalfAStatusLine", "HTTP/1.1 20", offline),
        sends("NoProtocol", "220 mail.example ESMTP ready\r\n", connection),
        sends("Noise", QByteArray("\x16\x03\x01\x00\xFF\x00\x80\r\n\r\n", 11), connection),
        sends("GzipNobodyAskedFor", head + "Content-Encoding: gzip\r\nContent-Length: 4\r\n\r\n\x1F\x8B\x08\xFF", unreadable),
        answers("Html", 502, "<html><body>Bad gateway</body></html>", support),
        answers("HtmlWithSuccess", 200, "<!DOCTYPE html>", support),
        answers("FatalError", 500, "Fatal error: Uncaught exception", support),
        answers("Garbage", 200, "\xFF\xFE\xFA", unreadable),
        answers("TooDeep", 200, QByteArray(1025, '['), QString(1025, u'[')),
        answers("TooLarge", 200, '[' + QByteArray(1024 * 1024, ' ') + ']', general),
        answers("ServersWords", 422, R"({"message":" Choose a later date. "})", u"Choose a later date."_s),
        answers("EmptyRefusal", 500, "", general),
        answers("Unauthorized", 401, "", ended, true),
        answers("SessionNotFound", 404, R"({"message":"Session not found"})", ended, true),
        answers("InvalidFirebaseToken", 403, R"({"error":"invalid_firebase_token"})", ended, true),
        answers("TokenAlone", 400, R"({"message":"token"})", ended),
        answers("Forbidden", 403, R"({"message":"Forbidden"})", u"You do not have access to that section."_s),
        answers("MultipleChoices", 300, "{}", general),
        answers("NotModified", 304, "", general),
        answers("UseProxy", 305, "{}", general),
        answers("Status999", 999, R"({"message":"Gone to lunch"})", general)
            // clang-format on
            ),
        testing::Bool()),
    Connection());

/// The words for somebody who signs in.
class PublicFaults : public RealServerTest, public testing::WithParamInterface<std::tuple<Fault, bool>>
{ };

TEST_P(PublicFaults, AreTheirSentence)
{
    const auto& [fault, overTls] = GetParam();
    serve(overTls, [reply = fault.reply](RawConnection& client) {
        client.readRequest();
        reply(client);
    });
    const Awaited<JSONObject> call(APIClient(*backend).passwordLogin(u"a@b.c"_s, u"p"_s, std::nullopt));
    EXPECT_EQ(failureOnceDone(call), fault.expected);
    EXPECT_EQ(expiries, 0);
}

INSTANTIATE_TEST_SUITE_P(Answers, PublicFaults,
    testing::Combine(
        testing::Values(answers("Unauthorized", 401, "", u"Incorrect email or password. Please try again."_s),
            answers("Firebase", 500, R"({"message":"firebase"})",
                u"The secure login service had a problem. Please try again."_s),
            answers("Forbidden", 403, "", u"You do not have access to that section."_s)),
        testing::Bool()),
    Connection());

class EmptySuccesses : public RealServerTest, public testing::WithParamInterface<std::tuple<Fault, bool>>
{ };

TEST_P(EmptySuccesses, AreAnEmptyObject)
{
    const auto& [fault, overTls] = GetParam();
    serve(overTls, [reply = fault.reply](RawConnection& client) {
        client.readRequest();
        reply(client);
    });
    const Awaited<JSONObject> call(APIClient(*backend).createSession({}, token));
    EXPECT_EQ(call.result(), JSONObject());
}

INSTANTIATE_TEST_SUITE_P(Answers, EmptySuccesses,
    testing::Combine(testing::Values(sends("NoContent", "HTTP/1.1 204 No Content\r\n\r\n", {}),
                         answers("Empty", 200, "", {})),
        testing::Bool()),
    Connection());

struct Certificate : Named
{
    TestCertificates::Quality quality;
};

class WrongCertificates : public RealServerTest, public testing::WithParamInterface<Certificate>
{ };

TEST_P(WrongCertificates, GetNothingAndAreAConnectionProblem)
{
    serve(GetParam().quality, [](RawConnection& client) { client.readRequest(); });
    const Awaited<JSONObject> call(APIClient(*backend).passwordLogin(u"a@b.c"_s, u"p"_s, std::nullopt));
    EXPECT_EQ(failureOnceDone(call), connection);
    EXPECT_EQ(server->received(), 0) << "not one byte of the request";
}

using Quality = TestCertificates::Quality;

INSTANTIATE_TEST_SUITE_P(Certificates, WrongCertificates,
    testing::Values(Certificate{{"Expired"}, Quality::Expired},
        Certificate{{"NotYetValid"}, Quality::NotYetValid}, Certificate{{"OtherHost"}, Quality::OtherHost},
        Certificate{{"SelfSigned"}, Quality::SelfSigned},
        Certificate{{"ForClientsOnly"}, Quality::ForClientsOnly},
        Certificate{{"SignedByLeaf"}, Quality::SignedByLeaf}),
    RowName());

using Unreachable = RealServerTest;

TEST_F(Unreachable, ARefusedConnectionIsAConnectionProblem)
{
    serve(false, [](RawConnection&) {});
    server.reset();
    const Awaited<JSONObject> call(APIClient(*backend).createSession({}, token));
    EXPECT_EQ(failureOnceDone(call), offline);
}

TEST_F(Unreachable, AHandshakeThatHangsIsAConnectionProblem)
{
    serve(false, [](RawConnection& client) { client.stall(); });
    QUrl secure = server->url();
    secure.setScheme(u"https"_s);
    use(secure);
    const Awaited<JSONObject> call(APIClient(*backend).createSession({}, token));
    EXPECT_EQ(failureOnceDone(call), offline);
}

TEST_F(Unreachable, AnEndedSessionIsAFailureLikeAnyOther)
{
    serve(false, [](RawConnection& client) { client.stall(); });
    const Awaited<JSONObject> call(APIClient(*backend).createSession({}, token));
    session->cancelAll();
    EXPECT_EQ(failureOnceDone(call), connection);
}

struct Redirect : Named
{
    int status;
    QByteArray location; ///< empty for the other server
};

class Redirects : public RealServerTest, public testing::WithParamInterface<std::tuple<Redirect, bool>>
{ };

TEST_P(Redirects, AreFailuresAndLeadNowhere)
{
    const auto& [redirect, overTls] = GetParam();
    RawServer elsewhere([](RawConnection& client) { client.send(rawAnswer(200)); });
    QByteArray location = redirect.location;
    if (location.isEmpty())
        location = elsewhere.url(u"/mobile-bridge/v1/profile"_s).toEncoded();
    serve(overTls, [status = redirect.status, location](RawConnection& client) {
        client.readRequest();
        client.send(rawAnswer(status, {}, "Location: " + location + "\r\n"));
    });
    const APIClient api(*backend);
    const Awaited<JSONObject> signIn(api.passwordLogin(u"a@b.c"_s, u"p"_s, std::nullopt));
    EXPECT_EQ(failureOnceDone(signIn), general);
    const Awaited<JSONObject> read(api.getProfile(token, std::nullopt));
    EXPECT_EQ(failureOnceDone(read), general);
    const Awaited<JSONObject> write(api.createSession({}, token));
    EXPECT_EQ(failureOnceDone(write), general);
    const Awaited<JSONObject> removal(api.deleteAdminUser(1, token));
    EXPECT_EQ(failureOnceDone(removal), general);
    EXPECT_EQ(server->requests(), 4) << "one each";
    EXPECT_EQ(elsewhere.connections(), 0);
}

INSTANTIATE_TEST_SUITE_P(Locations, Redirects,
    testing::Combine(
        testing::Values(Redirect{{"ToAnotherHost"}, 302, {}},
            Redirect{{"ToAnotherHostKeepingTheMethod"}, 307, {}}, Redirect{{"ForEver"}, 308, {}},
            Redirect{{"ToAFile"}, 302, "file:///etc/passwd"},
            Redirect{{"ToData"}, 302, "data:application/json,{}"}, Redirect{{"ToItself"}, 302, "."}),
        testing::Bool()),
    Connection());

} // namespace
