#include "Net/TlsStream.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <netdb.h>
#include <poll.h>
#include <sys/socket.h>

namespace bridge {

using namespace std::chrono;

static constexpr seconds patienceForHandshake(5);
static constexpr seconds patienceForWriting(30);
static constexpr seconds patienceForGoodbye(2);
static constexpr std::size_t largestGoodbye = 8 << 20;

TlsStream::TlsStream(socket_t socket, SSL_CTX* context, int stop)
    : RequestStream(steady_clock::now), socket_(socket), stop_(stop), ssl_(SSL_new(context), SSL_free)
{
    ::fcntl(socket_, F_SETFL, ::fcntl(socket_, F_GETFL) | O_NONBLOCK);
    if (!ssl_ || SSL_set_fd(ssl_.get(), socket_) != 1)
        fail();
}

bool TlsStream::accept()
{
    const SteadyMoment deadline = steady_clock::now() + patienceForHandshake;
    while (isSound()) {
        const int result = SSL_accept(ssl_.get());
        if (result == 1)
            return true;
        if (!retry(result, deadline))
            fail();
    }
    return false;
}

void TlsStream::close(bool clientMayStillSend)
{
    if (!isSound())
        return;
    SSL_shutdown(ssl_.get());
    if (clientMayStillSend)
        swallowRest();
}

void TlsStream::swallowRest()
{
    ::shutdown(socket_, SHUT_WR);
    const SteadyMoment deadline = steady_clock::now() + patienceForGoodbye;
    std::array<char, 16 << 10> buffer;
    std::size_t received = 0;
    while (received < largestGoodbye && wait(POLLIN, deadline)) {
        const ssize_t count = ::recv(socket_, buffer.data(), buffer.size(), 0);
        if (count == 0 || (count < 0 && errno != EAGAIN && errno != EINTR))
            return;
        received += count > 0 ? static_cast<std::size_t>(count) : 0;
    }
}

bool TlsStream::is_readable() const
{
    return RequestStream::is_readable() || SSL_pending(ssl_.get()) > 0;
}

void TlsStream::get_remote_ip_and_port(std::string& ip, int& port) const
{
    sockaddr_storage address{};
    socklen_t size = sizeof address;
    std::array<char, NI_MAXHOST> host{};
    const bool isKnown = ::getpeername(socket_, reinterpret_cast<sockaddr*>(&address), &size) == 0
        && ::getnameinfo(reinterpret_cast<sockaddr*>(&address), size, host.data(), host.size(), nullptr, 0,
               NI_NUMERICHOST)
            == 0;
    ip = isKnown ? host.data() : "";
    // The scope of a link-local address is a name of this machine's own.
    ip.resize(std::min(ip.size(), ip.find('%')));
    port = 0;
}

ssize_t TlsStream::write(const char* bytes, size_t size)
{
    if (!ssl_ || size == 0)
        return size == 0 ? 0 : -1;
    const SteadyMoment deadline = steady_clock::now() + patienceForWriting;
    for (;;) {
        const int result = SSL_write(ssl_.get(), bytes, static_cast<int>(std::min<size_t>(size, 1 << 30)));
        if (result > 0)
            return result;
        if (!retry(result, deadline)) {
            fail();
            return -1;
        }
    }
}

std::size_t TlsStream::receive(char* buffer, std::size_t room, SteadyMoment deadline)
{
    for (;;) {
        const int result = SSL_read(ssl_.get(), buffer, static_cast<int>(room));
        if (result > 0)
            return static_cast<std::size_t>(result);
        if (!retry(result, deadline))
            return 0;
    }
}

// True when the operation that gave this result is worth repeating.
bool TlsStream::retry(int result, SteadyMoment deadline) const
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

bool TlsStream::wait(short events, SteadyMoment deadline) const
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

} // namespace bridge
