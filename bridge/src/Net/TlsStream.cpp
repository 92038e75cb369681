#include "Net/TlsStream.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <poll.h>

namespace bridge {

using namespace std::chrono;

static constexpr std::size_t largestHead = 64 << 10;
static constexpr std::size_t mostHeadLines = 200;
static constexpr seconds patienceForHandshake(5);
static constexpr seconds patienceForHead(10);
static constexpr seconds patienceForBody(30);
static constexpr seconds patienceForWriting(30);
static constexpr seconds patienceForGoodbye(2);
static constexpr std::size_t largestGoodbye = 8 << 20;

TlsStream::TlsStream(socket_t socket, SSL_CTX* context, int stop)
    : socket_(socket), stop_(stop), ssl_(SSL_new(context), SSL_free)
{
    ::fcntl(socket_, F_SETFL, ::fcntl(socket_, F_GETFL) | O_NONBLOCK);
    isSound_ = ssl_ && SSL_set_fd(ssl_.get(), socket_) == 1;
}

bool TlsStream::accept()
{
    const SteadyTime deadline = steady_clock::now() + patienceForHandshake;
    while (isSound_) {
        const int result = SSL_accept(ssl_.get());
        if (result == 1)
            return true;
        isSound_ = retry(result, deadline);
    }
    return false;
}

bool TlsStream::awaitRequest(seconds patience)
{
    isInHead_ = true;
    headBytes_ = headLines_ = lineBytes_ = 0;
    bodyBytes_ = 0;
    const bool hasInput = position_ < filled_ || fill(steady_clock::now() + patience);
    headDeadline_ = steady_clock::now() + patienceForHead;
    return hasInput;
}

void TlsStream::close(bool clientMayStillSend)
{
    if (!isSound_)
        return;
    SSL_shutdown(ssl_.get());
    if (!clientMayStillSend)
        return;
    ::shutdown(socket_, SHUT_WR);
    const SteadyTime deadline = steady_clock::now() + patienceForGoodbye;
    std::size_t received = 0;
    while (received < largestGoodbye && wait(POLLIN, deadline)) {
        const ssize_t count = ::recv(socket_, buffer_.data(), buffer_.size(), 0);
        if (count == 0 || (count < 0 && errno != EAGAIN && errno != EINTR))
            return;
        received += count > 0 ? static_cast<std::size_t>(count) : 0;
    }
}

bool TlsStream::is_readable() const
{
    return position_ < filled_ || SSL_pending(ssl_.get()) > 0;
}

bool TlsStream::is_writable() const
{
    return isSound_;
}

ssize_t TlsStream::read(char* bytes, size_t size)
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
            isSound_ = false;
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

ssize_t TlsStream::write(const char* bytes, size_t size)
{
    if (!ssl_ || size == 0)
        return size == 0 ? 0 : -1;
    const SteadyTime deadline = steady_clock::now() + patienceForWriting;
    for (;;) {
        const int result = SSL_write(ssl_.get(), bytes, static_cast<int>(std::min<size_t>(size, 1 << 30)));
        if (result > 0)
            return result;
        if (!retry(result, deadline)) {
            isSound_ = false;
            return -1;
        }
    }
}

void TlsStream::get_remote_ip_and_port(std::string& ip, int& port) const
{
    ip.clear();
    port = 0;
}

void TlsStream::get_local_ip_and_port(std::string& ip, int& port) const
{
    ip.clear();
    port = 0;
}

bool TlsStream::fill(SteadyTime deadline)
{
    while (isSound_) {
        const int result = SSL_read(ssl_.get(), buffer_.data(), static_cast<int>(buffer_.size()));
        if (result > 0) {
            position_ = 0;
            filled_ = static_cast<std::size_t>(result);
            return true;
        }
        isSound_ = retry(result, deadline);
    }
    return false;
}

// True when the operation that gave this result is worth repeating.
bool TlsStream::retry(int result, SteadyTime deadline) const
{
    switch (SSL_get_error(ssl_.get(), result)) {
    case SSL_ERROR_WANT_READ:
        return wait(POLLIN, deadline);
    case SSL_ERROR_WANT_WRITE:
        return wait(POLLOUT, deadline);
    default:
        return false;
    }
}

bool TlsStream::wait(short events, SteadyTime deadline) const
{
    for (;;) {
        const auto left = ceil<milliseconds>(deadline - steady_clock::now());
        if (left.count() <= 0)
            return false;
        const bool heedsStop = events == POLLIN;
        pollfd watched[2] = {{socket_, events, 0}, {stop_, POLLIN, 0}};
        const int ready = ::poll(watched, heedsStop ? 2 : 1, static_cast<int>(left.count()));
        if (ready < 0 && errno == EINTR)
            continue;
        return ready > 0 && watched[0].revents != 0;
    }
}

bool TlsStream::mayTakeOfHead(char byte)
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
