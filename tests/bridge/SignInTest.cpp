#include "People/Accounts.h"
#include "support/Reader.h"
#include "support/RunningBridge.h"

#include <future>

using namespace std::chrono_literals;
using SignIn = BridgeTest;

TEST_F(SignIn, TellsTokensUnderFirebaseAndThePersonBeside)
{
    const Reply reply = api.signIn(" PRIYA.raman@example.com ");
    ASSERT_EQ(reply.status, 200) << reply.text;
    const Json& firebase = reply.body.at("firebase");
    EXPECT_FALSE(firebase.at("idToken").get<std::string>().empty());
    EXPECT_FALSE(firebase.at("refreshToken").get<std::string>().empty());
    EXPECT_EQ(firebase.at("email"), client);
    EXPECT_EQ(firebase.at("displayName"), "Priya Raman");
    EXPECT_EQ(firebase.at("localId"), stored("select local_id from users where id = 1"));
    EXPECT_EQ(reader::number(reply.body.at("user"), {"id"}), 1);
    EXPECT_EQ(reply.body.at("app_role"), "client");
}

TEST_F(SignIn, RefusesAWrongPasswordAndAnUnknownAddressAlike)
{
    const Reply wrong = api.signIn(client, "wrong");
    const Reply unknown = api.signIn("nobody@example.com", "wrong");
    EXPECT_EQ(wrong.status, 400);
    EXPECT_EQ(wrong.body, Json({{"error", "INVALID_LOGIN_CREDENTIALS"}}));
    EXPECT_EQ(unknown.status, 400);
    EXPECT_EQ(unknown.body, wrong.body);
}

TEST_F(SignIn, SlowsDownGuessingOfOneAccountOnly)
{
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(api.signIn(client, "wrong").status, 400);
    EXPECT_EQ(api.signIn(client).status, 429);
    EXPECT_EQ(api.signIn(otherClient).status, 200);
    bridge.letPass(1s);
    EXPECT_EQ(api.signIn(client).status, 200);
    EXPECT_EQ(api.signIn(client, "wrong").status, 400) << "a success forgets the failures";
}

TEST_F(SignIn, StoresArgon2idHashesAndNoToken)
{
    const Json answer = api.signIn(client).body;
    EXPECT_EQ(stored("select password_hash from users where id = 1").rfind("$argon2id$", 0), 0u);
    EXPECT_EQ(stored("select cast(count(*) as text) from id_tokens where hash = '"
                  + answer["firebase"]["idToken"].get<std::string>() + "'"),
        "0");
}

TEST_F(SignIn, AnIdTokenEndsWithItsTime)
{
    const std::string token = tokenOf(client);
    bridge.letPass(1h - 1ms);
    EXPECT_EQ(api.get("/profile", token).status, 200);
    bridge.letPass(1ms);
    const Reply reply = api.get("/profile", token);
    EXPECT_EQ(reply.status, 401);
    EXPECT_EQ(reply.body, Json({{"error", "invalid_firebase_token"}}));
}

TEST_F(SignIn, ARefreshTokenBuysNewTokens)
{
    const Json first = api.signIn(client).body.at("firebase");
    const Reply reply = api.renew(first["refreshToken"]);
    ASSERT_EQ(reply.status, 200) << reply.text;
    EXPECT_EQ(reply.body.at("user_id"), first["localId"]);
    EXPECT_EQ(reply.body.at("expires_in"), "3600");
    EXPECT_NE(reply.body.at("refresh_token"), first["refreshToken"]);
    EXPECT_EQ(api.get("/profile", reply.body.at("id_token")).status, 200);
}

TEST_F(SignIn, ARefreshTokenWhoseSuccessorWasUsedIsOver)
{
    const std::string first = api.signIn(client).body["firebase"]["refreshToken"];
    const std::string second = api.renew(first).body["refresh_token"];
    EXPECT_EQ(api.renew(second).status, 200);
    EXPECT_EQ(api.renew(first).status, 400);
}

TEST_F(SignIn, ARefreshTokenMayBeRepeatedForAMinuteWhenItsAnswerWasLost)
{
    const std::string first = api.signIn(client).body["firebase"]["refreshToken"];
    const std::string lost = api.renew(first).body["refresh_token"];
    bridge.letPass(60s);
    const Reply repeated = api.renew(first);
    ASSERT_EQ(repeated.status, 200);
    EXPECT_EQ(api.renew(lost).status, 400) << "only the newest answer holds";
    EXPECT_EQ(api.renew(repeated.body["refresh_token"]).status, 200);
}

TEST_F(SignIn, TheTokensOfALostAnswerEndWhenItIsAskedForAgain)
{
    const std::string first = api.signIn(client).body["firebase"]["refreshToken"];
    const std::string lost = api.renew(first).body["id_token"];
    ASSERT_EQ(api.get("/profile", lost).status, 200);
    const std::string repeated = api.renew(first).body["id_token"];
    EXPECT_EQ(api.get("/profile", lost).status, 401);
    EXPECT_EQ(api.get("/profile", repeated).status, 200);
}

TEST_F(SignIn, AUsedRefreshTokenThatIsPresentedLateEndsItsSignIn)
{
    const auto endsAll = [this](std::chrono::seconds late, bool successorIsUsed) {
        const Json others = api.signIn(client).body["firebase"];
        const std::string first = api.signIn(client).body["firebase"]["refreshToken"];
        Json latest = api.renew(first).body;
        if (successorIsUsed)
            latest = api.renew(latest["refresh_token"]).body;
        bridge.letPass(late);
        EXPECT_EQ(api.renew(first).status, 400);
        EXPECT_EQ(api.get("/profile", latest["id_token"]).status, 401);
        EXPECT_EQ(api.renew(latest["refresh_token"]).status, 400);
        EXPECT_EQ(api.get("/profile", others["idToken"]).status, 200) << "another sign-in goes on";
    };
    endsAll(61s, false);
    endsAll(0s, true);
}

TEST_F(SignIn, ARefreshTokenThatNobodyUsesEndsAfterNinetyDays)
{
    const std::string used = api.signIn(client).body["firebase"]["refreshToken"];
    const std::string unused = api.signIn(client).body["firebase"]["refreshToken"];
    bridge.letPass(std::chrono::days(90));
    const Reply renewed = api.renew(used);
    EXPECT_EQ(renewed.status, 200);
    bridge.letPass(1ms);
    EXPECT_EQ(api.renew(unused).status, 400);
    EXPECT_EQ(api.renew(renewed.body["refresh_token"]).status, 200);
}

TEST_F(SignIn, WhatNobodyCanUseAnyMoreIsDeleted)
{
    const auto rows
        = [this](const std::string& table) { return stored("select cast(count(*) as text) from " + table); };
    const std::string kept
        = api.renew(api.signIn(client).body["firebase"]["refreshToken"]).body["refresh_token"];
    api.signIn(otherClient);
    tidyUp(bridge.service());
    EXPECT_EQ(rows("id_tokens") + rows("refresh_tokens") + rows("sign_ins"), "332") << "nothing has ended";

    bridge.letPass(std::chrono::days(30));
    const std::string next = api.renew(kept).body["refresh_token"];
    bridge.letPass(std::chrono::days(60) + 1s);
    tidyUp(bridge.service());
    EXPECT_EQ(rows("id_tokens"), "0");
    EXPECT_EQ(rows("refresh_tokens"), "1")
        << "the used ones are older than 30 days, the other client's than 90";
    EXPECT_EQ(rows("sign_ins"), "1");
    EXPECT_EQ(api.renew(next).status, 200);
}

TEST_F(SignIn, APasswordThatIsChangedMeanwhileSignsNobodyIn)
{
    std::future<Reply> answer;
    bridge.service().database.write([&](soci::session& sql) {
        // Whoever signs in now verifies the old password, and then waits for this transaction.
        answer = std::async(std::launch::async, [this] { return api.signIn(client); });
        std::string hash;
        for (int i = 0; i < 20; ++i)
            hash = bridge.service().passwords.hash("the new one");
        bridge::setPasswordHash(sql, 1, hash, bridge.service().now());
    });
    EXPECT_EQ(answer.get().status, 400);
    EXPECT_EQ(api.signIn(client, "the new one").status, 200);
}

TEST_F(SignIn, TheTokenEndpointDemandsItsForm)
{
    const std::string token = api.signIn(client).body["firebase"]["refreshToken"];
    EXPECT_EQ(api.renew(token, "").status, 400);
    EXPECT_EQ(api.renew("").status, 400);
    EXPECT_EQ(api.renew("invented").status, 400);
    const auto form = [&](const std::string& body) {
        return api.sendText("POST", "//v1/token?key=k", {}, "application/x-www-form-urlencoded", body).status;
    };
    EXPECT_EQ(form("grant_type=password&refresh_token=" + token), 400);
    EXPECT_EQ(form("refresh_token=" + token), 400);
    EXPECT_EQ(form("refresh_token=" + token + "&grant_type=refresh_token"), 200) << "in any order";
}

TEST(ApiKey, IsTheOnlyOneWhenTheServerIsToldOne)
{
    RunningBridge::Wishes wishes;
    wishes.apiKey = "the-key";
    const RunningBridge bridge(wishes);
    const std::string token = bridge.api().signIn("priya.raman@example.com").body["firebase"]["refreshToken"];
    EXPECT_EQ(bridge.api().renew(token, "another").status, 400);
    EXPECT_EQ(bridge.api().renew(token, "the-key").status, 200);
}

TEST_F(SignIn, RegistrationSignsInAtOnce)
{
    const Reply reply = api.post("/auth/client-register", {},
        {{"name", "Jordan Ellis"}, {"full_name", "Jordan Ellis"}, {"email", "jordan@example.com"},
            {"password", " blank "}, {"phone", ""}, {"city", "Springfield"}, {"state", ""},
            {"auth_provider", "password"}, {"platform", "macos_desktop"}});
    ASSERT_EQ(reply.status, 201) << reply.text;
    EXPECT_EQ(api.get("/remote-notary/sessions", reply.body.at("id_token")).status, 200);
    EXPECT_EQ(api.renew(reply.body.at("refresh_token")).status, 200);
    const Json& profile = reply.body.at("profile");
    EXPECT_EQ(reader::text(profile, {"full_name", "name"}), "Jordan Ellis");
    EXPECT_EQ(reader::text(profile, {"email"}), "jordan@example.com");
    EXPECT_EQ(reader::text(profile, {"app_role"}), "client");
    EXPECT_FALSE(reader::flag(profile, "is_admin"));
    EXPECT_EQ(api.signIn("jordan@example.com", " blank ").status, 200) << "a password keeps its blanks";
    EXPECT_EQ(api.signIn("jordan@example.com", "blank").status, 400);
}

TEST_F(SignIn, RegistrationChecksWhatItIsGiven)
{
    struct
    {
        Json body;
        int status;
        Json answer;
    } const rows[] = {
        {{{"email", "a@b.cd"}, {"password", "123456"}}, 422,
            {{"errors", {{"full_name", "Enter a full name."}}}}},
        {{{"name", "A"}, {"email", "a@bcde"}, {"password", "123456"}}, 422,
            {{"errors", {{"email", "Enter a valid email address."}}}}},
        {{{"name", "A"}, {"email", "a@b.cd"}, {"password", "12345"}}, 422,
            {{"errors", {{"password", "Password must be at least 6 characters."}}}}},
        {{{"name", "A"}, {"email", "Priya.Raman@EXAMPLE.com"}, {"password", "123456"}}, 409,
            {{"message", "An account with this email already exists."}}},
    };
    for (const auto& row : rows) {
        const Reply reply = api.post("/auth/client-register", {}, row.body);
        EXPECT_EQ(reply.status, row.status) << row.body;
        EXPECT_EQ(reply.body, row.answer);
    }
}

TEST_F(SignIn, NoFieldDecidesTheRoleOfANewAccount)
{
    const Reply reply = api.post("/auth/client-register", {},
        {{"name", "A"}, {"email", "a@b.cd"}, {"password", "123456"}, {"role", "admin"},
            {"app_role", "admin"}});
    EXPECT_EQ(api.get("/admin/users", reply.body.at("id_token")).status, 403);
}
