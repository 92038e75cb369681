#include "DiskFile.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryFile>

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>

using namespace Qt::StringLiterals;

bool DiskFile::sync(const QString& path)
{
    const int descriptor = open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0)
        return false;
    const bool isSynced = fsync(descriptor) == 0;
    close(descriptor);
    return isSynced;
}

bool DiskFile::rename(const QString& from, const QString& to)
{
    return std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0;
}

bool DiskFile::replace(const QString& path, const QByteArray& content)
{
    const QFileInfo info(path);
    if (!QDir().mkpath(info.path()))
        return false;
    // Hidden and without the name's ending, so that nobody takes it for what it is not yet.
    QTemporaryFile fresh(info.path() + u"/."_s + info.completeBaseName() + u".XXXXXX"_s);
    return fresh.open() && fresh.write(content) == content.size() && fresh.flush() && sync(fresh.fileName())
        && rename(fresh.fileName(), path) && sync(info.path());
}
