#include "Store/Query.h"
#include "support/RunningBridge.h"

namespace {

enum Person
{
    Nobody,
    Owner, ///< a client, of session 15
    OtherClient,
    Business, ///< that scheduled session 21
    OtherBusiness,
    Assigned, ///< the notary of session 15
    OtherNotary, ///< the notary of session 21
    Inactive, ///< the same with an inactive profile
    OfficeNotary, ///< an admin who is also a notary
    Office, ///< an admin who is nothing else
};

struct Somebody
{
    const char* name;
    const char* email;
};
const std::array<Somebody, 10> people{{
    {"nobody", ""},
    {"the owner", "priya.raman@example.com"},
    {"another client", "tomas.alder@example.com"},
    {"the business", "helen.brandt@example.com"},
    {"another business", "daniel.reyes@example.com"},
    {"the assigned notary", "samuel.adeyemi@example.com"},
    {"another notary", "marta.kowal@example.com"},
    {"an inactive notary", "marta.kowal@example.com"},
    {"an admin who is a notary", "maya.whitfield@example.com"},
    {"an admin", "maya.whitfield@example.com"},
}};

struct Operation
{
    const char* name;
    const char* method;
    const char* path;
    Json body;
    /// The status for each person.
    std::array<int, 10> expected;
    bool sendsFile = false;
};

void PrintTo(const Operation& operation, std::ostream* stream)
{
    *stream << operation.method << ' ' << operation.path;
}

const Json none = nullptr;
const Json appointment{
    {"status", "scheduled"}, {"confirmed_date", "2031-06-01"}, {"confirmed_time", "9:00 AM"}};
const Json contact{{"full_name", "A Person"}, {"name", "A Person"}, {"email", "person@example.com"}};
const Json remote{{"record_type", "remote"}, {"source", "remote_notary_sessions"}};
const Json walkIn{{"record_type", "walkin"}, {"source", "walkin_records"}};
const Json passwords{{"current_password", "quorvel-demo"}, {"new_password", "another one"}};
const Json hello{{"message", "Hello"}};

constexpr std::array<int, 10> everybodySignedIn{401, 200, 200, 200, 200, 200, 200, 200, 200, 200};
constexpr std::array<int, 10> officeOnly{401, 403, 403, 403, 403, 403, 403, 403, 200, 200};
constexpr std::array<int, 10> businessOnly{401, 403, 403, 200, 200, 403, 403, 403, 403, 403};
constexpr std::array<int, 10> notaryOnly{401, 403, 403, 403, 403, 200, 200, 200, 200, 403};
/// Who takes part in session 15, and the office.
constexpr std::array<int, 10> partOf15{401, 200, 404, 404, 404, 200, 404, 404, 200, 200};
constexpr std::array<int, 10> writesTo15{401, 201, 404, 404, 404, 201, 404, 404, 201, 201};
/// Session 24 is an open call of somebody else, which active notaries see and nobody but the office changes.
constexpr std::array<int, 10> seesCall24{401, 404, 404, 404, 404, 200, 200, 404, 200, 200};
constexpr std::array<int, 10> partOf21{401, 404, 404, 200, 404, 404, 200, 200, 200, 200};

const Operation operations[] = {
    {"GetProfile", "GET", "/profile", none, everybodySignedIn},
    {"UpdateProfile", "POST", "/profile", contact, everybodySignedIn},
    {"ChangePassword", "POST", "/profile/password", passwords, everybodySignedIn},

    {"OwnSessions", "GET", "/remote-notary/sessions", none, everybodySignedIn},
    {"BusinessSessions", "GET", "/remote-notary/sessions?scope=business", none, businessOnly},
    {"AssignedSessions", "GET", "/remote-notary/sessions?scope=notary_assigned", none, notaryOnly},
    {"OpenCalls", "GET", "/remote-notary/sessions?scope=notary_open", none, notaryOnly},
    {"AllSessions", "GET", "/remote-notary/sessions?scope=admin_all", none, officeOnly},
    {"UnknownScope", "GET", "/remote-notary/sessions?scope=everything", none,
        {401, 422, 422, 422, 422, 422, 422, 422, 422, 422}},
    {"CreateSession", "POST", "/remote-notary/sessions", bookingBody(),
        {401, 201, 201, 201, 201, 201, 201, 201, 201, 201}},

    {"GetSession", "GET", "/remote-notary/sessions/15", none, partOf15},
    {"GetOpenCall", "GET", "/remote-notary/sessions/24", none, seesCall24},
    {"GetBusinessSession", "GET", "/remote-notary/sessions/21", none, partOf21},
    {"GetAbsentSession", "GET", "/remote-notary/sessions/999", none,
        {401, 404, 404, 404, 404, 404, 404, 404, 404, 404}},
    {"CancelSession", "POST", "/remote-notary/sessions/15/cancel", none, partOf15},
    {"CancelBusinessSession", "POST", "/remote-notary/sessions/21/cancel", none, partOf21},
    {"CancelOpenCall", "POST", "/remote-notary/sessions/24/cancel", none,
        {401, 404, 404, 404, 404, 403, 403, 404, 200, 200}},

    {"GetMessages", "GET", "/remote-notary/sessions/15/messages", none, partOf15},
    {"GetMessagesOfOpenCall", "GET", "/remote-notary/sessions/24/messages", none, seesCall24},
    {"AddMessage", "POST", "/remote-notary/sessions/15/messages", hello, writesTo15},
    {"AddMessageToOpenCall", "POST", "/remote-notary/sessions/24/messages", hello,
        {401, 404, 404, 404, 404, 403, 403, 404, 201, 201}},
    {"GetDocuments", "GET", "/remote-notary/sessions/15/documents", none, partOf15},
    {"UploadDocument", "POST", "/remote-notary/sessions/15/documents", none, writesTo15, true},
    {"UploadDocumentToOpenCall", "POST", "/remote-notary/sessions/24/documents", none,
        {401, 404, 404, 404, 404, 403, 403, 404, 201, 201}, true},

    {"AcceptOpenCall", "POST", "/notary/open-calls/24/accept", none,
        {401, 403, 403, 403, 403, 200, 200, 409, 200, 403}},
    {"AcceptTakenCall", "POST", "/notary/open-calls/15/accept", none,
        {401, 403, 403, 403, 403, 200, 409, 409, 409, 403}},
    {"UpdateByNotary", "POST", "/notary/remote-notary/sessions/15/status", appointment,
        {401, 403, 403, 403, 403, 200, 404, 404, 403, 403}},
    {"UpdateOpenCallByNotary", "POST", "/notary/remote-notary/sessions/24/status", appointment,
        {401, 403, 403, 403, 403, 403, 403, 404, 403, 403}},
    {"AssignSession", "POST", "/admin/remote-notary/sessions/15/assign", appointment, officeOnly},

    {"BusinessClients", "GET", "/business/clients", none, businessOnly},
    {"GetUsers", "GET", "/admin/users", none, officeOnly},
    {"SaveUser", "POST", "/admin/users/5", contact, officeOnly},
    {"DeleteUser", "DELETE", "/admin/users/6", none, officeOnly},
    {"GetRecords", "GET", "/admin/records", none, officeOnly},
    {"SaveRecord", "POST", "/admin/records/15", remote, officeOnly},
    {"SaveWalkIn", "POST", "/admin/records/3", walkIn, officeOnly},
    {"DeleteRecord", "DELETE", "/admin/records/15", remote, officeOnly},
    {"DeleteWalkIn", "DELETE", "/admin/records/3", walkIn, officeOnly},
    {"GetNotaries", "GET", "/admin/notaries", none, officeOnly},
    {"SaveNotary", "POST", "/admin/notaries/1", contact, officeOnly},
    {"DeleteNotary", "DELETE", "/admin/notaries/1", none, {401, 403, 403, 403, 403, 403, 403, 403, 204, 204}},
};

/// The demo's people, some of whom are first made what they are to be.
class Stage
{
public:
    /// \returns the ID token; empty for nobody
    std::string enter(Person person)
    {
        if (person == Inactive)
            prepare("POST", "/admin/notaries/3",
                {{"name", "Marta Kowal"}, {"email", people[Inactive].email}, {"active", false}});
        if (person == Office)
            prepare("DELETE", "/admin/notaries/2", nullptr);
        return person == Nobody ? std::string() : api_.tokenOf(people[person].email);
    }

    Reply ask(const Operation& operation, const std::string& token) const
    {
        if (!operation.sendsFile)
            return api_.send(operation.method, operation.path, token, operation.body);
        const std::string form
            = formBody(desktopFields("Deed", "deed", 1), {{"deed.pdf", "application/pdf", "%PDF"}});
        return api_.sendText(operation.method, operation.path, token, formType, form);
    }

    /// What the operations could change.
    std::string everything()
    {
        const char* query
            = "select (select group_concat(id || status || updated_at) from sessions)"
              " || (select group_concat(id || status || updated_at) from walkin_records)"
              " || (select group_concat(id || full_name || email || role) from users)"
              " || (select group_concat(id || name || active) from notaries)"
              " || ' ' || (select count(*) from messages) || ' ' || (select count(*) from uploads)"
              " || ' ' || (select count(*) from status_history)";
        return bridge_.service().database.read([query](soci::session& sql) {
            std::string all;
            bridge::Query(sql, query).into(all).next();
            return all;
        });
    }

private:
    void prepare(const char* method, const char* path, const Json& body)
    {
        const Reply reply = api_.send(method, path, api_.tokenOf(people[Office].email), body);
        EXPECT_LT(reply.status, 300) << reply.text;
    }

    RunningBridge bridge_;
    const Api api_ = bridge_.api();
};

/// What somebody is told who is refused; a conflict or an invalid request is explained.
void expectRefusal(const Reply& reply)
{
    switch (reply.status) {
    case 401:
        EXPECT_EQ(reply.body, Json({{"error", "invalid_firebase_token"}}));
        break;
    case 403:
        EXPECT_EQ(reply.body, Json({{"message", "Forbidden"}}));
        break;
    case 404:
        EXPECT_EQ(reply.body, Json({{"message", "We could not find that record."}}));
        break;
    default:
        EXPECT_TRUE(reply.body.contains("message")) << reply.text;
    }
}

class OperationAccess : public testing::TestWithParam<Operation>
{ };

} // namespace

TEST_P(OperationAccess, AdmitsWhoMay)
{
    const Operation& operation = GetParam();
    for (std::size_t person = 0; person < people.size(); ++person) {
        if (operation.expected[person] >= 300)
            continue;
        Stage stage;
        const Reply reply = stage.ask(operation, stage.enter(Person(person)));
        EXPECT_EQ(reply.status, operation.expected[person]) << people[person].name << ": " << reply.text;
    }
}

TEST_P(OperationAccess, RefusesEverybodyElseAndChangesNothing)
{
    const Operation& operation = GetParam();
    Stage stage;
    for (std::size_t person = 0; person < people.size(); ++person) {
        if (operation.expected[person] < 300)
            continue;
        SCOPED_TRACE(people[person].name);
        const std::string token = stage.enter(Person(person));
        const std::string before = stage.everything();
        const Reply reply = stage.ask(operation, token);
        EXPECT_EQ(reply.status, operation.expected[person]) << reply.text;
        expectRefusal(reply);
        EXPECT_EQ(stage.everything(), before);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Every, OperationAccess, testing::ValuesIn(operations), [](const auto& row) { return row.param.name; });
