#include "SessionSummary.h"

#include "Rows.h"

using namespace Qt::StringLiterals;

namespace {

SessionSummary session(const QByteArray& json)
{
    return {1, jsonObject(json)};
}

struct StatusRow : Named
{
    QByteArray json;
    QString status;
    bool canCancel;
};

class SessionStatus : public testing::TestWithParam<StatusRow>
{ };

TEST_P(SessionStatus, IsReadAndDecidesAboutCancelling)
{
    EXPECT_EQ(session(GetParam().json).status(), GetParam().status);
    EXPECT_EQ(session(GetParam().json).canCancel(), GetParam().canCancel);
}

INSTANTIATE_TEST_SUITE_P(Words, SessionStatus,
    testing::Values(StatusRow{{"Missing"}, "{}", u"requested"_s, true},
        StatusRow{{"Blank"}, R"({"status":"  "})", u"requested"_s, true},
        StatusRow{{"NullInCapitals"}, R"({"status":"NULL"})", u"requested"_s, true},
        StatusRow{{"Requested"}, R"({"status":"requested"})", u"requested"_s, true},
        StatusRow{{"Pending"}, R"({"status":"pending"})", u"pending"_s, true},
        StatusRow{{"Scheduled"}, R"({"status":"Scheduled"})", u"Scheduled"_s, true},
        StatusRow{{"Confirmed"}, R"({"status":"CONFIRMED"})", u"CONFIRMED"_s, true},
        StatusRow{{"Rescheduled"}, R"({"status":"rescheduled"})", u"rescheduled"_s, true},
        StatusRow{{"BlanksAround"}, R"({"status":" pending "})", u" pending "_s, false},
        StatusRow{{"Completed"}, R"({"status":"completed"})", u"completed"_s, false},
        StatusRow{{"Cancelled"}, R"({"status":"cancelled"})", u"cancelled"_s, false},
        StatusRow{{"InProgress"}, R"({"status":"in_progress"})", u"in_progress"_s, false},
        StatusRow{{"Number"}, R"({"status":1})", u"1"_s, false}),
    RowName());

struct DateRow : Named
{
    QByteArray json;
    QString text;
};

class SessionDate : public testing::TestWithParam<DateRow>
{ };

TEST_P(SessionDate, IsTheServersText)
{
    EXPECT_EQ(session(GetParam().json).displayDateTime(), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Dates, SessionDate,
    testing::Values(DateRow{{"Both"}, R"({"scheduled_date":"2026-05-01","scheduled_time":"2:05 PM"})",
                        u"2026-05-01 2:05 PM"_s},
        DateRow{{"PreferredDateScheduledTime"}, R"({"preferred_date":"2026-05-01","scheduled_time":"9:00"})",
            u"2026-05-01 9:00"_s},
        DateRow{{"ScheduledWins"},
            R"({"scheduled_date":"A","preferred_date":"B","scheduled_time":"C","preferred_time":"D"})",
            u"A C"_s},
        DateRow{{"DateOnly"}, R"({"scheduled_date":"2026-05-01","scheduled_time":" "})", u"2026-05-01"_s},
        DateRow{{"TimeOnly"}, R"({"preferred_time":"9:00 AM"})", u"9:00 AM"_s},
        DateRow{{"BlanksStay"}, R"({"scheduled_date":" A ","scheduled_time":" B "})", u" A   B "_s},
        DateRow{{"CreatedOnly"}, R"({"created_at":"2026-04-01 10:00:00"})", u"2026-04-01 10:00:00"_s},
        DateRow{{"CreatedGivesWay"}, R"({"created_at":"C","preferred_time":"T"})", u"T"_s},
        DateRow{{"Nothing"}, "{}", u"Date pending"_s},
        DateRow{{"AllNull"}, R"({"scheduled_date":null,"preferred_time":"null","created_at":""})",
            u"Date pending"_s}),
    RowName());

struct NamesRow : Named
{
    QByteArray json;
    QList<QString> names;
};

class SessionSigners : public testing::TestWithParam<NamesRow>
{ };

TEST_P(SessionSigners, AreNamedByTheFirstSourceThatFits)
{
    EXPECT_EQ(session(GetParam().json).signerNames(), GetParam().names);
}

INSTANTIATE_TEST_SUITE_P(Sources, SessionSigners,
    testing::Values(NamesRow{{"Texts"}, R"({"signer_names":[" Ada ","","Ben"," "]})", {u"Ada"_s, u"Ben"_s}},
        NamesRow{{"TextsWin"}, R"({"signer_names":["Ada"],"signers":[{"name":"Ben"}],"signer_name":"Cy"})",
            {u"Ada"_s}},
        NamesRow{{"NoTextsAtAll"}, R"({"signer_names":[],"signer_name":"Cy"})", {}},
        NamesRow{{"NullWordIsATextHere"}, R"({"signer_names":["null"]})", {u"null"_s}},
        NamesRow{{"MixedTexts"}, R"({"signer_names":["Ada",1],"signers":[{"name":"Ben"}]})", {u"Ben"_s}},
        NamesRow{{"TextsWithNull"}, R"({"signer_names":["Ada",null],"signer_name":"Cy"})", {u"Cy"_s}},
        NamesRow{{"NamesAsOneText"}, R"({"signer_names":"Ada, Ben","signer_name":"Cy"})", {u"Cy"_s}},
        NamesRow{{"Objects"}, R"({"signers":[{"name":"Ada"},{"full_name":"Ben"},{"name":" "},{}]})",
            {u"Ada"_s, u"Ben"_s}},
        NamesRow{{"ObjectNamesKeepBlanks"}, R"({"signers":[{"name":" Ada "}]})", {u" Ada "_s}},
        NamesRow{
            {"ObjectNamePreferred"}, R"({"signers":[{"name":"Ada","full_name":"Ada Alder"}]})", {u"Ada"_s}},
        NamesRow{{"NoObjectsAtAll"}, R"({"signers":[],"signer_name":"Cy"})", {}},
        NamesRow{{"MixedObjects"}, R"({"signers":[{"name":"Ada"},"Ben"],"signer_name":"Cy"})", {u"Cy"_s}},
        NamesRow{{"SignerName"}, R"({"signer_name":"Cy","contact_name":"Di"})", {u"Cy"_s}},
        NamesRow{{"ContactName"}, R"({"contact_name":"Di","user_full_name":"Ed"})", {u"Di"_s}},
        NamesRow{{"UserFullName"}, R"({"user_full_name":"Ed","client_name":"Flo"})", {u"Ed"_s}},
        NamesRow{{"ClientName"}, R"({"client_name":"Flo","name":"Gil"})", {u"Flo"_s}},
        NamesRow{{"NameDoesNotCount"}, R"({"name":"Gil"})", {}}, NamesRow{{"Nobody"}, "{}", {}}),
    RowName());

TEST(SessionSummary, EqualsWhatShowsTheSameStateOfTheSameSession)
{
    const SessionSummary one{
        1, jsonObject(R"({"reference_id":"R","status":"pending","updated_at":"u","notes":"a"})")};
    const auto with = [&](const char16_t* key, const QByteArray& json) {
        return SessionSummary{1, one.raw.with(QString::fromUtf16(key), jsonObject(json).value(u"v"_s))};
    };
    EXPECT_EQ(one, one);
    EXPECT_EQ(one, with(u"notes", R"({"v":"b"})"));
    EXPECT_EQ(one, with(u"id", R"({"v":99})"));
    EXPECT_NE(one, (SessionSummary{2, one.raw}));
    EXPECT_NE(one, with(u"reference_id", R"({"v":"S"})"));
    EXPECT_NE(one, with(u"status", R"({"v":"Pending"})"));
    EXPECT_NE(one, with(u"updated_at", R"({"v":"w"})"));
}

TEST(SessionSummary, ComparesDefaultsAsIfTheyHadBeenSent)
{
    EXPECT_EQ(session("{}"), session(R"({"status":"requested","updated_at":null,"reference_id":" "})"));
    EXPECT_EQ(session(R"({"id":7})"), session(R"({"reference_id":"7"})"));
}

} // namespace
