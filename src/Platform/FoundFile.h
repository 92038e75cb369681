#pragma once

#include <QFuture>
#include <QStringList>

#include <optional>

/// What a look at a path has found.
struct FoundFile
{
    bool isRegular = false;
    std::optional<qint64> size; ///< of a regular file that may be read

    /// Waits for the disk, which may be far away and hang.
    static FoundFile at(const QString& path);
    /// Looks at all paths without waiting here.
    /// \returns what was found, in the order of the paths
    static QFuture<QList<FoundFile>> atAll(const QStringList& paths);

    bool operator==(const FoundFile&) const = default;
};
