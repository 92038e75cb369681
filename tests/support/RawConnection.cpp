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

void RawConnection::readMore()
{
    const QByteArray bytes = stream_.read();
    if (bytes.isEmpty())
        throw RawStream::Gone();
    server_.countBytes(bytes.size());
    unread_ += bytes;
}

RawRequest RawConnection::readHead()
{
    const QByteArray blankLine("\r\n\r\n");
    qsizetype end = -1;
    while ((end = unread_.indexOf(blankLine)) < 0)
        readMore();
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
        readMore();
    request.body = unread_.first(size);
    unread_.remove(0, size);
    server_.remember(request);
    return request;
}

void RawConnection::skipBody(qint64 count)
{
    while (unread_.size() < count) {
        count -= unread_.size();
        unread_.clear();
        readMore();
    }
    unread_.remove(0, count);
}

void RawConnection::drain()
{
    for (;;) {
        unread_.clear();
        readMore();
    }
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
