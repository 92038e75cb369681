#include "Net/TlsIdentity.h"

#include "Store/Files.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

using namespace bridge;
using namespace std::chrono;

namespace {

class TlsIdentityTest : public testing::Test
{
protected:
    void make(Moment moment) { const TlsIdentity identity(tls, moment); }

    std::string read(const char* name) const { return readFile(tls / name); }

    TemporaryFolder folder;
    std::filesystem::path tls = folder.path() / "tls";
    Moment now = sys_days(2030y / January / 1);
};

} // namespace

TEST_F(TlsIdentityTest, IsKeptByTheNextStart)
{
    make(now);
    const std::string authority = read("ca.pem");
    const std::string server = read("server.pem");
    make(now + days(700));
    EXPECT_EQ(read("ca.pem"), authority);
    EXPECT_EQ(read("server.pem"), server);
}

TEST_F(TlsIdentityTest, KeysAreTheOwnersAlone)
{
    make(now);
    for (const char* name : {"ca.key", "server.key"}) {
        struct stat status
        { };
        ASSERT_EQ(::stat((tls / name).c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 0777u, 0600u) << name;
    }
}

TEST_F(TlsIdentityTest, IsRenewedInItsLastMonthByTheSameAuthority)
{
    make(now);
    const std::string authority = read("ca.pem");
    const std::string server = read("server.pem");
    make(now + days(825 - 31));
    EXPECT_EQ(read("server.pem"), server);
    make(now + days(825 - 30));
    EXPECT_NE(read("server.pem"), server);
    EXPECT_EQ(read("ca.pem"), authority);
}

TEST_F(TlsIdentityTest, ANewAuthorityMakesANewCertificate)
{
    make(now);
    const std::string authority = read("ca.pem");
    const std::string server = read("server.pem");
    make(now + days(3650 - 30));
    EXPECT_NE(read("ca.pem"), authority);
    EXPECT_NE(read("server.pem"), server);
}

TEST_F(TlsIdentityTest, WhatIsMissingOrSpoiltIsReplaced)
{
    for (const char* name : {"ca.pem", "ca.key", "server.pem", "server.key"}) {
        make(now);
        const std::string before = read(name);
        replaceFile(tls / name, before.substr(0, before.size() / 2));
        make(now);
        EXPECT_NE(read(name), before);
        EXPECT_GT(read(name).size(), before.size() / 2);
        std::filesystem::remove(tls / name);
        const TlsIdentity identity(tls, now);
        EXPECT_NE(identity.serverContext(), nullptr);
    }
}
