#pragma once

#include <QString>

#include <exception>

/// The one failure that reaches the screens: a complete sentence to be shown as it stands.
class AppError : public std::exception
{
public:
    explicit AppError(QString message) : message_(std::move(message)), utf8_(message_.toUtf8()) { }

    const QString& message() const { return message_; }
    const char* what() const noexcept override { return utf8_.constData(); }

private:
    QString message_;
    QByteArray utf8_;
};

/// The sentences that more than one place needs.
namespace Sentence {
QString sessionEnded(); ///< "Your session ended. Please sign in again."
QString couldNotComplete(); ///< "We could not complete that request. Please try again."
} // namespace Sentence

/// True exactly for an AppError that says the session ended.
bool isSessionExpired(const std::exception& error);
/// The sentence that a screen shows for any error.
QString naturalMessage(const std::exception& error);
