#include "DesktopSystemOpen.h"

#include <QDesktopServices>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

bool DesktopSystemOpen::openWebsite(const QUrl& url)
{
    return isSafeWebsite(url) && QDesktopServices::openUrl(url);
}

bool DesktopSystemOpen::composeMail(const QString& address)
{
    // Nothing but one address: no further fields of a message, no second recipient, no option of a program.
    static const QRegularExpression plainAddress(
        u"\\A[A-Za-z0-9_+][A-Za-z0-9._+-]*@[A-Za-z0-9][A-Za-z0-9.-]*\\z"_s);
    if (!plainAddress.match(address).hasMatch())
        return false;
    return QDesktopServices::openUrl(QUrl(u"mailto:"_s + address));
}
