#include "RawServer.h"

QByteArray RawRequest::method() const
{
    return head.split(' ').value(0);
}

QByteArray RawRequest::target() const
{
    return head.split(' ').value(1);
}

QByteArray RawRequest::header(const QByteArray& name) const
{
    for (const QByteArray& line : head.split('\n')) {
        const qsizetype colon = line.indexOf(':');
        if (colon > 0 && line.first(colon).compare(name, Qt::CaseInsensitive) == 0)
            return line.sliced(colon + 1).trimmed();
    }
    return {};
}

/// \returns the bytes that came, valid until the next call
QByteArrayView RawConnection::readMore()
{
    const int count = stream_.read(buffer_);
    if (count == 0)
        throw RawStream::Gone();
    server_.countBytes(count);
    return {buffer_.data(), count};
}

RawRequest RawConnection::readHead()
{
    const QByteArray blankLine("\r\n\r\n");
    qsizetype end = -1;
    while ((end = unread_.indexOf(blankLine)) < 0)
        unread_ += readMore();
    RawRequest request;
    request.head = unread_.first(end);
    unread_.remove(0, end + blankLine.size());
    return request;
}

RawRequest RawConnection::readRequest()
{
    RawRequest request = readHead();
    const qint64 size = request.header("Content-Length").toLongLong();
    while (unread_.size() < size)
        unread_ += readMore();
    request.body = unread_.first(size);
    unread_.remove(0, size);
    server_.remember(request);
    return request;
}

void RawConnection::skipBody(qint64 count)
{
    const QByteArray early = std::exchange(unread_, {});
    unread_ = early.sliced(std::min(count, qint64(early.size())));
    count -= early.size();
    while (count > 0) {
        const QByteArrayView bytes = readMore();
        if (bytes.size() > count)
            unread_ = bytes.sliced(count).toByteArray();
        count -= bytes.size();
    }
}

void RawConnection::drain()
{
    for (;;)
        readMore();
}

void RawConnection::trickle(const QByteArray& piece, std::chrono::milliseconds interval)
{
    do {
        send(piece);
    } while (stream_.idle(interval));
}

QByteArray rawAnswer(int status, const QByteArray& body, const QByteArray& headerLines)
{
    return "HTTP/1.1 " + QByteArray::number(status) + " Answer\r\nContent-Type: application/json\r\n"
        + "Content-Length: " + QByteArray::number(body.size()) + "\r\n" + headerLines + "\r\n" + body;
}
