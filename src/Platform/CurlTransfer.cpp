#include "CurlTransfer.h"

#include "CurlErrors.h"
#include "RequestCheck.h"
#include "Worker.h"

#include <QTimer>

using namespace Qt::StringLiterals;

CurlTransfer::CurlTransfer(Request request, const Options& options, QObject* events)
    : request_(std::move(request)), options_(options), events_(events), reader_(request_.body),
      answer_(options.largestBody), handle_(curl_easy_init())
{
    promise_.start();
}

std::optional<TransportError::Code> CurlTransfer::refusal() const
{
    if (request_.abandoned && request_.abandoned->isFinished())
        return TransportError::Code::Cancelled;
    return refusalOf(request_);
}

void CurlTransfer::openFiles(std::function<void(std::optional<TransportError::Code>)> done)
{
    if (!reader_.hasFiles())
        return done(std::nullopt);
    const QFuture<std::optional<BodyReader::Files>> opening = reader_.open();
    // Whoever asks holds this transfer by a weak pointer as well, so one that is over is not told twice.
    QTimer::singleShot(options_.idleTimeout, events_, [opening, done] {
        if (!opening.isFinished())
            done(TransportError::Code::CannotReadFile);
    });
    const auto use = [weak = weak_from_this(), opening, done] {
        const std::shared_ptr<CurlTransfer> transfer = weak.lock();
        if (!transfer)
            return;
        const std::optional<BodyReader::Files> files = opening.result();
        transfer->reader_.use(files.value_or(BodyReader::Files()));
        done(files ? std::nullopt : std::optional(TransportError::Code::CannotReadFile));
    };
    whenFinished(opening, events_, use);
}

std::optional<TransportError::Code> CurlTransfer::prepare(CURLSH* share)
{
    set(CURLOPT_SHARE, share);
    setAddress();
    setMethodAndBody();
    setHeaders();
    setTimeouts();
    setTrust();
    setReceivers();
    if (setUp_ != CURLE_OK)
        return transportCode(setUp_);
    return std::nullopt;
}

template <typename Value>
void CurlTransfer::set(CURLoption option, Value value)
{
    const CURLcode result = curl_easy_setopt(handle(), option, value);
    if (setUp_ == CURLE_OK)
        setUp_ = result;
}

static bool isThisMachine(const QString& host)
{
    return host == "localhost"_L1 || host.startsWith("127."_L1) || host == "::1"_L1;
}

void CurlTransfer::setAddress()
{
    set(CURLOPT_URL, request_.url.toEncoded(QUrl::RemoveFragment).constData());
    set(CURLOPT_PROTOCOLS_STR, "http,https");
    set(CURLOPT_FOLLOWLOCATION, 0L);
    // HTTP/2 resends by itself what a server refuses, and lets all requests suffer with their one connection.
    set(CURLOPT_HTTP_VERSION, long(CURL_HTTP_VERSION_1_1));
    // The desktop's proxy settings, taken from the environment, are for the world outside.
    if (isThisMachine(request_.url.host()))
        set(CURLOPT_PROXY, "");
    set(CURLOPT_SUPPRESS_CONNECT_HEADERS, 1L);
}

void CurlTransfer::setMethodAndBody()
{
    if (request_.method == "GET" && request_.body.size() == 0) {
        set(CURLOPT_HTTPGET, 1L);
        return;
    }
    // libcurl sends a request again when a reused connection turns out to be dead, although the server may
    // have read it. A write therefore always has a connection of its own, and nothing is ever rewound.
    set(CURLOPT_FRESH_CONNECT, 1L);
    set(CURLOPT_FORBID_REUSE, 1L);
    const auto refuseToRewind = +[](void*, curl_off_t, int) { return CURL_SEEKFUNC_FAIL; };
    set(CURLOPT_SEEKFUNCTION, refuseToRewind);

    set(CURLOPT_UPLOAD, 1L);
    set(CURLOPT_INFILESIZE_LARGE, curl_off_t(reader_.total()));
    set(CURLOPT_READFUNCTION, &CurlTransfer::readBody);
    set(CURLOPT_READDATA, static_cast<void*>(this));
    set(CURLOPT_CUSTOMREQUEST, request_.method.constData());
}

void CurlTransfer::setHeaders()
{
    // Waiting for a server's "100 Continue" costs a round trip, or a second where none comes, and libcurl
    // sends the request again on a "417".
    curl_slist* list = curl_slist_append(nullptr, "Expect:");
    for (const Request::Header& header : request_.headers) {
        // To libcurl a colon without a value means that the header is not wanted.
        const bool isBlank = header.value.trimmed().isEmpty();
        const QByteArray line = isBlank ? header.name + ';' : header.name + ": " + header.value;
        list = curl_slist_append(list, line.constData());
    }
    headers_.reset(list);
    set(CURLOPT_HTTPHEADER, list);
    set(CURLOPT_USERAGENT, "Quorvel");
}

void CurlTransfer::setTimeouts()
{
    // No limit on the whole: a long upload may take its time as long as bytes move.
    set(CURLOPT_CONNECTTIMEOUT_MS, long(options_.connectTimeout.count()));
    set(CURLOPT_LOW_SPEED_LIMIT, 1L);
    set(CURLOPT_LOW_SPEED_TIME, long(options_.idleTimeout.count()));
    // Ending a request never waits for a name that is still being looked up.
    set(CURLOPT_QUICK_EXIT, 1L);
    set(CURLOPT_NOSIGNAL, 1L);
}

void CurlTransfer::setTrust()
{
    set(CURLOPT_SSL_VERIFYPEER, 1L);
    set(CURLOPT_SSL_VERIFYHOST, 2L);
    set(CURLOPT_SSLVERSION, long(CURL_SSLVERSION_TLSv1_2));
    set(CURLOPT_CAPATH, "/etc/ssl/certs");
    // Takes the place of libcurl's own file of the system's certificates; the folder above still holds those.
    if (!options_.trustedFile.isEmpty())
        set(CURLOPT_CAINFO, options_.trustedFile.constData());
}

void CurlTransfer::setReceivers()
{
    constexpr long piece = 128 * 1024;
    set(CURLOPT_BUFFERSIZE, piece);
    set(CURLOPT_HEADERFUNCTION, &CurlTransfer::takeHeaderLine);
    set(CURLOPT_HEADERDATA, static_cast<void*>(this));
    set(CURLOPT_WRITEFUNCTION, &CurlTransfer::takeBody);
    set(CURLOPT_WRITEDATA, static_cast<void*>(this));
}

size_t CurlTransfer::readBody(char* buffer, size_t size, size_t count, void* self)
{
    auto* const transfer = static_cast<CurlTransfer*>(self);
    qint64 read = 0;
    switch (transfer->reader_.read(buffer, qint64(size) * qint64(count), read)) {
    case BodyReader::Step::read:
        break;
    case BodyReader::Step::waits:
        return transfer->waitForDisk();
    case BodyReader::Step::failed:
        transfer->fileFailed_ = true;
        return CURL_READFUNC_ABORT;
    }
    if (read > 0)
        transfer->reportProgress();
    return size_t(read);
}

size_t CurlTransfer::waitForDisk()
{
    waitsForDisk_ = true;
    whenFinished(reader_.coming(), events_, [weak = weak_from_this()] {
        if (const std::shared_ptr<CurlTransfer> transfer = weak.lock()) {
            transfer->waitsForDisk_ = false;
            curl_easy_pause(transfer->handle(), CURLPAUSE_CONT);
        }
    });
    return CURL_READFUNC_PAUSE;
}

size_t CurlTransfer::takeHeaderLine(char* data, size_t size, size_t count, void* self)
{
    const QByteArrayView line(data, qsizetype(size * count));
    return static_cast<CurlTransfer*>(self)->answer_.takeHeaderLine(line) ? size * count : 0;
}

size_t CurlTransfer::takeBody(char* data, size_t size, size_t count, void* self)
{
    const QByteArrayView bytes(data, qsizetype(size * count));
    return static_cast<CurlTransfer*>(self)->answer_.takeBody(bytes) ? size * count : 0;
}

/// Reports through the event loop: whoever listens may then do anything, ending the session included.
void CurlTransfer::reportProgress()
{
    constexpr qint64 frameMilliseconds = 16;
    const qint64 sent = reader_.done();
    const qint64 total = reader_.total();
    const bool isDue = !sinceProgress_.isValid() || sinceProgress_.hasExpired(frameMilliseconds);
    if (!request_.onProgress || (!isDue && sent < total))
        return;
    sinceProgress_.restart();
    QMetaObject::invokeMethod(
        events_, [report = request_.onProgress, sent, total] { report(sent, total); }, Qt::QueuedConnection);
}

CurlTransfer::Outcome CurlTransfer::outcomeOf(CURLcode result) const
{
    constexpr long firstFinal = 200;
    constexpr long lastDefined = 599;
    if (answer_.flaw() == AnswerReader::Flaw::TooLarge)
        return Response{};
    if (answer_.flaw())
        return TransportError::Code::BadServerResponse;
    if (fileFailed_ || (waitsForDisk_ && result == CURLE_OPERATION_TIMEDOUT))
        return TransportError::Code::CannotReadFile;
    if (result != CURLE_OK)
        return transportCode(result);
    // libcurl counts an answer that ends within its head as one with an empty body.
    if (!answer_.hasWholeHead())
        return TransportError::Code::NetworkConnectionLost;
    long status = 0;
    curl_easy_getinfo(handle(), CURLINFO_RESPONSE_CODE, &status);
    Response response;
    response.body = answer_.body();
    if (status >= firstFinal && status <= lastDefined)
        response.status = int(status);
    return response;
}

void CurlTransfer::finish(CURLcode result)
{
    resolve(outcomeOf(result));
}

void CurlTransfer::resolve(Outcome outcome)
{
    promise_.addResult(std::move(outcome));
    promise_.finish();
}
