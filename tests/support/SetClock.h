#pragma once

#include "SleepProofClock.h"

#include <optional>

/// A clock that goes on only when the test lets it.
class SetClock : public SleepProofClock
{
public:
    Duration now() const override { return now_; }
    void setAlarm(Duration after) override { alarm_ = now_ + after; }
    void cancelAlarm() override { alarm_.reset(); }

    /// How long until the alarm rings; nothing when none is set.
    std::optional<Duration> untilAlarm() const
    {
        return alarm_ ? std::optional(*alarm_ - now_) : std::nullopt;
    }
    /// Lets time pass, and the alarm ring when that has been its time.
    void pass(Duration time)
    {
        now_ += time;
        if (alarm_ && *alarm_ <= now_) {
            alarm_.reset();
            emit rang();
        }
    }

private:
    Duration now_{1000};
    std::optional<Duration> alarm_;
};
