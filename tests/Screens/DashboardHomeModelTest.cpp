#include "Shell/DashboardHomeModel.h"

#include "Cases.h"
#include "ScreenTest.h"

using namespace Qt::StringLiterals;

namespace {

class DashboardHomeModelTest : public ScreenTest
{
protected:
    /// The quick actions by title, the primary one marked.
    QList<QString> actions() const
    {
        QList<QString> actions;
        for (const Shortcut& action : model.quickActions())
            actions += action.title + u" ("_s + action.systemImage + (action.isPrimary ? u")!"_s : u")"_s);
        return actions;
    }

    DashboardHomeModel model{context};
};

struct Holder
{
    const char* name;
    QList<AppRole> roles;
    QList<QString> roleActions;
};

void PrintTo(const Holder& holder, std::ostream* out)
{
    *out << holder.name;
}

class QuickActionsOf : public DashboardHomeModelTest, public testing::WithParamInterface<Holder>
{ };

TEST_P(QuickActionsOf, FollowTheAvailableRoles)
{
    signIn(account(u"someone"_s, GetParam().roles), AppRole::client);
    EXPECT_EQ(actions(),
        (QList<QString>{
             u"Book Remote Notary (calendar.badge.plus)!"_s, u"Sessions (doc.text.magnifyingglass)"_s}
            + GetParam().roleActions + QList<QString>{u"Website (safari)"_s}));
}

const QString records = u"Records (tray.full.fill)"_s;
const QString notary = u"Notary (checkmark.seal.fill)"_s;

INSTANTIATE_TEST_SUITE_P(Roles, QuickActionsOf,
    testing::Values(Holder{"Client", {}, {}}, Holder{"Business", {AppRole::business}, {}},
        Holder{"Notary", {AppRole::notary}, {notary}}, Holder{"Admin", {AppRole::admin}, {records}},
        Holder{"NotaryAndAdmin", {AppRole::notary, AppRole::admin}, {records, notary}}),
    ByName());

TEST_F(DashboardHomeModelTest, OffersAClientsActionsToWhoeverIsSignedOut)
{
    EXPECT_EQ(actions(),
        (QList<QString>{u"Book Remote Notary (calendar.badge.plus)!"_s,
            u"Sessions (doc.text.magnifyingglass)"_s, u"Website (safari)"_s}));
}

TEST_F(DashboardHomeModelTest, ActionsOpenTheirSectionWithNoSessionSelected)
{
    signIn(account(u"someone"_s, {AppRole::notary, AppRole::admin}));
    const QList<AppSection> sections{
        AppSection::book, AppSection::sessions, AppSection::adminRecords, AppSection::notaryDashboard};
    const QList<Shortcut> quickActions = model.quickActions();
    ASSERT_EQ(quickActions.size(), sections.size() + 1);
    int announcements = 0;
    QObject::connect(&notifications, &NotificationCenter::posted, &notifications, [&](const QString& name) {
        EXPECT_EQ(name, u"QuorvelMac.openMainWindow"_s);
        ++announcements;
    });
    for (qsizetype i = 0; i < sections.size(); ++i) {
        router.selectedSessionId = 42;
        model.run(quickActions.at(i));
        EXPECT_EQ(router.selectedSection.value(), sections.at(i));
        EXPECT_FALSE(router.selectedSessionId.value().has_value());
    }
    EXPECT_EQ(announcements, sections.size());
    EXPECT_TRUE(systemOpen.websites.isEmpty());
}

TEST_F(DashboardHomeModelTest, WebsiteOpensInTheBrowser)
{
    model.run(model.quickActions().constLast());
    EXPECT_EQ(systemOpen.websites, QList<QUrl>{config.websiteURL});
    EXPECT_EQ(router.selectedSection.value(), AppSection::dashboard);
}

TEST_F(DashboardHomeModelTest, CardNamesThePersonAndTheActiveRole)
{
    EXPECT_FALSE(model.showsSignedInCard());
    signIn(account(u"Jordan Ellis"_s, {AppRole::notary}), AppRole::notary);
    EXPECT_TRUE(model.showsSignedInCard());
    EXPECT_EQ(model.signedInName(), u"Jordan Ellis"_s);
    EXPECT_EQ(model.activeRoleLine(), u"Active role: Notary"_s);
    model.signOut();
    EXPECT_FALSE(auth.isSignedIn());
    EXPECT_FALSE(model.showsSignedInCard());
}

TEST_F(DashboardHomeModelTest, SaysWhatTheProgramCanDo)
{
    EXPECT_EQ(DashboardHomeModel::heroTitle(), u"Quorvel"_s);
    EXPECT_EQ(DashboardHomeModel::heroText(),
        u"A polished desktop workflow for remote notary booking, session tracking, and role-based workspaces."_s);
    QList<QString> features;
    for (const DashboardHomeModel::Feature& feature : DashboardHomeModel::features())
        features += feature.systemImage + u'|' + feature.title + u'|' + feature.text;
    EXPECT_EQ(features,
        (QList<QString>{u"menubar.rectangle|Quick Access|Use the top status menu to start a booking, open "
                        u"sessions, sign in, or "
                        "switch dashboards."_s,
            u"calendar.badge.plus|Guided Booking|Create Rush or No-Rush remote notary requests with signer "
            u"and "
            "scheduling controls."_s,
            u"message.fill|Session Workspace|Open a session to review status, signers, notary updates, "
            u"notes, and "
            "messages."_s,
            u"tray.full.fill|Records|Authorized staff can work through walk-in records, remote sessions, "
            u"users, and "
            "notary profiles."_s}));
}

} // namespace
