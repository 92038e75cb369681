#include "support/CoreMain.h"

int main(int argc, char** argv)
{
    return runCoreTests(argc, argv);
}
