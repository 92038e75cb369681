#include "PortalAppearance.h"

#include "SessionBus.h"
#include "support/Await.h"

#include <QDBusContext>
#include <QDBusMessage>
#include <QDBusVariant>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

const QString serviceName = u"org.freedesktop.portal.Desktop"_s;
const QString objectPath = u"/org/freedesktop/portal/desktop"_s;
const QString interfaceName = u"org.freedesktop.portal.Settings"_s;
const QString appearance = u"org.freedesktop.appearance"_s;
const QString colorScheme = u"color-scheme"_s;
const QString contrast = u"contrast"_s;
const QString gnome = u"org.gnome.desktop.a11y.interface"_s;
const QString gnomeContrast = u"high-contrast"_s;

} // namespace

/// A desktop's settings portal, of an age of our choice.
class FakePortal : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    enum class Age
    {
        Old,
        New,
        Empty
    };

    explicit FakePortal(Age age) : age_(age) { }

    uint scheme = 0;
    uint contrastWanted = 0;
    std::optional<bool> gnomeContrastWanted; ///< not known to other desktops
    int asked = 0;

public slots:
    QDBusVariant Read(const QString& group, const QString& key)
    {
        return QDBusVariant(QVariant::fromValue(answer(Age::Old, group, key)));
    }
    QDBusVariant ReadOne(const QString& group, const QString& key) { return answer(Age::New, group, key); }

private:
    QDBusVariant answer(Age age, const QString& group, const QString& key)
    {
        ++asked;
        if (age != age_)
            sendErrorReply(QDBusError::UnknownMethod);
        else if (group == gnome && key == gnomeContrast && gnomeContrastWanted)
            return QDBusVariant(*gnomeContrastWanted);
        else if (group != appearance || (key != colorScheme && key != contrast))
            sendErrorReply(QDBusError::InvalidArgs);
        return QDBusVariant(key == contrast ? contrastWanted : scheme);
    }

    const Age age_;
};

/// A bus on which the desktop and the client see each other.
class PortalAppearanceTest : public SessionBusTest
{
protected:
    void provide(FakePortal& portal)
    {
        QDBusConnection desktop = connection(u"desktop"_s);
        ASSERT_TRUE(desktop.registerObject(objectPath, &portal, QDBusConnection::ExportAllSlots));
        ASSERT_TRUE(desktop.registerService(serviceName));
    }

    void announce(const QString& group, const QString& key, const QVariant& value)
    {
        QDBusMessage signal = QDBusMessage::createSignal(objectPath, interfaceName, u"SettingChanged"_s);
        signal.setArguments({group, key, QVariant::fromValue(QDBusVariant(value))});
        connection(u"desktop"_s).send(signal);
    }
};

TEST_F(PortalAppearanceTest, AsksWithoutWaiting)
{
    for (const auto age : {FakePortal::Age::Old, FakePortal::Age::New}) {
        FakePortal portal(age);
        portal.scheme = 1;
        provide(portal);
        PortalAppearance system(connection(u"client"_s));
        int changes = 0;
        QObject::connect(&system, &SystemAppearance::changed, &system, [&changes] { ++changes; });
        EXPECT_FALSE(system.isDark());
        EXPECT_EQ(portal.asked, 0);
        runUntil([&system] { return system.isDark(); });
        EXPECT_EQ(changes, 1);
    }
}

TEST_F(PortalAppearanceTest, FollowsTheDesktop)
{
    FakePortal portal(FakePortal::Age::Old);
    portal.scheme = 1;
    provide(portal);
    PortalAppearance system(connection(u"client"_s));
    runUntil([&system] { return system.isDark(); });
    announce(appearance, colorScheme, 2U);
    runUntil([&system] { return !system.isDark(); });
    announce(appearance, colorScheme, 1U);
    runUntil([&system] { return system.isDark(); });
    announce(appearance, colorScheme, 0U);
    runUntil([&system] { return !system.isDark(); });
}

TEST_F(PortalAppearanceTest, IgnoresOtherSettingsAndStrangeValues)
{
    FakePortal portal(FakePortal::Age::Old);
    provide(portal);
    PortalAppearance system(connection(u"client"_s));
    int changes = 0;
    QObject::connect(&system, &SystemAppearance::changed, &system, [&changes] { ++changes; });
    runUntil([&portal] { return portal.asked == 4; });
    announce(u"org.gnome.desktop.interface"_s, colorScheme, 1U);
    announce(appearance, u"accent-color"_s, 1U);
    announce(appearance, colorScheme, u"prefer-dark"_s);
    announce(appearance, colorScheme, 7U);
    announce(appearance, colorScheme, QStringList{u"1"_s});
    announce(appearance, colorScheme, 1U);
    runUntil([&system] { return system.isDark(); });
    EXPECT_EQ(changes, 1);
}

TEST_F(PortalAppearanceTest, IsLightWhereThePortalKnowsNothing)
{
    FakePortal portal(FakePortal::Age::Empty);
    provide(portal);
    PortalAppearance system(connection(u"client"_s));
    int changes = 0;
    QObject::connect(&system, &SystemAppearance::changed, &system, [&changes] { ++changes; });
    runUntil([&portal] { return portal.asked == 6; });
    EXPECT_FALSE(system.isDark());
    // Sent after the portal's refusals, so these have arrived when this has.
    announce(appearance, colorScheme, 1U);
    runUntil([&system] { return system.isDark(); });
    EXPECT_EQ(changes, 1);
}

TEST_F(PortalAppearanceTest, IsLightUntilAPortalComes)
{
    PortalAppearance system(connection(u"client"_s));
    EXPECT_FALSE(system.isDark());
    FakePortal portal(FakePortal::Age::Old);
    portal.scheme = 1;
    provide(portal);
    announce(appearance, colorScheme, 1U);
    runUntil([&system] { return system.isDark(); });
}

TEST_F(PortalAppearanceTest, FollowsTheContrastThatThePersonNeeds)
{
    for (const auto age : {FakePortal::Age::Old, FakePortal::Age::New}) {
        FakePortal portal(age);
        portal.contrastWanted = 1;
        provide(portal);
        PortalAppearance system(connection(u"client"_s));
        int changes = 0;
        QObject::connect(&system, &SystemAppearance::changed, &system, [&changes] { ++changes; });
        EXPECT_FALSE(system.wantsHighContrast());
        runUntil([&system] { return system.wantsHighContrast(); });
        announce(appearance, contrast, 0U);
        runUntil([&system] { return !system.wantsHighContrast(); });
        announce(appearance, contrast, 7U);
        announce(gnome, contrast, 1U);
        announce(appearance, contrast, 1U);
        runUntil([&system] { return system.wantsHighContrast(); });
        EXPECT_EQ(changes, 3);
        EXPECT_FALSE(system.isDark());
    }
}

TEST_F(PortalAppearanceTest, KnowsTheOlderWordForContrastOfOneDesktop)
{
    FakePortal portal(FakePortal::Age::Old);
    portal.gnomeContrastWanted = true;
    provide(portal);
    PortalAppearance system(connection(u"client"_s));
    int changes = 0;
    QObject::connect(&system, &SystemAppearance::changed, &system, [&changes] { ++changes; });
    runUntil([&system] { return system.wantsHighContrast(); });
    announce(appearance, contrast, 1U);
    announce(gnome, gnomeContrast, u"true"_s);
    announce(gnome, gnomeContrast, false);
    EXPECT_TRUE(system.wantsHighContrast());
    announce(appearance, contrast, 0U);
    runUntil([&system] { return !system.wantsHighContrast(); });
    EXPECT_EQ(changes, 2) << "the two words for one wish";
}

TEST(PortalAppearanceWithoutABus, IsLightAndOfOrdinaryContrast)
{
    const PortalAppearance system(QDBusConnection(u"no such bus"_s));
    EXPECT_FALSE(system.isDark());
    EXPECT_FALSE(system.wantsHighContrast());
}

#include "PortalAppearanceTest.moc"
