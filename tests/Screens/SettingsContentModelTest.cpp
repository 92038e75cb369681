#include "SettingsTest.h"

#include "FailureKinds.h"

using namespace Qt::StringLiterals;

namespace {

TEST_F(SettingsTest, BeginsEmpty)
{
    EXPECT_EQ(profile(), QList<QString>(5));
    EXPECT_EQ(passwords(), QList<QString>(2));
    EXPECT_TRUE(alertOf(*model).isEmpty());
    EXPECT_FALSE(model->hasEdits());
    EXPECT_FALSE(model->launchAtLogin().value());
    EXPECT_EQ(model->appearance.mode.value(), AppAppearanceMode::system);
}

class SettingsFailure : public SettingsTest, public testing::WithParamInterface<FailureKind>
{
protected:
    void happen(qsizetype number)
    {
        GetParam().happen(*webSession, number);
        settle();
        EXPECT_EQ(auth.isSignedIn(), !GetParam().message.isEmpty());
    }
    void expectAlert(const QString& title)
    {
        EXPECT_EQ(alertOf(*model),
            GetParam().message.isEmpty() ? QList<QString>() : (QList<QString>{title, GetParam().message}));
    }
};

TEST_P(SettingsFailure, OfALoadIsSilent)
{
    load(whole);
    launch(model->loadProfile());
    happen(1);
    EXPECT_TRUE(alertOf(*model).isEmpty());
    if (auth.isSignedIn()) {
        EXPECT_EQ(profile(), wholeProfile);
    }
}

TEST_P(SettingsFailure, OfASaveIsOneAlert)
{
    typeProfile();
    const QList<QString> typed = profile();
    launch(model->saveProfile());
    happen(0);
    expectAlert(u"Cannot Save Profile"_s);
    EXPECT_EQ(model->work.value(), EditPaneModel::Work::none);
    if (auth.isSignedIn()) {
        EXPECT_EQ(profile(), typed);
        EXPECT_TRUE(model->hasEdits());
    }
}

TEST_P(SettingsFailure, OfTheRefreshAfterASaveIsOneAlert)
{
    load(whole);
    launch(model->saveProfile());
    answer(1, "{}");
    ASSERT_EQ(requestCount(), 3);
    happen(2);
    expectAlert(u"Cannot Save Profile"_s);
}

TEST_P(SettingsFailure, OfANewPasswordIsOneAlertAndKeepsTheFields)
{
    typePasswords(u"old"_s, u"new"_s);
    launch(model->changePassword());
    happen(0);
    expectAlert(u"Cannot Change Password"_s);
    if (auth.isSignedIn()) {
        EXPECT_EQ(passwords(), (QList<QString>{u"old"_s, u"new"_s}));
    }
}

INSTANTIATE_TEST_SUITE_P(Kinds, SettingsFailure, testing::ValuesIn(failureKinds()), ByName());

TEST_F(SettingsTest, OneChangeAtATime)
{
    typePasswords({}, u"new"_s);
    launch(model->saveProfile());
    launch(model->saveProfile());
    launch(model->changePassword());
    typePasswords({}, {});
    launch(model->changePassword());
    EXPECT_EQ(requestCount(), 1);
    EXPECT_TRUE(alertOf(*model).isEmpty());
    EXPECT_EQ(model->unfinished(), LeaveGuard::Unfinished::work);
    answer(0, "{}", 500);
    launch(model->saveProfile());
    EXPECT_EQ(requestCount(), 2);
    answer(1, "{}", 500);
}

struct NewPassword
{
    const char* name;
    QString current;
    QString chosen;
    bool isSent;
};

void PrintTo(const NewPassword& password, std::ostream* out)
{
    *out << password.name;
}

class SettingsPassword : public SettingsTest, public testing::WithParamInterface<NewPassword>
{ };

TEST_P(SettingsPassword, IsSentAsTypedUnlessItIsBlank)
{
    typePasswords(GetParam().current, GetParam().chosen);
    launch(model->changePassword());
    if (!GetParam().isSent) {
        EXPECT_EQ(requestCount(), 0);
        EXPECT_EQ(alertOf(*model), (QList<QString>{u"Missing Password"_s, u"Enter a new password."_s}));
        EXPECT_EQ(passwords(), (QList<QString>{GetParam().current, GetParam().chosen}));
        return;
    }
    ASSERT_EQ(requestCount(), 1);
    EXPECT_EQ(line(0), u"POST /profile/password"_s);
    EXPECT_EQ(header(0, "Authorization"), QByteArray("Bearer priyaraman-token"));
    EXPECT_EQ(body(0),
        (QJsonObject{{u"current_password"_s, GetParam().current}, {u"new_password"_s, GetParam().chosen}}));
    answer(0, "{}");
    EXPECT_EQ(alertOf(*model), (QList<QString>{u"Password Updated"_s, u"Your password was changed."_s}));
    EXPECT_EQ(passwords(), QList<QString>(2));
    EXPECT_EQ(requestCount(), 1);
}

INSTANTIATE_TEST_SUITE_P(Typed, SettingsPassword,
    testing::Values(NewPassword{"Empty", u"old"_s, {}, false},
        NewPassword{"Blanks", u"old"_s, u"   "_s, false},
        NewPassword{"LineBreaks", u"old"_s, u" \n\t\r"_s, false},
        NewPassword{"BlankAround", u" old "_s, u" new "_s, true},
        NewPassword{"NoCurrentPassword", {}, u"new"_s, true},
        NewPassword{"OneCharacter", u"old"_s, u"x"_s, true},
        NewPassword{"TheSameAgain", u"old"_s, u"old"_s, true}),
    ByName());

TEST_F(SettingsTest, TypedPasswordsAreNoEditsAndGoWhenTheScreenGoes)
{
    typePasswords(u"old"_s, u"new"_s);
    EXPECT_EQ(model->unfinished(), LeaveGuard::Unfinished::nothing);
    model->name = u"P"_s;
    EXPECT_EQ(model->unfinished(), LeaveGuard::Unfinished::edits);
    model->disappeared();
    EXPECT_EQ(passwords(), QList<QString>(2));
    EXPECT_EQ(model->name.value(), u"P"_s);
}

TEST_F(SettingsTest, WithNobodySignedInNothingIsSent)
{
    auth.signOut();
    typePasswords(u"old"_s, u"new"_s);
    launch(model->loadProfile());
    launch(model->saveProfile());
    launch(model->changePassword());
    typePasswords(u"old"_s, {});
    launch(model->changePassword());
    model->appeared();
    settle();
    EXPECT_EQ(requestCount(), 0);
    EXPECT_TRUE(alertOf(*model).isEmpty());
}

TEST_F(SettingsTest, ASignOutForgetsWhoWasThere)
{
    load(whole);
    typeProfile();
    typePasswords(u"old"_s, u"new"_s);
    launch(model->saveProfile());
    replaceUser(account(u"Tomas"_s));
    EXPECT_EQ(profile(), QList<QString>(5));
    EXPECT_EQ(passwords(), QList<QString>(2));
    EXPECT_FALSE(model->hasEdits());
    answer(1, "{}");
    EXPECT_EQ(requestCount(), 2) << "the new user is nobody's to refresh";
    EXPECT_TRUE(alertOf(*model).isEmpty());
    EXPECT_EQ(auth.displayName(), u"Tomas"_s);

    load(R"({"city": "Troy"})");
    EXPECT_EQ(model->city.value(), u"Troy"_s);
}

TEST_F(SettingsTest, LateAnswersForSomebodyWhoHasLeftChangeNothing)
{
    launch(model->loadProfile());
    replaceUser(account(u"Tomas"_s));
    answer(0, "{}", 401);
    EXPECT_TRUE(auth.isSignedIn());
    typePasswords({}, u"tomas's"_s);
    replaceUser(account(u"Priya"_s));
    launch(model->loadProfile());
    replaceUser(account(u"Tomas"_s));
    answer(1, whole);
    EXPECT_EQ(profile(), QList<QString>(5));
}

TEST_F(SettingsTest, APasswordChangeForSomebodyWhoHasLeftLeavesTheNextOnesFields)
{
    typePasswords(u"old"_s, u"new"_s);
    launch(model->changePassword());
    replaceUser(account(u"Tomas"_s));
    typePasswords(u"a"_s, u"b"_s);
    answer(0, "{}");
    EXPECT_EQ(passwords(), (QList<QString>{u"a"_s, u"b"_s}));
    EXPECT_TRUE(alertOf(*model).isEmpty());
}

TEST_F(SettingsTest, SigningOutAsksFirstWhereSomethingIsNotSaved)
{
    leaving.watch(model.get(), [this] { return model->unfinished(); });
    load(whole);
    model->city = u"Troy"_s;
    model->signOut();
    EXPECT_TRUE(leaving.question.value());
    EXPECT_TRUE(auth.isSignedIn());
    leaving.answer(false);
    EXPECT_TRUE(auth.isSignedIn());
    EXPECT_EQ(model->city.value(), u"Troy"_s);

    model->city = u"Albany"_s;
    model->signOut();
    EXPECT_FALSE(leaving.question.value());
    EXPECT_FALSE(auth.isSignedIn());
}

TEST_F(SettingsTest, LeadsElsewhere)
{
    model->contactSupport();
    model->visitWebsite();
    EXPECT_EQ(systemOpen.mails, QList<QString>{u"support@notary.example"_s});
    EXPECT_EQ(systemOpen.websites, QList<QUrl>{QUrl(u"https://notary.example"_s)});
    router.open(AppSection::settings, 3);
    model->signIn();
    EXPECT_EQ(router.selectedSection.value(), AppSection::book);
    EXPECT_EQ(router.selectedSessionId.value(), std::nullopt);
}

TEST_F(SettingsTest, OutlivesItsScreenAndTheWebSession)
{
    const std::weak_ptr<SettingsContentModel> gone = model;
    load(whole);
    launch(model->loadProfile());
    launch(model->saveProfile());
    EXPECT_EQ(line(1), u"GET /profile"_s);
    EXPECT_EQ(line(2), u"POST /profile"_s);
    model.reset();
    EXPECT_FALSE(gone.expired());
    webSession->cancelAll();
    settle();
    EXPECT_TRUE(gone.expired());
}

struct Flip
{
    const char* name;
    bool before; ///< what the desktop says
    bool wanted;
    bool refuses;
    int registrations;
    int unregistrations;
};

void PrintTo(const Flip& flip, std::ostream* out)
{
    *out << flip.name;
}

class SettingsStartup : public SettingsTest, public testing::WithParamInterface<Flip>
{ };

TEST_P(SettingsStartup, SaysWhatTheDesktopDoes)
{
    loginItem.enabled = GetParam().before;
    loginItem.refuses = GetParam().refuses;
    model->setLaunchAtLogin(GetParam().wanted);
    EXPECT_EQ(loginItem.registrations, GetParam().registrations);
    EXPECT_EQ(loginItem.unregistrations, GetParam().unregistrations);
    EXPECT_EQ(model->launchAtLogin().value(), loginItem.enabled);
    EXPECT_EQ(defaults.string(u"launchAtLogin"_s).value_or(u"false"_s) == u"true"_s, loginItem.enabled);
    const bool isRefused = GetParam().refuses && GetParam().before != GetParam().wanted;
    const QList<QString> alert{u"Startup Setting Not Changed"_s,
        u"macOS did not allow the login item change. Open System Settings > General > Login Items and enable "
        u"Quorvel manually."_s};
    EXPECT_EQ(alertOf(*model), isRefused ? alert : QList<QString>());
}

INSTANTIATE_TEST_SUITE_P(Flips, SettingsStartup,
    testing::Values(Flip{"On", false, true, false, 1, 0}, Flip{"Off", true, false, false, 0, 1},
        Flip{"OnAlready", true, true, true, 0, 0}, Flip{"OffAlready", false, false, true, 0, 0},
        Flip{"OnRefused", false, true, true, 1, 0}, Flip{"OffRefused", true, false, true, 0, 1}),
    ByName());

TEST_F(SettingsTest, EachAppearanceAsksTheDesktopAndTheBridge)
{
    loginItem.enabled = true;
    model->appeared();
    EXPECT_TRUE(model->launchAtLogin().value());
    EXPECT_EQ(line(0), u"GET /profile"_s);
    answer(0, whole);
    loginItem.enabled = false;
    model->appeared();
    EXPECT_FALSE(model->launchAtLogin().value());
    EXPECT_EQ(requestCount(), 2);
    answer(1, whole);
    EXPECT_EQ(loginItem.registrations + loginItem.unregistrations, 0);
}

TEST_F(SettingsTest, OffersTheAppearancesInTheirOrder)
{
    EXPECT_EQ(SettingsContentModel::appearanceChoices(),
        (QList<AppAppearanceMode>{
            AppAppearanceMode::light, AppAppearanceMode::dark, AppAppearanceMode::system}));
    model->appearance.choose(AppAppearanceMode::dark);
    EXPECT_EQ(defaults.string(u"appearanceMode"_s), u"dark"_s);
    const AppearanceModel afterRestart(defaults, desktop);
    EXPECT_EQ(afterRestart.mode.value(), AppAppearanceMode::dark);
}

TEST_F(SettingsTest, TheRoleIsTheActiveOne)
{
    EXPECT_EQ(model->role(), AppRole::client);
    replaceUser(account(u"Maya"_s, {AppRole::notary}), AppRole::notary);
    EXPECT_EQ(model->role(), AppRole::notary);
}

} // namespace
