#pragma once

#include <cstdint>
#include <string>

namespace bridge {

/// The part of a file that a client asks for.
struct ByteRange
{
    enum class Kind
    {
        Whole, ///< no part, or nothing that needs to be understood: the whole file is an answer to that
        Part, ///< `length` bytes from `begin`, at least one, all of them in the file
        Unsatisfiable, ///< none of the bytes that were asked for is in the file
    };

    Kind kind = Kind::Whole;
    std::uint64_t begin = 0;
    std::uint64_t length = 0;

    bool operator==(const ByteRange&) const = default;
};

/// \param text  of the header field: "bytes=0-99", "bytes=100-" or "bytes=-100"; of several ranges none
/// counts \param size  of the file
ByteRange readRange(const std::string& text, std::uint64_t size);

} // namespace bridge
