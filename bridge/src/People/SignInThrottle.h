#pragma once

#include "People/Tally.h"
#include "Store/Id.h"

#include <mutex>
#include <string>

namespace bridge {

/// Slows down the guessing of one account's password. After five failures in a row from one peer each further
/// attempt of that peer must wait, one second at first, twice as long each time, thirty at most; others who
/// know the password are let in meanwhile. After fifty failures, from wherever they came, everybody waits so.
/// A quarter of an hour without an attempt forgets them. Other accounts are not affected.
class SignInThrottle
{
public:
    explicit SignInThrottle(SteadyClock clock);

    /// Counts an attempt at a sign-in with this e-mail address, as failed until succeeded() is told.
    /// \param peer  who tries
    /// \returns false when it comes too early to be looked at
    bool admit(const std::string& email, const std::string& peer);
    void succeeded(const std::string& email, const std::string& peer);

    /// The same for the password that somebody signed in is asked for again.
    bool admit(Id account, const std::string& peer);
    void succeeded(Id account, const std::string& peer);

private:
    bool admitSubject(const std::string& subject, const std::string& peer);
    void forgive(const std::string& subject, const std::string& peer);

    SteadyClock clock_;
    std::mutex mutex_;
    Tally ofPeers_;
    Tally ofAll_;
};

} // namespace bridge
