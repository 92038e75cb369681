#pragma once

#include "AlertMessage.h"

#include <QProperty>

#include <functional>
#include <optional>

class QWidget;

/// Shows a screen's alerts as modal dialogs over the screen's window: each that the property comes to hold,
/// one after the other. So nobody misses the word that a change was saved because the load behind it failed.
/// \param alert  lives as long as the screen
/// \param dismissed  clears the property; called once the alert that it holds was dismissed
void presentAlerts(
    QWidget* screen, QProperty<std::optional<AlertMessage>>& alert, std::function<void()> dismissed);
