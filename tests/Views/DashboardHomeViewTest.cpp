#include "Shell/DashboardHomeView.h"

#include "Components/Button.h"
#include "ScreensViewTest.h"

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
