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
    EXPECT_FALSE(settings.demo);
    EXPECT_FALSE(settings.verbose);
}

TEST(Options, AreRead)
{
    const Settings settings = *parseOptions({"--demo", "--listen", "[::1]:0", "--data", "a b", "--verbose",
        "--api-key", "k", "--id-token-lifetime", "5", "--max-upload-mb", "3", "--demo-sessions", "7"});
    EXPECT_EQ(settings.data, "a b");
    EXPECT_EQ(settings.host, "::1");
    EXPECT_EQ(settings.port, 0);
    EXPECT_EQ(settings.idTokenLifetime, std::chrono::seconds(5));
    EXPECT_EQ(settings.largestUpload, 3u << 20);
    EXPECT_EQ(settings.apiKey, "k");
    EXPECT_EQ(settings.demoSessions, 7);
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
