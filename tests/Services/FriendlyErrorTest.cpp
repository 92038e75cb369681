#include "Models/Rows.h"
#include "RequestPipeline.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const QString general = u"We could not complete that request. Please try again."_s;
const QString support = u"We could not complete that request. Please try again or contact support."_s;
const QString ended = u"Your session ended. Please sign in again."_s;
const QString noAccess = u"You do not have access to that section."_s;
const QString incorrect = u"Incorrect email or password. Please try again."_s;
const QString loginService = u"The secure login service had a problem. Please try again."_s;
const QString offline = u"Connection problem. Please check your internet connection and try again."_s;
const QString connection = u"Connection problem. Please try again."_s;

struct Refusal : Named
{
    int status;
    QByteArray answer;
    QString expected;
    bool announces = false;
};

JSONValue value(const QByteArray& text)
{
    return JSONValue::parse(text).value();
}

class FriendlyHTTPError : public testing::TestWithParam<Refusal>
{ };

TEST_P(FriendlyHTTPError, WordsARefusal)
{
    const FriendlyError error = friendlyHTTPError(GetParam().status, value(GetParam().answer));
    EXPECT_EQ(error.message, GetParam().expected);
    EXPECT_EQ(error.announcesSessionExpiry, GetParam().announces);
}

INSTANTIATE_TEST_SUITE_P(Refusals, FriendlyHTTPError,
    testing::Values(
        // clang-format off
        Refusal{{"Unauthorized"}, 401, "{}", ended, true},
        Refusal{{"UnauthorizedWithAMessage"}, 401, R"({"message":"Who are you"})", ended, true},
        Refusal{{"InvalidFirebaseToken"}, 403, R"({"error":"invalid_firebase_token"})", ended, true},
        Refusal{{"FirebaseToken"}, 400, R"({"message":"Bad Firebase Token"})", ended, true},
        Refusal{{"Jwt"}, 500, R"({"message":"JWT expired"})", ended, true},
        Refusal{{"Authorization"}, 422, R"({"code":"Authorization_missing"})", ended, true},
        Refusal{{"Bearer"}, 400, R"({"message":"no bearer"})", ended, true},
        Refusal{{"SessionNotFound"}, 404, R"({"message":"Session not found"})", ended, true},
        Refusal{{"SessionInErrors"}, 422, R"({"errors":{"id":"unknown SESSION"}})", ended, true},
        Refusal{{"Forbidden"}, 403, R"({"message":"Forbidden"})", noAccess},
        Refusal{{"ForbiddenWithoutWords"}, 403, "{}", noAccess},
        Refusal{{"ForbiddenComesBeforeTokenAlone"}, 403, R"({"message":"token"})", noAccess},
        Refusal{{"TokenAloneAnnouncesNothing"}, 400, R"({"message":"Token missing"})", ended},
        Refusal{{"FirebaseAloneAnnouncesNothing"}, 500, R"({"message":"Firebase is down"})", ended},
        Refusal{{"ServersWords"}, 422, R"({"message":" Choose a later date. "})", u"Choose a later date."_s},
        Refusal{{"FatalError"}, 500, R"({"message":"Fatal error in x"})", support},
        Refusal{{"EmptyMessage"}, 500, R"({"message":""})", general},
        Refusal{{"NoMessage"}, 404, "{}", general},
        Refusal{{"ListAnswer"}, 400, R"(["session"])", general},
        Refusal{{"Redirect"}, 302, "{}", general},
        Refusal{{"NoSuchStatus"}, 999, "{}", general} // clang-format on
        ),
    RowName());

class FriendlyPublicHTTPError : public testing::TestWithParam<Refusal>
{ };

TEST_P(FriendlyPublicHTTPError, WordsARefusedSignIn)
{
    EXPECT_EQ(friendlyPublicHTTPError(GetParam().status, value(GetParam().answer)), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Refusals, FriendlyPublicHTTPError,
    testing::Values(
        // clang-format off
        Refusal{{"Unauthorized"}, 401, R"({"message":"token"})", incorrect},
        Refusal{{"InvalidPasswordInCapitals"}, 400, R"({"error":"INVALID_PASSWORD"})", incorrect},
        Refusal{{"InvalidLoginCredentials"}, 400, R"({"error":"INVALID_LOGIN_CREDENTIALS"})", incorrect},
        Refusal{{"EmailNotFound"}, 403, R"({"code":"email_not_found"})", incorrect},
        Refusal{{"CredentialsComeBeforeFirebase"}, 400, R"({"message":"firebase: EMAIL_NOT_FOUND"})", incorrect},
        Refusal{{"Firebase"}, 500, R"({"message":"Firebase is down"})", loginService},
        Refusal{{"Token"}, 403, R"({"message":"Token refused"})", loginService},
        Refusal{{"Forbidden"}, 403, R"({"message":"Account locked"})", noAccess},
        Refusal{{"SessionIsJustAWord"}, 409, R"({"message":"Session open elsewhere"})", u"Session open elsewhere"_s},
        Refusal{{"JwtIsCleaned"}, 400, R"({"message":"bad jwt"})", ended},
        Refusal{{"HtmlIsCleaned"}, 500, R"({"message":"<html>"})", support},
        Refusal{{"NoMessage"}, 500, "{}", general} // clang-format on
        ),
    RowName());

struct Failure : Named
{
    TransportError::Code code;
    QString expected;
    bool announces = false;
};

class FriendlyTransportError : public testing::TestWithParam<Failure>
{ };

TEST_P(FriendlyTransportError, WordsAFailure)
{
    const FriendlyError error = friendlyTransportError(GetParam().code);
    EXPECT_EQ(error.message, GetParam().expected);
    EXPECT_EQ(error.announcesSessionExpiry, GetParam().announces);
}

using Code = TransportError::Code;

INSTANTIATE_TEST_SUITE_P(Failures, FriendlyTransportError,
    testing::Values(
        // clang-format off
        Failure{{"UserAuthenticationRequired"}, Code::UserAuthenticationRequired, ended, true},
        Failure{{"UserCancelledAuthentication"}, Code::UserCancelledAuthentication, ended, true},
        Failure{{"NotConnectedToInternet"}, Code::NotConnectedToInternet, offline},
        Failure{{"NetworkConnectionLost"}, Code::NetworkConnectionLost, offline},
        Failure{{"TimedOut"}, Code::TimedOut, offline},
        Failure{{"CannotFindHost"}, Code::CannotFindHost, offline},
        Failure{{"CannotConnectToHost"}, Code::CannotConnectToHost, offline},
        Failure{{"DnsLookupFailed"}, Code::DnsLookupFailed, offline},
        Failure{{"SecureConnectionFailed"}, Code::SecureConnectionFailed, connection},
        Failure{{"BadServerResponse"}, Code::BadServerResponse, connection},
        Failure{{"BadURL"}, Code::BadURL, connection},
        Failure{{"UnsupportedURL"}, Code::UnsupportedURL, connection},
        Failure{{"Cancelled"}, Code::Cancelled, connection},
        Failure{{"Unknown"}, Code::Unknown, connection},
        Failure{{"CannotReadFile"}, Code::CannotReadFile, u"One of the attached files could not be read. It may have been moved or deleted."_s}
        // clang-format on
        ),
    RowName());

} // namespace
