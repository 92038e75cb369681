#pragma once

#include "RequestBody.h"

#include <QByteArray>
#include <QCoroTask>
#include <QFuture>
#include <QList>
#include <QUrl>

#include <exception>
#include <functional>
#include <optional>

/// One request as it goes out. Everything but GET is a write: it leaves this machine at most once. A request
/// that cannot be meant (an address without a host, or with a user; a header of several lines) fails unsent.
struct Request
{
    struct Header
    {
        QByteArray name;
        QByteArray value; ///< must not hold CR, LF or NUL; a request with such a value is refused unsent
    };
    /// Bytes of the body handed to the network so far, and the body's whole size. Called on the main thread,
    /// at most about sixty times a second, and once more when the last byte has gone; never for an empty
    /// body.
    using Progress = std::function<void(qint64 sent, qint64 total)>;

    QByteArray method;
    QUrl url; ///< absolute, http or https
    QList<Header> headers;
    RequestBody body;
    Progress onProgress;
    /// Where there is one, it finishes when nobody waits for the answer any more, which ends the request as
    /// cancelled. For reads: a write that has been begun goes on whoever has left.
    std::optional<QFuture<void>> abandoned;
};

/// What a server answered. `status` is empty when the answer was no usable reply of the protocol, such as one
/// whose body grew beyond any sensible size.
struct Response
{
    std::optional<int> status;
    QByteArray body;
};

/// A request that brought no answer. The codes are the vocabulary in which the pipeline words failures.
class TransportError : public std::exception
{
public:
    enum class Code
    {
        UserAuthenticationRequired,
        UserCancelledAuthentication,
        NotConnectedToInternet,
        NetworkConnectionLost,
        TimedOut,
        CannotFindHost,
        CannotConnectToHost,
        DnsLookupFailed,
        SecureConnectionFailed,
        BadServerResponse,
        BadURL,
        UnsupportedURL,
        CannotReadFile, ///< a file of the body could not be opened or read, or became shorter
        Cancelled, ///< the session ended first, or nobody waits for the answer any more
        Unknown,
    };

    explicit TransportError(Code code) : code_(code) { }
    Code code() const { return code_; }
    const char* what() const noexcept override { return "the request brought no answer"; }

private:
    Code code_;
};

/// The one thing that touches the network. A send resolves exactly once, through the event loop and never
/// inside a call of its own: with a Response, or by throwing a TransportError. Redirects are answers like any
/// other; they are not followed. All members are used on the main thread.
class WebSession
{
public:
    WebSession() = default;
    WebSession(const WebSession&) = delete;
    WebSession& operator=(const WebSession&) = delete;
    virtual ~WebSession() = default;

    virtual QCoro::Task<Response> send(Request request) = 0;
};
