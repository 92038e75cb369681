#include "Account/SettingsContentModel.h"
#include "Launch.h"
#include "ScreenTest.h"
#include "Sessions/SessionsModel.h"
#include "Shell/MainWindowModel.h"
#include "support/SteadyAppearance.h"

using namespace Qt::StringLiterals;

namespace {

/// Somebody works in a section, their session ends by itself, and somebody signs in. What is asked for and
/// what is kept is the same for every screen, so a session and the settings stand for all.
class MainWindowReturn : public ScreenTest
{
protected:
    MainWindowReturn()
    {
        QObject::connect(&model, &MainWindowModel::screenChanged, &model, [this] { ++screenChanges; });
    }

    /// Signs in through the token service, as a person does.
    void enter(const QString& name)
    {
        launch(auth.signIn(name + u"@example.com"_s, u"p"_s, std::nullopt));
        answer(requestCount() - 1,
            R"({"idToken": "id", "refreshToken": "refresh", "is_notary": true, "localId": ")" + name.toUtf8()
                + R"("})");
    }
    /// Opens a section whose screen has something unfinished from now on.
    std::shared_ptr<SettingsContentModel> beginEdits()
    {
        model.select(AppSection::settings);
        auto settings = model.screen<SettingsContentModel>(appearance);
        leaving.watch(settings.get(), [screen = settings.get()] { return screen->unfinished(); });
        settings->city = u"Troy"_s;
        return settings;
    }

    MainWindowModel model{context};
    int screenChanges = 0;
    SteadyAppearance steady;
    AppearanceModel appearance{defaults, steady};
};

TEST_F(MainWindowReturn, TheSamePersonFindsTheHalfWrittenBooking)
{
    enter(u"ada"_s);
    model.booking()->details = u"half written"_s;
    auth.signOut();
    enter(u"ada"_s);
    EXPECT_EQ(model.booking()->details.value(), u"half written"_s);
}

TEST_F(MainWindowReturn, TheSamePersonFindsUnsavedEdits)
{
    enter(u"ada"_s);
    const std::shared_ptr<SettingsContentModel> edited = beginEdits();
    edited->newPassword = u"secret"_s;
    screenChanges = 0;
    auth.signOut();
    EXPECT_EQ(screenChanges, 1) << "nobody's settings take their place";
    EXPECT_NE(model.screen<SettingsContentModel>(appearance), edited);
    model.select(AppSection::book);
    enter(u"ada"_s);
    model.select(AppSection::settings);
    EXPECT_EQ(model.screen<SettingsContentModel>(appearance), edited);
    EXPECT_EQ(edited->city.value(), u"Troy"_s);
    EXPECT_EQ(edited->newPassword.value(), QString()) << "no password waits anywhere";
}

TEST_F(MainWindowReturn, WhatIsFoundOnceIsNotFoundAgain)
{
    enter(u"ada"_s);
    const std::shared_ptr<SettingsContentModel> edited = beginEdits();
    auth.signOut();
    enter(u"ada"_s);
    EXPECT_EQ(model.screen<SettingsContentModel>(appearance), edited);
    EXPECT_NE(model.screen<SettingsContentModel>(appearance), edited);
}

TEST_F(MainWindowReturn, AnotherPersonFindsNothing)
{
    enter(u"ada"_s);
    model.booking()->details = u"half written"_s;
    const std::weak_ptr<SettingsContentModel> edited = beginEdits();
    auth.signOut();
    enter(u"bob"_s);
    EXPECT_TRUE(edited.expired()) << "nothing of the other person's is kept in memory";
    EXPECT_EQ(model.booking()->details.value(), QString());
    auth.signOut();
    enter(u"ada"_s);
    EXPECT_EQ(model.booking()->details.value(), QString()) << "nor given back after somebody else was here";
}

TEST_F(MainWindowReturn, WhoeverLeavesFindsNothing)
{
    enter(u"ada"_s);
    model.booking()->details = u"half written"_s;
    const std::weak_ptr<SettingsContentModel> edited = beginEdits();
    auth.leave();
    EXPECT_TRUE(edited.expired());
    enter(u"ada"_s);
    EXPECT_EQ(model.booking()->details.value(), QString());
}

TEST_F(MainWindowReturn, AScreenWithNothingUnfinishedIsMadeAnew)
{
    enter(u"ada"_s);
    model.select(AppSection::sessions);
    const auto before = model.screen<SessionsModel>();
    auth.signOut();
    enter(u"ada"_s);
    EXPECT_NE(model.screen<SessionsModel>(), before);
}

TEST_F(MainWindowReturn, AnUnfinishedSessionIsFoundInTheRoleInWhichItWasLeft)
{
    enter(u"ada"_s);
    auth.switchRole(AppRole::client);
    model.select(AppSection::sessions);
    const auto sessions = model.screen<SessionsModel>();
    leaving.watch(sessions.get(), [screen = sessions.get()] { return screen->unfinished(); });
    launch(sessions->load());
    answer(requestCount() - 1, R"([{"id": 7}, {"id": 8}])");
    sessions->select(8);
    sessions->detail()->messages()->newMessage = u"half written"_s;
    auth.signOut();
    EXPECT_EQ(auth.role(), AppRole::client);
    enter(u"ada"_s);
    EXPECT_EQ(auth.role(), AppRole::client) << "a notary by default";
    ASSERT_EQ(model.screen<SessionsModel>(), sessions);
    EXPECT_EQ(sessions->selectedRow(), 8);
    EXPECT_EQ(sessions->detail()->messages()->newMessage.value(), u"half written"_s);
}

TEST_F(MainWindowReturn, LeavingWhileTheProfileIsBeingSavedLeadsAwayAtOnce)
{
    enter(u"ada"_s);
    const std::shared_ptr<SettingsContentModel> settings = beginEdits();
    launch(settings->saveProfile());
    auth.leave();
    router.open(AppSection::dashboard);
    EXPECT_FALSE(leaving.question.value());
    EXPECT_EQ(model.selectedSection(), AppSection::dashboard);
    answer(requestCount() - 1, "{}");
    EXPECT_EQ(model.selectedSection(), AppSection::dashboard);
    EXPECT_EQ(router.selectedSection.value(), AppSection::dashboard) << "and there it stays";
}

TEST_F(MainWindowReturn, AnOpenQuestionGoesWithItsPerson)
{
    enter(u"ada"_s);
    const std::shared_ptr<SettingsContentModel> edited = beginEdits();
    model.select(AppSection::dashboard);
    ASSERT_TRUE(leaving.question.value());
    auth.signOut();
    EXPECT_FALSE(leaving.question.value());
    EXPECT_EQ(model.selectedSection(), AppSection::dashboard) << "the window and the router agree";
}

} // namespace
