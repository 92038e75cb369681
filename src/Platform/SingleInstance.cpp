#include "SingleInstance.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString application = u"org.freedesktop.Application"_s;

/// Answers of the bus to somebody who asks for a name.
constexpr uint othersName = 2;

const QString activationToken = u"activation-token"_s;
const QString startupId = u"desktop-startup-id"_s;

/// Where Qt's windows look for the permission to come to the front.
constexpr auto tokenVariable = "XDG_ACTIVATION_TOKEN";
constexpr auto startupVariable = "DESKTOP_STARTUP_ID";

QString pathOf(QString id)
{
    return u'/' + id.replace(u'.', u'/').replace(u'-', u'_');
}

QDBusMessage busCall(const QString& method, const QVariantList& arguments)
{
    QDBusMessage call = QDBusMessage::createMethodCall(
        u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s, u"org.freedesktop.DBus"_s, method);
    call.setArguments(arguments);
    return call;
}

} // namespace

QVariantMap SingleInstance::Wish::platformDataOfThisStart()
{
    QVariantMap data;
    for (const auto& [key, variable] :
        {std::pair(activationToken, tokenVariable), std::pair(startupId, startupVariable)}) {
        if (const QString value = qEnvironmentVariable(variable); !value.isEmpty())
            data.insert(key, value);
    }
    return data;
}

SingleInstance::SingleInstance(const QDBusConnection& bus, const QString& id)
    : bus_(std::make_unique<QDBusConnection>(bus)), id_(id), path_(pathOf(id))
{ }

SingleInstance::SingleInstance(const QString& id) : SingleInstance(QDBusConnection::sessionBus(), id) { }

SingleInstance::~SingleInstance() = default;

void SingleInstance::claim(const Wish& wish)
{
    wish_ = wish;
    // The object comes before the name, so that whoever finds the name finds somebody who answers.
    if (!bus_->isConnected() || !bus_->registerObject(path_, this, QDBusConnection::ExportScriptableSlots)) {
        win();
        return;
    }
    // Behind an owner that does not answer this process stays in line, and has the name once that one is
    // gone.
    constexpr uint waitInLine = 0;
    ask(busCall(u"RequestName"_s, {id_, waitInLine}), [this](const QDBusPendingCall& call) {
        const QDBusPendingReply<uint> reply = call;
        if (reply.isValid() && reply.value() == othersName)
            handOver();
        else
            win();
    });
}

void SingleInstance::ask(const QDBusMessage& message, Answered answered)
{
    auto* const watcher = new QDBusPendingCallWatcher(bus_->asyncCall(message, patience_), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
        [answered = std::move(answered)](QDBusPendingCallWatcher* finished) {
            finished->deleteLater();
            answered(*finished);
        });
}

void SingleInstance::handOver()
{
    const auto call = [this](const QString& interface, const QString& method, const QVariantList& arguments) {
        QDBusMessage message = QDBusMessage::createMethodCall(id_, path_, interface, method);
        message.setArguments(arguments);
        return message;
    };
    QDBusMessage message;
    if (!wish_.action.isEmpty())
        message = call(application, u"ActivateAction"_s, {wish_.action, QVariantList(), wish_.platformData});
    else if (wish_.comesForward)
        message = call(application, u"Activate"_s, {wish_.platformData});
    else
        message = call(u"org.freedesktop.DBus.Peer"_s, u"Ping"_s, {});
    ask(message, [this](const QDBusPendingCall& reply) {
        if (isDecided_)
            return;
        if (reply.isError()) {
            win();
            return;
        }
        isDecided_ = true;
        emit handedOver();
    });
}

void SingleInstance::win()
{
    if (isDecided_)
        return;
    isDecided_ = true;
    emit won();
}

/// Whoever is called by the program's name is the program, even if it has just asked another one to be.
void SingleInstance::receive(const QVariantMap& platformData)
{
    win();
    const QString token = platformData.value(activationToken, platformData.value(startupId)).toString();
    if (!token.isEmpty())
        qputenv(tokenVariable, token.toUtf8());
}

void SingleInstance::Activate(const QVariantMap& platformData)
{
    receive(platformData);
    emit activated();
}

/// The program opens no files.
void SingleInstance::Open(const QStringList&, const QVariantMap& platformData)
{
    Activate(platformData);
}

void SingleInstance::ActivateAction(
    const QString& action, const QVariantList&, const QVariantMap& platformData)
{
    receive(platformData);
    emit actionActivated(action);
}
