#pragma once

#include <QSocketNotifier>

#include <curl/curl.h>

#include <functional>
#include <memory>
#include <unordered_map>

/// The sockets that libcurl waits for, watched by the event loop.
class CurlSocketNotifiers
{
public:
    using Ready = std::function<void(curl_socket_t socket)>;

    /// \param owner  whatever is still watched when it goes, goes with it
    /// \param ready  called by the event loop when a socket can be read or written
    CurlSocketNotifiers(QObject* owner, Ready ready) : owner_(owner), ready_(std::move(ready)) { }

    /// \param what  one of libcurl's CURL_POLL_ constants
    void watch(curl_socket_t socket, int what);

private:
    struct LaterCleanup
    {
        void operator()(QSocketNotifier* notifier) const;
    };
    using Notifier = std::unique_ptr<QSocketNotifier, LaterCleanup>;
    struct Pair
    {
        Notifier reading;
        Notifier writing;
    };

    void set(Notifier& notifier, bool isWanted, curl_socket_t socket, QSocketNotifier::Type type);

    QObject* const owner_;
    const Ready ready_;
    std::unordered_map<curl_socket_t, Pair> pairs_;
};
