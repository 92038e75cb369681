#include "Account/SettingsContentView.h"

#include "Components/AlertDialog.h"
#include "Components/Button.h"
#include "Components/EmptyStateView.h"
#include "Components/Switch.h"
#include "FaultMark.h"
#include "ScreensViewTest.h"
#include "support/SteadyAppearance.h"

#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace {

constexpr auto whole = R"({"full_name": "Priya Raman", "email": "p@example.com", "phone": "5550100",
    "city": "Albany", "state": "New York"})";

class SettingsContentViewTest : public ScreensViewTest
{
protected:
    void open(QSize size = {960, 1400})
    {
        view = std::make_unique<SettingsContentView>(model);
        view->resize(size);
        show(*view);
    }
    void openSignedIn()
    {
        signIn(account(u"Priya Raman"_s));
        open();
        answer(requestCount() - 1, whole);
    }

    QLineEdit* field(const QString& name) { return named<QLineEdit>(*view, name); }
    Button* button(const QString& name) { return named<Button>(*view, name); }
    Switch* startup() { return named<Switch>(*view, u"Open Quorvel when I sign in"_s); }
    void type(const QString& name, const QString& text)
    {
        ASSERT_NE(field(name), nullptr) << name.toStdString();
        field(name)->setFocus();
        QTest::keySequence(field(name), QKeySequence::SelectAll);
        QTest::keyClicks(field(name), text);
    }
    QStringList alert()
    {
        const auto* dialog = view->findChild<AlertDialog*>();
        return dialog ? QStringList{dialog->title(), dialog->message()} : QStringList();
    }
    void dismissAlert()
    {
        QTest::keyClick(view->findChild<AlertDialog*>()->okButton(), Qt::Key_Escape);
        settle();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    SteadyAppearance desktop;
    AppearanceModel appearance{defaults, desktop};
    std::shared_ptr<SettingsContentModel> model = std::make_shared<SettingsContentModel>(context, appearance);
    std::unique_ptr<SettingsContentView> view;
};

TEST_F(SettingsContentViewTest, SaysWhatItIsFor)
{
    openSignedIn();
    EXPECT_THAT(texts(*view),
        testing::UnorderedElementsAre(u"Profile & Preferences"_s,
            u"Keep your desktop profile, password, and active workspace up to date."_s, u"Account"_s,
            u"Active workspace"_s, u"Active Role"_s, u"Client"_s, u"Profile"_s,
            u"This information is used for booking, session updates, and account records."_s, u"Full Name"_s,
            u"Email"_s, u"Phone"_s, u"City"_s, u"State"_s, u"Password"_s,
            u"Choose a strong password you do not use anywhere else."_s, u"Current Password"_s,
            u"New Password"_s, u"Preferences"_s, u"Tune the desktop app for the way your office works."_s,
            u"Appearance"_s,
            u"Choose a dedicated light or dark workspace, or follow your Mac's system appearance."_s,
            u"Open Quorvel when I sign in"_s,
            u"Keeps the menu-bar booking shortcut available after restart or boot."_s, u"Menu Bar"_s,
            u"Book and open sessions from the top status menu."_s, u"Default Zone"_s,
            u"Scheduling defaults to New York time."_s,
            u"The app will return to login automatically if your secure session ends."_s, u"About Quorvel"_s,
            u"Remote notary booking, session tracking, and role-based desktop workflows for clients, "
            "notaries, businesses, and office staff."_s));
}

TEST_F(SettingsContentViewTest, FollowsTheActiveRole)
{
    signIn(account(u"Maya"_s, {AppRole::notary, AppRole::admin}), AppRole::admin);
    open();
    answer(requestCount() - 1, whole);
    EXPECT_TRUE(texts(*view).contains(u"Admin"_s));
    auth.switchRole(AppRole::notary);
    settle();
    EXPECT_TRUE(texts(*view).contains(u"Notary"_s));
    EXPECT_FALSE(texts(*view).contains(u"Admin"_s));
}

TEST_F(SettingsContentViewTest, OffersTheSignInToSomebodySignedOut)
{
    open();
    EXPECT_EQ(requestCount(), 0);
    EXPECT_EQ(texts(*view),
        (QStringList{u"Sign in required"_s,
            u"Sign in to update your profile, change your password, and access your saved sessions."_s}));
    router.selectedSessionId = 7;
    click(button(u"Sign In"_s));
    EXPECT_EQ(router.selectedSection.value(), AppSection::book);
    EXPECT_EQ(router.selectedSessionId.value(), std::nullopt);
}

TEST_F(SettingsContentViewTest, LoadsAtEachAppearance)
{
    signIn(account(u"Priya Raman"_s));
    open();
    ASSERT_EQ(requestCount(), 1);
    EXPECT_EQ(line(0), u"GET /profile"_s);
    answer(0, whole);
    EXPECT_EQ(field(u"Full Name"_s)->text(), u"Priya Raman"_s);
    loginItem.enabled = true;
    view->hide();
    view->show();
    settle();
    EXPECT_EQ(requestCount(), 2);
    EXPECT_TRUE(startup()->isChecked());
    answer(1, R"({"full_name": "Priya R."})");
    EXPECT_EQ(field(u"Full Name"_s)->text(), u"Priya R."_s);

    auth.signOut();
    settle();
    EXPECT_TRUE(texts(*view).contains(u"Sign in required"_s));
    EXPECT_EQ(requestCount(), 2);
}

TEST_F(SettingsContentViewTest, SavesByKeyboardAlone)
{
    openSignedIn();
    type(u"Full Name"_s, u"Priya R. "_s);
    QTest::keyClick(field(u"Full Name"_s), Qt::Key_Return);
    settle();
    ASSERT_EQ(requestCount(), 2);
    EXPECT_EQ(line(1), u"POST /profile"_s);
    EXPECT_EQ(body(1).value(u"full_name"_s).toString(), u"Priya R. "_s);
    EXPECT_EQ(body(1).value(u"city"_s).toString(), u"Albany"_s);
    EXPECT_TRUE(button(u"Save Profile"_s)->isLoading());
    EXPECT_FALSE(button(u"Change Password"_s)->isEnabled());
    click(button(u"Save Profile"_s));
    QTest::keyClick(field(u"City"_s), Qt::Key_Return);
    settle();
    EXPECT_EQ(requestCount(), 2);
    answer(1, "{}");
    answer(2, "{}");
    EXPECT_EQ(alert(), (QStringList{u"Saved"_s, u"Your profile was updated."_s}));
    dismissAlert();
    EXPECT_FALSE(model->alert.value());
    EXPECT_FALSE(button(u"Save Profile"_s)->isLoading());
    EXPECT_TRUE(button(u"Change Password"_s)->isEnabled());
}

TEST_F(SettingsContentViewTest, WhatIsMissingIsLoadedBeforeASave)
{
    signIn(account(u"Priya Raman"_s));
    open();
    fail(0);
    EXPECT_TRUE(alert().isEmpty());
    type(u"City"_s, u"Troy"_s);
    click(button(u"Save Profile"_s));
    EXPECT_TRUE(button(u"Save Profile"_s)->isLoading());
    ASSERT_EQ(requestCount(), 2);
    EXPECT_EQ(line(1), u"GET /profile"_s);
    answer(1, R"({"full_name": "Priya Raman", "phone": "555 0142", "city": "Albany"})");
    EXPECT_EQ(field(u"City"_s)->text(), u"Troy"_s);
    EXPECT_EQ(line(2), u"POST /profile"_s);
    EXPECT_EQ(body(2).value(u"phone"_s).toString(), u"555 0142"_s);
    EXPECT_EQ(body(2).value(u"city"_s).toString(), u"Troy"_s);
    answer(2, "{}");
    answer(3, "{}");
    EXPECT_EQ(alert(), (QStringList{u"Saved"_s, u"Your profile was updated."_s}));
}

TEST_F(SettingsContentViewTest, WithoutTheProfileNothingIsSaved)
{
    signIn(account(u"Priya Raman"_s));
    open();
    fail(0);
    type(u"City"_s, u"Troy"_s);
    click(button(u"Save Profile"_s));
    answer(1, "{}", 500);
    EXPECT_EQ(alert().value(0), u"Cannot Save Profile"_s);
    EXPECT_EQ(requestCount(), 2);
    EXPECT_EQ(field(u"City"_s)->text(), u"Troy"_s);
}

TEST_F(SettingsContentViewTest, ChangesThePassword)
{
    openSignedIn();
    click(button(u"Change Password"_s));
    EXPECT_EQ(alert(), (QStringList{u"Missing Password"_s, u"Enter a new password."_s}));
    dismissAlert();
    EXPECT_TRUE(field(u"New Password"_s)->hasFocus());
    EXPECT_TRUE(FaultMark::isOn(field(u"New Password"_s)));
    type(u"Current Password"_s, u"old "_s);
    type(u"New Password"_s, u" new"_s);
    EXPECT_FALSE(FaultMark::isOn(field(u"New Password"_s)));
    click(button(u"Change Password"_s));
    ASSERT_EQ(requestCount(), 2);
    EXPECT_EQ(body(1), object(R"({"current_password": "old ", "new_password": " new"})"));
    EXPECT_TRUE(button(u"Change Password"_s)->isLoading());
    answer(1, "{}");
    EXPECT_EQ(alert(), (QStringList{u"Password Updated"_s, u"Your password was changed."_s}));
    EXPECT_EQ(field(u"Current Password"_s)->text(), QString());
    EXPECT_EQ(field(u"New Password"_s)->text(), QString());
}

TEST_F(SettingsContentViewTest, PasswordsAreConcealedAndGoWithTheScreen)
{
    openSignedIn();
    for (const QString& name : {u"Current Password"_s, u"New Password"_s}) {
        EXPECT_EQ(field(name)->echoMode(), QLineEdit::Password) << name.toStdString();
        type(name, u"secret"_s);
    }
    type(u"City"_s, u"Troy"_s);
    view->hide();
    EXPECT_EQ(model->currentPassword.value() + model->newPassword.value(), QString());
    view->show();
    answer(requestCount() - 1, whole);
    EXPECT_EQ(field(u"New Password"_s)->text(), QString());
    EXPECT_EQ(field(u"City"_s)->text(), u"Troy"_s)
        << "an edit is kept, and the person asked before it is lost";
}

TEST_F(SettingsContentViewTest, AnEditIsNotLeftBehindUnasked)
{
    openSignedIn();
    int left = 0;
    leaving.leave([&left] { ++left; });
    EXPECT_EQ(left, 1);
    type(u"City"_s, u"Troy"_s);
    leaving.leave([&left] { ++left; });
    EXPECT_EQ(left, 1);
    ASSERT_TRUE(leaving.question.value());
    leaving.answer(false);

    click(button(u"Sign Out"_s));
    EXPECT_TRUE(auth.isSignedIn());
    ASSERT_TRUE(leaving.question.value());
    leaving.answer(true);
    settle();
    EXPECT_FALSE(auth.isSignedIn());
    EXPECT_TRUE(texts(*view).contains(u"Sign in required"_s));
}

TEST_F(SettingsContentViewTest, SignsOut)
{
    openSignedIn();
    click(button(u"Sign Out"_s));
    EXPECT_FALSE(auth.isSignedIn());
}

TEST_F(SettingsContentViewTest, TheSwitchRegistersAndUnregisters)
{
    openSignedIn();
    EXPECT_FALSE(startup()->isChecked());
    EXPECT_EQ(startup()->accessibleDescription(),
        u"Keeps the menu-bar booking shortcut available after restart or boot."_s);
    click(startup());
    EXPECT_TRUE(startup()->isChecked());
    EXPECT_TRUE(loginItem.enabled);
    QTest::keyClick(startup(), Qt::Key_Space);
    settle();
    EXPECT_FALSE(startup()->isChecked());
    EXPECT_FALSE(loginItem.enabled);
    EXPECT_EQ(loginItem.registrations, 1);
    EXPECT_EQ(loginItem.unregistrations, 1);
    EXPECT_TRUE(alert().isEmpty());
}

TEST_F(SettingsContentViewTest, ARefusedSwitchSpringsBack)
{
    const QStringList refused{u"Startup Setting Not Changed"_s,
        u"macOS did not allow the login item change. Open System Settings > General > Login Items and enable "
        "Quorvel manually."_s};
    openSignedIn();
    loginItem.refuses = true;
    for (const bool enabled : {false, true}) {
        loginItem.enabled = enabled;
        launchAtLogin.refresh();
        click(startup());
        EXPECT_EQ(startup()->isChecked(), enabled);
        EXPECT_EQ(alert(), refused);
        dismissAlert();
    }
    EXPECT_EQ(loginItem.registrations, 1);
    EXPECT_EQ(loginItem.unregistrations, 1);
}

TEST_F(SettingsContentViewTest, ChoosesTheAppearance)
{
    openSignedIn();
    for (const auto& [title, stored] :
        {std::pair(u"Dark"_s, u"dark"_s), {u"Light"_s, u"light"_s}, {u"System"_s, u"system"_s}}) {
        click(named<QAbstractButton>(*view, title));
        EXPECT_EQ(defaults.string(u"appearanceMode"_s), stored);
        EXPECT_TRUE(named<QAbstractButton>(*view, title)->isChecked());
    }
}

TEST_F(SettingsContentViewTest, LeadsToTheSupportAndTheWebsite)
{
    openSignedIn();
    click(button(u"Contact Support"_s));
    click(button(u"Visit Website"_s));
    EXPECT_EQ(systemOpen.mails, QList<QString>{u"support@notary.example"_s});
    EXPECT_EQ(systemOpen.websites, QList<QUrl>{QUrl(u"https://notary.example"_s)});
}

TEST_F(SettingsContentViewTest, TabGoesThroughItInReadingOrder)
{
    openSignedIn();
    button(u"Sign Out"_s)->setFocus();
    QStringList seen;
    for (int i = 0; i < 14; ++i) {
        seen += QAccessible::queryAccessibleInterface(QApplication::focusWidget())->text(QAccessible::Name);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(seen.first(9),
        (QStringList{u"Sign Out"_s, u"Full Name"_s, u"Email"_s, u"Phone"_s, u"City"_s, u"State"_s,
            u"Save Profile"_s, u"Current Password"_s, u"New Password"_s}));
    EXPECT_EQ(seen.at(9), u"Change Password"_s);
    EXPECT_EQ(seen.at(11), u"Open Quorvel when I sign in"_s);
    EXPECT_EQ(seen.sliced(12), (QStringList{u"Contact Support"_s, u"Visit Website"_s}));
}

TEST_F(SettingsContentViewTest, MayGoWhileItsProfileIsOnItsWay)
{
    signIn(account(u"Priya Raman"_s));
    open();
    view.reset();
    EXPECT_TRUE(webSession->isAbandoned(0)) << "nobody waits for the profile any more";
    EXPECT_EQ(model->name.value(), QString());
    EXPECT_EQ(model->alert.value(), std::nullopt);
}

TEST_F(SettingsContentViewTest, StandsInOneColumnWhereItIsNarrow)
{
    signIn(account(u"Priya Raman"_s));
    open({760, 648});
    answer(0, whole);
    const auto placeOf
        = [this](const QString& card) { return named<QWidget>(*view, card)->mapTo(view.get(), QPoint()); };
    EXPECT_EQ(placeOf(u"Profile"_s).x(), placeOf(u"Preferences"_s).x());
    EXPECT_LT(placeOf(u"Password"_s).y(), placeOf(u"Preferences"_s).y());
    view->resize(960, 728);
    settle();
    EXPECT_LT(placeOf(u"Profile"_s).x(), placeOf(u"Preferences"_s).x());
    EXPECT_EQ(placeOf(u"Account"_s).y(), placeOf(u"Preferences"_s).y());
}

} // namespace
