#include "CurlEngine.h"

#include "Worker.h"

#include <algorithm>
#include <limits>

/// libcurl's process-wide set-up, once, before its first use.
static void initializeOnce()
{
    static const CURLcode done = curl_global_init(CURL_GLOBAL_DEFAULT);
    Q_UNUSED(done)
}

CurlEngine::CurlEngine(const CurlWebSession::Options& options)
    : options_(options), notifiers_(this, [this](curl_socket_t socket) { act(socket); })
{
    initializeOnce();
    share_.reset(curl_share_init());
    curl_share_setopt(share_.get(), CURLSHOPT_SHARE, CURL_LOCK_DATA_SSL_SESSION);
    multi_.reset(curl_multi_init());
    curl_multi_setopt(multi_.get(), CURLMOPT_SOCKETFUNCTION, &CurlEngine::watchSocket);
    curl_multi_setopt(multi_.get(), CURLMOPT_SOCKETDATA, this);
    curl_multi_setopt(multi_.get(), CURLMOPT_TIMERFUNCTION, &CurlEngine::wakeAfter);
    curl_multi_setopt(multi_.get(), CURLMOPT_TIMERDATA, this);
    timer_.setSingleShot(true);
    timer_.setTimerType(Qt::PreciseTimer);
    connect(&timer_, &QTimer::timeout, this, [this] { act(CURL_SOCKET_TIMEOUT); });
}

QFuture<CurlTransfer::Outcome> CurlEngine::start(Request request)
{
    const std::optional<QFuture<void>> abandoned = request.abandoned;
    const auto transfer = std::make_shared<CurlTransfer>(std::move(request), options_, this);
    const Weak weak = transfer;
    transfers_.emplace(transfer->handle(), transfer);
    const auto refusal = isOver_ ? TransportError::Code::Cancelled : transfer->refusal();
    if (refusal) {
        QMetaObject::invokeMethod(
            this, [this, weak, code = *refusal] { end(weak, code); }, Qt::QueuedConnection);
        return transfer->outcome();
    }
    if (abandoned)
        whenFinished(*abandoned, this, [this, weak] { end(weak, TransportError::Code::Cancelled); });
    transfer->openFiles([this, weak](std::optional<TransportError::Code> failure) {
        if (failure)
            end(weak, *failure);
        else
            begin(weak);
    });
    return transfer->outcome();
}

void CurlEngine::begin(const Weak& weak)
{
    const std::shared_ptr<CurlTransfer> transfer = weak.lock();
    std::optional<TransportError::Code> refusal = transfer->prepare(share_.get());
    if (!refusal && curl_multi_add_handle(multi_.get(), transfer->handle()) != CURLM_OK)
        refusal = TransportError::Code::Unknown;
    if (refusal)
        QMetaObject::invokeMethod(
            this, [this, weak, code = *refusal] { end(weak, code); }, Qt::QueuedConnection);
}

void CurlEngine::end(const Weak& weak, TransportError::Code code)
{
    if (const std::shared_ptr<CurlTransfer> transfer = weak.lock())
        take(transfer->handle())->fail(code);
}

void CurlEngine::cancelAll()
{
    isOver_ = true;
    while (!transfers_.empty())
        take(transfers_.begin()->first)->fail(TransportError::Code::Cancelled);
}

int CurlEngine::watchSocket(CURL*, curl_socket_t socket, int what, void* self, void*)
{
    static_cast<CurlEngine*>(self)->notifiers_.watch(socket, what);
    return 0;
}

int CurlEngine::wakeAfter(CURLM*, long milliseconds, void* self)
{
    QTimer& timer = static_cast<CurlEngine*>(self)->timer_;
    if (milliseconds < 0)
        timer.stop();
    else
        timer.start(std::chrono::milliseconds(std::min<long>(milliseconds, std::numeric_limits<int>::max())));
    return 0;
}

void CurlEngine::act(curl_socket_t socket)
{
    // libcurl is left to look at the socket itself: it then reads before it writes, and so finds the answer
    // of a server that has refused a body half-way, before it finds that nobody takes the rest.
    constexpr int lookYourself = 0;
    int running = 0;
    curl_multi_socket_action(multi_.get(), socket, lookYourself, &running);
    int left = 0;
    while (const CURLMsg* message = curl_multi_info_read(multi_.get(), &left)) {
        if (message->msg == CURLMSG_DONE) {
            const CURLcode result = message->data.result;
            take(message->easy_handle)->finish(result);
        }
    }
}

std::shared_ptr<CurlTransfer> CurlEngine::take(CURL* handle)
{
    curl_multi_remove_handle(multi_.get(), handle);
    auto node = transfers_.extract(handle);
    return std::move(node.mapped());
}
