#include "InstanceChild.h"

#include "SingleInstance.h"

#include <QCoreApplication>
#include <QDBusConnection>

#include <cstdio>

static void tell(const char* word)
{
    std::puts(word);
    std::fflush(stdout);
}

int runInstanceChild(int argc, char** argv, const char* address)
{
    const QCoreApplication application(argc, argv);
    const auto bus
        = QDBusConnection::connectToBus(QString::fromUtf8(address), QStringLiteral("the child's bus"));
    SingleInstance instance(bus, QString::fromLatin1(instanceId));
    QObject::connect(&instance, &SingleInstance::won, &instance, [] { tell("won"); });
    QObject::connect(&instance, &SingleInstance::activated, &instance, [] { tell("activated"); });
    QObject::connect(&instance, &SingleInstance::handedOver, &instance, [] {
        tell("handed over");
        QCoreApplication::quit();
    });
    instance.claim({});
    return QCoreApplication::exec();
}
