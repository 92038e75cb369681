#pragma once

#include <QByteArray>

#include <cstdint>

struct xcb_connection_t;

/// The X server that shows this program, as far as Qt says nothing of it. Every answer is a short wait for
/// the server.
namespace XServer {

/// Null on any other kind of display.
xcb_connection_t* connection();

/// The name of one of the selections of which each screen has its own, for this program's screen.
/// \param family  what the names have in common, for example "_NET_SYSTEM_TRAY_S"
QByteArray selectionOfScreen(const QByteArray& family);

/// The number by which the server knows a name; 0 without a server.
uint32_t atom(const QByteArray& name);
/// Whether some program owns a selection, which is how programs with a part in the desktop say that they are
/// there.
bool isOwned(uint32_t selection);

/// Whether translucent windows show what lies under them. They do on every display that is not an X server's.
bool isComposited();

} // namespace XServer
