#include "AppRouter.h"
#include "Rows.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

const QString openMainWindow = u"QuorvelMac.openMainWindow"_s;

class AppRouterTest : public testing::Test
{
protected:
    AppRouterTest()
    {
        QObject::connect(&notifications, &NotificationCenter::posted, &notifications,
            [this](const QString& name) { events.append(name); });
    }

    NotificationCenter notifications;
    AppRouter router{notifications};
    QStringList events;
};

TEST_F(AppRouterTest, StartsOnTheDashboardWithoutASession)
{
    EXPECT_EQ(router.selectedSection.value(), AppSection::dashboard);
    EXPECT_EQ(router.selectedSessionId.value(), std::nullopt);
    EXPECT_TRUE(events.isEmpty());
}

TEST_F(AppRouterTest, OpensASessionInASection)
{
    router.open(AppSection::sessions, 42);
    EXPECT_EQ(router.selectedSection.value(), AppSection::sessions);
    EXPECT_EQ(router.selectedSessionId.value(), 42);
}

TEST_F(AppRouterTest, ForgetsAnEarlierSessionWhenNoneIsGiven)
{
    router.open(AppSection::sessions, 42);
    router.open(AppSection::sessions);
    EXPECT_EQ(router.selectedSessionId.value(), std::nullopt);
}

TEST_F(AppRouterTest, AsksForTheMainWindowAtEveryCall)
{
    router.open(AppSection::dashboard);
    router.open(AppSection::dashboard);
    router.open(AppSection::settings, 7);
    EXPECT_EQ(events, QStringList(3, openMainWindow));
}

TEST_F(AppRouterTest, SetsTheSectionThenTheSessionThenAsksForTheWindow)
{
    const auto section = router.selectedSection.onValueChanged([this] { events.append(u"section"_s); });
    const auto session = router.selectedSessionId.onValueChanged([this] {
        EXPECT_EQ(router.selectedSection.value(), AppSection::sessions);
        events.append(u"session"_s);
    });
    router.open(AppSection::sessions, 42);
    EXPECT_EQ(events, QStringList({u"section"_s, u"session"_s, openMainWindow}));
}

TEST_F(AppRouterTest, IsInPlaceWhenTheWindowIsAskedFor)
{
    std::optional<qint64> seen;
    QObject::connect(&notifications, &NotificationCenter::posted, &notifications,
        [&] { seen = router.selectedSessionId.value(); });
    router.open(AppSection::sessions, 9'000'000'000);
    EXPECT_EQ(seen, 9'000'000'000);
}

TEST(SharedAppRouter, IsOneAndAsksTheSharedNotificationCentre)
{
    AppRouter& router = AppRouter::shared();
    ASSERT_EQ(&router, &AppRouter::shared());
    QObject context;
    QStringList posted;
    QObject::connect(&NotificationCenter::shared(), &NotificationCenter::posted, &context,
        [&](const QString& name) { posted.append(name); });
    router.open(AppSection::dashboard);
    EXPECT_EQ(posted, QStringList(openMainWindow));
}

} // namespace
