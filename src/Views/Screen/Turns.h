#pragma once

#include "SignInEpoch.h"

#include <QFuture>
#include <QPromise>

#include <map>

class Turns;

/// One run of an operation that awaits. When it resumes it asks whether its result still counts: not when a
/// newer run of the same operation has begun, and not when the user for whom it began has left.
class Turn
{
public:
    /// No newer run of the operation has begun.
    bool isNewest() const;
    /// The result counts no longer.
    bool isOver() const;
    /// The same where every run counts that brings something newer: not when the result of a newer run is
    /// there already, and not when the user has left.
    bool isOvertaken() const;
    /// Finishes when the run is over or done, as far as Turns knows of it: nobody waits any more for what it
    /// still reads.
    const QFuture<void>& abandoned() const { return abandoned_; }

private:
    friend class Turns;
    Turn(const Turns& turns, quint64 number, quint64 epoch, QFuture<void> abandoned)
        : turns_(&turns), number_(number), epoch_(epoch), abandoned_(std::move(abandoned))
    { }

    const Turns* turns_;
    quint64 number_;
    quint64 epoch_;
    QFuture<void> abandoned_;
};

/// Hands out the turns of one operation. Lives in the model, which every run of the operation keeps alive.
class Turns
{
public:
    explicit Turns(const SignInEpoch& epoch) : epoch_(epoch) { }

    /// Begins a run in place of those before it.
    Turn next()
    {
        abandonUpTo(newest_);
        return beside();
    }
    /// Begins a run beside those before it, which still count until their results are overtaken.
    Turn beside();
    /// The run's result is there.
    void finish(const Turn& turn)
    {
        finished_ = turn.number_;
        abandonUpTo(turn.number_);
    }
    /// The run has ended, and with it whatever it has begun.
    void end(const Turn& turn) { waiting_.erase(turn.number_); }
    /// The runs that have begun are overtaken, whatever becomes of the next one.
    void outdate()
    {
        finished_ = newest_ + 1;
        abandonUpTo(newest_);
    }

private:
    friend class Turn;
    void abandonUpTo(quint64 number) { waiting_.erase(waiting_.begin(), waiting_.upper_bound(number)); }

    const SignInEpoch& epoch_;
    quint64 newest_ = 0;
    quint64 finished_ = 0;
    std::map<quint64, QPromise<void>> waiting_; ///< of the runs whose reads are waited for; finish as they go
};

inline bool Turn::isNewest() const
{
    return number_ == turns_->newest_;
}

inline bool Turn::isOver() const
{
    return !isNewest() || epoch_ != turns_->epoch_.current();
}

inline bool Turn::isOvertaken() const
{
    return number_ < turns_->finished_ || epoch_ != turns_->epoch_.current();
}

inline Turn Turns::beside()
{
    QPromise<void>& promise = waiting_[++newest_];
    promise.start();
    return Turn(*this, newest_, epoch_.current(), promise.future());
}
