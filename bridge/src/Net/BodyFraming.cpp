#include "Net/BodyFraming.h"

namespace bridge {

static constexpr unsigned longestSizeLine = 1 << 10;
static constexpr unsigned largestTrailer = 8 << 10;
static constexpr unsigned mostTrailerLines = 64;

static std::optional<unsigned> hexDigit(char letter)
{
    if (letter >= '0' && letter <= '9')
        return letter - '0';
    if (letter >= 'a' && letter <= 'f')
        return letter - 'a' + 10;
    if (letter >= 'A' && letter <= 'F')
        return letter - 'A' + 10;
    return std::nullopt;
}

// A byte that may stand in an extension or a trailer.
static bool isPlain(char letter)
{
    const auto value = static_cast<unsigned char>(letter);
    return letter == '\t' || (value >= 0x20 && value != 0x7f);
}

BodyFraming::BodyFraming(std::optional<std::uint64_t> length)
    : state_(!length       ? State::SizeBegin
            : *length == 0 ? State::Over
                           : State::Length),
      dataLeft_(length.value_or(0))
{ }

void BodyFraming::passOver(std::uint64_t count)
{
    dataLeft_ -= count;
    if (dataLeft_ == 0)
        state_ = state_ == State::Length ? State::Over : State::DataReturn;
}

bool BodyFraming::take(char byte)
{
    switch (state_) {
    case State::SizeBegin:
    case State::Size:
    case State::Extension:
        return takeOfSizeLine(byte);
    case State::SizeEnd:
        dataLeft_ = size_;
        return proceed(byte == '\n', size_ == 0 ? State::TrailerBegin : State::Data);
    case State::DataReturn:
        return proceed(byte == '\r', State::DataEnd);
    case State::DataEnd:
        size_ = sizeLineBytes_ = 0;
        return proceed(byte == '\n', State::SizeBegin);
    case State::TrailerBegin:
    case State::Trailer:
        return takeOfTrailer(byte);
    case State::TrailerEnd:
        return proceed(byte == '\n', State::TrailerBegin);
    case State::LastEnd:
        return proceed(byte == '\n', State::Over);
    case State::Length:
    case State::Data:
    case State::Over:
        break;
    }
    return false;
}

bool BodyFraming::takeOfSizeLine(char byte)
{
    if (++sizeLineBytes_ > longestSizeLine)
        return false;
    const std::optional<unsigned> digit = state_ == State::Extension ? std::nullopt : hexDigit(byte);
    if (digit)
        return takeDigit(*digit);
    if (state_ == State::SizeBegin)
        return false;
    if (byte == '\r')
        return proceed(true, State::SizeEnd);
    const bool isAllowed = state_ == State::Extension ? isPlain(byte) : byte == ';';
    return proceed(isAllowed, State::Extension);
}

bool BodyFraming::takeDigit(unsigned digit)
{
    constexpr unsigned topDigit = 60;
    if (size_ >> topDigit != 0)
        return false;
    size_ = size_ * 16 + digit;
    return proceed(true, State::Size);
}

bool BodyFraming::takeOfTrailer(char byte)
{
    if (++trailerBytes_ > largestTrailer)
        return false;
    if (byte == '\r')
        return proceed(true, state_ == State::TrailerBegin ? State::LastEnd : State::TrailerEnd);
    if (state_ == State::TrailerBegin && ++trailerLines_ > mostTrailerLines)
        return false;
    return proceed(isPlain(byte), State::Trailer);
}

bool BodyFraming::proceed(bool isRight, State next)
{
    if (isRight)
        state_ = next;
    return isRight;
}

} // namespace bridge
