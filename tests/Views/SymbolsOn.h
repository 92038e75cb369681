#pragma once

#include "Components/Button.h"
#include "Components/Chip.h"
#include "Components/Emblem.h"
#include "Components/IconButton.h"
#include "Components/SymbolView.h"

/// The symbols on the visible parts of a screen, in the order in which the parts were made. A button's
/// follows its title: "Refresh: arrow.clockwise".
inline QStringList symbolsOn(const QWidget& screen)
{
    QStringList symbols;
    for (const QWidget* part : screen.findChildren<QWidget*>()) {
        if (!part->isVisible())
            continue;
        if (const auto* symbol = qobject_cast<const SymbolView*>(part))
            symbols += symbol->systemImage();
        else if (const auto* emblem = qobject_cast<const Emblem*>(part))
            symbols += emblem->systemImage();
        else if (const auto* chip = qobject_cast<const Chip*>(part))
            symbols += chip->systemImage();
        else if (const auto* icon = qobject_cast<const IconButton*>(part))
            symbols += icon->accessibleName() + QStringLiteral(": ") + icon->systemImage();
        else if (const auto* button = qobject_cast<const Button*>(part);
                 button && !button->systemImage().isEmpty())
            symbols += button->title() + QStringLiteral(": ") + button->systemImage();
    }
    return symbols;
}
