#include "LaunchAtLogin.h"

#include "support/InMemoryDefaults.h"
#include "support/SteadyLoginItem.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class LaunchAtLoginTest : public testing::Test
{
protected:
    int writes() const { return defaults.writes(u"launchAtLogin"_s); }

    InMemoryDefaults defaults;
    SteadyLoginItem item;
};

TEST_F(LaunchAtLoginTest, BeginsWithTheStoredCopy)
{
    EXPECT_FALSE(LaunchAtLogin(defaults, item).isOn.value());
    for (const QString& text : {u"false"_s, u"yes"_s, u"True"_s, u""_s}) {
        defaults.setString(u"launchAtLogin"_s, text);
        EXPECT_FALSE(LaunchAtLogin(defaults, item).isOn.value()) << text.toStdString();
    }
    defaults.setString(u"launchAtLogin"_s, u"true"_s);
    EXPECT_TRUE(LaunchAtLogin(defaults, item).isOn.value());
}

TEST_F(LaunchAtLoginTest, BelievesTheDesktop)
{
    LaunchAtLogin launch(defaults, item);
    launch.refresh();
    EXPECT_EQ(writes(), 0) << "what goes without saying is not stored";
    item.enabled = true;
    launch.refresh();
    launch.refresh();
    EXPECT_TRUE(launch.isOn.value());
    EXPECT_EQ(defaults.string(u"launchAtLogin"_s), u"true"_s);
    EXPECT_EQ(writes(), 1) << "looking writes nothing";
    item.enabled = false;
    launch.refresh();
    EXPECT_FALSE(launch.isOn.value());
    EXPECT_EQ(defaults.string(u"launchAtLogin"_s), u"false"_s);
}

TEST_F(LaunchAtLoginTest, StoresAChoiceAndOnlyWhatTheDesktopDid)
{
    LaunchAtLogin launch(defaults, item);
    EXPECT_TRUE(launch.choose(true));
    EXPECT_TRUE(launch.isOn.value());
    EXPECT_EQ(defaults.string(u"launchAtLogin"_s), u"true"_s);
    item.refuses = true;
    EXPECT_FALSE(launch.choose(false));
    EXPECT_TRUE(launch.isOn.value());
    EXPECT_EQ(defaults.string(u"launchAtLogin"_s), u"true"_s);
}

} // namespace
