#include "Store/Query.h"
#include "support/RunningBridge.h"

#include <future>

namespace {

/// What happens to an account while the body of its request is on its way.
enum class Loss
{
    Role, ///< the office makes a client of it
    SignIn, ///< its password is changed elsewhere
    Account, ///< it is deleted
};

struct Request
{
    const char* name;
    /// Who asks, and may as long as nothing is lost.
    const char* email;
    const char* method;
    const char* path;
    std::string body;
    /// The status once the role is gone; a client keeps what every account may do.
    int withoutRole;
    std::string contentType = "application/json";
};

void PrintTo(const Request& request, std::ostream* stream)
{
    *stream << request.name;
}

constexpr const char* notary = "samuel.adeyemi@example.com";
constexpr const char* business = "helen.brandt@example.com";
constexpr const char* client = "priya.raman@example.com";
/// An admin who is made for these tests, so that another is left to take the role away.
constexpr const char* admin = "tomas.alder@example.com";

std::string text(const Json& body)
{
    return body.dump();
}

const Json appointment{{"status", "confirmed"}, {"confirmed_date", "2031-06-01"}};
const Json remote{{"record_type", "remote"}, {"source", "remote_notary_sessions"}};
const Json newContact{
    {"name", "Somebody Else"}, {"full_name", "Somebody Else"}, {"email", "else@example.com"}};
Json scheduledBooking()
{
    Json body = bookingBody();
    body["scheduled_by_business"] = true;
    body["client_name"] = "A Client";
    body["client_email"] = "a.client@example.com";
    return body;
}

/// The operations that read a body; the others have answered before anything can be taken.
const Request requests[] = {
    {"UpdateProfile", notary, "POST", "/profile", text({{"full_name", "Another Name"}}), 200},
    {"UpdateProfileOfAnAdmin", admin, "POST", "/profile", text({{"full_name", "Another Name"}}), 200},
    {"ChangePassword", notary, "POST", "/profile/password",
        text({{"current_password", "quorvel-demo"}, {"new_password", "another one"}}), 200},
    {"Book", client, "POST", "/remote-notary/sessions", text(bookingBody()), 201},
    {"BookForAClient", business, "POST", "/remote-notary/sessions", text(scheduledBooking()), 403},
    {"SendMessage", notary, "POST", "/remote-notary/sessions/15/messages", text({{"message", "Hello"}}), 404},
    {"Upload", notary, "POST", "/remote-notary/sessions/15/documents",
        formBody({}, {{"a.txt", "text/plain", "hello"}}), 404, formType},
    {"UpdateAppointment", notary, "POST", "/notary/remote-notary/sessions/15/status", text(appointment), 403},
    {"Assign", admin, "POST", "/admin/remote-notary/sessions/15/assign", text(appointment), 403},
    {"SaveRecord", admin, "POST", "/admin/records/15", text(remote), 403},
    {"DeleteRecord", admin, "DELETE", "/admin/records/15", text(remote), 403},
    {"MakeAnAdmin", admin, "POST", "/admin/users/1", text({{"role", "admin"}}), 403},
    {"SaveNotary", admin, "POST", "/admin/notaries/1", text(newContact), 403},
};

class Rights : public testing::TestWithParam<Request>
{
protected:
    Rights() { change("update users set role = 'admin' where email = '" + std::string(admin) + "'"); }

    void change(const std::string& statement)
    {
        bridge.service().database.write([&](soci::session& sql) { bridge::Query(sql, statement).run(); });
    }

    void take(Loss loss)
    {
        const std::string who = std::string("email = '") + GetParam().email + "'";
        const std::string id = "(select id from users where " + who + ")";
        switch (loss) {
        case Loss::Role:
            change("update notaries set user_id = null, active = 0 where user_id = " + id);
            change("update users set role = 'client' where " + who);
            break;
        case Loss::SignIn:
            change("delete from sign_ins where user_id = " + id);
            break;
        case Loss::Account:
            change("delete from users where " + who);
            break;
        }
    }

    /// Sends the request but for its last byte, takes something from its sender, and sends the rest.
    int statusAfter(Loss loss)
    {
        const Request& request = GetParam();
        const std::string token = bridge.api().tokenOf(request.email);
        httplib::Request sent;
        sent.method = request.method;
        sent.path = std::string("/mobile-bridge/v1") + request.path;
        sent.headers = {{"Authorization", "Bearer " + token}, {"Content-Type", request.contentType}};
        sent.content_length_ = request.body.size();
        sent.content_provider_ = [&](std::size_t offset, std::size_t, httplib::DataSink& sink) {
            if (offset == 0)
                return sink.write(request.body.data(), request.body.size() - 1);
            // The server has let the request in and waits for the rest of its body.
            admitted.get_future().wait();
            take(loss);
            before = everything();
            return sink.write(&request.body.back(), 1);
        };
        const httplib::Result result = bridge.api().client()->send(sent);
        EXPECT_TRUE(result) << httplib::to_string(result.error());
        return result ? result->status : 0;
    }

    std::string everything()
    {
        const char* query
            = "select coalesce((select group_concat(id || status || updated_at) from sessions), '')"
              " || coalesce((select group_concat(id || full_name || email || role || password_hash) from "
              "users), '')"
              " || coalesce((select group_concat(id || name || active) from notaries), '')"
              " || ' ' || (select count(*) from messages) || ' ' || (select count(*) from uploads)";
        return bridge.service().database.read([query](soci::session& sql) {
            std::string all;
            bridge::Query(sql, query).into(all).next();
            return all;
        });
    }

    std::string roleOf(const std::string& email)
    {
        return bridge.service().database.read([&](soci::session& sql) {
            std::string role;
            bridge::Query query(sql, "select role from users where email = :email");
            query.bind("email", email).into(role).next();
            return role;
        });
    }

    RunningBridge::Wishes wishes()
    {
        RunningBridge::Wishes wishes;
        wishes.operations = [this](bridge::Router& router) {
            router.setDoorkeeper([this](bridge::Call& call) {
                bridge.service().read(call, [](soci::session&, const bridge::Account&) {});
                admitted.set_value();
            });
        };
        return wishes;
    }

    std::promise<void> admitted;
    std::string before;
    RunningBridge bridge{wishes()};
};

} // namespace

TEST_P(Rights, HoldAsLongAsNothingIsTaken)
{
    const Request& request = GetParam();
    const Api api = bridge.api();
    const Reply reply = api.sendText(
        request.method, request.path, api.tokenOf(request.email), request.contentType, request.body);
    EXPECT_GE(reply.status, 200) << reply.text;
    EXPECT_LT(reply.status, 300) << reply.text;
}

TEST_P(Rights, OfARoleEndWhileTheBodyIsOnItsWay)
{
    const int status = statusAfter(Loss::Role);
    EXPECT_EQ(status, GetParam().withoutRole);
    if (status >= 300) {
        EXPECT_EQ(everything(), before);
    }
    EXPECT_EQ(roleOf(GetParam().email), "client") << "nobody gives a role back to himself";
}

TEST_P(Rights, EndWithTheSignInWhileTheBodyIsOnItsWay)
{
    EXPECT_EQ(statusAfter(Loss::SignIn), 401);
    EXPECT_EQ(everything(), before);
}

TEST_P(Rights, EndWithTheAccountWhileTheBodyIsOnItsWay)
{
    EXPECT_EQ(statusAfter(Loss::Account), 401);
    EXPECT_EQ(everything(), before);
}

INSTANTIATE_TEST_SUITE_P(
    Every, Rights, testing::ValuesIn(requests), [](const auto& row) { return row.param.name; });

TEST(Operation, ThatForgetsToAskWhoCallsItAnswersNobody)
{
    RunningBridge::Wishes wishes;
    wishes.operations = [](bridge::Router& router) {
        router.add("GET", "/forgetful", bridge::Access::Admin, [](bridge::Call& call) {
            call.answer({{"secret", "of the office"}});
        });
    };
    const RunningBridge bridge(wishes);
    const Reply reply = bridge.api().get("//forgetful", bridge.api().tokenOf("maya.whitfield@example.com"));
    EXPECT_EQ(reply.status, 500);
    EXPECT_EQ(reply.text.find("secret"), std::string::npos);
}

namespace {

using PresentRights = BridgeTest;

} // namespace

TEST_F(PresentRights, ABusinessIsLeftWithItsRole)
{
    const std::string token = tokenOf("helen.brandt@example.com");
    const std::string session = "/remote-notary/sessions/21";
    ASSERT_EQ(api.get(session, token).status, 200);
    bridge.service().database.write([](soci::session& sql) {
        bridge::Query(sql, "update users set role = 'client' where email = 'helen.brandt@example.com'").run();
        // Who booked it for the business would see it in any case.
        bridge::Query(sql, "update sessions set owner_id = null where id = 21").run();
    });
    EXPECT_EQ(api.get(session, token).status, 404);
    EXPECT_EQ(api.post(session + "/messages", token, {{"message", "Hello"}}).status, 404);
    EXPECT_FALSE(api.get("/profile", token).text.find("Brandt Title") != std::string::npos);
}

TEST_F(PresentRights, AStrangersChangeIsRefusedWithoutWaitingForThoseOfOthers)
{
    bridge.service().database.write([this](soci::session&) {
        EXPECT_EQ(api.post("/remote-notary/sessions/15/cancel", {}).status, 401);
        EXPECT_EQ(api.remove("/admin/users/6", {}).status, 401);
    });
}
