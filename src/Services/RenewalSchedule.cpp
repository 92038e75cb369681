#include "RenewalSchedule.h"

#include <algorithm>

using namespace std::chrono;

static constexpr seconds lead = minutes(5);

RenewalSchedule::RenewalSchedule(SleepProofClock& clock) : clock_(clock)
{
    connect(&clock_, &SleepProofClock::rang, this, &RenewalSchedule::due);
}

void RenewalSchedule::begin(seconds lifetime)
{
    postponements_ = 0;
    endOfToken_ = clock_.now() + lifetime;
    const SleepProofClock::Duration life = lifetime;
    clock_.setAlarm(life - std::min<SleepProofClock::Duration>(lead, life / 2));
}

void RenewalSchedule::postpone()
{
    static constexpr std::array pauses{minutes(1), minutes(2), minutes(4), minutes(5)};
    const std::size_t pause = std::min<std::size_t>(std::size_t(postponements_), pauses.size() - 1);
    ++postponements_;
    clock_.setAlarm(pauses[pause]);
}

void RenewalSchedule::end()
{
    endOfToken_.reset();
    clock_.cancelAlarm();
}

bool RenewalSchedule::hasTokenEnded() const
{
    return endOfToken_ && clock_.now() >= *endOfToken_;
}
