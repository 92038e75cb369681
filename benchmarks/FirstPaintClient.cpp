#include "FirstPaint.h"
#include "QuorvelMacApp.h"

int main(int argc, char* argv[])
{
    QApplication::setOrganizationName(QStringLiteral("Quorvel"));
    QApplication::setApplicationName(QStringLiteral("Quorvel"));
    QApplication application(argc, argv);
    const FirstPaint firstPaint;
    QuorvelMacApp quorvel;
    quorvel.start();
    return QApplication::exec();
}
