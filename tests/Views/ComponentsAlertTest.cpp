#include "ComponentsTest.h"

#include "Components/AlertDialog.h"
#include "Components/PlainLabel.h"
#include "Components/PrimaryButton.h"
#include "Components/TextField.h"

#include <QLineEdit>
#include <QShortcut>

using namespace Qt::StringLiterals;

namespace {

class ComponentsAlert : public ComponentsTest
{
protected:
    ComponentsAlert()
    {
        show({field});
        field->lineEdit()->setFocus();
    }

    AlertDialog* present(const QString& title = u"Missing Information"_s)
    {
        return AlertDialog::present(field, title, u"Describe what needs to be <b>notarized</b>."_s);
    }

    static void finishClosing() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    TextField* field = new TextField(u"Name"_s);
};

} // namespace

TEST_F(ComponentsAlert, SaysItsTextsAndHoldsTheFocus)
{
    auto* alert = present();
    EXPECT_EQ(accessible(alert)->role(), QAccessible::AlertMessage);
    EXPECT_EQ(accessibleName(alert), u"Missing Information"_s);
    EXPECT_EQ(
        accessible(alert)->text(QAccessible::Description), u"Describe what needs to be <b>notarized</b>."_s);
    EXPECT_EQ(alert->okButton()->title(), u"OK"_s);
    EXPECT_TRUE(alert->okButton()->hasFocus());
    EXPECT_EQ(alert->geometry(), window.rect());
}

TEST_F(ComponentsAlert, EachWayOfDismissingItClosesItOnceAndReturnsTheFocus)
{
    const std::initializer_list<void (*)(AlertDialog*)> ways{
        [](AlertDialog* alert) { QTest::keyClick(alert->okButton(), Qt::Key_Return); },
        [](AlertDialog* alert) { QTest::keyClick(alert->okButton(), Qt::Key_Space); },
        [](AlertDialog* alert) { QTest::keyClick(alert->okButton(), Qt::Key_Escape); },
        [](AlertDialog* alert) { QTest::mouseClick(alert->okButton(), Qt::LeftButton); }};
    for (const auto dismiss : ways) {
        field->lineEdit()->setFocus();
        const QPointer alert = present();
        int dismissals = 0;
        QObject::connect(alert, &QDialog::finished, alert, [&dismissals] { ++dismissals; });
        dismiss(alert);
        finishClosing();
        EXPECT_EQ(dismissals, 1);
        EXPECT_TRUE(alert.isNull());
        EXPECT_TRUE(field->lineEdit()->hasFocus());
    }
}

TEST_F(ComponentsAlert, NothingBehindItReacts)
{
    QShortcut shortcut(QKeySequence(Qt::CTRL | Qt::Key_B), &window);
    QSignalSpy triggered(&shortcut, &QShortcut::activated);
    QTest::keyClick(window.focusWidget(), Qt::Key_B, Qt::ControlModifier);
    EXPECT_EQ(triggered.size(), 1);

    auto* alert = present();
    QTest::keyClick(alert->okButton(), Qt::Key_B, Qt::ControlModifier);
    EXPECT_EQ(triggered.size(), 1);
    QTest::keyClick(alert->okButton(), Qt::Key_Tab);
    EXPECT_TRUE(alert->okButton()->hasFocus());
    QTest::keyClick(alert->okButton(), Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(alert->okButton()->hasFocus());
    field->lineEdit()->setFocus();
    EXPECT_TRUE(alert->okButton()->hasFocus());
    EXPECT_EQ(window.childAt(field->geometry().center())->window(), &window);
    EXPECT_FALSE(field->isAncestorOf(window.childAt(field->geometry().center())));
}

TEST_F(ComponentsAlert, ANewOneReplacesTheOldOne)
{
    auto* first = present();
    auto* second = present(u"Cannot Save"_s);
    EXPECT_EQ(first, second);
    EXPECT_EQ(second->title(), u"Cannot Save"_s);
    EXPECT_EQ(window.findChildren<AlertDialog*>().size(), 1);
}

TEST_F(ComponentsAlert, OneThatIsClosingDoesNotSwallowTheNext)
{
    auto* first = present();
    QTest::keyClick(first->okButton(), Qt::Key_Escape);
    auto* second = present(u"Cannot Save"_s);
    EXPECT_NE(first, second);
    finishClosing();
    EXPECT_TRUE(second->isVisible());
    EXPECT_TRUE(second->okButton()->hasFocus());
}

TEST_F(ComponentsAlert, FollowsItsWindowAndFitsIntoIt)
{
    auto* alert = AlertDialog::present(&window, u"Long"_s, u"word "_s.repeated(3000));
    window.resize(700, 500);
    EXPECT_EQ(alert->geometry(), window.rect());
    const auto* card = alert->okButton()->parentWidget();
    EXPECT_EQ(card->width(), 400);
    EXPECT_LE(card->height(), 460);
    EXPECT_TRUE(card->rect().contains(alert->okButton()->geometry()));
}
