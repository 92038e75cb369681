#include "Shell/MainWindow.h"

#include "Account/LoginView.h"
#include "Account/SettingsContentView.h"
#include "Booking/BookRemoteNotaryView.h"
#include "Components/Button.h"
#include "Components/ComboBox.h"
#include "Components/EmptyStateView.h"
#include "Components/QuestionDialog.h"
#include "Components/SidebarEntry.h"
#include "Palette.h"
#include "ScreensViewTest.h"
#include "Sessions/SessionsView.h"
#include "Shell/ContentPane.h"
#include "Shell/DashboardHomeView.h"
#include "Shell/MenuBarDropdownModel.h"
#include "support/ApiKey.h"
#include "support/SteadyAppearance.h"

#include <QMenuBar>
#include <QTemporaryDir>

#include <algorithm>

using namespace Qt::StringLiterals;

class MainWindowTest : public ScreensViewTest
{
protected:
    MainWindowTest()
    {
        onDark_ = appearance.isDark.addNotifier([this] { style()->setDark(appearance.isDark.value()); });
        show(window);
    }

    template <typename Screen>
    bool isShowing()
    {
        return qobject_cast<Screen*>(window.findChild<ContentPane*>()->screen()) != nullptr;
    }

    QStringList entries()
    {
        QStringList titles;
        for (SidebarEntry* entry : window.findChildren<SidebarEntry*>()) {
            if (entry->isVisible())
                titles += entry->accessibleName();
        }
        return titles;
    }

    void press(const QKeySequence& keys)
    {
        QTest::keySequence(&window, keys);
        settle();
    }

    SteadyAppearance desktop;
    AppearanceModel appearance{defaults, desktop};
    MainWindowModel model{context};
    MainWindow window{model, appearance};

private:
    QPropertyNotifier onDark_;
};

TEST_F(MainWindowTest, StartsOnTheDashboardOfSomebodySignedOut)
{
    EXPECT_EQ(window.windowTitle(), u"Dashboard"_s);
    const int bar = window.menuBar()->height();
    EXPECT_GT(bar, 0);
    EXPECT_EQ(window.centralWidget()->size(), QSize(1180, 760)) << "under the menu bar";
    EXPECT_EQ(window.size(), QSize(1180, 760 + bar));
    EXPECT_EQ(window.minimumSize(), QSize(980, 680 + bar));
    EXPECT_TRUE(isShowing<DashboardHomeView>());
    EXPECT_EQ(
        entries(), QStringList({u"Dashboard"_s, u"Book Remote Notary"_s, u"Sessions"_s, u"Settings"_s}));
    EXPECT_TRUE(named<SidebarEntry>(window, u"Dashboard"_s)->isChecked());
}

TEST_F(MainWindowTest, AnEntryLeadsToItsSectionBehindItsGate)
{
    click(named<SidebarEntry>(window, u"Sessions"_s));
    EXPECT_EQ(router.selectedSection.value(), AppSection::sessions);
    EXPECT_TRUE(isShowing<LoginView>());
    EXPECT_TRUE(named<SidebarEntry>(window, u"Sessions"_s)->isChecked());
    EXPECT_FALSE(named<SidebarEntry>(window, u"Dashboard"_s)->isChecked());

    signIn(account(u"priya"_s));
    settle();
    EXPECT_TRUE(isShowing<SessionsView>());
    answer(requestCount() - 1, "[]");
    auth.signOut();
    settle();
    EXPECT_TRUE(isShowing<LoginView>());
}

TEST_F(MainWindowTest, ShortcutsLeadToTheirSections)
{
    press(Qt::CTRL | Qt::Key_Comma);
    EXPECT_TRUE(isShowing<SettingsContentView>());
    press(Qt::CTRL | Qt::SHIFT | Qt::Key_S);
    EXPECT_EQ(router.selectedSection.value(), AppSection::sessions);
    press(Qt::CTRL | Qt::SHIFT | Qt::Key_B);
    EXPECT_EQ(router.selectedSection.value(), AppSection::book);
}

TEST_F(MainWindowTest, TheApplicationMenuOffersThreeWaysInTheirOrder)
{
    const QList<QAction*> menus = window.menuBar()->actions();
    ASSERT_EQ(menus.size(), 1);
    EXPECT_EQ(menus.constFirst()->text(), u"&Quorvel"_s);
    QStringList items;
    for (const QAction* item : menus.constFirst()->menu()->actions())
        items += item->text() + u'|' + item->shortcut().toString();
    EXPECT_EQ(items,
        (QStringList{u"&Book Remote Notary|Ctrl+Shift+B"_s, u"&Sessions|Ctrl+Shift+S"_s, u"|"_s,
            u"S&ettings|Ctrl+,"_s}));
}

TEST_F(MainWindowTest, TheSidebarIsHeadedByWhoIsSignedInAndInWhichRole)
{
    EXPECT_THAT(texts(window), testing::IsSupersetOf({u"Quorvel"_s, u"Desktop"_s, u"Main"_s, u"Account"_s}));
    EXPECT_FALSE(texts(window).contains(u"Workspaces"_s));
    EXPECT_FALSE(texts(window).contains(u"Active Workspace"_s));
    click(named<SidebarEntry>(window, u"Settings"_s));
    signIn(account(u"maya"_s, {AppRole::notary}), AppRole::notary);
    settle();
    answer(requestCount() - 1, "{}");
    EXPECT_THAT(texts(window),
        testing::IsSupersetOf(
            {u"maya"_s, u"Notary"_s, u"Main"_s, u"Workspaces"_s, u"Account"_s, u"Active Workspace"_s}));
    EXPECT_FALSE(texts(window).contains(u"Desktop"_s));
}

TEST_F(MainWindowTest, TheGateOfARoleAsksForItsSignIn)
{
    router.selectedSection = AppSection::notaryDashboard;
    settle();
    ASSERT_TRUE(isShowing<LoginView>());
    EXPECT_TRUE(texts(*window.findChild<LoginView*>()).contains(u"Notary"_s));
}

TEST_F(MainWindowTest, AClientIsKeptOutOfAnotherRolesSection)
{
    signIn(account(u"priya"_s));
    router.open(AppSection::adminUsers);
    settle();
    EXPECT_TRUE(isShowing<EmptyStateView>());
    EXPECT_THAT(texts(window),
        testing::IsSupersetOf(
            {u"Access Restricted"_s, u"This section is available to Admin accounts only."_s}));
}

TEST_F(MainWindowTest, TheSwitcherOffersTheRolesAndSwitches)
{
    EXPECT_EQ(named<ComboBox>(window, u"Role"_s), nullptr);
    signIn(account(u"maya"_s, {AppRole::notary, AppRole::admin}), AppRole::admin);
    settle();
    auto* picker = named<ComboBox>(window, u"Role"_s);
    ASSERT_NE(picker, nullptr);
    EXPECT_EQ(picker->count(), 3);
    EXPECT_EQ(picker->value(), u"admin"_s);
    picker->setFocus();
    QTest::keyClick(picker, Qt::Key_Home);
    settle();
    EXPECT_EQ(auth.role(), AppRole::client);
    EXPECT_EQ(entries(),
        QStringList({u"Dashboard"_s, u"Book Remote Notary"_s, u"Sessions"_s, u"Notary Dashboard"_s,
            u"Admin Dashboard"_s, u"Records"_s, u"Users"_s, u"Notaries"_s, u"Settings"_s}));
}

TEST_F(MainWindowTest, AHalfWrittenBookingSurvivesAVisitElsewhereAndIsForgottenAtSignOut)
{
    signIn(account(u"priya"_s));
    router.open(AppSection::book);
    settle();
    ASSERT_TRUE(isShowing<BookRemoteNotaryView>());
    answer(requestCount() - 1, "{}");
    model.booking()->details = u"Sign the deed"_s;
    router.open(AppSection::settings);
    settle();
    answer(requestCount() - 1, "{}");
    router.open(AppSection::book);
    settle();
    EXPECT_EQ(model.booking()->details.value(), u"Sign the deed"_s);

    auth.leave();
    signIn(account(u"tomas"_s));
    settle();
    EXPECT_EQ(model.booking()->details.value(), QString());
    answer(requestCount() - 1, "{}");
}

/// A screen that holds something unsaved, in the sessions section of somebody with two roles.
class MainWindowLeaving : public MainWindowTest
{
protected:
    MainWindowLeaving()
    {
        signIn(account(u"maya"_s, {AppRole::notary}), AppRole::notary);
        router.open(AppSection::sessions);
        settle();
        EXPECT_EQ(QApplication::activeWindow(), &window) << "no part of a screen is a window of its own";
        answer(requestCount() - 1, "[]");
        leaving.watch(&screen, [] { return LeaveGuard::Unfinished::edits; });
    }

    QuestionDialog* question() { return window.findChild<QuestionDialog*>(); }
    void answerQuestion(bool leaves)
    {
        click(leaves ? question()->yesButton() : question()->noButton());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    QObject screen;
};

TEST_F(MainWindowLeaving, AnEntryOfTheSidebarAsksFirst)
{
    click(named<SidebarEntry>(window, u"Settings"_s));
    ASSERT_NE(question(), nullptr);
    EXPECT_TRUE(isShowing<SessionsView>());
    EXPECT_TRUE(named<SidebarEntry>(window, u"Sessions"_s)->isChecked());
    EXPECT_FALSE(named<SidebarEntry>(window, u"Settings"_s)->isChecked());
    answerQuestion(false);
    EXPECT_TRUE(isShowing<SessionsView>());

    click(named<SidebarEntry>(window, u"Settings"_s));
    answerQuestion(true);
    EXPECT_TRUE(isShowing<SettingsContentView>());
    EXPECT_EQ(question(), nullptr);
    answer(requestCount() - 1, "{}");
}

TEST_F(MainWindowLeaving, AShortcutAsksFirst)
{
    press(Qt::CTRL | Qt::Key_Comma);
    ASSERT_NE(question(), nullptr);
    press(Qt::CTRL | Qt::SHIFT | Qt::Key_B);
    EXPECT_TRUE(isShowing<SessionsView>());
    EXPECT_EQ(window.findChildren<QuestionDialog*>().size(), 1)
        << "one question, wherever the person wants to go";
    answerQuestion(true);
    EXPECT_TRUE(isShowing<BookRemoteNotaryView>()) << "the last wish counts";
    answer(requestCount() - 1, "{}");
}

TEST_F(MainWindowLeaving, AnotherRoleAsksFirst)
{
    auto* picker = named<ComboBox>(window, u"Role"_s);
    picker->setFocus();
    QTest::keyClick(picker, Qt::Key_Home);
    ASSERT_NE(question(), nullptr);
    EXPECT_EQ(auth.role(), AppRole::notary);
    answerQuestion(false);
    EXPECT_EQ(picker->value(), u"notary"_s) << "the picker tells the truth again";

    QTest::keyClick(picker, Qt::Key_Home);
    answerQuestion(true);
    EXPECT_EQ(auth.role(), AppRole::client);
    EXPECT_EQ(line(requestCount() - 1), u"GET /remote-notary/sessions"_s);
}

TEST_F(MainWindowLeaving, ASignOutEndsTheQuestion)
{
    click(named<SidebarEntry>(window, u"Settings"_s));
    auth.signOut();
    settle();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(question(), nullptr);
    EXPECT_TRUE(isShowing<SettingsContentView>());
}

TEST_F(MainWindowTest, ChoosingDarkColoursTheWindowAtOnceAndIsStored)
{
    signIn(account(u"priya"_s));
    press(Qt::CTRL | Qt::Key_Comma);
    answer(requestCount() - 1, "{}");
    click(named<QAbstractButton>(window, u"Dark"_s));
    EXPECT_TRUE(Palette::isDark());
    EXPECT_EQ(defaults.string(u"appearanceMode"_s), u"dark"_s);
    click(named<QAbstractButton>(window, u"System"_s));
    EXPECT_FALSE(Palette::isDark());
    desktop.become(true);
    EXPECT_TRUE(Palette::isDark()) << "follows the desktop while it runs";
}

TEST_F(MainWindowTest, ClosingHidesTheWindowAndPresentingBringsItBack)
{
    window.close();
    EXPECT_FALSE(window.isVisible());
    window.present();
    EXPECT_TRUE(window.isVisible());
}

TEST_F(MainWindowTest, TheStatusMenuBringsTheClosedWindowBackToASection)
{
    const MenuBarDropdownModel menu(context, {[this] { window.present(); }, [] {}});
    const auto choose = [&menu](const QString& title) {
        const QList<MenuBarDropdownModel::Item> items = menu.items();
        const auto item = std::find_if(
            items.begin(), items.end(), [&title](const auto& each) { return each.title == title; });
        ASSERT_NE(item, items.end());
        item->action();
        settle();
    };
    signIn(account(u"priya"_s));
    router.selectedSessionId = 42;
    window.close();
    choose(u"Sessions"_s);
    EXPECT_TRUE(window.isVisible());
    EXPECT_TRUE(isShowing<SessionsView>());
    EXPECT_EQ(router.selectedSessionId.value(), std::nullopt);
    answer(requestCount() - 1, "[]");

    window.close();
    choose(u"Log Out"_s);
    EXPECT_TRUE(window.isVisible());
    EXPECT_TRUE(isShowing<DashboardHomeView>());
    EXPECT_FALSE(auth.isSignedIn());
}

TEST_F(MainWindowTest, PresentingBringsBackAWindowThatWasMinimized)
{
    window.showMinimized();
    settle();
    ASSERT_TRUE(window.isMinimized());
    window.present();
    settle();
    EXPECT_FALSE(window.isMinimized());
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(QApplication::activeWindow(), &window);
}

TEST_F(MainWindowTest, EachTimeItIsShownTheTokensAreRenewed)
{
    const QTemporaryDir resources;
    storeApiKey(resources.path(), u"key"_s);
    config.resourceFolder = resources.path();
    signIn(account(u"priya"_s));
    settle();
    const qsizetype before = requestCount();
    for (qsizetype time = 0; time < 2; ++time) {
        window.close();
        window.present();
        settle();
        ASSERT_EQ(requestCount(), before + time + 1);
        EXPECT_EQ(request(before + time).url.path(), u"/v1/token"_s);
        answer(before + time, R"({"id_token": "renewed"})");
    }
}
