// What a start makes of the folder that it is given.

#include "support/TemporaryFolder.h"

#include "Operations/Service.h"
#include "People/Accounts.h"
#include "Store/Files.h"
#include "Store/Query.h"
#include "Work/UploadStore.h"

#include <gmock/gmock.h>

#include <fstream>

namespace {

namespace fs = std::filesystem;

class Start : public testing::Test
{
protected:
    bridge::Settings settings() const
    {
        bridge::Settings settings;
        settings.data = folder.path();
        settings.passwordCost = bridge::PasswordCost::Lowest;
        return settings;
    }
    void start() const { const bridge::Service service(settings()); }

    fs::path uploads() const { return folder.path() / "uploads"; }
    fs::path lost() const { return folder.path() / "lost"; }
    static void write(const fs::path& file)
    {
        fs::create_directories(file.parent_path());
        std::ofstream(file) << file.filename().string();
    }
    static std::vector<std::string> names(const fs::path& in)
    {
        std::vector<std::string> names;
        if (fs::exists(in)) {
            for (const auto& entry : fs::directory_iterator(in))
                names.push_back(entry.path().filename().string());
        }
        return names;
    }

    TemporaryFolder folder;
};

const std::string ours = "AbCdEfGhIjKlMnOpQrStUv-_";

struct Found
{
    std::string name;
    bool isSetAside;
};

class Unknown : public Start, public testing::WithParamInterface<Found>
{ };

TEST_P(Unknown, IsSetAsideOnlyWhenItIsOurs)
{
    start();
    write(uploads() / GetParam().name);
    start();
    const std::vector<std::string> one{GetParam().name};
    EXPECT_EQ(names(lost()), GetParam().isSetAside ? one : std::vector<std::string>());
    EXPECT_EQ(names(uploads()), GetParam().isSetAside ? std::vector<std::string>() : one);
    const fs::path where = (GetParam().isSetAside ? lost() : uploads()) / GetParam().name;
    EXPECT_EQ(bridge::readFile(where), GetParam().name) << "whole";
}

INSTANTIATE_TEST_SUITE_P(Files, Unknown,
    testing::Values(Found{ours, true}, Found{ours + ".part", true}, Found{"thesis.odt", false},
        Found{ours + "x", false}, Found{ours.substr(1), false}, Found{ours + ".pdf", false},
        Found{ours + ".part.part", false}, Found{"." + ours.substr(1), false}, Found{".part", false}));

TEST_F(Start, LeavesFoldersAndLinksAmongTheDocumentsAlone)
{
    start();
    write(uploads() / "folder" / "inside");
    fs::create_directory(uploads() / ours);
    const fs::path elsewhere = folder.path() / "elsewhere";
    write(elsewhere);
    const std::string link = ours.substr(0, 23) + "L";
    fs::create_symlink(elsewhere, uploads() / link);
    start();
    EXPECT_THAT(names(uploads()), testing::UnorderedElementsAre("folder", ours, link));
    EXPECT_EQ(names(lost()), std::vector<std::string>());
    EXPECT_TRUE(fs::exists(elsewhere));
}

TEST_F(Start, KeepsEveryDocumentThatARowNames)
{
    write(folder.path() / ours);
    write(folder.path() / (ours.substr(1) + "0"));
    bridge::setAsideUnknown(folder.path(), {ours}, lost());
    EXPECT_EQ(names(lost()), std::vector<std::string>{ours.substr(1) + "0"});
    EXPECT_TRUE(fs::exists(folder.path() / ours));
}

TEST_F(Start, RefusesDocumentsWithoutTheirDatabase)
{
    for (const bool hasEmptyDatabase : {false, true}) {
        write(uploads() / ours);
        if (hasEmptyDatabase)
            std::ofstream(folder.path() / "bridge.sqlite").flush();
        try {
            start();
            ADD_FAILURE() << "it has made a database of its own";
        } catch (const std::runtime_error& refusal) {
            EXPECT_EQ(std::string(refusal.what()),
                "There are files in " + uploads().string() + ", but "
                    + (folder.path() / "bridge.sqlite").string()
                    + " is missing. Put the database back, or move the files away to begin anew.");
        }
        EXPECT_EQ(names(uploads()), std::vector<std::string>{ours});
    }
}

TEST_F(Start, FindsTheDocumentsAgainOnceTheDatabaseIsBack)
{
    start();
    const std::string database = bridge::readFile(folder.path() / "bridge.sqlite");
    fs::remove(folder.path() / "bridge.sqlite");
    write(uploads() / ours);
    EXPECT_THROW(start(), std::runtime_error);
    std::ofstream(folder.path() / "bridge.sqlite", std::ios::binary) << database;
    EXPECT_NO_THROW(start());
}

/// So that a full disk keeps nobody from what is on it.
TEST_F(Start, WritesNothingIntoADatabaseThatIsUpToDate)
{
    const fs::path file = folder.path() / "bridge.sqlite";
    {
        const bridge::Database first(file);
    }
    const std::string before = bridge::readFile(file);
    const bridge::Database second(file);
    EXPECT_EQ(bridge::readFile(file), before);
    const fs::path journal = file.string() + "-wal";
    EXPECT_TRUE(!fs::exists(journal) || fs::file_size(journal) == 0);
}

} // namespace

TEST_F(Start, KeepsTheSignInsOfADatabaseThatKnewNoAgesOfTokens)
{
    const std::string refreshToken = [this] {
        bridge::Service service(settings());
        return service.database.write([&](soci::session& sql) {
            const auto id = bridge::openAccount(sql, {"a@b.cd", "hash", "A", "", "", ""}, service.now());
            const std::string token = service.signIns.begin(sql, id.value()).refreshToken;
            for (const char* statement : {"drop table daily_use", "drop index refresh_tokens_of_sign_in",
                     "drop index id_tokens_of_sign_in", "drop index id_tokens_by_end",
                     "drop index sign_ins_of_user", "alter table refresh_tokens drop column issued_at",
                     "alter table refresh_tokens drop column id_token", "pragma user_version = 1"})
                sql << statement;
            return token;
        });
    }();
    bridge::Service service(settings());
    service.database.write([&](soci::session& sql) {
        long long version = 0;
        bridge::Query(sql, "pragma user_version").into(version).next();
        EXPECT_EQ(version, 2);
        service.signIns.purge(sql);
        EXPECT_TRUE(service.signIns.renew(sql, refreshToken).has_value());
    });
}
