#include "support/ScreenReader.h"

#include <private/qguiapplication_p.h>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

/// Only the platform can say so, which Qt keeps to itself.
void ScreenReader::setPresent(bool present)
{
    QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(present);
}
