#include "support/Reader.h"
#include "support/RunningBridge.h"

using Access = BridgeTest;

static const Json contact{{"full_name", "A Person"}, {"name", "A Person"}, {"email", "person@example.com"}};

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

TEST_F(Access, ABusinessSeesNoClientsOfAnother)
{
    const std::string other = tokenOf("daniel.reyes@example.com");
    const auto clientsOf
        = [this](const std::string& token) { return reader::list(api.get("/business/clients", token).body); };
    const std::vector<Json> before = clientsOf(other);
    const std::size_t owned = clientsOf(tokenOf(business)).size();
    Json booking = bookingBody();
    booking["scheduled_by_business"] = true;
    booking["client_name"] = "A New Client";
    booking["client_email"] = "new.client@example.com";
    ASSERT_EQ(api.post("/remote-notary/sessions", tokenOf(business), booking).status, 201);
    EXPECT_EQ(clientsOf(tokenOf(business)).size(), owned + 1);
    EXPECT_EQ(clientsOf(other), before);
}

TEST_F(Access, ListsHoldOnlyWhatTheirReaderMaySee)
{
    struct
    {
        const char* email;
        const char* path;
        const char* count;
    } const rows[] = {
        {client, "/remote-notary/sessions", "select cast(count(*) as text) from sessions where owner_id = 1"},
        {business, "/remote-notary/sessions?scope=business",
            "select cast(count(*) as text) from sessions where business_id = 1"},
        {notary, "/remote-notary/sessions?scope=notary_assigned",
            "select cast(count(*) as text) from sessions where notary_id = 1"},
        {otherNotary, "/remote-notary/sessions?scope=notary_assigned",
            "select cast(count(*) as text) from sessions where notary_id = 3"},
        {notary, "/remote-notary/sessions?scope=notary_open",
            "select cast(count(*) as text) from sessions"
            " where notary_id is null and status in ('requested', 'pending')"},
        {admin, "/remote-notary/sessions?scope=admin_all", "select cast(count(*) as text) from sessions"},
    };
    for (const auto& row : rows) {
        const std::vector<Json> listed = reader::list(api.get(row.path, tokenOf(row.email)).body);
        EXPECT_EQ(std::to_string(listed.size()), stored(row.count)) << row.email << ' ' << row.path;
    }
}

TEST_F(Access, NobodyWritesRightsOrSessionsOfOthersForThemselves)
{
    const std::string token = tokenOf(client);
    Json profile = contact;
    profile.update({{"role", "admin"}, {"app_role", "admin"}, {"is_admin", true}, {"is_notary", true}});
    EXPECT_EQ(api.post("/profile", token, profile).status, 200);
    EXPECT_EQ(api.get("/admin/users", token).status, 403);
    EXPECT_EQ(api.get("/remote-notary/sessions?scope=notary_open", token).status, 403);

    Json booking = bookingBody();
    booking.update({{"owner_id", 5}, {"user_id", 5}, {"business_id", 1}, {"assigned_notary_id", 1},
        {"status", "completed"}, {"proposed_fee", "0"}});
    book(token, booking);
    EXPECT_EQ(stored("select owner_id || ' ' || coalesce(business_id, '-') || ' ' || coalesce(notary_id, '-')"
                     " || ' ' || status || ' ' || proposed_fee from sessions order by id desc limit 1"),
        "1 - - requested ");
    booking["scheduled_by_business"] = true;
    EXPECT_EQ(api.post("/remote-notary/sessions", token, booking).status, 403);
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
    const std::string person = tokenOf(notary);
    const std::string office = tokenOf(admin);
    ASSERT_EQ(api.post("/notary/open-calls/24/accept", tokenOf(otherNotary)).status, 200);
    ASSERT_EQ(api.post("/remote-notary/sessions/25/cancel", token).status, 200);
    const Reply replies[] = {
        api.get("/remote-notary/sessions/999", token),
        api.get("/remote-notary/sessions?scope=everything", token),
        api.get("/nothing", token),
        api.get("/admin/users", token),
        api.post("/remote-notary/sessions", token, Json::object()),
        api.post("/remote-notary/sessions/1/cancel", token),
        api.post("/remote-notary/sessions/15/messages", token, {{"message", " "}}),
        api.post("/notary/open-calls/24/accept", person),
        api.post("/notary/open-calls/25/accept", person),
        api.post("/notary/open-calls/999/accept", person),
        api.post("/notary/remote-notary/sessions/15/status", person, {{"status", "lost"}}),
        api.post("/admin/remote-notary/sessions/15/assign", office, {{"assigned_notary_id", 99}}),
        api.post("/admin/records/15", office, {{"record_type", "other"}}),
        api.post("/admin/users/0", office, contact),
        api.post("/admin/notaries/0", office, contact),
        api.remove("/admin/users/4", office),
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
