#include "AuthUser.h"

#include "Generators.h"
#include "Rows.h"

#include <rapidcheck/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const QByteArray required = R"("localId":"l","email":"e","idToken":"i","refreshToken":"r")";

QByteArray withField(const QByteArray& field)
{
    return "{" + required + "," + field + "}";
}

AuthUser fullUser()
{
    return {
        .localId = u"local"_s,
        .email = u"ada@example.com"_s,
        .displayName = u"Ada Alder"_s,
        .idToken = u"id"_s,
        .refreshToken = u"refresh"_s,
        .sqlUserId = 42,
        .role = u"client"_s,
        .isAdmin = false,
        .isNotary = true,
        .isBusiness = false,
        .notaryId = 7,
        .businessId = 8,
        .businessName = u"Alder & Ash"_s,
        .state = u"NY"_s,
    };
}

AuthUser smallestUser()
{
    AuthUser user;
    user.localId = u"l"_s;
    user.email = u"e"_s;
    user.idToken = u"i"_s;
    user.refreshToken = u"r"_s;
    return user;
}

QJsonObject encodedObject(const AuthUser& user)
{
    return QJsonDocument::fromJson(user.encoded()).object();
}

TEST(AuthUser, IsEncodedUnderItsFieldsNames)
{
    EXPECT_EQ(encodedObject(fullUser()),
        (QJsonObject{{u"localId"_s, u"local"_s}, {u"email"_s, u"ada@example.com"_s},
            {u"displayName"_s, u"Ada Alder"_s}, {u"idToken"_s, u"id"_s}, {u"refreshToken"_s, u"refresh"_s},
            {u"sqlUserId"_s, 42}, {u"role"_s, u"client"_s}, {u"isAdmin"_s, false}, {u"isNotary"_s, true},
            {u"isBusiness"_s, false}, {u"notaryId"_s, 7}, {u"businessId"_s, 8},
            {u"businessName"_s, u"Alder & Ash"_s}, {u"state"_s, u"NY"_s}}));
}

TEST(AuthUser, LeavesAbsentFieldsOut)
{
    EXPECT_EQ(encodedObject(smallestUser()), QJsonDocument::fromJson("{" + required + "}").object());
}

TEST(AuthUser, IsDecodedWithRequiredFieldsOnly)
{
    EXPECT_EQ(AuthUser::decode("{" + required + "}"), smallestUser());
}

TEST(AuthUser, ReadsNullAsAbsentAndIgnoresUnknownKeys)
{
    const auto user
        = AuthUser::decode(withField(R"("displayName":null,"sqlUserId":null,"isAdmin":null,"x":[1])"));
    EXPECT_EQ(user, smallestUser());
}

TEST(AuthUser, KeepsEmptyTexts)
{
    const auto user
        = AuthUser::decode(R"({"localId":"","email":"","idToken":"","refreshToken":"","displayName":""})");
    ASSERT_TRUE(user);
    EXPECT_EQ(user->displayName, QString());
}

TEST(AuthUser, DiffersWhenAnyFieldDiffers)
{
    const AuthUser user = fullUser();
    for (const QString& name : encodedObject(user).keys()) {
        QJsonObject changed = encodedObject(user);
        const QJsonValue old = changed.value(name);
        changed.insert(name,
            old.isString()     ? QJsonValue(old.toString() + u'x')
                : old.isBool() ? QJsonValue(!old.toBool())
                               : QJsonValue(old.toInteger() + 1));
        const auto other = AuthUser::decode(QJsonDocument(changed).toJson());
        ASSERT_TRUE(other) << name.toStdString();
        EXPECT_NE(*other, user) << name.toStdString();
    }
}

/// One key of the stored form, with whether it may be missing and a value of its right type.
struct FieldRow : Named
{
    bool isRequired;
    QByteArray good;
};

class AuthUserField : public testing::TestWithParam<FieldRow>
{
protected:
    static QByteArray fullJson(const QJsonValue& value)
    {
        QJsonObject object = encodedObject(fullUser());
        object.insert(name(), value);
        return QJsonDocument(object).toJson();
    }
    static QString name() { return QString::fromStdString(GetParam().name); }
    static QJsonValue parsed(const QByteArray& json)
    {
        return QJsonDocument::fromJson("[" + json + "]").array().at(0);
    }
};

TEST_P(AuthUserField, AcceptsItsOwnTypeOnly)
{
    for (const char* json : {R"("text")", R"("1")", R"("true")", "7", "0", "12.5", "1e20",
             "9223372036854775808", "true", "false", "[]", "{}", R"(["text"])"}) {
        const bool isSameType = parsed(json).type() == parsed(GetParam().good).type();
        const bool isFraction
            = parsed(json).isDouble() && parsed(json).toVariant().typeId() == QMetaType::Double;
        EXPECT_EQ(AuthUser::decode(fullJson(parsed(json))).has_value(), isSameType && !isFraction) << json;
    }
}

TEST_P(AuthUserField, MayBeMissingOnlyWhenOptional)
{
    QJsonObject object = encodedObject(fullUser());
    object.remove(name());
    EXPECT_EQ(AuthUser::decode(QJsonDocument(object).toJson()).has_value(), !GetParam().isRequired);
}

TEST_P(AuthUserField, MayBeNullOnlyWhenOptional)
{
    EXPECT_EQ(AuthUser::decode(fullJson(QJsonValue::Null)).has_value(), !GetParam().isRequired);
}

INSTANTIATE_TEST_SUITE_P(Fields, AuthUserField,
    testing::Values(FieldRow{{"localId"}, true, R"("t")"}, FieldRow{{"email"}, true, R"("t")"},
        FieldRow{{"displayName"}, false, R"("t")"}, FieldRow{{"idToken"}, true, R"("t")"},
        FieldRow{{"refreshToken"}, true, R"("t")"}, FieldRow{{"sqlUserId"}, false, "1"},
        FieldRow{{"role"}, false, R"("t")"}, FieldRow{{"isAdmin"}, false, "true"},
        FieldRow{{"isNotary"}, false, "true"}, FieldRow{{"isBusiness"}, false, "true"},
        FieldRow{{"notaryId"}, false, "1"}, FieldRow{{"businessId"}, false, "1"},
        FieldRow{{"businessName"}, false, R"("t")"}, FieldRow{{"state"}, false, R"("t")"}),
    RowName());

struct DocumentRow : Named
{
    QByteArray json;
};

class AuthUserDocument : public testing::TestWithParam<DocumentRow>
{ };

TEST_P(AuthUserDocument, IsNoUser)
{
    EXPECT_EQ(AuthUser::decode(GetParam().json), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(Documents, AuthUserDocument,
    testing::Values(DocumentRow{{"Empty"}, ""}, DocumentRow{{"EmptyObject"}, "{}"},
        DocumentRow{{"List"}, "[{" + required + "}]"}, DocumentRow{{"Cut"}, "{" + required},
        DocumentRow{{"GarbageAfter"}, "{" + required + "}x"}, DocumentRow{{"Text"}, "user"},
        DocumentRow{{"Nul"}, QByteArray(64, '\0')}),
    RowName());

template <typename Value>
rc::Gen<std::optional<Value>> maybe(rc::Gen<Value> gen)
{
    return rc::gen::oneOf(rc::gen::just(std::optional<Value>()),
        rc::gen::map(gen, [](const Value& value) { return std::optional(value); }));
}

rc::Gen<AuthUser> anyUser()
{
    const auto text = maybe(Generate::text());
    const auto number = maybe(rc::gen::arbitrary<qint64>());
    const auto flag = maybe(rc::gen::arbitrary<bool>());
    return rc::gen::build<AuthUser>(rc::gen::set(&AuthUser::localId), rc::gen::set(&AuthUser::email),
        rc::gen::set(&AuthUser::displayName, text), rc::gen::set(&AuthUser::idToken),
        rc::gen::set(&AuthUser::refreshToken), rc::gen::set(&AuthUser::sqlUserId, number),
        rc::gen::set(&AuthUser::role, text), rc::gen::set(&AuthUser::isAdmin, flag),
        rc::gen::set(&AuthUser::isNotary, flag), rc::gen::set(&AuthUser::isBusiness, flag),
        rc::gen::set(&AuthUser::notaryId, number), rc::gen::set(&AuthUser::businessId, number),
        rc::gen::set(&AuthUser::businessName, text), rc::gen::set(&AuthUser::state, text));
}

RC_GTEST_PROP(AuthUserProperty, ReadsBackWhatItHasWritten, ())
{
    const AuthUser user = *anyUser();
    RC_ASSERT(AuthUser::decode(user.encoded()) == user);
}

RC_GTEST_PROP(AuthUserProperty, OutlivesADamagedRecord, ())
{
    const QByteArray record = *Generate::damaged(fullUser().encoded());
    const auto user = AuthUser::decode(record);
    RC_CLASSIFY(user.has_value(), "read");
    if (user)
        RC_ASSERT(AuthUser::decode(user->encoded()) == user);
}

} // namespace
