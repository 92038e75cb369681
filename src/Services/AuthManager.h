#pragma once

#include "APIClient.h"
#include "AuthUser.h"
#include "UserDefaults.h"

#include <QObject>
#include <QProperty>

/// Knows who is signed in and in which role, keeps it between starts, renews the ID token, and signs out when
/// anybody announces that the session has ended. Lives on the main thread.
///
/// A user who has left does not come back: when somebody signs out while a renewal or a profile refresh is
/// under way, its result is dropped.
class AuthManager : public QObject
{
    Q_OBJECT

public:
    AuthManager(const Backend& backend, UserDefaults& defaults);

    QProperty<std::optional<AuthUser>> user;
    QProperty<bool> isBusy{false}; ///< a sign-in or registration is in flight
    QProperty<AppRole> activeRole{AppRole::client};

    bool isSignedIn() const { return user.value().has_value(); }
    /// The user's name; empty when there is none, without resorting to the e-mail address.
    QString displayName() const;
    /// The active role, or the default one where the user may not use that; client when signed out.
    AppRole role() const;
    /// The roles of the signed-in user; just client when signed out.
    QList<AppRole> availableRoles() const;

    /// \throws AppError; the stored user is unchanged then
    QCoro::Task<> signIn(QString email, QString password, std::optional<AppRole> roleHint);
    /// Creates a client account and signs it in from the same answer. \throws AppError
    QCoro::Task<> registerClient(ClientRegistration registration);
    /// Refreshes the stored user from the profile. \throws AppError; the user is unchanged then
    QCoro::Task<> syncProfile(std::optional<AppRole> roleHint);
    /// Renews the ID token whenever a user and an API key are there, whatever the token's age; signs out when
    /// that fails. Does nothing while a renewal for the same user is under way. Never throws.
    QCoro::Task<> refreshTokenIfNeeded();
    /// A role that the user does not hold is ignored.
    void switchRole(AppRole role);
    /// Forgets the user here and on disk; nothing is sent. Harmless when nobody is signed in.
    void signOut();

    static QList<AppRole> availableRoles(const AuthUser& user);
    /// The most privileged of the available roles.
    static AppRole defaultRole(const AuthUser& user);
    /// \throws AppError when the answer lacks a token
    static AuthUser authUserFromBridgeResponse(const JSONObject& response, const QString& emailFallback);
    static JSONObject profileFromBridgeResponse(const JSONObject& response);
    static AuthUser merge(AuthUser user, const JSONObject& profile);

    static const QString userDefaultsKey; ///< "QuorvelMac.authUser"
    static const QString activeRoleKey; ///< "QuorvelMac.activeRole"

private:
    void restore();
    void store(const AuthUser& user);
    void signInFrom(const JSONObject& response, const QString& emailFallback);
    std::optional<AppRole> storedRole(const AuthUser& of) const;
    void storeRenewed(const JSONObject& answer);
    QCoro::Task<JSONObject> refreshFirebaseToken(QString refreshToken, QString key);

    Backend backend_;
    UserDefaults& defaults_;
    std::optional<quint64> renewingEpoch_; ///< for whom a renewal is under way
};
