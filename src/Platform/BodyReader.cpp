#include "BodyReader.h"

#include <QFileInfo>

#include <cstring>

std::optional<qint64> BodyReader::read(char* buffer, qint64 room)
{
    while (part_ < body_.parts().size()) {
        const auto count = std::visit(
            [&](const auto& part) { return readPart(part, buffer, room); }, body_.parts().at(part_));
        if (!count)
            return std::nullopt;
        if (*count > 0) {
            partDone_ += *count;
            done_ += *count;
            return count;
        }
        ++part_;
        partDone_ = 0;
        file_.close();
    }
    return 0;
}

std::optional<qint64> BodyReader::readPart(const QByteArray& bytes, char* buffer, qint64 room)
{
    const qint64 count = std::min(room, qint64(bytes.size()) - partDone_);
    std::memcpy(buffer, bytes.constData() + partDone_, size_t(count));
    return count;
}

std::optional<qint64> BodyReader::readPart(const RequestBody::File& file, char* buffer, qint64 room)
{
    if (!file_.isOpen()) {
        // Anything but a regular file, such as a pipe, could block for ever.
        if (!QFileInfo(file.path).isFile())
            return std::nullopt;
        file_.setFileName(file.path);
        if (!file_.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
            return std::nullopt;
    }
    const qint64 wanted = std::min(room, file.size - partDone_);
    if (wanted == 0)
        return 0;
    const qint64 count = file_.read(buffer, wanted);
    if (count <= 0)
        return std::nullopt;
    return count;
}
