#include "Net/RequestStream.h"

#include <algorithm>

namespace bridge {

using namespace std::chrono;

static constexpr std::size_t largestHead = 64 << 10;
static constexpr std::size_t mostHeadLines = 200;
static constexpr seconds patienceForHead(10);
static constexpr seconds patienceForBody(30);

bool RequestStream::awaitRequest(seconds patience)
{
    isInHead_ = true;
    headBytes_ = headLines_ = lineBytes_ = 0;
    bodyBytes_ = 0;
    const bool hasInput = position_ < filled_ || fill(steady_clock::now() + patience);
    headDeadline_ = steady_clock::now() + patienceForHead;
    return hasInput;
}

ssize_t RequestStream::read(char* bytes, size_t size)
{
    if (size == 0)
        return 0;
    const SteadyTime deadline = isInHead_ ? headDeadline_ : steady_clock::now() + patienceForBody;
    if (position_ == filled_ && !fill(deadline))
        return -1;
    if (isInHead_) {
        // The library reads a head byte by byte; what it asks for here is never more than one.
        const char byte = buffer_[position_++];
        if (!mayTakeOfHead(byte)) {
            fail();
            return -1;
        }
        *bytes = byte;
        return 1;
    }
    const std::size_t count = std::min(size, filled_ - position_);
    std::copy_n(buffer_.data() + position_, count, bytes);
    position_ += count;
    bodyBytes_ += count;
    return static_cast<ssize_t>(count);
}

void RequestStream::get_remote_ip_and_port(std::string& ip, int& port) const
{
    ip.clear();
    port = 0;
}

void RequestStream::get_local_ip_and_port(std::string& ip, int& port) const
{
    ip.clear();
    port = 0;
}

bool RequestStream::fill(SteadyTime deadline)
{
    if (!isSound_)
        return false;
    position_ = 0;
    filled_ = receive(buffer_.data(), buffer_.size(), deadline);
    isSound_ = filled_ > 0;
    return isSound_;
}

bool RequestStream::mayTakeOfHead(char byte)
{
    ++headBytes_;
    if (byte == '\n') {
        // An empty line, with or without its carriage return, ends the head.
        if (lineBytes_ == 0 && headLines_ > 0)
            isInHead_ = false;
        ++headLines_;
        lineBytes_ = 0;
    } else if (byte != '\r') {
        ++lineBytes_;
    }
    return headBytes_ <= largestHead && headLines_ <= mostHeadLines;
}

} // namespace bridge
