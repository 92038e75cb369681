#pragma once

#include "WebSession.h"

#include <QFuture>
#include <QPromise>

#include <memory>
#include <variant>
#include <vector>

/// The bytes that a body sends, its files read from disk.
QByteArray bytesOf(const RequestBody& body);

/// A web session without a network. It is late: every request waits until the test answers it, and requests
/// may be answered in any order. It is strict: a request that the test has neither looked at nor resolved
/// when the session goes fails the test.
///
/// Requests are numbered from 0 in the order in which they were made. Whoever awaits one resumes when the
/// event loop next runs, which settle() does. What is still waiting when the session goes ends as cancelled.
class FakeWebSession : public WebSession
{
public:
    ~FakeWebSession() override;

    QCoro::Task<Response> send(Request request) override;

    qsizetype count() const { return qsizetype(exchanges_.size()); }
    /// The numbers of the requests that wait for their answer.
    QList<qsizetype> pending() const;
    /// A request that must have been made.
    const Request& request(qsizetype number);
    /// The bytes of its body.
    QByteArray body(qsizetype number) { return bytesOf(request(number).body); }
    /// The value of its header; empty without one, and all values joined by commas when there are several.
    QByteArray header(qsizetype number, const QByteArray& name);

    /// Whether its maker has told that nobody waits for the answer any more. A real session ends such a
    /// request then, unless it has been answered already, which is what happens here.
    bool isAbandoned(qsizetype number);

    /// Resolves a request that must be waiting.
    void answer(qsizetype number, int status, const QByteArray& body);
    /// An answer that is no usable reply of the protocol.
    void answerWithoutStatus(qsizetype number);
    void fail(qsizetype number, TransportError::Code code);
    /// Ends everything that waits, as at the end of the program.
    void cancelAll();

    /// Tells the request's maker how much of its body has been sent.
    void reportProgress(qsizetype number, qint64 sent, qint64 total);

private:
    using Outcome = std::variant<Response, TransportError::Code>;
    struct Exchange
    {
        Request request;
        QPromise<Outcome> promise;
        bool isPending = true;
        bool wasNoticed = false;
    };

    Exchange& noticed(qsizetype number);
    void resolve(qsizetype number, Outcome outcome);

    std::vector<std::unique_ptr<Exchange>> exchanges_;
};
