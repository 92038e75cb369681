#include "AdminTest.h"
#include "Cases.h"

using namespace Qt::StringLiterals;

namespace {

class AdminRecordsModelTest : public AdminTest<RecordsList>
{
protected:
    /// Loads a list of this one record and selects it.
    AdminRecordDetailModel& open(const QByteArray& record)
    {
        loadJson("[" + record + "]");
        model->select(0);
        return *model->detail();
    }
};

TEST_F(AdminRecordsModelTest, OffersTheTypes)
{
    QStringList options;
    for (const AdminRecordsModel::TypeOption& option : AdminRecordsModel::typeOptions())
        options += option.label + u": "_s + option.value;
    EXPECT_EQ(options, (QStringList{u"All: all"_s, u"Remote Sessions: remote"_s, u"Walk-Ins: walkin"_s}));
    EXPECT_EQ(model->typeFilter.value(), u"all"_s);
}

TEST_F(AdminRecordsModelTest, HasItsTexts)
{
    const AdminListModel::Texts& texts = model->texts();
    EXPECT_EQ(texts.title, u"Records"_s);
    EXPECT_EQ(texts.subtitle, u"View, edit, and delete walk-in records and remote session records."_s);
    EXPECT_EQ(texts.searchPlaceholder, u"Search records, signers, status, email"_s);
    EXPECT_EQ(texts.noneSelected.systemImage, u"tray.full.fill"_s);
    EXPECT_EQ(texts.noneSelected.title, u"Select a Record"_s);
    EXPECT_EQ(texts.noneSelected.message, u"Choose a remote session or walk-in record to edit or delete."_s);
}

struct Filter
{
    const char* name;
    QString search;
    QString type;
    QList<qint64> ids;
};

void PrintTo(const Filter& filter, std::ostream* out)
{
    *out << filter.name;
}

class AdminRecordsFilter : public AdminRecordsModelTest, public testing::WithParamInterface<Filter>
{ };

TEST_P(AdminRecordsFilter, ShowsWhatPassesBoth)
{
    loadJson(R"([
        {"id": 1, "record_type": "Walkin", "contact_name": "Anna Smith", "contact_email": "anna@example.com",
         "document_type": "Jurat", "scheduled_date": "2025-05-09", "scheduled_time": "2:05 PM",
         "signer_names": ["Bea Jones", "Carl Young"], "contact_phone": "555-0101"},
        {"id": 2, "client_name": "Dora", "client_email": "dora@example.org", "status": "Scheduled",
         "signers": [{"name": "Emil Smith"}]},
        {"id": 3, "type": "walkin", "name": "Gus", "email": "gus@example.net", "document_types": "Deed",
         "ny_datetime": "May 7"},
        {"id": 4, "record_type": "remote", "type": "walkin", "preferred_date": "2025-06-01"},
        {"id": 5, "record_type": "office"}])");
    model->search = GetParam().search;
    model->typeFilter = GetParam().type;
    QList<qint64> ids;
    for (const AdminRecordItem& record : model->filtered())
        ids += record.id;
    EXPECT_EQ(ids, GetParam().ids);
    EXPECT_EQ(model->rows().rowCount(), ids.size());
    model->search = QString();
    model->typeFilter = u"all"_s;
    EXPECT_EQ(model->filtered().size(), 5);
}

INSTANTIATE_TEST_SUITE_P(Searches, AdminRecordsFilter,
    testing::Values(Filter{"Blank", u" \n"_s, u"all"_s, {1, 2, 3, 4, 5}},
        Filter{"SignerInCapitalsWithBlanks", u"  SMITH "_s, u"all"_s, {1, 2}},
        Filter{"Type", u"walkin"_s, u"all"_s, {1, 3}}, Filter{"TypeByDefault", u"remote"_s, u"all"_s, {2, 4}},
        Filter{"DateAndTime", u"2025-05-09 2:05 pm"_s, u"all"_s, {1}},
        Filter{"OtherDate", u"may 7"_s, u"all"_s, {3}}, Filter{"NoDate", u"date pending"_s, u"all"_s, {2, 5}},
        Filter{"Status", u"scheduled"_s, u"all"_s, {2}},
        Filter{"StatusByDefault", u"requested"_s, u"all"_s, {1, 4, 5}},
        Filter{"StatusOfAWalkIn", u"complete"_s, u"all"_s, {3}},
        Filter{"ContactName", u"dora"_s, u"all"_s, {2}}, Filter{"OtherContactName", u"gus"_s, u"all"_s, {3}},
        Filter{"Email", u"@example.com"_s, u"all"_s, {1}}, Filter{"OtherEmail", u"gus@"_s, u"all"_s, {3}},
        Filter{"DocumentType", u"deed"_s, u"all"_s, {3}},
        Filter{"SignersSideBySide", u"bea jones carl young"_s, u"all"_s, {1}},
        Filter{"FieldsInTheirOrder",
            u"walkin 2025-05-09 2:05 pm requested anna smith anna@example.com jurat bea jones carl young"_s,
            u"all"_s, {1}},
        Filter{"PhonesAreNotSearched", u"555-0101"_s, u"all"_s, {}}),
    ByName());

INSTANTIATE_TEST_SUITE_P(Types, AdminRecordsFilter,
    testing::Values(Filter{"RemoteAlsoByDefault", {}, u"remote"_s, {2, 4}},
        Filter{"WalkInInAnyCase", {}, u"walkin"_s, {1, 3}}, Filter{"PartOfAType", {}, u"off"_s, {5}},
        Filter{"InCapitals", {}, u"WALKIN"_s, {}}, Filter{"BlanksOnly", u"  "_s, u"walkin"_s, {1, 3}},
        Filter{"WithASearch", u"smith"_s, u"walkin"_s, {1}},
        Filter{"WithASearchElsewhere", u"dora"_s, u"walkin"_s, {}}),
    ByName());

struct Fields
{
    const char* name;
    QByteArray raw;
    /// Status, contact name, e-mail and phone, document type, date, time, notes.
    QStringList texts;
};

void PrintTo(const Fields& fields, std::ostream* out)
{
    *out << fields.name;
}

class AdminRecordFields : public AdminRecordsModelTest, public testing::WithParamInterface<Fields>
{ };

TEST_P(AdminRecordFields, AreFilledThroughTheirKeys)
{
    const AdminRecordDetailModel& detail = open(GetParam().raw);
    EXPECT_EQ((QStringList{detail.status.value(), detail.contactName.value(), detail.contactEmail.value(),
                  detail.contactPhone.value(), detail.documentType.value(), detail.scheduledDate.value(),
                  detail.scheduledTime.value(), detail.notes.value()}),
        GetParam().texts);
    EXPECT_FALSE(detail.hasEdits());
}

INSTANTIATE_TEST_SUITE_P(Records, AdminRecordFields,
    testing::Values(Fields{"Contact",
                        R"({"status": "s", "name": "0", "client_name": "1", "contact_name": "2", "email": "0",
                "client_email": "1", "contact_email": "2", "phone": "0", "client_phone": "1",
                "contact_phone": "2", "document_types": "0", "document_type": "1", "preferred_date": "0",
                "scheduled_date": "1", "preferred_time": "0", "scheduled_time": "1", "admin_notes": "0",
                "notes": "1"})",
                        {u"s"_s, u"2"_s, u"2"_s, u"2"_s, u"1"_s, u"1"_s, u"1"_s, u"1"_s}},
        Fields{"Client",
            R"({"name": "0", "client_name": "1", "contact_name": "null", "email": "0", "client_email": "1",
                "contact_email": " ", "phone": "0", "client_phone": "1", "contact_phone": null,
                "document_types": "0", "document_type": "", "preferred_date": "0", "scheduled_date": null,
                "preferred_time": "0", "scheduled_time": "NIL", "admin_notes": "0", "notes": "<null>"})",
            {u"requested"_s, u"1"_s, u"1"_s, u"1"_s, u"0"_s, u"0"_s, u"0"_s, u"0"_s}},
        Fields{"Plain", R"({"name": "0", "email": "0", "phone": 5550101})",
            {u"requested"_s, u"0"_s, u"0"_s, u"5550101"_s, {}, {}, {}, {}}},
        Fields{"Nothing", "{}", {u"requested"_s, {}, {}, {}, {}, {}, {}, {}}},
        Fields{"WalkIn", R"({"type": "walkin"})", {u"complete"_s, {}, {}, {}, {}, {}, {}, {}}},
        Fields{"WalkInInCapitals", R"({"type": "WALKIN"})", {u"requested"_s, {}, {}, {}, {}, {}, {}, {}}},
        Fields{"List", R"({"document_types": ["a", 1]})",
            {u"requested"_s, {}, {}, {}, u"[\"a\",1]"_s, {}, {}, {}}}),
    ByName());

TEST_F(AdminRecordsModelTest, SavesEveryFieldAsTyped)
{
    AdminRecordDetailModel& detail
        = open(R"({"id": 7, "record_type": "Remote", "source": "desk", "contact_name": "Anna"})");
    detail.status = u" done "_s;
    detail.contactName = QString();
    detail.contactEmail = u"e"_s;
    detail.contactPhone = u"p"_s;
    detail.documentType = u"d"_s;
    detail.scheduledDate = u"2025-01-01"_s;
    detail.scheduledTime = u"1 PM"_s;
    detail.notes = u"line\nline\n"_s;
    save();
    EXPECT_EQ(line(1), u"POST /admin/records/7"_s);
    EXPECT_EQ(body(1), object(R"({"record_type": "Remote", "source": "desk", "data": {"status": " done ",
        "contact_name": "", "contact_email": "e", "contact_phone": "p", "document_type": "d",
        "scheduled_date": "2025-01-01", "scheduled_time": "1 PM", "notes": "line\nline\n"}})"));
}

struct Place
{
    const char* name;
    QByteArray raw;
    QByteArray body;
};

void PrintTo(const Place& place, std::ostream* out)
{
    *out << place.name;
}

class AdminRecordPlace : public AdminRecordsModelTest, public testing::WithParamInterface<Place>
{ };

TEST_P(AdminRecordPlace, GoesOutWithEveryChange)
{
    open(GetParam().raw);
    deleteRecord();
    EXPECT_EQ(line(1), u"DELETE /admin/records/7"_s);
    EXPECT_EQ(body(1), object(GetParam().body));
    answer(1, "{}", 500);
    save();
    QJsonObject saved = body(2);
    saved.remove(u"data"_s);
    EXPECT_EQ(saved, object(GetParam().body));
}

INSTANTIATE_TEST_SUITE_P(Records, AdminRecordPlace,
    testing::Values(
        Place{"Remote", R"({"id": 7})", R"({"record_type": "remote", "source": "remote_notary_sessions"})"},
        Place{"WalkIn", R"({"id": "7", "type": "walkin"})",
            R"({"record_type": "walkin", "source": "remote notary camera photos"})"},
        Place{"TypeAsItStands", R"({"session_id": 7, "type": "WalkIn"})",
            R"({"record_type": "WalkIn", "source": "remote_notary_sessions"})"},
        Place{"OwnSource", R"({"record_id": 7, "record_type": "walkin", "type": "remote", "source": "desk"})",
            R"({"record_type": "walkin", "source": "desk"})"}),
    ByName());

TEST_F(AdminRecordsModelTest, TellsRecordsOfOneIdApartByTheirType)
{
    const QByteArray both = R"([{"id": 7, "name": "Session"}, {"id": 7, "type": "walkin", "name": "Walk"}])";
    loadJson(both);
    model->select(1);
    loadJson(both);
    EXPECT_EQ(selectedTitle(), u"Walk"_s);
    loadJson(R"([{"id": 7, "type": "Walkin", "name": "Other"}, {"id": 7, "name": "Session"}])");
    EXPECT_EQ(selectedId(), std::nullopt) << "the type counts in its letter case";
}

TEST_F(AdminRecordsModelTest, OfSeveralTheFirstIsReselected)
{
    loadJson(R"([{"id": 7, "name": "A"}, {"id": 7, "name": "B"}])");
    model->select(1);
    EXPECT_EQ(selectedTitle(), u"B"_s);
    loadJson(R"([{"id": 1, "name": "C"}, {"id": 7, "name": "A"}, {"id": 7, "name": "B"}])");
    EXPECT_EQ(selectedTitle(), u"A"_s);
}

TEST_F(AdminRecordsModelTest, ARecordWithoutAnIdCannotBeReselected)
{
    open(R"({"name": "A"})");
    const qint64 id = *selectedId();
    EXPECT_GE(id, 1'000'000);
    EXPECT_LE(id, 9'999'999);
    loadJson(R"([{"name": "A"}])");
    EXPECT_EQ(selectedId(), std::nullopt);
}

TEST_F(AdminRecordsModelTest, AnotherStatusOfTheSelectedRecordReachesItsPane)
{
    const AdminRecordDetailModel& detail = open(R"({"id": 7, "signer_names": ["A"]})");
    int changes = 0;
    QObject::connect(&detail, &AdminDetailModel::recordChanged, &detail, [&] { ++changes; });
    loadJson(R"([{"id": 7, "status": "completed", "signer_names": ["A", "B"]}])");
    EXPECT_EQ(detail.status.value(), u"completed"_s);
    EXPECT_EQ(detail.record().signerNames().size(), 2);
    EXPECT_EQ(changes, 1);
}

} // namespace
