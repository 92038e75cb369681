#include "AdminRecordItem.h"

#include "AdminUserRecord.h"
#include "Rows.h"

using namespace Qt::StringLiterals;

namespace {

AdminRecordItem record(const QByteArray& json)
{
    return {1, jsonObject(json)};
}

struct KindRow : Named
{
    QByteArray json;
    bool isWalkIn;
    QString status;
    QString source;
};

class AdminRecordKind : public testing::TestWithParam<KindRow>
{ };

TEST_P(AdminRecordKind, DecidesTheDefaults)
{
    const AdminRecordItem item = record(GetParam().json);
    EXPECT_EQ(item.isWalkIn(), GetParam().isWalkIn);
    EXPECT_EQ(item.status(), GetParam().status);
    EXPECT_EQ(item.source(), GetParam().source);
}

const QString photos = u"remote notary camera photos"_s;
const QString sessions = u"remote_notary_sessions"_s;

INSTANTIATE_TEST_SUITE_P(Kinds, AdminRecordKind,
    testing::Values(KindRow{{"Missing"}, "{}", false, u"requested"_s, sessions},
        KindRow{{"WalkInType"}, R"({"type":"walkin"})", true, u"complete"_s, photos},
        KindRow{
            {"WalkInRecordType"}, R"({"record_type":"walkin","type":"remote"})", true, u"complete"_s, photos},
        KindRow{{"RecordTypeWins"}, R"({"record_type":"remote","type":"walkin"})", false, u"requested"_s,
            sessions},
        KindRow{{"BlankRecordType"}, R"({"record_type":" ","type":"walkin"})", true, u"complete"_s, photos},
        KindRow{{"CaseCounts"}, R"({"record_type":"Walkin"})", false, u"requested"_s, sessions},
        KindRow{{"BlanksCount"}, R"({"record_type":" walkin"})", false, u"requested"_s, sessions},
        KindRow{{"HyphenCounts"}, R"({"record_type":"walk-in"})", false, u"requested"_s, sessions},
        KindRow{{"OwnValues"}, R"({"type":"walkin","status":"void","source":"s"})", true, u"void"_s, u"s"_s}),
    RowName());

TEST(AdminRecordItem, NamesItsKindAsReceived)
{
    EXPECT_EQ(record(R"({"record_type":"apostille"})").recordType(), u"apostille"_s);
    EXPECT_EQ(record("{}").recordType(), u"remote"_s);
}

struct DateRow : Named
{
    QByteArray json;
    QString text;
};

class AdminRecordDate : public testing::TestWithParam<DateRow>
{ };

TEST_P(AdminRecordDate, IsTheServersText)
{
    EXPECT_EQ(record(GetParam().json).displayDateTime(), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Dates, AdminRecordDate,
    testing::Values(
        DateRow{{"Both"}, R"({"preferred_date":"D","scheduled_time":"T","created_at":"C"})", u"D T"_s},
        DateRow{{"TimeOnly"}, R"({"preferred_time":"T","ny_datetime":"N"})", u"T"_s},
        DateRow{{"Created"}, R"({"created_at":"C","ny_datetime":"N"})", u"C"_s},
        DateRow{{"NewYork"}, R"({"created_at":"","ny_datetime":"N"})", u"N"_s},
        DateRow{{"Nothing"}, "{}", u"Date pending"_s}),
    RowName());

struct NamesRow : Named
{
    QByteArray json;
    QList<QString> names;
};

class AdminRecordSigners : public testing::TestWithParam<NamesRow>
{ };

TEST_P(AdminRecordSigners, AreNamedByTheFirstSourceThatFits)
{
    EXPECT_EQ(record(GetParam().json).signerNames(), GetParam().names);
}

INSTANTIATE_TEST_SUITE_P(Sources, AdminRecordSigners,
    testing::Values(NamesRow{{"Texts"}, R"({"signer_names":[" Ada ",""],"name":"Gil"})", {u"Ada"_s}},
        NamesRow{{"NoTextsAtAll"}, R"({"signer_names":[],"name":"Gil"})", {}},
        NamesRow{{"Objects"}, R"({"signers":[{"full_name":"Ben"}],"name":"Gil"})", {u"Ben"_s}},
        NamesRow{{"SignerName"}, R"({"signer_name":"Cy","contact_name":"Di"})", {u"Cy"_s}},
        NamesRow{{"ContactName"}, R"({"contact_name":"Di","client_name":"Flo"})", {u"Di"_s}},
        NamesRow{{"UserFullNameDoesNotCount"}, R"({"user_full_name":"Ed"})", {}},
        NamesRow{{"ClientName"}, R"({"client_name":"Flo","name":"Gil"})", {u"Flo"_s}},
        NamesRow{{"Name"}, R"({"name":"Gil"})", {u"Gil"_s}}, NamesRow{{"Nobody"}, "{}", {}}),
    RowName());

TEST(AdminRecordItem, EqualsByIdKindAndUpdate)
{
    const AdminRecordItem one = record(R"({"type":"walkin","updated_at":"u","status":"a"})");
    EXPECT_EQ(one, record(R"({"record_type":"walkin","updated_at":"u","status":"b"})"));
    EXPECT_NE(one, (AdminRecordItem{2, one.raw}));
    EXPECT_NE(one, record(R"({"type":"remote","updated_at":"u"})"));
    EXPECT_NE(one, record(R"({"type":"walkin","updated_at":"w"})"));
    EXPECT_EQ(record("{}"), record(R"({"type":"remote","updated_at":"null"})"));
}

TEST(AdminUserRecord, EqualsByIdAndEmail)
{
    const AdminUserRecord one{1, jsonObject(R"({"email":"ada@example.com","name":"Ada"})")};
    EXPECT_EQ(one, (AdminUserRecord{1, jsonObject(R"({"email":"ada@example.com","name":"Ben"})")}));
    EXPECT_NE(one, (AdminUserRecord{2, one.raw}));
    EXPECT_NE(one, (AdminUserRecord{1, jsonObject(R"({"email":"Ada@example.com"})")}));
    EXPECT_EQ((AdminUserRecord{1, {}}), (AdminUserRecord{1, jsonObject(R"({"email":null})")}));
}

} // namespace
