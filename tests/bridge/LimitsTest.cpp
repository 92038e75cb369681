#include "Http/Problem.h"
#include "People/DailyUse.h"
#include "Store/Query.h"
#include "support/Reader.h"
#include "support/RunningBridge.h"

namespace {

RunningBridge::Wishes strict()
{
    RunningBridge::Wishes wishes;
    wishes.daily = {2, 2, 3, 1000};
    return wishes;
}

/// A server that takes little of anybody in a day.
class StrictBridge : public testing::Test
{
protected:
    Reply upload(const std::string& content)
    {
        return api.sendText("POST", "/remote-notary/sessions/13/documents", token, formType,
            formBody({}, {{"a.txt", "text/plain", content}}));
    }

    RunningBridge bridge{strict()};
    Api api = bridge.api();
    std::string token = api.tokenOf("priya.raman@example.com");
    const Json enough{{"message", "That is more than one account may add in a day. Please go on tomorrow."}};
};

} // namespace

TEST_F(StrictBridge, TakesSoManyBookingsOfAnAccountInADay)
{
    const auto book
        = [&](const std::string& who) { return api.post("/remote-notary/sessions", who, bookingBody()); };
    EXPECT_EQ(book(token).status, 201);
    Json invalid = bookingBody();
    invalid.erase("contact_name");
    EXPECT_EQ(api.post("/remote-notary/sessions", token, invalid).status, 422) << "which does not count";
    EXPECT_EQ(book(token).status, 201);
    EXPECT_EQ(book(token).status, 429);
    EXPECT_EQ(book(token).body, enough);
    EXPECT_EQ(book(api.tokenOf("tomas.alder@example.com")).status, 201) << "others are not affected";

    bridge.letPass(std::chrono::days(1));
    EXPECT_EQ(book(api.tokenOf("priya.raman@example.com")).status, 201);
    tidyUp(bridge.service());
    EXPECT_EQ(bridge.service().database.read([&](soci::session& sql) {
        return bridge::usedToday(sql, 1, bridge::Use::Bookings, bridge.service().now());
    }),
        1);
}

TEST_F(StrictBridge, TakesSoManyMessagesOfAnAccountInADay)
{
    const auto say = [&] {
        return api.post("/remote-notary/sessions/13/messages", token, {{"message", "Hello"}}).status;
    };
    EXPECT_EQ(say(), 201);
    EXPECT_EQ(say(), 201);
    EXPECT_EQ(say(), 429);
}

TEST_F(StrictBridge, TakesSoManyDocumentsAndBytesOfAnAccountInADay)
{
    EXPECT_EQ(upload(std::string(300, 'x')).status, 201);
    EXPECT_EQ(upload(std::string(600, 'x')).status, 429) << "the bytes of the day";
    EXPECT_EQ(upload("x").status, 201);
    EXPECT_EQ(upload("x").status, 201);
    EXPECT_EQ(upload("x").body, enough) << "the documents of the day";
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(bridge.data() / "uploads"), {}), 8 + 3);
}

namespace {

using Limits = BridgeTest;

} // namespace

TEST_F(Limits, EveryFieldOfABookingHasALength)
{
    const std::string token = tokenOf(business);
    const std::string tooShort(255, 'x');
    const std::string tooLong(20'001, 'x');
    Json body = bookingBody();
    body["scheduled_by_business"] = true;
    body["client_name"] = "Client";
    for (const char* field : {"contact_name", "contact_email", "contact_phone", "document_type", "notes",
             "remote_signing_details", "preferred_date", "preferred_time", "timezone", "booking_source",
             "document_retrieval_option", "client_name", "client_email", "client_phone"}) {
        Json wrong = body;
        wrong[field] = tooLong;
        const Reply reply = api.post("/remote-notary/sessions", token, wrong);
        EXPECT_EQ(reply.status, 422) << field;
        EXPECT_TRUE(reply.body.at("errors").contains(field)) << reply.text;
    }
    Json signer = body;
    signer["signer_names"] = {"Priya Raman", std::string(256, 'x')};
    EXPECT_EQ(api.post("/remote-notary/sessions", token, signer).status, 422);
    Json padded = body;
    padded["unknown"] = std::string(65 << 10, 'x');
    EXPECT_EQ(api.post("/remote-notary/sessions", token, padded).status, 413) << "the request is kept whole";
}

TEST_F(Limits, AMessageHasALength)
{
    const std::string path = "/remote-notary/sessions/13/messages";
    EXPECT_EQ(api.post(path, tokenOf(client), {{"message", std::string(20'000, 'x')}}).status, 201);
    EXPECT_EQ(api.post(path, tokenOf(client), {{"message", std::string(20'001, 'x')}}).status, 422);
}

TEST_F(Limits, AFormOfManyFieldsStoresThemOnce)
{
    std::vector<std::pair<std::string, std::string>> fields;
    for (int i = 0; i < 400; ++i)
        fields.emplace_back("field" + std::to_string(i) + std::string(100, 'n'), std::string(400, 'v'));
    const std::vector<FormFile> files(500, {"a.txt", "text/plain", "x"});
    const Reply reply = api.sendText(
        "POST", "/remote-notary/sessions/13/documents", tokenOf(client), formType, formBody(fields, files));
    ASSERT_EQ(reply.status, 201) << reply.text;
    const long long kept = std::stoll(stored("select sum(length(fields_json)) from uploads"));
    EXPECT_GT(kept, 400 * 500);
    EXPECT_LT(kept, 400 * 550);
}

TEST_F(Limits, AFormIsCountedWithTheNamesOfItsFields)
{
    struct
    {
        std::string fieldName;
        std::string value;
        std::string fileName;
        int status;
    } const rows[] = {
        {std::string(200, 'n'), "v", "a.txt", 201},
        {std::string(201, 'n'), "v", "a.txt", 400},
        {"document_label", std::string(256, 'v'), "a.txt", 422},
        {"n", std::string(256 << 10, 'v'), "a.txt", 413},
        {"n", "v", std::string(255, 'a'), 201},
        {"n", "v", std::string(256, 'a'), 422},
    };
    for (const auto& row : rows) {
        const Reply reply = api.sendText("POST", "/remote-notary/sessions/13/documents", tokenOf(client),
            formType, formBody({{row.fieldName, row.value}}, {{row.fileName, "text/plain", "x"}}));
        EXPECT_EQ(reply.status, row.status) << reply.text;
    }
    std::vector<std::pair<std::string, std::string>> names;
    for (int i = 0; i < 1400; ++i)
        names.emplace_back(std::to_string(i) + std::string(190, 'n'), "");
    names.resize(999);
    EXPECT_EQ(api.sendText("POST", "/remote-notary/sessions/13/documents", tokenOf(client), formType,
                     formBody(names, {{"a", "a/b", "x"}}))
                  .status,
        201);
}

TEST_F(Limits, FileNamesAreKeptAsTextAndNothingElse)
{
    const Reply reply = api.sendText("POST", "/remote-notary/sessions/13/documents", tokenOf(client),
        formType, formBody({{"document_label", "La\xff-bel"}}, {{"na\xff-me.txt", "text/plain", "x"}}));
    ASSERT_EQ(reply.status, 201);
    const Json document = reader::object(reply.body);
    EXPECT_EQ(reader::text(document, {"original_filename", "file_name"}), "na\uFFFD-me.txt");
    EXPECT_EQ(reader::text(document, {"document_name", "label"}), "La\uFFFD-bel");
}

TEST_F(Limits, NoTextWithAZeroByteReachesTheDatabase)
{
    bridge.service().database.read([](soci::session& sql) {
        bridge::Query query(sql, "select id from users where email = :email");
        EXPECT_THROW(
            query.bind("email", std::string("tomas.alder@example.com\0a", 25)), std::invalid_argument);
    });
    // The address is another one, and not the one before the zero byte.
    const Reply reply = api.post("/auth/password-login", {},
        {{"email", std::string("tomas.alder@example.com\0a", 25)}, {"password", "quorvel-demo"}});
    EXPECT_EQ(reply.status, 400);
    EXPECT_EQ(reply.body, Json({{"error", "INVALID_LOGIN_CREDENTIALS"}}));
}

TEST(LongList, IsTheSameAsAShortOneAndTakesItsShareOfTheBudget)
{
    bridge::AnswerBudget budget(3 << 20);
    const Json row{{"text", std::string(1000, 'x')}};
    Json expected = Json::array();
    bridge::ListText list(budget, "rows");
    for (int i = 0; i < 3000; ++i) {
        EXPECT_TRUE(list.add(row));
        expected.push_back(row);
    }
    list.finish();
    std::string text;
    while (text.size() < list.size())
        text += list.from(text.size());
    EXPECT_EQ(Json::parse(text), Json({{"rows", expected}}));
    EXPECT_THROW(
        {
            bridge::ListText another(budget, "");
            for (int i = 0; i < 3000; ++i)
                another.add(row);
        },
        bridge::Problem);
    budget.take(1 << 20); // what the one that was refused had taken is back
}

TEST(LongList, EndsBeforeItIsLargerThanClientsTake)
{
    bridge::AnswerBudget budget(1 << 30);
    const Json row(std::string(1 << 20, 'x'));
    bridge::ListText list(budget, "");
    std::size_t count = 0;
    while (list.add(row))
        ++count;
    list.finish();
    EXPECT_LE(list.size(), bridge::ListText::largest);
    EXPECT_GT(list.size(), bridge::ListText::largest - (2 << 20));
    EXPECT_EQ(count, 191u);
}

TEST(AnswerBudget, ThatIsUsedUpIsToldAsBusy)
{
    RunningBridge::Wishes wishes;
    wishes.answerMemory = 1 << 20;
    RunningBridge bridge(wishes);
    const std::string token = bridge.api().tokenOf("maya.whitfield@example.com");
    bridge.service().database.write([](soci::session& sql) {
        bridge::Query(sql,
            "insert into walkin_records(status, contact_name, contact_email, contact_phone, document_type,"
            " scheduled_date, scheduled_time, notes, signer_names, source, created_at, updated_at)"
            " with recursive n(i) as (select 1 union all select i + 1 from n where i < 4000)"
            " select '', '', '', '', '', '', '', printf('%.1000c', 'x'), '[]', '', 0, 0 from n")
            .run();
    });
    const Reply reply = bridge.api().get("/admin/records", token);
    EXPECT_EQ(reply.status, 503);
    EXPECT_EQ(reply.header("Retry-After"), "5");
    EXPECT_EQ(reply.body, Json({{"message", "The service is busy. Please try again in a moment."}}));
    EXPECT_EQ(bridge.api().get("/remote-notary/sessions", token).status, 200)
        << "short lists are not affected";
}
