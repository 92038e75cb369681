#pragma once

#include <gtest/gtest.h>

#include <QFile>

/// How much memory this process has held at once, of which a test looks at the growth.
namespace PeakMemory {

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define QUORVEL_ADDRESS_SANITIZER
#endif
#endif

/// What stays although it was freed: the address sanitizer keeps the last 256 MiB, to find whoever still uses
/// them, and each piece of them is rounded up by as much as a quarter, and then some.
#ifdef QUORVEL_ADDRESS_SANITIZER
constexpr qint64 kept = 384 * 1024 * 1024;
#else
constexpr qint64 kept = 0;
#endif

/// Begins to measure anew.
/// \returns whether the system allows it
inline bool forget()
{
    QFile file(QStringLiteral("/proc/self/clear_refs"));
    return file.open(QIODevice::WriteOnly) && file.write("5") == 1;
}

/// The most since forget(), in bytes.
inline qint64 bytes()
{
    QFile status(QStringLiteral("/proc/self/status"));
    EXPECT_TRUE(status.open(QIODevice::ReadOnly));
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith("VmHWM:"))
            return line.simplified().split(' ').value(1).toLongLong() * 1024;
    }
    return 0;
}

} // namespace PeakMemory
