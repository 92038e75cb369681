#include "Net/RequestStream.h"

#include "Net/RequestHead.h"

#include <algorithm>
#include <string_view>

namespace bridge {

using namespace std::chrono;

static constexpr seconds patienceForHead(10);

RequestStream::RequestStream(SteadyClock clock) : clock_(std::move(clock)) { }

RequestStream::Arrival RequestStream::awaitRequest(seconds patience)
{
    head_.clear();
    headPosition_ = 0;
    if (position_ == filled_ && !fill(clock_() + patience))
        return Arrival::Nothing;
    return readHead();
}

RequestStream::Arrival RequestStream::readHead()
{
    const SteadyMoment deadline = clock_() + patienceForHead;
    HeadReader reader;
    HeadReader::State state = HeadReader::State::Incomplete;
    while (state == HeadReader::State::Incomplete) {
        if (position_ == filled_ && !fill(deadline))
            return Arrival::Nothing;
        state = reader.take(buffer_[position_++]);
    }
    const std::optional<RequestHead> head
        = state == HeadReader::State::Complete ? RequestHead::parse(reader.text()) : std::nullopt;
    isBodyBegun_ = isBodyBroken_ = false;
    isContinueAwaited_ = head && head->awaitsContinue();
    pace_ = BodyPace();
    // Where the body of a request ends that could not be read is not known.
    framing_ = BodyFraming(head ? head->bodyLength() : std::nullopt);
    head_ = head ? head->forLibrary() : "\r\n";
    return head ? Arrival::Request : Arrival::Malformed;
}

ssize_t RequestStream::read(char* bytes, size_t size)
{
    if (headPosition_ == head_.size())
        return readBody(bytes, size);
    const std::size_t count = std::min(size, head_.size() - headPosition_);
    std::copy_n(head_.data() + headPosition_, count, bytes);
    headPosition_ += count;
    return static_cast<ssize_t>(count);
}

ssize_t RequestStream::readBody(char* bytes, std::size_t size)
{
    if (!isBodyBegun_)
        beginBody();
    const auto hasInput = [this] { return position_ < filled_ || fill(pace_.deadline(clock_())); };
    while (framing_.dataLeft() == 0) {
        if (framing_.isOver())
            return 0;
        isBodyBroken_ = isBodyBroken_ || !hasInput() || !framing_.take(buffer_[position_++]);
        if (isBodyBroken_)
            return -1;
    }
    if (!hasInput())
        return -1;
    const std::size_t count = static_cast<std::size_t>(
        std::min<std::uint64_t>(framing_.dataLeft(), std::min(size, filled_ - position_)));
    std::copy_n(buffer_.data() + position_, count, bytes);
    position_ += count;
    framing_.passOver(count);
    pace_.count(count);
    return static_cast<ssize_t>(count);
}

void RequestStream::beginBody()
{
    isBodyBegun_ = true;
    pace_.begin(clock_());
    constexpr std::string_view goOn = "HTTP/1.1 100 Continue\r\n\r\n";
    if (isContinueAwaited_ && position_ == filled_ && !framing_.isOver())
        write(goOn.data(), goOn.size());
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

bool RequestStream::fill(SteadyMoment deadline)
{
    position_ = filled_ = 0;
    // What is there already is too late too, or a client in a hurry would never meet a deadline.
    if (isSound_ && clock_() < deadline)
        filled_ = receive(buffer_.data(), buffer_.size(), deadline);
    isSound_ = filled_ > 0;
    return isSound_;
}

} // namespace bridge
