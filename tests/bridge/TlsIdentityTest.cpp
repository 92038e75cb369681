#include "Net/TlsIdentity.h"

#include "Store/Files.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <openssl/pem.h>
#include <openssl/x509_vfy.h>

#include <sys/stat.h>

using namespace bridge;
using namespace std::chrono;

namespace {

class TlsIdentityTest : public testing::Test
{
protected:
    void make(Moment moment) { const TlsIdentity identity(tls, moment); }

    std::string read(const char* name) const { return readFile(tls / name); }

    /// Whether a client that trusts this authority takes the server's certificate at a moment.
    bool isTrusted(const std::string& authority, Moment moment) const
    {
        const auto parsed = [](const std::string& text) {
            const std::unique_ptr<BIO, decltype(&BIO_free)> memory(
                BIO_new_mem_buf(text.data(), static_cast<int>(text.size())), BIO_free);
            return std::unique_ptr<X509, decltype(&X509_free)>(
                PEM_read_bio_X509(memory.get(), nullptr, nullptr, nullptr), X509_free);
        };
        const auto trusted = parsed(authority);
        const auto shown = parsed(read("server.pem"));
        const std::unique_ptr<X509_STORE, decltype(&X509_STORE_free)> store(
            X509_STORE_new(), X509_STORE_free);
        X509_STORE_add_cert(store.get(), trusted.get());
        const std::unique_ptr<X509_STORE_CTX, decltype(&X509_STORE_CTX_free)> context(
            X509_STORE_CTX_new(), X509_STORE_CTX_free);
        X509_STORE_CTX_init(context.get(), store.get(), shown.get(), nullptr);
        X509_STORE_CTX_set_time(context.get(), 0, system_clock::to_time_t(moment));
        return X509_verify_cert(context.get()) == 1;
    }

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

TEST_F(TlsIdentityTest, WhatIsNotValidYetIsMadeAnewForTheSameKey)
{
    make(now);
    const std::string authority = read("ca.pem");
    const std::string authorityKey = read("ca.key");
    const std::string server = read("server.pem");
    const Moment before = now - days(2);
    make(before);
    EXPECT_NE(read("ca.pem"), authority);
    EXPECT_EQ(read("ca.key"), authorityKey);
    EXPECT_NE(read("server.pem"), server);
    EXPECT_TRUE(isTrusted(read("ca.pem"), before));
    EXPECT_TRUE(isTrusted(authority, now)) << "whoever has a copy of the old one goes on";
    EXPECT_FALSE(isTrusted(authority, before));
}

TEST_F(TlsIdentityTest, AnAuthorityInItsLastMonthIsRenewedForTheSameKey)
{
    make(now);
    const std::string authority = read("ca.pem");
    const Moment later = now + days(3650 - 30);
    make(later);
    EXPECT_NE(read("ca.pem"), authority);
    EXPECT_TRUE(isTrusted(read("ca.pem"), later + days(800)));
    EXPECT_TRUE(isTrusted(authority, later + days(29)));
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
