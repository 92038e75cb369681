#pragma once

#include "Moment.h"

#include <map>
#include <mutex>
#include <string>

namespace bridge {

/// Slows down the guessing of one account's password: after five failures in a row each further attempt must
/// wait, one second at first, twice as long each time, thirty at most. A quarter of an hour without an
/// attempt forgets them. Other accounts are not affected.
class SignInThrottle
{
public:
    explicit SignInThrottle(Clock clock);

    /// Counts an attempt, as failed until succeeded() is told; false when it comes too early to be looked at.
    bool admit(const std::string& email);
    void succeeded(const std::string& email);

private:
    struct Attempts
    {
        int failures = 0;
        Moment last;
    };

    void forgetOld(Moment now);

    Clock clock_;
    std::mutex mutex_;
    std::map<std::string, Attempts> attempts_;
};

} // namespace bridge
