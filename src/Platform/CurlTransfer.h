#pragma once

#include "BodyReader.h"
#include "WebSession.h"

#include <QElapsedTimer>
#include <QFuture>
#include <QObject>
#include <QPromise>

#include <curl/curl.h>

#include <memory>
#include <variant>

/// One request under way: its libcurl handle, what has been sent and received, and who waits for the outcome.
class CurlTransfer : public QObject
{
    Q_OBJECT

public:
    using Outcome = std::variant<Response, TransportError::Code>;

    struct Limits
    {
        long connectSeconds;
        long idleSeconds;
        qint64 largestBody;
    };

    CurlTransfer(Request request, const Limits& limits, const QByteArray& trustedFile);
    ~CurlTransfer() override;

    CURL* handle() const { return handle_.get(); }
    QFuture<Outcome> outcome() const { return promise_->future(); }

    /// Resolves the outcome from libcurl's result.
    void finish(CURLcode result);
    /// Resolves the outcome without a result, because the session ends.
    void cancel();

private:
    struct HandleCleanup
    {
        void operator()(CURL* handle) const { curl_easy_cleanup(handle); }
    };
    struct ListCleanup
    {
        void operator()(curl_slist* list) const { curl_slist_free_all(list); }
    };

    void setAddress();
    void setMethodAndBody();
    void setHeaders();
    void setLimits();
    void setTrust(const QByteArray& trustedFile);
    void resolve(Outcome outcome);
    void reportProgress();

    static size_t readBody(char* buffer, size_t size, size_t count, void* self);
    static size_t writeBody(char* data, size_t size, size_t count, void* self);

    template <typename Value>
    void set(CURLoption option, Value value);

    Request request_;
    Limits limits_;
    BodyReader reader_;
    std::unique_ptr<CURL, HandleCleanup> handle_;
    std::unique_ptr<curl_slist, ListCleanup> headers_;
    Response response_;
    bool isTooLarge_ = false;
    bool fileFailed_ = false;
    bool progressIsPosted_ = false;
    QElapsedTimer sinceProgress_;
    std::unique_ptr<QPromise<Outcome>> promise_ = std::make_unique<QPromise<Outcome>>();
};
