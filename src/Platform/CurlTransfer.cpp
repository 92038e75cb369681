#include "CurlTransfer.h"

#include "CurlErrors.h"

CurlTransfer::CurlTransfer(Request request, const Limits& limits, const QByteArray& trustedFile)
    : request_(std::move(request)), limits_(limits), reader_(request_.body), handle_(curl_easy_init())
{
    promise_->start();
    set(CURLOPT_PRIVATE, static_cast<void*>(this));
    set(CURLOPT_NOSIGNAL, 1L);
    setAddress();
    setMethodAndBody();
    setHeaders();
    setLimits();
    setTrust(trustedFile);
    set(CURLOPT_WRITEFUNCTION, &CurlTransfer::writeBody);
    set(CURLOPT_WRITEDATA, static_cast<void*>(this));
}

CurlTransfer::~CurlTransfer()
{
    cancel();
}

template <typename Value>
void CurlTransfer::set(CURLoption option, Value value)
{
    curl_easy_setopt(handle(), option, value);
}

static bool isThisMachine(const QString& host)
{
    return host == QLatin1StringView("localhost") || host.startsWith(QLatin1StringView("127."))
        || host == QLatin1StringView("::1");
}

void CurlTransfer::setAddress()
{
    set(CURLOPT_URL, request_.url.toEncoded().constData());
    set(CURLOPT_PROTOCOLS_STR, "http,https");
    // One request a connection at a time: what one stream suffers never touches another.
    set(CURLOPT_HTTP_VERSION, long(CURL_HTTP_VERSION_1_1));
    set(CURLOPT_FOLLOWLOCATION, 0L);
    // The desktop's proxy settings, taken from the environment, are for the world outside.
    if (isThisMachine(request_.url.host()))
        set(CURLOPT_PROXY, "");
}

void CurlTransfer::setMethodAndBody()
{
    const bool isRead = request_.method == "GET";
    if (isRead) {
        set(CURLOPT_HTTPGET, 1L);
        return;
    }
    // libcurl sends a request again when a reused connection turns out to be dead, although the server may
    // have read it. A write therefore always has a connection of its own, and nothing is ever rewound.
    set(CURLOPT_FRESH_CONNECT, 1L);
    set(CURLOPT_FORBID_REUSE, 1L);
    set(
        CURLOPT_SEEKFUNCTION, +[](void*, curl_off_t, int) { return CURL_SEEKFUNC_FAIL; });
    if (reader_.total() > 0 || request_.method == "POST") {
        set(CURLOPT_POST, 1L);
        set(CURLOPT_POSTFIELDSIZE_LARGE, curl_off_t(reader_.total()));
        if (reader_.total() > 0) {
            set(CURLOPT_READFUNCTION, &CurlTransfer::readBody);
            set(CURLOPT_READDATA, static_cast<void*>(this));
        } else {
            set(CURLOPT_POSTFIELDS, "");
        }
        set(CURLOPT_UPLOAD_BUFFERSIZE, 256L * 1024);
    }
    set(CURLOPT_CUSTOMREQUEST, request_.method.constData());
}

void CurlTransfer::setHeaders()
{
    // An expectation would cost a round trip, and servers that ignore it a second.
    curl_slist* list = curl_slist_append(nullptr, "Expect:");
    for (const Request::Header& header : request_.headers)
        list = curl_slist_append(list, (header.name + ": " + header.value).constData());
    headers_.reset(list);
    set(CURLOPT_HTTPHEADER, list);
    set(CURLOPT_USERAGENT, "Quorvel");
}

void CurlTransfer::setLimits()
{
    // No limit on the whole: a long upload may take its time as long as bytes move.
    set(CURLOPT_CONNECTTIMEOUT, limits_.connectSeconds);
    set(CURLOPT_LOW_SPEED_LIMIT, 1L);
    set(CURLOPT_LOW_SPEED_TIME, limits_.idleSeconds);
}

void CurlTransfer::setTrust(const QByteArray& trustedFile)
{
    set(CURLOPT_SSL_VERIFYPEER, 1L);
    set(CURLOPT_SSL_VERIFYHOST, 2L);
    set(CURLOPT_SSLVERSION, long(CURL_SSLVERSION_TLSv1_2));
    set(CURLOPT_CAPATH, "/etc/ssl/certs");
    if (!trustedFile.isEmpty())
        set(CURLOPT_CAINFO, trustedFile.constData());
}

size_t CurlTransfer::readBody(char* buffer, size_t size, size_t count, void* self)
{
    auto* transfer = static_cast<CurlTransfer*>(self);
    const std::optional<qint64> read = transfer->reader_.read(buffer, qint64(size * count));
    if (!read) {
        transfer->fileFailed_ = true;
        return CURL_READFUNC_ABORT;
    }
    transfer->reportProgress();
    return size_t(*read);
}

size_t CurlTransfer::writeBody(char* data, size_t size, size_t count, void* self)
{
    auto* transfer = static_cast<CurlTransfer*>(self);
    const qint64 length = qint64(size * count);
    if (transfer->response_.body.size() + length > transfer->limits_.largestBody) {
        transfer->isTooLarge_ = true;
        return 0;
    }
    transfer->response_.body.append(data, length);
    return size_t(length);
}

/// Reports through the event loop: whoever listens may then do anything, ending the session included.
void CurlTransfer::reportProgress()
{
    constexpr qint64 frameMilliseconds = 16;
    const bool isLast = reader_.done() == reader_.total();
    const bool isDue = !sinceProgress_.isValid() || sinceProgress_.hasExpired(frameMilliseconds);
    if (!request_.onProgress || progressIsPosted_ || (!isDue && !isLast))
        return;
    sinceProgress_.restart();
    progressIsPosted_ = true;
    const auto report = [this] {
        progressIsPosted_ = false;
        const Request::Progress progress = request_.onProgress;
        progress(reader_.done(), reader_.total());
    };
    QMetaObject::invokeMethod(this, report, Qt::QueuedConnection);
}

void CurlTransfer::finish(CURLcode result)
{
    constexpr long firstFinal = 200;
    constexpr long lastDefined = 599;
    if (isTooLarge_) {
        resolve(Response{});
    } else if (fileFailed_) {
        resolve(TransportError::Code::CannotReadFile);
    } else if (result != CURLE_OK) {
        resolve(transportCode(result));
    } else {
        long status = 0;
        curl_easy_getinfo(handle(), CURLINFO_RESPONSE_CODE, &status);
        if (status >= firstFinal && status <= lastDefined)
            response_.status = int(status);
        resolve(std::move(response_));
    }
}

void CurlTransfer::cancel()
{
    resolve(TransportError::Code::Cancelled);
}

void CurlTransfer::resolve(Outcome outcome)
{
    if (promise_->future().isFinished())
        return;
    promise_->addResult(std::move(outcome));
    promise_->finish();
}
