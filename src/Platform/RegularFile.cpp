#include "RegularFile.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

std::shared_ptr<const RegularFile> RegularFile::open(const QString& path)
{
    const int descriptor = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0)
        return nullptr;
    struct stat found
    { };
    if (fstat(descriptor, &found) == 0 && S_ISREG(found.st_mode))
        return std::shared_ptr<const RegularFile>(new RegularFile(descriptor, found.st_size));
    close(descriptor);
    return nullptr;
}

RegularFile::~RegularFile()
{
    close(descriptor_);
}

QByteArray RegularFile::read(qint64 offset, qint64 count) const
{
    QByteArray bytes(count, Qt::Uninitialized);
    qint64 done = 0;
    while (done < count) {
        const ssize_t got
            = pread(descriptor_, bytes.data() + done, static_cast<size_t>(count - done), offset + done);
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0)
            break;
        done += got;
    }
    bytes.truncate(done);
    return bytes;
}
