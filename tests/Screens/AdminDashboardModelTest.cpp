#include "Dashboards/AdminDashboardModel.h"

#include "Launch.h"
#include "ScreenTest.h"

using namespace Qt::StringLiterals;

namespace {

class AdminDashboardModelTest : public ScreenTest
{
protected:
    AdminDashboardModelTest() { signIn(account(u"Maya Whitfield"_s, {AppRole::admin}), AppRole::admin); }

    /// Loads so many sessions, the first with the highest id and the earliest date.
    void loadSessions(int count)
    {
        QByteArrayList list;
        for (int i = 0; i < count; ++i)
            list += R"({"id": )" + QByteArray::number(100 - i) + R"(, "scheduled_date": "2026-03-)"
                + QByteArray::number(10 + i) + R"("})";
        const qsizetype first = requestCount();
        launch(model->load());
        settle();
        answer(first, '[' + list.join(',') + ']');
        answer(first + 1, "[]");
        answer(first + 2, "[]");
    }

    QList<qint64> shownIds() const
    {
        QList<qint64> ids;
        for (int row = 0; row < model->recentRows().rowCount(); ++row)
            ids += model->recentRows().index(row).data(RowListModel::IdRole).toLongLong();
        return ids;
    }

    std::shared_ptr<AdminDashboardModel> model = std::make_shared<AdminDashboardModel>(context);
};

TEST_F(AdminDashboardModelTest, ShowsTheFirstEightSessionsInTheOrderReceived)
{
    for (const int count : {0, 1, 7, 8, 9, 40}) {
        loadSessions(count);
        QList<qint64> wanted;
        for (int i = 0; i < qMin(count, 8); ++i)
            wanted += 100 - i;
        EXPECT_EQ(shownIds(), wanted) << count;
        EXPECT_EQ(model->sessions().size(), count);
        EXPECT_EQ(model->recentSessions().size(), wanted.size());
    }
}

TEST_F(AdminDashboardModelTest, ViewAllOpensTheSessions)
{
    router.selectedSessionId = 42;
    model->viewAllSessions();
    EXPECT_EQ(router.selectedSection.value(), AppSection::sessions);
    EXPECT_FALSE(router.selectedSessionId.value().has_value());
}

TEST_F(AdminDashboardModelTest, KeepsRecordsAndUsersAsReceived)
{
    launch(model->load());
    settle();
    answer(0, "[]");
    answer(1, R"({"records": [{"record_id": "7", "type": "walkin"}, {"id": 7}]})");
    answer(2, R"({"users": [{"user_id": 3, "name": "A"}, {"name": "B"}]})");
    ASSERT_EQ(model->records().size(), 2);
    EXPECT_EQ(model->records().at(0).id, 7);
    ASSERT_EQ(model->users().size(), 2);
    EXPECT_EQ(model->users().at(0).id, 3);
    EXPECT_EQ(model->users().at(1).id, 0);
}

} // namespace
