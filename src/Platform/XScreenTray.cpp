#include "XScreenTray.h"

#include <QGuiApplication>

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>

/// What the server sends, which belongs to whoever receives it.
template <typename T>
using Received = std::unique_ptr<T, decltype(&std::free)>;

static xcb_connection_t* serverOfThisProgram()
{
    const auto* const application = qobject_cast<QGuiApplication*>(QCoreApplication::instance());
    const auto* const x11
        = application ? application->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    return x11 ? x11->connection() : nullptr;
}

static QByteArray nameOfSelection()
{
    char* host = nullptr;
    int display = 0;
    int screen = 0;
    xcb_parse_display(nullptr, &host, &display, &screen);
    std::free(host);
    return "_NET_SYSTEM_TRAY_S" + QByteArray::number(screen);
}

XScreenTray::XScreenTray(QObject* parent)
    : QObject(parent), server_(serverOfThisProgram()), selection_(atom(nameOfSelection())),
      arrival_(atom("MANAGER"))
{
    if (server_)
        QCoreApplication::instance()->installNativeEventFilter(this);
}

uint32_t XScreenTray::atom(const QByteArray& name) const
{
    if (!server_)
        return 0;
    const auto question = xcb_intern_atom(server_, false, uint16_t(name.size()), name.constData());
    const Received<xcb_intern_atom_reply_t> answer(
        xcb_intern_atom_reply(server_, question, nullptr), &std::free);
    return answer ? answer->atom : 0;
}

bool XScreenTray::isThere() const
{
    if (!server_)
        return false;
    const Received<xcb_get_selection_owner_reply_t> answer(
        xcb_get_selection_owner_reply(server_, xcb_get_selection_owner(server_, selection_), nullptr),
        &std::free);
    return answer && answer->owner != 0;
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
