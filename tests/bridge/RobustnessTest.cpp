#include "support/RawConnection.h"
#include "support/Reader.h"
#include "support/RunningBridge.h"

#include <fstream>
#include <sys/socket.h>

namespace {

/// The most memory that this process ever had, in bytes.
std::size_t peakMemory()
{
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.rfind("VmHWM:", 0) == 0)
            return std::stoul(line.substr(6)) << 10;
    }
    return 0;
}

} // namespace

using Robustness = BridgeTest;

TEST_F(Robustness, IdleConnectionsHoldNobodyUp)
{
    const std::string token = tokenOf(client);
    std::vector<std::unique_ptr<Connection>> idle;
    for (int i = 0; i < 300; ++i) {
        idle.push_back(std::make_unique<Connection>(bridge.port()));
        ASSERT_TRUE(idle.back()->isOpen()) << i;
    }
    // With a thread less than there are connections this would wait for a handshake to time out, and the
    // server would have closed some of them.
    EXPECT_EQ(api.get("/profile", token).status, 200);
    char byte = 0;
    for (const auto& connection : idle)
        EXPECT_EQ(::recv(connection->socket(), &byte, 1, MSG_DONTWAIT), -1)
            << "still waiting for its handshake";
}

TEST_F(Robustness, AHandlerThatThrowsTellsNoDetail)
{
    RunningBridge::Wishes wishes;
    wishes.operations = [](bridge::Router& router) {
        router.add("GET", "/throw", bridge::Access::Everybody,
            [](bridge::Call&) { throw std::runtime_error("secret detail"); });
        router.add("GET", "/throw-number", bridge::Access::Everybody, [](bridge::Call&) { throw 7; });
    };
    const RunningBridge throwing(wishes);
    for (const char* path : {"//throw", "//throw-number"}) {
        testing::internal::CaptureStderr();
        const Reply reply = throwing.api().get(path);
        const std::string log = testing::internal::GetCapturedStderr();
        EXPECT_EQ(reply.status, 500);
        EXPECT_EQ(reply.body, Json({{"message", "Something went wrong on our side. Please try again."}}));
        EXPECT_EQ(log.find("secret"), std::string::npos);
        for (const auto& [name, value] : reply.headers)
            EXPECT_EQ((name + value).find("secret"), std::string::npos);
        EXPECT_EQ(throwing.api().get("//").status, 200);
    }
}

TEST_F(Robustness, AnEndlessHeaderLineIsCutOff)
{
    const std::size_t before = peakMemory();
    RawConnection connection(bridge.port());
    connection.send("GET / HTTP/1.1\r\nX-Long: ");
    const std::string piece(64 << 10, 'x');
    std::size_t sent = 0;
    while (sent < 200u << 20 && connection.send(piece))
        sent += piece.size();
    EXPECT_LT(sent, 200u << 20);
    EXPECT_LT(peakMemory() - before, 16u << 20);
    EXPECT_EQ(api.get("//").status, 200);
}

TEST_F(Robustness, ALargeUploadTakesLittleMemory)
{
    const std::string token = tokenOf(client);
    const std::string form = formBody({}, {{"a.bin", "a/b", ""}});
    const std::size_t behind = form.find("\r\n\r\n") + 4;
    const std::string piece(64 << 10, 'x');
    constexpr std::size_t pieces = 400;
    const std::size_t before = peakMemory();
    const auto result = api.client()->Post(
        "/mobile-bridge/v1/remote-notary/sessions/13/documents",
        {{"Authorization", "Bearer " + token}, {"Content-Type", formType}},
        form.size() + pieces * piece.size(),
        [&](std::size_t, std::size_t, httplib::DataSink& sink) {
            sink.write(form.data(), behind);
            for (std::size_t i = 0; i < pieces; ++i)
                sink.write(piece.data(), piece.size());
            return sink.write(form.data() + behind, form.size() - behind);
        },
        formType);
    ASSERT_TRUE(result) << httplib::to_string(result.error());
    EXPECT_EQ(result->status, 201) << result->body;
    EXPECT_EQ(
        stored("select cast(max(byte_size) as text) from uploads"), std::to_string(pieces * piece.size()));
    EXPECT_LT(peakMemory() - before, 8u << 20);
}

TEST_F(Robustness, CountlessHeadersAreRefused)
{
    RawConnection connection(bridge.port());
    connection.send("GET / HTTP/1.1\r\n");
    connection.flood("X-Name: y\r\n", 2 << 20);
    const std::string answers = connection.readAll();
    EXPECT_EQ(answers.rfind("HTTP/1.1 400", 0), 0u) << answers;
    EXPECT_EQ(answers.find("HTTP/1.1", 1), std::string::npos) << answers;
    EXPECT_EQ(api.get("//").status, 200);
}

TEST_F(Robustness, HeadersWithinTheBoundsAreRead)
{
    RawConnection connection(bridge.port());
    std::string request = "GET / HTTP/1.1\r\nConnection: close\r\n";
    for (int i = 0; i < 150; ++i)
        request += "X-" + std::to_string(i) + ": " + std::string(300, 'y') + "\r\n";
    ASSERT_TRUE(connection.send(request + "\r\n"));
    EXPECT_EQ(connection.readAll().rfind("HTTP/1.1 200", 0), 0u);
}

TEST_F(Robustness, ALongJsonBodyIsRefusedStatedOrInChunks)
{
    const std::string token = tokenOf(client);
    const std::string long_text = "{\"notes\":\"" + std::string(1 << 20, 'x') + "\"}";
    const Reply stated = api.sendText("POST", "/profile", token, "application/json", long_text);
    EXPECT_EQ(stated.status, 413);
    EXPECT_EQ(stated.body, Json({{"message", "That request is too large."}}));

    const auto connection = api.client();
    bool isSent = false;
    const auto chunked = connection->Post(
        "/mobile-bridge/v1/profile", {{"Authorization", "Bearer " + token}},
        [&](std::size_t, httplib::DataSink& sink) {
            if (isSent)
                sink.done();
            else
                sink.write(long_text.data(), long_text.size());
            isSent = true;
            return true;
        },
        "application/json");
    ASSERT_TRUE(chunked);
    EXPECT_EQ(chunked->status, 413);
}

TEST_F(Robustness, WhatIsNoJsonObjectIsRefused)
{
    const std::string token = tokenOf(client);
    for (const char* body : {"{", "[]", "1", "\"text\"", "{\"a\":}", "\xff", "nul"}) {
        const Reply reply = api.sendText("POST", "/profile", token, "application/json", body);
        EXPECT_EQ(reply.status, 400) << body;
        EXPECT_EQ(reply.body, Json({{"message", "The request could not be read."}}));
    }
    const std::string deep(500'000, '[');
    EXPECT_EQ(api.sendText("POST", "/profile", token, "application/json", "{\"name\":" + deep).status, 400);
    EXPECT_EQ(api.sendText("POST", "/profile", token, "application/json",
                     "{\"email\":\"a@b.cd\",\"x\":" + deep + std::string(500'000, ']') + "}")
                  .status,
        400);
}

TEST_F(Robustness, AConnectionServesManyRequests)
{
    const auto connection = api.client();
    const httplib::Headers headers{{"Authorization", "Bearer " + tokenOf(client)}};
    for (int i = 0; i < 150; ++i) {
        const auto result = connection->Get("/mobile-bridge/v1/profile", headers);
        ASSERT_TRUE(result) << i;
        EXPECT_EQ(result->status, 200);
    }
}

TEST_F(Robustness, TlsBefore12IsRefused)
{
    const std::unique_ptr<SSL_CTX, decltype(&SSL_CTX_free)> context(
        SSL_CTX_new(TLS_client_method()), SSL_CTX_free);
    SSL_CTX_set_security_level(context.get(), 0);
    SSL_CTX_set_max_proto_version(context.get(), TLS1_1_VERSION);
    const std::unique_ptr<SSL, decltype(&SSL_free)> ssl(SSL_new(context.get()), SSL_free);
    const Connection connection(bridge.port());
    SSL_set_fd(ssl.get(), connection.socket());
    EXPECT_NE(SSL_connect(ssl.get()), 1);
}

TEST_F(Robustness, ManyWritersAtOnceLoseNothing)
{
    const std::string token = tokenOf(client);
    constexpr int writers = 8;
    constexpr int each = 12;
    std::atomic<int> failures = 0;
    std::vector<std::thread> threads;
    for (int writer = 0; writer < writers; ++writer) {
        threads.emplace_back([&] {
            for (int i = 0; i < each; ++i) {
                if (api.post("/remote-notary/sessions", token, bookingBody()).status != 201)
                    ++failures;
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(failures, 0);
    EXPECT_EQ(stored("select cast(count(*) as text) from sessions"), std::to_string(25 + writers * each));
    EXPECT_EQ(stored("select cast(count(distinct reference_id) as text) from sessions"),
        std::to_string(25 + writers * each));
    EXPECT_EQ(stored("pragma integrity_check"), "ok");
}

TEST_F(Robustness, OfManyNotariesAtOnceOneGetsTheCall)
{
    const std::string tokens[] = {tokenOf(notary), tokenOf(otherNotary), tokenOf(admin)};
    for (const int call : {23, 24, 25}) {
        std::atomic<int> accepted = 0;
        std::atomic<int> refused = 0;
        std::vector<std::thread> threads;
        for (const std::string& token : tokens) {
            threads.emplace_back([&] {
                const int status
                    = api.post("/notary/open-calls/" + std::to_string(call) + "/accept", token).status;
                accepted += status == 200;
                refused += status == 409;
            });
        }
        for (std::thread& thread : threads)
            thread.join();
        EXPECT_EQ(accepted, 1);
        EXPECT_EQ(refused, 2);
    }
}

TEST(Log, HasPathsAndNothingThatPeopleWrote)
{
    RunningBridge::Wishes wishes;
    wishes.verbose = true;
    testing::internal::CaptureStderr();
    std::vector<std::string> secrets{"quorvel-demo", "a secret message"};
    {
        const RunningBridge bridge(wishes);
        const Api api = bridge.api();
        const Json tokens = api.signIn("priya.raman@example.com").body["firebase"];
        api.renew(tokens["refreshToken"]);
        api.post("/remote-notary/sessions/15/messages", tokens["idToken"], {{"message", "a secret message"}});
        const Json document
            = reader::list(api.get("/remote-notary/sessions/15/documents", tokens["idToken"]).body).front();
        const std::string url = reader::text(document, {"pdf_url"});
        api.get("/" + url.substr(url.find("/files/")));
        secrets.insert(secrets.end(),
            {tokens["idToken"], tokens["refreshToken"], url.substr(url.find("key=") + 4), "priya.raman"});
    }
    const std::string log = testing::internal::GetCapturedStderr();
    EXPECT_NE(log.find("POST /mobile-bridge/v1/remote-notary/sessions/15/messages 201\n"), std::string::npos)
        << log;
    for (const std::string& secret : secrets)
        EXPECT_EQ(log.find(secret), std::string::npos) << log;
}

TEST(Log, HasALineForARequestWhateverItsPathHolds)
{
    RunningBridge::Wishes wishes;
    wishes.verbose = true;
    testing::internal::CaptureStderr();
    {
        const RunningBridge bridge(wishes);
        bridge.api().get("//a%0aGET%20/forged%20200%0d%1b[2Jb%00c%ff");
    }
    const std::string log = testing::internal::GetCapturedStderr();
    EXPECT_EQ(std::count(log.begin(), log.end(), '\n'), 1) << log;
    EXPECT_NE(log.find("GET /a\\x0aGET /forged 200\\x0d\\x1b[2Jb\\x00c\\xff 404"), std::string::npos) << log;
}

TEST_F(Robustness, TheWebsiteIsAPage)
{
    const Reply page = api.get("//");
    EXPECT_EQ(page.status, 200);
    EXPECT_EQ(page.header("Content-Type"), "text/html; charset=utf-8");
    EXPECT_NE(page.text.find("Quorvel"), std::string::npos);
}

TEST_F(Robustness, TwoServersDoNotShareAFolder)
{
    bridge::Settings settings = bridge.service().settings;
    EXPECT_THROW(bridge::Bridge second(settings), std::runtime_error);
}
