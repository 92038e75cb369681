#include "Privacy.h"

#include "support/Child.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <sys/stat.h>

namespace fs = std::filesystem;

static unsigned modeOf(const fs::path& path)
{
    struct stat status
    { };
    EXPECT_EQ(::stat(path.c_str(), &status), 0) << path;
    return status.st_mode & 07777u;
}

TEST(Privacy, AStartTakesEverybodyElsesAccessAway)
{
    const TemporaryFolder folder;
    const fs::path data = folder.path() / "data";
    const char* const names[] = {"", "bridge.sqlite", "lock", "uploads", "tls", "tls/ca.pem", "tls/ca.key",
        "tls/server.pem", "tls/server.key"};
    for (int start = 0; start < 2; ++start) {
        Child child(data, {"--demo"});
        ASSERT_TRUE(child.isListening()) << child.output();
        for (const char* name : names)
            EXPECT_EQ(modeOf(data / name) & 077u, 0u) << name;
        EXPECT_EQ(child.end(SIGTERM), 0);
        for (const char* name : names)
            ASSERT_EQ(::chmod((data / name).c_str(), modeOf(data / name) | 055), 0);
    }
}

TEST(Privacy, WhatTheOwnerMayDoStays)
{
    const TemporaryFolder folder;
    ::chmod(folder.path().c_str(), 0750);
    bridge::keepForOwner(folder.path());
    EXPECT_EQ(modeOf(folder.path()), 0700u);
    bridge::keepForOwner(folder.path());
    EXPECT_EQ(modeOf(folder.path()), 0700u);
}

TEST(Privacy, AFolderThatEverybodySharesIsNoDataFolder)
{
    const TemporaryFolder folder;
    ::chmod(folder.path().c_str(), 01777);
    EXPECT_THROW(bridge::keepForOwner(folder.path()), std::runtime_error);
    EXPECT_EQ(modeOf(folder.path()), 01777u) << "and it stays as it is";
}
