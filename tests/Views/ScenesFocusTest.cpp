#include "Components/Button.h"
#include "Components/SearchField.h"
#include "Components/SidebarEntry.h"
#include "Screens/Cases.h"
#include "Shell/ContentPane.h"
#include "WholeWindowTest.h"

using namespace Qt::StringLiterals;

namespace {

QString focused()
{
    const QWidget* widget = QApplication::focusWidget();
    return widget ? widget->accessibleName() : QString();
}

struct Entrance
{
    std::string name;
    std::optional<AppRole> role; ///< nobody is signed in without
    AppSection section;
    QString control; ///< the one that gets the focus
};

std::ostream& operator<<(std::ostream& out, const Entrance& entrance)
{
    return out << entrance.name;
}

/// Sections that are entered from another one, with the focus in what is left.
class ScenesFocus : public WholeWindowTest, public testing::WithParamInterface<Entrance>
{
protected:
    void focusContent()
    {
        window->findChild<SidebarEntry*>()->setFocus();
        QTest::keyClick(window.get(), Qt::Key_F6);
        ASSERT_TRUE(window->findChild<ContentPane*>()->isAncestorOf(QApplication::focusWidget()));
    }
};

} // namespace

TEST_P(ScenesFocus, GoesAlongIntoTheNextScreen)
{
    const Entrance& entrance = GetParam();
    const bool isHome = entrance.section == AppSection::dashboard;
    open({"Before", entrance.role, isHome ? AppSection::book : AppSection::dashboard});
    focusContent();
    router.open(entrance.section);
    settle();
    answerEverything();
    EXPECT_EQ(focused(), entrance.control);
}

INSTANTIATE_TEST_SUITE_P(Screens, ScenesFocus,
    testing::Values(Entrance{"HomeSignedOut", std::nullopt, AppSection::dashboard, u"Book Remote Notary"_s},
        Entrance{"SignIn", std::nullopt, AppSection::sessions, u"Email"_s},
        Entrance{"SettingsSignedOut", std::nullopt, AppSection::settings, u"Sign In"_s},
        Entrance{"Home", AppRole::client, AppSection::dashboard, u"Sign Out"_s},
        Entrance{"Settings", AppRole::client, AppSection::settings, u"Full Name"_s},
        Entrance{"Booking", AppRole::client, AppSection::book, u"Name"_s},
        Entrance{"Sessions", AppRole::client, AppSection::sessions,
            u"Search name, signer, email, status, document"_s},
        Entrance{"Business", AppRole::business, AppSection::businessDashboard, u"Book for Client"_s},
        Entrance{"Notary", AppRole::notary, AppSection::notaryDashboard, u"Refresh"_s},
        Entrance{"Admin", AppRole::admin, AppSection::adminDashboard, u"Records"_s},
        Entrance{"Users", AppRole::admin, AppSection::adminUsers, u"Search name, email, phone, role"_s}),
    ByName());

namespace {

class ScenesFocusKept : public WholeWindowTest
{ };

} // namespace

TEST_F(ScenesFocusKept, BeginsOnTheEntryOfWhatIsShownWhoeverComes)
{
    open({"Nobody", std::nullopt, AppSection::dashboard});
    EXPECT_EQ(focused(), u"Dashboard"_s);
    signIn(account(u"Maya Whitfield"_s, {AppRole::notary, AppRole::admin}), AppRole::admin);
    settle();
    EXPECT_EQ(focused(), u"Dashboard"_s) << "and not on the picker of roles, which is above it now";
    auth.signOut();
    settle();
    EXPECT_EQ(focused(), u"Dashboard"_s);
}

TEST_F(ScenesFocusKept, StaysInTheSidebarForWhoeverGoesThroughItsEntries)
{
    open({"Home", AppRole::client, AppSection::dashboard});
    auto* entry = named<SidebarEntry>(*window, u"Sessions"_s);
    entry->setFocus(Qt::TabFocusReason);
    QTest::keyClick(entry, Qt::Key_Return);
    settle();
    answerEverything();
    EXPECT_EQ(router.selectedSection.value(), AppSection::sessions);
    EXPECT_TRUE(entry->hasFocus());
}

TEST_F(ScenesFocusKept, StaysOnTheDashboardThatIsRebuiltForSomebodyElse)
{
    open({"Home", AppRole::client, AppSection::dashboard});
    auto* signOut = named<Button>(*window, u"Sign Out"_s);
    signOut->setFocus(Qt::TabFocusReason);
    QTest::keyClick(signOut, Qt::Key_Return);
    settle();
    EXPECT_FALSE(auth.isSignedIn());
    EXPECT_EQ(focused(), u"Book Remote Notary"_s);
}

TEST_F(ScenesFocusKept, LeadsFromTheSignInToWhatItWasAskedFor)
{
    open({"SignIn", std::nullopt, AppSection::sessions});
    auto* password = named<QLineEdit>(*window, u"Password"_s);
    password->setFocus(Qt::TabFocusReason);
    signIn(account(u"Priya Raman"_s));
    settle();
    answerEverything();
    EXPECT_TRUE(window->findChild<SearchField*>()->hasFocus());
}
