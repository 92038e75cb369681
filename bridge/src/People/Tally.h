#pragma once

#include "Moment.h"

#include <map>
#include <string>

namespace bridge {

/// How often each of many keys was counted, for as long as anybody cares. It holds so many keys and no more:
/// the ones counted least, and among them the oldest, make room. So a flood of new keys pushes out other new
/// keys, and not the few that were counted often.
class Tally
{
public:
    struct Entry
    {
        int count = 0;
        SteadyMoment last;
    };

    /// \param memory  how long an entry counts after its last
    /// \param most  keys at a time
    Tally(std::chrono::seconds memory, std::size_t most);

    /// What is known of a key; a new entry when nothing is any more. Good until the next call.
    Entry& of(const std::string& key, SteadyMoment now);

    void forget(const std::string& key) { entries_.erase(key); }

private:
    void makeRoom(SteadyMoment now);

    const std::chrono::seconds memory_;
    const std::size_t most_;
    std::map<std::string, Entry> entries_;
};

} // namespace bridge
