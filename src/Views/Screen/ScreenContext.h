#pragma once

#include "AppRouter.h"
#include "AuthManager.h"
#include "LaunchAtLogin.h"
#include "Screen/LeaveGuard.h"
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
    /// Asked before whatever is unfinished on a screen is left behind.
    LeaveGuard& leaving;
    LaunchAtLogin& launchAtLogin;
    /// The current moment; tests bring their own.
    std::function<QDateTime()> now = [] { return QDateTime::currentDateTimeUtc(); };
};
