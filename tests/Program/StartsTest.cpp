#include "Platform/SessionBus.h"
#include "support/Await.h"

#include <QDBusConnectionInterface>
#include <QDBusServiceWatcher>
#include <QDir>
#include <QTemporaryDir>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

const QString id = u"app.quorvel.Quorvel"_s;

/// Starts of the real program, on a desktop without a screen and with a home of its own.
class StartsTest : public SessionBusTest
{
protected:
    void start(QProcess& program, const QStringList& arguments = {}) const
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, address());
        environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
        environment.insert(u"HOME"_s, home.path());
        for (const QString& variable : {u"XDG_CONFIG_HOME"_s, u"XDG_DATA_HOME"_s, u"XDG_CACHE_HOME"_s})
            environment.insert(variable, home.path());
        environment.insert(u"XDG_RUNTIME_DIR"_s, home.path());
        program.setProcessEnvironment(environment);
        program.start(QStringLiteral(QUORVEL_PROGRAM), arguments);
    }
    static int exitCodeOf(QProcess& program)
    {
        program.waitForFinished(-1);
        return program.exitStatus() == QProcess::NormalExit ? program.exitCode() : -1;
    }
    /// Waits until a program has the name on the bus.
    void waitForOwner()
    {
        QDBusConnection bus = connection(u"desktop"_s);
        bool isOwned = false;
        QDBusServiceWatcher watcher(id, bus, QDBusServiceWatcher::WatchForRegistration);
        QObject::connect(
            &watcher, &QDBusServiceWatcher::serviceRegistered, &watcher, [&isOwned] { isOwned = true; });
        isOwned = isOwned || bus.interface()->isServiceRegistered(id);
        runUntil([&isOwned] { return isOwned; });
    }
    static void end(QProcess& program)
    {
        program.kill();
        program.waitForFinished(-1);
    }

    QTemporaryDir home;
};

TEST_F(StartsTest, FurtherStartsEndWellAndTheFirstGoesOn)
{
    QProcess first;
    start(first);
    waitForOwner();
    for (const QStringList& arguments : {QStringList(), QStringList{u"--background"_s},
             QStringList{u"--action=sessions"_s}, QStringList{u"--action=book-remote-notary"_s}}) {
        QProcess further;
        start(further, arguments);
        EXPECT_EQ(exitCodeOf(further), 0) << arguments.join(u' ').toStdString();
        EXPECT_EQ(first.state(), QProcess::Running);
    }
    end(first);
    for (const QString& folder : {u"Quorvel"_s, u"autostart"_s})
        EXPECT_FALSE(QDir(home.filePath(folder)).exists()) << "nobody has chosen anything";
}

TEST_F(StartsTest, AStartInTheBackgroundIsTheProgramToo)
{
    QProcess first;
    start(first, {u"--background"_s});
    waitForOwner();
    QProcess further;
    start(further);
    EXPECT_EQ(exitCodeOf(further), 0);
    EXPECT_EQ(first.state(), QProcess::Running);
    end(first);
}

TEST_F(StartsTest, QuestionsAreAnsweredWhileItRuns)
{
    QProcess first;
    start(first);
    waitForOwner();
    for (const auto& [option, beginning] :
        {std::pair(u"--version"_s, "Quorvel "), {u"--help"_s, "Usage: quorvel "}}) {
        QProcess program;
        start(program, {option});
        EXPECT_EQ(exitCodeOf(program), 0);
        EXPECT_THAT(program.readAllStandardOutput().toStdString(), testing::StartsWith(beginning));
    }
    end(first);
}

TEST_F(StartsTest, WhatItDoesNotUnderstandItRefuses)
{
    for (const QString& argument : {u"--bogus"_s, u"--action=settings"_s, u"deed.pdf"_s}) {
        QProcess program;
        start(program, {argument});
        EXPECT_EQ(exitCodeOf(program), 2) << argument.toStdString();
        EXPECT_THAT(
            program.readAllStandardError().toStdString(), testing::HasSubstr("quorvel: There is no "));
    }
}

} // namespace
