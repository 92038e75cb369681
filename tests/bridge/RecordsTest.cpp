#include "support/Reader.h"
#include "support/RunningBridge.h"

namespace {

class Records : public BridgeTest
{
protected:
    static std::string typeOf(const Json& record)
    {
        return reader::text(record, {"record_type", "type"}, "remote");
    }

    static std::string sourceOf(const Json& record)
    {
        return reader::text(record, {"source"},
            typeOf(record) == "walkin" ? "remote notary camera photos" : "remote_notary_sessions");
    }

    Json find(const std::string& type, long long id)
    {
        for (const Json& record : reader::list(api.get("/admin/records", token).body)) {
            if (typeOf(record) == type && reader::number(record, {"id", "session_id", "record_id"}) == id)
                return record;
        }
        return nullptr;
    }

    /// What the edit pane of a client shows of a record.
    static Json shown(const Json& record)
    {
        return {{"status",
                    reader::text(record, {"status"}, typeOf(record) == "walkin" ? "complete" : "requested")},
            {"contact_name", reader::text(record, {"contact_name", "client_name", "name"})},
            {"contact_email", reader::text(record, {"contact_email", "client_email", "email"})},
            {"contact_phone", reader::text(record, {"contact_phone", "client_phone", "phone"})},
            {"document_type", reader::text(record, {"document_type", "document_types"})},
            {"scheduled_date", reader::text(record, {"scheduled_date", "preferred_date"})},
            {"scheduled_time", reader::text(record, {"scheduled_time", "preferred_time"})},
            {"notes", reader::text(record, {"notes", "admin_notes"})}};
    }

    std::string token = tokenOf(admin);
};

} // namespace

TEST_F(Records, ListsSessionsAndWalkIns)
{
    std::map<std::string, int> counts;
    for (const Json& record : reader::list(api.get("/admin/records", token).body))
        ++counts[typeOf(record)];
    EXPECT_EQ(counts, (std::map<std::string, int>{{"remote", 25}, {"walkin", 6}}));
    const std::vector<std::string> names[]
        = {{"Rosa Jimenez"}, {"Victor Chen", "Mei Chen"}, {"Amara Diallo"}};
    for (int id = 1; id <= 3; ++id) {
        const Json record = find("walkin", id);
        EXPECT_EQ(reader::signerNames(record), names[id - 1]);
        EXPECT_EQ(shown(record)["contact_name"], names[id - 1].front());
        EXPECT_EQ(shown(record)["status"], "complete");
        EXPECT_NE(shown(record)["scheduled_date"], "");
    }
}

TEST_F(Records, KeepsWhatIsSavedInEveryVariant)
{
    for (const char* type : {"remote", "walkin"}) {
        for (const int id : {2, 3, 4, 5, 6}) {
            const Json before = find(type, id);
            const Json data{{"status", "rescheduled"}, {"contact_name", "New Name"},
                {"contact_email", "new@example.com"}, {"contact_phone", "555"}, {"document_type", "Other"},
                {"scheduled_date", "2031-09-01"}, {"scheduled_time", "1:00 PM"}, {"notes", "New notes"}};
            const Json body{{"record_type", typeOf(before)}, {"source", sourceOf(before)}, {"data", data}};
            ASSERT_EQ(api.post("/admin/records/" + std::to_string(id), token, body).status, 200);
            const Json after = find(type, id);
            EXPECT_EQ(shown(after), data) << after;
            EXPECT_NE(reader::text(after, {"updated_at"}), reader::text(before, {"updated_at"}));
            EXPECT_EQ(reader::signerNames(after), reader::signerNames(before));
        }
    }
}

TEST_F(Records, TheTypeChoosesBetweenTwoOfTheSameNumber)
{
    const Json data{{"status", "cancelled"}, {"notes", "only here"}};
    ASSERT_EQ(api.post("/admin/records/4", token,
                     {{"record_type", "walkin"}, {"source", "remote notary camera photos"}, {"data", data}})
                  .status,
        200);
    EXPECT_EQ(shown(find("walkin", 4))["notes"], "only here");
    EXPECT_EQ(shown(find("remote", 4))["notes"], "");
    ASSERT_EQ(api.remove("/admin/records/4", token, {{"record_type", "WalkIn"}, {"source", ""}}).status, 200);
    EXPECT_TRUE(find("walkin", 4).is_null());
    EXPECT_FALSE(find("remote", 4).is_null());
    ASSERT_EQ(api.remove("/admin/records/4", token,
                     {{"record_type", "remote"}, {"source", "remote_notary_sessions"}})
                  .status,
        200);
    EXPECT_TRUE(find("remote", 4).is_null());
}

TEST_F(Records, RefusesWhatItCannotPlace)
{
    EXPECT_EQ(api.remove("/admin/records/4", token).status, 422);
    EXPECT_EQ(api.remove("/admin/records/4", token, {{"record_type", "fax"}}).status, 422);
    EXPECT_EQ(api.remove("/admin/records/999", token, {{"record_type", "walkin"}}).status, 404);
    EXPECT_EQ(api.remove("/admin/records/999", token, {{"record_type", "remote"}}).status, 404);
    EXPECT_EQ(
        api.post("/admin/records/999", token, {{"record_type", "walkin"}, {"data", {{"notes", "x"}}}}).status,
        404);
    EXPECT_EQ(
        api.post("/admin/records/0", token, {{"record_type", "remote"}, {"data", {{"notes", "x"}}}}).status,
        404);
    EXPECT_EQ(api.post("/admin/records/4", token, {{"record_type", "remote"}, {"data", {{"status", "lost"}}}})
                  .status,
        422);
    EXPECT_EQ(reader::list(api.get("/admin/records", token).body).size(), 31u);
}
