#pragma once

#include <httplib.h>

#include <array>
#include <chrono>
#include <memory>
#include <string>

namespace bridge {

/// One accepted connection, encrypted, as the HTTP library reads and writes it. It keeps the bounds that the
/// library lacks: how long and how many the lines of a request's head may be, and how long a head may take.
class TlsStream : public httplib::Stream
{
public:
    /// \param socket  put into non-blocking mode; closed by the caller
    /// \param stop  a descriptor that becomes readable when the server stops: waiting for more input ends
    /// then
    TlsStream(socket_t socket, SSL_CTX* context, int stop);

    /// The TLS handshake.
    bool accept();

    /// Waits for the first byte of a request; false when none came in time.
    bool awaitRequest(std::chrono::seconds patience);

    /// The bytes of the body that were read since awaitRequest().
    std::uint64_t bodyBytes() const { return bodyBytes_; }

    /// False after a failure or a breach of the bounds: nothing more can be read.
    bool isSound() const { return isSound_; }

    /// Says goodbye. A client that is still sending a body gets a moment to notice the answer first, since
    /// closing right away would discard it. After a breach there is nothing to say.
    void close(bool clientMayStillSend);

    bool is_readable() const override;
    bool is_writable() const override;
    ssize_t read(char* bytes, size_t size) override;
    ssize_t write(const char* bytes, size_t size) override;
    void get_remote_ip_and_port(std::string& ip, int& port) const override;
    void get_local_ip_and_port(std::string& ip, int& port) const override;
    socket_t socket() const override { return socket_; }

private:
    using SteadyTime = std::chrono::steady_clock::time_point;

    bool fill(SteadyTime deadline);
    bool wait(short events, SteadyTime deadline) const;
    bool retry(int result, SteadyTime deadline) const;
    bool mayTakeOfHead(char byte);

    const socket_t socket_;
    const int stop_;
    std::unique_ptr<SSL, decltype(&SSL_free)> ssl_;
    std::array<char, 16 << 10> buffer_;
    std::size_t position_ = 0;
    std::size_t filled_ = 0;
    bool isSound_ = true;

    bool isInHead_ = true;
    std::size_t headBytes_ = 0;
    std::size_t headLines_ = 0;
    std::size_t lineBytes_ = 0;
    SteadyTime headDeadline_;
    std::uint64_t bodyBytes_ = 0;
};

} // namespace bridge
