#include "FoundFile.h"

#include "Worker.h"

#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

FoundFile FoundFile::at(const QString& path)
{
    const QByteArray name = QFile::encodeName(path);
    struct stat status
    { };
    FoundFile found;
    found.isRegular = stat(name.constData(), &status) == 0 && S_ISREG(status.st_mode);
    if (found.isRegular && faccessat(AT_FDCWD, name.constData(), R_OK, AT_EACCESS) == 0)
        found.size = status.st_size;
    return found;
}

QFuture<QList<FoundFile>> FoundFile::atAll(const QStringList& paths)
{
    return onDisk([paths] {
        QList<FoundFile> found;
        found.reserve(paths.size());
        for (const QString& path : paths)
            found += at(path);
        return found;
    });
}
