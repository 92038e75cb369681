#include "SingleInstance.h"

#include "InstanceChild.h"
#include "SessionBus.h"
#include "SettingsChildren.h"
#include "support/Await.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>

#include <csignal>

using namespace Qt::StringLiterals;

namespace {

const QString id = QString::fromLatin1(instanceId);
const QString path = u"/app/example/Notary_Desk"_s;
const QString application = u"org.freedesktop.Application"_s;

/// One start of the program, and what became of it.
class Start
{
public:
    explicit Start(const QDBusConnection& bus) : instance(bus, id)
    {
        const auto note = [this](const QString& word) { told += word; };
        QObject::connect(&instance, &SingleInstance::won, &instance, [note] { note(u"won"_s); });
        QObject::connect(
            &instance, &SingleInstance::handedOver, &instance, [note] { note(u"handed over"_s); });
        QObject::connect(&instance, &SingleInstance::activated, &instance, [note] { note(u"activated"_s); });
        QObject::connect(&instance, &SingleInstance::actionActivated, &instance,
            [note](const QString& action) { note(u"action "_s + action); });
    }

    /// Claims the name and waits for the outcome.
    void claim(const SingleInstance::Wish& wish = {})
    {
        instance.claim(wish);
        runUntil([this] { return !told.isEmpty(); });
    }

    SingleInstance instance;
    QStringList told;
};

} // namespace

class SingleInstanceTest : public SessionBusTest
{
protected:
    /// Calls the instance from outside, as a desktop does, and waits for the answer.
    QDBusMessage call(const QString& method, const QVariantList& arguments)
    {
        QDBusMessage message = QDBusMessage::createMethodCall(id, path, application, method);
        message.setArguments(arguments);
        // The watcher wakes the loop.
        const QDBusPendingCallWatcher pending(connection(u"desktop"_s).asyncCall(message));
        runUntil([&pending] { return pending.isFinished(); });
        return pending.reply();
    }

    static void startChild(QProcess& child, const QString& bus)
    {
        child.start(
            QCoreApplication::applicationFilePath(), {QString::fromLatin1(childOption), u"instance"_s, bus});
    }
    /// The next word that the child tells.
    static QByteArray wordOf(QProcess& child)
    {
        while (!child.canReadLine()) {
            if (!child.waitForReadyRead(-1))
                return {};
        }
        return child.readLine().trimmed();
    }
};

TEST_F(SingleInstanceTest, TheFirstWinsAndTheSecondBringsItForward)
{
    Start first(connection(u"first"_s));
    first.instance.claim({});
    EXPECT_TRUE(first.told.isEmpty()) << "it is found out without waiting";
    runUntil([&first] { return !first.told.isEmpty(); });
    EXPECT_EQ(first.told, QStringList{u"won"_s});

    Start second(connection(u"second"_s));
    second.claim();
    EXPECT_EQ(second.told, QStringList{u"handed over"_s});
    EXPECT_EQ(first.told, (QStringList{u"won"_s, u"activated"_s}));
}

TEST_F(SingleInstanceTest, ASecondStartHandsItsActionOver)
{
    Start first(connection(u"first"_s));
    first.claim({.action = u"mine"_s});
    EXPECT_EQ(first.told, QStringList{u"won"_s}) << "the first does what it is for by itself";
    Start second(connection(u"second"_s));
    second.claim({.comesForward = false, .action = u"sessions"_s});
    EXPECT_EQ(second.told, QStringList{u"handed over"_s});
    EXPECT_EQ(first.told, (QStringList{u"won"_s, u"action sessions"_s}));
}

TEST_F(SingleInstanceTest, AStartInTheBackgroundDisturbsNobody)
{
    Start first(connection(u"first"_s));
    first.claim();
    Start second(connection(u"second"_s));
    second.claim({.comesForward = false});
    EXPECT_EQ(second.told, QStringList{u"handed over"_s});
    EXPECT_EQ(first.told, QStringList{u"won"_s});
}

TEST_F(SingleInstanceTest, AnswersTheDesktop)
{
    Start first(connection(u"first"_s));
    first.claim();
    const QVariantMap data{{u"anything"_s, 1}};
    EXPECT_EQ(call(u"Activate"_s, {data}).type(), QDBusMessage::ReplyMessage);
    EXPECT_EQ(call(u"ActivateAction"_s, {u"book-remote-notary"_s, QVariantList{u"x"_s}, data}).type(),
        QDBusMessage::ReplyMessage);
    EXPECT_EQ(
        call(u"Open"_s, {QStringList{u"file:///etc/passwd"_s}, data}).type(), QDBusMessage::ReplyMessage);
    EXPECT_EQ(call(u"Quit"_s, {}).type(), QDBusMessage::ErrorMessage);
    EXPECT_EQ(
        first.told, (QStringList{u"won"_s, u"activated"_s, u"action book-remote-notary"_s, u"activated"_s}));
}

TEST_F(SingleInstanceTest, ThePermissionToComeForwardReachesTheFirst)
{
    qputenv("XDG_ACTIVATION_TOKEN", "token of the second");
    qputenv("DESKTOP_STARTUP_ID", "second_TIME7");
    const QVariantMap data = SingleInstance::Wish::platformDataOfThisStart();
    EXPECT_EQ(data,
        (QVariantMap{{u"activation-token"_s, u"token of the second"_s},
            {u"desktop-startup-id"_s, u"second_TIME7"_s}}));
    qunsetenv("XDG_ACTIVATION_TOKEN");
    qunsetenv("DESKTOP_STARTUP_ID");
    EXPECT_TRUE(SingleInstance::Wish::platformDataOfThisStart().isEmpty());

    Start first(connection(u"first"_s));
    first.claim();
    call(u"Activate"_s, {QVariantMap()});
    EXPECT_FALSE(qEnvironmentVariableIsSet("XDG_ACTIVATION_TOKEN"));
    call(u"Activate"_s, {QVariantMap{{u"desktop-startup-id"_s, u"older desktop"_s}}});
    EXPECT_EQ(qgetenv("XDG_ACTIVATION_TOKEN"), "older desktop");
    Start second(connection(u"second"_s));
    second.claim({.platformData = data});
    EXPECT_EQ(qgetenv("XDG_ACTIVATION_TOKEN"), "token of the second");
    qunsetenv("XDG_ACTIVATION_TOKEN");
}

TEST_F(SingleInstanceTest, AnOwnerThatIsSomethingElseIsNoObstacle)
{
    QDBusConnection stranger = connection(u"stranger"_s);
    ASSERT_TRUE(stranger.registerService(id));
    Start start(connection(u"first"_s));
    start.claim();
    EXPECT_EQ(start.told, QStringList{u"won"_s});
}

TEST_F(SingleInstanceTest, TwoProcesses)
{
    QProcess first;
    startChild(first, address());
    EXPECT_EQ(wordOf(first), "won");
    QProcess second;
    startChild(second, address());
    EXPECT_EQ(wordOf(second), "handed over");
    ASSERT_TRUE(second.waitForFinished(-1));
    EXPECT_EQ(second.exitCode(), 0);
    EXPECT_EQ(wordOf(first), "activated");
    first.kill();
    first.waitForFinished(-1);
}

TEST_F(SingleInstanceTest, AnOwnerThatDoesNotAnswerIsNotWaitedForLong)
{
    QProcess stale;
    startChild(stale, address());
    ASSERT_EQ(wordOf(stale), "won");
    const auto pid = pid_t(stale.processId());
    ASSERT_EQ(kill(pid, SIGSTOP), 0);

    for (const SingleInstance::Wish& wish : {SingleInstance::Wish{},
             SingleInstance::Wish{.comesForward = false}, SingleInstance::Wish{.action = u"x"_s}}) {
        Start start(connection(u"impatient"_s));
        start.instance.setPatience(20);
        start.claim(wish);
        EXPECT_EQ(start.told, QStringList{u"won"_s});
    }

    // Whoever had to start without the name has it as soon as it is free.
    QDBusConnection bus = connection(u"impatient"_s);
    QDBusServiceWatcher watcher(id, bus, QDBusServiceWatcher::WatchForOwnerChange);
    QString owner;
    QObject::connect(&watcher, &QDBusServiceWatcher::serviceOwnerChanged, &watcher,
        [&owner](const QString&, const QString&, const QString& now) { owner = now; });
    stale.kill();
    stale.waitForFinished(-1);
    runUntil([&owner] { return !owner.isEmpty(); });
    EXPECT_EQ(owner, bus.baseService());
}

TEST_F(SingleInstanceTest, WhoeverIsCalledByTheNameIsTheProgram)
{
    QProcess stale;
    startChild(stale, address());
    ASSERT_EQ(wordOf(stale), "won");
    ASSERT_EQ(kill(pid_t(stale.processId()), SIGSTOP), 0);
    Start heir(connection(u"heir"_s));
    heir.instance.claim({});
    // Its request to the one that has stopped comes back to nobody, or to itself once it has the name.
    QDBusServiceWatcher watcher(id, connection(u"heir"_s), QDBusServiceWatcher::WatchForOwnerChange);
    stale.kill();
    stale.waitForFinished(-1);
    runUntil([&heir] { return !heir.told.isEmpty(); });
    EXPECT_EQ(heir.told.constFirst(), u"won"_s);
    call(u"Activate"_s, {QVariantMap()});
    EXPECT_FALSE(heir.told.contains(u"handed over"_s));
    EXPECT_EQ(heir.told.constLast(), u"activated"_s);
}

TEST(SingleInstanceWithoutABus, SimplyStarts)
{
    Start start(QDBusConnection(u"no such bus"_s));
    start.instance.claim({});
    EXPECT_EQ(start.told, QStringList{u"won"_s});
}
