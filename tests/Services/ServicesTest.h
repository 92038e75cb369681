#pragma once

#include "APIClient.h"
#include "AppError.h"
#include "Models/Rows.h"
#include "support/Await.h"
#include "support/EventLoop.h"
#include "support/FakeWebSession.h"

#include <QTemporaryDir>

#include <gmock/gmock.h>

/// The JSON that a row's expectation is written in.
QJsonObject json(const QByteArray& text);

/// The sentence with which a call has failed. It must have failed, and with nothing but an AppError.
template <typename T>
QString failureOf(const Awaited<T>& call)
{
    settle();
    if (!call.isDone()) {
        ADD_FAILURE() << "the call is still under way";
        return {};
    }
    try {
        call.result();
        ADD_FAILURE() << "the call has succeeded";
    } catch (const AppError& error) {
        return error.message();
    }
    return {};
}

/// What every service is handed, with a web session whose answers the test gives.
class ServicesTest : public testing::Test
{
protected:
    ServicesTest();
    /// Ends the web session first: what still waits resumes while everything that it needs is there.
    ~ServicesTest() override;

    /// Lets the property list hold an API key.
    void setApiKey(const QString& key);

    /// Answers a request and lets everything happen that follows from it.
    void answer(qsizetype number, const QByteArray& body, int status = 200);
    void fail(qsizetype number, TransportError::Code code);

    QTemporaryDir resources;
    AppConfig config;
    NotificationCenter notifications;
    SignInEpoch epoch;
    TokenGate tokens{epoch};
    std::unique_ptr<FakeWebSession> session = std::make_unique<FakeWebSession>();
    const Backend backend{*session, notifications, epoch, config, tokens};
    const APIClient api{backend};
    /// How often the end of the session has been announced.
    int expiries = 0;
};
