#include "QuorvelMacApp.h"

#include <QApplication>

#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>

/// Whatever this process writes belongs to its user alone. No core file may hold their tokens, not even one
/// that the system hands to a program, whatever its size; and nobody may ask by the environment to have the
/// keys of its connections written down.
static void keepSecrets()
{
    umask(077);
    const rlimit none{0, 0};
    setrlimit(RLIMIT_CORE, &none);
    if (std::FILE* filter = std::fopen("/proc/self/coredump_filter", "w")) {
        std::fputs("0", filter);
        std::fclose(filter);
    }
    unsetenv("SSLKEYLOGFILE");
}

/// A journal or terminal that has gone must not take a half-written request with it.
static void outliveReaders()
{
    std::signal(SIGPIPE, SIG_IGN);
}

/// Answers a start that only asks for information, which needs no desktop.
static bool answerQuestion(int argc, char* argv[])
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments += QString::fromLocal8Bit(argv[i]);
    const QString answer = StartOptions::information(arguments, QStringLiteral(QUORVEL_VERSION));
    std::fputs(qUtf8Printable(answer), stdout);
    return !answer.isEmpty();
}

int main(int argc, char* argv[])
{
    constexpr int wrongArguments = 2;
    keepSecrets();
    outliveReaders();
    if (answerQuestion(argc, argv))
        return 0;
    const QVariantMap platformData = SingleInstance::Wish::platformDataOfThisStart();
    QApplication::setOrganizationName(QStringLiteral("Quorvel"));
    QApplication::setApplicationName(QStringLiteral("Quorvel"));
    QApplication::setApplicationVersion(QStringLiteral(QUORVEL_VERSION));
    QApplication::setDesktopFileName(AppConfig::applicationId);
    QApplication application(argc, argv);
    const StartOptions options = StartOptions::of(QApplication::arguments().sliced(1));
    if (!options.fault.isEmpty()) {
        std::fprintf(stderr, "quorvel: %s\n", qUtf8Printable(options.fault));
        return wrongArguments;
    }
    QuorvelMacApp quorvel(options, platformData);
    quorvel.start();
    return QApplication::exec();
}
