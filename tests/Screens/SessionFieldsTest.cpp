#include "Screen/SessionFields.h"

#include "Cases.h"
#include "ScreenTest.h"

using namespace Qt::StringLiterals;

namespace {

SessionFields fieldsOf(const QByteArray& raw)
{
    return SessionFields::of({7, JSONObject(object(raw))});
}

struct Text
{
    const char* name;
    QByteArray raw;
    QString SessionFields::*field;
    QString want;
};

void PrintTo(const Text& row, std::ostream* out)
{
    *out << row.raw.constData();
}

class SessionFieldsTexts : public testing::TestWithParam<Text>
{ };

TEST_P(SessionFieldsTexts, FillFromTheRecord)
{
    EXPECT_EQ(fieldsOf(GetParam().raw).*GetParam().field, GetParam().want);
}

INSTANTIATE_TEST_SUITE_P(Status, SessionFieldsTexts,
    testing::Values(Text{"Given", R"({"status": "scheduled"})", &SessionFields::status, u"scheduled"_s},
        Text{"Untrimmed", R"({"status": " SCHEDULED "})", &SessionFields::status, u" SCHEDULED "_s},
        Text{"Absent", "{}", &SessionFields::status, u"requested"_s},
        Text{"Blank", R"({"status": " "})", &SessionFields::status, u"requested"_s},
        Text{"NullWord", R"({"status": "NULL"})", &SessionFields::status, u"requested"_s}),
    ByName());

INSTANTIATE_TEST_SUITE_P(Schedule, SessionFieldsTexts,
    testing::Values(Text{"ScheduledDateWins", R"({"preferred_date": "1", "scheduled_date": "2"})",
                        &SessionFields::confirmedDate, u"2"_s},
        Text{"PreferredDate", R"({"preferred_date": "1", "scheduled_date": ""})",
            &SessionFields::confirmedDate, u"1"_s},
        Text{"NoDate", "{}", &SessionFields::confirmedDate, QString()},
        Text{"ScheduledTimeWins", R"({"preferred_time": "1", "scheduled_time": "2"})",
            &SessionFields::confirmedTime, u"2"_s},
        Text{"PreferredTime", R"({"preferred_time": "1", "scheduled_time": null})",
            &SessionFields::confirmedTime, u"1"_s},
        Text{"NoTime", "{}", &SessionFields::confirmedTime, QString()}),
    ByName());

INSTANTIATE_TEST_SUITE_P(Rest, SessionFieldsTexts,
    testing::Values(Text{"Fee", R"({"proposed_fee": "41.00"})", &SessionFields::proposedFee, u"41.00"_s},
        Text{"FeeAsNumber", R"({"proposed_fee": 41.5})", &SessionFields::proposedFee, u"41.5"_s},
        Text{"NoFee", "{}", &SessionFields::proposedFee, QString()},
        Text{"StatusNoteWins", R"({"status_note": "a", "admin_notes": "b"})", &SessionFields::statusNote,
            u"a"_s},
        Text{"AdminNotes", R"({"status_note": "null", "admin_notes": "b"})", &SessionFields::statusNote,
            u"b"_s},
        Text{"NoNote", "{}", &SessionFields::statusNote, QString()},
        Text{"Witness", R"({"witness_name": " Elena "})", &SessionFields::witnessName, u" Elena "_s},
        Text{"NoWitness", "{}", &SessionFields::witnessName, QString()}),
    ByName());

struct Number
{
    const char* name;
    QByteArray raw;
    qint64 want;
};

class SessionFieldsNotary : public testing::TestWithParam<Number>
{ };

TEST_P(SessionFieldsNotary, FillsFromTheRecord)
{
    EXPECT_EQ(fieldsOf(GetParam().raw).selectedNotaryId, GetParam().want);
}

INSTANTIATE_TEST_SUITE_P(Ids, SessionFieldsNotary,
    testing::Values(Number{"Number", R"({"assigned_notary_id": 12})", 12},
        Number{"Text", R"({"assigned_notary_id": "12"})", 12}, Number{"Absent", "{}", 0},
        Number{"Null", R"({"assigned_notary_id": null})", 0},
        Number{"Word", R"({"assigned_notary_id": "Maya"})", 0},
        Number{"Negative", R"({"assigned_notary_id": -3})", -3}),
    ByName());

struct Flag
{
    const char* name;
    QByteArray raw;
    bool want;
};

class SessionFieldsWitness : public testing::TestWithParam<Flag>
{ };

TEST_P(SessionFieldsWitness, FillsFromTheRecord)
{
    EXPECT_EQ(fieldsOf(GetParam().raw).requiresWitness, GetParam().want);
}

INSTANTIATE_TEST_SUITE_P(Flags, SessionFieldsWitness,
    testing::Values(Flag{"True", R"({"requires_witness": true})", true},
        Flag{"One", R"({"requires_witness": 1})", true}, Flag{"Yes", R"({"requires_witness": "Yes"})", true},
        Flag{"No", R"({"requires_witness": "no"})", false}, Flag{"Absent", "{}", false}),
    ByName());

SessionFields filled()
{
    SessionFields fields;
    fields.status = u"confirmed"_s;
    fields.confirmedDate = u" 2026-03-12"_s;
    fields.confirmedTime = u"2:30 PM "_s;
    fields.proposedFee = u"$41"_s;
    fields.statusNote = u" Both signers confirmed. "_s;
    fields.selectedNotaryId = 12;
    fields.requiresWitness = true;
    fields.witnessName = u"Elena Voss "_s;
    return fields;
}

const QByteArray commonPart = R"("status": "confirmed", "confirmed_date": " 2026-03-12",
    "confirmed_time": "2:30 PM ", "scheduled_date": " 2026-03-12", "scheduled_time": "2:30 PM ",
    "proposed_fee": "$41", "status_note": " Both signers confirmed. ")";

TEST(SessionFieldsBodies, ANotaryWritesTheScheduleTwiceAndTheWitness)
{
    EXPECT_EQ(filled().notaryUpdate(),
        object("{" + commonPart + R"(, "requires_witness": true, "witness_name": "Elena Voss "})"));
}

TEST(SessionFieldsBodies, AnAdminWritesTheScheduleTwiceAndTheNotary)
{
    EXPECT_EQ(filled().adminChanges(), object("{" + commonPart + R"(, "assigned_notary_id": 12})"));
}

TEST(SessionFieldsBodies, EmptyFieldsAreWrittenEmpty)
{
    EXPECT_EQ(SessionFields().notaryUpdate(),
        object(R"({"status": "", "confirmed_date": "", "confirmed_time": "", "scheduled_date": "",
            "scheduled_time": "", "proposed_fee": "", "status_note": "", "requires_witness": false,
            "witness_name": ""})"));
}

TEST(SessionFieldsBodies, NobodyIsAssignedBelowOne)
{
    SessionFields fields = filled();
    for (const qint64 nobody : {0, -1, -12}) {
        fields.selectedNotaryId = nobody;
        EXPECT_EQ(fields.adminChanges(), object("{" + commonPart + "}")) << nobody;
    }
    fields.selectedNotaryId = 1;
    EXPECT_EQ(fields.adminChanges().value(u"assigned_notary_id"_s).toInteger(), 1);
}

TEST(SessionFieldsTaking, TakesWhatEachBodyCarries)
{
    SessionFields told;
    told.selectedNotaryId = 5;
    told.takeNotaryUpdate(filled());
    SessionFields want = filled();
    want.selectedNotaryId = 5;
    EXPECT_EQ(told, want);

    told = SessionFields();
    told.witnessName = u"Somebody"_s;
    told.takeAdminChanges(filled());
    want = filled();
    want.requiresWitness = false;
    want.witnessName = u"Somebody"_s;
    EXPECT_EQ(told, want);
}

} // namespace
