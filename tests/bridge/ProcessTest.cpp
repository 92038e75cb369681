#include "support/Child.h"
#include "support/Reader.h"
#include "support/TemporaryFolder.h"

#include "Store/Database.h"
#include "Store/Files.h"
#include "Store/Query.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <iostream>
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

    /// What the accounts have brought today counts for nothing any more.
    void beginAnotherDay() const
    {
        bridge::Database database(folder.path() / "bridge.sqlite");
        database.write([](soci::session& sql) { bridge::Query(sql, "delete from daily_use").run(); });
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

namespace {

/// Writers that send messages and documents as fast as they are answered, until the server is killed under
/// them.
class Writers
{
public:
    /// \param count         how many write at a time
    /// \param acknowledged  how many answers of a round the server lives for
    Writers(int count, std::size_t acknowledged) : count_(count), lifetime_(acknowledged) { }

    /// Kills the server after a number of acknowledgements, while the other writers are at any point of their
    /// writes.
    void writeUntilKilled(Child& child, int round)
    {
        const Api api = child.api();
        const std::string token = api.tokenOf(client);
        std::size_t answered = 0;
        std::vector<std::thread> writers;
        for (int writer = 0; writer < count_; ++writer) {
            writers.emplace_back([&, writer] {
                for (int i = 0;; ++i) {
                    const std::string text
                        = std::to_string(round) + '-' + std::to_string(writer) + '-' + std::to_string(i);
                    const bool isFile = (i + writer) % 3 == 2;
                    const Reply reply = isFile ? sendFile(api, token, text) : sendMessage(api, token, text);
                    if (reply.status != 201)
                        return;
                    const std::lock_guard lock(mutex_);
                    acknowledged_.insert((isFile ? "file " : "message ") + text);
                    if (++answered == lifetime_) {
                        EXPECT_EQ(child.end(SIGKILL), -SIGKILL);
                    }
                }
            });
        }
        for (std::thread& writer : writers)
            writer.join();
        EXPECT_GE(answered, lifetime_) << "round " << round << " ended by itself";
    }

    /// Everything whose writer was told that it is there.
    const std::set<std::string>& acknowledged() const { return acknowledged_; }

private:
    static Reply sendMessage(const Api& api, const std::string& token, const std::string& text)
    {
        return api.post("/remote-notary/sessions/15/messages", token, {{"message", text}});
    }
    static Reply sendFile(const Api& api, const std::string& token, const std::string& text)
    {
        return api.sendText("POST", "/remote-notary/sessions/15/documents", token, formType,
            formBody({}, {{text, "a/b", text}}));
    }

    const int count_;
    const std::size_t lifetime_;
    std::mutex mutex_;
    std::set<std::string> acknowledged_;
};

/// What the server has of the writers' messages and documents, each document with its bytes.
std::set<std::string> foundAt(const Api& api)
{
    const std::string token = api.tokenOf(client);
    std::set<std::string> found;
    for (const Json& message : reader::list(api.get("/remote-notary/sessions/15/messages", token).body))
        found.insert("message " + message["message"].get<std::string>());
    for (const Json& document : reader::list(api.get("/remote-notary/sessions/15/documents", token).body)) {
        const std::string name = reader::text(document, {"original_filename", "file_name"});
        const std::string url = reader::text(document, {"pdf_url", "file_url", "download_url"});
        if (name.find(".pdf") != std::string::npos)
            continue;
        EXPECT_EQ(api.get("/" + url.substr(url.find("/files/"))).text, name);
        found.insert("file " + name);
    }
    return found;
}

int countFromEnvironment(const char* name, int usual)
{
    const char* value = std::getenv(name);
    return value ? std::stoi(value) : usual;
}

} // namespace

/// QUORVEL_BRIDGE_KILLS sets the number of kills, QUORVEL_BRIDGE_WRITERS that of the writers at a time.
TEST_F(Process, KilledInTheMiddleItHasEverythingItAcknowledged)
{
    const int rounds = countFromEnvironment("QUORVEL_BRIDGE_KILLS", 4);
    const int count = countFromEnvironment("QUORVEL_BRIDGE_WRITERS", 4);
    const std::size_t lifetime = std::max<std::size_t>(25, static_cast<std::size_t>(count));
    Writers writers(count, lifetime);
    // As many as an account may bring in a day, far from the limit.
    constexpr std::size_t daily = 1'000;
    std::size_t brought = 0;
    for (int round = 0; round < rounds; ++round) {
        if (writers.acknowledged().size() - brought > daily) {
            brought = writers.acknowledged().size();
            beginAnotherDay();
        }
        Child child(folder.path(), {"--demo"});
        ASSERT_TRUE(child.isListening()) << child.output();
        writers.writeUntilKilled(child, round);
    }
    const std::set<std::string>& acknowledged = writers.acknowledged();
    EXPECT_GE(acknowledged.size(), static_cast<std::size_t>(rounds) * lifetime);

    Child child(folder.path(), {});
    const std::set<std::string> found = foundAt(child.api());
    EXPECT_TRUE(std::includes(found.begin(), found.end(), acknowledged.begin(), acknowledged.end()));
    child.end(SIGTERM);
    EXPECT_EQ(stored("pragma integrity_check"), "ok");
    const std::filesystem::path uploads = folder.path() / "uploads";
    const std::string named = stored("select group_concat(path, char(10)) from uploads") + '\n';
    std::size_t files = 0;
    for (const auto& file : std::filesystem::directory_iterator(uploads)) {
        ++files;
        EXPECT_NE(named.find(file.path().filename().string() + '\n'), std::string::npos)
            << file.path().filename() << " remains of what was not acknowledged";
    }
    EXPECT_EQ(static_cast<std::size_t>(std::count(named.begin(), named.end(), '\n')), files)
        << "a row without its file";
    std::cout << "Acknowledged: " << acknowledged.size() << " writes, all found; "
              << found.size() - acknowledged.size() << " more were there whose answer the kill kept back\n";
}
