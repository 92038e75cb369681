#include "SettingsTest.h"

#include "Cases.h"

using namespace Qt::StringLiterals;

namespace {

TEST_F(SettingsTest, AsksForTheProfileWithoutARole)
{
    launch(model->loadProfile());
    EXPECT_EQ(line(0), u"GET /profile"_s);
    EXPECT_EQ(header(0, "Authorization"), QByteArray("Bearer priyaraman-token"));
    answer(0, whole);
    EXPECT_EQ(profile(), wholeProfile);
    EXPECT_FALSE(model->hasEdits());
    EXPECT_EQ(requestCount(), 1);
}

struct Profile
{
    const char* name;
    QByteArray answer;
    QList<QString> fields;
};

void PrintTo(const Profile& profile, std::ostream* out)
{
    *out << profile.name;
}

class LoadedProfile : public SettingsTest, public testing::WithParamInterface<Profile>
{ };

TEST_P(LoadedProfile, FillsTheFields)
{
    load(GetParam().answer);
    EXPECT_EQ(profile(), GetParam().fields);
    EXPECT_TRUE(alertOf(*model).isEmpty());
}

const QString storedName = u"Priya Raman"_s;
const QString storedEmail = u"priyaraman@example.com"_s;
const QString storedState = u"Ohio"_s;

INSTANTIATE_TEST_SUITE_P(Answers, LoadedProfile,
    testing::Values(Profile{"Flat", whole, wholeProfile},
        Profile{"WithAUser", R"({"user": {"full_name": "Inner", "email": "i@example.com", "phone": 5550100,
            "city": "Troy", "state": "NY"}, "full_name": "Outer", "city": "Outer"})",
            {u"Inner"_s, u"i@example.com"_s, u"5550100"_s, u"Troy"_s, u"NY"_s}},
        Profile{"UserIsNoObject", R"({"user": "Priya", "full_name": "Outer"})",
            {u"Outer"_s, storedEmail, {}, {}, storedState}},
        Profile{"UserIsNull", R"({"user": null, "city": "Troy"})",
            {storedName, storedEmail, {}, u"Troy"_s, storedState}},
        Profile{
            "EmptyUser", R"({"user": {}, "city": "Outer"})", {storedName, storedEmail, {}, {}, storedState}},
        Profile{"FullNameBeforeName", R"({"full_name": "Full", "name": "Short"})",
            {u"Full"_s, storedEmail, {}, {}, storedState}},
        Profile{"NameForWantOfAFullName", R"({"full_name": "null", "name": "Short"})",
            {u"Short"_s, storedEmail, {}, {}, storedState}},
        Profile{"NullWords",
            R"({"full_name": null, "name": " ", "email": "nil", "phone": "null", "city": null,
            "state": "<null>"})",
            {storedName, storedEmail, {}, {}, storedState}},
        Profile{"AsReceived", R"({"full_name": " P ", "email": " p@e ", "phone": " 1 ", "city": " C ",
            "state": " S "})",
            {u" P "_s, u" p@e "_s, u" 1 "_s, u" C "_s, u" S "_s}},
        Profile{"Nothing", "{}", {storedName, storedEmail, {}, {}, storedState}}),
    ByName());

TEST_F(SettingsTest, ANamelessUserWithoutAStateHasEmptyFields)
{
    AuthUser user = account(u"Priya"_s);
    user.displayName = std::nullopt;
    replaceUser(user);
    load("{}");
    EXPECT_EQ(profile(), (QList<QString>{{}, user.email, {}, {}, {}}));
}

TEST_F(SettingsTest, ALaterLoadBringsWhatIsNewAndLeavesWhatIsBeingEdited)
{
    load(whole);
    model->city = u"Troy"_s;
    EXPECT_TRUE(model->hasEdits());
    load(R"({"full_name": "Priya R.", "email": "p@example.com", "phone": "5550100", "city": "Utica",
        "state": "New York"})");
    EXPECT_EQ(profile(),
        (QList<QString>{u"Priya R."_s, u"p@example.com"_s, u"5550100"_s, u"Troy"_s, u"New York"_s}));
    EXPECT_TRUE(model->hasEdits());
}

TEST_F(SettingsTest, WhatWasTypedBeforeTheFirstAnswerStays)
{
    launch(model->loadProfile());
    model->city = u"Troy"_s;
    answer(0, whole);
    EXPECT_EQ(model->city.value(), u"Troy"_s);
    EXPECT_EQ(model->name.value(), u"Priya Raman"_s);
}

TEST_F(SettingsTest, TheNewestLoadWins)
{
    launch(model->loadProfile());
    launch(model->loadProfile());
    answer(1, R"({"city": "New"})");
    answer(0, R"({"city": "Old"})");
    EXPECT_EQ(model->city.value(), u"New"_s);
}

TEST_F(SettingsTest, SavesTheFieldsAsTypedAndRefreshesTheUser)
{
    load(whole);
    typeProfile();
    launch(model->saveProfile());
    EXPECT_EQ(line(1), u"POST /profile"_s);
    EXPECT_EQ(header(1, "Authorization"), QByteArray("Bearer priyaraman-token"));
    EXPECT_EQ(body(1), object(R"({"full_name": " Priya  Raman ", "name": " Priya  Raman ",
        "email": " priya@example.com ", "phone": "(555) 010-0142", "city": "", "state": " NY"})"));
    EXPECT_EQ(model->work.value(), EditPaneModel::Work::profile);
    answer(1, R"({"data": {}})");
    EXPECT_TRUE(alertOf(*model).isEmpty()) << "first the user is refreshed";
    ASSERT_EQ(requestCount(), 3);
    EXPECT_EQ(line(2), u"GET /profile"_s);
    answer(2, R"({"user": {"full_name": "Priya R.", "email": "priya@example.com"}})");
    EXPECT_EQ(alertOf(*model), (QList<QString>{u"Saved"_s, u"Your profile was updated."_s}));
    EXPECT_EQ(auth.displayName(), u"Priya R."_s);
    EXPECT_EQ(model->name.value(), u" Priya  Raman "_s);
    EXPECT_FALSE(model->hasEdits());
    EXPECT_EQ(model->work.value(), EditPaneModel::Work::none);
    EXPECT_EQ(requestCount(), 3);
}

TEST_F(SettingsTest, ALoadFromBeforeASaveDoesNotUndoIt)
{
    launch(model->loadProfile());
    typeProfile();
    const QList<QString> typed = profile();
    launch(model->saveProfile());
    answer(1, "{}");
    answer(2, "{}");
    answer(3, "{}");
    EXPECT_EQ(alertOf(*model).value(0), u"Saved"_s);
    answer(0, whole);
    EXPECT_EQ(profile(), typed);
}

TEST_F(SettingsTest, WhatNoLoadHasBroughtIsLoadedBeforeItIsSavedOver)
{
    launch(model->loadProfile());
    fail(0);
    model->city = u"Troy"_s;
    launch(model->saveProfile());
    EXPECT_EQ(line(1), u"GET /profile"_s);
    EXPECT_EQ(model->work.value(), EditPaneModel::Work::profile);
    answer(1, whole);
    QList<QString> expected = wholeProfile;
    expected[3] = u"Troy"_s;
    EXPECT_EQ(profile(), expected) << "what was typed stays";
    ASSERT_EQ(requestCount(), 3);
    EXPECT_EQ(line(2), u"POST /profile"_s);
    EXPECT_EQ(body(2).value(u"full_name"_s).toString(), expected.at(0));
    EXPECT_EQ(body(2).value(u"email"_s).toString(), expected.at(1));
    EXPECT_EQ(body(2).value(u"phone"_s).toString(), expected.at(2));
    EXPECT_EQ(body(2).value(u"city"_s).toString(), u"Troy"_s);
    answer(2, "{}");
    answer(3, "{}");
    EXPECT_EQ(alertOf(*model), (QList<QString>{u"Saved"_s, u"Your profile was updated."_s}));
}

TEST_F(SettingsTest, NothingIsSavedOverAProfileThatCannotBeHad)
{
    model->city = u"Troy"_s;
    launch(model->saveProfile());
    EXPECT_EQ(line(0), u"GET /profile"_s);
    answer(0, "{}", 500);
    EXPECT_EQ(requestCount(), 1);
    EXPECT_EQ(alertOf(*model).value(0), u"Cannot Save Profile"_s);
    EXPECT_EQ(model->city.value(), u"Troy"_s);
    EXPECT_TRUE(model->hasEdits());
}

} // namespace
