#include "ProgramTest.h"

#include "AuthManager.h"
#include "AuthUser.h"
#include "SettingsDefaults.h"

#include <QDir>

#include <csignal>
#include <sys/resource.h>

using namespace Qt::StringLiterals;

namespace {

/// The program with somebody signed in, in a place where others leave core files.
class AbortTest : public ProgramTest
{
protected:
    AbortTest()
    {
        AuthUser user;
        user.localId = u"local"_s;
        user.email = u"ada@example.com"_s;
        user.idToken = u"id-token"_s;
        SettingsDefaults(preferences).setData(AuthManager::userDefaultsKey, user.encoded());
    }

    /// Of any size, as far as the system allows.
    static void prepare(QProcess& process, const QString& folder)
    {
        process.setWorkingDirectory(folder);
        process.setChildProcessModifier([] {
            rlimit limit{};
            getrlimit(RLIMIT_CORE, &limit);
            limit.rlim_cur = limit.rlim_max;
            setrlimit(RLIMIT_CORE, &limit);
        });
    }
    static void abort(QProcess& process)
    {
        kill(pid_t(process.processId()), SIGABRT);
        process.waitForFinished(-1);
        EXPECT_EQ(process.exitStatus(), QProcess::CrashExit);
    }
    static QStringList coresIn(const QString& folder)
    {
        return QDir(folder).entryList({u"*core*"_s}, QDir::Files | QDir::Hidden);
    }
    static QByteArray contentsOf(const QString& path)
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QFile::ReadOnly)) << path.toStdString();
        return file.readAll();
    }

    const QString preferences = home.filePath(u"Quorvel/Quorvel.conf"_s);
    QTemporaryDir folder;
};

TEST_F(AbortTest, LeavesNoCoreFile)
{
    QProcess other;
    prepare(other, folder.path());
    other.start(u"sleep"_s, {u"1000"_s});
    ASSERT_TRUE(other.waitForStarted(-1));
    abort(other);
    if (coresIn(folder.path()).isEmpty())
        GTEST_SKIP() << "no program leaves a core file in its folder here";

    const QTemporaryDir ours;
    QProcess program;
    prepare(program, ours.path());
    start(program, {u"--background"_s});
    waitForOwner();
    abort(program);
    EXPECT_EQ(coresIn(ours.path()), QStringList());
    EXPECT_TRUE(contentsOf(preferences).contains("id-token")) << "somebody was signed in";
}

/// A program to which the system hands core files gets one whatever the limit of its size, but nothing in it.
TEST_F(AbortTest, WouldLeaveNothingInACoreFile)
{
    QProcess program;
    prepare(program, folder.path());
    start(program, {u"--background"_s});
    waitForOwner();
    const QString process = u"/proc/"_s + QString::number(program.processId());
    EXPECT_EQ(contentsOf(process + u"/coredump_filter"_s).trimmed(), "00000000");
    const QByteArray limits = contentsOf(process + u"/limits"_s);
    const qsizetype line = limits.indexOf("Max core file size");
    EXPECT_EQ(
        limits.sliced(line, limits.indexOf('\n', line) - line).simplified(), "Max core file size 0 0 bytes");
    end(program);
}

} // namespace
