#include "DesktopSystemOpen.h"

#include <QDesktopServices>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

bool isSafeWebsite(const QUrl& url)
{
    const bool isWeb = url.scheme() == u"https" || url.scheme() == u"http";
    return url.isValid() && isWeb && !url.host().isEmpty() && url.userInfo().isEmpty();
}

bool DesktopSystemOpen::openWebsite(const QUrl& url)
{
    return isSafeWebsite(url) && QDesktopServices::openUrl(url);
}

bool DesktopSystemOpen::composeMail(const QString& address)
{
    // Nothing but one address: no further fields of a message, no second recipient.
    static const QRegularExpression plainAddress(u"^[A-Za-z0-9._+-]+@[A-Za-z0-9.-]+$"_s);
    if (!plainAddress.match(address).hasMatch())
        return false;
    return QDesktopServices::openUrl(QUrl(u"mailto:"_s + address));
}
