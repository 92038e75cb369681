#include "BodyReader.h"

#include "Worker.h"

#include <algorithm>
#include <cstring>

/// Bytes that are read at once: enough for a disk to be quick, and little beside what the program takes.
static constexpr qint64 pieceSize = 1024 * 1024;

bool BodyReader::hasFiles() const
{
    return std::any_of(body_.parts().begin(), body_.parts().end(),
        [](const RequestBody::Part& part) { return std::holds_alternative<RequestBody::File>(part); });
}

static std::optional<BodyReader::Files> opened(const RequestBody& body)
{
    BodyReader::Files files;
    for (const RequestBody::Part& part : body.parts()) {
        const auto* const wanted = std::get_if<RequestBody::File>(&part);
        if (!wanted)
            continue;
        const std::shared_ptr<const RegularFile> file = RegularFile::open(wanted->path);
        if (!file || file->size() < wanted->size)
            return std::nullopt;
        files += file;
    }
    return files;
}

QFuture<std::optional<BodyReader::Files>> BodyReader::open() const
{
    return onDisk([body = body_] { return opened(body); });
}

BodyReader::Step BodyReader::read(char* buffer, qint64 room, qint64& count)
{
    count = 0;
    while (part_ < body_.parts().size()) {
        const Step step = std::visit(
            [&](const auto& part) { return readPart(part, buffer, room, count); }, body_.parts().at(part_));
        if (step != Step::read)
            return step;
        if (count > 0) {
            partDone_ += count;
            done_ += count;
            return step;
        }
        finishPart();
    }
    return Step::read;
}

BodyReader::Step BodyReader::readPart(const QByteArray& bytes, char* buffer, qint64 room, qint64& count)
{
    count = std::min(room, qint64(bytes.size()) - partDone_);
    std::memcpy(buffer, bytes.constData() + partDone_, size_t(count));
    return Step::read;
}

BodyReader::Step BodyReader::readPart(const RequestBody::File& file, char* buffer, qint64 room, qint64& count)
{
    if (partDone_ == file.size)
        return Step::read;
    if (pieceDone_ == piece_.size()) {
        if (!coming_.isValid())
            fetch(file);
        if (!coming_.isFinished())
            return Step::waits;
        piece_ = coming_.result();
        pieceDone_ = 0;
        if (partDone_ + piece_.size() < fetched_)
            return Step::failed;
        coming_ = {};
        if (fetched_ < file.size)
            fetch(file);
    }
    count = std::min(room, qint64(piece_.size()) - pieceDone_);
    std::memcpy(buffer, piece_.constData() + pieceDone_, size_t(count));
    pieceDone_ += count;
    return Step::read;
}

void BodyReader::fetch(const RequestBody::File& file)
{
    const qint64 count = std::min(pieceSize, file.size - fetched_);
    coming_ = onDisk([open = files_.front(), offset = fetched_, count] { return open->read(offset, count); });
    fetched_ += count;
}

void BodyReader::finishPart()
{
    if (std::holds_alternative<RequestBody::File>(body_.parts().at(part_))) {
        files_.pop_front();
        piece_ = {};
        pieceDone_ = 0;
        fetched_ = 0;
    }
    ++part_;
    partDone_ = 0;
}
