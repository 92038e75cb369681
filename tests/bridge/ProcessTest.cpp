#include "support/Child.h"
#include "support/Reader.h"
#include "support/TemporaryFolder.h"

#include "Store/Database.h"
#include "Store/Files.h"
#include "Store/Query.h"

#include <gtest/gtest.h>

#include <csignal>
#include <mutex>
#include <set>
#include <sys/resource.h>
#include <sys/stat.h>
#include <thread>

namespace {

constexpr const char* client = "priya.raman@example.com";

class Process : public testing::Test
{
protected:
    std::string stored(const std::string& query) const
    {
        bridge::Database database(folder.path() / "bridge.sqlite");
        return database.read([&](soci::session& sql) {
            std::string value;
            bridge::Query(sql, query).into(value).next();
            return value;
        });
    }

    TemporaryFolder folder;
};

} // namespace

TEST_F(Process, EndsWellWhenAskedTo)
{
    for (const int signal : {SIGTERM, SIGINT}) {
        Child child(folder.path(), {});
        ASSERT_TRUE(child.isListening()) << child.output();
        EXPECT_EQ(child.api().get("//").status, 200);
        EXPECT_EQ(child.end(signal), 0);
    }
}

TEST_F(Process, TellsTheDemoAccountsAndLetsThemIn)
{
    Child child(folder.path(), {"--demo"});
    ASSERT_TRUE(child.isListening()) << child.output();
    for (const char* email :
        {client, "maya.whitfield@example.com", "helen.brandt@example.com", "samuel.adeyemi@example.com"})
        EXPECT_NE(child.output().find(email), std::string::npos);
    EXPECT_NE(child.output().find("quorvel-demo"), std::string::npos);
    EXPECT_EQ(child.api().signIn(client).status, 200);
}

TEST_F(Process, WithoutDemoItIsEmpty)
{
    Child child(folder.path(), {});
    EXPECT_EQ(child.api().signIn(client).status, 400);
    EXPECT_EQ(child.output().find("quorvel-demo"), std::string::npos);
    child.end(SIGTERM);
    EXPECT_EQ(stored("select cast(count(*) as text) from users"), "0");
}

TEST_F(Process, TheNextStartKeepsDataAndCertificate)
{
    std::string refreshToken;
    std::string certificate;
    {
        Child child(folder.path(), {"--demo"});
        const Json tokens = child.api().signIn(client).body["firebase"];
        refreshToken = tokens["refreshToken"];
        EXPECT_EQ(child.api().post("/remote-notary/sessions", tokens["idToken"], bookingBody()).status, 201);
        certificate = bridge::readFile(folder.path() / "tls" / "server.pem");
        EXPECT_EQ(child.end(SIGTERM), 0);
    }
    Child child(folder.path(), {"--demo"});
    EXPECT_EQ(bridge::readFile(folder.path() / "tls" / "server.pem"), certificate);
    const Reply renewed = child.api().renew(refreshToken);
    ASSERT_EQ(renewed.status, 200);
    EXPECT_EQ(
        reader::list(child.api().get("/remote-notary/sessions", renewed.body["id_token"]).body).size(), 10u);
}

TEST_F(Process, MoreSessionsForMeasurementsOnRequest)
{
    Child child(folder.path(), {"--demo", "--demo-sessions", "200"});
    const Api api = child.api();
    EXPECT_EQ(reader::list(api.get("/remote-notary/sessions", api.tokenOf(client)).body).size(), 209u);
    const std::string notary = api.tokenOf("samuel.adeyemi@example.com");
    EXPECT_EQ(reader::list(api.get("/remote-notary/sessions?scope=notary_open", notary).body).size(), 3u);
}

TEST_F(Process, EverythingItWritesIsTheOwnersAlone)
{
    Child child(folder.path(), {"--demo"});
    ASSERT_TRUE(child.isListening());
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.path())) {
        struct stat status
        { };
        ASSERT_EQ(::stat(entry.path().c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 077u, 0u) << entry.path();
    }
}

TEST_F(Process, MistakesEndItWithWords)
{
    Child unknown(folder.path(), {"--colour"});
    EXPECT_FALSE(unknown.isListening());
    EXPECT_NE(unknown.output().find("--colour"), std::string::npos);
    EXPECT_NE(unknown.output().find("Usage"), std::string::npos);
    EXPECT_EQ(unknown.end(SIGTERM), 2);

    Child first(folder.path(), {});
    Child second(folder.path(), {});
    EXPECT_FALSE(second.isListening());
    EXPECT_NE(second.output().find("Another server uses"), std::string::npos);
    EXPECT_EQ(second.end(SIGTERM), 1);
}

TEST_F(Process, AFullDiskIsToldAndHurtsNothing)
{
    {
        Child child(folder.path(), {"--demo"});
        const Api api = child.api();
        const std::string token = api.tokenOf(client);
        const std::string messages = "/remote-notary/sessions/15/messages";
        const auto upload = [&](std::size_t size) {
            return api
                .sendText("POST", "/remote-notary/sessions/15/documents", token, formType,
                    formBody({}, {{"a", "a/b", std::string(size, 'x')}}))
                .status;
        };
        child.limitFiles(2 << 20);
        EXPECT_EQ(upload(3 << 20), 507);
        EXPECT_EQ(upload(1 << 20), 201);
        child.limitFiles(1);
        EXPECT_EQ(upload(100), 507);
        EXPECT_EQ(api.post(messages, token, {{"message", "lost"}}).status, 500);
        EXPECT_EQ(reader::list(api.get(messages, token).body).size(), 2u) << "reading goes on";
        child.limitFiles(RLIM_INFINITY);
        EXPECT_EQ(api.post(messages, token, {{"message", "kept"}}).status, 201);
        EXPECT_EQ(child.end(SIGTERM), 0);
    }
    EXPECT_EQ(stored("pragma integrity_check"), "ok");
    EXPECT_EQ(stored("select cast(count(*) as text) from messages where session_id = 15"), "3");
    EXPECT_EQ(stored("select cast(count(*) as text) from uploads where session_id = 15"), "2");
}

TEST_F(Process, KilledInTheMiddleItHasEverythingItAcknowledged)
{
    std::set<std::string> acknowledged;
    for (int round = 0; round < 4; ++round) {
        Child child(folder.path(), {"--demo"});
        ASSERT_TRUE(child.isListening()) << child.output();
        const Api api = child.api();
        const std::string token = api.tokenOf(client);
        std::mutex mutex;
        std::atomic<bool> isOver = false;
        std::vector<std::thread> writers;
        for (int writer = 0; writer < 4; ++writer) {
            writers.emplace_back([&, writer] {
                for (int i = 0; !isOver; ++i) {
                    const std::string text
                        = std::to_string(round) + '-' + std::to_string(writer) + '-' + std::to_string(i);
                    const bool isFile = i % 3 == 2;
                    const Reply reply = isFile
                        ? api.sendText("POST", "/remote-notary/sessions/15/documents", token, formType,
                            formBody({}, {{text, "a/b", text}}))
                        : api.post("/remote-notary/sessions/15/messages", token, {{"message", text}});
                    if (reply.status != 201)
                        return;
                    const std::lock_guard lock(mutex);
                    acknowledged.insert((isFile ? "file " : "message ") + text);
                    // After a number of acknowledgements, while the others are at any point of their writes.
                    if (acknowledged.size() == static_cast<std::size_t>(25 * (round + 1))) {
                        EXPECT_EQ(child.end(SIGKILL), -SIGKILL);
                        isOver = true;
                    }
                }
            });
        }
        for (std::thread& writer : writers)
            writer.join();
    }

    Child child(folder.path(), {});
    const Api api = child.api();
    const std::string token = api.tokenOf(client);
    std::set<std::string> found;
    for (const Json& message : reader::list(api.get("/remote-notary/sessions/15/messages", token).body))
        found.insert("message " + message["message"].get<std::string>());
    const std::vector<Json> documents
        = reader::list(api.get("/remote-notary/sessions/15/documents", token).body);
    for (const Json& document : documents) {
        const std::string name = reader::text(document, {"original_filename", "file_name"});
        const std::string url = reader::text(document, {"pdf_url", "file_url", "download_url"});
        if (name.find(".pdf") != std::string::npos)
            continue;
        EXPECT_EQ(api.get("/" + url.substr(url.find("/files/"))).text, name);
        found.insert("file " + name);
    }
    EXPECT_TRUE(std::includes(found.begin(), found.end(), acknowledged.begin(), acknowledged.end()));
    EXPECT_GE(acknowledged.size(), 100u);

    child.end(SIGTERM);
    EXPECT_EQ(stored("pragma integrity_check"), "ok");
    const std::filesystem::directory_iterator files(folder.path() / "uploads");
    EXPECT_EQ(std::to_string(std::distance(begin(files), end(files))),
        stored("select cast(count(*) as text) from uploads"))
        << "no remains of what was not acknowledged";
}
