#pragma once

#include "Moment.h"

#include <cstdint>

namespace bridge {

/// How long a body may take. Without a limit a few slow clients would hold every connection of the server;
/// a short one for everything would cut off large files on slow lines.
///
/// - A text has half a minute in all.
/// - Anything else brings 1 KiB a second on average, once its first minute has passed.
/// - No body pauses for half a minute.
class BodyPace
{
public:
    /// Somebody starts to read the body.
    void begin(SteadyMoment now) { begin_ = now; }

    /// From now on it is a text.
    void expectText() { isText_ = true; }

    /// So many bytes of it have come in.
    void count(std::uint64_t bytes) { received_ += bytes; }

    /// When the next byte must have come, asked for now.
    SteadyMoment deadline(SteadyMoment now) const;

private:
    SteadyMoment begin_;
    std::uint64_t received_ = 0;
    bool isText_ = false;
};

} // namespace bridge
