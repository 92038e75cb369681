#include "Shell/MenuBarExtra.h"

#include "ScreensViewTest.h"

using namespace Qt::StringLiterals;

class MenuBarExtraTest : public ScreensViewTest
{
protected:
    QList<QAction*> actions() { return extra.menu().actions(); }

    QAction* titled(const QString& title)
    {
        for (QAction* action : actions()) {
            if (action->text() == title)
                return action;
        }
        return nullptr;
    }

    int windowsOpened = 0;
    int quits = 0;
    MenuBarExtra extra{
        context, MenuBarDropdownModel(context, {[this] { ++windowsOpened; }, [this] { ++quits; }})};
};

TEST_F(MenuBarExtraTest, FollowsWhoIsSignedIn)
{
    EXPECT_NE(titled(u"Login"_s), nullptr);
    signIn(account(u"Priya"_s, {AppRole::notary}));
    EXPECT_EQ(titled(u"Login"_s), nullptr);
    EXPECT_NE(titled(u"Notary Dashboard"_s), nullptr);
    EXPECT_EQ(actions().constFirst()->text(), u"Priya"_s);
    EXPECT_FALSE(actions().constFirst()->isEnabled()) << "the header is no item";
    EXPECT_EQ(actions().at(1)->text(), u"Client"_s);
    auth.switchRole(AppRole::notary);
    EXPECT_EQ(actions().at(1)->text(), u"Notary"_s);
}

TEST_F(MenuBarExtraTest, ARenewedTokenLeavesTheItemsThatSomebodyIsAboutToChoose)
{
    AuthUser user = account(u"Priya"_s);
    signIn(user);
    const QPointer<QAction> sessions = titled(u"Sessions"_s);
    user.idToken = u"renewed"_s;
    auth.user = user;
    settle();
    ASSERT_TRUE(sessions);
    sessions->trigger();
    settle();
    EXPECT_EQ(windowsOpened, 1);
    EXPECT_EQ(router.selectedSection.value(), AppSection::sessions);
}

TEST_F(MenuBarExtraTest, ItsHeaderIsText)
{
    signIn(account(u"Priya"_s));
    QMenu& menu = extra.menu();
    menu.popup({});
    settle();
    const QRect name = menu.actionGeometry(actions().at(0));
    const QRect role = menu.actionGeometry(actions().at(1));
    const QRect item = menu.actionGeometry(titled(u"Sessions"_s));
    EXPECT_EQ(name.height(), 6 + 20);
    EXPECT_EQ(role.height(), 16 + 4);
    EXPECT_EQ(role.top(), name.bottom() + 1);
    EXPECT_EQ(item.height(), 32);
    EXPECT_EQ(menu.width(), 264);
    EXPECT_EQ(item.left(), 7) << "a line and 6 pixels of room";
    menu.close();
}

struct ShownName
{
    const char* name;
    QString given;
    QString text; ///< of the menu's item: "&&" is shown as "&", and a tab would begin a shortcut
};

void PrintTo(const ShownName& shown, std::ostream* out)
{
    *out << shown.name;
}

class MenuBarExtraName : public MenuBarExtraTest, public testing::WithParamInterface<ShownName>
{ };

TEST_P(MenuBarExtraName, IsShownAsItStandsOnOneLine)
{
    signIn(account(GetParam().given));
    EXPECT_EQ(actions().constFirst()->text(), GetParam().text);
    EXPECT_EQ(actions().constFirst()->shortcut(), QKeySequence());
}

INSTANTIATE_TEST_SUITE_P(Names, MenuBarExtraName,
    testing::Values(ShownName{"Ampersand", u"Alder & Sons"_s, u"Alder && Sons"_s},
        ShownName{"Markup", u"<b>x</b>"_s, u"<b>x</b>"_s}, ShownName{"Underscore", u"a_b"_s, u"a_b"_s},
        ShownName{"Tab", u"Priya\tCtrl+Q"_s, u"Priya Ctrl+Q"_s},
        ShownName{"LineBreak", u"Priya\nRaman"_s, u"Priya Raman"_s},
        ShownName{"Nul", u"a"_s + QChar::Null + u'b', u"a b"_s},
        ShownName{"Endless", QString(2'000'000, u'x'), QString(500, u'x') + u'…'}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(MenuBarExtraTest, AnItemDoesItsWorkOnceTheMenuIsDone)
{
    signIn(account(u"Priya"_s));
    titled(u"Log Out"_s)->trigger();
    EXPECT_TRUE(auth.isSignedIn());
    settle();
    EXPECT_FALSE(auth.isSignedIn());
    EXPECT_EQ(windowsOpened, 1);
    EXPECT_NE(titled(u"Login"_s), nullptr);
    titled(u"Quit Quorvel"_s)->trigger();
    settle();
    EXPECT_EQ(quits, 1);
}

TEST_F(MenuBarExtraTest, AClickOpensTheMenuWhereTheDesktopDrawsNone)
{
    emit extra.item().activated(QSystemTrayIcon::MiddleClick);
    EXPECT_FALSE(extra.menu().isVisible());
    emit extra.item().activated(QSystemTrayIcon::Trigger);
    EXPECT_TRUE(extra.menu().isVisible());
    EXPECT_EQ(windowsOpened, 0);
    extra.menu().close();
}
