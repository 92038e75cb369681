#pragma once

#include "Cases.h"
#include "support/FakeWebSession.h"

#include <functional>

/// One way for any request to fail.
struct FailureKind
{
    std::string name;
    std::function<void(FakeWebSession&, qsizetype number)> happen;
    QString message; ///< of the alert; empty when it signs the person out without a word
};

inline void PrintTo(const FailureKind& kind, std::ostream* out)
{
    *out << kind.name;
}

inline FailureKind answeredFailure(
    const std::string& name, int status, const QByteArray& body, const QString& message)
{
    return {name,
        [status, body](FakeWebSession& session, qsizetype number) { session.answer(number, status, body); },
        message};
}

inline FailureKind transportFailure(
    const std::string& name, TransportError::Code code, const QString& message)
{
    return {name, [code](FakeWebSession& session, qsizetype number) { session.fail(number, code); }, message};
}

/// Every kind that the pipeline tells apart.
inline std::vector<FailureKind> failureKinds()
{
    using Code = TransportError::Code;
    const auto text = [](const char* sentence) { return QString::fromLatin1(sentence); };
    const QString connection
        = text("Connection problem. Please check your internet connection and try again.");
    const QString again = text("We could not complete that request. Please try again.");
    return {
        answeredFailure("ServerSentence", 500, R"({"message": "Try later."})", text("Try later.")),
        answeredFailure("NoSentence", 500, "{}", again),
        answeredFailure("Page", 502, "<html><body>Bad Gateway</body></html>",
            text("We could not complete that request. Please try again or contact support.")),
        answeredFailure("NotJson", 200, "Fine, thank you.", text("Fine, thank you.")),
        answeredFailure(
            "NotText", 200, "\xff\xfe", text("We could not read the response. Please try again.")),
        answeredFailure(
            "Forbidden", 403, R"({"message": "No."})", text("You do not have access to that section.")),
        answeredFailure("TooLarge", 413, R"({"error": "Too large."})", text("Too large.")),
        answeredFailure("Redirect", 302, "{}", again),
        {"NoStatus", [](FakeWebSession& session, qsizetype number) { session.answerWithoutStatus(number); },
            again},
        transportFailure("TimedOut", Code::TimedOut, connection),
        transportFailure("NotConnected", Code::NotConnectedToInternet, connection),
        transportFailure("ConnectionLost", Code::NetworkConnectionLost, connection),
        transportFailure("BrokenAnswer", Code::BadServerResponse, connection),
        answeredFailure("Expired", 401, "{}", {}),
        answeredFailure("SpeaksOfTheSession", 422, R"({"message": "Session not found"})", {}),
        transportFailure("AuthenticationRequired", Code::UserAuthenticationRequired, {}),
    };
}
