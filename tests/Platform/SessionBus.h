#pragma once

#include <QDBusConnection>
#include <QProcess>
#include <QStandardPaths>

#include <gtest/gtest.h>

/// A test with a message bus of its own, to which as many programs can connect as it likes.
class SessionBusTest : public testing::Test
{
protected:
    void SetUp() override
    {
        if (QStandardPaths::findExecutable(QStringLiteral("dbus-daemon")).isEmpty())
            GTEST_SKIP() << "there is no dbus-daemon";
        daemon_.start(QStringLiteral("dbus-daemon"),
            {QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--nopidfile"),
                QStringLiteral("--print-address")});
        ASSERT_TRUE(daemon_.waitForReadyRead(-1));
        address_ = QString::fromUtf8(daemon_.readLine()).trimmed();
    }

    void TearDown() override
    {
        for (const QString& name : std::as_const(names_))
            QDBusConnection::disconnectFromBus(name);
        daemon_.kill();
        daemon_.waitForFinished(-1);
    }

    /// The connection of the program with this name, made when it is first asked for.
    QDBusConnection connection(const QString& name)
    {
        names_ += name;
        return QDBusConnection::connectToBus(address_, name);
    }
    const QString& address() const { return address_; }

private:
    QProcess daemon_;
    QString address_;
    QStringList names_;
};
