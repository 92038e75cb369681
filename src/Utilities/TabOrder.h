#pragma once

#include <QList>

class QWidget;

/// The order in which Tab goes through controls that were made later than those behind them.
namespace TabOrder {

/// Puts controls, or fields that hold one and hand their focus on to it, behind another.
/// \returns the last of them
QWidget* append(QWidget* before, const QList<QWidget*>& fields);

} // namespace TabOrder
