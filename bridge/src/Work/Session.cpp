#include "Work/Session.h"

#include <set>

namespace bridge {

bool isStatus(const std::string& word)
{
    static const std::set<std::string> words{
        "requested", "pending", "scheduled", "confirmed", "rescheduled", "completed", "cancelled"};
    return words.count(word) > 0;
}

bool mayBeCancelled(const std::string& status)
{
    return status != "completed" && status != "cancelled";
}

bool isOpenStatus(const std::string& status)
{
    return status == "requested" || status == "pending";
}

} // namespace bridge
