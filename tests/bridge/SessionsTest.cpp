#include "support/Reader.h"
#include "support/RunningBridge.h"

using Sessions = BridgeTest;

static std::vector<long long> idsOf(const std::vector<Json>& records)
{
    std::vector<long long> ids;
    for (const Json& record : records)
        ids.push_back(reader::number(record, {"id", "session_id"}).value_or(-1));
    return ids;
}

TEST_F(Sessions, EveryScopeListsItsOwnNewestFirst)
{
    using Ids = std::vector<long long>;
    const auto list = [&](const char* who, const std::string& query) {
        return idsOf(reader::list(api.get("/remote-notary/sessions" + query, tokenOf(who)).body));
    };
    EXPECT_EQ(list(client, ""), (Ids{25, 22, 18, 15, 13, 10, 7, 4, 1}));
    EXPECT_EQ(list(business, "?scope=business"), (Ids{21, 17, 16, 11, 8, 2}));
    EXPECT_EQ(list(admin, "?scope=notary_assigned"), (Ids{19, 5}));
    EXPECT_EQ(list(otherNotary, "?scope=notary_open"), (Ids{25, 24, 23}));
    EXPECT_EQ(list(admin, "?scope=admin_all").size(), 25u);
    EXPECT_EQ(list(client, "?status=COMPLETED"), (Ids{13, 7, 1}));
}

TEST_F(Sessions, KeepsABookingWhole)
{
    const std::string token = tokenOf(client);
    for (int variant = 0; variant < 3; ++variant) {
        const Json wanted = bookingBody();
        const long long id = book(token, wanted);
        EXPECT_EQ(Json::parse(stored("select request_json from sessions where id = " + std::to_string(id))),
            wanted);
        const Json session
            = reader::object(api.get("/remote-notary/sessions/" + std::to_string(id), token).body);
        EXPECT_EQ(reader::number(session, {"id", "session_id"}), id);
        EXPECT_EQ(reader::text(session, {"status"}, "requested"), "requested");
        for (const char* key : {"contact_name", "contact_email", "contact_phone", "document_type", "notes",
                 "preferred_date", "preferred_time", "timezone", "booking_source", "remote_signing_details",
                 "document_retrieval_option"})
            EXPECT_EQ(reader::text(session, {key}), wanted.at(key)) << key;
        EXPECT_EQ(reader::number(session, {"notary_act_count"}), 2);
        EXPECT_TRUE(reader::flag(session, "requires_witness"));
        EXPECT_FALSE(reader::flag(session, "needs_apostille"));
        EXPECT_FALSE(reader::flag(session, "appointment_asap"));
        EXPECT_EQ(reader::signerNames(session), (std::vector<std::string>{"Priya Raman", "Arun Raman"}));
        EXPECT_EQ(reader::text(session, {"reference_id"}), "RN-20310505-000" + std::to_string(2 + variant));
    }
}

TEST_F(Sessions, TellsTheIdOfABookingInFiveWays)
{
    const std::string token = tokenOf(client);
    for (int i = 0; i < 4; ++i) {
        const Reply reply = api.post("/remote-notary/sessions", token, bookingBody());
        const long long id = std::stoll(stored("select max(id) from sessions"));
        const Json answer = reader::object(reply.body);
        const std::string reference = reader::text(answer, {"reference_id"});
        EXPECT_EQ(reference, stored("select reference_id from sessions where id = " + std::to_string(id)));
        const auto told = reader::number(answer, {"id", "session_id", "remote_notary_session_id"});
        if (told) {
            EXPECT_EQ(told, id) << reply.text;
            continue;
        }
        // Then the list finds it by its reference.
        const std::vector<Json> sessions = reader::list(api.get("/remote-notary/sessions", token).body);
        EXPECT_EQ(reader::text(sessions.front(), {"reference_id"}), reference);
        EXPECT_EQ(reader::number(sessions.front(), {"id", "session_id"}), id);
    }
}

TEST_F(Sessions, UnderstandsSignersThatAreOnlyNumbered)
{
    Json body = bookingBody();
    for (const char* key :
        {"signer_names", "signer_emails", "signer_phones", "signer_id_types", "signer_id_expirations"})
        body.erase(key);
    body["signer_name_1"] = " Ada ";
    body["signer_name_2"] = "Bo";
    const std::string token = tokenOf(client);
    const long long id = book(token, body);
    const Json session = reader::object(api.get("/remote-notary/sessions/" + std::to_string(id), token).body);
    EXPECT_EQ(reader::signerNames(session), (std::vector<std::string>{"Ada", "Bo"}));
}

TEST_F(Sessions, NamesTheFieldThatABookingLacks)
{
    struct
    {
        const char* field;
        Json value;
    } const rows[] = {{"contact_name", " "}, {"contact_email", "nobody"}, {"remote_signing_details", ""},
        {"preferred_date", ""}, {"signer_names", Json::array()}, {"signer_names", {"Ada", " "}},
        {"notary_act_count", 0}, {"notary_act_count", 26}};
    const std::string token = tokenOf(client);
    for (const auto& row : rows) {
        Json body = bookingBody();
        body[row.field] = row.value;
        const Reply reply = api.post("/remote-notary/sessions", token, body);
        EXPECT_EQ(reply.status, 422) << row.field;
        EXPECT_TRUE(reply.body.at("errors").contains(row.field)) << reply.text;
    }
    Json asap = bookingBody();
    asap["appointment_asap"] = true;
    asap["notary_act_unknown"] = true;
    for (const char* key : {"preferred_date", "preferred_time", "notary_act_count"})
        asap.erase(key);
    EXPECT_EQ(api.post("/remote-notary/sessions", token, asap).status, 201);
    EXPECT_EQ(stored("select cast(count(*) as text) from sessions"), "26");
}

TEST_F(Sessions, ABookingThatIsNoJsonObjectCouldNotBeRead)
{
    const std::string token = tokenOf(client);
    for (const char* body : {"{", "[]", "1", "{\"contact_name\":\"\xff\"", "{\"contact_name\": \"cut"}) {
        const Reply reply = api.sendText("POST", "/remote-notary/sessions", token, "application/json", body);
        EXPECT_EQ(reply.status, 400) << body;
        EXPECT_EQ(reply.body, Json({{"message", "The request could not be read."}}));
    }
}

TEST_F(Sessions, ABusinessSchedulesForItsClients)
{
    Json body = bookingBody();
    body["scheduled_by_business"] = true;
    body["client_name"] = body["contact_name"];
    body["client_email"] = body["contact_email"];
    body["client_phone"] = body["contact_phone"];
    EXPECT_EQ(api.post("/remote-notary/sessions", tokenOf(client), body).status, 403);

    const std::string token = tokenOf(business);
    const std::size_t before = reader::list(api.get("/business/clients", token).body).size();
    const long long id = book(token, body);
    book(token, body);
    const std::vector<Json> clients = reader::list(api.get("/business/clients", token).body);
    ASSERT_EQ(clients.size(), before + 1) << "one client however often";
    EXPECT_EQ(reader::text(clients.front(), {"name", "full_name", "client_name"}), "Priya Raman");
    EXPECT_EQ(reader::text(clients.front(), {"email", "client_email"}), client);
    EXPECT_EQ(api.get("/remote-notary/sessions/" + std::to_string(id), tokenOf(client)).status, 404);
    EXPECT_EQ(
        api.get("/remote-notary/sessions/" + std::to_string(id), tokenOf("daniel.reyes@example.com")).status,
        404);
}

TEST_F(Sessions, ListsTheClientsOfABusinessInEveryVariant)
{
    std::vector<std::string> names;
    for (const Json& one : reader::list(api.get("/business/clients", tokenOf(business)).body))
        names.push_back(reader::text(one, {"name", "full_name", "client_name"}) + ' '
            + reader::text(one, {"email", "client_email"}));
    EXPECT_EQ(names,
        (std::vector<std::string>{"Ines Duarte ines.duarte@example.com",
            "Tomas Alder tomas.alder@example.com", "Oscar Lindqvist oscar.lindqvist@example.com",
            "Noor Haddad noor.haddad@example.com"}));
}

TEST_F(Sessions, CancelsOnlyWhatIsNotOver)
{
    const std::string token = tokenOf(client);
    struct
    {
        int id;
        int status;
    } const rows[] = {{1, 409}, {4, 409}, {10, 200}, {15, 200}, {18, 200}, {22, 200}, {25, 200}, {15, 409}};
    for (const auto& row : rows)
        EXPECT_EQ(api.post("/remote-notary/sessions/" + std::to_string(row.id) + "/cancel", token).status,
            row.status)
            << row.id;
    EXPECT_EQ(stored("select group_concat(status) from status_history where session_id = 15"),
        "scheduled,cancelled");
}

TEST_F(Sessions, MessagesArriveInOrderWithTheirSenders)
{
    const std::string path = "/remote-notary/sessions/13/messages";
    const std::string text = "Zoë says \"hi\" \\ <b>&amp; 😀\nsecond line, \t\x01 and more!";
    EXPECT_EQ(api.post(path, tokenOf(client), {{"message", "  " + text + "\n"}}).status, 201);
    EXPECT_EQ(api.post(path, tokenOf(notary), {{"message", "two"}}).status, 201);
    EXPECT_EQ(api.post(path, tokenOf(admin), {{"message", "three"}}).status, 201);
    EXPECT_EQ(api.post(path, tokenOf(client), {{"message", " \n "}}).body,
        Json({{"error", "Write a message first."}}));

    const std::vector<Json> messages = reader::list(api.get(path, tokenOf(client)).body);
    ASSERT_EQ(messages.size(), 3u);
    EXPECT_EQ(reader::text(messages[0], {"message"}), text);
    const char* names[] = {"Priya Raman", "Samuel Adeyemi", "Maya Whitfield"};
    const char* roles[] = {"client", "notary", "admin"};
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(reader::text(messages[i], {"sender_name", "name"}), names[i]);
        EXPECT_EQ(reader::text(messages[i], {"sender_type", "role"}), roles[i]);
        EXPECT_NE(
            reader::text(messages[i], {"sender_email", "email"}).find("@example.com"), std::string::npos);
        EXPECT_EQ(reader::text(messages[i], {"created_at"}), "2031-05-05 2:00 PM");
    }
}

TEST_F(Sessions, TheFirstNotaryGetsTheOpenCall)
{
    const std::string first = tokenOf(notary);
    const std::string second = tokenOf(otherNotary);
    EXPECT_EQ(api.post("/notary/open-calls/24/accept", first).status, 200);
    EXPECT_EQ(api.post("/notary/open-calls/24/accept", first).status, 200) << "it is theirs already";
    const Reply late = api.post("/notary/open-calls/24/accept", second);
    EXPECT_EQ(late.status, 409);
    EXPECT_EQ(late.body, Json({{"message", "Another notary has already accepted this call."}}));
    EXPECT_EQ(api.get("/remote-notary/sessions/24", second).status, 404);
    EXPECT_EQ(api.post("/notary/open-calls/999/accept", second).status, 404);

    const Json session = reader::object(api.get("/remote-notary/sessions/24", first).body);
    EXPECT_EQ(reader::text(session, {"status"}), "scheduled");
    EXPECT_EQ(reader::text(session, {"scheduled_date"}), reader::text(session, {"preferred_date"}));
    EXPECT_EQ(reader::text(session, {"assigned_notary_name"}), "Samuel Adeyemi");
    EXPECT_EQ(reader::number(session, {"assigned_notary_id"}), 1);
}

TEST_F(Sessions, ACallThatWasCancelledIsNoLongerOpen)
{
    EXPECT_EQ(api.post("/remote-notary/sessions/25/cancel", tokenOf(client)).status, 200);
    const Reply reply = api.post("/notary/open-calls/25/accept", tokenOf(notary));
    EXPECT_EQ(reply.status, 409);
    EXPECT_EQ(reply.body, Json({{"message", "This call is no longer open."}}));
}

TEST_F(Sessions, TheNotarySavesTheAppointment)
{
    const Json data{{"status", "rescheduled"}, {"confirmed_date", "2031-07-01"},
        {"confirmed_time", "4:30 PM"}, {"scheduled_date", "2031-07-01"}, {"scheduled_time", "4:30 PM"},
        {"proposed_fee", "45.00"}, {"status_note", "Moved."}, {"requires_witness", true},
        {"witness_name", "Ada Obi"}};
    for (const int id : {10, 13, 15, 22}) { // one of each variant at least
        const std::string number = std::to_string(id);
        ASSERT_EQ(
            api.post("/notary/remote-notary/sessions/" + number + "/status", tokenOf(notary), data).status,
            200);
        const Json session
            = reader::object(api.get("/remote-notary/sessions/" + number, tokenOf(client)).body);
        EXPECT_EQ(reader::text(session, {"status"}), "rescheduled");
        EXPECT_EQ(reader::text(session, {"scheduled_date", "preferred_date"}), "2031-07-01");
        EXPECT_EQ(reader::text(session, {"scheduled_time", "preferred_time"}), "4:30 PM");
        EXPECT_EQ(reader::text(session, {"proposed_fee"}), "45.00");
        EXPECT_EQ(reader::text(session, {"status_note", "admin_notes"}), "Moved.");
        EXPECT_EQ(reader::text(session, {"witness_name"}), "Ada Obi");
        EXPECT_TRUE(reader::flag(session, "requires_witness"));
    }
    EXPECT_EQ(
        api.post("/notary/remote-notary/sessions/15/status", tokenOf(notary), {{"status", "lost"}}).status,
        422);
}

TEST_F(Sessions, EveryChangeChangesUpdatedAt)
{
    const std::string token = tokenOf(client);
    const auto updated = [&] {
        return reader::text(
            reader::object(api.get("/remote-notary/sessions/15", token).body), {"updated_at"});
    };
    const std::string before = updated();
    api.post("/notary/remote-notary/sessions/15/status", tokenOf(notary), {{"status", "scheduled"}});
    const std::string once = updated();
    api.post("/notary/remote-notary/sessions/15/status", tokenOf(notary), {{"status", "scheduled"}});
    EXPECT_LT(before, once);
    EXPECT_LT(once, updated()) << "even within one moment of the clock";
}

TEST_F(Sessions, TheOfficeAssignsANotary)
{
    const std::string office = tokenOf(admin);
    const std::string path = "/admin/remote-notary/sessions/23/assign";
    EXPECT_EQ(api.post(path, office, {{"status", "scheduled"}, {"assigned_notary_id", 99}}).status, 422);
    ASSERT_EQ(
        api.post(path, office,
               {{"status", "scheduled"}, {"confirmed_date", "2031-07-02"}, {"confirmed_time", "9:00 AM"},
                   {"scheduled_date", "2031-07-02"}, {"scheduled_time", "9:00 AM"}, {"proposed_fee", "15"},
                   {"status_note", ""}, {"assigned_notary_id", 3}})
            .status,
        200);
    const Json session = reader::object(api.get("/remote-notary/sessions/23", tokenOf(otherNotary)).body);
    EXPECT_EQ(reader::text(session, {"assigned_notary_name"}), "Marta Kowal");
    EXPECT_EQ(reader::number(session, {"assigned_notary_id"}), 3);

    ASSERT_EQ(api.post(path, office, {{"status", "completed"}}).status, 200);
    EXPECT_EQ(stored("select cast(notary_id as text) from sessions where id = 23"), "3")
        << "saying nothing keeps it";
}
