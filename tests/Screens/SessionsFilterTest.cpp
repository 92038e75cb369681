#include "Sessions/SessionsModel.h"

#include "Cases.h"
#include "Launch.h"
#include "Screen/SessionRow.h"
#include "ScreenTest.h"

using namespace Qt::StringLiterals;

namespace {

class SessionsFilterTest : public ScreenTest
{
protected:
    SessionsFilterTest()
    {
        signIn(account(u"Jordan Ellis"_s));
        launch(model->load());
        answer(0, R"([
            {"id": 1, "reference_id": "RN-1", "client_name": "Anna Smith", "client_email": "anna@example.com",
             "status": "SCHEDULED", "document_type": "Jurat / Affidavit", "scheduled_date": "2025-05-09",
             "scheduled_time": "2:05 PM", "signer_names": ["Bea Jones", "Carl Young"]},
            {"id": 2, "user_full_name": "Dora Miller", "user_email": "dora@example.org", "status": "",
             "preferred_date": "2025-05-08", "signers": [{"name": "Émile Zola"}, {"full_name": "Frida Ode"}]},
            {"id": 3, "contact_name": "Gus Smith", "contact_email": "gus@example.net", "status": "null",
             "created_at": "2025-05-07"},
            {"id": 4, "status": "rescheduled", "signer_name": "Hilda Smithers", "document_type": "Other",
             "created_at": "2025-05-06"}])");
    }

    QList<qint64> shownIds() const
    {
        QList<qint64> ids;
        for (const SessionSummary& session : model->filteredSessions())
            ids += session.id;
        return ids;
    }

    QList<qint64> rowIds() const
    {
        QList<qint64> ids;
        for (int row = 0; row < model->rows().rowCount(); ++row)
            ids += model->rows().index(row).data(RowListModel::IdRole).toLongLong();
        return ids;
    }

    std::shared_ptr<SessionsModel> model = std::make_shared<SessionsModel>(context);
};

struct Filter
{
    const char* name;
    QString search;
    QString status;
    QList<qint64> ids;
};

void PrintTo(const Filter& filter, std::ostream* out)
{
    *out << filter.name;
}

class SessionsFilter : public SessionsFilterTest, public testing::WithParamInterface<Filter>
{ };

TEST_P(SessionsFilter, ShowsWhatPassesBoth)
{
    model->search = GetParam().search;
    model->statusFilter = GetParam().status;
    EXPECT_EQ(shownIds(), GetParam().ids);
    EXPECT_EQ(rowIds(), GetParam().ids);
    model->search = QString();
    model->statusFilter = QString();
    EXPECT_EQ(shownIds(), (QList<qint64>{1, 2, 3, 4})) << "no filter shows every session";
}

using Ids = QList<qint64>;

INSTANTIATE_TEST_SUITE_P(Searches, SessionsFilter,
    testing::Values(Filter{"Blank", u" \n "_s, {}, {1, 2, 3, 4}}, Filter{"Reference", u"rn-1"_s, {}, {1}},
        Filter{"IdWithoutAReference", u"3 gus"_s, {}, {3}},
        Filter{"TrimmedInAnyCase", u"  SMITH "_s, {}, {1, 3, 4}}, Filter{"ClientName", u"anna sm"_s, {}, {1}},
        Filter{"UserName", u"dora mi"_s, {}, {2}}, Filter{"ContactName", u"gus smith"_s, {}, {3}},
        Filter{"ClientEmail", u"anna@example.com"_s, {}, {1}},
        Filter{"UserEmail", u"@example.org"_s, {}, {2}}, Filter{"ContactEmail", u"gus@"_s, {}, {3}},
        Filter{"Status", u"scheduled"_s, {}, {1, 4}},
        Filter{"StatusOfThoseWithout", u"requested"_s, {}, {2, 3}},
        Filter{"DocumentType", u"jurat / aff"_s, {}, {1}},
        Filter{"DocumentTypeOfThoseWithout", u"remote notary session"_s, {}, {2, 3}},
        Filter{"DateAndTime", u"2025-05-09 2:05 pm"_s, {}, {1}}, Filter{"Created", u"2025-05-07"_s, {}, {3}},
        Filter{"SignersSideBySide", u"bea jones carl young"_s, {}, {1}},
        Filter{"InnerSigner", u"émile"_s, {}, {2}}, Filter{"SecondInnerSigner", u"FRIDA"_s, {}, {2}},
        Filter{"SingleSigner", u"smithers"_s, {}, {4}},
        Filter{"FieldsInTheirOrder",
            u"rn-1 anna smith anna@example.com scheduled jurat / affidavit 2025-05-09 2:05 pm bea jones carl young"_s,
            {}, {1}},
        Filter{"NoMatch", u"zebra"_s, {}, {}}),
    ByName());

INSTANTIATE_TEST_SUITE_P(Statuses, SessionsFilter,
    testing::Values(Filter{"Stored", {}, u"rescheduled"_s, {4}},
        Filter{"StoredInCapitals", {}, u"scheduled"_s, {1}},
        Filter{"AbsentIsRequested", {}, u"requested"_s, {2, 3}},
        Filter{"InCapitals", {}, u"Requested"_s, {2, 3}}, Filter{"None", {}, u"completed"_s, {}},
        Filter{"WithSearch", u"smith"_s, u"requested"_s, {3}},
        Filter{"WithASearchElsewhere", u"anna"_s, u"requested"_s, {}}),
    ByName());

TEST_F(SessionsFilterTest, AReloadKeepsBothFilters)
{
    model->search = u"smith"_s;
    model->statusFilter = u"requested"_s;
    launch(model->load());
    answer(1, R"([{"id": 7, "contact_name": "Ida Smith"}, {"id": 8, "contact_name": "Jim"},
        {"id": 9, "contact_name": "Kim Smith", "status": "completed"}])");
    EXPECT_EQ(shownIds(), Ids{7});
}

TEST_F(SessionsFilterTest, TheSelectionMayBeFilteredAway)
{
    model->select(2);
    model->search = u"anna"_s;
    EXPECT_EQ(model->selectedSession()->id, 2);
    EXPECT_EQ(model->rows().rowOf(2), -1);
}

struct Row
{
    const char* name;
    QByteArray raw;
    QString title;
    QString when;
    QString pill;
    QString document;
};

void PrintTo(const Row& row, std::ostream* out)
{
    *out << row.name;
}

class SessionRowTexts : public testing::TestWithParam<Row>
{ };

TEST_P(SessionRowTexts, FallBackThroughTheirKeys)
{
    const SessionSummary session{5, JSONObject(object(GetParam().raw))};
    const RowTexts row = sessionRow(session, session.displayDateTime());
    EXPECT_EQ(row.id, 5);
    EXPECT_EQ(row.title, GetParam().title);
    EXPECT_EQ(row.secondary, GetParam().when);
    EXPECT_EQ(row.pill, GetParam().pill);
    EXPECT_EQ(row.meta, GetParam().document);
    EXPECT_EQ(row.metaIcon, u"doc.text.fill"_s);
}

const QString pending = u"Date pending"_s;
const QString plain = u"Remote notary session"_s;
const QString requested = u"requested"_s;

INSTANTIATE_TEST_SUITE_P(Records, SessionRowTexts,
    testing::Values(Row{"Nothing", "{}", {}, pending, requested, plain},
        Row{"Signers", R"({"signer_names": [" Ada ", "", "Bea"], "client_name": "C"})", u"Ada, Bea"_s,
            pending, requested, plain},
        Row{"NoSignersNamed", R"({"signer_names": [], "client_name": "C", "user_full_name": "U"})", u"C"_s,
            pending, requested, plain},
        Row{"UserName",
            R"({"signers": [{}], "client_name": " ", "user_full_name": "U", "contact_name": "K"})", u"U"_s,
            pending, requested, plain},
        Row{"ContactName", R"({"signers": [], "contact_name": "K"})", u"K"_s, pending, requested, plain},
        Row{"StatusAsReceived",
            R"({"status": "SCHEDULED", "scheduled_date": "2025-05-09", "scheduled_time": "2 PM"})", {},
            u"2025-05-09 2 PM"_s, u"SCHEDULED"_s, plain},
        Row{"DocumentType", R"({"document_type": "Other", "created_at": "May"})", {}, u"May"_s, requested,
            u"Other"_s},
        Row{"Numbers",
            R"({"client_name": 4, "signer_names": [], "status": 5, "document_type": 6, "scheduled_date": 7})",
            u"4"_s, u"7"_s, u"5"_s, u"6"_s},
        Row{"Nulls",
            R"({"client_name": null, "signer_names": null, "status": null, "document_type": "NULL"})", {},
            pending, requested, plain}),
    ByName());

/// Every field may hold anything; the row then shows its defaults, and the list loads.
TEST_F(SessionsFilterTest, AnyTypeInAnyFieldLoads)
{
    const QList<QByteArray> fields{"id", "session_id", "reference_id", "status", "client_name",
        "client_email", "document_type", "scheduled_date", "scheduled_time", "created_at", "signer_names",
        "signers", "signer_name", "updated_at"};
    const QList<QByteArray> values{"\"text\"", "12", "1.5", "null", "\"null\"", "true", "[]", "[1]", "[{}]",
        "{}", "{\"a\": []}", "\"\""};
    for (const QByteArray& field : fields) {
        for (const QByteArray& value : values) {
            launch(model->load());
            answer(requestCount() - 1, "[{\"" + field + "\": " + value + "}]");
            EXPECT_EQ(model->sessions().size(), 1) << field.toStdString() << ": " << value.toStdString();
            EXPECT_TRUE(alertOf(*model).isEmpty());
        }
    }
}

} // namespace
