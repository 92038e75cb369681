#pragma once

#include <QString>
#include <QUrl>

#include <optional>

/// The addresses and resources that a service gives to its build of the client.
struct AppConfig
{
    /// By which the desktop knows the program: the name of its entry, of its icon, and on the session bus.
    static const QString applicationId;

    QUrl websiteURL; ///< scheme and host only
    QUrl bridgeBaseURL; ///< the website with the path "/mobile-bridge/v1"
    QUrl secureTokenURL; ///< scheme and host of the token endpoint
    QString supportEmail;
    QString resourceFolder; ///< where the property list lies

    /// What was given at build time.
    static AppConfig builtIn();
    /// The configuration of a service; resources are looked up relative to the executable. An address that
    /// does not parse ends the program.
    static AppConfig of(
        const QString& websiteAddress, const QString& tokenAddress, const QString& supportEmail);

    /// A non-empty text of the property list "GoogleService-Info", read anew each time. A missing, unreadable
    /// or malformed list, or a value of another type, gives nothing.
    std::optional<QString> plistValue(const QString& key) const;
};
