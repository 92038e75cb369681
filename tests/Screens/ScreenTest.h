#pragma once

#include "Printing.h"
#include "Screen/ScreenModel.h"
#include "support/EventLoop.h"
#include "support/FakeWebSession.h"
#include "support/InMemoryDefaults.h"
#include "support/SetClock.h"
#include "support/SteadyLoginItem.h"

#include <QJsonObject>

#include <gmock/gmock.h>

/// Notes what the desktop was asked to open.
class RecordedOpens : public SystemOpen
{
public:
    bool openWebsite(const QUrl& url) override;
    bool composeMail(const QString& address) override;

    QList<QUrl> websites;
    QList<QString> mails;
};

/// An account that holds these roles besides the client's; its tokens and e-mail follow from the name.
AuthUser account(const QString& name, const QList<AppRole>& roles = {});

/// The object in a JSON text; fails the test when there is none.
QJsonObject object(const QByteArray& json);

/// What every screen is handed, with a web session whose answers the test gives when, and in whatever order,
/// it wants. Requests are numbered from 0 in the order in which they were made.
class ScreenTest : public testing::Test
{
protected:
    ScreenTest();
    /// Ends the web session first: what still waits resumes while everything that it needs is there.
    ~ScreenTest() override;

    /// Makes somebody the signed-in user, without a request.
    void signIn(const AuthUser& user, AppRole role = AppRole::client);
    /// The signed-in user leaves and another one comes.
    void replaceUser(const AuthUser& user, AppRole role = AppRole::client);

    qsizetype requestCount() const { return webSession->count(); }
    const Request& request(qsizetype number) const { return webSession->request(number); }
    /// Method, path below the bridge's base and query: "GET /remote-notary/sessions?scope=business".
    QString line(qsizetype number) const;
    QByteArray header(qsizetype number, const QByteArray& name) const
    {
        return webSession->header(number, name);
    }
    /// The bytes of a request's body, its files left out.
    QByteArray text(qsizetype number) const;
    QJsonObject body(qsizetype number) const;

    /// Answers a request and lets everything happen that follows from it.
    void answer(qsizetype number, const QByteArray& json, int status = 200);
    void fail(qsizetype number, TransportError::Code code = TransportError::Code::TimedOut);

    static QFuture<QList<FoundFile>> lookNow(const QStringList& paths);

    /// The texts of the alert, title first; empty when there is none.
    static QList<QString> alertOf(const ScreenModel& model);

    AppConfig config;
    NotificationCenter notifications;
    SignInEpoch epoch;
    TokenGate tokens{epoch};
    InMemoryDefaults defaults;
    RecordedOpens systemOpen;
    AppRouter router{notifications};
    std::unique_ptr<FakeWebSession> webSession = std::make_unique<FakeWebSession>();
    Backend backend{*webSession, notifications, epoch, config, tokens};
    SetClock clock;
    AuthManager auth{backend, defaults, clock};
    LeaveGuard leaving;
    SteadyLoginItem loginItem;
    LaunchAtLogin launchAtLogin{defaults, loginItem};
    QProperty<std::optional<AlertMessage>> notice;
    /// What the screens take for the current moment.
    QDateTime now = QDateTime::fromString(QStringLiteral("2025-06-02T12:00:00Z"), Qt::ISODate);
    /// The disk as the screens see it, which answers at once unless the test makes it hang.
    std::function<QFuture<QList<FoundFile>>(const QStringList&)> disk = &lookNow;
    ScreenContext context{auth, router, systemOpen, backend, leaving, launchAtLogin, notice,
        [this] { return now; }, [this](const QStringList& paths) { return disk(paths); }};
};
