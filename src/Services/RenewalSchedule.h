#pragma once

#include "SleepProofClock.h"

#include <QObject>

#include <optional>

/// When the ID token of whoever is signed in is to be renewed, so that it does not run out under their hands:
/// five minutes before its end, or at half of its life where that is short. A renewal that did not get
/// through is tried again after 1, 2 and 4 minutes, then every 5. Nothing is timed while nobody is signed in.
class RenewalSchedule : public QObject
{
    Q_OBJECT

public:
    /// Of a token whose life nobody has told.
    static constexpr std::chrono::seconds usualLifetime{3600};

    explicit RenewalSchedule(SleepProofClock& clock);

    /// A token has just been received that lives this long.
    void begin(std::chrono::seconds lifetime);
    /// The renewal did not get through; the token stays the same.
    void postpone();
    /// Nobody is signed in.
    void end();

    /// The token is good no more, as far as its life is known.
    bool hasTokenEnded() const;

signals:
    /// The renewal is to begin now.
    void due();

private:
    SleepProofClock& clock_;
    std::optional<SleepProofClock::Duration> endOfToken_; ///< by the clock
    int postponements_ = 0;
};
