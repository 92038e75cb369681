#pragma once

#include "AlertMessage.h"

#include <QProperty>

#include <functional>
#include <optional>

class QWidget;

/// Shows a screen's alerts, one at a time, as modal dialogs over the screen's window: whenever the property
/// holds a new alert, until the person dismisses it.
/// \param dismissed  clears the property
void presentAlerts(
    QWidget* screen, QProperty<std::optional<AlertMessage>>& alert, std::function<void()> dismissed);
