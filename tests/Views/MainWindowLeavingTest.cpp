#include "ScreensViewTest.h"
#include "Shell/MainWindow.h"
#include "support/SteadyAppearance.h"

using namespace Qt::StringLiterals;

/// The window on a section that is being loaded.
class MainWindowLeavingTest : public ScreensViewTest, public testing::WithParamInterface<AppSection>
{
protected:
    MainWindowLeavingTest()
    {
        signIn(
            account(u"Jordan Ellis"_s, {AppRole::business, AppRole::notary, AppRole::admin}), AppRole::admin);
        show(window);
        router.open(GetParam());
        settle();
    }

    SteadyAppearance desktop;
    AppearanceModel appearance{defaults, desktop};
    MainWindowModel model{context};
    MainWindow window{model, appearance};
};

TEST_P(MainWindowLeavingTest, EndsWhatTheSectionReads)
{
    const qsizetype begun = requestCount();
    ASSERT_GT(begun, 0);
    for (qsizetype number = 0; number < begun; ++number)
        EXPECT_FALSE(webSession->isAbandoned(number)) << line(number).toStdString();
    router.open(AppSection::dashboard);
    settle();
    EXPECT_EQ(requestCount(), begun);
    for (qsizetype number = 0; number < begun; ++number) {
        EXPECT_TRUE(webSession->isAbandoned(number)) << line(number).toStdString();
        fail(number, TransportError::Code::Cancelled);
    }
    EXPECT_EQ(requestCount(), begun);
    EXPECT_TRUE(auth.isSignedIn());
}

TEST_P(MainWindowLeavingTest, IsNotClosingTheWindow)
{
    window.close();
    settle();
    for (qsizetype number = 0; number < requestCount(); ++number)
        EXPECT_FALSE(webSession->isAbandoned(number)) << line(number).toStdString();
}

INSTANTIATE_TEST_SUITE_P(Sections, MainWindowLeavingTest,
    testing::Values(AppSection::sessions, AppSection::businessDashboard, AppSection::notaryDashboard,
        AppSection::adminDashboard, AppSection::adminRecords, AppSection::adminUsers,
        AppSection::adminNotaries, AppSection::settings));
