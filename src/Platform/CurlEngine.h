#pragma once

#include "CurlSocketNotifiers.h"
#include "CurlTransfer.h"

#include <QTimer>

/// libcurl's multi interface on Qt's event loop. libcurl says which sockets it waits for and when it wants to
/// be woken; the event loop tells it what has happened. No request is ever begun, ended or resolved within
/// start().
class CurlEngine : public QObject
{
public:
    explicit CurlEngine(const CurlWebSession::Options& options);
    ~CurlEngine() override { cancelAll(); }

    /// The outcome is there once the event loop has run; on cancelAll() it is there at once.
    QFuture<CurlTransfer::Outcome> start(Request request);
    void cancelAll();

private:
    static int watchSocket(CURL*, curl_socket_t socket, int what, void* self, void*);
    static int wakeAfter(CURLM*, long milliseconds, void* self);

    using Weak = std::weak_ptr<CurlTransfer>;
    void begin(const Weak& transfer);
    /// Ends a transfer that is not over yet.
    void end(const Weak& transfer, TransportError::Code code);
    void act(curl_socket_t socket);
    std::shared_ptr<CurlTransfer> take(CURL* handle);

    const CurlWebSession::Options options_;
    bool isOver_ = false;
    QTimer timer_;
    CurlSocketNotifiers notifiers_;
    CurlShare share_;
    std::unordered_map<CURL*, std::shared_ptr<CurlTransfer>> transfers_;
    // The last, so that it goes first: while it closes its connections it still uses the members above.
    CurlMulti multi_;
};
