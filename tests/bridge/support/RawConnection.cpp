#include "support/RawConnection.h"

#include <algorithm>
#include <arpa/inet.h>
#include <csignal>
#include <netinet/in.h>
#include <sys/socket.h>

static sockaddr_in addressOf(const std::string& host, int port)
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    ::inet_pton(AF_INET, host.c_str(), &address.sin_addr);
    return address;
}

Connection::Connection(int port, const std::string& source)
    : socket_(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
{
    const sockaddr_in here = addressOf(source, 0);
    const sockaddr_in there = addressOf("127.0.0.1", port);
    isOpen_ = ::bind(socket_.number(), reinterpret_cast<const sockaddr*>(&here), sizeof here) == 0
        && ::connect(socket_.number(), reinterpret_cast<const sockaddr*>(&there), sizeof there) == 0;
}

RawConnection::RawConnection(int port, const std::string& source)
    : connection_(port, source), context_(SSL_CTX_new(TLS_client_method()), SSL_CTX_free),
      ssl_(SSL_new(context_.get()), SSL_free)
{
    std::signal(SIGPIPE, SIG_IGN);
    SSL_set_fd(ssl_.get(), connection_.socket());
    SSL_connect(ssl_.get());
}

bool RawConnection::send(const std::string& bytes)
{
    return SSL_write(ssl_.get(), bytes.data(), static_cast<int>(bytes.size())) > 0;
}

void RawConnection::flood(const std::string& piece, std::size_t bytes)
{
    std::string many;
    while (many.size() < 64 << 10)
        many += piece;
    for (std::size_t sent = 0; sent < bytes && send(many); sent += many.size()) { }
}

void RawConnection::finishSending()
{
    SSL_shutdown(ssl_.get());
}

std::string RawConnection::read(std::size_t count)
{
    std::string bytes(count, '\0');
    std::size_t have = 0;
    for (int more = 1; have < count && more > 0; have += static_cast<std::size_t>(std::max(0, more)))
        more = SSL_read(ssl_.get(), bytes.data() + have, static_cast<int>(count - have));
    return bytes.substr(0, have);
}

std::string RawConnection::readAll()
{
    std::string all;
    char buffer[4096];
    for (int count; (count = SSL_read(ssl_.get(), buffer, sizeof buffer)) > 0;)
        all.append(buffer, static_cast<std::size_t>(count));
    return all;
}
