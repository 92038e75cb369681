#include "RawStream.h"

#include <openssl/err.h>
#include <openssl/ssl.h>

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cerrno>

void RawStream::TlsCleanup::operator()(ssl_st* tls) const
{
    SSL_free(tls);
}

RawStream::RawStream(int socket, int stopSignal, ssl_ctx_st* tls)
    : socket_(socket), stopSignal_(stopSignal), tls_(tls ? SSL_new(tls) : nullptr)
{
    fcntl(socket_, F_SETFL, fcntl(socket_, F_GETFL) | O_NONBLOCK);
    try {
        if (tls_)
            shakeHands();
    } catch (...) {
        ::close(socket_);
        throw;
    }
}

RawStream::~RawStream()
{
    close();
}

void RawStream::shakeHands()
{
    SSL_set_fd(tls_.get(), socket_);
    if (repeat([this] { return SSL_accept(tls_.get()); }) != 1)
        throw Gone();
}

void RawStream::await(short events)
{
    std::array<pollfd, 2> waits{{{socket_, events, 0}, {stopSignal_, POLLIN, 0}}};
    while (poll(waits.data(), waits.size(), -1) < 0 && errno == EINTR) { }
    if (waits[1].revents)
        throw Gone();
}

/// Runs one step of the socket's or of OpenSSL's until it no longer asks to wait.
/// \returns its result: positive when it went well, 0 at the stream's end
template <typename Step>
int RawStream::repeat(Step step)
{
    for (;;) {
        ERR_clear_error();
        errno = 0;
        const int result = step();
        if (result > 0)
            return result;
        if (tls_) {
            switch (SSL_get_error(tls_.get(), result)) {
            case SSL_ERROR_WANT_READ:
                await(POLLIN);
                break;
            case SSL_ERROR_WANT_WRITE:
                await(POLLOUT);
                break;
            case SSL_ERROR_ZERO_RETURN:
                return 0;
            default:
                throw Gone();
            }
        } else if (result == 0) {
            return 0;
        } else if (errno == EAGAIN) {
            await(POLLIN | POLLOUT);
        } else {
            throw Gone();
        }
    }
}

int RawStream::read(std::span<char> buffer)
{
    if (!tls_)
        await(POLLIN);
    return repeat([&] {
        return tls_ ? SSL_read(tls_.get(), buffer.data(), int(buffer.size()))
                    : int(recv(socket_, buffer.data(), buffer.size(), 0));
    });
}

void RawStream::write(QByteArrayView bytes)
{
    while (!bytes.isEmpty()) {
        if (!tls_)
            await(POLLOUT);
        const int piece = int(std::min<qsizetype>(bytes.size(), 64 * 1024));
        const int count = repeat([&] {
            return tls_ ? SSL_write(tls_.get(), bytes.data(), piece)
                        : int(send(socket_, bytes.data(), size_t(piece), MSG_NOSIGNAL));
        });
        bytes = bytes.sliced(count);
    }
}

bool RawStream::idle(std::chrono::milliseconds most)
{
    std::array<pollfd, 2> waits{{{socket_, POLLRDHUP, 0}, {stopSignal_, POLLIN, 0}}};
    poll(waits.data(), waits.size(), int(most.count()));
    if (waits[1].revents)
        throw Gone();
    return !waits[0].revents;
}

void RawStream::idle()
{
    await(POLLRDHUP);
}

void RawStream::close()
{
    if (socket_ < 0)
        return;
    if (tls_)
        SSL_shutdown(tls_.get());
    ::close(std::exchange(socket_, -1));
}

void RawStream::reset()
{
    const linger atOnce{1, 0};
    setsockopt(socket_, SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
    ::close(std::exchange(socket_, -1));
}
