#pragma once

#include "RawStream.h"
#include "TestCertificates.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QUrl>

#include <atomic>
#include <functional>
#include <list>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

class RawConnection;

/// A request as the server read it.
struct RawRequest
{
    QByteArray head; ///< the first line and the header lines, without the blank line
    QByteArray body;

    QByteArray method() const;
    QByteArray target() const;
    /// The value of the first header of this name in any case; empty when there is none.
    QByteArray header(const QByteArray& name) const;
};

/// A server on the loopback interface that does exactly what its script says, byte by byte, and remembers
/// what clients did. Every connection runs the script on a thread of its own; the counters may be read on any
/// thread, and the main loop is woken whenever one changes.
class RawServer
{
public:
    using Script = std::function<void(RawConnection&)>;

    struct Tls
    {
        TlsIdentity identity = TestCertificates::shared().identity();
        std::optional<int> oldestVersion{}; ///< such as TLS1_1_VERSION; what OpenSSL allows when left out
        std::optional<int> newestVersion{};
    };

    /// Listens on a free port until this object goes.
    explicit RawServer(Script script);
    RawServer(Script script, const Tls& tls);
    RawServer(const RawServer&) = delete;
    RawServer& operator=(const RawServer&) = delete;
    ~RawServer();

    quint16 port() const { return port_; }
    /// The address of a path that begins with a slash.
    QUrl url(const QString& path = QStringLiteral("/")) const;

    /// Connections accepted, whether or not a TLS handshake followed.
    int connections() const { return connections_; }
    /// Connections on which the script has ended.
    int ended() const { return ended_; }
    /// Requests read to their last byte.
    int requests() const { return requests_; }
    /// Bytes received over all connections, after decryption.
    qint64 received() const { return received_; }
    /// The requests read to their last byte, in that order.
    QList<RawRequest> seen() const;

private:
    friend class RawConnection;
    struct ContextCleanup
    {
        void operator()(ssl_ctx_st* context) const;
    };

    void listen();
    void acceptAll();
    void converse(int socket, int number);
    void countBytes(qint64 count) { received_ += count; }
    void remember(const RawRequest& request);

    const Script script_;
    std::unique_ptr<ssl_ctx_st, ContextCleanup> tls_;
    int listener_ = -1;
    int stopSignal_ = -1;
    quint16 port_ = 0;
    std::atomic<int> connections_ = 0;
    std::atomic<int> ended_ = 0;
    std::atomic<int> requests_ = 0;
    std::atomic<qint64> received_ = 0;
    mutable std::mutex mutex_;
    QList<RawRequest> seen_;
    std::list<std::thread> conversations_; ///< touched by the accepting thread alone while that runs
    std::thread acceptor_;
};

/// A script's side of one connection. A step that the client makes impossible ends the script.
class RawConnection
{
public:
    RawConnection(RawServer& server, RawStream& stream, int number)
        : server_(server), stream_(stream), number_(number)
    { }

    /// 0 for the server's first connection, 1 for the next, and so on.
    int number() const { return number_; }

    /// Reads a request to its last byte, counts and remembers it. A client that closes its side first ends
    /// the script.
    RawRequest readRequest();
    /// Reads a request up to its blank line only; it is not counted.
    RawRequest readHead();
    /// Reads so many bytes of the body without keeping them.
    void skipBody(qint64 count);
    /// Counts a request whose head was read by readHead() and whose body has been skipped.
    void countRequest(const RawRequest& request) { server_.remember(request); }
    /// Reads and forgets whatever comes until the client closes its side.
    void drain();

    void send(QByteArrayView bytes) { stream_.write(bytes); }
    /// Sends the piece at every interval until the client goes.
    void trickle(const QByteArray& piece, std::chrono::milliseconds interval);
    /// Neither reads nor sends until the client goes.
    void stall() { stream_.idle(); }
    /// Closes the connection, TLS included. A script that ends without it closes too.
    void close() { stream_.close(); }
    /// Closes the connection so that the client gets a reset.
    void reset() { stream_.reset(); }

private:
    QByteArrayView readMore();

    RawServer& server_;
    RawStream& stream_;
    const int number_;
    std::vector<char> buffer_ = std::vector<char>(64 * 1024);
    QByteArray unread_;
};

/// A whole answer with a Content-Length. Further header lines each end with CR LF.
QByteArray rawAnswer(int status, const QByteArray& body = "{}", const QByteArray& headerLines = {});
