#pragma once

#include <nlohmann/json.hpp>

#include <chrono>
#include <exception>
#include <optional>
#include <string>

namespace bridge {

/// An operation ends with a refusal: a status and a JSON body. Thrown by operations, answered by the router.
///
/// Clients show the sentence to people, and they read some words as the end of a sign-in: "session", "token",
/// "jwt", "bearer", "authorization", "firebase". No sentence here contains one of them, save the refusal of a
/// token itself.
class Problem : public std::exception
{
public:
    Problem(int status, nlohmann::json body);

    /// \returns the same for who is told to ask again after a while
    Problem retryAfter(std::chrono::seconds wait) const;

    int status() const { return status_; }
    const nlohmann::json& body() const { return body_; }

    /// None when asking again is of no use.
    std::optional<std::chrono::seconds> wait() const { return wait_; }

    const char* what() const noexcept override { return "the request is refused"; }

private:
    int status_;
    nlohmann::json body_;
    std::optional<std::chrono::seconds> wait_;
};

/// {"message": sentence}
Problem refusal(int status, const std::string& sentence);

/// {"errors": {field: sentence}} with 422
Problem invalidField(const std::string& field, const std::string& sentence);

/// 404, the same for what does not exist and for what belongs to somebody else.
Problem notFound();

/// 403
Problem forbidden();

/// 401 {"error": "invalid_firebase_token"}: the ID token is missing, unknown or has expired.
Problem signInNeeded();

/// 409: another account has the e-mail address.
Problem emailTaken();

/// 429: a password is being guessed.
Problem tooManyAttempts();

/// 429: an account has brought all that it may in a day.
Problem enoughForToday();

/// 503: the server does too much at once.
Problem busy();

} // namespace bridge
