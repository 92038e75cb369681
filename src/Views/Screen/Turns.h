#pragma once

#include "SignInEpoch.h"

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

private:
    friend class Turns;
    Turn(const Turns& turns, quint64 number, quint64 epoch) : turns_(&turns), number_(number), epoch_(epoch)
    { }

    const Turns* turns_;
    quint64 number_;
    quint64 epoch_;
};

/// Hands out the turns of one operation. Lives in the model, which every run of the operation keeps alive.
class Turns
{
public:
    explicit Turns(const SignInEpoch& epoch) : epoch_(epoch) { }

    Turn next() { return Turn(*this, ++newest_, epoch_.current()); }
    /// The run's result is there.
    void finish(const Turn& turn) { finished_ = turn.number_; }
    /// The runs that have begun are overtaken, whatever becomes of the next one.
    void outdate() { finished_ = newest_ + 1; }

private:
    friend class Turn;
    const SignInEpoch& epoch_;
    quint64 newest_ = 0;
    quint64 finished_ = 0;
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
