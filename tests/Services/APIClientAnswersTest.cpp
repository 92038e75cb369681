#include "ServicesTest.h"

using namespace Qt::StringLiterals;

namespace {

const QString token = u"id-token"_s;
const QString general = u"We could not complete that request. Please try again."_s;

using Ids = QList<std::optional<qint64>>; ///< nothing stands for an id drawn at random

template <typename Record>
QCoro::Task<QList<qint64>> idsOf(QCoro::Task<QList<Record>> task)
{
    const QList<Record> records = co_await task;
    QList<qint64> ids;
    for (const Record& record : records)
        ids += record.id;
    co_return ids;
}

QCoro::Task<QList<qint64>> idOf(QCoro::Task<SessionSummary> task)
{
    const SessionSummary record = co_await task;
    co_return QList<qint64>(1, record.id);
}

struct IdRow : Named
{
    std::function<QCoro::Task<QList<qint64>>(const APIClient&)> call;
    QByteArray answer;
    Ids expected;
};

class RecordIds : public ServicesTest, public testing::WithParamInterface<IdRow>
{ };

TEST_P(RecordIds, AreReadFromTheirKeys)
{
    const Awaited<QList<qint64>> call(GetParam().call(api));
    answer(0, GetParam().answer);
    const QList<qint64> ids = call.result();
    ASSERT_EQ(ids.size(), GetParam().expected.size());
    for (qsizetype i = 0; i < ids.size(); ++i) {
        const std::optional<qint64> expected = GetParam().expected[i];
        if (expected)
            EXPECT_EQ(ids[i], *expected);
        else
            EXPECT_THAT(ids[i], testing::AllOf(testing::Ge(1000000), testing::Le(9999999)));
    }
}

const auto sessionList = [](const APIClient& api) { return idsOf(api.getSessions({}, {}, token)); };
const auto session = [](const APIClient& api) { return idOf(api.getSession(1, token)); };
const auto messages = [](const APIClient& api) { return idsOf(api.getSessionMessages(1, token)); };
const auto documents = [](const APIClient& api) { return idsOf(api.getSessionDocuments(1, token)); };
const auto records = [](const APIClient& api) { return idsOf(api.getAdminRecords(token)); };
const auto users = [](const APIClient& api) { return idsOf(api.getAdminUsers(token)); };
const auto notaries = [](const APIClient& api) { return idsOf(api.getAdminNotaries(token)); };

INSTANTIATE_TEST_SUITE_P(Answers, RecordIds,
    testing::Values(
        // clang-format off
        IdRow{{"Sessions"}, sessionList, R"([{"id":1,"session_id":2},{"session_id":"3"},{"id":"x","session_id":4},{}])", Ids{1, 3, 4, {}}},
        IdRow{{"SessionsUnderAKey"}, sessionList, R"({"sessions":[{"id":1}]})", Ids{1}},
        IdRow{{"SessionsWithoutAList"}, sessionList, R"({"ok":true})", Ids{}},
        IdRow{{"SessionsEmptyAnswer"}, sessionList, "", Ids{}},
        IdRow{{"SessionUnderData"}, session, R"({"data":{"id":5}})", Ids{5}},
        IdRow{{"SessionUnderSession"}, session, R"({"session":{"session_id":9}})", Ids{9}},
        IdRow{{"SessionItself"}, session, R"({"id":6})", Ids{6}},
        IdRow{{"SessionWithoutId"}, session, "{}", Ids{{}}},
        IdRow{{"Messages"}, messages, R"([{"id":1},{"session_id":2}])", Ids{1, {}}},
        IdRow{{"Documents"}, documents, R"([{"id":1,"upload_id":2},{"upload_id":3},{"session_id":4}])", Ids{1, 3, {}}},
        IdRow{{"AdminRecords"}, records, R"([{"id":1,"session_id":2,"record_id":3},{"session_id":2,"record_id":3},{"record_id":3},{"user_id":4}])", Ids{1, 2, 3, {}}},
        IdRow{{"AdminUsers"}, users, R"([{"id":1,"user_id":2},{"user_id":2},{}])", Ids{1, 2, 0}},
        IdRow{{"AdminNotaries"}, notaries, R"([{"id":1,"notary_id":2},{"notary_id":2},{}])", Ids{1, 2, 0}}
        // clang-format on
        ),
    RowName());

/// Records that came without an id are still records of their own, in one answer and from load to load.
class RecordsWithoutIds : public ServicesTest, public testing::WithParamInterface<IdRow>
{ };

TEST_P(RecordsWithoutIds, AreToldApart)
{
    QList<qint64> drawn;
    for (qsizetype load = 0; load < 3; ++load) {
        const Awaited<QList<qint64>> call(GetParam().call(api));
        answer(load, GetParam().answer);
        drawn += call.result();
    }
    EXPECT_EQ(drawn.size(), 6);
    EXPECT_EQ(QSet<qint64>(drawn.begin(), drawn.end()).size(), 6);
}

INSTANTIATE_TEST_SUITE_P(Lists, RecordsWithoutIds,
    testing::Values(IdRow{{"Sessions"}, sessionList, "[{},{}]", {}},
        IdRow{{"Messages"}, messages, "[{},{}]", {}}, IdRow{{"Documents"}, documents, "[{},{}]", {}},
        IdRow{{"Records"}, records, "[{},{}]", {}}),
    RowName());

using Answers = ServicesTest;

TEST_F(Answers, RecordsKeepTheirRawObject)
{
    const QByteArray raw = R"({"id":1,"status":"confirmed","unknown":[1]})";
    const Awaited<QList<SessionSummary>> list(api.getSessions({}, {}, token));
    const Awaited<SessionSummary> one(api.getSession(1, token));
    const Awaited<QList<RemoteDocumentUpload>> documentList(api.getSessionDocuments(1, token));
    const Awaited<QList<AdminRecordItem>> recordList(api.getAdminRecords(token));
    const Awaited<QList<AdminUserRecord>> userList(api.getAdminUsers(token));
    const Awaited<QList<RemoteNotaryOption>> notaryList(api.getAdminNotaries(token));
    const Awaited<QList<JSONObject>> clients(api.getBusinessClients(token));
    for (const qsizetype number : session->pending())
        answer(number, number == 1 ? raw : '[' + raw + ']');
    const JSONObject expected(json(raw));
    EXPECT_EQ(list.result().first().raw, expected);
    EXPECT_EQ(one.result().raw, expected);
    EXPECT_EQ(documentList.result().first().raw, expected);
    EXPECT_EQ(recordList.result().first().raw, expected);
    EXPECT_EQ(userList.result().first().raw, expected);
    EXPECT_EQ(notaryList.result().first().raw, expected);
    EXPECT_EQ(clients.result(), QList<JSONObject>{expected});
}

TEST_F(Answers, ManyRecordsComeInTheirOrder)
{
    const Awaited<QList<AdminUserRecord>> received(api.getAdminUsers(token));
    QByteArrayList raws;
    for (int id = 1; id <= 2000; ++id)
        raws += R"({"id":)" + QByteArray::number(id) + '}';
    answer(0, '[' + raws.join(',') + ']');
    const QList<AdminUserRecord> made = received.result();
    ASSERT_EQ(made.size(), raws.size());
    for (qsizetype place = 0; place < made.size(); ++place) {
        EXPECT_EQ(made.at(place).id, place + 1);
        EXPECT_EQ(made.at(place).raw, JSONObject(json(raws.at(place))));
    }
}

TEST_F(Answers, AMessageWithoutASenderComesFromTheService)
{
    const Awaited<QList<SessionMessage>> call(api.getSessionMessages(1, token));
    answer(0, R"([{"id":1,"message":"hello"}])");
    const SessionMessage message = call.result().first();
    EXPECT_EQ(message.senderName, u"Quorvel"_s);
    EXPECT_EQ(message.senderType, u"user"_s);
    EXPECT_EQ(message.message, u"hello"_s);
}

struct ObjectCall : Named
{
    std::function<QCoro::Task<JSONObject>(const APIClient&)> call;
    bool unwraps = true;
};

class ObjectAnswers : public ServicesTest, public testing::WithParamInterface<ObjectCall>
{ };

TEST_P(ObjectAnswers, AreUnwrappedWhereTheyShould)
{
    const QByteArray wrapped = R"({"data":{"id":5},"user":{"id":6}})";
    const Awaited<JSONObject> call(GetParam().call(api));
    answer(0, wrapped);
    EXPECT_EQ(call.result(), JSONObject(json(GetParam().unwraps ? R"({"id":5})" : wrapped)));
}

TEST_P(ObjectAnswers, AreEmptyWhenTheBodyIs)
{
    const Awaited<JSONObject> call(GetParam().call(api));
    answer(0, "", 204);
    EXPECT_EQ(call.result(), JSONObject());
}

TEST_P(ObjectAnswers, FailWhenTheyAreAList)
{
    const Awaited<JSONObject> call(GetParam().call(api));
    answer(0, R"([{"id":5}])");
    EXPECT_EQ(failureOf(call), general);
}

INSTANTIATE_TEST_SUITE_P(Operations, ObjectAnswers,
    testing::Values(
        // clang-format off
        ObjectCall{{"PasswordLogin"}, [](const APIClient& api) { return api.passwordLogin({}, {}, {}); }, false},
        ObjectCall{{"RegisterClient"}, [](const APIClient& api) { return api.registerClient({}); }, false},
        ObjectCall{{"GetProfile"}, [](const APIClient& api) { return api.getProfile(token, {}); }, false},
        ObjectCall{{"UpdateProfile"}, [](const APIClient& api) { return api.updateProfile({}, token); }},
        ObjectCall{{"ChangePassword"}, [](const APIClient& api) { return api.changePassword({}, {}, token); }},
        ObjectCall{{"CreateSession"}, [](const APIClient& api) { return api.createSession({}, token); }},
        ObjectCall{{"CancelSession"}, [](const APIClient& api) { return api.cancelSession(1, token); }},
        ObjectCall{{"AddSessionMessage"}, [](const APIClient& api) { return api.addSessionMessage(1, {}, token); }},
        ObjectCall{{"UploadSessionFiles"}, [](const APIClient& api) { return api.uploadSessionFiles(1, {}, {}, {}, token, {}); }},
        ObjectCall{{"AcceptOpenCall"}, [](const APIClient& api) { return api.acceptOpenCall(1, token); }},
        ObjectCall{{"UpdateNotarySession"}, [](const APIClient& api) { return api.updateNotarySession(1, {}, token); }},
        ObjectCall{{"SaveAdminUser"}, [](const APIClient& api) { return api.saveAdminUser(1, {}, token); }},
        ObjectCall{{"DeleteAdminUser"}, [](const APIClient& api) { return api.deleteAdminUser(1, token); }},
        ObjectCall{{"SaveAdminRecord"}, [](const APIClient& api) { return api.saveAdminRecord(1, {}, {}, {}, token); }},
        ObjectCall{{"DeleteAdminRecord"}, [](const APIClient& api) { return api.deleteAdminRecord(1, {}, {}, token); }},
        ObjectCall{{"SaveAdminNotary"}, [](const APIClient& api) { return api.saveAdminNotary(1, {}, token); }},
        ObjectCall{{"DeleteAdminNotary"}, [](const APIClient& api) { return api.deleteAdminNotary(1, token); }},
        ObjectCall{{"AssignAdminSession"}, [](const APIClient& api) { return api.assignAdminSession(1, {}, token); }} // clang-format on
        ),
    RowName());

} // namespace
