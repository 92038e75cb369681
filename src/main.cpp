#include "QuorvelMacApp.h"

#include <QApplication>

#include <sys/resource.h>
#include <sys/stat.h>

/// Whatever this process writes belongs to its user alone, and no core file may hold their tokens.
static void keepSecrets()
{
    umask(077);
    const rlimit none{0, 0};
    setrlimit(RLIMIT_CORE, &none);
}

int main(int argc, char* argv[])
{
    keepSecrets();
    QApplication::setOrganizationName(QStringLiteral("Quorvel"));
    QApplication::setApplicationName(QStringLiteral("Quorvel"));
    QApplication::setApplicationVersion(QStringLiteral(QUORVEL_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("app.quorvel.Quorvel"));
    QApplication application(argc, argv);
    QuorvelMacApp quorvel;
    quorvel.start();
    return QApplication::exec();
}
