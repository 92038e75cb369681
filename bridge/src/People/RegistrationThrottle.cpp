#include "People/RegistrationThrottle.h"

namespace bridge {

static constexpr std::chrono::hours period(1);
static constexpr std::size_t mostRemembered = 10'000;

RegistrationThrottle::RegistrationThrottle(SteadyClock clock, int most)
    : clock_(std::move(clock)), most_(most), peers_(period, mostRemembered)
{ }

bool RegistrationThrottle::admit(const std::string& peer)
{
    const std::lock_guard lock(mutex_);
    const SteadyMoment now = clock_();
    Tally::Entry& registrations = peers_.of(peer, now);
    if (registrations.count >= most_)
        return false;
    if (registrations.count == 0)
        registrations.last = now;
    ++registrations.count;
    return true;
}

} // namespace bridge
