#include "AppConfig.h"

#include "PropertyList.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

const QString AppConfig::applicationId = u"app.quorvel.Quorvel"_s;

namespace {

/// An address given at build time, without a path.
QUrl builtInAddress(const QString& text)
{
    QUrl url(text, QUrl::StrictMode);
    if (!url.isValid() || url.host().isEmpty())
        qFatal("the built-in address %s is no address", qUtf8Printable(text));
    url.setPath(QString());
    return url;
}

QByteArray contentsOf(const QString& path)
{
    QFile file(path);
    // The check comes first because opening a pipe would wait for a writer.
    if (!QFileInfo(path).isFile() || !file.open(QFile::ReadOnly))
        return {};
    return file.read(PropertyList::maximumSize + 1);
}

} // namespace

AppConfig AppConfig::builtIn()
{
    return of(QStringLiteral(QUORVEL_WEBSITE_URL), QStringLiteral(QUORVEL_SECURE_TOKEN_URL),
        QStringLiteral(QUORVEL_SUPPORT_EMAIL));
}

AppConfig AppConfig::of(
    const QString& websiteAddress, const QString& tokenAddress, const QString& supportEmail)
{
    const QUrl website = builtInAddress(websiteAddress);
    QUrl bridge = website;
    bridge.setPath(u"/mobile-bridge/v1"_s);
    return {
        .websiteURL = website,
        .bridgeBaseURL = bridge,
        .secureTokenURL = builtInAddress(tokenAddress),
        .supportEmail = supportEmail,
        .resourceFolder = QCoreApplication::applicationDirPath() + u"/../share/quorvel"_s,
    };
}

std::optional<QString> AppConfig::plistValue(const QString& key) const
{
    return PropertyList::text(contentsOf(resourceFolder + u"/GoogleService-Info.plist"_s), key);
}
