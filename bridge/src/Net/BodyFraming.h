#pragma once

#include <cstdint>
#include <optional>

namespace bridge {

/// Where the body of a request ends, from a length stated before it or from the sizes of its chunks. The
/// bytes that frame it are taken one by one and forgotten, however many there are.
class BodyFraming
{
public:
    /// \param length  of the whole body; none when it comes in chunks
    explicit BodyFraming(std::optional<std::uint64_t> length);

    /// So many bytes of the body itself come next; none when a byte of framing does, or when it is over.
    std::uint64_t dataLeft() const { return dataLeft_; }

    /// Those bytes were read, or some of them.
    void passOver(std::uint64_t count);

    /// Takes a byte of framing. \returns false when it can belong to none
    bool take(char byte);

    /// Nothing more belongs to this body.
    bool isOver() const { return state_ == State::Over; }

private:
    enum class State
    {
        Length, ///< within a body of a stated length
        SizeBegin, ///< before the first digit of a chunk's size
        Size, ///< after a digit
        Extension, ///< behind the size
        SizeEnd, ///< before the line feed
        Data,
        DataReturn, ///< before the carriage return behind a chunk
        DataEnd, ///< before the line feed behind a chunk
        TrailerBegin, ///< at the begin of a line behind the last chunk
        Trailer, ///< within such a line
        TrailerEnd, ///< before its line feed
        LastEnd, ///< before the line feed that ends it all
        Over,
    };

    bool takeOfSizeLine(char byte);
    bool takeDigit(unsigned digit);
    bool takeOfTrailer(char byte);
    bool proceed(bool isRight, State next);

    State state_;
    std::uint64_t dataLeft_ = 0;
    std::uint64_t size_ = 0;
    unsigned sizeLineBytes_ = 0;
    unsigned trailerBytes_ = 0;
    unsigned trailerLines_ = 0;
};

} // namespace bridge
