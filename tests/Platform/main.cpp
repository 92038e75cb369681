#include "SettingsChildren.h"

#include "support/CoreMain.h"

#include <cstring>

int main(int argc, char** argv)
{
    if (argc > 1 && std::strcmp(argv[1], childOption) == 0)
        return runSettingsChild(argc - 2, argv + 2);
    return runCoreTests(argc, argv);
}
