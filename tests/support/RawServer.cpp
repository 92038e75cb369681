#include "RawServer.h"

#include "Await.h"

#include <openssl/ssl.h>

#include <arpa/inet.h>
#include <csignal>
#include <netinet/in.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <stdexcept>

void RawServer::ContextCleanup::operator()(ssl_ctx_st* context) const
{
    SSL_CTX_free(context);
}

/// A context that allows even the versions and ciphers that a client must refuse.
static SSL_CTX* makeContext(const RawServer::Tls& tls)
{
    SSL_CTX* const context = SSL_CTX_new(TLS_server_method());
    if (tls.newestVersion)
        SSL_CTX_set_cipher_list(context, "ALL:@SECLEVEL=0");
    if (tls.oldestVersion)
        SSL_CTX_set_min_proto_version(context, *tls.oldestVersion);
    if (tls.newestVersion)
        SSL_CTX_set_max_proto_version(context, *tls.newestVersion);
    const bool isLoaded
        = SSL_CTX_use_certificate_chain_file(context, tls.identity.certificateFile.constData()) == 1
        && SSL_CTX_use_PrivateKey_file(context, tls.identity.keyFile.constData(), SSL_FILETYPE_PEM) == 1;
    if (!isLoaded)
        throw std::runtime_error("the server's certificate cannot be used");
    return context;
}

RawServer::RawServer(Script script) : script_(std::move(script))
{
    listen();
}

RawServer::RawServer(Script script, const Tls& tls) : script_(std::move(script)), tls_(makeContext(tls))
{
    listen();
}

void RawServer::listen()
{
    listener_ = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    stopSignal_ = eventfd(0, EFD_CLOEXEC);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto* const generic = reinterpret_cast<sockaddr*>(&address);
    if (bind(listener_, generic, size) != 0 || ::listen(listener_, SOMAXCONN) != 0
        || getsockname(listener_, generic, &size) != 0)
        throw std::runtime_error("no port to listen on");
    port_ = ntohs(address.sin_port);
    acceptor_ = std::thread([this] { acceptAll(); });
}

RawServer::~RawServer()
{
    eventfd_write(stopSignal_, 1);
    acceptor_.join();
    for (std::thread& conversation : conversations_)
        conversation.join();
    ::close(listener_);
    ::close(stopSignal_);
}

QUrl RawServer::url(const QString& path) const
{
    QUrl url;
    url.setScheme(tls_ ? QStringLiteral("https") : QStringLiteral("http"));
    url.setHost(QStringLiteral("127.0.0.1"));
    url.setPort(port_);
    url.setPath(path);
    return url;
}

QList<RawRequest> RawServer::seen() const
{
    const std::scoped_lock lock(mutex_);
    return seen_;
}

void RawServer::acceptAll()
{
    for (int number = 0;; ++number) {
        std::array<pollfd, 2> waits{{{listener_, POLLIN, 0}, {stopSignal_, POLLIN, 0}}};
        // A change of the process's privileges reaches every thread by a signal.
        if (poll(waits.data(), waits.size(), -1) < 0)
            continue;
        if (waits[1].revents)
            return;
        const int socket = accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
        if (socket < 0)
            continue;
        ++connections_;
        wakeMainLoop();
        conversations_.emplace_back([this, socket, number] { converse(socket, number); });
    }
}

void RawServer::converse(int socket, int number)
{
    // OpenSSL writes to sockets that the client has reset; only this thread is to survive that.
    sigset_t brokenPipe;
    sigemptyset(&brokenPipe);
    sigaddset(&brokenPipe, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &brokenPipe, nullptr);
    try {
        RawStream stream(socket, stopSignal_, tls_.get());
        RawConnection connection(*this, stream, number);
        script_(connection);
    } catch (const RawStream::Gone&) {
        // The conversation is over, whoever ended it.
    }
    ++ended_;
    wakeMainLoop();
}

void RawServer::remember(const RawRequest& request)
{
    {
        const std::scoped_lock lock(mutex_);
        seen_ += request;
    }
    ++requests_;
    wakeMainLoop();
}
