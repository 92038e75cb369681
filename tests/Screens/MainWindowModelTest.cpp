#include "Shell/MainWindowModel.h"

#include "Cases.h"
#include "Launch.h"
#include "ScreenTest.h"
#include "support/ApiKey.h"

#include <QTemporaryDir>

#include <array>

using namespace Qt::StringLiterals;

void PrintTo(MainWindowModel::Gate gate, std::ostream* out)
{
    *out << std::array{"open", "signIn", "restricted"}.at(std::size_t(gate));
}

namespace {

using Gate = MainWindowModel::Gate;

class MainWindowModelTest : public ScreenTest
{
protected:
    MainWindowModelTest()
    {
        QObject::connect(&model, &MainWindowModel::sidebarChanged, &model, [this] { ++sidebarChanges; });
        QObject::connect(&model, &MainWindowModel::screenChanged, &model, [this] { ++screenChanges; });
    }

    /// "Main: dashboard book sessions", a group a line.
    QList<QString> groupLines() const
    {
        QList<QString> lines;
        for (const MainWindowModel::Group& group : model.groups()) {
            QString line = group.title + u':';
            for (const AppSection section : group.sections)
                line += u' ' + rawValue(section);
            lines += line;
        }
        return lines;
    }

    int sidebarChanges = 0;
    int screenChanges = 0;
    MainWindowModel model{context};
};

struct SectionGates
{
    AppSection section;
    Gate signedOut;
    Gate client;
    Gate business;
    Gate notary;
    Gate admin;
};

void PrintTo(const SectionGates& gates, std::ostream* out)
{
    *out << rawValue(gates.section).toStdString();
}

class MainWindowGates : public MainWindowModelTest, public testing::WithParamInterface<SectionGates>
{ };

TEST_P(MainWindowGates, OpenToThoseWhoHoldTheRole)
{
    model.select(GetParam().section);
    EXPECT_EQ(model.gate(), GetParam().signedOut);
    signIn(account(u"client"_s));
    EXPECT_EQ(model.gate(), GetParam().client);
    replaceUser(account(u"business"_s, {AppRole::business}), AppRole::business);
    EXPECT_EQ(model.gate(), GetParam().business);
    replaceUser(account(u"notary"_s, {AppRole::notary}), AppRole::notary);
    EXPECT_EQ(model.gate(), GetParam().notary);
    replaceUser(account(u"admin"_s, {AppRole::admin}), AppRole::admin);
    EXPECT_EQ(model.gate(), GetParam().admin);
}

TEST_P(MainWindowGates, AskForTheRoleHeldNotForTheRoleActive)
{
    signIn(account(u"all"_s, {AppRole::business, AppRole::notary, AppRole::admin}), AppRole::client);
    model.select(GetParam().section);
    EXPECT_EQ(model.gate(), Gate::open);
}

INSTANTIATE_TEST_SUITE_P(Sections, MainWindowGates,
    testing::Values(
        SectionGates{AppSection::dashboard, Gate::open, Gate::open, Gate::open, Gate::open, Gate::open},
        SectionGates{AppSection::book, Gate::signIn, Gate::open, Gate::open, Gate::open, Gate::open},
        SectionGates{AppSection::sessions, Gate::signIn, Gate::open, Gate::open, Gate::open, Gate::open},
        SectionGates{AppSection::businessDashboard, Gate::signIn, Gate::restricted, Gate::open,
            Gate::restricted, Gate::restricted},
        SectionGates{AppSection::notaryDashboard, Gate::signIn, Gate::restricted, Gate::restricted,
            Gate::open, Gate::restricted},
        SectionGates{AppSection::adminDashboard, Gate::signIn, Gate::restricted, Gate::restricted,
            Gate::restricted, Gate::open},
        SectionGates{AppSection::adminRecords, Gate::signIn, Gate::restricted, Gate::restricted,
            Gate::restricted, Gate::open},
        SectionGates{AppSection::adminUsers, Gate::signIn, Gate::restricted, Gate::restricted,
            Gate::restricted, Gate::open},
        SectionGates{AppSection::adminNotaries, Gate::signIn, Gate::restricted, Gate::restricted,
            Gate::restricted, Gate::open},
        SectionGates{AppSection::settings, Gate::open, Gate::open, Gate::open, Gate::open, Gate::open}),
    [](const auto& row) { return rawValue(row.param.section).toStdString(); });

struct GateTexts
{
    AppSection section;
    QString signInTitle;
    QString signInImage;
    QString restriction; ///< empty for sections open to every signed-in user
};

void PrintTo(const GateTexts& texts, std::ostream* out)
{
    *out << rawValue(texts.section).toStdString();
}

class MainWindowGateTexts : public MainWindowModelTest, public testing::WithParamInterface<GateTexts>
{ };

TEST_P(MainWindowGateTexts, NameTheRoleOrTheSection)
{
    model.select(GetParam().section);
    EXPECT_EQ(model.signInHeader().title, GetParam().signInTitle);
    EXPECT_EQ(model.signInHeader().systemImage, GetParam().signInImage);
    if (!GetParam().restriction.isEmpty()) {
        signIn(account(u"client"_s));
        EXPECT_EQ(model.restrictionMessage(), GetParam().restriction);
    }
}

const QString businessOnly = u"This section is available to Business accounts only."_s;
const QString notaryOnly = u"This section is available to Notary accounts only."_s;
const QString adminOnly = u"This section is available to Admin accounts only."_s;

INSTANTIATE_TEST_SUITE_P(Sections, MainWindowGateTexts,
    testing::Values(GateTexts{AppSection::book, u"Book Remote Notary"_s, u"calendar.badge.plus"_s, {}},
        GateTexts{AppSection::sessions, u"Sessions"_s, u"doc.text.magnifyingglass"_s, {}},
        GateTexts{AppSection::businessDashboard, u"Business"_s, u"building.2.fill"_s, businessOnly},
        GateTexts{AppSection::notaryDashboard, u"Notary"_s, u"checkmark.seal.fill"_s, notaryOnly},
        GateTexts{AppSection::adminDashboard, u"Admin"_s, u"gearshape.fill"_s, adminOnly},
        GateTexts{AppSection::adminRecords, u"Admin"_s, u"gearshape.fill"_s, adminOnly},
        GateTexts{AppSection::adminUsers, u"Admin"_s, u"gearshape.fill"_s, adminOnly},
        GateTexts{AppSection::adminNotaries, u"Admin"_s, u"gearshape.fill"_s, adminOnly}),
    [](const auto& row) { return rawValue(row.param.section).toStdString(); });

TEST_F(MainWindowModelTest, HeaderNamesThePersonAndTheActiveRole)
{
    EXPECT_EQ(model.header().title, u"Quorvel"_s);
    EXPECT_EQ(model.header().caption, u"Desktop"_s);
    signIn(account(u"Jordan Ellis"_s, {AppRole::notary}), AppRole::notary);
    EXPECT_EQ(model.header().title, u"Jordan Ellis"_s);
    EXPECT_EQ(model.header().caption, u"Notary"_s);
    EXPECT_EQ(model.header().systemImage, u"checkmark.seal.fill"_s);
    model.switchRole(AppRole::client);
    EXPECT_EQ(model.header().caption, u"Client"_s);
}

TEST_F(MainWindowModelTest, HeaderOfAPersonWithoutANameStaysEmpty)
{
    AuthUser nameless = account(u"x"_s);
    nameless.displayName = std::nullopt;
    signIn(nameless);
    EXPECT_EQ(model.header().title, QString());
}

TEST_F(MainWindowModelTest, SwitcherOffersTheRolesWhenThereIsAChoice)
{
    EXPECT_EQ(model.switchableRoles(), QList<AppRole>());
    signIn(account(u"client"_s));
    EXPECT_EQ(model.switchableRoles(), QList<AppRole>());
    replaceUser(account(u"all"_s, {AppRole::admin, AppRole::notary, AppRole::business}));
    EXPECT_EQ(model.switchableRoles(),
        (QList<AppRole>{AppRole::client, AppRole::business, AppRole::notary, AppRole::admin}));
}

TEST_F(MainWindowModelTest, SwitchingTheRoleTellsTheSidebar)
{
    signIn(account(u"notary"_s, {AppRole::notary}), AppRole::notary);
    sidebarChanges = 0;
    model.switchRole(AppRole::client);
    EXPECT_EQ(auth.role(), AppRole::client);
    EXPECT_EQ(sidebarChanges, 1);
    model.switchRole(AppRole::admin);
    EXPECT_EQ(auth.role(), AppRole::client) << "a role not held is ignored";
    EXPECT_EQ(sidebarChanges, 1);
}

struct GroupsOf
{
    const char* name;
    QList<AppRole> roles;
    QString workspaces; ///< empty: no such group
};

void PrintTo(const GroupsOf& groups, std::ostream* out)
{
    *out << groups.name;
}

class MainWindowGroups : public MainWindowModelTest, public testing::WithParamInterface<GroupsOf>
{ };

TEST_P(MainWindowGroups, FollowTheAvailableRoles)
{
    signIn(account(u"someone"_s, GetParam().roles), AppRole::client);
    QList<QString> want{u"Main: dashboard book sessions"_s, u"Account: settings"_s};
    if (!GetParam().workspaces.isEmpty())
        want.insert(1, u"Workspaces: "_s + GetParam().workspaces);
    EXPECT_EQ(groupLines(), want);
}

const QString adminSections = u"adminDashboard adminRecords adminUsers adminNotaries"_s;

INSTANTIATE_TEST_SUITE_P(Roles, MainWindowGroups,
    testing::Values(GroupsOf{"Client", {}, {}},
        GroupsOf{"Business", {AppRole::business}, u"businessDashboard"_s},
        GroupsOf{"Notary", {AppRole::notary}, u"notaryDashboard"_s},
        GroupsOf{"Admin", {AppRole::admin}, adminSections},
        GroupsOf{"NotaryAndAdmin", {AppRole::notary, AppRole::admin}, u"notaryDashboard "_s + adminSections},
        GroupsOf{"Everything", {AppRole::business, AppRole::notary, AppRole::admin},
            u"businessDashboard notaryDashboard "_s + adminSections}),
    ByName());

TEST_F(MainWindowModelTest, GroupsOfWhoeverIsSignedOutAreThoseOfAClient)
{
    EXPECT_EQ(groupLines(), (QList<QString>{u"Main: dashboard book sessions"_s, u"Account: settings"_s}));
}

TEST_F(MainWindowModelTest, SelectingASectionKeepsTheSelectedSessionAndAnnouncesNothing)
{
    int announcements = 0;
    QObject::connect(&notifications, &NotificationCenter::posted, &notifications, [&] { ++announcements; });
    router.selectedSessionId = 42;
    model.select(AppSection::sessions);
    EXPECT_EQ(model.selectedSection(), AppSection::sessions);
    EXPECT_EQ(router.selectedSessionId.value(), 42);
    EXPECT_EQ(announcements, 0);
    EXPECT_EQ(sidebarChanges, 1);
    EXPECT_EQ(screenChanges, 1);
    model.select(AppSection::sessions);
    EXPECT_EQ(screenChanges, 1) << "the screen shown is not made anew";
}

/// A screen with unsaved edits, in the sessions section, of somebody who is a notary and an admin.
class MainWindowLeavingTest : public MainWindowModelTest
{
protected:
    MainWindowLeavingTest()
    {
        signIn(account(u"both"_s, {AppRole::notary, AppRole::admin}), AppRole::admin);
        model.select(AppSection::sessions);
        leaving.watch(&screen, [] { return LeaveGuard::Unfinished::edits; });
        sidebarChanges = 0;
        screenChanges = 0;
    }

    bool isAsking() const { return leaving.question.value().has_value(); }

    QObject screen;
};

TEST_F(MainWindowLeavingTest, AnotherSectionWaitsForTheAnswer)
{
    router.open(AppSection::book);
    EXPECT_TRUE(isAsking());
    EXPECT_EQ(model.selectedSection(), AppSection::sessions);
    EXPECT_EQ(model.windowTitle(), u"Sessions"_s);
    EXPECT_EQ(screenChanges, 0);
    EXPECT_EQ(sidebarChanges, 1) << "the entry that was clicked is not the selected one";

    leaving.answer(true);
    EXPECT_EQ(model.selectedSection(), AppSection::book);
    EXPECT_EQ(screenChanges, 1);
    model.select(AppSection::settings);
    EXPECT_EQ(model.selectedSection(), AppSection::settings)
        << "the screen that was left has no say any more";
}

TEST_F(MainWindowLeavingTest, WhoStaysStaysWhereTheyWere)
{
    model.select(AppSection::book);
    leaving.answer(false);
    EXPECT_EQ(router.selectedSection.value(), AppSection::sessions);
    EXPECT_EQ(model.selectedSection(), AppSection::sessions);
    EXPECT_EQ(screenChanges, 0);
    EXPECT_FALSE(isAsking());
    model.select(AppSection::book);
    EXPECT_TRUE(isAsking()) << "and is asked again";
}

TEST_F(MainWindowLeavingTest, TheSectionAskedForLastIsTheOneToGoTo)
{
    model.select(AppSection::book);
    model.select(AppSection::settings);
    leaving.answer(true);
    EXPECT_EQ(model.selectedSection(), AppSection::settings);
    EXPECT_EQ(screenChanges, 1);
}

TEST_F(MainWindowLeavingTest, ComingBackWithdrawsTheQuestion)
{
    model.select(AppSection::book);
    model.select(AppSection::sessions);
    EXPECT_FALSE(isAsking());
    EXPECT_EQ(screenChanges, 0);
}

TEST_F(MainWindowLeavingTest, AnotherRoleWaitsForTheAnswer)
{
    model.switchRole(AppRole::notary);
    EXPECT_TRUE(isAsking());
    EXPECT_EQ(auth.role(), AppRole::admin);
    leaving.answer(false);
    EXPECT_EQ(auth.role(), AppRole::admin);
    EXPECT_GE(sidebarChanges, 1) << "the picker shows the active role again";
    model.switchRole(AppRole::notary);
    leaving.answer(true);
    EXPECT_EQ(auth.role(), AppRole::notary);
}

TEST_F(MainWindowLeavingTest, AnotherRoleAsksNothingWhereItChangesNothing)
{
    leaving.forget();
    for (const AppSection section : {AppSection::settings, AppSection::adminUsers, AppSection::dashboard}) {
        model.select(section);
        leaving.watch(&screen, [] { return LeaveGuard::Unfinished::edits; });
        screenChanges = 0;
        const AppRole other = auth.role() == AppRole::admin ? AppRole::notary : AppRole::admin;
        model.switchRole(other);
        EXPECT_FALSE(isAsking()) << rawValue(section).toStdString();
        EXPECT_EQ(auth.role(), other);
        EXPECT_EQ(screenChanges, 0) << "the screen and what was typed into it are still there";
        leaving.forget();
    }
}

TEST_F(MainWindowLeavingTest, TheRoleThatIsActiveIsNothingToAskAbout)
{
    model.switchRole(AppRole::admin);
    EXPECT_FALSE(isAsking());
}

TEST_F(MainWindowLeavingTest, ASignOutAsksNothingAndEndsTheQuestion)
{
    model.select(AppSection::dashboard);
    auth.signOut();
    EXPECT_FALSE(isAsking());
    EXPECT_EQ(model.selectedSection(), AppSection::dashboard) << "where the person wanted to go";
    EXPECT_EQ(model.gate(), Gate::open);
    EXPECT_EQ(screenChanges, 1);
}

TEST_F(MainWindowLeavingTest, AfterASignOutNothingIsLeftToLose)
{
    auth.signOut();
    model.select(AppSection::dashboard);
    EXPECT_FALSE(isAsking());
    EXPECT_EQ(model.selectedSection(), AppSection::dashboard);
}

TEST_F(MainWindowModelTest, TitlesTheWindowAfterTheSection)
{
    for (const AppSection section : allAppSections) {
        model.select(section);
        EXPECT_EQ(model.windowTitle(), title(section));
    }
}

TEST_F(MainWindowModelTest, SigningInAndOutChangesTheScreenOnlyBehindAGate)
{
    model.select(AppSection::sessions);
    screenChanges = 0;
    signIn(account(u"client"_s));
    EXPECT_EQ(screenChanges, 1);
    auth.signOut();
    EXPECT_EQ(screenChanges, 2);
    EXPECT_EQ(model.selectedSection(), AppSection::sessions) << "the section stays where it was";
    EXPECT_EQ(model.gate(), Gate::signIn);

    model.select(AppSection::dashboard);
    screenChanges = 0;
    sidebarChanges = 0;
    signIn(account(u"client"_s));
    EXPECT_EQ(screenChanges, 0);
    EXPECT_GE(sidebarChanges, 1);
}

TEST_F(MainWindowModelTest, TheSelectedSessionOutlivesASignOut)
{
    signIn(account(u"client"_s));
    router.open(AppSection::sessions, 7);
    auth.leave();
    EXPECT_EQ(router.selectedSection.value(), AppSection::sessions);
    EXPECT_EQ(router.selectedSessionId.value(), 7) << "where the window is, is nobody's in particular";
}

TEST_F(MainWindowModelTest, ARenewedTokenLeavesTheScreenAlone)
{
    AuthUser user = account(u"client"_s);
    signIn(user);
    model.select(AppSection::sessions);
    screenChanges = 0;
    user.idToken = u"renewed"_s;
    auth.user = user;
    EXPECT_EQ(screenChanges, 0);
}

TEST_F(MainWindowModelTest, ALostRoleClosesTheSection)
{
    signIn(account(u"admin"_s, {AppRole::admin}), AppRole::admin);
    model.select(AppSection::adminUsers);
    screenChanges = 0;
    auth.user = account(u"admin"_s);
    EXPECT_EQ(model.gate(), Gate::restricted);
    EXPECT_EQ(screenChanges, 1);
}

TEST_F(MainWindowModelTest, AnAnnouncedSessionExpiryClosesTheGate)
{
    signIn(account(u"client"_s));
    model.select(AppSection::book);
    notifications.post(u"QuorvelMac.appSessionExpired"_s);
    settle();
    EXPECT_EQ(model.gate(), Gate::signIn);
}

TEST_F(MainWindowModelTest, TheBookingFormOutlivesOtherSectionsButNotTheSignOut)
{
    signIn(account(u"first"_s));
    model.booking()->details = u"half written"_s;
    model.select(AppSection::sessions);
    model.select(AppSection::book);
    EXPECT_EQ(model.booking()->details.value(), u"half written"_s);
    auth.leave();
    signIn(account(u"first"_s));
    EXPECT_EQ(model.booking()->details.value(), QString());
}

TEST_F(MainWindowModelTest, AppearingWithoutAKeyOrAUserSendsNothing)
{
    model.appears();
    settle();
    EXPECT_EQ(requestCount(), 0);
    signIn(account(u"client"_s));
    model.appears();
    settle();
    EXPECT_EQ(requestCount(), 0);
    EXPECT_TRUE(auth.isSignedIn());
}

/// What happens to the tokens when the window appears; none of it is said to anybody.
class MainWindowRenewal : public MainWindowModelTest
{
protected:
    MainWindowRenewal()
    {
        storeApiKey(resources.path(), u"key"_s);
        config.resourceFolder = resources.path();
        signIn(account(u"client"_s));
        model.select(AppSection::sessions);
        model.appears();
    }

    QTemporaryDir resources;
};

TEST_F(MainWindowRenewal, GivesTheUserNewTokens)
{
    ASSERT_EQ(requestCount(), 1);
    EXPECT_EQ(request(0).url.path(), u"/v1/token"_s);
    answer(0, R"({"id_token": "renewed"})");
    EXPECT_EQ(auth.user.value()->idToken, u"renewed"_s);
    EXPECT_EQ(model.gate(), Gate::open);
}

TEST_F(MainWindowRenewal, ClosesTheGatesWhenItIsRefused)
{
    answer(0, R"({"error": "TOKEN_EXPIRED"})", 400);
    EXPECT_FALSE(auth.isSignedIn());
    EXPECT_EQ(model.gate(), Gate::signIn);
    EXPECT_EQ(model.selectedSection(), AppSection::sessions);
}

} // namespace
