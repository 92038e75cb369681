#pragma once

#include "CurlWebSession.h"

#include "support/Await.h"
#include "support/RawServer.h"

#include <gtest/gtest.h>

#include <optional>
#include <ostream>

/// How a send ended, as one value to compare.
struct Outcome
{
    std::optional<TransportError::Code> error;
    std::optional<int> status;
    QByteArray body;

    bool operator==(const Outcome&) const = default;
};

inline Outcome answered(int status, const QByteArray& body = "{}")
{
    return {std::nullopt, status, body};
}

/// An answer that is none: it has no status.
inline Outcome unusable(const QByteArray& body = {})
{
    return {std::nullopt, std::nullopt, body};
}

inline Outcome failed(TransportError::Code code)
{
    return {code, std::nullopt, {}};
}

inline void PrintTo(const Outcome& outcome, std::ostream* out)
{
    if (outcome.error)
        *out << "error " << int(*outcome.error);
    else
        *out << "status " << outcome.status.value_or(0) << ", " << outcome.body.size()
             << " bytes: " << outcome.body.left(60).toPercentEncoding(" {}\":,/").toStdString();
}

inline Outcome outcomeOf(const Awaited<Response>& answer)
{
    try {
        const Response response = answer.result();
        return {std::nullopt, response.status, response.body};
    } catch (const TransportError& error) {
        return failed(error.code());
    }
}

inline Request get(const QUrl& url)
{
    Request request;
    request.method = "GET";
    request.url = url;
    return request;
}

inline Request write(const QUrl& url, const QByteArray& method = "POST", const QByteArray& body = "{\"n\":1}")
{
    Request request;
    request.method = method;
    request.url = url;
    request.headers = {{"Content-Type", "application/json"}, {"Authorization", "Bearer secret"}};
    if (!body.isEmpty())
        request.body = RequestBody(body);
    return request;
}

/// The options of a client that trusts the tests' own authority.
inline CurlWebSession::Options trusting()
{
    CurlWebSession::Options options;
    options.trustedFile = TestCertificates::shared().authorityFile();
    return options;
}

/// Sends and waits for the outcome.
inline Outcome outcomeOf(WebSession& session, Request request)
{
    return outcomeOf(Awaited<Response>(session.send(std::move(request))));
}

/// The transports that everything must hold on.
enum class Transport
{
    Plain,
    Tls
};

inline std::unique_ptr<RawServer> serve(Transport transport, RawServer::Script script)
{
    return transport == Transport::Tls ? std::make_unique<RawServer>(std::move(script), RawServer::Tls{})
                                       : std::make_unique<RawServer>(std::move(script));
}

inline std::string nameOf(Transport transport)
{
    return transport == Transport::Tls ? "Tls" : "Plain";
}

inline void PrintTo(Transport transport, std::ostream* out)
{
    *out << nameOf(transport);
}
