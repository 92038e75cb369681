#include "XScreenTray.h"

#include "XServer.h"

#include <QCoreApplication>

#include <xcb/xcb.h>

XScreenTray::XScreenTray(QObject* parent)
    : QObject(parent), selection_(XServer::atom(XServer::selectionOfScreen("_NET_SYSTEM_TRAY_S"))),
      arrival_(XServer::atom("MANAGER"))
{
    if (XServer::connection())
        QCoreApplication::instance()->installNativeEventFilter(this);
}

bool XScreenTray::isThere() const
{
    return XServer::isOwned(selection_);
}

bool XScreenTray::nativeEventFilter(const QByteArray& /*kind*/, void* message, qintptr* /*result*/)
{
    // Installed on an X server only, where every message is an event of its.
    constexpr uint8_t kindOfEvent = 0x7f; // the remaining bit says that another program sent it
    const auto* const event = static_cast<const xcb_client_message_event_t*>(message);
    if ((event->response_type & kindOfEvent) == XCB_CLIENT_MESSAGE && event->type == arrival_
        && event->data.data32[1] == selection_)
        emit appeared();
    return false;
}
