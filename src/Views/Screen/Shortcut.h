#pragma once

#include "AppSection.h"

#include <QString>

/// A button of a screen that leads somewhere, or does the one other thing that its screen is asked for.
struct Shortcut
{
    QString title;
    QString systemImage;
    std::optional<AppSection> section; ///< where it leads; nothing for the screen's own action
    bool isPrimary = false;
};
