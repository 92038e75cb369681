#pragma once

#include <QObject>
#include <QString>

/// Named announcements to whoever listens, without a payload. Lives on the main thread.
class NotificationCenter : public QObject
{
    Q_OBJECT

public:
    /// The process-wide centre.
    static NotificationCenter& shared();

    /// Tells every observer now, on the calling (main) thread.
    void post(const QString& name) { emit posted(name); }

signals:
    void posted(const QString& name);
};
