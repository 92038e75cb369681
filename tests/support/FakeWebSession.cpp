#include "FakeWebSession.h"

#include "EventLoop.h"

#include <QCoroFuture>
#include <QFile>

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

QByteArray bytesOfPart(const QByteArray& bytes)
{
    return bytes;
}

QByteArray bytesOfPart(const RequestBody::File& file)
{
    QFile onDisk(file.path);
    QByteArray bytes;
    if (onDisk.open(QFile::ReadOnly))
        bytes = onDisk.read(file.size);
    if (bytes.size() != file.size)
        throw std::runtime_error("a file of the body cannot be read");
    return bytes;
}

} // namespace

QByteArray bytesOf(const RequestBody& body)
{
    QByteArray bytes;
    for (const RequestBody::Part& part : body.parts())
        bytes += std::visit([](const auto& any) { return bytesOfPart(any); }, part);
    return bytes;
}

FakeWebSession::~FakeWebSession()
{
    for (const auto& exchange : exchanges_) {
        if (!exchange->wasNoticed) {
            ADD_FAILURE() << "nobody expected " << exchange->request.method.toStdString() << ' '
                          << exchange->request.url.toEncoded().toStdString();
        }
    }
    cancelAll();
    settle();
}

QCoro::Task<Response> FakeWebSession::send(Request request)
{
    exchanges_.push_back(std::make_unique<Exchange>());
    Exchange& exchange = *exchanges_.back();
    exchange.request = std::move(request);
    exchange.promise.start();
    const QFuture<Outcome> future = exchange.promise.future();
    const Outcome outcome = co_await future;
    if (const auto* code = std::get_if<TransportError::Code>(&outcome))
        throw TransportError(*code);
    co_return std::get<Response>(outcome);
}

QList<qsizetype> FakeWebSession::pending() const
{
    QList<qsizetype> numbers;
    for (qsizetype number = 0; number < count(); ++number) {
        if (exchanges_[size_t(number)]->isPending)
            numbers += number;
    }
    return numbers;
}

const Request& FakeWebSession::request(qsizetype number)
{
    return noticed(number).request;
}

QByteArray FakeWebSession::header(qsizetype number, const QByteArray& name)
{
    QByteArrayList values;
    for (const Request::Header& header : request(number).headers) {
        if (header.name.compare(name, Qt::CaseInsensitive) == 0)
            values += header.value;
    }
    return values.join(", ");
}

bool FakeWebSession::isAbandoned(qsizetype number)
{
    const std::optional<QFuture<void>>& abandoned = request(number).abandoned;
    return abandoned && abandoned->isFinished();
}

void FakeWebSession::answer(qsizetype number, int status, const QByteArray& body)
{
    resolve(number, Response{status, body});
}

void FakeWebSession::answerWithoutStatus(qsizetype number)
{
    resolve(number, Response{});
}

void FakeWebSession::fail(qsizetype number, TransportError::Code code)
{
    resolve(number, code);
}

void FakeWebSession::cancelAll()
{
    for (const qsizetype number : pending())
        resolve(number, TransportError::Code::Cancelled);
}

void FakeWebSession::reportProgress(qsizetype number, qint64 sent, qint64 total)
{
    const Request::Progress& onProgress = request(number).onProgress;
    if (onProgress)
        onProgress(sent, total);
}

FakeWebSession::Exchange& FakeWebSession::noticed(qsizetype number)
{
    if (number < 0 || number >= count())
        throw std::out_of_range("request " + std::to_string(number) + " was not made");
    Exchange& exchange = *exchanges_[size_t(number)];
    exchange.wasNoticed = true;
    return exchange;
}

void FakeWebSession::resolve(qsizetype number, Outcome outcome)
{
    Exchange& exchange = noticed(number);
    if (!exchange.isPending)
        throw std::logic_error("request " + std::to_string(number) + " has been answered before");
    exchange.isPending = false;
    exchange.promise.addResult(std::move(outcome));
    exchange.promise.finish();
}
