#pragma once

#include "AnswerReader.h"
#include "BodyReader.h"
#include "CurlHandles.h"
#include "CurlWebSession.h"

#include <QElapsedTimer>
#include <QFuture>
#include <QPromise>

#include <variant>

class QObject;

/// One request under way: its libcurl handle, what has been sent and received, and who waits for the outcome.
class CurlTransfer : public std::enable_shared_from_this<CurlTransfer>
{
public:
    using Options = CurlWebSession::Options;
    using Outcome = std::variant<Response, TransportError::Code>;

    /// \param events  carries reports of progress into the event loop, and outlives the transfer
    CurlTransfer(Request request, const Options& options, QObject* events);
    CurlTransfer(const CurlTransfer&) = delete;
    CurlTransfer& operator=(const CurlTransfer&) = delete;

    CURL* handle() const { return handle_.get(); }
    QFuture<Outcome> outcome() const { return promise_.future(); }

    /// Why the request cannot be sent, as far as it tells by itself.
    std::optional<TransportError::Code> refusal() const;
    /// Makes sure that all files of the body can be sent. When the disk does not answer for as long as a
    /// server may take, they cannot. \param done  called at once where there are no files, else by the event
    /// loop; nothing when all are open
    void openFiles(std::function<void(std::optional<TransportError::Code>)> done);
    /// Makes everything ready to send; the TLS sessions of earlier connections come from `share`.
    /// \returns why libcurl cannot send the request, or nothing
    std::optional<TransportError::Code> prepare(CURLSH* share);
    /// Resolves the outcome from libcurl's result.
    void finish(CURLcode result);
    /// Resolves the outcome without one.
    void fail(TransportError::Code code) { resolve(code); }

private:
    template <typename Value>
    void set(CURLoption option, Value value);
    void setAddress();
    void setMethodAndBody();
    void setHeaders();
    void setTimeouts();
    void setTrust();
    void setReceivers();

    size_t waitForDisk();
    static size_t readBody(char* buffer, size_t size, size_t count, void* self);
    static size_t takeHeaderLine(char* data, size_t size, size_t count, void* self);
    static size_t takeBody(char* data, size_t size, size_t count, void* self);

    void reportProgress();
    Outcome outcomeOf(CURLcode result) const;
    void resolve(Outcome outcome);

    const Request request_;
    const Options options_;
    QObject* const events_;
    BodyReader reader_;
    AnswerReader answer_;
    CurlList headers_;
    CurlEasy handle_;
    CURLcode setUp_ = CURLE_OK; ///< the first option that libcurl refused
    bool fileFailed_ = false;
    QElapsedTimer sinceProgress_;
    QPromise<Outcome> promise_;
    bool waitsForDisk_ = false;
};
