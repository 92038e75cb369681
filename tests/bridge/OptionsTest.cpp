#include "Options.h"

#include <gtest/gtest.h>

using namespace bridge;
using Arguments = std::vector<std::string>;

TEST(Options, HaveDefaults)
{
    const Settings settings = *parseOptions({"--data", "/d"});
    EXPECT_EQ(settings.data, "/d");
    EXPECT_EQ(settings.host, "127.0.0.1");
    EXPECT_EQ(settings.port, 8443);
    EXPECT_EQ(settings.idTokenLifetime, std::chrono::hours(1));
    EXPECT_EQ(settings.largestUpload, 4ull << 30);
    EXPECT_EQ(settings.apiKey, "");
    EXPECT_EQ(settings.demoSessions, 0);
    EXPECT_EQ(settings.mostRegistrations, 20);
    EXPECT_FALSE(settings.demo);
    EXPECT_FALSE(settings.verbose);
}

TEST(Options, AreRead)
{
    const Settings settings = *parseOptions({"--demo", "--listen", "[::1]:0", "--data", "a b", "--verbose",
        "--api-key", "k", "--id-token-lifetime", "5", "--max-upload-mb", "3", "--demo-sessions", "7",
        "--registrations-per-hour", "500"});
    EXPECT_EQ(settings.data, "a b");
    EXPECT_EQ(settings.host, "::1");
    EXPECT_EQ(settings.port, 0);
    EXPECT_EQ(settings.idTokenLifetime, std::chrono::seconds(5));
    EXPECT_EQ(settings.largestUpload, 3u << 20);
    EXPECT_EQ(settings.apiKey, "k");
    EXPECT_EQ(settings.demoSessions, 7);
    EXPECT_EQ(settings.mostRegistrations, 500);
    EXPECT_TRUE(settings.demo);
    EXPECT_TRUE(settings.verbose);
}

TEST(Options, HelpIsNoRun)
{
    EXPECT_EQ(parseOptions({"--help"}), std::nullopt);
    EXPECT_NE(usage().find("--data DIR"), std::string::npos);
}

TEST(Options, MistakesAreNamed)
{
    const Arguments mistakes[] = {{}, {"--data"}, {"--data", ""}, {"--data", "d", "--listen", "8443"},
        {"--data", "d", "--listen", ":1"}, {"--data", "d", "--listen", "h:65536"},
        {"--data", "d", "--listen", "h:1x"}, {"--data", "d", "--id-token-lifetime", "0"},
        {"--data", "d", "--max-upload-mb", "-1"}, {"--data", "d", "--colour"}};
    for (const Arguments& mistake : mistakes)
        EXPECT_THROW(parseOptions(mistake), OptionError) << testing::PrintToString(mistake);
}

TEST(Options, TheDemoIsForThisMachineUnlessItIsMeantForOthers)
{
    const auto arguments = [](const std::string& address) {
        return Arguments{"--data", "d", "--demo", "--listen", address};
    };
    for (const char* address : {"127.0.0.1:1", "127.9.9.9:1", "[::1]:1", "localhost:1"})
        EXPECT_TRUE(parseOptions(arguments(address))) << address;
    for (const char* address :
        {"0.0.0.0:1", "[::]:1", "192.168.0.1:1", "example.com:1", "127.1:1", "[::ffff:127.0.0.1]:1"}) {
        EXPECT_THROW(parseOptions(arguments(address)), OptionError) << address;
        Arguments consenting = arguments(address);
        consenting.push_back("--public-demo");
        EXPECT_TRUE(parseOptions(consenting)) << address;
    }
    EXPECT_TRUE(parseOptions({"--data", "d", "--listen", "0.0.0.0:1"})) << "without the demo's accounts";
}
