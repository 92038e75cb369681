#pragma once

#include <qnamespace.h>

class QWidget;

/// The ring around the control that has the keyboard focus. It is an overlay of its own: controls need no
/// room for it, and layouts stay on the grid. A control focused by the mouse shows none.
namespace FocusRing {

/// \param radius  of the control's own corners
/// \param around  what the ring encloses, when that is not the control itself; must outlive the control
void attach(QWidget* control, int radius, QWidget* around = nullptr);

/// Why another control gets the focus when the program takes it from this one: as if by mouse, when this one
/// was focused so.
Qt::FocusReason passedOnFrom(const QWidget* control);

} // namespace FocusRing
