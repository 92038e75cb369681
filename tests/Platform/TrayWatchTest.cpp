#include "TrayWatch.h"

#include "SessionBus.h"
#include "support/Await.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>

using namespace Qt::StringLiterals;

/// A bus on which trays come and go.
class TrayWatchTest : public SessionBusTest
{
protected:
    const QString tray = u"org.kde.StatusNotifierWatcher"_s;

    /// Lets the watch see everything that has happened on the bus.
    void settle()
    {
        bool isAnswered = false;
        QDBusConnection client = connection(u"client"_s);
        QDBusMessage question = QDBusMessage::createMethodCall(
            u"org.freedesktop.DBus"_s, u"/"_s, u"org.freedesktop.DBus"_s, u"GetId"_s);
        const QDBusPendingCallWatcher asking(client.asyncCall(question));
        QObject::connect(&asking, &QDBusPendingCallWatcher::finished, &asking, [&] { isAnswered = true; });
        runUntil([&] { return isAnswered; });
    }
};

/// Counts what it is told.
struct Witness
{
    explicit Witness(const TrayWatch& watch)
    {
        QObject::connect(&watch, &TrayWatch::found, &watch, [this] { ++times; });
    }

    int times = 0;
};

TEST_F(TrayWatchTest, FindsATrayThatIsThere)
{
    ASSERT_TRUE(connection(u"desktop"_s).registerService(tray));
    const TrayWatch watch(connection(u"client"_s));
    const Witness witness(watch);
    EXPECT_EQ(witness.times, 0) << "not before the event loop";
    runUntil([&] { return witness.times > 0; });
}

TEST_F(TrayWatchTest, FindsATrayThatComesLater)
{
    const TrayWatch watch(connection(u"client"_s));
    const Witness witness(watch);
    settle();
    EXPECT_EQ(witness.times, 0);
    ASSERT_TRUE(connection(u"desktop"_s).registerService(u"org.example.NoTray"_s));
    settle();
    EXPECT_EQ(witness.times, 0);
    ASSERT_TRUE(connection(u"desktop"_s).registerService(tray));
    runUntil([&] { return witness.times > 0; });
}

TEST_F(TrayWatchTest, TellsOfItOnce)
{
    QDBusConnection desktop = connection(u"desktop"_s);
    ASSERT_TRUE(desktop.registerService(tray));
    const TrayWatch watch(connection(u"client"_s));
    const Witness witness(watch);
    runUntil([&] { return witness.times > 0; });
    ASSERT_TRUE(desktop.unregisterService(tray));
    ASSERT_TRUE(desktop.registerService(tray));
    settle();
    EXPECT_EQ(witness.times, 1);
}

TEST(TrayWatchWithoutABus, FindsNothing)
{
    const TrayWatch watch(QDBusConnection(u"no such bus"_s));
    const Witness witness(watch);
    QCoreApplication::processEvents();
    EXPECT_EQ(witness.times, 0);
}
