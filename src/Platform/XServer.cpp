#include "XServer.h"

#include <QGuiApplication>

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>

namespace {

/// What the server sends, which belongs to whoever receives it.
template <typename T>
using Received = std::unique_ptr<T, decltype(&std::free)>;

} // namespace

xcb_connection_t* XServer::connection()
{
    const auto* const application = qobject_cast<QGuiApplication*>(QCoreApplication::instance());
    const auto* const x11
        = application ? application->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    return x11 ? x11->connection() : nullptr;
}

QByteArray XServer::selectionOfScreen(const QByteArray& family)
{
    char* host = nullptr;
    int display = 0;
    int screen = 0;
    xcb_parse_display(nullptr, &host, &display, &screen);
    std::free(host);
    return family + QByteArray::number(screen);
}

uint32_t XServer::atom(const QByteArray& name)
{
    xcb_connection_t* const server = connection();
    if (!server)
        return 0;
    const auto question = xcb_intern_atom(server, false, uint16_t(name.size()), name.constData());
    const Received<xcb_intern_atom_reply_t> answer(
        xcb_intern_atom_reply(server, question, nullptr), &std::free);
    return answer ? answer->atom : 0;
}

bool XServer::isOwned(uint32_t selection)
{
    xcb_connection_t* const server = connection();
    if (!server)
        return false;
    const Received<xcb_get_selection_owner_reply_t> answer(
        xcb_get_selection_owner_reply(server, xcb_get_selection_owner(server, selection), nullptr),
        &std::free);
    return answer && answer->owner != 0;
}

bool XServer::isComposited()
{
    if (!connection())
        return true;
    static const uint32_t compositor = atom(selectionOfScreen("_NET_WM_CM_S"));
    return isOwned(compositor);
}
