#include "BodyReader.h"

#include <QFileInfo>

#include <cstring>

bool BodyReader::open()
{
    for (const RequestBody::Part& part : body_.parts()) {
        const auto* const wanted = std::get_if<RequestBody::File>(&part);
        if (!wanted)
            continue;
        // Opening anything but a regular file, such as a pipe, could block for ever.
        if (!QFileInfo(wanted->path).isFile())
            return false;
        QFile& file = files_.emplace_back(wanted->path);
        if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered) || file.size() < wanted->size)
            return false;
    }
    return true;
}

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
        finishPart();
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
    const qint64 wanted = std::min(room, file.size - partDone_);
    if (wanted == 0)
        return 0;
    const qint64 count = files_.front().read(buffer, wanted);
    if (count <= 0)
        return std::nullopt;
    return count;
}

void BodyReader::finishPart()
{
    if (std::holds_alternative<RequestBody::File>(body_.parts().at(part_)))
        files_.pop_front();
    ++part_;
    partDone_ = 0;
}
