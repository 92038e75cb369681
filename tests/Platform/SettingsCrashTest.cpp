#include "SettingsChildren.h"
#include "SettingsDefaults.h"

#include <QCoreApplication>
#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <random>
#include <regex>

using namespace Qt::StringLiterals;

/// Preferences saved by another process, which is killed or has no room.
class SettingsCrash : public testing::Test
{
protected:
    /// Runs the child to its end.
    void run(const QStringList& arguments)
    {
        child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        child.start(QCoreApplication::applicationFilePath(),
            QStringList{QString::fromLatin1(childOption)} + arguments);
        ASSERT_TRUE(child.waitForFinished(-1));
    }

    QTemporaryDir folder;
    QProcess child;
};

/// Killed anywhere, the record on disk is the last one that was reported saved, or the one after it. The
/// number of rounds is QUORVEL_KILL_ROUNDS.
TEST_F(SettingsCrash, LeavesTheOldOrTheNewRecordWhole)
{
    bool isNumber = false;
    const int wanted = qEnvironmentVariableIntValue("QUORVEL_KILL_ROUNDS", &isNumber);
    const int rounds = isNumber ? wanted : 60;
    constexpr int longest = 30'000; // microseconds
    const QString file = folder.filePath(u"Quorvel/Quorvel.conf"_s);
    std::mt19937 random(4711);
    int last = 0;
    for (int round = 0; round < rounds; ++round) {
        run({u"save"_s, file, QString::number(1 + random() % longest)});
        if (child.exitStatus() == QProcess::NormalExit && child.exitCode() == childCannot)
            GTEST_SKIP() << "the system does not let a process time its own end";
        ASSERT_EQ(child.exitStatus(), QProcess::CrashExit);
        const QList<QByteArray> reported = child.readAllStandardOutput().trimmed().split('\n');
        if (const int newest = reported.last().toInt(); newest > 0)
            last = newest;
        const auto record = SettingsDefaults(file).data(recordKey());
        if (last == 0 && !record)
            continue;
        ASSERT_TRUE(record);
        const auto number = numberOf(*record);
        ASSERT_TRUE(number) << "round " << round << ": the record is not whole";
        EXPECT_TRUE(*number == last || *number == last + 1) << *number << " after " << last;
        last = *number;
    }
    EXPECT_GT(last, 0);
    SettingsDefaults(file).setData(recordKey(), numberedRecord(1));
    EXPECT_EQ(QDir(folder.filePath(u"Quorvel"_s)).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
        QStringList(u"Quorvel.conf"_s));
}

/// A disk with hardly any room, or one that nobody may write to.
class SettingsOnABadDisk : public SettingsCrash, public testing::WithParamInterface<std::string>
{ };

TEST_P(SettingsOnABadDisk, LoseNothingAndKeepNothingThatIsToGo)
{
    run({QString::fromStdString(GetParam()), folder.path()});
    if (child.exitCode() == childCannot)
        GTEST_SKIP() << "this user cannot mount a small disk";
    EXPECT_EQ(child.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(child.exitCode(), 0);
}

INSTANTIATE_TEST_SUITE_P(Tasks, SettingsOnABadDisk,
    testing::Values("full-disk", "forget-on-full-disk", "read-only-disk"),
    [](const auto& task) { return std::regex_replace(task.param, std::regex("-"), ""); });

TEST_F(SettingsCrash, KeepsTheOldRecordWhereFilesCannotGrow)
{
    run({u"short-files"_s, folder.path()});
    EXPECT_EQ(child.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(child.exitCode(), 0);
}
