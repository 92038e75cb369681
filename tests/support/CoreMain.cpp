#include "CoreMain.h"

#include <QCoreApplication>

#include <gmock/gmock.h>

#include <sys/stat.h>

#if defined(__has_feature)
#if __has_feature(thread_sanitizer)
#include <cstdarg>
#include <dlfcn.h>
#include <sched.h>

/// The thread sanitizer of Clang 14 takes every clone() for a fork() and gives up where Qt starts a program,
/// whose child shares the memory until it becomes that program. So the tests go straight to the system's.
extern "C" int clone(int (*function)(void*), void* stack, int flags, void* argument, ...) noexcept
{
    va_list more;
    va_start(more, argument);
    void* const parent = va_arg(more, void*);
    void* const storage = va_arg(more, void*);
    void* const child = va_arg(more, void*);
    va_end(more);
    static const auto systems = reinterpret_cast<decltype(&::clone)>(dlsym(RTLD_NEXT, "clone"));
    return systems(function, stack, flags, argument, parent, storage, child);
}
#endif
#endif

int runCoreTests(int argc, char** argv)
{
    umask(077);
    const QCoreApplication application(argc, argv);
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
