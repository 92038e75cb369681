#pragma once

#include <QObject>

class QDBusConnection;

/// Waits for a place where the desktop shows the program's status item: a tray on the session bus, or the
/// older kind that takes in windows on an X server. Either may come long after a program that starts with the
/// desktop.
///
/// Qt decides with the first item of a process, and for good, which of the two its items are for. So nothing
/// may make or ask for one before a tray has been found.
class TrayWatch : public QObject
{
    Q_OBJECT

public:
    /// Looks on the session's bus.
    TrayWatch();
    explicit TrayWatch(const QDBusConnection& bus);

signals:
    /// There is one. Comes at most once, from the event loop.
    void found();

private:
    void watchBus(const QDBusConnection& bus);
    void watchScreen();
    void find();

    bool isFound_ = false;
};
