#include "ComponentsTest.h"

#include "Components/AlertDialog.h"
#include "Components/Button.h"
#include "Components/QuestionDialog.h"
#include "Components/TextField.h"
#include "QuestionPresenter.h"

#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace {

class ComponentsQuestion : public ComponentsTest
{
protected:
    ComponentsQuestion()
    {
        show({field});
        field->lineEdit()->setFocus();
    }

    QuestionDialog* ask()
    {
        auto* dialog = QuestionDialog::ask(field, question);
        connectAnswers(dialog);
        return dialog;
    }

    void connectAnswers(QuestionDialog* dialog)
    {
        QObject::connect(dialog, &QDialog::accepted, &window, [this] { answers += u"yes"_s; });
        QObject::connect(dialog, &QDialog::rejected, &window, [this] { answers += u"no"_s; });
    }

    static void finishClosing() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    const Question question{
        u"Delete Session?"_s, u"It will be <b>gone</b>."_s, u"Delete Session"_s, u"Keep Session"_s};
    TextField* field = new TextField(u"Name"_s);
    QStringList answers;
};

} // namespace

TEST_F(ComponentsQuestion, SaysItsTextsAndGivesTheFocusToTheSafeAnswer)
{
    auto* dialog = ask();
    EXPECT_EQ(accessible(dialog)->role(), QAccessible::AlertMessage);
    EXPECT_EQ(accessibleName(dialog), u"Delete Session?"_s);
    EXPECT_EQ(accessible(dialog)->text(QAccessible::Description), u"It will be <b>gone</b>."_s);
    EXPECT_EQ(accessibleName(dialog->yesButton()), u"Delete Session"_s);
    EXPECT_EQ(accessibleName(dialog->noButton()), u"Keep Session"_s);
    EXPECT_TRUE(dialog->noButton()->hasFocus());
    EXPECT_EQ(dialog->geometry(), window.rect());
}

TEST_F(ComponentsQuestion, EachWayToAnswerAnswersOnceAndReturnsTheFocus)
{
    struct Way
    {
        void (*act)(QuestionDialog*);
        QString answer;
    };
    const std::initializer_list<Way> ways{
        {[](QuestionDialog* dialog) { QTest::keyClick(dialog->noButton(), Qt::Key_Return); }, u"no"_s},
        {[](QuestionDialog* dialog) { QTest::keyClick(dialog->noButton(), Qt::Key_Escape); }, u"no"_s},
        {[](QuestionDialog* dialog) { QTest::mouseClick(dialog->noButton(), Qt::LeftButton); }, u"no"_s},
        {[](QuestionDialog* dialog) { QTest::mouseClick(dialog->yesButton(), Qt::LeftButton); }, u"yes"_s},
        {[](QuestionDialog* dialog) {
             QTest::keyClick(dialog->noButton(), Qt::Key_Tab);
             QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
         },
            u"yes"_s},
    };
    for (const Way& way : ways) {
        answers.clear();
        field->lineEdit()->setFocus();
        const QPointer dialog = ask();
        way.act(dialog);
        finishClosing();
        EXPECT_EQ(answers, QStringList{way.answer});
        EXPECT_TRUE(dialog.isNull());
        EXPECT_TRUE(field->lineEdit()->hasFocus());
    }
}

TEST_F(ComponentsQuestion, TabGoesRoundItsButtons)
{
    auto* dialog = ask();
    QTest::keyClick(dialog->noButton(), Qt::Key_Tab);
    EXPECT_TRUE(dialog->yesButton()->hasFocus());
    QTest::keyClick(dialog->yesButton(), Qt::Key_Tab);
    EXPECT_TRUE(dialog->noButton()->hasFocus());
    QTest::keyClick(dialog->noButton(), Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(dialog->yesButton()->hasFocus());
    field->lineEdit()->setFocus();
    EXPECT_TRUE(dialog->noButton()->hasFocus()) << "nothing behind it takes the focus";
}

TEST_F(ComponentsQuestion, GoesWithWhoeverAsked)
{
    const QPointer dialog = ask();
    delete field;
    QApplication::processEvents();
    EXPECT_EQ(answers, QStringList{u"no"_s});
    finishClosing();
    EXPECT_TRUE(dialog.isNull());
}

TEST_F(ComponentsQuestion, AnAlertOverItHasTheFocusUntilItCloses)
{
    auto* dialog = ask();
    auto* alert = AlertDialog::present(field, u"Cannot Save"_s, u"Try again."_s);
    EXPECT_TRUE(alert->okButton()->hasFocus());
    QTest::keyClick(alert->okButton(), Qt::Key_Return);
    finishClosing();
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_TRUE(dialog->noButton()->hasFocus());
    QTest::keyClick(dialog->noButton(), Qt::Key_Return);
    EXPECT_TRUE(field->lineEdit()->hasFocus());
}

TEST_F(ComponentsQuestion, OneThatGoesUnderAnAlertLeavesItTheFocusAndWhereToReturnIt)
{
    auto* dialog = ask();
    auto* alert = AlertDialog::present(field, u"Cannot Save"_s, u"Try again."_s);
    dialog->reject();
    finishClosing();
    EXPECT_TRUE(alert->okButton()->hasFocus());
    QTest::keyClick(alert->okButton(), Qt::Key_Return);
    EXPECT_TRUE(field->lineEdit()->hasFocus());
}

TEST_F(ComponentsQuestion, APresentedQuestionFollowsItsProperty)
{
    QProperty<std::optional<Question>> asked;
    QList<bool> given;
    presentQuestions(field, asked, [&](bool yes) { given += yes; });
    const auto dialog = [this] { return window.findChild<QuestionDialog*>(); };
    EXPECT_EQ(dialog(), nullptr);

    asked = question;
    ASSERT_NE(dialog(), nullptr);
    asked = Question{u"Another?"_s, {}, u"Yes"_s, u"No"_s};
    EXPECT_EQ(window.findChildren<QuestionDialog*>().size(), 1);
    EXPECT_EQ(dialog()->title(), u"Another?"_s);
    EXPECT_TRUE(given.isEmpty());

    QTest::mouseClick(dialog()->yesButton(), Qt::LeftButton);
    EXPECT_EQ(given, QList{true});
    asked = std::nullopt;
    finishClosing();
    EXPECT_EQ(dialog(), nullptr);
    EXPECT_EQ(given, QList{true});

    asked = question;
    ASSERT_NE(dialog(), nullptr) << "the same question once more";
    asked = std::nullopt;
    finishClosing();
    EXPECT_EQ(dialog(), nullptr);
}

TEST_F(ComponentsQuestion, AQuestionAskedByTheAnswerToOneIsShown)
{
    const Question another{u"Another?"_s, {}, u"Yes"_s, u"No"_s};
    QProperty<std::optional<Question>> asked;
    QList<bool> given;
    presentQuestions(field, asked, [&](bool yes) {
        given += yes;
        asked = std::nullopt;
        if (given.size() == 1)
            asked = another;
    });
    asked = question;
    QTest::mouseClick(window.findChild<QuestionDialog*>()->noButton(), Qt::LeftButton);
    finishClosing();
    auto* dialog = window.findChild<QuestionDialog*>();
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->title(), u"Another?"_s);
    EXPECT_TRUE(dialog->noButton()->hasFocus());
    QTest::mouseClick(dialog->yesButton(), Qt::LeftButton);
    finishClosing();
    EXPECT_EQ(given, (QList<bool>{false, true}));
    EXPECT_EQ(window.findChild<QuestionDialog*>(), nullptr);
}
