#include "AuthManagerTest.h"

using namespace Qt::StringLiterals;

namespace {

struct UserRow : Named
{
    QByteArray answer;
    QByteArray expected; ///< localId, email, displayName, idToken and refreshToken, by name
};

class UserFromAnswer : public testing::TestWithParam<UserRow>
{ };

TEST_P(UserFromAnswer, TakesTheFirstTextOfEachChain)
{
    const AuthUser user
        = AuthManager::authUserFromBridgeResponse(bridgeAnswer(GetParam().answer), u"typed@example.com"_s);
    EXPECT_EQ(json(user.encoded()), json(GetParam().expected));
}

INSTANTIATE_TEST_SUITE_P(Answers, UserFromAnswer,
    testing::Values(
        // clang-format off
        UserRow{{"UnderFirebase"}, R"({"firebase":{"idToken":"i","refreshToken":"r","localId":"l","email":"f@x.y","displayName":"D"},
                "idToken":"outer","refreshToken":"outer"})",
            R"({"localId":"l","email":"f@x.y","displayName":"D","idToken":"i","refreshToken":"r"})"},
        UserRow{{"AtTheTop"}, R"({"id_token":"i","refresh_token":"r","local_id":"l"})",
            R"({"localId":"l","email":"typed@example.com","displayName":"","idToken":"i","refreshToken":"r"})"},
        UserRow{{"CamelCaseWins"}, R"({"idToken":"i","id_token":"x","refreshToken":"r","refresh_token":"x","localId":"l","local_id":"x","user_id":"x"})",
            R"({"localId":"l","email":"typed@example.com","displayName":"","idToken":"i","refreshToken":"r"})"},
        UserRow{{"EmptyAndNullWordsCountAsAbsent"}, R"({"idToken":"","id_token":"i","refreshToken":"null","refresh_token":"r","localId":" ","local_id":null,"user_id":77})",
            R"({"localId":"77","email":"typed@example.com","displayName":"","idToken":"i","refreshToken":"r"})"},
        UserRow{{"FirebaseIsNoObject"}, R"({"firebase":"x","idToken":"i","refreshToken":"r"})",
            R"({"localId":"","email":"typed@example.com","displayName":"","idToken":"i","refreshToken":"r"})"},
        UserRow{{"PersonFromTheProfile"}, R"({"firebase":{"idToken":"i","refreshToken":"r"},"profile":{"user":{"email":"p@x.y","full_name":"Full","name":"Short"}},"user":{"email":"no@x.y"}})",
            R"({"localId":"","email":"p@x.y","displayName":"Full","idToken":"i","refreshToken":"r"})"},
        UserRow{{"ProfileIsThePerson"}, R"({"idToken":"i","refreshToken":"r","profile":{"email":"p@x.y","name":"Short"}})",
            R"({"localId":"","email":"p@x.y","displayName":"Short","idToken":"i","refreshToken":"r"})"},
        UserRow{{"PersonUnderUser"}, R"({"idToken":"i","refreshToken":"r","user":{"email":"u@x.y","name":"Short"}})",
            R"({"localId":"","email":"u@x.y","displayName":"Short","idToken":"i","refreshToken":"r"})"},
        UserRow{{"FirebaseEmailWins"}, R"({"firebase":{"idToken":"i","refreshToken":"r","email":"f@x.y"},"user":{"email":"u@x.y"}})",
            R"({"localId":"","email":"f@x.y","displayName":"","idToken":"i","refreshToken":"r"})"}
        // clang-format on
        ),
    RowName());

struct RefusalRow : Named
{
    QByteArray answer;
    QString expected;
};

class NoUserFromAnswer : public testing::TestWithParam<RefusalRow>
{ };

TEST_P(NoUserFromAnswer, WithoutBothTokens)
{
    try {
        AuthManager::authUserFromBridgeResponse(bridgeAnswer(GetParam().answer), u"typed@example.com"_s);
        ADD_FAILURE();
    } catch (const AppError& error) {
        EXPECT_EQ(error.message(), GetParam().expected);
    }
}

const QString incomplete = u"Sign-in could not be completed. Please try again or contact support."_s;

INSTANTIATE_TEST_SUITE_P(Answers, NoUserFromAnswer,
    testing::Values(
        // clang-format off
        RefusalRow{{"Empty"}, "{}", incomplete},
        RefusalRow{{"NoRefreshToken"}, R"({"idToken":"i"})", incomplete},
        RefusalRow{{"NoIdToken"}, R"({"refreshToken":"r"})", incomplete},
        RefusalRow{{"EmptyTokens"}, R"({"idToken":"","refreshToken":"","message":""})", incomplete},
        RefusalRow{{"NullWord"}, R"json({"idToken":"(null)","refreshToken":"r"})json", incomplete},
        RefusalRow{{"ServersMessage"}, R"({"idToken":"i","message":"Confirm your address first."})", u"Confirm your address first."_s},
        RefusalRow{{"MessageIsAtTheTop"}, R"({"firebase":{"idToken":"i","message":"inner"}})", incomplete},
        RefusalRow{{"TokensOutsideFirebase"}, R"({"firebase":{},"idToken":"i","refreshToken":"r"})", incomplete} // clang-format on
        ),
    RowName());

struct ProfileRow : Named
{
    QByteArray answer;
    QByteArray expected;
};

class ProfileFromAnswer : public testing::TestWithParam<ProfileRow>
{ };

TEST_P(ProfileFromAnswer, IsGivenOrGathered)
{
    EXPECT_EQ(AuthManager::profileFromBridgeResponse(bridgeAnswer(GetParam().answer)),
        bridgeAnswer(GetParam().expected));
}

INSTANTIATE_TEST_SUITE_P(Answers, ProfileFromAnswer,
    testing::Values(
        // clang-format off
        ProfileRow{{"Given"}, R"({"profile":{"a":1},"user":{"id":2},"is_admin":true})", R"({"a":1})"},
        ProfileRow{{"GivenEmpty"}, R"({"profile":{},"user":{"id":2}})", "{}"},
        ProfileRow{{"Gathered"}, R"({"profile":"x","user":{"id":2},"notary":{"id":3},"business":{"id":4},"app_role":"admin","is_admin":false,"is_notary":0,
                "is_business":"yes","notary_id":5,"business_id":"6","token":"t"})",
            R"({"user":{"id":2},"notary":{"id":3},"business":{"id":4},"app_role":"admin","is_admin":false,"is_notary":0,"is_business":"yes","notary_id":5,"business_id":"6"})"},
        ProfileRow{{"OnlyObjectsAreGathered"}, R"({"user":"ada","notary":[],"business":null,"notary_id":5})", R"({"notary_id":5})"},
        ProfileRow{{"NullIsNotGathered"}, R"({"app_role":null,"is_admin":true})", R"({"is_admin":true})"},
        ProfileRow{{"WholeAnswer"}, R"({"id":7,"email":"a@b.c","app_role":null})", R"({"id":7,"email":"a@b.c","app_role":null})"},
        ProfileRow{{"Empty"}, "{}", "{}"} // clang-format on
        ),
    RowName());

struct MergeRow : Named
{
    QByteArray profile;
    QByteArray expected; ///< what differs from a user whose merged fields are all unset
};

class Merge : public testing::TestWithParam<MergeRow>
{ };

/// The fields that every merge sets.
QJsonObject withMerged(QJsonObject base, const QByteArray& changes)
{
    const QJsonObject neutral{{u"displayName"_s, u""_s}, {u"role"_s, u"client"_s}, {u"isAdmin"_s, false},
        {u"isNotary"_s, false}, {u"isBusiness"_s, false}, {u"businessName"_s, u""_s}, {u"state"_s, u""_s}};
    for (const QJsonObject& part : {neutral, json(changes)}) {
        for (auto member = part.begin(); member != part.end(); ++member)
            base.insert(member.key(), member.value());
    }
    return base;
}

TEST_P(Merge, BringsTheProfileIntoTheUser)
{
    const AuthUser before = bareUser();
    const AuthUser after = AuthManager::merge(before, bridgeAnswer(GetParam().profile));
    EXPECT_EQ(json(after.encoded()), withMerged(json(before.encoded()), GetParam().expected));
}

INSTANTIATE_TEST_SUITE_P(Profiles, Merge,
    testing::Values(
        // clang-format off
        MergeRow{{"Empty"}, "{}", "{}"},
        MergeRow{{"PersonUnderUser"}, R"({"user":{"id":3,"full_name":"Full","name":"Short","email":"u@x.y","role":"notary","state":"NY"},"id":9,"name":"no","state":"no"})",
            R"({"sqlUserId":3,"displayName":"Full","email":"u@x.y","role":"notary","state":"NY"})"},
        MergeRow{{"PersonItself"}, R"({"id":"3","name":"Short","state":"NY"})", R"({"sqlUserId":3,"displayName":"Short","state":"NY"})"},
        MergeRow{{"UserIdOfThePerson"}, R"({"user":{"user_id":4},"user_id":5})", R"({"sqlUserId":4})"},
        MergeRow{{"UserIdOfTheProfile"}, R"({"user":{"name":"x"},"user_id":5})", R"({"sqlUserId":5,"displayName":"x"})"},
        MergeRow{{"IdsAreIntegersOnly"}, R"({"id":"3 ","user_id":5})", R"({"sqlUserId":5})"},
        MergeRow{{"AppRoleWins"}, R"({"app_role":"admin","user":{"role":"notary"}})", R"({"role":"admin"})"},
        MergeRow{{"Flags"}, R"({"is_admin":1,"is_notary":"YES","is_business":true})", R"({"isAdmin":true,"isNotary":true,"isBusiness":true})"},
        MergeRow{{"BusinessAccount"}, R"({"user":{"is_business_account":"1"}})", R"({"isBusiness":true})"},
        MergeRow{{"FlagsOfThePersonDoNotCount"}, R"({"user":{"is_admin":true,"is_notary":true,"is_business":true}})", "{}"},
        MergeRow{{"NotaryId"}, R"({"notary_id":8,"notary":{"id":9}})", R"({"notaryId":8})"},
        MergeRow{{"NotaryObject"}, R"({"notary":{"id":9}})", R"({"notaryId":9})"},
        MergeRow{{"BusinessId"}, R"({"business_id":11,"business":{"id":12}})", R"({"businessId":11})"},
        MergeRow{{"BusinessObject"}, R"({"business":{"id":12,"company_name":"Company"},"user":{"business_name":"Own"}})", R"({"businessId":12,"businessName":"Company"})"},
        MergeRow{{"BusinessWithoutAName"}, R"({"business":{"id":12},"user":{"business_name":"Own"}})", R"({"businessId":12,"businessName":"Own"})"},
        MergeRow{{"NoBusiness"}, R"({"business":"x","business_name":"Own"})", R"({"businessName":"Own"})"}
        // clang-format on
        ),
    RowName());

/// Any field may hold anything: whoever signs in then is somebody whole, and is so after a restart.
TEST(MergeTest, AnyTypeInAnyFieldMakesAUser)
{
    const QList<QByteArray> values{"\"text\"", "\"12\"", "12", "1.5", "-0", "null", "\"null\"", "true", "[]",
        "[{}]", "{}", R"({"id": [], "email": 7, "full_name": {}, "company_name": null})", "\"\""};
    for (const QByteArray field : {"firebase", "profile", "user", "notary", "business", "id", "user_id",
             "email", "full_name", "name", "app_role", "role", "is_admin", "is_notary", "is_business",
             "is_business_account", "notary_id", "business_id", "business_name", "state", "message"}) {
        for (const QByteArray& value : values) {
            const QByteArray member = ",\"" + field + "\":" + value;
            const JSONObject top = bridgeAnswer(R"({"idToken":"i","refreshToken":"r")" + member + "}");
            const JSONObject inner
                = bridgeAnswer(R"({"idToken":"i","refreshToken":"r","user":{"x":0)" + member + "}}");
            for (const JSONObject& answer : {top, inner}) {
                if (answer.object(u"firebase"_s))
                    continue;
                const AuthUser user
                    = AuthManager::merge(AuthManager::authUserFromBridgeResponse(answer, u"e"_s),
                        AuthManager::profileFromBridgeResponse(answer));
                EXPECT_EQ(user.idToken, u"i"_s) << member.toStdString();
                EXPECT_FALSE(user.email.isEmpty()) << member.toStdString();
                EXPECT_EQ(AuthManager::availableRoles(user).first(), AppRole::client);
                EXPECT_EQ(AuthUser::decode(user.encoded()), user) << member.toStdString();
            }
        }
    }
}

TEST(MergeTest, KeepsWhatTheProfileDoesNotSay)
{
    AuthUser before = bareUser(u"law_firm"_s);
    before.displayName = u"Ada"_s;
    const AuthUser after = AuthManager::merge(before, JSONObject());
    EXPECT_EQ(after.displayName, u"Ada"_s);
    EXPECT_EQ(after.email, before.email);
    EXPECT_EQ(after.role, u"law_firm"_s);
    EXPECT_EQ(after.localId, before.localId);
    EXPECT_EQ(after.idToken, before.idToken);
    EXPECT_EQ(after.refreshToken, before.refreshToken);
}

TEST(MergeTest, ForgetsWhatTheProfileNoLongerSays)
{
    AuthUser before = bareUser();
    before.sqlUserId = 3;
    before.isAdmin = true;
    before.isNotary = true;
    before.isBusiness = true;
    before.notaryId = 4;
    before.businessId = 5;
    before.businessName = u"Company"_s;
    before.state = u"NY"_s;
    const AuthUser after = AuthManager::merge(before, JSONObject());
    EXPECT_EQ(json(after.encoded()), withMerged(json(bareUser().encoded()), "{}"));
}

} // namespace
