#include "support/RunningBridge.h"

namespace {

struct Operation
{
    const char* name;
    const char* method;
    const char* path;
    Json body;
    /// The status for nobody, the client, the business, the notary and the admin.
    std::array<int, 5> expected;
};

void PrintTo(const Operation& operation, std::ostream* stream)
{
    *stream << operation.method << ' ' << operation.path;
}

const Json appointment{
    {"status", "scheduled"}, {"confirmed_date", "2031-06-01"}, {"confirmed_time", "9:00 AM"}};
const Json contact{{"full_name", "A Person"}, {"name", "A Person"}, {"email", "person@example.com"}};
const Json remote{{"record_type", "remote"}, {"source", "remote_notary_sessions"}};

// Session 15 belongs to the client and is assigned to the notary; 24 is an open call; 21 belongs to the
// business.
const Operation operations[] = {
    {"GetProfile", "GET", "/profile", nullptr, {401, 200, 200, 200, 200}},
    {"UpdateProfile", "POST", "/profile", contact, {401, 200, 200, 200, 200}},
    {"ChangePassword", "POST", "/profile/password",
        {{"current_password", "quorvel-demo"}, {"new_password", "another one"}}, {401, 200, 200, 200, 200}},
    {"OwnSessions", "GET", "/remote-notary/sessions", nullptr, {401, 200, 200, 200, 200}},
    {"BusinessSessions", "GET", "/remote-notary/sessions?scope=business", nullptr, {401, 403, 200, 403, 403}},
    {"AssignedSessions", "GET", "/remote-notary/sessions?scope=notary_assigned", nullptr,
        {401, 403, 403, 200, 200}},
    {"OpenCalls", "GET", "/remote-notary/sessions?scope=notary_open", nullptr, {401, 403, 403, 200, 200}},
    {"AllSessions", "GET", "/remote-notary/sessions?scope=admin_all", nullptr, {401, 403, 403, 403, 200}},
    {"UnknownScope", "GET", "/remote-notary/sessions?scope=everything", nullptr, {401, 422, 422, 422, 422}},
    {"CreateSession", "POST", "/remote-notary/sessions", bookingBody(), {401, 201, 201, 201, 201}},
    {"GetSession", "GET", "/remote-notary/sessions/15", nullptr, {401, 200, 404, 200, 200}},
    {"GetOpenCall", "GET", "/remote-notary/sessions/24", nullptr, {401, 404, 404, 200, 200}},
    {"GetBusinessSession", "GET", "/remote-notary/sessions/21", nullptr, {401, 404, 200, 404, 200}},
    {"GetAbsentSession", "GET", "/remote-notary/sessions/999", nullptr, {401, 404, 404, 404, 404}},
    {"CancelSession", "POST", "/remote-notary/sessions/15/cancel", nullptr, {401, 200, 404, 200, 200}},
    {"CancelOpenCall", "POST", "/remote-notary/sessions/24/cancel", nullptr, {401, 404, 404, 403, 200}},
    {"GetMessages", "GET", "/remote-notary/sessions/15/messages", nullptr, {401, 200, 404, 200, 200}},
    {"AddMessage", "POST", "/remote-notary/sessions/15/messages", {{"message", "Hello"}},
        {401, 201, 404, 201, 201}},
    {"AddMessageToOpenCall", "POST", "/remote-notary/sessions/24/messages", {{"message", "Hello"}},
        {401, 404, 404, 403, 201}},
    {"GetDocuments", "GET", "/remote-notary/sessions/15/documents", nullptr, {401, 200, 404, 200, 200}},
    {"AcceptOpenCall", "POST", "/notary/open-calls/24/accept", nullptr, {401, 403, 403, 200, 200}},
    {"UpdateByNotary", "POST", "/notary/remote-notary/sessions/15/status", appointment,
        {401, 403, 403, 200, 403}},
    {"BusinessClients", "GET", "/business/clients", nullptr, {401, 403, 200, 403, 403}},
    {"GetUsers", "GET", "/admin/users", nullptr, {401, 403, 403, 403, 200}},
    {"SaveUser", "POST", "/admin/users/5", contact, {401, 403, 403, 403, 200}},
    {"DeleteUser", "DELETE", "/admin/users/5", nullptr, {401, 403, 403, 403, 200}},
    {"GetRecords", "GET", "/admin/records", nullptr, {401, 403, 403, 403, 200}},
    {"SaveRecord", "POST", "/admin/records/15", remote, {401, 403, 403, 403, 200}},
    {"DeleteRecord", "DELETE", "/admin/records/15", remote, {401, 403, 403, 403, 200}},
    {"GetNotaries", "GET", "/admin/notaries", nullptr, {401, 403, 403, 403, 200}},
    {"SaveNotary", "POST", "/admin/notaries/1", contact, {401, 403, 403, 403, 200}},
    {"DeleteNotary", "DELETE", "/admin/notaries/1", nullptr, {401, 403, 403, 403, 204}},
    {"AssignSession", "POST", "/admin/remote-notary/sessions/15/assign", appointment,
        {401, 403, 403, 403, 200}},
};

class OperationAccess : public testing::TestWithParam<Operation>
{ };

} // namespace

TEST_P(OperationAccess, AdmitsWhoMay)
{
    const Operation& operation = GetParam();
    const std::array<const char*, 5> people{"", "priya.raman@example.com", "helen.brandt@example.com",
        "samuel.adeyemi@example.com", "maya.whitfield@example.com"};
    for (std::size_t i = 0; i < people.size(); ++i) {
        const RunningBridge bridge;
        const Api api = bridge.api();
        const std::string token = i == 0 ? std::string() : api.tokenOf(people[i]);
        const Reply reply = api.send(operation.method, operation.path, token, operation.body);
        EXPECT_EQ(reply.status, operation.expected[i]) << '"' << people[i] << "\": " << reply.text;
    }
}
INSTANTIATE_TEST_SUITE_P(
    Every, OperationAccess, testing::ValuesIn(operations), [](const auto& row) { return row.param.name; });

using Access = BridgeTest;

TEST_F(Access, TheNotaryOfAnotherSessionFindsNothing)
{
    const std::string token = tokenOf(otherNotary);
    EXPECT_EQ(api.get("/remote-notary/sessions/15", token).status, 404);
    EXPECT_EQ(api.post("/notary/remote-notary/sessions/15/status", token, appointment).status, 404);
}

TEST_F(Access, WhatIsAbsentAndWhatIsSomebodyElsesAnswerAlike)
{
    const std::string token = tokenOf(otherClient);
    for (const char* path : {"", "/messages", "/documents"}) {
        const Reply absent = api.get("/remote-notary/sessions/999" + std::string(path), token);
        const Reply foreign = api.get("/remote-notary/sessions/15" + std::string(path), token);
        EXPECT_EQ(absent.status, 404);
        EXPECT_EQ(foreign.status, 404);
        EXPECT_EQ(absent.text, foreign.text);
    }
}

TEST_F(Access, UnknownAddressesAndMethodsAreNotFound)
{
    const std::string token = tokenOf(admin);
    EXPECT_EQ(api.get("/nothing", token).status, 404);
    EXPECT_EQ(api.send("PUT", "/profile", token, {{"name", "x"}}).status, 404);
    EXPECT_EQ(api.get("/remote-notary/sessions/12x", token).status, 404);
    EXPECT_EQ(api.get("/remote-notary/sessions/-1", token).status, 404);
    EXPECT_EQ(api.get("/remote-notary/sessions/99999999999999999999", token).status, 404);
    EXPECT_EQ(api.get("/" + std::string(4000, 'a'), token).status, 404);
}

// Clients take these words in an error for the end of their sign-in.
TEST_F(Access, NoRefusalSoundsLikeTheEndOfASignIn)
{
    const std::string token = tokenOf(client);
    const Reply replies[] = {
        api.get("/remote-notary/sessions/999", token),
        api.get("/remote-notary/sessions?scope=everything", token),
        api.get("/nothing", token),
        api.get("/admin/users", token),
        api.post("/remote-notary/sessions", token, Json::object()),
        api.post("/remote-notary/sessions/1/cancel", token),
        api.post("/remote-notary/sessions/15/messages", token, {{"message", " "}}),
        api.post("/profile", token, {{"email", "no address"}}),
        api.post("/profile/password", token, {{"current_password", "x"}, {"new_password", "long enough"}}),
        api.sendText("POST", "/profile", token, "application/json", "{"),
    };
    for (const Reply& reply : replies) {
        EXPECT_GE(reply.status, 400) << reply.text;
        for (const char* word :
            {"session", "token", "jwt", "bearer", "authorization", "firebase", "unauthorized"})
            EXPECT_EQ(reply.text.find(word), std::string::npos) << reply.text;
    }
}
