#pragma once

#include <QObject>

#include <chrono>
#include <memory>

class QSocketNotifier;

/// Time that nobody can set back and that goes on while the machine sleeps, with one alarm on it. Made for
/// ends that somebody else has set, such as that of a token.
class SleepProofClock : public QObject
{
    Q_OBJECT

public:
    using Duration = std::chrono::milliseconds;

    /// How long it is since a moment that stays the same as long as the program runs.
    virtual Duration now() const = 0;
    /// Lets the alarm ring once, after this time or, when the machine sleeps then, as soon as it wakes. Takes
    /// the place of an alarm that has not rung yet.
    virtual void setAlarm(Duration after) = 0;
    virtual void cancelAlarm() = 0;

signals:
    void rang();
};

/// The operating system's own: the time since the machine was started, sleep included. Nothing wakes the
/// program before the alarm, and nothing is held open while none is set.
class BootClock : public SleepProofClock
{
    Q_OBJECT

public:
    BootClock();
    ~BootClock() override;

    Duration now() const override;
    /// Where the system has no timer left, the alarm never rings.
    void setAlarm(Duration after) override;
    void cancelAlarm() override;

private:
    void ring();

    int timer_ = -1; ///< file descriptor; -1 while no alarm is set
    std::unique_ptr<QSocketNotifier> watch_;
};
