#pragma once

class QWidget;

/// The order in which Tab goes through controls that were made later than their neighbours.
namespace TabOrder {

/// Puts the controls inside a widget, in the order that they have among themselves, behind another control.
/// \returns the last of them; the control before when there are none
QWidget* append(QWidget* before, const QWidget* container);

} // namespace TabOrder
