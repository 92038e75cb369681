#pragma once

#include <QObject>
#include <QString>
#include <QVariantMap>

#include <functional>
#include <memory>

class QDBusConnection;
class QDBusMessage;
class QDBusPendingCall;

/// Lets one process at a time be the program on a person's desktop. Every start claims the program's name on
/// the session bus; whoever comes second hands over what was wished for to the first and ends. Where there is
/// no bus, or the one that holds the name does not answer in time, a start is never refused.
///
/// The first is also what the desktop reaches through its entry for the program: it answers to
/// org.freedesktop.Application.
class SingleInstance : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    /// What a start is for.
    struct Wish
    {
        bool comesForward = true; ///< the window is to be shown, as with any action
        QString action = {}; ///< id of an action of the program's desktop entry; empty for none
        QVariantMap platformData = {}; ///< with what the desktop lets a window come to the front

        /// The permission that the desktop gave to this start. Qt takes part of it out of the environment
        /// when the application object is made.
        static QVariantMap platformDataOfThisStart();
    };

    /// \param id  the program's name on the bus and of its desktop entry, e.g. "app.example.Example"
    SingleInstance(const QDBusConnection& bus, const QString& id);
    /// On the session's bus.
    explicit SingleInstance(const QString& id);
    ~SingleInstance() override;

    /// How long a start waits for another process, in milliseconds.
    static constexpr int patience = 3000;
    void setPatience(int milliseconds) { patience_ = milliseconds; }

    /// Begins to find out. One of won() and handedOver() follows once: without a bus before this returns,
    /// else from the event loop.
    void claim(const Wish& wish);

public slots:
    // What the bus calls.
    Q_SCRIPTABLE void Activate(const QVariantMap& platformData);
    Q_SCRIPTABLE void Open(const QStringList& uris, const QVariantMap& platformData);
    Q_SCRIPTABLE void ActivateAction(
        const QString& action, const QVariantList& parameter, const QVariantMap& platformData);

signals:
    /// This process is the program.
    void won();
    /// Another process is, and knows what is wished for.
    void handedOver();
    /// Somebody wants to see the program. Comes after won(), as the next one does.
    void activated();
    /// Somebody chose one of the actions of the program's desktop entry, maybe one that it does not have.
    void actionActivated(const QString& action);

private:
    using Answered = std::function<void(const QDBusPendingCall& call)>;
    void ask(const QDBusMessage& message, Answered answered);
    void handOver();
    void win();
    void receive(const QVariantMap& platformData);

    const std::unique_ptr<QDBusConnection> bus_;
    const QString id_;
    const QString path_;
    Wish wish_;
    int patience_ = patience;
    bool isDecided_ = false;
};
