#pragma once

#include <QIcon>

/// The program's own icon, which lies beside the program in the build tree as in the installed tree.
namespace AppIcon {

/// For windows: in colour, readable on anything.
QIcon window();

/// For the status bar: where the desktop draws it, the one-coloured drawing, which the desktop tints as its
/// panel needs; where the desktop draws nothing or does not know that drawing, the icon in colour.
QIcon statusBar(bool isDrawnByDesktop);

} // namespace AppIcon
