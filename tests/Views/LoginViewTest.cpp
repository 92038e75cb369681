#include "Account/LoginView.h"

#include "Components/AlertDialog.h"
#include "Components/PrimaryButton.h"
#include "FaultMark.h"
#include "Screens/Cases.h"
#include "ScreensViewTest.h"

#include <QAbstractButton>
#include <QLineEdit>

using namespace Qt::StringLiterals;

class LoginViewTest : public ScreensViewTest
{
protected:
    LoginViewTest()
    {
        view.resize(960, 728);
        show(view);
    }

    QLineEdit* field(const QString& name) { return named<QLineEdit>(view, name); }
    PrimaryButton* submit() { return view.findChild<PrimaryButton*>(); }
    void dismissAlert()
    {
        QTest::keyClick(view.findChild<AlertDialog*>()->okButton(), Qt::Key_Escape);
        settle();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    std::shared_ptr<LoginModel> model
        = std::make_shared<LoginModel>(context, u"Sessions"_s, u"doc.text.magnifyingglass"_s);
    LoginView view{model};
};

TEST_F(LoginViewTest, SignsInByKeyboardAlone)
{
    field(u"Email"_s)->setFocus();
    QTest::keyClicks(QApplication::focusWidget(), u"priya@example.com"_s);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QTest::keyClicks(QApplication::focusWidget(), u"secret"_s);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    settle();

    ASSERT_EQ(requestCount(), 1);
    EXPECT_EQ(line(0), u"POST /auth/password-login"_s);
    EXPECT_EQ(body(0).value(u"email"_s).toString(), u"priya@example.com"_s);
    EXPECT_EQ(body(0).value(u"password"_s).toString(), u"secret"_s);
    answer(0, R"({"idToken":"id","refreshToken":"refresh"})");
    EXPECT_TRUE(auth.isSignedIn());
}

TEST_F(LoginViewTest, ABusyButtonDoesNotReact)
{
    model->email = u"priya@example.com"_s;
    model->password = u"secret"_s;
    click(submit());
    click(submit());
    QTest::keyClick(field(u"Password"_s), Qt::Key_Return);
    settle();
    EXPECT_TRUE(submit()->isLoading());
    ASSERT_EQ(requestCount(), 1);
    answer(0, R"({"error":"INVALID_LOGIN_CREDENTIALS"})", 400);
    EXPECT_FALSE(submit()->isLoading());
}

TEST_F(LoginViewTest, AFailureIsOneAlertAndKeepsWhatWasTyped)
{
    model->email = u"priya@example.com"_s;
    model->password = u"wrong"_s;
    click(submit());
    answer(0, R"({"error":"INVALID_LOGIN_CREDENTIALS"})", 400);

    auto* alert = view.findChild<AlertDialog*>();
    ASSERT_NE(alert, nullptr);
    EXPECT_EQ(alert->title(), u"Sign In Failed"_s);
    EXPECT_EQ(alert->message(), u"Incorrect email or password. Please try again."_s);
    QTest::keyClick(alert->okButton(), Qt::Key_Escape);
    settle();
    EXPECT_FALSE(model->alert.value());
    EXPECT_EQ(field(u"Email"_s)->text(), u"priya@example.com"_s);
    EXPECT_EQ(field(u"Password"_s)->text(), u"wrong"_s);
}

TEST_F(LoginViewTest, TheModeShowsItsFieldsAndKeepsAllTexts)
{
    EXPECT_EQ(field(u"Full Name"_s), nullptr);
    model->email = u"priya@example.com"_s;
    click(named<QAbstractButton>(view, u"Create Account"_s));
    EXPECT_TRUE(model->isRegistering.value());
    for (const QString& name : {u"Full Name"_s, u"Phone"_s, u"City"_s, u"State"_s, u"Email"_s, u"Password"_s})
        EXPECT_NE(field(name), nullptr) << name.toStdString();
    EXPECT_EQ(submit()->title(), u"Create Account"_s);

    QTest::keyClicks(field(u"Full Name"_s), u"Priya Raman"_s);
    click(named<QAbstractButton>(view, u"Sign In"_s));
    EXPECT_FALSE(model->isRegistering.value());
    EXPECT_EQ(field(u"Email"_s)->text(), u"priya@example.com"_s);
    EXPECT_EQ(model->name.value(), u"Priya Raman"_s);
}

TEST_F(LoginViewTest, ThePasswordIsConcealed)
{
    const auto* password = QAccessible::queryAccessibleInterface(field(u"Password"_s));
    EXPECT_EQ(password->role(), QAccessible::EditableText);
    EXPECT_TRUE(password->state().passwordEdit);
}

TEST_F(LoginViewTest, SaysWhatItIsForInEitherMode)
{
    const QStringList always{u"Sessions"_s, u"Quorvel"_s, u"Remote notary desktop workspace"_s,
        u"Book remote notarizations, track sessions, message your notary team, and manage your workspace "
        u"from a "
        "polished Mac experience."_s,
        u"Guided booking"_s, u"Rush or No-Rush sessions with signer details and schedule controls."_s,
        u"Session workspace"_s, u"Review status, signers, notes, records, and messages in one place."_s,
        u"Menu bar access"_s, u"Book, open sessions, and switch workspaces from the top menu."_s,
        u"Secure session handling"_s, u"You will be returned to sign in when your session ends."_s,
        u"Your account determines which workspace appears, including client, business, notary, or admin access."_s,
        u"Email"_s, u"Password"_s};
    const QStringList signingIn{u"Sign In"_s, u"Sign in to continue to your desktop workspace."_s};
    const QStringList registering{u"Create Account"_s, u"Create your Quorvel account."_s, u"Full Name"_s,
        u"Phone"_s, u"City"_s, u"State"_s};
    for (const bool mode : {false, true}) {
        model->isRegistering = mode;
        settle();
        const QStringList shown = texts(view);
        EXPECT_THAT(shown, testing::IsSupersetOf(always));
        EXPECT_THAT(shown, testing::IsSupersetOf(mode ? registering : signingIn));
        for (const QString& absent : mode ? signingIn : registering)
            EXPECT_FALSE(shown.contains(absent)) << absent.toStdString();
    }
    EXPECT_EQ(field(u"Full Name"_s)->placeholderText(), u"Jordan Ellis"_s);
    EXPECT_EQ(field(u"Phone"_s)->placeholderText(), u"(555) 010-0199"_s);
    EXPECT_EQ(field(u"City"_s)->placeholderText(), u"Springfield"_s);
    EXPECT_EQ(field(u"Password"_s)->placeholderText(), u"Password"_s);
}

TEST_F(LoginViewTest, OpensWithTheCaretWhereFillingInBegins)
{
    EXPECT_TRUE(field(u"Email"_s)->hasFocus());
    click(named<QAbstractButton>(view, u"Create Account"_s));
    EXPECT_TRUE(field(u"Full Name"_s)->hasFocus());
    click(named<QAbstractButton>(view, u"Sign In"_s));
    EXPECT_TRUE(field(u"Email"_s)->hasFocus());
}

TEST_F(LoginViewTest, TheArrowKeysChooseTheModeAndStayThere)
{
    auto* mode = named<QAbstractButton>(view, u"Sign In"_s);
    mode->setFocus(Qt::TabFocusReason);
    QTest::keyClick(mode, Qt::Key_Right);
    settle();
    EXPECT_TRUE(model->isRegistering.value());
    EXPECT_TRUE(named<QAbstractButton>(view, u"Create Account"_s)->hasFocus());
}

TEST_F(LoginViewTest, ARefusedPasswordIsReplacedByWhatIsTypedNext)
{
    model->email = u"priya@example.com"_s;
    model->password = u"wrong"_s;
    click(submit());
    answer(0, R"({"error":"INVALID_LOGIN_CREDENTIALS"})", 400);
    dismissAlert();
    EXPECT_TRUE(field(u"Password"_s)->hasFocus());
    EXPECT_FALSE(FaultMark::isOn(field(u"Password"_s))) << "it may be the address that is wrong";
    QTest::keyClicks(QApplication::focusWidget(), u"right"_s);
    EXPECT_EQ(model->password.value(), u"right"_s);
}

namespace {

struct LoginFault
{
    std::string name;
    bool isRegistering;
    QString person;
    QString email;
    QString password;
    QString field; ///< to which the fault leads
    QString sentence;
};

class LoginViewFaults : public LoginViewTest, public testing::WithParamInterface<LoginFault>
{ };

} // namespace

TEST_P(LoginViewFaults, LeadToTheirField)
{
    const LoginFault& fault = GetParam();
    model->isRegistering = fault.isRegistering;
    model->name = fault.person;
    model->email = fault.email;
    model->password = fault.password;
    click(submit());
    dismissAlert();
    QLineEdit* led = field(fault.field);
    ASSERT_NE(led, nullptr);
    EXPECT_TRUE(led->hasFocus());
    EXPECT_EQ(led->selectionLength(), led->text().size());
    EXPECT_TRUE(FaultMark::isOn(led));
    EXPECT_EQ(led->accessibleDescription(), fault.sentence);
    QTest::keyClicks(led, u"x"_s);
    EXPECT_FALSE(FaultMark::isOn(led));
    EXPECT_EQ(requestCount(), 0);
}

INSTANTIATE_TEST_SUITE_P(Fields, LoginViewFaults,
    testing::Values(LoginFault{"Email", false, {}, u"priya"_s, u"secret"_s, u"Email"_s,
                        u"Enter a valid email address."_s},
        LoginFault{"Password", false, {}, u"p@example.com"_s, {}, u"Password"_s, u"Enter your password."_s},
        LoginFault{"NewName", true, u" "_s, u"p@example.com"_s, u"secret"_s, u"Full Name"_s,
            u"Enter your full name."_s},
        LoginFault{"NewEmail", true, u"Priya"_s, u"p@"_s, u"secret"_s, u"Email"_s,
            u"Enter a valid email address."_s},
        LoginFault{"NewPassword", true, u"Priya"_s, u"p@example.com"_s, u"short"_s, u"Password"_s,
            u"Password must be at least 6 characters."_s}),
    ByName());
