#pragma once

#include <QByteArray>
#include <QString>

#include <memory>

/// A regular file, open for reading. Opening and reading wait for the disk, which may be far away and hang:
/// they belong on a thread of their own (onDisk).
class RegularFile
{
public:
    /// Null when the path names no regular file that may be read. Never waits for the other end of a pipe:
    /// what is looked at is what has been opened, whatever bore the name before.
    static std::shared_ptr<const RegularFile> open(const QString& path);

    RegularFile(const RegularFile&) = delete;
    RegularFile& operator=(const RegularFile&) = delete;
    ~RegularFile();

    qint64 size() const { return size_; }
    /// The bytes from an offset on, as many as asked for; fewer where the file ends or cannot be read.
    QByteArray read(qint64 offset, qint64 count) const;

private:
    RegularFile(int descriptor, qint64 size) : descriptor_(descriptor), size_(size) { }

    int descriptor_;
    qint64 size_; ///< when it was opened
};
