#include "AppIcon.h"

#include "AppConfig.h"

#include <QCoreApplication>
#include <QSize>

using namespace Qt::StringLiterals;

QIcon AppIcon::window()
{
    const QString file = QCoreApplication::applicationDirPath() + u"/../share/icons/hicolor/%1x%1/apps/"_s
        + AppConfig::applicationId + u".png"_s;
    QIcon icon;
    for (const int size : {16, 22, 24, 32, 48, 64, 128})
        icon.addFile(file.arg(size), QSize(size, size));
    return icon;
}

QIcon AppIcon::statusBar(bool isDrawnByDesktop)
{
    return isDrawnByDesktop ? QIcon::fromTheme(AppConfig::applicationId + u"-symbolic"_s, window())
                            : window();
}
