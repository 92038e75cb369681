#include "CurlWebSession.h"

#include "CurlTransfer.h"

#include <QCoroFuture>
#include <QFileInfo>
#include <QSocketNotifier>
#include <QTimer>

#include <curl/curl.h>

#include <unordered_map>

namespace {

struct MultiCleanup
{
    void operator()(CURLM* multi) const { curl_multi_cleanup(multi); }
};

/// libcurl's process-wide set-up, once, before its first use.
void initializeOnce()
{
    static const CURLcode done = curl_global_init(CURL_GLOBAL_DEFAULT);
    Q_UNUSED(done)
}

bool isSendable(const Request& request)
{
    const QString scheme = request.url.scheme();
    const bool isWeb = scheme == QLatin1StringView("http") || scheme == QLatin1StringView("https");
    return isWeb && !request.url.host().isEmpty()
        && std::all_of(request.headers.begin(), request.headers.end(), [](const Request::Header& header) {
               return !header.value.contains('\r') && !header.value.contains('\n')
                   && !header.value.contains('\0');
           });
}

} // namespace

/// libcurl's multi interface on Qt's event loop. libcurl says which sockets it waits for and when it wants to
/// be woken; the event loop tells it what has happened.
class CurlWebSession::Engine : public QObject
{
public:
    Engine()
    {
        initializeOnce();
        multi_.reset(curl_multi_init());
        curl_multi_setopt(multi_.get(), CURLMOPT_SOCKETFUNCTION, &Engine::socketWanted);
        curl_multi_setopt(multi_.get(), CURLMOPT_SOCKETDATA, this);
        curl_multi_setopt(multi_.get(), CURLMOPT_TIMERFUNCTION, &Engine::timeWanted);
        curl_multi_setopt(multi_.get(), CURLMOPT_TIMERDATA, this);
        timer_.setSingleShot(true);
        connect(&timer_, &QTimer::timeout, this, [this] { act(CURL_SOCKET_TIMEOUT, 0); });
    }

    ~Engine() override { cancelAll(); }

    QFuture<CurlTransfer::Outcome> start(std::unique_ptr<CurlTransfer> transfer)
    {
        const QFuture<CurlTransfer::Outcome> outcome = transfer->outcome();
        CURL* handle = transfer->handle();
        transfers_.emplace(handle, std::move(transfer));
        curl_multi_add_handle(multi_.get(), handle);
        return outcome;
    }

    void cancelAll()
    {
        while (!transfers_.empty())
            take(transfers_.begin()->first)->cancel();
    }

private:
    struct Watch
    {
        std::unique_ptr<QSocketNotifier> reading;
        std::unique_ptr<QSocketNotifier> writing;
    };

    static int socketWanted(CURL*, curl_socket_t socket, int what, void* self, void*)
    {
        static_cast<Engine*>(self)->watch(socket, what);
        return 0;
    }

    static int timeWanted(CURLM*, long milliseconds, void* self)
    {
        QTimer& timer = static_cast<Engine*>(self)->timer_;
        if (milliseconds < 0)
            timer.stop();
        else
            timer.start(std::chrono::milliseconds(milliseconds));
        return 0;
    }

    void watch(curl_socket_t socket, int what)
    {
        Watch& watch = watches_[socket];
        setWatched(watch.reading, socket, QSocketNotifier::Read, CURL_CSELECT_IN, what & CURL_POLL_IN);
        setWatched(watch.writing, socket, QSocketNotifier::Write, CURL_CSELECT_OUT, what & CURL_POLL_OUT);
        if (what == CURL_POLL_REMOVE)
            watches_.erase(socket);
    }

    void setWatched(std::unique_ptr<QSocketNotifier>& notifier, curl_socket_t socket,
        QSocketNotifier::Type type, int event, bool wanted)
    {
        if (wanted && !notifier) {
            notifier = std::make_unique<QSocketNotifier>(socket, type);
            connect(notifier.get(), &QSocketNotifier::activated, this,
                [this, socket, event] { act(socket, event); });
        } else if (!wanted && notifier) {
            // It may be the one whose signal is being handled.
            notifier->setEnabled(false);
            notifier.release()->deleteLater();
        }
    }

    void act(curl_socket_t socket, int event)
    {
        int running = 0;
        curl_multi_socket_action(multi_.get(), socket, event, &running);
        int left = 0;
        while (const CURLMsg* message = curl_multi_info_read(multi_.get(), &left)) {
            if (message->msg == CURLMSG_DONE) {
                const CURLcode result = message->data.result;
                take(message->easy_handle)->finish(result);
            }
        }
    }

    std::unique_ptr<CurlTransfer> take(CURL* handle)
    {
        curl_multi_remove_handle(multi_.get(), handle);
        auto node = transfers_.extract(handle);
        return std::move(node.mapped());
    }

    QTimer timer_;
    std::unordered_map<curl_socket_t, Watch> watches_;
    std::unordered_map<CURL*, std::unique_ptr<CurlTransfer>> transfers_;
    // The last, so that it goes first: while it closes its connections it still speaks to the members above.
    std::unique_ptr<CURLM, MultiCleanup> multi_;
};

CurlWebSession::CurlWebSession(const Options& options)
    : options_(options), engine_(std::make_unique<Engine>())
{
    if (!QFileInfo(QString::fromLocal8Bit(options_.trustedFile)).isFile())
        options_.trustedFile.clear();
}

CurlWebSession::~CurlWebSession() = default;

QCoro::Task<Response> CurlWebSession::send(Request request)
{
    if (!isSendable(request))
        throw TransportError(TransportError::Code::BadURL);
    CurlTransfer::Limits limits;
    limits.connectSeconds = long(options_.connectTimeout.count());
    limits.idleSeconds = long(options_.idleTimeout.count());
    limits.largestBody = options_.largestBody;
    auto transfer = std::make_unique<CurlTransfer>(std::move(request), limits, options_.trustedFile);
    const QFuture<CurlTransfer::Outcome> future = engine_->start(std::move(transfer));
    const CurlTransfer::Outcome outcome = co_await future;
    if (const auto* code = std::get_if<TransportError::Code>(&outcome))
        throw TransportError(*code);
    co_return std::get<Response>(outcome);
}

void CurlWebSession::cancelAll()
{
    engine_->cancelAll();
}
