#pragma once

#include "Store/Files.h"

#include <openssl/ssl.h>

#include <memory>
#include <string>

/// A bare TCP connection to a server on 127.0.0.1.
class Connection
{
public:
    /// \param source  the address of this machine that it comes from
    explicit Connection(int port, const std::string& source = "127.0.0.1");

    bool isOpen() const { return isOpen_; }
    int socket() const { return socket_.number(); }

private:
    bridge::Descriptor socket_;
    bool isOpen_ = false;
};

/// A TLS connection that sends whatever it is told.
class RawConnection
{
public:
    explicit RawConnection(int port, const std::string& source = "127.0.0.1");

    /// False once the server takes no more.
    bool send(const std::string& bytes);

    /// Sends a piece again and again, until the server takes no more or so many bytes are sent.
    void flood(const std::string& piece, std::size_t bytes);

    /// Says that nothing more will be sent; answers may still come.
    void finishSending();

    /// Exactly so many bytes, or fewer when the connection ends before.
    std::string read(std::size_t count);

    /// Everything up to the end of the connection.
    std::string readAll();

private:
    Connection connection_;
    std::unique_ptr<SSL_CTX, decltype(&SSL_CTX_free)> context_;
    std::unique_ptr<SSL, decltype(&SSL_free)> ssl_;
};
