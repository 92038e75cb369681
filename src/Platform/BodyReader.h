#pragma once

#include "RequestBody.h"

#include <QFile>

#include <deque>
#include <optional>

/// Reads a request's body from its start to its end, once.
class BodyReader
{
public:
    explicit BodyReader(RequestBody body) : body_(std::move(body)) { }

    /// Opens every file of the body, so that nothing is sent when one is missing, and so that a file that is
    /// replaced or deleted meanwhile is still sent as it was.
    /// \returns whether all are regular files with at least the stated size
    bool open();

    /// Fills the buffer as far as the body goes.
    /// \returns the bytes read, 0 at the end; nothing when a file cannot be read or ends too early
    std::optional<qint64> read(char* buffer, qint64 room);

    qint64 total() const { return body_.size(); }
    qint64 done() const { return done_; }

private:
    std::optional<qint64> readPart(const QByteArray& bytes, char* buffer, qint64 room);
    std::optional<qint64> readPart(const RequestBody::File& file, char* buffer, qint64 room);
    void finishPart();

    RequestBody body_;
    std::deque<QFile> files_; ///< those of the parts from the current one on
    qsizetype part_ = 0;
    qint64 partDone_ = 0; ///< bytes of the current part that have been read
    qint64 done_ = 0;
};
