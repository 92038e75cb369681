#include "support/Reader.h"
#include "support/RunningBridge.h"

namespace {

class Assignment : public BridgeTest
{
protected:
    bool lists(const std::string& scope, const std::string& token, long long id) const
    {
        const Reply reply = api.get("/remote-notary/sessions?scope=" + scope, token);
        EXPECT_EQ(reply.status, 200) << reply.text;
        return !reader::withId(reader::list(reply.body), {"id", "session_id"}, id).is_null();
    }

    int assign(int session, const Json& data) const
    {
        return api
            .post(
                "/admin/remote-notary/sessions/" + std::to_string(session) + "/assign", tokenOf(admin), data)
            .status;
    }

    /// The statuses that a session has had, each with its note and the account that set it.
    std::string history(int session)
    {
        return stored("select group_concat(status || '/' || note || '/' || coalesce(user_id, '-'), '; ')"
                      " from (select * from status_history where session_id = "
            + std::to_string(session) + " order by id)");
    }
};

const Json scheduled{
    {"status", "scheduled"}, {"confirmed_date", "2031-07-02"}, {"confirmed_time", "9:00 AM"}};

Json scheduledFor(int notary)
{
    Json data = scheduled;
    data["assigned_notary_id"] = notary;
    return data;
}

} // namespace

TEST_F(Assignment, ReachesTheNotaryAndLeavesTheOpenCalls)
{
    const std::string first = tokenOf(notary);
    const std::string second = tokenOf(otherNotary);
    EXPECT_TRUE(lists("notary_open", first, 23));
    EXPECT_FALSE(lists("notary_assigned", second, 23));
    ASSERT_EQ(assign(23, scheduledFor(3)), 200);
    EXPECT_TRUE(lists("notary_assigned", second, 23));
    EXPECT_FALSE(lists("notary_open", first, 23));
    EXPECT_FALSE(lists("notary_open", second, 23));
    EXPECT_EQ(api.get("/remote-notary/sessions/23", first).status, 404);
    EXPECT_EQ(api.post("/notary/open-calls/23/accept", first).status, 409);

    // The client sees who it is.
    const Json session = reader::object(api.get("/remote-notary/sessions/23", tokenOf(otherClient)).body);
    EXPECT_EQ(reader::text(session, {"assigned_notary_name"}), "Marta Kowal");
}

TEST_F(Assignment, ToAnotherNotaryEndsTheRightsOfTheFirst)
{
    const std::string first = tokenOf(notary);
    const std::string second = tokenOf(otherNotary);
    ASSERT_EQ(assign(15, scheduledFor(3)), 200);
    EXPECT_FALSE(lists("notary_assigned", first, 15));
    EXPECT_TRUE(lists("notary_assigned", second, 15));
    for (const char* path : {"", "/messages", "/documents"})
        EXPECT_EQ(api.get("/remote-notary/sessions/15" + std::string(path), first).status, 404) << path;
    EXPECT_EQ(api.post("/notary/remote-notary/sessions/15/status", first, scheduled).status, 404);
    EXPECT_EQ(api.post("/notary/remote-notary/sessions/15/status", second, scheduled).status, 200);
    EXPECT_EQ(api.post("/remote-notary/sessions/15/messages", second, {{"message", "Hello"}}).status, 201);
}

TEST_F(Assignment, WithAnUnknownNotaryChangesNothing)
{
    const std::string before = stored("select updated_at || status || notary_id from sessions where id = 15");
    for (const Json& number : {Json(99), Json(0), Json(-1), Json("x"), Json(nullptr)}) {
        Json data{{"status", "completed"}};
        data["assigned_notary_id"] = number;
        EXPECT_EQ(assign(15, data), 422) << number;
    }
    EXPECT_EQ(stored("select updated_at || status || notary_id from sessions where id = 15"), before);
}

TEST_F(Assignment, MayNameTheNotaryInText)
{
    ASSERT_EQ(assign(23, {{"status", "scheduled"}, {"assigned_notary_id", "3"}}), 200);
    EXPECT_TRUE(lists("notary_assigned", tokenOf(otherNotary), 23));
}

TEST_F(Assignment, AnAcceptedCallIsTheNotarysAndNobodyElsesCall)
{
    const std::string first = tokenOf(notary);
    ASSERT_EQ(api.post("/notary/open-calls/24/accept", first).status, 200);
    EXPECT_TRUE(lists("notary_assigned", first, 24));
    EXPECT_FALSE(lists("notary_open", first, 24));
    EXPECT_FALSE(lists("notary_open", tokenOf(otherNotary), 24));
    EXPECT_TRUE(lists("admin_all", tokenOf(admin), 24));
}

TEST_F(Assignment, ARefusedAcceptChangesNothing)
{
    ASSERT_EQ(api.post("/notary/open-calls/24/accept", tokenOf(notary)).status, 200);
    const std::string before = stored("select updated_at || status || notary_id from sessions where id = 24");
    const std::string past = history(24);
    EXPECT_EQ(api.post("/notary/open-calls/24/accept", tokenOf(otherNotary)).status, 409);
    EXPECT_EQ(stored("select updated_at || status || notary_id from sessions where id = 24"), before);
    EXPECT_EQ(history(24), past);
}

TEST_F(Assignment, EveryStatusIsRememberedWithItsNoteAndItsAuthor)
{
    const std::string person = tokenOf(notary);
    const std::string status = "/notary/remote-notary/sessions/24/status";
    ASSERT_EQ(api.post("/notary/open-calls/24/accept", person).status, 200);
    ASSERT_EQ(api.post(status, person, {{"status", "rescheduled"}, {"status_note", "Moved."}}).status, 200);
    ASSERT_EQ(
        api.post(status, person, {{"status", "rescheduled"}, {"confirmed_time", "1:00 PM"}}).status, 200)
        << "another time is no other status";
    ASSERT_EQ(api.post(status, person, {{"status", "rescheduled"}, {"status_note", "Twice."}}).status, 200);
    ASSERT_EQ(assign(24, {{"status", "completed"}, {"status_note", ""}}), 200);
    ASSERT_EQ(api.post("/admin/records/24", tokenOf(admin),
                     {{"record_type", "remote"}, {"data", {{"status", "COMPLETED"}, {"notes", "Paid."}}}})
                  .status,
        200)
        << "nor is another note of the office";
    ASSERT_EQ(api.post("/admin/records/24", tokenOf(admin),
                     {{"record_type", "remote"}, {"data", {{"status", "cancelled"}}}})
                  .status,
        200);
    EXPECT_EQ(history(24),
        "pending//6; scheduled//3; rescheduled/Moved./3; rescheduled/Twice./3; completed//4; cancelled//4");
}

TEST_F(Assignment, TheHistoryBeginsWithTheBookingAndStaysWithoutItsAuthors)
{
    const int id = int(book(tokenOf(otherClient)));
    EXPECT_EQ(history(id), "requested//5");
    ASSERT_EQ(
        api.post("/remote-notary/sessions/" + std::to_string(id) + "/cancel", tokenOf(otherClient)).status,
        200);
    ASSERT_EQ(api.remove("/admin/users/5", tokenOf(admin)).status, 200);
    EXPECT_EQ(history(id), "requested//-; cancelled//-");
    ASSERT_EQ(api.remove("/admin/records/" + std::to_string(id), tokenOf(admin), {{"record_type", "remote"}})
                  .status,
        200);
    EXPECT_EQ(
        stored("select cast(count(*) as text) from status_history where session_id = " + std::to_string(id)),
        "0");
}
