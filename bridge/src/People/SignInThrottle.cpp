#include "People/SignInThrottle.h"

#include "Http/Fields.h"
#include "People/Passwords.h"

#include <algorithm>

namespace bridge {

using namespace std::chrono;

static constexpr int freeFailures = 5;
static constexpr seconds longestDelay(30);
static constexpr minutes memory(15);
static constexpr std::size_t mostRemembered = 10'000;

SignInThrottle::SignInThrottle(Clock clock) : clock_(std::move(clock)) { }

// Of one length, whatever is sent as an address.
static std::string keyOf(const std::string& email)
{
    return fingerprint(lowerCased(email));
}

static seconds delayAfter(int failures)
{
    if (failures < freeFailures)
        return seconds(0);
    return std::min(longestDelay, seconds(1ll << std::min(failures - freeFailures, 5)));
}

bool SignInThrottle::admit(const std::string& email)
{
    const std::lock_guard lock(mutex_);
    const Moment now = clock_();
    if (attempts_.size() >= mostRemembered)
        forgetOld(now);
    Attempts& attempts = attempts_[keyOf(email)];
    if (now - attempts.last > memory)
        attempts.failures = 0;
    if (now < attempts.last + delayAfter(attempts.failures))
        return false;
    ++attempts.failures;
    attempts.last = now;
    return true;
}

void SignInThrottle::succeeded(const std::string& email)
{
    const std::lock_guard lock(mutex_);
    attempts_.erase(keyOf(email));
}

void SignInThrottle::forgetOld(Moment now)
{
    std::erase_if(attempts_, [now](const auto& entry) { return now - entry.second.last > longestDelay; });
    // Thousands of names within half a minute are an attack on this memory itself.
    if (attempts_.size() >= mostRemembered)
        attempts_.clear();
}

} // namespace bridge
