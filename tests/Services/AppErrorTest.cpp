#include "AppError.h"

#include "Models/Rows.h"

#include <gtest/gtest.h>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

const QString ended = u"Your session ended. Please sign in again."_s;
const QString incorrect = u"Incorrect email or password. Please try again."_s;
const QString offline = u"Connection problem. Please check your internet connection and try again."_s;

struct Row : Named
{
    QString description;
    QString expected;
};

class NaturalMessage : public testing::TestWithParam<Row>
{ };

TEST_P(NaturalMessage, WordsAnyError)
{
    const std::runtime_error other(GetParam().description.toStdString());
    EXPECT_EQ(naturalMessage(AppError(GetParam().description)), GetParam().expected);
    EXPECT_EQ(naturalMessage(other), GetParam().expected);
    EXPECT_FALSE(isSessionExpired(other));
}

INSTANTIATE_TEST_SUITE_P(Errors, NaturalMessage,
    testing::Values(
        // clang-format off
        Row{{"SessionEnded"}, ended, ended},
        Row{{"Firebase"}, u"Firebase says no"_s, ended},
        Row{{"Token"}, u"a stale TOKEN"_s, ended},
        Row{{"Jwt"}, u"Jwt malformed"_s, ended},
        Row{{"Bearer"}, u"no bearer token"_s, ended},
        Row{{"Authorization"}, u"Authorization missing"_s, ended},
        Row{{"Unauthorized"}, u"Unauthorized"_s, ended},
        Row{{"InvalidLoginCredentials"}, u"INVALID_LOGIN_CREDENTIALS"_s, incorrect},
        Row{{"InvalidPasswordWithABlank"}, u"Invalid password"_s, incorrect},
        Row{{"InvalidPasswordWithAnUnderscore"}, u"invalid_password"_s, u"invalid_password"_s},
        Row{{"EmailNotFound"}, u"EMAIL_NOT_FOUND"_s, incorrect},
        Row{{"Network"}, u"Network is down"_s, offline},
        Row{{"TimedOut"}, u"The request timed out."_s, offline},
        Row{{"Internet"}, u"no Internet"_s, offline},
        Row{{"ShortConnectionSentence"}, u"Connection problem. Please try again."_s, offline},
        Row{{"TokenComesBeforeNetwork"}, u"network token"_s, ended},
        Row{{"NoAccess"}, u"You do not have access to that section."_s, u"You do not have access to that section."_s},
        Row{{"OtherWords"}, u" Größe 7 nicht verfügbar "_s, u" Größe 7 nicht verfügbar "_s},
        Row{{"Empty"}, u""_s, u""_s} // clang-format on
        ),
    RowName());

TEST(NaturalMessageOfAnAppError, IsWholeWhateverCharactersItHolds)
{
    const QString withNul = u"Code a\0b is wrong"_s;
    ASSERT_EQ(withNul.size(), 17);
    EXPECT_EQ(naturalMessage(AppError(withNul)), withNul);
    EXPECT_EQ(naturalMessage(AppError(u"a\0stale token"_s)), ended);
    const QString halfAPair = u"Code "_s + QChar(0xD83D) + u" is wrong"_s;
    EXPECT_EQ(naturalMessage(AppError(halfAPair)), halfAPair);
}

TEST(IsSessionExpired, OnlyForThatVerySentence)
{
    EXPECT_TRUE(isSessionExpired(AppError(ended)));
    EXPECT_FALSE(isSessionExpired(AppError(ended + u' ')));
    EXPECT_FALSE(isSessionExpired(AppError(ended.toLower())));
    EXPECT_FALSE(isSessionExpired(AppError(u"bearer token missing"_s)));
    EXPECT_FALSE(isSessionExpired(std::runtime_error(ended.toStdString())));
}

TEST(AppErrorTest, TellsItsSentence)
{
    const AppError error(u"Größe"_s);
    EXPECT_EQ(error.message(), u"Größe"_s);
    EXPECT_STREQ(error.what(), "Größe");
}

} // namespace
