#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <variant>

/// The body of a request: bytes and files in sequence. A file's bytes are read from disk while they are sent,
/// so a body of any size takes little memory.
class RequestBody
{
public:
    /// The file and the number of its bytes to send, counted when the body was put together. A file that has
    /// grown since is sent up to that size; one that has shrunk or gone fails the request.
    struct File
    {
        QString path;
        qint64 size = 0;
    };
    using Part = std::variant<QByteArray, File>;

    RequestBody() = default;
    explicit RequestBody(QByteArray bytes) { append(std::move(bytes)); }

    void append(QByteArray bytes);
    void append(File file);

    const QList<Part>& parts() const { return parts_; }
    /// All bytes of all parts together.
    qint64 size() const { return size_; }
    bool isEmpty() const { return parts_.isEmpty(); }

private:
    QList<Part> parts_;
    qint64 size_ = 0;
};
