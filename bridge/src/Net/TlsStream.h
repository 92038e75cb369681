#pragma once

#include "Net/RequestStream.h"

#include <memory>

namespace bridge {

/// One accepted connection, encrypted.
class TlsStream : public RequestStream
{
public:
    /// \param socket  put into non-blocking mode; closed by the caller
    /// \param stop  a descriptor that becomes readable when the server stops: waiting for more input ends
    /// then
    TlsStream(socket_t socket, SSL_CTX* context, int stop);

    /// The TLS handshake.
    bool accept();

    /// Says goodbye. A client that is still sending a body gets a moment to notice the answer first, since
    /// closing right away would discard it. After a breach there is nothing to say.
    void close(bool clientMayStillSend);

    bool is_readable() const override;
    void get_remote_ip_and_port(std::string& ip, int& port) const override;
    ssize_t write(const char* bytes, size_t size) override;
    socket_t socket() const override { return socket_; }

private:
    std::size_t receive(char* buffer, std::size_t room, SteadyMoment deadline) override;
    bool wait(short events, SteadyMoment deadline) const;
    bool retry(int result, SteadyMoment deadline) const;
    void swallowRest();

    const socket_t socket_;
    const int stop_;
    std::unique_ptr<SSL, decltype(&SSL_free)> ssl_;
};

} // namespace bridge
