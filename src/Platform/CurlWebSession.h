#pragma once

#include "WebSession.h"

#include <chrono>
#include <memory>

class CurlEngine;

/// The web session over libcurl, driven by the event loop's socket notifiers and one timer.
///
/// Certificates are always verified, against the system's and those of the file named by SSL_CERT_FILE.
/// TLS 1.2 is the least. No compression is asked for, so a body in memory is never larger than what was sent.
/// A refused request (its address, a header, a file of its body) never reaches the network.
class CurlWebSession : public WebSession
{
public:
    struct Options
    {
        /// Until a connection, its TLS included, stands.
        std::chrono::milliseconds connectTimeout = std::chrono::seconds(60);
        /// Without a byte moving in either direction.
        std::chrono::seconds idleTimeout{60};
        /// Bytes of an answer's body; a longer one is cut off and has no status.
        qint64 largestBody = qint64(256) * 1024 * 1024;
        /// A file of further trusted certificates; empty for none. One that does not exist adds none.
        QByteArray trustedFile = qgetenv("SSL_CERT_FILE");
    };

    CurlWebSession() : CurlWebSession(Options{}) { }
    explicit CurlWebSession(Options options);
    /// Ends what is under way, as cancelAll() does.
    ~CurlWebSession() override;

    QCoro::Task<Response> send(Request request) override;

    /// Ends every request under way, and any that is sent from now on, with TransportError::Code::Cancelled.
    /// Whoever awaits one resumes when the event loop next runs; a program that ends lets it run once more.
    void cancelAll();

private:
    std::unique_ptr<CurlEngine> engine_;
};
