#include "ServicesTest.h"

#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace {

const QString token = u"id-token"_s;

/// One operation and the whole request that it makes.
struct Operation : Named
{
    std::function<void(const APIClient&)> call;
    QByteArray line; ///< method and address below the bridge's base
    QByteArray body; ///< JSON; empty for none
    bool isPublic = false;
};

/// Starts an operation and leaves it to itself.
template <typename T>
void start(QCoro::Task<T> task)
{
    const Awaited<T> started(std::move(task));
}

/// A request as one text, so that two can be compared whole.
QByteArray whole(FakeWebSession& session, qsizetype number)
{
    const Request& request = session.request(number);
    QByteArray text = request.method + ' ' + request.url.toEncoded() + '\n';
    for (const Request::Header& header : request.headers)
        text += header.name + ": " + header.value + '\n';
    return text + '\n' + session.body(number);
}

class Operations : public ServicesTest, public testing::WithParamInterface<Operation>
{ };

TEST_P(Operations, SendExactlyTheirRequest)
{
    const Operation& row = GetParam();
    row.call(api);
    ASSERT_EQ(session->count(), 1);

    const QByteArray target = row.line.split(' ').value(1);
    QByteArray expected = row.line.split(' ').value(0) + " https://bridge.example/mobile-bridge/v1" + target
        + "\nContent-Type: application/json\nAccept: application/json\n";
    if (!row.isPublic)
        expected += "Authorization: Bearer id-token\n";
    expected += '\n';
    if (!row.body.isEmpty())
        expected += QJsonDocument(json(row.body)).toJson(QJsonDocument::Compact);
    EXPECT_EQ(whole(*session, 0), expected);
    EXPECT_EQ(session->request(0).body.isEmpty(), row.body.isEmpty());

    answer(0, "{}");
    EXPECT_EQ(session->count(), 1) << "an operation is one request";
}

TEST_P(Operations, EndWithWhoeverWaitsOnlyWhereTheyRead)
{
    QPromise<void> leaving;
    leaving.start();
    GetParam().call(APIClient(backend, leaving.future()));
    ASSERT_EQ(session->count(), 1);
    EXPECT_FALSE(session->isAbandoned(0));
    leaving.finish();
    EXPECT_EQ(session->isAbandoned(0), GetParam().line.startsWith("GET "));
}

/// What a screen has put together; it is sent unchanged.
const QJsonObject payload{{u"z"_s, 1}, {u"a"_s, u" as typed "_s}};
const QByteArray payloadJSON = R"({"z":1,"a":" as typed "})";

INSTANTIATE_TEST_SUITE_P(Catalogue, Operations,
    testing::Values(
        // clang-format off
        Operation{{"PasswordLogin"}, [](const APIClient& api) { start(api.passwordLogin(u" \tada@example.com\r\n"_s, u" pass word "_s, AppRole::notary)); },
            "POST /auth/password-login", R"({"email":"ada@example.com","password":" pass word ","role_hint":"notary","platform":"macos_desktop"})", true},
        Operation{{"PasswordLoginWithoutHint"}, [](const APIClient& api) { start(api.passwordLogin(u"ada@example.com"_s, u"p"_s, std::nullopt)); },
            "POST /auth/password-login", R"({"email":"ada@example.com","password":"p","role_hint":"auto","platform":"macos_desktop"})", true},
        Operation{{"RegisterClient"}, [](const APIClient& api) { start(api.registerClient({u" Ada L "_s, u" ada@example.com "_s, u" secret "_s, u" 555 "_s, u" Rome "_s, u" NY "_s})); },
            "POST /auth/client-register", R"({"name":"Ada L","full_name":"Ada L","email":"ada@example.com","password":" secret ","phone":"555","city":"Rome","state":"NY","auth_provider":"password","platform":"macos_desktop"})", true},
        Operation{{"RegisterClientWithoutOptionalFields"}, [](const APIClient& api) { start(api.registerClient({u"Ada"_s, u"a@b.c"_s, u"secret"_s, {}, {}, {}})); },
            "POST /auth/client-register", R"({"name":"Ada","full_name":"Ada","email":"a@b.c","password":"secret","phone":"","city":"","state":"","auth_provider":"password","platform":"macos_desktop"})", true},
        Operation{{"GetProfile"}, [](const APIClient& api) { start(api.getProfile(token, std::nullopt)); }, "GET /profile", {}},
        Operation{{"GetProfileWithHint"}, [](const APIClient& api) { start(api.getProfile(token, AppRole::business)); }, "GET /profile?role_hint=business", {}},
        Operation{{"UpdateProfile"}, [](const APIClient& api) { start(api.updateProfile(payload, token)); }, "POST /profile", payloadJSON},
        Operation{{"ChangePassword"}, [](const APIClient& api) { start(api.changePassword(u" old "_s, u" new "_s, token)); },
            "POST /profile/password", R"({"current_password":" old ","new_password":" new "})"},
        Operation{{"GetSessions"}, [](const APIClient& api) { start(api.getSessions({}, {}, token)); }, "GET /remote-notary/sessions", {}},
        Operation{{"GetSessionsOfScope"}, [](const APIClient& api) { start(api.getSessions(u"notary"_s, {}, token)); }, "GET /remote-notary/sessions?scope=notary", {}},
        Operation{{"GetSessionsOfStatus"}, [](const APIClient& api) { start(api.getSessions({}, u"a b"_s, token)); }, "GET /remote-notary/sessions?status=a%20b", {}},
        Operation{{"GetSessionsOfBoth"}, [](const APIClient& api) { start(api.getSessions(u"admin_all"_s, u"pending"_s, token)); },
            "GET /remote-notary/sessions?scope=admin_all&status=pending", {}},
        Operation{{"CreateSession"}, [](const APIClient& api) { start(api.createSession(payload, token)); }, "POST /remote-notary/sessions", payloadJSON},
        Operation{{"GetSession"}, [](const APIClient& api) { start(api.getSession(9223372036854775807, token)); }, "GET /remote-notary/sessions/9223372036854775807", {}},
        Operation{{"CancelSession"}, [](const APIClient& api) { start(api.cancelSession(7, token)); }, "POST /remote-notary/sessions/7/cancel", {}},
        Operation{{"GetSessionMessages"}, [](const APIClient& api) { start(api.getSessionMessages(7, token)); }, "GET /remote-notary/sessions/7/messages", {}},
        Operation{{"AddSessionMessage"}, [](const APIClient& api) { start(api.addSessionMessage(7, u" \"hi\"\n "_s, token)); },
            "POST /remote-notary/sessions/7/messages", R"({"message":" \"hi\"\n "})"},
        Operation{{"GetSessionDocuments"}, [](const APIClient& api) { start(api.getSessionDocuments(7, token)); }, "GET /remote-notary/sessions/7/documents", {}},
        Operation{{"AcceptOpenCall"}, [](const APIClient& api) { start(api.acceptOpenCall(7, token)); }, "POST /notary/open-calls/7/accept", {}},
        Operation{{"UpdateNotarySession"}, [](const APIClient& api) { start(api.updateNotarySession(7, payload, token)); },
            "POST /notary/remote-notary/sessions/7/status", payloadJSON},
        Operation{{"GetBusinessClients"}, [](const APIClient& api) { start(api.getBusinessClients(token)); }, "GET /business/clients", {}},
        Operation{{"GetAdminUsers"}, [](const APIClient& api) { start(api.getAdminUsers(token)); }, "GET /admin/users", {}},
        Operation{{"SaveAdminUser"}, [](const APIClient& api) { start(api.saveAdminUser(0, payload, token)); }, "POST /admin/users/0", payloadJSON},
        Operation{{"DeleteAdminUser"}, [](const APIClient& api) { start(api.deleteAdminUser(-3, token)); }, "DELETE /admin/users/-3", {}},
        Operation{{"GetAdminRecords"}, [](const APIClient& api) { start(api.getAdminRecords(token)); }, "GET /admin/records", {}},
        Operation{{"SaveAdminRecord"}, [](const APIClient& api) { start(api.saveAdminRecord(7, u"walkin"_s, u"remote notary camera photos"_s, payload, token)); },
            "POST /admin/records/7", R"({"record_type":"walkin","source":"remote notary camera photos","data":{"z":1,"a":" as typed "}})"},
        Operation{{"DeleteAdminRecord"}, [](const APIClient& api) { start(api.deleteAdminRecord(7, u"remote"_s, u"remote_notary_sessions"_s, token)); },
            "DELETE /admin/records/7", R"({"record_type":"remote","source":"remote_notary_sessions"})"},
        Operation{{"GetAdminNotaries"}, [](const APIClient& api) { start(api.getAdminNotaries(token)); }, "GET /admin/notaries", {}},
        Operation{{"SaveAdminNotary"}, [](const APIClient& api) { start(api.saveAdminNotary(7, payload, token)); }, "POST /admin/notaries/7", payloadJSON},
        Operation{{"DeleteAdminNotary"}, [](const APIClient& api) { start(api.deleteAdminNotary(7, token)); }, "DELETE /admin/notaries/7", {}},
        Operation{{"AssignAdminSession"}, [](const APIClient& api) { start(api.assignAdminSession(7, payload, token)); },
            "POST /admin/remote-notary/sessions/7/assign", payloadJSON} // clang-format on
        ),
    RowName());

class UnsafeTokens : public ServicesTest, public testing::WithParamInterface<QString>
{ };

TEST_P(UnsafeTokens, NeverBecomeAHeader)
{
    const Awaited<QList<SessionSummary>> read(api.getSessions({}, {}, GetParam()));
    const Awaited<JSONObject> write(api.createSession(payload, GetParam()));
    const Awaited<JSONObject> upload(api.uploadSessionFiles(1, {}, {}, {}, GetParam(), {}));
    for (const QString& sentence : {failureOf(read), failureOf(write), failureOf(upload)})
        EXPECT_EQ(sentence, u"We could not complete that request. Please try again."_s);
    EXPECT_EQ(session->count(), 0) << "nothing is sent";
    EXPECT_EQ(expiries, 0);
}

INSTANTIATE_TEST_SUITE_P(Tokens, UnsafeTokens,
    testing::Values(u"a\r\nX-Admin: 1"_s, u"a\nb"_s, u"a\r"_s, u"a"_s + QChar(0) + u"b"_s, u"a\x7F"_s,
        u"a b"_s, u"tökén"_s, u"a\x2028z"_s));

} // namespace
