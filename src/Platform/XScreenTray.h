#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>

#include <cstdint>

/// The tray of an X server's screen, which takes in windows of other programs. Never there without an X
/// server.
class XScreenTray : public QObject, private QAbstractNativeEventFilter
{
    Q_OBJECT

public:
    explicit XScreenTray(QObject* parent = nullptr);

    bool isThere() const;

signals:
    /// A tray has told every program that it has come.
    void appeared();

private:
    bool nativeEventFilter(const QByteArray& kind, void* message, qintptr* result) override;

    const uint32_t selection_; ///< which a tray owns for as long as it is there
    const uint32_t arrival_; ///< the kind of message by which the owner of a selection announces itself
};
