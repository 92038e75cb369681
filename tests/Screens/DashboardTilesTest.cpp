#include "Dashboards/AdminDashboardModel.h"
#include "Dashboards/BusinessDashboardModel.h"
#include "Dashboards/NotaryDashboardModel.h"

#include "Cases.h"
#include "Launch.h"
#include "ScreenTest.h"

#include <rapidcheck/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class DashboardTiles : public ScreenTest
{
protected:
    DashboardTiles()
    {
        signIn(account(u"Jordan Ellis"_s, {AppRole::business, AppRole::notary, AppRole::admin}));
    }

    /// What the tiles of a dashboard read after a load that is answered so.
    template <typename Model>
    QList<QString> tiles(const QByteArrayList& answers)
    {
        const auto model = std::make_shared<Model>(context);
        const qsizetype first = requestCount();
        launch(model->load());
        settle();
        for (qsizetype i = 0; i < answers.size(); ++i)
            answer(first + i, answers[i]);
        QList<QString> values;
        for (const DashboardModel::Tile& tile : model->tiles())
            values += tile.value;
        return values;
    }
};

struct StatusCount
{
    const char* name;
    QByteArray session;
    bool isUpcoming;
    bool isPending;
};

void PrintTo(const StatusCount& row, std::ostream* out)
{
    *out << row.name;
}

class StatusTile : public DashboardTiles, public testing::WithParamInterface<StatusCount>
{ };

TEST_P(StatusTile, CountsByTheStatusInAnyLetterCase)
{
    const QByteArray one = '[' + GetParam().session + ']';
    const QString upcoming = GetParam().isUpcoming ? u"1"_s : u"0"_s;
    const QString pending = GetParam().isPending ? u"1"_s : u"0"_s;
    EXPECT_EQ(tiles<BusinessDashboardModel>({one, "[]"}), (QList<QString>{u"1"_s, u"0"_s, upcoming}));
    EXPECT_EQ(tiles<NotaryDashboardModel>({one, "[]"}), (QList<QString>{u"1"_s, u"0"_s, upcoming}));
    EXPECT_EQ(tiles<NotaryDashboardModel>({"[]", one}), (QList<QString>{u"0"_s, u"1"_s, u"0"_s}))
        << "an open call is not upcoming";
    EXPECT_EQ(
        tiles<AdminDashboardModel>({one, "[]", "[]"}), (QList<QString>{u"1"_s, u"0"_s, u"0"_s, pending}));
}

INSTANTIATE_TEST_SUITE_P(Values, StatusTile,
    testing::Values(StatusCount{"Requested", R"({"status": "requested"})", false, true},
        StatusCount{"Pending", R"({"status": "pending"})", false, true},
        StatusCount{"PendingInCapitals", R"({"status": "PENDING"})", false, true},
        StatusCount{"Scheduled", R"({"status": "scheduled"})", true, false},
        StatusCount{"ScheduledInCapitals", R"({"status": "SCHEDULED"})", true, false},
        StatusCount{"Confirmed", R"({"status": "Confirmed"})", true, false},
        StatusCount{"Rescheduled", R"({"status": "rescheduled"})", true, false},
        StatusCount{"Completed", R"({"status": "completed"})", false, false},
        StatusCount{"Cancelled", R"({"status": "cancelled"})", false, false},
        StatusCount{"Unknown", R"({"status": "on hold"})", false, false},
        StatusCount{"Longer", R"({"status": "scheduled today"})", false, false},
        StatusCount{"WithABlank", R"({"status": " scheduled"})", false, false},
        StatusCount{"Number", R"({"status": 1})", false, false},
        StatusCount{"List", R"({"status": ["requested"]})", false, false},
        StatusCount{"Missing", R"({"id": 1})", false, true},
        StatusCount{"Empty", R"({"status": ""})", false, true},
        StatusCount{"Blank", R"({"status": "  "})", false, true},
        StatusCount{"Null", R"({"status": null})", false, true},
        StatusCount{"NullWord", R"({"status": "NULL"})", false, true}),
    ByName());

struct WalkInCount
{
    const char* name;
    QByteArray record;
    bool counts;
};

void PrintTo(const WalkInCount& row, std::ostream* out)
{
    *out << row.name;
}

class WalkInTile : public DashboardTiles, public testing::WithParamInterface<WalkInCount>
{ };

TEST_P(WalkInTile, CountsTheRecordsThatAreWalkIns)
{
    EXPECT_EQ(tiles<AdminDashboardModel>({"[]", '[' + GetParam().record + ']', "[]"}),
        (QList<QString>{u"0"_s, GetParam().counts ? u"1"_s : u"0"_s, u"0"_s, u"0"_s}));
}

INSTANTIATE_TEST_SUITE_P(Values, WalkInTile,
    testing::Values(WalkInCount{"ByType", R"({"type": "walkin"})", true},
        WalkInCount{"ByRecordType", R"({"record_type": "walkin"})", true},
        WalkInCount{"InCapitals", R"({"record_type": "WalkIn"})", true},
        WalkInCount{"TheRecordTypeWins", R"({"type": "walkin", "record_type": "remote"})", false},
        WalkInCount{"TheRecordTypeWinsBack", R"({"type": "remote", "record_type": "walkin"})", true},
        WalkInCount{"AnEmptyRecordTypeDoesNot", R"({"type": "walkin", "record_type": ""})", true},
        WalkInCount{"NorANullWord", R"({"type": "walkin", "record_type": "null"})", true},
        WalkInCount{"Hyphenated", R"({"type": "walk-in"})", false},
        WalkInCount{"InTwoWords", R"({"type": "walk in"})", false},
        WalkInCount{"WithABlank", R"({"type": "walkin "})", false},
        WalkInCount{"Remote", R"({"record_type": "remote"})", false},
        WalkInCount{"Number", R"({"record_type": 1})", false}, WalkInCount{"Nothing", "{}", false}),
    ByName());

TEST_F(DashboardTiles, CountRowsThatShareAnId)
{
    const QByteArray twice = R"([{"id": 5}, {"id": 5}, {"id": "5"}])";
    EXPECT_EQ(
        tiles<AdminDashboardModel>({twice, twice, twice}), (QList<QString>{u"3"_s, u"0"_s, u"3"_s, u"3"_s}));
    EXPECT_EQ(tiles<BusinessDashboardModel>({twice, twice}), (QList<QString>{u"3"_s, u"3"_s, u"0"_s}));
}

RC_GTEST_FIXTURE_PROP(DashboardTiles, UpcomingAndPendingNeverExceedTheWhole, ())
{
    const auto words
        = *rc::gen::container<std::vector<std::string>>(rc::gen::element<std::string>("requested", "Pending",
            "scheduled", "CONFIRMED", "rescheduled", "completed", "cancelled", "", "other"));
    QByteArrayList list;
    for (const std::string& word : words)
        list += R"({"status": ")" + QByteArray::fromStdString(word) + R"("})";
    const QByteArray sessions = '[' + list.join(',') + ']';
    const auto number = [](const QString& value) { return value.toInt(); };
    const QList<QString> business = tiles<BusinessDashboardModel>({sessions, "[]"});
    const QList<QString> admin = tiles<AdminDashboardModel>({sessions, "[]", "[]"});
    RC_ASSERT(number(business[0]) == int(words.size()));
    RC_ASSERT(number(business[2]) + number(admin[3]) <= int(words.size()));
}

} // namespace
