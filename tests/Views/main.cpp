#include "BrandStyle.h"

#include <gmock/gmock.h>

#include <QApplication>

int main(int argc, char** argv)
{
    // Widgets are tested without a screen, whatever the desktop that the tests run on.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QApplication::setEffectEnabled(Qt::UI_AnimateCombo, false);
    BrandStyle::install();
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
