#pragma once

#include "Screen/ScreenContext.h"
#include "support/FakeWebSession.h"
#include "support/InMemoryDefaults.h"
#include "support/SetClock.h"
#include "support/SteadyLoginItem.h"

class NoOpens : public SystemOpen
{
public:
    bool openWebsite(const QUrl&) override { return false; }
    bool composeMail(const QString&) override { return false; }
};

/// Somebody signed in, before a web session that answers when it is told to.
struct SignedIn
{
    SignedIn()
    {
        config.bridgeBaseURL = QUrl(QStringLiteral("https://notary.example/mobile-bridge/v1"));
        AuthUser user;
        user.localId = QStringLiteral("priya");
        user.idToken = QStringLiteral("token");
        auth.user = user;
    }

    AppConfig config;
    NotificationCenter notifications;
    SignInEpoch epoch;
    TokenGate tokens{epoch};
    InMemoryDefaults defaults;
    NoOpens opens;
    AppRouter router{notifications};
    FakeWebSession session;
    Backend backend{session, notifications, epoch, config, tokens};
    SetClock clock;
    AuthManager auth{backend, defaults, clock};
    LeaveGuard leaving;
    SteadyLoginItem loginItem;
    LaunchAtLogin launchAtLogin{defaults, loginItem};
    QProperty<std::optional<AlertMessage>> notice;
    ScreenContext context{auth, router, opens, backend, leaving, launchAtLogin, notice};
};
