#include "CoreMain.h"

#include <QCoreApplication>

#include <gmock/gmock.h>

#include <sys/stat.h>

int runCoreTests(int argc, char** argv)
{
    umask(077);
    const QCoreApplication application(argc, argv);
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
