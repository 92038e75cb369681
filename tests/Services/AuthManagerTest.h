#pragma once

#include "AuthManager.h"
#include "ServicesTest.h"
#include "support/InMemoryDefaults.h"
#include "support/SetClock.h"

/// The JSON of a bridge's answer, as the manager reads it.
inline JSONObject bridgeAnswer(const QByteArray& text)
{
    return JSONObject(json(text));
}

/// A user with nothing but the required fields and what the row sets.
inline AuthUser bareUser(const std::optional<QString>& role = {})
{
    AuthUser user;
    user.localId = QStringLiteral("local");
    user.email = QStringLiteral("ada@example.com");
    user.idToken = QStringLiteral("id-1");
    user.refreshToken = QStringLiteral("refresh-1");
    user.role = role;
    return user;
}

/// A manager, or several in succession, over preferences that outlast them.
class AuthManagerTest : public ServicesTest
{
protected:
    ~AuthManagerTest() override { session.reset(); }

    /// Starts with somebody whom the preferences remember.
    void startSignedIn(const AuthUser& user = bareUser(), const QString& role = {})
    {
        defaults.setData(AuthManager::userDefaultsKey, user.encoded());
        if (!role.isEmpty())
            defaults.setString(AuthManager::activeRoleKey, role);
        start();
    }
    void start() { auth = std::make_unique<AuthManager>(backend, defaults, clock); }

    /// Whom the preferences remember.
    std::optional<AuthUser> storedUser() const
    {
        const std::optional<QByteArray> data = defaults.data(AuthManager::userDefaultsKey);
        return data ? AuthUser::decode(*data) : std::nullopt;
    }
    std::optional<QString> storedRole() const { return defaults.string(AuthManager::activeRoleKey); }

    InMemoryDefaults defaults;
    SetClock clock;
    std::unique_ptr<AuthManager> auth;
};
