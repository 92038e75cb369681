#include "FirstPaint.h"

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    const FirstPaint firstPaint;
    QWidget window;
    window.resize(1180, 760);
    window.show();
    return QApplication::exec();
}
