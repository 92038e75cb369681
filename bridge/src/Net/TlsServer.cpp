#include "Net/TlsServer.h"

#include "Net/ConnectionThreads.h"
#include "Net/TlsStream.h"

#include <charconv>
#include <csignal>
#include <optional>
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
    TlsStream stream(socket, context_.get(), stop_.number());
    const Next next = stream.accept() ? serveAll(stream) : Next::Close;
    stream.close(next == Next::CloseWhileClientSends);
    ::close(socket);
    return true;
}

TlsServer::Next TlsServer::serveAll(RequestStream& stream)
{
    Next next = Next::AnotherRequest;
    for (std::size_t count = 1; next == Next::AnotherRequest; ++count) {
        if (!stream.awaitRequest(patienceForNextRequest))
            return Next::Close;
        next = serveOne(stream, count == mostRequestsOfConnection);
    }
    return next;
}

// The length that the request states for its body; none when it is in chunks, of which nobody knows the sum,
// or when it is stated in a way that two readers could understand differently.
static std::optional<std::uint64_t> statedLength(const httplib::Request& request)
{
    if (request.has_header("Transfer-Encoding"))
        return std::nullopt;
    const std::size_t count = request.get_header_value_count("Content-Length");
    if (count == 0)
        return 0;
    const std::string text = request.get_header_value("Content-Length");
    const char* end = text.data() + text.size();
    std::uint64_t length = 0;
    const auto [stop, error] = std::from_chars(text.data(), end, length);
    return count == 1 && error == std::errc() && stop == end ? std::optional(length) : std::nullopt;
}

TlsServer::Next TlsServer::serveOne(RequestStream& stream, bool isLast)
{
    bool isOver = isLast;
    std::optional<std::uint64_t> bodyLength = 0;
    const bool served = process_request(stream, isLast, isOver, [&bodyLength](httplib::Request& request) {
        bodyLength = statedLength(request);
        const std::string type = request.get_header_value("Content-Type");
        request.headers.erase("Content-Type");
        request.headers.erase(receivedContentType);
        request.set_header(receivedContentType, type);
        // No operation has so long a path, and matching it recurses once per character.
        if (request.path.size() > longestPath)
            request.path = "/unknown";
    });
    if (!stream.isSound() || bodyLength != stream.bodyBytes())
        return Next::CloseWhileClientSends;
    return served && !isOver ? Next::AnotherRequest : Next::Close;
}

} // namespace bridge
