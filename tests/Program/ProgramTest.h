#pragma once

#include "AppConfig.h"
#include "Platform/SessionBus.h"
#include "support/Await.h"

#include <QDBusConnectionInterface>
#include <QDBusServiceWatcher>
#include <QTemporaryDir>

/// Starts of the real program, on a desktop without a screen and with a home of its own.
class ProgramTest : public SessionBusTest
{
protected:
    void start(QProcess& program, const QStringList& arguments = {}) const
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), address());
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        environment.insert(QStringLiteral("HOME"), home.path());
        for (const QString& variable : {QStringLiteral("XDG_CONFIG_HOME"), QStringLiteral("XDG_DATA_HOME"),
                 QStringLiteral("XDG_CACHE_HOME")})
            environment.insert(variable, home.path());
        environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), home.path());
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
        QDBusConnection bus = connection(QStringLiteral("desktop"));
        bool isOwned = false;
        const QString id = AppConfig::applicationId;
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
