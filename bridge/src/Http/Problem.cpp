#include "Http/Problem.h"

namespace bridge {

Problem::Problem(int status, nlohmann::json body) : status_(status), body_(std::move(body)) { }

Problem Problem::retryAfter(std::chrono::seconds wait) const
{
    Problem problem = *this;
    problem.wait_ = wait;
    return problem;
}

Problem refusal(int status, const std::string& sentence)
{
    return {status, {{"message", sentence}}};
}

Problem invalidField(const std::string& field, const std::string& sentence)
{
    return {422, {{"errors", {{field, sentence}}}}};
}

Problem notFound()
{
    return refusal(404, "We could not find that record.");
}

Problem forbidden()
{
    return refusal(403, "Forbidden");
}

Problem signInNeeded()
{
    return {401, {{"error", "invalid_firebase_token"}}};
}

Problem emailTaken()
{
    return refusal(409, "An account with this email already exists.");
}

Problem tooManyAttempts()
{
    return refusal(429, "Too many attempts. Please wait a moment and try again.");
}

Problem enoughForToday()
{
    return refusal(429, "That is more than one account may add in a day. Please go on tomorrow.");
}

Problem busy()
{
    return refusal(503, "The service is busy. Please try again in a moment.")
        .retryAfter(std::chrono::seconds(5));
}

} // namespace bridge
