#include "AppIcon.h"

#include <QCoreApplication>
#include <QString>

using namespace Qt::StringLiterals;

QIcon AppIcon::window()
{
    const QString file = QCoreApplication::applicationDirPath()
        + u"/../share/icons/hicolor/%1x%1/apps/app.quorvel.Quorvel.png"_s;
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128})
        icon.addFile(file.arg(size), QSize(size, size));
    return icon;
}

QIcon AppIcon::statusBar(bool isDrawnByDesktop)
{
    return isDrawnByDesktop ? QIcon::fromTheme(u"app.quorvel.Quorvel-symbolic"_s, window()) : window();
}
