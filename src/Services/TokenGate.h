#pragma once

#include "SignInEpoch.h"

#include <QCoroTask>
#include <QObject>
#include <QPromise>
#include <QStringList>

#include <optional>

/// Stands before every request that carries an ID token. While the token is being renewed requests wait, and
/// go out with the new one then; so does a request that was begun with a token which has been replaced since.
///
/// Whoever renews closes the gate for as long as that takes. A person's leaving opens it.
class TokenGate : public QObject
{
    Q_OBJECT

public:
    explicit TokenGate(const SignInEpoch& epoch) : epoch_(epoch) { }

    /// The token with which a request goes out that was begun with this one, as soon as it may.
    /// \throws AppError when its person has left meanwhile, or when the renewal has failed in a manner that
    /// leaves
    ///                  the request without hope
    QCoro::Task<QString> pass(QString idToken);

    void close();
    /// \param obstacle  what those are told who waited and whose requests need not be sent; empty to send
    /// them
    void open(const QString& obstacle = {});
    /// The same person has a new token from now on.
    void replace(const QString& idToken, const QString& by);
    /// Another person, or nobody, is signed in from now on.
    void forget();

signals:
    /// A request is about to go out; whoever renews may close the gate before it.
    void approached();

private:
    const SignInEpoch& epoch_;
    std::optional<QPromise<QString>> closed_; ///< resolves with the obstacle
    QString current_;
    QStringList replaced_; ///< tokens of the signed-in person that the current one has replaced
};
