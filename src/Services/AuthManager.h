#pragma once

#include "APIClient.h"
#include "AuthUser.h"
#include "RenewalSchedule.h"
#include "UserDefaults.h"

#include <QObject>
#include <QProperty>

/// Knows who is signed in and in which role, keeps it between starts, renews the ID token, and signs out when
/// anybody announces that the session has ended. Lives on the main thread.
///
/// A user who has left does not come back: when somebody signs out while a renewal or a profile refresh is
/// under way, its result is dropped.
///
/// A session that ends by itself leaves behind what its person had begun: whoever keeps that gives it back
/// when the same person signs in again, and lets go of it when personLeft() tells that they have gone for
/// good.
class AuthManager : public QObject
{
    Q_OBJECT

public:
    /// \param clock  by which tokens are renewed; it must ring for nobody else
    AuthManager(const Backend& backend, UserDefaults& defaults, SleepProofClock& clock);
    ~AuthManager() override;

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
    ///
    /// Besides, the token is renewed by the clock before it ends, and before a request where it has ended all
    /// the same. Such a renewal signs out only when it is refused.
    QCoro::Task<> refreshTokenIfNeeded();
    /// A role that the user does not hold is ignored.
    void switchRole(AppRole role);
    /// The session is over: forgets the user here and on disk; nothing is sent. Harmless when nobody is
    /// signed in.
    void signOut();
    /// The person signs out: nothing that they have begun is kept for them.
    void leave();

    /// Who was signed in when a session ended by itself, as long as nobody else has signed in since.
    const std::optional<AuthUser>& interrupted() const { return interrupted_; }
    /// When the same person signs in again, they find themselves in the role in which their session ended.
    void resumeRole() { resumesRole_ = true; }

    static QList<AppRole> availableRoles(const AuthUser& user);
    /// The most privileged of the available roles.
    static AppRole defaultRole(const AuthUser& user);
    /// \throws AppError when the answer lacks a token
    static AuthUser authUserFromBridgeResponse(const JSONObject& response, const QString& emailFallback);
    static JSONObject profileFromBridgeResponse(const JSONObject& response);
    static AuthUser merge(AuthUser user, const JSONObject& profile);
    /// How long the ID token of an answer lives from now on.
    static std::chrono::seconds tokenLifetime(const JSONObject& answer);

    static const QString userDefaultsKey; ///< "QuorvelMac.authUser"
    static const QString activeRoleKey; ///< "QuorvelMac.activeRole"

signals:
    /// Whoever was here has left for good: they signed out, or somebody else is about to be signed in.
    void personLeft();

private:
    /// What a renewal does when it does not bring a token.
    enum class Manner
    {
        strict, ///< signs out, whatever the reason
        gentle, ///< signs out when it was refused, and else leaves everything as it is for a later try
    };
    struct Renewal;

    void restore();
    void store(const AuthUser& user);
    void signInFrom(const JSONObject& response, const QString& emailFallback);
    void end();
    std::optional<AppRole> storedRole(const AuthUser& of) const;
    QCoro::Task<> renew(Manner manner);
    void finishRenewal(const Renewal& renewal, Manner manner);
    void storeRenewed(const JSONObject& answer);
    QCoro::Task<Renewal> refreshFirebaseToken(QString refreshToken, QString key);

    Backend backend_;
    UserDefaults& defaults_;
    RenewalSchedule schedule_;
    std::optional<quint64> renewingEpoch_; ///< for whom a renewal is under way
    std::optional<AuthUser> interrupted_;
    AppRole interruptedRole_ = AppRole::client;
    bool resumesRole_ = false;
};
