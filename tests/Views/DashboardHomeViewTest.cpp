#include "Shell/DashboardHomeView.h"

#include "Components/Button.h"
#include "Components/FeatureLine.h"
#include "ScreensViewTest.h"

#include <algorithm>
#include <set>

using namespace Qt::StringLiterals;

class DashboardHomeViewTest : public ScreensViewTest
{
protected:
    DashboardHomeViewTest()
    {
        view.resize(960, 728);
        show(view);
    }

    /// The titles of the buttons on screen.
    QStringList buttons()
    {
        QStringList titles;
        for (const Button* button : view.findChildren<Button*>()) {
            if (button->isVisible())
                titles += button->title();
        }
        return titles;
    }

    DashboardHomeView view{DashboardHomeModel(context)};
};

TEST_F(DashboardHomeViewTest, WelcomesSomebodySignedOut)
{
    const QStringList shown = texts(view);
    EXPECT_TRUE(shown.contains(DashboardHomeModel::heroTitle()));
    EXPECT_TRUE(shown.contains(DashboardHomeModel::heroText()));
    for (const DashboardHomeModel::Feature& feature : DashboardHomeModel::features()) {
        EXPECT_TRUE(shown.contains(feature.title)) << feature.title.toStdString();
        EXPECT_TRUE(shown.contains(feature.text)) << feature.text.toStdString();
    }
    EXPECT_FALSE(shown.contains(u"Signed in"_s));
    EXPECT_EQ(buttons(), (QStringList{u"Book Remote Notary"_s, u"Sessions"_s, u"Website"_s}));
}

TEST_F(DashboardHomeViewTest, FollowsWhoIsSignedInAndInWhichRole)
{
    signIn(account(u"<b>Maya</b> Whitfield"_s, {AppRole::notary, AppRole::admin}), AppRole::admin);
    settle();
    EXPECT_THAT(texts(view),
        testing::IsSupersetOf({u"Signed in"_s, u"<b>Maya</b> Whitfield"_s, u"Active role: Admin"_s}));
    EXPECT_EQ(buttons(),
        (QStringList{
            u"Sign Out"_s, u"Book Remote Notary"_s, u"Sessions"_s, u"Records"_s, u"Notary"_s, u"Website"_s}));
    auth.switchRole(AppRole::client);
    settle();
    EXPECT_TRUE(texts(view).contains(u"Active role: Client"_s));
}

TEST_F(DashboardHomeViewTest, ItsButtonsDoWhatTheySay)
{
    signIn(account(u"Maya"_s, {AppRole::notary}));
    settle();
    click(named<Button>(view, u"Notary"_s));
    EXPECT_EQ(router.selectedSection.value(), AppSection::notaryDashboard);
    click(named<Button>(view, u"Website"_s));
    EXPECT_EQ(systemOpen.websites, QList<QUrl>{config.websiteURL});
    click(named<Button>(view, u"Sign Out"_s));
    EXPECT_FALSE(auth.isSignedIn());
    EXPECT_FALSE(texts(view).contains(u"Signed in"_s));
    EXPECT_EQ(buttons(), (QStringList{u"Book Remote Notary"_s, u"Sessions"_s, u"Website"_s}));
}

TEST_F(DashboardHomeViewTest, ARenewedTokenTakesNobodysPlace)
{
    AuthUser user = account(u"Maya"_s, {AppRole::notary});
    signIn(user);
    settle();
    const QPointer<Button> website = named<Button>(view, u"Website"_s);
    website->setFocus();
    user.idToken = u"renewed"_s;
    auth.user = user;
    settle();
    ASSERT_TRUE(website);
    EXPECT_TRUE(website->hasFocus());
    user.displayName = u"Maya Lind"_s;
    auth.user = user;
    settle();
    EXPECT_TRUE(texts(view).contains(u"Maya Lind"_s));
}

TEST_F(DashboardHomeViewTest, ALargeWindowShowsItsFeaturesInOneRow)
{
    const auto rows = [this] {
        std::set<int> tops;
        for (const FeatureLine* feature : view.findChildren<FeatureLine*>())
            tops.insert(feature->mapTo(&view, QPoint()).y());
        return tops.size();
    };
    EXPECT_EQ(rows(), 2);
    view.resize(1680, 1080);
    settle();
    EXPECT_EQ(rows(), 1);
    int highest = 0;
    for (const FeatureLine* feature : view.findChildren<FeatureLine*>())
        highest = std::max(highest, feature->heightForWidth(feature->width()));
    for (const FeatureLine* feature : view.findChildren<FeatureLine*>())
        EXPECT_EQ(feature->height(), highest) << "and takes no more room than they need";
    view.resize(600, 728);
    settle();
    EXPECT_EQ(rows(), 4);
}
