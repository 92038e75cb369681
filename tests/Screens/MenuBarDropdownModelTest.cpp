#include "Shell/MenuBarDropdownModel.h"

#include "Cases.h"
#include "ScreenTest.h"

using namespace Qt::StringLiterals;

namespace {

class MenuTest : public ScreenTest
{
protected:
    /// The menu line by line: "-" a separator, "Title" text, "Title (symbol)" an item that does something.
    QList<QString> lines() const
    {
        QList<QString> lines;
        for (const MenuBarDropdownModel::Item& item : menu.items()) {
            if (item.isSeparator())
                lines += u"-"_s;
            else if (item.isText())
                lines += item.title;
            else
                lines += item.title + u" ("_s + item.systemImage + u')';
        }
        return lines;
    }

    void choose(const QString& title) const
    {
        for (const MenuBarDropdownModel::Item& item : menu.items()) {
            if (item.title == title && item.action)
                return item.action();
        }
        FAIL() << "no such item: " << title.toStdString();
    }

    int windowsOpened = 0;
    int quits = 0;
    MenuBarDropdownModel menu{context, {[this] { ++windowsOpened; }, [this] { ++quits; }}};
};

const QList<QString> signedOutMenu{
    u"Quorvel"_s,
    u"Remote Notary"_s,
    u"-"_s,
    u"Book Remote Notary (calendar.badge.plus)"_s,
    u"Sessions (doc.text.magnifyingglass)"_s,
    u"-"_s,
    u"Login (person.crop.circle)"_s,
    u"-"_s,
    u"Open App (macwindow)"_s,
    u"Open Website (safari)"_s,
    u"Quit Quorvel (power)"_s,
};

const QList<QString> adminItems{
    u"Admin Dashboard (gauge.with.dots.needle.bottom.50percent)"_s,
    u"Records (tray.full.fill)"_s,
    u"Users (person.3.fill)"_s,
    u"Notaries (person.badge.shield.checkmark.fill)"_s,
};
const QList<QString> notaryItems{u"Notary Dashboard (checkmark.seal.fill)"_s};
const QList<QString> businessItems{u"Business Dashboard (building.2.fill)"_s};

QList<QString> signedInMenu(const QString& role, const QList<QString>& workspaces)
{
    return QList<QString>{u"Jordan Ellis"_s, role, u"-"_s, u"Book Remote Notary (calendar.badge.plus)"_s,
               u"Sessions (doc.text.magnifyingglass)"_s, u"-"_s}
    + workspaces
        + QList<QString>{u"-"_s, u"Profile & Settings (gearshape.fill)"_s,
            u"Log Out (rectangle.portrait.and.arrow.right)"_s, u"-"_s, u"Open App (macwindow)"_s,
            u"Open Website (safari)"_s, u"Quit Quorvel (power)"_s};
}

TEST_F(MenuTest, OffersTheLoginToWhoeverIsSignedOut)
{
    EXPECT_EQ(lines(), signedOutMenu);
}

struct Holder
{
    const char* name;
    QList<AppRole> roles;
    AppRole active;
    QString activeTitle;
    QList<QString> workspaces;
};

void PrintTo(const Holder& holder, std::ostream* out)
{
    *out << holder.name;
}

class MenuOfRoles : public MenuTest, public testing::WithParamInterface<Holder>
{ };

TEST_P(MenuOfRoles, OffersTheWorkspacesOfTheAvailableRoles)
{
    signIn(account(u"Jordan Ellis"_s, GetParam().roles), GetParam().active);
    EXPECT_EQ(lines(), signedInMenu(GetParam().activeTitle, GetParam().workspaces));
}

INSTANTIATE_TEST_SUITE_P(Roles, MenuOfRoles,
    testing::Values(Holder{"Client", {}, AppRole::client, u"Client"_s, {}},
        Holder{"Business", {AppRole::business}, AppRole::business, u"Business"_s, businessItems},
        Holder{"Notary", {AppRole::notary}, AppRole::notary, u"Notary"_s, notaryItems},
        Holder{"Admin", {AppRole::admin}, AppRole::admin, u"Admin"_s, adminItems},
        Holder{"AdminActingAsClient", {AppRole::admin}, AppRole::client, u"Client"_s, adminItems},
        Holder{"BusinessAndNotary", {AppRole::business, AppRole::notary}, AppRole::notary, u"Notary"_s,
            notaryItems + businessItems},
        Holder{"Everything", {AppRole::business, AppRole::notary, AppRole::admin}, AppRole::business,
            u"Business"_s, adminItems + notaryItems + businessItems}),
    ByName());

TEST_F(MenuTest, FollowsSignInAndSignOut)
{
    signIn(account(u"Jordan Ellis"_s));
    EXPECT_EQ(lines(), signedInMenu(u"Client"_s, {}));
    auth.signOut();
    EXPECT_EQ(lines(), signedOutMenu);
}

TEST_F(MenuTest, NamesTheEmailWhereThereIsNoName)
{
    AuthUser user = account(u"jordan"_s);
    user.email = u"jordan@example.com"_s;
    user.displayName = QString();
    signIn(user);
    EXPECT_EQ(menu.items().constFirst().title, u"jordan@example.com"_s);
    user.displayName = std::nullopt;
    signIn(user);
    EXPECT_EQ(menu.items().constFirst().title, u"jordan@example.com"_s);
}

struct Choice
{
    const char* name;
    QString title;
    AppSection section;
};

void PrintTo(const Choice& choice, std::ostream* out)
{
    *out << choice.name;
}

class MenuChoice : public MenuTest, public testing::WithParamInterface<Choice>
{ };

TEST_P(MenuChoice, OpensItsSectionInTheMainWindow)
{
    signIn(account(u"Jordan Ellis"_s, {AppRole::business, AppRole::notary, AppRole::admin}));
    int announcements = 0;
    QObject::connect(&notifications, &NotificationCenter::posted, &notifications, [&] { ++announcements; });
    // Somewhere else, so that going there shows.
    router.selectedSection
        = GetParam().section == AppSection::settings ? AppSection::sessions : AppSection::settings;
    router.selectedSessionId = 42;
    choose(GetParam().title);
    EXPECT_EQ(router.selectedSection.value(), GetParam().section);
    EXPECT_FALSE(router.selectedSessionId.value().has_value());
    EXPECT_EQ(windowsOpened, 1);
    EXPECT_EQ(announcements, 0);
    EXPECT_EQ(requestCount(), 0);
}

INSTANTIATE_TEST_SUITE_P(Items, MenuChoice,
    testing::Values(Choice{"Book", u"Book Remote Notary"_s, AppSection::book},
        Choice{"Sessions", u"Sessions"_s, AppSection::sessions},
        Choice{"AdminDashboard", u"Admin Dashboard"_s, AppSection::adminDashboard},
        Choice{"Records", u"Records"_s, AppSection::adminRecords},
        Choice{"Users", u"Users"_s, AppSection::adminUsers},
        Choice{"Notaries", u"Notaries"_s, AppSection::adminNotaries},
        Choice{"NotaryDashboard", u"Notary Dashboard"_s, AppSection::notaryDashboard},
        Choice{"BusinessDashboard", u"Business Dashboard"_s, AppSection::businessDashboard},
        Choice{"Settings", u"Profile & Settings"_s, AppSection::settings},
        Choice{"LogOut", u"Log Out"_s, AppSection::dashboard},
        Choice{"OpenApp", u"Open App"_s, AppSection::dashboard}),
    ByName());

TEST_F(MenuTest, TheSectionIsSetBeforeTheWindowOpens)
{
    AppSection shown = AppSection::settings;
    const MenuBarDropdownModel watched(context, {[&] { shown = router.selectedSection.value(); }, {}});
    watched.items().at(4).action();
    EXPECT_EQ(shown, AppSection::sessions);
}

TEST_F(MenuTest, LoginLeadsToTheBookingSection)
{
    choose(u"Login"_s);
    EXPECT_EQ(router.selectedSection.value(), AppSection::book);
    EXPECT_EQ(windowsOpened, 1);
}

TEST_F(MenuTest, LogOutSignsOut)
{
    signIn(account(u"Jordan Ellis"_s, {AppRole::admin}), AppRole::admin);
    choose(u"Log Out"_s);
    EXPECT_FALSE(auth.isSignedIn());
    EXPECT_EQ(auth.role(), AppRole::client);
}

TEST_F(MenuTest, OpensTheWebsiteInTheBrowser)
{
    router.selectedSection = AppSection::settings;
    choose(u"Open Website"_s);
    EXPECT_EQ(systemOpen.websites, QList<QUrl>{config.websiteURL});
    EXPECT_EQ(router.selectedSection.value(), AppSection::settings);
    EXPECT_EQ(windowsOpened, 0);
}

TEST_F(MenuTest, Quits)
{
    choose(u"Quit Quorvel"_s);
    EXPECT_EQ(quits, 1);
    EXPECT_EQ(windowsOpened, 0);
}

TEST_F(MenuTest, ItemsOutliveTheModelThatMadeThem)
{
    auto brief = std::make_unique<MenuBarDropdownModel>(
        context, MenuBarDropdownModel::Shell{[this] { ++windowsOpened; }, {}});
    const QList<MenuBarDropdownModel::Item> items = brief->items();
    brief.reset();
    items.at(3).action();
    EXPECT_EQ(router.selectedSection.value(), AppSection::book);
    EXPECT_EQ(windowsOpened, 1);
}

} // namespace
