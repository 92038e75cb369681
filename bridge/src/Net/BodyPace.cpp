#include "Net/BodyPace.h"

#include <algorithm>

namespace bridge {

using namespace std::chrono;

static constexpr seconds longestPause(30);
static constexpr seconds longestText(30);
static constexpr seconds grace(60);
static constexpr std::uint64_t bytesPerSecond = 1 << 10;

SteadyMoment BodyPace::deadline(SteadyMoment now) const
{
    const milliseconds earned(received_ * 1000 / bytesPerSecond);
    const SteadyMoment end = begin_ + (isText_ ? longestText : std::max<milliseconds>(grace, earned));
    return std::min(end, now + longestPause);
}

} // namespace bridge
