#include "People/Tally.h"

#include <algorithm>
#include <tuple>
#include <vector>

namespace bridge {

Tally::Tally(std::chrono::seconds memory, std::size_t most) : memory_(memory), most_(most) { }

Tally::Entry& Tally::of(const std::string& key, SteadyMoment now)
{
    const auto found = entries_.find(key);
    if (found != entries_.end()) {
        if (now - found->second.last > memory_)
            found->second.count = 0;
        return found->second;
    }
    if (entries_.size() >= most_)
        makeRoom(now);
    Entry& entry = entries_[key];
    entry.last = now;
    return entry;
}

void Tally::makeRoom(SteadyMoment now)
{
    std::erase_if(entries_, [&](const auto& entry) { return now - entry.second.last > memory_; });
    if (entries_.size() < most_)
        return;
    using Iterator = std::map<std::string, Entry>::iterator;
    std::vector<Iterator> all;
    for (Iterator entry = entries_.begin(); entry != entries_.end(); ++entry)
        all.push_back(entry);
    // Some at once, so that a flood does not pay for the search with every key.
    const auto least = all.begin() + static_cast<std::ptrdiff_t>(most_ / 20 + 1);
    std::nth_element(all.begin(), least - 1, all.end(), [](const Iterator& one, const Iterator& other) {
        return std::tie(one->second.count, one->second.last)
            < std::tie(other->second.count, other->second.last);
    });
    std::for_each(all.begin(), least, [this](const Iterator& entry) { entries_.erase(entry); });
}

} // namespace bridge
