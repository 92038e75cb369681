#include "Screen/DashboardRows.h"

#include "Cases.h"
#include "ScreenTest.h"

using namespace Qt::StringLiterals;

namespace {

struct Row
{
    const char* name;
    QByteArray json;
    QList<QString> lines; ///< title first, then what stands under it
};

void PrintTo(const Row& row, std::ostream* out)
{
    *out << row.name;
}

QList<QString> linesOf(const RowTexts& row)
{
    return {row.title, row.secondary, row.meta};
}

class OpenCallRow : public testing::TestWithParam<Row>
{ };

TEST_P(OpenCallRow, HasANameATimeAndADocumentType)
{
    const SessionSummary session{7, JSONObject(object(GetParam().json))};
    const RowTexts row = DashboardRows::openCall(session);
    EXPECT_EQ(linesOf(row), GetParam().lines);
    EXPECT_EQ(row.id, 7);
    EXPECT_EQ(row.pill, QString());
    EXPECT_EQ(linesOf(DashboardRows::assignedSession(session)), GetParam().lines);
}

const QString pending = u"Date pending"_s;
const QString anyType = u"Remote notary session"_s;

INSTANTIATE_TEST_SUITE_P(Values, OpenCallRow,
    testing::Values(
        Row{"SignersJoined", R"({"signer_names": ["Priya Raman", " Tomas Alder "], "client_name": "Someone",
            "scheduled_date": "2026-03-12", "scheduled_time": "2:30 PM", "document_type": "Deed"})",
            {u"Priya Raman, Tomas Alder"_s, u"2026-03-12 2:30 PM"_s, u"Deed"_s}},
        Row{"SignersAsObjects", R"({"signers": [{"name": "Grace Obi"}, {"full_name": "Ivo Marsh"}]})",
            {u"Grace Obi, Ivo Marsh"_s, pending, anyType}},
        Row{"OneSigner", R"({"signer_name": "Grace Obi", "contact_name": "Someone"})",
            {u"Grace Obi"_s, pending, anyType}},
        Row{"TheContactBeforeTheUser",
            R"({"signer_names": [], "contact_name": "C", "user_full_name": "U", "client_name": "N"})",
            {u"C"_s, pending, anyType}},
        Row{"TheUserBeforeTheClient",
            R"({"signer_names": [" "], "contact_name": "null", "user_full_name": "U", "client_name": "N"})",
            {u"U"_s, pending, anyType}},
        Row{"TheClientAtLast", R"({"signers": [], "contact_name": "", "client_name": "N"})",
            {u"N"_s, pending, anyType}},
        Row{"NobodyLeavesNoGap", R"({"signers": [], "document_type": "Deed"})", {pending, u"Deed"_s, u""_s}},
        Row{"NumbersForNames", R"({"client_name": 42})", {u"42"_s, pending, anyType}},
        Row{"NullWords",
            R"({"signer_name": "NULL", "document_type": "<null>", "scheduled_date": "nil",
                "scheduled_time": "nil", "client_name": null})",
            {pending, anyType, u""_s}},
        Row{"OnlyATime", R"({"preferred_time": "9:00 AM", "client_name": "N"})",
            {u"N"_s, u"9:00 AM"_s, anyType}},
        Row{"OnlyACreation", R"({"created_at": "2026-03-01 10:00:00", "client_name": "N"})",
            {u"N"_s, u"2026-03-01 10:00:00"_s, anyType}},
        Row{"Nothing", "{}", {pending, anyType, u""_s}}),
    ByName());

struct StatusCase
{
    const char* name;
    QByteArray json;
    QString pill;
};

void PrintTo(const StatusCase& row, std::ostream* out)
{
    *out << row.name;
}

class RowStatus : public testing::TestWithParam<StatusCase>
{ };

TEST_P(RowStatus, IsShownAsReceived)
{
    const SessionSummary session{7, JSONObject(object(GetParam().json))};
    EXPECT_EQ(DashboardRows::assignedSession(session).pill, GetParam().pill);
    EXPECT_EQ(DashboardRows::recentSession(session).pill, GetParam().pill);
}

INSTANTIATE_TEST_SUITE_P(Values, RowStatus,
    testing::Values(StatusCase{"AWord", R"({"status": "rescheduled"})", u"rescheduled"_s},
        StatusCase{"Capitals", R"({"status": "SCHEDULED"})", u"SCHEDULED"_s},
        StatusCase{"AnUnknownWord", R"({"status": "on hold"})", u"on hold"_s},
        StatusCase{"ANumber", R"({"status": 3})", u"3"_s},
        StatusCase{"Empty", R"({"status": ""})", u"requested"_s},
        StatusCase{"Null", R"({"status": null})", u"requested"_s},
        StatusCase{"NullWord", R"({"status": "Null"})", u"requested"_s},
        StatusCase{"Missing", "{}", u"requested"_s}),
    ByName());

TEST(RecentSessionRow, HasANameAndATime)
{
    const SessionSummary session{9,
        JSONObject(
            object(R"({"client_name": "N", "scheduled_date": "2026-03-12", "document_type": "Deed"})"))};
    EXPECT_EQ(
        linesOf(DashboardRows::recentSession(session)), (QList<QString>{u"N"_s, u"2026-03-12"_s, QString()}));
}

class BusinessClientRow : public testing::TestWithParam<Row>
{ };

TEST_P(BusinessClientRow, HasANameAndAnAddress)
{
    const RowTexts row = DashboardRows::businessClient(JSONObject(object(GetParam().json)));
    EXPECT_EQ(linesOf(row), GetParam().lines);
    EXPECT_EQ(row.pill, QString());
}

INSTANTIATE_TEST_SUITE_P(Values, BusinessClientRow,
    testing::Values(
        Row{"TheShortKeysWin",
            R"({"name": "A", "full_name": "B", "client_name": "C", "email": "a@x", "client_email": "c@x"})",
            {u"A"_s, u"a@x"_s, u""_s}},
        Row{"TheFullName",
            R"({"name": " ", "full_name": "B", "client_name": "C", "email": null, "client_email": "c@x"})",
            {u"B"_s, u"c@x"_s, u""_s}},
        Row{"TheClientName", R"({"full_name": "null", "client_name": "C"})", {u"C"_s, u""_s, u""_s}},
        Row{"OnlyAnAddress", R"({"client_email": "c@x"})", {u"c@x"_s, u""_s, u""_s}},
        Row{"OtherTypes", R"({"name": 12, "email": true})", {u"12"_s, u"true"_s, u""_s}},
        Row{"Nothing", "{}", {u"Unnamed client"_s, u""_s, u""_s}}),
    ByName());

TEST(DashboardRowsOf, KeepTheOrderOfTheRecords)
{
    QList<SessionSummary> sessions;
    for (const qint64 id : {5, 3, 9, 3})
        sessions += SessionSummary{id, {}};
    const RowListModel::Content content = DashboardRows::of(sessions, DashboardRows::openCall);
    QList<qint64> ids;
    for (const RowTexts& row : content.rows)
        ids += row.id;
    EXPECT_EQ(ids, (QList<qint64>{5, 3, 9, 3}));
}

} // namespace
