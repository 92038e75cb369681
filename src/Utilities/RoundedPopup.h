#pragma once

#include <QRegion>

class QWidget;

/// Menus, lists and tool tips: windows of their own with round corners. Around these they are translucent.
/// Where nobody puts translucent windows together, the corners would be black, and are cut off.
namespace RoundedPopup {

/// To be called before the popup is first shown; it must paint its own background.
/// \param radius  in pixels
void prepare(QWidget* popup, int radius);

/// What is left of a window with its corners cut off.
QRegion cut(QSize size, int radius);

} // namespace RoundedPopup
