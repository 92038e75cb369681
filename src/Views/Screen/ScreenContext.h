#pragma once

#include "AppRouter.h"
#include "AuthManager.h"
#include "SystemOpen.h"

#include <QDateTime>

#include <functional>

/// What every screen is handed. All of it outlives the screens.
struct ScreenContext
{
    AuthManager& auth;
    AppRouter& router;
    SystemOpen& systemOpen;
    Backend backend;
    /// The current moment; tests bring their own.
    std::function<QDateTime()> now = [] { return QDateTime::currentDateTimeUtc(); };
};
