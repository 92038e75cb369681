#include "CurlSocketNotifiers.h"

/// The notifier may be the one whose signal is being handled.
void CurlSocketNotifiers::LaterCleanup::operator()(QSocketNotifier* notifier) const
{
    notifier->setEnabled(false);
    notifier->deleteLater();
}

void CurlSocketNotifiers::watch(curl_socket_t socket, int what)
{
    if (what == CURL_POLL_REMOVE) {
        pairs_.erase(socket);
        return;
    }
    Pair& pair = pairs_[socket];
    set(pair.reading, what & CURL_POLL_IN, socket, QSocketNotifier::Read);
    set(pair.writing, what & CURL_POLL_OUT, socket, QSocketNotifier::Write);
}

void CurlSocketNotifiers::set(
    Notifier& notifier, bool isWanted, curl_socket_t socket, QSocketNotifier::Type type)
{
    if (!isWanted) {
        notifier.reset();
    } else if (!notifier) {
        notifier.reset(new QSocketNotifier(socket, type, owner_));
        QObject::connect(
            notifier.get(), &QSocketNotifier::activated, notifier.get(), [this, socket] { ready_(socket); });
    }
}
