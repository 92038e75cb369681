#include "support/Reader.h"
#include "support/RunningBridge.h"

namespace {

class People : public BridgeTest
{
protected:
    Json user(long long id)
    {
        return reader::withId(reader::list(api.get("/admin/users", token).body), {"id", "user_id"}, id);
    }

    Json profile(long long id)
    {
        return reader::withId(reader::list(api.get("/admin/notaries", token).body), {"id", "notary_id"}, id);
    }

    static std::string nameOf(const Json& person)
    {
        return reader::text(person, {"full_name", "name", "display_name"});
    }

    static Json userData(const char* name, const char* email, const char* role)
    {
        return {{"full_name", name}, {"name", name}, {"email", email}, {"phone", "555"}, {"role", role}};
    }

    static Json notaryData(const char* name, const char* email, bool active)
    {
        return {{"name", name}, {"full_name", name}, {"email", email}, {"phone", "555"},
            {"notarial_state", "NJ"}, {"state", "NJ"}, {"county", "Essex"}, {"commission_number", "007"},
            {"commission_expiration_date", "2033-01-01"}, {"billing_status", "paused"}, {"active", active}};
    }

    std::string token = tokenOf(admin);
};

} // namespace

TEST_F(People, ListsEveryAccount)
{
    const char* names[] = {"Priya Raman", "Helen Brandt", "Samuel Adeyemi", "Maya Whitfield", "Tomas Alder"};
    const char* roles[] = {"client", "title_agency", "notary", "admin", "client"};
    for (int id = 1; id <= 5; ++id) {
        EXPECT_EQ(nameOf(user(id)), names[id - 1]);
        EXPECT_EQ(reader::text(user(id), {"role", "app_role"}, "client"), roles[id - 1]);
    }
    EXPECT_EQ(reader::list(api.get("/admin/users", token).body).size(), 9u);
}

TEST_F(People, KeepsASavedAccount)
{
    for (const int id : {1, 5, 6}) { // of each variant one
        const std::string email = "new" + std::to_string(id) + "@example.com";
        ASSERT_EQ(api.post("/admin/users/" + std::to_string(id), token,
                         userData("New Name", email.c_str(), "client"))
                      .status,
            200);
        EXPECT_EQ(nameOf(user(id)), "New Name");
        EXPECT_EQ(reader::text(user(id), {"email"}), email);
        EXPECT_EQ(reader::text(user(id), {"phone"}), "555");
        EXPECT_EQ(api.signIn(email).status, 200) << "the password stays";
    }
}

TEST_F(People, RefusesAnAccountThatCannotBe)
{
    const auto status = [&](int id, const Json& data) {
        return api.post("/admin/users/" + std::to_string(id), token, data).status;
    };
    EXPECT_EQ(status(0, userData("A", "a@example.com", "client")), 422);
    EXPECT_EQ(status(99, userData("A", "a@example.com", "client")), 404);
    EXPECT_EQ(status(5, userData("", "a@example.com", "client")), 422);
    EXPECT_EQ(status(5, userData("A", "a", "client")), 422);
    EXPECT_EQ(status(5, userData("A", client, "client")), 409);
    EXPECT_EQ(status(5, userData("A", "a@example.com", "king")), 422);
    Json data = userData("A", "a@example.com", "client");
    data["password"] = data["new_password"] = "12345";
    EXPECT_EQ(status(5, data), 422);
    EXPECT_EQ(status(4, userData("Maya", admin, "client")), 409);
    EXPECT_EQ(nameOf(user(5)), "Tomas Alder");
}

TEST_F(People, ARoleBringsItsRights)
{
    const std::string person = tokenOf(otherClient);
    const auto give = [&](const char* role) {
        EXPECT_EQ(api.post("/admin/users/5", token, userData("Tomas Alder", otherClient, role)).status, 200)
            << role;
    };
    struct
    {
        const char* role;
        int business, notary, admin;
    } const rows[] = {{"Law_Firm", 200, 403, 403}, {"signing_agent", 403, 200, 403}, {"STAFF", 403, 200, 200},
        {"client", 403, 403, 403}, {"remote_notary", 403, 200, 403}, {"business_scheduler", 200, 403, 403}};
    for (const auto& row : rows) {
        give(row.role);
        EXPECT_EQ(api.get("/business/clients", person).status, row.business) << row.role;
        EXPECT_EQ(api.get("/remote-notary/sessions?scope=notary_open", person).status, row.notary)
            << row.role;
        EXPECT_EQ(api.get("/admin/users", person).status, row.admin) << row.role;
    }
}

TEST_F(People, APasswordFromTheOfficeEndsTheSignIns)
{
    const std::string person = tokenOf(otherClient);
    Json data = userData("Tomas Alder", otherClient, "client");
    data["password"] = data["new_password"] = "from the office";
    ASSERT_EQ(api.post("/admin/users/5", token, data).status, 200);
    EXPECT_EQ(api.get("/profile", person).status, 401);
    EXPECT_EQ(api.signIn(otherClient).status, 400);
    EXPECT_EQ(api.signIn(otherClient, "from the office").status, 200);
}

TEST_F(People, ADeletedAccountIsGoneAndItsSessionsStay)
{
    const std::string person = tokenOf(client);
    ASSERT_EQ(api.remove("/admin/users/1", token).status, 200);
    EXPECT_TRUE(user(1).is_null());
    EXPECT_EQ(api.get("/profile", person).status, 401);
    EXPECT_EQ(api.signIn(client).status, 400);
    const Json session = reader::object(api.get("/remote-notary/sessions/15", token).body);
    EXPECT_EQ(reader::text(session, {"contact_name"}), "Priya Raman");
    EXPECT_EQ(api.remove("/admin/users/1", token).status, 404);

    const Reply self = api.remove("/admin/users/4", token);
    EXPECT_EQ(self.status, 409);
    EXPECT_EQ(self.body, Json({{"message", "You cannot delete your own account."}}));
}

TEST_F(People, ListsNotariesByName)
{
    std::vector<std::string> names;
    for (const Json& one : reader::list(api.get("/admin/notaries", token).body))
        names.push_back(reader::text(one, {"name", "full_name"}));
    EXPECT_EQ(
        names, (std::vector<std::string>{"Marta Kowal", "Maya Whitfield", "Ruth Delgado", "Samuel Adeyemi"}));
    EXPECT_FALSE(reader::flag(profile(4), "active") || reader::flag(profile(4), "is_active"));
    EXPECT_TRUE(reader::flag(profile(1), "active") || reader::flag(profile(1), "is_active"));
    EXPECT_EQ(reader::number(profile(1), {"user_id"}), 3);
    EXPECT_EQ(reader::number(profile(4), {"user_id"}), std::nullopt);
}

TEST_F(People, KeepsASavedNotary)
{
    for (const int id : {1, 2, 3, 4}) {
        for (const bool active : {true, false}) {
            const std::string email = "notary" + std::to_string(id) + "@example.com";
            ASSERT_EQ(api.post("/admin/notaries/" + std::to_string(id), token,
                             notaryData("New Name", email.c_str(), active))
                          .status,
                200);
            const Json saved = profile(id);
            EXPECT_EQ(reader::text(saved, {"name", "full_name"}), "New Name");
            EXPECT_EQ(reader::text(saved, {"email"}), email);
            EXPECT_EQ(reader::text(saved, {"phone"}), "555");
            EXPECT_EQ(reader::text(saved, {"notarial_state", "state"}), "NJ");
            EXPECT_EQ(reader::text(saved, {"county"}), "Essex");
            EXPECT_EQ(reader::text(saved, {"commission_number", "notary_commission_number"}), "007");
            EXPECT_EQ(
                reader::text(saved, {"commission_expiration_date", "commission_expires_at"}), "2033-01-01");
            EXPECT_EQ(reader::text(saved, {"billing_status", "status"}, "active"), "paused");
            EXPECT_EQ(reader::flag(saved, "active") || reader::flag(saved, "is_active"), active);
        }
    }
    EXPECT_EQ(api.signIn("notary1@example.com").status, 200) << "the account has the new address";
}

TEST_F(People, RefusesANotaryThatCannotBe)
{
    const auto status = [&](int id, const Json& data) {
        return api.post("/admin/notaries/" + std::to_string(id), token, data).status;
    };
    EXPECT_EQ(status(0, notaryData("A", "a@example.com", true)), 422);
    EXPECT_EQ(status(99, notaryData("A", "a@example.com", true)), 404);
    EXPECT_EQ(status(1, notaryData("", "a@example.com", true)), 422);
    EXPECT_EQ(status(1, notaryData("A", "a", true)), 422);
    EXPECT_EQ(status(1, notaryData("A", client, true)), 409);
    EXPECT_EQ(api.remove("/admin/notaries/99", token).status, 404);
}

TEST_F(People, AnInactiveNotaryAcceptsNothing)
{
    const std::string person = tokenOf(notary);
    ASSERT_EQ(api.post("/admin/notaries/1", token, notaryData("Samuel Adeyemi", notary, false)).status, 200);
    EXPECT_TRUE(reader::list(api.get("/remote-notary/sessions?scope=notary_open", person).body).empty());
    EXPECT_EQ(api.get("/remote-notary/sessions/24", person).status, 404);
    EXPECT_EQ(api.post("/notary/open-calls/24/accept", person).status, 409);
    EXPECT_EQ(api.get("/remote-notary/sessions/15", person).status, 200) << "what is assigned stays";
}

TEST_F(People, AFirstPasswordGivesANotaryAnAccount)
{
    Json data = notaryData("Ruth Delgado", "ruth.delgado@example.com", true);
    data["password"] = data["new_password"] = "first password";
    ASSERT_EQ(api.post("/admin/notaries/4", token, data).status, 200);
    const std::string person = api.tokenOf("ruth.delgado@example.com", "first password");
    EXPECT_EQ(api.post("/notary/open-calls/24/accept", person).status, 200);
    EXPECT_EQ(reader::number(profile(4), {"user_id"}), 10);
    EXPECT_EQ(reader::list(api.get("/admin/notaries", token).body).size(), 4u) << "no second profile";
}

TEST_F(People, ADeletedNotaryLeavesTheSessions)
{
    const std::string person = tokenOf(notary);
    EXPECT_EQ(api.remove("/admin/notaries/1", token).status, 204);
    EXPECT_TRUE(profile(1).is_null());
    EXPECT_EQ(api.get("/remote-notary/sessions?scope=notary_assigned", person).status, 403);
    EXPECT_EQ(reader::text(user(3), {"role", "app_role"}), "client");
    const Json session = reader::object(api.get("/remote-notary/sessions/15", token).body);
    EXPECT_EQ(reader::number(session, {"assigned_notary_id"}).value_or(0), 0);
}
