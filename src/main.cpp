#include "QuorvelMacApp.h"

#include <QApplication>

#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>

/// Whatever this process writes belongs to its user alone, and no core file may hold their tokens.
static void keepSecrets()
{
    umask(077);
    const rlimit none{0, 0};
    setrlimit(RLIMIT_CORE, &none);
}

/// A journal or terminal that has gone must not take a half-written request with it.
static void outliveReaders()
{
    std::signal(SIGPIPE, SIG_IGN);
}

int main(int argc, char* argv[])
{
    keepSecrets();
    outliveReaders();
    QApplication::setOrganizationName(QStringLiteral("Quorvel"));
    QApplication::setApplicationName(QStringLiteral("Quorvel"));
    QApplication::setApplicationVersion(QStringLiteral(QUORVEL_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("app.quorvel.Quorvel"));
    QApplication application(argc, argv);
    QuorvelMacApp quorvel;
    quorvel.start();
    return QApplication::exec();
}
