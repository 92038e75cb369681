#include "InstanceChild.h"
#include "SettingsChildren.h"

#include "support/CoreMain.h"

#include <cstring>

int main(int argc, char** argv)
{
    const bool isChild = argc > 2 && std::strcmp(argv[1], childOption) == 0;
    if (isChild && argc == 4 && std::strcmp(argv[2], "instance") == 0)
        return runInstanceChild(argc, argv, argv[3]);
    if (isChild)
        return runSettingsChild(argc - 2, argv + 2);
    return runCoreTests(argc, argv);
}
