#include "Account/LoginModel.h"

#include "Cases.h"
#include "Launch.h"
#include "ScreenTest.h"

using namespace Qt::StringLiterals;

namespace {

class LoginModelTest : public ScreenTest
{
protected:
    void fillIn()
    {
        model->name = u"  Jordan Ellis "_s;
        model->email = u" jordan@example.com "_s;
        model->password = u" secret "_s;
        model->phone = u" 555 0100 "_s;
        model->city = u" Springfield "_s;
        model->state = u" NY "_s;
    }

    QList<QString> typed() const
    {
        return {model->name.value(), model->email.value(), model->password.value(), model->phone.value(),
            model->city.value(), model->state.value()};
    }

    std::shared_ptr<LoginModel> model
        = std::make_shared<LoginModel>(context, u"Sessions"_s, u"doc.text.magnifyingglass"_s);
};

constexpr auto signedIn
    = R"({"idToken": "id", "refreshToken": "refresh", "user": {"id": 3, "email": "j@e.org"}})";

TEST_F(LoginModelTest, StartsEmptyInSignInMode)
{
    EXPECT_EQ(model->title, u"Sessions"_s);
    EXPECT_EQ(model->systemImage, u"doc.text.magnifyingglass"_s);
    EXPECT_FALSE(model->isRegistering.value());
    EXPECT_EQ(typed(), QList<QString>(6));
    EXPECT_TRUE(alertOf(*model).isEmpty());
    EXPECT_FALSE(model->isBusy().value());
}

struct Fault
{
    const char* name;
    bool registering;
    QString fullName;
    QString email;
    QString password;
    QString message; ///< empty: nothing is wrong and the request goes out
};

void PrintTo(const Fault& fault, std::ostream* out)
{
    *out << fault.name;
}

class LoginFault : public LoginModelTest, public testing::WithParamInterface<Fault>
{ };

TEST_P(LoginFault, IsShownAndNothingIsSent)
{
    model->isRegistering = GetParam().registering;
    model->name = GetParam().fullName;
    model->email = GetParam().email;
    model->password = GetParam().password;
    launch(model->submit());
    settle();
    if (GetParam().message.isEmpty()) {
        EXPECT_TRUE(alertOf(*model).isEmpty());
        ASSERT_EQ(requestCount(), 1);
        EXPECT_EQ(request(0).method, "POST");
        return;
    }
    const QString title = GetParam().registering ? u"Registration Failed"_s : u"Sign In Failed"_s;
    EXPECT_EQ(alertOf(*model), (QList<QString>{title, GetParam().message}));
    EXPECT_EQ(requestCount(), 0);
    EXPECT_FALSE(model->isBusy().value());
}

const QString noName = u"Enter your full name."_s;
const QString badEmail = u"Enter a valid email address."_s;
const QString noPassword = u"Enter your password."_s;
const QString shortPassword = u"Password must be at least 6 characters."_s;

INSTANTIATE_TEST_SUITE_P(SignIn, LoginFault,
    testing::Values(Fault{"NothingTyped", false, {}, {}, {}, badEmail},
        Fault{"NoFullStopInDomain", false, {}, u"a@example"_s, u"secret"_s, badEmail},
        Fault{"EmailBeforePassword", false, {}, u"@b.co"_s, {}, badEmail},
        Fault{"TooShortEmail", false, {}, u"a@b."_s, u"secret"_s, badEmail},
        Fault{"ThreePieces", false, {}, u"a@b@c.de"_s, u"secret"_s, badEmail},
        Fault{"DoubledAtSign", false, {}, u"a@@b.c"_s, u"x"_s, {}},
        Fault{"ShortestEmail", false, {}, u"a@b.c"_s, u"x"_s, {}},
        Fault{"NoPassword", false, {}, u"a@b.co"_s, {}, noPassword},
        Fault{"BlankPasswordIsAPassword", false, {}, u"a@b.co"_s, u" "_s, {}},
        Fault{"NameIsNotAsked", false, {}, u"a@b.co"_s, u"x"_s, {}}),
    ByName());

INSTANTIATE_TEST_SUITE_P(Registration, LoginFault,
    testing::Values(Fault{"NothingTyped", true, {}, {}, {}, noName},
        Fault{"BlankNameBeforeEmail", true, u"   "_s, u"nonsense"_s, {}, noName},
        Fault{"EmailBeforePassword", true, u"J"_s, u"nonsense"_s, u"x"_s, badEmail},
        Fault{"EmptyPasswordIsTooShort", true, u"J"_s, u"a@b.co"_s, {}, shortPassword},
        Fault{"FiveCharacters", true, u"J"_s, u"a@b.co"_s, u"12345"_s, shortPassword},
        Fault{"SixCharacters", true, u"J"_s, u"a@b.co"_s, u"123456"_s, {}},
        Fault{"BlanksCount", true, u"J"_s, u"a@b.co"_s, u"      "_s, {}},
        Fault{"ThreeEmojiAreThree", true, u"J"_s, u"a@b.co"_s, u"😀😀😀"_s, shortPassword},
        Fault{"AccentsAreNoCharacters", true, u"J"_s, u"a@b.co"_s, u"e\u0301e\u0301e\u0301"_s, shortPassword},
        Fault{"SixEmoji", true, u"J"_s, u"a@b.co"_s, u"😀😀😀😀😀😀"_s, {}}),
    ByName());

TEST_F(LoginModelTest, SignsInWithWhatWasTyped)
{
    fillIn();
    launch(model->submit());
    ASSERT_EQ(requestCount(), 1);
    EXPECT_EQ(line(0), u"POST /auth/password-login"_s);
    EXPECT_EQ(header(0, "Authorization"), QByteArray());
    EXPECT_EQ(body(0), object(R"({"email": "jordan@example.com", "password": " secret ",
        "role_hint": "auto", "platform": "macos_desktop"})"));
    EXPECT_TRUE(model->isBusy().value());

    answer(0, signedIn);
    EXPECT_TRUE(auth.isSignedIn());
    EXPECT_FALSE(model->isBusy().value());
    EXPECT_TRUE(alertOf(*model).isEmpty());
}

TEST_F(LoginModelTest, RegistersWithTrimmedTextsAndThePasswordAsTyped)
{
    fillIn();
    model->isRegistering = true;
    launch(model->submit());
    ASSERT_EQ(requestCount(), 1);
    EXPECT_EQ(line(0), u"POST /auth/client-register"_s);
    EXPECT_EQ(header(0, "Authorization"), QByteArray());
    EXPECT_EQ(header(0, "Content-Type"), QByteArray("application/json"));
    EXPECT_EQ(header(0, "Accept"), QByteArray("application/json"));
    EXPECT_EQ(body(0), object(R"({"name": "Jordan Ellis", "full_name": "Jordan Ellis",
        "email": "jordan@example.com", "password": " secret ", "phone": "555 0100", "city": "Springfield",
        "state": "NY", "auth_provider": "password", "platform": "macos_desktop"})"));
    EXPECT_TRUE(model->isBusy().value());

    answer(0, signedIn);
    ASSERT_TRUE(auth.isSignedIn());
    EXPECT_EQ(auth.user.value()->idToken, u"id"_s);
    EXPECT_EQ(auth.user.value()->sqlUserId, 3);
    EXPECT_EQ(requestCount(), 1) << "the answer signs in; no second call";
    EXPECT_FALSE(model->isBusy().value());
}

TEST_F(LoginModelTest, RegistrationSendsUntouchedFieldsEmpty)
{
    model->isRegistering = true;
    model->name = u"J"_s;
    model->email = u"a@b.co"_s;
    model->password = u"123456"_s;
    launch(model->submit());
    EXPECT_EQ(body(0), object(R"({"name": "J", "full_name": "J", "email": "a@b.co", "password": "123456",
        "phone": "", "city": "", "state": "", "auth_provider": "password", "platform": "macos_desktop"})"));
    answer(0, signedIn);
}

struct Refusal
{
    const char* name;
    bool registering;
    int status;
    QByteArray answer;
    QString message;
};

void PrintTo(const Refusal& refusal, std::ostream* out)
{
    *out << refusal.name;
}

class LoginRefusal : public LoginModelTest, public testing::WithParamInterface<Refusal>
{ };

TEST_P(LoginRefusal, IsShownAndTheFieldsStay)
{
    fillIn();
    model->isRegistering = GetParam().registering;
    const QList<QString> before = typed();
    launch(model->submit());
    answer(0, GetParam().answer, GetParam().status);
    const QString title = GetParam().registering ? u"Registration Failed"_s : u"Sign In Failed"_s;
    EXPECT_EQ(alertOf(*model), (QList<QString>{title, GetParam().message}));
    EXPECT_EQ(typed(), before);
    EXPECT_FALSE(model->isBusy().value());
    EXPECT_FALSE(auth.isSignedIn());
}

const QString incorrect = u"Incorrect email or password. Please try again."_s;
const QString incomplete = u"Sign-in could not be completed. Please try again or contact support."_s;

INSTANTIATE_TEST_SUITE_P(Answers, LoginRefusal,
    testing::Values(Refusal{"WrongPassword", false, 400, R"({"error": "INVALID_PASSWORD"})", incorrect},
        Refusal{"Unauthorized", false, 401, "{}", incorrect},
        Refusal{"NoRefreshToken", false, 200, R"({"idToken": "id"})", incomplete},
        Refusal{"Taken", true, 422, R"({"errors": {"email": "Already taken."}})", u"Already taken."_s},
        Refusal{"NoTokens", true, 200, R"({"ok": true})", incomplete},
        Refusal{
            "NoTokensButAMessage", true, 200, R"({"message": "Check your inbox."})", u"Check your inbox."_s},
        Refusal{"Html", true, 500, "<html>down</html>",
            u"We could not complete that request. Please try again or contact support."_s}),
    ByName());

TEST_F(LoginModelTest, ConnectionFailureIsShown)
{
    fillIn();
    launch(model->submit());
    fail(0, TransportError::Code::CannotFindHost);
    EXPECT_EQ(alertOf(*model),
        (QList<QString>{u"Sign In Failed"_s,
            u"Connection problem. Please check your internet connection and try again."_s}));
    EXPECT_FALSE(model->isBusy().value());
}

TEST_F(LoginModelTest, ASecondSubmitWhileBusySendsNothing)
{
    fillIn();
    launch(model->submit());
    launch(model->submit());
    model->isRegistering = true;
    model->password = QString();
    launch(model->submit());
    EXPECT_EQ(requestCount(), 1);
    EXPECT_TRUE(alertOf(*model).isEmpty());
    answer(0, "{}", 401);
    EXPECT_EQ(alertOf(*model).value(0), u"Sign In Failed"_s) << "named after the request that failed";
}

TEST_F(LoginModelTest, TheSameAlertTwiceIsANewAlert)
{
    launch(model->submit());
    const QUuid first = model->alert.value()->id;
    launch(model->submit());
    EXPECT_NE(model->alert.value()->id, first);
}

TEST_F(LoginModelTest, SwitchingTheModeKeepsWhatWasTyped)
{
    fillIn();
    const QList<QString> before = typed();
    model->isRegistering = true;
    EXPECT_EQ(typed(), before);
    model->isRegistering = false;
    EXPECT_EQ(typed(), before);
}

TEST_F(LoginModelTest, SignsInAlthoughTheScreenHasGone)
{
    fillIn();
    const std::weak_ptr<LoginModel> gone = model;
    launch(model->submit());
    model.reset();
    EXPECT_FALSE(gone.expired()) << "the operation keeps its model";
    answer(0, signedIn);
    EXPECT_TRUE(auth.isSignedIn());
    EXPECT_TRUE(gone.expired());
}

TEST_F(LoginModelTest, OutlivesTheEndOfTheWebSession)
{
    fillIn();
    launch(model->submit());
    EXPECT_EQ(request(0).method, "POST");
    webSession.reset();
    EXPECT_FALSE(auth.isSignedIn());
    EXPECT_FALSE(model->isBusy().value());
}

TEST_F(LoginModelTest, AFailureIsToldWhenItsScreenIsGone)
{
    for (const bool registering : {false, true}) {
        fillIn();
        model->isRegistering = registering;
        launch(model->submit());
        model->close();
        answer(requestCount() - 1, R"({"message": "EMAIL_NOT_FOUND"})", 400);
        ASSERT_TRUE(notice.value());
        EXPECT_EQ(notice.value()->title, registering ? u"Registration Failed"_s : u"Sign In Failed"_s);
        EXPECT_EQ(notice.value()->message, u"Incorrect email or password. Please try again."_s);
        EXPECT_TRUE(alertOf(*model).isEmpty());
        notice = std::nullopt;
    }
}

TEST_F(LoginModelTest, AFailureOnItsScreenIsItsOwn)
{
    fillIn();
    launch(model->submit());
    answer(0, "{}", 401);
    EXPECT_FALSE(notice.value());
    EXPECT_FALSE(alertOf(*model).isEmpty());
}

} // namespace
