#include "Account/LoginModel.h"

#include "AppError.h"
#include "CharacterCount.h"
#include "EmailAddress.h"

using namespace Qt::StringLiterals;

static constexpr int leastPasswordLength = 6;

/// What the fields lack; nullopt when they may be sent.
std::optional<LoginModel::Retry> LoginModel::firstFault() const
{
    const bool registering = isRegistering.value();
    if (registering && name.value().trimmed().isEmpty())
        return Retry{Field::name, u"Enter your full name."_s};
    if (!isValidEmail(email.value()))
        return Retry{Field::email, u"Enter a valid email address."_s};
    if (registering && characterCount(password.value()) < leastPasswordLength)
        return Retry{Field::password, u"Password must be at least 6 characters."_s};
    if (!registering && password.value().isEmpty())
        return Retry{Field::password, u"Enter your password."_s};
    return std::nullopt;
}

QCoro::Task<> LoginModel::submit()
{
    const auto self = keep(this);
    if (isBusy().value())
        co_return;
    const bool registering = isRegistering.value();
    const QString alertTitle = registering ? u"Registration Failed"_s : u"Sign In Failed"_s;
    retry_ = firstFault();
    if (retry_) {
        showAlert(alertTitle, retry_->fault);
        co_return;
    }
    try {
        co_await send();
    } catch (const AppError& error) {
        if (isClosed_) {
            context().notice = AlertMessage{.title = alertTitle, .message = naturalMessage(error)};
            co_return;
        }
        // Most often it was mistyped.
        if (!registering)
            retry_ = Retry{Field::password, {}};
        showAlert(alertTitle, naturalMessage(error));
    }
}

QCoro::Task<> LoginModel::send()
{
    if (!isRegistering.value()) {
        co_await auth().signIn(email.value(), password.value(), std::nullopt);
        co_return;
    }
    ClientRegistration registration;
    registration.name = name.value();
    registration.email = email.value();
    registration.password = password.value();
    registration.phone = phone.value();
    registration.city = city.value();
    registration.state = state.value();
    co_await auth().registerClient(registration);
}
