#pragma once

#include "People/Tally.h"

#include <mutex>
#include <string>

namespace bridge {

/// Lets a peer open only so many accounts in an hour, which begins with the first of them: accounts take room
/// for good, and their passwords time.
class RegistrationThrottle
{
public:
    /// \param most  of one peer within an hour
    RegistrationThrottle(SteadyClock clock, int most);

    /// Counts a registration; false when it is one too many.
    bool admit(const std::string& peer);

private:
    SteadyClock clock_;
    const int most_;
    std::mutex mutex_;
    Tally peers_;
};

} // namespace bridge
