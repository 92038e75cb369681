#pragma once

#include "AlertMessage.h"
#include "AppRouter.h"
#include "AuthManager.h"
#include "FoundFile.h"
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
    /// What a person is to be told whose screen is gone already; the window shows it.
    QProperty<std::optional<AlertMessage>>& notice;
    /// The current moment; tests bring their own.
    std::function<QDateTime()> now = [] { return QDateTime::currentDateTimeUtc(); };
    /// What is found at these paths, in their order; tests let the disk hang.
    std::function<QFuture<QList<FoundFile>>(const QStringList& paths)> lookAtFiles = &FoundFile::atAll;
};
