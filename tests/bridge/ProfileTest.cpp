#include "support/Reader.h"
#include "support/RunningBridge.h"

#include <future>

using Profile = BridgeTest;

// The person is under "user" for some accounts and flat for others.
static Json personOf(const Json& profile)
{
    return profile.contains("user") && profile["user"].is_object() ? profile["user"] : profile;
}

TEST_F(Profile, MeansTheSameInBothItsShapes)
{
    struct
    {
        const char* email;
        const char* name;
        long long id;
        bool admin, notary, business;
        std::optional<long long> notaryId;
        const char* businessName;
    } const rows[] = {
        {client, "Priya Raman", 1, false, false, false, std::nullopt, ""},
        {business, "Helen Brandt", 2, false, false, true, std::nullopt, "Brandt Title Agency"},
        {notary, "Samuel Adeyemi", 3, false, true, false, 1, ""},
        {admin, "Maya Whitfield", 4, true, true, false, 2, ""},
        {"daniel.reyes@example.com", "Daniel Reyes", 9, false, false, true, std::nullopt,
            "Reyes & Partners LLP"},
    };
    for (const auto& row : rows) {
        const Json profile = api.get("/profile", tokenOf(row.email)).body;
        const Json person = personOf(profile);
        EXPECT_EQ(reader::text(person, {"full_name", "name"}), row.name);
        EXPECT_EQ(reader::text(person, {"email"}), row.email);
        EXPECT_EQ(reader::number(person, {"id", "user_id"}), row.id);
        EXPECT_EQ(reader::text(person, {"state"}), "NY");
        EXPECT_EQ(reader::flag(profile, "is_admin"), row.admin);
        EXPECT_EQ(reader::flag(profile, "is_notary"), row.notary);
        EXPECT_EQ(reader::flag(profile, "is_business"), row.business);
        const auto flat = reader::number(profile, {"notary_id"});
        EXPECT_EQ(
            flat ? flat : reader::number(profile.value("notary", Json::object()), {"id"}), row.notaryId);
        EXPECT_EQ(
            reader::text(profile.value("business", Json::object()), {"company_name"}), row.businessName);
    }
}

TEST_F(Profile, KeepsWhatIsSaved)
{
    const std::string token = tokenOf(client);
    const Json wanted{{"full_name", "Priya R. Raman"}, {"name", "Priya R. Raman"},
        {"email", "priya@example.org"}, {"phone", "555"}, {"city", ""}, {"state", "NJ"}};
    EXPECT_EQ(api.post("/profile", token, wanted).status, 200);
    const Json person = personOf(api.get("/profile", token).body);
    EXPECT_EQ(reader::text(person, {"full_name", "name"}), "Priya R. Raman");
    EXPECT_EQ(reader::text(person, {"email"}), "priya@example.org");
    EXPECT_EQ(reader::text(person, {"phone"}), "555");
    EXPECT_EQ(reader::text(person, {"city"}), "");
    EXPECT_EQ(reader::text(person, {"state"}), "NJ");
    EXPECT_EQ(api.signIn("priya@example.org").status, 200);
    EXPECT_EQ(api.signIn(client).status, 400);
}

TEST_F(Profile, RefusesAnAddressThatIsTakenOrNone)
{
    const std::string token = tokenOf(client);
    EXPECT_EQ(api.post("/profile", token, {{"full_name", "P"}, {"email", otherClient}}).status, 409);
    EXPECT_EQ(api.post("/profile", token, {{"full_name", "P"}, {"email", "none"}}).status, 422);
    EXPECT_EQ(api.post("/profile", token, {{"full_name", " "}, {"name", ""}, {"email", client}}).status, 422);
    EXPECT_EQ(api.signIn(client).status, 200);
}

TEST_F(Profile, ANewPasswordEndsEveryOtherSignIn)
{
    const Json other = api.signIn(client).body["firebase"];
    const Json own = api.signIn(client).body["firebase"];
    const auto change = [&](const std::string& current, const std::string& wanted) {
        return api.post(
            "/profile/password", own["idToken"], {{"current_password", current}, {"new_password", wanted}});
    };
    EXPECT_EQ(change("wrong", "a new one").status, 422);
    EXPECT_EQ(change("quorvel-demo", "short").body,
        Json({{"errors", {{"new_password", "Password must be at least 6 characters."}}}}));
    ASSERT_EQ(change("quorvel-demo", " a new one ").status, 200);

    EXPECT_EQ(api.get("/profile", own["idToken"]).status, 200);
    EXPECT_EQ(api.renew(own["refreshToken"]).status, 200);
    EXPECT_EQ(api.get("/profile", other["idToken"]).status, 401);
    EXPECT_EQ(api.renew(other["refreshToken"]).status, 400);
    EXPECT_EQ(api.signIn(client).status, 400);
    EXPECT_EQ(api.signIn(client, " a new one ").status, 200);
}

TEST_F(Profile, TheCurrentPasswordIsNotGuessedWithAStolenToken)
{
    const std::string token = tokenOf(client);
    const auto guess = [&](const std::string& password) {
        return api
            .post("/profile/password", token, {{"current_password", password}, {"new_password", "a new one"}})
            .status;
    };
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(guess("wrong"), 422);
    EXPECT_EQ(guess("quorvel-demo"), 429) << "not even the right one is looked at";
    EXPECT_EQ(api.signIn(client).status, 200) << "its owner signs in all the same";
}

TEST_F(Profile, OfSeveralNewPasswordsAtOnceOneCounts)
{
    const std::string token = tokenOf(client);
    const auto change = [&](int number) {
        return api
            .post("/profile/password", token,
                {{"current_password", "quorvel-demo"}, {"new_password", "number " + std::to_string(number)}})
            .status;
    };
    std::vector<std::future<int>> answers;
    for (int i = 0; i < 4; ++i)
        answers.push_back(std::async(std::launch::async, change, i));
    int changed = 0;
    int valid = -1;
    for (int i = 0; i < 4; ++i) {
        if (answers[static_cast<std::size_t>(i)].get() == 200) {
            ++changed;
            valid = i;
        }
    }
    EXPECT_EQ(changed, 1);
    EXPECT_EQ(api.signIn(client, "number " + std::to_string(valid)).status, 200);
}
