#include "Account/LoginView.h"
#include "ScreensViewTest.h"
#include "Shell/ContentPane.h"
#include "Shell/MainWindow.h"
#include "support/SteadyAppearance.h"

#include <QLineEdit>
#include <QPlainTextEdit>

using namespace Qt::StringLiterals;

namespace {

/// Somebody works in the window, their session ends under their hands, and somebody signs in where they are
/// asked to.
class MainWindowReturn : public ScreensViewTest
{
protected:
    MainWindowReturn()
    {
        show(window);
        router.open(AppSection::sessions);
        enter(u"ada"_s);
    }

    bool asksForASignIn()
    {
        return qobject_cast<LoginView*>(window.findChild<ContentPane*>()->screen()) != nullptr;
    }

    void enter(const QString& name)
    {
        settle();
        auto* email = named<QLineEdit>(window, u"Email"_s);
        ASSERT_NE(email, nullptr);
        email->setFocus();
        QTest::keyClicks(email, name + u"@example.com"_s);
        auto* password = named<QLineEdit>(window, u"Password"_s);
        password->setFocus();
        QTest::keyClicks(password, u"a password"_s);
        QTest::keyClick(password, Qt::Key_Return);
        settle();
        answer(requestCount() - 1,
            R"({"idToken": "id", "refreshToken": "refresh", "is_notary": true, "localId": ")" + name.toUtf8()
                + R"("})");
        EXPECT_FALSE(asksForASignIn());
    }

    /// Two sessions, of which the second is open.
    void answerSessions()
    {
        while (!webSession->pending().isEmpty()) {
            const qsizetype number = webSession->pending().constFirst();
            const QString path = request(number).url.path();
            if (path.endsWith(u"/remote-notary/sessions"_s))
                answer(number, R"([{"id": 1, "client_name": "One"}, {"id": 2, "client_name": "Two"}])");
            else if (path.endsWith(u"/sessions/1"_s) || path.endsWith(u"/sessions/2"_s))
                answer(number, "{\"id\": " + path.right(1).toLatin1() + "}");
            else
                answer(number, "[]");
        }
    }

    /// A request is refused because the token is good no more.
    void endSession()
    {
        QTest::keyClick(&window, Qt::Key_F5);
        settle();
        const QList<qsizetype> pending = webSession->pending();
        for (const qsizetype number : pending)
            answer(number, "{}", 401);
        EXPECT_TRUE(asksForASignIn());
    }

    QPlainTextEdit* editor() { return named<QPlainTextEdit>(window, u"New Message"_s); }
    QLineEdit* note() { return named<QLineEdit>(window, u"Confirmed Date"_s); }

    SteadyAppearance desktop;
    AppearanceModel appearance{defaults, desktop};
    MainWindowModel model{context};
    MainWindow window{model, appearance};
};

TEST_F(MainWindowReturn, WhatWasWrittenIsThereForTheSamePersonAlone)
{
    answerSessions();
    ASSERT_NE(editor(), nullptr);
    editor()->setFocus();
    QTest::keyClicks(editor(), u"Half a sentence"_s);
    ASSERT_NE(note(), nullptr);
    note()->setFocus();
    QTest::keyClicks(note(), u"2031"_s);

    endSession();
    enter(u"ada"_s);
    answerSessions();
    ASSERT_NE(editor(), nullptr);
    EXPECT_EQ(editor()->toPlainText(), u"Half a sentence"_s);
    EXPECT_EQ(note()->text(), u"2031"_s);

    endSession();
    enter(u"bob"_s);
    answerSessions();
    ASSERT_NE(editor(), nullptr);
    EXPECT_EQ(editor()->toPlainText(), QString());
    EXPECT_EQ(note()->text(), QString());
}

TEST_F(MainWindowReturn, WhatWasWrittenCanStillBeSent)
{
    answerSessions();
    editor()->setFocus();
    QTest::keyClicks(editor(), u"Half a sentence"_s);
    endSession();
    enter(u"ada"_s);
    answerSessions();
    editor()->setFocus();
    QTest::keyClick(editor(), Qt::Key_Return, Qt::ControlModifier);
    settle();
    EXPECT_EQ(line(requestCount() - 1), u"POST /remote-notary/sessions/1/messages"_s);
    EXPECT_EQ(body(requestCount() - 1).value(u"message"_s).toString(), u"Half a sentence"_s);
    answer(requestCount() - 1, "{}");
    EXPECT_EQ(line(requestCount() - 1), u"GET /remote-notary/sessions/1/messages"_s)
        << "as in a screen that never went";
    answerSessions();
    EXPECT_EQ(editor()->toPlainText(), QString());
}

} // namespace
