#include "Net/Peer.h"

#include "support/RawConnection.h"
#include "support/RunningBridge.h"

using namespace std::chrono_literals;

namespace {

class Peers : public BridgeTest
{
protected:
    /// The status of an answer to a body that comes from an address of this machine.
    std::string post(const std::string& source, const std::string& path, const Json& body)
    {
        const std::string text = body.dump();
        RawConnection connection(bridge.port(), source);
        connection.send("POST /mobile-bridge/v1" + path + " HTTP/1.1\r\nConnection: close\r\nContent-Length: "
            + std::to_string(text.size()) + "\r\n\r\n" + text);
        return connection.readAll().substr(9, 3);
    }

    std::string signInFrom(const std::string& source, const std::string& password)
    {
        return post(source, "/auth/password-login", {{"email", client}, {"password", password}});
    }

    std::string registerFrom(const std::string& source)
    {
        ++registered;
        return post(source, "/auth/client-register",
            {{"name", "A"}, {"email", "new" + std::to_string(registered) + "@b.cd"}, {"password", "123456"}});
    }

    int registered = 0;
};

} // namespace

TEST(Peer, IsAnAddressOrTheNetworkOfOne)
{
    const struct
    {
        const char* address;
        const char* peer;
    } rows[] = {
        {"192.0.2.7", "192.0.2.7"},
        {"::ffff:192.0.2.7", "192.0.2.7"},
        {"2001:db8:1:2:3:4:5:6", "2001:db8:1:2::/64"},
        {"2001:db8:1:2::1", "2001:db8:1:2::/64"},
        {"2001:db8:1:3::1", "2001:db8:1:3::/64"},
        {"::1", "::/64"},
        {"", ""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(bridge::peerOf(row.address), row.peer) << row.address;
}

TEST_F(Peers, NobodyKeepsAnOwnerFromSigningIn)
{
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(signInFrom("127.0.0.2", "wrong"), "400");
    for (int i = 0; i < 20; ++i)
        EXPECT_EQ(signInFrom("127.0.0.2", "wrong"), "429");
    EXPECT_EQ(signInFrom("127.0.0.2", "quorvel-demo"), "429");
    EXPECT_EQ(signInFrom("127.0.0.3", "quorvel-demo"), "200");
}

TEST_F(Peers, AClockThatIsSetBackLocksNobodyOut)
{
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(signInFrom("127.0.0.2", "wrong"), "400");
    bridge.setClockBack(1h);
    bridge.letPass(1s);
    EXPECT_EQ(signInFrom("127.0.0.2", "quorvel-demo"), "200");
}

TEST_F(Peers, OpenTwentyAccountsInAnHour)
{
    for (int i = 0; i < 20; ++i)
        ASSERT_EQ(registerFrom("127.0.0.2"), "201") << i;
    EXPECT_EQ(registerFrom("127.0.0.2"), "429");
    EXPECT_EQ(stored("select cast(count(*) as text) from users where email like 'new%'"), "20");
    EXPECT_EQ(registerFrom("127.0.0.3"), "201");
    bridge.letPass(1h + 1ms);
    EXPECT_EQ(registerFrom("127.0.0.2"), "201");
}

TEST_F(Peers, MistakesInARegistrationDoNotCount)
{
    for (int i = 0; i < 25; ++i)
        EXPECT_EQ(post("127.0.0.2", "/auth/client-register", {{"name", "A"}}), "422");
    EXPECT_EQ(registerFrom("127.0.0.2"), "201");
}
