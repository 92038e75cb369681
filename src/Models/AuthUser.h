#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// The signed-in user as it is kept between starts.
struct AuthUser
{
    QString localId; ///< the identity provider's id
    QString email;
    std::optional<QString> displayName;
    QString idToken;
    QString refreshToken;
    std::optional<qint64> sqlUserId; ///< the bridge's id
    std::optional<QString> role; ///< the bridge's role word
    std::optional<bool> isAdmin;
    std::optional<bool> isNotary;
    std::optional<bool> isBusiness;
    std::optional<qint64> notaryId;
    std::optional<qint64> businessId;
    std::optional<QString> businessName;
    std::optional<QString> state;

    /// Compact JSON with the fields' names as keys; absent fields are left out.
    QByteArray encoded() const;
    /// \returns nothing when a required key is missing or any key holds a value of the wrong type: there is
    /// no half a user. An optional key that is absent or null is absent.
    static std::optional<AuthUser> decode(const QByteArray& json);

    bool operator==(const AuthUser&) const = default;
};
