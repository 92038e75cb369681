#include "Net/TlsServer.h"

#include "Net/ConnectionThreads.h"
#include "Net/TlsStream.h"

#include <csignal>
#include <sys/eventfd.h>
#include <unistd.h>

namespace bridge {

static constexpr std::size_t mostConnections = 600;
static constexpr std::size_t mostRequestsOfConnection = 100;
static constexpr std::chrono::seconds patienceForNextRequest(2);
static constexpr std::size_t longestPath = 512;

TlsServer::TlsServer(const TlsIdentity& identity)
    : context_(identity.serverContext()), stop_(::eventfd(0, EFD_CLOEXEC))
{
    std::signal(SIGPIPE, SIG_IGN);
    new_task_queue = [] { return new ConnectionThreads(mostConnections); };
    set_keep_alive_max_count(mostRequestsOfConnection);
    set_keep_alive_timeout(patienceForNextRequest.count());
    set_tcp_nodelay(true);
    // Without the library's SO_REUSEPORT, which lets two servers share an address unnoticed.
    set_socket_options([](socket_t socket) {
        const int yes = 1;
        ::setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
    });
}

int TlsServer::bind(const std::string& host, int port)
{
    const int bound = port == 0 ? bind_to_any_port(host) : bind_to_port(host, port) ? port : -1;
    if (bound <= 0)
        return 0;
    // The library asks for a backlog of 5, which a burst of connections overflows.
    ::listen(svr_sock_, SOMAXCONN);
    return bound;
}

void TlsServer::serve()
{
    listen_after_bind();
}

void TlsServer::finish()
{
    // A stop before the library has entered its loop would be lost.
    while (!is_running() && svr_sock_ != INVALID_SOCKET)
        std::this_thread::yield();
    const std::uint64_t one = 1;
    if (::write(stop_.number(), &one, sizeof one) == sizeof one)
        stop();
}

bool TlsServer::process_and_close_socket(socket_t socket)
{
    // Whatever goes wrong here, be it that memory has run out, is the end of this connection and of nothing
    // else.
    try {
        TlsStream stream(socket, context_.get(), stop_.number());
        const Next next = stream.accept() ? serveAll(stream) : Next::Close;
        stream.close(next == Next::CloseWhileClientSends);
    } catch (...) {
        ::shutdown(socket, SHUT_RDWR);
    }
    ::close(socket);
    return true;
}

TlsServer::Next TlsServer::serveAll(RequestStream& stream)
{
    Next next = Next::AnotherRequest;
    for (std::size_t count = 1; next == Next::AnotherRequest; ++count) {
        const RequestStream::Arrival arrival = stream.awaitRequest(patienceForNextRequest);
        if (arrival == RequestStream::Arrival::Nothing)
            return Next::Close;
        next = serveOne(
            stream, arrival == RequestStream::Arrival::Malformed || count == mostRequestsOfConnection);
    }
    return next;
}

TlsServer::Next TlsServer::serveOne(RequestStream& stream, bool isLast)
{
    bool isOver = isLast;
    bool isUnderstood = false;
    const bool served = process_request(stream, isLast, isOver, [&](httplib::Request& request) {
        isUnderstood = true;
        // The library calls this in its clients only.
        request.progress = [&stream](std::uint64_t, std::uint64_t) {
            stream.expectText();
            return true;
        };
        // No operation has so long a path, and matching it recurses once per character.
        if (request.path.size() > longestPath)
            request.path = "/unknown";
    });
    if (!stream.isSound() || !stream.isBodyRead())
        return Next::CloseWhileClientSends;
    return served && isUnderstood && !isOver ? Next::AnotherRequest : Next::Close;
}

void TlsServer::expectText(const httplib::Request& request)
{
    if (request.progress)
        request.progress(0, 0);
}

} // namespace bridge
