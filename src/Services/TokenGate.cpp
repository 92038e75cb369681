#include "TokenGate.h"

#include "AppError.h"

#include <QCoroFuture>

/// A request begins with the token that is current then, and seldom goes out more than a renewal later.
static constexpr qsizetype mostReplaced = 16;

QCoro::Task<QString> TokenGate::pass(QString idToken)
{
    const quint64 epoch = epoch_.current();
    emit approached();
    while (closed_) {
        const QFuture<QString> opening = closed_->future();
        const QString obstacle = co_await opening;
        if (epoch_.current() != epoch)
            throw AppError(Sentence::sessionEnded());
        if (!obstacle.isEmpty())
            throw AppError(obstacle);
    }
    // A member named in the statement itself would be moved out of its object.
    const QString current = current_;
    if (replaced_.contains(idToken))
        co_return current;
    co_return idToken;
}

void TokenGate::close()
{
    closed_.emplace();
    closed_->start();
}

void TokenGate::open(const QString& obstacle)
{
    if (!closed_)
        return;
    // Open first: whoever waited may close it again.
    QPromise<QString> waiting = std::move(*closed_);
    closed_.reset();
    waiting.addResult(obstacle);
    waiting.finish();
}

void TokenGate::replace(const QString& idToken, const QString& by)
{
    current_ = by;
    replaced_.removeAll(by);
    if (idToken == by)
        return;
    replaced_ += idToken;
    if (replaced_.size() > mostReplaced)
        replaced_.removeFirst();
}

void TokenGate::forget()
{
    current_.clear();
    replaced_.clear();
    open();
}
