#include "People/SignInThrottle.h"

#include "People/Passwords.h"
#include "Text.h"

#include <algorithm>

namespace bridge {

using namespace std::chrono;

static constexpr int freeFailuresOfPeer = 5;
static constexpr int freeFailuresOfAll = 50;
static constexpr seconds longestDelay(30);
static constexpr minutes memory(15);
static constexpr std::size_t mostRemembered = 10'000;

SignInThrottle::SignInThrottle(SteadyClock clock)
    : clock_(std::move(clock)), ofPeers_(memory, mostRemembered), ofAll_(memory, mostRemembered)
{ }

// Of one length, whatever is sent as an address, and never that of an account.
static std::string subjectOf(const std::string& email)
{
    return fingerprint("email " + lowerCased(email));
}

static std::string subjectOf(Id account)
{
    return fingerprint("account " + std::to_string(account));
}

static bool isEarly(const Tally::Entry& attempts, int freeFailures, SteadyMoment now)
{
    if (attempts.count < freeFailures)
        return false;
    const seconds delay(1ll << std::min(attempts.count - freeFailures, 5));
    return now < attempts.last + std::min(longestDelay, delay);
}

bool SignInThrottle::admit(const std::string& email, const std::string& peer)
{
    return admitSubject(subjectOf(email), peer);
}

bool SignInThrottle::admit(Id account, const std::string& peer)
{
    return admitSubject(subjectOf(account), peer);
}

void SignInThrottle::succeeded(const std::string& email, const std::string& peer)
{
    forgive(subjectOf(email), peer);
}

void SignInThrottle::succeeded(Id account, const std::string& peer)
{
    forgive(subjectOf(account), peer);
}

bool SignInThrottle::admitSubject(const std::string& subject, const std::string& peer)
{
    const std::lock_guard lock(mutex_);
    const SteadyMoment now = clock_();
    Tally::Entry& ofPeer = ofPeers_.of(subject + peer, now);
    Tally::Entry& ofAll = ofAll_.of(subject, now);
    if (isEarly(ofPeer, freeFailuresOfPeer, now) || isEarly(ofAll, freeFailuresOfAll, now))
        return false;
    for (Tally::Entry* attempts : {&ofPeer, &ofAll}) {
        ++attempts->count;
        attempts->last = now;
    }
    return true;
}

// A success says nothing about what others have tried.
void SignInThrottle::forgive(const std::string& subject, const std::string& peer)
{
    const std::lock_guard lock(mutex_);
    const SteadyMoment now = clock_();
    Tally::Entry& ofAll = ofAll_.of(subject, now);
    ofAll.count = std::max(0, ofAll.count - ofPeers_.of(subject + peer, now).count);
    ofPeers_.forget(subject + peer);
}

} // namespace bridge
