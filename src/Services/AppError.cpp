#include "AppError.h"

using namespace Qt::StringLiterals;

QString Sentence::sessionEnded()
{
    return u"Your session ended. Please sign in again."_s;
}

QString Sentence::couldNotComplete()
{
    return u"We could not complete that request. Please try again."_s;
}

bool isSessionExpired(const std::exception& error)
{
    const auto* appError = dynamic_cast<const AppError*>(&error);
    return appError && appError->message() == Sentence::sessionEnded();
}

/// What an error says of itself; of a sentence that holds a NUL, all of it.
static QString descriptionOf(const std::exception& error)
{
    const auto* appError = dynamic_cast<const AppError*>(&error);
    return appError ? appError->message() : QString::fromUtf8(error.what());
}

QString naturalMessage(const std::exception& error)
{
    if (isSessionExpired(error))
        return Sentence::sessionEnded();
    const QString description = descriptionOf(error);
    const QString lowered = description.toLower();
    const auto speaksOf = [&lowered](std::initializer_list<QLatin1StringView> words) {
        return std::any_of(words.begin(), words.end(),
            [&lowered](QLatin1StringView word) { return lowered.contains(word); });
    };
    if (speaksOf({"firebase"_L1, "token"_L1, "jwt"_L1, "bearer"_L1, "authorization"_L1, "unauthorized"_L1}))
        return Sentence::sessionEnded();
    if (speaksOf({"invalid_login_credentials"_L1, "invalid password"_L1, "email_not_found"_L1}))
        return u"Incorrect email or password. Please try again."_s;
    if (speaksOf({"network"_L1, "timed out"_L1, "internet"_L1, "connection"_L1}))
        return u"Connection problem. Please check your internet connection and try again."_s;
    return description;
}
