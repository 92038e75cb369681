#include "Dashboards/BusinessDashboardModel.h"

#include "Launch.h"
#include "ScreenTest.h"

using namespace Qt::StringLiterals;

namespace {

class BusinessDashboardModelTest : public ScreenTest
{
protected:
    BusinessDashboardModelTest()
    {
        signIn(account(u"Harbor Title"_s, {AppRole::business}), AppRole::business);
    }

    void load(const QByteArray& clients)
    {
        const qsizetype first = requestCount();
        launch(model->load());
        settle();
        answer(first, "[]");
        answer(first + 1, clients);
    }

    QList<QString> names() const
    {
        QList<QString> names;
        for (int row = 0; row < model->clientRows().rowCount(); ++row)
            names += model->clientRows().index(row).data(RowListModel::TitleRole).toString();
        return names;
    }

    std::shared_ptr<BusinessDashboardModel> model = std::make_shared<BusinessDashboardModel>(context);
};

TEST_F(BusinessDashboardModelTest, ShowsEveryClientInTheOrderReceived)
{
    load(
        R"({"clients": [{"name": "Priya"}, {"full_name": "Helen"}, {"client_name": "Anna"}, {"name": "Priya"}]})");
    EXPECT_EQ(names(), (QList<QString>{u"Priya"_s, u"Helen"_s, u"Anna"_s, u"Priya"_s}));
    EXPECT_EQ(model->clients().size(), 4);
    EXPECT_EQ(model->clients().at(2).string(u"client_name"_s), u"Anna"_s);
}

TEST_F(BusinessDashboardModelTest, AnEmptyListTakesTheRowsAway)
{
    load(R"([{"name": "Priya"}])");
    load("[]");
    EXPECT_TRUE(names().isEmpty());
    EXPECT_TRUE(model->clients().isEmpty());
}

} // namespace
