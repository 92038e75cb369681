#pragma once

#include "RegularFile.h"
#include "RequestBody.h"

#include <QFuture>

#include <optional>

/// Reads a request's body from its start to its end, once. The bytes of files are read on other threads, a
/// piece ahead of those that are sent, so that a disk that hangs holds up nothing but its own request.
class BodyReader
{
public:
    explicit BodyReader(RequestBody body) : body_(std::move(body)) { }

    bool hasFiles() const;
    using Files = QList<std::shared_ptr<const RegularFile>>;
    /// Opens every file of the body, so that nothing is sent when one is missing, and so that a file that is
    /// replaced or deleted meanwhile is still sent as it was.
    /// \returns them in their order; nothing unless all are regular files with at least the stated size
    QFuture<std::optional<Files>> open() const;
    void use(Files files) { files_ = std::move(files); }

    enum class Step
    {
        read,
        waits, ///< for the disk; coming() tells when to go on
        failed, ///< a file cannot be read or ends too early
    };
    /// Fills the buffer as far as the body and what has been read of it go.
    /// \param count  the bytes that were filled in; 0 at the end of the body
    Step read(char* buffer, qint64 room, qint64& count);
    /// Finishes when there is more to read.
    const QFuture<QByteArray>& coming() const { return coming_; }

    qint64 total() const { return body_.size(); }
    qint64 done() const { return done_; }

private:
    Step readPart(const QByteArray& bytes, char* buffer, qint64 room, qint64& count);
    Step readPart(const RequestBody::File& file, char* buffer, qint64 room, qint64& count);
    void fetch(const RequestBody::File& file);
    void finishPart();

    RequestBody body_;
    Files files_; ///< those of the parts from the current one on
    qsizetype part_ = 0;
    qint64 partDone_ = 0; ///< bytes of the current part that have been read
    qint64 done_ = 0;
    QByteArray piece_; ///< of the current file
    qint64 pieceDone_ = 0;
    qint64 fetched_ = 0; ///< bytes of the current file that are in pieces, the coming one included
    QFuture<QByteArray> coming_; ///< the next piece
};
